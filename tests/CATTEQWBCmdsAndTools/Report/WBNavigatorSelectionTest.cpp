#include "WBNavigatorSelection.h"

#include "../../System/TestEnvironment.h"
#include "../AeroplanePicks.h"
#include "../CommandServer.h"
#include "../ModuleSession.h"

#include "CATImmIdentifierAcquisitionAgent.h"
#include "CATWBVPMNavFilterPanel.h"

#include <gtest/gtest.h>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

constexpr WBNavigatorCommand kEveryCommand[] = {
    WBNavigatorCommand::DefineFilter, WBNavigatorCommand::Report, WBNavigatorCommand::Group};

class NavigatorSelection : public testing::Test
{
protected:
    NavigatorSelection()
    {
        CATSetServerCaller(m_server);
        OpenAeroplane();
        m_agent.SetBehaviour(0x40a40010);
    }
    ~NavigatorSelection() override
    {
        CATNavigator::Close();
        CATSetServerCaller(nullptr);
    }

    /// Picks and asks; the define-filter command has kept the identifier LA1.
    bool Ask(WBNavigatorSelection& selection, const std::vector<CATPathElement_var>& picked)
    {
        m_agent.Offer(picked);
        return selection.Ask(m_agent, "LA1");
    }
    /// What is handed on of the answer when `picks` instances were picked.
    std::vector<WBNavigatorRecord> RecordsOf(const std::string& answer, int picks = 1)
    {
        m_server->record = answer;
        const std::vector<CATPathElement_var> picked{PathToFuselage(), PathToForward(),
                                                     PathToFirewall()};
        WBNavigatorSelection selection(WBNavigatorCommand::Report);
        EXPECT_TRUE(Ask(selection, {picked.begin(), picked.begin() + picks}));
        return RecordsOf(selection);
    }
    static std::vector<WBNavigatorRecord> RecordsOf(const WBNavigatorSelection& selection)
    {
        std::vector<WBNavigatorRecord> records;
        EXPECT_TRUE(selection.HandRecordsTo([&records](const WBNavigatorRecord& record) {
            records.push_back(record);
            return true;
        }));
        return records;
    }

    std::shared_ptr<CommandServer> m_server = std::make_shared<CommandServer>();
    CATImmIdentifierAcquisitionAgent m_agent;
    TestEnvironment m_environment;
    DiagnosticCapture m_output{CATDiagnosticOutput()};
    DiagnosticCapture m_errors{CATDiagnosticErrors()};
};

std::string TextOf(const WBNavigatorRecord& record)
{
    return (record.instance + ", " + record.part + ", " + record.version + ", " + record.path +
            ", " + CATUnicodeString::FromInt(record.count) + ", " + record.partName)
        .ToStdString();
}

std::vector<std::string> TextsOf(const std::vector<WBNavigatorRecord>& records)
{
    std::vector<std::string> texts;
    for (const WBNavigatorRecord& record : records) {
        texts.push_back(TextOf(record));
    }
    return texts;
}

/// A hole, the root, two item instances that the PDM knows and one that it does not, something
/// without a type, and a path with nothing on it.
std::vector<CATPathElement_var> MixedPick()
{
    return {CATPathElement_var(),
            PathTo(CATNavigator::CurrentRoot()),
            PathToFirewall(),
            PathToStranger({{"V_ID", "X"}}),
            PathToStranger({{"Type", "ENOVIA_VPMItemInstance"}}),
            CATPathElement_var::Adopt(new CATPathElement({})),
            PathToFuselage()};
}

} // namespace

// The pick

TEST_F(NavigatorSelection, MixedPickAsksAboutItemInstancesAloneInPickOrder)
{
    for (const WBNavigatorCommand command : kEveryCommand) {
        m_server->calls.clear();
        WBNavigatorSelection selection(command);
        EXPECT_TRUE(Ask(selection, MixedPick()));
        EXPECT_THAT(m_server->calls,
                    ElementsAre("ENOVIA5_GetObjectIdentifier of "
                                "LA1|FUS-000.1|FUS-100.1|FUS-110.1 LA1|FUS-000.1: LA1|NoConfig"));
    }
}

