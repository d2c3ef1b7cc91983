#include "Database.h"
#include "History.h"
#include "Schema.h"
#include "StoreWrites.h"
#include "WBStore.h"

#include <stdexcept>
#include <utility>

namespace wb
{
namespace
{
/// A first import only ever adds behind what it has written, so that a small cache serves as well;
/// a large one would fill with pages that nobody asks for again.
class SmallCache
{
public:
    explicit SmallCache(Database& database) : m_database(database)
    {
        m_database.Execute("PRAGMA cache_size = -8192");
    }
    ~SmallCache() { m_database.Try(kCacheSize); }
    SmallCache(const SmallCache&) = delete;
    SmallCache& operator=(const SmallCache&) = delete;

private:
    Database& m_database;
};

/// The indexes are built in one go at the end, by sorting; false when a use was stated twice.
bool BuildUseIndexes(Database& database)
{
    try {
        // Sorting shares the work with a processor that the table no longer needs.
        database.Execute("PRAGMA threads = 1");
        database.Execute(kUseIndexes);
        return true;
    } catch (const StoreError&) {
        return false;
    }
}

void InsertRest(PartWriter& writer, const Product& rest, std::int64_t changeNumber)
{
    for (const Material& material : rest.materials) {
        writer.InsertMaterial(material);
    }
    for (const Part& part : rest.parts) {
        writer.InsertPart(part, changeNumber);
    }
}

std::vector<std::string> UnusedParts(Database& database)
{
    std::vector<std::string> names;
    Statement& rows = database.Kept("SELECT identifier || ' ' || version FROM part p WHERE NOT "
                                    "EXISTS (SELECT 1 FROM use WHERE part = p.id) ORDER BY id");
    while (rows.Step()) {
        names.push_back(rows.Text());
    }
    return names;
}

/// Nothing when the pieces make no product.
std::optional<ImportCounts> InsertPieces(Database& database, ProductPieces& pieces)
{
    const std::int64_t changeNumber =
        1 + database.Ask("SELECT value FROM meta WHERE key = 'change_number'");
    PartWriter writer(database);
    ImportCounts counts;
    database.Execute("DROP INDEX use_part; DROP INDEX use_instance");
    // The rows of an empty table begin with 1, in the order in which they are inserted: the uses
    // name parts that are inserted behind them.
    for (auto uses = pieces.Next(); !uses.empty(); uses = pieces.Next()) {
        for (const Use& use : uses) {
            writer.InsertUse(use, RowId{1} + use.parent, RowId{1} + use.part);
        }
        counts.newUses += uses.size();
    }
    const Product* rest = pieces.Rest();
    if (rest == nullptr) {
        return std::nullopt;
    }
    InsertRest(writer, *rest, changeNumber);
    counts.newParts = rest->parts.size();
    if (!BuildUseIndexes(database)) {
        return std::nullopt;
    }
    counts.unusedParts = UnusedParts(database);
    database.Kept("UPDATE meta SET value = ? WHERE key = 'change_number'").Bind(changeNumber).Run();
    NoteRoots(database);
    return counts;
}
} // namespace

std::optional<ImportCounts> Store::ImportFirst(ProductPieces& pieces,
                                               const std::function<ImportOptions()>& options)
{
    const WithoutReferenceChecks unchecked(*m_database);
    const SmallCache cache(*m_database);
    Transaction transaction(*m_database);
    UpdateTables(*m_database);
    if (!IsEmpty()) {
        return std::nullopt;
    }
    std::optional<ImportCounts> counts;
    try {
        counts = InsertPieces(*m_database, pieces);
    } catch (const std::out_of_range&) {
        return std::nullopt; // the mass types are others than when the pieces were begun
    }
    if (counts) {
        WriteImport(*m_database, options(), {});
        transaction.Commit();
    }
    return counts;
}

bool Store::IsEmpty() const
{
    return m_database->Ask("SELECT EXISTS (SELECT 1 FROM part) OR EXISTS (SELECT 1 FROM use) OR "
                           "EXISTS (SELECT 1 FROM material)") == 0;
}
} // namespace wb
