#include "EditingSession.h"

#include "CATICkeUnit.h"
#include "RunServerCode.h"

#include <QLabel>

namespace
{

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

using WBMainPanelEditTest = EditingSession;

constexpr const char* kOneEdit = "✎ 1 edit is not applied.";
constexpr const char* kWrong = "\"heavy\" is no mass; expected a number like 12.5 kg.";

} // namespace

TEST_F(WBMainPanelEditTest, FieldsShowWhatIsStated)
{
    Open(record);
    EXPECT_EQ(Field("StatedMassEditor"), "12.5 kg");
    EXPECT_EQ(Field("CentreXEditor"), "10 mm");
    EXPECT_EQ(Field("CentreZEditor"), "30 mm");
    EXPECT_EQ(Chosen("PrecisionKindChoice"), "–");
    EXPECT_EQ(Field("LowerPrecisionEditor"), "");
    EXPECT_EQ(Field("IyyEditor"), "2 kg.m2");
    EXPECT_EQ(Field("IxzEditor"), "0.2 kg.m2");
    EXPECT_EQ(Chosen("MaterialNameChoice"), "Steel");
    EXPECT_EQ(Text("EditWords"), "");
    for (const char* button : {"ApplyButton", "UndoButton", "DiscardButton"}) {
        EXPECT_FALSE(CanClick(button)) << button;
    }
    // Captions name the fields for those who hear them.
    EXPECT_EQ(Line("StatedMassEditor")->accessibleName(), "Mass");
    EXPECT_EQ(panel->Widget()->findChild<QWidget*>("ActiveMassTypeChoice")->accessibleName(),
              "Active mass type");
}

TEST_F(WBMainPanelEditTest, WhereNothingIsStatedTheFieldSaysWhatCounts)
{
    Open(record);
    EXPECT_EQ(Chosen("ActiveMassTypeChoice"), "Estimated (by default)");
    EXPECT_EQ(Chosen("PriorityChoice"), "the density of the material (by default)");
    EXPECT_EQ(Field("DensityEditor"), "");
    EXPECT_EQ(Line("DensityEditor")->placeholderText(), "7850 kg/m3 (not stated)");
    EXPECT_EQ(Line("LowerPrecisionEditor")->placeholderText(), "not stated");
    // Somebody chose it.
    rows[8].text = rows[8].stored = "Estimated";
    SayWhatIsStated();
    panel->SetModel(RecordOf("1|BOLT.1|BOLT|A|CAR|1|AXLE.1|" + Values("12.5")).Get());
    EXPECT_EQ(Chosen("ActiveMassTypeChoice"), "Estimated");
    Choose("ActiveMassTypeChoice", 0);
    EXPECT_EQ(Chosen("ActiveMassTypeChoice"), "–");
}

TEST_F(WBMainPanelEditTest, WithoutStatedValuesThePanelShowsWhatItAlwaysDid)
{
    server->answers["WBGetStatedValues"] = "Bolt|1|damaged";
    Open(record);
    EXPECT_EQ(Text("EditWords"), "Nothing can be edited: the server does not say what is stated.");
    for (const char* plain :
         {"ActiveMassType", "Density", "MaterialName", "AppliedOn", "Priority", "PropertyValue"}) {
        EXPECT_TRUE(Find<CATDlgLabel>(plain)->IsVisible()) << plain;
    }
    EXPECT_EQ(Text("ActiveMassType"), "Estimated");
    for (const char* combo : {"ActiveMassTypeChoice", "MaterialNameChoice", "PriorityChoice"}) {
        EXPECT_FALSE(Find<CATDlgCombo>(combo)->IsVisible()) << combo;
    }
    EXPECT_FALSE(Find<CATDlgEditor>("DensityEditor")->IsVisible());
    EXPECT_FALSE(FindBelow<CATDlgFrame>(*Find<CATDlgTabPage>("Values"), "Stated")->IsVisible());
    EXPECT_FALSE(FindBelow<CATDlgFrame>(*Find<CATDlgTabPage>("Inertia"), "Stated")->IsVisible());
    EXPECT_FALSE(CanClick("ApplyButton"));
}

