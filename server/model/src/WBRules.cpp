#include "WBRules.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace wb
{
const MassType* FindMassType(const std::vector<MassType>& types, std::string_view name)
{
    const auto found = std::ranges::find(types, name, &MassType::name);
    return found == types.end() ? nullptr : &*found;
}

namespace
{
double Of(const DensityPair& pair, Dimension dimension)
{
    return dimension == Dimension::Volume ? pair.volumic : pair.surfacic;
}

/// The density for which a part's own sizes and inertia were stated: no use takes part in it.
double DensityOfPart(const DensityChoice& choice, Dimension dimension)
{
    return DensityInUse({{}, choice.part, {}, choice.partMaterial, choice.first}, dimension);
}

constexpr std::array kInertia{Fact::Ixx, Fact::Iyy, Fact::Izz, Fact::Ixy, Fact::Ixz, Fact::Iyz};
} // namespace

double DensityInUse(const DensityChoice& choice, Dimension dimension)
{
    std::array order{&choice.use, &choice.part, &choice.useMaterial, &choice.partMaterial};
    if (choice.first == CATENOWBCSCommonDefinitions::MaterialDensityFirst) {
        std::rotate(order.begin(), order.begin() + 2, order.end());
    }
    for (const DensityPair* pair : order) {
        if (IsKnown(Of(*pair, dimension))) {
            return Of(*pair, dimension);
        }
    }
    return kUnknown;
}

std::optional<Dimension> SizedBy(const ValueSet& set)
{
    if (set.Has(Fact::Mass)) {
        return std::nullopt;
    }
    if (set.Has(Fact::Volume)) {
        return Dimension::Volume;
    }
    return set.Has(Fact::Area) ? std::optional(Dimension::Surface) : std::nullopt;
}

ValueSet WithMass(const ValueSet& set, const DensityChoice& choice)
{
    ValueSet result = set;
    const auto dimension = SizedBy(set);
    if (!dimension) {
        return result;
    }
    const double size = set[*dimension == Dimension::Volume ? Fact::Volume : Fact::Area];
    const double density = DensityInUse(choice, *dimension);
    result[Fact::Mass] = size * density;
    const double stated = DensityOfPart(choice, *dimension);
    if (IsKnown(density) && IsKnown(stated) && density != stated) {
        for (const Fact fact : kInertia) {
            result[fact] = result[fact] * density / stated;
        }
    }
    return result;
}

ValueSet WithMassInUse(const ValueSet& set, const DensityChoice& choice)
{
    DensityChoice alone;
    alone.part = {DensityInUse(choice, Dimension::Volume),
                  DensityInUse(choice, Dimension::Surface)};
    return WithMass(set, alone);
}

ValueStatus StatusOf(const ValueSet* set)
{
    if (set == nullptr || !set->HasSomething()) {
        return CATENOWBCSCommonDefinitions::Empty;
    }
    return set->Has(Fact::Mass) ? CATENOWBCSCommonDefinitions::Assigned
                                : CATENOWBCSCommonDefinitions::PartiallyAssigned;
}

Deviations DeviationsOf(const ValueSet& set, const MassType& type)
{
    if (!set.Has(Fact::Mass)) {
        return {};
    }
    if (set.Has(Fact::Lower)) {
        return {set[Fact::Lower], set[Fact::Upper]};
    }
    const double mass = std::abs(set[Fact::Mass]);
    if (set.Has(Fact::LowerPct)) {
        return {mass * set[Fact::LowerPct] / 100.0, mass * set[Fact::UpperPct] / 100.0};
    }
    return {mass * type.lowerPct / 100.0, mass * type.upperPct / 100.0};
}

const ValueSet* NodeSets::Find(std::string_view massType) const
{
    const ValueSet* own = use == nullptr ? nullptr : FindSet(*use, massType);
    return own != nullptr ? own : FindSet(*part, massType);
}

std::string ActiveType(const NodeSets& sets, const std::string& useChoice,
                       const std::string& partChoice, bool isLeaf,
                       const std::vector<MassType>& types)
{
    if (!useChoice.empty()) {
        return useChoice;
    }
    const bool useHasSets = sets.use != nullptr && !sets.use->empty();
    if (!useHasSets && !partChoice.empty()) {
        return partChoice;
    }
    const MassType* highest = nullptr;
    for (const MassType& type : types) {
        const ValueSet* set = sets.Find(type.name);
        const bool counts = type.kind == MassType::Kind::Claim &&
                            StatusOf(set) != CATENOWBCSCommonDefinitions::Empty;
        if (isLeaf && counts && (highest == nullptr || highest->order < type.order)) {
            highest = &type;
        }
    }
    return highest == nullptr ? CATENOWBCSCommonDefinitions::Computed : highest->name;
}

const std::string& LastImposed(const Use* use, const Part& part)
{
    const bool useChooses = use != nullptr && (!use->activeType.empty() || !use->sets.empty());
    return useChooses ? use->Imposed() : part.Imposed();
}
} // namespace wb
