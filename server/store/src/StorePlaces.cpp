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

/// The part and all parts above it, each with what leads down to the part. Each part's uses are
/// read once, however many there are: people wait for this at every pick.
std::unordered_map<RowId, Above> PartsAbove(Database& database, RowId part)
{
    std::unordered_map<RowId, Above> parts{{part, {}}};
    std::vector<RowId> open{part};
    std::unordered_map<RowId, double> users; // of one part, and how many pieces each holds of it
    while (!open.empty()) {
        const RowId used = open.back();
        open.pop_back();
        users.clear();
        Statement& rows = database.Kept("SELECT parent, max(quantity, 1) FROM use WHERE part = ?");
        rows.Bind(used);
        while (rows.Step()) {
            const RowId user = rows.Integer();
            users[user] += rows.Number();
        }
        parts[used].usersLeft = users.size();
        for (const auto& [user, pieces] : users) {
            const auto [above, isNew] = parts.try_emplace(user);
            above->second.below.emplace_back(used, pieces);
            if (isNew) {
                open.push_back(user);
            }
        }
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
