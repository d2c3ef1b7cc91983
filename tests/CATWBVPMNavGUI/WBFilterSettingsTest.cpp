#include "WBFilterSettings.h"

#include "FilterPanelSession.h"

#include <fstream>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kPanels = "1|Panels|I|P.1|P|B|0";
constexpr const char* kDoors = "1|Without doors|X|FUS-100.1|FUS-100|A|1|FUS-000.1";
constexpr const char* kDamaged = "2|Panels|I|P.1|P|B|0";

using WBFilterSettingsTest = FilterSession;

bool IsValid(const char* instance, const char* path, int count)
{
    return WBIsValidInFilter("LA1", instance, "P", "A", count, path);
}

} // namespace

TEST_F(WBFilterSettingsTest, RootWithoutFiltersHasNone)
{
    const WBFilterSet set = WBKeptFilters("LA1");
    EXPECT_THAT(set.entries, IsEmpty());
    EXPECT_EQ(set.counting, WBFilterSet::kNone);
}

TEST_F(WBFilterSettingsTest, KeptFiltersAreThereInTheNextSession)
{
    const WBFilterSet set = WBReadFilterSet({kDoors, {kPanels, kDoors, "0|Begun"}});
    EXPECT_TRUE(WBKeepFilters("LA1", set));
    BeginNewSession();
    EXPECT_EQ(Stored("LA1.Filter"), kDoors);
    EXPECT_THAT(AllStored("LA1.Filters"), ElementsAre(kPanels, kDoors, "0|Begun"));
    EXPECT_EQ(WBKeptFilters("LA1"), set);
    EXPECT_THAT(WBKeptFilters("SC1").entries, IsEmpty());
}

TEST_F(WBFilterSettingsTest, SwitchedOffIsStoredAsNoFilter)
{
    WBFilterSet set = WBReadFilterSet({kDoors, {kDoors}});
    ASSERT_TRUE(WBKeepFilters("LA1", set));
    set.counting = WBFilterSet::kNone;
    EXPECT_TRUE(WBKeepFilters("LA1", set));
    BeginNewSession();
    EXPECT_EQ(Stored("LA1.Filter"), "0|No Filter");
    EXPECT_THAT(AllStored("LA1.Filters"), ElementsAre(kDoors));
}

TEST_F(WBFilterSettingsTest, FilterOfAnEarlierVersionIsTakenUp)
{
    Store("LA1.Filter", kDoors); // there was no list of filters
    const WBFilterSet set = WBKeptFilters("LA1");
    ASSERT_EQ(set.entries.size(), 1U);
    EXPECT_EQ(set.counting, 0);
    EXPECT_EQ(set.entries[0].filter.name, "Without doors");
}

TEST_F(WBFilterSettingsTest, DamagedSettingsStayUntilTheyAreReplaced)
{
    Store("LA1.Filter", kDamaged);
    Settings().WriteSetting("LA1.Filters", 3);
    WBFilterSet set = WBKeptFilters("LA1");
    ASSERT_EQ(set.entries.size(), 2U);
    EXPECT_EQ(set.entries[0].damaged, "3");
    EXPECT_EQ(set.entries[1].damaged, kDamaged);
    ASSERT_TRUE(WBKeepFilters("LA1", set));
    EXPECT_EQ(Stored("LA1.Filter"), kDamaged);
    set.Remove(1);
    ASSERT_TRUE(WBKeepFilters("LA1", set));
    EXPECT_EQ(Stored("LA1.Filter"), "0|No Filter");
    EXPECT_EQ(WBKeptFilters("LA1"), set);
}

TEST_F(WBFilterSettingsTest, SettingsOfAnyKindAreReadAsDamagedTexts)
{
    Settings().WriteSetting("LA1.Filter", 2.5);
    EXPECT_EQ(WBKeptFilters("LA1").entries.at(0).damaged, "2.5");
    Settings().WriteSetting("LA1.Filter", 7);
    EXPECT_EQ(WBKeptFilters("LA1").entries.at(0).damaged, "7");
    StoreAll("LA1.Filter", {"1|Panels", "I|P.1"});
    EXPECT_EQ(WBKeptFilters("LA1").entries.at(0).damaged, "1|Panels I|P.1");
    // What does not change is not written, so the setting keeps its kind.
    ASSERT_TRUE(WBKeepFilters("LA1", WBKeptFilters("LA1")));
    EXPECT_THAT(AllStored("LA1.Filter"), ElementsAre("1|Panels", "I|P.1"));
    Settings().RemoveSetting("LA1.Filter");
    Store("LA1.Filters", kPanels); // a text where a list should be
    EXPECT_EQ(WBKeptFilters("LA1").entries.at(0).filter.name, "Panels");
}

