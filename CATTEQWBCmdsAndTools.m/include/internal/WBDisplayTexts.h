#pragma once

#include "CATUnicodeString.h"

/// A server's warning as the user reads it: whole up to 1000 characters, else its beginning and its
/// error.
CATUnicodeString ShortenedWarning(const CATUnicodeString& warning);

/// The elements of a "|"-separated path up to the first empty one, last to first, each after a "|".
CATUnicodeString ReversedPath(const CATUnicodeString& path);
