#pragma once

#include "CATUnicodeString.h"

class CATDialog;
class CATWBAllDataBuffer;

/// Reading a record anew from the server, for a panel that shows it already.

/// The request for the values of what the record is about.
CATUnicodeString WBInitialValuesRequest(const CATWBAllDataBuffer& record);

/// Fills the record with the server's present values, in place; whether it is a leaf, and where a
/// product instance stands, stay as they are. False, after a box of the window, when the server
/// does not say them: the record is then as it was. An answer that is no record raises the codec's
/// fatal error, and leaves the record as it was too.
bool WBReadAnew(CATDialog* window, CATWBAllDataBuffer& record);
