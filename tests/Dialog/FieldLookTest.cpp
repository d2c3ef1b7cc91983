#include "CATDlgControls.h"

#include "DialogSession.h"

#include "Appearance.h"

#include <QApplication>
#include <QComboBox>
#include <QHelpEvent>
#include <QImage>
#include <QLineEdit>
#include <QToolTip>
#include <QWheelEvent>

#include <array>

namespace
{

/// An editor that has the keys, in a window that is shown.
class FieldLookTest : public DialogSession
{
protected:
    FieldLookTest()
    {
        m_editor.SetPlacement(0, 0);
        m_next.SetPlacement(1, 0);
        m_editor.SetText("12 kg");
        Show();
        m_editor.Widget()->setFocus();
    }
    void Type(const char* text)
    {
        Line()->selectAll();
        QTest::keyClicks(Line(), text);
    }
    QLineEdit* Line() const { return qobject_cast<QLineEdit*>(m_editor.Widget()); }
    void Leave() { m_next.Widget()->setFocus(); }

    CATDlgEditor& m_editor = *new CATDlgEditor(&m_window, "Editor");
    CATDlgEditor& m_next = *new CATDlgEditor(&m_window, "Next");
    const std::vector<int>& m_finished = Notes(m_editor, CATDlgEditor::Finished);
    const std::vector<int>& m_takenBack = Notes(m_editor, CATDlgEditor::TakenBack);
};

constexpr std::array kSigned{CATDlgLook::Edited, CATDlgLook::Unsaved, CATDlgLook::Warning,
                             CATDlgLook::Problem};

/// Whether something in that colour is painted at the field's beginning; thin lines are paler.
bool HasColour(CATDialog& control, const QColor& colour)
{
    constexpr int kSignWidth = 24;
    constexpr int kPaler = 80;
    constexpr int kAlike = 8;
    const QImage picture = control.Widget()->grab().toImage();
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < kSignWidth; ++x) {
            const QColor seen = picture.pixelColor(x, y);
            if (seen.hsvSaturation() > kPaler &&
                std::abs(seen.hsvHue() - colour.hsvHue()) < kAlike) {
                return true;
            }
        }
    }
    return false;
}

} // namespace

TEST_F(FieldLookTest, EditorTellsOnceThatTheUserIsDone)
{
    Type("13 kg");
    EXPECT_TRUE(m_finished.empty());
    QTest::keyClick(Line(), Qt::Key_Return);
    EXPECT_EQ(m_finished.size(), 1U);
    Leave();
    EXPECT_EQ(m_finished.size(), 1U);
    m_editor.Widget()->setFocus();
    Type("14 kg");
    Leave();
    EXPECT_EQ(m_finished.size(), 2U);
}

TEST_F(FieldLookTest, EditorThatIsLeftAsItWasTellsNothing)
{
    Leave();
    EXPECT_TRUE(m_finished.empty());
}

TEST_F(FieldLookTest, SameTextTypedAgainIsToldToo)
{
    Type("12 kg");
    QTest::keyClick(Line(), Qt::Key_Return);
    EXPECT_EQ(m_finished.size(), 1U);
}

TEST_F(FieldLookTest, TextOfTheProgramTakesThePlaceOfWhatWasTyped)
{
    Type("13 kg");
    m_editor.SetText("14 kg");
    Leave();
    EXPECT_TRUE(m_finished.empty());
}

TEST_F(FieldLookTest, EscapeTakesTheTextBackAndLeavesTheWindowOpen)
{
    Type("much");
    QTest::keyClick(Line(), Qt::Key_Return);
    QTest::keyClick(Line(), Qt::Key_Escape);
    EXPECT_EQ(m_editor.Text(), "12 kg");
    EXPECT_EQ(m_takenBack.size(), 1U);
    EXPECT_TRUE(m_window.IsVisible());
    Leave();
    EXPECT_EQ(m_finished.size(), 1U); // of "much" alone
    m_editor.Widget()->setFocus();
    QTest::keyClick(Line(), Qt::Key_Escape); // nothing to take back: it is the window's
    EXPECT_EQ(m_takenBack.size(), 1U);
    EXPECT_FALSE(m_window.IsVisible());
}

TEST_F(FieldLookTest, EscapeInAProblemIsToldAlsoWhenTheProgramWroteIt)
{
    m_editor.SetText("much");
    m_editor.SetLook(CATDlgLook::Problem);
    QTest::keyClick(Line(), Qt::Key_Escape);
    EXPECT_EQ(m_takenBack.size(), 1U);
    EXPECT_TRUE(m_window.IsVisible());
}

