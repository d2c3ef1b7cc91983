#pragma once

#include "WBReportRequest.h"

#include <functional>
#include <optional>
#include <vector>

/// One line of a filter: an instance, and with it everything below it, is left in or left out. One
/// without names stands for the root itself.
struct WBFilterLine
{
    bool isIn = false;
    WBPickedInstance item;

    friend bool operator==(const WBFilterLine&, const WBFilterLine&) = default;
};

/// A filter as users define it. Lines apply in order and the last one that names an instance or
/// something above it wins; where none does, an instance is in, unless some line lets something in.
struct WBDefinedFilter
{
    CATUnicodeString name;
    std::vector<WBFilterLine> lines;

    friend bool operator==(const WBDefinedFilter&, const WBDefinedFilter&) = default;
};

/// Reads "n|name" and n lines of I or X, instance, part, version, a count and so many names;
/// nothing when the text is anything else.
std::optional<WBDefinedFilter> WBReadDefinedFilter(const CATUnicodeString& text);
/// The filter as it is stored and sent.
CATUnicodeString WBDefinedFilterText(const WBDefinedFilter& filter);

/// The names from below the root down to the instance.
std::vector<CATUnicodeString> WBNamesFromRoot(const WBPickedInstance& item);

/// What stands at a place of the product.
struct WBProductPlace
{
    enum class State
    {
        Unknown, ///< nobody could be asked
        Gone,
        There
    };
    State state = State::Unknown;
    CATUnicodeString part;
    CATUnicodeString version;
    CATUnicodeString partName; ///< as people say it
};
/// Tells what stands at a place, given by the names from below the root down.
using WBPlaceFinder = std::function<WBProductPlace(const std::vector<CATUnicodeString>& names)>;

/// Whether the product still holds what the line was made for. Taken for granted where nobody
/// knows.
bool WBIsThere(const WBPickedInstance& item, const WBProductPlace& place);
/// Whether the filter leaves in the instance or at least something below it, as servers see it: a
/// line whose instance the product does not hold any more names nothing.
bool WBLeavesIn(const WBDefinedFilter& filter, const WBPickedInstance& picked,
                const WBPlaceFinder& find);
