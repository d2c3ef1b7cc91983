#include "WBChanges.h"

#include "PanelSession.h"

namespace
{

using WBChangesTest = PanelSession;

std::vector<std::string> Row(const WBPanelTable& table, std::size_t row)
{
    std::vector<std::string> cells;
    for (const CATUnicodeString& cell : table.rows.at(row).Items()) {
        cells.push_back(cell.ToStdString());
    }
    return cells;
}

using testing::ElementsAre;

constexpr const char* kPending =
    "2|part WING A|mass type Weighed, mass|10|12|11|1|anna|2026/11/21 19:00:00|2026/11/21 "
    "18:00:00|use CAR A / left|material|__null__|Steel|__null__|0|__null__|__null__|"
    "2026/11/21 18:30:00|";
constexpr const char* kHistory = "1|2026/11/21 19:00:00|anna|import|wing.csv|part WING A|"
                                 "mass type Weighed, centre|1;2;3|1.5;2;3|";

} // namespace

TEST_F(WBChangesTest, PendingChangesAreReadFieldByField)
{
    const auto changes = WBReadPendingChanges(kPending);
    ASSERT_TRUE(changes.has_value());
    ASSERT_EQ(changes->size(), 2U);
    EXPECT_EQ(changes->at(0).subject, "part WING A");
    EXPECT_EQ(changes->at(0).stored, "11");
    EXPECT_TRUE(changes->at(0).isInConflict);
    EXPECT_EQ(changes->at(0).by, "anna");
    EXPECT_EQ(changes->at(0).when, "2026/11/21 18:00:00");
    EXPECT_FALSE(changes->at(1).isInConflict);
    EXPECT_EQ(changes->at(1).seen, "");
}

TEST_F(WBChangesTest, AnswersThatAreNotWhatTheyAnnounceAreNotRead)
{
    const std::string longer = Join({kPending, "more|"});
    for (const char* answer : {"", "x|", "2|a|b|", "-1|", longer.c_str()}) {
        EXPECT_FALSE(WBReadPendingChanges(answer).has_value()) << answer;
        EXPECT_FALSE(WBReadHistory(answer).has_value()) << answer;
    }
    EXPECT_TRUE(WBReadPendingChanges("0|").has_value());
    EXPECT_TRUE(WBReadHistory("0|").has_value());
}

TEST_F(WBChangesTest, PendingTableSpeaksInTheUsersUnits)
{
    ShowIn("MASS", "g");
    const WBPanelTable table = WBPendingTable(*WBReadPendingChanges(kPending));
    EXPECT_EQ(table.columns.size(), 7U);
    EXPECT_THAT(Row(table, 0),
                ElementsAre("part WING A", "Weighed: mass", "10000 g", "12000 g", "11000 g",
                            "cannot be saved: anna saved another value on 2026/11/21 19:00:00",
                            "2026/11/21 18:00:00"));
    EXPECT_THAT(Row(table, 1), ElementsAre("use CAR A / left", "material", "–", "Steel", "–",
                                           "waits to be saved", "2026/11/21 18:30:00"));
}

TEST_F(WBChangesTest, ConflictThatNobodyOwnsUpToIsSaidSo)
{
    CATPendingChange change;
    change.isInConflict = true;
    EXPECT_EQ(WBPendingTable({change}).rows.at(0)[6], "cannot be saved: changed meanwhile");
}

TEST_F(WBChangesTest, HistoryTableSaysWhenWhoWhatAndHow)
{
    const WBPanelTable table = WBHistoryTable(*WBReadHistory(kHistory));
    EXPECT_EQ(table.columns.size(), 8U);
    EXPECT_THAT(Row(table, 0),
                ElementsAre("2026/11/21 19:00:00", "anna", "Weighed: centre of gravity",
                            "1; 2; 3 mm", "1.5; 2; 3 mm", "part WING A", "import", "wing.csv"));
    WBSavedChange saved;
    saved.what = "save";
    EXPECT_EQ(WBHistoryTable({saved}).rows.at(0)[7], "saved here");
    saved.what = "mass types";
    EXPECT_EQ(WBHistoryTable({saved}).rows.at(0)[7], "mass types");
}

TEST_F(WBChangesTest, FactsAreNamedInTheUsersLanguage)
{
    EXPECT_EQ(WBFactText("mass type Weighed, precision"), "Weighed: precision");
    EXPECT_EQ(WBFactText("mass type A, B, inertia"), "A, B: inertia");
    EXPECT_EQ(WBFactText("active"), "active mass type");
    EXPECT_EQ(WBFactText("density order"), "which density counts first");
    EXPECT_EQ(WBFactText("property Vendor"), "property Vendor");
    EXPECT_EQ(WBFactText("growth"), "growth"); // as an import calls it
    CATMsgCatalog::SetLanguage("de");
    EXPECT_EQ(WBFactText("mass type Weighed, mass"), "Weighed: Masse");
    EXPECT_EQ(WBFactText("property Vendor"), "Eigenschaft Vendor");
    EXPECT_EQ(WBSubjectText("part WING A"), "Teil WING A");
    EXPECT_EQ(WBSubjectText("use WING A / left"), "Einbau WING A / left");
    EXPECT_EQ(WBSubjectText("the mass types"), "the mass types");
}

TEST_F(WBChangesTest, ValuesAreShownAsFieldsShowThem)
{
    EXPECT_EQ(WBChangedText("mass type Weighed, mass", ""), "–");
    EXPECT_EQ(WBChangedText("mass type Weighed, mass", "12.5"), "12.5 kg");
    EXPECT_EQ(WBChangedText("mass type Weighed, inertia", "1;2;3;0;0;0"), "1; 2; 3; 0; 0; 0 kg.m2");
    EXPECT_EQ(WBChangedText("density", "7850"), "7850 kg/m3");
    EXPECT_EQ(WBChangedText("mass type Weighed, precision", "percent;1;2"), "-1 % / +2 %");
    EXPECT_EQ(WBChangedText("mass type Weighed, precision", "absolute;0.1;0.2"),
              "-0.1 kg / +0.2 kg");
    EXPECT_EQ(WBChangedText("density order", "wb"), "the density stated for the part");
    EXPECT_EQ(WBChangedText("density order", "material"), "the density of the material");
    EXPECT_EQ(WBChangedText("active", "Weighed"), "Weighed");
    EXPECT_EQ(WBChangedText("property Vendor", "7"), "7");
    // As a file stated it.
    EXPECT_EQ(WBChangedText("mass type Weighed, mass", "12 lb"), "12 lb");
    CATUseNumberLocale("de_DE.UTF-8");
    EXPECT_EQ(WBChangedText("mass type Weighed, mass", "12.5"), "12,5 kg");
}

TEST_F(WBChangesTest, WordsCountWhatWaits)
{
    CATPendingChange good;
    CATPendingChange bad;
    bad.isInConflict = true;
    EXPECT_EQ(WBPendingWords({}), "You have no changes that are not saved.");
    EXPECT_EQ(WBPendingWords({good}), "1 of your changes is not saved.");
    EXPECT_EQ(WBPendingWords({good, good}), "2 of your changes are not saved.");
    EXPECT_THAT(WBPendingWords({good, bad}).ToStdString(),
                testing::HasSubstr("None can be saved while 1 conflict.\nType the value"));
}
