#include "CATWBAllDataBuffer.h"

#include "WBFieldReader.h"
#include "WBFieldWriter.h"
#include "WBMaterialStatistics.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace
{

using Definitions = CATENOWBCSCommonDefinitions;

constexpr int kTransformationValues = 12;
/// A mass type without values, with empty name and precisions: "|0|0|||".
constexpr int kLeastBytesOfMassType = 6;
constexpr std::string_view kNoActiveDocument = "0";
constexpr std::string_view kPropertiesBegin = "<userDefinedProps>";
constexpr std::string_view kPropertiesEnd = "</userDefinedProps>";

bool Failed(long status)
{
    return status < 0;
}

/// Statuses of densities: what is neither empty nor assigned is partially assigned.
Definitions::ValueStatus DensityStatus(int received)
{
    if (received == Definitions::Empty || received == Definitions::Assigned) {
        return static_cast<Definitions::ValueStatus>(received);
    }
    return Definitions::PartiallyAssigned;
}

struct MassProperties
{
    double mass;
    double lowerDeviation;
    double upperDeviation;
    CATMathPoint centre;
    CATMath3x3Matrix inertia;
};

MassProperties ReadMassProperties(WBFieldReader& reader)
{
    MassProperties properties{};
    properties.mass = reader.Real("Mass: ");
    properties.lowerDeviation = reader.Real("Lower deviation: ");
    properties.upperDeviation = reader.Real("Upper deviation: ");
    const double x = reader.Real("Gx: ");
    const double y = reader.Real("Gy: ");
    const double z = reader.Real("Gz: ");
    properties.centre = CATMathPoint(x, y, z);
    const double xx = reader.Real("Ixx: ");
    const double yy = reader.Real("Iyy: ");
    const double zz = reader.Real("Izz: ");
    // On the wire xz stands before xy. The matrix holds the products negated.
    const double xz = reader.Real("Pxz: ");
    const double xy = reader.Real("Pxy: ");
    const double yz = reader.Real("Pyz: ");
    // clang-format off
    properties.inertia = CATMath3x3Matrix( xx, -xy, -xz,
                                          -xy,  yy, -yz,
                                          -xz, -yz,  zz);
    // clang-format on
    return properties;
}

void WriteInertia(WBFieldWriter& writer, const CATMath3x3Matrix& inertia)
{
    writer.Real(inertia.GetCoef(1, 1));
    writer.Real(inertia.GetCoef(2, 2));
    writer.Real(inertia.GetCoef(3, 3));
    // Subtracted from 0 and not negated, so that no product is written as "-0".
    writer.Real(0.0 - inertia.GetCoef(1, 3));
    writer.Real(0.0 - inertia.GetCoef(1, 2));
    writer.Real(0.0 - inertia.GetCoef(2, 3));
}

} // namespace

CATWBAllDataBuffer::CATWBAllDataBuffer() = default;
CATWBAllDataBuffer::CATWBAllDataBuffer(const CATWBAllDataBuffer& other) = default;
CATWBAllDataBuffer& CATWBAllDataBuffer::operator=(const CATWBAllDataBuffer& other) = default;
CATWBAllDataBuffer::~CATWBAllDataBuffer() = default;

CATUnicodeString CATWBAllDataBuffer::toString(int value)
{
    return CATUnicodeString::FromInt(value);
}

CATUnicodeString CATWBAllDataBuffer::toString(double value)
{
    return CATUnicodeString::FromReal(value, Definitions::FormatDouble);
}

