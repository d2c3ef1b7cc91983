#include "ProgramRun.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <string>

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace
{
class Export : public ProgramRun
{
protected:
    void Import(const std::string& table, const std::string& options = "") const
    {
        folder.Write("t.csv", table);
        const Outcome outcome = Run("import t.csv --into a.db " + options);
        ASSERT_EQ(outcome.status, 0) << outcome.err;
    }
};

constexpr const char* kTwoUses =
    "parent,instance,part,mass_type,mass [lb]\n,,R,,\nR,p,P,Weighed,3.90\nR,q,Q,,\n";
} // namespace

TEST_F(Export, SamplesComeBackByteForByte)
{
    for (const std::string root : {"LA1", "SC1"}) {
        const std::string file = root == "LA1" ? "light_aeroplane" : "small_satellite";
        ASSERT_EQ(Run("import '" WB_SOURCE_DIR "/data/" + file + ".csv' --into a.db").status, 0);
        const Outcome first = Run("export " + root + " --db a.db --out one.csv");
        EXPECT_EQ(first.status, 0) << first.err;
        // 110 parts and 196 uses, 51 and 81, as the samples' own page counts them.
        EXPECT_EQ(first.out, root == "LA1" ? "one.csv: 110 parts, 196 uses\n"
                                           : "one.csv: 51 parts, 81 uses\n");
        ASSERT_EQ(Run("import one.csv --into " + root + ".db").status, 0);
        ASSERT_EQ(Run("export " + root + " --db " + root + ".db --out two.csv").status, 0);
        EXPECT_EQ(folder.Read("two.csv"), folder.Read("one.csv"));
    }
}

TEST_F(Export, GivesNumbersBackAsTheyWereTyped)
{
    Import(kTwoUses);
    const Outcome outcome = Run("export R --db a.db --out -");
    EXPECT_EQ(outcome.out, "parent,parent_version,instance,part,version,mass_type,mass [lb]\n"
                           ",,,R,A,,\nR,A,p,P,A,Weighed,3.90\nR,A,q,Q,A,,\n");
    EXPECT_THAT(outcome.err, IsEmpty());
}

TEST_F(Export, NumbersDoNotDependOnTheLocale)
{
    Import(kTwoUses);
    environment = "LC_ALL=de_DE.UTF-8";
    EXPECT_THAT(Run("export R --db a.db --out -").out, HasSubstr("R,A,p,P,A,Weighed,3.90\n"));
}

TEST_F(Export, MassTypesGoAlong)
{
    folder.Write("types.csv", "mass_type,order,kind,category,lower_pct [%],upper_pct [%],meaning\n"
                              "Simulated,22,claim,calculated,1,2,from a simulation\n");
    Import("part,mass_type,mass [kg]\nR,Simulated,1\n", "--mass-types types.csv");
    ASSERT_EQ(Run("export R --db a.db --out r.csv --mass-types all.csv").status, 0);
    EXPECT_THAT(folder.Read("all.csv"),
                HasSubstr("\nSimulated,22,claim,calculated,1,2,from a simulation\n"));
    EXPECT_EQ(Run("import r.csv --into b.db").status, 1);
    EXPECT_EQ(Run("import r.csv --into b.db --mass-types all.csv").status, 0);
}

TEST_F(Export, RefusalSaysWhatWasExpectedAndWritesNothing)
{
    Import(kTwoUses);
    Outcome outcome = Run("export P --db a.db --out r.csv");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "a.db: \"P\" is no product root, expected one of R A\n"
                           "wb: nothing was exported\n");
    EXPECT_FALSE(std::filesystem::exists(folder.At("r.csv")));
    outcome = Run("export R --db none.db --out r.csv");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, StartsWith("none.db: the database does not exist"));
    EXPECT_FALSE(std::filesystem::exists(folder.At("none.db")));
    outcome = Run("export R --db a.db --out nowhere/r.csv");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, StartsWith("nowhere/r.csv: cannot be written: "));
    EXPECT_EQ(Run("export R --db a.db").status, 2);
}

TEST_F(Export, NeverWritesOverItsDatabase)
{
    Import(kTwoUses);
    const std::string before = folder.Read("a.db");
    Outcome outcome = Run("export R --db a.db --out ./a.db");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.err, StartsWith("wb: --out: expected a file of its own, found "
                                        "\"./a.db\", which is the database\n"));
    EXPECT_EQ(Run("export R --db a.db --out r.csv --mass-types a.db").status, 2);
    outcome = Run("export R --db a.db --out r.csv --mass-types r.csv");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.err, HasSubstr("which is the file of the product"));
    EXPECT_EQ(folder.Read("a.db"), before);
    EXPECT_FALSE(std::filesystem::exists(folder.At("r.csv")));
}

