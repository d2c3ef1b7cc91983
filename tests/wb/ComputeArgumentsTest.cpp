#include "ComputeArguments.h"

#include "CATENOWBCSCommonDefinitions.h"

#include <gmock/gmock.h>

#include <functional>
#include <vector>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

using Common = CATENOWBCSCommonDefinitions;
using Asked = wb::ComputeOptions::Asked;
using Point = ComputeArguments::Point;
using Precision = wb::ComputeOptions::Precision;
using Update = ComputeArguments::Update;

namespace
{
using Change = std::function<void(ComputeCommandOptions&)>;

ComputeArguments Read(const Change& change)
{
    ComputeCommandOptions options;
    options.path = "R";
    change(options);
    std::string problem;
    const auto arguments = ReadComputeArguments(options, problem);
    EXPECT_EQ(problem, "");
    EXPECT_TRUE(arguments);
    return arguments.value_or(ComputeArguments());
}

std::string Refusal(const Change& change)
{
    ComputeCommandOptions options;
    options.path = "R";
    change(options);
    std::string problem;
    EXPECT_FALSE(ReadComputeArguments(options, problem));
    return problem;
}

ComputeArguments WithPrecision(const char* word)
{
    return Read([&](auto& options) { options.precision = word; });
}
} // namespace

TEST(ComputeArguments, WithoutOptionsActiveValuesAboutTheCentre)
{
    const ComputeArguments arguments = Read([](auto&) {});
    EXPECT_EQ(arguments.path, "R");
    EXPECT_EQ(arguments.compute.precision, Precision::Active);
    EXPECT_EQ(arguments.compute.asked, Asked::Node);
    EXPECT_EQ(arguments.update, Update::Check);
    EXPECT_EQ(arguments.point, Point::Centre);
    EXPECT_FALSE(arguments.rss);
    EXPECT_FALSE(arguments.uncertainty);
    EXPECT_FALSE(arguments.compute.uncertainty);
    EXPECT_FALSE(arguments.compute.errorsApart);
    EXPECT_EQ(arguments.compute.contributors, 0U);
    EXPECT_FALSE(arguments.compute.densityPriority);
    EXPECT_FALSE(arguments.compute.definedPrecision);
    EXPECT_TRUE(arguments.compute.filter.IsEmpty());
}

TEST(ComputeArguments, WordsOfPrecisionAreTakenInAnyLetterCase)
{
    for (const char* word : {"active", "Active", "ACTIVE"}) {
        EXPECT_EQ(WithPrecision(word).compute.precision, Precision::Active) << word;
    }
    for (const char* word : {"most-precise", "Most-Precise", "MostPrecise"}) {
        EXPECT_EQ(WithPrecision(word).compute.precision, Precision::MostPrecise) << word;
    }
    const ComputeArguments computed = WithPrecision("computed");
    EXPECT_EQ(computed.compute.precision, Precision::Specified);
    EXPECT_EQ(computed.compute.massType, "Computed");
}

TEST(ComputeArguments, AnythingElseIsAMassTypeAsTyped)
{
    const ComputeArguments arguments = WithPrecision("weighed");
    EXPECT_EQ(arguments.compute.precision, Precision::Specified);
    EXPECT_EQ(arguments.compute.massType, "weighed");
    EXPECT_THAT(Refusal([](auto& options) { options.precision = ""; }),
                StartsWith("--precision: expected active, most-precise or a mass type"));
}

TEST(ComputeArguments, OrActiveStandsBesideAMassType)
{
    const ComputeArguments arguments = Read([](auto& options) {
        options.precision = "Weighed";
        options.orElse = "active";
    });
    EXPECT_TRUE(arguments.compute.orActive);
    EXPECT_FALSE(WithPrecision("Weighed").compute.orActive);
    for (const char* word : {"active", "most-precise", "Computed"}) {
        EXPECT_EQ(Refusal([&](auto& options) {
                      options.precision = word;
                      options.orElse = "active";
                  }),
                  "--or active: expected --precision with a mass type beside it")
            << word;
    }
    EXPECT_EQ(Refusal([](auto& options) {
                  options.precision = "Weighed";
                  options.orElse = "Estimated";
              }),
              "--or: expected active, found \"Estimated\"");
}

