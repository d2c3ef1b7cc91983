#include "ChangedPlane.h"

using testing::AllOf;
using testing::HasSubstr;

namespace
{
/// What becomes of unsaved changes when somebody closes the workbench: played in the program
/// itself, as anna.
class WorkbenchClosing : public ChangedPlane
{
protected:
    Outcome Play(const std::string& story) const
    {
        folder.Write("a.story", story);
        return Run("workbench PLANE --db p.db --user anna --play a.story");
    }
    std::size_t Pending() const { return Store()->PendingChanges("anna").size(); }
};
} // namespace

TEST_F(WorkbenchClosing, SavesWhatIsToBeSaved)
{
    ChangeWing("anna", "12");
    const Outcome played = Play("expect UnsavedChanges \"1 unsaved change\"\n"
                                "answer Yes\n"
                                "close Workbench\n");
    EXPECT_EQ(played.status, 0) << played.err;
    EXPECT_EQ(MassOfWing(), "12");
    EXPECT_EQ(Pending(), 0U);
}

TEST_F(WorkbenchClosing, LeavesForLaterWhatIsToWait)
{
    ChangeWing("anna", "12");
    const Outcome played = Play("answer No\nmenu File/Quit\n");
    EXPECT_EQ(played.status, 0) << played.err;
    EXPECT_EQ(MassOfWing(), "10");
    EXPECT_EQ(Pending(), 1U);
}

TEST_F(WorkbenchClosing, StaysWhereTheUserThinksBetterOfIt)
{
    ChangeWing("anna", "12");
    const Outcome played = Play("answer Cancel\n"
                                "key Ctrl+Q\n"
                                "start CATTEQWBComputePartCmd\n"
                                "pick PLANE/left\n"
                                "expect UnsavedChanges \"1 unsaved change\"\n");
    EXPECT_EQ(played.status, 0) << played.err;
    EXPECT_EQ(Pending(), 1U);
}

TEST_F(WorkbenchClosing, StaysAndSaysWhyWhereTheChangesCannotBeSaved)
{
    ChangeWing("anna", "12");
    ChangeWing("ben", "11");
    SaveAs("ben");
    const Outcome played = Play("answer Yes\n"
                                "answer OK\n"
                                "close Workbench\n"
                                "expect UnsavedChanges \"1 unsaved change\"\n"
                                "answer No\n"
                                "close Workbench\n");
    EXPECT_EQ(played.status, 0) << played.err;
    EXPECT_EQ(MassOfWing(), "11");
    EXPECT_EQ(Pending(), 1U);
    EXPECT_THAT(Play("answer Yes\nclose Workbench\n").err,
                AllOf(HasSubstr("Your changes were not saved"),
                      HasSubstr("you changed 10 kg to 12 kg, but ben saved 11 kg on 20")));
}

TEST_F(WorkbenchClosing, ASessionThatIsNotAnsweredFailsItsStory)
{
    ChangeWing("anna", "12");
    const Outcome played = Play("close Workbench\n");
    EXPECT_EQ(played.status, 1);
    EXPECT_THAT(played.err, HasSubstr("a box came that no step waits for: Unsaved changes\n"));
    EXPECT_EQ(Pending(), 1U);
}

TEST_F(WorkbenchClosing, TheEndOfAStoryAsksNobody)
{
    ChangeWing("anna", "12");
    EXPECT_EQ(Play("quit\n").status, 0);
    EXPECT_EQ(Play("expect UnsavedChanges \"1 unsaved change\"\n").status, 0);
    EXPECT_EQ(Pending(), 1U);
}

TEST_F(WorkbenchClosing, OthersAreNotAskedAboutHerChanges)
{
    ChangeWing("ben", "12");
    const Outcome played = Play("expect UnsavedChanges \"\"\nclose Workbench\n");
    EXPECT_EQ(played.status, 0) << played.err;
}

TEST_F(WorkbenchClosing, GermanUsersReadGerman)
{
    ChangeWing("anna", "12");
    environment = "LC_ALL=de_DE.UTF-8";
    const Outcome played = Play("expect UnsavedChanges \"1 ungespeicherte Änderung\"\n"
                                "close Workbench\n");
    EXPECT_THAT(played.err,
                AllOf(HasSubstr("Ungespeicherte Änderungen"), HasSubstr("Jetzt speichern?")));
}

TEST_F(WorkbenchClosing, PanelWithEditsIsAskedFirstAndWhatItAppliesIsAmongTheUnsavedChanges)
{
    const Outcome played = Play("start CATTEQWBComputePartCmd\n"
                                "pick PLANE/left\n"
                                "click CATWBVPMMainPanel/Values\n"
                                "type CATWBVPMMainPanel/StatedMassEditor \"12 kg\"\n"
                                "answer Cancel\n"
                                "close Workbench\n"
                                "expect CATWBVPMMainPanel/StatedMassEditor \"12 kg\"\n"
                                "expect UnsavedChanges \"\"\n"
                                "answer Yes\n"
                                "answer Cancel\n"
                                "close Workbench\n"
                                "expect UnsavedChanges \"1 unsaved change\"\n"
                                "answer Yes\n"
                                "close Workbench\n");
    EXPECT_EQ(played.status, 0) << played.err;
    EXPECT_EQ(MassOfWing(), "12");
}

TEST_F(WorkbenchClosing, EditsStayWhereTheUserStaysWithThem)
{
    folder.Write("other.csv", "parent,instance,part\n,,OTHER\nOTHER,a,A\n");
    const std::string edit = "start CATTEQWBComputePartCmd\n"
                             "pick PLANE/left\n"
                             "click CATWBVPMMainPanel/Values\n"
                             "type CATWBVPMMainPanel/StatedMassEditor \"12 kg\"\n";
    for (const char* step :
         {"workshop StructureWorkshop\n", "open GLIDER\n", "open other.csv\n", "key Esc\n"}) {
        const Outcome stayed =
            Play(edit + "answer Cancel\n" + step +
                 "expect CATWBVPMMainPanel/StatedMassEditor \"12 kg\"\n"
                 "answer No\n"
                 "click CATWBVPMMainPanel/CloseButton\n"
                 "start CATTEQWBComputePartCmd\n" // the navigator and its product are still there
                 "pick PLANE/left\n"
                 "expect CATWBVPMMainPanel/Path \"PLANE / left\"\n");
        EXPECT_EQ(stayed.status, 0) << step << stayed.err;
    }
    const Outcome went = Play(edit + "answer Yes\nopen GLIDER\n"
                                     "expect UnsavedChanges \"1 unsaved change\"\n"
                                     "start CATTEQWBComputePartCmd\npick GLIDER/only\n"
                                     "expect CATWBVPMMainPanel/Mass \"12 kg\"\n");
    EXPECT_EQ(went.status, 0) << went.err;
}
