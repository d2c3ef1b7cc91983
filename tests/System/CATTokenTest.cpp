#include "CATToken.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{

std::vector<std::string> Tokens(const CATUnicodeString& text, const CATUnicodeString& delimiter,
                                int count)
{
    CATToken token(text);
    std::vector<std::string> tokens;
    for (int index = 0; index < count; ++index) {
        tokens.push_back(token.GetNextToken(delimiter).ToStdString());
    }
    return tokens;
}

using List = std::vector<std::string>;

TEST(CATToken, CutsFrontToBackAndIsEmptyPastTheEnd)
{
    EXPECT_EQ(Tokens("a|bc|d", "|", 5), (List{"a", "bc", "d", "", ""}));
    EXPECT_EQ(Tokens("", "|", 1), (List{""}));
}

TEST(CATToken, TwoDelimitersGiveAnEmptyTokenBetweenThem)
{
    EXPECT_EQ(Tokens("a||b", "|", 4), (List{"a", "", "b", ""}));
}

TEST(CATToken, LeadingDelimiterGivesAnEmptyFirstTokenAndATrailingOneNone)
{
    EXPECT_EQ(Tokens("|a|", "|", 3), (List{"", "a", ""}));
}

TEST(CATToken, DelimiterIsOneTextAndNoSetOfCharacters)
{
    EXPECT_EQ(Tokens("a, b,c d, e", ", ", 4), (List{"a", "b,c d", "e", ""}));
    EXPECT_EQ(Tokens("1\xe2\x86\x92"
                     "2",
                     "\xe2\x86\x92", 3),
              (List{"1", "2", ""}));
}

TEST(CATToken, EmptyDelimiterGivesAllThatIsLeft)
{
    CATToken token("a|b|c");
    EXPECT_EQ(token.GetNextToken("|"), "a");
    EXPECT_EQ(token.GetNextToken(""), "b|c");
    EXPECT_EQ(token.GetNextToken("|"), "");
}

TEST(CATToken, DelimiterMayChange)
{
    CATToken token("2010/07:01");
    EXPECT_EQ(token.GetNextToken("/"), "2010");
    EXPECT_EQ(token.GetNextToken(":"), "07");
    EXPECT_EQ(token.GetNextToken("/"), "01");
}

TEST(CATToken, KeepsItsOwnCopyOfTheText)
{
    CATUnicodeString text = "a text that is longer than what stands in place|tail";
    CATToken token(text);
    text.Append("!").ReplaceAll("a", "b");
    EXPECT_EQ(token.GetNextToken("|"), "a text that is longer than what stands in place");
    EXPECT_EQ(token.GetNextToken("|"), "tail");
}

} // namespace
