#pragma once

#include "CATToken.h"
#include "WBExport.h"

#include <cstddef>
#include <string_view>

/// Reads the fields of a "|"-separated server stream one at a time, front to back. Keeps its own
/// copy of the text, so the caller's string may go away first. Past the end every field is empty.
///
/// A field that is not the number it should be means that client and server no longer agree on the
/// layout: the host's fatal error "AssertionFailed:lStatus == 1" is raised, after a line on the
/// diagnostic error stream. Where a handler lets the session go on, the field reads as 0.
class WB_EXPORT CATWBToken : public CATToken
{
public:
    explicit CATWBToken(const CATUnicodeString& text);
    ~CATWBToken() override;

    /// The next field.
    CATUnicodeString NextString();
    /// The next field without making a text of it; the bytes stay valid as long as the tokenizer.
    std::string_view NextView();
    /// The next field as an integer, read as "%d" does. An empty field is no integer.
    int NextInt();
    /// The next field as a real, in the unit the server sent, with either decimal separator. A
    /// blank field reads as 0.0.
    double NextDouble();

    /// How many bytes of the stream are still to be read, separators included.
    std::size_t UnreadBytes() const { return m_unreadBytes; }
    /// True when every further field is empty because the stream has ended.
    bool IsAtEnd() const { return m_unreadBytes == 0; }

private:
    std::size_t m_unreadBytes;
};