TEST(ComputeArguments, UpdatePolicies)
{
    EXPECT_EQ(Read([](auto& options) { options.update = "check"; }).update, Update::Check);
    EXPECT_EQ(Read([](auto& options) { options.update = "Force"; }).update, Update::Force);
    const ComputeArguments assume = Read([](auto& options) { options.update = "assume:3"; });
    EXPECT_EQ(assume.update, Update::Assume);
    EXPECT_EQ(assume.level, 3);
    EXPECT_EQ(Read([](auto& options) { options.update = "assume:0"; }).level, 0);
    for (const char* wrong :
         {"", "assume", "assume:", "assume:-1", "assume:1.5", "assume:x", "no"}) {
        EXPECT_EQ(Refusal([&](auto& options) { options.update = wrong; }),
                  "--update: expected check, force or assume:LEVEL with a whole number from 0, "
                  "found \"" +
                      std::string(wrong) + "\"");
    }
}

TEST(ComputeArguments, Entities)
{
    EXPECT_EQ(Read([](auto& options) { options.entity = "instance"; }).compute.asked, Asked::Node);
    EXPECT_EQ(Read([](auto& options) { options.entity = "root"; }).compute.asked, Asked::Root);
    EXPECT_EQ(Read([](auto& options) { options.entity = "part"; }).compute.asked, Asked::Alone);
    EXPECT_EQ(Refusal([](auto& options) { options.entity = "tree"; }),
              "--entity: expected instance, root or part, found \"tree\"");
}

TEST(ComputeArguments, DensityAndMaterialBelongToOnePart)
{
    const ComputeArguments arguments = Read([](auto& options) {
        options.densityFirst = "material";
        options.material = "Lead";
    });
    EXPECT_EQ(arguments.compute.densityPriority, Common::MaterialDensityFirst);
    EXPECT_EQ(arguments.compute.material, "Lead");
    EXPECT_EQ(Read([](auto& options) { options.densityFirst = "wb"; }).compute.densityPriority,
              Common::WBDensityFirst);
    EXPECT_EQ(Refusal([](auto& options) { options.densityFirst = "steel"; }),
              "--density-first: expected wb or material, found \"steel\"");
    EXPECT_THAT(Refusal([](auto& options) {
                    options.entity = "root";
                    options.material = "Lead";
                }),
                HasSubstr("expected one part, found --entity root"));
    EXPECT_THAT(Refusal([](auto& options) {
                    options.entity = "root";
                    options.densityFirst = "wb";
                }),
                HasSubstr("expected one part, found --entity root"));
}

TEST(ComputeArguments, DeviationsArePerCentOrKilograms)
{
    const auto percent =
        Read([](auto& options) { options.deviations = "2,3.5%"; }).compute.definedPrecision;
    ASSERT_TRUE(percent);
    EXPECT_TRUE(percent->percentage);
    EXPECT_EQ(percent->lower, 2.0);
    EXPECT_EQ(percent->upper, 3.5);
    const auto mass =
        Read([](auto& options) { options.deviations = "0,0.25kg"; }).compute.definedPrecision;
    ASSERT_TRUE(mass);
    EXPECT_FALSE(mass->percentage);
    EXPECT_EQ(mass->lower, 0.0);
    EXPECT_EQ(mass->upper, 0.25);
    for (const char* wrong : {"", "2,3", "2%", "2,3,4%", "-1,2%", "1,-2%", "a,2%", "2,b kg"}) {
        EXPECT_THAT(Refusal([&](auto& options) { options.deviations = wrong; }),
                    StartsWith("--deviations: expected LOWER,UPPER% of the mass or LOWER,UPPERkg"))
            << wrong;
    }
}

TEST(ComputeArguments, PointsOfTheInertia)
{
    EXPECT_EQ(Read([](auto& options) { options.at = "cg"; }).point, Point::Centre);
    const ComputeArguments origin = Read([](auto& options) { options.at = "origin"; });
    EXPECT_EQ(origin.point, Point::Origin);
    EXPECT_THAT(origin.at, ElementsAre(0, 0, 0));
    const ComputeArguments typed = Read([](auto& options) { options.at = "-1,2.5, 3e2"; });
    EXPECT_EQ(typed.point, Point::Typed);
    EXPECT_THAT(typed.at, ElementsAre(-1, 2.5, 300));
    for (const char* wrong : {"", "1,2", "1,2,3,4", "1,2,x", "centre"}) {
        EXPECT_EQ(Refusal([&](auto& options) { options.at = wrong; }),
                  "--at: expected cg, origin or X,Y,Z, three numbers with \".\" for the decimal "
                  "mark, found \"" +
                      std::string(wrong) + "\"");
    }
}

