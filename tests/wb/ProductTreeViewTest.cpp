#include "ProductTreeView.h"

#include "CATDlgApplication.h"
#include "ProductTreeModel.h"

#include <QHeaderView>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>

namespace
{

/// A row that has only a name of its own.
class Named : public CATBaseUnknown
{
public:
    explicit Named(std::string text) : name(std::move(text)) {}
    std::string name;
};

/// A root with one assembly, below which a part has a far longer identifier than the others.
ProductTreeSource LongPartBelow()
{
    return {CATBaseUnknown_var::Adopt(new Named("R")),
            [](const CATBaseUnknown_var& object) {
                CATProductRow row;
                row.instance = CATHandle<Named>(object)->name;
                row.part = row.instance == "R.1.1"
                               ? CATUnicodeString("a part with a long identifier")
                               : row.instance;
                row.hasUses = !(row.instance == "R.1.1");
                return row;
            },
            [](const CATBaseUnknown_var& object) {
                return std::vector<CATBaseUnknown_var>{
                    CATBaseUnknown_var::Adopt(new Named(CATHandle<Named>(object)->name + ".1"))};
            }};
}

class ProductTreeViewTest : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        s_application = std::make_unique<CATDlgApplication>(s_count, s_arguments.data());
    }
    static void TearDownTestSuite() { s_application.reset(); }

    ProductTreeViewTest()
    {
        m_view.resize(900, 300);
        m_view.Products().SetSource(LongPartBelow());
        m_view.ShowFirstLevel();
        m_view.show();
        CATDlgApplication::ProcessEvents();
    }

    ProductTreeView m_view;

private:
    inline static int s_count = 1;
    inline static std::array<char, 5> s_program{'t', 'e', 's', 't', '\0'};
    inline static std::array<char*, 2> s_arguments{s_program.data(), nullptr};
    inline static std::unique_ptr<CATDlgApplication> s_application;
};

} // namespace

TEST_F(ProductTreeViewTest, OpeningANodeMakesRoomForTheIdentifiersBelowIt)
{
    const int before = m_view.columnWidth(ProductTreeModel::Part);
    const QModelIndex root = m_view.model()->index(0, 0);
    m_view.expand(m_view.model()->index(0, 0, root));
    EXPECT_GT(m_view.columnWidth(ProductTreeModel::Part), before);
    EXPECT_GT(m_view.columnWidth(ProductTreeModel::Part),
              m_view.fontMetrics().horizontalAdvance("a part with a long identifier"));
}

TEST_F(ProductTreeViewTest, TheNameTakesTheRoomThatIsLeft)
{
    const QHeaderView& titles = *m_view.header();
    EXPECT_EQ(titles.visualIndex(ProductTreeModel::Name), titles.count() - 1);
    EXPECT_EQ(titles.length(), m_view.viewport()->width());
}

TEST_F(ProductTreeViewTest, TitlesAndCellsHaveTheSameRoomAtTheirSides)
{
    const QStyle& cells = *m_view.style();
    const QStyle& titles = *m_view.header()->style();
    constexpr int kOwnPixelOfCells = 1;
    EXPECT_EQ(titles.pixelMetric(QStyle::PM_HeaderMargin), 6);
    EXPECT_EQ(cells.pixelMetric(QStyle::PM_FocusFrameHMargin) + kOwnPixelOfCells, 6);
}

TEST_F(ProductTreeViewTest, TheArrowOfASelectedRowIsBright)
{
    const QModelIndex root = m_view.model()->index(0, 0);
    const auto arrow = [&] {
        const QRect cell = m_view.visualRect(root);
        return m_view.viewport()
            ->grab(QRect(0, cell.top(), cell.left(), cell.height()))
            .toImage()
            .convertToFormat(QImage::Format_Grayscale8);
    };
    const auto darkest = [](const QImage& image) {
        int least = 255;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                least = std::min(least, qGray(image.pixel(x, y)));
            }
        }
        return least;
    };
    EXPECT_LT(darkest(arrow()), 150);
    m_view.selectionModel()->select(root, QItemSelectionModel::ClearAndSelect |
                                              QItemSelectionModel::Rows);
    const int background = qGray(m_view.palette().color(QPalette::Highlight).rgb());
    EXPECT_GE(darkest(arrow()), background - 3) << "the arrow is darker than what it stands on";
}

TEST_F(ProductTreeViewTest, TheKeyboardsFrameGoesAroundTheWholeRow)
{
    EXPECT_TRUE(m_view.allColumnsShowFocus());
}
