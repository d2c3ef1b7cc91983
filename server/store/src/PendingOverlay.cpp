#include "PendingOverlay.h"

#include "Schema.h"

#include <algorithm>
#include <cstdint>

namespace wb
{
namespace
{
bool TouchesDensity(const PendingChange& change)
{
    return change.quantity.massType.empty() &&
           (change.quantity.name == kDensityQuantity || change.quantity.name == kMaterialQuantity);
}

/// Whether an owner says of a density, by itself or by its material.
template <typename Owner>
bool HasDensity(const Owner& owner, const KnownProducts& known)
{
    if (IsKnown(owner.density) || IsKnown(owner.surfaceDensity)) {
        return true;
    }
    const auto material =
        owner.material.empty() ? std::nullopt : known.FindMaterial(owner.material);
    return material && (IsKnown(material->density) || IsKnown(material->surfaceDensity));
}

/// Which parts of a product stand above the changed ones. below: changed by what is below them,
/// so that they count themselves.
std::vector<bool> PartsAbove(const Product& product, const std::vector<std::uint32_t>& changed,
                             const std::vector<std::uint32_t>& below)
{
    std::vector<std::vector<std::uint32_t>> parents(product.parts.size());
    for (const Use& use : product.uses) {
        parents[use.part].push_back(use.parent);
    }
    std::vector<bool> above(product.parts.size());
    std::vector<std::uint32_t> open;
    const auto meet = [&](std::uint32_t part) {
        if (!above[part]) {
            above[part] = true;
            open.push_back(part);
        }
    };
    std::ranges::for_each(below, meet);
    for (const std::uint32_t part : changed) {
        std::ranges::for_each(parents[part], meet);
    }
    while (!open.empty()) {
        const std::uint32_t part = open.back();
        open.pop_back();
        std::ranges::for_each(parents[part], meet);
    }
    return above;
}

} // namespace

PendingRows ReadPending(Database& database, const std::string& user)
{
    PendingRows pending;
    if (!HasCurrentTables(database)) {
        return pending;
    }
    Statement& rows = database.Kept(
        "SELECT of_use, owner, mass_type, quantity, seen, after, at, subject, number FROM "
        "pending_change WHERE who = ? ORDER BY id");
    rows.BindText(user);
    while (rows.Step()) {
        PendingState& change = pending.changes.emplace_back();
        change.kind = rows.Integer() != 0 ? OwnerKind::Use : OwnerKind::Part;
        change.owner = rows.Integer();
        change.quantity.massType = rows.Text();
        change.quantity.name = rows.Text();
        change.seen = rows.Text();
        change.after = rows.Text();
        change.when = rows.Text();
        change.subject = rows.Text();
        pending.number = rows.Integer(); // the same of all of them
    }
    return pending;
}

PendingOverlay::PendingOverlay(Database& database, std::string user) : m_user(std::move(user))
{
    PendingRows pending = ReadPending(database, m_user);
    m_number = pending.number;
    for (PendingState& change : pending.changes) {
        m_changes[{change.kind, change.owner}].push_back(std::move(change));
    }
}

void PendingOverlay::Apply(StoredPart& stored, const KnownProducts& known) const
{
    const auto found = m_changes.find({OwnerKind::Part, stored.id});
    if (found == m_changes.end()) {
        return;
    }
    for (const PendingChange& change : found->second) {
        SetQuantity(stored.part, change.quantity, change.after, known);
    }
}

void PendingOverlay::Apply(StoredUse& stored, PartType type, const KnownProducts& known) const
{
    for (const PendingChange& change : m_changes.at({OwnerKind::Use, stored.id})) {
        SetQuantity(stored.use, type, change.quantity, change.after, known);
    }
}

void PendingOverlay::Apply(RowId use, Property& property) const
{
    const auto found = m_changes.find({OwnerKind::Use, use});
    if (found == m_changes.end()) {
        return;
    }
    Use single;
    single.properties.push_back(property);
    for (const PendingChange& change : found->second) {
        SetQuantity(single, PartType::Unstated, change.quantity, change.after, {});
    }
    property = std::move(single.properties.front());
}

std::string PendingOverlay::DensitiesAsJson(const Store& store) const
{
    std::string json;
    for (const auto& [owner, changes] : m_changes) {
        if (std::ranges::none_of(changes, TouchesDensity)) {
            continue;
        }
        const bool isUse = owner.first == OwnerKind::Use;
        const bool has = isUse ? HasDensity(store.ReadUse(owner.second).use, store)
                               : HasDensity(store.ReadPart(owner.second).part, store);
        json += (json.empty() ? "{\"" : ",\"") + std::string(isUse ? "use" : "part") +
                std::to_string(owner.second) + "\":" + (has ? "1" : "0");
    }
    return json.empty() ? json : json + "}";
}

void PendingOverlay::MarkOutdatedSets(ReadProductRows& rows) const
{
    Product& product = rows.product;
    std::vector<std::uint32_t> changed;
    std::vector<std::uint32_t> below;
    const auto touches = [&](OwnerKind kind, RowId owner) {
        const auto found = m_changes.find({kind, owner});
        return found != m_changes.end() &&
               std::ranges::any_of(found->second, [](const PendingChange& change) {
                   return TouchesSums(change.quantity);
               });
    };
    for (std::uint32_t part = 0; part < rows.parts.size(); ++part) {
        if (touches(OwnerKind::Part, rows.parts[part])) {
            changed.push_back(part);
        }
    }
    for (std::uint32_t use = 0; use < rows.uses.size(); ++use) {
        if (touches(OwnerKind::Use, rows.uses[use])) {
            below.push_back(product.uses[use].parent);
        }
    }
    if (changed.empty() && below.empty()) {
        return;
    }
    const std::vector<bool> above = PartsAbove(product, changed, below);
    const auto mark = [&](OwnerKind kind, RowId owner, bool isAbove, std::vector<ValueSet>& sets) {
        const auto found = m_changes.find({kind, owner});
        for (ValueSet& set : sets) {
            const bool isRestated =
                found != m_changes.end() &&
                std::ranges::any_of(found->second, [&](const PendingChange& change) {
                    return change.quantity.massType == set.massType;
                });
            set.isOutdated = (set.isOutdated || isAbove) && !isRestated;
        }
    };
    for (std::size_t part = 0; part < rows.parts.size(); ++part) {
        mark(OwnerKind::Part, rows.parts[part], above[part], product.parts[part].sets);
    }
    for (std::size_t use = 0; use < rows.uses.size(); ++use) {
        mark(OwnerKind::Use, rows.uses[use], above[product.uses[use].part], product.uses[use].sets);
    }
}
} // namespace wb
