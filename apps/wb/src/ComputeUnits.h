#pragma once

#include "WBBody.h"

#include <array>
#include <functional>
#include <string>

/// The units of one output, one for each kind of figure that a computation has.
struct ComputeUnits
{
    struct Unit
    {
        std::string symbol;
        std::function<double(double)> fromStorage;
        std::function<double(double)> toStorage;
    };

    Unit mass;
    Unit length;
    Unit inertia;
    Unit density;        // of a volume
    Unit surfaceDensity; // of a sheet

    /// kg, mm, kg.m2, kg/m3, kg/m2.
    static ComputeUnits Storage();
    /// The session's current ones.
    static ComputeUnits Current();
};

/// Makes the storage units the current ones of this session alone.
void UseStorageUnits();

/// The body's figures in other units; what is unknown stays so.
wb::Body InUnits(const wb::Body& body, const ComputeUnits& units);