TEST(ComputeArguments, ExplainListsTenUnlessToldHowMany)
{
    const ComputeArguments usual = Read([](auto& options) { options.explain = ""; });
    EXPECT_EQ(usual.compute.contributors, 10U);
    // Shares of the uncertainty are shown in the list, not the uncertainties themselves.
    EXPECT_TRUE(usual.compute.uncertainty);
    EXPECT_FALSE(usual.uncertainty);
    EXPECT_EQ(Read([](auto& options) { options.explain = "3"; }).compute.contributors, 3U);
    for (const char* wrong : {"0", "-2", "many"}) {
        EXPECT_EQ(Refusal([&](auto& options) { options.explain = wrong; }),
                  "--explain: expected how many to list, a whole number from 1, found \"" +
                      std::string(wrong) + "\"");
    }
}

TEST(ComputeArguments, PathBehindExplainIsThePath)
{
    const ComputeArguments arguments = Read([](auto& options) {
        options.path = "";
        options.explain = "LA1/WNG-000.1";
    });
    EXPECT_EQ(arguments.path, "LA1/WNG-000.1");
    EXPECT_EQ(arguments.compute.contributors, 10U);
}

TEST(ComputeArguments, PathIsNeeded)
{
    const std::string problem = "path: expected ROOT/INSTANCE/INSTANCE, found none";
    EXPECT_EQ(Refusal([](auto& options) { options.path = ""; }), problem);
    EXPECT_EQ(Refusal([](auto& options) {
                  options.path = "";
                  options.explain = "5";
              }),
              problem);
}

TEST(ComputeArguments, ErrorsApartAreThoseOfTheUncertaintiesUnlessAListShowsThem)
{
    const ComputeArguments alone = Read([](auto& options) { options.apart = true; });
    EXPECT_TRUE(alone.compute.errorsApart);
    EXPECT_TRUE(alone.uncertainty);
    EXPECT_TRUE(alone.compute.uncertainty);
    const ComputeArguments explained = Read([](auto& options) {
        options.apart = true;
        options.explain = "";
    });
    EXPECT_TRUE(explained.compute.errorsApart);
    EXPECT_FALSE(explained.uncertainty);
    const ComputeArguments besideRss = Read([](auto& options) {
        options.apart = true;
        options.rss = true;
    });
    EXPECT_TRUE(besideRss.rss);
    EXPECT_FALSE(besideRss.uncertainty);
    const ComputeArguments all = Read([](auto& options) {
        options.apart = true;
        options.rss = true;
        options.uncertainty = true;
    });
    EXPECT_TRUE(all.uncertainty);
}

TEST(ComputeArguments, FilterTextIsReadAsRequestsCarryIt)
{
    const wb::Filter filter =
        Read([](auto& options) { options.filter = "1|No wing|X|W.1|W|A|0"; }).compute.filter;
    EXPECT_EQ(filter.name, "No wing");
    ASSERT_EQ(filter.lines.size(), 1U);
    EXPECT_FALSE(filter.lines[0].in);
    EXPECT_EQ(filter.lines[0].instance, "W.1");
    EXPECT_TRUE(
        Read([](auto& options) { options.filter = "0|No Filter"; }).compute.filter.IsEmpty());
    EXPECT_EQ(Refusal([](auto& options) { options.filter = "1|N|Y|W.1|W|A|0"; }),
              "--filter: The field filter line holds \"Y\", expected I or X.");
    for (const bool include : {true, false}) {
        EXPECT_EQ(Refusal([&](auto& options) {
                      options.filter = "0|No Filter";
                      (include ? options.included : options.excluded).emplace_back("R/W.1");
                  }),
                  "--filter beside --include or --exclude: expected one way to name a filter");
    }
}
