#include "WBDefinedFilter.h"

#include "CATWBToken.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <string_view>
#include <utility>

namespace
{

constexpr std::string_view kIn = "I";
constexpr std::string_view kOut = "X";

/// A count as it is written in filters; -1 for any other text.
int Count(std::string_view text)
{
    int count = -1;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), count);
    return error == std::errc() && end == text.data() + text.size() ? count : -1;
}

std::optional<WBFilterLine> ReadLine(CATWBToken& fields)
{
    const std::string_view way = fields.NextView();
    if (way != kIn && way != kOut) {
        return std::nullopt;
    }
    WBFilterLine line;
    line.isIn = way == kIn;
    line.item.instance = fields.NextString();
    line.item.part = fields.NextString();
    line.item.version = fields.NextString();
    const int names = Count(fields.NextView());
    for (int index = 0; index < names; ++index) {
        CATUnicodeString name = fields.NextString();
        if (name.IsEmpty()) { // also where the text has ended: a count is not believed
            return std::nullopt;
        }
        line.item.path.push_back(std::move(name));
    }
    return names < 0 ? std::nullopt : std::optional(std::move(line));
}

void AppendField(std::string& text, const CATUnicodeString& field)
{
    text += "|";
    text += field.View();
}

using Names = std::vector<CATUnicodeString>;

bool StandsAtOrAbove(const Names& upper, const Names& lower)
{
    return upper.size() <= lower.size() && std::equal(upper.begin(), upper.end(), lower.begin());
}

/// One question of a filter: what counts at some places of the product.
class FilterRule
{
public:
    FilterRule(const WBDefinedFilter& filter, const WBPlaceFinder& find)
        : m_filter(filter), m_find(find)
    {
        for (const WBFilterLine& line : filter.lines) {
            m_names.push_back(WBNamesFromRoot(line.item));
            // A line counts here even when its instance is gone: who names what shall be in does
            // not get all the rest because a part was replaced.
            m_isInByDefault = m_isInByDefault && !line.isIn;
        }
    }

    bool IsIn(const Names& names) const
    {
        for (std::size_t index = m_names.size(); index-- > 0;) {
            if (StandsAtOrAbove(m_names[index], names) && NamesSomething(index)) {
                return m_filter.lines[index].isIn;
            }
        }
        return m_isInByDefault;
    }
    /// What is left in below something that is out begins at a line that says so.
    bool IsSomethingInBelow(const Names& names) const
    {
        for (std::size_t index = 0; index < m_names.size(); ++index) {
            if (m_filter.lines[index].isIn && m_names[index].size() > names.size() &&
                StandsAtOrAbove(names, m_names[index]) && NamesSomething(index) &&
                IsIn(m_names[index])) {
                return true;
            }
        }
        return false;
    }

private:
    bool NamesSomething(std::size_t index) const
    {
        return WBIsThere(m_filter.lines[index].item, m_find(m_names[index]));
    }

    const WBDefinedFilter& m_filter;
    const WBPlaceFinder& m_find;
    std::vector<Names> m_names; // of each line
    bool m_isInByDefault = true;
};

} // namespace

std::optional<WBDefinedFilter> WBReadDefinedFilter(const CATUnicodeString& text)
{
    CATWBToken fields(text);
    const int lines = Count(fields.NextView());
    WBDefinedFilter filter;
    filter.name = fields.NextString();
    if (lines < 0 || filter.name.IsEmpty()) {
        return std::nullopt;
    }
    for (int index = 0; index < lines; ++index) {
        std::optional<WBFilterLine> line = ReadLine(fields);
        if (!line) {
            return std::nullopt;
        }
        filter.lines.push_back(std::move(*line));
    }
    // A "|" at the end would leave an empty field behind the filter in every request.
    if (!fields.IsAtEnd() || text.View().back() == '|') {
        return std::nullopt;
    }
    return filter;
}

CATUnicodeString WBDefinedFilterText(const WBDefinedFilter& filter)
{
    std::string text = std::to_string(filter.lines.size());
    AppendField(text, filter.name);
    for (const WBFilterLine& line : filter.lines) {
        text += "|";
        text += line.isIn ? kIn : kOut;
        AppendField(text, line.item.instance);
        AppendField(text, line.item.part);
        AppendField(text, line.item.version);
        text += "|" + std::to_string(line.item.path.size());
        for (const CATUnicodeString& name : line.item.path) {
            AppendField(text, name);
        }
    }
    return text;
}

std::vector<CATUnicodeString> WBNamesFromRoot(const WBPickedInstance& item)
{
    std::vector<CATUnicodeString> names(item.path.rbegin(), item.path.rend());
    if (!item.instance.IsEmpty()) {
        names.push_back(item.instance);
    }
    return names;
}

bool WBIsThere(const WBPickedInstance& item, const WBProductPlace& place)
{
    switch (place.state) {
    case WBProductPlace::State::Unknown:
        return true;
    case WBProductPlace::State::Gone:
        return false;
    case WBProductPlace::State::There:
        break;
    }
    return place.part == item.part && place.version == item.version;
}

bool WBLeavesIn(const WBDefinedFilter& filter, const WBPickedInstance& picked,
                const WBPlaceFinder& find)
{
    const FilterRule rule(filter, find);
    const Names names = WBNamesFromRoot(picked);
    return rule.IsIn(names) || rule.IsSomethingInBelow(names);
}
