#include "CATDlgMultiList.h"
#include "CATDlgControls.h"
#include "CATStatus.h"
#include "DialogSession.h"
#include "TemporaryDirectory.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableView>
#include <QToolTip>

#include <algorithm>
#include <filesystem>

namespace
{

class CATDlgMultiListTest : public DialogSession
{
protected:
    using Names = std::vector<std::string>;

    CATDlgMultiListTest() : m_list(*new CATDlgMultiList(&m_window, "List"))
    {
        m_list.SetColumnTitles({"Name", "Mass"});
        m_list.SetColumnIsNumber(1, true);
        m_window.SetPreferredSize(600, 400);
    }

    void Fill(std::initializer_list<std::pair<const char*, const char*>> rows)
    {
        int row = 0;
        for (const auto& [name, mass] : rows) {
            ++row;
            m_list.SetCell(0, row, name);
            m_list.SetCell(1, row, mass);
        }
        Settle();
    }
    QTableView& View() { return *qobject_cast<QTableView*>(m_list.Widget()); }
    /// The names as they stand on the screen.
    std::vector<std::string> Shown()
    {
        std::vector<std::string> names;
        for (int row = 0; row < View().model()->rowCount(); ++row) {
            names.push_back(View().model()->index(row, 0).data().toString().toStdString());
        }
        return names;
    }
    void ClickTitle(int column)
    {
        QHeaderView& titles = *View().horizontalHeader();
        const QPoint middle(titles.sectionViewportPosition(column) + titles.sectionSize(column) / 2,
                            titles.height() / 2);
        QTest::mouseClick(titles.viewport(), Qt::LeftButton, {}, middle);
        Settle();
    }
    /// The dark pixels of a title, one text a column of pixels from the first that has some to the
    /// last.
    Names InkOfTitle(int column)
    {
        constexpr int kDark = 110;
        QHeaderView& titles = *View().horizontalHeader();
        const QImage image = titles.viewport()->grab().toImage();
        const int begin = titles.sectionViewportPosition(column);
        Names ink;
        std::size_t inked = 0;
        for (int x = begin; x < begin + titles.sectionSize(column) - 1; ++x) {
            std::string pixels;
            for (int y = 0; y < image.height(); ++y) {
                pixels += qGray(image.pixel(x, y)) < kDark ? '#' : ' ';
            }
            const bool isInked = pixels.find('#') != std::string::npos;
            if (isInked || !ink.empty()) {
                ink.push_back(pixels);
            }
            inked = isInked ? ink.size() : inked;
        }
        ink.resize(inked);
        return ink;
    }
    void ClickCell(int row, int column)
    {
        QTest::mouseClick(View().viewport(), Qt::LeftButton, {},
                          View().visualRect(View().model()->index(row, column)).center());
    }
    QString TooltipOf(int row, int column)
    {
        const QPoint middle = View().visualRect(View().model()->index(row, column)).center();
        QHelpEvent event(QEvent::ToolTip, middle, View().viewport()->mapToGlobal(middle));
        QApplication::sendEvent(View().viewport(), &event);
        return QToolTip::text();
    }
    QLineEdit& Filter() { return *Child<QLineEdit>(m_window, "ListFilter"); }

