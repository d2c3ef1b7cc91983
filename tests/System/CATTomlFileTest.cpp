#include "CATTomlFile.h"
#include "TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace
{

using Table = CATTomlValue::Table;
using Array = CATTomlValue::Array;

TEST(CATTomlFile, ReadsEveryKindOfValue)
{
    const CATTomlResult read =
        CATParseToml("text = \"a\\n\\u00e4\"\ninteger = -7\nreal = 1.5\nflag = true\n"
                     "list = [1, \"b\"]\ninline = {x = 1}\nday = 2010-07-01\ntime = 10:20:30\n"
                     "moment = 2010-07-01T10:20:30Z\n",
                     "name");
    ASSERT_TRUE(read.IsGood()) << read.problem;
    const CATTomlValue& root = read.root;
    ASSERT_NE(root.AsTable(), nullptr);
    EXPECT_EQ(*root.Find("text")->AsText(), "a\n\xc3\xa4");
    EXPECT_EQ(*root.Find("integer")->AsInteger(), -7);
    EXPECT_EQ(*root.Find("real")->AsReal(), 1.5);
    EXPECT_TRUE(*root.Find("flag")->AsFlag());
    ASSERT_EQ(root.Find("list")->AsArray()->size(), 2U);
    EXPECT_EQ(*(*root.Find("list")->AsArray())[0].AsInteger(), 1);
    EXPECT_EQ(*(*root.Find("list")->AsArray())[1].AsText(), "b");
    EXPECT_EQ(*root.Find("inline")->Find("x")->AsInteger(), 1);
    EXPECT_EQ(*root.Find("day")->AsText(), "2010-07-01");
    EXPECT_EQ(*root.Find("time")->AsText(), "10:20:30");
    EXPECT_EQ(*root.Find("moment")->AsText(), "2010-07-01T10:20:30Z");
    EXPECT_EQ(root.Find("none"), nullptr);
    EXPECT_EQ(root.Find("text")->Find("x"), nullptr);
    EXPECT_EQ(root.Find("text")->AsInteger(), nullptr);
    EXPECT_EQ(root.Find("text")->AsReal(), nullptr);
    EXPECT_EQ(root.Find("text")->AsFlag(), nullptr);
    EXPECT_EQ(root.Find("text")->AsArray(), nullptr);
    EXPECT_EQ(root.Find("flag")->AsText(), nullptr);
}

TEST(CATTomlFile, TablesKeepTheOrderOfTheFileAndTheirLines)
{
    const CATTomlResult read =
        CATParseToml("zebra = 1\nant = 2\n\n[mass]\nkg = 1\ng = [\n1,\n2]\n[length]\n", "name");
    ASSERT_TRUE(read.IsGood()) << read.problem;
    std::vector<std::pair<std::string, int>> keys;
    for (const auto& [key, value] : *read.root.AsTable()) {
        keys.emplace_back(key, value.Line());
    }
    EXPECT_EQ(keys, (std::vector<std::pair<std::string, int>>{
                        {"zebra", 1}, {"ant", 2}, {"mass", 4}, {"length", 9}}));
    const Table& mass = *read.root.Find("mass")->AsTable();
    ASSERT_EQ(mass.size(), 2U);
    EXPECT_EQ(mass[0].first, "kg");
    EXPECT_EQ(mass[1].first, "g");
    EXPECT_EQ((*mass[1].second.AsArray())[1].Line(), 8);
    EXPECT_EQ(CATTomlValue(1.0).Line(), 0);
}

TEST(CATTomlFile, KeysOnOneLineKeepTheirOrderToo)
{
    const CATTomlResult read = CATParseToml("t = {z = 1, a = 2, m = 3}", "name");
    const Table& table = *read.root.Find("t")->AsTable();
    ASSERT_EQ(table.size(), 3U);
    EXPECT_EQ(table[0].first, "z");
    EXPECT_EQ(table[1].first, "a");
    EXPECT_EQ(table[2].first, "m");
}

TEST(CATTomlFile, ProblemNamesFileLineAndColumn)
{
    const CATTomlResult read = CATParseToml("a = 1\nb = = 2\n", "units.toml");
    EXPECT_FALSE(read.IsGood());
    EXPECT_EQ(read.problem.rfind("units.toml:2:5: ", 0), 0U) << read.problem;
    EXPECT_GT(read.problem.size(), std::string("units.toml:2:5: ").size());
    ASSERT_NE(read.root.AsTable(), nullptr);
    EXPECT_TRUE(read.root.AsTable()->empty());
    EXPECT_FALSE(CATParseToml("a = \"\xff\"", "x").IsGood());
    EXPECT_FALSE(CATParseToml("a = 1\na = 2", "x").IsGood());
    EXPECT_TRUE(CATParseToml("", "x").IsGood());
}

TEST(CATTomlFile, ReadsFilesAndNamesThoseItCannotRead)
{
    const TemporaryDirectory directory;
    EXPECT_EQ(*CATReadTomlFile(directory.Write("good", "a = 3")).root.Find("a")->AsInteger(), 3);
    EXPECT_EQ(CATReadTomlFile(directory.At("none")).problem,
              directory.At("none") + ": No such file or directory");
    EXPECT_EQ(CATReadTomlFile(directory.Path()).problem, directory.Path() + ": Is a directory");
    const CATTomlResult broken = CATReadTomlFile(directory.Write("broken", "\n["));
    EXPECT_EQ(broken.problem.rfind(directory.At("broken") + ":2:", 0), 0U) << broken.problem;
    EXPECT_TRUE(CATReadTomlFile(directory.At("none")).root.AsTable()->empty());
}

TEST(CATTomlFile, ReadsLargeFilesWhole)
{
    const TemporaryDirectory directory;
    for (const std::size_t size : {65524U, 65525U, 65526U, 200000U}) {
        const std::string text(size, 'x');
        const CATTomlResult read =
            CATReadTomlFile(directory.Write("large", "text = \"" + text + "\"\nlast = 1\n"));
        ASSERT_TRUE(read.IsGood()) << read.problem;
        EXPECT_EQ(*read.root.Find("text")->AsText(), text);
        EXPECT_EQ(*read.root.Find("last")->AsInteger(), 1);
    }
}

TEST(CATTomlFile, WritesPlainValuesBeforeSectionsInTheirOrder)
{
    const CATTomlValue table =
        Table{{"zebra", std::int64_t{1}},
              {"first", Table{{"x", true}, {"inner part", Table{{"y", false}}}}},
              {"ant", 0.5},
              {"list", Array{"a", std::int64_t{2},
                             Table{{"k", "v"}, {"nothing", CATTomlValue()}, {"w", 2.0}}, Array{},
                             CATTomlValue()}},
              {"nothing", CATTomlValue()},
              {"second", Table{}}};
    EXPECT_EQ(CATFormatToml(table),
              "zebra = 1\nant = 0.5\nlist = [\"a\", 2, {k = \"v\", w = 2.0}, []]\n"
              "\n[first]\nx = true\n\n[first.\"inner part\"]\ny = false\n\n[second]\n");
    EXPECT_EQ(CATFormatToml(Table{{"a", Table{}}}), "[a]\n");
    EXPECT_EQ(CATFormatToml(CATTomlValue("no table")), "");
}

TEST(CATTomlFile, QuotesKeysAndTextsWhereTheyMustBe)
{
    const CATTomlValue table = Table{
        {"Bare_-9", "x"}, {"a.b", "\"\\\n\t\r\x01\x7f\xc3\xa4"}, {"", "e"}, {"\xc3\xa4", "f"}};
    EXPECT_EQ(CATFormatToml(table),
              "Bare_-9 = \"x\"\n\"a.b\" = \"\\\"\\\\\\n\\t\\u000D\\u0001\\u007F\xc3\xa4\"\n"
              "\"\" = \"e\"\n\"\xc3\xa4\" = \"f\"\n");
    const CATTomlResult back = CATParseToml(CATFormatToml(table), "x");
    ASSERT_TRUE(back.IsGood()) << back.problem;
    EXPECT_EQ(*back.root.Find("a.b")->AsText(), "\"\\\n\t\r\x01\x7f\xc3\xa4");
}

TEST(CATTomlFile, BytesThatAreNotUtf8BecomeTheReplacementCharacter)
{
    EXPECT_EQ(CATFormatToml(Table{{"a", "x\xff"
                                        "y"}}),
              "a = \"x\xef\xbf\xbdy\"\n");
}

TEST(CATTomlFile, RealsReadBackAlike)
{
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double value :
         {0.0, -0.0, 5.0, 0.1, 1e300, 1e-300, 123456789.0, 1e22, -2.5, infinity, -infinity}) {
        const std::string text = CATFormatToml(Table{{"a", value}});
        const CATTomlResult back = CATParseToml(text, "x");
        ASSERT_TRUE(back.IsGood()) << text;
        ASSERT_NE(back.root.Find("a")->AsReal(), nullptr) << text;
        EXPECT_EQ(*back.root.Find("a")->AsReal(), value) << text;
        EXPECT_EQ(std::signbit(*back.root.Find("a")->AsReal()), std::signbit(value)) << text;
    }
    const CATTomlResult nan = CATParseToml(CATFormatToml(Table{{"a", std::nan("")}}), "x");
    EXPECT_TRUE(std::isnan(*nan.root.Find("a")->AsReal()));
}

} // namespace
