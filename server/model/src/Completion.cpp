#include "Completion.h"

#include <string_view>

namespace wb
{
namespace
{
/// Calls offer(body, lender) for each body that may lend, until one does.
template <typename Offer>
void AskLenders(const Claim& claim, std::span<const Claim> claims, const Body* below,
                const std::vector<MassType>& types, const Offer& offer)
{
    const int calculated = CalculatedOrder(types);
    bool sumAsked = below == nullptr;
    for (const Claim& lender : claims) {
        const MassType& type = types[lender.type];
        if (type.kind == MassType::Kind::Goal) {
            continue;
        }
        if (!sumAsked && type.order <= calculated) {
            sumAsked = true;
            if (offer(*below, kSumBelow)) {
                return;
            }
        }
        if (lender.type != claim.type &&
            offer(lender.body, static_cast<std::int16_t>(lender.type))) {
            return;
        }
    }
    if (!sumAsked) {
        offer(*below, kSumBelow);
    }
}
} // namespace

std::string LenderName(std::int16_t lender, const std::vector<MassType>& types)
{
    if (lender == kNobody) {
        return {};
    }
    return lender == kSumBelow ? CATENOWBCSCommonDefinitions::Computed
                               : types[static_cast<std::size_t>(lender)].name;
}

int CalculatedOrder(const std::vector<MassType>& types)
{
    constexpr std::string_view kCalculated = "Calculated";
    constexpr int kShippedOrder = 20; // of a table that has no type of that name
    const MassType* type = FindMassType(types, kCalculated);
    return type == nullptr ? kShippedOrder : type->order;
}

Completed Complete(const Claim& claim, std::span<const Claim> claims, const Body* below,
                   const std::vector<MassType>& types)
{
    Completed completed;
    Body& body = completed.body;
    body = claim.body;
    if (!claim.HasCentre()) {
        AskLenders(claim, claims, below, types, [&](const Body& lender, std::int16_t who) {
            if (!IsKnown(lender.centre[0])) {
                return false;
            }
            body.centre = lender.centre;
            completed.centreLender = who;
            return true;
        });
    }
    if (!claim.HasInertia()) {
        AskLenders(claim, claims, below, types, [&](const Body& lender, std::int16_t who) {
            if (!IsKnown(lender.inertia[0]) || !IsKnown(lender.mass) || lender.mass == 0.0) {
                return false;
            }
            body.inertia = lender.inertia;
            for (double& term : body.inertia) {
                term *= body.mass / lender.mass;
            }
            completed.inertiaLender = who;
            return true;
        });
    }
    return completed;
}
} // namespace wb
