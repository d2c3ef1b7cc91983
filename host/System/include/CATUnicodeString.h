#pragma once

#include "WBExport.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

/// A text. Inside it is UTF-8; positions and lengths count characters, from 0. Short texts (up to
/// 31 bytes) stand in place, longer ones are shared between copies until one of them changes, so
/// copying and comparing are cheap. Bytes that are not UTF-8 are kept as they are and count one
/// character each. Texts live on the user-interface thread.
class WB_EXPORT CATUnicodeString
{
public:
    CATUnicodeString() noexcept { SetEmpty(); }
    CATUnicodeString(const char* utf8)
        : CATUnicodeString(std::string_view(utf8 == nullptr ? "" : utf8))
    {}                                                     ///< null is the empty text
    CATUnicodeString(std::string_view utf8) { Set(utf8); } // NOLINT(google-explicit-constructor)
    CATUnicodeString(const std::string& utf8) : CATUnicodeString(std::string_view(utf8)) {}
    CATUnicodeString(const CATUnicodeString& other) noexcept { CopyFrom(other); }
    CATUnicodeString(CATUnicodeString&& other) noexcept
    {
        std::memcpy(m_bytes, other.m_bytes, sizeof(m_bytes));
        other.SetEmpty();
    }
    CATUnicodeString& operator=(const CATUnicodeString& other) noexcept
    {
        if (this != &other) {
            Free();
            CopyFrom(other);
        }
        return *this;
    }
    CATUnicodeString& operator=(CATUnicodeString&& other) noexcept
    {
        if (this != &other) {
            Free();
            std::memcpy(m_bytes, other.m_bytes, sizeof(m_bytes));
            other.SetEmpty();
        }
        return *this;
    }
    ~CATUnicodeString() { Free(); }

    bool IsEmpty() const { return ByteLength() == 0; }
    int Length() const; ///< in characters
    /// In bytes of UTF-8.
    std::size_t ByteLength() const { return IsShared() ? Block()->size : kInPlaceBytes - Tag(); }
    /// Valid until the text changes.
    std::string_view View() const { return {Text(), ByteLength()}; }
    /// Zero-terminated UTF-8, valid until the text changes.
    const char* Text() const { return IsShared() ? Block()->Bytes() : m_bytes; }
    std::string ToStdString() const { return std::string(View()); }

    /// 2 when the texts are identical, 1 when they differ in letter case alone, 0 otherwise. So a
    /// test for non-zero accepts a difference of case, a test for 2 does not.
    int Compare(const CATUnicodeString& other) const;
    /// Negative, zero or positive as this text comes before, with or after the other, by UTF-16
    /// code units.
    int Order(const CATUnicodeString& other) const;
    friend bool operator==(const CATUnicodeString& a, const CATUnicodeString& b)
    {
        // Both forms are canonical: short texts are always in place, with zeros behind them.
        if (a.IsShared() && b.IsShared()) {
            return a.Block() == b.Block() || a.View() == b.View();
        }
        return std::memcmp(a.m_bytes, b.m_bytes, sizeof(a.m_bytes)) == 0;
    }

    /// The position of the first occurrence at or after `from`, -1 when there is none. An empty
    /// text is found at `from`, which may be the end. A negative `from` counts as 0.
    int Find(const CATUnicodeString& what, int from = 0) const;
    /// The position of the last occurrence, -1 when there is none. An empty text is found at the
    /// end.
    int FindLast(const CATUnicodeString& what) const;
    bool Contains(const CATUnicodeString& what) const { return Find(what) >= 0; }

    /// `count` characters from `position` on; what reaches beyond the text is left out. A negative
    /// count takes all that follows; a negative position counts as 0, here and below.
    CATUnicodeString Part(int position, int count = -1) const;
    CATUnicodeString& Append(const CATUnicodeString& text);
    CATUnicodeString& operator+=(const CATUnicodeString& text) { return Append(text); }
    /// Puts `text` before the character at `position`; beyond the end it appends.
    CATUnicodeString& Insert(int position, const CATUnicodeString& text);
    /// Takes out `count` characters from `position` on, as Part counts them.
    CATUnicodeString& Remove(int position, int count);
    /// Every occurrence, left to right, without looking again at what was put in. An empty `what`
    /// changes nothing.
    CATUnicodeString& ReplaceAll(const CATUnicodeString& what, const CATUnicodeString& with);

    /// Which ends a Stripped call works on.
    enum class Ends
    {
        Leading,
        Trailing,
        Both
    };
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
    static constexpr unsigned char kSharedTag = 0xff;

    /// The head of a shared text; its bytes and a terminating zero follow in the same block.
    struct Shared
    {
        int references;
        mutable int characters; // counted when first asked for; -1 until then
        bool ascii;
        std::size_t size;
        std::size_t capacity;
        char* Bytes() { return reinterpret_cast<char*>(this + 1); }
        const char* Bytes() const { return reinterpret_cast<const char*>(this + 1); }
    };

    unsigned char Tag() const { return static_cast<unsigned char>(m_bytes[kInPlaceBytes]); }
    bool IsShared() const { return Tag() == kSharedTag; }
    Shared* Block() const
    {
        Shared* block = nullptr;
        std::memcpy(&block, m_bytes, sizeof(void*));
        return block;
    }
    void SetEmpty() noexcept
    {
        std::memset(m_bytes, 0, sizeof(m_bytes));
        m_bytes[kInPlaceBytes] = static_cast<char>(kInPlaceBytes);
    }
    void CopyFrom(const CATUnicodeString& other) noexcept
    {
        std::memcpy(m_bytes, other.m_bytes, sizeof(m_bytes));
        if (IsShared()) {
            ++Block()->references;
        }
    }
    void Free() noexcept
    {
        if (IsShared()) {
            Release(Block());
        }
    }
    static Shared* NewBlock(std::size_t capacity);
    static void Release(Shared* block) noexcept;
    // Set and Hold write over what stands there: it must own nothing any more.
    void Set(std::string_view utf8);
    void Hold(Shared* block) noexcept;
    bool IsAscii() const;
    std::size_t OffsetOf(int position) const;

    // The last byte tells the form: 0..31 is the number of free bytes of a text in place (so that a
    // text of 31 bytes ends in its own terminating zero), 0xff a shared text, whose block's address
    // stands in the first bytes. Free bytes are zero.
    alignas(void*) char m_bytes[kInPlaceBytes + 1];
};

WB_EXPORT CATUnicodeString operator+(CATUnicodeString left, const CATUnicodeString& right);
