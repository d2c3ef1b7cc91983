#include "WBEditedRecord.h"

#include "CATWBAllDataBuffer.h"

#include <array>
#include <cmath>
#include <memory>
#include <optional>

namespace
{

using Definitions = CATENOWBCSCommonDefinitions;

double NumberOrZero(const CATUnicodeString& piece)
{
    return WBNumberOf(piece).value_or(0.0);
}

CATMathPoint CentreOf(const CATWBAllDataBuffer& record, const CATUnicodeString& massType)
{
    CATMathPoint* found = nullptr;
    record.GetCenterOfGravity(massType, found);
    const std::unique_ptr<CATMathPoint> centre(found);
    return centre == nullptr ? CATMathPoint() : *centre;
}

CATMathPoint CentreOf(const WBPieces& pieces)
{
    return {NumberOrZero(pieces[0]), NumberOrZero(pieces[1]), NumberOrZero(pieces[2])};
}

CATMath3x3Matrix InertiaOf(const CATWBAllDataBuffer& record, const CATUnicodeString& massType)
{
    CATMath3x3Matrix* found = nullptr;
    record.GetInertia(massType, found);
    const std::unique_ptr<CATMath3x3Matrix> inertia(found);
    return inertia == nullptr ? CATMath3x3Matrix(0, 0, 0, 0, 0, 0, 0, 0, 0) : *inertia;
}

CATMath3x3Matrix InertiaOf(const WBPieces& pieces)
{
    std::array<double, 6> terms{};
    for (std::size_t index = 0; index < terms.size(); ++index) {
        terms[index] = NumberOrZero(pieces[index]);
    }
    const auto [xx, yy, zz, xy, xz, yz] = terms;
    // The matrix holds the products negated.
    // clang-format off
    return { xx, -xy, -xz,
            -xy,  yy, -yz,
            -xz, -yz,  zz};
    // clang-format on
}

Definitions::ValueStatus StatusOf(const CATWBAllDataBuffer& record,
                                  const CATUnicodeString& massType)
{
    Definitions::ValueStatus status = Definitions::Empty;
    record.GetMassTypeStatus(massType, status);
    return status;
}

Definitions::ValueStatus StatusOf(const WBEditedSet& set, Definitions::ValueStatus before)
{
    const bool hasMass = set.mass.isEdited ? set.mass.IsStated() : before == Definitions::Assigned;
    if (hasMass) {
        return Definitions::Assigned;
    }
    // A set that was partially assigned may state a size, which no field shows.
    const bool hasMore = set.centre.IsStated() || set.inertia.IsStated() ||
                         set.precision.IsStated() || before == Definitions::PartiallyAssigned;
    return hasMore ? Definitions::PartiallyAssigned : Definitions::Empty;
}

struct Precision
{
    Definitions::PrecisionType type = Definitions::NoPrecision;
    Definitions::PrecisionValueType valueType = Definitions::Percentage;
    double lower = 0.0;
    double upper = 0.0;
};

Precision PrecisionOf(const CATWBAllDataBuffer& record, const CATUnicodeString& massType)
{
    Precision precision;
    record.GetPrecisionType(massType, precision.type);
    record.GetPrecisionValueType(massType, precision.valueType);
    record.GetLowerPrecision(massType, precision.lower);
    record.GetUpperPrecision(massType, precision.upper);
    return precision;
}

Precision PrecisionOf(const WBPieces& pieces)
{
    if (pieces[0].IsEmpty()) {
        return {};
    }
    return {Definitions::PrecisionDefined,
            pieces[0] == kWBAbsolute ? Definitions::Absolute : Definitions::Percentage,
            NumberOrZero(pieces[1]), NumberOrZero(pieces[2])};
}

void WriteDeviations(CATWBAllDataBuffer& record, const CATUnicodeString& massType,
                     Precision precision)
{
    if (precision.type == Definitions::NoPrecision) {
        record.GetDefaultLowerPrecision(massType, precision.lower);
        record.GetDefaultUpperPrecision(massType, precision.upper);
    }
    double mass = 0.0;
    record.GetMass(massType, mass);
    const bool isAbsolute = precision.valueType == Definitions::Absolute;
    const double scale = isAbsolute ? 1.0 : std::fabs(mass) / 100.0;
    // Deviations are sizes, whatever sign a default was given.
    record.SetLowerDeviation(massType, std::fabs(precision.lower) * scale);
    record.SetUpperDeviation(massType, std::fabs(precision.upper) * scale);
}

void CopyDeviations(CATWBAllDataBuffer& record, const CATWBAllDataBuffer& original,
                    const CATUnicodeString& massType)
{
    double deviation = 0.0;
    original.GetLowerDeviation(massType, deviation);
    record.SetLowerDeviation(massType, deviation);
    original.GetUpperDeviation(massType, deviation);
    record.SetUpperDeviation(massType, deviation);
}

double MassOf(const CATWBAllDataBuffer& record, const CATUnicodeString& massType)
{
    double mass = 0.0;
    record.GetMass(massType, mass);
    return mass;
}

/// Density, its status and material, as the record has them twice.
struct Material
{
    Definitions::ValueStatus status = Definitions::Empty;
    double density = 0.0;
    CATUnicodeString name;
};

Material Edited(const WBEditedMaterial& edited, Material material)
{
    if (edited.material.isEdited) {
        material.name = edited.material.pieces[0];
    }
    material.density = NumberOrZero(edited.density.pieces[0]);
    if (material.density != 0.0) {
        material.status = Definitions::Assigned;
    } else {
        material.status =
            material.name.IsEmpty() ? Definitions::Empty : Definitions::PartiallyAssigned;
    }
    return material;
}

} // namespace

