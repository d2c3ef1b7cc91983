#include "CATApplicationFrame.h"

#include "CATSession.h"

namespace
{

CATApplicationFrame*& TheFrame()
{
    static CATApplicationFrame* frame = nullptr;
    return frame;
}

} // namespace

CATApplicationFrame* CATApplicationFrame::GetFrame()
{
    return TheFrame();
}

CATApplicationFrame::CATApplicationFrame(CATDlgDialog* window)
    : m_window(window), m_madeWindow(window == nullptr)
{
    if (m_madeWindow) {
        m_window = new CATDlgDialog(&CATSession::Root(), "MainWindow", 0);
    }
    TheFrame() = this;
}

CATApplicationFrame::~CATApplicationFrame()
{
    if (TheFrame() == this) {
        TheFrame() = nullptr;
    }
    // A session that has closed has taken the window with it, and said so.
    if (m_madeWindow && m_window != nullptr) {
        m_window->Release();
    }
}

void CATApplicationFrame::Forget(const CATDlgDialog* window)
{
    CATApplicationFrame* frame = TheFrame();
    if (frame != nullptr && frame->m_window == window) {
        frame->m_window = nullptr;
    }
}

void CATApplicationFrame::SetWorkshop(const CATString& workshop, const CATString& workbench)
{
    m_workshop = workshop;
    m_workbench = workbench;
}

void CATApplicationFrame::SetPrompt(const CATUnicodeString& prompt)
{
    m_prompt = prompt;
}
