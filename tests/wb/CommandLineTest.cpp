#include "ProgramRun.h"

#include <gmock/gmock.h>

#include <string>

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace
{

class CommandLine : public ProgramRun
{
protected:
    void ImportAeroplane() const
    {
        ASSERT_EQ(Run("import '" WB_SOURCE_DIR "/data/light_aeroplane.csv' --into a.db").status, 0);
    }
};

constexpr const char* kSimulated =
    "mass_type,order,kind,category,lower_pct [%],upper_pct [%],meaning\n"
    "Simulated,22,claim,calculated,1,2,from a simulation\n";
// The version of the bolt is the only one that there is: that of another file, or else "A".
constexpr const char* kNeedsBolt = "part,version\nBOLT,\n";

constexpr const char* kSparCap = "LA1/WNG-000.1/WNG-200R.1/WNG-210.1/WNG-211.1";

} // namespace

TEST_F(CommandLine, ImportSaysWhatIsNew)
{
    const Outcome outcome = Run("import '" WB_SOURCE_DIR "/data/light_aeroplane.csv' --into a.db");
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    // 81 part designs and 29 assemblies with the root, 196 uses.
    EXPECT_THAT(outcome.out, AllOf(HasSubstr("110 new"), HasSubstr("196 new"), HasSubstr("LA1")));
    EXPECT_THAT(outcome.err, IsEmpty());
}

TEST_F(CommandLine, ImportingTheSameFileTwiceChangesNothing)
{
    ImportAeroplane();
    const Outcome again = Run("import '" WB_SOURCE_DIR "/data/light_aeroplane.csv' --into a.db");
    EXPECT_EQ(again.status, 0) << again.err;
    EXPECT_THAT(again.out, AllOf(HasSubstr("110 unchanged"), HasSubstr("196 unchanged")));
}

TEST_F(CommandLine, CheckChangesNothingAndMakesNoDatabase)
{
    const Outcome outcome =
        Run("import '" WB_SOURCE_DIR "/data/small_satellite.csv' --into a.db --check");
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_THAT(outcome.out, AllOf(HasSubstr("51 new"), HasSubstr("81 new")));
    EXPECT_THAT(outcome.out, StartsWith("nothing was changed; an import would say:\n"));
    EXPECT_FALSE(std::filesystem::exists(folder.At("a.db")));
}

TEST_F(CommandLine, CheckLeavesTheDatabaseAsItWas)
{
    ImportAeroplane();
    const std::string before = folder.Read("a.db");
    folder.Write("types.csv", kSimulated);
    folder.Write("more.csv", "parent,instance,part,mass_type,mass [kg]\n"
                             ",,NEW,,\nNEW,BOLT.1,BOLT,Simulated,0.1\n");
    const Outcome outcome = Run("import more.csv --into a.db --mass-types types.csv --check");
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_THAT(outcome.out, HasSubstr("parts: 2 new"));
    EXPECT_EQ(folder.Read("a.db"), before);
    EXPECT_THAT(Run("mass-types --db a.db").out, Not(HasSubstr("Simulated")));
}

TEST_F(CommandLine, CheckOfFilesThatNeedEachOtherTellsWhatTheyDoTogether)
{
    folder.Write("first.csv", "part,version\nBOLT,B\n");
    folder.Write("second.csv", kNeedsBolt);
    const Outcome both = Run("import first.csv second.csv --into a.db --check");
    EXPECT_EQ(both.status, 0) << both.err;
    EXPECT_EQ(both.out, "nothing was changed; an import would say:\n"
                        "first.csv:\n"
                        "rows: 1\n"
                        "parts: 1 new, 0 changed, 0 unchanged\n"
                        "uses: 0 new, 0 changed, 0 unchanged\n"
                        "parts that nobody uses: BOLT B\n"
                        "second.csv:\n"
                        "rows: 1\n"
                        "parts: 0 new, 0 changed, 1 unchanged\n"
                        "uses: 0 new, 0 changed, 0 unchanged\n"
                        "parts that nobody uses: BOLT B\n"
                        "product BOLT B: before not there; after mass unknown, centre unknown "
                        "(some items have no mass)\n");
    const Outcome alone = Run("import second.csv --into a.db --check");
    EXPECT_THAT(alone.out, HasSubstr("parts: 1 new"));
    EXPECT_FALSE(std::filesystem::exists(folder.At("a.db")));
}

