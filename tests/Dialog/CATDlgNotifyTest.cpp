#include "CATDlgNotify.h"
#include "CATSession.h"
#include "DialogSession.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTimer>

namespace
{

constexpr int kError = 0x10000000;
constexpr int kChoice = 0x8800200;
constexpr int kQuestion = CATDlgNotify::kQuestion;
constexpr int kQuestionWithCancel = CATDlgNotify::kQuestionWithCancel;

class CATDlgNotifyTest : public DialogSession
{
protected:
    CATDlgNotify& Box(int style)
    {
        auto* box = new CATDlgNotify(&m_window, "Box", style);
        box->SetTitle("ServerError");
        box->SetText("The part has no mass.");
        return *box;
    }
    /// Shows the box and, once it is there, does what the user would.
    static int Answer(CATDlgNotify& box, const std::function<void(QWidget&)>& user)
    {
        QTimer::singleShot(0, box.Widget(), [&] { user(*box.Widget()); });
        return box.DisplayBlocking();
    }
    static void Press(QWidget& box, const char* button)
    {
        QTest::mouseClick(box.findChild<QPushButton*>(button), Qt::LeftButton);
    }
};

TEST_F(CATDlgNotifyTest, ShowsTitleAndTextThatCanBeSelected)
{
    CATDlgNotify& box = Box(kError);
    box.DisplayNonBlocking();
    EXPECT_TRUE(box.IsVisible());
    EXPECT_EQ(box.Widget()->windowTitle(), "ServerError");
    const auto* text = Child<QLabel>(box, "Text");
    EXPECT_EQ(text->text(), "The part has no mass.");
    EXPECT_TRUE(text->textInteractionFlags().testFlag(Qt::TextSelectableByMouse));
    EXPECT_TRUE(text->textInteractionFlags().testFlag(Qt::TextSelectableByKeyboard));
}

TEST_F(CATDlgNotifyTest, NonBlockingBoxDeletesItselfWhenItIsClosed)
{
    CATDlgNotify& box = Box(0);
    const QPointer<QWidget> widget(box.Widget());
    box.DisplayNonBlocking();
    Settle();
    EXPECT_FALSE(widget.isNull());
    Press(*widget, "OkButton");
    EXPECT_FALSE(widget->isVisible());
    Settle();
    EXPECT_TRUE(widget.isNull());
    EXPECT_EQ(m_window.ChildCount(), 0);
}

TEST_F(CATDlgNotifyTest, NonBlockingBoxDeletesItselfOnEscToo)
{
    const QPointer<QWidget> widget(Box(0).Widget());
    dynamic_cast<CATDlgNotify*>(m_window.Child(1))->DisplayNonBlocking();
    QTest::keyClick(widget, Qt::Key_Escape);
    Settle();
    EXPECT_TRUE(widget.isNull());
}

TEST_F(CATDlgNotifyTest, QuestionAnswersOneForYesAndTwoForNo)
{
    EXPECT_EQ(Answer(Box(kQuestion), [](QWidget& box) { Press(box, "YesButton"); }), 1);
    EXPECT_EQ(Answer(Box(kQuestion), [](QWidget& box) { Press(box, "NoButton"); }), 2);
    EXPECT_EQ(Answer(Box(kQuestion), [](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); }),
              2);
    EXPECT_EQ(Answer(Box(kQuestion), [](QWidget& box) { box.close(); }), 2);
}

TEST_F(CATDlgNotifyTest, NotificationWithAChoiceAnswersThreeForYesAndFourForNo)
{
    EXPECT_EQ(Answer(Box(kChoice), [](QWidget& box) { Press(box, "YesButton"); }), 3);
    EXPECT_EQ(Answer(Box(kChoice), [](QWidget& box) { Press(box, "NoButton"); }), 4);
    EXPECT_EQ(Answer(Box(kChoice), [](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); }), 4);
    EXPECT_EQ(Answer(Box(kChoice), [](QWidget& box) { box.close(); }), 4);
}

TEST_F(CATDlgNotifyTest, QuestionWithCancelIsCancelledByWhateverIsNoButton)
{
    CATDlgNotify& box = Box(kQuestionWithCancel);
    EXPECT_EQ(Answer(box, [](QWidget& shown) { Press(shown, "YesButton"); }), 1);
    EXPECT_EQ(Answer(box, [](QWidget& shown) { Press(shown, "NoButton"); }), 2);
    EXPECT_EQ(Answer(box, [](QWidget& shown) { Press(shown, "CancelButton"); }), 5);
    EXPECT_EQ(Answer(box, [](QWidget& shown) { QTest::keyClick(&shown, Qt::Key_Escape); }), 5);
    EXPECT_EQ(Answer(box, [](QWidget& shown) { shown.close(); }), 5);
}

TEST_F(CATDlgNotifyTest, OtherQuestionsHaveNoCancelButton)
{
    EXPECT_NE(Child<QPushButton>(Box(kQuestionWithCancel), "CancelButton"), nullptr);
    for (const int style : {kQuestion, kChoice, 0}) {
        EXPECT_EQ(Child<QPushButton>(Box(style), "CancelButton"), nullptr);
    }
}

