#include "CATWBVPMNavReportPanel.h"

#include "PanelTable.h"

CATWBVPMNavReportPanel::CATWBVPMNavReportPanel(CATCommand* parent)
    : CATDlgDialog(parent, kName, 0x4001)
{}

CATWBVPMNavReportPanel* CATWBVPMNavReportPanel::Create(CATCommand* parent)
{
    const auto create = WBPanelTable().createReportPanel;
    return create == nullptr ? nullptr : create(parent);
}
