#pragma once

#include "CsvTable.h"
#include "PositionReader.h"
#include "PositionTable.h"
#include "RowSubject.h"
#include "TableRow.h"
#include "WBKnown.h"
#include "WBProduct.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace wb
{
/// Finds the parts and the uses of a table: which versions there are, who uses whom, and where.
class StructureReader
{
public:
    StructureReader(const CsvTable& table, TableRow& row, FactKeeper& keeper,
                    const TableColumns& columns, const KnownProducts& known, Product& product,
                    TableSummary& summary);

    /// Fills the product's parts and uses; what each row speaks of is known afterwards.
    void Read();
    // The same of a table whose rows come in pieces, twice. The parts are known when all pieces
    // were met once; then the uses of each piece take the place of those of the piece before.
    void FindPartsOfPiece();
    void NumberPartsWithoutVersion();
    void FindUsesOfPiece();
    /// Some use of the piece has no name; its name depends on all others.
    bool HasUnnamedUses() const { return !m_unnamedUses.empty(); }

    const RowSubject& SubjectOf(std::size_t row) const { return m_subjects[row]; }
    /// Parts inside themselves, and parents that may have nothing below them. The types of the
    /// parts must have been read.
    void RefuseImpossible();

private:
    void FindParts();
    void ResolveVersions();
    std::uint32_t Intern(std::string_view identifier, std::string_view version);
    std::uint32_t InternAt(std::uint32_t line, std::string_view identifier,
                           std::string_view version);
    /// Those that the database holds.
    const std::vector<std::string>& KnownVersions(std::string_view identifier) const;
    /// A part of that identifier; m_nextVersion leads on to its other versions.
    std::uint32_t FindIdentifier(std::string_view identifier) const;
    std::uint32_t FindPart(std::string_view identifier, std::string_view version) const;
    std::uint32_t ResolvePart(std::string_view identifier, Column identifierColumn,
                              Column versionColumn, bool mayBeNew);
    void FindUses();
    /// Keeps a part that the loaded row names without a version.
    void MeetPart(std::string_view identifier);
    /// Of the row that is loaded.
    void FindUse(RowSubject& subject);
    /// The use of that name that the table states below that parent.
    std::uint32_t FindNamedUse(std::uint32_t parent, std::string_view instance) const;
    std::uint32_t NewUse(const RowSubject& subject, std::string_view instance);
    void NameUses();
    void RefuseCycles();
    void RefuseImpossibleTypes();

    static constexpr std::uint32_t kNone = PositionTable::kNone;

    const CsvTable& m_table;
    TableRow& m_row;
    const TableColumns& m_columns;
    std::unordered_map<std::string, std::vector<std::string>> m_knownVersions;
    Product& m_product;
    PositionReader m_positions;

    PositionTable m_identifiers;              // one part per identifier
    std::vector<std::string> m_names;         // per part; close together, since each row looks here
    std::vector<std::uint32_t> m_nextVersion; // per part: another version of the same identifier
    std::vector<RowSubject> m_subjects;       // per row
    PositionTable m_namedUses;                // by parent and instance
    std::vector<std::uint32_t> m_unnamedUses;

    /// A part of which no row with a version has been met, and where it was met first.
    struct Unversioned
    {
        std::string identifier;
        std::uint32_t line = 0;
    };
    std::vector<Unversioned> m_unversioned;
    PositionTable m_unversionedNames;
};
} // namespace wb
