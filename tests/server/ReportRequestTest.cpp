#include "ReportFacts.h"
#include "ReportTesting.h"
#include "Request.h"

#include <algorithm>
#include <atomic>

using namespace wb;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using wbtest::AllPaths;
using wbtest::Asked;
using wbtest::AttributeNames;
using wbtest::Below;
using wbtest::ContextOf;
using wbtest::kRich;
using wbtest::kTwice;
using wbtest::ReadReport;
using wbtest::Report;
using wbtest::ServedProduct;
using wbtest::TimeZone;
using wbtest::Value;

TEST(ReportRequest, NothingIsWrittenThatWasNotAskedFor)
{
    ServedProduct served;
    served.ImportTable(kRich);
    Asked asked;
    asked.values = "0";
    asked.properties = "0";
    const ReadReport report(served, asked);
    EXPECT_THAT(AttributeNames(report.Prc()),
                ElementsAre("PRC_ID", "Name", "Version", "WB_Mass", "WB_Status"));
    EXPECT_THAT(AttributeNames(report.Prc().child("WB_Section")), ElementsAre("Name", "WB_Mass"));
    EXPECT_THAT(AttributeNames(report.At("A/S.1/P.1")),
                ElementsAre("instIdAttrAlias", "Part_ID", "Instance_ID", "Name", "Version",
                            "Quantity", "WB_Mass", "Unit_mass", "__magnitude__Unit_mass", "Code",
                            "WB_Status", "InstancePath"));
}

namespace
{
struct ValueCase
{
    const char* name;
    std::vector<std::string> leaf; // attributes that it adds there
};
class EachValue : public testing::TestWithParam<ValueCase>
{};
} // namespace

TEST_P(EachValue, AddsItsAttributes)
{
    ServedProduct served;
    served.ImportTable(kRich);
    Asked asked;
    asked.values = "0";
    asked.properties = "0";
    const ReadReport without(served, asked);
    asked.values = std::string("1|") + GetParam().name;
    const ReadReport with(served, asked);
    std::vector<std::string> added = AttributeNames(with.At("A/S.1/P.1"));
    for (const std::string& name : AttributeNames(without.At("A/S.1/P.1"))) {
        std::erase(added, name);
    }
    EXPECT_EQ(added, GetParam().leaf);
}

INSTANTIATE_TEST_SUITE_P(
    All, EachValue,
    testing::Values(ValueCase{"Deviations", {"WB_Lower_deviation", "WB_Upper_deviation"}},
                    ValueCase{"Centre", {"COGx", "COGy", "COGz"}},
                    ValueCase{"Inertia", {"MOIxx", "MOIyy", "MOIzz", "POIxy", "POIxz", "POIyz"}},
                    ValueCase{"Density", {"WB_Density"}},
                    ValueCase{"Materials",
                              {"Material", "Density", "Density_dimension", "WB_Mass_Details"}},
                    ValueCase{"Volume", {"Cut_Volume"}},
                    ValueCase{"Types",
                              {"Source", "WBActiveMassTypeID", "WBLastImposedMassTypeID",
                               "WBActiveDocumentID"}},
                    ValueCase{"Date", {"WB_Last_calculation_date"}}),
    [](const auto& test) { return std::string(test.param.name); });

TEST(ReportRequest, PickedInstancesStandBelowTheRootInTheOrderOfThePicks)
{
    ServedProduct served;
    served.ImportTable(kTwice);
    Asked asked;
    asked.picks = "2|B.2|B|A|1|S.2|S.1|S|A|0";
    const ReadReport report(served, asked);
    EXPECT_THAT(Below(report.Prc(), "PartInstance", "InstancePath"),
                ElementsAre("A/S.2/B.2", "A/S.1"));
    EXPECT_THAT(AllPaths(report), ElementsAre("A/S.2/B.2", "A/S.1", "A/S.1/B.1", "A/S.1/B.2"));
    EXPECT_EQ(Value(report.Prc(), "WB_Mass"), "4") << "the whole root";
    EXPECT_EQ(Value(report.Prc().child("WB_Section"), "WB_Mass"), "4");
}

