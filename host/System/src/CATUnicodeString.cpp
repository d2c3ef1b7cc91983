#include "CATUnicodeString.h"

#include "CATFatalError.h"
#include "CATNumberLocale.h"
#include "Utf8.h"

#include <unicode/uchar.h>
#include <unicode/ustring.h>

#include <algorithm>
#include <charconv>
#include <iterator>
#include <new>
#include <vector>

namespace
{

int CountCharacters(std::string_view text)
{
    int characters = 0;
    for (std::size_t offset = 0; offset < text.size(); offset += Utf8::At(text, offset).bytes) {
        ++characters;
    }
    return characters;
}

char LowerAscii(char letter)
{
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

// An ill-formed byte becomes half of a surrogate pair: no well-formed text holds one, so such bytes
// are alike only to themselves.
std::vector<UChar> ToUtf16(std::string_view text)
{
    std::vector<UChar> units;
    units.reserve(text.size());
    for (std::size_t offset = 0; offset < text.size();) {
        const Utf8::Character character = Utf8::At(text, offset);
        if (character.codePoint == Utf8::Character::kIllFormed) {
            units.push_back(static_cast<UChar>(0xdc00 + static_cast<unsigned char>(text[offset])));
        } else if (character.codePoint >= 0x10000) {
            units.push_back(static_cast<UChar>(0xd800 + ((character.codePoint - 0x10000) >> 10)));
            units.push_back(static_cast<UChar>(0xdc00 + ((character.codePoint - 0x10000) & 0x3ff)));
        } else {
            units.push_back(static_cast<UChar>(character.codePoint));
        }
        offset += character.bytes;
    }
    return units;
}

bool AreAlikeByFolding(std::string_view a, std::string_view b)
{
    const std::vector<UChar> left = ToUtf16(a);
    const std::vector<UChar> right = ToUtf16(b);
    UErrorCode error = U_ZERO_ERROR;
    return u_strCaseCompare(left.data(), static_cast<std::int32_t>(left.size()), right.data(),
                            static_cast<std::int32_t>(right.size()), U_FOLD_CASE_DEFAULT,
                            &error) == 0;
}

// Folding looks at one character at a time, so the ASCII beginning that most texts consist of can
// be settled without the tables, and only the rest goes through them.
bool AreAlike(std::string_view a, std::string_view b)
{
    const std::size_t common = std::min(a.size(), b.size());
    for (std::size_t index = 0; index < common; ++index) {
        if (((static_cast<unsigned char>(a[index]) | static_cast<unsigned char>(b[index])) &
             0x80U) != 0) {
            return AreAlikeByFolding(a.substr(index), b.substr(index));
        }
        if (LowerAscii(a[index]) != LowerAscii(b[index])) {
            return false;
        }
    }
    return a.size() == b.size();
}

// Bytes of UTF-8 sort like code points, and UTF-16 code units do too but for one thing: characters
// beyond U+FFFF (lead bytes F0 and up) are written with surrogates, which stand before U+E000 (lead
// bytes EE and EF).
int RankAsUtf16(char byte)
{
    const int value = static_cast<unsigned char>(byte);
    if (value >= 0xf0) {
        return value - 2;
    }
    return value >= 0xee ? value + 0x10 : value;
}

// Walks the characters of a text from the front and tells which offsets are their first bytes.
class BoundaryWalk
{
public:
    explicit BoundaryWalk(std::string_view text) : m_text(text) {}
    /// Offsets must not fall from one call to the next.
    bool Reaches(std::size_t offset)
    {
        while (m_offset < offset) {
            m_offset += Utf8::At(m_text, m_offset).bytes;
            ++m_position;
        }
        return m_offset == offset;
    }
    int Position() const { return m_position; }

private:
    std::string_view m_text;
    std::size_t m_offset = 0;
    int m_position = 0;
};

// The precision of a "%g" or "%.Ng" format, -1 for any other text.
int PrecisionOf(std::string_view format)
{
    constexpr std::size_t kMostDigits = 3;
    constexpr int kDefaultPrecision = 6;
    if (format == "%g") {
        return kDefaultPrecision;
    }
    if (!format.starts_with("%.") || !format.ends_with('g')) {
        return -1;
    }
    const std::string_view digits = format.substr(2, format.size() - 3);
    const bool areDigits = std::all_of(digits.begin(), digits.end(),
                                       [](char digit) { return digit >= '0' && digit <= '9'; });
    if (digits.size() > kMostDigits || !areDigits) {
        return -1;
    }
    int precision = 0;
    for (const char digit : digits) {
        precision = precision * 10 + (digit - '0');
    }
    return precision;
}

} // namespace

CATUnicodeString::Shared* CATUnicodeString::NewBlock(std::size_t capacity)
{
    void* memory = ::operator new(sizeof(Shared) + capacity + 1);
    return new (memory) Shared{1, -1, true, 0, capacity};
}

void CATUnicodeString::Release(Shared* block) noexcept
{
    if (--block->references == 0) {
        ::operator delete(block);
    }
}

void CATUnicodeString::Hold(Shared* block) noexcept
{
    std::memcpy(m_bytes, &block, sizeof(void*));
    m_bytes[kInPlaceBytes] = static_cast<char>(kSharedTag);
}

void CATUnicodeString::Set(std::string_view utf8)
{
    if (utf8.size() <= kInPlaceBytes) {
        SetEmpty();
        if (!utf8.empty()) {
            std::memcpy(m_bytes, utf8.data(), utf8.size());
            m_bytes[kInPlaceBytes] = static_cast<char>(kInPlaceBytes - utf8.size());
        }
        return;
    }
    Shared* block = NewBlock(utf8.size());
    std::memcpy(block->Bytes(), utf8.data(), utf8.size());
    block->Bytes()[utf8.size()] = '\0';
    block->size = utf8.size();
    block->ascii = Utf8::IsAscii(utf8);
    Hold(block);
}

bool CATUnicodeString::IsAscii() const
{
    return IsShared() ? Block()->ascii : Utf8::IsAscii({m_bytes, kInPlaceBytes});
}

std::size_t CATUnicodeString::OffsetOf(int position) const
{
    const std::string_view text = View();
    if (position <= 0) {
        return 0;
    }
    if (IsAscii()) {
        return std::min(static_cast<std::size_t>(position), text.size());
    }
    std::size_t offset = 0;
    for (int character = 0; character < position && offset < text.size(); ++character) {
        offset += Utf8::At(text, offset).bytes;
    }
    return offset;
}

int CATUnicodeString::Length() const
{
    if (IsAscii()) {
        return static_cast<int>(ByteLength());
    }
    if (!IsShared()) {
        return CountCharacters(View());
    }
    if (Block()->characters < 0) {
        Block()->characters = CountCharacters(View());
    }
    return Block()->characters;
}

int CATUnicodeString::Compare(const CATUnicodeString& other) const
{
    if (*this == other) {
        return 2;
    }
    return AreAlike(View(), other.View()) ? 1 : 0;
}

int CATUnicodeString::Order(const CATUnicodeString& other) const
{
    const std::string_view a = View();
    const std::string_view b = other.View();
    const auto [left, right] = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
    if (left == a.end() || right == b.end()) {
        return static_cast<int>(left != a.end()) - static_cast<int>(right != b.end());
    }
    return RankAsUtf16(*left) - RankAsUtf16(*right);
}

int CATUnicodeString::Find(const CATUnicodeString& what, int from) const
{
    const std::string_view text = View();
    const std::string_view wanted = what.View();
    if (from > Length()) {
        return -1;
    }
    std::size_t offset = text.find(wanted, OffsetOf(from));
    if (IsAscii()) {
        return offset == std::string_view::npos ? -1 : static_cast<int>(offset);
    }
    // Bytes that are not UTF-8 may be found inside a character; that is not an occurrence.
    BoundaryWalk begin(text);
    BoundaryWalk end(text);
    for (; offset != std::string_view::npos; offset = text.find(wanted, offset + 1)) {
        if (begin.Reaches(offset) && end.Reaches(offset + wanted.size())) {
            return begin.Position();
        }
    }
    return -1;
}

int CATUnicodeString::FindLast(const CATUnicodeString& what) const
{
    if (what.IsEmpty()) {
        return Length();
    }
    if (IsAscii()) {
        const std::size_t offset = View().rfind(what.View());
        return offset == std::string_view::npos ? -1 : static_cast<int>(offset);
    }
    int last = -1;
    for (int position = Find(what); position >= 0; position = Find(what, position + 1)) {
        last = position;
    }
    return last;
}

CATUnicodeString CATUnicodeString::Part(int position, int count) const
{
    const std::size_t begin = OffsetOf(position);
    if (count < 0) {
        return begin == 0 ? *this : CATUnicodeString(View().substr(begin));
    }
    // What lies beyond the text is left out, so the end may be asked for as far away as can be
    // said.
    const std::int64_t end = static_cast<std::int64_t>(std::max(position, 0)) + count;
    const std::size_t endOffset =
        OffsetOf(static_cast<int>(std::min<std::int64_t>(end, INT32_MAX)));
    return CATUnicodeString(View().substr(begin, endOffset - begin));
}

CATUnicodeString& CATUnicodeString::Append(const CATUnicodeString& text)
{
    const std::string_view added = text.View();
    const std::size_t oldSize = ByteLength();
    const std::size_t newSize = oldSize + added.size();
    if (newSize <= kInPlaceBytes) {
        // The tag is written last: where the text is full it is also the terminating zero.
        std::memcpy(m_bytes + oldSize, added.data(), added.size());
        m_bytes[kInPlaceBytes] = static_cast<char>(kInPlaceBytes - newSize);
        return *this;
    }
    const bool ascii = IsAscii() && text.IsAscii();
    if (IsShared() && Block()->references == 1 && Block()->capacity >= newSize) {
        std::memcpy(Block()->Bytes() + oldSize, added.data(), added.size());
    } else {
        // Room for as much again, so that a text built piece by piece is copied a few times only.
        Shared* block = NewBlock(std::max(newSize, 2 * oldSize));
        std::memcpy(block->Bytes(), Text(), oldSize);
        std::memcpy(block->Bytes() + oldSize, added.data(), added.size());
        Free();
        Hold(block);
    }
    Block()->Bytes()[newSize] = '\0';
    Block()->size = newSize;
    Block()->ascii = ascii;
    Block()->characters = -1;
    return *this;
}

CATUnicodeString& CATUnicodeString::Insert(int position, const CATUnicodeString& text)
{
    std::string bytes = ToStdString();
    bytes.insert(OffsetOf(position), text.View());
    return *this = CATUnicodeString(bytes);
}

CATUnicodeString& CATUnicodeString::Remove(int position, int count)
{
    const CATUnicodeString removed = Part(position, count);
    std::string bytes = ToStdString();
    bytes.erase(OffsetOf(position), removed.ByteLength());
    return *this = CATUnicodeString(bytes);
}

CATUnicodeString& CATUnicodeString::ReplaceAll(const CATUnicodeString& what,
                                               const CATUnicodeString& with)
{
    if (what.IsEmpty()) {
        return *this;
    }
    const std::string_view text = View();
    std::string replaced;
    std::size_t copied = 0;
    BoundaryWalk begin(text);
    BoundaryWalk end(text);
    for (std::size_t offset = text.find(what.View()); offset != std::string_view::npos;) {
        const std::size_t behind = offset + what.ByteLength();
        const bool isOccurrence = begin.Reaches(offset) && end.Reaches(behind);
        if (isOccurrence) {
            replaced.append(text, copied, offset - copied).append(with.View());
            copied = behind;
        }
        offset = text.find(what.View(), isOccurrence ? behind : offset + 1);
    }
    if (copied == 0) {
        return *this;
    }
    replaced.append(text, copied);
    return *this = CATUnicodeString(replaced);
}

CATUnicodeString CATUnicodeString::Stripped(Ends ends) const
{
    std::string_view text = View();
    if (ends != Ends::Trailing) {
        text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    }
    if (ends != Ends::Leading) {
        text = text.substr(0, text.find_last_not_of(' ') + 1);
    }
    return text.size() == ByteLength() ? *this : CATUnicodeString(text);
}

int CATUnicodeString::ReadInt(int& value) const
{
    return CATReadInt(View(), value);
}

int CATUnicodeString::ReadReal(double& value) const
{
    return CATReadReal(View(), value);
}

CATUnicodeString CATUnicodeString::FromInt(int value)
{
    char digits[16];
    const std::to_chars_result end = std::to_chars(std::begin(digits), std::end(digits), value);
    return CATUnicodeString(std::string_view(digits, static_cast<std::size_t>(end.ptr - digits)));
}

CATUnicodeString CATUnicodeString::FromReal(double value, const char* format)
{
    const int precision = PrecisionOf(format == nullptr ? "" : format);
    if (precision < 0) {
        CATRaiseFatalError("not a format of a real: " + CATUnicodeString(format),
                           "CATUnicodeString", __LINE__);
        return {};
    }
    char inPlace[64];
    // Beside the digits asked for: sign, separator, up to four zeros before them, exponent.
    constexpr std::size_t kBeside = 16;
    std::string onHeap;
    char* begin = inPlace;
    std::size_t room = sizeof(inPlace);
    if (static_cast<std::size_t>(precision) + kBeside > room) {
        onHeap.resize(static_cast<std::size_t>(precision) + kBeside);
        begin = onHeap.data();
        room = onHeap.size();
    }
    const std::to_chars_result end =
        std::to_chars(begin, begin + room, value, std::chars_format::general, precision);
    const std::string_view text(begin, static_cast<std::size_t>(end.ptr - begin));
    const std::string_view separator = CATDecimalSeparator();
    const std::size_t point = text.find('.');
    if (point == std::string_view::npos || separator == ".") {
        return CATUnicodeString(text);
    }
    std::string local(text);
    local.replace(point, 1, separator);
    return CATUnicodeString(local);
}

CATUnicodeString operator+(CATUnicodeString left, const CATUnicodeString& right)
{
    return left.Append(right);
}
