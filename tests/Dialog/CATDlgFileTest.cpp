#include "CATDlgFile.h"
#include "DialogSession.h"
#include "TemporaryDirectory.h"
#include "TestEnvironment.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QTimer>

namespace
{

class CATDlgFileTest : public DialogSession
{
protected:
    CATDlgFile& Box(CATDlgFile::Mode mode)
    {
        auto* box = new CATDlgFile(&m_window, "Choose a file", mode);
        box->SetTitle("Choose a file");
        box->SetFileType("XML report", "xml");
        box->SetDirectory(m_directory.Path());
        return *box;
    }
    static void Choose(const CATUnicodeString& path)
    {
        CATDlgFile::SetChooser([path](const CATDlgFile::Request&) { return path; });
    }
    QFileDialog* Shown() { return Child<QFileDialog>(m_window, "Choose a file"); }

    TemporaryDirectory m_directory;
};

TEST_F(CATDlgFileTest, ChooserStandsInForTheUser)
{
    std::vector<CATDlgFile::Request> asked;
    CATDlgFile::SetChooser([&](const CATDlgFile::Request& request) {
        asked.push_back(request);
        return CATUnicodeString("/tmp/in.csv");
    });
    CATDlgFile& box = Box(CATDlgFile::Mode::Open);
    box.SetSuggestedName("report");
    EXPECT_EQ(box.DisplayBlocking(), "/tmp/in.csv");
    EXPECT_EQ(box.Path(), "/tmp/in.csv");
    ASSERT_EQ(asked.size(), 1U);
    EXPECT_EQ(asked[0].name, "Choose a file");
    EXPECT_EQ(asked[0].title, "Choose a file");
    EXPECT_EQ(asked[0].mode, CATDlgFile::Mode::Open);
    EXPECT_EQ(asked[0].suggestedName, "report");
    EXPECT_EQ(asked[0].extension, "xml");
    EXPECT_EQ(asked[0].directory.ToStdString(), m_directory.Path());
}

TEST_F(CATDlgFileTest, DefaultDirectoryIsTheTemporaryOne)
{
    const TestEnvironment environment;
    CATDlgFile& box = Box(CATDlgFile::Mode::Save);
    box.SetDirectory("C:\\Temp");
    box.Display();
    EXPECT_EQ(Shown()->directory().absolutePath(), "/tmp");
}

TEST_F(CATDlgFileTest, NameToSaveToGetsTheEndingThatItLacks)
{
    Choose("/tmp/out");
    EXPECT_EQ(Box(CATDlgFile::Mode::Save).DisplayBlocking(), "/tmp/out.xml");
    EXPECT_EQ(Box(CATDlgFile::Mode::Open).DisplayBlocking(), "/tmp/out");
    Choose("/tmp/out.txt");
    EXPECT_EQ(Box(CATDlgFile::Mode::Save).DisplayBlocking(), "/tmp/out.txt");
}

TEST_F(CATDlgFileTest, EmptyPathCancels)
{
    Choose("");
    EXPECT_EQ(Box(CATDlgFile::Mode::Save).DisplayBlocking(), "");
}

TEST_F(CATDlgFileTest, AnswerFollowsFromTheEventLoop)
{
    Choose("/tmp/out.xml");
    CATDlgFile& box = Box(CATDlgFile::Mode::Save);
    const auto& chosen = Notes(box, CATDlgFile::FileChosen);
    const auto& cancelled = Notes(box, CATDlgFile::Cancelled);
    box.Display();
    EXPECT_TRUE(chosen.empty());
    Settle();
    EXPECT_EQ(chosen.size(), 1U);
    Choose("");
    box.Display();
    Settle();
    EXPECT_EQ(chosen.size(), 1U);
    EXPECT_EQ(cancelled.size(), 1U);
}

TEST_F(CATDlgFileTest, BoxOffersTheNameTheTypeAndTheDirectory)
{
    CATDlgFile& box = Box(CATDlgFile::Mode::Save);
    box.SetSuggestedName("WBReport.xml");
    box.Display();
    QFileDialog* shown = Shown();
    ASSERT_NE(shown, nullptr);
    EXPECT_TRUE(shown->isVisible());
    EXPECT_EQ(shown->acceptMode(), QFileDialog::AcceptSave);
    EXPECT_EQ(shown->nameFilters(), QStringList{"XML report (*.xml)"});
    EXPECT_EQ(shown->directory().absolutePath().toStdString(), m_directory.Path());
    EXPECT_EQ(shown->selectedFiles().front().toStdString(), m_directory.At("WBReport.xml"));
    EXPECT_TRUE(shown->testOption(QFileDialog::DontConfirmOverwrite));
}

TEST_F(CATDlgFileTest, UserChoosesAFile)
{
    m_directory.Write("in.xml", "<a/>");
    CATDlgFile& box = Box(CATDlgFile::Mode::Open);
    const auto& chosen = Notes(box, CATDlgFile::FileChosen);
    box.Display();
    Shown()->selectFile(QString::fromStdString(m_directory.At("in.xml")));
    QMetaObject::invokeMethod(Shown(), "accept");
    Settle();
    EXPECT_EQ(chosen.size(), 1U);
    EXPECT_EQ(box.Path().ToStdString(), m_directory.At("in.xml"));
}

TEST_F(CATDlgFileTest, UserCancels)
{
    CATDlgFile& box = Box(CATDlgFile::Mode::Open);
    const auto& cancelled = Notes(box, CATDlgFile::Cancelled);
    box.Display();
    QTest::keyClick(Shown(), Qt::Key_Escape);
    EXPECT_EQ(cancelled.size(), 1U);
    EXPECT_EQ(box.Path(), "");
}

TEST_F(CATDlgFileTest, BlockingBoxWaitsForTheUser)
{
    CATDlgFile& box = Box(CATDlgFile::Mode::Save);
    QTimer::singleShot(50, box.Widget(), [this] {
        auto* name = Shown()->findChild<QLineEdit*>("fileNameEdit");
        name->setText(QString::fromStdString(m_directory.At("new.xml")));
        QTest::keyClick(name, Qt::Key_Return);
    });
    EXPECT_EQ(box.DisplayBlocking().ToStdString(), m_directory.At("new.xml"));
}

TEST_F(CATDlgFileTest, HandlerMayAskForTheBoxsDestruction)
{
    CATDlgFile& box = Box(CATDlgFile::Mode::Open);
    m_root.Subscribe(&box, CATDlgFile::Cancelled, [](const CATNotification& notification) {
        notification.sender.RequestDelayedDestruction();
    });
    box.Display();
    const QPointer<QFileDialog> shown(Shown());
    QTest::keyClick(shown, Qt::Key_Escape);
    Settle();
    EXPECT_TRUE(shown.isNull());
    EXPECT_EQ(m_window.ChildCount(), 0);
}

} // namespace
