#include "WBChanges.h"

#include "WBPanelUnits.h"
#include "WBQuantityTexts.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace
{

constexpr std::string_view kMassType = "mass type ";

struct QuantityRow
{
    const char* name; // on the wire
    const char* key;
    const char* text;
    const char* magnitude; // of its numbers; null: they have none
};
constexpr std::array kQuantities{
    QuantityRow{kWBMassQuantity, "Quantity.Mass", "@mass", "MASS"},
    QuantityRow{kWBCentreQuantity, "Quantity.Centre", "@centre of gravity", "LENGTH"},
    QuantityRow{kWBInertiaQuantity, "Quantity.Inertia", "@inertia", "INERTIAMOMENT"},
    QuantityRow{kWBPrecisionQuantity, "Quantity.Precision", "@precision", nullptr},
    QuantityRow{kWBActiveQuantity, "Quantity.Active", "@active mass type", nullptr},
    QuantityRow{kWBDensityQuantity, "Quantity.Density", "@density", "DENSITY"},
    QuantityRow{kWBMaterialQuantity, "Quantity.Material", "@material", nullptr},
    QuantityRow{kWBDensityOrderQuantity, "Quantity.DensityOrder", "@which density counts first",
                nullptr}};

/// The fact taken apart; the mass type is empty where it is about the part or use itself.
struct Fact
{
    CATUnicodeString massType;
    std::string_view quantity;
};

Fact Parted(const CATUnicodeString& fact)
{
    const std::string_view text = fact.View();
    const std::size_t comma = text.rfind(", ");
    if (!text.starts_with(kMassType) || comma == std::string_view::npos) {
        return {{}, text};
    }
    return {text.substr(kMassType.size(), comma - kMassType.size()), text.substr(comma + 2)};
}

const QuantityRow* RowOf(std::string_view quantity)
{
    const auto* found = std::ranges::find_if(
        kQuantities, [quantity](const QuantityRow& row) { return quantity == row.name; });
    return found == kQuantities.end() ? nullptr : found;
}

CATUnicodeString QuantityText(std::string_view quantity)
{
    if (const QuantityRow* row = RowOf(quantity)) {
        return WBPanelText(row->key, row->text);
    }
    constexpr std::string_view kProperty = kWBPropertyQuantity;
    return quantity.starts_with(kProperty)
               ? WBPanelText("Quantity.Property", "@property /p1",
                             {CATUnicodeString(quantity.substr(kProperty.size()))})
               : CATUnicodeString(quantity);
}

/// The pieces in the current unit, the symbol behind the last one.
CATUnicodeString InUnits(const char* magnitude, const WBPieces& pieces)
{
    CATUnicodeString text;
    for (std::size_t index = 0; index < pieces.size(); ++index) {
        const std::optional<double> number = WBNumberOf(pieces[index]);
        const bool isLast = index + 1 == pieces.size();
        const CATUnicodeString shown = !number ? pieces[index]
                                               : (isLast ? WBValueWithUnit(magnitude, *number)
                                                         : WBNumberInUnit(magnitude, *number));
        text += index == 0 ? shown : "; " + shown;
    }
    return text;
}

CATUnicodeString PrecisionText(const CATUnicodeString& text)
{
    const WBPieces pieces = WBPiecesOf(kWBPrecisionQuantity, text);
    const std::optional<double> lower = WBNumberOf(pieces[1]);
    const std::optional<double> upper = WBNumberOf(pieces[2]);
    if (!lower || !upper) {
        return text;
    }
    WBPanelMassType precision;
    precision.hasPrecision = true;
    precision.isPrecisionAbsolute = pieces[0] == kWBAbsolute;
    precision.lowerPrecision = *lower;
    precision.upperPrecision = *upper;
    return WBPrecisionText(precision);
}

CATUnicodeString OrderText(const CATUnicodeString& text)
{
    WBPanelRecord record;
    record.isMaterialDensityFirst = text == kWBMaterialFirst;
    return WBReadMaterialFacts(record).priority;
}

CATUnicodeString WhatText(const CATUnicodeString& what)
{
    if (what == "import") {
        return WBPanelText("What.Import", "@import");
    }
    return what == "save" ? WBPanelText("What.Save", "@saved here") : what;
}

CATUnicodeString StateText(const CATPendingChange& change)
{
    if (!change.isInConflict) {
        return WBPanelText("Pending.Waits", "@waits to be saved");
    }
    if (change.by.IsEmpty()) {
        return WBPanelText("Pending.ConflictOfImport", "@cannot be saved: changed meanwhile");
    }
    return WBPanelText("Pending.Conflict", "@cannot be saved: /p1 saved another value on /p2",
                       {change.by, change.at});
}

WBPanelTable::Column TextColumn(const char* key, const char* title)
{
    return {WBPanelText(key, title), {}, false};
}

} // namespace

std::optional<std::vector<CATPendingChange>> WBReadPendingChanges(const CATUnicodeString& answer)
{
    CATWireFields fields(answer.View());
    std::vector<CATPendingChange> changes = CATReadPendingChanges(fields);
    return fields.IsSound() ? std::optional(std::move(changes)) : std::nullopt;
}