TEST_F(Export, HelpNamesTheOptions)
{
    const Outcome outcome = Run("export --help");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.out, AllOf(HasSubstr("--db"), HasSubstr("--out"), HasSubstr("--mass-types"),
                                   HasSubstr("--root-version")));
    EXPECT_THAT(Run("import --help").out,
                AllOf(HasSubstr("--update"), HasSubstr("--no-update"), HasSubstr("--replace")));
}

TEST_F(Export, ImportUpdatesUnlessToldNotTo)
{
    Import(kTwoUses);
    const std::string before = folder.Read("a.db");
    folder.Write("new.csv", "part,mass_type,mass [lb]\nP,Weighed,4\n");
    const Outcome refused = Run("import new.csv --into a.db --no-update");
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.err, "new.csv:2: part P A, mass type Weighed, mass: found \"4 lb\", the "
                           "database holds \"3.90 lb\"; expected the same fact or a blank cell\n"
                           "wb: nothing was imported\n");
    EXPECT_EQ(folder.Read("a.db"), before);
    const Outcome done = Run("import new.csv --into a.db --update");
    EXPECT_EQ(done.status, 0) << done.err;
    EXPECT_THAT(done.out,
                HasSubstr("changed: part P A, mass type Weighed, mass: 4 lb, was 3.90 lb\n"));
    EXPECT_THAT(Run("export R --db a.db --out -").out, HasSubstr("P,A,Weighed,4\n"));
}

TEST_F(Export, ReplaceRemovesUsesAndCheckOnlySaysSo)
{
    Import(kTwoUses);
    const std::string before = folder.Read("a.db");
    folder.Write("new.csv", "parent,instance,part\n,,R\nR,p,P\n");
    const Outcome check = Run("import new.csv --into a.db --replace R --check");
    EXPECT_EQ(check.status, 0) << check.err;
    EXPECT_THAT(check.out, AllOf(StartsWith("nothing was changed; an import would say:\n"),
                                 HasSubstr("uses: 0 new, 0 changed, 1 unchanged, 1 removed\n"),
                                 HasSubstr("parts that nobody uses: R A, Q A\n"),
                                 HasSubstr("removed: use R A / q: Q A\n")));
    EXPECT_EQ(folder.Read("a.db"), before);
    EXPECT_EQ(Run("import new.csv --into a.db --replace R").status, 0);
    EXPECT_THAT(Run("export R --db a.db --out -").out, Not(HasSubstr("R,A,q")));
}

TEST_F(Export, CheckTellsMassAndCentreOfEveryProductBeforeAndAfter)
{
    Import("parent,instance,part,x [mm],y [mm],z [mm],mass_type,mass [kg],cgx [mm],cgy [mm],cgz "
           "[mm]\n,,R,,,,,,,,\nR,p,P,100,0,0,Weighed,1,0,0,0\nR,q,Q,200,0,0,Weighed,2,0,0,0\n");
    folder.Write("new.csv", "parent,instance,part,x [mm],y [mm],z [mm],mass_type,mass [kg]\n"
                            "R,p,P,,,,Weighed,3\n,,O,,,,,\n");
    // (1 x 100 + 2 x 200) / 3 = 166.667, then (3 x 100 + 2 x 200) / 5 = 140.
    EXPECT_THAT(Run("import new.csv --into a.db --check").out,
                HasSubstr("product O A: before not there; after mass unknown, centre unknown (some "
                          "items have no mass)\n"
                          "product R A: before 3 kg at 166.667, 0.000, 0.000 mm; after 5 kg at "
                          "140.000, 0.000, 0.000 mm\n"));
    ASSERT_EQ(Run("import '" WB_SOURCE_DIR "/data/light_aeroplane.csv' --into b.db").status, 0);
    EXPECT_THAT(Run("import '" WB_SOURCE_DIR "/data/light_aeroplane.csv' --into b.db --check").out,
                HasSubstr("product LA1 A: before 381.35925 kg at 930.082, -3.070, -195.479 mm; "
                          "after 381.35925 kg at 930.082, -3.070, -195.479 mm\n"));
}

