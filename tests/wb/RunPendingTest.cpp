#include "ChangedPlane.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::Not;

namespace
{
class RunPending : public ChangedPlane
{
protected:
    QJsonObject Json(const std::string& arguments) const
    {
        const Outcome outcome = Run(arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        return QJsonDocument::fromJson(QByteArray::fromStdString(outcome.out)).object();
    }
};
} // namespace

TEST_F(RunPending, NothingPendingIsSaidAndIsNoFailure)
{
    for (const char* what : {"", " --save", " --abort"}) {
        const Outcome outcome = Run("pending --db p.db --user anna" + std::string(what));
        EXPECT_EQ(outcome.status, 0) << what;
        EXPECT_EQ(outcome.out, "anna has no unsaved changes.\n") << what;
        EXPECT_THAT(outcome.err, IsEmpty()) << what;
    }
    EXPECT_TRUE(Json("pending --db p.db --user anna --json")["changes"].toArray().isEmpty());
    EXPECT_EQ(Run("pending --db p.db --user anna --csv").out,
              "subject,fact,was,now,stored,conflict,by,at,when\n");
}

TEST_F(RunPending, ListSaysWhatWasAndWhatWillBe)
{
    ChangeWing("anna", "12");
    ChangeUse("anna", "PLANE", "left", {"", "density"}, "", "2700");
    const Outcome outcome = Run("pending --db p.db --user anna");
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.out,
              "anna has 2 unsaved changes. --save saves all of them, --abort gives them up.\n"
              "  subject             fact                     was    now         stored meanwhile\n"
              "  part WING A         mass type Weighed, mass  10 kg  12 kg       -\n"
              "  use PLANE A / left  density                  -      2700 kg/m3  -\n");
    EXPECT_THAT(Run("pending --db p.db --user ben").out, HasSubstr("ben has no unsaved changes"))
        << "they are anna's alone";
}

TEST_F(RunPending, WhoeverNamesNoUserWorksByHisLoginName)
{
    EXPECT_EQ(RunShell("test \"$('" WB_PROGRAM "' pending --db p.db)\" = "
                       "\"$(id -un) has no unsaved changes.\"")
                  .status,
              0);
}

TEST_F(RunPending, ListSaysWhatSomebodyElseStoredMeanwhile)
{
    ChangeWing("anna", "12");
    ChangeWing("ben", "11");
    SaveAs("ben");
    EXPECT_THAT(Run("pending --db p.db --user anna").out,
                MatchesRegex("anna has 1 unsaved change\\.(.|\n)*part WING A  mass type Weighed, "
                             "mass  10 kg  12 kg  11 kg by ben, "
                             "20[0-9/]{8} [0-9:]{8}\n"));
}

TEST_F(RunPending, ListIsShownInTheUsersUnitsAndProgramsReadKilograms)
{
    ChangeWing("anna", "12");
    folder.Write("config/wb/Units.CATSettings", "MASS = \"g\"\n");
    EXPECT_THAT(Run("pending --db p.db --user anna").out, HasSubstr("10000 g  12000 g"));
    EXPECT_THAT(Run("pending --db p.db --user anna --csv").out, HasSubstr(",10,12,"));
}

TEST_F(RunPending, ProgramsReadTheTextsOfTheDatabase)
{
    ChangeWing("anna", "12");
    Change("anna", "FIN", {"Weighed", "centre"}, "", "1;2;3");
    ChangeWing("ben", "11");
    SaveAs("ben");
    const QJsonObject object = Json("pending --db p.db --user anna --json");
    EXPECT_EQ(object["user"], "anna");
    const QJsonArray changes = object["changes"].toArray();
    ASSERT_EQ(changes.size(), 2);
    const QJsonObject wing = changes[0].toObject();
    EXPECT_EQ(wing["subject"], "part WING A");
    EXPECT_EQ(wing["fact"], "mass type Weighed, mass");
    EXPECT_EQ(wing["was"], "10");
    EXPECT_EQ(wing["now"], "12");
    EXPECT_EQ(wing["stored"], "11");
    EXPECT_EQ(wing["conflict"], true);
    EXPECT_EQ(wing["by"], "ben");
    constexpr const char* kMoment = "20[0-9-]{8}T[0-9:]{8}Z";
    EXPECT_THAT(wing["at"].toString().toStdString(), MatchesRegex(kMoment));
    EXPECT_THAT(wing["when"].toString().toStdString(), MatchesRegex(kMoment));
    const QJsonObject fin = changes[1].toObject();
    EXPECT_EQ(fin["now"], "1;2;3");
    EXPECT_TRUE(fin["was"].isNull());
    EXPECT_EQ(fin["conflict"], false);
    EXPECT_TRUE(fin["by"].isNull());
    EXPECT_THAT(Run("pending --db p.db --user anna --csv").out,
                AllOf(HasSubstr("part WING A,\"mass type Weighed, mass\",10,12,11,true,ben,20"),
                      HasSubstr("part FIN A,\"mass type Weighed, centre\",,1;2;3,,false,,,20")));
}

