#include "StructureReader.h"

#include <algorithm>
#include <functional>
#include <map>
#include <set>

namespace wb
{
namespace
{
/// Of a part that no row gives a version.
constexpr std::string_view kFirstVersion = "A";

std::size_t IdentifierHash(std::string_view identifier)
{
    return std::hash<std::string_view>()(identifier);
}

std::size_t UseHash(std::uint32_t parent, std::string_view instance)
{
    return std::hash<std::string_view>()(instance) ^ (parent * 0x9E3779B97F4A7C15U);
}
} // namespace

StructureReader::StructureReader(const CsvTable& table, TableRow& row, FactKeeper& keeper,
                                 const TableColumns& columns, const KnownProducts& known,
                                 Product& product, TableSummary& summary)
    : m_table(table),
      m_row(row),
      m_columns(columns),
      m_knownVersions(known.PartVersions()),
      m_product(product),
      m_positions(row, keeper, product, summary)
{}

void StructureReader::Read()
{
    FindParts();
    ResolveVersions();
    FindUses();
    NameUses();
}

void StructureReader::FindPartsOfPiece()
{
    FindParts();
    for (std::size_t row = 0; row < m_table.RowCount(); ++row) {
        if (!m_subjects[row].HasPart()) {
            m_row.Load(row);
            MeetPart(m_row.Cell(Column::Part));
        }
    }
}

void StructureReader::MeetPart(std::string_view identifier)
{
    const std::size_t hash = IdentifierHash(identifier);
    const auto isMet = [&](std::uint32_t index) {
        return m_unversioned[index].identifier == identifier;
    };
    if (FindIdentifier(identifier) == kNone && m_unversionedNames.Find(hash, isMet) == kNone) {
        m_unversionedNames.Add(hash, static_cast<std::uint32_t>(m_unversioned.size()));
        m_unversioned.push_back({std::string(identifier), m_row.Line()});
    }
}

void StructureReader::NumberPartsWithoutVersion()
{
    for (const Unversioned& part : m_unversioned) {
        if (FindIdentifier(part.identifier) == kNone) {
            InternAt(part.line, part.identifier, kFirstVersion);
        }
    }
}

void StructureReader::FindUsesOfPiece()
{
    m_product.uses.clear();
    m_namedUses = {};
    m_subjects.assign(m_table.RowCount(), {});
    for (std::size_t row = 0; row < m_table.RowCount(); ++row) {
        m_row.Load(row);
        RowSubject& subject = m_subjects[row];
        subject.part = ResolvePart(m_row.Cell(Column::Part), Column::Part, Column::Version, false);
        if (subject.HasPart()) {
            FindUse(subject);
        }
    }
}

void StructureReader::RefuseImpossible()
{
    RefuseImpossibleTypes();
    RefuseCycles();
}

void StructureReader::FindParts()
{
    m_subjects.assign(m_table.RowCount(), {});
    for (std::size_t row = 0; row < m_table.RowCount(); ++row) {
        m_row.Load(row);
        if (!m_row.Filled(Column::Part)) {
            m_row.Complain(Column::Part,
                           "the cell is blank, expected the part that the row speaks of");
        } else if (m_row.Filled(Column::Version)) {
            m_subjects[row].part = Intern(m_row.Cell(Column::Part), m_row.Cell(Column::Version));
        }
    }
}

std::uint32_t StructureReader::FindIdentifier(std::string_view identifier) const
{
    return m_identifiers.Find(IdentifierHash(identifier),
                              [&](std::uint32_t part) { return m_names[part] == identifier; });
}

std::uint32_t StructureReader::FindPart(std::string_view identifier, std::string_view version) const
{
    std::uint32_t part = FindIdentifier(identifier);
    while (part != kNone && m_product.parts[part].version != version) {
        part = m_nextVersion[part];
    }
    return part;
}

const std::vector<std::string>& StructureReader::KnownVersions(std::string_view identifier) const
{
    static const std::vector<std::string> none;
    if (m_knownVersions.empty()) {
        return none;
    }
    const auto found = m_knownVersions.find(std::string(identifier));
    return found == m_knownVersions.end() ? none : found->second;
}

std::uint32_t StructureReader::Intern(std::string_view identifier, std::string_view version)
{
    return InternAt(m_row.Line(), identifier, version);
}

std::uint32_t StructureReader::InternAt(std::uint32_t line, std::string_view identifier,
                                        std::string_view version)
{
    const std::uint32_t known = FindPart(identifier, version);
    if (known != kNone) {
        return known;
    }
    const std::uint32_t other = FindIdentifier(identifier);
    const auto part = static_cast<std::uint32_t>(m_product.parts.size());
    Part& added = m_product.parts.emplace_back();
    added.identifier = identifier;
    m_names.emplace_back(identifier);
    added.version = version;
    added.firstLine = line;
    m_nextVersion.push_back(other == kNone ? kNone : m_nextVersion[other]);
    if (other == kNone) {
        m_identifiers.Add(IdentifierHash(identifier), part);
    } else {
        m_nextVersion[other] = part;
    }
    return part;
}

std::uint32_t StructureReader::ResolvePart(std::string_view identifier, Column identifierColumn,
                                           Column versionColumn, bool mayBeNew)
{
    if (m_row.Filled(versionColumn)) {
        const std::uint32_t part = FindPart(identifier, m_row.Cell(versionColumn));
        if (part != kNone) {
            return part;
        }
        const auto& stored = KnownVersions(identifier);
        if (std::ranges::find(stored, m_row.Cell(versionColumn)) != stored.end()) {
            return Intern(identifier, m_row.Cell(versionColumn));
        }
        m_row.Wrong(versionColumn, "a version of " + std::string(identifier) +
                                       " that the table or the database holds");
        return kNone;
    }
    const std::uint32_t first = FindIdentifier(identifier);
    auto versions = KnownVersions(identifier);
    if (first != kNone && versions.empty() && m_nextVersion[first] == kNone) {
        return first; // by far the most rows: one version, in this table alone
    }
    for (std::uint32_t part = first; part != kNone; part = m_nextVersion[part]) {
        if (std::ranges::find(versions, m_product.parts[part].version) == versions.end()) {
            versions.push_back(m_product.parts[part].version);
        }
    }
    if (versions.size() > 1) {
        m_row.Complain(versionColumn, "the cell is blank and " + std::string(identifier) + " has " +
                                          std::to_string(versions.size()) +
                                          " versions, expected one of them");
        return kNone;
    }
    if (versions.empty() && !mayBeNew) {
        m_row.Wrong(identifierColumn, "a part that the table or the database holds");
        return kNone;
    }
    return Intern(identifier,
                  versions.empty() ? kFirstVersion : std::string_view(versions.front()));
}

void StructureReader::ResolveVersions()
{
    for (std::size_t row = 0; row < m_table.RowCount(); ++row) {
        if (!m_subjects[row].HasPart()) {
            m_row.Load(row);
            if (m_row.Filled(Column::Part)) {
                m_subjects[row].part =
                    ResolvePart(m_row.Cell(Column::Part), Column::Part, Column::Version, true);
            }
        }
    }
}

void StructureReader::FindUses()
{
    m_product.uses.reserve(m_table.RowCount());
    for (std::size_t row = 0; row < m_table.RowCount(); ++row) {
        if (m_subjects[row].HasPart()) {
            m_row.Load(row);
            FindUse(m_subjects[row]);
        }
    }
}

void StructureReader::FindUse(RowSubject& subject)
{
    if (!m_row.Filled(Column::Parent)) {
        if (m_row.Filled(Column::Instance)) {
            m_row.Complain(Column::Parent,
                           "the cell is blank beside an instance, expected its parent");
        } else if (m_row.AnyFilled(Column::Quantity, Column::R33)) {
            m_row.Complain(Column::Parent,
                           "the cell is blank beside a position or quantity, expected the parent");
        }
        return;
    }
    subject.parent =
        ResolvePart(m_row.Cell(Column::Parent), Column::Parent, Column::ParentVersion, false);
    if (subject.parent == kNone) {
        return;
    }
    const std::string_view instance = m_row.Cell(Column::Instance);
    const std::uint32_t known = instance.empty() ? kNone : FindNamedUse(subject.parent, instance);
    if (known == kNone) {
        subject.use = NewUse(subject, instance);
        if (instance.empty()) {
            m_unnamedUses.push_back(subject.use);
        } else {
            m_namedUses.Add(UseHash(subject.parent, instance), subject.use);
        }
    } else if (m_product.uses[known].part != subject.part) {
        m_row.Complain(Column::Instance,
                       Quoted(instance) + " stands in " +
                           m_product.parts[subject.parent].identifier + " already, as part " +
                           m_product.parts[m_product.uses[known].part].identifier + " in line " +
                           std::to_string(m_product.uses[known].firstLine) +
                           "; expected an instance name once in its parent");
        return;
    } else {
        subject.use = known;
    }
    m_positions.Read(m_product.uses[subject.use]);
}

std::uint32_t StructureReader::FindNamedUse(std::uint32_t parent, std::string_view instance) const
{
    return m_namedUses.Find(UseHash(parent, instance), [&](std::uint32_t use) {
        return m_product.uses[use].parent == parent && m_product.uses[use].instance == instance;
    });
}

std::uint32_t StructureReader::NewUse(const RowSubject& subject, std::string_view instance)
{
    const auto index = static_cast<std::uint32_t>(m_product.uses.size());
    Use& use = m_product.uses.emplace_back();
    use.parent = subject.parent;
    use.part = subject.part;
    use.instance = instance;
    use.firstLine = m_row.Line();
    return index;
}

/// Uses without a name get the part's identifier and the next number that the table leaves free
/// below that parent, so that reading the same table again gives the same names.
void StructureReader::NameUses()
{
    std::set<std::pair<std::uint32_t, std::string>> given;
    std::map<std::pair<std::uint32_t, std::string>, int> last;
    for (const std::uint32_t index : m_unnamedUses) {
        Use& use = m_product.uses[index];
        const std::string& identifier = m_product.parts[use.part].identifier;
        int& number = last[{use.parent, identifier}];
        do {
            use.instance = identifier + "." + std::to_string(++number);
        } while (FindNamedUse(use.parent, use.instance) != kNone ||
                 !given.emplace(use.parent, use.instance).second);
    }
}

void StructureReader::RefuseCycles()
{
    std::vector<std::vector<std::uint32_t>> edges(m_product.parts.size());
    for (const Use& use : m_product.uses) {
        edges[use.parent].push_back(use.part);
    }
    const auto cycle = FindCycle(edges);
    if (cycle.empty()) {
        return;
    }
    std::string path;
    for (const std::uint32_t part : cycle) {
        path += (path.empty() ? "" : " > ") + m_product.parts[part].identifier;
    }
    const auto closing = std::ranges::find_if(m_product.uses, [&](const Use& use) {
        return use.parent == cycle[cycle.size() - 2] && use.part == cycle.back();
    });
    m_row.Errors().Column(closing->firstLine, m_columns.HeaderOf(Column::Part),
                          path + " is a cycle, expected no part inside itself");
}

void StructureReader::RefuseImpossibleTypes()
{
    std::set<std::uint32_t> told;
    for (const Use& use : m_product.uses) {
        const Part& parent = m_product.parts[use.parent];
        const bool single = parent.type == PartType::Part || parent.type == PartType::Adjustment;
        if (single && told.insert(use.parent).second) {
            m_row.Errors().Column(use.firstLine, m_columns.HeaderOf(Column::Parent),
                                  parent.identifier + " is of type " + PartTypeName(parent.type) +
                                      " in line " +
                                      std::to_string(parent.lines.LineOf(Fact::Type)) +
                                      ", expected a parent of type assembly or product");
        }
    }
}
} // namespace wb
