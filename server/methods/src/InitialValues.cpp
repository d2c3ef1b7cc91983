#include "Computations.h"
#include "MaterialStatistics.h"
#include "Methods.h"
#include "PartComputation.h"
#include "PickedNode.h"
#include "Request.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace wb
{
namespace
{
using Common = CATENOWBCSCommonDefinitions;

void AddDocuments(AnswerText& answer, const Part& part)
{
    const auto find = [&](auto member) {
        const auto found = std::ranges::find_if(
            part.documents, [&](const DocumentRevision& revision) { return (revision.*member)(); });
        return found == part.documents.end() ? nullptr : &*found;
    };
    const DocumentRevision* active = find(&DocumentRevision::IsActive);
    const DocumentRevision* attached = find(&DocumentRevision::IsAttached);
    constexpr int kOldRevisionsUsable = 1;
    constexpr int kLatestRevision = 0;
    constexpr int kMayBePersisted = 1;
    answer.Add(kOldRevisionsUsable).Add(kLatestRevision).Add(kMayBePersisted);
    answer.Add(active == nullptr ? "0" : active->document)
        .Add(active == nullptr ? std::string() : active->version)
        .Add(attached == nullptr ? std::string() : attached->version)
        .Add(active != nullptr && active != attached);
    answer.Add(part.documents.size());
    for (const DocumentRevision& revision : part.documents) {
        answer.Add(revision.version)
            .Add(WireDate(revision.checkinDate))
            .Add(revision.checkinUser)
            .Add(revision.checkoutUser)
            .Add(revision.massType)
            .Add(revision.mass);
    }
}

void AddValues(AnswerText& answer, const ValueSet& set, const MassType& type)
{
    const Deviations deviations = DeviationsOf(set, type);
    AddBody(answer, {set[Fact::Mass],
                     deviations.lower,
                     deviations.upper,
                     {set[Fact::CgX], set[Fact::CgY], set[Fact::CgZ]},
                     {set[Fact::Ixx], set[Fact::Iyy], set[Fact::Izz], set[Fact::Ixy],
                      set[Fact::Ixz], set[Fact::Iyz]}});
}

void AddPrecision(AnswerText& answer, const ValueSet& set)
{
    if (set.Has(Fact::Lower)) {
        answer.Add(Common::PrecisionDefined)
            .Add(Common::Absolute)
            .Add(set[Fact::Lower])
            .Add(set[Fact::Upper]);
    } else if (set.Has(Fact::LowerPct)) {
        answer.Add(Common::PrecisionDefined)
            .Add(Common::Percentage)
            .Add(set[Fact::LowerPct])
            .Add(set[Fact::UpperPct]);
    } else {
        answer.Add(Common::NoPrecision);
    }
}

/// Nobody states a precision of what is derived, and it has no default.
void AddComputed(AnswerText& answer, const Node& node, const KeptComputed* below)
{
    const bool hasMass = below != nullptr && below->total.HasMass();
    answer.Add(Common::Computed).Add(hasMass ? Common::Assigned : Common::Empty);
    if (hasMass) {
        AddBody(answer, below->total.body);
    }
    answer.Add(Common::NoPrecision);
    if (hasMass) {
        answer.Add(node.part.standard == Answer::Yes);
    }
    answer.Add(0.0).Add(0.0);
}

void AddMassTypes(AnswerText& answer, const Node& node, const KeptComputed* below)
{
    answer.Add(node.types.size() + 1);
    AddComputed(answer, node, below);
    for (const MassType& type : node.types) {
        const ValueSet set = node.CompleteSet(type.name);
        const ValueStatus status = StatusOf(&set);
        answer.Add(type.name).Add(status);
        if (status == Common::Assigned) {
            AddValues(answer, set, type);
        }
        AddPrecision(answer, set);
        if (status == Common::Assigned) {
            answer.Add(node.part.standard == Answer::Yes);
        }
        answer.Add(type.lowerPct).Add(type.upperPct);
    }
}

/// The density that the record shows: of the dimension in which the active values are sized, else
/// of whatever dimension there is.
struct ShownDensity
{
    double value = kUnknown;
    Dimension dimension = Dimension::Volume;
};

ShownDensity DensityOf(const Node& node, const DensityChoice& choice)
{
    const ValueSet* active = node.Sets().Find(node.activeType);
    const bool surfaceAlone = !IsKnown(DensityInUse(choice, Dimension::Volume)) &&
                              IsKnown(DensityInUse(choice, Dimension::Surface));
    const Dimension wanted = (active == nullptr ? std::nullopt : SizedBy(*active))
                                 .value_or(surfaceAlone ? Dimension::Surface : Dimension::Volume);
    return {DensityInUse(choice, wanted), wanted};
}

/// Of a leaf: assigned with a density, partially assigned with a material that has none. Of an
/// assembly: whether all, some or none of the leaves below have one.
ValueStatus DensityStatus(const Node& node, double density, const std::string& material)
{
    if (node.IsLeaf()) {
        if (IsKnown(density)) {
            return Common::Assigned;
        }
        return material.empty() ? Common::Empty : Common::PartiallyAssigned;
    }
    const DensityCount count = node.store.CountDensities(node.picked.Part().id);
    if (count.with == 0) {
        return Common::Empty;
    }
    return count.without == 0 ? Common::Assigned : Common::PartiallyAssigned;
}

void AddDensity(AnswerText& answer, const Node& node, bool hasInstance)
{
    const double density = DensityOf(node, node.densities).value;
    const ValueStatus status = DensityStatus(node, density, node.MaterialName());
    const bool assigned = status == Common::Assigned;
    answer.Add(status).Add(density);
    if (assigned) {
        answer.Add(node.MaterialName());
    }
    if (hasInstance) {
        return;
    }
    const bool ofUse =
        !node.use.material.empty() || IsKnown(node.use.density) || IsKnown(node.use.surfaceDensity);
    if (assigned) {
        answer.Add(ofUse ? Common::partInst : Common::partRef);
    }
    const DensityChoice ofPart{
        {}, node.densities.part, {}, node.densities.partMaterial, node.densities.first};
    const double partDensity = DensityOf(node, ofPart).value;
    const ValueStatus partStatus = DensityStatus(node, partDensity, node.part.material);
    answer.Add(partStatus).Add(partDensity);
    if (partStatus == Common::Assigned) {
        answer.Add(node.part.material);
    }
}

/// What an assembly's sum is made of; of a leaf one entry where its active values have a mass. The
/// shares add up to that mass.
std::vector<MaterialShare> StatisticsOf(const Node& node, const KeptComputed* below)
{
    if (below != nullptr) {
        return below->statistics.materials;
    }
    const ValueSet set = node.CompleteSet(node.activeType);
    if (!set.Has(Fact::Mass)) {
        return {};
    }
    if (node.MaterialName().empty()) {
        return {{"(no material)", Dimension::Volume, 0.0, set[Fact::Mass]}};
    }
    const ShownDensity density = DensityOf(node, node.densities);
    return {{node.MaterialName(), density.dimension, density.value, set[Fact::Mass]}};
}

void AddProperties(AnswerText& answer, const Node& node)
{
    answer.Add(node.part.properties.size() + node.use.properties.size());
    const auto add = [&](const std::vector<Property>& properties, const char* owner) {
        for (const Property& property : properties) {
            answer.Add(property.name)
                .Add(static_cast<int>(property.type))
                .Add(property.isDate)
                .Add(owner)
                .Add(property.isDate ? WireDate(property.value) : property.value)
                .Add(property.magnitude);
        }
    };
    add(node.part.properties, "Part");
    add(node.use.properties, "Instance");
}
} // namespace

std::string GetInitialValues(const MethodCall& call, std::string_view text)
{
    Request request(text);
    const bool hasInstance = request.Flag("has-instance");
    // Clients end the flag with its own separator; the empty field tells their requests from
    // others.
    request.Empty("2");
    const PickedPart picked = FindPicked(call.store, request);
    const Node node = ReadNode(call.store, picked);
    std::optional<KeptComputed> kept; // of a leaf nothing is derived before somebody asks for it
    if (!node.IsLeaf()) {
        kept = call.computations.ComputedBelow(picked, call.context);
    }
    const KeptComputed* below = kept ? &*kept : nullptr;

    AnswerText answer;
    AddDocuments(answer, node.part);
    AddMassTypes(answer, node, below);
    constexpr int kUseRevisions = 1;
    answer.Add(kUseRevisions).Add(node.activeType).Add(LastImposed(&node.use, node.part));
    AddDensity(answer, node, hasInstance);
    // Nothing stands below a leaf that could have changed.
    answer.Add(below == nullptr || below->upToDate).Add(static_cast<int>(node.densities.first));
    AddMaterialStatistics(answer, StatisticsOf(node, below));
    for (const double coefficient : Coefficients(picked.placement)) {
        answer.Add(coefficient);
    }
    AddProperties(answer, node);
    return answer.Take();
}
} // namespace wb