TEST(ReportRequest, PickInsideAnotherOneAndPickedTwiceCountOnce)
{
    ServedProduct served;
    served.ImportTable(kTwice);
    for (const char* kind : {"0", "1"}) {
        Asked asked;
        asked.kind = kind;
        asked.picks = "4|B.2|B|A|1|S.2|S.2|S|A|0|S.2|S|A|0|B.1|B|A|1|S.1";
        const ReadReport report(served, asked);
        EXPECT_THAT(AllPaths(report), ElementsAre("A/S.2", "A/S.2/B.1", "A/S.2/B.2", "A/S.1/B.1"));
    }
}

TEST(ReportRequest, PickedRootIsEverything)
{
    ServedProduct served;
    served.ImportTable(kTwice);
    Asked asked;
    asked.picks = "2|S.2|S|A|0||A|A|0";
    EXPECT_EQ(Report(served, asked), Report(served, {}));
}

TEST(ReportRequest, PicksCountInMaterialStatisticsToo)
{
    ServedProduct served;
    served.ImportTable(kTwice);
    Asked asked;
    asked.kind = "2";
    asked.ofInstances = "1";
    asked.picks = "1|B.1|B|A|1|S.2";
    const ReadReport report(served, asked);
    EXPECT_THAT(Below(report.Prc(), "PartInstance", "Instance_ID"), ElementsAre("B.1"));
    EXPECT_EQ(std::string(report.Prc()
                              .child("PartInstance")
                              .child("MaterialStat")
                              .attribute("InstancePath")
                              .value()),
              "A/S.2/B.1");
}

TEST(ReportRequest, PickedPartOfSeveralPiecesHasAllOfThem)
{
    ServedProduct served;
    served.ImportTable(kRich);
    Asked asked;
    asked.picks = "1|P.1|P|A|1|S.1";
    EXPECT_THAT(Report(served, asked),
                testing::AnyOf(HasSubstr("Quantity=\"4\" WB_Mass=\"16\" Unit_mass=\"4\"")));
}

TEST(ReportRequest, WhatTheFilterLeavesOutIsNotThere)
{
    ServedProduct served;
    served.ImportTable(kTwice);
    Asked asked;
    asked.filter = "2|Front <1>|X|B.1|B|A|1|S.1|X|S.2|S|A|0";
    const ReadReport report(served, asked);
    EXPECT_THAT(AllPaths(report), ElementsAre("A/S.1", "A/S.1/B.2"));
    EXPECT_EQ(Value(report.Root(), "Filter"), "Front <1>");
    EXPECT_EQ(Value(report.Prc(), "WB_Mass"), "1");
    EXPECT_EQ(Value(report.At("A/S.1"), "WB_Mass"), "1");
    asked.picks = "2|S.2|S|A|0|B.2|B|A|1|S.1";
    EXPECT_THAT(AllPaths(ReadReport(served, asked)), ElementsAre("A/S.1/B.2"));
    asked.filter = "1|None|X||A|A|0";
    const ReadReport nothing(served, asked);
    EXPECT_THAT(AllPaths(nothing), IsEmpty());
    EXPECT_EQ(Value(nothing.Prc(), "WB_Mass"), "0");
}

TEST(ReportRequest, DefinedPrecisionTakesThePlaceOfTheRootsDeviations)
{
    ServedProduct served;
    served.ImportTable(kRich);
    Asked asked;
    asked.values = "1|Deviations";
    asked.defined = "1|0|10|25";
    const ReadReport report(served, asked);
    EXPECT_EQ(Value(report.Prc(), "WB_Lower_deviation"), "1.6");
    EXPECT_EQ(Value(report.Prc(), "WB_Upper_deviation"), "4");
    EXPECT_EQ(Value(report.Prc().child("WB_Section"), "WB_Lower_deviation"), "2");
    EXPECT_EQ(Value(report.At("A/S.1"), "WB_Lower_deviation"), "2");
}

