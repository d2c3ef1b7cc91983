#include "MultiListTesting.h"

#include "CATDlgControls.h"

#include <QScrollBar>

namespace
{

TEST_F(CATDlgMultiListTest, NumbersStandAtTheRightWithTheirTitle)
{
    Fill({{"wheel", "2kg"}});
    const QAbstractItemModel& model = *View().model();
    const auto right = [](const QVariant& alignment) {
        return (alignment.toInt() & static_cast<int>(Qt::AlignRight)) != 0;
    };
    EXPECT_TRUE(right(model.index(0, 1).data(Qt::TextAlignmentRole)));
    EXPECT_TRUE(right(model.headerData(1, Qt::Horizontal, Qt::TextAlignmentRole)));
    EXPECT_FALSE(right(model.index(0, 0).data(Qt::TextAlignmentRole)));
    EXPECT_FALSE(right(model.headerData(0, Qt::Horizontal, Qt::TextAlignmentRole)));
    m_list.SetColumnIsNumber(1, false);
    EXPECT_FALSE(right(model.index(0, 1).data(Qt::TextAlignmentRole)));
}

TEST_F(CATDlgMultiListTest, ColumnOfNumbersIsSeenByItsCells)
{
    CATDlgMultiList& list = *new CATDlgMultiList(&m_window, "Other");
    list.SetColumnTitles({"Name", "Mass"});
    const auto right = [&list](int column) {
        const QAbstractItemModel& model = *qobject_cast<QTableView*>(list.Widget())->model();
        const auto isRight = [](const QVariant& alignment) {
            return (alignment.toInt() & static_cast<int>(Qt::AlignRight)) != 0;
        };
        const bool title = isRight(model.headerData(column, Qt::Horizontal, Qt::TextAlignmentRole));
        EXPECT_EQ(isRight(model.index(0, column).data(Qt::TextAlignmentRole)), title);
        return title;
    };
    list.SetRows({{"wheel", "2kg"}, {"wing", "---"}, {"rudder", ""}, {"seat", "-1.5 kg"}});
    Settle();
    EXPECT_FALSE(right(0));
    EXPECT_TRUE(right(1));
    list.SetCell(1, 3, "unknown");
    EXPECT_FALSE(right(1));
    list.SetCell(1, 3, "3kg");
    EXPECT_TRUE(right(1));
    list.SetColumnIsNumber(1, false); // the owner knows better
    EXPECT_FALSE(right(1));
    list.SetColumnIsNumber(0, true);
    EXPECT_TRUE(right(0));
}

TEST_F(CATDlgMultiListTest, EmphasisedRowIsBoldAlsoWhereSortingPutsIt)
{
    Fill({{"b", "2kg"}, {"a", "1kg"}});
    m_list.SetRowEmphasis(1, true);
    m_list.SetRowEmphasis(9, true); // there is no such row
    const auto isBold = [this](int row) {
        return View().model()->index(row, 0).data(Qt::FontRole).value<QFont>().bold();
    };
    EXPECT_TRUE(isBold(0));
    EXPECT_FALSE(isBold(1));
    Show();
    ClickTitle(1);
    EXPECT_TRUE(isBold(1));
    m_list.SetRowEmphasis(1, false);
    EXPECT_FALSE(isBold(1));
}

TEST_F(CATDlgMultiListTest, MarkedCellIsBoldAlsoWhereSortingPutsIt)
{
    Fill({{"b", "2kg"}, {"a", "1kg"}});
    m_list.SetCellMark(1, 1, true);
    m_list.SetCellMark(1, 9, true); // there are no such cells
    m_list.SetCellMark(1, 0, true);
    m_list.SetCellMark(2, 2, true);
    m_list.SetCellMark(-1, 2, true);
    const auto isBold = [this](int row, int column) {
        return View().model()->index(row, column).data(Qt::FontRole).value<QFont>().bold();
    };
    EXPECT_TRUE(isBold(0, 1));
    EXPECT_FALSE(isBold(0, 0));
    EXPECT_FALSE(isBold(1, 1));
    Show();
    ClickTitle(1);
    EXPECT_TRUE(isBold(1, 1));
    m_list.SetCellMark(1, 1, false);
    EXPECT_FALSE(isBold(1, 1));
}

TEST_F(CATDlgMultiListTest, MarkIsAColourAndACornerWhichStandsOutAloneToo)
{
    Fill({{"wheel", "2kg"}, {"spat", "1kg"}});
    Show();
    const auto picture = [this](int row) {
        const QRect cell = View().visualRect(View().model()->index(row, 1));
        return View().viewport()->grab(cell).toImage();
    };
    const auto corner = [&](int row) {
        const QImage cell = picture(row);
        return cell.pixelColor(cell.width() - 2, 1);
    };
    const QColor without = corner(1);
    m_list.SetCellMark(1, 2, true);
    Settle();
    EXPECT_GE(Contrast(corner(1), QApplication::palette().color(QPalette::AlternateBase)), 4.5);
    EXPECT_NE(corner(1), without);
    ClickCell(1, 1); // white on the selection's colour
    EXPECT_EQ(corner(1), QApplication::palette().color(QPalette::HighlightedText));
}

TEST_F(CATDlgMultiListTest, MarkedTextFitsItsColumn)
{
    const QString text = QString(30, QLatin1Char('8')); // beyond its title's width
    Fill({{text.toUtf8().constData(), "2kg"}});
    m_list.SetCellMark(0, 1, true);
    Show();
    QFont bold = View().font();
    bold.setBold(true);
    EXPECT_GE(View().columnWidth(0), QFontMetrics(bold).horizontalAdvance(text) + 12);
}

TEST_F(CATDlgMultiListTest, OtherRowsAreNotMarked)
{
    Fill({{"wheel", "2kg"}});
    m_list.SetCellMark(0, 1, true);
    m_list.SetRows({{"spat", "1kg"}});
    Settle();
    EXPECT_FALSE(View().model()->index(0, 0).data(Qt::FontRole).isValid());
}

TEST_F(CATDlgMultiListTest, CellsTooltipIsHeardToo)
{
    Fill({{"wheel", "2kg"}});
    m_list.SetCellTooltip(1, 1, "before: 1 kg");
    EXPECT_EQ(View().model()->index(0, 1).data(Qt::AccessibleDescriptionRole).toString(),
              "before: 1 kg");
}

TEST_F(CATDlgMultiListTest, CellThatIsCutShowsWholeInItsTooltip)
{
    const std::string name = "a" + std::string(78, 'n') + "z";
    Fill({{name.c_str(), "2kg"}});
    m_list.SetCellTooltip(1, 1, "weighed on Monday");
    Show();
    EXPECT_LT(View().columnWidth(0), 80 * View().fontMetrics().horizontalAdvance('n'));
    EXPECT_TRUE(TooltipOf(0, 0).contains(QString::fromStdString(name)));
    EXPECT_TRUE(TooltipOf(0, 1).contains("weighed on Monday"));
}

TEST_F(CATDlgMultiListTest, CellThatFitsNeedsNoTooltip)
{
    Fill({{"wheel", "2kg"}});
    Show();
    EXPECT_EQ(TooltipOf(0, 0), "");
}

TEST_F(CATDlgMultiListTest, TitleHasTheColumnsTooltip)
{
    m_list.SetColumnTooltip(1, "with its bounds");
    EXPECT_EQ(View().model()->headerData(1, Qt::Horizontal, Qt::ToolTipRole).toString(),
              "Mass\nwith its bounds");
    EXPECT_EQ(View().model()->headerData(0, Qt::Horizontal, Qt::ToolTipRole).toString(), "Name");
    m_list.SetColumnTooltip(1, "");
    EXPECT_EQ(View().model()->headerData(1, Qt::Horizontal, Qt::ToolTipRole).toString(), "Mass");
}

TEST_F(CATDlgMultiListTest, SortedTitleKeepsAllOfItsTextBesideTheMark)
{
    for (const bool isNumber : {true, false}) {
        m_list.SetColumnTitles({"WB Mass", "WB Mass", "Name"});
        m_list.SetColumnIsNumber(1, isNumber);
        Fill({{"a", "1"}, {"b", "2"}});
        Show();
        View().sortByColumn(-1, Qt::AscendingOrder);
        const Names text = InkOfTitle(1);
        ClickTitle(1);
        const Names sorted = InkOfTitle(1);
        ASSERT_GT(text.size(), 30U);
        const auto found = std::search(sorted.begin(), sorted.end(), text.begin(), text.end());
        ASSERT_NE(found, sorted.end()) << isNumber;
        // The mark stands behind it.
        EXPECT_GT(sorted.end() - found, static_cast<std::ptrdiff_t>(text.size()) + 5);
    }
}

TEST_F(CATDlgMultiListTest, ColumnsFitTheirTextsAndTheLastTakesTheRest)
{
    m_list.SetColumnIsNumber(1, false);
    Fill({{"a name with some length", "2kg"}});
    Show();
    const int needed = View().fontMetrics().horizontalAdvance("a name with some length");
    EXPECT_GE(View().columnWidth(0), needed);
    EXPECT_LT(View().columnWidth(0), needed + 60);
    EXPECT_EQ(View().horizontalHeader()->length(), View().viewport()->width());
}

TEST_F(CATDlgMultiListTest, NumbersInTheLastColumnStayNearTheOthers)
{
    Show();
    Fill({{"a", "1"}, {"b", "2"}});
    EXPECT_LT(View().columnWidth(1), 150);
    EXPECT_GT(View().viewport()->width(), 400);
}

TEST_F(CATDlgMultiListTest, WidthThatTheUserGaveStays)
{
    Fill({{"wheel", "2kg"}});
    Show();
    View().setColumnWidth(0, 222);
    m_list.SetCell(0, 2, "a name that would need much more than that");
    Settle();
    EXPECT_EQ(View().columnWidth(0), 222);
}

TEST_F(CATDlgMultiListTest, ArrowKeysReachEveryColumnAndBringItIntoSight)
{
    CATListValCATUnicodeString titles;
    CATListValCATUnicodeString cells;
    for (int column = 0; column < 24; ++column) {
        titles.Append("A long title of column " + CATUnicodeString::FromInt(column));
        cells.Append("x");
    }
    m_list.SetColumnTitles(titles);
    m_list.SetRows({cells});
    Show();
    m_list.SelectRow(1);
    View().setFocus();
    for (int column = 0; column < 23; ++column) {
        QTest::keyClick(&View(), Qt::Key_Right);
    }
    EXPECT_EQ(View().currentIndex().column(), 23);
    EXPECT_TRUE(
        View().viewport()->rect().contains(View().visualRect(View().currentIndex()).center()));
}

TEST_F(CATDlgMultiListTest, WideListBeginsAtItsFirstColumnAndScrollsToTheOthers)
{
    CATListValCATUnicodeString titles;
    for (int column = 0; column < 25; ++column) {
        titles.Append("Column " + CATUnicodeString::FromInt(column));
    }
    m_list.SetColumnTitles(titles);
    const auto write = [this](const std::string& text) {
        m_list.RemoveAll();
        for (int row = 1; row <= 3; ++row) {
            for (int column = 0; column < 25; ++column) {
                m_list.SetCell(column, row, text);
            }
        }
        Settle();
    };
    write(std::string(200, 'n'));
    Show();
    QScrollBar& bar = *View().horizontalScrollBar();
    EXPECT_EQ(View().columnAt(2), 0);
    EXPECT_GT(bar.maximum(), 0);
    // One long text does not push all others out of sight.
    EXPECT_LT(View().columnWidth(0), View().viewport()->width());
    ClickCell(1, 0);
    bar.setValue(bar.maximum() / 2);
    const int place = bar.value();
    write(std::string(200, 'm'));
    EXPECT_EQ(bar.value(), place);
    EXPECT_EQ(m_list.SelectedRow(), 0); // its first cell is another
}

TEST_F(CATDlgMultiListTest, TabLeavesTheList)
{
    auto* button = new CATDlgPushButton(&m_window, "Button");
    button->SetPlacement(1, 0);
    Fill({{"a", "1kg"}});
    Show();
    m_list.SelectRow(1);
    View().setFocus();
    QTest::keyClick(&View(), Qt::Key_Tab);
    EXPECT_EQ(m_window.Widget()->focusWidget(), button->Widget());
}

TEST_F(CATDlgMultiListTest, TabGoesThroughTheFilterBothWays)
{
    auto* button = new CATDlgPushButton(&m_window, "Button");
    button->SetPlacement(1, 0);
    for (int row = 1; row <= 13; ++row) {
        m_list.SetCell(0, row, "x");
    }
    Show();
    const auto focusAfter = [this](Qt::Key key) {
        QTest::keyClick(m_window.Widget()->focusWidget(), key);
        return m_window.Widget()->focusWidget();
    };
    button->Widget()->setFocus();
    EXPECT_EQ(focusAfter(Qt::Key_Tab), &Filter());
    EXPECT_EQ(focusAfter(Qt::Key_Tab), &View());
    EXPECT_EQ(focusAfter(Qt::Key_Tab), button->Widget());
    EXPECT_EQ(focusAfter(Qt::Key_Backtab), &View());
    EXPECT_EQ(focusAfter(Qt::Key_Backtab), &Filter());
    EXPECT_EQ(focusAfter(Qt::Key_Backtab), button->Widget());
}

TEST_F(CATDlgMultiListTest, BorderShowsThatTheKeysGoToTheList)
{
    auto* button = new CATDlgPushButton(&m_window, "Next");
    Show();
    const QColor highlight = QApplication::palette().color(QPalette::Highlight);
    const auto corner = [this] {
        Settle();
        return m_window.Widget()->grab().toImage().pixelColor(
            View().mapTo(m_window.Widget(), QPoint(0, 0)));
    };
    View().setFocus(Qt::TabFocusReason);
    EXPECT_EQ(corner(), highlight);
    button->Widget()->setFocus(Qt::TabFocusReason);
    EXPECT_NE(corner(), highlight);
}

TEST_F(CATDlgMultiListTest, SortingLeavesTheWidthsAlone)
{
    Fill({{"b", "2kg"}, {"c", "3kg"}, {"a", "1kg"}});
    Show();
    View().horizontalHeader()->blockSignals(true); // not a width that the user gave
    View().setColumnWidth(0, 99);
    View().horizontalHeader()->blockSignals(false);
    ClickTitle(1);
    EXPECT_EQ(View().columnWidth(0), 99);
}

TEST_F(CATDlgMultiListTest, WidestTextOfManyRowsFits)
{
    for (int row = 1; row <= 150; ++row) {
        m_list.SetCell(0, row, row == 120 ? "a name with some length" : "short");
        m_list.SetCellMark(0, row, row < 100);
    }
    Settle();
    Show();
    EXPECT_GE(View().columnWidth(0),
              View().fontMetrics().horizontalAdvance("a name with some length"));
}

TEST_F(CATDlgMultiListTest, VisibleLinesAndWidthAreAskedFor)
{
    const int line = View().verticalHeader()->defaultSectionSize();
    m_list.SetVisibleLines(3);
    const int three = View().sizeHint().height();
    m_list.SetVisibleLines(30);
    EXPECT_EQ(View().sizeHint().height() - three, 27 * line);
    m_list.SetVisibleTextWidth(100);
    EXPECT_EQ(View().sizeHint().width(), 100 * View().fontMetrics().averageCharWidth());
}

} // namespace
