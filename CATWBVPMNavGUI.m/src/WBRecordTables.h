#pragma once

#include "CATWBRecordTables.h"

struct WBPanelRecord;

/// Everything that the panel knows as plain tables, for programs that print it: "part",
/// "mass_types", "material", "material_statistics", "document", "revisions", "properties",
/// "position". What the record does not know is Unknown.
std::vector<CATWBRecordTable> WBDescribeRecord(const WBPanelRecord& record);
