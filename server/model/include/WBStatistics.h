#pragma once

#include "WBBody.h"
#include "WBRules.h"

#include <string>
#include <vector>

namespace wb
{
/// How many things were looked at and what they lack. Pieces are whole numbers; a product may hold
/// more of them than an integer can count.
struct Counts
{
    double leaves = 0.0; // where the walk stopped, in pieces; an imposed assembly is one
    double withoutMass = 0.0;
    double massWithoutCentre = 0.0;  // kg
    double massWithoutInertia = 0.0; // kg

    /// There is something, and none of it has a mass.
    bool IsWithoutAnyMass() const { return leaves > 0.0 && withoutMass == leaves; }
};

/// A total and what it was made from. Unknown figures are unknown, never 0.
struct Total
{
    Body body;
    Counts counts;

    bool HasMass() const { return IsKnown(body.mass); }
    bool HasCentre() const { return IsKnown(body.centre[0]); }
    bool HasInertia() const { return IsKnown(body.inertia[0]); }
    /// Something has no mass, so the total leaves it out.
    bool IsPartial() const { return counts.withoutMass > 0.0; }
};

struct MaterialShare
{
    std::string material; // "(no material)" of leaves, "(imposed)" of assemblies without one
    Dimension dimension = Dimension::Volume;
    double density = 0.0; // the one used; 0: none
    double mass = 0.0;    // kg
};

/// False where the name stands for what has no material.
bool IsOfMaterial(const MaterialShare& share);

struct NamedShare
{
    std::string name;
    double mass = 0.0; // kg
};

/// Deviations as the root of a sum of squares, each side by itself.
struct RootSumSquare
{
    Deviations together; // all uses of a part share its error, unless the part says otherwise
    Deviations apart;    // every piece has an error of its own
};

/// What a total is made of. Each of the three lists adds up to the total mass.
struct Statistics
{
    Counts counts;
    std::vector<MaterialShare> materials; // largest first, then by name
    std::vector<NamedShare> massTypes;    // the least mature first
    std::vector<NamedShare> codes;        // largest first; "(no code)" where nothing above has one
    double growthAllowance = 0.0;         // kg; predicted mass = total + allowance
    RootSumSquare rss;
};
} // namespace wb
