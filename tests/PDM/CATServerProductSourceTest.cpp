#include "CATNavigator.h"

#include "CATNumberLocale.h"
#include "FakeServer.h"

#include <gmock/gmock.h>

#include <array>
#include <cmath>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
/// The end of a use that stands where its parent stands.
constexpr const char* kUnmoved = "1|0|0|0|1|0|0|0|1|0|0|0|";

struct CATServerProductSourceTest : ServerTest
{
    CATServerProductSourceTest()
    {
        CATNavigator::ReportProblemsTo(
            [this](const CATUnicodeString& sentence) { told.push_back(sentence.ToStdString()); });
    }
    ~CATServerProductSourceTest() override { CATNavigator::ReportProblemsTo({}); }

    /// The answer gives no rows, and this is what the user and the developers read.
    void ExpectProblem(const std::string& answer, const std::string& sentence)
    {
        told.clear();
        errors.clear();
        server->answer = answer;
        EXPECT_THAT(source->Uses("AXLE", "B"), IsEmpty()) << answer;
        EXPECT_THAT(told, ElementsAre(sentence)) << answer;
        EXPECT_FALSE(errors.empty());
        EXPECT_EQ(errors.empty() ? "" : errors.back(), sentence) << answer;
    }

    std::shared_ptr<CATProductSource> source = CATNavigator::ServerSource();
    std::vector<std::string> told;
};

