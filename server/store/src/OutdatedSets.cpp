#include "OutdatedSets.h"

#include <algorithm>
#include <unordered_map>

namespace wb
{
namespace
{
/// A file of an earlier version that could not be brought up yet keeps no such list.
bool HasTable(Database& database)
{
    return database.Ask("SELECT count(*) FROM sqlite_master WHERE name = 'outdated_set'") != 0;
}

std::unordered_map<RowId, std::size_t> PositionsOf(const std::vector<RowId>& ids)
{
    std::unordered_map<RowId, std::size_t> positions;
    positions.reserve(ids.size());
    for (std::size_t i = 0; i < ids.size(); ++i) {
        positions.emplace(ids[i], i);
    }
    return positions;
}

void Mark(std::vector<ValueSet>& sets, const std::string& massType)
{
    const auto found = std::ranges::find(sets, massType, &ValueSet::massType);
    if (found != sets.end()) {
        found->isOutdated = true;
    }
}
} // namespace

OutdatedSets::OutdatedSets(Database& database)
    : m_database(database),
      m_lastPart(database.Ask("SELECT max(id) FROM part")),
      m_lastUse(database.Ask("SELECT max(id) FROM use"))
{}

void OutdatedSets::Restated(bool ofUse, RowId owner, const std::vector<std::string>& massTypes)
{
    for (const std::string& massType : massTypes) {
        m_restated.push_back({ofUse, owner, massType});
    }
}

void OutdatedSets::ListChanged()
{
    m_database.Execute("CREATE TEMP TABLE IF NOT EXISTS touched (id INTEGER PRIMARY KEY, "
                       "below INTEGER NOT NULL);"
                       "DELETE FROM touched");
    const auto insert = m_database.Prepare("INSERT INTO touched VALUES (?, ?) ON CONFLICT (id) DO "
                                           "UPDATE SET below = max(below, excluded.below)");
    for (const ChangedPart& changed : m_changed) {
        insert->Start().Bind(changed.part).Bind(std::int64_t{changed.below}).Run();
    }
}

void OutdatedSets::MarkSets()
{
    m_database
        .Kept("WITH RECURSIVE above (id) AS ("
              "SELECT id FROM touched WHERE below = 1 "
              "UNION SELECT u.parent FROM touched t JOIN use u ON u.part = t.id "
              "UNION SELECT u.parent FROM above a JOIN use u ON u.part = a.id) "
              "INSERT OR IGNORE INTO outdated_set (of_use, owner, mass_type) "
              "SELECT 0, v.owner, v.mass_type FROM above a JOIN part_value v ON v.owner = a.id "
              "WHERE v.owner <= ?1 "
              "UNION ALL SELECT 1, v.owner, v.mass_type FROM above a JOIN use u ON u.part = a.id "
              "JOIN use_value v ON v.owner = u.id WHERE v.owner <= ?2")
        .Bind(m_lastPart)
        .Bind(m_lastUse)
        .Run();
    Statement& remove =
        m_database.Kept("DELETE FROM outdated_set WHERE of_use = ? AND owner = ? AND mass_type = "
                        "(SELECT id FROM mass_type WHERE name = ?)");
    for (const RestatedSet& set : m_restated) {
        remove.Start().Bind(std::int64_t{set.ofUse}).Bind(set.owner).BindText(set.massType).Run();
    }
    // Uses that were removed need no mark.
    m_database.Execute("DELETE FROM outdated_set WHERE of_use = 1 AND owner NOT IN "
                       "(SELECT id FROM use)");
}

void OutdatedSets::Keep(std::int64_t changeNumber)
{
    ListChanged();
    m_database
        .Kept("WITH RECURSIVE above (id) AS (SELECT id FROM touched UNION SELECT u.parent FROM "
              "above a JOIN use u ON u.part = a.id) "
              "UPDATE part SET change_number = ? WHERE id IN (SELECT id FROM above)")
        .Bind(changeNumber)
        .Run();
    if (HasTable(m_database)) {
        MarkSets();
    }
}

void MarkOutdatedSets(Database& database, ReadProductRows& rows)
{
    if (!HasTable(database)) {
        return;
    }
    const auto parts = PositionsOf(rows.parts);
    const auto uses = PositionsOf(rows.uses);
    Statement& row = database.Kept("SELECT o.of_use, o.owner, m.name FROM outdated_set o "
                                   "JOIN mass_type m ON m.id = o.mass_type");
    while (row.Step()) {
        const bool ofUse = row.Integer() != 0;
        const RowId owner = row.Integer();
        const std::string massType = row.Text();
        const auto& positions = ofUse ? uses : parts;
        const auto found = positions.find(owner);
        if (found != positions.end()) {
            Mark(ofUse ? rows.product.uses[found->second].sets
                       : rows.product.parts[found->second].sets,
                 massType);
        }
    }
}
} // namespace wb
