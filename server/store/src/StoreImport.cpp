#include "Database.h"
#include "PartMerge.h"
#include "Schema.h"
#include "StoreWrites.h"
#include "WBStore.h"

#include <algorithm>
#include <set>
#include <stdexcept>
#include <unordered_map>

namespace wb
{
/// One import: everything is compared and written inside one transaction, which the caller commits
/// when nothing was wrong.
class StoreImport
{
public:
    StoreImport(Store& store, Database& database, const Product& product,
                const ImportOptions& options)
        : m_store(store),
          m_database(database),
          m_product(product),
          m_options(options),
          m_merge(options.file, options.known, m_outcome.errors),
          m_writer(database)
    {}

    ImportOutcome Run()
    {
        m_changeNumber = 1 + m_database.Ask("SELECT value FROM meta WHERE key = 'change_number'");
        LoadKnownParts();
        RemoveUses();
        ImportMaterials();
        ImportParts();
        ImportUses();
        RefuseCycles();
        ListUnusedParts();
        auto& changed = m_outcome.counts.changedFacts;
        changed.insert(changed.end(), m_merge.ChangedFacts().begin(), m_merge.ChangedFacts().end());
        if (m_outcome.errors.empty() && Changes()) {
            RaiseChangeNumbers();
            WriteHistory();
        }
        return std::move(m_outcome);
    }

    bool Changes() const { return m_outcome.counts.Changes() || m_materialsChanged; }

private:
    static std::string Key(std::string_view identifier, std::string_view version)
    {
        return std::string(identifier) + "|" + std::string(version);
    }

    void LoadKnownParts()
    {
        Statement& rows = m_database.Kept("SELECT identifier, version, id FROM part");
        while (rows.Step()) {
            const std::string identifier = rows.Text();
            const std::string version = rows.Text();
            m_known[Key(identifier, version)] = rows.Integer();
        }
    }

    struct StoredUseLine
    {
        RowId id;
        std::string instance;
        RowId part;
    };
    std::vector<StoredUseLine> StoredUsesOf(RowId parent)
    {
        std::vector<StoredUseLine> uses;
        Statement& rows =
            m_database.Kept("SELECT id, instance, part FROM use WHERE parent = ? ORDER BY id");
        rows.Bind(parent);
        while (rows.Step()) {
            StoredUseLine& use = uses.emplace_back();
            use.id = rows.Integer();
            use.instance = rows.Text();
            use.part = rows.Integer();
        }
        return uses;
    }

    /// The stored row of a part of the table; 0 where it is new.
    RowId KnownId(const Part& part) const
    {
        const auto found = m_known.find(Key(part.identifier, part.version));
        return found == m_known.end() ? 0 : found->second;
    }

    /// Takes the uses away that the table lacks below the replaced root: what stands below it then
    /// is what the table says. An assembly that leaves the product keeps what is below it.
    void RemoveUses()
    {
        if (m_options.replace.empty()) {
            return;
        }
        const auto usesByParent = m_product.UsesByParent();
        std::vector<std::uint32_t> open = RootsToReplace();
        std::vector<bool> met(m_product.parts.size());
        while (!open.empty()) {
            const std::uint32_t parent = open.back();
            open.pop_back();
            if (met[parent]) {
                continue;
            }
            met[parent] = true;
            std::unordered_map<std::string_view, std::uint32_t> stated;
            for (const std::uint32_t index : usesByParent[parent]) {
                stated.emplace(m_product.uses[index].instance, m_product.uses[index].part);
                open.push_back(m_product.uses[index].part);
            }
            const RowId known = KnownId(m_product.parts[parent]);
            for (const StoredUseLine& use : StoredUsesOf(known)) {
                const auto kept = stated.find(use.instance);
                // The same name for another part is another use.
                if (kept == stated.end() || KnownId(m_product.parts[kept->second]) != use.part) {
                    RemoveUse(use, known, m_product.parts[parent]);
                }
            }
        }
    }