long CATWBAllDataBuffer::SetAllData(const CATUnicodeString& stream, bool fullLayout)
{
    WBFieldReader reader(stream);
    reader.Echo().Line("Here's the data received: ", stream);
    if (fullLayout) {
        if (Failed(ReadIdentification(reader))) {
            return E_FAIL;
        }
        ReadRevisions(reader);
    }
    ReadMassTypes(reader);
    ReadFlagsAndActiveTypes(reader);
    ReadDensity(reader);
    SetUpToDateFlag(reader.Int("Up to date: ") != 0);
    SetDensityPriority(static_cast<DensityPriority>(reader.Int("Density priority: ")));
    const WBMaterialStatistics statistics = WithoutDuplicates(ReadMaterialStatistics(reader));
    SetWBMatStatInfo(statistics.names, statistics.reals, statistics.integers);
    ReadTransformation(reader, true);
    ReadExtraProperties(reader);
    return S_OK;
}

long CATWBAllDataBuffer::GetAllData(CATUnicodeString& stream)
{
    WBFieldWriter writer;
    const long status = WriteAllData(writer);
    stream = writer.Stream();
    return status;
}

long CATWBAllDataBuffer::WriteAllData(WBFieldWriter& writer)
{
    if (Failed(WriteIdentification(writer)) || Failed(WriteMassTypes(writer))) {
        return E_FAIL;
    }
    WriteActiveTypes(writer);
    WriteDensity(writer);
    DensityPriority priority = Definitions::WBDensityFirst;
    const long status = GetDensityPriority(priority);
    writer.Int(priority);
    WriteExtraProperties(writer);
    return status;
}

long CATWBAllDataBuffer::SetComputedData(const CATUnicodeString& stream, bool storeTransformation)
{
    WBFieldReader reader(stream);
    reader.Echo().Line("Here's the data received: ", stream);
    const CATUnicodeString computed(Definitions::Computed);
    const MassProperties properties = ReadMassProperties(reader);
    SetLowerDeviation(computed, properties.lowerDeviation);
    SetUpperDeviation(computed, properties.upperDeviation);
    SetMass(computed, properties.mass);
    SetCenterOfGravity(computed, properties.centre);
    SetInertia(computed, properties.inertia);
    SetMassTypeStatus(computed, Definitions::Assigned);

    const WBMaterialStatistics statistics = WithoutDuplicates(ReadMaterialStatistics(reader));
    const int ignoredPairs = reader.LenientInt("Number of pairs: ");
    for (int index = 0; index < ignoredPairs && !reader.Stream().IsAtEnd(); ++index) {
        reader.View("Ignored: ");
        reader.Real("Ignored: ");
    }
    ReadTransformation(reader, storeTransformation);
    UnSetWBMatStatInfo();
    SetWBMatStatInfo(statistics.names, statistics.reals, statistics.integers);
    return S_OK;
}

long CATWBAllDataBuffer::GetComputedInfo(CATUnicodeString& stream)
{
    WBFieldWriter writer;
    const long status = WriteComputedInfo(writer);
    stream = writer.Stream();
    return status;
}

long CATWBAllDataBuffer::WriteComputedInfo(WBFieldWriter& writer) const
{
    if (Failed(WritePart(writer))) {
        return E_FAIL;
    }
    writer.Int(m_instancePathDepth);
    if (m_instancePathDepth > 0) {
        writer.Text(m_instancePath.View());
    }
    DensityPriority priority = Definitions::WBDensityFirst;
    if (Failed(GetDensityPriority(priority))) {
        return E_FAIL;
    }
    writer.Int(priority);
    CATUnicodeString material;
    if (Failed(GetWBMaterialName(material))) {
        return E_FAIL;
    }
    // Here a material name of blanks travels as it is; in the other request it would be stripped.
    writer.NullableText(material.View());
    // The server takes the values of the active mass type and no level.
    writer.Text("Active");
    writer.Text("0");
    Entity entity = Definitions::InstanceWithChildren;
    if (Failed(GetEntityToCompute(entity))) {
        return E_FAIL;
    }
    writer.Int(entity);
    CATUnicodeString root;
    if (Failed(GetCurrentPRCID(root))) {
        return E_FAIL;
    }
    writer.Text(root.View());
    CATUnicodeString filter;
    if (Failed(GetCurrentPRCFilter(filter))) {
        return E_FAIL;
    }
    writer.Text(filter.View());
    return WritePrecision(writer, Definitions::Computed, OnFault::Stop);
}

