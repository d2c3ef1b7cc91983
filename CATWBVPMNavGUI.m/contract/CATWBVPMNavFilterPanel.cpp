#include "CATWBVPMNavFilterPanel.h"

#include "PanelTable.h"

#include "CATMsgCatalog.h"

CATUnicodeString CATWBVPMNavFilterPanel::selectedPRCConfigHandler = "NoConfig";

CATUnicodeString CATWBVPMNavFilterPanel::GetFilter(const CATUnicodeString& rootIdentifier)
{
    const auto getFilter = WBPanelTable().getFilter;
    return getFilter == nullptr ? CATUnicodeString("0|No Filter") : getFilter(rootIdentifier);
}

CATUnicodeString CATWBVPMNavFilterPanel::GetDisplayFilter(const CATUnicodeString& rootIdentifier)
{
    const auto getDisplayFilter = WBPanelTable().getDisplayFilter;
    return getDisplayFilter == nullptr ? CATMsgCatalog::BuildMessage("CATWBVPMNavFilterPanel",
                                                                     "NoFilter.Text", "@No filter")
                                       : getDisplayFilter(rootIdentifier);
}