    std::vector<std::uint32_t> RootsToReplace()
    {
        std::vector<std::uint32_t> roots;
        for (std::uint32_t part = 0; part < m_product.parts.size(); ++part) {
            if (m_product.parts[part].identifier == m_options.replace) {
                roots.push_back(part);
            }
        }
        const std::string option = ": --replace \"" + m_options.replace + "\": ";
        if (roots.empty()) {
            m_outcome.errors.push_back(m_options.file + option +
                                       "the table does not hold it, expected a product root of the "
                                       "table");
        }
        for (const std::uint32_t root : roots) {
            std::string user;
            for (const Use& use : m_product.uses) {
                user = use.part == root ? m_product.parts[use.parent].identifier : user;
            }
            Statement& rows = m_database.Kept("SELECT p.identifier FROM use u JOIN part p ON p.id "
                                              "= u.parent WHERE u.part = ? ORDER BY u.id LIMIT 1");
            rows.Bind(KnownId(m_product.parts[root]));
            while (rows.Step()) {
                user = rows.Text();
            }
            if (!user.empty()) {
                m_outcome.errors.push_back(m_options.file + option + "it is used in " + user +
                                           ", expected a product root");
            }
        }
        return roots;
    }

    void RemoveUse(const StoredUseLine& use, RowId parent, const Part& named)
    {
        for (const char* sql :
             {"DELETE FROM use_value WHERE owner = ?", "DELETE FROM use_property WHERE owner = ?",
              "DELETE FROM use WHERE id = ?"}) {
            m_database.Kept(sql).Bind(use.id).Run();
        }
        ++m_outcome.counts.removedUses;
        m_touched.push_back(parent);
        m_bereft.push_back(parent);
        m_released.push_back(use.part);
        const PartLine part = *m_store.FindPart(use.part);
        m_outcome.counts.changedFacts.push_back({"use " + named.identifier + "/" + use.instance,
                                                 part.identifier + " " + part.version, ""});
    }

    void ImportMaterials()
    {
        std::unordered_map<std::string, RowId> known;
        Statement& rows = m_database.Kept("SELECT name, id FROM material");
        while (rows.Step()) {
            const std::string name = rows.Text();
            const RowId id = rows.Integer();
            known[name] = id;
            m_writer.KnowMaterial(name, id);
        }
        for (const Material& material : m_product.materials) {
            const auto found = known.find(material.name);
            if (found == known.end()) {
                m_writer.InsertMaterial(material);
                continue;
            }
            Material stored = *m_store.FindMaterial(material.name);
            m_merge.Forget();
            m_merge.Merge(stored, material);
            if (m_merge.Changed() && m_outcome.errors.empty()) {
                m_writer.UpdateMaterial(found->second, stored);
                m_materialsChanged = true;
                TouchUsersOf(found->second);
            }
        }
    }

    /// A material that gained a density changes the mass of every part that is made of it.
    void TouchUsersOf(RowId material)
    {
        Statement& rows = m_database.Kept("SELECT id FROM part WHERE material = ?1 UNION "
                                          "SELECT parent FROM use WHERE material = ?1");
        rows.Bind(material);
        while (rows.Step()) {
            m_touched.push_back(rows.Integer());
        }
    }

    void ImportParts()
    {
        ImportCounts& counts = m_outcome.counts;
        m_partIds.reserve(m_product.parts.size());
        for (const Part& part : m_product.parts) {
            const auto known =
                m_known.empty() ? m_known.end() : m_known.find(Key(part.identifier, part.version));
            if (known == m_known.end()) {
                ++counts.newParts;
                m_isNew.push_back(true);
                m_partIds.push_back(m_writer.InsertPart(part, m_changeNumber));
                continue;
            }
            m_isNew.push_back(false);
            m_partIds.push_back(known->second);
            StoredPart stored = m_store.ReadPart(known->second);
            m_merge.Forget();
            m_merge.Merge(stored.part, part);
            if (!m_merge.Changed()) {
                ++counts.unchangedParts;
                continue;
            }
            ++counts.changedParts;
            RefuseLeafWithUses(part, stored.id);
            RefuseNegativeMass(stored.part, part, stored.id);
            if (m_outcome.errors.empty()) {
                m_writer.UpdatePart(stored.id, stored.part);
            }
            if (m_merge.TouchesSums()) {
                m_touched.push_back(stored.id);
            }
        }
    }

    void ImportUses()
    {
        // A first import builds the indexes in one go at its end, by sorting.
        if (m_known.empty()) {
            m_database.Execute("DROP INDEX use_part; DROP INDEX use_instance");
        }
        for (const Use& use : m_product.uses) {
            ImportUse(use);
        }
        if (m_known.empty()) {
            m_database.Execute(kUseIndexes);
        }
    }