long CATWBAllDataBuffer::ReadIdentification(WBFieldReader& reader)
{
    SetHasInstInENOVIA(reader.Int("Has an instance in the PDM: ") == 1);
    SetCurrentInstanceID(reader.Text("Instance ID: "));
    SetCurrentPartID(reader.Text("Part ID: "));
    SetCurrentPartVersion(reader.Text("Part version: "));
    SetCurrentPRCID(reader.Text("PRC ID: "));
    ReadInstancePath(reader);
    m_oldDocumentsUsable = reader.Int("Old documents usable: ");
    m_documentAutoMode = reader.Int("Document auto mode: ");
    if (Failed(SetPersistencyFlag(reader.Int("Persistency flag: ")))) {
        return E_FAIL;
    }
    SetActiveDocId(reader.Text("Active document ID: "));
    SetActiveDocVersion(reader.Text("Active document version: "));
    const CATUnicodeString revision = reader.Text("Attached document revision: ");
    const bool hasDocument = m_activeDocumentIdentifier.View() != kNoActiveDocument;
    m_currentlyAttachedVersion =
        hasDocument ? m_activeDocumentIdentifier + " " + revision : revision;
    m_usedSpecificRevisionBefore = reader.Int("Has used a specific revision before: ");
    return S_OK;
}

long CATWBAllDataBuffer::WriteIdentification(WBFieldWriter& writer) const
{
    writer.Int(m_hasInstanceInPDM ? 1 : 0);
    if (Failed(WritePart(writer))) {
        return E_FAIL;
    }
    writer.Text(m_activeDocumentIdentifier.View());
    writer.Text(m_activeDocumentVersion.View());
    return S_OK;
}

long CATWBAllDataBuffer::WritePart(WBFieldWriter& writer) const
{
    CATUnicodeString part;
    if (Failed(GetCurrentPartID(part))) {
        return E_FAIL;
    }
    writer.Text(part.View());
    CATUnicodeString version;
    if (Failed(GetCurrentPartVersion(version))) {
        return E_FAIL;
    }
    writer.Text(version.View());
    return S_OK;
}

void CATWBAllDataBuffer::ReadInstancePath(WBFieldReader& reader)
{
    const int depth = reader.Int("Path Depth: ");
    std::string path;
    int kept = 0;
    for (; reader.HasEntry(kept, depth); ++kept) {
        if (kept > 0) {
            path.push_back('|');
        }
        path.append(reader.View("Path element: "));
    }
    reader.ReportKept("path elements", depth, kept);
    // A depth below 0 has no elements either, but is kept as it came.
    SetInstancePathDepth(depth < 0 ? depth : kept);
    SetInstancePath(path);
}

void CATWBAllDataBuffer::ReadRevisions(WBFieldReader& reader)
{
    const int announced = reader.Int("Number of document revisions: ");
    int kept = 0;
    for (; reader.HasEntry(kept, announced); ++kept) {
        m_revisionVersions.Append(reader.Text("Version: "));
        m_revisionCheckInDates.Append(reader.Text("Last check-in date: "));
        m_revisionCheckInUsers.Append(reader.Text("Last check-in user: "));
        m_revisionCheckOutUsers.Append(reader.Text("Last check-out user: "));
        m_revisionActiveMassTypes.Append(reader.Text("Active mass type: "));
        m_revisionMasses.Append(reader.Real("Mass: "));
    }
    reader.ReportKept("document revisions", announced, kept);
    m_revisionCount = announced < 0 ? announced : kept;
}

