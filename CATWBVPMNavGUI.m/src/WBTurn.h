#pragma once

#include "CATMath3x3Matrix.h"

/// The turn by angles in degrees about the fixed axes x, then y, then z. Multiples of 90 degrees
/// are exact.
CATMath3x3Matrix WBTurnMatrix(double aboutX, double aboutY, double aboutZ);
