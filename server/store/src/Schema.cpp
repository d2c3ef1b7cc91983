#include "Schema.h"

#include "History.h"
#include "HistoryLines.h"

namespace wb
{
namespace
{
constexpr const char* kTables = R"sql(
CREATE TABLE meta (
    key TEXT PRIMARY KEY NOT NULL,
    value TEXT NOT NULL
) WITHOUT ROWID;

CREATE TABLE mass_type (
    id INTEGER PRIMARY KEY,
    name TEXT NOT NULL UNIQUE CHECK (name NOT IN ('', 'Active', 'MostPrecise', 'Computed')),
    rank INTEGER NOT NULL UNIQUE,
    kind TEXT NOT NULL CHECK (kind IN ('claim', 'goal')),
    category TEXT CHECK ((kind = 'goal' AND category IS NULL)
        OR (kind = 'claim' AND category IN ('estimated', 'calculated', 'actual'))),
    lower_pct REAL NOT NULL CHECK (lower_pct >= 0),
    upper_pct REAL NOT NULL CHECK (upper_pct >= 0),
    meaning TEXT
);

CREATE TABLE material (
    id INTEGER PRIMARY KEY,
    name TEXT NOT NULL UNIQUE,
    density REAL CHECK (density >= 0),
    surface_density REAL CHECK (surface_density >= 0),
    typed TEXT,
    CHECK (density IS NULL OR surface_density IS NULL)
);

CREATE TABLE part (
    id INTEGER PRIMARY KEY,
    identifier TEXT NOT NULL CHECK (identifier <> ''),
    version TEXT NOT NULL CHECK (version <> ''),
    name TEXT,
    type INTEGER NOT NULL CHECK (type BETWEEN 0 AND 4),
    standard INTEGER NOT NULL CHECK (standard BETWEEN 0 AND 2),
    code TEXT,
    growth_pct REAL CHECK (growth_pct >= 0),
    density REAL CHECK (density >= 0),
    surface_density REAL CHECK (surface_density >= 0),
    density_first INTEGER NOT NULL CHECK (density_first BETWEEN 0 AND 2),
    errors INTEGER NOT NULL CHECK (errors BETWEEN 0 AND 2),
    material INTEGER REFERENCES material (id),
    active INTEGER REFERENCES mass_type (id),
    last_imposed INTEGER REFERENCES mass_type (id),
    note TEXT,
    typed TEXT,
    change_number INTEGER NOT NULL,
    UNIQUE (identifier, version)
);

CREATE TABLE use (
    id INTEGER PRIMARY KEY,
    parent INTEGER NOT NULL REFERENCES part (id),
    instance TEXT NOT NULL CHECK (instance <> ''),
    part INTEGER NOT NULL REFERENCES part (id) CHECK (part <> parent),
    quantity INTEGER NOT NULL CHECK (quantity >= 0),
    stated INTEGER NOT NULL CHECK (stated BETWEEN 0 AND 3),
    rotation BLOB CHECK (length(rotation) = 72),
    x REAL NOT NULL, y REAL NOT NULL, z REAL NOT NULL,
    density REAL CHECK (density >= 0),
    surface_density REAL CHECK (surface_density >= 0),
    material INTEGER REFERENCES material (id),
    active INTEGER REFERENCES mass_type (id),
    last_imposed INTEGER REFERENCES mass_type (id),
    note TEXT,
    typed TEXT
);

CREATE TABLE document_revision (
    part INTEGER NOT NULL REFERENCES part (id),
    position INTEGER NOT NULL,
    document TEXT NOT NULL,
    version TEXT NOT NULL,
    use INTEGER NOT NULL CHECK (use BETWEEN 0 AND 3),
    checkin_date TEXT,
    checkin_user TEXT,
    checkout_user TEXT,
    mass_type TEXT,
    mass REAL,
    typed TEXT,
    PRIMARY KEY (part, position),
    UNIQUE (part, document, version)
) WITHOUT ROWID;

CREATE TABLE history (
    id INTEGER PRIMARY KEY,
    at TEXT NOT NULL DEFAULT CURRENT_TIMESTAMP,
    who TEXT NOT NULL,
    what TEXT NOT NULL,
    subject TEXT,
    checksum TEXT
);
)sql";

/// Results that were derived from all the rest, each with the change number of its part then.
constexpr const char* kKeptTable = R"sql(
CREATE TABLE kept_result (
    id INTEGER PRIMARY KEY,
    part INTEGER NOT NULL REFERENCES part (id),
    key TEXT NOT NULL,
    change_number INTEGER NOT NULL,
    at TEXT NOT NULL DEFAULT CURRENT_TIMESTAMP,
    who TEXT NOT NULL,
    result BLOB NOT NULL,
    UNIQUE (part, key)
);
CREATE INDEX kept_key ON kept_result (key, part, change_number);
)sql";

