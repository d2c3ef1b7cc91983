#include "CATDlgControls.h"
#include "SpinBox.h"
#include "Toolkit.h"

#include <algorithm>

const CATEvent CATDlgSpinner::Modified("SpinnerModified");

namespace
{

constexpr int kUsualSteps = 100;
// The one word of the up button's sensitivity that does something.
constexpr int kAlwaysUp = 16;

} // namespace

CATDlgSpinner::CATDlgSpinner(CATDialog* parent, const CATString& name, int style)
    : CATDialog(parent, name, style)
{
    if (QWidget* inside = Inside(parent)) {
        auto* box = new SpinBox(inside);
        Adopt(box);
        QObject::connect(box, &QDoubleSpinBox::valueChanged, box, [this](double value) {
            m_value = value;
            SendFromUser(*this, Modified, static_cast<int>(value));
        });
    }
    SetRange(m_low, m_high, kUsualSteps);
}

void CATDlgSpinner::SetRange(double low, double high, int steps)
{
    m_low = low;
    m_high = std::max(low, high);
    if (auto* box = dynamic_cast<SpinBox*>(Widget())) {
        const Quiet quiet;
        box->setRange(m_low, m_high);
        box->setSingleStep((m_high - m_low) / std::max(steps, 1));
    }
    TakeValue(m_value);
}

void CATDlgSpinner::SetFormat(const CATUnicodeString& format)
{
    m_format = format;
    if (auto* box = dynamic_cast<SpinBox*>(Widget())) {
        const Quiet quiet;
        box->SetFormat(format);
    }
}

void CATDlgSpinner::SetVisibleTextWidth(int characters)
{
    if (auto* box = dynamic_cast<SpinBox*>(Widget())) {
        box->SetVisibleCharacters(characters);
    }
}

void CATDlgSpinner::TakeValue(double value)
{
    // In this order what is no number becomes the low end.
    m_value = std::min(std::max(m_low, value), m_high);
    if (auto* box = dynamic_cast<SpinBox*>(Widget())) {
        const Quiet quiet;
        box->setValue(m_value);
    }
}

void CATDlgSpinner::SetValue(double value, CATDlgTelling telling)
{
    TakeValue(value);
    if (telling == CATDlgTelling::Notify) {
        Send(Modified, static_cast<int>(m_value));
    }
}

CATUnicodeString CATDlgSpinner::Text() const
{
    const auto* box = dynamic_cast<SpinBox*>(Widget());
    return box == nullptr ? CATUnicodeString::FromReal(m_value, m_format.Text())
                          : FromQt(box->text());
}

void CATDlgSpinner::SetUpSensitivity(int sensitivity)
{
    m_upSensitivity = sensitivity;
    if (auto* box = dynamic_cast<SpinBox*>(Widget())) {
        box->SetAlwaysUp(sensitivity == kAlwaysUp);
    }
}
