#include "CATUnicodeString.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <string>
#include <utility>
#include <vector>

namespace
{

constexpr const char* kUmlauts = "\xc3\xa4\xc3\xb6\xc3\xbc";          // ä ö ü
const std::string kLong = "0123456789012345678901234567890123456789"; // 40 bytes: shared

int Sign(int value)
{
    return (value > 0) - (value < 0);
}

TEST(CATUnicodeString, IsEmptyByDefaultAndFromNull)
{
    const CATUnicodeString text;
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_EQ(text.Length(), 0);
    EXPECT_STREQ(text.Text(), "");
    const char* null = nullptr;
    EXPECT_TRUE(CATUnicodeString(null).IsEmpty());
}

TEST(CATUnicodeString, KeepsTextsOfEveryLengthAroundThePlaceInside)
{
    static_assert(sizeof(CATUnicodeString) == 32);
    for (std::size_t size = 0; size < 70; ++size) {
        const std::string bytes(size, 'x');
        const CATUnicodeString text(bytes);
        EXPECT_EQ(text.View(), bytes);
        EXPECT_EQ(text.ByteLength(), size);
        EXPECT_EQ(text.Length(), static_cast<int>(size));
        EXPECT_EQ(text.Text()[size], '\0');
        EXPECT_EQ(text.ToStdString(), bytes);
    }
}

TEST(CATUnicodeString, ShortTextsStandInPlaceAndLongOnesAreSharedBetweenCopies)
{
    const CATUnicodeString shortText(kLong.substr(0, 31));
    const CATUnicodeString shortCopy = shortText;
    EXPECT_NE(shortCopy.Text(), shortText.Text());
    const CATUnicodeString longText(kLong.substr(0, 32));
    const CATUnicodeString longCopy = longText;
    EXPECT_EQ(longCopy.Text(), longText.Text());
}

TEST(CATUnicodeString, ChangingACopyLeavesTheOriginal)
{
    const CATUnicodeString original(kLong);
    CATUnicodeString copy = original;
    copy.Append("!");
    EXPECT_EQ(original.View(), kLong);
    EXPECT_EQ(copy.View(), kLong + "!");
    CATUnicodeString second = copy;
    second += "?";
    EXPECT_EQ(copy.View(), kLong + "!");
}

TEST(CATUnicodeString, AssignsAndMovesAndSurvivesItself)
{
    CATUnicodeString a(kLong);
    CATUnicodeString b = "short";
    b = a;
    EXPECT_EQ(b.View(), kLong);
    const CATUnicodeString& same = b;
    b = same;
    EXPECT_EQ(b.View(), kLong);
    const CATUnicodeString c = std::move(a);
    EXPECT_EQ(c.View(), kLong);
    EXPECT_TRUE(a.IsEmpty()); // NOLINT(bugprone-use-after-move): a moved-from text is empty
    CATUnicodeString d(kLong + "d");
    d = std::move(b);
    EXPECT_EQ(d.View(), kLong);
    EXPECT_TRUE(b.IsEmpty()); // NOLINT(bugprone-use-after-move)
    CATUnicodeString& itself = d;
    d = std::move(itself);
    EXPECT_EQ(d.View(), kLong);
}

TEST(CATUnicodeString, CountsCharactersAndNotBytes)
{
    EXPECT_EQ(CATUnicodeString(kUmlauts).Length(), 3);
    EXPECT_EQ(CATUnicodeString(kUmlauts).ByteLength(), 6U);
    EXPECT_EQ(CATUnicodeString("\xe2\x82\xac\xf0\x9f\x98\x80").Length(), 2);
    CATUnicodeString longText = kLong + kUmlauts;
    EXPECT_EQ(longText.Length(), 43);
    EXPECT_EQ(longText.Length(), 43);
    EXPECT_EQ(longText.Append("x").Length(), 44);
}

TEST(CATUnicodeString, BytesThatAreNotUtf8CountOneEach)
{
    const std::pair<const char*, int> cases[] = {
        {"\x80", 1},             // a trailing byte alone
        {"\xc3", 1},             // a sequence that breaks off
        {"\xc3(", 2},            // a lead byte without its trail
        {"\xc0\xaf", 2},         // a longer form of "/"
        {"\xe0\x80\xaf", 3},     // the same with three bytes
        {"\xe0\x9f\xbf", 3},     // a longer form of U+07FF
        {"\xe0\xa0\x80", 1},     // U+0800
        {"\xed\x9f\xbf", 1},     // U+D7FF
        {"\xed\xa0\x80", 3},     // half of a surrogate pair
        {"\xed\xbf\xbf", 3},     // U+DFFF
        {"\xee\x80\x80", 1},     // U+E000
        {"\xf0\x8f\xbf\xbf", 4}, // a longer form of U+FFFF
        {"\xf0\x90\x80\x80", 1}, // U+10000
        {"\xf4\x8f\xbf\xbf", 1}, // U+10FFFF
        {"\xf4\x90\x80\x80", 4}, // beyond the last character
        {"\xf5\x80\x80\x80", 4},
        {"\xff", 1},
        {"\xe2\x82", 2},
        {"\xf0\x9f\x98", 3},
        {"\xc2\x80", 1},
        {"\xdf\xbf", 1},
        {"\xe2\x28\xac", 3},
        {"\xf0\x28\x98\x80", 4},
        {"\xf0\x9f\x28\x80", 4},
        {"\xf0\x9f\x98\x28", 4}};
    for (const auto& [bytes, characters] : cases) {
        EXPECT_EQ(CATUnicodeString(bytes).Length(), characters)
            << testing::PrintToString(std::string(bytes));
        EXPECT_STREQ(CATUnicodeString(bytes).Text(), bytes);
    }
}

TEST(CATUnicodeString, CompareTellsIdenticalAlikeAndDifferent)
{
    EXPECT_EQ(CATUnicodeString("LENGTH").Compare("LENGTH"), 2);
    EXPECT_EQ(CATUnicodeString("LENGTH").Compare("Length"), 1);
    EXPECT_EQ(CATUnicodeString("LENGTH").Compare("LENGTHS"), 0);
    EXPECT_EQ(CATUnicodeString("LENGTHS").Compare("length"), 0);
    EXPECT_EQ(CATUnicodeString("a").Compare("b"), 0);
    EXPECT_EQ(CATUnicodeString("").Compare(""), 2);
    EXPECT_EQ(CATUnicodeString("").Compare("a"), 0);
    EXPECT_EQ(CATUnicodeString(kLong + "A").Compare(kLong + "a"), 1);
    EXPECT_EQ(CATUnicodeString(kLong).Compare(kLong), 2);
    // The characters around the letters differ by the same bit as the cases do.
    EXPECT_EQ(CATUnicodeString("@").Compare("`"), 0);
    EXPECT_EQ(CATUnicodeString("[").Compare("{"), 0);
    EXPECT_EQ(CATUnicodeString("AZ").Compare("az"), 1);
}

TEST(CATUnicodeString, CompareFoldsLettersBeyondAscii)
{
    EXPECT_EQ(CATUnicodeString("\xc3\x84rger").Compare("\xc3\xa4RGER"), 1); // Ärger, äRGER
    EXPECT_EQ(CATUnicodeString("Stra\xc3\x9f"
                               "e")
                  .Compare("STRASSE"),
              1);
    EXPECT_EQ(CATUnicodeString("\xce\xa3").Compare("\xcf\x82"), 1); // sigma, final sigma
    EXPECT_EQ(CATUnicodeString("\xe2\x84\xaa").Compare("k"), 1);    // the kelvin sign is a K
    EXPECT_EQ(CATUnicodeString("\xf0\x90\x90\x80").Compare("\xf0\x90\x90\xa8"), 1); // beyond U+FFFF
    EXPECT_EQ(CATUnicodeString("x\xc3\xa4").Compare("X\xc3\xb6"), 0);
    EXPECT_EQ(CATUnicodeString("a\xcc\x81").Compare("\xc3\xa1"),
              0); // another spelling is another text
}

TEST(CATUnicodeString, BytesThatAreNotUtf8AreAlikeOnlyToThemselves)
{
    EXPECT_EQ(CATUnicodeString("A\xff").Compare("a\xff"), 1);
    EXPECT_EQ(CATUnicodeString("\xff").Compare("\xfe"), 0);
    EXPECT_EQ(CATUnicodeString("\xff").Compare("\xef\xbf\xbd"), 0);
}

TEST(CATUnicodeString, OrdersByUtf16CodeUnits)
{
    // Each stands before the next: a text before what continues it, surrogates before U+E000.
    const std::vector<CATUnicodeString> rising{"",
                                               "A",
                                               "AB",
                                               "B",
                                               "a",
                                               "\xc3\xa4",
                                               "\xed\x9f\xbf",
                                               "\xf0\x90\x80\x80",
                                               "\xf0\x9f\x98\x80",
                                               "\xf4\x8f\xbf\xbf",
                                               "\xee\x80\x80",
                                               "\xef\xbf\xbd",
                                               "\xef\xbf\xbd\xf0\x90\x80\x80",
                                               "\xef\xbf\xbd\xee\x80\x80"};
    for (std::size_t a = 0; a < rising.size(); ++a) {
        for (std::size_t b = 0; b < rising.size(); ++b) {
            EXPECT_EQ(Sign(rising[a].Order(rising[b])),
                      Sign(static_cast<int>(a) - static_cast<int>(b)))
                << a << " " << b;
        }
    }
}

TEST(CATUnicodeString, OrderAgreesWithUtf16OnEveryText)
{
    EXPECT_TRUE(rc::check("orders as UTF-16", [] {
        const auto points = rc::gen::container<std::u32string>(rc::gen::element<char32_t>(
            U'a', U'\u00e4', U'\ud7ff', U'\ue000', U'\uffff', U'\U00010000', U'\U0010ffff'));
        const auto encode = [](const std::u32string& text, std::u16string& units) {
            std::string bytes;
            const auto put = [&](char32_t byte) {
                bytes += static_cast<char>(byte);
            };
            for (const char32_t point : text) {
                if (point < 0x80) {
                    put(point);
                } else if (point < 0x800) {
                    put(0xc0 | (point >> 6));
                    put(0x80 | (point & 0x3f));
                } else if (point < 0x10000) {
                    put(0xe0 | (point >> 12));
                    put(0x80 | ((point >> 6) & 0x3f));
                    put(0x80 | (point & 0x3f));
                } else {
                    put(0xf0 | (point >> 18));
                    put(0x80 | ((point >> 12) & 0x3f));
                    put(0x80 | ((point >> 6) & 0x3f));
                    put(0x80 | (point & 0x3f));
                    units += static_cast<char16_t>(0xd7c0 + (point >> 10));
                    units += static_cast<char16_t>(0xdc00 + (point & 0x3ff));
                    continue;
                }
                units += static_cast<char16_t>(point);
            }
            return CATUnicodeString(bytes);
        };
        std::u16string leftUnits;
        std::u16string rightUnits;
        const CATUnicodeString left = encode(*points, leftUnits);
        const CATUnicodeString right = encode(*points, rightUnits);
        RC_ASSERT(Sign(left.Order(right)) == Sign(leftUnits.compare(rightUnits)));
    }));
}

TEST(CATUnicodeString, EqualityLooksAtTheWholeText)
{
    EXPECT_TRUE(CATUnicodeString("abc") == "abc");
    EXPECT_FALSE(CATUnicodeString("abc") == "abd");
    EXPECT_FALSE(CATUnicodeString("abc") == kLong);
    EXPECT_FALSE(CATUnicodeString(kLong) == "abc");
    EXPECT_TRUE(CATUnicodeString(kLong) == CATUnicodeString(kLong));
    EXPECT_FALSE(CATUnicodeString(kLong) == CATUnicodeString(kLong + "x"));
    const CATUnicodeString shared(kLong);
    EXPECT_TRUE(CATUnicodeString(shared) == shared);
    // A text that was long is as equal as one that always was short.
    CATUnicodeString shortened(kLong);
    EXPECT_TRUE(shortened.Remove(3, 100) == "012");
    EXPECT_FALSE(CATUnicodeString(std::string_view("a\0", 2)) == "a");
}

TEST(CATUnicodeString, FindsTheFirstOccurrenceAtOrAfterAPosition)
{
    const CATUnicodeString text = "abcabc";
    EXPECT_EQ(text.Find("bc"), 1);
    EXPECT_EQ(text.Find("bc", 1), 1);
    EXPECT_EQ(text.Find("bc", 2), 4);
    EXPECT_EQ(text.Find("bc", 5), -1);
    EXPECT_EQ(text.Find("bc", -3), 1);
    EXPECT_EQ(text.Find("x"), -1);
    EXPECT_EQ(text.Find("abc", 7), -1);
    EXPECT_TRUE(text.Contains("ca"));
    EXPECT_FALSE(text.Contains("cc"));
}

TEST(CATUnicodeString, EmptyTextIsFoundWhereTheSearchBegins)
{
    EXPECT_EQ(CATUnicodeString("abc").Find("", 2), 2);
    EXPECT_EQ(CATUnicodeString("abc").Find("", 3), 3);
    EXPECT_EQ(CATUnicodeString("abc").Find("", 4), -1);
    EXPECT_EQ(CATUnicodeString(kUmlauts).Find("", 2), 2);
    EXPECT_EQ(CATUnicodeString("abc").FindLast(""), 3);
    EXPECT_EQ(CATUnicodeString("").Find(""), 0);
}

TEST(CATUnicodeString, FindsInCharactersBeyondAscii)
{
    const CATUnicodeString text = "\xc3\xa4x\xc3\xb6x\xc3\xa4"; // äxöxä
    EXPECT_EQ(text.Find("x"), 1);
    EXPECT_EQ(text.Find("x", 2), 3);
    EXPECT_EQ(text.Find("\xc3\xa4", 1), 4);
    EXPECT_EQ(text.FindLast("x"), 3);
    EXPECT_EQ(text.FindLast("\xc3\xa4"), 4);
    EXPECT_EQ(text.FindLast("y"), -1);
    EXPECT_EQ(text.Find("x", 6), -1);
}

TEST(CATUnicodeString, APartOfACharacterIsNoOccurrence)
{
    EXPECT_EQ(CATUnicodeString(kUmlauts).Find("\xa4"), -1);
    EXPECT_EQ(CATUnicodeString(kUmlauts).Find("\xc3"), -1);
    EXPECT_EQ(CATUnicodeString("\xc3\xa4\xa4").Find("\xa4"), 1);
    EXPECT_EQ(CATUnicodeString("\xc3\xa4\xc3").Find("\xc3"), 1);
    CATUnicodeString text = "\xc3\xa4\xa4";
    EXPECT_EQ(text.ReplaceAll("\xa4", "!"), "\xc3\xa4!");
}

TEST(CATUnicodeString, FindsTheLastOccurrence)
{
    EXPECT_EQ(CATUnicodeString("aaa").FindLast("aa"), 1);
    EXPECT_EQ(CATUnicodeString("abc").FindLast("a"), 0);
    EXPECT_EQ(CATUnicodeString("abc").FindLast("x"), -1);
}

TEST(CATUnicodeString, PartCountsCharactersAndStaysInsideTheText)
{
    const CATUnicodeString text = "abcdef";
    EXPECT_EQ(text.Part(2), "cdef");
    EXPECT_EQ(text.Part(2, 3), "cde");
    EXPECT_EQ(text.Part(2, 0), "");
    EXPECT_EQ(text.Part(4, 9), "ef");
    EXPECT_EQ(text.Part(4, 2147483647), "ef");
    EXPECT_EQ(text.Part(6), "");
    EXPECT_EQ(text.Part(9, 2), "");
    EXPECT_EQ(text.Part(-2, 2), "ab");
    EXPECT_EQ(text.Part(0), text);
    EXPECT_EQ(CATUnicodeString(kUmlauts).Part(1, 1), "\xc3\xb6");
    EXPECT_EQ(CATUnicodeString(kUmlauts).Part(2), "\xc3\xbc");
    EXPECT_EQ(CATUnicodeString(kUmlauts).Part(5), "");
    EXPECT_EQ(CATUnicodeString(kLong).Part(0).Text(), CATUnicodeString(kLong).Part(0));
}

TEST(CATUnicodeString, AppendsItselfInEveryForm)
{
    CATUnicodeString text = "ab";
    std::string expected = "ab";
    for (int round = 0; round < 8; ++round) {
        text.Append(text);
        expected += expected;
        EXPECT_EQ(text.View(), expected);
        EXPECT_EQ(text.Text()[text.ByteLength()], '\0');
    }
    CATUnicodeString grown(kLong);
    grown.Append("x");
    grown.Append(grown.Part(0));
    EXPECT_EQ(grown.View(), kLong + "x" + kLong + "x");
}

TEST(CATUnicodeString, AppendingByteByByteGivesTheWholeText)
{
    CATUnicodeString text;
    std::string expected;
    for (int index = 0; index < 300; ++index) {
        const std::string piece(1, static_cast<char>('a' + index % 26));
        text += piece;
        expected += piece;
        ASSERT_EQ(text.View(), expected);
    }
    EXPECT_EQ(text.Append("\xc3\xa4").Length(), 301);
    EXPECT_EQ(text.Append("b").Length(), 302);
    EXPECT_EQ(text.Find("b", 300), 301);
}

TEST(CATUnicodeString, AppendingPiecesCopiesTheTextAFewTimesOnly)
{
    CATUnicodeString text(kLong);
    int moves = 0;
    for (int index = 0; index < 100000; ++index) {
        const char* before = text.Text();
        text += "x";
        moves += text.Text() != before ? 1 : 0;
    }
    EXPECT_LE(moves, 20);
}

TEST(CATUnicodeString, PlusJoinsAndLeavesBothSides)
{
    const CATUnicodeString left = "a";
    const CATUnicodeString right = "b";
    EXPECT_EQ(left + right + "c", "abc");
    EXPECT_EQ(left, "a");
    EXPECT_EQ(right, "b");
}

TEST(CATUnicodeString, InsertsBeforeACharacterAndAppendsBeyondTheEnd)
{
    EXPECT_EQ(CATUnicodeString("ac").Insert(1, "b"), "abc");
    EXPECT_EQ(CATUnicodeString("ac").Insert(0, "b"), "bac");
    EXPECT_EQ(CATUnicodeString("ac").Insert(9, "b"), "acb");
    EXPECT_EQ(CATUnicodeString("ac").Insert(-1, "b"), "bac");
    EXPECT_EQ(CATUnicodeString(kUmlauts).Insert(2, "|"), "\xc3\xa4\xc3\xb6|\xc3\xbc");
    CATUnicodeString text = "ab";
    EXPECT_EQ(text.Insert(1, text), "aabb");
}

TEST(CATUnicodeString, RemovesCharacters)
{
    EXPECT_EQ(CATUnicodeString("abcd").Remove(1, 2), "ad");
    EXPECT_EQ(CATUnicodeString("abcd").Remove(1, 99), "a");
    EXPECT_EQ(CATUnicodeString("abcd").Remove(1, -1), "a");
    EXPECT_EQ(CATUnicodeString("abcd").Remove(9, 1), "abcd");
    EXPECT_EQ(CATUnicodeString("abcd").Remove(-1, 1), "bcd");
    EXPECT_EQ(CATUnicodeString("abcd").Remove(1, 0), "abcd");
    EXPECT_EQ(CATUnicodeString(kUmlauts).Remove(1, 1), "\xc3\xa4\xc3\xbc");
}

TEST(CATUnicodeString, ReplacesEveryOccurrenceWithoutLookingAtWhatWasPutIn)
{
    EXPECT_EQ(CATUnicodeString("a.b.c").ReplaceAll(".", ","), "a,b,c");
    EXPECT_EQ(CATUnicodeString("aaa").ReplaceAll("a", "aa"), "aaaaaa");
    EXPECT_EQ(CATUnicodeString("aaaa").ReplaceAll("aa", "b"), "bb");
    EXPECT_EQ(CATUnicodeString("abc").ReplaceAll("b", ""), "ac");
    EXPECT_EQ(CATUnicodeString("abc").ReplaceAll("x", "y"), "abc");
    EXPECT_EQ(CATUnicodeString("abc").ReplaceAll("", "y"), "abc");
    EXPECT_EQ(CATUnicodeString(kUmlauts).ReplaceAll("\xc3\xb6", "oe"), "\xc3\xa4oe\xc3\xbc");
    CATUnicodeString text = "a";
    EXPECT_EQ(text.ReplaceAll(text, "b"), "b");
}

TEST(CATUnicodeString, StripsTheBlankCharacterOnly)
{
    using Ends = CATUnicodeString::Ends;
    EXPECT_EQ(CATUnicodeString("  a b  ").Stripped(), "a b");
    EXPECT_EQ(CATUnicodeString("  a b  ").Stripped(Ends::Leading), "a b  ");
    EXPECT_EQ(CATUnicodeString("  a b  ").Stripped(Ends::Trailing), "  a b");
    EXPECT_EQ(CATUnicodeString("\t a\n").Stripped(), "\t a\n");
    for (const Ends ends : {Ends::Leading, Ends::Trailing, Ends::Both}) {
        EXPECT_EQ(CATUnicodeString("   ").Stripped(ends), "");
        EXPECT_EQ(CATUnicodeString("").Stripped(ends), "");
        EXPECT_EQ(CATUnicodeString("a").Stripped(ends), "a");
    }
}

} // namespace
