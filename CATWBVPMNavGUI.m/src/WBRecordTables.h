#pragma once

#include "CATWBRecordTables.h"

class ENOWBAllDataBuffer;
class WBValueDetails;

/// Everything in a record as plain tables: "part" (identity, flags, active mass type),
/// "mass_types", "material", "material_statistics", "documents" and "revisions", "properties",
/// "position". What `details` says is unknown, or a status says is not there, is Unknown.
std::vector<CATWBRecordTable> WBDescribeRecord(const ENOWBAllDataBuffer& record,
                                               const WBValueDetails& details);
