#include "WBGroupItems.h"
#include "GroupProduct.h"
#include "PanelSession.h"

#include "CATWBVPMNavGUITable.h"

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

class WBGroupItemsTest : public PanelSession
{
protected:
    WBGroupItemsTest() { m_table = CATWBVPMNavGUISetTable({}); }
    ~WBGroupItemsTest() override { CATWBVPMNavGUISetTable(m_table); }

    std::vector<std::string> Cells(int row) const
    {
        std::vector<std::string> cells;
        const WBPanelRow texts = items.Row(row);
        for (const CATUnicodeString& cell : texts.Items()) {
            cells.push_back(cell.ToStdString());
        }
        return cells;
    }
    std::vector<WBItemState> States() const
    {
        std::vector<WBItemState> states;
        for (const WBItemStanding& standing : items.Standings()) {
            states.push_back(standing.state);
        }
        return states;
    }

    WBGroupFigures figures = FiguresOf();
    WBGroupItems items{"LA1"};

private:
    CATWBVPMNavGUITable m_table;
};

const WBPickedInstance kLost{"LOST.1", "LOST", "A", {"BAY.1", "WING.1"}};

} // namespace

TEST_F(WBGroupItemsTest, InstanceIsThereOnce)
{
    EXPECT_TRUE(items.Add({Spar(), "Main spar"}));
    EXPECT_FALSE(items.Add({Spar(), "Main spar"}));
    EXPECT_FALSE(items.Add({{"SPAR.1", "SPAR", "C", {"WING.1"}}, "Newer"}));
    EXPECT_TRUE(items.Add({{"SPAR.1", "SPAR", "B", {"WING.2"}}, "Another wing's"}));
    EXPECT_EQ(items.Items().size(), 2U);
    EXPECT_EQ(items.Position(Spar()), 1);
    EXPECT_EQ(items.Position(Tail()), 0);
}

TEST_F(WBGroupItemsTest, WhatWasRemovedCanComeAgain)
{
    items.Add({Wing(), ""});
    items.Add({Tail(), ""});
    items.Remove(0);
    items.Remove(3);
    EXPECT_EQ(items.Items().size(), 2U);
    items.Remove(1);
    EXPECT_EQ(items.Position(Tail()), 1);
    EXPECT_TRUE(items.Add({Wing(), ""}));
    items.Clear();
    EXPECT_THAT(items.Items(), IsEmpty());
    EXPECT_THAT(items.Standings(), IsEmpty());
    EXPECT_TRUE(items.Add({Wing(), ""}));
}

TEST_F(WBGroupItemsTest, SeveralAreAddedAtOnceEachOnce)
{
    items.Add({Tail(), ""});
    EXPECT_EQ(items.AddAll({{Wing(), ""}, {Tail(), ""}, {Spar(), ""}, {Wing(), ""}}), 2);
    EXPECT_EQ(items.Items().size(), 3U);
}

TEST_F(WBGroupItemsTest, RowsTellMassRemarkAndPathFromTheRootDown)
{
    items.LookUp(&figures);
    items.AddAll({{Spar(), "Main spar"}, {Skin(), ""}, {Box(), ""}, {Tank(), ""}, {kLost, "Lost"}});
    EXPECT_THAT(Cells(1),
                ElementsAre("SPAR.1", "Main spar", "SPAR", "B", "10", "", "LA1/WING.1/SPAR.1"));
    EXPECT_THAT(Cells(2), ElementsAre("SKIN.1", "", "SKIN", "A", "30", "no centre of gravity",
                                      "LA1/WING.1/SKIN.1"));
    EXPECT_THAT(Cells(3), ElementsAre("BOX.1", "", "BOX", "A", "", "no mass", "LA1/BOX.1"));
    EXPECT_THAT(Cells(4),
                ElementsAre("TANK.1", "", "TANK", "A", "15", "incomplete below", "LA1/TANK.1"));
    EXPECT_THAT(Cells(5),
                ElementsAre("LOST.1", "Lost", "LOST", "A", "", "gone", "LA1/WING.1/BAY.1/LOST.1"));
    EXPECT_THAT(items.GoneTexts(), ElementsAre("LOST.1 (LA1/WING.1/BAY.1/LOST.1)"));
    const WBPanelTable table = items.Table();
    EXPECT_EQ(table.rows.size(), 5U);
    EXPECT_EQ(table.columns[4].title, "Mass [kg]");
    EXPECT_TRUE(table.columns[4].isNumber);
    EXPECT_EQ(table.columns[kWBRemarkColumn].title, "Remark");
    ShowIn("MASS", "g");
    EXPECT_EQ(items.Table().columns[4].title, "Mass [g]");
    EXPECT_EQ(Cells(1)[4], "10000");
}

TEST_F(WBGroupItemsTest, ItemInAnotherCountsWithItWhicheverCameFirst)
{
    items.LookUp(&figures);
    items.Add({Spar(), ""});
    EXPECT_THAT(States(), ElementsAre(WBItemState::Counts));
    items.Add({Wing(), ""});
    EXPECT_THAT(States(), ElementsAre(WBItemState::CountsWithAssembly, WBItemState::Counts));
    EXPECT_EQ(Cells(1)[kWBRemarkColumn], "counts with WING.1");
    EXPECT_EQ(items.Totals()->items, 1);
    EXPECT_EQ(items.Totals()->mass, 40.0);
    items.Remove(2);
    EXPECT_THAT(States(), ElementsAre(WBItemState::Counts));
    EXPECT_EQ(items.Totals()->mass, 10.0);
}

