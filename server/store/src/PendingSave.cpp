#include "PendingSave.h"

#include "History.h"

#include <algorithm>
#include <map>
#include <utility>

namespace wb
{
namespace
{
bool AnyTouchesSums(const std::vector<const PendingState*>& changes)
{
    return std::ranges::any_of(
        changes, [](const PendingState* change) { return TouchesSums(change->quantity); });
}
} // namespace

PendingSave::PendingSave(const Store& store, Database& database)
    : m_store(store), m_database(database), m_outdated(database), m_writer(database)
{
    m_writer.KnowMaterials();
}

void PendingSave::Run(const std::string& user, const std::vector<PendingState>& changes)
{
    const std::int64_t changeNumber =
        1 + m_database.Ask("SELECT value FROM meta WHERE key = 'change_number'");
    std::map<std::pair<OwnerKind, RowId>, Changes> owners;
    for (const PendingState& change : changes) {
        owners[{change.kind, change.owner}].push_back(&change);
        m_facts.push_back({change.kind, change.owner, change.subject, QuantityName(change.quantity),
                           change.stored, change.after});
    }
    for (const auto& [owner, ofOwner] : owners) {
        if (owner.first == OwnerKind::Part) {
            SavePart(owner.second, ofOwner);
        } else {
            SaveUse(owner.second, ofOwner);
        }
    }
    RaiseChangeNumbers(m_database, m_outdated, changeNumber);
    WriteHistory(m_database, {user, "save", {}, {}}, m_facts);
}

void PendingSave::SavePart(RowId row, const Changes& changes)
{
    Part part = m_store.CommittedPart(row).part;
    for (const PendingState* change : changes) {
        RefuseValue(m_database, change->subject,
                    SetQuantity(part, change->quantity, change->after, m_store));
    }
    m_writer.UpdatePart(row, part);
    if (AnyTouchesSums(changes)) {
        m_outdated.Changed(row);
        m_outdated.Restated(false, row, RestatedSets(changes));
    }
}

void PendingSave::SaveUse(RowId row, const Changes& changes)
{
    StoredUse stored = m_store.CommittedUse(row);
    const PartType type = m_store.CommittedPart(stored.part).part.type;
    for (const PendingState* change : changes) {
        RefuseValue(m_database, change->subject,
                    SetQuantity(stored.use, type, change->quantity, change->after, m_store));
    }
    m_writer.UpdateUse(row, stored.use);
    if (AnyTouchesSums(changes)) {
        m_outdated.ChangedBelow(stored.parent);
        m_outdated.Restated(true, row, RestatedSets(changes));
    }
}

std::vector<std::string> PendingSave::RestatedSets(const Changes& changes)
{
    std::vector<std::string> massTypes;
    for (const PendingState* change : changes) {
        massTypes.push_back(change->quantity.massType);
    }
    return massTypes;
}

void RefuseValue(const Database& database, const std::string& subject, const std::string& sentence)
{
    if (!sentence.empty()) {
        throw StoreError(database.Path() + ": " + subject + ", " + sentence);
    }
}
} // namespace wb
