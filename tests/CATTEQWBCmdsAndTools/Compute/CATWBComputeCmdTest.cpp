#include "CATWBComputeCmd.h"

#include "ComputeSession.h"
#include "Toolkit.h"

#include "CATWBVPMNavFilterPanel.h"

#include <QApplication>
#include <QClipboard>
#include <QTest>

#include <array>

namespace
{

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

const testing::Environment* const s_toolkit = testing::AddGlobalTestEnvironment(new Toolkit);

using ComputeCommand = ComputeSession;

/// Counts what the command deliberately passes over.
class ListeningCommand : public CATWBComputeCmd
{
public:
    void OnModifyUnit() override
    {
        ++changes;
        CATWBComputeCmd::OnModifyUnit();
    }
    int changes = 0;
};

} // namespace

TEST_F(ComputeCommand, IsTheDialogOfItsName)
{
    Start();
    EXPECT_EQ(command->Name(), "CATWBComputeCmd");
    EXPECT_STREQ(command->ClassName(), "CATWBComputeCmd");
    EXPECT_EQ(command->Style(), 0x4001);
    EXPECT_EQ(command->Parent(), frame->MainWindow());
    EXPECT_TRUE(command->IsVisible());
}

TEST_F(ComputeCommand, HasItsOwnCatalogAtLevelZeroAndBelowAndTheDialogsAbove)
{
    Start();
    const CATDlgDialog* base = command;
    EXPECT_EQ(base->GetResourceFilename(0), "CATWBComputeCmd");
    EXPECT_EQ(base->GetResourceFilename(-1), "CATWBComputeCmd");
    const CATDlgDialog plain(&CATSession::Root(), "Plain", 0x4001);
    EXPECT_EQ(base->GetResourceFilename(1), plain.GetResourceFilename(0));
    EXPECT_EQ(base->GetResourceFilename(2), plain.GetResourceFilename(1));
}

TEST_F(ComputeCommand, RunsAlone)
{
    Start();
    EXPECT_EQ(command->Mode(), CATCommandMode::Exclusive);
    EXPECT_EQ(CATSession::RunningCommand(), command);
}

TEST_F(ComputeCommand, WithoutARootEndsWithNoMessage)
{
    CATNavigator::Close();
    Start();
    EXPECT_FALSE(command->IsVisible());
    EXPECT_EQ(command->ChildCount(), 0); // nothing was built
    EXPECT_TRUE(command->IsDestructionRequested());
    CATSession::RunDelayedDestructions();
    EXPECT_EQ(watch.Get(), nullptr);
    EXPECT_THAT(boxes, IsEmpty());
    EXPECT_THAT(server->calls, IsEmpty());
    EXPECT_THAT(errors.Lines(), IsEmpty());
}

TEST_F(ComputeCommand, ActivationsAnswerZeroWithAndWithoutARoot)
{
    Start();
    EXPECT_EQ(command->Activate(nullptr, nullptr), 0);
    CATNavigator::Close();
    EXPECT_EQ(command->Activate(nullptr, nullptr), 0);
    EXPECT_FALSE(command->IsVisible());
    EXPECT_TRUE(command->IsDestructionRequested());
}

TEST_F(ComputeCommand, IsBuiltOnce)
{
    Start();
    const int controls = command->ChildCount();
    EXPECT_EQ(controls, 4);
    command->Desactivate(nullptr, nullptr);
    command->Activate(nullptr, nullptr);
    EXPECT_EQ(command->ChildCount(), controls);
    EXPECT_THAT(server->calls, SizeIs(1)); // the mass types, asked for once
}

TEST_F(ComputeCommand, HiddenByDesactivateIsShownAgainByActivate)
{
    Start();
    EXPECT_EQ(command->Desactivate(nullptr, nullptr), 0);
    EXPECT_FALSE(command->IsVisible());
    EXPECT_FALSE(command->IsDestructionRequested());
    EXPECT_EQ(command->Activate(nullptr, nullptr), 0);
    EXPECT_TRUE(command->IsVisible());
}

TEST_F(ComputeCommand, CancelHidesTheDialogAndAsksForItsDestruction)
{
    Start();
    EXPECT_EQ(command->Cancel(nullptr, nullptr), 0);
    EXPECT_FALSE(command->IsVisible());
    EXPECT_EQ(CATSession::RunningCommand(), nullptr);
    CATSession::RunDelayedDestructions();
    EXPECT_EQ(watch.Get(), nullptr);
}

TEST_F(ComputeCommand, CloseButtonEndsTheCommand)
{
    Start();
    Click("CloseButton");
    EXPECT_FALSE(command->IsVisible());
    CATSession::RunDelayedDestructions();
    EXPECT_EQ(watch.Get(), nullptr);
}

TEST_F(ComputeCommand, ClosingTheWindowEndsTheCommand)
{
    Start();
    command->Widget()->close();
    CATSession::RunDelayedDestructions();
    EXPECT_EQ(watch.Get(), nullptr);
}

