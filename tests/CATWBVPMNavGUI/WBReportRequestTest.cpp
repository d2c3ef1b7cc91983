#include "WBReportRequest.h"

#include <gmock/gmock.h>

#include <string>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

/// A report of all of LA1 by active values, checked, unfiltered, with nothing beside the mass.
WBReportOptions PlainOptions()
{
    WBReportOptions options;
    options.root = "LA1";
    options.filter = "0|No Filter";
    return options;
}

std::string RequestOf(const WBReportOptions& options)
{
    return WBReportRequest(options).ToStdString();
}

/// What follows the lists of values and properties.
std::string PlainSum()
{
    return "0|-|-|-|0|0|-|Active|0|1|LA1|0|No Filter|0|";
}

const WBPickedInstance kWing{"WNG-000.1", "WNG-000", "A", {}};
const WBPickedInstance kFirewall{"FUS-110.1", "FUS-110", "B", {"FUS-100.1", "FUS-000.1"}};

} // namespace

TEST(WBReportRequest, NothingPickedAndNothingTakenAsksForTheMassesOfTheRoot)
{
    EXPECT_EQ(RequestOf(PlainOptions()), "0|0|0|0|0|" + PlainSum());
}

TEST(WBReportRequest, KindsHaveTheirNumbers)
{
    WBReportOptions options = PlainOptions();
    options.kind = WBReportKind::Distributive;
    EXPECT_EQ(RequestOf(options), "1|0|0|0|0|" + PlainSum());
    options.kind = WBReportKind::MaterialStatistics;
    EXPECT_EQ(RequestOf(options), "2|0|0|0|0|" + PlainSum());
}

TEST(WBReportRequest, StatisticsOfEveryInstanceAreAskedForByMaterialStatisticsAlone)
{
    WBReportOptions options = PlainOptions();
    options.isOfEveryInstance = true;
    EXPECT_EQ(RequestOf(options), "0|0|0|0|0|" + PlainSum());
    options.kind = WBReportKind::Distributive;
    EXPECT_EQ(RequestOf(options), "1|0|0|0|0|" + PlainSum());
    options.kind = WBReportKind::MaterialStatistics;
    EXPECT_EQ(RequestOf(options), "2|1|0|0|0|" + PlainSum());
}

TEST(WBReportRequest, PickedInstancesComeWithTheirPathsLeafSideFirst)
{
    WBReportOptions options = PlainOptions();
    options.picked = {kWing, kFirewall};
    EXPECT_EQ(RequestOf(options), "0|0|2|WNG-000.1|WNG-000|A|0|"
                                  "FUS-110.1|FUS-110|B|2|FUS-100.1|FUS-000.1|0|0|" +
                                      PlainSum());
}

TEST(WBReportRequest, ValuesAndPropertiesAreNamed)
{
    WBReportOptions options = PlainOptions();
    options.values = {"Centre", "Date"};
    options.properties = {"Vendor"};
    EXPECT_EQ(RequestOf(options), "0|0|0|2|Centre|Date|1|Vendor|" + PlainSum());
    options.kind = WBReportKind::Distributive;
    EXPECT_EQ(RequestOf(options), "1|0|0|2|Centre|Date|1|Vendor|" + PlainSum());
}

TEST(WBReportRequest, MaterialStatisticsAskForNeither)
{
    WBReportOptions options = PlainOptions();
    options.kind = WBReportKind::MaterialStatistics;
    options.values = {"*"};
    options.properties = {"*"};
    EXPECT_EQ(RequestOf(options), "2|0|0|0|0|" + PlainSum());
}

TEST(WBReportRequest, PrecisionAndPolicyStandAsInEveryComputation)
{
    WBReportOptions options = PlainOptions();
    options.sum.precision = "Weighed";
    options.sum.storedSums = WBStoredSums::Force;
    EXPECT_EQ(RequestOf(options), "0|0|0|0|0|0|-|-|-|0|0|-|Weighed|1|1|LA1|0|No Filter|0|");
    options.sum.precision = WBComputationChoice::kMostPrecise;
    options.sum.storedSums = WBStoredSums::Assume;
    options.sum.level = "3";
    EXPECT_EQ(RequestOf(options), "0|0|0|0|0|0|-|-|-|0|0|-|MostPrecise|2|3|1|LA1|0|No Filter|0|");
}

TEST(WBReportRequest, EntityIsAlwaysTheRoot)
{
    WBReportOptions options = PlainOptions();
    options.sum.entity = CATENOWBCSCommonDefinitions::PartAlone;
    EXPECT_EQ(RequestOf(options), "0|0|0|0|0|" + PlainSum());
}

TEST(WBReportRequest, FilterTravelsWhole)
{
    WBReportOptions options = PlainOptions();
    options.filter = "1|Doors|X|D.1|D|A|0";
    EXPECT_EQ(RequestOf(options), "0|0|0|0|0|0|-|-|-|0|0|-|Active|0|1|LA1|1|Doors|X|D.1|D|A|0|0|");
}

TEST(WBTakenNames, KeepTheirOrder)
{
    EXPECT_THAT(WBTakenNames({"A", "B", "C"}, {true, false, true}), ElementsAre("A", "C"));
    EXPECT_THAT(WBTakenNames({"A", "B"}, {false, false}), IsEmpty());
}

TEST(WBTakenNames, AllOfThemAreAStar)
{
    EXPECT_THAT(WBTakenNames({"A", "B"}, {true, true}), ElementsAre("*"));
    EXPECT_THAT(WBTakenNames({}, {}), IsEmpty());
}
