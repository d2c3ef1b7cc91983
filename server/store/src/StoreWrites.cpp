#include "StoreWrites.h"

#include "Schema.h"

namespace wb
{
namespace
{
std::string ValueInsert(const std::string& owner)
{
    return "INSERT INTO " + owner + "_value (owner, mass_type" + SetNumberColumns() +
           ", source, source_date, author, note, typed) VALUES (?, ?" + SetNumberParameters() +
           ", ?, ?, ?, ?, ?)";
}

std::string PropertyInsert(const std::string& owner)
{
    return "INSERT INTO " + owner +
           "_property (owner, position, name, type, is_date, value, magnitude, typed) "
           "VALUES (?, ?, ?, ?, ?, ?, ?, ?)";
}

template <typename Choice>
std::int64_t Stored(Choice choice)
{
    return static_cast<std::int64_t>(choice);
}
} // namespace

PartWriter::PartWriter(Database& database)
    : m_database(database),
      m_lastMaterial(database.Ask("SELECT max(id) FROM material")),
      m_lastPart(database.Ask("SELECT max(id) FROM part")),
      // Not the number of a removed use either: what was said of that one is no other's.
      m_lastUse(database.Ask("SELECT max(coalesce((SELECT max(id) FROM use), 0), coalesce((SELECT "
                             "max(owner) FROM changed_fact WHERE of_use = 1), 0))")),
      m_insertPart(database.Prepare(
          "INSERT INTO part (name, type, standard, code, growth_pct, density, surface_density, "
          "density_first, errors, material, active, last_imposed, note, typed, id, identifier, "
          "version, change_number) "
          "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)")),
      m_insertUse(database.Prepare("INSERT INTO use (quantity, stated, rotation, x, y, z, density, "
                                   "surface_density, material, "
                                   "active, last_imposed, note, typed, id, parent, part, instance) "
                                   "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)")),
      m_partValue(database.Prepare(ValueInsert("part"))),
      m_useValue(database.Prepare(ValueInsert("use"))),
      m_partProperty(database.Prepare(PropertyInsert("part"))),
      m_useProperty(database.Prepare(PropertyInsert("use"))),
      m_document(
          database.Prepare("INSERT INTO document_revision (part, position, document, version, use, "
                           "checkin_date, checkin_user, checkout_user, mass_type, mass, typed) "
                           "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"))
{
    Statement& rows = database.Kept("SELECT name, id FROM mass_type");
    while (rows.Step()) {
        const std::string name = rows.Text();
        m_massTypes[name] = rows.Integer();
    }
}

void PartWriter::KnowMaterials()
{
    Statement& rows = m_database.Kept("SELECT name, id FROM material");
    while (rows.Step()) {
        const std::string name = rows.Text();
        m_materials[name] = rows.Integer();
    }
}

RowId PartWriter::FindMaterial(const std::string& name) const
{
    const auto found = m_materials.find(name);
    return found == m_materials.end() ? 0 : found->second;
}

RowId PartWriter::InsertMaterial(const Material& material)
{
    m_database
        .Kept("INSERT INTO material (id, name, density, surface_density, typed) "
              "VALUES (?, ?, ?, ?, ?)")
        .Bind(++m_lastMaterial)
        .BindText(material.name)
        .Bind(material.density)
        .Bind(material.surfaceDensity)
        .Bind(material.typed)
        .Run();
    m_materials[material.name] = m_lastMaterial;
    return m_lastMaterial;
}

void PartWriter::UpdateMaterial(RowId id, const Material& material)
{
    m_database.Kept("UPDATE material SET density = ?, surface_density = ?, typed = ? WHERE id = ?")
        .Bind(material.density)
        .Bind(material.surfaceDensity)
        .Bind(material.typed)
        .Bind(id)
        .Run();
}

Statement& PartWriter::BindReference(Statement& statement, const std::string& name,
                                     const std::unordered_map<std::string, RowId>& ids)
{
    return name.empty() ? statement.BindNull() : statement.Bind(ids.at(name));
}

Statement& PartWriter::BindPart(Statement& statement, const Part& part)
{
    statement.Start()
        .Bind(part.name)
        .Bind(Stored(part.type))
        .Bind(Stored(part.standard))
        .Bind(part.code)
        .Bind(part.growthPct)
        .Bind(part.density)
        .Bind(part.surfaceDensity)
        .Bind(Stored(part.densityFirst))
        .Bind(Stored(part.errors));
    BindReference(statement, part.material, m_materials);
    BindReference(statement, part.activeType, m_massTypes);
    BindReference(statement, part.Imposed(), m_massTypes);
    return statement.Bind(part.note).Bind(part.typed);
}

RowId PartWriter::InsertPart(const Part& part, std::int64_t changeNumber)
{
    const RowId id = ++m_lastPart;
    BindPart(*m_insertPart, part)
        .Bind(id)
        .BindText(part.identifier)
        .BindText(part.version)
        .Bind(changeNumber)
        .Run();
    WriteSets(*m_partValue, id, part.sets);
    WriteProperties(*m_partProperty, id, part.properties);
    WriteDocuments(id, part.documents);
    return id;
}

void PartWriter::UpdatePart(RowId id, const Part& part)
{
    BindPart(m_database.Kept(
                 "UPDATE part SET name = ?, type = ?, standard = ?, code = ?, "
                 "growth_pct = ?, density = ?, surface_density = ?, density_first = ?, "
                 "errors = ?, material = ?, active = ?, last_imposed = ?, note = ?, typed = ? "
                 "WHERE id = ?"),
             part)
        .Bind(id)
        .Run();
    Clear({"part_value", "part_property"}, id);
    m_database.Kept("DELETE FROM document_revision WHERE part = ?").Bind(id).Run();
    WriteSets(*m_partValue, id, part.sets);
    WriteProperties(*m_partProperty, id, part.properties);
    WriteDocuments(id, part.documents);
}

/// What a changed owner says is written anew, so that inserting needs to look for nothing.
void PartWriter::Clear(std::initializer_list<const char*> tables, RowId owner)
{
    for (const char* table : tables) {
        m_database.Kept(std::string("DELETE FROM ") + table + " WHERE owner = ?").Bind(owner).Run();
    }
}

Statement& PartWriter::BindUse(Statement& statement, const Use& use)
{
    const std::int64_t stated = (use.positionStated ? 1 : 0) + (use.rotationStated ? 2 : 0);
    statement.Start().Bind(std::int64_t{use.quantity}).Bind(stated);
    // A part that is not turned, as most are, needs no matrix.
    if (use.placement.rotation == Placement().rotation) {
        statement.BindNull();
    } else {
        statement.BindBlob(&use.placement.rotation, sizeof use.placement.rotation);
    }
    for (const double term : use.placement.shift) {
        statement.Bind(term);
    }
    statement.Bind(use.density).Bind(use.surfaceDensity);
    BindReference(statement, use.material, m_materials);
    BindReference(statement, use.activeType, m_massTypes);
    BindReference(statement, use.Imposed(), m_massTypes);
    return statement.Bind(use.note).Bind(use.typed);
}

RowId PartWriter::InsertUse(const Use& use, RowId parent, RowId part)
{
    const RowId id = ++m_lastUse;
    BindUse(*m_insertUse, use).Bind(id).Bind(parent).Bind(part).BindText(use.instance).Run();
    WriteSets(*m_useValue, id, use.sets);
    WriteProperties(*m_useProperty, id, use.properties);
    return id;
}

void PartWriter::UpdateUse(RowId id, const Use& use)
{
    BindUse(m_database.Kept("UPDATE use SET quantity = ?, stated = ?, rotation = ?, x = ?, y = ?, "
                            "z = ?, density = ?, surface_density = ?, material = ?, active = ?, "
                            "last_imposed = ?, note = ?, typed = ? WHERE id = ?"),
            use)
        .Bind(id)
        .Run();
    Clear({"use_value", "use_property"}, id);
    WriteSets(*m_useValue, id, use.sets);
    WriteProperties(*m_useProperty, id, use.properties);
}

void PartWriter::WriteSets(Statement& statement, RowId owner, const std::vector<ValueSet>& sets)
{
    for (const ValueSet& set : sets) {
        statement.Start().Bind(owner).Bind(m_massTypes.at(set.massType));
        for (const double number : set.numbers) {
            statement.Bind(number);
        }
        statement.Bind(set.source)
            .Bind(set.sourceDate)
            .Bind(set.author)
            .Bind(set.note)
            .Bind(set.typed)
            .Run();
    }
}

void PartWriter::WriteProperties(Statement& statement, RowId owner,
                                 const std::vector<Property>& properties)
{
    std::int64_t position = 0;
    for (const Property& property : properties) {
        statement.Start()
            .Bind(owner)
            .Bind(++position)
            .BindText(property.name)
            .Bind(Stored(property.type))
            .Bind(std::int64_t{property.isDate ? 1 : 0})
            .BindText(property.value)
            .Bind(property.magnitude)
            .Bind(property.typed)
            .Run();
    }
}

void PartWriter::WriteDocuments(RowId owner, const std::vector<DocumentRevision>& documents)
{
    std::int64_t position = 0;
    for (const DocumentRevision& revision : documents) {
        m_document->Start()
            .Bind(owner)
            .Bind(++position)
            .BindText(revision.document)
            .BindText(revision.version)
            .Bind(Stored(revision.use))
            .Bind(revision.checkinDate)
            .Bind(revision.checkinUser)
            .Bind(revision.checkoutUser)
            .Bind(revision.massType)
            .Bind(revision.mass)
            .Bind(revision.typed)
            .Run();
    }
}

void RaiseChangeNumbers(Database& database, OutdatedSets& outdated, std::int64_t changeNumber)
{
    outdated.Keep(changeNumber);
    database.Kept("UPDATE meta SET value = ? WHERE key = 'change_number'").Bind(changeNumber).Run();
    NoteRoots(database);
}

void NoteRoots(Database& database)
{
    database.Execute(
        "INSERT OR REPLACE INTO meta SELECT 'roots', json_object('change', (SELECT CAST(value AS "
        "INTEGER) FROM meta WHERE key = 'change_number'), 'parts', json_group_array(id)) FROM part "
        "p WHERE NOT EXISTS (SELECT 1 FROM use WHERE part = p.id)");
}
} // namespace wb
