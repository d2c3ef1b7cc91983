#include "Database.h"
#include "PendingOverlay.h"
#include "Schema.h"
#include "WBStore.h"

#include <algorithm>
#include <utility>

namespace wb
{
namespace
{
/// The columns of a PartLine; p is the part. Whether anybody uses it and whether it has uses are
/// answered from indexes.
const std::string kLineColumns =
    "p.id, p.identifier, p.version, coalesce(p.name, p.identifier), p.type, "
    "EXISTS (SELECT 1 FROM use WHERE part = p.id), EXISTS (SELECT 1 FROM use WHERE parent = p.id)";

const std::string kUseLineColumns =
    "u.id, u.instance, max(u.quantity, 1), u.rotation, u.x, u.y, u.z, ";

PartLine ReadLine(Statement& row)
{
    PartLine line;
    line.id = row.Integer();
    line.identifier = row.Text();
    line.version = row.Text();
    line.name = row.Text();
    const auto stated = static_cast<PartType>(row.Integer());
    const bool isUsed = row.Integer() != 0;
    line.hasUses = row.Integer() != 0;
    line.type = EffectiveType(stated, isUsed, line.hasUses);
    return line;
}

Placement ReadPlacement(Statement& row)
{
    Placement placement;
    row.Blob(&placement.rotation, sizeof placement.rotation);
    for (double& term : placement.shift) {
        term = row.Number();
    }
    return placement;
}

UseLine ReadUseLine(Statement& row)
{
    UseLine line;
    line.id = row.Integer();
    line.instance = row.Text();
    line.quantity = static_cast<int>(row.Integer());
    line.placement = ReadPlacement(row);
    line.part = ReadLine(row);
    return line;
}

std::vector<ValueSet> ReadSets(Database& database, const char* owner, RowId id)
{
    std::vector<ValueSet> sets;
    Statement& rows = database.Kept("SELECT m.name" + SetNumberColumns("v.") +
                                    ", source, source_date, author, note, typed FROM " + owner +
                                    "_value v JOIN mass_type m ON m.id = v.mass_type "
                                    "WHERE v.owner = ? ORDER BY m.rank");
    rows.Bind(id);
    while (rows.Step()) {
        ValueSet& set = sets.emplace_back();
        set.massType = rows.Text();
        for (double& number : set.numbers) {
            number = rows.Number();
        }
        set.source = rows.Text();
        set.sourceDate = rows.Text();
        set.author = rows.Text();
        set.note = rows.Text();
        set.typed = rows.Text();
    }
    return sets;
}

Property ReadProperty(Statement& row)
{
    Property property;
    property.name = row.Text();
    property.type = static_cast<Property::Type>(row.Integer());
    property.isDate = row.Integer() != 0;
    property.value = row.Text();
    property.magnitude = row.Text();
    property.typed = row.Text();
    return property;
}

std::vector<Property> ReadProperties(Database& database, const char* owner, RowId id)
{
    std::vector<Property> properties;
    Statement& rows = database.Kept(std::string("SELECT name, type, is_date, value, magnitude, "
                                                "typed FROM ") +
                                    owner + "_property WHERE owner = ? ORDER BY position");
    rows.Bind(id);
    while (rows.Step()) {
        properties.push_back(ReadProperty(rows));
    }
    return properties;
}

/// A file of an earlier version that could not be brought up yet knows what is active alone.
std::string LastImposedColumn(Database& database)
{
    return HasCurrentTables(database) ? "last_imposed" : "active";
}

/// The columns of a StoredUse but for its sets and properties; u is the use.
std::string UseColumns(Database& database)
{
    return "u.id, parent, part, instance, quantity, stated, rotation, x, y, z, u.density, "
           "u.surface_density, m.name, t.name, i.name, note, u.typed, EXISTS (SELECT 1 FROM "
           "use_value WHERE owner = u.id), EXISTS (SELECT 1 FROM use_property WHERE owner = u.id) "
           "FROM use u LEFT JOIN material m ON m.id = u.material LEFT JOIN mass_type t ON t.id = "
           "u.active LEFT JOIN mass_type i ON i.id = u." +
           LastImposedColumn(database);
}

/// A row of those columns. Few uses have sets or properties of their own, so that the others are
/// not asked for them.
struct UseRow
{
    StoredUse stored;
    bool hasSets = false;
    bool hasProperties = false;
};

UseRow ReadUseRow(Statement& row)
{
    UseRow read;
    StoredUse& stored = read.stored;
    stored.id = row.Integer();
    stored.parent = row.Integer();
    stored.part = row.Integer();
    Use& use = stored.use;
    use.instance = row.Text();
    use.quantity = static_cast<int>(row.Integer());
    const std::int64_t stated = row.Integer();
    use.positionStated = (stated & 1) != 0;
    use.rotationStated = (stated & 2) != 0;
    use.placement = ReadPlacement(row);
    use.density = row.Number();
    use.surfaceDensity = row.Number();
    use.material = row.Text();
    use.activeType = row.Text();
    use.lastImposed = row.Text();
    use.note = row.Text();
    use.typed = row.Text();
    read.hasSets = row.Integer() != 0;
    read.hasProperties = row.Integer() != 0;
    return read;
}

/// The use with what stands in tables of their own.
StoredUse Completed(Database& database, UseRow&& row)
{
    if (row.hasSets) {
        row.stored.use.sets = ReadSets(database, "use", row.stored.id);
    }
    if (row.hasProperties) {
        row.stored.use.properties = ReadProperties(database, "use", row.stored.id);
    }
    return std::move(row.stored);
}

std::vector<DocumentRevision> ReadDocuments(Database& database, RowId id)
{
    std::vector<DocumentRevision> documents;
    Statement& rows = database.Kept(
        "SELECT document, version, use, checkin_date, checkin_user, checkout_user, mass_type, "
        "mass, typed FROM document_revision WHERE part = ? ORDER BY position");
    rows.Bind(id);
    while (rows.Step()) {
        DocumentRevision& revision = documents.emplace_back();
        revision.document = rows.Text();
        revision.version = rows.Text();
        revision.use = static_cast<DocumentRevision::Use>(rows.Integer());
        revision.checkinDate = rows.Text();
        revision.checkinUser = rows.Text();
        revision.checkoutUser = rows.Text();
        revision.massType = rows.Text();
        revision.mass = rows.Number();
        revision.typed = rows.Text();
    }
    return documents;
}
} // namespace

std::vector<MassType> Store::MassTypes() const
{
    std::vector<MassType> types;
    Statement& rows = m_database->Kept("SELECT name, rank, kind = 'goal', category, lower_pct, "
                                       "upper_pct, meaning FROM mass_type ORDER BY rank");
    while (rows.Step()) {
        MassType& type = types.emplace_back();
        type.name = rows.Text();
        type.order = static_cast<int>(rows.Integer());
        type.kind = rows.Integer() != 0 ? MassType::Kind::Goal : MassType::Kind::Claim;
        type.category = rows.Text();
        type.lowerPct = rows.Number();
        type.upperPct = rows.Number();
        type.meaning = rows.Text();
    }
    return types;
}

std::unordered_map<std::string, std::vector<std::string>> Store::PartVersions() const
{
    std::unordered_map<std::string, std::vector<std::string>> versions;
    Statement& rows = m_database->Kept("SELECT identifier, version FROM part ORDER BY id");
    while (rows.Step()) {
        const std::string identifier = rows.Text();
        versions[identifier].push_back(rows.Text());
    }
    return versions;
}

PartType Store::TypeOf(std::string_view identifier, std::string_view version) const
{
    Statement& rows =
        m_database->Kept("SELECT type FROM part WHERE identifier = ? AND version = ?");
    rows.BindText(identifier).BindText(version);
    PartType type = PartType::Unstated;
    while (rows.Step()) {
        type = static_cast<PartType>(rows.Integer());
    }
    return type;
}

std::optional<Material> Store::FindMaterial(std::string_view name) const
{
    std::optional<Material> found;
    Statement& rows = m_database->Kept(
        "SELECT name, density, surface_density, typed FROM material WHERE name = ?");
    rows.BindText(name);
    while (rows.Step()) {
        Material& material = found.emplace();
        material.name = rows.Text();
        material.density = rows.Number();
        material.surfaceDensity = rows.Number();
        material.typed = rows.Text();
    }
    return found;
}

std::optional<Part> Store::FindFacts(std::string_view identifier, std::string_view version) const
{
    const auto line = FindPart(identifier, version);
    return line ? std::optional(ReadPart(line->id).part) : std::nullopt;
}

bool Store::HasUses(std::string_view identifier, std::string_view version) const
{
    const auto line = FindPart(identifier, version);
    return line && line->hasUses;
}

std::optional<Use> Store::FindUseFacts(const Part& parent, std::string_view instance,
                                       const Part& part) const
{
    const auto above = FindPart(parent.identifier, parent.version);
    const auto line = above ? FindUse(above->id, instance) : std::nullopt;
    const bool isSame =
        line && line->part.identifier == part.identifier && line->part.version == part.version;
    return isSame ? std::optional(ReadUse(line->id).use) : std::nullopt;
}

std::vector<PartLine> Store::Roots() const
{
    std::vector<PartLine> roots;
    // An import notes them, since looking for uses of every part reads an index from end to end.
    // The note counts as long as nothing has changed.
    const bool isNoted =
        m_database->Ask("SELECT json_extract(n.value, '$.change') = CAST(c.value AS INTEGER) FROM "
                        "meta n, meta c WHERE n.key = 'roots' AND c.key = 'change_number'") != 0;
    Statement& rows = m_database->Kept(
        "SELECT " + kLineColumns + " FROM part p WHERE " +
        (isNoted ? "p.id IN (SELECT j.value FROM meta m, json_each(m.value, '$.parts') j WHERE "
                   "m.key = 'roots')"
                 : "NOT EXISTS (SELECT 1 FROM use WHERE part = p.id)") +
        " ORDER BY p.identifier, p.version");
    while (rows.Step()) {
        roots.push_back(ReadLine(rows));
    }
    return roots;
}

std::optional<PartLine> Store::FindRoot(std::string_view identifier, std::string_view version) const
{
    std::optional<PartLine> root;
    Statement& rows = m_database->Kept("SELECT " + kLineColumns +
                                       " FROM part p WHERE p.identifier = ?1 AND (?2 = '' OR "
                                       "p.version = ?2) AND NOT EXISTS (SELECT 1 FROM use WHERE "
                                       "part = p.id) ORDER BY p.id");
    rows.BindText(identifier).BindText(version);
    while (rows.Step()) {
        root = ReadLine(rows);
    }
    return root;
}

std::optional<PartLine> Store::FindPart(std::string_view identifier, std::string_view version) const
{
    std::optional<PartLine> part;
    Statement& rows = m_database->Kept("SELECT " + kLineColumns +
                                       " FROM part p WHERE p.identifier = ? AND p.version = ?");
    rows.BindText(identifier).BindText(version);
    while (rows.Step()) {
        part = ReadLine(rows);
    }
    return part;
}

std::optional<PartLine> Store::FindPart(RowId id) const
{
    std::optional<PartLine> part;
    Statement& rows = m_database->Kept("SELECT " + kLineColumns + " FROM part p WHERE p.id = ?");
    rows.Bind(id);
    while (rows.Step()) {
        part = ReadLine(rows);
    }
    return part;
}

std::vector<UseLine> Store::UsesOf(RowId part) const
{
    std::vector<UseLine> uses;
    Statement& rows =
        m_database->Kept("SELECT " + kUseLineColumns + kLineColumns +
                         " FROM use u JOIN part p ON p.id = u.part WHERE u.parent = ? ORDER BY "
                         "u.id");
    rows.Bind(part);
    while (rows.Step()) {
        uses.push_back(ReadUseLine(rows));
    }
    return uses;
}

std::optional<UseLine> Store::FindUse(RowId parent, std::string_view instance) const
{
    std::optional<UseLine> use;
    Statement& rows =
        m_database->Kept("SELECT " + kUseLineColumns + kLineColumns +
                         " FROM use u JOIN part p ON p.id = u.part WHERE u.parent = ? AND "
                         "u.instance = ?");
    rows.Bind(parent).BindText(instance);
    while (rows.Step()) {
        use = ReadUseLine(rows);
    }
    return use;
}

StoredPart Store::ReadPart(RowId part) const
{
    return Seen(CommittedPart(part));
}

StoredUse Store::ReadUse(RowId use) const
{
    return Seen(CommittedUse(use));
}

StoredPart Store::CommittedPart(RowId id) const
{
    StoredPart stored;
    Statement& row = m_database->Kept(
        "SELECT p.id, identifier, version, p.name, type, standard, code, growth_pct, p.density, "
        "p.surface_density, density_first, errors, m.name, t.name, i.name, note, p.typed FROM "
        "part p LEFT JOIN material m ON m.id = p.material LEFT JOIN mass_type t ON t.id = p.active "
        "LEFT JOIN mass_type i ON i.id = p." +
        LastImposedColumn(*m_database) + " WHERE p.id = ?");
    row.Bind(id);
    while (row.Step()) {
        stored.id = row.Integer();
        Part& part = stored.part;
        part.identifier = row.Text();
        part.version = row.Text();
        part.name = row.Text();
        part.type = static_cast<PartType>(row.Integer());
        part.standard = static_cast<Answer>(row.Integer());
        part.code = row.Text();
        part.growthPct = row.Number();
        part.density = row.Number();
        part.surfaceDensity = row.Number();
        part.densityFirst = static_cast<DensityOrder>(row.Integer());
        part.errors = static_cast<ErrorRule>(row.Integer());
        part.material = row.Text();
        part.activeType = row.Text();
        part.lastImposed = row.Text();
        part.note = row.Text();
        part.typed = row.Text();
    }
    stored.part.sets = ReadSets(*m_database, "part", id);
    stored.part.documents = ReadDocuments(*m_database, id);
    stored.part.properties = ReadProperties(*m_database, "part", id);
    return stored;
}

StoredUse Store::CommittedUse(RowId id) const
{
    UseRow read;
    Statement& row =
        m_database->Kept("SELECT " + UseColumns(*m_database) + " WHERE u.id = ?").Bind(id);
    while (row.Step()) {
        read = ReadUseRow(row);
    }
    return Completed(*m_database, std::move(read));
}

std::vector<StoredUse> Store::ReadUsesBelow(RowId part) const
{
    std::vector<UseRow> read;
    Statement& rows =
        m_database->Kept("SELECT " + UseColumns(*m_database) + " WHERE parent = ?").Bind(part);
    while (rows.Step()) {
        read.push_back(ReadUseRow(rows));
    }
    std::ranges::sort(read, {}, [](const UseRow& row) { return row.stored.id; });
    std::vector<StoredUse> uses;
    uses.reserve(read.size());
    for (UseRow& row : read) {
        uses.push_back(Seen(Completed(*m_database, std::move(row))));
    }
    return uses;
}

DensityCount Store::CountDensities(RowId part) const
{
    // Whether the use and the part say of a density; what is pending goes before what is stored.
    std::string ofUse =
        "coalesce(u.density, u.surface_density, um.density, um.surface_density) IS NOT NULL";
    std::string ofPart =
        "coalesce(p.density, p.surface_density, pm.density, pm.surface_density) IS NOT NULL";
    const std::string pending =
        m_overlay == nullptr ? std::string() : m_overlay->DensitiesAsJson(*this);
    if (!pending.empty()) {
        ofUse = "coalesce(json_extract(?2, '$.use' || u.id), " + ofUse + ")";
        ofPart = "coalesce(json_extract(?2, '$.part' || p.id), " + ofPart + ")";
    }
    // Every different place of a leaf counts once: the same part with and without a material of
    // its own are two. UNION drops what was met before, so shared assemblies are walked once.
    Statement& row = m_database->Kept(
        "WITH RECURSIVE below (part, density) AS ("
        "SELECT ?1, 0 UNION "
        "SELECT u.part, " +
        ofUse + " OR " + ofPart +
        " FROM below b JOIN use u ON u.parent = b.part JOIN part p ON p.id = u.part "
        "LEFT JOIN material um ON um.id = u.material LEFT JOIN material pm ON pm.id = p.material) "
        "SELECT coalesce(sum(density), 0), coalesce(sum(NOT density), 0) FROM below "
        "WHERE NOT EXISTS (SELECT 1 FROM use WHERE parent = below.part)");
    row.Bind(part);
    if (!pending.empty()) {
        row.BindText(pending);
    }
    DensityCount count;
    while (row.Step()) {
        count.with = row.Integer();
        count.without = row.Integer();
    }
    return count;
}

std::vector<std::string> Store::PropertyNames() const
{
    std::vector<std::string> names;
    Statement& rows = m_database->Kept(
        "SELECT name FROM part_property UNION SELECT name FROM use_property ORDER BY name");
    while (rows.Step()) {
        names.push_back(rows.Text());
    }
    return names;
}

void Store::UseProperties(
    const std::function<void(RowId use, const Property& property)>& take) const
{
    Statement& rows = m_database->Kept("SELECT owner, name, type, is_date, value, magnitude, typed "
                                       "FROM use_property ORDER BY owner, position");
    while (rows.Step()) {
        const RowId use = rows.Integer();
        Property property = ReadProperty(rows);
        if (m_overlay != nullptr) {
            m_overlay->Apply(use, property);
        }
        take(use, property);
    }
}

std::int64_t Store::ChangeNumber(RowId part) const
{
    Statement& row = m_database->Kept("SELECT change_number FROM part WHERE id = ?");
    row.Bind(part);
    std::int64_t number = 0;
    while (row.Step()) {
        number = row.Integer();
    }
    return number;
}
} // namespace wb
