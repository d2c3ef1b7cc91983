#pragma once

#include "Database.h"
#include "WBStore.h"

#include <string>
#include <string_view>

namespace wb
{
/// How messages and the history call a part version and a use: "part P A", "use P A / left".
std::string PartSubject(const Part& part);
std::string UseSubject(const Part& parent, std::string_view instance);

/// The same of a stored row; empty where there is no such row.
std::string SubjectOf(Database& database, OwnerKind kind, RowId owner);
} // namespace wb