    void ImportUse(const Use& use)
    {
        ImportCounts& counts = m_outcome.counts;
        const RowId parent = m_partIds[use.parent];
        const auto known =
            m_isNew[use.parent] ? std::nullopt : m_store.FindUse(parent, use.instance);
        if (!known) {
            ++counts.newUses;
            if (!m_isNew[use.parent]) {
                m_touched.push_back(parent);
                RefuseLeafParent(use);
            }
            m_writer.InsertUse(use, parent, m_partIds[use.part]);
            return;
        }
        const std::string name = m_product.parts[use.parent].identifier + "/" + use.instance;
        if (known->part.id != m_partIds[use.part]) {
            Refuse(use.firstLine,
                   "use " + name + ": found part \"" + m_product.parts[use.part].identifier + " " +
                       m_product.parts[use.part].version + "\", the database holds \"" +
                       known->part.identifier + " " + known->part.version +
                       "\"; expected the same part, another instance name or --replace ROOT");
            return;
        }
        StoredUse stored = m_store.ReadUse(known->id);
        m_merge.Forget();
        m_merge.Merge(stored.use, use, name);
        if (!m_merge.Changed()) {
            ++counts.unchangedUses;
            return;
        }
        ++counts.changedUses;
        if (m_outcome.errors.empty()) {
            m_writer.UpdateUse(stored.id, stored.use);
        }
        if (m_merge.TouchesSums()) {
            m_touched.push_back(parent);
        }
    }

    void Refuse(std::uint32_t line, const std::string& text)
    {
        m_outcome.errors.push_back(m_options.file + ":" + std::to_string(line) + ": " + text);
    }

    void RefuseLeafParent(const Use& use)
    {
        const Part& parent = m_product.parts[use.parent];
        const PartType type = m_store.TypeOf(parent.identifier, parent.version);
        if (type == PartType::Part || type == PartType::Adjustment) {
            Refuse(use.firstLine, "column \"parent\": " + parent.identifier +
                                      " is stored as type " + PartTypeName(type) +
                                      ", expected a parent of type assembly or product");
        }
    }

    /// The table may say of a part that it is single which the database holds as a parent.
    void RefuseLeafWithUses(const Part& part, RowId id)
    {
        if (part.type != PartType::Part && part.type != PartType::Adjustment) {
            return;
        }
        Statement& row = m_database.Kept("SELECT EXISTS (SELECT 1 FROM use WHERE parent = ?)");
        row.Bind(id);
        bool hasUses = false;
        while (row.Step()) {
            hasUses = row.Integer() != 0;
        }
        if (hasUses) {
            Refuse(part.lines.LineOf(Fact::Type),
                   "column \"type\": found \"" + std::string(PartTypeName(part.type)) + "\", but " +
                       part.identifier +
                       " has parts below it in the database, expected assembly or product");
        }
    }

    /// A part that was an adjustment may hold a mass, here or at one of its uses, that no other
    /// type may have.
    void RefuseNegativeMass(const Part& merged, const Part& stated, RowId id)
    {
        if (stated.type == PartType::Unstated || merged.type == PartType::Adjustment) {
            return;
        }
        bool isNegative = std::ranges::any_of(
            merged.sets, [](const ValueSet& set) { return set[Fact::Mass] < 0.0; });
        Statement& row =
            m_database.Kept("SELECT EXISTS (SELECT 1 FROM use u JOIN use_value v ON v.owner = u.id "
                            "WHERE u.part = ? AND v.mass < 0)");
        row.Bind(id);
        while (row.Step()) {
            isNegative = isNegative || row.Integer() != 0;
        }
        if (isNegative) {
            Refuse(stated.lines.LineOf(Fact::Type),
                   "column \"type\": found \"" + std::string(PartTypeName(stated.type)) +
                       "\", but " + stated.identifier +
                       " has a negative mass in the database, expected adjustment");
        }
    }

