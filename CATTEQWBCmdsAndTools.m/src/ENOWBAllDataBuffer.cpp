#include "ENOWBAllDataBuffer.h"

#include "CATDiagnostics.h"

#include <array>
#include <memory>
#include <utility>

namespace
{

using Definitions = CATENOWBCSCommonDefinitions;

constexpr int kMagnitudePropertyType = 100;
constexpr int kDateFlag = 1;

/// Most getters: the stored value, copied out.
template <class Value>
long Get(const Value& stored, Value& value)
{
    value = stored;
    return S_OK;
}

/// Most setters: the value, kept.
template <class Value>
long Set(Value& stored, const Value& value)
{
    stored = value;
    return S_OK;
}

CATUnicodeString YearMonthDayFormat()
{
    const CATUnicodeString delimiter(Definitions::dateYMDFieldDelimiter1);
    return "%Y" + delimiter + "%m" + delimiter + "%d";
}

} // namespace

ENOWBAllDataBuffer::ENOWBAllDataBuffer() : m_dateFormat(YearMonthDayFormat())
{}

ENOWBAllDataBuffer::ENOWBAllDataBuffer(const ENOWBAllDataBuffer& other) = default;
ENOWBAllDataBuffer& ENOWBAllDataBuffer::operator=(const ENOWBAllDataBuffer& other) = default;
ENOWBAllDataBuffer::~ENOWBAllDataBuffer() = default;

// Values of one mass type. The lists are as long as the announced number of mass types, which may
// differ from the number of names; a name without a place in a list has no value there.

template <class Item, class Value>
long ENOWBAllDataBuffer::SetPerType(CATList<Item>& list, const CATUnicodeString& massType,
                                    Value value)
{
    if (list.IsEmpty()) {
        list.Resize(m_massTypeCount, Item());
    }
    const int position = m_massTypes.Locate(massType);
    if (position != 0 && position <= list.Size()) {
        list[position] = static_cast<Item>(value);
    }
    return S_OK;
}

template <class Item, class Value>
long ENOWBAllDataBuffer::GetPerType(const CATList<Item>& list, const CATUnicodeString& massType,
                                    Value& value) const
{
    const int position = m_massTypes.Locate(massType);
    if (position != 0) {
        value = static_cast<Value>(position <= list.Size() ? list[position] : Item());
    }
    return S_OK;
}

template <class... Lists>
long ENOWBAllDataBuffer::UnSetPerType(const CATUnicodeString& massType, Lists&... lists)
{
    if (m_massTypes.Locate(massType) == 0) {
        return S_FALSE;
    }
    (SetPerType(lists, massType, 0), ...);
    return S_OK;
}

// clang-format off
long ENOWBAllDataBuffer::GetMassTypes(CATListValCATUnicodeString& massTypes) const { return Get(m_massTypes, massTypes); }
// clang-format on

long ENOWBAllDataBuffer::UnSetMassType(const CATUnicodeString& massType)
{
    const int position = m_massTypes.Locate(massType);
    if (position == 0) {
        return S_FALSE;
    }
    // The values stay where they are: whoever removes a mass type reads no per-type value
    // afterwards.
    m_massTypes.RemovePosition(position);
    return S_OK;
}

// clang-format off
long ENOWBAllDataBuffer::SetDocName(const CATUnicodeString& name) { return Set(m_documentName, name); }
long ENOWBAllDataBuffer::SetActiveMassType(const CATUnicodeString& massType) { return Set(m_activeMassType, massType); }
long ENOWBAllDataBuffer::GetActiveMassType(CATUnicodeString& massType) const { return Get(m_activeMassType, massType); }
long ENOWBAllDataBuffer::SetLastImposedMassType(const CATUnicodeString& massType) { return Set(m_lastImposedMassType, massType); }
long ENOWBAllDataBuffer::GetLastImposedMassType(CATUnicodeString& massType) const { return Get(m_lastImposedMassType, massType); }
long ENOWBAllDataBuffer::SetWBDensityStatus(ValueStatus status) { return Set(m_densityStatus, status); }
long ENOWBAllDataBuffer::GetWBDensityStatus(ValueStatus& status) const { return Get(m_densityStatus, status); }
long ENOWBAllDataBuffer::SetWBDensity(double density) { return Set(m_density, density); }
long ENOWBAllDataBuffer::GetWBDensity(double& density) const { return Get(m_density, density); }
// clang-format on

