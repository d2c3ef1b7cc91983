#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace wb
{
/// One unit of a magnitude. A typed value becomes a stored one by
/// typed * numerator / denominator + offset; numerator and denominator are exact whole numbers
/// (the degree alone has none), so that 1 in is 25.4 mm to the last digit.
struct Unit
{
    const char* symbol;
    double numerator;
    double denominator;
    double offset = 0.0;
};

/// What is measured, with its storage unit first.
struct Magnitude
{
    const char* name;
    std::span<const Unit> units;
};

/// All magnitudes that tables may use: those of the fixed columns and those of properties.
std::span<const Magnitude> Magnitudes();

/// The magnitude of that name in any letter case, or null.
const Magnitude* FindMagnitude(std::string_view name);

/// The unit of that symbol, letter for letter ("mg" is not "Mg"), or null.
const Unit* FindUnit(const Magnitude& magnitude, std::string_view symbol);

/// Every magnitude that has a unit of that symbol.
std::vector<const Magnitude*> MagnitudesOfUnit(std::string_view symbol);

/// "mm, cm, m": the symbols of a magnitude, for messages.
std::string UnitList(const Magnitude& magnitude);

/// A typed value in the storage unit of its magnitude.
double ToStorage(const Unit& unit, double typed);
} // namespace wb