TEST_F(WBFilterSettingsTest, WhatCannotBeWrittenLeavesWhatWasKept)
{
    const WBFilterSet before = WBReadFilterSet({kPanels, {kPanels}});
    ASSERT_TRUE(WBKeepFilters("LA1", before));
    UnlockSettings();
    LockSettings();
    EXPECT_FALSE(WBKeepFilters("LA1", WBReadFilterSet({kDoors, {kPanels, kDoors}})));
    EXPECT_EQ(Stored("LA1.Filter"), kPanels);
    EXPECT_EQ(WBKeptFilters("LA1"), before);
}

TEST_F(WBFilterSettingsTest, WithoutAPlaceForSettingsNothingIsKept)
{
    CATSetEnvironmentSource([](const char*) { return std::nullopt; });
    CATSettingRepository::CloseAll();
    EXPECT_THAT(WBKeptFilters("LA1").entries, IsEmpty());
    EXPECT_FALSE(WBKeepFilters("LA1", WBReadFilterSet({kDoors, {kDoors}})));
    EXPECT_TRUE(IsValid("FUS-110.1", "FUS-100.1|FUS-000.1", 2));
}

TEST_F(WBFilterSettingsTest, DamagedFileIsSetAsideAndFiltersBeginAnew)
{
    {
        std::ofstream file(SettingsFile());
        file << "\"LA1.Filter\" = \"1|Panels\n";
    }
    BeginNewSession();
    std::vector<std::string> problems;
    CATSettingRepository::ReportProblemsTo(
        [&](const CATUnicodeString& sentence) { problems.push_back(sentence.ToStdString()); });
    EXPECT_THAT(WBKeptFilters("LA1").entries, IsEmpty());
    EXPECT_TRUE(WBKeepFilters("LA1", WBReadFilterSet({kDoors, {kDoors}})));
    CATSettingRepository::ReportProblemsTo({});
    EXPECT_THAT(problems, testing::Contains(testing::HasSubstr("CATWBVPMNavFilterPanel")));
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(SettingsDirectory())) {
        files += entry.is_regular_file() ? 1 : 0;
    }
    EXPECT_EQ(files, 2); // the new one, and the damaged one under another name
    BeginNewSession();
    EXPECT_EQ(Stored("LA1.Filter"), kDoors);
}

TEST_F(WBFilterSettingsTest, InstanceIsValidWhereTheFilterThatCountsLeavesItIn)
{
    EXPECT_TRUE(IsValid("FUS-110.1", "FUS-100.1|FUS-000.1", 2));
    Store("LA1.Filter", kDoors);
    StoreAll("LA1.Filters", {kPanels, kDoors});
    EXPECT_FALSE(IsValid("FUS-110.1", "FUS-100.1|FUS-000.1", 2));
    EXPECT_FALSE(IsValid("FUS-100.1", "FUS-000.1", 1));
    EXPECT_TRUE(IsValid("FUS-000.1", "", 0));
    EXPECT_TRUE(IsValid("WNG-000.1", "", 0));
    EXPECT_TRUE(WBIsValidInFilter("SC1", "FUS-100.1", "P", "A", 1, "FUS-000.1"));
    Store("LA1.Filter", "0|No Filter"); // off, and still there
    EXPECT_TRUE(IsValid("FUS-100.1", "FUS-000.1", 1));
    Store("LA1.Filter", kDamaged);
    EXPECT_TRUE(IsValid("FUS-100.1", "FUS-000.1", 1));
}

TEST_F(WBFilterSettingsTest, PickThatCannotBeReadIsNotInAFilter)
{
    EXPECT_TRUE(IsValid("WNG-000.1", "", 2000000000));
    Store("LA1.Filter", kDoors);
    EXPECT_FALSE(IsValid("WNG-000.1", "", 2000000000));
    EXPECT_FALSE(IsValid("WNG-000.1", "", -1));
    EXPECT_FALSE(IsValid("", "", 0));
}

TEST_F(WBFilterSettingsTest, LineOfAReplacedPartKeepsNothingOut)
{
    Store("LA1.Filter", "1|Old doors|X|FUS-100.1|FUS-099|A|1|FUS-000.1");
    EXPECT_TRUE(IsValid("FUS-110.1", "FUS-100.1|FUS-000.1", 2));
    OpenSmallProduct("SC1"); // nobody knows what LA1 holds now
    EXPECT_FALSE(IsValid("FUS-110.1", "FUS-100.1|FUS-000.1", 2));
}
