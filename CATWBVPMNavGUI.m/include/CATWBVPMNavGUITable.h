#pragma once

#include "CATIDOMDocument.h"
#include "CATUnicodeString.h"
#include "CATWBRecordTables.h"

class CATCommand;
class CATWBAllDataBuffer;
class CATWBVPMMainPanel;
class CATWBVPMNavFilterPanel;
class CATWBVPMNavGroupPanel;
class CATWBVPMNavReportPanel;
class CATWBVPMNavUnitsConversion;
struct CATWBReportConversion;

/// What the panels library offers to those that stand below it. The library fills the table when
/// the host calls its CATWBVPMNavGUIRegister; a test or a windowless command puts a table of its
/// own.
struct CATWBVPMNavGUITable
{
    /// Makes a main panel for the record.
    CATWBVPMMainPanel* (*createMainPanel)(CATCommand* parent, CATWBAllDataBuffer* record) = nullptr;
    /// The filter text of a root.
    CATUnicodeString (*getFilter)(const CATUnicodeString& rootIdentifier) = nullptr;
    /// Everything in a record, for a program that knows no records.
    std::vector<CATWBRecordTable> (*describeRecord)(const CATWBAllDataBuffer& record) = nullptr;
    /// The session's units panel, made when there is none.
    CATWBVPMNavUnitsConversion* (*unitsPanel)() = nullptr;
    /// Treats a report as the report commands do: axes, reference point, then units.
    void (*convertReport)(CATIDOMDocument_var& document,
                          const CATWBReportConversion& conversion) = nullptr;
    /// The filter of a root as users read it.
    CATUnicodeString (*getDisplayFilter)(const CATUnicodeString& rootIdentifier) = nullptr;
    /// Makes a report panel, hidden and without controls.
    CATWBVPMNavReportPanel* (*createReportPanel)(CATCommand* parent) = nullptr;
    /// Makes a filter panel, hidden and without controls.
    CATWBVPMNavFilterPanel* (*createFilterPanel)(CATCommand* parent) = nullptr;
    /// Whether the filter of a root lets a picked instance in.
    bool (*isFilterValid)(const CATUnicodeString& root, const CATUnicodeString& instance,
                          const CATUnicodeString& part, const CATUnicodeString& version, int count,
                          const CATUnicodeString& path) = nullptr;
    /// Makes a group panel for a root and the first instance's part and version, hidden and without
    /// controls.
    CATWBVPMNavGroupPanel* (*createGroupPanel)(CATCommand* parent, const CATUnicodeString& root,
                                               const CATUnicodeString& part,
                                               const CATUnicodeString& version) = nullptr;
};

/// Registers a table and returns the one that stood there. Members may be null: then the contract's
/// own answers are given.
WB_EXPORT CATWBVPMNavGUITable CATWBVPMNavGUISetTable(const CATWBVPMNavGUITable& table);
