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
        QObject::connect(button, &QCheckBox::toggled, button,
                         [this](bool checked) { SendFromUser(*this, Modified, checked ? 1 : 0); });
    }
}

void CATDlgCheckButton::SetChecked(bool checked)
{
    if (auto* button = qobject_cast<QCheckBox*>(Widget())) {
        const Quiet quiet;
        button->setChecked(checked);
    }
}

bool CATDlgCheckButton::IsChecked() const
{
    auto* button = qobject_cast<QCheckBox*>(Widget());
    return button != nullptr && button->isChecked();
}