TEST_F(NavigatorSelection, ReportAndGroupTellEachEntryAndTheRoot)
{
    for (const WBNavigatorCommand command :
         {WBNavigatorCommand::Report, WBNavigatorCommand::Group}) {
        const DiagnosticCapture output;
        WBNavigatorSelection selection(command);
        Ask(selection, MixedPick());
        EXPECT_THAT(output.Lines(),
                    ElementsAre("Object list's size: 7", "pPath not valid at iteration 0",
                                "pElem not valid at iteration 1", "pElem is a: CATNavigatorNode",
                                "pElem not valid at iteration 3", "pElem is a: CATBaseUnknown",
                                "pElem not valid at iteration 5", "pElem is a: CATNavigatorNode",
                                "_RootType: ENOVIA_VPMItem", "rootType2: ENOVIA_VPMItem"));
    }
    EXPECT_THAT(m_errors.Lines(), IsEmpty());
}

TEST_F(NavigatorSelection, DefineFilterTellsDepthsSkippedObjectsAndTheTexts)
{
    m_server->record = kFirewall;
    WBNavigatorSelection selection(WBNavigatorCommand::DefineFilter);
    Ask(selection, MixedPick());
    EXPECT_THAT(
        m_output.Lines(),
        ElementsAre("Size of the list of selected objects: 7",
                    "pPathElement not valid at iteration 0", "pElem not valid at iteration 1",
                    "pathDepth originally: 4", "pathDepth after InitToTopElement: 1",
                    "pathDepth after InitToLeafElement: 4", "pElem not valid at iteration 3",
                    "pathDepth originally: 1", "pathDepth after InitToTopElement: 1",
                    "pathDepth after InitToLeafElement: 1", "skipping this: CATBaseUnknown",
                    "pElem not valid at iteration 5", "pathDepth originally: 2",
                    "pathDepth after InitToTopElement: 1", "pathDepth after InitToLeafElement: 2",
                    "inputString: LA1|NoConfig",
                    std::string("Filter:  usReturnString:") + kFirewall));
    EXPECT_THAT(m_errors.Lines(), IsEmpty());
}

TEST_F(NavigatorSelection, DefineFilterTellsWhereThePathStoodBefore)
{
    const CATPathElement_var path = PathToForward();
    path->InitToTopElement();
    WBNavigatorSelection selection(WBNavigatorCommand::DefineFilter);
    Ask(selection, {path});
    ASSERT_GE(m_output.Lines().size(), 4U);
    EXPECT_EQ(m_output.Lines()[1], "pathDepth originally: 1");
    EXPECT_EQ(m_output.Lines()[3], "pathDepth after InitToLeafElement: 3");
}

TEST_F(NavigatorSelection, TypeMustBeExactlyThatOfAnItemInstance)
{
    for (const char* type :
         {"enovia_vpmiteminstance", "Item/ENOVIA_VPMItemInstance", "ENOVIA_VPMItemInstance2", ""}) {
        const DiagnosticCapture output;
        WBNavigatorSelection selection(WBNavigatorCommand::Report);
        Ask(selection, {PathToStranger({{"Type", type}})});
        ASSERT_GE(output.Lines().size(), 2U);
        EXPECT_EQ(output.Lines()[1], "pElem not valid at iteration 0") << type;
    }
}

TEST_F(NavigatorSelection, AgentIsReadyForTheNextPickAtOnce)
{
    m_server->record.reset(); // also where nothing comes of it
    bool isReady = false;
    m_server->onCall = [this, &isReady] { // before the server answers
        isReady = !m_agent.IsOutputSet() && m_agent.GetListOfValues().empty();
    };
    for (const WBNavigatorCommand command : kEveryCommand) {
        isReady = false;
        WBNavigatorSelection selection(command);
        EXPECT_FALSE(Ask(selection, {PathToFuselage()}));
        EXPECT_TRUE(isReady);
    }
}