void WBWriteSet(CATWBAllDataBuffer& record, const CATWBAllDataBuffer& original,
                const CATUnicodeString& massType, const WBEditedSet& set)
{
    record.SetMassTypeStatus(massType, StatusOf(set, StatusOf(original, massType)));
    record.SetMass(massType, set.mass.isEdited ? NumberOrZero(set.mass.pieces[0])
                                               : MassOf(original, massType));
    record.SetCenterOfGravity(massType, set.centre.isEdited ? CentreOf(set.centre.pieces)
                                                            : CentreOf(original, massType));
    record.SetInertia(massType, set.inertia.isEdited ? InertiaOf(set.inertia.pieces)
                                                     : InertiaOf(original, massType));
    const Precision precision = set.precision.isEdited ? PrecisionOf(set.precision.pieces)
                                                       : PrecisionOf(original, massType);
    record.SetPrecisionType(massType, precision.type);
    record.SetPrecisionValueType(massType, precision.valueType);
    record.SetLowerPrecision(massType, precision.lower);
    record.SetUpperPrecision(massType, precision.upper);
    if (set.mass.isEdited || set.precision.isEdited) {
        WriteDeviations(record, massType, precision);
    } else {
        CopyDeviations(record, original, massType);
    }
}

void WBWriteMaterial(CATWBAllDataBuffer& record, const CATWBAllDataBuffer& original,
                     const CATUnicodeString& owner, const WBEditedMaterial& ofOwner,
                     const WBEditedMaterial& ofPart)
{
    Material own;
    original.GetWBDensityStatus(own.status);
    original.GetWBDensity(own.density);
    original.GetWBMaterialName(own.name);
    Material part{original.GetPartRefWBDensityStatus(), original.GetPartRefWBDensity(),
                  original.GetPartRefWBMaterialName()};
    CATUnicodeString object = original.GetAppliedOnObject();
    if (ofOwner.IsEdited()) {
        own = Edited(ofOwner, own);
        object = owner;
    }
    // Of an instance that the PDM knows the record has the part's alone, and only once.
    if (ofPart.IsEdited() && !record.HasInstInENOVIA()) {
        part = Edited(ofPart, part);
    }
    record.SetWBDensityStatus(own.status);
    record.SetWBDensity(own.density);
    record.SetWBMaterialName(own.name);
    record.SetAppliedOnObject(object);
    record.SetPartRefWBDensityStatus(part.status);
    record.SetPartRefWBDensity(part.density);
    record.SetPartRefWBMaterialName(part.name);
}

void WBWriteActive(CATWBAllDataBuffer& record, const CATWBAllDataBuffer& original,
                   const CATUnicodeString& massType, bool isEdited)
{
    CATUnicodeString active;
    CATUnicodeString lastImposed;
    original.GetActiveMassType(active);
    original.GetLastImposedMassType(lastImposed);
    if (isEdited) {
        active = massType;
        const bool isImposed = !massType.IsEmpty() && !(massType == Definitions::Computed);
        lastImposed = isImposed ? massType : lastImposed;
    }
    record.SetActiveMassType(active);
    record.SetLastImposedMassType(lastImposed);
}

void WBWriteDensityOrder(CATWBAllDataBuffer& record, const CATWBAllDataBuffer& original,
                         const WBEditedPieces& order)
{
    Definitions::DensityPriority priority = Definitions::WBDensityFirst;
    original.GetDensityPriority(priority);
    if (order.isEdited) {
        priority = order.pieces[0] == kWBMaterialFirst ? Definitions::MaterialDensityFirst
                                                       : Definitions::WBDensityFirst;
    }
    record.SetDensityPriority(priority);
}

void WBWriteProperty(CATWBAllDataBuffer& record, const CATWBAllDataBuffer& original, int position,
                     const WBEditedPieces& value)
{
    CATUnicodeString text;
    original.GetPropertyValue(position, text);
    record.SetPropertyValue(position, value.isEdited ? value.pieces[0] : text);
}

void WBMakeSetTravel(CATWBAllDataBuffer& record, const CATUnicodeString& massType)
{
    record.SetMassTypeStatus(massType, Definitions::Assigned);
}