long ENOWBAllDataBuffer::SetWBMaterialName(CATUnicodeString material)
{
    const bool standsForNone = material.Compare("~") != 0 || material.Compare("__null__") != 0;
    m_materialName = standsForNone ? CATUnicodeString() : std::move(material);
    return S_OK;
}

// clang-format off
long ENOWBAllDataBuffer::GetWBMaterialName(CATUnicodeString& material) const { return Get(m_materialName, material); }
long ENOWBAllDataBuffer::SetUpToDateFlag(bool upToDate) { return Set(m_upToDate, upToDate); }
long ENOWBAllDataBuffer::GetUpToDateFlag(bool& upToDate) const { return Get(m_upToDate, upToDate); }
// clang-format on

long ENOWBAllDataBuffer::SetPersistencyFlag(int flag)
{
    if (flag < 0) {
        CATDiagnosticOutput().Line("Invalid argument received: iFlag = ", flag);
        return E_INVALIDARG;
    }
    CATDiagnosticOutput().Line("Persisting data possible? ", flag == 1 ? "YES" : "NO");
    return Set(m_persistencyFlag, flag);
}

// clang-format off
long ENOWBAllDataBuffer::GetPersistencyFlag(bool& persistent) const { return Get(m_persistencyFlag != 0, persistent); }
long ENOWBAllDataBuffer::SetDensityPriority(DensityPriority priority) { return Set(m_densityPriority, priority); }
long ENOWBAllDataBuffer::GetDensityPriority(DensityPriority& priority) const { return Get(m_densityPriority, priority); }
long ENOWBAllDataBuffer::SetMassTypeStatus(const CATUnicodeString& massType, ValueStatus status) { return SetPerType(m_statuses, massType, status); }
// clang-format on

long ENOWBAllDataBuffer::GetMassTypeStatus(const CATUnicodeString& massType,
                                           ValueStatus& status) const
{
    const int position = m_massTypes.Locate(massType);
    if (position == 0 || position > m_statuses.Size()) {
        return E_FAIL;
    }
    const int stored = m_statuses[position];
    if (stored < Definitions::Empty || stored > Definitions::PartiallyAssigned) {
        return E_FAIL;
    }
    status = static_cast<ValueStatus>(stored);
    return S_OK;
}

// clang-format off
long ENOWBAllDataBuffer::SetMass(const CATUnicodeString& massType, double mass) { return SetPerType(m_masses, massType, mass); }
long ENOWBAllDataBuffer::GetMass(const CATUnicodeString& massType, double& mass) const { return GetPerType(m_masses, massType, mass); }
long ENOWBAllDataBuffer::UnSetMass(const CATUnicodeString& massType) { return UnSetPerType(massType, m_masses); }
long ENOWBAllDataBuffer::SetLowerDeviation(const CATUnicodeString& massType, double deviation) { return SetPerType(m_lowerDeviations, massType, deviation); }
long ENOWBAllDataBuffer::GetLowerDeviation(const CATUnicodeString& massType, double& deviation) const { return GetPerType(m_lowerDeviations, massType, deviation); }
long ENOWBAllDataBuffer::SetUpperDeviation(const CATUnicodeString& massType, double deviation) { return SetPerType(m_upperDeviations, massType, deviation); }
long ENOWBAllDataBuffer::GetUpperDeviation(const CATUnicodeString& massType, double& deviation) const { return GetPerType(m_upperDeviations, massType, deviation); }
// clang-format on

long ENOWBAllDataBuffer::SetCenterOfGravity(const CATUnicodeString& massType,
                                            const CATMathPoint& centre)
{
    SetPerType(m_centresX, massType, centre.GetX());
    SetPerType(m_centresY, massType, centre.GetY());
    return SetPerType(m_centresZ, massType, centre.GetZ());
}

long ENOWBAllDataBuffer::GetCenterOfGravity(const CATUnicodeString& massType,
                                            CATMathPoint*& centre) const
{
    if (m_centresX.IsEmpty() || m_massTypes.Locate(massType) == 0) {
        return S_OK;
    }
    std::array<double, 3> coordinates{};
    GetPerType(m_centresX, massType, coordinates[0]);
    GetPerType(m_centresY, massType, coordinates[1]);
    GetPerType(m_centresZ, massType, coordinates[2]);
    auto stored = std::make_unique<CATMathPoint>(coordinates[0], coordinates[1], coordinates[2]);
    centre = stored.release(); // the caller deletes it
    return S_OK;
}