/// Value sets of assemblies that were stated before the last change of something below them.
constexpr const char* kOutdatedTable = R"sql(
CREATE TABLE outdated_set (
    of_use INTEGER NOT NULL CHECK (of_use BETWEEN 0 AND 1),
    owner INTEGER NOT NULL,
    mass_type INTEGER NOT NULL REFERENCES mass_type (id),
    PRIMARY KEY (of_use, owner, mass_type)
) WITHOUT ROWID;
)sql";

/// The facts that an entry of the history changed, and what users have changed and neither saved
/// nor given up. Neither refers to its owner's table: an import may remove a use, and what was said
/// of it stays.
constexpr const char* kChangeTables = R"sql(
CREATE TABLE changed_fact (
    id INTEGER PRIMARY KEY,
    history INTEGER NOT NULL REFERENCES history (id),
    of_use INTEGER NOT NULL CHECK (of_use BETWEEN 0 AND 1),
    owner INTEGER,
    subject TEXT NOT NULL,
    fact TEXT,
    before TEXT,
    after TEXT
);
CREATE INDEX changed_fact_owner ON changed_fact (of_use, owner, history);

CREATE TABLE pending_change (
    id INTEGER PRIMARY KEY,
    who TEXT NOT NULL,
    of_use INTEGER NOT NULL CHECK (of_use BETWEEN 0 AND 1),
    owner INTEGER NOT NULL,
    subject TEXT NOT NULL,
    mass_type TEXT NOT NULL,
    quantity TEXT NOT NULL,
    seen TEXT NOT NULL,
    after TEXT NOT NULL CHECK (after <> seen),
    at TEXT NOT NULL DEFAULT CURRENT_TIMESTAMP,
    number INTEGER NOT NULL,
    UNIQUE (who, of_use, owner, mass_type, quantity)
);
INSERT INTO meta VALUES ('pending_number', '0');
)sql";

/// What was imposed last is what is active, where nothing else is known.
constexpr const char* kImposedColumns = R"sql(
ALTER TABLE part ADD COLUMN last_imposed INTEGER REFERENCES mass_type (id);
ALTER TABLE use ADD COLUMN last_imposed INTEGER REFERENCES mass_type (id);
UPDATE part SET last_imposed = active WHERE active IS NOT NULL;
UPDATE use SET last_imposed = active WHERE active IS NOT NULL;
)sql";

void MoveHistoryLines(Database& database)
{
    const auto rows = database.Prepare(
        "SELECT id, before, after FROM history WHERE before IS NOT NULL ORDER BY id");
    while (rows->Step()) {
        const RowId entry = rows->Integer();
        const std::string before = rows->Text();
        WriteChangedFacts(database, entry, FactsOfLines(database, before, rows->Text()));
    }
}

/// The value sets of parts and of uses are alike; so are their properties. The checks use no IN
/// with a list: SQLite would build a table of the list for every inserted row.
std::string OwnedTables(const std::string& owner)
{
    std::string sql = "CREATE TABLE " + owner + "_value (owner INTEGER NOT NULL REFERENCES " +
                      owner + " (id), mass_type INTEGER NOT NULL REFERENCES mass_type (id)";
    for (std::size_t i = 0; i < kSetNumbers; ++i) {
        sql += std::string(", ") + FactName(static_cast<Fact>(i)) + " REAL";
    }
    sql += ", source TEXT, source_date TEXT, author TEXT, note TEXT, typed TEXT, "
           "CHECK ((lower IS NULL) = (upper IS NULL) AND min(lower, upper) >= 0), "
           "CHECK ((lower_pct IS NULL) = (upper_pct IS NULL) AND min(lower_pct, upper_pct) >= 0), "
           "CHECK ((cgx IS NULL) = (cgy IS NULL) AND (cgx IS NULL) = (cgz IS NULL)), "
           "PRIMARY KEY (owner, mass_type)) WITHOUT ROWID;"
           "CREATE TABLE " +
           owner + "_property (owner INTEGER NOT NULL REFERENCES " + owner +
           " (id), position INTEGER NOT NULL, name TEXT NOT NULL, "
           "type INTEGER NOT NULL CHECK (type BETWEEN 1 AND 4 OR type = 100), "
           "is_date INTEGER NOT NULL CHECK (is_date BETWEEN 0 AND 1), value TEXT NOT NULL, "
           "magnitude TEXT, typed TEXT, PRIMARY KEY (owner, name)) "
           "WITHOUT ROWID;";
    return sql;
}
} // namespace

