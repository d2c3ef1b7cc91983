#pragma once

#include "CATDlgControls.h"
#include "CATDlgDialog.h"

/// The units panel: shows and changes the unit in which each magnitude is shown. There is one a
/// session; whoever shows values in units hears from it when the user has changed one.
class WB_EXPORT CATWBVPMNavUnitsConversion : public CATDlgDialog
{
public:
    /// The session's panel, made hidden through the table of the panels library at the first call.
    /// Null when no panels library is registered or the session has no main window.
    static CATWBVPMNavUnitsConversion* Instance();
    /// What the panel tells when the current unit of a magnitude of that type has changed, whoever
    /// changed it; the notification's detail is the type. Types: 1 DENSITY and SURFACICMASS, 2
    /// MASS, 3 LENGTH, 4 INERTIAMOMENT, 5 VOLUME, 0 every other magnitude. Any other number is a
    /// programming error and raises the host's fatal error.
    static const CATEvent& GetChangedEvent(int unitsType);
    /// The panel's dialog name.
    static constexpr const char* kName = "CATWBVPMNavUnitsConversion";

    // Slot order is binary interface: append, never sort.
    virtual CATDlgPushButton* GetCloseButton() = 0;

protected:
    explicit CATWBVPMNavUnitsConversion(CATDialog* parent);
};
