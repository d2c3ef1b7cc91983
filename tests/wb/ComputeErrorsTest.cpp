#include "ComputeTesting.h"
#include "SqlConnection.h"

#include <gmock/gmock.h>

#include <filesystem>

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace
{
class ComputeErrors : public ComputeProgram
{
protected:
    /// What is said on the standard error; nothing may be printed.
    std::string Refusal(const std::string& arguments, int status) const
    {
        const Outcome outcome = Answer(arguments);
        EXPECT_EQ(outcome.status, status) << arguments;
        EXPECT_EQ(outcome.out, "") << arguments;
        return outcome.err;
    }
};
} // namespace

TEST_F(ComputeErrors, UnknownRootIsAnsweredWithTheNearest)
{
    Import("part,mass_type,mass [kg]\nAB1,Weighed,1\nXYZ,Weighed,1\nZB1,Weighed,1\n");
    EXPECT_EQ(Refusal("XB1", 1),
              "wb: a.db: \"XB1\" is no product root, expected one of AB1 A, ZB1 A, XYZ A\n");
}

TEST_F(ComputeErrors, DatabaseWithoutProductsIsSaid)
{
    folder.Write("types.csv", "mass_type,order,kind,category,lower_pct [%],upper_pct [%],meaning\n"
                              "Simulated,22,claim,calculated,1,2,from a simulation\n");
    Import("part\n", "--mass-types types.csv");
    EXPECT_EQ(Refusal("R", 1), "wb: a.db: the database holds no product\n");
}

TEST_F(ComputeErrors, ManyNamesAreCutToTheNearest)
{
    std::string table = "part\n";
    for (char letter = 'A'; letter <= 'J'; ++letter) {
        table += std::string(3, letter) + "\n";
    }
    Import(table);
    EXPECT_EQ(Refusal("JJK", 1), "wb: a.db: \"JJK\" is no product root, expected one of JJJ A, AAA "
                                 "A, BBB A, CCC A, DDD A, EEE A, FFF A, GGG A and 2 more\n");
}

TEST_F(ComputeErrors, PartThatIsUsedIsAskedForThroughItsProduct)
{
    Import(kBeam);
    EXPECT_EQ(Refusal("Q", 1), "wb: a.db: \"Q\" is no product root but a part of one: expected "
                               "ROOT/INSTANCE/INSTANCE, where ROOT is one of R A\n");
}

TEST_F(ComputeErrors, UnknownVersionOfARootIsNamed)
{
    Import(kBeam);
    EXPECT_EQ(Refusal("R --root-version Z", 1),
              "wb: a.db: \"R Z\" is no product root, expected one of R A\n");
}

TEST_F(ComputeErrors, MissingStepOfAPathIsNamed)
{
    Import(kBeam);
    EXPECT_EQ(Refusal("R/r", 1), "wb: \"R\" has no instance \"r\", expected one of p, q\n");
    EXPECT_EQ(Refusal("R/p/x", 1),
              "wb: \"R/p\" has no instance \"x\": there is nothing below it\n");
    EXPECT_EQ(Refusal("R --exclude R/r", 1),
              "wb: --exclude: \"R\" has no instance \"r\", expected one of p, q\n");
}

TEST_F(ComputeErrors, UnknownMassTypeIsAnsweredWithTheKnownOnes)
{
    Import(kBeam);
    EXPECT_EQ(Refusal("R --precision Measured", 1),
              "wb: --precision: expected active, most-precise, Computed, Target, Estimated, "
              "Calculated, Supplier, Weighed, found \"Measured\"\n");
}

TEST_F(ComputeErrors, UnknownMaterialIsNamed)
{
    Import(kBeam);
    EXPECT_EQ(Refusal("R/p --material Unobtainium", 1),
              "wb: --material: \"Unobtainium\" is no material of the database\n");
}

TEST_F(ComputeErrors, UnknownMaterialIsAnsweredWithTheNearestOfTheProduct)
{
    Import("part,mass_type,volume [m3],material,material_density [kg/m3]\n"
           "R,Calculated,0.001,Steel,7850\n");
    EXPECT_EQ(Refusal("R --material steel", 1),
              "wb: --material: \"steel\" is no material of the database; the product has Steel\n");
}