std::optional<std::vector<WBSavedChange>> WBReadHistory(const CATUnicodeString& answer)
{
    CATWireFields fields(answer.View());
    auto changes = fields.List<WBSavedChange>([&fields] {
        WBSavedChange change;
        for (CATUnicodeString* text :
             {&change.when, &change.who, &change.what, &change.file, &change.subject, &change.fact,
              &change.before, &change.after}) {
            *text = fields.Text();
        }
        return change;
    });
    fields.End();
    return fields.IsSound() ? std::optional(std::move(changes)) : std::nullopt;
}

CATUnicodeString WBSubjectText(const CATUnicodeString& subject)
{
    constexpr std::string_view kPart = "part ";
    constexpr std::string_view kUse = "use ";
    const std::string_view text = subject.View();
    if (text.starts_with(kPart)) {
        return WBPanelText("Subject.Part", "@part /p1",
                           {CATUnicodeString(text.substr(kPart.size()))});
    }
    return text.starts_with(kUse) ? WBPanelText("Subject.Use", "@use /p1",
                                                {CATUnicodeString(text.substr(kUse.size()))})
                                  : subject;
}

CATUnicodeString WBFactText(const CATUnicodeString& fact)
{
    const Fact parted = Parted(fact);
    const CATUnicodeString quantity = QuantityText(parted.quantity);
    return parted.massType.IsEmpty() ? quantity : parted.massType + ": " + quantity;
}

CATUnicodeString WBChangedText(const CATUnicodeString& fact, const CATUnicodeString& text)
{
    if (text.IsEmpty()) {
        return WBOrDash(text);
    }
    const CATUnicodeString quantity = Parted(fact).quantity;
    const QuantityRow* row = RowOf(quantity.View());
    if (row == nullptr || !WBIsTextOf(quantity, text)) {
        return text;
    }
    if (row->magnitude != nullptr) {
        return InUnits(row->magnitude, WBPiecesOf(quantity, text));
    }
    if (quantity == kWBPrecisionQuantity) {
        return PrecisionText(text);
    }
    return quantity == kWBDensityOrderQuantity ? OrderText(text) : text;
}

WBPanelTable WBPendingTable(const std::vector<CATPendingChange>& changes)
{
    WBPanelTable table;
    table.columns = {TextColumn("Changes.Subject.Title", "@Of"),
                     TextColumn("Changes.Fact.Title", "@Value"),
                     TextColumn("Pending.Seen.Title", "@Before"),
                     TextColumn("Pending.After.Title", "@Changed to"),
                     TextColumn("Pending.Stored.Title", "@Saved now"),
                     TextColumn("Pending.State.Title", "@State"),
                     TextColumn("Pending.When.Title", "@Changed")};
    for (const CATPendingChange& change : changes) {
        table.rows.push_back(
            {WBSubjectText(change.subject), WBFactText(change.fact),
             WBChangedText(change.fact, change.seen), WBChangedText(change.fact, change.after),
             WBChangedText(change.fact, change.stored), StateText(change), change.when});
    }
    return table;
}

WBPanelTable WBHistoryTable(const std::vector<WBSavedChange>& changes)
{
    WBPanelTable table;
    table.columns = {
        TextColumn("History.When.Title", "@When"),   TextColumn("History.Who.Title", "@Who"),
        TextColumn("Changes.Fact.Title", "@Value"),  TextColumn("History.Before.Title", "@Before"),
        TextColumn("History.After.Title", "@After"), TextColumn("Changes.Subject.Title", "@Of"),
        TextColumn("History.What.Title", "@How"),    TextColumn("History.File.Title", "@File")};
    for (const WBSavedChange& change : changes) {
        table.rows.push_back({change.when, change.who, WBFactText(change.fact),
                              WBChangedText(change.fact, change.before),
                              WBChangedText(change.fact, change.after),
                              WBSubjectText(change.subject), WhatText(change.what), change.file});
    }
    return table;
}

CATUnicodeString WBPendingWords(const std::vector<CATPendingChange>& changes)
{
    const auto conflicts = std::ranges::count_if(
        changes, [](const CATPendingChange& change) { return change.isInConflict; });
    if (changes.empty()) {
        return WBPanelText("Pending.WordsNone", "@You have no changes that are not saved.");
    }
    const CATUnicodeString all =
        changes.size() == 1
            ? WBPanelText("Pending.WordsOne", "@1 of your changes is not saved.")
            : WBPanelText("Pending.WordsMany", "@/p1 of your changes are not saved.",
                          {CATUnicodeString::FromInt(static_cast<int>(changes.size()))});
    return conflicts == 0
               ? all
               : all + " " +
                     WBPanelText("Pending.WordsConflicts",
                                 "@None can be saved while /p1 conflict.\nType the value that is "
                                 "right in its field and apply it, or discard your changes.",
                                 {CATUnicodeString::FromInt(static_cast<int>(conflicts))});
}
