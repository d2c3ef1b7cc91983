#pragma once

#include "CsvTable.h"
#include "TableErrors.h"
#include "WBProduct.h"
#include "WBUnits.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace wb
{
/// The fixed columns of the table form; TableColumns.cpp holds their names and magnitudes.
enum class Column : std::uint8_t
{
    Parent,
    ParentVersion,
    Instance,
    Part,
    Version,
    Name,
    Type,
    Standard,
    Quantity,
    X,
    Y,
    Z,
    Rx,
    Ry,
    Rz,
    R11,
    R12,
    R13,
    R21,
    R22,
    R23,
    R31,
    R32,
    R33,
    MassType,
    ValuesOn,
    Active,
    Mass,
    Lower,
    Upper,
    LowerPct,
    UpperPct,
    CgX,
    CgY,
    CgZ,
    Ixx,
    Iyy,
    Izz,
    Ixy,
    Ixz,
    Iyz,
    PoiSign,
    InertiaAt,
    Kx,
    Ky,
    Kz,
    Volume,
    Area,
    Material,
    MaterialDensity,
    MaterialSurfaceDensity,
    MaterialOn,
    Density,
    SurfaceDensity,
    DensityFirst,
    SigmaMass,
    SigmaCgX,
    SigmaCgY,
    SigmaCgZ,
    SigmaIxx,
    SigmaIyy,
    SigmaIzz,
    SigmaIxy,
    SigmaIxz,
    SigmaIyz,
    Errors,
    GrowthPct,
    Code,
    Source,
    SourceDate,
    Author,
    Note,
    Doc,
    DocVersion,
    DocUse,
    DocCheckinDate,
    DocCheckinUser,
    DocCheckoutUser,
    DocMassType,
    DocMass,
    Count
};

constexpr std::size_t kColumns = static_cast<std::size_t>(Column::Count);

/// The column that stands so many steps behind that one.
constexpr Column Next(Column column, std::size_t steps = 1)
{
    return static_cast<Column>(static_cast<std::size_t>(column) + steps);
}

/// A column "p:NAME" (of the part) or "i:NAME" (of the use).
struct PropertyColumn
{
    bool ofUse = false;
    std::string name;
    Property::Type type = Property::Type::Text;
    bool isDate = false;
    const Magnitude* magnitude = nullptr;
    const Unit* unit = nullptr;
    std::string header;
};

/// The name of a fixed column, and what it measures; null where it has no unit.
const char* ColumnName(Column column);
const Magnitude* ColumnMagnitude(Column column);

/// What the header of one table says. A dimensioned column may stand several times, once a unit,
/// and a property several times, once a kind: a product whose parts came from several tables is
/// written as it was typed.
class TableColumns
{
public:
    /// Reads the header. Unknown and repeated columns, missing and unknown units go to errors.
    static TableColumns Read(const CsvTable& table, TableErrors& errors);

    /// What the column at that position holds: a fixed column (property null), a property, or
    /// neither where the header was refused.
    struct Place
    {
        Column column = Column::Count;
        std::int32_t property = -1;
        const Unit* unit = nullptr; // of a dimensioned fixed column
    };
    const Place& At(std::size_t position) const { return m_places[position]; }
    const std::vector<PropertyColumn>& Properties() const { return m_properties; }
    /// The first header of that column as it stands in the file; its plain name where the file
    /// lacks it.
    const std::string& HeaderOf(Column column) const;
    bool Has(Column column) const { return m_present[static_cast<std::size_t>(column)]; }

private:
    TableColumns();
    void ReadFixed(std::size_t position, const std::string& header, TableErrors& errors,
                   std::uint32_t line);
    void ReadProperty(std::size_t position, const std::string& header, TableErrors& errors,
                      std::uint32_t line);

    std::vector<Place> m_places;
    std::vector<PropertyColumn> m_properties;
    std::array<std::string, kColumns> m_headers;
    std::array<bool, kColumns> m_present{};
};
} // namespace wb
