#pragma once

#include "WBUnitDisplay.h"

#include "CATCollections.h"
#include "CATIDOMDocument.h"

/// Whole report documents in the user's units. A null document raises the null-handle error; one
/// without a document element stays as it is.

/// Converts the values of a report from storage to current units and writes the symbols of the
/// units on the document element.
void ConvertReport(const CATIDOMDocument_var& document, WBShowOptions options);

/// Shows a converted report anew. `magnitudeAttributes` names the "__magnitude__" attributes of
/// its part instances.
void DisplayReport(const CATIDOMDocument_var& document,
                   const CATListValCATUnicodeString& magnitudeAttributes, WBShowOptions options);

/// The same of a distributive report, whose elements all have the same attributes and no
/// properties of users.
void ConvertDistributiveReport(const CATIDOMDocument_var& document, WBShowOptions options);
void DisplayDistributiveReport(const CATIDOMDocument_var& document, WBShowOptions options);