long ENOWBAllDataBuffer::UnSetCenterOfGravity(const CATUnicodeString& massType)
{
    return UnSetPerType(massType, m_centresX, m_centresY, m_centresZ);
}

long ENOWBAllDataBuffer::SetInertia(const CATUnicodeString& massType,
                                    const CATMath3x3Matrix& inertia)
{
    SetPerType(m_inertiasXX, massType, inertia.GetCoef(1, 1));
    SetPerType(m_inertiasYY, massType, inertia.GetCoef(2, 2));
    SetPerType(m_inertiasZZ, massType, inertia.GetCoef(3, 3));
    // The matrix holds the products negated. The lower triangle is the one that counts.
    SetPerType(m_productsYZ, massType, -inertia.GetCoef(3, 2));
    SetPerType(m_productsXZ, massType, -inertia.GetCoef(3, 1));
    return SetPerType(m_productsXY, massType, -inertia.GetCoef(2, 1));
}

long ENOWBAllDataBuffer::GetInertia(const CATUnicodeString& massType,
                                    CATMath3x3Matrix*& inertia) const
{
    if (m_inertiasXX.IsEmpty() || m_massTypes.Locate(massType) == 0) {
        return S_OK;
    }
    double xx = 0.0;
    double yy = 0.0;
    double zz = 0.0;
    double yz = 0.0;
    double xz = 0.0;
    double xy = 0.0;
    GetPerType(m_inertiasXX, massType, xx);
    GetPerType(m_inertiasYY, massType, yy);
    GetPerType(m_inertiasZZ, massType, zz);
    GetPerType(m_productsYZ, massType, yz);
    GetPerType(m_productsXZ, massType, xz);
    GetPerType(m_productsXY, massType, xy);
    // clang-format off
    auto matrix = std::make_unique<CATMath3x3Matrix>( xx, -xy, -xz,
                                                     -xy,  yy, -yz,
                                                     -xz, -yz,  zz);
    // clang-format on
    inertia = matrix.release(); // the caller deletes it
    return S_OK;
}

long ENOWBAllDataBuffer::UnSetInertia(const CATUnicodeString& massType)
{
    return UnSetPerType(massType, m_inertiasXX, m_inertiasYY, m_inertiasZZ, m_productsYZ,
                        m_productsXZ, m_productsXY);
}

// clang-format off
long ENOWBAllDataBuffer::SetPrecisionStatus(const CATUnicodeString& massType, ValueStatus status) { return SetPerType(m_precisionStatuses, massType, status); }
long ENOWBAllDataBuffer::GetPrecisionStatus(const CATUnicodeString& massType, ValueStatus& status) const { return GetPerType(m_precisionStatuses, massType, status); }
long ENOWBAllDataBuffer::SetPrecisionType(const CATUnicodeString& massType, PrecisionType type) { return SetPerType(m_precisionTypes, massType, type); }
long ENOWBAllDataBuffer::GetPrecisionType(const CATUnicodeString& massType, PrecisionType& type) const { return GetPerType(m_precisionTypes, massType, type); }
long ENOWBAllDataBuffer::SetPrecisionValueType(const CATUnicodeString& massType, PrecisionValueType type) { return SetPerType(m_precisionValueTypes, massType, type); }
long ENOWBAllDataBuffer::GetPrecisionValueType(const CATUnicodeString& massType, PrecisionValueType& type) const { return GetPerType(m_precisionValueTypes, massType, type); }
long ENOWBAllDataBuffer::SetDefaultLowerPrecision(const CATUnicodeString& massType, double precision) { return SetPerType(m_defaultLowerPrecisions, massType, precision); }
long ENOWBAllDataBuffer::GetDefaultLowerPrecision(const CATUnicodeString& massType, double& precision) const { return GetPerType(m_defaultLowerPrecisions, massType, precision); }
long ENOWBAllDataBuffer::SetDefaultUpperPrecision(const CATUnicodeString& massType, double precision) { return SetPerType(m_defaultUpperPrecisions, massType, precision); }
long ENOWBAllDataBuffer::GetDefaultUpperPrecision(const CATUnicodeString& massType, double& precision) const { return GetPerType(m_defaultUpperPrecisions, massType, precision); }
long ENOWBAllDataBuffer::SetLowerPrecision(const CATUnicodeString& massType, double precision) { return SetPerType(m_lowerPrecisions, massType, precision); }
long ENOWBAllDataBuffer::GetLowerPrecision(const CATUnicodeString& massType, double& precision) const { return GetPerType(m_lowerPrecisions, massType, precision); }
long ENOWBAllDataBuffer::SetUpperPrecision(const CATUnicodeString& massType, double precision) { return SetPerType(m_upperPrecisions, massType, precision); }
long ENOWBAllDataBuffer::GetUpperPrecision(const CATUnicodeString& massType, double& precision) const { return GetPerType(m_upperPrecisions, massType, precision); }

