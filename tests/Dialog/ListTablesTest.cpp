#include "MultiListTesting.h"

#include "TemporaryDirectory.h"

#include <QAction>
#include <QClipboard>

#include <algorithm>
#include <filesystem>

namespace
{

TEST_F(CATDlgMultiListTest, MarkIsNotCopied)
{
    Fill({{"wheel", "2kg"}});
    m_list.SetCellMark(0, 1, true);
    Show();
    ClickCell(0, 0);
    QTest::keyClick(&View(), Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(QApplication::clipboard()->text().trimmed(), "wheel");
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

} // namespace
