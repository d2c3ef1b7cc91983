#include "WBReportOpening.h"

#include "PanelSession.h"

#include "CATApplicationFrame.h"
#include "CATEnvironment.h"
#include "CATSession.h"

#include <optional>
#include <stdexcept>
#include <string_view>

namespace
{

class WBReportOpeningTest : public PanelSession
{
protected:
    CATUnicodeString problem;
};

CATUnicodeString AttributeOf(const CATIDOMDocument_var& document, const char* tag,
                             const char* attribute)
{
    CATUnicodeString value = "(none)";
    document->ElementsByTagName(tag)->Item(0)->AsElement()->GetAttribute(attribute, value);
    return value;
}

constexpr const char* kReport =
    R"(<WB_Report><PRC PRC_ID="LA1" WB_Mass="2" COGx="254" COGy="0" COGz="0">)"
    R"(<PartInstance Name="A" WB_Mass="2" Cut_Volume="2"/><MaterialStat Mass="2"/></PRC></WB_Report>)";

} // namespace

TEST_F(WBReportOpeningTest, ReportIsReadFromTheAnswer)
{
    const CATIDOMDocument_var document = WBReadReport(kReport, problem);
    ASSERT_FALSE(document.IsNull());
    EXPECT_EQ(AttributeOf(document, "PRC", "PRC_ID"), "LA1");
    EXPECT_EQ(problem, "");
}

TEST_F(WBReportOpeningTest, TextThatIsNoXmlIsToldWithItsPlace)
{
    const CATIDOMDocument_var document = WBReadReport("<WB_Report>\n  <PRC></WB_Report>", problem);
    EXPECT_TRUE(document.IsNull());
    EXPECT_THAT(problem.ToStdString(), testing::HasSubstr("line 2"));
    EXPECT_THAT(problem.ToStdString(), testing::HasSubstr("column"));
}

TEST_F(WBReportOpeningTest, AnswerWithoutAProductIsNoReport)
{
    EXPECT_TRUE(WBReadReport("<WB_Report/>", problem).IsNull());
    EXPECT_EQ(problem, "It holds no product.");
}

TEST_F(WBReportOpeningTest, ReportsComeIntoTheUsersUnits)
{
    ShowIn("MASS", "g");
    ShowIn("LENGTH", "in");
    ShowIn("VOLUME", "L");
    CATIDOMDocument_var report = WBReadReport(kReport, problem);
    WBTreatReport(report, WBReportKind::Report, {});
    EXPECT_EQ(AttributeOf(report, "PRC", "WB_Mass"), "2000");
    EXPECT_EQ(AttributeOf(report, "PRC", "COGx"), "10");
    EXPECT_EQ(AttributeOf(report, "PartInstance", "Cut_Volume"), "2");
    EXPECT_EQ(AttributeOf(report, "WB_Report", "MassUnit"), "g");
    CATIDOMDocument_var distributive = WBReadReport(kReport, problem);
    WBTreatReport(distributive, WBReportKind::Distributive, {});
    EXPECT_EQ(AttributeOf(distributive, "PartInstance", "Cut_Volume"), "2000");
}

TEST_F(WBReportOpeningTest, MaterialStatisticsStayAsTheyCame)
{
    ShowIn("MASS", "g");
    CATIDOMDocument_var statistics = WBReadReport(kReport, problem);
    WBTreatReport(statistics, WBReportKind::MaterialStatistics,
                  {.reference = CATMathPoint(54, 0, 0)});
    EXPECT_EQ(AttributeOf(statistics, "PRC", "WB_Mass"), "2");
    EXPECT_EQ(AttributeOf(statistics, "PRC", "COGx"), "254");
    EXPECT_EQ(AttributeOf(statistics, "MaterialStat", "Mass"), "2");
    EXPECT_EQ(AttributeOf(statistics, "WB_Report", "MassUnit"), "(none)");
}

TEST_F(WBReportOpeningTest, PlacingReachesTheReportAndUnknownStaysUnknown)
{
    CATIDOMDocument_var report = WBReadReport(kReport, problem);
    // The x axis goes to y, and the point (54, 0, 0) to (0, 54, 0).
    WBTreatReport(report, WBReportKind::Report,
                  {.axes = CATMath3x3Matrix(0, -1, 0, 1, 0, 0, 0, 0, 1),
                   .reference = CATMathPoint(54, 0, 0)});
    EXPECT_EQ(AttributeOf(report, "PRC", "COGx"), "0");
    EXPECT_EQ(AttributeOf(report, "PRC", "COGy"), "200");
    EXPECT_EQ(AttributeOf(report, "PRC", "MOIxx"), "(none)");
    EXPECT_EQ(AttributeOf(report, "PartInstance", "COGx"), "(none)");
}

TEST_F(WBReportOpeningTest, InertiaStaysWhereItIsWhenAsked)
{
    const std::string text =
        R"(<WB_Report><PRC WB_Mass="2" COGx="100" COGy="0" COGz="0" MOIxx="1" MOIyy="2" MOIzz="3" )"
        R"(POIxy="0" POIxz="0" POIyz="0"/></WB_Report>)";
    CATIDOMDocument_var moved = WBReadReport(text, problem);
    WBTreatReport(moved, WBReportKind::Report, {.reference = CATMathPoint()});
    EXPECT_EQ(AttributeOf(moved, "PRC", "MOIyy"), "2.02"); // 2 kg at 0.1 m
    CATIDOMDocument_var kept = WBReadReport(text, problem);
    WBTreatReport(kept, WBReportKind::Report,
                  {.reference = CATMathPoint(), .keepsInertiaAtCentre = true});
    EXPECT_EQ(AttributeOf(kept, "PRC", "MOIyy"), "2");
}

TEST_F(WBReportOpeningTest, PreviewThatCannotBeBuiltGoes)
{
    auto* const window = new CATDlgDialog(&CATSession::Root(), "Main", 0x4001); // the root owns it
    const CATApplicationFrame frame(window);
    const int windows = window->ChildCount();
    // It asks the environment what its columns are.
    CATSetEnvironmentSource([](const char* name) -> std::optional<std::string> {
        if (std::string_view(name) == "ODT_KR4_REPORT_NO_DATE") {
            throw std::runtime_error("no environment");
        }
        return std::nullopt;
    });
    const CATIDOMDocument_var report = WBReadReport(kReport, problem);
    EXPECT_THROW(WBOpenPreview(WBReportKind::Report, "LA1", report, 0), std::runtime_error);
    CATSetEnvironmentSource({});
    EXPECT_EQ(window->ChildCount(), windows + 1);
    CATSession::RunDelayedDestructions();
    EXPECT_EQ(window->ChildCount(), windows);
    CATRequestDelayedDestruction(window);
    CATSession::RunDelayedDestructions();
}