TEST_F(ComputeErrors, MaterialOfAnAssemblyThatIsSummedUpChangesNothingAndIsAWarning)
{
    constexpr const char* kWarning = "- --material and --density-first count for the asked part's "
                                     "own values; it was\n  summed up, so they changed nothing\n";
    Import("parent,instance,part,mass_type,volume [m3],material,material_density [kg/m3]\n"
           ",,R,,,,\nR,p,P,Calculated,0.001,Steel,8000\nR,q,Q,Calculated,0.001,Lead,11000\n");
    EXPECT_THAT(Answer("R --material Lead").out,
                AllOf(HasSubstr("\n19.000000 kg"), HasSubstr(kWarning)));
    EXPECT_THAT(Answer("R --density-first material").out, HasSubstr(kWarning));
    EXPECT_THAT(Answer("R").out, Not(HasSubstr("they changed nothing")));
    EXPECT_THAT(Answer("R/p --material Lead").out,
                AllOf(HasSubstr("\n11.000000 kg"), Not(HasSubstr("they changed nothing"))));
}

TEST_F(ComputeErrors, MaterialCountsForAnAssemblyThatStatesItsSize)
{
    Import("parent,instance,part,mass_type,active,volume [m3],material,material_density [kg/m3]\n"
           ",,R,Calculated,yes,0.001,Steel,8000\nR,p,P,Calculated,,0.001,Lead,11000\n");
    EXPECT_THAT(Answer("R --material Lead").out,
                AllOf(HasSubstr("\n11.000000 kg"), Not(HasSubstr("they changed nothing"))));
}

TEST_F(ComputeErrors, MissingDatabaseIsNamedAndNotMade)
{
    EXPECT_THAT(Refusal("R", 1), StartsWith("wb: a.db: the database does not exist"));
    EXPECT_FALSE(std::filesystem::exists(folder.At("a.db")));
}

TEST_F(ComputeErrors, ProductThatHoldsItselfIsNamed)
{
    Import("parent,instance,part\n,,R\nR,a,A\nA,b,B\nB,c,C\n");
    // No import lets that in; only somebody who works on the file itself can.
    wbtest::RunSql(folder.At("a.db"),
                   "UPDATE use SET part = (SELECT id FROM part WHERE identifier = 'A') "
                   "WHERE instance = 'c'");
    EXPECT_EQ(Refusal("R", 1), "wb: The product holds itself: A > B > A.\n");
}

TEST_F(ComputeErrors, WrongUseIsStatus2)
{
    Import(kBeam);
    EXPECT_THAT(Refusal("", 2), StartsWith("wb: path: expected ROOT/INSTANCE/INSTANCE"));
    EXPECT_THAT(Refusal("R --at here", 2), StartsWith("wb: --at: expected cg, origin or X,Y,Z"));
    EXPECT_THAT(Refusal("R --units MASS=stone", 2),
                StartsWith("wb: --units: expected a unit of MASS, found \"stone\"; there are kg"));
    EXPECT_THAT(Refusal("R --json --csv", 2), HasSubstr("excludes"));
    EXPECT_THAT(Refusal("R --filter nonsense", 2), StartsWith("wb: --filter: "));
    EXPECT_EQ(Run("compute R").status, 2);
}

TEST_F(ComputeErrors, FilterThatLeavesOutWhatIsAskedLeavesNothing)
{
    Import(kBeam);
    const Outcome outcome = Answer("R/q --exclude R/q");
    EXPECT_THAT(outcome.out, AllOf(StartsWith("Q A, Ballast\n0 kg, centre of gravity unknown\n"),
                                   HasSubstr("\n  total                      0          -\n"),
                                   HasSubstr("- the filter leaves out what is asked\n")));
}

TEST_F(ComputeErrors, LineOfAFilterThatLeadsNowhereIsAWarning)
{
    Import(kBeam);
    const Outcome outcome = Answer("R --filter '1|Old|X|gone|G|A|0'");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.out, HasSubstr("- the filter names gone, which is not there\n"));
}

TEST_F(ComputeErrors, FullDeviceIsSaid)
{
    Import(kBeam);
    const Outcome outcome = RunShell("'" WB_PROGRAM "' compute R --db a.db >/dev/full");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "wb: the standard output cannot be written\n");
}

TEST_F(ComputeErrors, HelpNamesEveryOption)
{
    const Outcome outcome = Run("compute --help");
    EXPECT_EQ(outcome.status, 0);
    for (const char* option :
         {"--db",       "--root-version", "--precision", "--or",     "--update",
          "--entity",   "--include",      "--exclude",   "--filter", "--density-first",
          "--material", "--deviations",   "--at",        "--rss",    "--uncertainty",
          "--apart",    "--explain",      "--units",     "--json",   "--csv"}) {
        EXPECT_THAT(outcome.out, HasSubstr(std::string("  ") + option));
    }
    EXPECT_THAT(outcome.out, HasSubstr("The status is 0; 3 when something has no mass"));
    EXPECT_THAT(Run("--help").out, HasSubstr("compute "));
}
