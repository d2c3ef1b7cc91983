#include "ChangedPlane.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using testing::AllOf;
using testing::HasSubstr;
using testing::MatchesRegex;
using testing::Not;
using testing::StartsWith;

using RunHistory = ChangedPlane;

TEST_F(RunHistory, WhatWasNeverChangedSaysSo)
{
    const Outcome outcome = Run("history PLANE/tail/fin --db p.db");
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.out, "PLANE/tail/fin, part FIN A\n"
                           "Nothing of it has been changed since it was first imported.\n");
    EXPECT_EQ(Run("history PLANE --db p.db --csv").out,
              "when,who,what,subject,fact,before,after,file\n");
}

TEST_F(RunHistory, EverySavedChangeTellsWhoWhenBeforeAndAfterTheNewestFirst)
{
    ChangeWing("anna", "12");
    SaveAs("anna");
    Change("ben", "WING", {"Weighed", "precision"}, "percent;1;2", "absolute;0.5;0.25");
    SaveAs("ben");
    // What is pending is no history yet.
    ChangeWing("anna", "13");
    const Outcome outcome = Run("history PLANE/left --db p.db");
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_THAT(outcome.out,
                MatchesRegex("PLANE/left, part WING A\n"
                             "  when +who +what +subject +fact +before +after +file\n"
                             "  20[0-9/]{8} [0-9:]{8}  ben   save  part WING A  mass type Weighed, "
                             "precision  lower 1 %, upper 2 %  lower 0.5 kg, upper 0.25 kg  -\n"
                             "  20[0-9/]{8} [0-9:]{8}  anna  save  part WING A  mass type Weighed, "
                             "mass +10 kg +12 kg +-\n"));
}

TEST_F(RunHistory, ChangesOfTheUseBelongToItsPlaceAlone)
{
    ChangeUse("anna", "PLANE", "left", {"", "density"}, "", "2700");
    SaveAs("anna");
    EXPECT_THAT(Run("history PLANE/left --db p.db").out,
                HasSubstr("use PLANE A / left  density  -       2700 kg/m3"));
    EXPECT_THAT(Run("history GLIDER/only --db p.db").out, HasSubstr("Nothing of it"));
}

TEST_F(RunHistory, ImportsTellTheirFile)
{
    folder.Write("later.csv", "parent,instance,part,mass_type,mass [lb]\n"
                              "PLANE,left,WING,Weighed,24.25\n");
    ASSERT_EQ(Run("import later.csv --into p.db --user ben").status, 0);
    EXPECT_THAT(Run("history PLANE/left --db p.db").out,
                MatchesRegex("(.|\n)*ben +import +part WING A +mass type Weighed, mass +10 kg +"
                             "24.25 lb +later.csv\n"));
}

TEST_F(RunHistory, ProgramsReadTheTextsOfTheDatabase)
{
    ChangeWing("anna", "12.5");
    SaveAs("anna");
    const Outcome json = Run("history PLANE/left --db p.db --json");
    EXPECT_EQ(json.status, 0) << json.err;
    const QJsonObject object =
        QJsonDocument::fromJson(QByteArray::fromStdString(json.out)).object();
    EXPECT_EQ(object["path"], "PLANE/left");
    EXPECT_EQ(object["part"], "WING");
    EXPECT_EQ(object["version"], "A");
    const QJsonArray changes = object["changes"].toArray();
    ASSERT_EQ(changes.size(), 1);
    const QJsonObject change = changes[0].toObject();
    EXPECT_THAT(change["when"].toString().toStdString(), MatchesRegex("20[0-9-]{8}T[0-9:]{8}Z"));
    EXPECT_EQ(change["who"], "anna");
    EXPECT_EQ(change["what"], "save");
    EXPECT_EQ(change["subject"], "part WING A");
    EXPECT_EQ(change["fact"], "mass type Weighed, mass");
    EXPECT_EQ(change["before"], "10");
    EXPECT_EQ(change["after"], "12.5");
    EXPECT_TRUE(change["file"].isNull());
    EXPECT_THAT(Run("history PLANE/left --db p.db --csv").out,
                AllOf(StartsWith("when,who,what,subject,fact,before,after,file\n20"),
                      HasSubstr("Z,anna,save,part WING A,\"mass type Weighed, mass\",10,12.5,\n")));
}