TEST_F(ComputeCommand, ShowsTheRootThatIsCurrentWhenItIsActivatedAnew)
{
    Start();
    command->Desactivate(nullptr, nullptr);
    OpenRoot("SC1");
    command->Activate(nullptr, nullptr);
    EXPECT_EQ(Text("SelectionEditor"), "SC1");
    EXPECT_EQ(Text("ConfigHandlerEditor"), "Only of SC1");
    Click("ComputeButton");
    EXPECT_EQ(Request(), "1|DummyInstance|DummyPart|DummyVersion|0|1|WBMaterial|Active|0|1|SC1|"
                         "1|Filter of SC1|0|");
}

TEST_F(ComputeCommand, HearsOfUnitsOfMassLengthAndInertiaAlone)
{
    auto* listening = new ListeningCommand; // the main window owns it
    CATSession::Start(listening);
    for (const int type : {0, 1, 2, 3, 4, 5}) {
        FakeUnitsPanel::s_panel->Send(CATWBVPMNavUnitsConversion::GetChangedEvent(type), type);
        const std::array heard{0, 0, 1, 2, 3, 3};
        EXPECT_EQ(listening->changes, heard[static_cast<std::size_t>(type)]) << type;
    }
}

TEST_F(ComputeCommand, HearsOfUnitsOnceHoweverOftenItIsActivated)
{
    auto* listening = new ListeningCommand; // the main window owns it
    CATSession::Start(listening);
    listening->Activate(nullptr, nullptr);
    FakeUnitsPanel::s_panel->Send(CATWBVPMNavUnitsConversion::GetChangedEvent(2), 2);
    EXPECT_EQ(listening->changes, 1);
}

TEST_F(ComputeCommand, UnitsPanelMaySendWhenTheCommandIsGone)
{
    Start();
    Click("CloseButton");
    CATSession::RunDelayedDestructions();
    FakeUnitsPanel::s_panel->Send(CATWBVPMNavUnitsConversion::GetChangedEvent(2), 2);
    EXPECT_EQ(watch.Get(), nullptr);
}

TEST_F(ComputeCommand, UnitsPanelMayGoBeforeTheCommand)
{
    Start();
    FakeUnitsPanel::s_panel->RequestDelayedDestruction();
    CATSession::RunDelayedDestructions();
    Click("CloseButton");
    CATSession::RunDelayedDestructions();
    EXPECT_EQ(watch.Get(), nullptr);
}

TEST_F(ComputeCommand, ChangedUnitsShowAtTheNextAnswerAndNotBefore)
{
    Start();
    Click("ComputeButton");
    Use("MASS", "kg");
    Use("LENGTH", "mm");
    Use("INERTIAMOMENT", "kg.m2");
    Use("DENSITY", "kg/m3");
    Use("SURFACICMASS", "kg/m2");
    for (const int type : {1, 2, 3, 4}) {
        FakeUnitsPanel::s_panel->Send(CATWBVPMNavUnitsConversion::GetChangedEvent(type), type);
    }
    EXPECT_EQ(Text("UpperDeviationEditor"), "20lb");
    EXPECT_EQ(Text("CGyEditor"), "-20in");
    EXPECT_EQ(Text("IyzEditor"), "500000kg.mm2");
    EXPECT_THAT(Row("StatisticsMultiList", 2), ElementsAre("Paint", "1g/cm2", "25lb", "25%"));
    EXPECT_EQ(Row("MassTypeStatMultiList", 1)[1], "33.333lb");
    Click("ComputeButton");
    EXPECT_EQ(Text("UpperDeviationEditor"), "9.072kg");
    EXPECT_EQ(Text("CGyEditor"), "-508mm");
    EXPECT_EQ(Text("IyzEditor"), "0.5kg.m2");
    EXPECT_THAT(Row("StatisticsMultiList", 2), ElementsAre("Paint", "10kg/m2", "11.34kg", "25%"));
    EXPECT_EQ(Row("StatisticsMultiList", 1)[1], "2780kg/m3");
    EXPECT_EQ(Row("MassTypeStatMultiList", 1)[1], "15.12kg");
}

TEST_F(ComputeCommand, ChangedUnitOfInertiaShowsWhenThePointIsChosenToo)
{
    Start();
    Click("ComputeButton");
    Use("INERTIAMOMENT", "kg.m2");
    Use("MASS", "kg");
    FakeUnitsPanel::s_panel->Send(CATWBVPMNavUnitsConversion::GetChangedEvent(4), 4);
    Click("ReferenceButton");
    Click("CGButton");
    EXPECT_EQ(Text("IyzEditor"), "0.5kg.m2");
    EXPECT_EQ(Text("MassEditor"), "100lb");
}

