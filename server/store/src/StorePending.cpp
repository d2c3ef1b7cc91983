#include "Owners.h"
#include "PendingOverlay.h"
#include "PendingSave.h"
#include "Schema.h"
#include "WBStore.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

namespace wb
{
namespace
{
/// What is committed of an owner.
struct Committed
{
    std::optional<StoredPart> part;
    std::optional<StoredUse> use;

    Committed(const Store& store, OwnerKind kind, RowId owner)
    {
        if (kind == OwnerKind::Part) {
            part = store.CommittedPart(owner);
        } else {
            use = store.CommittedUse(owner);
        }
    }

    bool IsGone() const { return (part ? part->id : use->id) == 0; }
    std::string Text(const Quantity& quantity) const
    {
        return part ? QuantityText(part->part, quantity) : QuantityText(use->use, quantity);
    }
    /// As SetQuantity does.
    std::string Set(const Store& store, const Quantity& quantity, std::string_view text)
    {
        return part ? SetQuantity(part->part, quantity, text, store)
                    : SetQuantity(use->use, store.CommittedPart(use->part).part.type, quantity,
                                  text, store);
    }
};

/// Who committed the value that stands in the way, or removed its owner.
void TellWhoChangedIt(const Store& store, PendingState& state)
{
    std::vector<std::string> names = FactsOf(state.quantity);
    names.push_back(QuantityName(state.quantity));
    for (const FactChange& change : store.FactChangesOf(state.kind, state.owner)) {
        if (state.isGone ? change.fact.empty() : std::ranges::count(names, change.fact) > 0) {
            state.by = change.who;
            state.at = change.when;
            return;
        }
    }
}

/// Fills in what is committed now, and who stands in the way of saving.
void CompareWithStored(const Store& store, PendingState& state)
{
    const Committed owner(store, state.kind, state.owner);
    state.isGone = owner.IsGone();
    state.stored = owner.Text(state.quantity); // what is gone says nothing
    state.conflicts = state.isGone || state.stored != state.seen;
    if (state.conflicts) {
        TellWhoChangedIt(store, state);
    }
}

void PutOne(const Store& store, Database& database, const std::string& user,
            const PendingChange& change)
{
    Committed owner(store, change.kind, change.owner);
    if (owner.IsGone()) {
        throw StoreError(store.Path() + ": what was to be changed is not in the database any more");
    }
    const std::string subject = SubjectOf(database, change.kind, change.owner);
    RefuseValue(database, subject, owner.Set(store, change.quantity, change.after));
    const std::string after = owner.Text(change.quantity); // as the quantity says it
    const std::int64_t ofUse = change.kind == OwnerKind::Use ? 1 : 0;
    database
        .Kept("DELETE FROM pending_change WHERE who = ? AND of_use = ? AND owner = ? AND "
              "mass_type = ? AND quantity = ?")
        .BindText(user)
        .Bind(ofUse)
        .Bind(change.owner)
        .BindText(change.quantity.massType)
        .BindText(change.quantity.name)
        .Run();
    if (after == change.seen) {
        return;
    }
    database
        .Kept("INSERT INTO pending_change (who, of_use, owner, subject, mass_type, quantity, "
              "seen, after, number) VALUES (?, ?, ?, ?, ?, ?, ?, ?, 0)")
        .BindText(user)
        .Bind(ofUse)
        .Bind(change.owner)
        .BindText(subject)
        .BindText(change.quantity.massType)
        .BindText(change.quantity.name)
        .BindText(change.seen)
        .BindText(after)
        .Run();
}

void RemovePending(Database& database, const std::string& user)
{
    database.Kept("DELETE FROM pending_change WHERE who = ?").BindText(user).Run();
}
} // namespace

void Store::PutPending(const std::string& user, const std::vector<PendingChange>& changes)
{
    if (changes.empty()) {
        return;
    }
    Transaction transaction(*m_database);
    UpdateTables(*m_database);
    m_database->Execute("UPDATE meta SET value = value + 1 WHERE key = 'pending_number'");
    const std::int64_t number =
        m_database->Ask("SELECT value FROM meta WHERE key = 'pending_number'");
    for (const PendingChange& change : changes) {
        PutOne(*this, *m_database, user, change);
    }
    // What is left of them gets the number too: one that was taken back leaves none of its own.
    m_database->Kept("UPDATE pending_change SET number = ? WHERE who = ?")
        .Bind(number)
        .BindText(user)
        .Run();
    CommitSeen(transaction);
}

std::vector<PendingState> Store::PendingChanges(const std::string& user) const
{
    const StoreMoment moment(*this);
    std::vector<PendingState> states = ReadPending(*m_database, user).changes;
    for (PendingState& state : states) {
        CompareWithStored(*this, state);
    }
    return states;
}

std::vector<PendingState> Store::PendingChangesOf(const std::string& user, OwnerKind kind,
                                                  RowId owner) const
{
    const StoreMoment moment(*this);
    std::vector<PendingState> states = ReadPending(*m_database, user).changes;
    std::erase_if(states, [&](const PendingState& state) {
        return state.kind != kind || state.owner != owner;
    });
    for (PendingState& state : states) {
        CompareWithStored(*this, state);
    }
    return states;
}

std::int64_t Store::PendingNumber(const std::string& user) const
{
    return ReadPending(*m_database, user).number;
}

SaveOutcome Store::SavePending(const std::string& user)
{
    if (PendingNumber(user) == 0) {
        return {};
    }
    Transaction transaction(*m_database);
    const std::vector<PendingState> changes = PendingChanges(user);
    SaveOutcome outcome;
    std::ranges::copy_if(changes, std::back_inserter(outcome.conflicts), &PendingState::conflicts);
    if (!outcome.conflicts.empty() || changes.empty()) {
        return outcome;
    }
    PendingSave(*this, *m_database).Run(user, changes);
    RemovePending(*m_database, user);
    CommitSeen(transaction);
    outcome.saved = changes.size();
    return outcome;
}

std::size_t Store::AbortPending(const std::string& user)
{
    if (PendingNumber(user) == 0) {
        return 0;
    }
    Transaction transaction(*m_database);
    const std::size_t count = ReadPending(*m_database, user).changes.size();
    RemovePending(*m_database, user);
    CommitSeen(transaction);
    return count;
}

StoredPart Store::Seen(StoredPart part) const
{
    if (m_overlay != nullptr) {
        m_overlay->Apply(part, *this);
    }
    return part;
}

StoredUse Store::Seen(StoredUse use) const
{
    if (m_overlay != nullptr && m_overlay->Changes(OwnerKind::Use, use.id)) {
        m_overlay->Apply(use, CommittedPart(use.part).part.type, *this);
    }
    return use;
}

/// What the innermost view shows is read while that may still fail.
void Store::CommitSeen(Transaction& transaction)
{
    auto overlay = m_overlay == nullptr
                       ? nullptr
                       : std::make_unique<PendingOverlay>(*m_database, m_overlay->User());
    transaction.Commit();
    m_overlay = std::move(overlay);
}

PendingView::PendingView(const Store& store, const std::string& user)
    : m_store(store),
      m_outer(
          std::exchange(store.m_overlay, std::make_unique<PendingOverlay>(*store.m_database, user)))
{}

PendingView::~PendingView()
{
    // What was changed under this view is seen under an outer one of the same user too.
    if (m_outer != nullptr && m_outer->User() == m_store.m_overlay->User()) {
        return;
    }
    m_store.m_overlay = std::move(m_outer);
}

std::int64_t PendingView::Number() const
{
    return m_store.m_overlay->Number();
}
} // namespace wb