std::string SetNumberColumns(const std::string& prefix)
{
    std::string columns;
    for (std::size_t i = 0; i < kSetNumbers; ++i) {
        columns += ", " + prefix + FactName(static_cast<Fact>(i));
    }
    return columns;
}

std::string SetNumberParameters()
{
    std::string parameters;
    for (std::size_t i = 0; i < kSetNumbers; ++i) {
        parameters += ", ?";
    }
    return parameters;
}

void CreateSchema(Database& database)
{
    Transaction transaction(database);
    database.Execute(kTables);
    database.Execute(kKeptTable);
    database.Execute(kOutdatedTable);
    database.Execute(kChangeTables);
    database.Execute(kUseIndexes);
    database.Execute(OwnedTables("part") + OwnedTables("use"));
    const auto insert = database.Prepare(
        "INSERT INTO mass_type (name, rank, kind, category, lower_pct, upper_pct, meaning) "
        "VALUES (?, ?, ?, ?, ?, ?, ?)");
    for (const MassType& type : ShippedMassTypes()) {
        const bool goal = type.kind == MassType::Kind::Goal;
        insert->Start()
            .Bind(type.name)
            .Bind(std::int64_t{type.order})
            .Bind(std::string_view(goal ? "goal" : "claim"))
            .Bind(type.category)
            .Bind(type.lowerPct)
            .Bind(type.upperPct)
            .Bind(type.meaning)
            .Run();
    }
    database.Execute("INSERT INTO meta VALUES ('change_number', '0'), ('created_by', 'wb 0.1.0');"
                     "PRAGMA application_id = " +
                     std::to_string(kApplicationId) +
                     ";PRAGMA user_version = " + std::to_string(kSchemaVersion));
    transaction.Commit();
}

void CheckSchema(Database& database)
{
    const std::int64_t application = database.Ask("PRAGMA application_id");
    const std::int64_t version = database.Ask("PRAGMA user_version");
    if (application != kApplicationId) {
        throw StoreError(database.Path() + ": the file is no weight-and-balance database; open "
                                           "another file, or import a product into a new one");
    }
    if (version > kSchemaVersion) {
        throw StoreError(database.Path() +
                         ": the database was written by a newer version of wb "
                         "(its tables are version " +
                         std::to_string(version) + ", this program knows version " +
                         std::to_string(kSchemaVersion) + "); open it with that version");
    }
}

bool HasCurrentTables(Database& database)
{
    return database.HasVersion(kSchemaVersion);
}

void UpdateTables(Database& database)
{
    const std::int64_t version = database.Ask("PRAGMA user_version");
    if (version < 2) {
        database.Execute(kKeptTable);
        database.Execute(kOutdatedTable);
    }
    if (version < 3) {
        database.Execute(kChangeTables);
        database.Execute(kImposedColumns);
        MoveHistoryLines(database);
        database.Execute("ALTER TABLE history DROP COLUMN before;"
                         "ALTER TABLE history DROP COLUMN after;"
                         "PRAGMA user_version = " +
                         std::to_string(kSchemaVersion));
    }
}

void UpdateSchema(Database& database)
{
    if (HasCurrentTables(database)) {
        return;
    }
    const NoWaiting noWaiting(database);
    try {
        Transaction transaction(database);
        UpdateTables(database);
        transaction.Commit();
    } catch (const StoreError&) {
        return; // the next write tries again, and then says why it cannot
    }
}
} // namespace wb
