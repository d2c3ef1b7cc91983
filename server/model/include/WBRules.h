#pragma once

#include "WBProduct.h"

#include "CATENOWBCSCommonDefinitions.h"

#include <optional>
#include <string>
#include <vector>

namespace wb
{
using ValueStatus = CATENOWBCSCommonDefinitions::ValueStatus;
using DensityPriority = CATENOWBCSCommonDefinitions::DensityPriority;

/// The mass type of that name, or null.
const MassType* FindMassType(const std::vector<MassType>& types, std::string_view name);

/// A density of a volume (kg/m3) or of a surface (kg/m2); either may be unknown.
struct DensityPair
{
    double volumic = kUnknown;
    double surfacic = kUnknown;
};

/// Every density that has a say where a part is used. Without a use its two stay unknown.
struct DensityChoice
{
    DensityPair use;
    DensityPair part;
    DensityPair useMaterial;
    DensityPair partMaterial;
    DensityPriority first = CATENOWBCSCommonDefinitions::WBDensityFirst;
};

enum class Dimension
{
    Surface = 2,
    Volume = 3
};

/// The density that counts. W&B density first: that of the use, of the part, of the use's material,
/// of the part's material; material first: the two of the materials go before the other two.
double DensityInUse(const DensityChoice& choice, Dimension dimension);

/// Whether the set's mass follows from a volume or an area; nothing where a mass is stated or where
/// no size is. A volume goes before an area.
std::optional<Dimension> SizedBy(const ValueSet& set);

/// A part's set with its mass: the stated one, or size times density. The inertia of a sized set
/// was stated for the density of the part itself; a use whose density differs scales it along.
ValueSet WithMass(const ValueSet& set, const DensityChoice& choice);

/// The same of a set that one use has of its own: its inertia was stated for the density that
/// counts there, so it stays as it is.
ValueSet WithMassInUse(const ValueSet& set, const DensityChoice& choice);

/// What is there: assigned with a mass, partially assigned with anything else, empty with nothing.
ValueStatus StatusOf(const ValueSet* set);

/// How far the true mass may lie below and above, both without sign.
struct Deviations
{
    double lower = 0.0;
    double upper = 0.0;
};

/// As typed in kg, or a percentage of the mass, or the mass type's default percentage. A set
/// without mass has none.
Deviations DeviationsOf(const ValueSet& set, const MassType& type);

/// The sets of one node: what the use says of itself stands before what the part says.
struct NodeSets
{
    const std::vector<ValueSet>* use = nullptr; // null at a root
    const std::vector<ValueSet>* part = nullptr;

    const ValueSet* Find(std::string_view massType) const;
};

/// The mass type that counts: the chosen one; else "Computed" for an assembly, and for a leaf the
/// claim of highest order that is there ("Computed" when there is none). A use with sets of its own
/// has a choice of its own. A goal never counts.
std::string ActiveType(const NodeSets& sets, const std::string& useChoice,
                       const std::string& partChoice, bool isLeaf,
                       const std::vector<MassType>& types);

/// The mass type that somebody made active last, also where the choice was taken back since; empty
/// where nobody did. A use with sets of its own has a choice of its own. use: null at a root.
const std::string& LastImposed(const Use* use, const Part& part);
} // namespace wb
