#pragma once

#include "CATCollections.h"
#include "CATENOWBCSCommonDefinitions.h"
#include "CATMath3x3Matrix.h"
#include "CATMathPoint.h"
#include "CATMathTransformation.h"
#include "CATUnicodeString.h"
#include "WBPartComputation.h"
#include "WBValueDetails.h"

#include <optional>
#include <vector>

class CATWBAllDataBuffer;

/// What the main panel shows, read once from a record: plain values, with nothing where the record
/// knows nothing. Storage units (kg, mm, kg.m2, kg/m3).

struct WBPanelMassType
{
    CATUnicodeString name;
    CATENOWBCSCommonDefinitions::ValueStatus status = CATENOWBCSCommonDefinitions::Empty;
    std::optional<double> mass;
    std::optional<double> lowerDeviation;
    std::optional<double> upperDeviation;
    std::optional<CATMathPoint> centre;
    std::optional<CATMath3x3Matrix> inertia; ///< moments, and products negated off the diagonal
    bool hasPrecision = false;
    bool isPrecisionAbsolute = false; ///< in kg; else in percent
    double lowerPrecision = 0.0;
    double upperPrecision = 0.0;
    double defaultLowerPrecision = 0.0; ///< in percent
    double defaultUpperPrecision = 0.0;
};

struct WBPanelDensity
{
    CATENOWBCSCommonDefinitions::ValueStatus status = CATENOWBCSCommonDefinitions::Empty;
    std::optional<double> density;
    CATUnicodeString material;
};

struct WBPanelStatistic
{
    CATUnicodeString material;
    int dimension = 0; ///< 3: by volume, 2: by area
    double mass = 0.0;
};

struct WBPanelRevision
{
    CATUnicodeString version;
    CATUnicodeString checkInDate;
    CATUnicodeString checkInUser;
    CATUnicodeString checkOutUser;
    CATUnicodeString activeMassType;
    std::optional<double> mass;
};

struct WBPanelProperty
{
    CATUnicodeString name;
    int type = 0;
    bool isDate = false;
    CATUnicodeString owner;
    CATUnicodeString value; ///< as it was stored
    CATUnicodeString magnitude;
};

struct WBPanelRecord
{
    CATUnicodeString part;
    CATUnicodeString partName; ///< as people say it; empty where the server did not
    CATUnicodeString version;
    CATUnicodeString instance;
    CATUnicodeString root;
    std::vector<CATUnicodeString> path; ///< root first, root and instance included
    bool isUpToDate = false;
    bool isLeaf = false;
    bool isStandardPart = false;
    bool hasInstanceInPDM = false;
    bool isPersistent = false;

    std::vector<WBPanelMassType> massTypes;
    CATUnicodeString activeMassType;
    CATUnicodeString lastImposedMassType;

    WBPanelDensity density;
    CATUnicodeString appliedOn;
    WBPanelDensity partDensity; ///< of the part reference
    bool isMaterialDensityFirst = false;
    std::vector<WBPanelStatistic> statistics;

    CATUnicodeString activeDocument;
    CATUnicodeString activeDocumentVersion;
    CATUnicodeString attachedRevision;
    bool isAttachedRevisionUsed = false; ///< always computed on it; else on the latest
    bool areOldRevisionsUsable = false;
    bool hasUsedSpecificRevision = false;
    std::vector<WBPanelRevision> revisions;

    std::vector<WBPanelProperty> properties;
    CATUnicodeString dateFormat;
    std::optional<CATMathTransformation> placement;

    WBValueDetails details; ///< what the server said beside the record
    /// What was asked for when Computed was computed here; nothing: it came with the record.
    std::optional<WBComputationChoice> computed;
    CATUnicodeString filter; ///< of the root, as users read it
    bool isFiltered = false; ///< whether it leaves anything out

    /// The active mass type's values, null when the record lists no such type.
    const WBPanelMassType* Active() const;
};

/// `details` tells what the record cannot: the part's name and which of its figures are known.
WBPanelRecord WBReadPanelRecord(const CATWBAllDataBuffer& record, const WBValueDetails& details);
