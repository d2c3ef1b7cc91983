#pragma once

#include "CATWBRecordTables.h"

#include <string>
#include <vector>

/// A record's tables as JSON: an object a table, a list of objects where a table has any number of
/// rows; what is unknown is null.
std::string RecordAsJson(const std::vector<CATWBRecordTable>& tables);
/// The same for people: a heading a table, aligned columns, "-" for what is unknown.
std::string RecordAsText(const std::vector<CATWBRecordTable>& tables);
