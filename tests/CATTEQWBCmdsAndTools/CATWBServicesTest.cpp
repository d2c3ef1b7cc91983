#include "CATWBServices.h"

#include "ModuleSession.h"

#include <string>

namespace
{

TEST(FieldByNumber, IntegerFormCountsEveryDelimiter)
{
    int value = 0;
    EXPECT_EQ(CATWBServices::FindOccurenceOfDelim("a|7|b", 1, value), S_OK);
    EXPECT_EQ(value, 7);
    EXPECT_EQ(CATWBServices::FindOccurenceOfDelim("||5", 2, value), S_OK);
    EXPECT_EQ(value, 5);
    EXPECT_EQ(CATWBServices::FindOccurenceOfDelim("9", 0, value), S_OK);
    EXPECT_EQ(value, 9);
}

TEST(FieldByNumber, IntegerFormFailsWithoutTheFieldOrANumberAndLeavesTheOutput)
{
    int value = 42;
    EXPECT_EQ(CATWBServices::FindOccurenceOfDelim("a|7|b", 3, value), E_FAIL);
    EXPECT_EQ(CATWBServices::FindOccurenceOfDelim("a|7|b", 0, value), E_FAIL);
    EXPECT_EQ(CATWBServices::FindOccurenceOfDelim("1||3", 1, value), E_FAIL);
    EXPECT_EQ(CATWBServices::FindOccurenceOfDelim("", 0, value), E_FAIL);
    EXPECT_EQ(CATWBServices::FindOccurenceOfDelim("1|2", 2, value), E_FAIL);
    EXPECT_EQ(CATWBServices::FindOccurenceOfDelim("1|2|", 2, value), E_FAIL);
    EXPECT_EQ(value, 42);
}

TEST(FieldByNumber, IntegerFormTakesANegativeNumberForTheFirstField)
{
    int value = 0;
    EXPECT_EQ(CATWBServices::FindOccurenceOfDelim("3|4", -2, value), S_OK);
    EXPECT_EQ(value, 3);
}

TEST(FieldByNumber, TextFormReturnsTheToken)
{
    const DiagnosticCapture heard;
    CATUnicodeString token;
    EXPECT_EQ(CATWBServices::FindOccurenceOfDelim("a|7|b", 2, token), S_OK);
    EXPECT_EQ(token, "b");
    EXPECT_THAT(heard.Lines(),
                testing::ElementsAre("iStringToParse:a|7|b", "NbOfOccurence:2", "NbOfTokens:3"));
}

TEST(FieldByNumber, TextFormFailsWithALineAndLeavesTheOutput)
{
    const DiagnosticCapture heard;
    CATUnicodeString token("kept");
    EXPECT_EQ(CATWBServices::FindOccurenceOfDelim("a|7|b", 3, token), E_FAIL);
    EXPECT_EQ(token, "kept");
    EXPECT_THAT(heard.Lines(), testing::ElementsAre("iStringToParse:a|7|b", "NbOfOccurence:3",
                                                    "NbOfTokens:3", "FAILED to find substring #3"));
}

TEST(FieldByNumber, TextFormStopsCountingAtTheFirstEmptyToken)
{
    const SilentStreams silent;
    CATUnicodeString token("kept");
    EXPECT_EQ(CATWBServices::FindOccurenceOfDelim("a||b", 2, token), E_FAIL);
    EXPECT_EQ(CATWBServices::FindOccurenceOfDelim("a||b", 1, token), E_FAIL);
    EXPECT_EQ(CATWBServices::FindOccurenceOfDelim("|b", 0, token), E_FAIL);
    EXPECT_EQ(token, "kept");
    EXPECT_EQ(CATWBServices::FindOccurenceOfDelim("a||b", 0, token), S_OK);
    EXPECT_EQ(token, "a");
}

TEST(FieldByNumber, TextFormRefusesANegativeNumber)
{
    const DiagnosticCapture heard;
    CATUnicodeString token("kept");
    EXPECT_EQ(CATWBServices::FindOccurenceOfDelim("a|b", -1, token), E_FAIL);
    EXPECT_EQ(token, "kept");
    EXPECT_EQ(heard.Lines().back(), "FAILED to find substring #-1");
}

TEST(StringTokenizer, GivesTheTokensBeforeTheFirstEmptyOne)
{
    struct Row
    {
        const char* text;
        const char* delimiter;
        CATListValCATUnicodeString tokens;
    };
    for (const Row& row :
         {Row{"a/b/c", "/", {"a", "b", "c"}}, Row{"a/b//c", "/", {"a", "b"}}, Row{"/a", "/", {}},
          Row{"", "/", {}}, Row{"a/", "/", {"a"}}, Row{"a--b-c", "--", {"a", "b-c"}}}) {
        CATListValCATUnicodeString tokens;
        int count = -1;
        CATWBServices::StringTokenizer(row.text, row.delimiter, tokens, count);
        EXPECT_EQ(tokens.Items(), row.tokens.Items()) << row.text;
        EXPECT_EQ(count, row.tokens.Size()) << row.text;
    }
}

TEST(StringTokenizer, AppendsToTheListAndCountsItsOwnTokens)
{
    CATListValCATUnicodeString tokens{"first"};
    int count = -1;
    CATWBServices::StringTokenizer("a/b", "/", tokens, count);
    EXPECT_EQ(tokens, (CATListValCATUnicodeString{"first", "a", "b"}));
    EXPECT_EQ(count, 2);
}

TEST(ConvertToDouble, TakesEitherSeparatorInEitherLocale)
{
    for (const char* locale : {kPointLocale, kCommaLocale}) {
        const NumberLocale numbers(locale);
        double value = -1.0;
        EXPECT_EQ(CATWBServices::ConvertToDouble("3,5", value), 1) << locale;
        EXPECT_EQ(value, 3.5) << locale;
        EXPECT_EQ(CATWBServices::ConvertToDouble("3.5", value), 1) << locale;
        EXPECT_EQ(value, 3.5) << locale;
        EXPECT_EQ(CATWBServices::ConvertToDouble(" -12 kg", value), 1) << locale;
        EXPECT_EQ(value, -12.0) << locale;
    }
}

TEST(ConvertToDouble, StopsAtTheSecondSeparatorOfAText)
{
    for (const char* locale : {kPointLocale, kCommaLocale}) {
        const NumberLocale numbers(locale);
        for (const char* text : {"1.5,2", "1.5.2", "1.5,2.7"}) {
            double value = 0.0;
            EXPECT_EQ(CATWBServices::ConvertToDouble(text, value), 1) << locale << " " << text;
            EXPECT_EQ(value, 1.5) << locale << " " << text;
        }
    }
    // Where "," is written, the "." behind it becomes one more ",".
    const NumberLocale numbers(kCommaLocale);
    double value = 0.0;
    EXPECT_EQ(CATWBServices::ConvertToDouble("1,5.2", value), 1);
    EXPECT_EQ(value, 1.5);
}

TEST(ConvertToDouble, ClearsTheOutputWhenThereIsNoNumber)
{
    for (const char* text : {"abc", "", "   "}) {
        double value = 7.0;
        EXPECT_EQ(CATWBServices::ConvertToDouble(text, value), 0) << text;
        EXPECT_EQ(value, 0.0) << text;
    }
}

TEST(SynchronizeDoubleString, GivesTheTextTheLocalesSeparator)
{
    struct Row
    {
        const char* locale;
        const char* text;
        const char* expected;
    };
    for (const Row& row : {Row{kPointLocale, "3,5", "3.5"}, Row{kPointLocale, "1,2,3", "1.2.3"},
                           Row{kPointLocale, "3.5", "3.5"}, Row{kPointLocale, "1.234,5", "1.234,5"},
                           Row{kPointLocale, "12", "12"}, Row{kCommaLocale, "3.5", "3,5"},
                           Row{kCommaLocale, "1.2.3", "1,2,3"}, Row{kCommaLocale, "3,5", "3,5"},
                           Row{kCommaLocale, "1,234.5", "1,234,5"}, Row{kCommaLocale, "", ""}}) {
        const NumberLocale numbers(row.locale);
        CATUnicodeString text(row.text);
        CATWBServices::SynchronizeDoubleString(text);
        EXPECT_EQ(text, row.expected) << row.locale << ' ' << row.text;
    }
}

TEST(CleanWarningForDisplay, UpToAThousandCharactersStayWhole)
{
    const std::string warning = "- ERROR " + std::string(992, 'x');
    ASSERT_EQ(warning.size(), 1000U);
    CATUnicodeString shown;
    CATWBServices::CleanWarningForDisplay(warning, shown);
    EXPECT_EQ(shown, warning);
}

TEST(CleanWarningForDisplay, CharactersAreCountedAndNotBytes)
{
    std::string warning;
    for (int character = 0; character < 1000; ++character) {
        warning += "ü";
    }
    CATUnicodeString shown;
    CATWBServices::CleanWarningForDisplay(warning, shown);
    EXPECT_EQ(shown, warning);
}

TEST(CleanWarningForDisplay, LongOneEndsBeforeItsTenthParagraphAndKeepsItsError)
{
    std::string firstNine = "Warnings:";
    for (int paragraph = 1; paragraph <= 9; ++paragraph) {
        firstNine += "\n- part " + std::to_string(paragraph);
    }
    const std::string rest = "- part 10" + std::string(1000, 'x');
    CATUnicodeString shown;
    CATWBServices::CleanWarningForDisplay(firstNine + "\n" + rest, shown);
    EXPECT_EQ(shown, firstNine + "\n...\n");
    CATWBServices::CleanWarningForDisplay(firstNine + "\n" + rest + "ERROR: a ERROR: b", shown);
    EXPECT_EQ(shown, firstNine + "\n...\nERROR: a ERROR: b");
}

TEST(CleanWarningForDisplay, AnErrorAmongTheFirstParagraphsIsShownTwice)
{
    std::string beginning = "ERROR a";
    for (int paragraph = 1; paragraph <= 9; ++paragraph) {
        beginning += "- ";
    }
    const std::string warning = beginning + "- " + std::string(1000, 'x');
    CATUnicodeString shown;
    CATWBServices::CleanWarningForDisplay(warning, shown);
    EXPECT_EQ(shown, beginning + "...\n" + warning);
}

TEST(CleanWarningForDisplay, OneOfAThousandAndOneWithFewParagraphsIsNotCut)
{
    const std::string warning = "- " + std::string(999, 'x');
    CATUnicodeString shown;
    CATWBServices::CleanWarningForDisplay(warning, shown);
    EXPECT_EQ(shown, warning + "...\n");
}

TEST(CleanPathForDisplay, ElementsComeInReverse)
{
    struct Row
    {
        const char* before;
        const char* path;
        const char* expected;
    };
    for (const Row& row :
         {Row{"", "A|B|C", "|C|B|A"}, Row{"", "A", "|A"}, Row{"", "A||C", "|A"}, Row{"", "", ""},
          Row{"", "|B", ""}, Row{"Path: ", "A|B", "Path: |B|A"}, Row{"Path: ", "", "Path: "}}) {
        CATUnicodeString shown(row.before);
        CATWBServices::CleanPathForDisplay(row.path, shown);
        EXPECT_EQ(shown, row.expected) << row.path;
    }
}

} // namespace
