#pragma once

#include "Database.h"

#include <string>

namespace wb
{
/// Marks our files among all SQLite files ("WBDB").
constexpr std::int64_t kApplicationId = 0x57424442;
/// Of the tables; a file of a higher version is refused. 1 had no kept results, 2 no pending
/// changes and a history of lines.
constexpr std::int64_t kSchemaVersion = 3;

/// Makes the indexes that find a use below its parent, where its name is unique, and the uses of a
/// part.
constexpr const char* kUseIndexes = "CREATE UNIQUE INDEX use_instance ON use (parent, instance); "
                                    "CREATE INDEX use_part ON use (part);";

/// Makes all tables and the shipped mass types in an empty file.
void CreateSchema(Database& database);

/// Throws StoreError when the file is no database of ours, or of a newer version.
void CheckSchema(Database& database);

/// Adds what a file of an older version lacks. Where it may not be written, or others are at work,
/// it stays as it is: reads know the older tables too, and the first write tries again.
void UpdateSchema(Database& database);

/// The same inside a transaction that is going to write.
void UpdateTables(Database& database);

/// Whether the tables are those of this version. Once they are, they stay.
bool HasCurrentTables(Database& database);

/// ", mass, lower, ...", each behind a prefix such as "v.", or ", ?, ?, ..." for the numbers of a
/// set.
std::string SetNumberColumns(const std::string& prefix = {});
std::string SetNumberParameters();
} // namespace wb
