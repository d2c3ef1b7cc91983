#include "CATWBVPMNavGroupPanel.h"

#include "PanelTable.h"

CATWBVPMNavGroupPanel::CATWBVPMNavGroupPanel(CATCommand* parent)
    : CATDlgDialog(parent, kName, 0x4001)
{}

CATWBVPMNavGroupPanel* CATWBVPMNavGroupPanel::Create(CATCommand* parent,
                                                     const CATUnicodeString& root,
                                                     const CATUnicodeString& part,
                                                     const CATUnicodeString& version)
{
    const auto create = WBPanelTable().createGroupPanel;
    return create == nullptr ? nullptr : create(parent, root, part, version);
}
