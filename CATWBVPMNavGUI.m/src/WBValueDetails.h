#pragma once

#include "CATUnicodeString.h"

#include <map>
#include <string>

class ENOWBAllDataBuffer;

/// Which figures of a part's mass types are really known. On the record's stream an unknown figure
/// travels as 0; this keeps it from being shown as one.
class WBValueDetails
{
public:
    struct Known
    {
        bool mass = true;
        bool centre = true;
        bool inertia = true;
    };

    /// Asks the server ("WBGetValueDetails") about the record's part and instance. An answer that
    /// does not come, or that cannot be read, is told on the diagnostic error stream; then nothing
    /// is said to be unknown.
    static WBValueDetails Ask(const ENOWBAllDataBuffer& record);
    /// Reads an answer: a count, then for each mass type its name and three flags (mass, centre of
    /// gravity, inertia). False, with nothing kept, for any other text.
    bool Read(const CATUnicodeString& answer);

    /// Of a mass type that the server said nothing about: all known.
    Known Of(const CATUnicodeString& massType) const;

private:
    std::map<std::string, Known, std::less<>> m_known;
};
