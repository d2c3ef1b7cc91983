#include "ReportRequest.h"

#include <gtest/gtest.h>

namespace
{
/// The options of "wb report R", with what each test adds.
class ReportRequestOptions : public testing::Test
{
protected:
    ReportRequestOptions() { options.computation.path = "R"; }

    ReportRequest Read()
    {
        std::string problem;
        const auto request = ReadReportRequest(options, problem);
        EXPECT_TRUE(request) << problem;
        return request.value_or(ReportRequest());
    }
    /// The sentence of a refusal.
    std::string Problem()
    {
        std::string problem;
        EXPECT_FALSE(ReadReportRequest(options, problem));
        return problem;
    }
    /// The request's text, as for the product R.
    std::string Text()
    {
        ReportRequest request = Read();
        request.root = "R";
        return RequestText(request);
    }

    ReportCommandOptions options;
};

wb::Filter::Line Place(bool in, const char* instance, const char* part,
                       const std::vector<std::string>& path = {})
{
    return {in, instance, part, "A", path};
}
} // namespace

TEST_F(ReportRequestOptions, EverythingOfTheRootIsAskedFor)
{
    EXPECT_EQ(Text(), "0|0|0|1|*|1|*|1||R||0|0|__null__|Active|0|1|R|0|No Filter|0|");
}

TEST_F(ReportRequestOptions, KindsHaveNumbers)
{
    options.kind = "Distributive";
    EXPECT_EQ(Text(), "1|0|0|1|*|1|*|1||R||0|0|__null__|Active|0|1|R|0|No Filter|0|");
    options.kind = "material-statistics";
    options.statistics = true;
    EXPECT_EQ(Text(), "2|1|0|1|*|1|*|1||R||0|0|__null__|Active|0|1|R|0|No Filter|0|");
}

TEST_F(ReportRequestOptions, ChosenValuesAndPropertiesTakeThePlaceOfAll)
{
    options.values = "centre, DATE,Centre";
    options.properties = {"Vendor", "Peak power", "Vendor"};
    EXPECT_EQ(Text(), "0|0|0|2|Centre|Date|2|Vendor|Peak power|1||R||0|0|__null__|Active|0|1|R|"
                      "0|No Filter|0|");
}

TEST_F(ReportRequestOptions, NoValuesAndNoPropertiesLeaveTheMass)
{
    options.values = "None";
    options.noProperties = true;
    EXPECT_EQ(Text(), "0|0|0|0|0|1||R||0|0|__null__|Active|0|1|R|0|No Filter|0|");
}

TEST_F(ReportRequestOptions, ComputationIsThatOfTheOptions)
{
    options.computation.precision = "Weighed";
    options.computation.deviations = "1.5,2%";
    EXPECT_EQ(Text(), "0|0|0|1|*|1|*|1||R||0|0|__null__|Weighed|0|1|R|0|No Filter|1|0|1.5|2|");
    options.computation.precision = "most-precise";
    options.computation.update = "force";
    options.computation.deviations = "1,0.25kg";
    EXPECT_EQ(Text(), "0|0|0|1|*|1|*|1||R||0|0|__null__|MostPrecise|1|1|R|0|No Filter|1|1|1|0.25|");
    options.computation.precision = "computed";
    options.computation.deviations.reset();
    EXPECT_EQ(Text(), "0|0|0|1|*|1|*|1||R||0|0|__null__|Computed|1|1|R|0|No Filter|0|");
}

TEST_F(ReportRequestOptions, PicksAreNamedFromThemselvesUp)
{
    ReportRequest request = Read();
    request.root = "R";
    request.picked = {Place(true, "p.1", "P"), Place(true, "q.2", "Q", {"b.1", "a.1"})};
    EXPECT_EQ(RequestText(request),
              "0|0|2|p.1|P|A|0|q.2|Q|A|2|b.1|a.1|1|*|1|*|1||R||0|0|__null__|Active|0|1|R|"
              "0|No Filter|0|");
}