TEST_F(CommandLine, CheckThatFindsErrorsNamesTheUsersDatabase)
{
    folder.Write("broken.db", std::string(4096, 'x'));
    folder.Write("first.csv", "part\nBOLT\n");
    const Outcome outcome = Run("import first.csv --into broken.db --check");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, StartsWith("broken.db: the file is damaged"));
    EXPECT_THAT(outcome.out, IsEmpty());
}

TEST_F(CommandLine, SeveralFilesComeInTogetherOrNotAtAll)
{
    ImportAeroplane();
    const std::string before = folder.Read("a.db");
    folder.Write("types.csv", kSimulated);
    folder.Write("good.csv", "part\nBOLT\n");
    folder.Write("bad.csv", "part,mass_type,mass [kg]\nBOLT,Simulated,heavy\n");
    const Outcome refused = Run("import good.csv bad.csv --into a.db --mass-types types.csv");
    EXPECT_EQ(refused.status, 1);
    EXPECT_THAT(refused.out, IsEmpty());
    EXPECT_THAT(refused.err, AllOf(StartsWith("bad.csv:2:"), HasSubstr("nothing was imported")));
    EXPECT_EQ(folder.Read("a.db"), before);

    folder.Write("bad.csv", "part,mass_type,mass [kg]\nBOLT,Simulated,2\n");
    const Outcome done = Run("import good.csv bad.csv --into a.db --mass-types types.csv");
    EXPECT_EQ(done.status, 0) << done.err;
    EXPECT_THAT(Run("mass-types --db a.db").out, HasSubstr("Simulated"));
    EXPECT_THAT(Run("import good.csv bad.csv --into a.db").out, HasSubstr("1 unchanged"));
}

TEST_F(CommandLine, WrongMassTypesKeepTheFilesOut)
{
    folder.Write("types.csv", "mass_type,order\nComputed,1\n");
    folder.Write("good.csv", "part\nBOLT\n");
    const Outcome refused = Run("import good.csv --into a.db --mass-types types.csv");
    EXPECT_EQ(refused.status, 1);
    EXPECT_THAT(refused.err, HasSubstr("types.csv"));
    EXPECT_FALSE(std::filesystem::exists(folder.At("a.db")));
}

TEST_F(CommandLine, AWrongFileIsRefusedWithFileLineAndColumn)
{
    folder.Write("bad.csv", "parent,instance,part,mass_type,mass [kg]\n,,P,Weighed,heavy\n");
    const Outcome outcome = Run("import bad.csv --into a.db");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.out, IsEmpty());
    EXPECT_THAT(outcome.err, AllOf(HasSubstr("bad.csv"), HasSubstr("2"), HasSubstr("mass [kg]"),
                                   HasSubstr("heavy"), HasSubstr("nothing was imported")));
    EXPECT_FALSE(std::filesystem::exists(folder.At("a.db"))) << "made for nothing";
}

TEST_F(CommandLine, ARefusedFileLeavesAnExistingDatabaseThere)
{
    ImportAeroplane();
    folder.Write("bad.csv", "parent,instance,part,mass_type,mass [kg]\n,,P,Weighed,heavy\n");
    EXPECT_EQ(Run("import bad.csv --into a.db").status, 1);
    EXPECT_EQ(Run(std::string("part ") + kSparCap + " --db a.db").status, 0);
}

TEST_F(CommandLine, MassTypesListsTheShippedOnes)
{
    ImportAeroplane();
    const Outcome outcome = Run("mass-types --db a.db");
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_THAT(outcome.out,
                HasSubstr("Target                    0  goal                      0        0  "));
    EXPECT_THAT(outcome.out,
                HasSubstr("Estimated                10  claim  estimated         10       20  "));
    EXPECT_THAT(outcome.out,
                HasSubstr("Weighed                  30  claim  actual           0.5      0.5  "));
}

