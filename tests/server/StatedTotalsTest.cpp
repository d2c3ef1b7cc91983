#include "MethodsTesting.h"

using namespace wb;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace
{
// 2 pieces of 1.5 kg at x = 100 mm and 1 kg at x = 200 mm: 4 kg at 500 / 4 = 125 mm.
const std::string kHeader = "parent,instance,part,quantity,x [mm],y [mm],z [mm],mass_type,mass "
                            "[kg],cgx [mm],cgy [mm],cgz [mm],note,lower [kg],upper [kg]\n";
const std::string kParts = "A,p,P,2,100,0,0,Weighed,1.5,0,0,0,,,\n"
                           "A,q,Q,,200,0,0,Weighed,1,0,0,0,,,\n";

ImportFileResult Imported(const std::string& rows)
{
    wbtest::ServedProduct served;
    return ImportBytes(served.Store(), kHeader + rows, "t.csv");
}
} // namespace

TEST(StatedTotals, FigureOfAnAssemblyIsComparedWithTheSum)
{
    wbtest::ServedProduct served;
    const auto result = ImportBytes(
        served.Store(), kHeader + ",,A,,,,,,5,120,0,0,from the old list,,\n" + kParts, "t.csv");
    EXPECT_THAT(result.errors, IsEmpty());
    EXPECT_THAT(result.totals,
                ElementsAre("total of A A (line 2): 5 kg by the table, 4 kg by the sum, difference "
                            "-1 kg",
                            "total of A A (line 2): centre 120.000, 0.000, 0.000 mm by the table, "
                            "125.000, 0.000, 0.000 mm by the sum, difference 5.000, 0.000, 0.000 "
                            "mm"));
    EXPECT_EQ(result.Sentences().back(), result.totals.back());
    const Part assembly = *served.Store().FindFacts("A", "A");
    EXPECT_THAT(assembly.sets, IsEmpty());
    EXPECT_EQ(assembly.note, "from the old list");
}

TEST(StatedTotals, FigureMayStandWithoutTheOther)
{
    EXPECT_THAT(Imported(",,A,,,,,,4,,,,,,\n" + kParts).totals,
                ElementsAre("total of A A (line 2): 4 kg by the table, 4 kg by the sum, difference "
                            "0 kg"));
    EXPECT_THAT(Imported(",,A,,,,,,,125,0,1,,,\n" + kParts).totals,
                ElementsAre(HasSubstr("difference 0.000, 0.000, -1.000 mm")));
    EXPECT_THAT(Imported(",,A,,,,,,,125,,1,,,\n" + kParts).errors,
                ElementsAre(HasSubstr("t.csv:2: column \"cgy [mm]\": the cell is blank")));
}

TEST(StatedTotals, SumOfWhatHasNoMassIsUnknown)
{
    EXPECT_THAT(Imported(",,A,,,,,,4,1,2,3,,,\nA,p,P,,,,,,,,,,,,\n").totals,
                ElementsAre("total of A A (line 2): 4 kg by the table, unknown by the sum, "
                            "difference unknown",
                            "total of A A (line 2): centre 1.000, 2.000, 3.000 mm by the table, "
                            "unknown by the sum, difference unknown"));
}

TEST(StatedTotals, AssemblyOfTheDatabaseIsComparedAgain)
{
    wbtest::ServedProduct served;
    served.ImportTable(kHeader + ",,A,,,,,Weighed,9,0,0,0,,,\n" + kParts);
    // The sum of what is below, although the assembly's own 9 kg may count above it.
    const auto result = ImportBytes(served.Store(), "part,mass [g]\nA,3000\n", "t.csv");
    EXPECT_THAT(result.totals, ElementsAre("total of A A (line 2): 3 kg by the table, 4 kg by the "
                                           "sum, difference 1 kg"));
    EXPECT_FALSE(result.counts.Changes());
}

TEST(StatedTotals, ValuesOfASinglePartNeedAMassType)
{
    EXPECT_THAT(Imported(",,A,,,,,,,,,,,,\nA,p,P,,,,,,1,,,,,,\n").errors,
                ElementsAre(HasSubstr("t.csv:3: column \"mass_type\": the cell is blank beside "
                                      "values")));
}

TEST(StatedTotals, OtherValuesOfAnAssemblyNeedAMassType)
{
    EXPECT_THAT(Imported(",,A,,,,,,1,,,,,0.1,0.1\n" + kParts).errors,
                ElementsAre(HasSubstr("t.csv:2: column \"mass_type\": the cell is blank beside "
                                      "values")));
    for (const char* column : {"ixx [kg.m2]", "kx [mm]", "volume [m3]", "sigma_mass [kg]", "source",
                               "author", "upper_pct"}) {
        wbtest::ServedProduct served;
        const std::string table =
            std::string("parent,part,mass [kg],") + column + "\n,A,1,1\nA,P,,\n";
        EXPECT_THAT(ImportBytes(served.Store(), table, "t.csv").errors.at(0),
                    HasSubstr("t.csv:2: column \"mass_type\""))
            << column;
    }
}

TEST(StatedTotals, ValuesWithATypeAreNoTotals)
{
    wbtest::ServedProduct served;
    ImportFileOptions options;
    options.table.massType = "Weighed";
    const auto result =
        ImportBytes(served.Store(), "parent,part,mass [kg]\n,A,5\nA,P,1\n", "t.csv", options);
    EXPECT_THAT(result.totals, IsEmpty());
    EXPECT_EQ(served.Store().FindFacts("A", "A")->sets.size(), 1U);
    EXPECT_THAT(
        ImportBytes(served.Store(), "parent,part,mass [kg],active\n,B,5,yes\nB,P,,\n", "t.csv")
            .errors,
        ElementsAre(HasSubstr("t.csv:2: column \"mass_type\"")));
    EXPECT_THAT(ImportBytes(served.Store(),
                            "parent,instance,part,mass [kg],values_on\n,,C,,\nC,b,B,5,instance\n"
                            "B,p,P,,\n",
                            "t.csv")
                    .errors,
                ElementsAre(HasSubstr("t.csv:3: column \"mass_type\"")));
}

TEST(StatedTotals, FigureIsStatedOnce)
{
    EXPECT_THAT(Imported(",,A,,,,,,4,,,,,,\n,,A,,,,,,5,,,,,,\n" + kParts).errors,
                ElementsAre("t.csv:3: column \"mass [kg]\": found \"5\", but line 2 states \"4 "
                            "kg\"; expected the same fact once"));
    EXPECT_EQ(Imported(",,A,,,,,,4,,,,,,\n,,A,,,,,,4,,,,,,\n" + kParts).totals.size(), 1U);
}