TEST_F(WBMainPanelEditTest, FieldTakesTheCellOfItsFact)
{
    Open(record);
    EXPECT_FALSE(Find<CATDlgLabel>("ActiveMassType")->IsVisible());
    EXPECT_TRUE(Find<CATDlgCombo>("ActiveMassTypeChoice")->IsVisible());
    TurnTo("Material");
    // Of an instance that the PDM knows the material is always the part's.
    EXPECT_TRUE(Find<CATDlgLabel>("AppliedOn")->IsVisible());
    EXPECT_FALSE(Find<CATDlgCombo>("AppliedOnChoice")->IsVisible());
    EXPECT_EQ(Find<CATDlgLabel>("AppliedOn")->Tooltip(),
              "Density and material of this instance are those of its part.");
    const QWidget& page = *panel->Widget()->findChild<QWidget*>("Material");
    EXPECT_EQ(PlaceIn(page, "DensityEditor").left(), PlaceIn(page, "AppliedOn").left());
    EXPECT_EQ(PlaceIn(page, "DensityEditor").left(), PlaceIn(page, "MaterialNameChoice").left());
}

TEST_F(WBMainPanelEditTest, ComputedIsNotEditedAndSaysWhy)
{
    Open(record);
    const auto fields = [this](const char* page) {
        return FindBelow<CATDlgFrame>(*Find<CATDlgTabPage>(page), "Stated")->IsVisible();
    };
    const auto reason = [this](const char* page) {
        const auto* label = FindBelow<CATDlgLabel>(*Find<CATDlgTabPage>(page), "WhyNot");
        return label->IsVisible() ? label->Title().ToStdString() : "none";
    };
    for (const char* page : {"Values", "Inertia"}) {
        EXPECT_TRUE(fields(page)) << page;
        EXPECT_EQ(reason(page), "none") << page;
    }
    SelectMassType(1);
    for (const char* page : {"Values", "Inertia"}) {
        EXPECT_FALSE(fields(page)) << page;
        EXPECT_EQ(reason(page), "Computed follows from what is below; it is not typed.") << page;
    }
    List("MassTypes")->Send(CATDlgMultiList::RowSelected, 0); // none
    EXPECT_FALSE(fields("Values"));
    EXPECT_EQ(reason("Values"), "none");
}

TEST_F(WBMainPanelEditTest, EntryIsTakenAtEnterInAnyUnitAndMarked)
{
    Open(record);
    Type("StatedMassEditor", "2*3.5");
    EXPECT_EQ(Field("StatedMassEditor"), "7 kg");
    Type("StatedMassEditor", "10 lb"); // 4.5359237 kg
    EXPECT_EQ(Field("StatedMassEditor"), "4.536 kg");
    EXPECT_EQ(LookOf("StatedMassEditor"), CATDlgLook::Edited);
    EXPECT_EQ(Find<CATDlgEditor>("StatedMassEditor")->Tooltip(),
              "Not applied yet. Saved is 12.5 kg.");
    EXPECT_EQ(LookOf("CentreXEditor"), CATDlgLook::Plain);
    EXPECT_EQ(Text("EditWords"), kOneEdit);
    EXPECT_NEAR(EstimateOf(*record), 4.5359237, 1e-12);
    // Lists and sums are of what is applied.
    EXPECT_EQ(Text("Mass"), "12.5 kg");
    EXPECT_EQ(List("MassTypes")->Cell(3, 2), "12.5");
    EXPECT_THAT(server->CallsOf("WBApplyValues"), IsEmpty());
}

TEST_F(WBMainPanelEditTest, EntryIsTakenWhenTheFieldIsLeft)
{
    Open(record);
    TurnTo("Values");
    Line("StatedMassEditor")->setFocus();
    Enter("StatedMassEditor", "13");
    EXPECT_EQ(Text("EditWords"), "");
    EXPECT_TRUE(CanClick("ApplyButton")); // what is typed is about to be an edit
    Line("CentreXEditor")->setFocus();
    EXPECT_EQ(Field("StatedMassEditor"), "13 kg");
    EXPECT_EQ(Text("EditWords"), kOneEdit);
}