TEST_F(NavigatorSelection, AgentWithoutAPickSaysSo)
{
    const struct
    {
        WBNavigatorCommand command;
        bool answer;
        std::size_t calls;
        std::vector<std::string> lines;
    } cases[] = {
        {WBNavigatorCommand::DefineFilter,
         false,
         0,
         {"Nothing could be retrieved from the acq agent!", "No ids in the list - returning here"}},
        {WBNavigatorCommand::Report,
         true,
         1,
         {"Nothing could be retrieved from the acq agent!", "_RootType: ENOVIA_VPMItem",
          "rootType2: ENOVIA_VPMItem"}},
        {WBNavigatorCommand::Group,
         true,
         1,
         {"Nothing could be retrieved from the acq agent!", "_RootType: ENOVIA_VPMItem",
          "rootType2: ENOVIA_VPMItem"}},
    };
    for (const auto& each : cases) {
        m_server->calls.clear();
        const DiagnosticCapture output;
        WBNavigatorSelection selection(each.command);
        EXPECT_EQ(selection.Ask(m_agent, "LA1"), each.answer);
        EXPECT_EQ(m_server->calls.size(), each.calls);
        EXPECT_EQ(output.Lines(), each.lines);
    }
}

TEST_F(NavigatorSelection, PickWithoutItemInstancesIsAskedAboutUnlessAFilterIsDefined)
{
    const std::vector<CATPathElement_var> picked{PathTo(CATNavigator::CurrentRoot())};
    for (const WBNavigatorCommand command :
         {WBNavigatorCommand::Report, WBNavigatorCommand::Group}) {
        m_server->calls.clear();
        WBNavigatorSelection selection(command);
        EXPECT_TRUE(Ask(selection, picked));
        EXPECT_THAT(m_server->calls, ElementsAre("ENOVIA5_GetObjectIdentifier of: LA1|NoConfig"));
        EXPECT_THAT(RecordsOf(selection), IsEmpty());
    }
    m_server->calls.clear();
    WBNavigatorSelection selection(WBNavigatorCommand::DefineFilter);
    EXPECT_FALSE(Ask(selection, picked));
    EXPECT_THAT(m_server->calls, IsEmpty());
    EXPECT_EQ(m_output.Lines().back(), "No ids in the list - returning here");
}

// The root

TEST_F(NavigatorSelection, ReportAndGroupLookTheRootUpAtEveryPick)
{
    for (const WBNavigatorCommand command :
         {WBNavigatorCommand::Report, WBNavigatorCommand::Group}) {
        OpenAeroplane();
        const CATPathElement_var path = PathToFuselage();
        WBNavigatorSelection selection(command);
        EXPECT_TRUE(Ask(selection, {path}));
        EXPECT_EQ(selection.RootIdentifier(), "LA1");
        CATNavigator::Open(std::make_shared<AeroplaneSource>(),
                           AeroplaneSource::Row("LB2", "LB2", false));
        m_agent.Offer({path});
        EXPECT_TRUE(selection.Ask(m_agent, "kept"));
        EXPECT_EQ(selection.RootIdentifier(), "LB2");
        EXPECT_EQ(m_server->calls.back(),
                  "ENOVIA5_GetObjectIdentifier of LA1|FUS-000.1: LB2|NoConfig");
    }
}

TEST_F(NavigatorSelection, WithoutARootReportAndGroupAskNothing)
{
    const CATPathElement_var path = PathToFuselage();
    CATNavigator::Close();
    for (const WBNavigatorCommand command :
         {WBNavigatorCommand::Report, WBNavigatorCommand::Group}) {
        const DiagnosticCapture output;
        WBNavigatorSelection selection(command);
        EXPECT_FALSE(Ask(selection, {path}));
        EXPECT_THAT(output.Lines(),
                    ElementsAre("Object list's size: 1", "pElem is a: CATNavigatorNode"));
    }
    EXPECT_THAT(m_server->calls, IsEmpty());
}

TEST_F(NavigatorSelection, WithoutAnIdentifierOfTheRootReportAndGroupAskNothing)
{
    const CATPathElement_var path = PathToFuselage();
    CATNavigator::Open(std::make_shared<AeroplaneSource>(), AeroplaneSource::Row("", "", true));
    for (const WBNavigatorCommand command :
         {WBNavigatorCommand::Report, WBNavigatorCommand::Group}) {
        const DiagnosticCapture output;
        WBNavigatorSelection selection(command);
        selection.TakeAnswer({S_OK, kFuselage}, 1); // records of a pick before
        EXPECT_FALSE(Ask(selection, {path}));
        EXPECT_THAT(RecordsOf(selection), IsEmpty());
        EXPECT_THAT(output.Lines(),
                    ElementsAre("Object list's size: 1", "pElem is a: CATNavigatorNode",
                                "_RootType: ENOVIA_VPMItem", "rootType2: ENOVIA_VPMItem"));
    }
    EXPECT_THAT(m_server->calls, IsEmpty());
}

