#include "WBNavigatorPlaces.h"

#include "FilterPanelSession.h"

namespace
{

using State = WBProductPlace::State;

class WBNavigatorPlacesTest : public FilterSession
{};

} // namespace

TEST_F(WBNavigatorPlacesTest, TellsThePartAtAPlace)
{
    const WBProductPlace place = WBFindInNavigator("LA1", {"FUS-000.1", "FUS-100.1", "FUS-110.1"});
    EXPECT_EQ(place.state, State::There);
    EXPECT_EQ(place.part, "FUS-110");
    EXPECT_EQ(place.version, "A");
    EXPECT_EQ(place.partName, "Firewall");
    EXPECT_EQ(WBFindInNavigator("LA1", {}).part, "LA1");
}

TEST_F(WBNavigatorPlacesTest, WhatTheProductDoesNotHoldIsGone)
{
    EXPECT_EQ(WBFindInNavigator("LA1", {"FUS-000.2"}).state, State::Gone);
    EXPECT_EQ(WBFindInNavigator("LA1", {"FUS-000.1", "FUS-110.1"}).state, State::Gone);
    EXPECT_EQ(WBFindInNavigator("LA1", {"WNG-000.1", "WNG-100.1"}).state, State::Gone);
}

TEST_F(WBNavigatorPlacesTest, WhatNobodyTellsIsUnknown)
{
    EXPECT_EQ(WBFindInNavigator("LA1", {"SYS-000.1", "SYS-100.1"}).state, State::Unknown);
    EXPECT_EQ(WBFindInNavigator("SC1", {"FUS-000.1"}).state, State::Unknown);
    CATNavigator::Close();
    EXPECT_EQ(WBFindInNavigator("LA1", {"FUS-000.1"}).state, State::Unknown);
}

TEST_F(WBNavigatorPlacesTest, AssembliesOnTheWayAreAskedForOnce)
{
    const auto products = std::make_shared<SmallProducts>();
    CATNavigator::Open(products, SmallProducts::Row("LA1", "LA1", "", true));
    for (int round = 0; round < 3; ++round) {
        WBFindInNavigator("LA1", {"FUS-000.1", "FUS-100.1"});
    }
    EXPECT_THAT(products->asked, testing::ElementsAre("LA1", "FUS-000"));
}

TEST_F(WBNavigatorPlacesTest, KnowsWhetherAnotherRootIsOpen)
{
    EXPECT_FALSE(WBIsOtherRootOpen("LA1"));
    EXPECT_TRUE(WBIsOtherRootOpen("SC1"));
    CATNavigator::Close();
    EXPECT_FALSE(WBIsOtherRootOpen("LA1"));
}
