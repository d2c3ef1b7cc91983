#include "UnsavedChanges.h"

#include "AnsweringServer.h"
#include "CATDlgApplication.h"
#include "CATDlgDialog.h"
#include "CATDlgNotify.h"
#include "CATMsgCatalog.h"
#include "CATSession.h"
#include "RunServerCode.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include <gmock/gmock.h>

#include <array>
#include <memory>

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace
{
constexpr int kSave = 1;
constexpr int kLater = 2;
constexpr int kCancel = 5;

std::string Pending(int count)
{
    std::string answer = std::to_string(count) + "|";
    for (int index = 1; index <= count; ++index) {
        answer += "part P" + std::to_string(index) +
                  " A|mass type Weighed, mass|1|2|1|0|__null__|__null__|2026/11/21 18:00:00|";
    }
    return answer;
}

class UnsavedChangesTest : public testing::Test
{
protected:
    UnsavedChangesTest()
        : m_application(std::make_unique<CATDlgApplication>(m_count, m_arguments.data())),
          m_label(std::make_unique<QLabel>()),
          m_unsaved(std::make_unique<UnsavedChanges>(
              m_label.get(), new CATDlgDialog(&CATSession::Root(), "Main", 0x4001)))
    {
        CATDlgNotify::SetAnswerer([this](const CATDlgNotify::Shown& box) {
            m_boxes.push_back(box.title.ToStdString() + ": " + box.text.ToStdString());
            return std::optional<int>(m_answer);
        });
    }
    ~UnsavedChangesTest() override
    {
        CATDlgNotify::SetAnswerer({});
        CATMsgCatalog::SetLanguage("");
        m_unsaved.reset();
        m_label.reset();
        m_application.reset();
    }
    std::string Shown() const
    {
        return m_label->isHidden() ? "hidden" : m_label->text().toStdString();
    }

    std::array<char, 3> m_name{'w', 'b', '\0'};
    std::array<char*, 2> m_arguments{m_name.data(), nullptr};
    int m_count = 1;
    AnsweringServer m_server;
    std::unique_ptr<CATDlgApplication> m_application;
    std::unique_ptr<QLabel> m_label;
    std::unique_ptr<UnsavedChanges> m_unsaved;
    std::vector<std::string> m_boxes;
    int m_answer = kCancel;
};
} // namespace

TEST_F(UnsavedChangesTest, LabelSaysHowManyThereAreAndNothingWhereThereAreNone)
{
    EXPECT_EQ(Shown(), "hidden");
    for (const auto& [count, text] : {std::pair(3, "3 unsaved changes"),
                                      std::pair(1, "1 unsaved change"), std::pair(0, "hidden")}) {
        m_server.Answer("WBPendingChanges") = Pending(count);
        m_unsaved->Update();
        EXPECT_EQ(Shown(), text);
    }
}

TEST_F(UnsavedChangesTest, LabelIsRightAfterEachChangeAndEachSaving)
{
    m_server.Answer("WBPendingChanges") = Pending(2);
    m_server.Answer("WBApplyValues") = "Apply|OK|2|";
    RunServerCode("WBApplyValues", "request");
    EXPECT_EQ(Shown(), "2 unsaved changes");
    m_server.Answer("WBPendingChanges") = Pending(0);
    m_server.Answer("WBSaveManagement") = "Save|OK";
    RunServerCode("WBSaveManagement", "Save");
    EXPECT_EQ(Shown(), "hidden");
}

TEST_F(UnsavedChangesTest, OtherMethodsChangeNothingAndCostNoQuestion)
{
    m_server.Answer("WBListRoots") = "0|";
    RunServerCode("WBListRoots");
    EXPECT_THAT(m_server.Calls(), ElementsAre("WBListRoots "));
}

TEST_F(UnsavedChangesTest, WhatTheLabelSaysStaysWhereTheServerCannotTell)
{
    m_server.Answer("WBPendingChanges") = Pending(2);
    m_unsaved->Update();
    for (const char* answer : {"", "#WB_ERROR#The database is damaged.", "nonsense"}) {
        m_server.Answer("WBPendingChanges") = answer;
        m_unsaved->Update();
        EXPECT_EQ(Shown(), "2 unsaved changes") << answer;
    }
    EXPECT_THAT(m_boxes, IsEmpty());
}

TEST_F(UnsavedChangesTest, NobodyIsAskedWhereNothingIsUnsaved)
{
    m_server.Answer("WBPendingChanges") = Pending(0);
    EXPECT_TRUE(m_unsaved->MayClose());
    EXPECT_THAT(m_boxes, IsEmpty());
    EXPECT_THAT(m_server.Calls(), ElementsAre("WBPendingChanges "));
}

TEST_F(UnsavedChangesTest, SavingClosesWhenAllIsSaved)
{
    m_answer = kSave;
    m_server.Answer("WBPendingChanges") = Pending(1);
    for (const char* answer : {"Save|OK", "Save|NA"}) {
        m_server.ForgetCalls();
        m_server.Answer("WBSaveManagement") = answer;
        EXPECT_TRUE(m_unsaved->MayClose());
        EXPECT_THAT(m_server.Calls(), testing::Contains("WBSaveManagement Save")) << answer;
    }
    EXPECT_EQ(m_boxes.size(), 2U); // the two questions
}