TEST_F(WBMainPanelEditTest, ChoiceIsTakenAtOnce)
{
    Open(record);
    Choose("ActiveMassTypeChoice", 2);
    EXPECT_EQ(Chosen("ActiveMassTypeChoice"), "Weighed");
    EXPECT_EQ(Find<CATDlgCombo>("ActiveMassTypeChoice")->Look(), CATDlgLook::Edited);
    Choose("MaterialNameChoice", 1);
    EXPECT_EQ(Chosen("MaterialNameChoice"), "Brass");
    EXPECT_EQ(Text("EditWords"), "✎ 2 edits are not applied.");
    CATUnicodeString active;
    record->GetActiveMassType(active);
    EXPECT_EQ(active, "Weighed");
}

TEST_F(WBMainPanelEditTest, WrongEntryStaysMarkedAndIsNotTaken)
{
    Open(record);
    TurnTo("Values");
    Type("StatedMassEditor", "heavy");
    EXPECT_EQ(Field("StatedMassEditor"), "heavy");
    EXPECT_EQ(LookOf("StatedMassEditor"), CATDlgLook::Problem);
    EXPECT_EQ(Find<CATDlgEditor>("StatedMassEditor")->Tooltip(), kWrong);
    EXPECT_EQ(ProblemOn("Values"), kWrong);
    EXPECT_EQ(Text("EditWords"), "✕ 1 entry cannot be taken.");
    EXPECT_EQ(EstimateOf(*record), 12.5);
    // Every field has its own sentence.
    Type("CentreXEditor", "left");
    EXPECT_THAT(ProblemOn("Values"), AllOf(StartsWith(kWrong), HasSubstr("\n\"left\" is no")));
    EXPECT_EQ(Text("EditWords"), "✕ 2 entries cannot be taken.");
    EXPECT_EQ(ProblemOn("Inertia"), "none");

    Press("CentreXEditor", Qt::Key_Escape);
    EXPECT_EQ(Field("CentreXEditor"), "10 mm");
    Type("StatedMassEditor", "13");
    EXPECT_EQ(ProblemOn("Values"), "none");
    EXPECT_EQ(LookOf("StatedMassEditor"), CATDlgLook::Edited);
    EXPECT_EQ(Text("EditWords"), kOneEdit);
    EXPECT_TRUE(panel->IsVisible());
}

TEST_F(WBMainPanelEditTest, WrongEntryWaitsWhileAnotherMassTypeIsShown)
{
    Open(record);
    TurnTo("Values");
    Type("StatedMassEditor", "heavy");
    SelectMassType(3);
    EXPECT_EQ(Field("StatedMassEditor"), "");
    EXPECT_EQ(ProblemOn("Values"), "none");
    EXPECT_EQ(Text("EditWords"), "✕ 1 entry cannot be taken.");
    SelectMassType(2);
    EXPECT_EQ(Field("StatedMassEditor"), "heavy");
    EXPECT_EQ(ProblemOn("Values"), kWrong);
    Press("StatedMassEditor", Qt::Key_Escape);
    EXPECT_EQ(Field("StatedMassEditor"), "12.5 kg");
    EXPECT_EQ(LookOf("StatedMassEditor"), CATDlgLook::Plain);
    EXPECT_EQ(Text("EditWords"), "");
    EXPECT_TRUE(panel->IsVisible());
}