TEST_F(NavigatorSelection, DefineFilterTakesTheIdentifierThatItsCommandKept)
{
    const CATPathElement_var path = PathToFuselage();
    CATNavigator::Close();
    m_agent.Offer({path});
    WBNavigatorSelection selection(WBNavigatorCommand::DefineFilter);
    EXPECT_TRUE(selection.Ask(m_agent, "KEPT"));
    EXPECT_EQ(selection.RootIdentifier(), "KEPT");
    EXPECT_THAT(m_server->calls,
                ElementsAre("ENOVIA5_GetObjectIdentifier of LA1|FUS-000.1: KEPT|NoConfig"));
}

TEST_F(NavigatorSelection, DefineFilterAsksWithoutAnIdentifierToo)
{
    m_agent.Offer({PathToFuselage()});
    WBNavigatorSelection selection(WBNavigatorCommand::DefineFilter);
    EXPECT_TRUE(selection.Ask(m_agent));
    EXPECT_THAT(m_server->calls,
                ElementsAre("ENOVIA5_GetObjectIdentifier of LA1|FUS-000.1: |NoConfig"));
}

TEST_F(NavigatorSelection, ServiceHearsTheChosenConfiguration)
{
    CATWBVPMNavFilterPanel::selectedPRCConfigHandler = "Config 5";
    WBNavigatorSelection selection(WBNavigatorCommand::Group);
    Ask(selection, {PathToFuselage()});
    CATWBVPMNavFilterPanel::selectedPRCConfigHandler = "NoConfig";
    EXPECT_THAT(m_server->calls,
                ElementsAre("ENOVIA5_GetObjectIdentifier of LA1|FUS-000.1: LA1|Config 5"));
}

// The answer

TEST_F(NavigatorSelection, RecordsComeInPickOrder)
{
    EXPECT_THAT(TextsOf(RecordsOf(std::string(kFuselage) + kForward + kFirewall, 3)),
                ElementsAre("FUS-000.1, FUS-000, A, , 0, Fuselage",
                            "FUS-100.1, FUS-100, A, FUS-000.1, 1, Forward section",
                            "FUS-110.1, FUS-110, B, FUS-100.1|FUS-000.1, 2, Firewall"));
}

TEST_F(NavigatorSelection, EachRecordBelongsToAnObjectThatTheServiceKnows)
{
    m_server->record = std::string(kFuselage) + kFirewall;
    m_server->unknown = "LA1|FUS-000.1|FUS-100.1";
    WBNavigatorSelection selection(WBNavigatorCommand::Report);
    Ask(selection, {PathToFuselage(), PathToForward(), PathToFirewall()});
    EXPECT_THAT(TextsOf(RecordsOf(selection)),
                ElementsAre("FUS-000.1, FUS-000, A, , 0, Fuselage",
                            "FUS-110.1, FUS-110, B, FUS-100.1|FUS-000.1, 2, Firewall"));
}

TEST_F(NavigatorSelection, FailedServiceFailsThePickAndLeavesNoRecords)
{
    for (const WBNavigatorCommand command : kEveryCommand) {
        m_server->record = kFuselage;
        WBNavigatorSelection selection(command);
        EXPECT_TRUE(Ask(selection, {PathToFuselage()}));
        EXPECT_EQ(RecordsOf(selection).size(), 1U);
        m_server->record.reset();
        EXPECT_FALSE(Ask(selection, {PathToFuselage()}));
        EXPECT_THAT(RecordsOf(selection), IsEmpty());
    }
}

TEST_F(NavigatorSelection, ServiceThatSucceedsWithoutAnAnswerGivesNoRecords)
{
    for (const WBNavigatorCommand command : kEveryCommand) {
        const DiagnosticCapture output;
        WBNavigatorSelection selection(command);
        EXPECT_TRUE(selection.TakeAnswer({S_OK, std::nullopt}, 2));
        EXPECT_THAT(RecordsOf(selection), IsEmpty());
        EXPECT_THAT(output.Lines(), IsEmpty());
    }
}