    CATDlgMultiList& m_list;
};

TEST_F(CATDlgMultiListTest, TitlesFixTheColumns)
{
    EXPECT_EQ(m_list.ColumnCount(), 2);
    EXPECT_EQ(m_list.ColumnTitles(), (CATListValCATUnicodeString{"Name", "Mass"}));
    EXPECT_EQ(View().model()->headerData(1, Qt::Horizontal).toString(), "Mass");
}

TEST_F(CATDlgMultiListTest, CellsAreWrittenAndReadWithRowsFromOneAndColumnsFromZero)
{
    EXPECT_EQ(m_list.SetCell(0, 1, "wheel"), S_OK);
    EXPECT_EQ(m_list.SetCell(1, 1, "2kg"), S_OK);
    EXPECT_EQ(m_list.SetCell(0, 1, "wing"), S_OK);
    EXPECT_EQ(m_list.Cell(0, 1), "wing");
    EXPECT_EQ(m_list.Cell(1, 1), "2kg");
    EXPECT_EQ(m_list.RowCount(), 1);
    EXPECT_EQ(m_list.Cell(0, 0), "");
    EXPECT_EQ(m_list.Cell(0, 2), "");
    EXPECT_EQ(m_list.Cell(2, 1), "");
    EXPECT_EQ(m_list.Cell(-1, 1), "");
}

TEST_F(CATDlgMultiListTest, OnlyTheNextRowIsAppendedAndOnlyWithTheOption)
{
    EXPECT_EQ(m_list.SetCell(0, 1, "x", 0), S_FALSE);
    EXPECT_EQ(m_list.SetCell(0, 2, "x", 64), S_FALSE);
    EXPECT_EQ(m_list.SetCell(0, 0, "x"), E_INVALIDARG);
    EXPECT_EQ(m_list.SetCell(2, 1, "x"), E_INVALIDARG);
    EXPECT_EQ(m_list.SetCell(-1, 1, "x"), E_INVALIDARG);
    EXPECT_EQ(m_list.RowCount(), 0);
    EXPECT_EQ(m_list.SetCell(0, 1, "x", 64), S_OK);
    EXPECT_EQ(m_list.SetCell(0, 1, "y", 0), S_OK);
    EXPECT_EQ(m_list.Cell(0, 1), "y");
}

TEST_F(CATDlgMultiListTest, ViewShowsWhatTheOwnerWrote)
{
    Fill({{"wheel", "2kg"}, {"wing", "30kg"}});
    EXPECT_EQ(Shown(), (Names{"wheel", "wing"}));
    m_list.SetCell(0, 2, "rudder");
    Settle();
    EXPECT_EQ(Shown(), (Names{"wheel", "rudder"}));
    m_list.RemoveAll();
    Settle();
    EXPECT_EQ(Shown(), Names{});
    EXPECT_EQ(m_list.RowCount(), 0);
}

TEST_F(CATDlgMultiListTest, WholeRowsReplaceAll)
{
    Fill({{"wheel", "2kg"}, {"wing", "30kg"}});
    m_list.SetRows({{"rudder", "4kg"}});
    Settle();
    EXPECT_EQ(Shown(), Names{"rudder"});
    EXPECT_EQ(m_list.Cell(1, 1), "4kg");
}

TEST_F(CATDlgMultiListTest, ClickOnATitleSortsUpThenDownThenAsDelivered)
{
    Fill({{"b", "9kg"}, {"c", "10kg"}, {"a", "1kg"}});
    Show();
    ClickTitle(1);
    EXPECT_EQ(Shown(), (Names{"a", "b", "c"}));
    ClickTitle(1);
    EXPECT_EQ(Shown(), (Names{"c", "b", "a"}));
    ClickTitle(1);
    EXPECT_EQ(Shown(), (Names{"b", "c", "a"}));
    EXPECT_EQ(m_list.Cell(0, 1), "b"); // the owner's rows never moved
}

TEST_F(CATDlgMultiListTest, RowsWrittenIntoASortedListTakeTheirPlaceInIt)
{
    Fill({{"b", "2kg"}, {"c", "3kg"}});
    Show();
    ClickTitle(1);
    m_list.SetCell(0, 3, "a");
    m_list.SetCell(1, 3, "1kg");
    Settle();
    EXPECT_EQ(Shown(), (Names{"a", "b", "c"}));
    EXPECT_EQ(m_list.Cell(0, 3), "a");
    m_list.SetCell(1, 1, "9kg");
    Settle();
    EXPECT_EQ(Shown(), (Names{"a", "c", "b"}));
}

TEST_F(CATDlgMultiListTest, SelectedRowIsTheOwnersAndStaysSelectedWhileSorting)
{
    Fill({{"b", "2kg"}, {"c", "3kg"}, {"a", "1kg"}});
    Show();
    EXPECT_EQ(m_list.SelectedRow(), 0);
    ClickTitle(1);
    const auto& rows = Notes(m_list, CATDlgMultiList::RowSelected);
    ClickCell(0, 0);
    EXPECT_EQ(m_list.SelectedRow(), 3);
    EXPECT_EQ(rows, std::vector<int>{3});
    ClickTitle(1);
    EXPECT_EQ(m_list.SelectedRow(), 3);
    EXPECT_EQ(View().currentIndex().row(), 2);
    EXPECT_EQ(rows.size(), 1U);
}

TEST_F(CATDlgMultiListTest, SelectionSurvivesOtherTitlesOfTheSameColumns)
{
    Fill({{"wheel", "2kg"}, {"wing", "30kg"}});
    Show();
    ClickCell(1, 1);
    m_list.SetColumnTitles({"Name", "Mass [lb], as the user has it"});
    Settle();
    EXPECT_EQ(m_list.SelectedRow(), 2);
    EXPECT_TRUE(View().selectionModel()->isSelected(View().model()->index(1, 1)));
    EXPECT_EQ(View().currentIndex(), View().model()->index(1, 1));
    EXPECT_EQ(View().model()->headerData(1, Qt::Horizontal).toString(),
              "Mass [lb], as the user has it");
    EXPECT_GE(View().columnWidth(1),
              View().fontMetrics().horizontalAdvance("Mass [lb], as the user has it"));
}

TEST_F(CATDlgMultiListTest, ProgramSelectsARowWithoutTellingAnybody)
{
    Fill({{"b", "2kg"}, {"c", "3kg"}});
    const auto& rows = Notes(m_list, CATDlgMultiList::RowSelected);
    m_list.SelectRow(2);
    EXPECT_EQ(m_list.SelectedRow(), 2);
    EXPECT_EQ(View().selectionModel()->selectedRows().size(), 1);
    m_list.SelectRow(0);
    EXPECT_EQ(m_list.SelectedRow(), 0);
    m_list.SelectRow(7);
    EXPECT_EQ(m_list.SelectedRow(), 0);
    m_list.SelectRow(1);
    m_list.RemoveAll();
    EXPECT_EQ(m_list.SelectedRow(), 0);
    EXPECT_TRUE(rows.empty());
}

TEST_F(CATDlgMultiListTest, RowIsSelectedBeforeTheEventLoopCameRound)
{
    m_list.SetCell(0, 1, "wheel");
    m_list.SelectRow(1);
    EXPECT_EQ(View().currentIndex().row(), 0);
}

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

TEST_F(CATDlgMultiListTest, MarkIsNotCopied)
{
    Fill({{"wheel", "2kg"}});
    m_list.SetCellMark(0, 1, true);
    Show();
    ClickCell(0, 0);
    QTest::keyClick(&View(), Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(QApplication::clipboard()->text().trimmed(), "wheel");
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

TEST_F(CATDlgMultiListTest, FilterLineComesWithManyRowsAndWithCtrlF)
{
    Fill({{"a", "1kg"}});
    Show();
    EXPECT_FALSE(Filter().isVisible());
    m_list.SelectRow(1);
    View().setFocus();
    QTest::keyClick(&View(), Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(Filter().isVisible());
    QTest::keyClick(&Filter(), Qt::Key_Escape);
    EXPECT_FALSE(Filter().isVisible());
    EXPECT_TRUE(m_window.IsVisible()); // Esc left the filter and not the window
    // Twelve rows, as many as a mass type has figures, are looked over at a glance.
    for (int row = 1; row <= 12; ++row) {
        m_list.SetCell(0, row, "x");
    }
    Settle();
    EXPECT_FALSE(Filter().isVisible());
    m_list.SetCell(0, 13, "x");
    Settle();
    EXPECT_TRUE(Filter().isVisible());
}

TEST_F(CATDlgMultiListTest, FilterHidesRowsWithoutTakingThemAway)
{
    Fill({{"wheel", "1kg"}, {"wing", "2kg"}, {"rudder", "3kg"}});
    Show();
    QTest::keyClicks(&Filter(), "w");
    EXPECT_EQ(Shown(), (Names{"wheel", "wing"}));
    EXPECT_EQ(m_list.RowCount(), 3);
    m_list.SetCell(0, 4, "window");
    m_list.SetCell(0, 5, "seat");
    Settle();
    EXPECT_EQ(Shown(), (Names{"wheel", "wing", "window"}));
    QTest::keyClick(&Filter(), Qt::Key_Escape);
    EXPECT_EQ(Shown(), (Names{"wheel", "wing", "rudder", "window", "seat"}));
}

/// Rows that are taken away and written anew at once, as when an option of their display changes.
class RefilledList : public CATDlgMultiListTest
{
protected:
    RefilledList()
    {
        WriteRows("kg");
        Show();
    }
    void WriteRows(const std::string& unit, int count = 200)
    {
        for (int row = 1; row <= count; ++row) {
            m_list.SetCell(0, row, "part " + std::to_string(row));
            m_list.SetCell(1, row, std::to_string(count - row) + unit);
        }
    }
    void Refill(const std::string& unit, int count = 200)
    {
        m_list.RemoveAll();
        WriteRows(unit, count);
        Settle();
    }
    std::string TopCell()
    {
        return View().model()->index(View().rowAt(2), 1).data().toString().toStdString();
    }
};

TEST_F(RefilledList, KeepsTheOrderThatTheUserAskedFor)
{
    ClickTitle(1);
    EXPECT_EQ(Shown().front(), "part 200");
    Refill("");
    EXPECT_EQ(Shown().front(), "part 200");
    EXPECT_EQ(Shown().back(), "part 1");
    EXPECT_EQ(TopCell(), "0");
}

TEST_F(RefilledList, KeepsTheFilter)
{
    QTest::keyClicks(&Filter(), "19");
    const Names before = Shown();
    // Twelve names, with 19, 119 and 190 to 199, and the twelve masses with the same.
    EXPECT_EQ(before.size(), 24U);
    Refill("");
    EXPECT_EQ(Shown(), before);
    EXPECT_EQ(Filter().text(), "19");
}

TEST_F(RefilledList, KeepsTheSelectionWithoutTellingAnybody)
{
    ClickTitle(1);
    ClickCell(3, 0);
    const auto& rows = Notes(m_list, CATDlgMultiList::RowSelected);
    EXPECT_EQ(m_list.SelectedRow(), 197);
    m_list.RemoveAll();
    EXPECT_EQ(m_list.SelectedRow(), 0);
    WriteRows("lb");
    Settle();
    EXPECT_EQ(m_list.SelectedRow(), 197);
    EXPECT_TRUE(View().selectionModel()->isSelected(View().model()->index(3, 0)));
    EXPECT_TRUE(rows.empty());
    Refill("g");
    EXPECT_EQ(m_list.SelectedRow(), 197);
}

TEST_F(RefilledList, ForgetsTheSelectionOfOtherRows)
{
    ClickCell(3, 0);
    Refill("kg", 199);
    EXPECT_EQ(m_list.SelectedRow(), 0);
    EXPECT_FALSE(View().selectionModel()->hasSelection());
    Refill("kg");
    ClickCell(3, 0);
    m_list.RemoveAll();
    WriteRows("kg");
    m_list.SetCell(0, 4, "another part");
    Settle();
    EXPECT_EQ(m_list.SelectedRow(), 0);
    EXPECT_FALSE(View().selectionModel()->hasSelection());
}

TEST_F(RefilledList, TakesTheRowThatTheProgramSelectsInstead)
{
    ClickCell(3, 0);
    m_list.RemoveAll();
    WriteRows("lb");
    m_list.SelectRow(7);
    Settle();
    EXPECT_EQ(m_list.SelectedRow(), 7);
}

TEST_F(RefilledList, KeepsThePlaceAndTheWidths)
{
    View().setColumnWidth(0, 222);
    View().verticalScrollBar()->setValue(View().verticalScrollBar()->maximum() / 2);
    const int place = View().verticalScrollBar()->value();
    const std::string top = TopCell();
    ASSERT_GT(place, 0);
    Refill("kg");
    EXPECT_EQ(View().verticalScrollBar()->value(), place);
    EXPECT_EQ(View().columnWidth(0), 222);
    EXPECT_EQ(TopCell(), top);
}

TEST_F(RefilledList, LosesItsMarksAndTooltips)
{
    m_list.SetCellMark(0, 1, true);
    m_list.SetRowEmphasis(2, true);
    m_list.SetCellTooltip(0, 1, "before: wing");
    Refill("kg");
    EXPECT_FALSE(View().model()->index(0, 0).data(Qt::FontRole).isValid());
    EXPECT_FALSE(View().model()->index(1, 0).data(Qt::FontRole).isValid());
    EXPECT_FALSE(View().model()->index(0, 0).data(Qt::ToolTipRole).isValid());
}

TEST_F(RefilledList, ShowsNothingOfRowsThatAreGone)
{
    m_list.RemoveAll();
    // The view asks before it has heard of it.
    EXPECT_EQ(View().model()->index(150, 0).data().toString(), "");
    Settle();
    EXPECT_EQ(Shown(), Names{});
    EXPECT_EQ(m_list.SelectedRow(), 0);
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

TEST_F(CATDlgMultiListTest, ColumnsMoreThanBeforeKeepTheirCells)
{
    Fill({{"wheel", "2kg"}});
    m_list.SetColumnTitles({"Name", "Mass", "Material"});
    m_list.SetCell(2, 1, "steel");
    Settle();
    EXPECT_EQ(m_list.Cell(0, 1), "wheel");
    EXPECT_EQ(m_list.Cell(1, 1), "2kg");
    EXPECT_EQ(View().model()->index(0, 2).data().toString(), "steel");
}

TEST_F(CATDlgMultiListTest, RowsMayBeWrittenBeforeTheirTitles)
{
    auto* list = new CATDlgMultiList(&m_window, "Other");
    list->SetRows({{"wheel"}, {"wing", "30kg"}});
    list->SetColumnTitles({"Name", "Mass"});
    EXPECT_EQ(list->RowCount(), 2);
    EXPECT_EQ(list->Cell(0, 1), "wheel");
    EXPECT_EQ(list->Cell(1, 2), "30kg");
}

TEST_F(CATDlgMultiListTest, CellsAreCopiedWithTheirTitles)
{
    Fill({{"b", "2kg"}, {"a", "1kg"}});
    Show();
    ClickTitle(1);
    View().setFocus();
    QTest::keyClick(&View(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&View(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "Name\tMass\na\t1kg\nb\t2kg");
    QTest::keyClick(&View(), Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "a\t1kg\nb\t2kg");
}

TEST_F(CATDlgMultiListTest, OneCellIsCopiedWithItsTitle)
{
    Fill({{"b", "2kg"}, {"a", "1kg"}});
    Show();
    ClickCell(1, 1);
    QTest::keyClick(&View(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "Mass\n1kg");
}

TEST_F(CATDlgMultiListTest, CellsBetweenSelectedOnesAreCopiedEmpty)
{
    Fill({{"b", "2kg"}, {"a", "1kg"}});
    Show();
    ClickCell(0, 0);
    QTest::mouseClick(View().viewport(), Qt::LeftButton, Qt::ControlModifier,
                      View().visualRect(View().model()->index(1, 1)).center());
    QTest::keyClick(&View(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "Name\tMass\nb\t\n\t1kg");
}

TEST_F(CATDlgMultiListTest, ColumnThatTheUserMovedIsCopiedWhereItStands)
{
    Fill({{"b", "2kg"}});
    Show();
    View().horizontalHeader()->moveSection(0, 1);
    View().selectAll();
    QTest::keyClick(&View(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "Mass\tName\n2kg\tb");
}

TEST_F(CATDlgMultiListTest, KeysSortByTheColumnOfTheCurrentCell)
{
    Fill({{"b", "2kg"}, {"a", "1kg"}, {"c", "3kg"}});
    Show();
    ClickCell(0, 1);
    QTest::keyClick(&View(), Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(Shown(), (Names{"a", "b", "c"}));
    QTest::keyClick(&View(), Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(Shown(), (Names{"c", "b", "a"}));
    QTest::keyClick(&View(), Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(Shown(), (Names{"b", "a", "c"}));
}

TEST_F(CATDlgMultiListTest, MenuOffersWhatTheKeysDo)
{
    QStringList offered;
    for (const QAction* action : View().actions()) {
        if (!action->isSeparator()) {
            offered.append(action->objectName());
        }
    }
    EXPECT_EQ(offered,
              (QStringList{"List.Copy", "List.CopyPlain", "List.SelectAll", "List.Filter",
                           "List.SortUp", "List.SortDown", "List.SortNone", "List.Export"}));
}

TEST_F(CATDlgMultiListTest, ExportWritesTheListAsSeen)
{
    const TemporaryDirectory directory;
    CATDlgFile::SetChooser([&](const CATDlgFile::Request& request) {
        EXPECT_EQ(request.mode, CATDlgFile::Mode::Save);
        EXPECT_EQ(request.suggestedName, "List.csv");
        EXPECT_EQ(request.extension, "csv");
        return CATUnicodeString(directory.At("out"));
    });
    Fill({{"wing", "2kg"}, {"rudder", "3kg"}, {"wheel, left", "1kg"}});
    Show();
    QTest::keyClicks(&Filter(), "w");
    ClickTitle(1);
    QTest::keyClick(&View(), Qt::Key_E, Qt::ControlModifier);
    EXPECT_EQ(directory.Read("out.csv"), "Name,Mass\r\n\"wheel, left\",1kg\r\nwing,2kg\r\n");
}

TEST_F(CATDlgMultiListTest, ExportAsksBeforeItReplacesAFile)
{
    const TemporaryDirectory directory;
    const std::string path = directory.Write("out.csv", "old");
    CATDlgFile::SetChooser([&](const CATDlgFile::Request&) { return CATUnicodeString(path); });
    Fill({{"wing", "2kg"}});
    Show();
    int answer = 2;
    std::vector<std::string> asked;
    CATDlgNotify::SetAnswerer([&](const CATDlgNotify::Shown& box) {
        asked.push_back(box.text.ToStdString());
        return answer;
    });
    QTest::keyClick(&View(), Qt::Key_E, Qt::ControlModifier);
    EXPECT_EQ(directory.Read("out.csv"), "old");
    ASSERT_EQ(asked.size(), 1U);
    EXPECT_NE(asked.front().find(path), std::string::npos);
    answer = 1;
    QTest::keyClick(&View(), Qt::Key_E, Qt::ControlModifier);
    EXPECT_EQ(directory.Read("out.csv"), "Name,Mass\r\nwing,2kg\r\n");
}

TEST_F(CATDlgMultiListTest, ExportThatFailsNamesTheFileAndTheReason)
{
    const TemporaryDirectory directory;
    struct Case
    {
        std::string path;
        const char* reason;
    };
    const std::vector<Case> cases{
        {"/no/such/directory/out.csv", "there is no such directory"},
        {directory.Write("file", "x") + "/out.csv", "there is no such directory"},
        {directory.At("full.csv"), "there is no room left on the disk"},
        {"/proc/out.csv", "there is no such directory"},
        {directory.At("folder.csv"), "there is a directory of that name"},
    };
    std::filesystem::create_symlink("/dev/full", directory.At("full.csv"));
    std::filesystem::create_directory(directory.At("folder.csv"));
    Fill({{"wing", "2kg"}});
    Show();
    for (const Case& row : cases) {
        CATDlgFile::SetChooser(
            [&](const CATDlgFile::Request&) { return CATUnicodeString(row.path); });
        std::vector<CATDlgNotify::Shown> boxes;
        CATDlgNotify::SetAnswerer([&](const CATDlgNotify::Shown& box) {
            boxes.push_back(box);
            return 1;
        });
        QTest::keyClick(&View(), Qt::Key_E, Qt::ControlModifier);
        ASSERT_FALSE(boxes.empty()) << row.path;
        EXPECT_EQ(boxes.back().style, 0x10000000);
        EXPECT_TRUE(boxes.back().text.Contains(row.path));
        EXPECT_TRUE(boxes.back().text.Contains(row.reason)) << boxes.back().text.Text();
    }
}

TEST_F(CATDlgMultiListTest, ExportWritesMoreThanItKeepsInMemory)
{
    const TemporaryDirectory directory;
    CATDlgFile::SetChooser(
        [&](const CATDlgFile::Request&) { return CATUnicodeString(directory.At("out.csv")); });
    std::string expected = "Name,Mass\r\n";
    for (int row = 1; row <= 3000; ++row) {
        const std::string name = std::to_string(row) + std::string(1000, 'n');
        m_list.SetCell(0, row, name);
        expected += name + ",\r\n";
    }
    Show();
    View().setFocus();
    QTest::keyClick(&View(), Qt::Key_E, Qt::ControlModifier);
    EXPECT_EQ(directory.Read("out.csv"), expected);
}

TEST_F(CATDlgMultiListTest, ExportThatIsCancelledWritesNothing)
{
    CATDlgFile::SetChooser([](const CATDlgFile::Request&) { return CATUnicodeString(); });
    CATDlgNotify::SetAnswerer([](const CATDlgNotify::Shown&) -> std::optional<int> {
        ADD_FAILURE() << "no box should be shown";
        return 1;
    });
    Fill({{"wing", "2kg"}});
    Show();
    QTest::keyClick(&View(), Qt::Key_E, Qt::ControlModifier);
}

TEST_F(CATDlgMultiListTest, EmptyListSaysWhyItIsEmpty)
{
    m_list.SetEmptyText("No document revisions");
    Show();
    const QImage with = View().viewport()->grab().toImage();
    m_list.SetEmptyText("");
    EXPECT_NE(with, View().viewport()->grab().toImage());
}

TEST_F(CATDlgMultiListTest, FilterThatNoRowPassesSaysSo)
{
    Fill({{"wheel", "1kg"}});
    m_list.SetEmptyText("No parts");
    Show();
    const auto picture = [this](const char* filter) {
        Filter().setText(filter);
        Settle();
        EXPECT_EQ(View().model()->rowCount(), 0);
        return View().viewport()->grab().toImage();
    };
    // The text that was looked for stands in it.
    EXPECT_NE(picture("rudder"), picture("seat"));
    const QImage none = picture("rudder");
    Filter().clear();
    m_list.RemoveAll();
    Settle();
    EXPECT_NE(View().viewport()->grab().toImage(), none);
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

TEST_F(CATDlgMultiListTest, HundredThousandRowsAreShownSortedAndFiltered)
{
    constexpr int kRows = 100000;
    for (int row = 1; row <= kRows; ++row) {
        m_list.SetCell(0, row, "part " + std::to_string(row));
        m_list.SetCell(1, row, std::to_string(kRows - row) + "kg");
    }
    Show();
    EXPECT_EQ(View().model()->rowCount(), kRows);
    ClickTitle(1);
    EXPECT_EQ(View().model()->index(0, 0).data().toString(), "part 100000");
    EXPECT_EQ(View().model()->index(kRows - 1, 0).data().toString(), "part 1");
    Filter().setText("77777");
    // The part of that number, and the one whose mass it is.
    EXPECT_EQ(View().model()->rowCount(), 2);
    EXPECT_EQ(View().model()->index(0, 1).data().toString(), "22223kg");
    EXPECT_EQ(View().model()->index(1, 1).data().toString(), "77777kg");
}

} // namespace
