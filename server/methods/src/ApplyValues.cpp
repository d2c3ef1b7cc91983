#include "EditedPlace.h"
#include "Methods.h"
#include "QuantityFields.h"
#include "RecordText.h"
#include "Request.h"

#include "WBNumbers.h"
#include "WBTexts.h"

#include "CATENOWBCSCommonDefinitions.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <optional>
#include <set>
#include <utility>
#include <vector>

namespace wb
{
namespace
{
using Common = CATENOWBCSCommonDefinitions;

/// A quantity that a user has changed.
struct AskedChange
{
    OwnerKind kind = OwnerKind::Part;
    Quantity quantity;
    bool isStated = false;
    std::string_view seen;
};

/// A part and its use while values are put into them.
struct Owners
{
    Part part;
    Use use; // empty at a root

    std::string Text(const AskedChange& asked) const
    {
        return asked.kind == OwnerKind::Part ? QuantityText(part, asked.quantity)
                                             : QuantityText(use, asked.quantity);
    }
    std::string Set(const AskedChange& asked, std::string_view text, const Store& store)
    {
        return asked.kind == OwnerKind::Part
                   ? SetQuantity(part, asked.quantity, text, store)
                   : SetQuantity(use, part.type, asked.quantity, text, store);
    }
};

/// Where only one part is picked and no place, what a use could say belongs to the part.
bool BelongsToPart(const Quantity& quantity)
{
    return quantity.massType.empty() &&
           (quantity.name == kDensityQuantity || quantity.name == kMaterialQuantity);
}

OwnerKind ReadOwner(Request& request, const EditedPlace& place)
{
    const std::string_view owner = request.Any("owner");
    if (owner != Common::partRef && owner != Common::partInst) {
        throw RequestError("The field owner of the request holds \"" + std::string(owner) +
                           "\", expected PartRef or PartInst.");
    }
    if (owner == Common::partInst && !place.HasUse()) {
        throw RequestError("The field owner of the request holds \"PartInst\", but the root is no "
                           "instance.");
    }
    return owner == Common::partInst ? OwnerKind::Use : OwnerKind::Part;
}

AskedChange ReadChange(Request& request, const EditedPlace& place)
{
    AskedChange asked;
    asked.kind = ReadOwner(request, place);
    const std::string_view massType = request.Text("mass type");
    asked.quantity.massType = massType == "__null__" ? std::string_view() : massType;
    asked.quantity.name = request.Text("quantity");
    asked.isStated = request.Flag("stated");
    asked.seen = request.Any("seen text");
    asked.seen = asked.seen == "__null__" ? std::string_view() : asked.seen;
    if (place.hasInstance && BelongsToPart(asked.quantity)) {
        asked.kind = OwnerKind::Part;
    }
    return asked;
}

std::vector<AskedChange> ReadChanges(Request& request, const EditedPlace& place)
{
    std::vector<AskedChange> changes;
    std::set<std::pair<OwnerKind, Quantity>> named;
    const std::int64_t count = request.Count("quantity count");
    for (std::int64_t i = 0; i < count; ++i) {
        AskedChange asked = ReadChange(request, place);
        if (!named.emplace(asked.kind, asked.quantity).second) {
            throw RequestError("The field quantity of the request names " +
                               QuantityName(asked.quantity) + " of " + OwnerField(asked.kind) +
                               " twice.");
        }
        changes.push_back(std::move(asked));
    }
    return changes;
}

void CheckIsOf(const RecordText& record, const EditedPlace& place)
{
    const auto check = [](const char* field, std::string_view found, std::string_view expected) {
        if (found != expected) {
            throw RequestError(std::string("The field ") + field + " of the record holds \"" +
                               std::string(found) + "\", but the place says \"" +
                               std::string(expected) + "\".");
        }
    };
    check("has-instance", record.hasInstance ? "1" : "0", place.hasInstance ? "1" : "0");
    check("part", record.part, place.picked.Part().identifier);
    check("version", record.version, place.picked.Part().version);
}

std::string Joined(std::initializer_list<double> numbers)
{
    std::string text;
    for (const double number : numbers) {
        text += (text.empty() ? "" : ";") + WriteNumber(number);
    }
    return text;
}

using Text = std::optional<std::string>; // nothing: the record does not say

Text MassText(const RecordText::MassType& type)
{
    return type.values ? Text(WriteNumber(type.values->mass)) : std::nullopt;
}

Text CentreText(const RecordText::MassType& type)
{
    if (!type.values) {
        return std::nullopt;
    }
    const auto& [x, y, z] = type.values->centre;
    return Joined({x, y, z});
}

Text InertiaText(const RecordText::MassType& type)
{
    if (!type.values) {
        return std::nullopt;
    }
    const auto& [xx, yy, zz, xy, xz, yz] = type.values->inertia;
    return Joined({xx, yy, zz, xy, xz, yz});
}

Text PrecisionText(const RecordText::MassType& type)
{
    if (!type.precision) {
        return std::nullopt;
    }
    return (type.precision->isAbsolute ? "absolute;" : "percent;") +
           Joined({type.precision->lower, type.precision->upper});
}

struct SetRow
{
    std::string_view name;
    Text (*text)(const RecordText::MassType& type);
};

constexpr std::array kSetRows{SetRow{kMassQuantity, MassText}, SetRow{kCentreQuantity, CentreText},
                              SetRow{kInertiaQuantity, InertiaText},
                              SetRow{kPrecisionQuantity, PrecisionText}};

Text DensityText(const RecordText& record, const AskedChange&)
{
    return record.hasDensity ? Text(WriteNumber(record.density)) : std::nullopt;
}

/// A material that the record applies to something else says nothing of this owner.
Text MaterialText(const RecordText& record, const AskedChange& asked)
{
    const bool isOfOwner = record.hasInstance || record.appliedOn == OwnerField(asked.kind);
    return isOfOwner && !record.material.empty() ? Text(std::string(record.material))
                                                 : std::nullopt;
}

Text ActiveText(const RecordText& record, const AskedChange&)
{
    return record.activeType.empty() ? std::nullopt : Text(std::string(record.activeType));
}

Text OrderText(const RecordText& record, const AskedChange&)
{
    return record.materialFirst ? "material" : "wb";
}

struct OwnRow
{
    std::string_view name;
    Text (*text)(const RecordText& record, const AskedChange& asked);
};

constexpr std::array kOwnRows{
    OwnRow{kDensityQuantity, DensityText}, OwnRow{kMaterialQuantity, MaterialText},
    OwnRow{kActiveQuantity, ActiveText}, OwnRow{kDensityOrderQuantity, OrderText}};

Text PropertyText(const RecordText& record, const AskedChange& asked)
{
    const std::string_view name =
        std::string_view(asked.quantity.name).substr(kPropertyQuantity.size());
    const auto found =
        std::ranges::find_if(record.properties, [&](const RecordText::Property& property) {
            return property.name == name && property.ofUse == (asked.kind == OwnerKind::Use);
        });
    return found == record.properties.end() || found->value.empty()
               ? std::nullopt
               : Text(std::string(found->value));
}

/// What the record says of the quantity.
Text RecordedText(const RecordText& record, const AskedChange& asked)
{
    const auto find = [&](const auto& rows) {
        const auto found = std::ranges::find_if(
            rows, [&](const auto& row) { return row.name == asked.quantity.name; });
        return found == rows.end() ? nullptr : &*found;
    };
    if (asked.quantity.massType.empty()) {
        if (asked.quantity.name.starts_with(kPropertyQuantity)) {
            return PropertyText(record, asked);
        }
        const OwnRow* row = find(kOwnRows);
        return row == nullptr ? std::nullopt : row->text(record, asked);
    }
    const SetRow* row = find(kSetRows);
    const RecordText::MassType* type = record.Find(asked.quantity.massType);
    return row == nullptr || type == nullptr ? std::nullopt : row->text(*type);
}

/// The text that the quantity shall have. Computed as the active type means that nothing is
/// imposed, which is what an assembly has where nobody chose.
std::string WantedText(const RecordText& record, const AskedChange& asked, bool isLeaf)
{
    if (asked.quantity.massType == Common::Computed) {
        throw RequestError(
            "The field mass type of the request names \"Computed\", which nobody can "
            "state.");
    }
    if (!asked.isStated) {
        return {};
    }
    Text text = RecordedText(record, asked);
    if (!text) {
        throw RequestError("The field quantity of the request names " +
                           QuantityName(asked.quantity) + " of " + OwnerField(asked.kind) +
                           " as stated, but the record does not state it.");
    }
    const bool isComputed =
        asked.quantity == Quantity{"", std::string(kActiveQuantity)} && *text == Common::Computed;
    if (!isComputed) {
        return *std::move(text);
    }
    if (isLeaf) {
        throw RequestError("The field active mass type of the record holds \"Computed\", but "
                           "nothing stands below the part.");
    }
    return {};
}

/// What the user has pending of a quantity of the place, or null.
const PendingState* FindPending(const std::vector<PendingState>& pending,
                                const PendingChange& change)
{
    const auto found = std::ranges::find_if(pending, [&](const PendingState& state) {
        return state.kind == change.kind && state.quantity == change.quantity;
    });
    return found == pending.end() ? nullptr : &*found;
}

/// What the user saw, written as the database keeps it.
std::string SeenText(const Owners& stored, const AskedChange& asked, const Store& store)
{
    // What a file brought may be more than anybody could state here.
    if (asked.seen == stored.Text(asked)) {
        return std::string(asked.seen);
    }
    Owners shown = stored;
    const std::string problem = shown.Set(asked, asked.seen, store);
    if (!problem.empty()) {
        throw RequestError(
            "The field seen text of the request holds what nobody can have seen: " + problem + ".");
    }
    return shown.Text(asked);
}

/// Puts the changes into the part and the use as the user sees them, to learn whether they may be
/// and what they come to. Returns those that change something.
std::vector<PendingChange> MakeChanges(const MethodCall& call, const EditedPlace& place,
                                       const std::vector<AskedChange>& changes,
                                       const RecordText& record)
{
    const Store& store = call.store;
    Owners seen{store.ReadPart(place.PartRow()).part, {}};
    Owners stored{store.CommittedPart(place.PartRow()).part, {}};
    if (place.HasUse()) {
        seen.use = store.ReadUse(place.UseRow()).use;
        stored.use = store.CommittedUse(place.UseRow()).use;
    }
    const std::vector<PendingState> pending = place.PendingOf(store, call.context.user);
    Owners wanted = seen;
    std::vector<PendingChange> made;
    for (const AskedChange& asked : changes) {
        const std::string text = WantedText(record, asked, !place.picked.Part().hasUses);
        const std::string problem = wanted.Set(asked, text, store);
        if (!problem.empty()) {
            throw RequestError("The record cannot be applied: " + problem + ".");
        }
        PendingChange change;
        change.kind = asked.kind;
        change.owner = asked.kind == OwnerKind::Part ? place.PartRow() : place.UseRow();
        change.quantity = asked.quantity;
        change.after = wanted.Text(asked);
        change.seen = SeenText(stored, asked, store);
        if (change.after == stored.Text(asked)) {
            change.seen = change.after; // whatever he saw: what is stored needs no saving
        }
        const PendingState* before = FindPending(pending, change);
        const bool sawTheSame = before == nullptr || before->seen == change.seen;
        if (change.after != seen.Text(asked) || !sawTheSame) {
            made.push_back(std::move(change));
        }
    }
    return made;
}
} // namespace

std::string ApplyValues(const MethodCall& call, std::string_view text)
{
    if (FirstNonUtf8(text)) {
        throw RequestError("The request is not written in UTF-8.");
    }
    if (call.context.user.empty()) {
        throw RequestError("Values are changed by somebody, and the caller has no name.");
    }
    Request request(text);
    const EditedPlace place = ReadEditedPlace(call.store, request);
    const std::vector<AskedChange> changes = ReadChanges(request, place);
    const RecordText record = ReadRecord(request);
    CheckIsOf(record, place);
    const std::vector<PendingChange> made = MakeChanges(call, place, changes, record);
    call.store.PutPending(call.context.user, made);
    return "Apply|OK|" + std::to_string(made.size()) + "|";
}
} // namespace wb
