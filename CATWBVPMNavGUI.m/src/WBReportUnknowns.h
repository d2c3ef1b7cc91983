#pragma once

#include "CATIDOMDocument.h"

#include <vector>

/// Which figures a report's elements lack. Turning axes and moving the reference point write nine
/// figures on every element and reckon what is missing as 0: a part whose centre nobody knows would
/// get one.
class WBReportUnknowns
{
public:
    /// Looks at the report as the server made it.
    explicit WBReportUnknowns(const CATIDOMDocument_var& document);

    enum class Inertia
    {
        AtCentre,
        Moved ///< to a reference point, for which mass and centre must be known
    };
    /// Takes away again what was not known. A centre or an inertia of which a figure was missing
    /// counts as unknown as a whole: a turn mixes its figures.
    void Restore(const CATIDOMDocument_var& document, Inertia inertia) const;

private:
    struct Known
    {
        bool mass = false;
        bool centre = false;
        bool inertia = false;
    };
    std::vector<Known> m_known; // in the order of the walk
};
