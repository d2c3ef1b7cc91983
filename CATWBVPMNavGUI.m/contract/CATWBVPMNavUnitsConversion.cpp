#include "CATWBVPMNavUnitsConversion.h"

#include "CATFatalError.h"
#include "PanelTable.h"

#include <array>

namespace
{

// In the order of the units types.
const std::array<CATEvent, 6> kChangedEvents{
    CATEvent("OtherUnitChanged"),  CATEvent("DensityUnitChanged"), CATEvent("MassUnitChanged"),
    CATEvent("LengthUnitChanged"), CATEvent("InertiaUnitChanged"), CATEvent("VolumeUnitChanged")};

} // namespace

CATWBVPMNavUnitsConversion::CATWBVPMNavUnitsConversion(CATDialog* parent)
    : CATDlgDialog(parent, kName, 0x4001)
{}

CATWBVPMNavUnitsConversion* CATWBVPMNavUnitsConversion::Instance()
{
    const auto unitsPanel = WBPanelTable().unitsPanel;
    return unitsPanel == nullptr ? nullptr : unitsPanel();
}

const CATEvent& CATWBVPMNavUnitsConversion::GetChangedEvent(int unitsType)
{
    if (unitsType < 0 || unitsType >= static_cast<int>(kChangedEvents.size())) {
        CATRaiseFatalError("there is no units type " + CATUnicodeString::FromInt(unitsType),
                           "CATWBVPMNavUnitsConversion::GetChangedEvent", 0);
        return kChangedEvents.front();
    }
    return kChangedEvents[static_cast<std::size_t>(unitsType)];
}
