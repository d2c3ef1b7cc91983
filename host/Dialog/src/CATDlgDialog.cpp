#include "CATDlgDialog.h"

#include "CATApplicationFrame.h"
#include "DialogWindow.h"
#include "StyleWords.h"
#include "Toolkit.h"

#include <QDialogButtonBox>
#include <QPushButton>

#include <array>

const CATEvent CATDlgDialog::WindowClosed("WindowClosed");
const CATEvent CATDlgDialog::CloseActivated("CloseActivated");

namespace
{

/// Which standard buttons stand below the controls.
enum class StandardButtons
{
    None,
    Close
};
constexpr std::array kWindowWords{StyleWord<StandardButtons>{0x4001, StandardButtons::None},
                                  StyleWord<StandardButtons>{0x4201, StandardButtons::None},
                                  StyleWord<StandardButtons>{0x10000201, StandardButtons::Close}};

/// The window that a new one stays above: its parent's, or the session's main window.
QWidget* WindowAbove(CATCommand* parent)
{
    auto* dialog = dynamic_cast<CATDialog*>(parent);
    if (dialog == nullptr && CATApplicationFrame::GetFrame() != nullptr) {
        dialog = CATApplicationFrame::GetFrame()->MainWindow();
    }
    QWidget* widget = dialog == nullptr ? nullptr : dialog->Widget();
    return widget == nullptr ? nullptr : widget->window();
}

} // namespace

CATDlgDialog::CATDlgDialog(CATCommand* parent, const CATString& name, int style)
    : CATDialog(parent, name, style)
{
    if (!HasToolkit()) {
        return;
    }
    auto* window = new DialogWindow(WindowAbove(parent));
    Adopt(window, nullptr, window->Content());
    window->SetMayClose([this] { return IsAllowedByGuard(); });
    window->SetOnClosed([this] { SendFromUser(*this, WindowClosed); });
    const StandardButtons buttons =
        LookOf<StandardButtons>(style, kWindowWords, StandardButtons::None);
    if (buttons == StandardButtons::Close) {
        QPushButton* close = window->Buttons()->addButton(DialogMessage("Button.Close", "@Close"),
                                                          QDialogButtonBox::RejectRole);
        close->setObjectName(QStringLiteral("StandardCloseButton"));
        close->setAutoDefault(false);
        QObject::connect(close, &QPushButton::clicked, window, [this, window] {
            if (IsAllowedByGuard()) {
                window->hide();
                SendFromUser(*this, CloseActivated);
            }
        });
    }
}

CATDlgDialog::CATDlgDialog(CATCommand* parent, const CATString& name, QWidget* window)
    : CATDialog(parent, name, 0)
{
    Adopt(window);
}

CATDlgDialog::~CATDlgDialog()
{
    CATApplicationFrame::Forget(this);
}

void CATDlgDialog::SetPreferredSize(int width, int height)
{
    if (auto* window = dynamic_cast<DialogWindow*>(Widget())) {
        window->SetPreferredSize(QSize(width, height));
    } else if (Widget() != nullptr) {
        Widget()->resize(width, height);
    }
}

void CATDlgDialog::BringToFront()
{
    SetVisibility(true);
    if (Widget() != nullptr) {
        Widget()->raise();
        Widget()->activateWindow();
    }
}
