#include "WBUnitDisplay.h"

#include "WBNumbers.h"

#include "CATNumberLocale.h"

#include <utility>

namespace
{

/// Takes out every occurrence, also one that only comes about when another goes.
void RemoveEvery(const CATUnicodeString& what, CATUnicodeString& text)
{
    while (!what.IsEmpty() && text.Contains(what)) {
        text.ReplaceAll(what, "");
    }
}

/// DefaultDecimals of the unit that was asked for last. Someone who rewrites single values asks
/// for the same unit again and again, and finding its decimals costs as much as the value itself.
/// The unit is held, so that no other can take its place in memory.
int RememberedDefaultDecimals(const CATICkeUnit_var& unit)
{
    struct Answer
    {
        CATICkeUnit_var unit;
        std::string separator;
        int decimals;
    };
    static Answer last{{}, {}, 0};
    const std::string_view separator = CATDecimalSeparator();
    if (!(last.unit == unit) || last.separator != separator) {
        last = {unit, std::string(separator), DefaultDecimals(*unit)};
    }
    return last.decimals;
}

/// Takes the next item off the front of a list; an empty one when nothing is left.
std::string_view TakeItem(std::string_view& list)
{
    const std::size_t end = list.find(';');
    const std::string_view item = list.substr(0, end);
    list.remove_prefix(end == std::string_view::npos ? list.size() : end + 1);
    return item;
}

/// Writes the items before the first empty one, each as `show` gives it.
template <class Show>
std::string ShownItems(std::string_view list, Show show)
{
    std::string shown;
    std::string_view between;
    std::string_view item = TakeItem(list);
    while (!item.empty()) {
        shown += between;
        shown += show(item).View();
        between = "; ";
        item = TakeItem(list);
    }
    return shown;
}

} // namespace

WBUnitPair UnitsFor(const CATICkeMagnitude& magnitude, WBUnitsTask task)
{
    const CATICkeUnit_var current = magnitude.CurrentUnit();
    return {current, task == WBUnitsTask::Convert ? magnitude.StorageUnit() : current};
}

int DefaultDecimals(const CATICkeUnit& unit)
{
    constexpr double kManyDecimals = 1.111111111111;
    CATUnicodeString shown = unit.Show(unit.ToStorage(kManyDecimals), 0);
    RemoveEvery(unit.Symbol(), shown);
    shown.ReplaceAll(shown.Contains("1.") ? "1." : "1,", "");
    return shown.Length();
}

WBUnitDisplay::WBUnitDisplay(WBUnitPair units, WBShowOptions options)
    : m_units(std::move(units)), m_options(options)
{}

WBShownValue WBUnitDisplay::Show(double value)
{
    if (!m_isPrepared) {
        Prepare();
    }
    WBShownValue shown{m_units.target->Show(m_units.source->ToStorage(value), m_options.decimals),
                       std::string_view::npos};
    if (!m_options.withSymbol) {
        // Nearly always the symbol stands once and at the end.
        const std::string_view text = shown.whole.View();
        const std::size_t found = text.find(m_symbol.View());
        if (found + m_symbol.ByteLength() == text.size()) {
            shown.end = found;
        } else {
            RemoveEvery(m_symbol, shown.whole);
        }
    }
    return shown;
}

WBShownValue WBUnitDisplay::ShowNumber(std::string_view text)
{
    double value = 0.0;
    ReadAnyReal(text, value);
    return Show(value);
}

WBShownValue WBUnitDisplay::ShowSessionNumber(std::string_view text)
{
    double value = 0.0;
    CATReadReal(text, value);
    return Show(value);
}

void WBUnitDisplay::Prepare()
{
    if (!m_options.withSymbol) {
        m_symbol = m_units.target->Symbol();
    }
    if (m_options.decimals < 0) {
        m_options.decimals = RememberedDefaultDecimals(m_units.target);
    }
    m_isPrepared = true;
}

std::optional<WBUnitDisplay> DisplayOf(const CATICkeMagnitude_var& magnitude, WBUnitsTask task,
                                       WBShowOptions options)
{
    const WBUnitPair units = magnitude.IsNull() ? WBUnitPair() : UnitsFor(*magnitude, task);
    return units.IsComplete() ? std::optional(WBUnitDisplay(units, options)) : std::nullopt;
}

std::string ShownList(std::string_view list, WBUnitDisplay& display)
{
    return ShownItems(list, [&display](std::string_view item) { return display.ShowNumber(item); });
}

std::string ShownBreakdown(std::string_view list, WBUnitDisplay& display)
{
    std::string shown;
    bool isLast = false;
    while (!isLast) {
        isLast = list.find(';') == std::string_view::npos;
        shown += display.ShowSessionNumber(TakeItem(list)).View();
        if (!isLast) {
            shown += ';';
        }
    }
    return shown;
}

std::string ShownDensities(std::string_view list, std::string_view dimensions,
                           WBUnitDisplay& volumic, WBUnitDisplay& surfacic,
                           WBMissingDimension missing)
{
    constexpr int kVolumic = 0;
    constexpr int kSurfacic = 2;
    int dimension = kVolumic;
    return ShownItems(list, [&](std::string_view item) {
        if (missing == WBMissingDimension::Volumic) {
            dimension = kVolumic;
        }
        CATReadInt(TakeItem(dimensions), dimension);
        return (dimension == kSurfacic ? surfacic : volumic).ShowNumber(item);
    });
}
