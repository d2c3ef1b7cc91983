#include "CATApplicationFrame.h"
#include "CATSession.h"
#include "DialogSession.h"

namespace
{

using CATApplicationFrameTest = DialogSession;

TEST_F(CATApplicationFrameTest, IsThereAsLongAsItsObject)
{
    EXPECT_EQ(CATApplicationFrame::GetFrame(), nullptr);
    {
        const CATApplicationFrame frame(&m_window);
        EXPECT_EQ(CATApplicationFrame::GetFrame(), &frame);
        EXPECT_EQ(frame.MainWindow(), &m_window);
    }
    EXPECT_EQ(CATApplicationFrame::GetFrame(), nullptr);
    EXPECT_EQ(m_root.Child(1), &m_window); // the window is the tree's
}

TEST_F(CATApplicationFrameTest, KnowsWhereTheUserIs)
{
    CATApplicationFrame frame(&m_window);
    frame.SetWorkshop("NavigatorWorkshop", "WeightAndBalance");
    frame.SetPrompt("Select a part");
    EXPECT_EQ(frame.Workshop(), "NavigatorWorkshop");
    EXPECT_EQ(frame.Workbench(), "WeightAndBalance");
    EXPECT_EQ(frame.Prompt(), "Select a part");
}

TEST_F(CATApplicationFrameTest, SessionWithoutAWindowHasOneThatIsNeverShown)
{
    const int children = CATSession::Root().ChildCount();
    {
        const CATApplicationFrame frame(nullptr);
        ASSERT_NE(frame.MainWindow(), nullptr);
        EXPECT_EQ(frame.MainWindow()->Parent(), &CATSession::Root());
        EXPECT_FALSE(frame.MainWindow()->IsVisible());
    }
    EXPECT_EQ(CATSession::Root().ChildCount(), children);
}

TEST_F(CATApplicationFrameTest, ForgetsAMainWindowThatIsGone)
{
    const CATApplicationFrame given(&m_window);
    m_window.Release();
    EXPECT_EQ(given.MainWindow(), nullptr);
    const CATApplicationFrame made(nullptr);
    CATSession::Close();
    EXPECT_EQ(made.MainWindow(), nullptr);
}

} // namespace
