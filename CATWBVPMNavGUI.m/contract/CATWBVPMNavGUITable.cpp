#include "CATWBVPMNavGUITable.h"

#include "PanelTable.h"

#include <utility>

CATWBVPMNavGUITable& WBPanelTable()
{
    static CATWBVPMNavGUITable table;
    return table;
}

CATWBVPMNavGUITable CATWBVPMNavGUISetTable(const CATWBVPMNavGUITable& table)
{
    return std::exchange(WBPanelTable(), table);
}