TEST(ReportRequest, WarningsAreThoseOfTheComputationOfTheRoot)
{
    ServedProduct served;
    served.ImportTable(
        "parent,instance,part,mass_type,mass [kg]\n,,A,,\nA,1,P,Weighed,1\nA,2,N,,\n");
    Report(served, {});
    const std::string warnings = served.Server().Call("WBWarningMsg", "", ContextOf("kim"));
    EXPECT_THAT(warnings, HasSubstr("- 1 of 2 items has no mass; the total leaves it out"));
    served.Server().Call("WBComputeVPMValues", "0||||0|0||Active|0|1|A|0|No Filter|0|",
                         ContextOf("kim"));
    EXPECT_EQ(served.Server().Call("WBWarningMsg", "", ContextOf("kim")), warnings);
}

TEST(ReportRequest, RequestThatFailsLeavesNoWarningsOfAnotherOne)
{
    ServedProduct served;
    served.ImportTable(kTwice);
    Report(served, {});
    Asked asked;
    asked.picks = "1|B.9|B|A|1|S.1";
    Report(served, asked);
    EXPECT_EQ(served.Server().Call("WBWarningMsg", "", ContextOf("kim")), "");
}

TEST(ReportRequest, AssumeAndForceAnswerLikeCheck)
{
    ServedProduct served;
    served.ImportTable(kTwice);
    const std::string expected = Report(served, {});
    Asked asked;
    asked.policy = "1";
    EXPECT_EQ(Report(served, asked), expected);
    asked.policy = "2|0";
    EXPECT_EQ(Report(served, asked), expected);
}

TEST(ReportRequest, AssumedReportShowsNothingStale)
{
    ServedProduct served;
    served.ImportTable(kTwice);
    Report(served, {});
    served.ImportTable("part,mass_type,mass [kg]\nB,Weighed,10\n");
    Asked asked;
    asked.policy = "2|0";
    EXPECT_EQ(Value(ReadReport(served, asked).Prc(), "WB_Mass"), "40");
    asked.values = "1|Deviations";
    asked.defined = "1|0|10|25";
    EXPECT_EQ(Value(ReadReport(served, asked).Prc(), "WB_Lower_deviation"), "4");
}

TEST(ReportRequest, TimeIsThatOfTheServersPlace)
{
    ServedProduct served;
    served.ImportTable("part\nA\n");
    Asked asked;
    asked.values = "1|Date";
    const TimeZone zone("EST5");
    const ReadReport report(served, asked);
    EXPECT_EQ(Value(report.Root(), "Created"), "2026/11/21 10:04:05");
    EXPECT_EQ(Value(report.Prc(), "WB_Last_calculation_date"), "2026/11/21 10:04:05");
}

TEST(ReportRequest, WithoutAClockTheTimeIsTheSystems)
{
    const TimeZone zone("UTC0");
    ServedProduct served;
    served.ImportTable("part\nA\n");
    const auto minute = [](std::time_t time) {
        std::tm parts{};
        gmtime_r(&time, &parts);
        std::array<char, 32> text{};
        const std::size_t length =
            std::strftime(text.data(), text.size(), "%Y/%m/%d %H:%M", &parts);
        return std::string(text.data(), length);
    };
    const std::time_t before = std::time(nullptr);
    const std::string text = served.Call("WBMakeReport", Asked().Text());
    EXPECT_THAT(text, testing::AnyOf(HasSubstr("Created=\"" + minute(before)),
                                     HasSubstr("Created=\"" + minute(std::time(nullptr)))));
    EXPECT_THAT(text, testing::Not(HasSubstr("User=")));
}

