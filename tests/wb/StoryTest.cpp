#include "TemporaryDirectory.h"

#include <gmock/gmock.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstdlib>
#include <string>
#include <vector>

using testing::AllOf;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;

// Plays little stories in the program itself. The long ones stand in tests/scenarios.
namespace
{

struct Played
{
    int status;
    std::string err;
};

Played Play(const TemporaryDirectory& folder, const std::string& story,
            const std::string& environment = {})
{
    const std::string file = folder.Write("a.story", story);
    const std::string command = "cd '" + folder.Path() + "' && " + environment +
                                " '" WB_PROGRAM "' workbench --play '" + file + "' >/dev/null 2>'" +
                                folder.At("stderr") + "'";
    const int status = std::system(command.c_str());
    return {WEXITSTATUS(status), folder.Read("stderr")};
}

/// Name and kind of the controls that the dump says the keys go to.
std::vector<std::string> FocusedBelow(const QJsonArray& controls)
{
    std::vector<std::string> found;
    for (const auto& value : controls) {
        const QJsonObject control = value.toObject();
        if (control["focus"].toBool()) {
            found.push_back(
                (control["name"].toString() + ' ' + control["kind"].toString()).toStdString());
        }
        const std::vector<std::string> below = FocusedBelow(control["controls"].toArray());
        found.insert(found.end(), below.begin(), below.end());
    }
    return found;
}

std::vector<std::string> Focused(const std::string& dump)
{
    const auto document = QJsonDocument::fromJson(QByteArray::fromStdString(dump));
    return FocusedBelow(document.object()["windows"].toArray());
}

} // namespace

TEST(Story, HoldsWhenEveryStepHolds)
{
    const TemporaryDirectory folder;
    const Played played = Play(folder, "start CATTEQWBComputePartCmd\n"
                                       "pick LA1/FIN-000.1/FIN-300.1\n"
                                       "dump windows.json\n"
                                       "shot all.png\n"
                                       "shot panel.png CATWBVPMMainPanel\n"
                                       "quit\n"
                                       "expect Nothing is-checked-after-quit\n");
    EXPECT_EQ(played.status, 0) << played.err;
    EXPECT_THAT(folder.Read("windows.json"), HasSubstr("\"name\": \"CATWBVPMMainPanel\""));
    EXPECT_GT(std::filesystem::file_size(folder.At("all.png")), 1000U);
    EXPECT_GT(std::filesystem::file_size(folder.At("panel.png")), 1000U);
}

TEST(Story, FailsAtTheFirstStepThatDoesNotHoldAndSaysWhatWasSeen)
{
    const TemporaryDirectory folder;
    const Played played =
        Play(folder, "start CATTEQWBComputePartCmd\n\npick LA1/FIN-000.1/FIN-300.1\n"
                     "expect CATWBVPMMainPanel/Path wrong\n");
    EXPECT_EQ(played.status, 1);
    EXPECT_THAT(played.err, HasSubstr("a.story:4: expect: expected \"wrong\", seen \"LA1"));
}

TEST(Story, TooltipIsExpectedWordForWord)
{
    const TemporaryDirectory folder;
    const std::string before = "menu Tools/Units...\n";
    const Played holds =
        Play(folder, before + "expect-tooltip ApplyButton \"Shows all values in the "
                              "new units and keeps them for the next session\"\n");
    EXPECT_EQ(holds.status, 0) << holds.err;
    const Played fails = Play(folder, before + "expect-tooltip ApplyButton Shows\n");
    EXPECT_EQ(fails.status, 1);
    EXPECT_THAT(fails.err, HasSubstr("expect-tooltip: expected \"Shows\", seen \"Shows all"));
}

TEST(Story, ABoxThatNoStepWaitsForFails)
{
    const TemporaryDirectory folder;
    folder.Write("p.csv", "parent,instance,part,x [mm],y [mm],z [mm]\n,,R,,,\nR,A.1,A,0,0,0\n");
    const std::string before = "open p.csv\nstart CATTEQWBComputePartCmd\npick R/A.1\n";
    const Played unexpected = Play(folder, before);
    EXPECT_EQ(unexpected.status, 1);
    EXPECT_THAT(unexpected.err, HasSubstr("a.story:3: pick: a box came that no step waits for"));
    const Played expected = Play(folder, before + "expect-box \"not in the database\"\n");
    EXPECT_EQ(expected.status, 1) << "the box says something else";
    EXPECT_THAT(expected.err, HasSubstr("the boxes that came say"));
}

