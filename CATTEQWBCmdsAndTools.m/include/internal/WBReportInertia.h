#pragma once

#include "CATIDOMDocument.h"
#include "CATMath3x3Matrix.h"
#include "CATMathPoint.h"

// Whole reports brought to another reference point or to other axes. Both operations take every
// "PartInstance", "PRC" and "WB_Section" element, read its numbers with either decimal separator (0
// where there is none) and write "MOIxx", "MOIyy", "MOIzz", "POIxy", "POIxz", "POIyz", "COGx",
// "COGy" and "COGz" with six significant digits, in the session's locale, without a unit. An
// element that lacked one of these has it afterwards, behind its other attributes and in this
// order. The report must still hold storage units: millimetres, kilograms and kilogram square
// metres.

/// About which point the inertias of a report stand after a move.
enum class WBInertiaAbout
{
    ReferencePoint,
    CentreOfGravity ///< they keep their values, but for the rounding to six digits
};

/// Writes every centre of gravity relative to the reference point, and moves the inertias there
/// when they are to stand about it. `axes`, which may be null, is multiplied to the point first.
void MoveReportToPoint(const CATIDOMDocument_var& document, const CATMathPoint& referencePoint,
                       const CATMath3x3Matrix* axes, WBInertiaAbout about);

/// Writes every centre of gravity G as A G; every inertia I as A^-1 I A on part instances and as
/// A^T I A on roots and sections. For a rotation the two are one. A singular matrix has no inverse:
/// the six inertia attributes of part instances are then not touched, neither rounded nor made
/// where they are missing, while their centres of gravity move as ever.
void TurnReport(const CATIDOMDocument_var& document, const CATMath3x3Matrix& axes);
