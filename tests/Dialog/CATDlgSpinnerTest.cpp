#include "CATDlgControls.h"
#include "DialogSession.h"
#include "SpinBox.h"

#include <QLineEdit>
#include <QStyleOptionSpinBox>

namespace
{

class CATDlgSpinnerTest : public DialogSession
{
protected:
    CATDlgSpinnerTest() : m_spinner(*new CATDlgSpinner(&m_window, "Digits"))
    {
        m_spinner.SetRange(0.0, 8.0, 8);
        m_spinner.SetFormat("%g");
        m_spinner.SetVisibleTextWidth(2);
    }
    SpinBox& Box() { return *dynamic_cast<SpinBox*>(m_spinner.Widget()); }
    QLineEdit& Line() { return *Box().findChild<QLineEdit*>(); }
    void Press(Qt::Key key) { QTest::keyClick(&Box(), key); }
    /// Replaces the number and leaves the control.
    void Type(const char* text)
    {
        Line().selectAll();
        QTest::keyClicks(&Box(), text);
        Press(Qt::Key_Return);
    }
    void ClickButton(QStyle::SubControl button)
    {
        QStyleOptionSpinBox option;
        option.initFrom(&Box());
        option.subControls = QStyle::SC_All;
        const QRect place =
            Box().style()->subControlRect(QStyle::CC_SpinBox, &option, button, &Box());
        QTest::mouseClick(&Box(), Qt::LeftButton, {}, place.center());
    }