TEST_F(ComputeCommand, UserBeginsAtComputeAndEnterComputesFromAnyField)
{
    Start();
    EXPECT_EQ(command->Widget()->focusWidget(), Find<CATDialog>("ComputeButton").Widget());
    for (const char* field : {"MassEditor", "MostPreciseButton", "ComputeButton"}) {
        server->calls.clear();
        QWidget* widget = Find<CATDialog>(field).Widget();
        widget->setFocus();
        QTest::keyClick(widget, Qt::Key_Return);
        EXPECT_THAT(Request(), Not(IsEmpty())) << field;
    }
    server->calls.clear();
    QWidget* close = Find<CATDialog>("CloseButton").Widget();
    close->setFocus();
    QTest::keyClick(close, Qt::Key_Return);
    EXPECT_THAT(server->calls, IsEmpty());
    EXPECT_FALSE(command->IsVisible());
}

TEST_F(ComputeCommand, ResultsCanBeCopied)
{
    Start();
    Click("ComputeButton");
    for (const auto& editors : {kMassEditors, kCentreEditors, kInertiaEditors}) {
        for (const char* name : editors) {
            QWidget* editor = Find<CATDialog>(name).Widget();
            QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClick(editor, Qt::Key_C, Qt::ControlModifier);
            EXPECT_EQ(QApplication::clipboard()->text().toStdString(), Text(name)) << name;
            QTest::keyClick(editor, Qt::Key_Delete);
            EXPECT_NE(Text(name), "") << name;
        }
    }
}

TEST_F(ComputeCommand, WorksWithoutAPanelsLibrary)
{
    SetTable({});
    Start();
    EXPECT_TRUE(command->IsVisible());
    Click("ComputeButton");
    EXPECT_EQ(Request(), "1|DummyInstance|DummyPart|DummyVersion|0|1|WBMaterial|Active|0|1|LA1|"
                         "0|No Filter|0|");
}

TEST_F(ComputeCommand, WithoutAPanelsLibraryThereIsNoFilterToShow)
{
    SetTable({});
    EXPECT_EQ(CATWBVPMNavFilterPanel::GetDisplayFilter("LA1"), "No filter");
    CATMsgCatalog::SetLanguage("de");
    EXPECT_EQ(CATWBVPMNavFilterPanel::GetDisplayFilter("LA1"), "Kein Filter");
}

TEST_F(ComputeCommand, TakesTheDisplayedFilterFromThePanelsLibrary)
{
    EXPECT_EQ(CATWBVPMNavFilterPanel::GetDisplayFilter("LA1"), "Only of LA1");
}

TEST_F(ComputeCommand, WithoutAMainWindowIsAWindowOfItsOwn)
{
    CATSession::Close();
    frame.reset();
    FakeUnitsPanel::s_panel = nullptr;
    Start();
    EXPECT_TRUE(command->IsVisible());
    EXPECT_EQ(command->Parent(), &CATSession::Root());
}

// The mass types

TEST_F(ComputeCommand, AsksForTheMassTypesWithAnEmptyText)
{
    Start();
    EXPECT_THAT(server->calls, ElementsAre("WBGetMassTypesAndAttrNames: "));
}

TEST_F(ComputeCommand, OffersTheMassTypesInTheServersOrder)
{
    Start();
    const auto& combo = Find<CATDlgCombo>("SpecifiedMassTypeCombo");
    ASSERT_EQ(combo.LineCount(), 3);
    EXPECT_EQ(combo.Line(0), "Target");
    EXPECT_EQ(combo.Line(1), "Estimated");
    EXPECT_EQ(combo.Line(2), "Weighed");
    EXPECT_EQ(combo.SelectedIndex(), 0);
}

TEST_F(ComputeCommand, KeepsTheMassTypesBeforeOneThatCannotBeRead)
{
    server->answers[kMassTypesMethod] =
        R"(<Answer><massType name="Target"/><massType/><massType name="Weighed"/></Answer>)";
    Start();
    const auto& combo = Find<CATDlgCombo>("SpecifiedMassTypeCombo");
    ASSERT_EQ(combo.LineCount(), 1);
    EXPECT_EQ(combo.Line(0), "Target");
    EXPECT_THAT(output.Lines(), Contains("Could not get the value of the attribute name for the "
                                         "node at iteration 1"));
    EXPECT_THAT(boxes, IsEmpty());
}

TEST_F(ComputeCommand, MassTypesThatAreNoDocumentLeaveTheComboEmpty)
{
    for (const char* answer : {"", "#WB_ERROR#No such method.", "<Answer>"}) {
        server->answers[kMassTypesMethod] = answer;
        Start();
        EXPECT_EQ(Find<CATDlgCombo>("SpecifiedMassTypeCombo").LineCount(), 0) << answer;
        EXPECT_TRUE(command->IsVisible()) << answer;
        EXPECT_THAT(output.Lines(), Not(Contains(StartsWith("Could not")))) << answer;
        EXPECT_THAT(boxes, IsEmpty()) << answer;
    }
}
