#pragma once

#include "CATMath3x3Matrix.h"
#include "CATUnicodeString.h"

#include <vector>

/// What the server answers about a whole product.

/// The values of the product as the session reads numbers, in storage units: kilograms,
/// millimetres, kilogram square metres about the centre of gravity.
struct WBComputeValues
{
    CATUnicodeString mass;
    CATUnicodeString lowerDeviation;
    CATUnicodeString upperDeviation;
    CATUnicodeString cgX;
    CATUnicodeString cgY;
    CATUnicodeString cgZ;
    CATUnicodeString ixx;
    CATUnicodeString iyy;
    CATUnicodeString izz;
    CATUnicodeString ixy;
    CATUnicodeString ixz;
    CATUnicodeString iyz;
};

/// What one material adds, of one density.
struct WBStatisticsRow
{
    CATUnicodeString name;
    int kind = 0; ///< 3: the density is one of volumes, else one of surfaces
    double density = 0.0;
    double mass = 0.0;
};

struct WBMassTypeRow
{
    CATUnicodeString name;
    double mass = 0.0;
};

/// A list of the answer.
template <class Row>
struct WBAnsweredList
{
    int count = 0; ///< as announced
    /// As many as announced, as far as the answer is long enough to hold so many.
    std::vector<Row> rows;
};

struct WBComputeAnswer
{
    /// Each with the session's decimal separator, but for the lower deviation, which is as it was
    /// received.
    WBComputeValues values;
    WBAnsweredList<WBStatisticsRow> statistics;
    WBAnsweredList<WBMassTypeRow> massTypes;
    /// False when something that should be a number is none, when rows are missing, or when there
    /// is more than the last row.
    bool isWhole = true;
};

/// Reads an answer of method "WBComputeVPMValues". What the answer lacks is an empty text and the
/// number 0, and so is what should be a number and is none; the first such field is told to the
/// diagnostic output.
WBComputeAnswer WBReadComputeAnswer(const CATUnicodeString& answer);

/// The number in one of the values; 0 when it holds none.
double WBValueOf(const CATUnicodeString& text);

/// The inertia about the centre of gravity, with the products negated.
CATMath3x3Matrix WBCentreInertia(const WBComputeValues& values);
