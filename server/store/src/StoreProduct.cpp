#include "Database.h"
#include "OutdatedSets.h"
#include "PendingOverlay.h"
#include "WBStore.h"

#include <set>
#include <unordered_map>

namespace wb
{
namespace
{
/// Tells somebody how far a reading is, and ends it when they want that.
class Watch
{
public:
    Watch(Database& database, const std::function<bool(double)>& goOn)
        : m_path(database.Path()), m_goOn(goOn)
    {
        if (m_goOn) {
            m_all = static_cast<double>(database.Ask("SELECT count(*) FROM part") +
                                        database.Ask("SELECT count(*) FROM use"));
        }
    }

    /// Throws ReadingStopped.
    void Look(std::size_t rowsRead) const
    {
        constexpr std::size_t kRowsBetweenLooks = 256;
        if (rowsRead % kRowsBetweenLooks == 0 && m_goOn &&
            !m_goOn(static_cast<double>(rowsRead) / m_all)) {
            throw ReadingStopped(m_path + ": the reading of a product was stopped");
        }
    }

private:
    const std::string& m_path;
    const std::function<bool(double)>& m_goOn;
    double m_all = 1.0;
};
} // namespace

StoreMoment::StoreMoment(const Store& store)
    : m_database(*store.m_database), m_inner(m_database.InTransaction())
{
    if (!m_inner) {
        m_database.Execute("BEGIN");
    }
}

StoreMoment::~StoreMoment()
{
    if (!m_inner) {
        m_database.Try("COMMIT");
    }
}

Product Store::ReadProduct(RowId root) const
{
    return ReadRows(root, {}).product;
}

ReadProductRows Store::ReadRows(RowId root, const std::function<bool(double)>& goOn) const
{
    const StoreMoment moment(*this);
    // The database may hold other products as well, so the share is a low guess.
    const Watch watch(*m_database, goOn);
    ReadProductRows rows;
    Product& product = rows.product;
    std::vector<RowId>& ids = rows.parts;
    ids.push_back(root);
    std::unordered_map<RowId, std::uint32_t> positions{{root, 0}};
    std::set<std::string> materials;
    for (std::uint32_t parent = 0; parent < ids.size(); ++parent) {
        watch.Look(product.parts.size() + product.uses.size());
        const Part& part = product.parts.emplace_back(ReadPart(ids[parent]).part);
        rows.changeNumbers.push_back(ChangeNumber(ids[parent]));
        materials.insert(part.material);
        for (StoredUse& stored : ReadUsesBelow(ids[parent])) {
            watch.Look(product.parts.size() + product.uses.size());
            const auto [child, isNew] =
                positions.emplace(stored.part, static_cast<std::uint32_t>(ids.size()));
            if (isNew) {
                ids.push_back(stored.part);
            }
            rows.uses.push_back(stored.id);
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
    MarkOutdatedSets(*m_database, rows);
    if (m_overlay != nullptr) {
        m_overlay->MarkOutdatedSets(rows);
    }
    return rows;
}
} // namespace wb
