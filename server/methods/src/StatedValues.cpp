#include "EditedPlace.h"
#include "Methods.h"
#include "QuantityFields.h"
#include "ReportTime.h"
#include "Request.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace wb
{
namespace
{
/// What one may state of a part or of its use.
struct OwnedQuantity
{
    OwnerKind kind = OwnerKind::Part;
    Quantity quantity;
};

/// A part and its use as the caller sees them.
struct Owners
{
    Part part;
    Use use; // empty at a root
    bool hasUse = false;
};

OwnerKind OwnerOfSet(const Owners& owners, const std::string& massType)
{
    return FindSet(owners.use.sets, massType) == nullptr ? OwnerKind::Part : OwnerKind::Use;
}

std::vector<OwnedQuantity> QuantitiesOf(const Owners& owners, const std::vector<MassType>& types)
{
    std::vector<OwnedQuantity> quantities;
    const auto add = [&](OwnerKind kind, const std::string& massType, std::string_view name) {
        quantities.push_back({kind, {massType, std::string(name)}});
    };
    for (const MassType& type : types) {
        for (const std::string_view name :
             {kMassQuantity, kCentreQuantity, kInertiaQuantity, kPrecisionQuantity}) {
            add(OwnerOfSet(owners, type.name), type.name, name);
        }
    }
    add(owners.use.sets.empty() ? OwnerKind::Part : OwnerKind::Use, "", kActiveQuantity);
    for (const std::string_view name : {kDensityQuantity, kMaterialQuantity}) {
        add(OwnerKind::Part, "", name);
        if (owners.hasUse) {
            add(OwnerKind::Use, "", name);
        }
    }
    add(OwnerKind::Part, "", kDensityOrderQuantity);
    for (const auto& [kind, properties] : {std::pair{OwnerKind::Part, &owners.part.properties},
                                           {OwnerKind::Use, &owners.use.properties}}) {
        for (const Property& property : *properties) {
            add(kind, "", std::string(kPropertyQuantity) + property.name);
        }
    }
    return quantities;
}

/// Adds one quantity: what the caller sees and what is stored.
void AddQuantity(AnswerText& answer, const OwnedQuantity& owned, const Owners& owners,
                 const std::vector<PendingState>& pending)
{
    const bool ofPart = owned.kind == OwnerKind::Part;
    const Property* property =
        FindProperty(ofPart ? owners.part.properties : owners.use.properties, owned.quantity);
    const auto state = std::ranges::find_if(pending, [&](const PendingState& candidate) {
        return candidate.kind == owned.kind && candidate.quantity == owned.quantity;
    });
    const bool isPending = state != pending.end();
    const std::string text = ofPart ? QuantityText(owners.part, owned.quantity)
                                    : QuantityText(owners.use, owned.quantity);
    answer.Add(OwnerField(owned.kind))
        .Add(owned.quantity.massType)
        .Add(owned.quantity.name)
        .Add(ShownText(property, text))
        .Add(ShownText(property, isPending ? state->stored : text))
        .Add(isPending)
        .Add(isPending && state->conflicts)
        .Add(isPending ? WireName(state->by) : std::string())
        .Add(isPending ? WireTime(state->at) : std::string());
}
} // namespace

std::string GetStatedValues(const MethodCall& call, std::string_view text)
{
    const Store& store = call.store;
    Request request(text);
    const EditedPlace place = ReadEditedPlace(store, request);
    request.End();
    // One moment, so that what is pending and what is stored fit each other.
    const StoreMoment moment(store);
    Owners owners{store.ReadPart(place.PartRow()).part, {}, place.HasUse()};
    if (owners.hasUse) {
        owners.use = store.ReadUse(place.UseRow()).use;
    }
    const PartPlaces places = store.PlacesOf(place.PartRow(), place.picked.root.id);
    const std::vector<std::string> materials = store.MaterialNames();
    const std::vector<OwnedQuantity> quantities = QuantitiesOf(owners, store.MassTypes());
    const std::vector<PendingState> pending = place.PendingOf(store, call.context.user);
    AnswerText answer;
    answer.Add(owners.part.ShownName())
        .Add(!place.picked.Part().hasUses)
        .Add(owners.part.standard == Answer::Yes)
        .Add(places.inRoot)
        .Add(places.otherRoots);
    answer.Add(materials.size());
    for (const std::string& material : materials) {
        answer.Add(material);
    }
    answer.Add(!owners.use.sets.empty()).Add(store.PendingNumber(call.context.user));
    answer.Add(quantities.size());
    for (const OwnedQuantity& owned : quantities) {
        AddQuantity(answer, owned, owners, pending);
    }
    return answer.Take();
}
} // namespace wb