TEST_F(RunPending, SavingMakesTheChangesEverybodys)
{
    ChangeWing("anna", "12");
    const Outcome saved = Run("pending --save --db p.db --user anna");
    EXPECT_EQ(saved.status, 0) << saved.err;
    EXPECT_EQ(saved.out, "1 unsaved change of anna saved.\n");
    EXPECT_EQ(MassOfWing(), "12");
    EXPECT_THAT(Run("compute PLANE --db p.db --user ben").out, HasSubstr("16.000000 kg"));
    EXPECT_THAT(Run("pending --db p.db --user anna").out, HasSubstr("no unsaved changes"));
}

TEST_F(RunPending, GivingUpLeavesWhatWasSaved)
{
    ChangeWing("anna", "12");
    Change("anna", "FIN", kWeighed, "4", "5");
    const Outcome outcome = Run("pending --abort --db p.db --user anna");
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.out, "2 unsaved changes of anna given up.\n");
    EXPECT_EQ(MassOfWing(), "10");
    EXPECT_TRUE(Store()->PendingChanges("anna").empty());
}

TEST_F(RunPending, SavingThatConflictsSaysWithWhatAndSavesNothing)
{
    ChangeWing("anna", "12");
    Change("anna", "FIN", kWeighed, "4", "5");
    ChangeWing("ben", "11");
    SaveAs("ben");
    const Outcome outcome = Run("pending --save --db p.db --user anna");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.out, IsEmpty());
    EXPECT_THAT(outcome.err,
                AllOf(HasSubstr("- part WING A, mass type Weighed, mass: you changed 10 kg to 12 "
                                "kg, but ben saved 11 kg on 20"),
                      Not(HasSubstr("FIN")),
                      EndsWith("wb: nothing was saved: 2 unsaved changes of anna are still "
                               "there\n")));
    EXPECT_EQ(MassOfWing(), "11");
    EXPECT_EQ(Store()->PendingChanges("anna").size(), 2U);
}

TEST_F(RunPending, AChangeOfWhatIsGoneSaysSo)
{
    ChangeUse("anna", "PLANE", "left", {"", "density"}, "", "2700");
    folder.Write("less.csv", "parent,instance,part\n,,PLANE\nPLANE,tail,TAIL\nTAIL,fin,FIN\n");
    ASSERT_EQ(Run("import less.csv --into p.db --replace PLANE --user ben").status, 0);
    EXPECT_THAT(Run("pending --db p.db --user anna").out, HasSubstr("  removed"));
    EXPECT_EQ(Run("pending --save --db p.db --user anna").status, 1);
}

TEST_F(RunPending, WrongUseAndDatabasesThatAreNoneAreRefused)
{
    EXPECT_EQ(Run("pending").status, 2);
    EXPECT_EQ(Run("pending --db p.db --save --abort").status, 2);
    EXPECT_EQ(Run("pending --db p.db --save --json").status, 2);
    EXPECT_EQ(Run("pending --db p.db --json --csv").status, 2);
    EXPECT_EQ(Run("pending --db p.db --log p.db").status, 2);
    for (const char* what : {"", " --save", " --abort"}) {
        const Outcome none = Run("pending --db none.db" + std::string(what));
        EXPECT_EQ(none.status, 1) << what;
        EXPECT_THAT(none.err, HasSubstr("none.db")) << what;
        folder.Write("damaged.db", "This is no database, and long enough to be taken for one.");
        const Outcome damaged = Run("pending --db damaged.db" + std::string(what));
        EXPECT_EQ(damaged.status, 1) << what;
        EXPECT_THAT(damaged.err, HasSubstr("damaged.db")) << what;
    }
    EXPECT_FALSE(std::filesystem::exists(folder.At("none.db")));
}
