#include "WBShowing.h"

#include "PanelChecks.h"
#include "PanelSession.h"
#include "WBListTable.h"

#include "CATDlgControls.h"
#include "CATDlgDialog.h"

namespace
{

struct Facts
{
    CATUnicodeString name;
};
Facts ReadFacts(const WBPanelRecord& record)
{
    return {record.partName};
}

/// A row a material; which material, by volume or by area, tells the rows apart.
WBPanelTable Materials(const WBPanelRecord& record)
{
    WBPanelTable table;
    table.columns = {{"Material", {}, false}, {"Mass", {}, true}, {"Counted", {}, false}};
    table.keyColumns = {0, 2};
    for (const WBPanelStatistic& statistic : record.statistics) {
        table.rows.push_back({statistic.material, CATUnicodeString::FromReal(statistic.mass),
                              statistic.dimension == 3 ? "volume" : "area"});
    }
    return table;
}

class WBShowingTest : public PanelSession
{
protected:
    WBShowingTest()
    {
        m_window = new CATDlgDialog(&CATSession::Root(), "Window", 0x4001);
        list = new CATDlgMultiList(m_window, "List");
        label = new CATDlgLabel(m_window, "Label");
        m_window->SetVisibility(true);
    }
    ~WBShowingTest() override { CATSession::Close(); }

    /// Shows what stands now and whether anything was marked.
    bool Show(const WBPanelRecord& now, const WBPanelRecord* before)
    {
        WBShowing showing(now, before, WBShowTable);
        showing.ShowFacts<Facts>({{label, &Facts::name}}, ReadFacts);
        showing.ShowTable(*list, Materials);
        Settle();
        return showing.HasMarks();
    }
    bool IsMarked(int row, int column) const
    {
        return ViewOf(*list)->model()->index(row, column).data(Qt::FontRole).isValid();
    }
    std::string TooltipOf(int row, int column) const
    {
        return ViewOf(*list)
            ->model()
            ->index(row, column)
            .data(Qt::ToolTipRole)
            .toString()
            .toStdString();
    }
    std::string LabelSays() const { return label->Widget()->accessibleDescription().toStdString(); }

    CATDlgMultiList* list = nullptr;
    CATDlgLabel* label = nullptr;

private:
    CATDlgDialog* m_window = nullptr;
};

WBPanelRecord Record(const char* name, std::vector<WBPanelStatistic> materials)
{
    WBPanelRecord record;
    record.partName = name;
    record.statistics = std::move(materials);
    return record;
}

} // namespace

TEST_F(WBShowingTest, WithoutARecordBeforeNothingIsMarked)
{
    EXPECT_FALSE(Show(Record("Wing", {{"Steel", 3, 2}}), nullptr));
    EXPECT_EQ(label->Title(), "Wing");
    EXPECT_EQ(list->Cell(1, 1), "2");
    EXPECT_FALSE(IsMarked(0, 1));
    EXPECT_EQ(LabelSays(), "");
    EXPECT_EQ(label->Tooltip(), "");
}

TEST_F(WBShowingTest, WhatReadsAsBeforeIsNotMarked)
{
    const WBPanelRecord record = Record("Wing", {{"Steel", 3, 2}});
    EXPECT_FALSE(Show(record, &record));
    EXPECT_FALSE(IsMarked(0, 1));
    EXPECT_EQ(TooltipOf(0, 1), "");
}

TEST_F(WBShowingTest, WhatReadsOtherwiseIsMarkedWithTheOldTextInItsTooltip)
{
    const WBPanelRecord before = Record("Wing", {{"Steel", 3, 2}, {"Al", 3, 5}});
    EXPECT_TRUE(Show(Record("Fin", {{"Steel", 3, 2.5}, {"Al", 3, 5}}), &before));
    EXPECT_EQ(LabelSays(), "changed");
    EXPECT_EQ(label->Tooltip(), "Before: Wing");
    EXPECT_TRUE(IsMarked(0, 1));
    EXPECT_EQ(TooltipOf(0, 1), "Before: 2");
    EXPECT_FALSE(IsMarked(0, 0));
    EXPECT_FALSE(IsMarked(1, 1));
}

TEST_F(WBShowingTest, EitherATextOrACellAloneIsAMark)
{
    const WBPanelRecord before = Record("Wing", {{"Steel", 3, 2}});
    EXPECT_TRUE(Show(Record("Fin", {{"Steel", 3, 2}}), &before));
    EXPECT_TRUE(Show(Record("Wing", {{"Steel", 3, 3}}), &before));
}

TEST_F(WBShowingTest, RowsAreComparedWithThemselvesWhereverTheyStand)
{
    const WBPanelRecord before = Record("Wing", {{"Steel", 3, 2}, {"Steel", 2, 5}, {"Al", 3, 1}});
    EXPECT_FALSE(Show(Record("Wing", {{"Al", 3, 1}, {"Steel", 2, 5}, {"Steel", 3, 2}}), &before));
}

TEST_F(WBShowingTest, OfANewRowTheNumbersAreMarked)
{
    const WBPanelRecord before = Record("Wing", {{"Steel", 3, 2}});
    EXPECT_TRUE(Show(Record("Wing", {{"Steel", 3, 2}, {"Steel", 2, 5}}), &before));
    EXPECT_FALSE(IsMarked(1, 0));
    EXPECT_TRUE(IsMarked(1, 1));
    EXPECT_EQ(TooltipOf(1, 1), "Before: –");
    EXPECT_FALSE(IsMarked(1, 2));
}

TEST_F(WBShowingTest, MarksGoWhenThereIsNothingToCompareWith)
{
    const WBPanelRecord before = Record("Wing", {{"Steel", 3, 2}});
    const WBPanelRecord now = Record("Fin", {{"Steel", 3, 2.5}});
    ASSERT_TRUE(Show(now, &before));
    WBShowing showing(now, nullptr, WBRewriteTable); // the rows stay
    showing.ShowFacts<Facts>({{label, &Facts::name}}, ReadFacts);
    showing.ShowTable(*list, Materials);
    EXPECT_FALSE(IsMarked(0, 1));
    EXPECT_EQ(TooltipOf(0, 1), "");
    EXPECT_EQ(LabelSays(), "");
    EXPECT_EQ(label->Tooltip(), "");
}
