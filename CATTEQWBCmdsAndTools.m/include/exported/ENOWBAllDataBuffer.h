#pragma once

#include "CATBaseUnknown.h"
#include "CATCollections.h"
#include "CATENOWBCSCommonDefinitions.h"
#include "CATMath3x3Matrix.h"
#include "CATMathPoint.h"
#include "CATStatus.h"
#include "WBExport.h"

/// The weight-and-balance data of one part or product instance, as the server knows it and as the
/// user edits it: identifiers, document revisions, mass types with their values, material, material
/// statistics, position, and the extra properties that were asked for. It holds data only and never
/// talks to the server.
///
/// Values are in the units in which the server stores them: kg, mm, kg.m2, kg/m3. Positions count
/// from 1.
///
/// The operations with a `massType` work on that mass type's value; each kind of value has a list
/// of its own, parallel to the names of GetMassTypes. The first setter of a kind makes the list,
/// all zero, as long as the number of mass types that the server announced. A setter of an unknown
/// mass type writes nothing; a getter of one leaves its output alone; both return S_OK. A getter of
/// a kind that was never set gives 0.
///
/// Unless something else is said, an operation that has a status returns S_OK.
class WB_EXPORT ENOWBAllDataBuffer : public CATBaseUnknown
{
public:
    using ValueStatus = CATENOWBCSCommonDefinitions::ValueStatus;
    using DensityPriority = CATENOWBCSCommonDefinitions::DensityPriority;
    using PrecisionType = CATENOWBCSCommonDefinitions::PrecisionType;
    using PrecisionValueType = CATENOWBCSCommonDefinitions::PrecisionValueType;
    using Entity = CATENOWBCSCommonDefinitions::Entity;

    /// What GetDocRevsInfo tells of a document revision.
    enum DocInfo : int
    {
        Version = 0,
        LastCheckInDate = 1,
        LastCheckInUser = 2,
        LastCheckOutUser = 3,
        ActiveMassType = 4,
        Mass = 5
    };

    ENOWBAllDataBuffer();
    /// A copy has every field of the original and a reference count of its own.
    ENOWBAllDataBuffer(const ENOWBAllDataBuffer& other);
    ENOWBAllDataBuffer& operator=(const ENOWBAllDataBuffer& other);
    ~ENOWBAllDataBuffer() override;

    // Slot order is binary interface: append, never sort.

    virtual long GetMassTypes(CATListValCATUnicodeString& massTypes) const;
    /// S_FALSE when the name is unknown. Removes the name alone: the values behind it stay where
    /// they are, so later names no longer stand at their values. For callers that will not read
    /// per-type values again.
    virtual long UnSetMassType(const CATUnicodeString& massType);
    virtual long SetDocName(const CATUnicodeString& name);
    virtual long SetActiveMassType(const CATUnicodeString& massType);
    virtual long GetActiveMassType(CATUnicodeString& massType) const;
    virtual long SetLastImposedMassType(const CATUnicodeString& massType);
    virtual long GetLastImposedMassType(CATUnicodeString& massType) const;
    virtual long SetWBDensityStatus(ValueStatus status);
    virtual long GetWBDensityStatus(ValueStatus& status) const;
    virtual long SetWBDensity(double density);
    virtual long GetWBDensity(double& density) const;
    /// "~" and "__null__", in any letter case, stand for no material and are stored as an empty
    /// name.
    virtual long SetWBMaterialName(CATUnicodeString material);
    virtual long GetWBMaterialName(CATUnicodeString& material) const;
    virtual long SetUpToDateFlag(bool upToDate);
    virtual long GetUpToDateFlag(bool& upToDate) const;
    /// Whether the data may be persisted, 1 for yes. E_INVALIDARG for a negative flag, with the old
    /// one kept.
    virtual long SetPersistencyFlag(int flag);
    virtual long GetPersistencyFlag(bool& persistent) const;
    virtual long SetDensityPriority(DensityPriority priority);
    virtual long GetDensityPriority(DensityPriority& priority) const;