TEST_F(CommandLine, MassTypesAreAddedFromAFile)
{
    ImportAeroplane();
    folder.Write("types.csv", "mass_type,order,kind,category,lower_pct [%],upper_pct [%],meaning\n"
                              "Simulated,22,claim,calculated,1,2,from a simulation\n");
    const Outcome outcome = Run("mass-types --db a.db --mass-types types.csv");
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_THAT(outcome.out, HasSubstr("Simulated                22  claim  calculated         1   "
                                       "     2  from a simulation"));
}

TEST_F(CommandLine, MassTypesOfAMissingDatabaseNameTheFile)
{
    const Outcome outcome = Run("mass-types --db missing.db");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, HasSubstr("missing.db"));
    EXPECT_FALSE(std::filesystem::exists(folder.At("missing.db")));
}

TEST_F(CommandLine, PartPrintsTheRecordInStorageUnits)
{
    ImportAeroplane();
    const Outcome outcome = Run(std::string("part ") + kSparCap + " --db a.db --json");
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    // 0.00123 m3 of 2780 kg/m3 is 3.4194 kg; 1 % of it below, 2 % above.
    EXPECT_THAT(
        outcome.out,
        HasSubstr(
            R"({"name": "Calculated", "status": "assigned", "mass": 3.4194, "lower_deviation": 0.034194, )"
            R"("upper_deviation": 0.068388, "cgx": 1620, "cgy": 0, "cgz": 4, "ixx": 0.000833479, )"
            R"("iyy": 4.00737, "izz": 4.00769, "ixy": 0, "ixz": 0, "iyz": 0, "precision": "percentage", )"
            R"("lower_precision": 1, "upper_precision": 2, "default_lower_precision": 3, )"
            R"("default_upper_precision": 5})"));
    EXPECT_THAT(outcome.out, HasSubstr(R"("part": "WNG-211", "version": "B")"));
    EXPECT_THAT(outcome.out, HasSubstr(R"("active_mass_type": "Calculated")"));
    EXPECT_THAT(
        outcome.out,
        HasSubstr(
            R"({"name": "Location", "type": 1, "is_date": false, "owner": "Instance", "value": "upper", "magnitude": null})"));
    EXPECT_THAT(
        outcome.out,
        HasSubstr(R"({"version": "B.2", "checkin_date": "2026/05/04", "checkin_user": "moreau", )"
                  R"("checkout_user": "keller", "active_mass_type": "Calculated", "mass": 3.38})"));
}

TEST_F(CommandLine, WhatNobodyKnowsIsNullAndNotZero)
{
    ImportAeroplane();
    const Outcome outcome = Run("part LA1/FIN-000.1/FIN-300.1 --db a.db --json");
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    // The placards have an estimated mass, and no centre of gravity or inertia.
    EXPECT_THAT(
        outcome.out,
        HasSubstr(
            R"({"name": "Estimated", "status": "assigned", "mass": 0.35, "lower_deviation": 0.035, )"
            R"("upper_deviation": 0.07, "cgx": null, "cgy": null, "cgz": null, "ixx": null)"));
    EXPECT_THAT(outcome.out, HasSubstr(R"({"name": "Weighed", "status": "empty", "mass": null)"));
}

TEST_F(CommandLine, AKnownCentreAtTheOriginIsZeroAndNotNull)
{
    ASSERT_EQ(Run("import '" WB_SOURCE_DIR "/data/small_satellite.csv' --into s.db").status, 0);
    const Outcome outcome = Run("part SC1/STR-000.1/STD-M5.1 --db s.db --json");
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    // The bolts' centre is stated as 0, 0, 0; their inertia is not stated.
    EXPECT_THAT(outcome.out, HasSubstr(R"("cgx": 0, "cgy": 0, "cgz": 0, "ixx": null)"));
}

TEST_F(CommandLine, PartPrintsForPeopleToo)
{
    ImportAeroplane();
    const Outcome outcome = Run(std::string("part ") + kSparCap + " --db a.db");
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_THAT(outcome.out, HasSubstr("mass_types\n  name        status"));
    EXPECT_THAT(outcome.out, HasSubstr("3.4194"));
    EXPECT_THAT(outcome.err, IsEmpty());
}