TEST_F(Export, ReplaceIsRefusedForAnotherRootAndForSeveralFiles)
{
    Import(kTwoUses);
    const std::string before = folder.Read("a.db");
    Outcome outcome = Run("import t.csv --into a.db --replace X");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, StartsWith("t.csv: --replace \"X\": the table does not hold it"));
    outcome = Run("import t.csv t.csv --into a.db --replace R");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.err, HasSubstr("expected one file"));
    EXPECT_EQ(folder.Read("a.db"), before);
}

TEST_F(Export, ImportReadsTheStandardInput)
{
    Import(kTwoUses);
    const Outcome outcome =
        RunShell("'" WB_PROGRAM "' export R --db a.db --out - | '" WB_PROGRAM "' import - --into "
                 "b.db");
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_THAT(outcome.out, StartsWith("rows: 3\nparts: 3 new, 0 changed, 0 unchanged\n"));
    EXPECT_EQ(Run("export R --db b.db --out -").out, Run("export R --db a.db --out -").out);
    const Outcome wrong =
        RunShell("printf 'part,mass [kg]\\nP,x\\n' | '" WB_PROGRAM "' import - --into c.db");
    EXPECT_EQ(wrong.status, 1);
    EXPECT_THAT(wrong.err, StartsWith("standard input:2: column \"mass [kg]\": found \"x\""));
    EXPECT_FALSE(std::filesystem::exists(folder.At("c.db")));
    const Outcome twice =
        RunShell("printf 'part\\nP\\n' | '" WB_PROGRAM "' import - - --into d.db");
    EXPECT_THAT(twice.out, HasSubstr("parts: 0 new, 0 changed, 1 unchanged\n"));
}

TEST_F(Export, OwnExportChangesNothing)
{
    ASSERT_EQ(Run("import '" WB_SOURCE_DIR "/data/light_aeroplane.csv' --into a.db").status, 0);
    ASSERT_EQ(Run("export LA1 --db a.db --out e.csv").status, 0);
    const std::string before = folder.Read("a.db");
    for (const char* how : {"", " --no-update", " --replace LA1"}) {
        const Outcome outcome = Run(std::string("import e.csv --into a.db") + how);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_THAT(outcome.out, AllOf(HasSubstr("parts: 0 new, 0 changed, 110 unchanged\n"),
                                       HasSubstr("uses: 0 new, 0 changed, 196 unchanged"),
                                       Not(HasSubstr("was"))));
    }
    EXPECT_EQ(folder.Read("a.db"), before);
}

TEST_F(Export, OldFileStandsWhereTheNewOneCannot)
{
    Import(kTwoUses);
    folder.Write("r.csv", "old");
    std::string command = "ulimit -f 0; trap '' XFSZ; '" WB_PROGRAM "' export R --db a.db --out ";
    const Outcome outcome = RunShell("(" + command + "r.csv)");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(folder.Read("r.csv"), "old");
    std::filesystem::create_directory(folder.At("folder"));
    EXPECT_THAT(Run("export R --db a.db --out folder").err,
                StartsWith("folder: cannot be written: Is a directory\nwb: nothing was exported"));
    for (const char* target : {"--out /dev/full", "--out - > /dev/full"}) {
        const Outcome full = Run(std::string("export R --db a.db ") + target);
        EXPECT_EQ(full.status, 1) << target;
        EXPECT_THAT(full.err, AllOf(HasSubstr("cannot be written"), HasSubstr("nothing was ex")));
    }
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
    EXPECT_THAT(Run("export R --db a.db --out /dev/full --mass-types t.csv").err,
                HasSubstr("wb: only the mass types were exported\n"));
    EXPECT_THAT(Run("export R --db a.db --out r.csv --mass-types /dev/full").err,
                StartsWith("/dev/full: cannot be written: No space left on device\nwb: nothing"));
    EXPECT_EQ(folder.Read("r.csv"), "old");
    EXPECT_EQ(Run("export R --db a.db --out - --mass-types -").status, 2);
}

TEST_F(Export, FigureOfAnAssemblyIsToldBesideItsSum)
{
    // 3.90 lb are 3.90 x 0.45359237 = 1.769010243 kg.
    folder.Write("t.csv", "parent,instance,part,mass_type,mass [kg],mass [lb]\n,,R,,2,\n"
                          "R,p,P,Weighed,,3.90\n");
    EXPECT_THAT(Run("import t.csv --into a.db --check").out,
                HasSubstr("total of R A (line 2): 2 kg by the table, 1.76901024 kg by the sum, "
                          "difference -0.230989757 kg\n"));
}