TEST(Story, StepsThatCannotBeDoneSayWhy)
{
    const TemporaryDirectory folder;
    const auto fails = [&](const std::string& story, const char* why) {
        const Played played = Play(folder, story);
        EXPECT_EQ(played.status, 1) << story;
        EXPECT_THAT(played.err, HasSubstr(why)) << story;
    };
    fails("open NONE\n", "There is no product root \"NONE\"");
    fails("workshop Kitchen\n", "there is no workshop \"Kitchen\"");
    fails("start Nothing\n", "There is no command \"Nothing\" in this workshop.");
    fails("menu Kitchen/Units...\n", "there is no menu \"Kitchen\" with an entry");
    fails("menu Tools\n", "there is no menu \"Tools\" with an entry");
    fails("menu Tools/Hammer\n", "the menu has no entry \"Hammer\" that can be chosen");
    fails("menu \"Weight and balance/Compute\"\n", "the menu has no entry \"Compute\"");
    fails("pick LA1/NOWHERE.1\n", "the tree has no \"LA1/NOWHERE.1\"");
    fails("click Nothing\n", "no open window has a control \"Nothing\"");
    fails("expect Panel/Nothing x\n", "there is no window \"Panel\"");
    fails("key Wurst\n", "there is no key \"Wurst\"");
    fails("units LENGHT mm\n", "there is no magnitude \"LENGHT\"");
    fails("units LENGTH furlong\n", "the magnitude has no unit \"furlong\"");
    fails("expect-tooltip Nothing x\n", "no open window has a control \"Nothing\"");
    fails("expect-box anything\n", "no box came");
    fails("answer Yes\nexpect Prompt \"Choose a command, then pick in the tree\"\n", "expected");
    fails("shot /nowhere/a.png\n", "/nowhere/a.png cannot be written");
    fails("dump /nowhere/a.json\n", "/nowhere/a.json cannot be written");
}

TEST(Story, DumpSaysWhatEachControlIsAndWhichOneTheKeysGoTo)
{
    const TemporaryDirectory folder;
    const Played played = Play(folder, "menu Tools/Units...\n"
                                       "select CATWBVPMNavUnitsConversion/Table Length\n"
                                       "dump list.json\n"
                                       "key Tab\n"
                                       "dump unit.json\n");
    ASSERT_EQ(played.status, 0) << played.err;
    EXPECT_THAT(Focused(folder.Read("list.json")), Contains("Table QTableView"));
    EXPECT_THAT(Focused(folder.Read("unit.json")),
                AllOf(Contains("Unit QComboBox"), Not(Contains("Table QTableView"))));
}

TEST(Story, SelectsAsTheUserDoes)
{
    const TemporaryDirectory folder;
    const Played played =
        Play(folder, "menu Tools/Units...\n"
                     "select Table Length\n"
                     "select Unit in\n"
                     "expect-cell Table 2 \"New unit\" in\n"
                     "sort Table Quantity\n"
                     "select Table \"Mass per area\"\n"
                     "expect Quantity \"of the selected quantity: Mass per area\"\n");
    EXPECT_EQ(played.status, 0) << played.err;
    const auto fails = [&](const std::string& step, const char* why) {
        EXPECT_THAT(Play(folder, "menu Tools/Units...\n" + step).err, HasSubstr(why));
    };
    fails("select Unit furlong\n", "there is no line \"furlong\"");
    fails("select Table Furlong\n", "there is no row \"Furlong\"");
    fails("select CloseButton x\n", "nothing can be selected in this control");
    fails("select ApplyButton x\n", "the control is hidden or greyed");
    fails("close CATWBVPMNavUnitsConversion\nselect CATWBVPMNavUnitsConversion/Unit in\n",
          "the control is hidden or greyed");
}

