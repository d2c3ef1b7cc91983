#pragma once

#include "WBExport.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// A text. Inside it is UTF-8; positions and lengths count characters, from 0. Short texts (up to
/// 31 bytes) stand in place, longer ones are shared between copies until one of them changes, so
/// copying and comparing are cheap. Bytes that are not UTF-8 are kept as they are and count one
/// character each. Texts live on the user-interface thread.
class WB_EXPORT CATUnicodeString
{
public:
    CATUnicodeString() noexcept;
    CATUnicodeString(const char* utf8);      ///< null is the empty text
    CATUnicodeString(std::string_view utf8); // NOLINT(google-explicit-constructor)
    CATUnicodeString(const std::string& utf8) : CATUnicodeString(std::string_view(utf8)) {}
    CATUnicodeString(const CATUnicodeString& other) noexcept;
    CATUnicodeString(CATUnicodeString&& other) noexcept;
    CATUnicodeString& operator=(const CATUnicodeString& other) noexcept;
    CATUnicodeString& operator=(CATUnicodeString&& other) noexcept;
    ~CATUnicodeString();

    bool IsEmpty() const { return ByteLength() == 0; }
    int Length() const;                ///< in characters
    std::size_t ByteLength() const;    ///< in bytes of UTF-8
    std::string_view View() const;     ///< valid until the text changes
    const char* Text() const;          ///< zero-terminated UTF-8, valid until the text changes
    std::string ToStdString() const { return std::string(View()); }

    /// 2 when the texts are identical, 1 when they differ in letter case alone, 0 otherwise. So a
    /// test for non-zero accepts a difference of case, a test for 2 does not.
    int Compare(const CATUnicodeString& other) const;
    /// Negative, zero or positive as this text comes before, with or after the other, by UTF-16
    /// code units.
    int Order(const CATUnicodeString& other) const;
    friend bool operator==(const CATUnicodeString& a, const CATUnicodeString& b) { return a.View() == b.View(); }

    /// The position of the first occurrence at or after `from`, -1 when there is none. An empty text
    /// is found at `from`.
    int Find(const CATUnicodeString& what, int from = 0) const;
    /// The position of the last occurrence, -1 when there is none.
    int FindLast(const CATUnicodeString& what) const;
    bool Contains(const CATUnicodeString& what) const { return Find(what) >= 0; }

    /// `count` characters from `position` on; what reaches beyond the text is left out. A negative
    /// count takes all that follows.
    CATUnicodeString Part(int position, int count = -1) const;
    CATUnicodeString& Append(const CATUnicodeString& text);
    CATUnicodeString& operator+=(const CATUnicodeString& text) { return Append(text); }
    /// Puts `text` before the character at `position`; beyond the end it appends.
    CATUnicodeString& Insert(int position, const CATUnicodeString& text);
    CATUnicodeString& Remove(int position, int count);
    /// Every occurrence, left to right, without looking again at what was put in.
    CATUnicodeString& ReplaceAll(const CATUnicodeString& what, const CATUnicodeString& with);

    /// Which ends a Stripped call works on.
    enum class Ends { Leading, Trailing, Both };
    /// The text without blanks (the blank character only) at the ends asked for.
    CATUnicodeString Stripped(Ends ends = Ends::Both) const;

    /// Reads an integer as "%d" does in the session's locale: 1 and the value, or 0 with the value
    /// untouched when the text does not begin with a number.
    int ReadInt(int& value) const;
    /// Reads a real as "%le" does in the session's locale (its decimal separator, hexadecimal,
    /// "inf" and "nan" included): 1 and the value, or 0 with the value untouched.
    int ReadReal(double& value) const;
    static CATUnicodeString FromInt(int value);
    /// `format` is one "%g" conversion with an optional precision ("%g", "%.15g", "%.3g"), written
    /// with the session's decimal separator. Any other format is a programming error and raises the
    /// host's fatal error.
    static CATUnicodeString FromReal(double value, const char* format = "%.15g");

private:
    static constexpr std::size_t kInPlaceBytes = 31;
    struct Shared;
    void Assign(std::string_view utf8);
    void CopyFrom(const CATUnicodeString& other) noexcept;
    void Free() noexcept;

    // The last byte tells the form: 0..31 is the number of free bytes of a text in place (so that a
    // text of 31 bytes ends in its own terminating zero), 0xff a shared text.
    union {
        char m_inPlace[kInPlaceBytes + 1];
        Shared* m_shared;
    };
};

WB_EXPORT CATUnicodeString operator+(CATUnicodeString left, const CATUnicodeString& right);
