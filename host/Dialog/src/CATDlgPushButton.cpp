#include "CATDlgControls.h"
#include "Toolkit.h"

#include <QPushButton>

const CATEvent CATDlgPushButton::Activated("PushButtonActivated");

CATDlgPushButton::CATDlgPushButton(CATDialog* parent, const CATString& name, int style)
    : CATDialog(parent, name, style)
{
    QWidget* inside = Inside(parent);
    if (inside == nullptr) {
        return;
    }
    auto* button = new QPushButton(inside);
    // Enter in an editor does not press whichever button comes first.
    button->setAutoDefault(false);
    Adopt(button);
    QObject::connect(button, &QPushButton::clicked, button, [this] {
        if (IsAllowedByGuard()) {
            SendFromUser(*this, Activated);
        }
    });
}

void CATDlgPushButton::SetDefault()
{
    if (auto* button = qobject_cast<QPushButton*>(Widget())) {
        button->setDefault(true);
    }
}
