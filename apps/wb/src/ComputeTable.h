#pragma once

#include "ComputeReport.h"

#include <string>

/// A computation for people: what was asked, the totals, what they are made of, the warnings. Unit
/// symbols stand in the headings, unknown figures are "-".
std::string ComputeAsTable(const ComputeReport& report);

/// The first part of it: what was asked, in words.
std::string ComputeHeadText(const ComputeReport& report);

/// "381.35925 kg at 930.082, -3.070, -195.479 mm"
std::string ComputeInOneLine(const ComputeReport& report);

/// How many decimals the table gives to masses, lengths and inertias.
struct ComputeDecimals
{
    explicit ComputeDecimals(const ComputeReport& report);

    int mass = 0;    ///< eight digits of the total
    int length = 0;  ///< a thousandth of a millimetre
    int inertia = 0; ///< eight digits of the largest moment
};