TEST_F(WBMainPanelEditTest, WhatIsNotAppliedIsListedAlsoWhereItIsNotShown)
{
    Open(record);
    EXPECT_EQ(Find<CATDlgLabel>("EditWords")->Tooltip(), "");
    Type("StatedMassEditor", "13");
    Type("CentreXEditor", "left");
    SelectMassType(3);
    const std::string entry =
        "Estimated: centre of gravity: \"left\" is no length; expected a number like 12.5 mm.";
    EXPECT_EQ(Find<CATDlgLabel>("EditWords")->Tooltip(),
              (entry + "\nEstimated: mass (12.5 kg → 13 kg)").c_str());
    Click("ApplyButton");
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_THAT(boxes[0].text, HasSubstr("\n" + entry));
    Click("DiscardButton");
    EXPECT_EQ(Find<CATDlgLabel>("EditWords")->Tooltip(), "");
}

TEST_F(WBMainPanelEditTest, WhatIsTypedBelongsToTheMassTypeItWasTypedFor)
{
    Open(record);
    Enter("StatedMassEditor", "13");
    SelectMassType(3);
    EXPECT_EQ(Field("StatedMassEditor"), "");
    EXPECT_EQ(EstimateOf(*record), 13.0);
    Type("StatedMassEditor", "14");
    SelectMassType(2);
    EXPECT_EQ(Field("StatedMassEditor"), "13 kg");
}

TEST_F(WBMainPanelEditTest, UndoTakesTheLastStepBackAndDiscardAll)
{
    Open(record);
    Type("StatedMassEditor", "13");
    Type("StatedMassEditor", "14");
    Type("StatedMassEditor", "heavy");
    Click("UndoButton");
    EXPECT_EQ(Field("StatedMassEditor"), "14 kg");
    Click("UndoButton");
    EXPECT_EQ(Field("StatedMassEditor"), "13 kg");
    Click("UndoButton");
    EXPECT_EQ(Field("StatedMassEditor"), "12.5 kg");
    EXPECT_FALSE(CanClick("UndoButton"));
    EXPECT_EQ(Text("EditWords"), "");

    Type("StatedMassEditor", "13");
    Choose("MaterialNameChoice", 1);
    Type("CentreXEditor", "left");
    Enter("CentreYEditor", "21");
    Click("DiscardButton");
    EXPECT_EQ(Field("StatedMassEditor"), "12.5 kg");
    EXPECT_EQ(Field("CentreXEditor"), "10 mm");
    EXPECT_EQ(Field("CentreYEditor"), "20 mm");
    EXPECT_EQ(Chosen("MaterialNameChoice"), "Steel");
    EXPECT_EQ(EstimateOf(*record), 12.5);
    for (const char* button : {"ApplyButton", "UndoButton", "DiscardButton"}) {
        EXPECT_FALSE(CanClick(button)) << button;
    }
}

TEST_F(WBMainPanelEditTest, ApplyHandsTheEditsOverAndReadsTheRecordAnew)
{
    Open(record);
    TurnTo("Values");
    Type("StatedMassEditor", "13");
    server->calls.clear();
    ServerHas("13", "12.5");
    Click("ApplyButton");
    ASSERT_GE(server->calls.size(), 3U);
    EXPECT_THAT(
        server->calls[0],
        StartsWith("WBApplyValues: 1|BOLT.1|BOLT|A|1|AXLE.1|CAR|1|PartRef|Estimated|mass|1|12.5|"));
    EXPECT_EQ(server->calls[1], "WBCompPartGetInitialValues: 1||CAR|BOLT.1|BOLT|A|1|AXLE.1|");
    EXPECT_THAT(server->CallsOf("WBGetStatedValues"), ElementsAre("1|BOLT.1|BOLT|A|1|AXLE.1|CAR|"));
    EXPECT_THAT(boxes, IsEmpty());
    // The same record, the same page, the same mass type.
    EXPECT_EQ(EstimateOf(*record), 13.0);
    EXPECT_TRUE(record->IsLeaf());
    EXPECT_EQ(Text("Mass"), "13 kg");
    EXPECT_EQ(List("MassTypes")->Cell(3, 2), "13");
    EXPECT_EQ(Tabs()->currentIndex(), 1);
    EXPECT_EQ(List("MassTypes")->SelectedRow(), 2);
    EXPECT_EQ(Field("StatedMassEditor"), "13 kg");
    EXPECT_EQ(LookOf("StatedMassEditor"), CATDlgLook::Unsaved);
    EXPECT_EQ(Find<CATDlgEditor>("StatedMassEditor")->Tooltip(),
              "Applied, but not saved. Saved is 12.5 kg.");
    EXPECT_EQ(Text("EditWords"), "● 1 change is not saved.");
    EXPECT_FALSE(CanClick("ApplyButton"));
}