TEST_F(WBGroupItemsTest, WithoutFiguresNothingIsSaidOfAnItem)
{
    items.Add({kLost, ""});
    EXPECT_THAT(States(), ElementsAre(WBItemState::NotLookedUp));
    EXPECT_EQ(items.Totals(), std::nullopt);
    EXPECT_EQ(Cells(1)[kWBRemarkColumn], "");
    EXPECT_THAT(items.GoneTexts(), IsEmpty());
    items.LookUp(&figures);
    EXPECT_THAT(States(), ElementsAre(WBItemState::Gone));
    items.LookUp(nullptr);
    EXPECT_THAT(States(), ElementsAre(WBItemState::NotLookedUp));
}

TEST_F(WBGroupItemsTest, WhatTheFilterLeavesOutIsNotGone)
{
    static std::vector<std::string> asked;
    asked.clear();
    CATWBVPMNavGUITable table;
    table.isFilterValid = [](const CATUnicodeString& root, const CATUnicodeString& instance,
                             const CATUnicodeString& part, const CATUnicodeString& version,
                             int count, const CATUnicodeString& path) {
        asked.push_back(root.ToStdString() + " " + instance.ToStdString() + " " +
                        part.ToStdString() + " " + version.ToStdString() + " " +
                        std::to_string(count) + " " + path.ToStdString());
        return !(instance == "LOST.1");
    };
    CATWBVPMNavGUISetTable(table);
    items.LookUp(&figures);
    items.AddAll({{kLost, ""}, {{"OLD.1", "OLD", "A", {}}, ""}, {Wing(), ""}});
    EXPECT_THAT(States(),
                ElementsAre(WBItemState::FilteredOut, WBItemState::Gone, WBItemState::Counts));
    EXPECT_THAT(asked, ElementsAre("LA1 LOST.1 LOST A 2 BAY.1|WING.1", "LA1 OLD.1 OLD A 0 "));
    EXPECT_EQ(Cells(1)[kWBRemarkColumn], "left out by the filter");
    EXPECT_THAT(items.GoneTexts(), ElementsAre("OLD.1 (LA1/OLD.1)"));
    EXPECT_EQ(items.CountOf(WBItemState::FilteredOut), 1);
    EXPECT_EQ(items.Totals()->items, 1);
    items.RemoveGone();
    EXPECT_THAT(States(), ElementsAre(WBItemState::FilteredOut, WBItemState::Counts));
}

TEST_F(WBGroupItemsTest, GoneItemsAreRemovedTogether)
{
    items.LookUp(&figures);
    items.AddAll({{kLost, ""}, {Wing(), ""}, {{"OLD.1", "OLD", "A", {}}, ""}, {Tail(), ""}});
    items.RemoveGone();
    ASSERT_EQ(items.Items().size(), 2U);
    EXPECT_EQ(items.Items()[0].picked, Wing());
    EXPECT_EQ(items.Items()[1].picked, Tail());
}

TEST_F(WBGroupItemsTest, GroupIsStoredAsFiveListsWithPathsFromTheLeafUp)
{
    items.AddAll({{kLost, "Lost & found"}, {Wing(), "Wing"}});
    const WBStoredGroup stored = items.Stored();
    EXPECT_EQ(stored.joined, "");
    ASSERT_EQ(stored.lists.size(), 5U);
    EXPECT_EQ(stored.lists[0], (CATListValCATUnicodeString{"LOST.1", "WING.1"}));
    EXPECT_EQ(stored.lists[1], (CATListValCATUnicodeString{"LOST", "WING"}));
    EXPECT_EQ(stored.lists[2], (CATListValCATUnicodeString{"A", "A"}));
    EXPECT_EQ(stored.lists[3], (CATListValCATUnicodeString{"BAY.1|WING.1", ""}));
    EXPECT_EQ(stored.lists[4], (CATListValCATUnicodeString{"Lost & found", "Wing"}));
    WBGroupItems again("LA1");
    again.LookUp(&figures);
    again.Add({Tail(), ""});
    EXPECT_TRUE(again.Take(stored));
    EXPECT_EQ(again.Items(), items.Items());
    EXPECT_EQ(again.CountOf(WBItemState::Gone), 1);
    EXPECT_TRUE(again.Add({Tail(), ""})); // it is not there any more
}

TEST_F(WBGroupItemsTest, StoredInstanceWithoutNameOrPartIsRefused)
{
    items.Add({Tail(), ""});
    for (const std::size_t list : {0U, 1U}) {
        WBStoredGroup stored = items.Stored();
        stored.lists[list][1] = "";
        EXPECT_FALSE(items.Take(stored));
        EXPECT_EQ(items.Items().size(), 1U);
    }
}

TEST_F(WBGroupItemsTest, StoredInstanceThatStandsTwiceIsTakenOnce)
{
    items.Add({Tail(), ""});
    WBStoredGroup stored = items.Stored();
    for (CATListValCATUnicodeString& list : stored.lists) {
        list.Append(CATUnicodeString(list[1]));
    }
    EXPECT_TRUE(items.Take(stored));
    EXPECT_EQ(items.Items().size(), 1U);
}

TEST_F(WBGroupItemsTest, FoundInstancesAreATableOfTheSameColumns)
{
    const WBPanelTable table = WBFoundTable("LA1", figures, {kWing, kSpar, kBox});
    ASSERT_EQ(table.rows.size(), 3U);
    EXPECT_EQ(table.rows[0],
              (WBPanelRow{"WING.1", "Wing", "WING", "A", "40", "incomplete below", "LA1/WING.1"}));
    EXPECT_EQ(table.rows[1], (WBPanelRow{"SPAR.1", "Main spar", "SPAR", "B", "10",
                                         "counts with WING.1", "LA1/WING.1/SPAR.1"}));
    EXPECT_EQ(table.rows[2][kWBRemarkColumn + 1], "no mass");
    EXPECT_EQ(table.columns.size(), items.Table().columns.size());
}
