#include "Database.h"
#include "WBStore.h"

#include <unordered_map>
#include <utility>

namespace wb
{
namespace
{
/// A part that is asked for, or one above it.
struct Above
{
    /// What uses it directly, and how many pieces all of those uses together are.
    std::vector<std::pair<RowId, double>> below;
    std::size_t usersLeft = 0; // users that were not looked at yet
    double places = 0.0;
};

/// The part and all parts above it, each with what leads down to the part.
std::unordered_map<RowId, Above> PartsAbove(Database& database, RowId part)
{
    std::unordered_map<RowId, Above> parts{{part, {}}};
    Statement& rows = database.Kept(
        "WITH RECURSIVE above (id) AS (SELECT ? UNION SELECT u.parent FROM above a JOIN use u "
        "ON u.part = a.id) SELECT u.parent, u.part, sum(max(u.quantity, 1)) FROM above a "
        "JOIN use u ON u.part = a.id GROUP BY u.parent, u.part");
    rows.Bind(part);
    while (rows.Step()) {
        const RowId user = rows.Integer();
        const RowId used = rows.Integer();
        parts[user].below.emplace_back(used, rows.Number());
        ++parts[used].usersLeft;
    }
    return parts;
}
} // namespace

PartPlaces Store::PlacesOf(RowId part, RowId root) const
{
    std::unordered_map<RowId, Above> parts = PartsAbove(*m_database, part);
    PartPlaces result;
    std::vector<RowId> ready; // all of whose users were looked at
    for (auto& [id, above] : parts) {
        if (above.usersLeft == 0) {
            ready.push_back(id);
            above.places = id == root ? 1.0 : 0.0;
            result.otherRoots += id == root ? 0 : 1;
        }
    }
    while (!ready.empty()) {
        const Above& upper = parts[ready.back()];
        ready.pop_back();
        for (const auto& [used, pieces] : upper.below) {
            Above& lower = parts[used];
            lower.places += pieces * upper.places;
            if (--lower.usersLeft == 0) {
                ready.push_back(used);
            }
        }
    }
    result.inRoot = parts[part].places;
    return result;
}

std::vector<std::string> Store::MaterialNames() const
{
    std::vector<std::string> names;
    Statement& rows = m_database->Kept("SELECT name FROM material ORDER BY name");
    while (rows.Step()) {
        names.push_back(rows.Text());
    }
    return names;
}
} // namespace wb
