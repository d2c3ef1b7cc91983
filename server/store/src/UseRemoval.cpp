#include "UseRemoval.h"

#include "Owners.h"

#include <string_view>
#include <unordered_map>

namespace wb
{
UseRemoval::UseRemoval(Store& store, Database& database, const KnownParts& known,
                       const Product& product, const std::string& root)
    : m_store(store),
      m_database(database),
      m_known(known),
      m_product(product),
      m_root(root),
      m_usesBelow(product.UsesByParent())
{}

void UseRemoval::Run(ImportErrors& errors)
{
    std::vector<std::uint32_t> open = RootsToReplace(errors);
    std::vector<bool> met(m_product.parts.size());
    while (!open.empty() && !errors.Any()) {
        const std::uint32_t parent = open.back();
        open.pop_back();
        if (met[parent]) {
            continue;
        }
        met[parent] = true;
        std::unordered_map<std::string_view, std::uint32_t> stated;
        for (const std::uint32_t index : m_usesBelow[parent]) {
            stated.emplace(m_product.uses[index].instance, m_product.uses[index].part);
            open.push_back(m_product.uses[index].part);
        }
        const RowId known = m_known.Find(m_product.parts[parent]);
        for (const StoredUseLine& use : StoredUsesOf(known)) {
            const auto kept = stated.find(use.instance);
            // The same name for another part is another use.
            if (kept == stated.end() || m_known.Find(m_product.parts[kept->second]) != use.part) {
                Remove(use, known, m_product.parts[parent]);
            }
        }
    }
}

std::vector<std::uint32_t> UseRemoval::RootsToReplace(ImportErrors& errors)
{
    std::vector<std::uint32_t> roots;
    for (std::uint32_t part = 0; part < m_product.parts.size(); ++part) {
        if (m_product.parts[part].identifier == m_root) {
            roots.push_back(part);
        }
    }
    const std::string option = "--replace \"" + m_root + "\": ";
    if (roots.empty()) {
        errors.File(option + "the table does not hold it, expected a product root of the table");
    }
    for (const std::uint32_t root : roots) {
        const std::string user = UserOf(root);
        if (!user.empty()) {
            std::string why = option;
            why += "it is used in " + user + ", expected a product root";
            errors.File(why);
        } else if (m_usesBelow[root].empty() &&
                   !StoredUsesOf(m_known.Find(m_product.parts[root])).empty()) {
            // A table of facts alone would take the whole product away.
            errors.File(option + "the table places nothing in it, expected the uses that stay");
        }
    }
    return roots;
}

/// The identifier of a part that uses it, in the table or in the database; empty where none does.
std::string UseRemoval::UserOf(std::uint32_t part)
{
    for (const Use& use : m_product.uses) {
        if (use.part == part) {
            return m_product.parts[use.parent].identifier;
        }
    }
    std::string user;
    Statement& rows = m_database.Kept("SELECT p.identifier FROM use u JOIN part p ON p.id = "
                                      "u.parent WHERE u.part = ? ORDER BY u.id LIMIT 1");
    rows.Bind(m_known.Find(m_product.parts[part]));
    while (rows.Step()) {
        user = rows.Text();
    }
    return user;
}

std::vector<UseRemoval::StoredUseLine> UseRemoval::StoredUsesOf(RowId parent)
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

void UseRemoval::Remove(const StoredUseLine& use, RowId parent, const Part& named)
{
    for (const char* sql :
         {"DELETE FROM use_value WHERE owner = ?", "DELETE FROM use_property WHERE owner = ?",
          "DELETE FROM use WHERE id = ?"}) {
        m_database.Kept(sql).Bind(use.id).Run();
    }
    if (m_bereft.empty() || m_bereft.back() != parent) {
        m_bereft.push_back(parent);
    }
    m_released.insert(use.part);
    const PartLine part = *m_store.FindPart(use.part);
    m_removed.push_back({OwnerKind::Use, use.id, UseSubject(named, use.instance), "",
                         part.identifier + " " + part.version, ""});
}

std::vector<std::string> UseRemoval::ReleasedParts()
{
    std::vector<std::string> names;
    for (const RowId id : m_released) {
        Statement& row =
            m_database.Kept("SELECT identifier || ' ' || version FROM part WHERE id = ? AND "
                            "NOT EXISTS (SELECT 1 FROM use WHERE part = part.id)");
        row.Bind(id);
        while (row.Step()) {
            names.push_back(row.Text());
        }
    }
    return names;
}

std::vector<std::string> UseRemoval::BereftRoots()
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
            if (identifier != m_root) {
                std::string name = identifier;
                names.insert(name.append(1, ' ').append(version));
            }
        }
    }
    return {names.begin(), names.end()};
}
} // namespace wb
