#include "CATWBVPMNavFilterPanel.h"

#include "PanelTable.h"

CATUnicodeString CATWBVPMNavFilterPanel::selectedPRCConfigHandler = "NoConfig";

CATUnicodeString CATWBVPMNavFilterPanel::GetFilter(const CATUnicodeString& rootIdentifier)
{
    const auto getFilter = WBPanelTable().getFilter;
    return getFilter == nullptr ? CATUnicodeString("0|No Filter") : getFilter(rootIdentifier);
}
