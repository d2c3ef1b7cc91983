#include "CATPDMServices.h"

#include "CATNavigator.h"

#include "CATEnvironment.h"
#include "FakeServer.h"

#include <gmock/gmock.h>

#include <optional>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
CATIPLMIdentificator_var Identificator(const char* text)
{
    return CATIPLMIdentificator_var::Adopt(new CATIPLMIdentificator(text));
}

constexpr const char* kUnidentified =
    "The server could not tell which objects were picked. Nothing was changed; pick again.";

struct CATPDMCSServicesTest : ServerTest
{
    CATPDMCSServicesTest()
    {
        CATSetEnvironmentSource([this](const char* name) {
            return std::string(name) == "KR4_DA_FOR_CGR" ? withoutNames : std::nullopt;
        });
    }
    ~CATPDMCSServicesTest() override
    {
        CATSetEnvironmentSource({});
        delete[] answer;
    }

    long Run(const char* input = "CAR|NoConfig")
    {
        delete[] answer;
        answer = nullptr;
        return CATPDMCSServices::RunObjectService("ENOVIA5_GetObjectIdentifier", asked, input,
                                                  found, answer);
    }

    std::optional<std::string> withoutNames; ///< the environment's KR4_DA_FOR_CGR
    CATIPLMIdentificator_var left = Identificator("CAR|front|left");
    CATIPLMIdentificator_var gone = Identificator("CAR|gone");
    CATIPLMIdentificator_var body = Identificator("CAR|body");
    CATListIdentificators asked{left, gone, body};
    CATListIdentificators found;
    char* answer = nullptr;
};

TEST_F(CATPDMCSServicesTest, BringsServiceInputAndIdentificatorsToTheServer)
{
    EXPECT_EQ(Run(), S_OK);
    ASSERT_EQ(server->calls.size(), 1U);
    EXPECT_EQ(server->calls[0].method, "ENOVIA5_GetObjectIdentifier");
    EXPECT_EQ(server->calls[0].request, "CAR|NoConfig");
    EXPECT_THAT(server->calls[0].identificators,
                ElementsAre("CAR|front|left", "CAR|gone", "CAR|body"));
    EXPECT_NE(server->calls[0].thread, std::this_thread::get_id());
}

TEST_F(CATPDMCSServicesTest, AnswersANewTextThatTheCallerFrees)
{
    server->records = "0|left|WHEEL|A|1|front|";
    EXPECT_EQ(Run(), S_OK);
    EXPECT_STREQ(answer, "0|left|WHEEL|A|1|front|");
}

TEST_F(CATPDMCSServicesTest, AnAnswerWithoutRecordsIsAnEmptyText)
{
    server->records = "";
    server->known = std::vector<std::string>();
    EXPECT_EQ(Run(), S_OK);
    EXPECT_STREQ(answer, "");
    EXPECT_TRUE(asked.IsEmpty());
}

TEST_F(CATPDMCSServicesTest, KeepsTheIdentificatorsThatTheServiceKnows)
{
    server->known = {"CAR|front|left", "CAR|body"};
    EXPECT_EQ(Run(), S_OK);
    EXPECT_EQ(asked, (CATListIdentificators{left, body}));
}

TEST_F(CATPDMCSServicesTest, AppendsTheKnownOnesToTheSecondList)
{
    found.Append(gone);
    server->known = {"CAR|body"};
    EXPECT_EQ(Run(), S_OK);
    EXPECT_EQ(found, (CATListIdentificators{gone, body}));
}

TEST_F(CATPDMCSServicesTest, KeepsTheOrderOfTheRecords)
{
    server->known = {"CAR|body", "CAR|front|left"};
    EXPECT_EQ(Run(), S_OK);
    EXPECT_EQ(asked, (CATListIdentificators{body, left}));
}

TEST_F(CATPDMCSServicesTest, AnObjectThatWasPickedTwiceKeepsItsTwoRecords)
{
    const CATIPLMIdentificator_var again = Identificator("CAR|body");
    asked = {body, again};
    EXPECT_EQ(Run(), S_OK);
    EXPECT_EQ(asked, (CATListIdentificators{body, again}));
}

