#pragma once

#include "CsvTable.h"
#include "FactKeeper.h"
#include "PositionTable.h"
#include "TableColumns.h"
#include "TableErrors.h"
#include "WBProductTable.h"

#include <array>
#include <bitset>
#include <cstdint>
#include <initializer_list>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace wb
{
/// Makes a product of a table in three walks: which parts there are, who uses whom, what is said of
/// them. Everything wrong goes to the errors; the walks go on, so that a user learns of it all.
class ProductReader
{
public:
    ProductReader(const CsvTable& table, const TableOptions& options, const KnownProducts& known,
                  TableErrors& errors);

    /// Reads the whole table; call it once.
    void Read();

    Product& TakeProduct() { return m_product; }
    TableSummary& TakeSummary() { return m_summary; }

private:
    static constexpr std::uint32_t kNone = PositionTable::kNone;

    /// The part and the use that a row speaks of.
    struct RowSubject
    {
        std::uint32_t part = kNone;
        std::uint32_t parent = kNone;
        std::uint32_t use = kNone;
    };
    /// What a set needs beyond its numbers until all rows are read.
    struct PendingInertia
    {
        bool ofUse = false;
        std::uint32_t owner = 0;
        std::string massType;
        bool atOrigin = false;
        std::array<double, 3> radii{kUnknown, kUnknown, kUnknown}; // mm
        std::uint32_t line = 0;
    };

    // ProductReader.cpp: the current row and its cells.
    void Load(std::size_t row);
    std::string_view Cell(Column column) const
    {
        return Filled(column) ? m_cells[static_cast<std::size_t>(column)] : std::string_view();
    }
    bool Filled(Column column) const { return m_filled[static_cast<std::size_t>(column)]; }
    bool AnyFilled(Column first, Column last) const;
    /// True of most rows of a large product: they say who uses whom and where, and no facts.
    bool OnlyPlacesAPart() const;
    void Wrong(Column column, std::string_view expected);
    void Complain(Column column, std::string_view text);
    /// The number in a cell as typed; nothing when the cell is blank or was complained about.
    std::optional<double> Typed(Column column);
    std::optional<double> TypedText(std::string_view text, const std::string& header);
    /// The number in storage units.
    std::optional<double> Stored(Column column);
    std::optional<double> StoredNotNegative(Column column);
    std::optional<bool> YesNo(Column column);
    /// The position of the cell's text among the choices; complains about any other text.
    std::optional<std::size_t> Choice(Column column,
                                      std::initializer_list<std::string_view> choices);
    /// The header over the row's cell of that column.
    const std::string& HeaderOf(Column column) const;
    std::string_view UnitOf(Column column) const;
    /// A mass in kg and one in lb in the same row: nobody could say which one counts.
    void RefuseTwoUnits();
    void ReadPartFacts(Part& part);
    void ReadPartSwitches(Part& part);
    void ReadProperties(Part& part, Use* use);
    void StateProperty(std::vector<Property>& properties, const PropertyColumn& column,
                       std::string_view text);
    std::optional<Property> ReadProperty(const PropertyColumn& column, std::string_view text);

    // ProductStructure.cpp: parts, versions, uses, positions.
    void FindParts();
    void ResolveVersions();
    std::uint32_t Intern(std::string_view identifier, std::string_view version);
    /// Those that the database holds.
    const std::vector<std::string>& KnownVersions(std::string_view identifier) const;
    /// A part of that identifier; m_nextVersion leads on to its other versions.
    std::uint32_t FindIdentifier(std::string_view identifier) const;
    std::uint32_t FindPart(std::string_view identifier, std::string_view version) const;
    std::uint32_t ResolvePart(std::string_view identifier, Column identifierColumn,
                              Column versionColumn, bool mayBeNew);
    void FindUses();
    void FindUse(std::size_t row);
    /// The use of that name that the table states below that parent.
    std::uint32_t FindNamedUse(std::uint32_t parent, std::string_view instance) const;
    std::uint32_t NewUse(const RowSubject& subject, std::string_view instance);
    void NameUses();
    void ReadPosition(Use& use);
    void ReadRotation(Use& use);
    std::optional<Placement::Matrix> ReadAngles();
    std::optional<Placement::Matrix> ReadMatrix(const Use& use);
    std::string UseName(const Use& use) const;
    void RefuseCycles();
    void RefuseImpossibleTypes();

    // ProductValues.cpp: value sets, materials, documents.
    void ReadValues(const RowSubject& subject);
    std::string RowMassType(bool hasValues);
    ValueSet& SetOf(std::vector<ValueSet>& sets, const std::string& massType);
    void ReadMassAndPrecision(ValueSet& set);
    void ReadCentre(ValueSet& set);
    void ReadInertia(ValueSet& set, bool ofUse, std::uint32_t owner);
    std::optional<double> ProductFactor(bool anyProduct);
    void ReadRadii(bool ofUse, std::uint32_t owner, const ValueSet& set);
    PendingInertia& Pending(bool ofUse, std::uint32_t owner, const std::string& massType);
    void StateNumber(ValueSet& set, Column column, Fact fact, std::optional<double> value);
    void ReadMaterial(const RowSubject& subject, Use* use);
    void ReadDensities(Part& part, Use* use);
    void StateMaterialDensity(Material& material);
    void ReadDocument(Part& part);
    void ReadDocumentFacts(Part& part, DocumentRevision& revision);
    void FinishInertias();
    void FinishInertia(const PendingInertia& pending, ValueSet& set);
    double MassOf(const PendingInertia& pending, const ValueSet& set) const;
    void RefuseNegativeMasses();
    void RefuseNegativeMass(const ValueSet& set, const Part& part);

    const CsvTable& m_table;
    const TableOptions& m_options;
    const KnownProducts& m_known;
    TableErrors& m_errors;
    TableColumns m_columns;
    FactKeeper m_keeper;
    std::vector<wb::MassType> m_massTypes;
    std::unordered_map<std::string, std::vector<std::string>> m_knownVersions;
    Product m_product;
    TableSummary m_summary;

    PositionTable m_identifiers;              // one part per identifier
    std::vector<std::uint32_t> m_nextVersion; // per part: another version of the same identifier
    std::vector<RowSubject> m_subjects;       // per row
    PositionTable m_namedUses;                // by parent and instance
    std::vector<std::uint32_t> m_unnamedUses;
    std::unordered_map<std::string, std::uint32_t> m_materials;
    std::map<std::tuple<bool, std::uint32_t, std::string>, PendingInertia> m_pending;

    std::uint32_t m_line = 0; // of the current row
    std::bitset<kColumns> m_filled;
    std::array<std::string_view, kColumns> m_cells;    // of the filled columns
    std::array<std::uint32_t, kColumns> m_positions{}; // of the filled columns, in the header
    std::optional<std::uint32_t> m_secondCell; // the position of a column's second filled cell
    std::vector<std::string_view> m_propertyCells;
    std::vector<std::uint32_t> m_filledProperties;
    char m_decimalMark = 0; // '.' or ','; 0 until a number shows it
    std::uint32_t m_decimalMarkLine = 0;
};
} // namespace wb