TEST_F(CATDlgNotifyTest, ButtonsOfAQuestionMaySayWhatTheyDo)
{
    CATDlgNotify& box = Box(kQuestionWithCancel);
    box.SetChoices("Save", "Leave R&D for later");
    EXPECT_EQ(Child<QPushButton>(box, "YesButton")->text(), "Save");
    EXPECT_EQ(Child<QPushButton>(box, "NoButton")->text(), "Leave R&&D for later");
    EXPECT_EQ(Child<QPushButton>(box, "CancelButton")->text(), "Cancel");
    EXPECT_EQ(Answer(box, [](QWidget& shown) { Press(shown, "NoButton"); }), 2);
}

TEST_F(CATDlgNotifyTest, AMessageHasNoChoicesToName)
{
    CATDlgNotify& box = Box(0);
    box.SetChoices("Save", "Leave");
    EXPECT_EQ(Child<QPushButton>(box, "OkButton")->text(), "OK");
}

TEST_F(CATDlgNotifyTest, AnswererHearsWhatTheButtonsAnswer)
{
    using Answers = std::tuple<int, int, std::optional<int>>;
    std::vector<Answers> answers;
    CATDlgNotify::SetAnswerer([&](const CATDlgNotify::Shown& box) {
        answers.emplace_back(box.yes, box.no, box.cancel);
        return box.no;
    });
    for (const int style : {kQuestion, kChoice, 0, kQuestionWithCancel}) {
        Box(style).DisplayBlocking();
    }
    EXPECT_EQ(answers,
              (std::vector<Answers>{
                  {1, 2, std::nullopt}, {3, 4, std::nullopt}, {1, 1, std::nullopt}, {1, 2, 5}}));
}

TEST_F(CATDlgNotifyTest, OtherBoxesAnswerOne)
{
    for (const int style : {0, 0x8000000, kError, 0x1234}) {
        EXPECT_EQ(Answer(Box(style), [](QWidget& box) { Press(box, "OkButton"); }), 1);
        EXPECT_EQ(Answer(Box(style), [](QWidget& box) { box.close(); }), 1);
    }
}

TEST_F(CATDlgNotifyTest, BoxCanBeAskedTwice)
{
    CATDlgNotify& box = Box(kChoice);
    EXPECT_EQ(Answer(box, [](QWidget& shown) { Press(shown, "YesButton"); }), 3);
    EXPECT_EQ(Answer(box, [](QWidget& shown) { shown.close(); }), 4);
    EXPECT_FALSE(box.IsVisible());
    EXPECT_EQ(m_window.ChildCount(), 1); // the caller deletes it
}

TEST_F(CATDlgNotifyTest, BlockingBoxTakesAllInputAndDestructionsWait)
{
    auto* other = new TestWindow(&m_root, "Other");
    const QPointer<QWidget> otherWidget(other->Widget());
    Answer(Box(0), [&](QWidget& box) {
        EXPECT_EQ(QApplication::activeModalWidget(), &box);
        other->RequestDelayedDestruction();
        Settle();
        EXPECT_FALSE(otherWidget.isNull());
        box.close();
    });
    EXPECT_FALSE(otherWidget.isNull());
    Settle();
    EXPECT_TRUE(otherWidget.isNull());
}

TEST_F(CATDlgNotifyTest, AnswererStandsInForTheUser)
{
    std::vector<CATDlgNotify::Shown> shown;
    CATDlgNotify::SetAnswerer([&](const CATDlgNotify::Shown& box) {
        shown.push_back(box);
        return 3;
    });
    EXPECT_EQ(Box(kChoice).DisplayBlocking(), 3);
    CATDlgNotify& second = Box(kError);
    const QPointer<QWidget> widget(second.Widget());
    second.DisplayNonBlocking();
    EXPECT_FALSE(second.IsVisible());
    Settle();
    EXPECT_TRUE(widget.isNull());
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_EQ(shown[0].name, "Box");
    EXPECT_EQ(shown[0].title, "ServerError");
    EXPECT_EQ(shown[0].text, "The part has no mass.");
    EXPECT_EQ(shown[0].style, kChoice);
    EXPECT_TRUE(shown[0].blocking);
    EXPECT_FALSE(shown[1].blocking);
}

TEST_F(CATDlgNotifyTest, AnswererThatHasNoAnswerLeavesItToTheUser)
{
    CATDlgNotify::SetAnswerer(
        [](const CATDlgNotify::Shown&) -> std::optional<int> { return std::nullopt; });
    EXPECT_EQ(Answer(Box(kChoice), [](QWidget& box) { Press(box, "YesButton"); }), 3);
}

TEST_F(CATDlgNotifyTest, LongTextScrollsWithinTheScreen)
{
    CATDlgNotify& box = Box(0x8000000);
    std::string text;
    for (int line = 0; line < 500; ++line) {
        text += "a warning that is one of very many\n";
    }
    box.SetText(text);
    box.DisplayNonBlocking();
    EXPECT_LT(box.Widget()->height(), QApplication::primaryScreen()->availableSize().height());
    EXPECT_GT(Child<QLabel>(box, "Text")->height(), box.Widget()->height());
}

TEST_F(CATDlgNotifyTest, ShortTextIsShownWithoutScrolling)
{
    CATDlgNotify& box = Box(0);
    box.DisplayNonBlocking();
    Settle();
    const auto* text = Child<QLabel>(box, "Text");
    EXPECT_LE(text->height(), text->parentWidget()->height());
    EXPECT_LE(text->heightForWidth(text->width()), text->height());
}

} // namespace
