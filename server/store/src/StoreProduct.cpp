#include "Database.h"
#include "WBStore.h"

#include <set>
#include <unordered_map>

namespace wb
{
namespace
{
/// All reads until the end see the database as of one moment, whatever others write meanwhile.
class OneMoment
{
public:
    explicit OneMoment(Database& database) : m_database(database), m_inner(database.InTransaction())
    {
        if (!m_inner) {
            m_database.Execute("BEGIN");
        }
    }
    OneMoment(const OneMoment&) = delete;
    OneMoment& operator=(const OneMoment&) = delete;
    ~OneMoment()
    {
        if (!m_inner) {
            m_database.Try("COMMIT");
        }
    }

private:
    Database& m_database;
    const bool m_inner;
};

/// The uses below a part, in the order they were stored.
std::vector<RowId> UseIdsOf(Database& database, RowId part)
{
    std::vector<RowId> ids;
    Statement& rows = database.Kept("SELECT id FROM use WHERE parent = ? ORDER BY id");
    rows.Bind(part);
    while (rows.Step()) {
        ids.push_back(rows.Integer());
    }
    return ids;
}
} // namespace

Product Store::ReadProduct(RowId root) const
{
    const OneMoment moment(*m_database);
    Product product;
    std::vector<RowId> ids{root};
    std::unordered_map<RowId, std::uint32_t> positions{{root, 0}};
    std::set<std::string> materials;
    for (std::uint32_t parent = 0; parent < ids.size(); ++parent) {
        const Part& part = product.parts.emplace_back(ReadPart(ids[parent]).part);
        materials.insert(part.material);
        for (const RowId id : UseIdsOf(*m_database, ids[parent])) {
            StoredUse stored = ReadUse(id);
            const auto [child, isNew] =
                positions.emplace(stored.part, static_cast<std::uint32_t>(ids.size()));
            if (isNew) {
                ids.push_back(stored.part);
            }
            Use& use = product.uses.emplace_back(std::move(stored.use));
            use.parent = parent;
            use.part = child->second;
            materials.insert(use.material);
        }
    }
    for (const std::string& name : materials) {
        if (auto material = FindMaterial(name)) {
            product.materials.push_back(std::move(*material));
        }
    }
    return product;
}
} // namespace wb
