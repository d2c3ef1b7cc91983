#pragma once

namespace wbtest
{
/// Makes the tables of a database what the second version of them was: SQL for a connection to a
/// file whose history holds no changed facts. What they kept of an import's changes were lines.
constexpr const char* kToSecondVersion =
    "DROP TABLE pending_change; DROP TABLE changed_fact;"
    "DELETE FROM meta WHERE key = 'pending_number';"
    "ALTER TABLE part DROP COLUMN last_imposed; ALTER TABLE use DROP COLUMN last_imposed;"
    "ALTER TABLE history ADD COLUMN before TEXT; ALTER TABLE history ADD COLUMN after TEXT;"
    "PRAGMA user_version = 2;";

/// The first one, from the second.
constexpr const char* kToFirstVersion =
    "DROP TABLE kept_result; DROP TABLE outdated_set; PRAGMA user_version = 1;";
} // namespace wbtest
