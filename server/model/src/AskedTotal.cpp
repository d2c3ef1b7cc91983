#include "AskedTotal.h"

#include "CATENOWBCSCommonDefinitions.h"

namespace wb
{
std::string RuleOf(const ProductGraph& graph, const ComputeOptions& options, WalkRule& rule)
{
    rule.orActive = options.orActive;
    switch (options.precision) {
    case ComputeOptions::Precision::Active:
        rule = {};
        return {};
    case ComputeOptions::Precision::MostPrecise:
        rule.precision = WalkRule::Precision::MostPrecise;
        return {};
    case ComputeOptions::Precision::Specified:
        break;
    }
    if (options.massType == CATENOWBCSCommonDefinitions::Computed) {
        rule.precision = WalkRule::Precision::Computed;
        return {};
    }
    rule.precision = WalkRule::Precision::Specified;
    rule.type = graph.FindType(options.massType);
    return rule.type < 0 ? "The mass type \"" + options.massType + "\" is not known." : "";
}

Body KnownTotal(const Walk& walk, std::uint32_t number, const Counts& counts)
{
    Body body = walk.Total(number);
    const NodeResult& result = walk.At(number);
    if (counts.IsWithoutAnyMass()) {
        body.mass = kUnknown;
    }
    if (result.noInertia) { // of own values alone: a sum takes its leaves for points
        body.inertia.fill(kUnknown);
    }
    return WithoutRests(body);
}
} // namespace wb
