#include "CATWBVPMMainPanel.h"

#include "PanelTable.h"

CATWBVPMMainPanel::CATWBVPMMainPanel(CATCommand* parent) : CATDlgDialog(parent, kName, 0x4001)
{}

CATWBVPMMainPanel* CATWBVPMMainPanel::Create(CATCommand* parent, CATWBAllDataBuffer* record)
{
    const auto create = WBPanelTable().createMainPanel;
    return create == nullptr ? nullptr : create(parent, record);
}