void CATWBAllDataBuffer::ReadMassTypes(WBFieldReader& reader)
{
    // The count comes first: it sizes the lists that the first value of each kind makes.
    const int announced = reader.Int("Number of mass types: ");
    m_massTypeCount = reader.Believed("mass types", announced, kLeastBytesOfMassType);
    for (int index = 0; reader.HasEntry(index, m_massTypeCount); ++index) {
        ReadMassType(reader);
    }
}

long CATWBAllDataBuffer::WriteMassTypes(WBFieldWriter& writer)
{
    CATListValCATUnicodeString massTypes;
    GetMassTypes(massTypes);
    m_massTypeCount = massTypes.Size();
    writer.Int(m_massTypeCount);
    for (const CATUnicodeString& massType : massTypes.Items()) {
        if (Failed(WriteMassType(writer, massType))) {
            return E_FAIL;
        }
    }
    return S_OK;
}

void CATWBAllDataBuffer::ReadMassType(WBFieldReader& reader)
{
    const CATUnicodeString massType = reader.Text("Mass type: ");
    m_massTypes.Append(massType);
    m_reservedIntegers.Append(0);
    const int status = reader.Int("Status: ");
    SetMassTypeStatus(massType, static_cast<ValueStatus>(status));
    const bool valued = status == Definitions::Assigned;
    if (valued) {
        const MassProperties properties = ReadMassProperties(reader);
        SetMass(massType, properties.mass);
        SetLowerDeviation(massType, properties.lowerDeviation);
        SetUpperDeviation(massType, properties.upperDeviation);
        SetCenterOfGravity(massType, properties.centre);
        SetInertia(massType, properties.inertia);
    }
    ReadPrecision(reader, massType);
    if (valued) {
        // One flag for the whole record: the last valued mass type decides.
        SetStandardPart(reader.Int("Standard part: ") == 1);
    }
    SetDefaultLowerPrecision(massType, reader.Real("Default lower precision: "));
    SetDefaultUpperPrecision(massType, reader.Real("Default upper precision: "));
}

long CATWBAllDataBuffer::WriteMassType(WBFieldWriter& writer,
                                       const CATUnicodeString& massType) const
{
    ValueStatus status = Definitions::Empty;
    GetMassTypeStatus(massType, status);
    writer.Text(massType.View());
    writer.Int(status);
    const bool valued = status == Definitions::Assigned;
    if (valued && Failed(WriteMassProperties(writer, massType))) {
        return E_FAIL;
    }
    WritePrecision(writer, massType, OnFault::GoOn);
    if (valued) {
        writer.Int(m_standardPart ? 1 : 0);
    }
    return S_OK;
}

long CATWBAllDataBuffer::WriteMassProperties(WBFieldWriter& writer,
                                             const CATUnicodeString& massType) const
{
    // Only the computed mass type has deviations that the server does not derive by itself.
    if (massType == Definitions::Computed) {
        double lower = 0.0;
        double upper = 0.0;
        GetLowerDeviation(massType, lower);
        GetUpperDeviation(massType, upper);
        writer.Real(lower);
        writer.Real(upper);
    } else {
        writer.Text("0|0");
    }
    double mass = 0.0;
    GetMass(massType, mass);
    writer.Real(mass);

    CATMathPoint* centreFound = nullptr;
    GetCenterOfGravity(massType, centreFound);
    const std::unique_ptr<CATMathPoint> centre(centreFound);
    if (centre == nullptr) {
        return E_FAIL;
    }
    writer.Real(centre->GetX());
    writer.Real(centre->GetY());
    writer.Real(centre->GetZ());

    CATMath3x3Matrix* inertiaFound = nullptr;
    GetInertia(massType, inertiaFound);
    const std::unique_ptr<CATMath3x3Matrix> inertia(inertiaFound);
    if (inertia == nullptr) {
        return E_FAIL;
    }
    WriteInertia(writer, *inertia);
    return S_OK;
}

