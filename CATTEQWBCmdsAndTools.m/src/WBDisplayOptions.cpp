#include "WBDisplayOptions.h"

#include "WBPreviewUnits.h"

#include "KR4WBClientSettings.h"

#include "CATCkeGlobalFunctions.h"

namespace
{

constexpr int kMostDigits = 8;
constexpr int kUpUsable = 16;

void Listen(CATDlgDialog& dialog, CATCommand* control, const CATEvent& event,
            const std::function<void()>& handler)
{
    dialog.Subscribe(control, event, [handler](const CATNotification&) { handler(); });
}

} // namespace

WBDisplayOptions::~WBDisplayOptions()
{
    CATCkeGlobalFunctions::RemoveUnitListener(m_unitListener);
}

void WBDisplayOptions::Build(CATDlgDialog& dialog, int row, int column, const Handlers& handlers,
                             int columns)
{
    auto* frame = new CATDlgFrame(&dialog, "OptionFrame"); // the dialog owns it
    frame->SetPlacement(row, column, 1, columns);
    frame->SetColumnStretch(2, 1); // the choices stand beside each other at the left
    m_units = new CATDlgCheckButton(frame, "UnitsDisplay");
    m_units->SetPlacement(1, 0);
    m_trailingZeros = new CATDlgCheckButton(frame, "TrailingZero");
    m_trailingZeros->SetPlacement(1, 1);
    m_digits = new CATDlgSpinner(frame, "DigitsDisplay");
    m_digits->SetPlacement(1, 2);
    m_digits->SetRange(0, kMostDigits, kMostDigits);
    m_digits->SetFormat("%g");
    m_digits->SetVisibleTextWidth(2);
    m_digits->SetVisibility(false);
    m_unitsNote = new CATDlgLabel(frame, "UnitsNote");
    m_unitsNote->SetRole(CATDlgLabel::Role::Caption);
    m_unitsNote->SetPlacement(1, 3);
    Listen(dialog, m_units, CATDlgCheckButton::Modified, handlers.onUnits);
    Listen(dialog, m_trailingZeros, CATDlgCheckButton::Modified, handlers.onTrailingZeros);
    Listen(dialog, m_digits, CATDlgSpinner::Modified, handlers.onDigits);
    m_unitListener = CATCkeGlobalFunctions::AddUnitListener([this](const CATICkeMagnitude_var&) {
        SetChoosable(false);
        m_unitsNote->SetTitle(WBUnitsHaveChanged());
    });
}

void WBDisplayOptions::SetChoosable(bool choosable)
{
    m_units->SetSensitivity(choosable);
    m_trailingZeros->SetSensitivity(choosable);
}

void WBDisplayOptions::TellUnits(const CATIDOMDocument& document)
{
    if (IsBuilt()) {
        SetChoosable(true);
        m_unitsNote->SetTitle(WBPreviewUnits(document).Line());
    }
}

void WBDisplayOptions::ApplySaved()
{
    unsigned char units = 0;
    unsigned char trailingZeros = 0;
    int digits = 0;
    if (KR4WBClientSettings::GetReportDisplay(units, trailingZeros, digits) != S_OK) {
        m_digits->SetValue(kMostDigits);
        return;
    }
    if (units != 0) {
        m_units->SetChecked(true, CATDlgTelling::Notify);
    }
    if (digits >= 1 && digits <= kMostDigits) {
        m_digits->SetValue(digits, CATDlgTelling::Notify);
    } else {
        m_digits->SetValue(kMostDigits);
    }
    if (trailingZeros != 0) {
        m_trailingZeros->SetChecked(true, CATDlgTelling::Notify);
    }
}

void WBDisplayOptions::Store() const
{
    unsigned char units = WithUnits();
    unsigned char trailingZeros = IsBuilt() && m_trailingZeros->IsChecked() ? 1 : 0;
    int digits = IsBuilt() ? static_cast<int>(m_digits->Value()) : 0;
    KR4WBClientSettings::SetReportDisplay(units, trailingZeros, digits);
    KR4WBClientSettings::Save();
    KR4WBClientSettings::Commit();
}

unsigned char WBDisplayOptions::WithUnits() const
{
    return IsBuilt() && m_units->IsChecked() ? 1 : 0;
}

int WBDisplayOptions::Decimals() const
{
    return IsBuilt() && m_trailingZeros->IsChecked() ? -1 : 0;
}

void WBDisplayOptions::EnableUpButton()
{
    if (IsBuilt()) {
        m_digits->SetUpSensitivity(kUpUsable);
    }
}
