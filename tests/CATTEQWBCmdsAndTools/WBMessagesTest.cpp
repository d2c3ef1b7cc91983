#include "CATWBServices.h"

#include "CATDlgDialog.h"
#include "CATDlgNotify.h"
#include "CATMsgCatalog.h"
#include "CATServerCaller.h"
#include "CATSession.h"
#include "CATWBVPMNavGUITable.h"
#include "ModuleSession.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace
{

/// A server that answers one text and keeps what it was asked.
class AnsweringServer : public CATServerCaller
{
public:
    explicit AnsweringServer(std::string answer) : m_answer(std::move(answer)) {}
    std::string CallMethod(std::string_view method, std::string_view request,
                           CATServerCallState&) override
    {
        m_asked.push_back(std::string(method) + "<" + std::string(request) + ">");
        return m_answer;
    }
    std::optional<std::string> CallObjectService(std::string_view, std::vector<std::string>&,
                                                 std::string_view, bool,
                                                 CATServerCallState&) override
    {
        return std::nullopt;
    }

    const std::vector<std::string>& Asked() const { return m_asked; }

private:
    std::string m_answer;
    std::vector<std::string> m_asked;
};

CATUnicodeString FilterOf(const CATUnicodeString& root)
{
    return root == "FILTERED" ? "1|Wing\nI|W-1|P|A|0" : "0|No Filter";
}

/// A session whose boxes are answered by the test and kept.
class Messages : public testing::Test
{
protected:
    Messages()
    {
        CATMsgCatalog::SetLanguage("en");
        CATWBVPMNavGUITable table;
        table.getFilter = FilterOf;
        m_tableBefore = CATWBVPMNavGUISetTable(table);
        CATDlgNotify::SetAnswerer([this](const CATDlgNotify::Shown& box) {
            m_shown.push_back(box);
            return std::optional<int>(m_answer);
        });
    }
    ~Messages() override
    {
        CATDlgNotify::SetAnswerer({});
        CATWBVPMNavGUISetTable(m_tableBefore);
    }

    const SilentStreams m_silent;
    CATWBVPMNavGUITable m_tableBefore;
    std::vector<CATDlgNotify::Shown> m_shown;
    int m_answer = 1;
};

TEST_F(Messages, UserIsAskedWhenNoFilterIsDefined)
{
    CATDlgDialog parent(nullptr, "Parent", 0x4001);
    for (const int answer : {3, 1, 0, 4}) {
        m_shown.clear();
        m_answer = answer;
        EXPECT_EQ(CATWBServices::ValidateFilterCondition(&parent, "ROOT"), answer != 4) << answer;
        ASSERT_EQ(m_shown.size(), 1U);
        EXPECT_EQ(m_shown[0].name, "ContinueCompute");
        EXPECT_EQ(m_shown[0].style, 0x8800200);
        EXPECT_TRUE(m_shown[0].blocking);
        EXPECT_EQ(m_shown[0].title, "Weight and Balance");
        EXPECT_EQ(m_shown[0].text, "No W&B filter is currently defined.\nThe processing time may "
                                   "be important for large PRC.\nDo you want to continue?");
    }
    EXPECT_EQ(parent.ChildCount(), 0);
}

TEST_F(Messages, NobodyIsAskedWhenAFilterIsDefined)
{
    CATDlgDialog parent(nullptr, "Parent", 0x4001);
    m_answer = 4;
    EXPECT_TRUE(CATWBServices::ValidateFilterCondition(&parent, "FILTERED"));
    EXPECT_TRUE(m_shown.empty());
}

TEST_F(Messages, OnlyTheExactTextMeansNoFilter)
{
    CATWBVPMNavGUITable table;
    table.getFilter = [](const CATUnicodeString&) {
        return CATUnicodeString("0|no filter");
    };
    CATWBVPMNavGUISetTable(table);
    CATDlgDialog parent(nullptr, "Parent", 0x4001);
    m_answer = 4;
    EXPECT_TRUE(CATWBServices::ValidateFilterCondition(&parent, "ROOT"));
    EXPECT_TRUE(m_shown.empty());
}

TEST_F(Messages, QuestionWithoutAParentIsToldAndGoesOn)
{
    const DiagnosticCapture heard(CATDiagnosticErrors());
    m_answer = 4;
    EXPECT_TRUE(CATWBServices::ValidateFilterCondition(nullptr, "ROOT"));
    EXPECT_TRUE(m_shown.empty());
    EXPECT_THAT(heard.Lines(), testing::ElementsAre("Invalid arguments have been received!"));
}

TEST_F(Messages, MessageIsShownWithoutWaiting)
{
    CATDlgDialog parent(nullptr, "Parent", 0x4001);
    CATWBServices::DisplayMsg(&parent, "ServerError", "The server did not answer.", 0x10000000);
    ASSERT_EQ(m_shown.size(), 1U);
    EXPECT_EQ(m_shown[0].name, "ServerError");
    EXPECT_EQ(m_shown[0].text, "The server did not answer.");
    EXPECT_EQ(m_shown[0].style, 0x10000000);
    EXPECT_FALSE(m_shown[0].blocking);
}

TEST_F(Messages, MessageStaysUntilItIsClosedAndThenDeletesItself)
{
    CATDlgDialog parent(nullptr, "Parent", 0x4001);
    CATWBServices::DisplayMsg(&parent, "ServerError", "The server did not answer.", 0x10000000);
    EXPECT_EQ(parent.ChildCount(), 1);
    CATSession::RunDelayedDestructions();
    EXPECT_EQ(parent.ChildCount(), 0);
}

TEST_F(Messages, MessageWithoutAParentIsOnlyADiagnosticLine)
{
    const DiagnosticCapture heard;
    CATWBServices::DisplayMsg(nullptr, "ServerError", "text", 0);
    EXPECT_TRUE(m_shown.empty());
    EXPECT_THAT(heard.Lines(), testing::ElementsAre("The pointer to the parent window is null!"));
}

TEST_F(Messages, PendingWarningComesFromTheServer)
{
    const auto server = std::make_shared<AnsweringServer>("A warning");
    const auto before = CATSetServerCaller(server);
    CATUnicodeString message("old");
    CATWBServices::GetWarningMsgFromEnovia(message);
    EXPECT_EQ(message, "A warning");
    EXPECT_THAT(server->Asked(), testing::ElementsAre("WBWarningMsg<>"));
    CATSetServerCaller(before);
}

TEST_F(Messages, NoServerMeansNoWarning)
{
    const auto before = CATSetServerCaller(nullptr);
    CATUnicodeString message("old");
    CATWBServices::GetWarningMsgFromEnovia(message);
    EXPECT_EQ(message, "");
    CATSetServerCaller(before);
}

} // namespace