long ENOWBAllDataBuffer::SetCurrentPRCID(const CATUnicodeString& identifier) { return Set(m_currentPRCIdentifier, identifier); }
long ENOWBAllDataBuffer::GetCurrentPRCID(CATUnicodeString& identifier) const { return Get(m_currentPRCIdentifier, identifier); }
long ENOWBAllDataBuffer::SetEntityToCompute(Entity entity) { return Set(m_entityToCompute, entity); }
long ENOWBAllDataBuffer::GetEntityToCompute(Entity& entity) const { return Get(m_entityToCompute, entity); }
// clang-format on

long ENOWBAllDataBuffer::SetConfigFiltersPRC(const CATListValCATUnicodeString& filters)
{
    return filters.IsEmpty() ? E_FAIL : Set(m_configurationFilters, filters);
}

// clang-format off
long ENOWBAllDataBuffer::GetConfigFiltersPRC(CATListValCATUnicodeString& filters) const { return Get(m_configurationFilters, filters); }
long ENOWBAllDataBuffer::SetCurrentPRCFilter(const CATUnicodeString& filter) { return Set(m_currentPRCFilter, filter); }
long ENOWBAllDataBuffer::GetCurrentPRCFilter(CATUnicodeString& filter) const { return Get(m_currentPRCFilter, filter); }
long ENOWBAllDataBuffer::SetCurrentPartID(const CATUnicodeString& identifier) { return Set(m_currentPartIdentifier, identifier); }
long ENOWBAllDataBuffer::GetCurrentPartID(CATUnicodeString& identifier) const { return Get(m_currentPartIdentifier, identifier); }
long ENOWBAllDataBuffer::SetCurrentInstanceID(const CATUnicodeString& identifier) { return Set(m_currentInstanceIdentifier, identifier); }
long ENOWBAllDataBuffer::GetCurrentInstanceID(CATUnicodeString& identifier) const { return Get(m_currentInstanceIdentifier, identifier); }
long ENOWBAllDataBuffer::SetCurrentPartVersion(const CATUnicodeString& version) { return Set(m_currentPartVersion, version); }
long ENOWBAllDataBuffer::GetCurrentPartVersion(CATUnicodeString& version) const { return Get(m_currentPartVersion, version); }
long ENOWBAllDataBuffer::SetInertiaReferencePoint(int point) { return Set(m_inertiaReferencePoint, point); }
long ENOWBAllDataBuffer::GetInertiaReferencePoint(int& point) const { return Get(m_inertiaReferencePoint, point); }
long ENOWBAllDataBuffer::SetInertiaReferenceAxis(int axis) { return Set(m_inertiaReferenceAxis, axis); }
long ENOWBAllDataBuffer::GetInertiaReferenceAxis(int& axis) const { return Get(m_inertiaReferenceAxis, axis); }
// clang-format on

long ENOWBAllDataBuffer::SetWBMatStatInfo(const CATListValCATUnicodeString& names,
                                          const CATRawColldouble& reals,
                                          const CATRawCollint& integers)
{
    if (reals.Size() < names.Size() || integers.Size() < names.Size()) {
        return E_INVALIDARG;
    }
    for (int position = 1; position <= names.Size(); ++position) {
        m_statisticNames.Append(names[position]);
        m_statisticReals.Append(reals[position]);
        m_statisticIntegers.Append(integers[position]);
    }
    return S_OK;
}

long ENOWBAllDataBuffer::GetWBMatStatInfo(CATListValCATUnicodeString& names,
                                          CATRawColldouble& reals, CATRawCollint& integers) const
{
    names = m_statisticNames;
    reals = m_statisticReals;
    integers = m_statisticIntegers;
    return S_OK;
}

long ENOWBAllDataBuffer::UnSetWBMatStatInfo()
{
    m_statisticNames.RemoveAll();
    m_statisticReals.RemoveAll();
    m_statisticIntegers.RemoveAll();
    return S_OK;
}

// clang-format off
long ENOWBAllDataBuffer::GetListOfTransMatrix(CATRawColldouble& values) const { return Get(m_transformation, values); }
long ENOWBAllDataBuffer::SetListOfTransMatrix(const CATRawColldouble& values) { return Set(m_transformation, values); }

