#pragma once

#include "CATUnicodeString.h"

/// The texts that go to and come from the PDM between a pick and a filled record. Pure functions.

/// What the object service and the picked path tell about the object whose values are asked for.
struct WBInstanceIdentity
{
    bool hasInstance = true;
    CATUnicodeString rootIdentifier;
    CATUnicodeString instance;
    CATUnicodeString part;
    CATUnicodeString version;
    CATUnicodeString countText; ///< how many names the path holds, as it travels
    bool hasPath = false;       ///< the count is above 0
    CATUnicodeString path;      ///< instance names, leaf side first, joined by "|"
    bool isLeaf = false;
};

/// The object service's input: who is meant by root, configuration and two fields.
CATUnicodeString WBObjectServiceInput(const CATUnicodeString& rootIdentifier,
                                      const CATUnicodeString& configuration,
                                      const CATUnicodeString& fieldA,
                                      const CATUnicodeString& fieldB);

/// Reads a record of the object service into `identity` (has-instance and root identifier stay):
/// leaf flag, instance, part, version, and the path with its count. False, after a diagnostic line,
/// when the record does not tell whether the object is a leaf or announces a longer path than it
/// holds.
bool WBReadObjectRecord(const CATUnicodeString& answer, WBInstanceIdentity& identity);

/// Replaces instance and path by what the picked path of a product says; `depth` counts root and
/// leaf.
void WBTakeProductPath(int depth, const CATUnicodeString& leafName, const CATUnicodeString& path,
                       WBInstanceIdentity& identity);

/// The request for the initial values.
CATUnicodeString WBInitialValuesRequest(const WBInstanceIdentity& identity);

/// The stream that fills a record: what the client knows itself, then the server's answer.
CATUnicodeString WBInitialValuesStream(const WBInstanceIdentity& identity,
                                       const CATUnicodeString& answer);