    virtual long SetMassTypeStatus(const CATUnicodeString& massType, ValueStatus status);
    /// E_FAIL, with the output untouched, when the mass type is unknown or its status is none of
    /// 0, 1 and 2 or was never set.
    virtual long GetMassTypeStatus(const CATUnicodeString& massType, ValueStatus& status) const;
    virtual long SetMass(const CATUnicodeString& massType, double mass);
    virtual long GetMass(const CATUnicodeString& massType, double& mass) const;
    /// The three unset operations set the value to 0; S_FALSE when the mass type is unknown.
    virtual long UnSetMass(const CATUnicodeString& massType);
    virtual long SetLowerDeviation(const CATUnicodeString& massType, double deviation);
    virtual long GetLowerDeviation(const CATUnicodeString& massType, double& deviation) const;
    virtual long SetUpperDeviation(const CATUnicodeString& massType, double deviation);
    virtual long GetUpperDeviation(const CATUnicodeString& massType, double& deviation) const;
    virtual long SetCenterOfGravity(const CATUnicodeString& massType, const CATMathPoint& centre);
    /// Hands over a new point, which the caller deletes. The pointer stays as it was when no centre
    /// was ever stored or the mass type is unknown; set it to null first and test it.
    virtual long GetCenterOfGravity(const CATUnicodeString& massType, CATMathPoint*& centre) const;
    virtual long UnSetCenterOfGravity(const CATUnicodeString& massType);
    /// The matrix has the moments on its diagonal and the negated products off it. An unsymmetric
    /// one is taken from its lower triangle.
    virtual long SetInertia(const CATUnicodeString& massType, const CATMath3x3Matrix& inertia);
    /// Hands over a new symmetric matrix, which the caller deletes. The pointer stays as it was
    /// when no inertia was ever stored or the mass type is unknown; set it to null first and test
    /// it.
    virtual long GetInertia(const CATUnicodeString& massType, CATMath3x3Matrix*& inertia) const;
    virtual long UnSetInertia(const CATUnicodeString& massType);
    virtual long SetPrecisionStatus(const CATUnicodeString& massType, ValueStatus status);
    virtual long GetPrecisionStatus(const CATUnicodeString& massType, ValueStatus& status) const;
    virtual long SetPrecisionType(const CATUnicodeString& massType, PrecisionType type);
    virtual long GetPrecisionType(const CATUnicodeString& massType, PrecisionType& type) const;
    virtual long SetPrecisionValueType(const CATUnicodeString& massType, PrecisionValueType type);
    virtual long GetPrecisionValueType(const CATUnicodeString& massType,
                                       PrecisionValueType& type) const;
    virtual long SetDefaultLowerPrecision(const CATUnicodeString& massType, double precision);
    virtual long GetDefaultLowerPrecision(const CATUnicodeString& massType,
                                          double& precision) const;
    virtual long SetDefaultUpperPrecision(const CATUnicodeString& massType, double precision);
    virtual long GetDefaultUpperPrecision(const CATUnicodeString& massType,
                                          double& precision) const;
    virtual long SetLowerPrecision(const CATUnicodeString& massType, double precision);
    virtual long GetLowerPrecision(const CATUnicodeString& massType, double& precision) const;
    virtual long SetUpperPrecision(const CATUnicodeString& massType, double precision);
    virtual long GetUpperPrecision(const CATUnicodeString& massType, double& precision) const;

    virtual long SetCurrentPRCID(const CATUnicodeString& identifier);
    virtual long GetCurrentPRCID(CATUnicodeString& identifier) const;
    virtual long SetEntityToCompute(Entity entity);
    virtual long GetEntityToCompute(Entity& entity) const;
    /// Replaces the filters; E_FAIL, with the old ones kept, for an empty list.
    virtual long SetConfigFiltersPRC(const CATListValCATUnicodeString& filters);
    virtual long GetConfigFiltersPRC(CATListValCATUnicodeString& filters) const;
    virtual long SetCurrentPRCFilter(const CATUnicodeString& filter);
    virtual long GetCurrentPRCFilter(CATUnicodeString& filter) const;
    virtual long SetCurrentPartID(const CATUnicodeString& identifier);
    virtual long GetCurrentPartID(CATUnicodeString& identifier) const;
    virtual long SetCurrentInstanceID(const CATUnicodeString& identifier);
    virtual long GetCurrentInstanceID(CATUnicodeString& identifier) const;
    virtual long SetCurrentPartVersion(const CATUnicodeString& version);
    virtual long GetCurrentPartVersion(CATUnicodeString& version) const;
    virtual long SetInertiaReferencePoint(int point);
    virtual long GetInertiaReferencePoint(int& point) const;
    virtual long SetInertiaReferenceAxis(int axis);
    virtual long GetInertiaReferenceAxis(int& axis) const;