TEST_F(ReportRequestOptions, FilterStandsBehindTheRoot)
{
    options.computation.filter = "1|Light|X|p.1|P|A|0";
    EXPECT_EQ(Text(), "0|0|0|1|*|1|*|1||R||0|0|__null__|Active|0|1|R|1|Light|X|p.1|P|A|0|0|");
}

TEST_F(ReportRequestOptions, WhatNobodyCanMeanIsRefused)
{
    options.kind = "summary";
    EXPECT_EQ(Problem(),
              "--kind: expected report, distributive or material-statistics, found \"summary\"");
    options.kind = "report";
    options.values = "Center";
    EXPECT_EQ(Problem(), "--values: expected all, none or some of Centre, Date, Inertia, "
                         "Density, Types, Volume, Materials, Deviations, found \"Center\"");
    options.values.reset();
    options.computation.update = "assume:1";
    EXPECT_EQ(Problem(), "--update: expected check or force, found \"assume:1\"");
    options.computation.update = "check";
    options.computation.precision = "";
    EXPECT_EQ(Problem(), "--precision: expected active, most-precise or a mass type, found \"\"");
}

TEST_F(ReportRequestOptions, OptionsThatTheKindHasNoUseForAreRefused)
{
    options.statistics = true;
    EXPECT_EQ(Problem(),
              "--statistics: expected --kind material-statistics beside it, found report");
    options.kind = "material-statistics";
    options.values = "all";
    EXPECT_EQ(Problem(), "--values: expected --kind report or distributive beside it, found "
                         "material-statistics, which holds masses alone");
    options.values.reset();
    options.properties = {"Vendor"};
    EXPECT_EQ(Problem(), "--property: expected --kind report or distributive beside it, found "
                         "material-statistics, which holds masses alone");
    options.properties.clear();
    options.noProperties = true;
    EXPECT_EQ(Problem(), "--no-properties: expected --kind report or distributive beside it, found "
                         "material-statistics, which holds masses alone");
}

TEST_F(ReportRequestOptions, StoredFilterStandsAlone)
{
    options.storedFilter = true;
    EXPECT_EQ(Read().computation.compute.filter.lines.size(), 0U);
    constexpr const char* kProblem = "--stored-filter beside --filter, --include or --exclude: "
                                     "expected one way to name a filter";
    options.computation.included = {"R/a"};
    EXPECT_EQ(Problem(), kProblem);
    options.computation.included.clear();
    options.computation.excluded = {"R/a"};
    EXPECT_EQ(Problem(), kProblem);
    options.computation.excluded.clear();
    options.computation.filter = "0|No Filter";
    EXPECT_EQ(Problem(), kProblem);
}

TEST(PropertyProblem, NamesTheNearest)
{
    EXPECT_EQ(PropertyProblem({"Vendor"}, {"Location", "Vendor"}), "");
    EXPECT_EQ(PropertyProblem({"Vendor", "vendr"}, {"Location", "Vendor"}),
              "--property: \"vendr\" is no property of the database, expected one of Vendor, "
              "Location");
    EXPECT_EQ(PropertyProblem({"Vendor"}, {}),
              "--property: \"Vendor\" is no property of the database, which has none");
}

TEST(FilterText, ReadsBackAsItWas)
{
    EXPECT_EQ(FilterText({}), "0|No Filter");
    const wb::Filter filter{"Two lines",
                            {Place(true, "", "R"), Place(false, "q.2", "Q", {"b.1", "a.1"})}};
    const std::string text = FilterText(filter);
    EXPECT_EQ(text, "2|Two lines|I||R|A|0|X|q.2|Q|A|2|b.1|a.1");
    wb::Filter read;
    EXPECT_EQ(wb::ReadFilterText(text, read), "");
    EXPECT_EQ(FilterText(read), text);
}