TEST(ReportRequest, CancelEndsItAndProgressRises)
{
    ServedProduct served;
    std::string table = "parent,instance,part,mass_type,mass [kg]\n,,A,,\nA,1,P,Weighed,1\n";
    for (int i = 2; i < 3000; ++i) {
        table += "A," + std::to_string(i) + ",P,,\n";
    }
    served.ImportTable(table);
    CallContext context = ContextOf("kim");
    std::atomic<bool> cancel = false;
    std::vector<double> shares;
    std::string last;
    context.cancel = &cancel;
    context.progress = [&](double share, std::string_view what) {
        shares.push_back(share);
        last = what;
    };
    const std::string whole = served.Server().Call("WBMakeReport", Asked().Text(), context);
    EXPECT_THAT(whole, testing::EndsWith("</WB_Report>"));
    EXPECT_TRUE(std::ranges::is_sorted(shares));
    EXPECT_GT(shares.back(), 0.8);
    EXPECT_LE(shares.back(), 1.0);
    EXPECT_EQ(last, "writing the report");
    context.progress = [&](double, std::string_view what) {
        cancel = cancel || what == "writing the report";
    };
    EXPECT_EQ(served.Server().Call("WBMakeReport", Asked().Text(), context),
              "#WB_ERROR#The computation was cancelled.");
    cancel = false;
    EXPECT_EQ(served.Server().Call("WBMakeReport", Asked().Text(), context).substr(0, 10),
              "#WB_ERROR#");
}

TEST(ReportRequest, CancelEndsTheReadingOfTexts)
{
    ServedProduct served;
    served.ImportTable(kTwice);
    ResidentProducts products(served.Store());
    const ResidentProduct& product =
        products.Of(served.Store().FindRoot("A").value().id, false, 0, {});
    EXPECT_NO_THROW(ReportFacts(served.Store(), product, {}, false, {}));
    std::atomic<bool> cancel = true;
    CallContext context;
    context.cancel = &cancel;
    EXPECT_THROW(ReportFacts(served.Store(), product, {}, false, context), RequestError);
}

TEST(ReportRequest, EveryInstanceOfVeryManyPartsIsItsOwn)
{
    constexpr int kParts = 20'100;
    ServedProduct served;
    std::string table = "parent,instance,part,mass_type,mass [kg]\n,,A,,\n";
    for (int i = 1; i <= kParts; ++i) {
        const std::string number = std::to_string(i);
        table += "A," + number + ",P" + number + ",Weighed," + number + "\n";
    }
    served.ImportTable(table);
    const ReadReport report(served, {});
    int count = 0;
    for (const auto& instance : report.Prc().children("PartInstance")) {
        const std::string number = std::to_string(++count);
        ASSERT_EQ(Value(instance, "Instance_ID"), number);
        ASSERT_EQ(Value(instance, "Part_ID"), "P" + number);
        ASSERT_EQ(Value(instance, "WB_Mass"), number);
    }
    EXPECT_EQ(count, kParts);
}

TEST(ReportRequest, ReportOfMoreInstancesThanAReaderCanTakeIsRefused)
{
    ServedProduct served;
    std::string table = "parent,instance,part\n,,A\n";
    const std::string letters = "ABCDEFGHI"; // each ten times in the one before: 10^8 of the last
    for (std::size_t level = 1; level < letters.size(); ++level) {
        for (int i = 0; i < 10; ++i) {
            table += std::string(1, letters[level - 1]) + "," + std::to_string(i) + "," +
                     letters[level] + "\n";
        }
    }
    served.ImportTable(table);
    Asked asked;
    asked.kind = "2";
    EXPECT_THAT(Report(served, asked), testing::EndsWith("</WB_Report>"));
    asked.ofInstances = "1";
    EXPECT_EQ(Report(served, asked),
              "#WB_ERROR#The report would hold 111111110 instances, more than the 10000000 that a "
              "reader can take: pick some of them.");
}

namespace
{
struct WrongRequest
{
    const char* name;
    const char* request;
    const char* sentence;
};
class WrongReport : public testing::TestWithParam<WrongRequest>
{};
} // namespace

TEST_P(WrongReport, IsAnsweredWithTheField)
{
    ServedProduct served;
    served.ImportTable(kTwice);
    EXPECT_EQ(served.Call("WBMakeReport", GetParam().request),
              std::string("#WB_ERROR#") + GetParam().sentence);
    EXPECT_THAT(Report(served, {}), testing::EndsWith("</WB_Report>")) << "the next call works";
}