TEST_F(NavigatorSelection, AnswerOfAFailedServiceIsNotRead)
{
    WBNavigatorSelection selection(WBNavigatorCommand::Report);
    EXPECT_TRUE(selection.TakeAnswer({S_OK, kFuselage}, 1));
    EXPECT_EQ(RecordsOf(selection).size(), 1U);
    EXPECT_FALSE(selection.TakeAnswer({E_FAIL, kForward}, 1));
    EXPECT_THAT(RecordsOf(selection), IsEmpty());
}

TEST_F(NavigatorSelection, ConsumerEndsTheHandingOn)
{
    m_server->record = std::string(kFuselage) + kForward + kFirewall;
    WBNavigatorSelection selection(WBNavigatorCommand::Group);
    Ask(selection, {PathToFuselage(), PathToForward(), PathToFirewall()});
    std::vector<std::string> parts;
    EXPECT_FALSE(selection.HandRecordsTo([&parts](const WBNavigatorRecord& record) {
        parts.push_back(record.part.ToStdString());
        return parts.size() < 2;
    }));
    EXPECT_THAT(parts, ElementsAre("FUS-000", "FUS-100"));
}

TEST_F(NavigatorSelection, WithoutPartNamesRecordsAreOneFieldShorter)
{
    m_environment.Set("KR4_DA_FOR_CGR", ""); // set to an empty text counts as set
    EXPECT_THAT(
        TextsOf(RecordsOf("1|FUS-000.1|FUS-000|A|0|1|FUS-100.1|FUS-100|A|1|FUS-000.1|", 2)),
        ElementsAre("FUS-000.1, FUS-000, A, , 0, ", "FUS-100.1, FUS-100, A, FUS-000.1, 1, "));
}

TEST_F(NavigatorSelection, ServerThatSendsPartNamesAllTheSameShiftsWhatFollows)
{
    m_environment.Set("KR4_DA_FOR_CGR", "1");
    // The second record begins with the first one's part name, the third with two fields of its own
    // too many.
    EXPECT_THAT(TextsOf(RecordsOf("1|I1|P1|A|0|N1|1|I2|P2|B|0|N2|1|I3|P3|C|0|N3|", 3)),
                ElementsAre("I1, P1, A, , 0, ", "1, I2, P2, , 0, ", "N2, 1, I3, , 0, "));
}

TEST_F(NavigatorSelection, MissingFieldsAreEmpty)
{
    EXPECT_THAT(TextsOf(RecordsOf("1|I1", 2)), ElementsAre("I1, , , , 0, ", ", , , , 0, "));
    EXPECT_THAT(TextsOf(RecordsOf("")), ElementsAre(", , , , 0, "));
    EXPECT_THAT(TextsOf(RecordsOf("1|I1|P1|A|3|X")), ElementsAre("I1, P1, A, X||, 3, "));
}

TEST_F(NavigatorSelection, CountIsReadAsAnIntegerOrIsZero)
{
    const struct
    {
        const char* count;
        const char* record;
    } cases[] = {{"1", "I, P, A, X, 1, Y"},         {" 1 piece", "I, P, A, X, 1, Y"},
                 {"+1", "I, P, A, X, 1, Y"},        {"", "I, P, A, , 0, X"},
                 {"one", "I, P, A, , 0, X"},        {"-1", "I, P, A, , 0, X"},
                 {"1.9", "I, P, A, X, 1, Y"},       {"-2147483648", "I, P, A, , 0, X"},
                 {"2147483647", "I, P, A, , 0, X"}, {"100001", "I, P, A, , 0, X"}};
    for (const auto& each : cases) {
        EXPECT_THAT(TextsOf(RecordsOf("1|I|P|A|" + std::string(each.count) + "|X|Y|")),
                    ElementsAre(each.record))
            << each.count;
    }
}

TEST_F(NavigatorSelection, LongestPathIsReadWhole)
{
    std::string answer = "1|I|P|A|100000|";
    for (int name = 0; name < 100000; ++name) {
        answer += "x|";
    }
    const std::vector<WBNavigatorRecord> records = RecordsOf(answer + "Name|");
    ASSERT_EQ(records.size(), 1U);
    EXPECT_EQ(records[0].count, 100000);
    EXPECT_EQ(records[0].path.Length(), 199999);
    EXPECT_EQ(records[0].partName, "Name");
}
