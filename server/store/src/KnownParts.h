#pragma once

#include "Database.h"

#include <string>
#include <string_view>
#include <unordered_map>

namespace wb
{
/// The rows of all parts that a database held before an import.
class KnownParts
{
public:
    explicit KnownParts(Database& database)
    {
        Statement& rows = database.Kept("SELECT identifier, version, id FROM part");
        while (rows.Step()) {
            const std::string identifier = rows.Text();
            const std::string version = rows.Text();
            m_rows[Key(identifier, version)] = rows.Integer();
        }
    }

    bool None() const { return m_rows.empty(); }
    /// 0 where the part is new.
    RowId Find(const Part& part) const
    {
        if (m_rows.empty()) {
            return 0; // spares a first import a key for each of its parts
        }
        const auto found = m_rows.find(Key(part.identifier, part.version));
        return found == m_rows.end() ? 0 : found->second;
    }

private:
    /// No identifier holds the mark between the two.
    static std::string Key(std::string_view identifier, std::string_view version)
    {
        return std::string(identifier) + "|" + std::string(version);
    }

    std::unordered_map<std::string, RowId> m_rows;
};
} // namespace wb
