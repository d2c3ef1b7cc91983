#include "CsvTable.h"
#include "WBChecksum.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace wb;
using testing::ElementsAre;

namespace
{
CsvTable Parse(const std::string& content, std::vector<std::string>* errors = nullptr)
{
    TableErrors found("t.csv");
    CsvTable table = CsvTable::Parse(content, found);
    if (errors != nullptr) {
        *errors = found.Sentences();
    } else {
        EXPECT_THAT(found.Sentences(), ElementsAre());
    }
    return table;
}

std::vector<std::string> Texts(const CsvTable& table, std::size_t row)
{
    std::vector<std::string> texts;
    for (const auto& cell : table.CellsOf(row)) {
        texts.push_back(std::to_string(cell.column) + "=" + std::string(table.TextOf(cell)));
    }
    return texts;
}

std::string OnlyError(const std::string& content)
{
    std::vector<std::string> errors;
    Parse(content, &errors);
    return errors.size() == 1 ? errors[0] : std::to_string(errors.size()) + " errors";
}
} // namespace

TEST(CsvTable, FindsTheSeparatorInTheHeaderOutsideQuotes)
{
    EXPECT_EQ(Parse("a,b\n").Separator(), ',');
    EXPECT_EQ(Parse("a;b\n").Separator(), ';');
    EXPECT_EQ(Parse("a\tb\n").Separator(), '\t');
    EXPECT_EQ(Parse("\"a;x\",b\n1;2,3\n").Separator(), ',');
}

TEST(CsvTable, BlankCellsAreLeftOut)
{
    const auto table = Parse("a,b,c\n1,,3\n,,\n\n,x,\n");
    ASSERT_EQ(table.RowCount(), 2U);
    EXPECT_THAT(Texts(table, 0), ElementsAre("0=1", "2=3"));
    EXPECT_THAT(Texts(table, 1), ElementsAre("1=x"));
    EXPECT_EQ(table.LineOf(0), 2U);
    EXPECT_EQ(table.LineOf(1), 5U);
}

TEST(CsvTable, LinesAreCountedUnderBothLineEnds)
{
    const auto table = Parse("a,b\r\n1,2\r\n\r\n3,4");
    EXPECT_EQ(table.HeaderLine(), 1U);
    EXPECT_EQ(table.LineOf(0), 2U);
    EXPECT_EQ(table.LineOf(1), 4U);
}

TEST(CsvTable, ByteOrderMarkIsNoPartOfTheHeader)
{
    EXPECT_THAT(Parse("\xEF\xBB\xBFpart,name\n").Header(), ElementsAre("part", "name"));
}

TEST(CsvTable, QuotedFieldsHoldSeparatorsAndQuotes)
{
    EXPECT_THAT(Texts(Parse("a,b\n\"x, \"\"y\"\"\",2\n"), 0), ElementsAre("0=x, \"y\"", "1=2"));
}

TEST(CsvTable, RowWithAnotherNumberOfCellsIsRefused)
{
    EXPECT_EQ(OnlyError("a,b,c\n1,2,3\n1,2\n"),
              "t.csv:3: the row has 2 cells, expected 3 as in the header");
    EXPECT_EQ(OnlyError("a,b\n1,2,3\n"),
              "t.csv:2: the row has 3 cells, expected 2 as in the header");
}

TEST(CsvTable, QuoteThatNeverEndsIsRefused)
{
    EXPECT_THAT(OnlyError("a,b\n\"1,2\n"), testing::HasSubstr("a quoted text does not end"));
    EXPECT_THAT(OnlyError("a,b\n1\"x,2\n"), testing::StartsWith("t.csv:2: a quoted text"));
}

TEST(CsvTable, OtherEncodingIsRefusedByLine)
{
    EXPECT_EQ(OnlyError("a,b\n1,2\nM\xFCller,2\n"),
              "t.csv:3: a character is not UTF-8, expected a file saved as UTF-8");
}

TEST(CsvTable, TextsThatMayNotEnterAreRefusedByLineAndColumn)
{
    EXPECT_EQ(OnlyError("part,name\nA,x|y\n"),
              "t.csv:2: column \"name\": found \"x|y\", expected a text without \"|\", which "
              "separates fields");
    EXPECT_THAT(OnlyError("part,name\nA,__null__\n"), testing::HasSubstr("stand for empty"));
    EXPECT_THAT(OnlyError("part,name\nA,~\n"), testing::HasSubstr("stand for empty"));
    EXPECT_THAT(OnlyError("part,name\nA,#WB_ERROR#no\n"), testing::HasSubstr("server's errors"));
    EXPECT_THAT(OnlyError("part,name\nA,\"x\ny\"\n"), testing::HasSubstr("control characters"));
    EXPECT_THAT(OnlyError("part,name\nA,x\x01\n"), testing::HasSubstr("control characters"));
}

TEST(CsvTable, LinesAfterATextWithALineEndStayRight)
{
    std::vector<std::string> errors;
    const auto table = Parse("part,name\nA,\"x\ny\"\nB,z\n", &errors);
    EXPECT_EQ(table.LineOf(1), 4U);
}

TEST(TableErrors, KeepsTwentyAndCountsTheRestInOrderOfLines)
{
    TableErrors errors("f");
    errors.Line(9, "nine");
    for (std::uint32_t line = 1; line < 24; ++line) {
        errors.Line(line, "x");
    }
    const auto sentences = errors.Sentences();
    ASSERT_EQ(sentences.size(), 21U);
    EXPECT_EQ(sentences[0], "f:1: x");
    EXPECT_EQ(sentences[8], "f:9: nine");
    EXPECT_EQ(sentences[20], "and 4 more");
}

TEST(TableErrors, LongTextsAreCutInMessages)
{
    EXPECT_EQ(Quoted(std::string(100, 'a')), "\"" + std::string(80, 'a') + "...\"");
    EXPECT_EQ(Quoted("a\nb"), "\"a b\"");
}

TEST(WBChecksum, IsTheOneThatSha256sumPrints)
{
    EXPECT_EQ(Checksum(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    EXPECT_EQ(Checksum("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(Checksum("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"),
              "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
    EXPECT_EQ(Checksum(std::string(1000, 'a')),
              "41edece42d63e8d9bf515a9ba6932e1c20cbc9f5a5d134645adb5db1b9737ea3");
}

TEST(CsvTable, EveryLineEndIsOneLine)
{
    // Mixed ends, blank lines of each kind, and a file without an end behind a quoted field.
    const auto table = Parse("a,b\r1,2\r\n\r\n\n\r3,4\n5,\"6\"");
    ASSERT_EQ(table.RowCount(), 3U);
    EXPECT_EQ(table.LineOf(0), 2U);
    EXPECT_EQ(table.LineOf(1), 6U);
    EXPECT_EQ(table.LineOf(2), 7U);
    EXPECT_THAT(Texts(table, 2), ElementsAre("0=5", "1=6"));
    EXPECT_EQ(OnlyError("a\r1\r\n2\r\n\n\xFF"), "t.csv:5: a character is not UTF-8, expected a "
                                                "file saved as UTF-8");
}

TEST(CsvTable, AHeaderAloneHasNoRows)
{
    EXPECT_EQ(Parse("\xEF\xBB\xBFpart,name").RowCount(), 0U);
    EXPECT_THAT(Parse("\xEF\xBB\xBFpart,name").Header(), ElementsAre("part", "name"));
}

TEST(CsvTable, BlanksAroundABareFieldAreNoneOfIt)
{
    EXPECT_THAT(Texts(Parse("a,b,c\n x , \" y \" ,\"\"\n"), 0), ElementsAre("0=x", "1= y "));
}