TEST_F(WBMainPanelEditTest, AppliedMassTypeIsTheBoldOne)
{
    Open(record);
    Choose("ActiveMassTypeChoice", 2);
    std::string values = Values("12.5");
    values.replace(values.find("1|Estimated|__null__|"), 21, "1|Weighed|Weighed|");
    server->answers["WBCompPartGetInitialValues"] = values;
    Click("ApplyButton");
    const auto isBold = [this](int row) {
        return ViewOf(*List("MassTypes"))
            ->model()
            ->index(row - 1, 0)
            .data(Qt::FontRole)
            .value<QFont>()
            .bold();
    };
    EXPECT_FALSE(isBold(2));
    EXPECT_TRUE(isBold(3));
    EXPECT_EQ(List("MassTypes")->SelectedRow(), 2);
}

TEST_F(WBMainPanelEditTest, ConflictIsMarkedAndCounted)
{
    rows[0].text = "13";
    rows[0].stored = "11";
    rows[0].marks = "1|1|anna|2026/11/21 19:00:00|";
    SayWhatIsStated();
    Open(record);
    EXPECT_EQ(LookOf("StatedMassEditor"), CATDlgLook::Warning);
    EXPECT_THAT(Find<CATDlgEditor>("StatedMassEditor")->Tooltip().ToStdString(),
                HasSubstr("anna saved 11 kg on 2026/11/21 19:00:00"));
    EXPECT_EQ(Text("EditWords"), "⚠ 1 change cannot be saved: see the page Changes.   "
                                 "● 1 change is not saved.");
    // The same value typed again says that it is meant.
    Type("StatedMassEditor", "13 kg");
    EXPECT_EQ(LookOf("StatedMassEditor"), CATDlgLook::Edited);
    Click("ApplyButton");
    EXPECT_THAT(server->CallsOf("WBApplyValues").at(0),
                HasSubstr("|1|PartRef|Estimated|mass|1|11|"));
}

TEST_F(WBMainPanelEditTest, EditsStayWhereTheServerDoesNotTakeThem)
{
    Open(record);
    Type("StatedMassEditor", "13");
    const struct
    {
        const char* answer;
        const char* title;
        const char* text;
    } faultsOfAnswers[] = {
        {"#WB_ERROR#The field mass is refused.", "The server reports an error",
         "The field mass is refused."},
        {"", "No answer from the server", "so nothing was applied: the edits are still here"},
        {"Apply|NO|", "The answer cannot be read", "did not say whether it took the edits"},
        {"Save|OK", "The answer cannot be read", "did not say whether it took the edits"}};
    for (const auto& row : faultsOfAnswers) {
        boxes.clear();
        server->answers["WBApplyValues"] = row.answer;
        Click("ApplyButton");
        ASSERT_EQ(boxes.size(), 1U) << row.answer;
        EXPECT_EQ(boxes[0].title, row.title);
        EXPECT_THAT(boxes[0].text, HasSubstr(row.text));
        EXPECT_EQ(Text("EditWords"), kOneEdit);
        EXPECT_EQ(Field("StatedMassEditor"), "13 kg");
        EXPECT_EQ(EstimateOf(*record), 13.0);
    }
    EXPECT_THAT(server->CallsOf("WBCompPartGetInitialValues"), IsEmpty());
}