    /// Appends one entry for each name: its material, its real (a mass) and its integer (a kind).
    /// E_INVALIDARG, with nothing appended, when one of the other lists is shorter than the names.
    virtual long SetWBMatStatInfo(const CATListValCATUnicodeString& names,
                                  const CATRawColldouble& reals, const CATRawCollint& integers);
    virtual long GetWBMatStatInfo(CATListValCATUnicodeString& names, CATRawColldouble& reals,
                                  CATRawCollint& integers) const;
    virtual long UnSetWBMatStatInfo();
    /// Twelve values for each matrix: the images of the x, y and z axis, then the shift.
    virtual long GetListOfTransMatrix(CATRawColldouble& values) const;
    virtual long SetListOfTransMatrix(const CATRawColldouble& values);

    // No virtual operation below: the ones above are the whole table.

    void SetUseWBDMC(bool use);
    bool IsWBDMCUsed() const;
    void SetIsLeaf(bool leaf);
    bool IsLeaf() const;
    /// Always false: no caller has to be asked for more before the server is.
    bool AdditionalInfoRequested() const;
    bool AreOldDocumentsUsed() const;
    /// 1: values are always computed on the attached document revision; else on the latest.
    int GetDocAutoMode() const;
    bool HasUsedSpecificRevBefore() const;
    int GetVersionCount() const;
    const CATUnicodeString& GetActiveDocId() const;
    void SetActiveDocId(const CATUnicodeString& identifier);
    const CATUnicodeString& GetActiveDocVersion() const;
    void SetActiveDocVersion(const CATUnicodeString& version);
    const CATUnicodeString& GetCurrentlyAttachedVersion() const;
    // The spelling of this name is part of the exported interface.
    bool IsStandatadPart() const;
    void IsStandatadPart(bool& standard) const;
    void SetStandardPart(bool standard);
    /// The path's elements, leaf first, joined by "|"; its depth is their number.
    const CATUnicodeString& GetInstancePath() const;
    void SetInstancePath(const CATUnicodeString& path);
    int GetInstancePathDepth() const;
    void SetInstancePathDepth(const int& depth);
    const CATUnicodeString& GetAppliedOnObject() const;
    void SetAppliedOnObject(const CATUnicodeString& object);
    void SetHasInstInENOVIA(bool hasInstance);
    bool HasInstInENOVIA() const;
    void SetPartRefWBDensityStatus(ValueStatus status);
    ValueStatus GetPartRefWBDensityStatus() const;
    void SetPartRefWBDensity(double density);
    double GetPartRefWBDensity() const;
    void SetPartRefWBMaterialName(const CATUnicodeString& material);
    const CATUnicodeString& GetPartRefWBMaterialName() const;

    /// One fact of a document revision, the mass as text in kg. Empties the output first. E_FAIL
    /// when `position` exceeds the number of revisions; a position below 1 gives the empty text and
    /// S_OK. E_INVALIDARG for a `what` that is no DocInfo.
    long GetDocRevsInfo(int position, DocInfo what, CATUnicodeString& info) const;

    /// Replaces the extra properties; their number becomes that of the names. E_INVALIDARG,
    /// with the old ones kept, when the lists are not all of one length.
    long SetExtraPropertiesInfo(CATListValCATUnicodeString names, CATRawCollint types,
                                CATRawCollint isDateFlags, CATListValCATUnicodeString owners,
                                CATListValCATUnicodeString values,
                                CATListValCATUnicodeString magnitudes);
    long GetExtraPropertiesInfo(CATListValCATUnicodeString& names, CATRawCollint& types,
                                CATRawCollint& isDateFlags, CATListValCATUnicodeString& owners,
                                CATListValCATUnicodeString& values,
                                CATListValCATUnicodeString& magnitudes) const;
    int GetExtraPropsCount() const;
    /// The format, in conversion codes, in which date properties are written.
    const CATUnicodeString& GetDateFormatForExtraProperties() const;
    bool AreDateTypePropertiesPresent() const;

