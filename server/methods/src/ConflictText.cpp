#include "ConflictText.h"

#include "QuantityFields.h"
#include "ReportTime.h"
#include "Request.h"

#include "WBCompute.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace wb
{
namespace
{
struct UnitRow
{
    std::string_view quantity;
    const char* unit;
};

constexpr std::array kUnits{UnitRow{kMassQuantity, " kg"}, UnitRow{kCentreQuantity, " mm"},
                            UnitRow{kInertiaQuantity, " kg.m2"},
                            UnitRow{kDensityQuantity, " kg/m3"}};

/// "percent;1;2" as "1 and 2 %".
std::string Precision(const std::string& text)
{
    const std::size_t word = text.find(';');
    const std::size_t between = text.find(';', word + 1);
    return text.substr(word + 1, between - word - 1) + " and " + text.substr(between + 1) +
           (text.starts_with("percent") ? " %" : " kg");
}

/// "1;2;3" as "1; 2; 3".
std::string Listed(const std::string& numbers)
{
    std::string text;
    for (const char letter : numbers) {
        text += letter;
        if (letter == ';') {
            text += ' ';
        }
    }
    return text;
}

/// A value as people read it in a sentence.
std::string Value(const Quantity& quantity, const std::string& text)
{
    if (text.empty()) {
        return "nothing";
    }
    if (quantity.name == kPrecisionQuantity) {
        return Precision(text);
    }
    const auto row = std::ranges::find(kUnits, quantity.name, &UnitRow::quantity);
    return row == kUnits.end() ? ShownText(quantity.name, text) : Listed(text) + row->unit;
}

std::string Obstacle(const PendingState& change)
{
    if (change.isGone) {
        return "it is no longer there";
    }
    const std::string stored =
        change.stored == change.after ? "the same value" : Value(change.quantity, change.stored);
    return change.by.empty()
               ? stored + " is stored now"
               : WireName(change.by) + " saved " + stored + " on " + WireTime(change.at);
}
} // namespace

std::string ConflictText(const PendingState& change)
{
    return WithoutLineMark(change.subject + ", " + QuantityName(change.quantity) +
                           ": you changed " + Value(change.quantity, change.seen) + " to " +
                           Value(change.quantity, change.after) + ", but " + Obstacle(change));
}
} // namespace wb