TEST_F(WBMainPanelEditTest, WhatCannotBeTakenOrIsIncompleteIsNotApplied)
{
    Open(record);
    Type("StatedMassEditor", "13");
    Type("CentreXEditor", "left");
    Click("ApplyButton");
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].title, "An entry cannot be taken");
    EXPECT_THAT(boxes[0].text, HasSubstr("\"left\" is no length"));
    Type("CentreXEditor", "");
    Click("ApplyButton");
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_EQ(boxes[1].title, "Something is missing");
    EXPECT_THAT(boxes[1].text, HasSubstr("centre of gravity of Estimated"));
    EXPECT_THAT(server->CallsOf("WBApplyValues"), IsEmpty());
    EXPECT_EQ(Text("EditWords"), "✎ 2 edits are not applied.");
}

TEST_F(WBMainPanelEditTest, FaultKeepsTheEdits)
{
    Open(record);
    Type("StatedMassEditor", "13");
    Type("CentreXEditor", "left");
    EXPECT_FALSE(CATSession::RunGuarded(panel, [] { throw CATFatalError("x", "Some.cpp", 1); }));
    EXPECT_TRUE(panel->IsVisible());
    EXPECT_EQ(Field("StatedMassEditor"), "13 kg");
    EXPECT_EQ(Field("CentreXEditor"), "left");
    EXPECT_EQ(Text("EditWords"), "✕ 1 entry cannot be taken.   ✎ 1 edit is not applied.");
    EXPECT_EQ(List("MassTypes")->Cell(3, 2), "12.5"); // of what is applied
}

TEST_F(WBMainPanelEditTest, DamagedValuesAfterApplyingAreAFaultThatThePanelSurvives)
{
    Open(record);
    Type("StatedMassEditor", "13");
    server->answers["WBCompPartGetInitialValues"] = "1|0|1|0|0|many|";
    Click("ApplyButton");
    EXPECT_EQ(faults, 1);
    EXPECT_TRUE(panel->IsVisible());
    EXPECT_EQ(Text("Part"), "BOLT, version A");
    // The next pick can be edited again.
    panel->SetModel(RecordOf("1|BOLT.1|BOLT|A|CAR|1|AXLE.1|" + Values("13")).Get());
    Type("StatedMassEditor", "14");
    EXPECT_EQ(Text("EditWords"), kOneEdit);
}

TEST_F(WBMainPanelEditTest, StandardPartIsSaidToBeOne)
{
    std::string& stated = server->answers["WBGetStatedValues"];
    stated.replace(0, 9, "Bolt|1|1|");
    Open(record);
    EXPECT_EQ(Text("EditWords"), "");
    Type("StatedMassEditor", "13");
    EXPECT_THAT(Text("EditWords"), AllOf(StartsWith(kOneEdit), HasSubstr("A standard part")));
}

TEST_F(WBMainPanelEditTest, EditsFollowTheUnits)
{
    Open(record);
    Type("StatedMassEditor", "13");
    Type("CentreXEditor", "left");
    Enter("CentreYEditor", "2");
    ShowIn("MASS", "g");
    ShowIn("LENGTH", "cm");
    EXPECT_EQ(Field("StatedMassEditor"), "13000 g");
    EXPECT_EQ(LookOf("StatedMassEditor"), CATDlgLook::Edited);
    EXPECT_EQ(Field("CentreXEditor"), "left");
    EXPECT_EQ(Field("CentreYEditor"), "2"); // still being typed
    EXPECT_EQ(Field("CentreZEditor"), "3 cm");
    Press("CentreYEditor", Qt::Key_Return);
    EXPECT_EQ(Field("CentreYEditor"), "2 cm");
}

TEST_F(WBMainPanelEditTest, SavingAnywhereReadsTheRecordAnew)
{
    ServerHas("13", "12.5");
    Open(RecordOf("1|BOLT.1|BOLT|A|CAR|1|AXLE.1|" + Values("13")));
    EXPECT_EQ(Text("EditWords"), "● 1 change is not saved.");
    ServerHas("13", "13");
    server->answers["WBSaveManagement"] = "Save|OK";
    RunServerCode("WBSaveManagement", "Save");
    EXPECT_EQ(Text("EditWords"), "");
    EXPECT_EQ(LookOf("StatedMassEditor"), CATDlgLook::Plain);
    ServerHas("12", "12");
    RunServerCode("WBListRoots"); // another call changes nothing
    EXPECT_EQ(Text("Mass"), "13 kg");
    RunServerCode("WBSaveManagement", "Abort");
    EXPECT_EQ(Text("Mass"), "12 kg");
}

