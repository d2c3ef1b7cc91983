#pragma once

#include "CATCollections.h"

class WBFieldReader;

/// Material statistics: parallel lists with one entry a material.
struct WBMaterialStatistics
{
    CATListValCATUnicodeString names;
    CATRawColldouble reals;
    CATRawCollint integers;
};

/// Reads the statistics' section of a stream: their number, the names, the pairs of integer and
/// real, and as many texts that nobody uses. Nothing in it is fatal: what is no number counts as 0.
WBMaterialStatistics ReadMaterialStatistics(WBFieldReader& reader);

/// Without the entries whose name, real and integer all equal those of an earlier one. 0.0 and -0.0
/// are equal; a real that is not a number equals nothing, so such entries all stay. Takes time in
/// proportion to the number of entries.
WBMaterialStatistics WithoutDuplicates(const WBMaterialStatistics& statistics);
