#include "StoreImport.h"

#include "History.h"
#include "Owners.h"
#include "Schema.h"

#include <set>
#include <stdexcept>
#include <utility>

namespace wb
{
StoreImport::StoreImport(Store& store, Database& database, const Product& product,
                         const ImportOptions& options)
    : m_store(store),
      m_database(database),
      m_product(product),
      m_options(options),
      m_errors(options.file),
      m_known(database),
      m_merge(options.known, m_errors),
      m_rules(store, database, product, m_errors),
      m_removal(store, database, m_known, product, options.replace),
      m_writer(database),
      m_outdated(database)
{}

ImportOutcome StoreImport::Run()
{
    m_changeNumber = 1 + m_database.Ask("SELECT value FROM meta WHERE key = 'change_number'");
    if (!m_options.replace.empty()) {
        m_removal.Run(m_errors);
    }
    if (!m_errors.Any()) {
        ImportMaterials();
        ImportParts();
        ImportUses();
    }
    if (m_errors.Any()) {
        return {{}, m_errors.Sentences()};
    }
    ListUnusedParts();
    m_counts.removedUses = m_removal.Removed().size();
    m_counts.rootsThatLostUses = m_removal.BereftRoots();
    m_counts.changedFacts = m_removal.Removed();
    m_counts.changedFacts.insert(m_counts.changedFacts.end(), m_merge.ChangedFacts().begin(),
                                 m_merge.ChangedFacts().end());
    m_changes = m_counts.Changes() || m_materialsChanged;
    if (m_changes) {
        for (const RowId part : m_removal.Bereft()) {
            m_outdated.ChangedBelow(part);
        }
        RaiseChangeNumbers(m_database, m_outdated, m_changeNumber);
        WriteImport(m_database, m_options, m_counts.changedFacts);
    }
    return {std::move(m_counts), {}};
}

void StoreImport::ImportMaterials()
{
    m_writer.KnowMaterials();
    for (const Material& material : m_product.materials) {
        const RowId known = m_writer.FindMaterial(material.name);
        if (known == 0) {
            m_writer.InsertMaterial(material);
            continue;
        }
        Material stored = *m_store.FindMaterial(material.name);
        m_merge.Forget();
        m_merge.Merge(stored, material);
        if (m_merge.Changed() && !m_errors.Any()) {
            m_writer.UpdateMaterial(known, stored);
            m_materialsChanged = true;
            TouchUsersOf(known);
        }
    }
}

/// A material that gained a density changes the mass of every part that is made of it.
void StoreImport::TouchUsersOf(RowId material)
{
    Statement& parts = m_database.Kept("SELECT id FROM part WHERE material = ?");
    parts.Bind(material);
    while (parts.Step()) {
        m_outdated.Changed(parts.Integer());
    }
    Statement& parents = m_database.Kept("SELECT parent FROM use WHERE material = ?");
    parents.Bind(material);
    while (parents.Step()) {
        m_outdated.ChangedBelow(parents.Integer());
    }
}

void StoreImport::ImportParts()
{
    m_partIds.reserve(m_product.parts.size());
    for (const Part& part : m_product.parts) {
        const RowId known = m_known.Find(part);
        m_isNew.push_back(known == 0);
        if (known == 0) {
            ++m_counts.newParts;
            m_partIds.push_back(m_writer.InsertPart(part, m_changeNumber));
        } else {
            m_partIds.push_back(known);
            ImportKnownPart(part, known);
        }
    }
}

void StoreImport::ImportKnownPart(const Part& part, RowId row)
{
    Part stored = m_store.CommittedPart(row).part;
    m_merge.Forget();
    m_merge.Merge(stored, part, row);
    if (!m_merge.Changed()) {
        ++m_counts.unchangedParts;
        return;
    }
    ++m_counts.changedParts;
    m_rules.CheckPart(part, stored, row);
    if (!m_errors.Any()) {
        m_writer.UpdatePart(row, stored);
    }
    if (m_merge.TouchesSums()) {
        m_outdated.Changed(row);
        m_outdated.Restated(false, row, m_merge.RestatedSets());
    }
}

void StoreImport::ImportUses()
{
    // A first import builds the indexes in one go at its end, by sorting.
    if (m_known.None()) {
        m_database.Execute("DROP INDEX use_part; DROP INDEX use_instance");
    }
    for (const Use& use : m_product.uses) {
        ImportUse(use);
    }
    if (m_known.None()) {
        m_database.Execute(kUseIndexes);
    } else if (m_counts.newUses > 0) {
        // The table alone holds no cycle; together with what is stored it may.
        m_rules.CheckCycles(m_partIds);
    }
}

void StoreImport::ImportUse(const Use& use)
{
    const RowId parent = m_partIds[use.parent];
    const bool isNewParent = m_isNew[use.parent];
    const auto known = isNewParent ? std::nullopt : m_store.FindUse(parent, use.instance);
    if (known) {
        ImportKnownUse(use, *known);
        return;
    }
    ++m_counts.newUses;
    if (!isNewParent) {
        m_outdated.ChangedBelow(parent);
        m_rules.CheckParent(use);
    }
    m_writer.InsertUse(use, parent, m_partIds[use.part]);
}

void StoreImport::ImportKnownUse(const Use& use, const UseLine& known)
{
    const Part& part = m_product.parts[use.part];
    const std::string subject = UseSubject(m_product.parts[use.parent], use.instance);
    if (known.part.id != m_partIds[use.part]) {
        m_errors.Line(use.firstLine,
                      subject + ": found part \"" + part.identifier + " " + part.version +
                          "\", the database holds \"" + known.part.identifier + " " +
                          known.part.version +
                          "\"; expected the same part, another instance name or --replace ROOT");
        return;
    }
    Use stored = m_store.CommittedUse(known.id).use;
    m_merge.Forget();
    m_merge.Merge(stored, use, known.id, subject);
    if (!m_merge.Changed()) {
        ++m_counts.unchangedUses;
        return;
    }
    ++m_counts.changedUses;
    if (!m_errors.Any()) {
        m_writer.UpdateUse(known.id, stored);
    }
    if (m_merge.TouchesSums()) {
        m_outdated.ChangedBelow(m_partIds[use.parent]);
        m_outdated.Restated(true, known.id, m_merge.RestatedSets());
    }
}

/// Those of the table that nobody uses, and those that lost their last use: product roots now.
void StoreImport::ListUnusedParts()
{
    std::vector<std::string>& unused = m_counts.unusedParts;
    for (const std::uint32_t root : m_product.Roots()) {
        if (!IsUsed(m_partIds[root])) {
            unused.push_back(m_product.parts[root].identifier + " " +
                             m_product.parts[root].version);
        }
    }
    const std::set<std::string> stated(unused.begin(), unused.end());
    for (std::string& released : m_removal.ReleasedParts()) {
        if (!stated.contains(released)) {
            unused.push_back(std::move(released));
        }
    }
}

bool StoreImport::IsUsed(RowId part)
{
    Statement& row = m_database.Kept("SELECT EXISTS (SELECT 1 FROM use WHERE part = ?)");
    row.Bind(part);
    bool isUsed = false;
    while (row.Step()) {
        isUsed = row.Integer() != 0;
    }
    return isUsed;
}

ImportOutcome Store::Import(const Product& product, const ImportOptions& options)
{
    try {
        const WithoutReferenceChecks unchecked(*m_database);
        Transaction transaction(*m_database);
        UpdateTables(*m_database);
        StoreImport import(*this, *m_database, product, options);
        ImportOutcome outcome = import.Run();
        if (outcome.errors.empty() && import.Changes()) {
            transaction.Commit();
        }
        return outcome;
    } catch (const StoreError& error) {
        return {{}, {error.what()}};
    } catch (const std::out_of_range&) {
        // The table was read while the mass types were others than now.
        return {{},
                {options.file + ": a mass type of the table is not in the database; read the "
                                "table again"}};
    }
}
} // namespace wb
