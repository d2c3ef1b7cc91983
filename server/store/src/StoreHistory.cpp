#include "History.h"

#include "HistoryLines.h"
#include "Schema.h"

namespace wb
{
namespace
{
ChangedFact ReadFact(Statement& row)
{
    ChangedFact fact;
    fact.kind = row.Integer() != 0 ? OwnerKind::Use : OwnerKind::Part;
    fact.owner = row.Integer();
    fact.subject = row.Text();
    fact.fact = row.Text();
    fact.before = row.Text();
    fact.after = row.Text();
    return fact;
}

HistoryEntry ReadEntry(Statement& row)
{
    HistoryEntry entry;
    entry.when = row.Text();
    entry.who = row.Text();
    entry.what = row.Text();
    entry.subject = row.Text();
    entry.checksum = row.Text();
    return entry;
}

/// A file of an earlier version, which may not be written, keeps its facts as lines.
std::vector<HistoryEntry> HistoryOfLines(Database& database)
{
    std::vector<HistoryEntry> entries;
    const auto rows = database.Prepare(
        "SELECT at, who, what, subject, checksum, before, after FROM history ORDER BY id");
    while (rows->Step()) {
        HistoryEntry& entry = entries.emplace_back(ReadEntry(*rows));
        const std::string before = rows->Text();
        entry.changes = FactsOfLines(database, before, rows->Text());
    }
    return entries;
}

FactChange ChangeOf(const HistoryEntry& entry, const ChangedFact& fact)
{
    return {entry.when,   entry.who, entry.what,  entry.subject,
            fact.subject, fact.fact, fact.before, fact.after};
}
} // namespace

void WriteChangedFacts(Database& database, RowId entry, const std::vector<ChangedFact>& facts)
{
    for (const ChangedFact& fact : facts) {
        Statement& insert =
            database.Kept("INSERT INTO changed_fact (history, of_use, owner, subject, fact, "
                          "before, after) VALUES (?, ?, ?, ?, ?, ?, ?)");
        insert.Bind(entry).Bind(std::int64_t{fact.kind == OwnerKind::Use});
        (fact.owner == 0 ? insert.BindNull() : insert.Bind(fact.owner))
            .BindText(fact.subject)
            .Bind(fact.fact)
            .Bind(fact.before)
            .Bind(fact.after)
            .Run();
    }
}

void WriteHistory(Database& database, const HistoryHead& head,
                  const std::vector<ChangedFact>& facts)
{
    database.Kept("INSERT INTO history (who, what, subject, checksum) VALUES (?, ?, ?, ?)")
        .BindText(head.who)
        .BindText(head.what)
        .Bind(head.subject)
        .Bind(head.checksum)
        .Run();
    WriteChangedFacts(database, database.Ask("SELECT last_insert_rowid()"), facts);
}

void WriteImport(Database& database, const ImportOptions& options,
                 const std::vector<ChangedFact>& facts)
{
    WriteHistory(database, {options.user, "import", options.file, options.checksum}, facts);
}

std::vector<HistoryEntry> Store::History() const
{
    const StoreMoment moment(*this);
    if (!HasCurrentTables(*m_database)) {
        return HistoryOfLines(*m_database);
    }
    std::vector<HistoryEntry> entries;
    std::vector<RowId> ids;
    Statement& rows =
        m_database->Kept("SELECT at, who, what, subject, checksum, id FROM history ORDER BY id");
    while (rows.Step()) {
        entries.push_back(ReadEntry(rows));
        ids.push_back(rows.Integer());
    }
    Statement& facts = m_database->Kept("SELECT of_use, owner, subject, fact, before, after, "
                                        "history FROM changed_fact ORDER BY history, id");
    std::size_t entry = 0;
    while (facts.Step()) {
        ChangedFact fact = ReadFact(facts);
        const RowId history = facts.Integer();
        while (ids.at(entry) != history) {
            ++entry;
        }
        entries[entry].changes.push_back(std::move(fact));
    }
    return entries;
}

std::vector<FactChange> Store::FactChangesOf(OwnerKind kind, RowId owner) const
{
    std::vector<FactChange> changes;
    if (!HasCurrentTables(*m_database)) {
        const std::vector<HistoryEntry> entries = History();
        for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) {
            for (const ChangedFact& fact : entry->changes) {
                if (fact.kind == kind && fact.owner == owner) {
                    changes.push_back(ChangeOf(*entry, fact));
                }
            }
        }
        return changes;
    }
    Statement& rows = m_database->Kept(
        "SELECT h.at, h.who, h.what, h.subject, h.checksum, f.of_use, f.owner, f.subject, f.fact, "
        "f.before, f.after FROM changed_fact f JOIN history h ON h.id = f.history "
        "WHERE f.of_use = ? AND f.owner = ? ORDER BY f.history DESC, f.id");
    rows.Bind(std::int64_t{kind == OwnerKind::Use}).Bind(owner);
    while (rows.Step()) {
        const HistoryEntry entry = ReadEntry(rows);
        changes.push_back(ChangeOf(entry, ReadFact(rows)));
    }
    return changes;
}
} // namespace wb