void CATWBAllDataBuffer::ReadPrecision(WBFieldReader& reader, const CATUnicodeString& massType)
{
    const int type = reader.Int("Precision type: ");
    SetPrecisionType(massType, static_cast<PrecisionType>(type));
    if (type != Definitions::PrecisionDefined) {
        SetPrecisionValueType(massType, Definitions::Percentage);
        return;
    }
    const int valueType = reader.Int("Precision value type: ");
    const double lower = reader.Real("Lower precision: ");
    const double upper = reader.Real("Upper precision: ");
    SetPrecisionValueType(massType, static_cast<PrecisionValueType>(valueType));
    SetLowerPrecision(massType, lower);
    SetUpperPrecision(massType, upper);
    if (valueType == Definitions::Absolute) {
        // A precision that is a mass is the deviation itself, whatever deviations came before it.
        SetLowerDeviation(massType, lower);
        SetUpperDeviation(massType, upper);
    }
}

long CATWBAllDataBuffer::WritePrecision(WBFieldWriter& writer, const CATUnicodeString& massType,
                                        OnFault onFault) const
{
    const auto mustStop = [onFault](long status) {
        return Failed(status) && onFault == OnFault::Stop;
    };
    PrecisionType type = Definitions::NoPrecision;
    if (mustStop(GetPrecisionType(massType, type))) {
        return E_FAIL;
    }
    writer.Int(type);
    if (type != Definitions::PrecisionDefined) {
        return S_OK;
    }
    PrecisionValueType valueType = Definitions::Percentage;
    if (mustStop(GetPrecisionValueType(massType, valueType))) {
        return E_FAIL;
    }
    writer.Int(valueType);
    double lower = 0.0;
    if (mustStop(GetLowerPrecision(massType, lower))) {
        return E_FAIL;
    }
    writer.Real(lower);
    double upper = 0.0;
    if (mustStop(GetUpperPrecision(massType, upper))) {
        return E_FAIL;
    }
    writer.Real(upper);
    return S_OK;
}

void CATWBAllDataBuffer::ReadFlagsAndActiveTypes(WBFieldReader& reader)
{
    const int useDMC = reader.Int("Use DMC: ");
    if (useDMC != 0 && useDMC != 1) {
        reader.Echo().Line("Error! Bad value (", useDMC,
                           ") has been received from the server for the \"use DMC\" flag. "
                           "It'll be interpreted as 1");
    }
    SetUseWBDMC(useDMC != 0);
    SetActiveMassType(reader.Text("Active mass type: "));
    SetLastImposedMassType(reader.Text("Last imposed mass type: "));
}

void CATWBAllDataBuffer::WriteActiveTypes(WBFieldWriter& writer) const
{
    CATUnicodeString massType;
    GetActiveMassType(massType);
    writer.Text(massType.View());
    CATUnicodeString lastImposed;
    GetLastImposedMassType(lastImposed);
    writer.Text(lastImposed.View());
}

void CATWBAllDataBuffer::ReadDensity(WBFieldReader& reader)
{
    const ValueStatus status = DensityStatus(reader.Int("\nDensity status: "));
    SetWBDensityStatus(status);
    // The density always travels, but only an assigned one counts.
    const double density = reader.Real("Density: ");
    const bool assigned = status == Definitions::Assigned;
    if (assigned) {
        SetWBDensity(density);
        SetWBMaterialName(reader.Text("Material: "));
    }
    if (m_hasInstanceInPDM) {
        return;
    }
    if (assigned) {
        CATUnicodeString appliedOn = reader.Text("Material set on: ");
        if (!(appliedOn == Definitions::partRef) && !(appliedOn == Definitions::partInst)) {
            reader.Echo().Line("Error! Bad value for the \"material applied to\" flag! It'll be "
                               "defaulted to ",
                               Definitions::partRef);
            appliedOn = Definitions::partRef;
        }
        SetAppliedOnObject(appliedOn);
    }
    ReadPartRefDensity(reader);
}

