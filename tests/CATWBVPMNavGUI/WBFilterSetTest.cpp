#include "WBFilterSet.h"

#include "PanelSession.h"

namespace
{

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

constexpr const char* kPanels = "1|Panels|I|P.1|P|B|0";
constexpr const char* kDoors = "1|Without doors|X|D.1|D|A|0";
constexpr const char* kDamaged = "2|Panels|I|P.1|P|B|0";

CATUnicodeString NewName(int number)
{
    return "Filter " + CATUnicodeString::FromInt(number);
}

std::string Problem(const WBStoredFilters& stored)
{
    return WBProblemOf(WBReadFilterSet(stored)).sentence.ToStdString();
}

/// The texts come from catalogs.
class WBFilterSetTest : public PanelSession
{};

} // namespace

TEST_F(WBFilterSetTest, ReadsFiltersAndWhichOneCounts)
{
    const WBFilterSet set = WBReadFilterSet({kDoors, {kPanels, kDoors}});
    ASSERT_EQ(set.entries.size(), 2U);
    EXPECT_EQ(set.entries[0].filter.name, "Panels");
    EXPECT_EQ(set.entries[1].filter.name, "Without doors");
    EXPECT_EQ(set.counting, 1);
    ASSERT_NE(set.Counting(), nullptr);
    EXPECT_EQ(set.Counting()->name, "Without doors");
}

TEST_F(WBFilterSetTest, NothingStoredIsNoFilter)
{
    for (const char* none : {"", "0|No Filter"}) {
        const WBFilterSet set = WBReadFilterSet({none, {}});
        EXPECT_THAT(set.entries, IsEmpty());
        EXPECT_EQ(set.counting, WBFilterSet::kNone);
        EXPECT_EQ(set.Counting(), nullptr);
    }
}

TEST_F(WBFilterSetTest, FilterThatIsOffStays)
{
    const WBFilterSet set = WBReadFilterSet({"0|No Filter", {kPanels, "0|Begun"}});
    EXPECT_EQ(set.entries.size(), 2U);
    EXPECT_EQ(set.counting, WBFilterSet::kNone);
    const WBStoredFilters stored = WBStoreFilterSet(set);
    EXPECT_EQ(stored.counting, "0|No Filter");
    EXPECT_THAT(stored.filters, ElementsAre(kPanels, "0|Begun"));
}

TEST_F(WBFilterSetTest, OneThatCountsAndIsNotListedIsThereToo)
{
    const WBFilterSet set = WBReadFilterSet({kDoors, {kPanels}});
    ASSERT_EQ(set.entries.size(), 2U);
    EXPECT_EQ(set.counting, 1);
    const WBStoredFilters stored = WBStoreFilterSet(set);
    EXPECT_EQ(stored.counting, kDoors);
    EXPECT_THAT(stored.filters, ElementsAre(kPanels, kDoors));
}

TEST_F(WBFilterSetTest, DamagedTextsComeBackAsTheyWere)
{
    const WBFilterSet set = WBReadFilterSet({kDamaged, {"rubbish", kPanels, ""}});
    ASSERT_EQ(set.entries.size(), 3U); // an empty text holds nothing to lose
    EXPECT_TRUE(set.entries[0].IsDamaged());
    EXPECT_FALSE(set.entries[1].IsDamaged());
    EXPECT_EQ(set.counting, 2);
    EXPECT_EQ(set.Counting(), nullptr);
    const WBStoredFilters stored = WBStoreFilterSet(set);
    EXPECT_EQ(stored.counting, kDamaged);
    EXPECT_THAT(stored.filters, ElementsAre("rubbish", kPanels, kDamaged));
}

TEST_F(WBFilterSetTest, DamagedTextStaysWhenAnotherFilterCounts)
{
    WBFilterSet set = WBReadFilterSet({kDamaged, {kPanels}});
    set.counting = 0;
    const WBStoredFilters stored = WBStoreFilterSet(set);
    EXPECT_EQ(stored.counting, kPanels);
    EXPECT_THAT(stored.filters, ElementsAre(kPanels, kDamaged));
}

TEST_F(WBFilterSetTest, FilterWithoutLinesThatIsStoredAsCountingIsDamaged)
{
    const WBFilterSet set = WBReadFilterSet({"0|Begun", {}});
    ASSERT_EQ(set.entries.size(), 1U);
    EXPECT_TRUE(set.entries[0].IsDamaged());
    EXPECT_EQ(set.Counting(), nullptr);
}

