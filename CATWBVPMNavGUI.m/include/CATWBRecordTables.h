#pragma once

#include "CATCollections.h"
#include "CATUnicodeString.h"

#include <vector>

/// A record as plain tables, for programs that print it: numbers in storage units, as "%.15g" with
/// "." whatever the locale.
struct CATWBRecordCell
{
    enum class Kind
    {
        Unknown,
        Text,
        Number,
        Flag
    };
    Kind kind = Kind::Unknown;
    CATUnicodeString text; ///< of a flag "true" or "false"
};
struct CATWBRecordTable
{
    CATUnicodeString name; ///< "mass_types"
    bool isList = false;   ///< any number of rows; else exactly one
    CATListValCATUnicodeString columns;
    std::vector<std::vector<CATWBRecordCell>> rows;
};
