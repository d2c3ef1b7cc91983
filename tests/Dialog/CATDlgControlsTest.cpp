#include "CATDlgControls.h"
#include "DialogSession.h"
#include "LineEditor.h"
#include "TextLabel.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QGroupBox>
#include <QHelpEvent>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>
#include <QToolTip>

namespace
{

using CATDlgControlsTest = DialogSession;

const char* const kLong =
    "A name of eighty characters that nobody can show whole in a window as small "
    "as this one is";

QString TooltipOf(QWidget* widget)
{
    QHelpEvent event(QEvent::ToolTip, QPoint(4, 4), widget->mapToGlobal(QPoint(4, 4)));
    QApplication::sendEvent(widget, &event);
    return QToolTip::text();
}

TEST_F(CATDlgControlsTest, FrameHasATitledBorderOnlyByItsStyle)
{
    struct Case
    {
        int style;
        bool isTitled;
    };
    for (const Case& row :
         {Case{1, true}, Case{0x80001, false}, Case{0x40001, false}, Case{7, false}}) {
        const auto* frame = new CATDlgFrame(&m_window, "Frame", row.style);
        EXPECT_EQ(qobject_cast<QGroupBox*>(frame->Widget()) != nullptr, row.isTitled) << row.style;
    }
}

TEST_F(CATDlgControlsTest, LabelThatIsCutShowsItsWholeTextInTheTooltip)
{
    auto* label = new CATDlgLabel(&m_window, "Label");
    label->SetTooltip("of the part");
    label->Widget()->resize(200, 20);
    label->SetTitle("short");
    EXPECT_EQ(TooltipOf(label->Widget()), "of the part");
    label->SetTitle(kLong);
    EXPECT_TRUE(dynamic_cast<TextLabel*>(label->Widget())->IsCut());
    EXPECT_TRUE(TooltipOf(label->Widget()).contains("as this one is"));
    EXPECT_TRUE(TooltipOf(label->Widget()).contains("of the part"));
}

TEST_F(CATDlgControlsTest, LabelThatIsCutIsCopiedWhole)
{
    auto* label = new CATDlgLabel(&m_window, "Label");
    label->SetTitle(kLong);
    m_window.SetPreferredSize(200, 100);
    Show();
    label->Widget()->setFocus();
    QTest::keyClick(label->Widget(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), kLong);
}

TEST_F(CATDlgControlsTest, LabelThatTabReachesShowsAFrameAndNoTextCursor)
{
    auto* label = new CATDlgLabel(&m_window, "Label");
    label->SetTitle("12.5 kg");
    (new CATDlgLabel(&m_window, "Other"))->SetTitle("elsewhere");
    Show();
    QWidget& widget = *label->Widget();
    Child<QWidget>(m_window, "Other")->setFocus();
    const QImage before = widget.grab().toImage();
    widget.setFocus(Qt::TabFocusReason);
    const QImage after = widget.grab().toImage();
    const QColor frame = QApplication::palette().color(QPalette::Highlight);
    EXPECT_EQ(after.pixelColor(0, 0), frame);
    EXPECT_NE(before.pixelColor(0, 0), frame);
    const QRect inside = after.rect().adjusted(1, 1, -1, -1);
    EXPECT_EQ(after.copy(inside), before.copy(inside));
}

TEST_F(CATDlgControlsTest, SelectedPieceOfALabelIsCopied)
{
    auto* label = new CATDlgLabel(&m_window, "Label");
    label->SetTitle("12.5kg");
    Show();
    qobject_cast<QLabel*>(label->Widget())->setSelection(0, 4);
    QTest::keyClick(label->Widget(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "12.5");
}

TEST_F(CATDlgControlsTest, LongTextsOfButtonsHaveRoomBesideThem)
{
    auto* button = new CATDlgPushButton(&m_window, "Button");
    button->SetTitle("Zurücksetzen, bitte");
    const QWidget& widget = *button->Widget();
    const int text = widget.fontMetrics().horizontalAdvance(QStringLiteral("Zurücksetzen, bitte"));
    EXPECT_GE(widget.sizeHint().width(), text + 2 * 8);
}

TEST_F(CATDlgControlsTest, TabGoesToValuesAndNotToTheirCaptions)
{
    auto* caption = new CATDlgLabel(&m_window, "Caption");
    caption->SetRole(CATDlgLabel::Role::Caption);
    const auto* value = new CATDlgLabel(&m_window, "Value");
    EXPECT_EQ(caption->Widget()->focusPolicy() & Qt::TabFocus, 0);
    EXPECT_NE(value->Widget()->focusPolicy() & Qt::TabFocus, 0);
}

TEST_F(CATDlgControlsTest, RolesColourTheTextReadablyAndCarryASign)
{
    using Role = CATDlgLabel::Role;
    auto* label = new CATDlgLabel(&m_window, "Label");
    const QColor window = QApplication::palette().color(QPalette::Window);
    const QColor usual = QApplication::palette().color(QPalette::WindowText);
    for (const Role role : {Role::Caption, Role::Good, Role::Warning, Role::Problem}) {
        label->SetRole(role);
        const QColor colour = label->Widget()->palette().color(QPalette::WindowText);
        EXPECT_NE(colour, usual);
        EXPECT_GE(Contrast(colour, window), 4.5);
        EXPECT_EQ(label->Widget()->contentsMargins().left() > 0, role != Role::Caption);
        EXPECT_EQ(label->Widget()->accessibleDescription().isEmpty(), role == Role::Caption);
    }
    label->SetTitle("Up to date");
    EXPECT_EQ(qobject_cast<QLabel*>(label->Widget())->text(), "Up to date"); // the sign is no text
    label->SetRole(Role::Plain);
    EXPECT_EQ(label->Widget()->palette().color(QPalette::WindowText), usual);
    EXPECT_EQ(label->Widget()->contentsMargins().left(), 0);
}

TEST_F(CATDlgControlsTest, MarkedLabelHasASignAndAColourOfItsOwnAndKeepsItsSize)
{
    auto* label = new CATDlgLabel(&m_window, "Label");
    label->SetRole(CATDlgLabel::Role::Heading);
    label->SetTitle("12.5 kg");
    QWidget& widget = *label->Widget();
    const QColor usual = widget.palette().color(QPalette::WindowText);
    label->SetMark(true);
    EXPECT_NE(widget.palette().color(QPalette::WindowText), usual);
    EXPECT_GE(Contrast(widget.palette().color(QPalette::WindowText),
                       QApplication::palette().color(QPalette::Window)),
              4.5);
    EXPECT_GT(widget.contentsMargins().left(), 0);
    EXPECT_EQ(widget.accessibleDescription(), "changed");
    EXPECT_GT(widget.font().pointSizeF(), QApplication::font().pointSizeF());
    EXPECT_EQ(label->Title(), "12.5 kg"); // the sign is no text
    label->SetMark(false);
    EXPECT_EQ(widget.palette().color(QPalette::WindowText), usual);
    EXPECT_EQ(widget.contentsMargins().left(), 0);
    EXPECT_EQ(widget.accessibleDescription(), "");
}

TEST_F(CATDlgControlsTest, MarkStaysWhenTheRoleChangesAndLeavesItThen)
{
    auto* label = new CATDlgLabel(&m_window, "Label");
    label->SetMark(true);
    label->SetRole(CATDlgLabel::Role::Good);
    EXPECT_EQ(label->Widget()->accessibleDescription(), "changed");
    label->SetMark(false);
    EXPECT_EQ(label->Widget()->accessibleDescription(), "good");
}

TEST_F(CATDlgControlsTest, HeadingIsLargerAndHeavier)
{
    auto* label = new CATDlgLabel(&m_window, "Label");
    label->SetRole(CATDlgLabel::Role::Heading);
    EXPECT_GT(label->Widget()->font().pointSizeF(), QApplication::font().pointSizeF());
    EXPECT_EQ(label->Widget()->font().weight(), QFont::DemiBold);
}

TEST_F(CATDlgControlsTest, EditorsStyleSaysWhetherItTakesText)
{
    auto* readOnly = new CATDlgEditor(&m_window, "ReadOnly", 0x4000000);
    auto* editable = new CATDlgEditor(&m_window, "Editable", 0x200000);
    auto* unknown = new CATDlgEditor(&m_window, "Unknown", 0x33);
    Show();
    for (CATDlgEditor* editor : {readOnly, editable, unknown}) {
        QTest::keyClicks(editor->Widget(), "7");
    }
    EXPECT_EQ(readOnly->Text(), "");
    EXPECT_EQ(editable->Text(), "7");
    EXPECT_EQ(unknown->Text(), "7");
    EXPECT_FALSE(qobject_cast<QLineEdit*>(readOnly->Widget())->hasFrame());
    EXPECT_NE(readOnly->Widget()->palette().color(QPalette::Base),
              editable->Widget()->palette().color(QPalette::Base));
    EXPECT_GE(Contrast(readOnly->Widget()->palette().color(QPalette::Base),
                       readOnly->Widget()->palette().color(QPalette::Text)),
              4.5);
    EXPECT_EQ(readOnly->Widget()->height(), editable->Widget()->height());
}

TEST_F(CATDlgControlsTest, ReadOnlyEditorIsCopied)
{
    auto* editor = new CATDlgEditor(&m_window, "Editor", 0x4000000);
    editor->SetText("12,5kg");
    Show();
    QTest::keyClick(editor->Widget(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(editor->Widget(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "12,5kg");
}

TEST_F(CATDlgControlsTest, EditorTellsWhatTheUserTypesAndNotWhatTheProgramSets)
{
    auto* editor = new CATDlgEditor(&m_window, "Editor");
    const auto& modified = Notes(*editor, CATDlgEditor::Modified);
    Show();
    editor->SetText("1");
    EXPECT_TRUE(modified.empty());
    QTest::keyClicks(editor->Widget(), "23");
    EXPECT_EQ(modified.size(), 2U);
}

TEST_F(CATDlgControlsTest, LongTextOfAnEditorShowsItsBeginningAndTheWholeInTheTooltip)
{
    auto* editor = new CATDlgEditor(&m_window, "Editor");
    editor->Widget()->resize(120, 24);
    editor->SetText("short");
    EXPECT_EQ(TooltipOf(editor->Widget()), "");
    editor->SetText(kLong);
    EXPECT_EQ(qobject_cast<QLineEdit*>(editor->Widget())->cursorPosition(), 0);
    EXPECT_TRUE(TooltipOf(editor->Widget()).contains("as this one is"));
}

TEST_F(CATDlgControlsTest, EditorAsksForTheWidthOfItsCharacters)
{
    auto* editor = new CATDlgEditor(&m_window, "Editor");
    const auto asks = [editor](int characters) {
        editor->SetVisibleTextWidth(characters);
        return editor->Widget()->sizeHint().width();
    };
    const int character = editor->Widget()->fontMetrics().horizontalAdvance('0');
    EXPECT_EQ(asks(35) - asks(20), 15 * character);
    EXPECT_LT(editor->Widget()->minimumSizeHint().width(), 12 * character);
}

TEST_F(CATDlgControlsTest, NumbersOfAnEditorStandAtTheRight)
{
    auto* editor = new CATDlgEditor(&m_window, "Editor");
    editor->SetRightAligned(true);
    const auto* line = qobject_cast<QLineEdit*>(editor->Widget());
    EXPECT_TRUE(line->alignment().testFlag(Qt::AlignRight));
    editor->SetRightAligned(false);
    EXPECT_FALSE(line->alignment().testFlag(Qt::AlignRight));
}

TEST_F(CATDlgControlsTest, ComboAppendsTheNextLineAndRewritesThoseBefore)
{
    auto* combo = new CATDlgCombo(&m_window, "Combo");
    const auto& selected = Notes(*combo, CATDlgCombo::Selected);
    EXPECT_EQ(combo->SelectedIndex(), -1);
    combo->SetLine(0, "Estimated");
    combo->SetLine(1, "Calculated");
    combo->SetLine(5, "beyond the end");
    combo->SetLine(-1, "before the start");
    combo->SetLine(0, "Weighed");
    EXPECT_EQ(combo->LineCount(), 2);
    EXPECT_EQ(combo->Line(0), "Weighed");
    EXPECT_EQ(combo->Line(1), "Calculated");
    EXPECT_EQ(combo->SelectedIndex(), 0);
    combo->Select(1);
    EXPECT_EQ(combo->SelectedIndex(), 1);
    combo->Select(9);
    EXPECT_EQ(combo->SelectedIndex(), -1);
    combo->RemoveAll();
    EXPECT_EQ(combo->LineCount(), 0);
    EXPECT_TRUE(selected.empty());
}

TEST_F(CATDlgControlsTest, ComboTellsWhichLineTheUserChose)
{
    auto* combo = new CATDlgCombo(&m_window, "Combo");
    combo->SetLine(0, "Estimated");
    combo->SetLine(1, "Calculated");
    const auto& selected = Notes(*combo, CATDlgCombo::Selected);
    Show();
    QTest::keyClick(combo->Widget(), Qt::Key_Down);
    EXPECT_EQ(selected, std::vector<int>{1});
    QTest::keyClick(combo->Widget(), Qt::Key_Down); // it is the last
    EXPECT_EQ(selected.size(), 1U);
}

TEST_F(CATDlgControlsTest, ComboIsTypedIntoOnlyWithoutItsStyleWord)
{
    const auto* fixed = new CATDlgCombo(&m_window, "Fixed", 0x40000);
    const auto* typed = new CATDlgCombo(&m_window, "Typed", 0);
    EXPECT_FALSE(qobject_cast<QComboBox*>(fixed->Widget())->isEditable());
    EXPECT_TRUE(qobject_cast<QComboBox*>(typed->Widget())->isEditable());
}

TEST_F(CATDlgControlsTest, ComboLineThatIsCutShowsWholeInTheTooltip)
{
    auto* combo = new CATDlgCombo(&m_window, "Combo");
    combo->Widget()->resize(120, 24);
    combo->SetLine(0, "short");
    EXPECT_EQ(TooltipOf(combo->Widget()), "");
    combo->SetLine(0, kLong);
    EXPECT_TRUE(TooltipOf(combo->Widget()).contains("as this one is"));
}

TEST_F(CATDlgControlsTest, ButtonTellsThatItWasPressedByMouseAndKeyboard)
{
    auto* button = new CATDlgPushButton(&m_window, "Button");
    const auto& pressed = Notes(*button, CATDlgPushButton::Activated);
    Show();
    Click(*button);
    QTest::keyClick(button->Widget(), Qt::Key_Space);
    EXPECT_EQ(pressed.size(), 2U);
    button->SetSensitivity(false);
    Click(*button);
    EXPECT_EQ(pressed.size(), 2U);
}

TEST_F(CATDlgControlsTest, RadioButtonsOfOneParentExcludeEachOtherAndBothTell)
{
    auto* active = new CATDlgRadioButton(&m_window, "Active");
    auto* precise = new CATDlgRadioButton(&m_window, "Precise");
    auto* frame = new CATDlgFrame(&m_window, "Frame");
    auto* other = new CATDlgRadioButton(frame, "Other");
    const auto& activeNotes = Notes(*active, CATDlgRadioButton::Modified);
    const auto& preciseNotes = Notes(*precise, CATDlgRadioButton::Modified);
    active->SetChecked(true);
    other->SetChecked(true);
    EXPECT_TRUE(activeNotes.empty());
    Show();
    Click(*precise);
    EXPECT_FALSE(active->IsChecked());
    EXPECT_TRUE(precise->IsChecked());
    EXPECT_TRUE(other->IsChecked());
    EXPECT_EQ(activeNotes, std::vector<int>{0});
    EXPECT_EQ(preciseNotes, std::vector<int>{1});
}

TEST_F(CATDlgControlsTest, CheckButtonTellsItsNewState)
{
    auto* check = new CATDlgCheckButton(&m_window, "Check");
    const auto& notes = Notes(*check, CATDlgCheckButton::Modified);
    check->SetChecked(true);
    EXPECT_TRUE(check->IsChecked());
    EXPECT_TRUE(notes.empty());
    Show();
    Click(*check);
    Click(*check);
    EXPECT_EQ(notes, (std::vector<int>{0, 1}));
}

TEST_F(CATDlgControlsTest, CheckButtonTellsWhatTheProgramAsksItToTell)
{
    auto* check = new CATDlgCheckButton(&m_window, "Check");
    const auto& notes = Notes(*check, CATDlgCheckButton::Modified);
    check->SetChecked(true, CATDlgTelling::Notify);
    check->SetChecked(true, CATDlgTelling::Notify); // also when nothing changes
    check->SetChecked(false, CATDlgTelling::Notify);
    EXPECT_EQ(notes, (std::vector<int>{1, 1, 0}));
    EXPECT_FALSE(check->IsChecked());
}

TEST_F(CATDlgControlsTest, TabsTellWhichPageTheUserTurnedTo)
{
    auto* tabs = new CATDlgTabContainer(&m_window, "Tabs");
    const auto& notes = Notes(*tabs, CATDlgTabContainer::PageSelected);
    EXPECT_EQ(tabs->SelectedPage(), -1);
    (new CATDlgTabPage(tabs, "First"))->SetTitle("First & foremost");
    (new CATDlgTabPage(tabs, "Second"))->SetTitle("Second");
    EXPECT_EQ(tabs->SelectedPage(), 0);
    Show();
    auto* bar = qobject_cast<QTabWidget*>(tabs->Widget())->tabBar();
    EXPECT_EQ(bar->tabText(0), "First && foremost");
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(1).center());
    EXPECT_EQ(notes, std::vector<int>{1});
    tabs->SelectPage(0);
    EXPECT_EQ(tabs->SelectedPage(), 0);
    EXPECT_EQ(notes.size(), 1U);
}

TEST_F(CATDlgControlsTest, PageThatIsHiddenTakesItsTabAway)
{
    auto* tabs = new CATDlgTabContainer(&m_window, "Tabs");
    auto* first = new CATDlgTabPage(tabs, "First");
    auto* second = new CATDlgTabPage(tabs, "Second");
    const auto* widget = qobject_cast<QTabWidget*>(tabs->Widget());
    second->SetVisibility(false);
    EXPECT_FALSE(widget->isTabVisible(1));
    EXPECT_FALSE(second->IsVisible());
    EXPECT_TRUE(first->IsVisible());
    first->SetSensitivity(false);
    EXPECT_FALSE(widget->isTabEnabled(0));
}

TEST_F(CATDlgControlsTest, ControlsOfAPageStandOnIt)
{
    auto* tabs = new CATDlgTabContainer(&m_window, "Tabs");
    auto* page = new CATDlgTabPage(tabs, "Page");
    const auto* editor = new CATDlgEditor(page, "Editor");
    EXPECT_EQ(editor->Widget()->parentWidget(), page->Widget());
}

TEST_F(CATDlgControlsTest, WindowThatGoesAwayTellsNothingOfItsControls)
{
    auto* tabs = new CATDlgTabContainer(&m_window, "Tabs");
    new CATDlgTabPage(tabs, "First");
    new CATDlgTabPage(tabs, "Second");
    auto* radio = new CATDlgRadioButton(&m_window, "Radio");
    radio->SetChecked(true);
    const auto& pages = Notes(*tabs, CATDlgTabContainer::PageSelected);
    const auto& radios = Notes(*radio, CATDlgRadioButton::Modified);
    Show();
    m_window.RequestDelayedDestruction();
    Settle();
    EXPECT_TRUE(pages.empty());
    EXPECT_TRUE(radios.empty());
}

} // namespace