INSTANTIATE_TEST_SUITE_P(
    All, WrongReport,
    testing::Values(
        WrongRequest{"Nothing", "", "The field kind of the request is missing."},
        WrongRequest{"Kind", "3|0|0|0|0|",
                     "The field kind of the request holds \"3\", expected a whole number from 0 to "
                     "2."},
        WrongRequest{"KindText", "report|",
                     "The field kind of the request holds \"report\", expected a whole number from "
                     "0."},
        WrongRequest{"Statistics", "0|yes|",
                     "The field statistics of part instances of the request holds \"yes\", "
                     "expected 0 or 1."},
        WrongRequest{"PickCount", "0|0|-1|",
                     "The field pick count of the request holds \"-1\", expected a whole number "
                     "from 0."},
        WrongRequest{"PickMissing", "0|0|1|S.1|S|A|",
                     "The field path count of the request is missing."},
        WrongRequest{"PickTooDeep", "0|0|1|S.1|S|A|10001|",
                     "The field path count of the request holds \"10001\", expected a whole number "
                     "from 0 to 10000."},
        WrongRequest{"Instance", "0|0|1|B.9|B|A|1|S.1|0|0|0||||0|0||Active|0|1|A|0|No Filter|0|",
                     "The field instance of the request names \"B.9\", which the database does not "
                     "hold there."},
        WrongRequest{"Path", "0|0|1|B.1|B|A|1|S.9|0|0|0||||0|0||Active|0|1|A|0|No Filter|0|",
                     "The field path of the request names \"S.9\", which the database does not "
                     "hold there."},
        WrongRequest{"InstanceEmpty", "0|0|1||S|A|1|S.1|0|0|0||||0|0||Active|0|1|A|0|No Filter|0|",
                     "The field instance of the request names \"\", which the database does not "
                     "hold there."},
        WrongRequest{"Part", "0|0|1|B.1|C|A|1|S.1|0|0|0||||0|0||Active|0|1|A|0|No Filter|0|",
                     "The field part of the request names \"C\", but the instance is one of "
                     "\"B\"."},
        WrongRequest{"Version", "0|0|1|B.1|B|B|1|S.1|0|0|0||||0|0||Active|0|1|A|0|No Filter|0|",
                     "The field version of the request names \"B\", but the instance is one of "
                     "\"A\"."},
        WrongRequest{"Value", "0|0|0|2|Centre|Colour|0|",
                     "The field value of the request holds \"Colour\", expected one of Deviations, "
                     "Centre, Inertia, Density, Materials, Volume, Types, Date, or \"*\" alone."},
        WrongRequest{"AllNotAlone", "0|0|0|2|*|Centre|0|",
                     "The field value of the request holds \"*\", expected one of Deviations, "
                     "Centre, Inertia, Density, Materials, Volume, Types, Date, or \"*\" alone."},
        WrongRequest{"ValueCount", "0|0|0|many|",
                     "The field value count of the request holds \"many\", expected a whole number "
                     "from 0."},
        WrongRequest{"PropertyCount", "0|0|0|0|10001|",
                     "The field property count of the request holds \"10001\", expected a whole "
                     "number from 0 to 10000."},
        WrongRequest{"Property", "0|0|0|0|1|Vendor|0||||0|0||Active|0|1|A|0|No Filter|0|",
                     "The field property of the request names \"Vendor\", which is no property of "
                     "the database."},
        WrongRequest{"Computation", "0|0|0|0|0|",
                     "The field has-instance of the request is missing."},
        WrongRequest{"Entity", "0|0|0|0|0|0||||0|0||Active|0|0|A|0|No Filter|0|",
                     "The field entity of the request holds \"0\", expected 1, the root."},
        WrongRequest{"Root", "0|0|0|0|0|0||||0|0||Active|0|1|B|0|No Filter|0|",
                     "The field root of the request names \"B\", which is no product root of the "
                     "database."},
        WrongRequest{"Precision", "0|0|0|0|0|0||||0|0||Guessed|0|1|A|0|No Filter|0|",
                     "The field precision of the request names \"Guessed\", which is no mass type "
                     "of the database."}),
    [](const auto& test) { return std::string(test.param.name); });