TEST_F(CommandLine, PartIsTheSameWhereTheDecimalSeparatorIsAComma)
{
    ImportAeroplane();
    const Outcome point = Run(std::string("part ") + kSparCap + " --db a.db --json");
    environment = "LC_ALL=de_DE.UTF-8";
    const Outcome comma = Run(std::string("part ") + kSparCap + " --db a.db --json");
    EXPECT_EQ(comma.status, 0) << comma.err;
    EXPECT_EQ(comma.out, point.out);
}

TEST_F(CommandLine, PartSaysWhichStepOfThePathLeadsNowhere)
{
    ImportAeroplane();
    const Outcome root = Run("part LA2/A --db a.db");
    EXPECT_EQ(root.status, 1);
    EXPECT_THAT(root.err, HasSubstr("no product root \"LA2\""));
    const Outcome step = Run("part LA1/WNG-000.1/NOWHERE.1/X --db a.db");
    EXPECT_EQ(step.status, 1);
    EXPECT_THAT(step.err, HasSubstr("\"WNG-000.1\" has no instance \"NOWHERE.1\""));
    const Outcome product = Run("part LA1 --db a.db");
    EXPECT_EQ(product.status, 1);
    EXPECT_THAT(product.err, HasSubstr("name an instance below it"));
}

TEST_F(CommandLine, ADatabaseThatIsNoneIsNamed)
{
    folder.Write("broken.db",
                 "this is no database, but it is long enough to look like a file of one");
    for (const char* arguments :
         {"part LA1/A --db broken.db", "mass-types --db broken.db", "workbench --db broken.db"}) {
        const Outcome outcome = Run(arguments);
        EXPECT_EQ(outcome.status, 1) << arguments;
        EXPECT_THAT(outcome.err, HasSubstr("broken.db")) << arguments;
    }
}

TEST_F(CommandLine, AnEmptyDatabaseSaysHowToFillIt)
{
    ASSERT_EQ(
        Run("mass-types --db empty.db --mass-types '" WB_SOURCE_DIR "/data/mass_types.csv'").status,
        0);
    folder.Write("a.story", "quit\n");
    const Outcome outcome = Run("workbench --db empty.db --play a.story");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, HasSubstr("holds no product yet. Import one with"));
}

TEST_F(CommandLine, TheWorkbenchOpensTheProductThatIsAskedFor)
{
    ImportAeroplane();
    ASSERT_EQ(Run("import '" WB_SOURCE_DIR "/data/small_satellite.csv' --into a.db").status, 0);
    folder.Write("satellite.story", "pick SC1/PAY-000.1\n");
    EXPECT_EQ(Run("workbench SC1 --db a.db --play satellite.story").status, 0);
    folder.Write("aeroplane.story", "pick LA1/PWR-000.1\n");
    EXPECT_EQ(Run("workbench --db a.db --play aeroplane.story").status, 0)
        << "the sample aeroplane goes first";
    folder.Write("file.story", "pick SC1/PAY-000.1\nworkshop NavigatorWorkshop\n");
    EXPECT_EQ(
        Run("workbench '" WB_SOURCE_DIR "/data/small_satellite.csv' --play file.story").status, 0);
    const Outcome missing = Run("workbench NONE --db a.db --play file.story");
    EXPECT_EQ(missing.status, 1);
    EXPECT_THAT(missing.err,
                HasSubstr("There is no product root \"NONE\" in the database; it holds LA1, SC1."));
}

TEST_F(CommandLine, TheLogTakesTheDiagnosticLines)
{
    ImportAeroplane();
    const Outcome outcome = Run(std::string("part ") + kSparCap + " --db a.db --log session.log");
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_THAT(folder.Read("session.log"),
                HasSubstr("String to send to the server : 1||LA1|WNG-211.1|WNG-211|B|3|"));
    EXPECT_THAT(outcome.out, Not(HasSubstr("String to send")));
    const Outcome verbose = Run(std::string("part ") + kSparCap + " --db a.db --verbose");
    EXPECT_THAT(verbose.err, HasSubstr("String to send to the server : "));
}