    /// The table alone holds no cycle; together with what is stored it may.
    void RefuseCycles()
    {
        if (m_known.empty() || m_outcome.counts.newUses == 0) {
            return;
        }
        const std::int64_t last = m_database.Ask("SELECT max(id) FROM part");
        std::vector<std::vector<std::uint32_t>> edges(static_cast<std::size_t>(last) + 1);
        Statement& rows = m_database.Kept("SELECT parent, part FROM use");
        while (rows.Step()) {
            const auto parent = static_cast<std::size_t>(rows.Integer());
            edges[parent].push_back(static_cast<std::uint32_t>(rows.Integer()));
        }
        const auto cycle = FindCycle(edges);
        if (cycle.empty()) {
            return;
        }
        std::string path;
        for (const std::uint32_t part : cycle) {
            path += (path.empty() ? "" : " > ") + m_store.FindPart(RowId{part})->identifier;
        }
        // One of the cycle's uses came with this table: the stored ones alone made none.
        const auto onCycle = [&](const Use& use) {
            for (std::size_t i = 0; i + 1 < cycle.size(); ++i) {
                if (m_partIds[use.parent] == RowId{cycle[i]} &&
                    m_partIds[use.part] == RowId{cycle[i + 1]}) {
                    return true;
                }
            }
            return false;
        };
        const auto use = std::ranges::find_if(m_product.uses, onCycle);
        const std::uint32_t line = use == m_product.uses.end() ? 0 : use->firstLine;
        Refuse(line, "column \"part\": " + path +
                         " is a cycle together with what the database "
                         "holds, expected no part inside itself");
    }

    void ListUnusedParts()
    {
        for (const std::uint32_t root : m_product.Roots()) {
            Statement& row = m_database.Kept("SELECT EXISTS (SELECT 1 FROM use WHERE part = ?)");
            row.Bind(m_partIds[root]);
            bool used = false;
            while (row.Step()) {
                used = row.Integer() != 0;
            }
            if (!used) {
                m_outcome.counts.unusedParts.push_back(m_product.parts[root].identifier + " " +
                                                       m_product.parts[root].version);
            }
        }
        ListReleasedParts();
        ListBereftRoots();
    }

    /// Parts that lost their last use are product roots from now on.
    void ListReleasedParts()
    {
        std::ranges::sort(m_released);
        m_released.erase(std::ranges::unique(m_released).begin(), m_released.end());
        for (const RowId id : m_released) {
            Statement& row =
                m_database.Kept("SELECT identifier || ' ' || version FROM part WHERE id = ? AND "
                                "NOT EXISTS (SELECT 1 FROM use WHERE part = part.id)");
            row.Bind(id);
            while (row.Step()) {
                auto& unused = m_outcome.counts.unusedParts;
                std::string name = row.Text();
                if (std::ranges::find(unused, name) == unused.end()) {
                    unused.push_back(std::move(name));
                }
            }
        }
    }

    /// An assembly that lost uses lost them in every product that it stands in.
    void ListBereftRoots()
    {
        std::set<std::string> names;
        for (const RowId id : m_bereft) {
            Statement& rows = m_database.Kept(
                "WITH RECURSIVE above (id) AS (SELECT ?1 UNION SELECT u.parent FROM above a JOIN "
                "use u ON u.part = a.id) SELECT identifier, version FROM part p WHERE id IN "
                "(SELECT id FROM above) AND NOT EXISTS (SELECT 1 FROM use WHERE part = p.id)");
            rows.Bind(id);
            while (rows.Step()) {
                const std::string identifier = rows.Text();
                const std::string version = rows.Text();
                if (identifier != m_options.replace) {
                    names.insert(identifier + " " + version);
                }
            }
        }
        m_outcome.counts.rootsThatLostUses.assign(names.begin(), names.end());
    }

    /// The touched parts and everything above them are no longer what was summed before.
    void RaiseChangeNumbers()
    {
        m_database.Execute("CREATE TEMP TABLE IF NOT EXISTS touched (id INTEGER PRIMARY KEY);"
                           "DELETE FROM touched");
        const auto insert = m_database.Prepare("INSERT OR IGNORE INTO touched VALUES (?)");
        for (const RowId part : m_touched) {
            insert->Start().Bind(part).Run();
        }
        m_database
            .Kept("WITH RECURSIVE above (id) AS (SELECT id FROM touched UNION SELECT u.parent FROM "
                  "above a JOIN use u ON u.part = a.id) "
                  "UPDATE part SET change_number = ? WHERE id IN (SELECT id FROM above)")
            .Bind(m_changeNumber)
            .Run();
        m_database.Kept("UPDATE meta SET value = ? WHERE key = 'change_number'")
            .Bind(m_changeNumber)
            .Run();
    }