TEST_F(UnsavedChangesTest, ChangesThatCannotBeSavedKeepTheWorkbenchOpenAndSayWhy)
{
    m_answer = kSave;
    m_server.Answer("WBPendingChanges") = Pending(1);
    m_server.Answer("WBSaveManagement") = "Save|FALSE";
    m_server.Answer("WBWarningMsg") = "- part P1 A, mass: you changed 1 kg to 2 kg, but ben ...";
    EXPECT_FALSE(m_unsaved->MayClose());
    ASSERT_EQ(m_boxes.size(), 2U);
    EXPECT_EQ(m_boxes[1],
              "Your changes were not saved: Nothing was saved; all of your changes are still "
              "there.\n- part P1 A, mass: you changed 1 kg to 2 kg, but ben ...");
}

TEST_F(UnsavedChangesTest, SavingThatNobodyCanTellOfKeepsTheWorkbenchOpenToo)
{
    m_answer = kSave;
    m_server.Answer("WBPendingChanges") = Pending(1);
    for (const char* answer : {"", "#WB_ERROR#The call was cancelled.", "Save|PERHAPS"}) {
        m_boxes.clear();
        m_server.Answer("WBSaveManagement") = answer;
        EXPECT_FALSE(m_unsaved->MayClose()) << answer;
        ASSERT_EQ(m_boxes.size(), 2U) << answer;
        EXPECT_THAT(m_boxes[1], StartsWith("Were your changes saved?: ")) << answer;
    }
}

TEST_F(UnsavedChangesTest, WhatIsLeftForLaterIsNotSavedAndClosesAllTheSame)
{
    m_answer = kLater;
    m_server.Answer("WBPendingChanges") = Pending(1);
    EXPECT_TRUE(m_unsaved->MayClose());
    EXPECT_THAT(m_server.Calls(), ElementsAre("WBPendingChanges "));
}

TEST_F(UnsavedChangesTest, CancelKeepsTheWorkbenchOpenAndSavesNothing)
{
    m_answer = kCancel;
    m_server.Answer("WBPendingChanges") = Pending(1);
    EXPECT_FALSE(m_unsaved->MayClose());
    EXPECT_THAT(m_server.Calls(), ElementsAre("WBPendingChanges "));
}

TEST_F(UnsavedChangesTest, QuestionNamesTheFirstFiveChanges)
{
    m_server.Answer("WBPendingChanges") = Pending(2);
    m_unsaved->MayClose();
    m_server.Answer("WBPendingChanges") = Pending(7);
    m_unsaved->MayClose();
    ASSERT_EQ(m_boxes.size(), 2U);
    EXPECT_EQ(m_boxes[0], "Unsaved changes: You have 2 unsaved changes, which nobody else can "
                          "see:\n- part P1 A, mass type Weighed, mass\n- part P2 A, mass type "
                          "Weighed, mass\nSave now? What you leave for later waits for you.");
    EXPECT_THAT(m_boxes[1], AllOf(HasSubstr("part P5 A"), Not(HasSubstr("part P6 A")),
                                  HasSubstr("and 2 more")));
}

TEST_F(UnsavedChangesTest, QuestionIsAnsweredByButtonsThatSayWhatTheyDo)
{
    m_server.Answer("WBPendingChanges") = Pending(1);
    CATDlgNotify::SetAnswerer({});
    std::vector<std::string> buttons;
    QTimer::singleShot(0, [&buttons] {
        QWidget* box = QApplication::activeModalWidget();
        ASSERT_NE(box, nullptr);
        for (const char* name : {"YesButton", "NoButton", "CancelButton"}) {
            buttons.push_back(box->findChild<QPushButton*>(name)->text().toStdString());
        }
        box->close();
    });
    EXPECT_FALSE(m_unsaved->MayClose());
    EXPECT_THAT(buttons, ElementsAre("Save", "Leave for later", "Cancel"));
}

TEST_F(UnsavedChangesTest, ServerThatCannotTellIsToldOfAndKeepsNobodyIn)
{
    for (const char* answer : {"", "#WB_ERROR#a.db: it is damaged.", "nonsense"}) {
        m_boxes.clear();
        m_server.Answer("WBPendingChanges") = answer;
        EXPECT_TRUE(m_unsaved->MayClose()) << answer;
        ASSERT_EQ(m_boxes.size(), 1U) << answer;
        EXPECT_THAT(m_boxes[0], HasSubstr("The server cannot say whether")) << answer;
    }
    m_server.Answer("WBPendingChanges") = "#WB_ERROR#a.db: it is damaged.";
    m_unsaved->MayClose();
    EXPECT_THAT(m_boxes.back(), HasSubstr("\na.db: it is damaged."));
}

TEST_F(UnsavedChangesTest, EveryTextHasItsGermanOne)
{
    m_server.Answer("WBPendingChanges") = Pending(7);
    const auto allTexts = [this] {
        m_boxes.clear();
        m_unsaved->Update();
        std::vector<std::string> texts{Shown()};
        m_answer = kSave;
        m_server.Answer("WBSaveManagement") = "Save|FALSE";
        m_server.Answer("WBWarningMsg") = "";
        m_unsaved->MayClose();
        m_server.Answer("WBSaveManagement") = "";
        m_unsaved->MayClose();
        texts.insert(texts.end(), m_boxes.begin(), m_boxes.end());
        return texts;
    };
    CATMsgCatalog::SetLanguage("en");
    const std::vector<std::string> english = allTexts();
    CATMsgCatalog::SetLanguage("de");
    const std::vector<std::string> german = allTexts();
    ASSERT_EQ(english.size(), german.size());
    EXPECT_EQ(german.front(), "7 ungespeicherte Änderungen");
    for (std::size_t index = 0; index < english.size(); ++index) {
        EXPECT_NE(english[index], german[index]);
        EXPECT_THAT(german[index], Not(HasSubstr("/p1")));
    }
    EXPECT_THAT(german[1], AllOf(HasSubstr("Jetzt speichern?"), HasSubstr("und 2 weitere")));
}