TEST_F(RunHistory, TableIsShownInTheUsersUnits)
{
    ChangeWing("anna", "12");
    SaveAs("anna");
    folder.Write("config/wb/Units.CATSettings", "MASS = \"g\"\n");
    EXPECT_THAT(Run("history PLANE/left --db p.db").out, HasSubstr("10000 g  12000 g"));
}

TEST_F(RunHistory, TheMarkOfDecimalsIsAPointInEveryLanguage)
{
    ChangeWing("anna", "12.5");
    SaveAs("anna");
    environment = "LC_ALL=de_DE.UTF-8";
    EXPECT_THAT(Run("history PLANE/left --db p.db").out, HasSubstr("12.5 kg"));
}

TEST_F(RunHistory, OfSeveralVersionsOfTheRootOneCanBeNamed)
{
    folder.Write("b.csv", "parent,parent_version,instance,part,version\n"
                          ",,,PLANE,B\n"
                          "PLANE,B,right,WING,A\n");
    ASSERT_EQ(Run("import b.csv --into p.db").status, 0);
    EXPECT_EQ(Run("history PLANE/right --db p.db").status, 0) << "the version stored last";
    EXPECT_EQ(Run("history PLANE/left --db p.db").status, 1);
    EXPECT_EQ(Run("history PLANE/left --db p.db --root-version A").status, 0);
    EXPECT_THAT(Run("history PLANE --db p.db --root-version C").err,
                HasSubstr("\"PLANE C\" is no product root"));
}

TEST_F(RunHistory, PlacesThatAreNotThereAreNamedWithWhatThereIs)
{
    const struct
    {
        const char* path;
        const char* problem;
    } cases[] = {
        {"PLAN", "wb: p.db: \"PLAN\" is no product root, expected one of PLANE A, GLIDER A\n"},
        {"WING", "\"WING\" is no product root but a part of one"},
        {"PLANE/nose", "wb: \"PLANE\" has no instance \"nose\", expected one of left, tail\n"},
        {"PLANE/tail/f", "wb: \"PLANE/tail\" has no instance \"f\", expected one of fin\n"},
        {"PLANE/left/x", "wb: \"PLANE/left\" has no instance \"x\": there is nothing below it\n"},
    };
    for (const auto& each : cases) {
        const Outcome outcome = Run("history " + std::string(each.path) + " --db p.db");
        EXPECT_EQ(outcome.status, 1) << each.path;
        EXPECT_THAT(outcome.err, HasSubstr(each.problem)) << each.path;
        EXPECT_EQ(outcome.out, "") << each.path;
    }
}

TEST_F(RunHistory, NamesMayHoldASlash)
{
    folder.Write("slash.csv", "parent,instance,part\n,,A/B\nA/B,in/out,C\n");
    ASSERT_EQ(Run("import slash.csv --into p.db").status, 0);
    EXPECT_THAT(Run("history A/B/in/out --db p.db").out, StartsWith("A/B/in/out, part C A\n"));
}

TEST_F(RunHistory, WrongUseAndDatabasesThatAreNoneAreRefused)
{
    EXPECT_EQ(Run("history --db p.db").status, 2);
    EXPECT_EQ(Run("history PLANE").status, 2);
    EXPECT_EQ(Run("history PLANE --db p.db --json --csv").status, 2);
    EXPECT_EQ(Run("history PLANE --db p.db --log p.db").status, 2);
    const Outcome none = Run("history PLANE --db none.db");
    EXPECT_EQ(none.status, 1);
    EXPECT_THAT(none.err, HasSubstr("none.db"));
    EXPECT_FALSE(std::filesystem::exists(folder.At("none.db")));
    folder.Write("damaged.db", "This is no database, and long enough to be taken for one.");
    const Outcome damaged = Run("history PLANE --db damaged.db");
    EXPECT_EQ(damaged.status, 1);
    EXPECT_THAT(damaged.err, HasSubstr("damaged.db"));
}
