#include "ComputeUnits.h"

#include "CATCkeGlobalFunctions.h"

namespace
{
struct Row
{
    const char* magnitude;
    const char* storage;
    ComputeUnits::Unit ComputeUnits::*unit;
};

constexpr std::array kRows{
    Row{"MASS", "kg", &ComputeUnits::mass},
    Row{"LENGTH", "mm", &ComputeUnits::length},
    Row{"INERTIAMOMENT", "kg.m2", &ComputeUnits::inertia},
    Row{"DENSITY", "kg/m3", &ComputeUnits::density},
    Row{"SURFACICMASS", "kg/m2", &ComputeUnits::surfaceDensity},
};

double Same(double value)
{
    return value;
}

CATICkeMagnitude_var FindMagnitude(const Row& row)
{
    return CATCkeGlobalFunctions::GetParmDictionary()->FindMagnitude(row.magnitude);
}
} // namespace

ComputeUnits ComputeUnits::Storage()
{
    ComputeUnits units;
    for (const Row& row : kRows) {
        units.*row.unit = {row.storage, Same, Same};
    }
    return units;
}

ComputeUnits ComputeUnits::Current()
{
    // Whose unit files are missing still reads every figure, as it is stored.
    ComputeUnits units = Storage();
    for (const Row& row : kRows) {
        const CATICkeMagnitude_var magnitude = FindMagnitude(row);
        const CATICkeUnit_var unit = magnitude.IsNull() ? nullptr : magnitude->CurrentUnit();
        if (!unit.IsNull()) {
            units.*row.unit = {
                unit->Symbol().ToStdString(),
                [unit](double value) { return unit->FromStorage(value); },
                [unit](double value) { return unit->ToStorage(value); },
            };
        }
    }
    return units;
}

void UseStorageUnits()
{
    for (const Row& row : kRows) {
        const CATICkeMagnitude_var magnitude = FindMagnitude(row);
        if (!magnitude.IsNull()) {
            magnitude->UseUnit(row.storage);
        }
    }
}

wb::Body InUnits(const wb::Body& body, const ComputeUnits& units)
{
    wb::Body result;
    result.mass = units.mass.fromStorage(body.mass);
    result.lower = units.mass.fromStorage(body.lower);
    result.upper = units.mass.fromStorage(body.upper);
    for (std::size_t i = 0; i < body.centre.size(); ++i) {
        result.centre[i] = units.length.fromStorage(body.centre[i]);
    }
    for (std::size_t i = 0; i < body.inertia.size(); ++i) {
        result.inertia[i] = units.inertia.fromStorage(body.inertia[i]);
    }
    return result;
}
