#pragma once

#include "WBComputeAnswer.h"

#include "CATCollections.h"

#include <optional>
#include <span>
#include <vector>

/// What the server computed, as texts for users.

/// Values in storage units of a magnitude as texts in its current unit, with the unit's symbol;
/// nothing when the magnitude or one of its units cannot be had.
std::optional<std::vector<CATUnicodeString>> WBShownInUnits(const CATUnicodeString& magnitude,
                                                            std::span<const double> values);

/// Moments xx, yy, zz, then products xy, xz, yz with the sign that users know.
std::vector<double> WBInertiaValues(const CATMath3x3Matrix& matrix);

/// Rows of a material's name, density, mass, and share of the whole mass.
std::vector<CATListValCATUnicodeString> WBStatisticsTable(const std::vector<WBStatisticsRow>& rows,
                                                          double totalMass);

/// Rows of a mass type's name, mass, and share of the whole mass.
std::vector<CATListValCATUnicodeString> WBMassTypeTable(const std::vector<WBMassTypeRow>& rows,
                                                        double totalMass);
