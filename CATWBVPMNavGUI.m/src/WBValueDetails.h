#pragma once

#include "CATUnicodeString.h"

#include <map>
#include <string>

class ENOWBAllDataBuffer;

/// What the record's stream does not say: the part's name as people say it, and which figures of
/// its mass types are really known. On the stream an unknown figure travels as 0; this keeps it
/// from being shown as one.
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
    /// Reads an answer: the part's name, a count, then for each mass type its name and three flags
    /// (mass, centre of gravity, inertia). False, with what was read before kept, for any other
    /// text, also one that goes on behind the announced types.
    bool Read(const CATUnicodeString& answer);

    /// Empty when the server did not say it.
    const CATUnicodeString& PartName() const { return m_partName; }

    /// Whether the server told anything about that mass type.
    bool Says(const CATUnicodeString& massType) const;
    /// Of a mass type that the server said nothing about: all known.
    Known Of(const CATUnicodeString& massType) const;

private:
    CATUnicodeString m_partName;
    std::map<std::string, Known, std::less<>> m_known;
};
