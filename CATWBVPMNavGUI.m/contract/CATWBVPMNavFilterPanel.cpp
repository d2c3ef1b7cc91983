#include "CATWBVPMNavFilterPanel.h"

#include "PanelTable.h"

#include "CATMsgCatalog.h"

CATUnicodeString CATWBVPMNavFilterPanel::selectedPRCConfigHandler = "NoConfig";

CATWBVPMNavFilterPanel::CATWBVPMNavFilterPanel(CATCommand* parent)
    : CATDlgDialog(parent, kName, 0x4001)
{}

CATWBVPMNavFilterPanel* CATWBVPMNavFilterPanel::Create(CATCommand* parent)
{
    const auto create = WBPanelTable().createFilterPanel;
    return create == nullptr ? nullptr : create(parent);
}

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

bool CATWBVPMNavFilterPanel::IsValid(const CATUnicodeString& root, const CATUnicodeString& instance,
                                     const CATUnicodeString& part, const CATUnicodeString& version,
                                     const int& count, const CATUnicodeString& path)
{
    const auto isFilterValid = WBPanelTable().isFilterValid;
    return isFilterValid == nullptr || isFilterValid(root, instance, part, version, count, path);
}
