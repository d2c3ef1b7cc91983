#include "WBComputeRequest.h"

#include "../ModuleSession.h"

namespace
{

WBComputeOptions Options()
{
    WBComputeOptions options;
    options.rootIdentifier = "LA1";
    options.filter = "0|No Filter";
    return options;
}

/// The request behind its fixed head.
std::string Request(const WBComputeOptions& options)
{
    constexpr std::string_view kHead = "1|DummyInstance|DummyPart|DummyVersion|0|1|WBMaterial|";
    const std::string request = WBComputeRequest(options).ToStdString();
    EXPECT_TRUE(request.starts_with(kHead)) << request;
    return request.substr(kHead.size());
}

} // namespace

TEST(WBComputeRequest, DefaultsAskForActiveValuesAndChecking)
{
    EXPECT_EQ(Request(Options()), "Active|0|1|LA1|0|No Filter|0|");
}

TEST(WBComputeRequest, MostPreciseValuesAreAskedForByTheirWord)
{
    WBComputeOptions options = Options();
    options.precision = WBComputePrecision::MostPrecise;
    options.massType = "Weighed"; // counts with Specified alone
    EXPECT_EQ(Request(options), "MostPrecise|0|1|LA1|0|No Filter|0|");
}

TEST(WBComputeRequest, OneMassTypeIsAskedForByItsName)
{
    WBComputeOptions options = Options();
    options.precision = WBComputePrecision::Specified;
    options.massType = "Weighed";
    EXPECT_EQ(Request(options), "Weighed|0|1|LA1|0|No Filter|0|");
}

TEST(WBComputeRequest, ForcedUpdateIsOne)
{
    WBComputeOptions options = Options();
    options.policy = WBUpdatePolicy::Force;
    options.level = "3"; // counts with Assume alone
    EXPECT_EQ(Request(options), "Active|1|1|LA1|0|No Filter|0|");
}

TEST(WBComputeRequest, AssumedUpdateIsTwoAndTheLevel)
{
    WBComputeOptions options = Options();
    options.policy = WBUpdatePolicy::Assume;
    options.level = "3";
    EXPECT_EQ(Request(options), "Active|2|3|1|LA1|0|No Filter|0|");
}

TEST(WBComputeRequest, LevelTravelsAsItWasTyped)
{
    WBComputeOptions options = Options();
    options.policy = WBUpdatePolicy::Assume;
    options.level = "";
    EXPECT_EQ(Request(options), "Active|2||1|LA1|0|No Filter|0|");
}

TEST(WBComputeRequest, FilterWithLinesTravelsWhole)
{
    WBComputeOptions options = Options();
    options.filter = "1|Wing|I|WNG-000.1|WNG-000|A|0";
    EXPECT_EQ(Request(options), "Active|0|1|LA1|1|Wing|I|WNG-000.1|WNG-000|A|0|0|");
}