void ENOWBAllDataBuffer::SetUseWBDMC(bool use) { m_useWBDMC = use; }
bool ENOWBAllDataBuffer::IsWBDMCUsed() const { return m_useWBDMC; }
void ENOWBAllDataBuffer::SetIsLeaf(bool leaf) { m_leaf = leaf; }
bool ENOWBAllDataBuffer::IsLeaf() const { return m_leaf; }
bool ENOWBAllDataBuffer::AdditionalInfoRequested() const { return false; }
bool ENOWBAllDataBuffer::AreOldDocumentsUsed() const { return m_oldDocumentsUsable == 1; }
int ENOWBAllDataBuffer::GetDocAutoMode() const { return m_documentAutoMode; }
bool ENOWBAllDataBuffer::HasUsedSpecificRevBefore() const { return m_usedSpecificRevisionBefore == 1; }
int ENOWBAllDataBuffer::GetVersionCount() const { return m_revisionCount; }
const CATUnicodeString& ENOWBAllDataBuffer::GetActiveDocId() const { return m_activeDocumentIdentifier; }
void ENOWBAllDataBuffer::SetActiveDocId(const CATUnicodeString& identifier) { m_activeDocumentIdentifier = identifier; }
const CATUnicodeString& ENOWBAllDataBuffer::GetActiveDocVersion() const { return m_activeDocumentVersion; }
void ENOWBAllDataBuffer::SetActiveDocVersion(const CATUnicodeString& version) { m_activeDocumentVersion = version; }
const CATUnicodeString& ENOWBAllDataBuffer::GetCurrentlyAttachedVersion() const { return m_currentlyAttachedVersion; }
bool ENOWBAllDataBuffer::IsStandatadPart() const { return m_standardPart; }
void ENOWBAllDataBuffer::IsStandatadPart(bool& standard) const { standard = m_standardPart; }
void ENOWBAllDataBuffer::SetStandardPart(bool standard) { m_standardPart = standard; }
const CATUnicodeString& ENOWBAllDataBuffer::GetInstancePath() const { return m_instancePath; }
void ENOWBAllDataBuffer::SetInstancePath(const CATUnicodeString& path) { m_instancePath = path; }
int ENOWBAllDataBuffer::GetInstancePathDepth() const { return m_instancePathDepth; }
void ENOWBAllDataBuffer::SetInstancePathDepth(const int& depth) { m_instancePathDepth = depth; }
const CATUnicodeString& ENOWBAllDataBuffer::GetAppliedOnObject() const { return m_appliedOnObject; }
void ENOWBAllDataBuffer::SetAppliedOnObject(const CATUnicodeString& object) { m_appliedOnObject = object; }
void ENOWBAllDataBuffer::SetHasInstInENOVIA(bool hasInstance) { m_hasInstanceInPDM = hasInstance; }
bool ENOWBAllDataBuffer::HasInstInENOVIA() const { return m_hasInstanceInPDM; }
void ENOWBAllDataBuffer::SetPartRefWBDensityStatus(ValueStatus status) { m_partRefDensityStatus = status; }
ENOWBAllDataBuffer::ValueStatus ENOWBAllDataBuffer::GetPartRefWBDensityStatus() const { return m_partRefDensityStatus; }
void ENOWBAllDataBuffer::SetPartRefWBDensity(double density) { m_partRefDensity = density; }
double ENOWBAllDataBuffer::GetPartRefWBDensity() const { return m_partRefDensity; }
void ENOWBAllDataBuffer::SetPartRefWBMaterialName(const CATUnicodeString& material) { m_partRefMaterialName = material; }
const CATUnicodeString& ENOWBAllDataBuffer::GetPartRefWBMaterialName() const { return m_partRefMaterialName; }
// clang-format on

long ENOWBAllDataBuffer::GetDocRevsInfo(int position, DocInfo what, CATUnicodeString& info) const
{
    info = CATUnicodeString();
    if (position > m_revisionCount) {
        CATDiagnosticOutput().Line(
            "The buffer does not contain that many doc revisions (invalid index =", position, ")");
        return E_FAIL;
    }
    if (what < Version || what > Mass) {
        return E_INVALIDARG;
    }
    // A position below 1 is not refused: it names no revision, so there is nothing to tell.
    if (position < 1) {
        return S_OK;
    }
    if (what == Mass) {
        info = CATUnicodeString::FromReal(m_revisionMasses[position], Definitions::FormatDouble);
        return S_OK;
    }
    // In the order of DocInfo.
    const std::array texts{&m_revisionVersions, &m_revisionCheckInDates, &m_revisionCheckInUsers,
                           &m_revisionCheckOutUsers, &m_revisionActiveMassTypes};
    info = (*texts[static_cast<std::size_t>(what)])[position];
    return S_OK;
}