TEST_F(FieldLookTest, UndoInTheFieldIsOfTheTypedText)
{
    QTest::keyClick(Line(), Qt::Key_End);
    QTest::keyClicks(Line(), "7");
    QTest::keyClick(Line(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(m_editor.Text(), "12 kg");
}

TEST_F(FieldLookTest, LooksAreSeenHeardAndReadable)
{
    auto& combo = *new CATDlgCombo(&m_window, "Combo");
    combo.SetPlacement(2, 0);
    combo.SetLine(0, "Weighed");
    Settle();
    Leave();
    const struct
    {
        CATDlgLook look;
        const char* meaning;
        QColor colour;
    } rows[] = {{CATDlgLook::Edited, "edited", EditedColour()},
                {CATDlgLook::Unsaved, "not saved", ChangedColour()},
                {CATDlgLook::Warning, "warning", WarningColour()},
                {CATDlgLook::Problem, "problem", ProblemColour()}};
    for (const auto& row : rows) {
        m_editor.SetLook(row.look);
        combo.SetLook(row.look);
        for (CATDialog* field :
             {static_cast<CATDialog*>(&m_editor), static_cast<CATDialog*>(&combo)}) {
            SCOPED_TRACE(std::string(row.meaning) + " " + field->Name().ToStdString());
            EXPECT_EQ(field->Widget()->accessibleDescription(), row.meaning);
            EXPECT_TRUE(HasColour(*field, row.colour));
            const QPalette palette = field->Widget()->palette();
            EXPECT_GE(Contrast(palette.color(QPalette::Base), palette.color(QPalette::Text)), 4.5);
            EXPECT_GE(Contrast(palette.color(QPalette::Base), row.colour), 4.5);
        }
    }
    EXPECT_EQ(m_editor.Look(), CATDlgLook::Problem);
    EXPECT_EQ(combo.Look(), CATDlgLook::Problem);
}

TEST_F(FieldLookTest, PlainLookLeavesNothingBehind)
{
    const QPalette before = m_editor.Widget()->palette();
    const QMargins margins = Line()->textMargins();
    for (const CATDlgLook look : kSigned) {
        m_editor.SetLook(look);
        EXPECT_GT(Line()->textMargins().left(), margins.left());
        m_editor.SetLook(CATDlgLook::Plain);
        EXPECT_EQ(Line()->textMargins(), margins);
        EXPECT_EQ(m_editor.Widget()->palette().color(QPalette::Base), before.color(QPalette::Base));
        EXPECT_EQ(m_editor.Widget()->accessibleDescription(), "");
    }
    EXPECT_EQ(m_editor.Text(), "12 kg"); // a sign is no part of the text
}

TEST_F(FieldLookTest, SignTakesRoomFromTheText)
{
    const int room = Line()->fontMetrics().horizontalAdvance("1234567890") + 16;
    m_editor.Widget()->resize(room, 24);
    m_editor.SetText("1234567890");
    const auto tooltip = [this] {
        QHelpEvent help(QEvent::ToolTip, QPoint(5, 5), Line()->mapToGlobal(QPoint(5, 5)));
        QToolTip::hideText();
        QApplication::sendEvent(Line(), &help);
        return QToolTip::text();
    };
    EXPECT_EQ(tooltip(), "");
    m_editor.SetLook(CATDlgLook::Edited);
    EXPECT_NE(tooltip(), "");
}

TEST_F(FieldLookTest, EmptyTextIsShownAndNotTyped)
{
    m_editor.SetText("");
    m_editor.SetEmptyText("not stated");
    EXPECT_EQ(Line()->placeholderText(), "not stated");
    EXPECT_EQ(m_editor.Text(), "");
}

TEST_F(FieldLookTest, WheelChoosesOnlyWhereTheKeysAre)
{
    auto& combo = *new CATDlgCombo(&m_window, "Combo");
    combo.SetPlacement(2, 0);
    combo.SetLine(0, "Estimated");
    combo.SetLine(1, "Weighed");
    Settle();
    const auto turn = [&combo] {
        QWheelEvent wheel(QPointF(5, 5), combo.Widget()->mapToGlobal(QPointF(5, 5)), QPoint(),
                          QPoint(0, -120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(combo.Widget(), &wheel);
    };
    turn();
    EXPECT_EQ(combo.SelectedIndex(), 0);
    EXPECT_FALSE(combo.Widget()->hasFocus());
    combo.Widget()->setFocus();
    turn();
    EXPECT_EQ(combo.SelectedIndex(), 1);
}
