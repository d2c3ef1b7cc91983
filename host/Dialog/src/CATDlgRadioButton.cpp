#include "CATDlgControls.h"
#include "Toolkit.h"

#include <QRadioButton>

const CATEvent CATDlgRadioButton::Modified("RadioButtonModified");

CATDlgRadioButton::CATDlgRadioButton(CATDialog* parent, const CATString& name, int style)
    : CATDialog(parent, name, style)
{
    if (QWidget* inside = Inside(parent)) {
        auto* button = new QRadioButton(inside);
        Adopt(button);
        QObject::connect(button, &QRadioButton::toggled, button,
                         [this](bool checked) { SendFromUser(*this, Modified, checked ? 1 : 0); });
    }
}

void CATDlgRadioButton::SetChecked(bool checked)
{
    if (auto* button = qobject_cast<QRadioButton*>(Widget())) {
        const Quiet quiet;
        button->setChecked(checked);
    }
}

bool CATDlgRadioButton::IsChecked() const
{
    auto* button = qobject_cast<QRadioButton*>(Widget());
    return button != nullptr && button->isChecked();
}