TEST_F(WBMainPanelEditTest, SavingLeavesUnappliedEditsAlone)
{
    Open(record);
    Type("StatedMassEditor", "13");
    ServerHas("11", "11");
    RunServerCode("WBSaveManagement", "Save");
    EXPECT_EQ(Field("StatedMassEditor"), "13 kg");
    EXPECT_EQ(Text("EditWords"), kOneEdit);
    EXPECT_THAT(server->CallsOf("WBCompPartGetInitialValues"), IsEmpty());
}

TEST_F(WBMainPanelEditTest, PanelWithoutARecordHearsOfSavingsWithoutHarm)
{
    Open(record);
    panel->SetModel(nullptr);
    RunServerCode("WBSaveManagement", "Save");
    EXPECT_THAT(server->CallsOf("WBCompPartGetInitialValues"), IsEmpty());
    EXPECT_EQ(Text("EditWords"), "");
}

TEST_F(WBMainPanelEditTest, SelectedPropertyIsEditedBelowTheList)
{
    Open(record);
    EXPECT_EQ(Text("Selected"), "Select a property to change its value.");
    EXPECT_FALSE(Find<CATDlgEditor>("PropertyValueEditor")->IsVisible());
    List("Properties")->Send(CATDlgMultiList::RowSelected, 1);
    EXPECT_EQ(Text("Selected"), "Vendor, of the part");
    EXPECT_EQ(Field("PropertyValueEditor"), "Smith");
    Enter("PropertyValueEditor", "Miller");
    List("Properties")->Send(CATDlgMultiList::RowSelected, 2);
    // A yes or no is chosen.
    EXPECT_FALSE(Find<CATDlgEditor>("PropertyValueEditor")->IsVisible());
    EXPECT_EQ(Chosen("PropertyValueChoice"), "no");
    Choose("PropertyValueChoice", 1);
    EXPECT_EQ(Chosen("PropertyValueChoice"), "yes");
    EXPECT_EQ(Text("EditWords"), "✎ 2 edits are not applied.");
    CATUnicodeString vendor;
    record->GetPropertyValue(1, vendor);
    EXPECT_EQ(vendor, "Miller");
    List("Properties")->Send(CATDlgMultiList::RowSelected, 0);
    EXPECT_FALSE(Find<CATDlgCombo>("PropertyValueChoice")->IsVisible());
}

TEST_F(WBMainPanelEditTest, SpeaksGermanWithACommaToo)
{
    CATMsgCatalog::SetLanguage("de");
    ASSERT_TRUE(CATUseNumberLocale("de_DE.UTF-8"));
    Open(record);
    EXPECT_EQ(Chosen("ActiveMassTypeChoice"), "Estimated (Vorgabe)");
    Type("StatedMassEditor", "13,25");
    EXPECT_EQ(Field("StatedMassEditor"), "13,25 kg");
    EXPECT_EQ(Text("EditWords"), "✎ 1 Eingabe ist nicht übernommen.");
    EXPECT_EQ(Find<CATDlgPushButton>("ApplyButton")->Title(), "Übernehmen");
    answers = {kCancel};
    Click("CloseButton");
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].title, "Eingaben sind nicht übernommen");
}

