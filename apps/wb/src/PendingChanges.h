#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// Something that a user has changed and neither saved nor given up, as the server tells it. Texts
/// are those of the server: numbers in storage units, several joined by ";"; empty: nobody stated
/// one.
struct PendingChangeLine
{
    std::string subject; ///< "part WING A", "use WING A / left"
    std::string fact;    ///< "mass type Weighed, mass"
    std::string was;     ///< what was stored when the user changed it
    std::string now;     ///< what he wants
    std::string stored;  ///< what is stored at present
    bool conflicts;      ///< somebody else has stored another value meanwhile: it cannot be saved
    std::string by;      ///< who that was; may be unknown
    std::string at;      ///< when he did
    std::string when;    ///< when the user made his change
};

/// Reads the answer of method "WBPendingChanges". `problem` is empty, or a sentence that says why
/// there are no lines: no answer, what the server says instead, the field that cannot be read.
std::vector<PendingChangeLine> ReadPendingChanges(std::string_view answer, std::string& problem);