    void WriteHistory()
    {
        std::string before;
        std::string after;
        for (const ChangedFact& fact : m_outcome.counts.changedFacts) {
            const std::string end = before.empty() ? "" : "\n";
            before += end + fact.what + ": " + fact.before;
            after += end + fact.what + ": " + fact.after;
        }
        m_database
            .Kept("INSERT INTO history (who, what, subject, checksum, before, after) "
                  "VALUES (?, 'import', ?, ?, ?, ?)")
            .BindText(m_options.user)
            .Bind(m_options.file)
            .Bind(m_options.checksum)
            .Bind(before)
            .Bind(after)
            .Run();
    }

    Store& m_store;
    Database& m_database;
    const Product& m_product;
    const ImportOptions& m_options;
    ImportOutcome m_outcome;
    PartMerge m_merge;
    PartWriter m_writer;
    std::int64_t m_changeNumber = 0;
    std::unordered_map<std::string, RowId> m_known; // parts stored before
    std::vector<RowId> m_partIds;                   // per part of the product
    std::vector<bool> m_isNew;                      // per part of the product
    std::vector<RowId> m_touched;
    std::vector<RowId> m_bereft;   // parents that lost uses
    std::vector<RowId> m_released; // parts whose uses were removed
    bool m_materialsChanged = false;
};

ImportOutcome Store::Import(const Product& product, const ImportOptions& options)
{
    try {
        const WithoutReferenceChecks unchecked(*m_database);
        Transaction transaction(*m_database);
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

std::vector<std::string> Store::PutMassTypes(const std::vector<MassType>& types,
                                             const std::string& user, const std::string& file)
{
    try {
        Transaction transaction(*m_database);
        const std::vector<MassType> before = MassTypes();
        // Two types may exchange their orders: the orders step aside first, then take their place.
        const std::int64_t aside =
            1 + m_database->Ask("SELECT max(abs(rank)) FROM mass_type") + INT32_MAX;
        for (const MassType& type : types) {
            m_database->Kept("UPDATE mass_type SET rank = rank + ? WHERE name = ?")
                .Bind(aside)
                .BindText(type.name)
                .Run();
        }
        for (const MassType& type : types) {
            Statement& taken =
                m_database->Kept("SELECT name FROM mass_type WHERE rank = ? AND name <> ?");
            taken.Bind(std::int64_t{type.order}).BindText(type.name);
            std::string other;
            while (taken.Step()) {
                other = taken.Text();
            }
            if (!other.empty()) {
                std::string sentence = file;
                sentence += ": mass type \"" + type.name + "\": the order ";
                sentence += std::to_string(type.order) + " is that of \"" + other;
                sentence += "\", expected an order that no other mass type has";
                return {sentence};
            }
            const bool goal = type.kind == MassType::Kind::Goal;
            m_database
                ->Kept("INSERT INTO mass_type (name, rank, kind, category, lower_pct, upper_pct, "
                       "meaning) VALUES (?, ?, ?, ?, ?, ?, ?) ON CONFLICT (name) DO UPDATE SET "
                       "rank = excluded.rank, kind = excluded.kind, category = excluded.category, "
                       "lower_pct = excluded.lower_pct, upper_pct = excluded.upper_pct, "
                       "meaning = excluded.meaning")
                .BindText(type.name)
                .Bind(std::int64_t{type.order})
                .BindText(goal ? "goal" : "claim")
                .Bind(type.category)
                .Bind(type.lowerPct)
                .Bind(type.upperPct)
                .Bind(type.meaning)
                .Run();
            if (goal && m_database->Ask("SELECT EXISTS (SELECT 1 FROM part p JOIN mass_type m ON "
                                        "m.id = p.active WHERE m.kind = 'goal') OR EXISTS (SELECT "
                                        "1 FROM use u JOIN mass_type m ON m.id = u.active WHERE "
                                        "m.kind = 'goal')") != 0) {
                return {file + ": mass type \"" + type.name +
                        "\": some part counts with these values, expected a claim, since a goal "
                        "never counts"};
            }
        }
        if (MassTypes() == before) {
            return {};
        }
        // What a type says by default is part of every sum.
        m_database->Execute("UPDATE meta SET value = value + 1 WHERE key = 'change_number';"
                            "UPDATE part SET change_number = (SELECT CAST(value AS INTEGER) FROM "
                            "meta WHERE key = 'change_number')");
        m_database->Kept("INSERT INTO history (who, what, subject) VALUES (?, 'mass types', ?)")
            .BindText(user)
            .Bind(file)
            .Run();
        transaction.Commit();
        return {};
    } catch (const StoreError& error) {
        return {error.what()};
    }
}
} // namespace wb