void CATWBAllDataBuffer::ReadPartRefDensity(WBFieldReader& reader)
{
    const ValueStatus status = DensityStatus(reader.Int("Part reference density status: "));
    SetPartRefWBDensityStatus(status);
    const double density = reader.Real("Part reference density: ");
    if (status == Definitions::Assigned) {
        SetPartRefWBDensity(density);
        SetPartRefWBMaterialName(reader.Text("Part reference material: "));
    }
}

void CATWBAllDataBuffer::WriteDensity(WBFieldWriter& writer) const
{
    ValueStatus status = Definitions::Empty;
    GetWBDensityStatus(status);
    writer.Int(status);
    if (status != Definitions::Assigned) {
        return;
    }
    double density = 0.0;
    GetWBDensity(density);
    writer.Real(density);
    CATUnicodeString materialName;
    GetWBMaterialName(materialName);
    const std::string_view material = StripBlanks(materialName.View());
    writer.NullableText(material);
    if (m_hasInstanceInPDM || material.empty()) {
        return;
    }
    writer.Text(m_appliedOnObject.View());
    // One list for the server: the instance, the elements of the path, the root. An empty path
    // takes a field all the same. The sum is made without a sign, since a depth may be any number.
    writer.Int(static_cast<int>(static_cast<unsigned>(m_instancePathDepth) + 2U));
    CATUnicodeString instance;
    GetCurrentInstanceID(instance);
    writer.Text(instance.View());
    writer.Text(m_instancePath.View());
    CATUnicodeString root;
    GetCurrentPRCID(root);
    writer.Text(root.View());
}

void CATWBAllDataBuffer::ReadTransformation(WBFieldReader& reader, bool store)
{
    CATRawColldouble values;
    for (int index = 0; index < kTransformationValues; ++index) {
        values.Append(reader.LenientReal("Transformation value: "));
    }
    if (store) {
        SetListOfTransMatrix(values);
    }
}

void CATWBAllDataBuffer::ReadExtraProperties(WBFieldReader& reader)
{
    const int announced = reader.Int("Number of extra properties: ");
    reader.Echo().Line("<", announced, "> extra properties requested to be reported on");
    CATListValCATUnicodeString names;
    CATRawCollint types;
    CATRawCollint isDateFlags;
    CATListValCATUnicodeString owners;
    CATListValCATUnicodeString values;
    CATListValCATUnicodeString magnitudes;
    for (int index = 0; reader.HasEntry(index, announced); ++index) {
        names.Append(reader.Text("Name: "));
        types.Append(reader.Int("Type: "));
        isDateFlags.Append(reader.Int("Is a date: ") != 0 ? 1 : 0);
        owners.Append(reader.Text("Owner: "));
        values.Append(reader.NullableText("Value: "));
        magnitudes.Append(reader.NullableText("Magnitude: "));
    }
    reader.ReportKept("extra properties", announced, names.Size());
    if (names.Size() < announced) {
        // The type of the first property that is missing: as fatal here as it is in a short list.
        reader.Int("Type: ");
    }
    SetExtraPropertiesInfo(std::move(names), std::move(types), std::move(isDateFlags),
                           std::move(owners), std::move(values), std::move(magnitudes));
}

void CATWBAllDataBuffer::WriteExtraProperties(WBFieldWriter& writer) const
{
    writer.Text(kPropertiesBegin);
    writer.Int(m_extraPropertyCount);
    for (int position = 1; position <= m_extraPropertyCount; ++position) {
        writer.Text(m_extraPropertyNames[position].View());
        writer.Int(m_extraPropertyTypes[position]);
        writer.Int(m_extraPropertyIsDateFlags[position]);
        writer.Text(m_extraPropertyOwners[position].View());
        writer.NullableText(StripBlanks(m_extraPropertyValues[position].View()));
    }
    writer.Text(kPropertiesEnd);
}