    CATDlgSpinner& m_spinner;
};

TEST_F(CATDlgSpinnerTest, ShowsTheValueInItsFormatAndInTheSessionsLocale)
{
    m_spinner.SetValue(2.0);
    EXPECT_EQ(m_spinner.Text(), "2");
    EXPECT_EQ(m_spinner.Value(), 2.0);
    m_spinner.SetFormat("%.2g");
    m_spinner.SetValue(2.125);
    EXPECT_EQ(m_spinner.Text(), "2.1");
    EXPECT_EQ(m_spinner.Value(), 2.125);
    ASSERT_TRUE(CATUseNumberLocale("de_DE.UTF-8"));
    m_spinner.SetFormat("%.4g");
    EXPECT_EQ(m_spinner.Text(), "2,125");
}

TEST_F(CATDlgSpinnerTest, BeginsAtTheLowEndOfTheRange)
{
    EXPECT_EQ(m_spinner.Value(), 0.0);
    m_spinner.SetRange(3.0, 8.0, 5);
    EXPECT_EQ(m_spinner.Value(), 3.0);
    EXPECT_EQ(m_spinner.Text(), "3");
}

TEST_F(CATDlgSpinnerTest, ValueOfTheProgramIsBroughtIntoTheRangeAndToldOnlyWhenAsked)
{
    const auto& notes = Notes(m_spinner, CATDlgSpinner::Modified);
    m_spinner.SetValue(9.0);
    EXPECT_EQ(m_spinner.Value(), 8.0);
    m_spinner.SetValue(-1.0);
    EXPECT_EQ(m_spinner.Value(), 0.0);
    m_spinner.SetValue(std::nan(""));
    EXPECT_EQ(m_spinner.Value(), 0.0);
    m_spinner.SetValue(7.0);
    m_spinner.SetRange(0.0, 5.0, 5);
    EXPECT_EQ(m_spinner.Value(), 5.0);
    EXPECT_TRUE(notes.empty());
    m_spinner.SetValue(4.0, CATDlgTelling::Notify);
    m_spinner.SetValue(4.0, CATDlgTelling::Notify); // also when nothing changes
    EXPECT_EQ(notes, (std::vector<int>{4, 4}));
}

TEST_F(CATDlgSpinnerTest, KeysAndButtonsGoOneStep)
{
    m_spinner.SetValue(7.0);
    Show();
    const auto& notes = Notes(m_spinner, CATDlgSpinner::Modified);
    Press(Qt::Key_Up);
    EXPECT_EQ(m_spinner.Value(), 8.0);
    Press(Qt::Key_Up); // the end of the range
    EXPECT_EQ(m_spinner.Value(), 8.0);
    Press(Qt::Key_Down);
    ClickButton(QStyle::SC_SpinBoxDown);
    EXPECT_EQ(m_spinner.Value(), 6.0);
    ClickButton(QStyle::SC_SpinBoxUp);
    EXPECT_EQ(notes, (std::vector<int>{8, 7, 6, 7}));
}

TEST_F(CATDlgSpinnerTest, StepIsTheRangeByTheNumberOfSteps)
{
    m_spinner.SetRange(0.0, 1.0, 4);
    Show();
    Press(Qt::Key_Up);
    EXPECT_EQ(m_spinner.Value(), 0.25);
    EXPECT_EQ(m_spinner.Text(), "0.25");
}

TEST_F(CATDlgSpinnerTest, TypedNumberCountsWhenItIsFinished)
{
    Show();
    const auto& notes = Notes(m_spinner, CATDlgSpinner::Modified);
    Line().selectAll();
    QTest::keyClicks(&Box(), "5");
    EXPECT_EQ(m_spinner.Value(), 0.0);
    Press(Qt::Key_Return);
    EXPECT_EQ(m_spinner.Value(), 5.0);
    EXPECT_EQ(notes, std::vector<int>{5});
}

TEST_F(CATDlgSpinnerTest, NumberIsTypedWithEitherSeparator)
{
    Show();
    Type("2.5");
    EXPECT_EQ(m_spinner.Value(), 2.5);
    Type("3,25");
    EXPECT_EQ(m_spinner.Value(), 3.25);
    EXPECT_EQ(m_spinner.Text(), "3.25");
    ASSERT_TRUE(CATUseNumberLocale("de_DE.UTF-8"));
    Type("1.5");
    EXPECT_EQ(m_spinner.Value(), 1.5);
    EXPECT_EQ(m_spinner.Text(), "1,5");
}

TEST_F(CATDlgSpinnerTest, TypedNumberBeyondTheRangeBecomesItsEnd)
{
    Show();
    Type("12");
    EXPECT_EQ(m_spinner.Value(), 8.0);
    EXPECT_EQ(m_spinner.Text(), "8");
    Type("-3");
    EXPECT_EQ(m_spinner.Value(), 0.0);
}

TEST_F(CATDlgSpinnerTest, WhatIsNoNumberGivesBackTheOldOne)
{
    m_spinner.SetValue(4.0);
    Show();
    for (const char* text : {"x", "nan", "5kg", "", "0x7"}) {
        Type(text);
        EXPECT_EQ(m_spinner.Value(), 4.0) << text;
        EXPECT_EQ(m_spinner.Text(), "4") << text;
    }
}

TEST_F(CATDlgSpinnerTest, UpSensitivityIsKeptAndSixteenLeavesTheButtonUsable)
{
    EXPECT_EQ(m_spinner.UpSensitivity(), 0);
    m_spinner.SetValue(8.0);
    Show();
    const auto& notes = Notes(m_spinner, CATDlgSpinner::Modified);
    const auto button = [this] {
        Settle();
        return Box().grab().toImage();
    };
    const QImage greyed = button();
    m_spinner.SetUpSensitivity(16);
    EXPECT_EQ(m_spinner.UpSensitivity(), 16);
    EXPECT_NE(button(), greyed);
    ClickButton(QStyle::SC_SpinBoxUp);
    EXPECT_EQ(m_spinner.Value(), 8.0);
    EXPECT_TRUE(notes.empty());
    m_spinner.SetUpSensitivity(3);
    EXPECT_EQ(m_spinner.UpSensitivity(), 3);
}

TEST_F(CATDlgSpinnerTest, IsAsWideAsItsCharacters)
{
    const int narrow = Box().sizeHint().width();
    m_spinner.SetVisibleTextWidth(12);
    EXPECT_EQ(Box().sizeHint().width() - narrow,
              10 * Box().fontMetrics().horizontalAdvance(QLatin1Char('0')));
    EXPECT_EQ(Box().minimumSizeHint(), Box().sizeHint());
}

TEST_F(CATDlgSpinnerTest, CanBeHidden)
{
    m_spinner.SetVisibility(false);
    Show();
    EXPECT_FALSE(m_spinner.IsVisible());
    EXPECT_FALSE(Box().isVisible());
    m_spinner.SetValue(3.0); // and keeps its value all the same
    EXPECT_EQ(m_spinner.Value(), 3.0);
}

TEST_F(CATDlgSpinnerTest, IsNamedByTheLabelBeforeIt)
{
    auto* label = new CATDlgLabel(&m_window, "Label");
    label->SetTitle("Decimals:");
    label->SetPlacement(0, 0);
    m_spinner.SetPlacement(0, 1);
    EXPECT_EQ(Box().accessibleName(), "Decimals");
    EXPECT_EQ(Box().objectName(), "Digits");
}

} // namespace
