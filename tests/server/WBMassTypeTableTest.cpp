#include "WBMassTypeTable.h"
#include "ServerTesting.h"
#include "WBKnown.h"

using namespace wb;
using testing::ElementsAre;
using testing::HasSubstr;

namespace
{
constexpr const char* kHeader =
    "mass_type,order,kind,category,lower_pct [%],upper_pct [%],meaning\n";

std::string ErrorOf(const std::string& rows)
{
    const auto result = ReadMassTypeTable(kHeader + rows, "m.csv");
    EXPECT_TRUE(result.errors.empty() || result.types.empty());
    return result.errors.empty() ? std::string() : result.errors.front();
}
} // namespace

TEST(WBMassTypeTable, ShippedTypesAreThoseOfTheFile)
{
    const auto result = ReadMassTypeFile(wbtest::DataFile("mass_types.csv"));
    EXPECT_THAT(result.errors, ElementsAre());
    EXPECT_EQ(result.types, ShippedMassTypes());
}

TEST(WBMassTypeTable, ReadsCommaDecimalsBehindSemicolons)
{
    const auto result = ReadMassTypeTable(
        "kind;order;mass_type;category;upper_pct\nclaim;15;Designed;actual;2,5\n", "m");
    ASSERT_THAT(result.errors, ElementsAre());
    EXPECT_EQ(result.types[0].upperPct, 2.5);
    EXPECT_EQ(result.types[0].lowerPct, 0.0);
}

TEST(WBMassTypeTable, WrongRowsAreRefusedByLineAndColumn)
{
    EXPECT_EQ(ErrorOf("X,1.5,claim,actual,1,1,\n"),
              "m.csv:2: column \"order\": found \"1.5\", expected a whole number");
    EXPECT_THAT(ErrorOf("Computed,1,claim,actual,1,1,\n"), HasSubstr("column \"mass_type\""));
    EXPECT_THAT(ErrorOf(",1,claim,actual,1,1,\n"), HasSubstr("column \"mass_type\""));
    EXPECT_THAT(ErrorOf("X,1,wish,actual,1,1,\n"), HasSubstr("expected claim or goal"));
    EXPECT_THAT(ErrorOf("X,1,claim,guessed,1,1,\n"), HasSubstr("estimated, calculated or actual"));
    EXPECT_THAT(ErrorOf("X,1,goal,actual,1,1,\n"), HasSubstr("a goal has no category"));
    EXPECT_THAT(ErrorOf("X,1,goal,,-1,1,\n"), HasSubstr("column \"lower_pct [%]\": found \"-1\""));
    EXPECT_THAT(ErrorOf("X,1,goal,,1,1,\nX,2,goal,,1,1,\n"), HasSubstr("m.csv:3"));
    EXPECT_THAT(ErrorOf("X,1,goal,,1,1,\nY,1,goal,,1,1,\n"), HasSubstr("no other mass type has"));
}

TEST(WBMassTypeTable, WrongHeadersAreRefused)
{
    EXPECT_THAT(
        ReadMassTypeTable("mass_type,ordr,kind\n", "m").errors,
        ElementsAre(HasSubstr("nearest known one is \"order\""), HasSubstr("no column \"order\"")));
    EXPECT_THAT(ReadMassTypeTable("mass_type,order,kind,kind\n", "m").errors,
                ElementsAre(HasSubstr("stands twice")));
    EXPECT_THAT(ReadMassTypeTable("", "m").errors, ElementsAre(HasSubstr("is empty")));
    EXPECT_THAT(ReadMassTypeFile("/nowhere/x.csv").errors,
                ElementsAre("/nowhere/x.csv: does not exist"));
}