long ENOWBAllDataBuffer::SetExtraPropertiesInfo(CATListValCATUnicodeString names,
                                                CATRawCollint types, CATRawCollint isDateFlags,
                                                CATListValCATUnicodeString owners,
                                                CATListValCATUnicodeString values,
                                                CATListValCATUnicodeString magnitudes)
{
    const int count = names.Size();
    const bool parallel = types.Size() == count && isDateFlags.Size() == count &&
                          owners.Size() == count && values.Size() == count &&
                          magnitudes.Size() == count;
    if (!parallel) {
        return E_INVALIDARG;
    }
    m_extraPropertyCount = count;
    m_extraPropertyNames = std::move(names);
    m_extraPropertyTypes = std::move(types);
    m_extraPropertyIsDateFlags = std::move(isDateFlags);
    m_extraPropertyOwners = std::move(owners);
    m_extraPropertyValues = std::move(values);
    m_extraPropertyMagnitudes = std::move(magnitudes);
    return S_OK;
}

long ENOWBAllDataBuffer::GetExtraPropertiesInfo(CATListValCATUnicodeString& names,
                                                CATRawCollint& types, CATRawCollint& isDateFlags,
                                                CATListValCATUnicodeString& owners,
                                                CATListValCATUnicodeString& values,
                                                CATListValCATUnicodeString& magnitudes) const
{
    names = m_extraPropertyNames;
    types = m_extraPropertyTypes;
    isDateFlags = m_extraPropertyIsDateFlags;
    owners = m_extraPropertyOwners;
    values = m_extraPropertyValues;
    magnitudes = m_extraPropertyMagnitudes;
    return S_OK;
}

// clang-format off
int ENOWBAllDataBuffer::GetExtraPropsCount() const { return m_extraPropertyCount; }
const CATUnicodeString& ENOWBAllDataBuffer::GetDateFormatForExtraProperties() const { return m_dateFormat; }
// clang-format on

bool ENOWBAllDataBuffer::AreDateTypePropertiesPresent() const
{
    return m_extraPropertyIsDateFlags.Locate(kDateFlag) != 0;
}

bool ENOWBAllDataBuffer::HasProperty(int position) const
{
    const bool inside = position >= 1 && position <= m_extraPropertyCount;
    if (!inside) {
        CATDiagnosticOutput().Line("Error! Index is out of boundaries!");
    }
    return inside;
}

template <class Item, class Value>
void ENOWBAllDataBuffer::GetProperty(const CATList<Item>& list, int position, Value& value) const
{
    value = HasProperty(position) ? static_cast<Value>(list[position]) : Value();
}

void ENOWBAllDataBuffer::SetPropertyValue(int position, const CATUnicodeString& value)
{
    if (HasProperty(position)) {
        m_extraPropertyValues[position] = value;
    }
}

// clang-format off
void ENOWBAllDataBuffer::GetPropertyName(int position, CATUnicodeString& name) const { GetProperty(m_extraPropertyNames, position, name); }
void ENOWBAllDataBuffer::GetPropertyType(int position, int& type) const { GetProperty(m_extraPropertyTypes, position, type); }
void ENOWBAllDataBuffer::GetPropertyValue(int position, CATUnicodeString& value) const { GetProperty(m_extraPropertyValues, position, value); }
void ENOWBAllDataBuffer::GetPropertyOwnerType(int position, CATUnicodeString& owner) const { GetProperty(m_extraPropertyOwners, position, owner); }
void ENOWBAllDataBuffer::GetIsDate(int position, bool& isDate) const { GetProperty(m_extraPropertyIsDateFlags, position, isDate); }
void ENOWBAllDataBuffer::GetPropMagnitudeType(int position, CATUnicodeString& magnitude) const { GetProperty(m_extraPropertyMagnitudes, position, magnitude); }
// clang-format on

void ENOWBAllDataBuffer::GetIsMagnitude(int position, bool& isMagnitude) const
{
    int type = 0;
    GetPropertyType(position, type);
    isMagnitude = type == kMagnitudePropertyType;
}