TEST_F(WBMainPanelEditTest, NothingIsCutInSilenceWithEditsAndProblems)
{
    for (const char* language : {"en", "de"}) {
        CATMsgCatalog::SetLanguage(language);
        Open(record);
        Type("StatedMassEditor", "heavy");
        Type("CentreXEditor", "12 mm");
        Type("IxxEditor", "round");
        Choose("MaterialNameChoice", 1);
        for (const QSize& size : {QSize(800, 600), QSize(1000, 700), QSize(1920, 1080)}) {
            Resize(size.width(), size.height());
            for (const char* page : {"Values", "Inertia", "Material", "Properties", "Changes"}) {
                SCOPED_TRACE(std::string(language) + " " + std::to_string(size.width()) + " " +
                             page);
                TurnTo(page);
                ExpectNoLabelIsCutInSilence(*panel->Widget());
                ExpectNothingLeavesTheWindow(*panel->Widget());
            }
        }
        CATRequestDelayedDestruction(panel);
        Settle();
        record = RecordOf("1|BOLT.1|BOLT|A|CAR|1|AXLE.1|" + Values("12.5"));
    }
}

TEST_F(WBMainPanelEditTest, FieldsStandInReadingOrder)
{
    Open(record);
    Resize(1280, 800);
    List("Properties")->Send(CATDlgMultiList::RowSelected, 1);
    Type("StatedMassEditor", "heavy");
    const struct
    {
        const char* page;
        std::vector<const char*> downwards;
    } columns[] = {
        {"Values", {"RemarkLabel", "StatedMassEditor", "PrecisionKindChoice", "Problem", "List"}},
        {"Values", {"CentreYEditor", "LowerPrecisionEditor"}},
        {"Inertia", {"Words", "IxxEditor", "IyyEditor", "IzzEditor", "InertiaNote", "Principal"}},
        {"Inertia", {"IxyEditor", "IxzEditor", "IyzEditor"}},
        {"Material", {"DensityEditor", "MaterialNameChoice", "AppliedOn", "List"}},
        {"Properties", {"List", "Selected", "PropertyValueEditor"}},
        {"Changes", {"Words", "Pending", "HistoryNote", "History"}},
    };
    for (const auto& column : columns) {
        TurnTo(column.page);
        const QWidget& page = *panel->Widget()->findChild<QWidget*>(column.page);
        int above = -1;
        for (const char* name : column.downwards) {
            const QRect place = PlaceIn(page, name);
            EXPECT_GT(place.top(), above) << column.page << " " << name;
            above = place.bottom();
        }
    }
}

TEST_F(WBMainPanelEditTest, MatrixStandsBesideItsFieldsAndTakesTheirRoomWithoutThem)
{
    Open(record);
    Resize(1280, 800);
    TurnTo("Inertia");
    const QWidget& page = *panel->Widget()->findChild<QWidget*>("Inertia");
    EXPECT_GT(PlaceIn(page, "Matrix").left(), PlaceIn(page, "IxyEditor").right());
    EXPECT_GT(PlaceIn(page, "IxyEditor").width(), 120);
    SelectMassType(1); // Computed
    Settle();
    EXPECT_LT(PlaceIn(page, "Matrix").left(), 40);
    EXPECT_GT(PlaceIn(page, "Matrix").width(), 1100);
}

TEST_F(WBMainPanelEditTest, WordsAndMarksShareTheLastLine)
{
    server->answers["WBCompPartCompute"] =
        "13|0.1|0.2|1|2|3|1|1|1|0|0|0|0|0|1|0|0|0|1|0|0|0|1|0|0|0|";
    Open(record);
    Resize(1280, 800);
    const auto isWhole = [this](const char* name) {
        const auto* label = panel->Widget()->findChild<QLabel*>(name);
        return label->fontMetrics().horizontalAdvance(label->text()) <=
               label->contentsRect().width();
    };
    Click("ComputeButton");
    EXPECT_TRUE(isWhole("MarksNote"));
    Type("StatedMassEditor", "13");
    EXPECT_TRUE(isWhole("EditWords"));
    const QRect words = PlaceIn(*panel->Widget(), "EditWords");
    EXPECT_LT(words.right(), PlaceIn(*panel->Widget(), "MarksNote").left());
    EXPECT_LT(PlaceIn(*panel->Widget(), "ApplyButton").right(),
              PlaceIn(*panel->Widget(), "CloseButton").left());
}
