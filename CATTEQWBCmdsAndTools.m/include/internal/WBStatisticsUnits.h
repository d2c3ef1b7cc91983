#pragma once

#include "WBUnitDisplay.h"

#include "CATIDOMDocument.h"

/// The elements of material statistics: one a material, one a mass type, below the root and below
/// part instances.
inline constexpr const char* kMaterialStatElement = "MaterialStat";
inline constexpr const char* kMassTypeStatElement = "MassTypeStat";

/// Brings the masses and densities of all statistics from storage to the user's units, or shows
/// them anew, and rounds the shares of mass to three digits, with "%" behind them where symbols are
/// wanted. Names the units on the document element. A value whose magnitude or unit is missing
/// stays as it is, and none is made where an element has none. A null document is left alone.
void RewriteStatistics(const CATIDOMDocument_var& document, WBUnitsTask task,
                       WBShowOptions options);
