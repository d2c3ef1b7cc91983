#pragma once

#include "CATMath3x3Matrix.h"
#include "CATMathPoint.h"

#include <optional>

/// What is asked of the report services for a whole report. A centre or an inertia that an element
/// lacks, or that cannot be moved since its centre or mass is not known, is not there afterwards
/// either.
struct CATWBReportConversion
{
    enum class Kind
    {
        Report,
        Distributive
    };
    enum class Values
    {
        Stored, ///< in storage units: they are converted to the current units
        Current ///< in the current units: they are only shown anew
    };
    Kind kind = Kind::Report;
    Values values = Values::Stored;
    bool withSymbols = false;
    int decimals = 0; ///< 0: each unit's own way; negative: its number of decimals held fixed
    std::optional<CATMath3x3Matrix> axes = std::nullopt;
    std::optional<CATMathPoint> reference = std::nullopt; ///< in millimetres
    bool keepInertiaAtCentre = false; ///< for `reference`: moves the centres alone
};
