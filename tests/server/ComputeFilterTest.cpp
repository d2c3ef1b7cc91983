#include "ComputeTesting.h"

using namespace wb;
using testing::Contains;
using testing::Not;
using wbtest::SmallProduct;

namespace
{
/// R holds A twice; A holds L (1 kg) and B (imposed 20 kg when it says so); B holds M (2 kg) and
/// N (4 kg). All: 2 (1 + 6) = 14 kg.
SmallProduct Nested()
{
    SmallProduct small;
    small.Put("R", "A");
    small.Put("R", "A");
    small.Put("A", "L");
    small.Put("A", "B");
    small.Put("B", "M");
    small.Put("B", "N");
    small.Set("L", "Weighed", {{Fact::Mass, 1}});
    small.Set("M", "Weighed", {{Fact::Mass, 2}});
    small.Set("N", "Weighed", {{Fact::Mass, 4}});
    return small;
}

ComputeOptions Filtered(const std::string& text)
{
    ComputeOptions options;
    EXPECT_EQ(ReadFilterText(text, options.filter), "");
    return options;
}
} // namespace

TEST(ComputeFilter, WithoutLinesEverythingIsIn)
{
    EXPECT_EQ(Nested().Mass(Filtered("0|No Filter")), 14);
}

TEST(ComputeFilter, LineLeavesOutTheNodeOnItsPathAlone)
{
    // N in the first A; its path stands leaf side first.
    EXPECT_EQ(Nested().Mass(Filtered("1|F|X|N.1|N|A|2|B.1|A.1")), 10);
}

TEST(ComputeFilter, LineLeavesOutEverythingBelowItsNode)
{
    EXPECT_EQ(Nested().Mass(Filtered("1|F|X|B.1|B|A|1|A.1")), 8);
    EXPECT_EQ(Nested().Mass(Filtered("1|F|X|A.2|A|A|0")), 7);
}

TEST(ComputeFilter, WithALineThatLetsInTheRestIsOut)
{
    EXPECT_EQ(Nested().Mass(Filtered("1|F|I|B.1|B|A|1|A.2")), 6);
}

TEST(ComputeFilter, LastLineThatMatchesWins)
{
    EXPECT_EQ(Nested().Mass(Filtered("2|F|X|B.1|B|A|1|A.1|I|M.1|M|A|2|B.1|A.1")), 2)
        << "a line lets in, so only that is in";
    EXPECT_EQ(Nested().Mass(Filtered("3|F|I||R|A|0|X|B.1|B|A|1|A.1|I|M.1|M|A|2|B.1|A.1")), 10);
    EXPECT_EQ(Nested().Mass(Filtered("3|F|I||R|A|0|I|M.1|M|A|2|B.1|A.1|X|B.1|B|A|1|A.1")), 8)
        << "a later line above goes before an earlier one below";
}

TEST(ComputeFilter, ImposedValuesCountOnlyWhenEverythingBelowIsIn)
{
    SmallProduct small = Nested();
    small.Set("B", "Weighed", {{Fact::Mass, 20}});
    small.Of("B").activeType = "Weighed";
    EXPECT_EQ(small.Mass(), 42);
    const auto result = small.Compute(Filtered("1|F|X|N.1|N|A|2|B.1|A.1"));
    EXPECT_EQ(result.total.body.mass, 1 + 2 + 1 + 20);
    const std::string warning =
        "the values of B A do not count: the filter leaves out something below it";
    EXPECT_THAT(result.warnings, Contains(warning));
    // Left out and let in again: everything is in.
    const auto whole =
        small.Compute(Filtered("3|F|I||R|A|0|X|N.1|N|A|2|B.1|A.1|I|N.1|N|A|2|B.1|A.1"));
    EXPECT_EQ(whole.total.body.mass, 42);
    EXPECT_THAT(whole.warnings, Not(Contains(warning)));
}

TEST(ComputeFilter, LinesAboveTheAskedNodeCount)
{
    const auto options = Filtered("2|F|X|A.1|A|A|0|X|N.1|N|A|2|B.1|A.2");
    EXPECT_EQ(Nested().Mass(options, {"A.2", "B.1"}), 2);
    const auto out = Nested().Compute(options, {"A.1", "B.1"});
    EXPECT_EQ(out.total.body.mass, 0);
    EXPECT_FALSE(out.total.HasCentre());
    EXPECT_EQ(out.warnings.at(0), "the filter leaves out what is asked");
}

TEST(ComputeFilter, FilterBelongsToTheSumAndNotToANodeAlone)
{
    ComputeOptions options = Filtered("1|F|X|A.1|A|A|0");
    options.asked = ComputeOptions::Asked::Alone;
    EXPECT_EQ(Nested().Mass(options, {"A.1", "L.1"}), 1);
}

TEST(ComputeFilter, LineThatLeadsNowhereIsSaid)
{
    const auto result = Nested().Compute(Filtered("2|F|X|Q.1|Q|A|1|A.1|X|A.1|A|B|0"));
    EXPECT_EQ(result.total.body.mass, 14);
    EXPECT_THAT(result.warnings, Contains("the filter names A.1/Q.1, which is not there"));
    EXPECT_THAT(result.warnings, Contains("the filter names A.1, which is not there"))
        << "A.1 is one of version A";
}

TEST(ComputeFilter, MostPreciseTakesNoClaimThatTheFilterCuts)
{
    SmallProduct small = Nested();
    small.Set("B", "Weighed", {{Fact::Mass, 20}});
    ComputeOptions options = Filtered("1|F|X|N.1|N|A|2|B.1|A.1");
    options.precision = ComputeOptions::Precision::MostPrecise;
    EXPECT_EQ(small.Mass(options), 24);
}

TEST(WBFilter, FieldsAreTakenByCount)
{
    Filter filter;
    EXPECT_EQ(ReadFilterText("2|My filter|I|a.1|A|1|0|X|b.1|B|2|2|p|q", filter), "");
    EXPECT_EQ(filter.name, "My filter");
    ASSERT_EQ(filter.lines.size(), 2U);
    EXPECT_TRUE(filter.lines[0].in);
    EXPECT_FALSE(filter.lines[1].in);
    EXPECT_EQ(filter.lines[1].part, "B");
    EXPECT_EQ(filter.lines[1].version, "2");
    EXPECT_THAT(filter.lines[1].FromRoot(), testing::ElementsAre("q", "p", "b.1"));
}

TEST(WBFilter, BrokenTextIsRefusedWithTheFieldThatIsWrong)
{
    Filter filter;
    EXPECT_EQ(ReadFilterText("x|F", filter),
              "The field filter line count of the filter holds \"x\", expected a count.");
    EXPECT_EQ(ReadFilterText("-1|F", filter),
              "The field filter line count of the filter holds \"-1\", expected a count.");
    EXPECT_EQ(ReadFilterText("1|F|Y|a|A|1|0", filter),
              "The field filter line holds \"Y\", expected I or X.");
    EXPECT_EQ(ReadFilterText("1|F|X|a|A|1|", filter),
              "The field filter path count of the filter holds \"\", expected a count.");
    EXPECT_EQ(ReadFilterText("1|F|X|a|A|1|1", filter), "The filter ends before its last line.");
    EXPECT_TRUE(filter.IsEmpty());
    EXPECT_EQ(filter.name, "");
}
