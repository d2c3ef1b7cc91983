#include "CATDlgControls.h"
#include "Toolkit.h"

#include <QCheckBox>

const CATEvent CATDlgCheckButton::Modified("CheckButtonModified");

CATDlgCheckButton::CATDlgCheckButton(CATDialog* parent, const CATString& name, int style)
    : CATDialog(parent, name, style)
{
    if (QWidget* inside = Inside(parent)) {
        auto* button = new QCheckBox(inside);
        Adopt(button);
        QObject::connect(button, &QCheckBox::toggled, button, [this](bool checked) {
            m_isChecked = checked;
            SendFromUser(*this, Modified, checked ? 1 : 0);
        });
    }
}

void CATDlgCheckButton::SetChecked(bool checked, CATDlgTelling telling)
{
    m_isChecked = checked;
    if (auto* button = qobject_cast<QCheckBox*>(Widget())) {
        const Quiet quiet;
        button->setChecked(checked);
    }
    if (telling == CATDlgTelling::Notify) {
        Send(Modified, checked ? 1 : 0);
    }
}