TEST_F(CATServerProductSourceTest, ListsTheServersRoots)
{
    server->answer = "2|CAR|A|Small car|product|PLATE|B|__null__|part|";
    const std::vector<CATProductRow> roots = source->Roots();
    EXPECT_EQ(server->calls.at(0).method, "WBListRoots");
    EXPECT_EQ(server->calls.at(0).request, "");
    ASSERT_EQ(roots.size(), 2U);
    EXPECT_EQ(roots[0].part, "CAR");
    EXPECT_EQ(roots[0].instance, "CAR");
    EXPECT_EQ(roots[0].version, "A");
    EXPECT_EQ(roots[0].name, "Small car");
    EXPECT_EQ(roots[0].type, "product");
    EXPECT_EQ(roots[0].quantity, 1);
    EXPECT_TRUE(roots[0].hasUses);
    EXPECT_EQ(roots[0].placement, CATMathTransformation());
    EXPECT_EQ(roots[1].part, "PLATE");
    EXPECT_EQ(roots[1].version, "B");
    EXPECT_EQ(roots[1].name, "");
    EXPECT_EQ(roots[1].type, "part");
    EXPECT_TRUE(roots[1].hasUses); // the list does not say, so a user may look
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(CATServerProductSourceTest, ListsTheUsesOfAPartAndVersion)
{
    server->answer = std::string("2|left|WHEEL|A|Wheel|part|1|0|") + kUnmoved +
                     "beam|BEAM|C|Beam|assembly|4|1|" + kUnmoved;
    const std::vector<CATProductRow> uses = source->Uses("AXLE", "B");
    EXPECT_EQ(server->calls.at(0).method, "WBListUses");
    EXPECT_EQ(server->calls.at(0).request, "AXLE|B|");
    ASSERT_EQ(uses.size(), 2U);
    EXPECT_EQ(uses[0].instance, "left");
    EXPECT_FALSE(uses[0].hasUses);
    EXPECT_EQ(uses[1].instance, "beam");
    EXPECT_EQ(uses[1].part, "BEAM");
    EXPECT_EQ(uses[1].version, "C");
    EXPECT_EQ(uses[1].name, "Beam");
    EXPECT_EQ(uses[1].type, "assembly");
    EXPECT_EQ(uses[1].quantity, 4);
    EXPECT_TRUE(uses[1].hasUses);
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(CATServerProductSourceTest, ReadsTheImagesOfTheAxesAndThenTheShiftWhateverTheLocale)
{
    ASSERT_TRUE(CATUseNumberLocale("de_DE.UTF-8"));
    // Turned by 30 degrees about z: x goes to (cos 30, sin 30, 0), y to (-sin 30, cos 30, 0).
    server->answer = "1|left|WHEEL|A|Wheel|part|1|0|"
                     "0.8660254037844386|0.5|0|-0.5|0.8660254037844386|0|0|0|1|100.25|-2e1|7|";
    const std::vector<CATProductRow> uses = source->Uses("AXLE", "B");
    ASSERT_TRUE(CATUseNumberLocale("C.UTF-8"));
    ASSERT_EQ(uses.size(), 1U);
    // The point one ahead on the part's x axis, and the one on its y axis.
    const double c = std::sqrt(3.0) / 2.0;
    const CATMathPoint onX = uses[0].placement.Apply({1, 0, 0});
    EXPECT_NEAR(onX.GetX(), 100.25 + c, 1e-12);
    EXPECT_NEAR(onX.GetY(), -20 + 0.5, 1e-12);
    EXPECT_NEAR(onX.GetZ(), 7, 1e-12);
    const CATMathPoint onY = uses[0].placement.Apply({0, 1, 0});
    EXPECT_NEAR(onY.GetX(), 100.25 - 0.5, 1e-12);
    EXPECT_NEAR(onY.GetY(), -20 + c, 1e-12);
}

TEST_F(CATServerProductSourceTest, NoRowsAreNoProblem)
{
    server->answer = "0|";
    EXPECT_THAT(source->Roots(), IsEmpty());
    EXPECT_THAT(source->Uses("AXLE", "B"), IsEmpty());
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(CATServerProductSourceTest, ACallThatCouldNotBeMadeIsTold)
{
    ExpectProblem("", "The products could not be read: the server did not answer.");
}

TEST_F(CATServerProductSourceTest, TheServersErrorIsToldWithoutItsMarker)
{
    ExpectProblem("#WB_ERROR#No part AXLE.", "The products could not be read: No part AXLE.");
}

TEST_F(CATServerProductSourceTest, AMarkerInsideTheRowsIsPartOfARow)
{
    server->answer = std::string("1|#WB_ERROR#|WHEEL|A|Wheel|part|1|0|") + kUnmoved;
    EXPECT_EQ(source->Uses("AXLE", "B").size(), 1U);
}

TEST_F(CATServerProductSourceTest, ACancelledCallIsTold)
{
    server->onCall = [](CATServerCallState& state) {
        state.cancelled = true;
    };
    ExpectProblem("0|", "The products could not be read: The call was cancelled.");
}

TEST_F(CATServerProductSourceTest, AnAnswerThatCannotBeReadGivesNoRowsAndSaysWhere)
{
    const std::string before = "The products could not be read: field ";
    const std::string row = std::string("left|WHEEL|A|Wheel|part|1|0|") + kUnmoved;
    ExpectProblem("nonsense|", before + "1 of the server's answer should be a count.");
    ExpectProblem("-1|", before + "1 of the server's answer should be a count.");
    // Each use has 19 fields: with a count of 2, field 21 is the second one's name.
    ExpectProblem("2|" + row, before + "21 of the server's answer should be there.");
    ExpectProblem("2000000000|" + row, before + "21 of the server's answer should be there.");
    ExpectProblem("0|" + row, before + "2 of the server's answer should be the end.");
    ExpectProblem("1|left|WHEEL|A|Wheel|part|0|0|",
                  before + "7 of the server's answer should be a number of pieces.");
    ExpectProblem("1|left|WHEEL|A|Wheel|part|1|yes|",
                  before + "8 of the server's answer should be 0 or 1.");
    ExpectProblem("1|left|WHEEL|A|Wheel|part|1|0|1,5|",
                  before + "9 of the server's answer should be a number.");
}

TEST_F(CATServerProductSourceTest, ReadsNoAnswerThatIsCutAnywhere)
{
    const std::string whole = std::string("1|left|WHEEL|A|Wheel|part|1|0|") + kUnmoved;
    for (std::size_t length = 1; length < whole.size(); ++length) {
        told.clear();
        server->answer = whole.substr(0, length);
        EXPECT_THAT(source->Uses("AXLE", "B"), IsEmpty()) << server->answer;
        EXPECT_EQ(told.size(), 1U) << server->answer;
    }
}

TEST_F(CATServerProductSourceTest, WithoutAListenerTheDiagnosticsStillTell)
{
    CATNavigator::ReportProblemsTo({});
    server->answer = "#WB_ERROR#Out of order.";
    EXPECT_THAT(source->Roots(), IsEmpty());
    EXPECT_THAT(told, IsEmpty());
    EXPECT_THAT(errors, ElementsAre("The products could not be read: Out of order."));
}
} // namespace