TEST(Story, ClickOnATabIsHeardByWhoListensToThePages)
{
    const TemporaryDirectory folder;
    // The point of the inertia can be chosen on the first page alone.
    const std::string page = "start CATWBComputeCmd\nclick StatisticsPage\n";
    EXPECT_THAT(Play(folder, page + "click ReferenceButton\n").err,
                HasSubstr("the control is hidden or greyed"));
    const Played back = Play(folder, page + "click ResultTabPage\nclick ReferenceButton\n"
                                            "expect ReferenceButton on\n");
    EXPECT_EQ(back.status, 0) << back.err;
}

TEST(Story, AnEmptyTextReplacesWhatIsThere)
{
    const TemporaryDirectory folder;
    const Played played = Play(folder, "start CATWBVPMNavReport\ntype PointX 508\n"
                                       "expect PointX 508\ntype PointX \"\"\nexpect PointX \"\"\n");
    EXPECT_EQ(played.status, 0) << played.err;
}

TEST(Story, KeysGoToTheWindowThatWasClickedLast)
{
    const TemporaryDirectory folder;
    const Played played = Play(folder, "start CATWBComputeCmd\nanswer Yes\nclick ComputeButton\n"
                                       "expect-box Warnings\ncheck ForceUpdateButton on\n"
                                       "answer Yes\nkey Return\nexpect-box Warnings\n");
    EXPECT_EQ(played.status, 0) << played.err;
}

TEST(Story, UnitsPanelThatCannotBeLoadedIsNamed)
{
    // The same program with one library less. Libraries are looked for beside the file that the
    // loading library really is.
    const TemporaryDirectory folder;
    const std::filesystem::path build =
        std::filesystem::path(WB_PROGRAM).parent_path().parent_path();
    std::filesystem::create_directories(folder.At("bin"));
    std::filesystem::create_directories(folder.At("lib"));
    std::filesystem::copy_file(WB_PROGRAM, folder.At("bin/wb"));
    for (const auto& library : std::filesystem::directory_iterator(build / "lib")) {
        const std::string name = library.path().filename().string();
        if (name == "libCATCommands.so") {
            std::filesystem::copy_file(library.path(), folder.At("lib/" + name));
        } else if (name != "libCATWBVPMNavGUI.so") {
            std::filesystem::create_symlink(library.path(), folder.At("lib/" + name));
        }
    }
    std::filesystem::create_directory_symlink(build / "resources", folder.At("resources"));
    folder.Write("a.story", "menu Tools/Units...\nexpect-box libCATWBVPMNavGUI.so\n");
    const std::string command = "'" + folder.At("bin/wb") + "' workbench --play '" +
                                folder.At("a.story") + "' 2>'" + folder.At("stderr") + "'";
    EXPECT_EQ(std::system(command.c_str()), 0) << folder.Read("stderr");
}

TEST(Story, LeavesTheUsersSettingsAlone)
{
    const TemporaryDirectory folder;
    const Played played =
        Play(folder, "units MASS lb\n", "CATUserSettingPath='" + folder.At("mine") + "'");
    EXPECT_EQ(played.status, 0) << played.err;
    EXPECT_FALSE(std::filesystem::exists(folder.At("mine")));
}

namespace
{

/// What a user sees who has a file of that text before the program's own.
Played PlayWithResource(const std::string& name, const std::string& text, const std::string& story)
{
    const TemporaryDirectory folder;
    std::filesystem::create_directories(
        std::filesystem::path(folder.At("resources/" + name)).parent_path());
    folder.Write("resources/" + name, text);
    return Play(folder, story, "WB_RESOURCE_PATH='" + folder.At("resources") + "'");
}

} // namespace

TEST(Story, MenuEntryThatIsNotOfferedCannotBeChosen)
{
    const Played played = PlayWithResource(
        "workbenches/more.toml",
        "[[command]]\nclass = \"Other\"\nlibrary = \"Other\"\ntitle = \"Elsewhere\"\n"
        "workshop = \"StructureWorkshop\"\n",
        "menu \"Weight and balance/Elsewhere\"\n");
    EXPECT_EQ(played.status, 1);
    EXPECT_THAT(played.err, HasSubstr("the menu has no entry \"Elsewhere\" that can be chosen"));
}

