#include "ProductReader.h"

#include "TypedForms.h"
#include "WBNumbers.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <set>

namespace wb
{
namespace
{
std::size_t IdentifierHash(std::string_view identifier)
{
    return std::hash<std::string_view>()(identifier);
}

std::size_t UseHash(std::uint32_t parent, std::string_view instance)
{
    return std::hash<std::string_view>()(instance) ^ (parent * 0x9E3779B97F4A7C15U);
}
} // namespace

void ProductReader::FindParts()
{
    m_subjects.resize(m_table.RowCount());
    for (std::size_t row = 0; row < m_table.RowCount(); ++row) {
        Load(row);
        if (!Filled(Column::Part)) {
            Complain(Column::Part, "the cell is blank, expected the part that the row speaks of");
        } else if (Filled(Column::Version)) {
            m_subjects[row].part = Intern(Cell(Column::Part), Cell(Column::Version));
        }
    }
}

std::uint32_t ProductReader::FindIdentifier(std::string_view identifier) const
{
    return m_identifiers.Find(IdentifierHash(identifier), [&](std::uint32_t part) {
        return m_product.parts[part].identifier == identifier;
    });
}

std::uint32_t ProductReader::FindPart(std::string_view identifier, std::string_view version) const
{
    std::uint32_t part = FindIdentifier(identifier);
    while (part != kNone && m_product.parts[part].version != version) {
        part = m_nextVersion[part];
    }
    return part;
}

const std::vector<std::string>& ProductReader::KnownVersions(std::string_view identifier) const
{
    static const std::vector<std::string> none;
    if (m_knownVersions.empty()) {
        return none;
    }
    const auto found = m_knownVersions.find(std::string(identifier));
    return found == m_knownVersions.end() ? none : found->second;
}

std::uint32_t ProductReader::Intern(std::string_view identifier, std::string_view version)
{
    const std::uint32_t known = FindPart(identifier, version);
    if (known != kNone) {
        return known;
    }
    const std::uint32_t other = FindIdentifier(identifier);
    const auto part = static_cast<std::uint32_t>(m_product.parts.size());
    Part& added = m_product.parts.emplace_back();
    added.identifier = identifier;
    added.version = version;
    added.firstLine = m_line;
    m_nextVersion.push_back(other == kNone ? kNone : m_nextVersion[other]);
    if (other == kNone) {
        m_identifiers.Add(IdentifierHash(identifier), part);
    } else {
        m_nextVersion[other] = part;
    }
    return part;
}

std::uint32_t ProductReader::ResolvePart(std::string_view identifier, Column identifierColumn,
                                         Column versionColumn, bool mayBeNew)
{
    if (Filled(versionColumn)) {
        const std::uint32_t part = FindPart(identifier, Cell(versionColumn));
        if (part != kNone) {
            return part;
        }
        const auto& stored = KnownVersions(identifier);
        if (std::ranges::find(stored, Cell(versionColumn)) != stored.end()) {
            return Intern(identifier, Cell(versionColumn));
        }
        Wrong(versionColumn,
              "a version of " + std::string(identifier) + " that the table or the database holds");
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
        Complain(versionColumn, "the cell is blank and " + std::string(identifier) + " has " +
                                    std::to_string(versions.size()) +
                                    " versions, expected one of them");
        return kNone;
    }
    if (versions.empty() && !mayBeNew) {
        Wrong(identifierColumn, "a part that the table or the database holds");
        return kNone;
    }
    return Intern(identifier, versions.empty() ? "A" : versions.front());
}

void ProductReader::ResolveVersions()
{
    for (std::size_t row = 0; row < m_table.RowCount(); ++row) {
        if (m_subjects[row].part == kNone) {
            Load(row);
            if (Filled(Column::Part)) {
                m_subjects[row].part =
                    ResolvePart(Cell(Column::Part), Column::Part, Column::Version, true);
            }
        }
    }
}

void ProductReader::FindUses()
{
    m_product.uses.reserve(m_table.RowCount());
    for (std::size_t row = 0; row < m_table.RowCount(); ++row) {
        if (m_subjects[row].part != kNone) {
            FindUse(row);
        }
    }
}

void ProductReader::FindUse(std::size_t row)
{
    Load(row);
    RowSubject& subject = m_subjects[row];
    if (!Filled(Column::Parent)) {
        if (Filled(Column::Instance)) {
            Complain(Column::Parent, "the cell is blank beside an instance, expected its parent");
        } else if (AnyFilled(Column::Quantity, Column::R33)) {
            Complain(Column::Parent,
                     "the cell is blank beside a position or quantity, expected the parent");
        }
        return;
    }
    subject.parent =
        ResolvePart(Cell(Column::Parent), Column::Parent, Column::ParentVersion, false);
    if (subject.parent == kNone) {
        return;
    }
    const std::string_view instance = Cell(Column::Instance);
    const std::uint32_t known = instance.empty() ? kNone : FindNamedUse(subject.parent, instance);
    if (known == kNone) {
        subject.use = NewUse(subject, instance);
        if (instance.empty()) {
            m_unnamedUses.push_back(subject.use);
        } else {
            m_namedUses.Add(UseHash(subject.parent, instance), subject.use);
        }
    } else if (m_product.uses[known].part != subject.part) {
        Complain(Column::Instance,
                 Quoted(instance) + " stands in " + m_product.parts[subject.parent].identifier +
                     " already, as part " + m_product.parts[m_product.uses[known].part].identifier +
                     " in line " + std::to_string(m_product.uses[known].firstLine) +
                     "; expected an instance name once in its parent");
        return;
    } else {
        subject.use = known;
    }
    ReadPosition(m_product.uses[subject.use]);
}

std::uint32_t ProductReader::FindNamedUse(std::uint32_t parent, std::string_view instance) const
{
    return m_namedUses.Find(UseHash(parent, instance), [&](std::uint32_t use) {
        return m_product.uses[use].parent == parent && m_product.uses[use].instance == instance;
    });
}

std::uint32_t ProductReader::NewUse(const RowSubject& subject, std::string_view instance)
{
    const auto index = static_cast<std::uint32_t>(m_product.uses.size());
    Use& use = m_product.uses.emplace_back();
    use.parent = subject.parent;
    use.part = subject.part;
    use.instance = instance;
    use.firstLine = m_line;
    return index;
}

/// Uses without a name get the part's identifier and the next number that the table leaves free
/// below that parent, so that reading the same table again gives the same names.
void ProductReader::NameUses()
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

std::string ProductReader::UseName(const Use& use) const
{
    return m_product.parts[use.parent].identifier + "/" +
           (use.instance.empty() ? m_product.parts[use.part].identifier : use.instance);
}

void ProductReader::ReadPosition(Use& use)
{
    if (Filled(Column::Quantity)) {
        const auto quantity = ReadInteger(Cell(Column::Quantity));
        if (!quantity || *quantity < 1 || *quantity > INT_MAX) {
            Wrong(Column::Quantity, "a whole number from 1");
        } else {
            m_keeper.Choose(
                use.quantity, static_cast<int>(*quantity), use.lines,
                {Fact::Quantity, m_line, HeaderOf(Column::Quantity), Cell(Column::Quantity)});
        }
    }
    ReadRotation(use);
    constexpr std::array kShift{Column::X, Column::Y, Column::Z};
    if (!AnyFilled(Column::X, Column::Z)) {
        return;
    }
    std::array<double, 3> shift{};
    bool complete = true;
    for (std::size_t i = 0; i < kShift.size(); ++i) {
        if (!Filled(kShift[i])) {
            Complain(kShift[i], "the cell is blank, expected x, y and z or none of them");
        }
        const auto value = Stored(kShift[i]);
        complete = complete && value;
        shift[i] = value.value_or(0.0);
    }
    if (!complete) {
        return;
    }
    if (use.positionStated && use.placement.shift != shift) {
        Complain(Column::Instance, Quoted(use.instance) + " has another position in line " +
                                       std::to_string(use.lines.LineOf(Fact::Position)) +
                                       "; expected an instance name once in its parent");
        return;
    }
    if (!use.positionStated) {
        use.positionStated = true;
        use.placement.shift = shift;
        use.lines.State(Fact::Position, m_line);
        for (const Column column : kShift) {
            KeepTyped(use.typed,
                      column == Column::X   ? "x"
                      : column == Column::Y ? "y"
                                            : "z",
                      Cell(column), UnitOf(column));
        }
    }
}

void ProductReader::ReadRotation(Use& use)
{
    const bool angles = AnyFilled(Column::Rx, Column::Rz);
    const bool matrix = AnyFilled(Column::R11, Column::R33);
    if (angles && matrix) {
        Complain(Column::Rx, "angles beside r11 to r33, expected one of the two");
        return;
    }
    if (!angles && !matrix) {
        return;
    }
    const auto rotation = angles ? ReadAngles() : ReadMatrix(use);
    if (!rotation) {
        return;
    }
    if (use.rotationStated && use.placement.rotation != *rotation) {
        Complain(Column::Instance, Quoted(use.instance) + " is turned another way in line " +
                                       std::to_string(use.lines.LineOf(Fact::Rotation)) +
                                       "; expected an instance name once in its parent");
    } else if (!use.rotationStated) {
        use.rotationStated = true;
        use.placement.rotation = *rotation;
        use.lines.State(Fact::Rotation, m_line);
        constexpr std::array kNames{"rx",  "ry",  "rz",  "r11", "r12", "r13",
                                    "r21", "r22", "r23", "r31", "r32", "r33"};
        for (std::size_t i = 0; i < kNames.size(); ++i) {
            const auto column = static_cast<Column>(static_cast<std::size_t>(Column::Rx) + i);
            if (Filled(column)) {
                KeepTyped(use.typed, kNames[i], Cell(column), UnitOf(column));
            }
        }
        if (Determinant(*rotation) < 0.0) {
            m_summary.oppositeHands.push_back(UseName(use) + " (line " + std::to_string(m_line) +
                                              ")");
        }
    }
}

std::optional<Placement::Matrix> ProductReader::ReadAngles()
{
    constexpr std::array kAngles{Column::Rx, Column::Ry, Column::Rz};
    std::array<double, 3> degrees{};
    for (std::size_t i = 0; i < kAngles.size(); ++i) {
        const auto typed = Typed(kAngles[i]);
        if (Filled(kAngles[i]) && !typed) {
            return std::nullopt;
        }
        degrees[i] = InDegrees(typed.value_or(0.0), UnitOf(kAngles[i]));
    }
    return RotationFromAngles(degrees[0], degrees[1], degrees[2]);
}

std::optional<Placement::Matrix> ProductReader::ReadMatrix(const Use& use)
{
    constexpr double kLargestOff = 1e-5;
    Placement::Matrix matrix{};
    for (std::size_t i = 0; i < 9; ++i) {
        const auto column = static_cast<Column>(static_cast<std::size_t>(Column::R11) + i);
        if (!Filled(column)) {
            Complain(column, "the cell is blank, expected all of r11 to r33 or none of them");
            return std::nullopt;
        }
        const auto value = Typed(column);
        if (!value) {
            return std::nullopt;
        }
        matrix[i / 3][i % 3] = *value;
    }
    const double off = OffOrthogonal(matrix);
    if (!(off <= kLargestOff)) {
        Complain(Column::R11, "r11 to r33 of " + UseName(use) + " are off a rotation by " +
                                  WriteNumber(off) +
                                  ", expected columns of length 1 at right angles within 1e-5");
        return std::nullopt;
    }
    return matrix;
}

void ProductReader::RefuseCycles()
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
    m_errors.Column(closing->firstLine, m_columns.HeaderOf(Column::Part),
                    path + " is a cycle, expected no part inside itself");
}

void ProductReader::RefuseImpossibleTypes()
{
    std::set<std::uint32_t> told;
    for (const Use& use : m_product.uses) {
        const Part& parent = m_product.parts[use.parent];
        const bool single = parent.type == PartType::Part || parent.type == PartType::Adjustment;
        if (single && told.insert(use.parent).second) {
            m_errors.Column(use.firstLine, m_columns.HeaderOf(Column::Parent),
                            parent.identifier + " is of type " + PartTypeName(parent.type) +
                                " in line " + std::to_string(parent.lines.LineOf(Fact::Type)) +
                                ", expected a parent of type assembly or product");
        }
    }
}
} // namespace wb
