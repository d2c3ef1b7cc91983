#include "WBPanelRecord.h"

#include "CATWBAllDataBuffer.h"
#include "CATWBToken.h"

#include <algorithm>
#include <array>
#include <memory>

namespace
{

using Definitions = CATENOWBCSCommonDefinitions;

// What an empty text travels as.
const CATUnicodeString kNothing = "__null__";

CATUnicodeString Said(const CATUnicodeString& text)
{
    return text == kNothing ? CATUnicodeString() : text;
}

bool IsZero(const CATMathPoint& point)
{
    return point == CATMathPoint();
}

bool IsZero(const CATMath3x3Matrix& matrix)
{
    for (int row = 1; row <= 3; ++row) {
        for (int column = 1; column <= 3; ++column) {
            if (matrix.GetCoef(row, column) != 0.0) {
                return false;
            }
        }
    }
    return true;
}

// What another mass type lends counts in sums and is no figure of this set; Computed, which is made
// by sums, carries it.
bool IsCarried(WBOrigin origin, const CATUnicodeString& massType)
{
    return origin == WBOrigin::Lent ? massType == Definitions::Computed
                                    : origin != WBOrigin::Unknown;
}

// The stream carries unknown figures as 0; the server says beside it which ones are known. Where it
// did not say so, all six terms of an inertia being 0 means that nobody knows them, since a body
// has moments of inertia, and a centre exactly at the origin counts as known only together with an
// inertia about it. A dash for a known 0 makes a user ask; a 0 for an unknown centre would be used
// in the next sum.
void ReadCentreAndInertia(const CATWBAllDataBuffer& record, const WBValueDetails& details,
                          WBPanelMassType& massType)
{
    CATMathPoint* centre = nullptr;
    record.GetCenterOfGravity(massType.name, centre);
    const std::unique_ptr<CATMathPoint> ownedCentre(centre);
    CATMath3x3Matrix* inertia = nullptr;
    record.GetInertia(massType.name, inertia);
    const std::unique_ptr<CATMath3x3Matrix> ownedInertia(inertia);
    const WBSetDetails* said = details.Of(massType.name);
    if (inertia != nullptr &&
        (said != nullptr ? IsCarried(said->inertia, massType.name) : !IsZero(*inertia))) {
        massType.inertia = *inertia;
    }
    if (centre != nullptr && (said != nullptr ? IsCarried(said->centre, massType.name)
                                              : !IsZero(*centre) || massType.inertia.has_value())) {
        massType.centre = *centre;
    }
}

void ReadPrecision(const CATWBAllDataBuffer& record, WBPanelMassType& massType)
{
    Definitions::PrecisionType type = Definitions::NoPrecision;
    Definitions::PrecisionValueType valueType = Definitions::Percentage;
    record.GetPrecisionType(massType.name, type);
    record.GetPrecisionValueType(massType.name, valueType);
    massType.hasPrecision = type == Definitions::PrecisionDefined;
    massType.isPrecisionAbsolute = valueType == Definitions::Absolute;
    record.GetLowerPrecision(massType.name, massType.lowerPrecision);
    record.GetUpperPrecision(massType.name, massType.upperPrecision);
    record.GetDefaultLowerPrecision(massType.name, massType.defaultLowerPrecision);
    record.GetDefaultUpperPrecision(massType.name, massType.defaultUpperPrecision);
}

WBPanelMassType ReadMassType(const CATWBAllDataBuffer& record, const WBValueDetails& details,
                             const CATUnicodeString& name)
{
    WBPanelMassType massType;
    massType.name = name;
    // A status that is none of the three leaves the type without values, as one that has none.
    record.GetMassTypeStatus(name, massType.status);
    ReadPrecision(record, massType);
    // Only an assigned type's values came over the stream.
    const WBSetDetails* said = details.Of(name);
    const bool isMassKnown = said == nullptr || said->mass != WBOrigin::Unknown;
    if (massType.status != Definitions::Assigned || !isMassKnown) {
        return massType;
    }
    double value = 0.0;
    record.GetMass(name, value);
    massType.mass = value;
    record.GetLowerDeviation(name, value);
    massType.lowerDeviation = value;
    record.GetUpperDeviation(name, value);
    massType.upperDeviation = value;
    ReadCentreAndInertia(record, details, massType);
    return massType;
}

void ReadMassTypes(const CATWBAllDataBuffer& record, const WBValueDetails& details,
                   WBPanelRecord& panel)
{
    CATListValCATUnicodeString names;
    record.GetMassTypes(names);
    for (const CATUnicodeString& name : names.Items()) {
        panel.massTypes.push_back(ReadMassType(record, details, name));
    }
    record.GetActiveMassType(panel.activeMassType);
    record.GetLastImposedMassType(panel.lastImposedMassType);
    panel.activeMassType = Said(panel.activeMassType);
    panel.lastImposedMassType = Said(panel.lastImposedMassType);
}

void ReadIdentity(const CATWBAllDataBuffer& record, WBPanelRecord& panel)
{
    record.GetCurrentPartID(panel.part);
    record.GetCurrentPartVersion(panel.version);
    record.GetCurrentInstanceID(panel.instance);
    record.GetCurrentPRCID(panel.root);

    panel.path.push_back(panel.instance);
    CATWBToken names(record.GetInstancePath());
    while (!names.IsAtEnd()) {
        panel.path.push_back(names.NextString());
    }
    panel.path.push_back(panel.root);
    std::erase(panel.path, CATUnicodeString());
    std::reverse(panel.path.begin(), panel.path.end()); // records go leaf first, people root first
}

void ReadFlags(const CATWBAllDataBuffer& record, WBPanelRecord& panel)
{
    record.GetUpToDateFlag(panel.isUpToDate);
    record.GetPersistencyFlag(panel.isPersistent);
    panel.isLeaf = record.IsLeaf();
    panel.isStandardPart = record.IsStandatadPart();
    panel.hasInstanceInPDM = record.HasInstInENOVIA();
}

// An assembly whose parts all have a density is assigned, but has none of its own: it travels as 0,
// and nothing real has a density of 0.
std::optional<double> KnownDensity(Definitions::ValueStatus status, double density)
{
    return status == Definitions::Assigned && density != 0.0 ? std::optional(density)
                                                             : std::nullopt;
}

void ReadMaterial(const CATWBAllDataBuffer& record, WBPanelRecord& panel)
{
    record.GetWBDensityStatus(panel.density.status);
    record.GetWBMaterialName(panel.density.material);
    double density = 0.0;
    record.GetWBDensity(density);
    panel.density.density = KnownDensity(panel.density.status, density);
    panel.appliedOn = record.GetAppliedOnObject();
    panel.partDensity.status = record.GetPartRefWBDensityStatus();
    panel.partDensity.material = Said(record.GetPartRefWBMaterialName());
    panel.partDensity.density =
        KnownDensity(panel.partDensity.status, record.GetPartRefWBDensity());
    Definitions::DensityPriority priority = Definitions::WBDensityFirst;
    record.GetDensityPriority(priority);
    panel.isMaterialDensityFirst = priority == Definitions::MaterialDensityFirst;

    CATListValCATUnicodeString materials;
    CATRawColldouble masses;
    CATRawCollint dimensions;
    record.GetWBMatStatInfo(materials, masses, dimensions);
    for (int position = 1; position <= materials.Size(); ++position) {
        panel.statistics.push_back({materials[position], dimensions[position], masses[position]});
    }
}

WBPanelRevision ReadRevision(const CATWBAllDataBuffer& record, int position)
{
    const auto info = [&](ENOWBAllDataBuffer::DocInfo what) {
        CATUnicodeString text;
        record.GetDocRevsInfo(position, what, text);
        return Said(text);
    };
    WBPanelRevision revision;
    revision.version = info(ENOWBAllDataBuffer::Version);
    revision.checkInDate = info(ENOWBAllDataBuffer::LastCheckInDate);
    revision.checkInUser = info(ENOWBAllDataBuffer::LastCheckInUser);
    revision.checkOutUser = info(ENOWBAllDataBuffer::LastCheckOutUser);
    revision.activeMassType = info(ENOWBAllDataBuffer::ActiveMassType);
    // A revision whose mass nobody stated travels with 0.
    double mass = 0.0;
    if (info(ENOWBAllDataBuffer::Mass).ReadReal(mass) == 1 && mass != 0.0) {
        revision.mass = mass;
    }
    return revision;
}

void ReadDocuments(const CATWBAllDataBuffer& record, WBPanelRecord& panel)
{
    // "0" as the identifier says that there is no active document.
    if (!(record.GetActiveDocId() == "0")) {
        panel.activeDocument = record.GetActiveDocId();
        panel.activeDocumentVersion = Said(record.GetActiveDocVersion());
    }
    // Identifier, blank, revision; without a revision nothing is attached.
    const CATUnicodeString attached = record.GetCurrentlyAttachedVersion().Stripped();
    panel.attachedRevision = attached.Contains(kNothing) ? CATUnicodeString() : attached;
    panel.isAttachedRevisionUsed = record.GetDocAutoMode() == 1;
    panel.areOldRevisionsUsable = record.AreOldDocumentsUsed();
    panel.hasUsedSpecificRevision = record.HasUsedSpecificRevBefore();
    for (int position = 1; position <= record.GetVersionCount(); ++position) {
        panel.revisions.push_back(ReadRevision(record, position));
    }
}

void ReadProperties(const CATWBAllDataBuffer& record, WBPanelRecord& panel)
{
    CATListValCATUnicodeString names;
    CATRawCollint types;
    CATRawCollint isDate;
    CATListValCATUnicodeString owners;
    CATListValCATUnicodeString values;
    CATListValCATUnicodeString magnitudes;
    record.GetExtraPropertiesInfo(names, types, isDate, owners, values, magnitudes);
    for (int position = 1; position <= names.Size(); ++position) {
        panel.properties.push_back({names[position], types[position], isDate[position] == 1,
                                    owners[position], values[position], magnitudes[position]});
    }
    panel.dateFormat = record.GetDateFormatForExtraProperties();
}

void ReadPlacement(const CATWBAllDataBuffer& record, WBPanelRecord& panel)
{
    CATRawColldouble values;
    record.GetListOfTransMatrix(values);
    constexpr int kCoefficients = 12;
    if (values.Size() != kCoefficients) {
        return;
    }
    std::array<double, kCoefficients> coefficients{};
    std::copy(values.Items().begin(), values.Items().end(), coefficients.begin());
    // Axes of length 0 are what a stream without a position reads as.
    const bool hasAxes = std::any_of(coefficients.begin(), coefficients.begin() + 9,
                                     [](double value) { return value != 0.0; });
    if (hasAxes) {
        panel.placement = CATMathTransformation::FromCoefficients(coefficients);
    }
}

} // namespace

const WBPanelMassType* WBPanelRecord::Active() const
{
    for (const WBPanelMassType& massType : massTypes) {
        if (massType.name == activeMassType) {
            return &massType;
        }
    }
    return nullptr;
}

WBPanelRecord WBReadPanelRecord(const CATWBAllDataBuffer& record, const WBValueDetails& details)
{
    WBPanelRecord panel;
    panel.partName = details.partName;
    panel.details = details;
    ReadIdentity(record, panel);
    ReadFlags(record, panel);
    ReadMassTypes(record, details, panel);
    ReadMaterial(record, panel);
    ReadDocuments(record, panel);
    ReadProperties(record, panel);
    ReadPlacement(record, panel);
    return panel;
}