TEST_F(CommandLine, TheLogNeverTakesThePlaceOfWhatTheRunReads)
{
    ImportAeroplane();
    const std::string before = folder.Read("a.db");
    folder.Write("p.csv", "part\nA\n");
    folder.Write("a.story", "quit\n");
    folder.Write("r.xml", "<R/>");
    for (const char* arguments :
         {"compute LA1 --db a.db --log a.db", "part LA1/A --db a.db --log a.db",
          "workbench --db a.db --log a.db", "workbench p.csv --log p.csv",
          "workbench --play a.story --log a.story", "convert-report r.xml o.xml --log r.xml",
          "convert-report r.xml o.xml --log o.xml"}) {
        const Outcome outcome = Run(arguments);
        EXPECT_EQ(outcome.status, 2) << arguments;
        EXPECT_THAT(outcome.err, StartsWith("wb: --log: expected a file of its own")) << arguments;
    }
    EXPECT_EQ(folder.Read("a.db"), before);
    EXPECT_EQ(folder.Read("p.csv"), "part\nA\n");
    EXPECT_EQ(folder.Read("a.story"), "quit\n");
    EXPECT_EQ(folder.Read("r.xml"), "<R/>");
}

TEST_F(CommandLine, AnswerThatNobodyCanReadIsAFailure)
{
    ImportAeroplane();
    const auto runToFullDevice = [this](const std::string& arguments) {
        return RunShell("'" WB_PROGRAM "' " + arguments + " >/dev/full");
    };
    const std::string table = "'" WB_SOURCE_DIR "/data/light_aeroplane.csv' --into a.db";
    for (const std::string& arguments :
         {std::string("part ") + kSparCap + " --db a.db", std::string("mass-types --db a.db"),
          "import --check " + table}) {
        const Outcome outcome = runToFullDevice(arguments);
        EXPECT_EQ(outcome.status, 1) << arguments;
        EXPECT_EQ(outcome.err, "wb: the standard output cannot be written\n") << arguments;
    }
    const Outcome imported = runToFullDevice("import " + table);
    EXPECT_EQ(imported.status, 0) << "everything was imported, though nobody heard of it";
    EXPECT_EQ(imported.err, "wb: the standard output cannot be written\n");
}

TEST_F(CommandLine, ASubcommandThatDoesNotExistIsNamed)
{
    const Outcome outcome = Run("comptue LA1 --db a.db");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err,
              "wb: expected a subcommand (workbench, part, import, export, compute, "
              "report, convert-report, history, pending, mass-types), found \"comptue\"\n"
              "Run with --help for more information.\n");
    EXPECT_THAT(Run("").err, StartsWith("wb: A subcommand is required\n"));
}

TEST_F(CommandLine, AnEmptyFileNameIsWrongUse)
{
    for (const char* arguments :
         {"compute LA1 --db ''", "part LA1/A --db ''", "mass-types --db ''", "history LA1 --db ''",
          "pending --db ''", "workbench --db ''", "export LA1 --db '' --out o.csv",
          "export LA1 --db a.db --out ''", "import '' --into a.db", "import a.csv --into ''"}) {
        const Outcome outcome = Run(arguments);
        EXPECT_EQ(outcome.status, 2) << arguments;
        EXPECT_THAT(outcome.err, HasSubstr("expected a file, found \"\"\n")) << arguments;
    }
}

TEST_F(CommandLine, WrongUseIsStatusTwo)
{
    EXPECT_EQ(Run("").status, 2);
    EXPECT_EQ(Run("fly").status, 2);
    EXPECT_EQ(Run("part LA1/A").status, 2) << "the database is required";
    EXPECT_THAT(Run("part LA1/A").err, StartsWith("wb: --db is required\n"));
    EXPECT_EQ(Run("import a.csv --into a.db --poi-sign maybe").status, 2);
    EXPECT_EQ(Run("--help").status, 0);
    EXPECT_THAT(Run("--help").out, AllOf(HasSubstr("workbench"), HasSubstr("part"),
                                         HasSubstr("import"), HasSubstr("mass-types")));
    EXPECT_EQ(Run("--version").status, 0);
}
