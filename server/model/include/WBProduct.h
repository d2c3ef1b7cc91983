#pragma once

#include "WBFacts.h"
#include "WBPlacement.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace wb
{
/// A number that nobody stated. It is not 0, and it equals nothing, not even itself.
constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();

inline bool IsKnown(double value)
{
    return !std::isnan(value);
}

/// A row of the mass-type table. Goals are wishes, never what counts.
struct MassType
{
    enum class Kind
    {
        Claim,
        Goal
    };

    std::string name;
    int order = 0; // the higher, the more mature; unique
    Kind kind = Kind::Claim;
    std::string category; // "estimated", "calculated", "actual"; empty for a goal
    double lowerPct = 0.0;
    double upperPct = 0.0;
    std::string meaning;

    bool operator==(const MassType&) const = default;
};

/// What one mass type says about one part or one use, in storage units: kg, mm, kg.m2, m3, m2. The
/// centre stands in the part's axes, the inertia about that centre; ixy is + integral of x y dm.
struct ValueSet
{
    std::string massType;
    std::array<double, kSetNumbers> numbers;
    std::string source;
    std::string sourceDate; // yyyy-mm-dd
    std::string author;
    std::string note;
    std::string typed;
    FactLines lines;
    /// Something below the assembly that it stands for has changed since it was stated.
    bool isOutdated = false;

    ValueSet() { numbers.fill(kUnknown); }
    double& operator[](Fact fact) { return numbers[static_cast<std::size_t>(fact)]; }
    double operator[](Fact fact) const { return numbers[static_cast<std::size_t>(fact)]; }
    bool Has(Fact fact) const { return IsKnown((*this)[fact]); }
    bool HasCentre() const { return Has(Fact::CgX); }
    bool HasInertia() const { return Has(Fact::Ixx); }
    /// True when any number is known.
    bool HasSomething() const;
};

/// A user's own property. A dimensioned value is kept in its magnitude's storage unit.
struct Property
{
    enum class Type
    {
        Text = 1,
        Integer = 2,
        Real = 3,
        YesNo = 4,
        Dimensioned = 100
    };

    std::string name;
    Type type = Type::Text;
    bool isDate = false;
    std::string value;     // "%.15g" of the stored number; "yes" or "no"; a date as yyyy-mm-dd
    std::string magnitude; // of a dimensioned one
    std::string typed;     // the text and unit as typed, of numbers
    std::uint32_t line = 0;
};

/// One revision of a document that describes a part.
struct DocumentRevision
{
    enum class Use : std::uint8_t
    {
        None = 0,
        Attached = 1,
        Active = 2,
        Both = 3
    };

    std::string document;
    std::string version;
    Use use = Use::None;
    std::string checkinDate; // yyyy-mm-dd
    std::string checkinUser;
    std::string checkoutUser; // empty: nobody holds it
    std::string massType;
    double mass = kUnknown;
    std::string typed;
    FactLines lines;

    bool IsAttached() const { return (static_cast<int>(use) & 1) != 0; }
    bool IsActive() const { return (static_cast<int>(use) & 2) != 0; }
};

enum class PartType : std::uint8_t
{
    Unstated,
    Product,
    Assembly,
    Part,
    Adjustment
};
enum class Answer : std::uint8_t
{
    Unstated,
    No,
    Yes
};
enum class DensityOrder : std::uint8_t
{
    Unstated,
    WeightAndBalance,
    Material
};
enum class ErrorRule : std::uint8_t
{
    Unstated,
    Together,
    Apart
};

const char* PartTypeName(PartType type);

/// A material with one density: of a volume (kg/m3) or of a surface (kg/m2).
struct Material
{
    std::string name;
    double density = kUnknown;
    double surfaceDensity = kUnknown;
    std::string typed;
    FactLines lines;
};

/// One version of a part. Its name in the sums and in trees is the identifier where it has none.
struct Part
{
    std::string identifier;
    std::string version;
    std::string name;
    PartType type = PartType::Unstated;
    Answer standard = Answer::Unstated;
    std::string code;
    double growthPct = kUnknown;
    double density = kUnknown;        // kg/m3
    double surfaceDensity = kUnknown; // kg/m2
    DensityOrder densityFirst = DensityOrder::Unstated;
    ErrorRule errors = ErrorRule::Unstated;
    std::string material;    // empty: none
    std::string activeType;  // empty: nothing chosen
    std::string lastImposed; // the type that was chosen before the choice was taken back
    std::string note;
    std::string typed;
    std::vector<ValueSet> sets;
    std::vector<DocumentRevision> documents; // in the order they were stated
    std::vector<Property> properties;
    FactLines lines;
    std::uint32_t firstLine = 0;

    const std::string& ShownName() const { return name.empty() ? identifier : name; }
    /// The type that was chosen last; empty where none ever was.
    const std::string& Imposed() const { return activeType.empty() ? lastImposed : activeType; }
};

/// One use of a part in a parent. In a Product both are positions in Product::parts.
struct Use
{
    std::uint32_t parent = 0;
    std::uint32_t part = 0;
    std::string instance; // unique in its parent
    int quantity = 0;     // 0: not stated, counts as 1
    bool positionStated = false;
    bool rotationStated = false;
    Placement placement;
    std::string material; // of this use alone; empty: the part's
    double density = kUnknown;
    double surfaceDensity = kUnknown;
    std::string activeType;
    std::string lastImposed; // as of a part
    std::string note;
    std::string typed;
    std::vector<ValueSet> sets; // of this use alone
    std::vector<Property> properties;
    FactLines lines;
    std::uint32_t firstLine = 0;

    int Pieces() const { return quantity == 0 ? 1 : quantity; }
    const std::string& Imposed() const { return activeType.empty() ? lastImposed : activeType; }
};

/// What a table says: parts, their uses, materials. Plain data, nothing checked again on reading.
struct Product
{
    std::vector<Part> parts;
    std::vector<Use> uses; // in the order of the table
    std::vector<Material> materials;

    /// For each part the positions of its uses, in the order of the table.
    std::vector<std::vector<std::uint32_t>> UsesByParent() const;
    /// Positions of the parts that nobody uses: the product roots.
    std::vector<std::uint32_t> Roots() const;
};

/// The set of that mass type, or null.
const ValueSet* FindSet(const std::vector<ValueSet>& sets, std::string_view massType);

/// The type shown: the stated one; else product when nobody uses it, assembly when it has uses.
PartType EffectiveType(PartType stated, bool isUsed, bool hasUses);

/// Edges lead from a parent to a part. A cycle as the nodes it visits, the first one repeated at
/// the end; empty when there is none.
std::vector<std::uint32_t> FindCycle(const std::vector<std::vector<std::uint32_t>>& edges);
} // namespace wb