TEST_F(WBFilterSetTest, NewFilterTakesTheFirstFreeNameAndCountsWhereNoneDoes)
{
    WBFilterSet set = WBReadFilterSet({"", {"0|Filter 1", "0|Filter 3"}});
    EXPECT_EQ(set.Add(NewName), 2);
    EXPECT_EQ(set.entries[2].filter.name, "Filter 2");
    EXPECT_EQ(set.counting, 2);
    EXPECT_EQ(set.Add(NewName), 3);
    EXPECT_EQ(set.entries[3].filter.name, "Filter 4");
    EXPECT_EQ(set.counting, 2);
}

TEST_F(WBFilterSetTest, RemovingAFilterKeepsTheOneThatCounts)
{
    WBFilterSet set = WBReadFilterSet({kDoors, {kPanels, kDoors, "0|Begun"}});
    set.Remove(2);
    EXPECT_EQ(set.counting, 1);
    set.Remove(0);
    ASSERT_EQ(set.entries.size(), 1U);
    EXPECT_EQ(set.counting, 0);
    EXPECT_EQ(set.Counting()->name, "Without doors");
    set.Remove(0);
    EXPECT_EQ(set.counting, WBFilterSet::kNone);
    EXPECT_THAT(set.entries, IsEmpty());
}

TEST_F(WBFilterSetTest, GoodSetHasNoProblem)
{
    EXPECT_EQ(WBProblemOf({}).index, WBFilterSet::kNone);
    // Neither damaged texts nor filters without lines are in the way while they do not count.
    EXPECT_EQ(
        WBProblemOf(WBReadFilterSet({kPanels, {kPanels, "rubbish", "rubbish", "0|Begun"}})).index,
        WBFilterSet::kNone);
    EXPECT_EQ(WBProblemOf(WBReadFilterSet({kDamaged, {kPanels}})).index, WBFilterSet::kNone);
}

TEST_F(WBFilterSetTest, TwoFiltersOfOneNameAreRefused)
{
    const WBFilterSet set = WBReadFilterSet({"", {kDoors, kPanels, "0|Panels"}});
    EXPECT_EQ(WBProblemOf(set).index, 2);
    EXPECT_EQ(WBProblemOf(set).sentence,
              "Two filters are called \"Panels\". Give one of them another name.");
}

TEST_F(WBFilterSetTest, FilterWithoutLinesMustNotCount)
{
    WBFilterSet set = WBReadFilterSet({"", {kPanels, "0|Begun"}});
    set.counting = 1;
    EXPECT_EQ(WBProblemOf(set).index, 1);
    EXPECT_THAT(WBProblemOf(set).sentence.ToStdString(),
                StartsWith("The filter \"Begun\" is on and has no lines"));
}

TEST_F(WBFilterSetTest, NamesThatRequestsCannotHoldAreRefused)
{
    for (const char* name :
         {"Doors|Panels", "two\nlines", "tab\there", "~", "__null__", "a #WB_ERROR# b", "\x7f"}) {
        WBFilterSet set;
        set.entries.push_back({{name, {}}, {}});
        const WBFilterProblem problem = WBProblemOf(set);
        EXPECT_EQ(problem.index, 0) << name;
        EXPECT_THAT(problem.sentence.ToStdString(), HasSubstr("cannot be the name of a filter"))
            << name;
        EXPECT_THAT(problem.sentence.ToStdString(), HasSubstr(name));
    }
    EXPECT_EQ(WBNameProblem("Ohne Türen ~2"), "");
}

TEST_F(WBFilterSetTest, EmptyNamesAreRefused)
{
    EXPECT_EQ(WBNameProblem(""), "A filter has no name. Type one.");
    EXPECT_EQ(WBNameProblem("  "), "A filter has no name. Type one.");
}

TEST_F(WBFilterSetTest, NamesThatMeanNoFilterAreRefused)
{
    for (const char* name : {"No Filter", "No filter", "NoConfig"}) {
        EXPECT_THAT(Problem({"", {CATUnicodeString("0|") + name}}), HasSubstr(name));
        EXPECT_THAT(Problem({"", {CATUnicodeString("0|") + name}}),
                    HasSubstr("where no filter is on"));
    }
    EXPECT_EQ(WBNameProblem("Kein Filter"), "");
    CATMsgCatalog::SetLanguage("de");
    EXPECT_EQ(WBNameProblem("Kein Filter"),
              "„Kein Filter“ steht dort, wo kein Filter zählt. Wählen Sie einen anderen Namen.");
}
