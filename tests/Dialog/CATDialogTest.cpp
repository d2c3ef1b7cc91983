#include "CATDlgControls.h"
#include "CATDlgMultiList.h"
#include "CATMsgCatalog.h"
#include "DiagnosticCapture.h"
#include "DialogSession.h"
#include "TemporaryDirectory.h"
#include "TestEnvironment.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTabWidget>

namespace
{

class CATDialogTest : public DialogSession
{
protected:
    CATDialogTest() { m_environment.Set("WB_RESOURCE_PATH", m_resources.Path()); }
    ~CATDialogTest() override
    {
        CATDialog::ReportProblemsTo({});
        CATMsgCatalog::SetLanguage("en");
    }

    TemporaryDirectory m_resources;
    TestEnvironment m_environment;
};

TEST_F(CATDialogTest, ToolkitObjectCarriesTheControlsName)
{
    const auto* button = new CATDlgPushButton(&m_window, "ComputeButton");
    EXPECT_EQ(button->Widget()->objectName(), "ComputeButton");
    EXPECT_EQ(m_window.Widget()->objectName(), "TestWindow");
}

TEST_F(CATDialogTest, WordsAreKeptAsGiven)
{
    auto* editor = new CATDlgEditor(&m_window, "Editor", 0x12345);
    editor->SetPlacement(0, 0, 1, 1, 17);
    EXPECT_EQ(editor->Style(), 0x12345);
    EXPECT_EQ(editor->Justification(), 17);
}

TEST_F(CATDialogTest, ControlsGoWithTheirWindow)
{
    auto* frame = new CATDlgFrame(&m_window, "Frame");
    auto* button = new CATDlgPushButton(frame, "Button");
    const QPointer<QWidget> window(m_window.Widget());
    const QPointer<QWidget> inner(button->Widget());
    m_window.RequestDelayedDestruction();
    Settle();
    EXPECT_TRUE(window.isNull());
    EXPECT_TRUE(inner.isNull());
    EXPECT_EQ(m_root.ChildCount(), 0);
}

TEST_F(CATDialogTest, ControlThatGoesAloneLeavesItsWindow)
{
    auto* frame = new CATDlgFrame(&m_window, "Frame");
    const QPointer<QWidget> inner((new CATDlgPushButton(frame, "Button"))->Widget());
    frame->RequestDelayedDestruction();
    Settle();
    EXPECT_TRUE(inner.isNull());
    EXPECT_NE(m_window.Widget(), nullptr);
}

TEST_F(CATDialogTest, ControlHeldBeyondItsWindowAnswersAsAnEmptyOne)
{
    auto* editor = new CATDlgEditor(&m_window, "Editor");
    editor->AddRef();
    editor->SetText("12.5kg");
    m_window.Release();
    EXPECT_EQ(editor->Widget(), nullptr);
    EXPECT_TRUE(editor->Text().IsEmpty());
    EXPECT_FALSE(editor->IsVisible());
    editor->SetVisibility(true);
    editor->SetPlacement(0, 0);
    editor->Release();
}

TEST_F(CATDialogTest, GreyedFrameGreysItsControls)
{
    auto* frame = new CATDlgFrame(&m_window, "Frame");
    auto* label = new CATDlgLabel(frame, "Label");
    frame->SetSensitivity(false);
    EXPECT_FALSE(label->IsSensitive());
    frame->SetSensitivity(true);
    EXPECT_TRUE(label->IsSensitive());
}

TEST_F(CATDialogTest, HiddenControlComesBack)
{
    auto* label = new CATDlgLabel(&m_window, "Label");
    Show();
    EXPECT_TRUE(label->Widget()->isVisible());
    label->SetVisibility(false);
    EXPECT_FALSE(label->IsVisible());
    label->SetVisibility(true);
    EXPECT_TRUE(label->IsVisible());
}

TEST_F(CATDialogTest, PlacementIsTheCellOfTheParentsGrid)
{
    auto* button = new CATDlgPushButton(&m_window, "Button");
    button->SetPlacement(2, 1, 3, 2);
    auto* grid = qobject_cast<QGridLayout*>(button->Widget()->parentWidget()->layout());
    ASSERT_NE(grid, nullptr);
    int cell[4];
    grid->getItemPosition(grid->indexOf(button->Widget()), &cell[0], &cell[1], &cell[2], &cell[3]);
    EXPECT_EQ(std::vector<int>(cell, cell + 4), (std::vector<int>{2, 1, 3, 2}));
}

TEST_F(CATDialogTest, JustificationThirtyFillsTheCellAndFourKeepsTheSize)
{
    auto* wide = new CATDlgPushButton(&m_window, "Wide");
    auto* small = new CATDlgPushButton(&m_window, "Small");
    auto* row = new CATDlgFrame(&m_window, "Row", 0x80001);
    (new CATDlgPushButton(row, "Close"))->SetPlacement(0, 0);
    wide->SetPlacement(0, 0, 1, 1, 30);
    small->SetPlacement(1, 0, 1, 1, 4);
    row->SetPlacement(2, 0, 1, 1, 4);
    m_window.SetPreferredSize(600, 200);
    Show();
    EXPECT_GT(wide->Widget()->width(), 500);
    EXPECT_EQ(small->Widget()->width(), small->Widget()->sizeHint().width());
    EXPECT_EQ(small->Widget()->x(), wide->Widget()->x());
    EXPECT_EQ(row->Widget()->geometry().right(), wide->Widget()->geometry().right());
}

TEST_F(CATDialogTest, ControlsThatWereNeverPlacedStandBelowTheOthers)
{
    auto* first = new CATDlgPushButton(&m_window, "First");
    auto* second = new CATDlgPushButton(&m_window, "Second");
    Show();
    EXPECT_GE(second->Widget()->y(), first->Widget()->geometry().bottom());
    auto* late = new CATDlgPushButton(&m_window, "Late");
    Settle();
    EXPECT_GE(late->Widget()->y(), second->Widget()->geometry().bottom());
}

TEST_F(CATDialogTest, StretchGivesARowAndAColumnTheFreeRoom)
{
    auto* still = new CATDlgFrame(&m_window, "Still");
    auto* growing = new CATDlgFrame(&m_window, "Growing");
    still->SetPlacement(0, 0);
    growing->SetPlacement(1, 1);
    m_window.SetRowStretch(1, 1);
    m_window.SetColumnStretch(1, 1);
    m_window.SetPreferredSize(600, 400);
    Show();
    EXPECT_GT(growing->Widget()->height(), 4 * still->Widget()->height());
    EXPECT_GT(growing->Widget()->width(), 4 * still->Widget()->width());
}

TEST_F(CATDialogTest, ControlsStayTogetherAtTheTopWhenNothingCanGrow)
{
    auto* first = new CATDlgEditor(&m_window, "First");
    auto* second = new CATDlgEditor(&m_window, "Second");
    first->SetPlacement(0, 0);
    second->SetPlacement(1, 0);
    m_window.SetPreferredSize(400, 500);
    Show();
    EXPECT_LT(second->Widget()->geometry().bottom(), 120);
}

TEST_F(CATDialogTest, EditorIsNamedByTheLabelBeforeIt)
{
    auto* label = new CATDlgLabel(&m_window, "MassLabel");
    auto* editor = new CATDlgEditor(&m_window, "MassEditor");
    editor->SetPlacement(0, 1);
    label->SetPlacement(0, 0);
    label->SetTitle("Mass:");
    EXPECT_EQ(editor->Widget()->accessibleName(), "Mass");
    EXPECT_EQ(qobject_cast<QLabel*>(label->Widget())->buddy(), editor->Widget());
}

TEST_F(CATDialogTest, ListAndComboAreNamedByTheLabelBeforeThem)
{
    auto* label = new CATDlgLabel(&m_window, "TypeLabel");
    auto* combo = new CATDlgCombo(&m_window, "TypeCombo");
    auto* listLabel = new CATDlgLabel(&m_window, "ListLabel");
    auto* list = new CATDlgMultiList(&m_window, "List");
    label->SetTitle("Mass type");
    listLabel->SetTitle("Revisions");
    label->SetPlacement(0, 0);
    combo->SetPlacement(0, 1);
    listLabel->SetPlacement(1, 0);
    list->SetPlacement(1, 1);
    EXPECT_EQ(combo->Widget()->accessibleName(), "Mass type");
    EXPECT_EQ(list->Widget()->accessibleName(), "Revisions");
}

TEST_F(CATDialogTest, NameGivenByProgramIsSpoken)
{
    auto* label = new CATDlgLabel(&m_window, "Label");
    auto* editor = new CATDlgEditor(&m_window, "Editor");
    editor->SetAccessibleName("Upper bound of the mass");
    label->SetPlacement(0, 0);
    editor->SetPlacement(0, 1);
    label->SetTitle("Upper:");
    EXPECT_EQ(editor->Widget()->accessibleName(), "Upper bound of the mass");
}

TEST_F(CATDialogTest, TextsComeFromTheResourceFileByThePathOfNames)
{
    m_resources.Write("dialogs/Nested.toml", "Title = \"Compute\"\n"
                                             "[MassFrame]\nTitle = \"Mass\"\n"
                                             "[MassFrame.MassLabel]\nTitle = \"Total:\"\n"
                                             "Tooltip = \"of all parts\"\n");
    TestWindow window(nullptr, "Window", 0x4001, {"Nested"});
    auto* frame = new CATDlgFrame(&window, "MassFrame");
    auto* label = new CATDlgLabel(frame, "MassLabel");
    EXPECT_TRUE(label->Title().IsEmpty()); // not before the window is shown
    window.SetVisibility(true);
    EXPECT_EQ(window.Widget()->windowTitle(), "Compute");
    EXPECT_EQ(qobject_cast<QGroupBox*>(frame->Widget())->title(), "Mass");
    EXPECT_EQ(qobject_cast<QLabel*>(label->Widget())->text(), "Total:");
    EXPECT_EQ(label->Title(), "Total:");
    EXPECT_EQ(label->Tooltip(), "of all parts");
}

TEST_F(CATDialogTest, QuotedKeysWithDotsAreTheSameAsTables)
{
    m_resources.Write("dialogs/Dotted.toml", "\"Frame.Button.Title\" = \"Go\"\n");
    TestWindow window(nullptr, "Window", 0x4001, {"Dotted"});
    auto* button = new CATDlgPushButton(new CATDlgFrame(&window, "Frame"), "Button");
    window.SetVisibility(true);
    EXPECT_EQ(qobject_cast<QPushButton*>(button->Widget())->text(), "Go");
}

TEST_F(CATDialogTest, TitleOfAPageStandsOnItsTab)
{
    m_resources.Write("dialogs/Tabs.toml", "[Tabs.Page]\nTitle = \"Results\"\n");
    TestWindow window(nullptr, "Window", 0x4001, {"Tabs"});
    auto* tabs = new CATDlgTabContainer(&window, "Tabs");
    new CATDlgTabPage(tabs, "Page");
    window.SetVisibility(true);
    EXPECT_EQ(qobject_cast<QTabWidget*>(tabs->Widget())->tabText(0), "Results");
}

TEST_F(CATDialogTest, ControlMadeAfterTheWindowWasShownHasItsTextAtOnce)
{
    m_resources.Write("dialogs/Late.toml", "[Late]\nTitle = \"I am late\"\n");
    TestWindow window(nullptr, "Window", 0x4001, {"Late"});
    window.SetVisibility(true);
    const auto* label = new CATDlgLabel(&window, "Late");
    EXPECT_EQ(label->Title(), "I am late");
}

TEST_F(CATDialogTest, TextSetByProgramWins)
{
    m_resources.Write("dialogs/Wins.toml",
                      "[Label]\nTitle = \"resource\"\nTooltip = \"resource\"\n");
    TestWindow window(nullptr, "Window", 0x4001, {"Wins"});
    auto* label = new CATDlgLabel(&window, "Label");
    label->SetTitle("");
    label->SetTooltip("program");
    window.SetVisibility(true);
    EXPECT_EQ(label->Title(), "");
    EXPECT_EQ(label->Tooltip(), "program");
}

TEST_F(CATDialogTest, BaseClassesTextsStandInForMissingOnes)
{
    m_resources.Write("dialogs/Derived.toml", "[A]\nTitle = \"derived\"\n");
    m_resources.Write("dialogs/Base.toml", "[A]\nTitle = \"base\"\n[B]\nTitle = \"base too\"\n");
    TestWindow window(nullptr, "Window", 0x4001, {"Derived", "Base", "NotThere"});
    const auto* a = new CATDlgLabel(&window, "A");
    const auto* b = new CATDlgLabel(&window, "B");
    window.SetVisibility(true);
    EXPECT_EQ(a->Title(), "derived");
    EXPECT_EQ(b->Title(), "base too");
}

TEST_F(CATDialogTest, UsersLanguageComesFirstAndEnglishFillsItsGaps)
{
    m_resources.Write("dialogs/Two.toml", "[A]\nTitle = \"mass\"\n[B]\nTitle = \"name\"\n");
    m_resources.Write("de/dialogs/Two.toml", "[A]\nTitle = \"Masse\"\n");
    CATMsgCatalog::SetLanguage("de");
    TestWindow window(nullptr, "Window", 0x4001, {"Two"});
    const auto* a = new CATDlgLabel(&window, "A");
    const auto* b = new CATDlgLabel(&window, "B");
    window.SetVisibility(true);
    EXPECT_EQ(a->Title(), "Masse");
    EXPECT_EQ(b->Title(), "name");
}

TEST_F(CATDialogTest, MissingFileIsToldOnceAndControlsShowTheirNames)
{
    std::vector<std::string> told;
    CATDialog::ReportProblemsTo(
        [&](const CATUnicodeString& sentence) { told.push_back(sentence.ToStdString()); });
    const DiagnosticCapture errors(CATDiagnosticErrors());
    TestWindow window(nullptr, "Window", 0x4001, {"Missing"});
    const auto* button = new CATDlgPushButton(&window, "SaveButton");
    const auto* editor = new CATDlgEditor(&window, "Editor");
    window.SetVisibility(true);
    ASSERT_EQ(told.size(), 1U);
    EXPECT_NE(told.front().find("dialogs/Missing.toml"), std::string::npos);
    EXPECT_EQ(errors.Lines(), told);
    EXPECT_EQ(button->Title(), "SaveButton");
    EXPECT_EQ(window.Title(), "Window");
    EXPECT_EQ(editor->Title(), "");
    EXPECT_EQ(editor->Text(), "");
}

TEST_F(CATDialogTest, BrokenFileIsToldWithItsLine)
{
    const std::string path =
        m_resources.Write("dialogs/Broken.toml", "Title = \"fine\"\n[Label\nTitle = 1\n");
    const DiagnosticCapture errors(CATDiagnosticErrors());
    TestWindow window(nullptr, "Window", 0x4001, {"Broken"});
    const auto* label = new CATDlgLabel(&window, "Label");
    window.SetVisibility(true);
    ASSERT_EQ(errors.Lines().size(), 1U);
    EXPECT_NE(errors.Lines().front().find(path + ":2"), std::string::npos);
    EXPECT_EQ(label->Title(), "Label");
}

TEST_F(CATDialogTest, IconComesFromTheResources)
{
    m_resources.Write("icons/dot.xpm",
                      "/* XPM */\nstatic char* x[] = {\"1 1 1 1\", \"a c #ff0000\", \"a\"};\n");
    m_resources.Write("dialogs/Icons.toml", "[Button]\nTitle = \"\"\nIcon = \"dot.xpm\"\n");
    TestWindow window(nullptr, "Window", 0x4001, {"Icons"});
    auto* button = new CATDlgPushButton(&window, "Button");
    window.SetVisibility(true);
    EXPECT_FALSE(qobject_cast<QPushButton*>(button->Widget())->icon().isNull());
}

TEST_F(CATDialogTest, AmpersandOfATextIsShown)
{
    auto* button = new CATDlgPushButton(&m_window, "Button");
    button->SetTitle("R&D");
    EXPECT_EQ(qobject_cast<QPushButton*>(button->Widget())->text(), "R&&D");
    EXPECT_EQ(button->Title(), "R&D");
    auto* label = new CATDlgLabel(&m_window, "Label");
    auto* editor = new CATDlgEditor(&m_window, "Editor");
    label->SetTitle("R&D mass");
    label->SetPlacement(0, 0);
    editor->SetPlacement(0, 1);
    EXPECT_EQ(qobject_cast<QLabel*>(label->Widget())->text(), "R&D mass");
    EXPECT_EQ(qobject_cast<QLabel*>(label->Widget())->buddy(), nullptr);
    EXPECT_EQ(editor->Widget()->accessibleName(), "R&D mass");
}

} // namespace
