#include "WBListTable.h"

#include "PanelChecks.h"
#include "PanelSession.h"

#include "CATDlgDialog.h"

#include <QLineEdit>

namespace
{

class WBListTableTest : public PanelSession
{
protected:
    WBListTableTest()
    {
        m_window = new CATDlgDialog(&CATSession::Root(), "Window", 0x4001);
        list = new CATDlgMultiList(m_window, "List");
        m_window->SetVisibility(true);
    }
    ~WBListTableTest() override { CATSession::Close(); }

    QTableView& View() const { return *ViewOf(*list); }
    QString Seen(int row, int column) const
    {
        return View().model()->index(row, column).data().toString();
    }

    CATDlgMultiList* list = nullptr;

private:
    CATDlgDialog* m_window = nullptr;
};

WBPanelTable Table(const char* title, std::vector<WBPanelRow> rows)
{
    WBPanelTable table;
    table.columns = {{"Name", {}, false}, {title, "How heavy it is", true}};
    table.rows = std::move(rows);
    return table;
}

} // namespace

TEST_F(WBListTableTest, ShowsTitlesTooltipsAlignmentAndRows)
{
    WBShowTable(*list, Table("Mass [kg]", {{"wheel", "2"}, {"wing", "30"}}));
    Settle();
    EXPECT_EQ(list->ColumnTitles(), (CATListValCATUnicodeString{"Name", "Mass [kg]"}));
    EXPECT_EQ(Seen(1, 1), "30");
    const QAbstractItemModel& model = *View().model();
    EXPECT_EQ(model.headerData(1, Qt::Horizontal, Qt::ToolTipRole).toString(),
              "Mass [kg]\nHow heavy it is");
    EXPECT_NE(model.index(0, 1).data(Qt::TextAlignmentRole).toInt() & Qt::AlignRight, 0);
    EXPECT_EQ(model.index(0, 0).data(Qt::TextAlignmentRole).toInt() & Qt::AlignRight, 0);
}

TEST_F(WBListTableTest, AnotherTableTakesTheSelectionWithIt)
{
    WBShowTable(*list, Table("Mass [kg]", {{"wheel", "2"}, {"wing", "30"}}));
    list->SelectRow(2);
    WBShowTable(*list, Table("Mass [kg]", {{"fin", "4"}, {"rudder", "3"}}));
    EXPECT_EQ(list->SelectedRow(), 0);
    EXPECT_EQ(list->Cell(0, 1), "fin");
}

TEST_F(WBListTableTest, SameRowsWrittenAnewKeepSelectionOrderAndMarks)
{
    WBShowTable(*list, Table("Mass [kg]", {{"wheel", "2"}, {"wing", "30"}, {"fin", "4"}}));
    list->SetRowEmphasis(1, true);
    View().sortByColumn(1, Qt::DescendingOrder); // wing, fin, wheel
    Settle();
    list->SelectRow(3);
    WBRewriteTable(*list,
                   Table("Mass [g]", {{"wheel", "2000"}, {"wing", "30000"}, {"fin", "4000"}}));
    Settle();
    EXPECT_EQ(list->ColumnTitles()[2], "Mass [g]");
    EXPECT_EQ(Seen(0, 1), "30000");
    EXPECT_EQ(Seen(1, 1), "4000");
    EXPECT_EQ(Seen(2, 1), "2000");
    EXPECT_EQ(list->SelectedRow(), 3);
    EXPECT_EQ(View().currentIndex().row(), 1);
    EXPECT_TRUE(View().model()->index(2, 0).data(Qt::FontRole).value<QFont>().bold());
}

TEST_F(WBListTableTest, OtherRowsThanBeforeReplaceThem)
{
    WBShowTable(*list, Table("Mass [kg]", {{"wheel", "2"}, {"wing", "30"}}));
    WBRewriteTable(*list, Table("Mass [kg]", {{"fin", "4"}}));
    EXPECT_EQ(list->RowCount(), 1);
    EXPECT_EQ(list->Cell(0, 1), "fin");
    WBRewriteTable(*list, Table("Mass [kg]", {{"fin", "4"}, {"rudder", "3"}}));
    EXPECT_EQ(list->Cell(1, 2), "3");
}
