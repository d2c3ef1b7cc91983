#include "WBGroupCriteria.h"
#include "PanelSession.h"

namespace
{

class WBGroupCriteriaTest : public PanelSession
{
protected:
    static WBStoredGroup Stored(const char* joined, const char* attribute, const char* comparison,
                                const char* value, const char* magnitude)
    {
        return {joined, {{attribute}, {comparison}, {value}, {magnitude}}};
    }
    const WBGroupCriteria m_criteria{
        {{"WB_Mass", WBComparison::AtLeast, "12.5 lb", "MASS"},
         {"Vendor", WBComparison::BeginsWith, "Smith", ""},
         {"Next_inspection", WBComparison::Less, "2026/11/21", kWBDate},
         {"Flammable", WBComparison::IsNot, "yes", kWBYesNo},
         {"Quantity", WBComparison::NotEqual, "1", kWBPlainNumber}},
        WBJoined::Or};
};

} // namespace

TEST_F(WBGroupCriteriaTest, CriteriaAreStoredAsWordsThatNeedNoLanguage)
{
    CATMsgCatalog::SetLanguage("de");
    const WBStoredGroup stored = WBStoredCriteria(m_criteria);
    EXPECT_EQ(stored.joined, "or");
    ASSERT_EQ(stored.lists.size(), 4U);
    EXPECT_EQ(stored.lists[0], (CATListValCATUnicodeString{"WB_Mass", "Vendor", "Next_inspection",
                                                           "Flammable", "Quantity"}));
    EXPECT_EQ(stored.lists[1],
              (CATListValCATUnicodeString{">=", "begins with", "<", "is not", "!="}));
    EXPECT_EQ(stored.lists[2],
              (CATListValCATUnicodeString{"12.5 lb", "Smith", "2026/11/21", "yes", "1"}));
    EXPECT_EQ(stored.lists[3], (CATListValCATUnicodeString{"MASS", "", "DATE", "YESNO", "NUMBER"}));
    EXPECT_EQ(WBStoredCriteria({}).joined, "and");
}

TEST_F(WBGroupCriteriaTest, WhatWasStoredIsReadAgain)
{
    const auto read = WBReadStoredCriteria(WBStoredCriteria(m_criteria));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->criteria, m_criteria.criteria);
    EXPECT_EQ(read->joined, WBJoined::Or);
    EXPECT_EQ(WBReadStoredCriteria(WBStoredCriteria({}))->joined, WBJoined::And);
}

TEST_F(WBGroupCriteriaTest, StoredCriteriaThatCannotBeReadAreRefusedAsAWhole)
{
    EXPECT_TRUE(WBReadStoredCriteria(Stored("and", "WB_Mass", ">", "1 kg", "MASS")));
    EXPECT_FALSE(WBReadStoredCriteria(Stored("xor", "WB_Mass", ">", "1 kg", "MASS")));
    EXPECT_FALSE(WBReadStoredCriteria(Stored("", "WB_Mass", ">", "1 kg", "MASS")));
    EXPECT_FALSE(WBReadStoredCriteria(Stored("and", "WB_Mass", "=>", "1 kg", "MASS")));
    EXPECT_FALSE(WBReadStoredCriteria(Stored("and", "WB_Mass", ">", "1 stone", "MASS")));
    EXPECT_FALSE(WBReadStoredCriteria(Stored("and", "WB_Mass", ">", "1 kg", "WEIGHT")));
    EXPECT_FALSE(WBReadStoredCriteria(Stored("and", "", "is", "x", "")));
    EXPECT_FALSE(WBReadStoredCriteria(Stored("and", "Name", "is", "", "")));
}

TEST_F(WBGroupCriteriaTest, CriteriaAreShownInTheUsersLanguageAndSeparator)
{
    CATMsgCatalog::SetLanguage("de");
    CATUseNumberLocale("de_DE.UTF-8");
    const WBPanelTable table = WBCriteriaTable(m_criteria.criteria, {{"WB_Mass", "Masse", "MASS"}});
    ASSERT_EQ(table.rows.size(), 5U);
    EXPECT_EQ(table.columns[0].title, "Merkmal");
    EXPECT_EQ(table.columns[1].title, "Vergleich");
    EXPECT_EQ(table.columns[2].title, "Wert");
    EXPECT_EQ(table.rows[0], (WBPanelRow{"Masse", ">=", "12,5 lb"}));
    // What nobody has any more is called by its name.
    EXPECT_EQ(table.rows[1], (WBPanelRow{"Vendor", "beginnt mit", "Smith"}));
    EXPECT_EQ(table.rows[3], (WBPanelRow{"Flammable", "ist nicht", "ja"}));
}

TEST_F(WBGroupCriteriaTest, ComparisonsHaveWordsOrSigns)
{
    EXPECT_EQ(WBComparisonTitle(WBComparison::Is), "is");
    EXPECT_EQ(WBComparisonTitle(WBComparison::IsNot), "is not");
    EXPECT_EQ(WBComparisonTitle(WBComparison::Contains), "contains");
    EXPECT_EQ(WBComparisonTitle(WBComparison::BeginsWith), "begins with");
    EXPECT_EQ(WBComparisonTitle(WBComparison::Equal), "=");
    EXPECT_EQ(WBComparisonTitle(WBComparison::AtLeast), ">=");
}