    // One extra property. Outside 1..GetExtraPropsCount() a diagnostic line is written and the
    // output is empty, 0 or false; SetPropertyValue then changes nothing.
    void SetPropertyValue(int position, const CATUnicodeString& value);
    void GetPropertyName(int position, CATUnicodeString& name) const;
    void GetPropertyType(int position, int& type) const;
    void GetPropertyValue(int position, CATUnicodeString& value) const;
    void GetPropertyOwnerType(int position, CATUnicodeString& owner) const;
    void GetIsDate(int position, bool& isDate) const;
    void GetPropMagnitudeType(int position, CATUnicodeString& magnitude) const;
    /// True when the property has a dimension (type 100).
    void GetIsMagnitude(int position, bool& isMagnitude) const;

protected:
    bool m_useWBDMC = true;
    CATUnicodeString m_documentName;
    CATUnicodeString m_activeMassType;
    CATUnicodeString m_lastImposedMassType;
    CATUnicodeString m_materialName;
    ValueStatus m_densityStatus = CATENOWBCSCommonDefinitions::Empty;
    double m_density = 0.0;
    bool m_upToDate = false;
    DensityPriority m_densityPriority = CATENOWBCSCommonDefinitions::WBDensityFirst;
    int m_massTypeCount = 0; ///< as announced by the server; sizes the lists of per-type values
    CATListValCATUnicodeString m_massTypes;
    CATRawCollint m_statuses;
    CATRawColldouble m_masses;
    CATRawColldouble m_lowerDeviations;
    CATRawColldouble m_upperDeviations;
    CATRawColldouble m_centresX;
    CATRawColldouble m_centresY;
    CATRawColldouble m_centresZ;
    CATRawColldouble m_inertiasXX;
    CATRawColldouble m_inertiasYY;
    CATRawColldouble m_inertiasZZ;
    CATRawColldouble m_productsYZ; ///< the sign opposite to that of the matrix term a23
    CATRawColldouble m_productsXZ; ///< opposite to a13
    CATRawColldouble m_productsXY; ///< opposite to a12
    CATRawCollint m_precisionStatuses;
    CATRawCollint m_precisionTypes;
    CATRawCollint m_reservedIntegers; ///< a 0 for each mass type that was received; nobody reads it
    CATRawCollint m_precisionValueTypes;
    CATRawColldouble m_defaultLowerPrecisions;
    CATRawColldouble m_defaultUpperPrecisions;
    CATRawColldouble m_lowerPrecisions;
    CATRawColldouble m_upperPrecisions;
    CATListValCATUnicodeString m_statisticNames;
    CATRawColldouble m_statisticReals;
    CATRawCollint m_statisticIntegers;
    CATRawColldouble m_transformation;
    CATUnicodeString m_currentPRCIdentifier;
    CATUnicodeString m_currentPRCFilter;
    CATUnicodeString m_currentPartIdentifier;
    CATUnicodeString m_currentInstanceIdentifier;
    CATListValCATUnicodeString m_configurationFilters;
    CATUnicodeString m_currentPartVersion;
    int m_inertiaReferencePoint = 0;
    int m_inertiaReferenceAxis = 0;
    Entity m_entityToCompute = CATENOWBCSCommonDefinitions::InstanceWithChildren;
    int m_persistencyFlag = 0;
    int m_oldDocumentsUsable = 0;
    int m_documentAutoMode = 0;
    CATListValCATUnicodeString m_revisionVersions;
    CATListValCATUnicodeString m_revisionCheckInDates;
    CATListValCATUnicodeString m_revisionCheckInUsers;
    CATListValCATUnicodeString m_revisionCheckOutUsers; ///< "__null__" when nobody holds it
    CATListValCATUnicodeString m_revisionActiveMassTypes;
    CATRawColldouble m_revisionMasses;
    CATUnicodeString m_activeDocumentVersion;
    CATUnicodeString m_activeDocumentIdentifier;
    CATUnicodeString m_currentlyAttachedVersion; ///< identifier, blank, revision
    int m_revisionCount = 0;
    int m_usedSpecificRevisionBefore = 0;
    bool m_standardPart = false;
    CATUnicodeString m_instancePath;
    int m_instancePathDepth = 0;
    int m_extraPropertyCount = 0;
    CATListValCATUnicodeString m_extraPropertyNames;
    CATRawCollint m_extraPropertyTypes;
    CATRawCollint m_extraPropertyIsDateFlags;
    CATListValCATUnicodeString m_extraPropertyOwners;
    CATListValCATUnicodeString m_extraPropertyValues;
    CATListValCATUnicodeString m_extraPropertyMagnitudes;
    CATUnicodeString m_dateFormat;
    bool m_hasInstanceInPDM = false;
    CATUnicodeString m_appliedOnObject;
    ValueStatus m_partRefDensityStatus = CATENOWBCSCommonDefinitions::Empty;
    double m_partRefDensity = 0.0;
    CATUnicodeString m_partRefMaterialName;
    bool m_leaf = false;

private:
    template <class Item, class Value>
    long SetPerType(CATList<Item>& list, const CATUnicodeString& massType, Value value);
    template <class Item, class Value>
    long GetPerType(const CATList<Item>& list, const CATUnicodeString& massType,
                    Value& value) const;
    template <class... Lists>
    long UnSetPerType(const CATUnicodeString& massType, Lists&... lists);
    template <class Item, class Value>
    void GetProperty(const CATList<Item>& list, int position, Value& value) const;
    bool HasProperty(int position) const;
};