TEST(BrokenResources, ACatalogIsNamedAndItsDefaultsAreUsed)
{
    const Played played =
        PlayWithResource("catalogs/CATTEQWBComputePartCmd.toml", "[initialState\n",
                         "start CATTEQWBComputePartCmd\n"
                         "expect-box catalogs/CATTEQWBComputePartCmd.toml\n"
                         "expect Prompt \"Select a Part/Assy in this workbench\"\n");
    EXPECT_EQ(played.status, 0) << played.err;
}

TEST(BrokenResources, ADialogFileIsNamedAndThePanelStillOpens)
{
    const Played played = PlayWithResource("dialogs/CATWBVPMMainPanel.toml", "Name = \n",
                                           "start CATTEQWBComputePartCmd\n"
                                           "pick LA1/FIN-000.1/FIN-300.1\n"
                                           "expect-box dialogs/CATWBVPMMainPanel.toml\n"
                                           "expect CATWBVPMMainPanel/Mass \"0.35 kg\"\n");
    EXPECT_EQ(played.status, 0) << played.err;
}

TEST(BrokenResources, AUnitsFileIsNamedWithItsLineAndTheOthersCount)
{
    const Played played = PlayWithResource("units/9-mine.toml",
                                           "[[magnitude]]\nname = \"LENGTH\"\n\n"
                                           "[[magnitude.unit]]\nsymbol = \"5x\"\nfactor = \"1\"\n",
                                           "units MASS lb\n"
                                           "expect-box units/9-mine.toml\n");
    EXPECT_EQ(played.status, 0) << played.err;
}

TEST(BrokenResources, AModuleThatIsMissingIsNamed)
{
    const Played played =
        PlayWithResource("workbenches/weight_and_balance.toml",
                         "[[command]]\nclass = \"CATTEQWBComputePartCmd\"\nlibrary = \"Nowhere\"\n"
                         "title = \"Part\"\n",
                         "start Part\n");
    EXPECT_EQ(played.status, 1);
    EXPECT_THAT(played.err, HasSubstr("libNowhere.so"));
}

TEST(BrokenResources, ACommandWhosePanelsAreMissingIsNotStarted)
{
    const Played played = PlayWithResource(
        "workbenches/weight_and_balance.toml",
        "[[command]]\nclass = \"CATTEQWBComputePartCmd\"\n"
        "library = \"CATTEQWBCmdsAndTools\"\ncompanion = \"NoPanels\"\ntitle = \"Part\"\n",
        "start Part\n");
    EXPECT_EQ(played.status, 1);
    EXPECT_THAT(played.err, HasSubstr("libNoPanels.so"));
}

TEST(Story, AnswerNamesAButtonThatBoxesHave)
{
    const TemporaryDirectory folder;
    const Played played = Play(folder, "answer Perhaps\n");
    EXPECT_EQ(played.status, 1);
    EXPECT_THAT(played.err, HasSubstr("a.story:1: answer: expected Yes, No, OK or Cancel"));
}

TEST(Story, AnswerCancelFailsAtABoxWithoutThatButton)
{
    const TemporaryDirectory folder;
    const Played played = Play(folder, "start CATWBComputeCmd\nanswer Cancel\n"
                                       "click CATWBComputeCmd/ComputeButton\n");
    EXPECT_EQ(played.status, 1);
    EXPECT_THAT(played.err, HasSubstr("a box without a button \"Cancel\": "));
}

TEST(Story, StatusLineSaysNothingOfUnsavedChangesWhereThereAreNone)
{
    const TemporaryDirectory folder;
    EXPECT_EQ(Play(folder, "expect UnsavedChanges \"\"\n").status, 0);
    EXPECT_THAT(Play(folder, "expect UnsavedChanges \"1 unsaved change\"\n").err,
                HasSubstr("expected \"1 unsaved change\", seen \"\""));
}
