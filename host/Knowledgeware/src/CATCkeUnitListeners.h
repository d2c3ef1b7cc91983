#pragma once

#include "CATCkeGlobalFunctions.h"

/// The session's listeners to unit changes: they outlive a dictionary that is read again.
int CATCkeAddUnitListener(CATCkeGlobalFunctions::UnitListener listener);
void CATCkeRemoveUnitListener(int number);

/// Tells every listener that the magnitude has another current unit. A listener may change units
/// itself: what it changes is told to all before the others hear of this change, so whoever is told
/// finds in the magnitude what holds now.
void CATCkeTellUnitListeners(const CATICkeMagnitude_var& magnitude);