TEST_F(CATPDMCSServicesTest, AnAnswerForAnObjectThatWasNotAskedForFails)
{
    server->known = {"CAR|body", "CAR|body"};
    EXPECT_EQ(Run(), E_FAIL);
    EXPECT_EQ(answer, nullptr);
    EXPECT_EQ(asked, (CATListIdentificators{left, gone, body}));
    EXPECT_TRUE(found.IsEmpty());
    EXPECT_THAT(
        errors,
        ElementsAre("The object service answered for an object it was not asked for: CAR|body",
                    kUnidentified));
}

TEST_F(CATPDMCSServicesTest, AFailedServiceLeavesTheListsAndAnswersNothing)
{
    server->records = std::nullopt;
    server->known = {"CAR|body"};
    char old[] = "old";
    char* text = old;
    EXPECT_EQ(CATPDMCSServices::RunObjectService("S", asked, "", found, text), E_FAIL);
    EXPECT_EQ(text, nullptr);
    EXPECT_EQ(asked, (CATListIdentificators{left, gone, body}));
    EXPECT_TRUE(found.IsEmpty());
}

TEST_F(CATPDMCSServicesTest, AFailedServiceIsToldToTheUser)
{
    std::vector<std::string> told;
    CATNavigator::ReportProblemsTo(
        [&told](const CATUnicodeString& sentence) { told.push_back(sentence.ToStdString()); });
    server->records = std::nullopt;
    EXPECT_EQ(Run(), E_FAIL);
    CATNavigator::ReportProblemsTo({});
    EXPECT_THAT(told, ElementsAre(kUnidentified));
}

TEST_F(CATPDMCSServicesTest, ACancelledServiceFailsAndNeverAnswersTheErrorMarker)
{
    server->onCall = [](CATServerCallState& state) {
        state.cancelled = true;
    };
    EXPECT_EQ(Run(), E_FAIL);
    EXPECT_EQ(answer, nullptr);
    EXPECT_EQ(asked.Size(), 3);
    EXPECT_TRUE(found.IsEmpty());
    EXPECT_THAT(errors, testing::IsEmpty()) << "the user knows: it was the user's wish";
}

TEST_F(CATPDMCSServicesTest, WithoutAServerItFails)
{
    CATSetServerCaller(nullptr);
    EXPECT_EQ(Run(), E_FAIL);
    EXPECT_EQ(answer, nullptr);
    EXPECT_THAT(errors,
                ElementsAre("A server call was not made: there is no server.", kUnidentified));
}

TEST_F(CATPDMCSServicesTest, AMissingInputIsTheEmptyText)
{
    EXPECT_EQ(Run(nullptr), S_OK);
    EXPECT_EQ(server->calls[0].request, "");
}

TEST_F(CATPDMCSServicesTest, ANullHandleIsRefusedBeforeAnythingIsCalled)
{
    asked.Append(CATIPLMIdentificator_var());
    EXPECT_THROW(Run(), CATNullHandle);
    EXPECT_THAT(server->calls, IsEmpty());
}

TEST_F(CATPDMCSServicesTest, AsksForThePartNamesUnlessTheEnvironmentForbidsThem)
{
    EXPECT_EQ(Run(), S_OK);
    EXPECT_TRUE(server->calls[0].withPartName);
    withoutNames = "1";
    EXPECT_EQ(Run(), S_OK);
    EXPECT_FALSE(server->calls[1].withPartName);
}

TEST_F(CATPDMCSServicesTest, AVariableSetToAnEmptyTextForbidsThePartNamesToo)
{
    withoutNames = "";
    EXPECT_EQ(Run(), S_OK);
    EXPECT_FALSE(server->calls[0].withPartName);
}

TEST(CATIPLMIdentificator, TellsItsTextAndItsClass)
{
    const CATIPLMIdentificator_var identificator = Identificator("CAR|front");
    EXPECT_EQ(identificator->Text(), "CAR|front");
    EXPECT_STREQ(identificator->ClassName(), "CATIPLMIdentificator");
}
} // namespace
