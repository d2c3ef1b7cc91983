#include "CATWBVPMNavGUITable.h"
#include "WBFilterPanel.h"
#include "WBFilterSettings.h"
#include "WBGroupPanel.h"
#include "WBMainPanel.h"
#include "WBRecordTables.h"
#include "WBReportConversion.h"
#include "WBReportPanel.h"
#include "WBRootFilter.h"
#include "WBUnitsPanel.h"

/// The library's entry: the host calls it once after loading.
extern "C" WB_EXPORT void CATWBVPMNavGUIRegister()
{
    CATWBVPMNavGUITable table;
    table.createMainPanel = [](CATCommand* parent,
                               CATWBAllDataBuffer* record) -> CATWBVPMMainPanel* {
        return new WBMainPanel(parent, record); // the parent owns it
    };
    table.describeRecord = [](const CATWBAllDataBuffer& record) {
        return WBDescribeRecord(WBReadPanelRecord(
            record, WBAskValueDetails(WBDetailsOf::StoredValues, WBStoredValuesRequest(record))));
    };
    table.unitsPanel = &WBUnitsPanel::OfSession;
    table.convertReport = WBConvertReport;
    table.getFilter = WBFilterOfRoot;
    table.getDisplayFilter = WBShownFilterOfRoot;
    table.createReportPanel = [](CATCommand* parent) -> CATWBVPMNavReportPanel* {
        return new WBReportPanel(parent); // the parent owns it
    };
    table.createFilterPanel = [](CATCommand* parent) -> CATWBVPMNavFilterPanel* {
        return new WBFilterPanel(parent); // the parent owns it
    };
    table.isFilterValid = WBIsValidInFilter;
    table.createGroupPanel = [](CATCommand* parent, const CATUnicodeString& root,
                                const CATUnicodeString& /*part*/,
                                const CATUnicodeString& /*version*/) -> CATWBVPMNavGroupPanel* {
        return new WBGroupPanel(parent, root); // the parent owns it
    };
    CATWBVPMNavGUISetTable(table);
}
