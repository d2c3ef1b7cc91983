#include "ReportRequest.h"

#include "Request.h"
#include "WBTexts.h"

#include <algorithm>
#include <array>

namespace wb
{
namespace
{
constexpr std::string_view kAll = "*";

/// More names or path elements than any request holds; a larger count is a mistake and not worth
/// the memory.
constexpr std::int64_t kMost = 10000;

struct ValueRow
{
    const char* name;
    bool ReportRequest::Values::*wanted;
};
constexpr std::array kValues{ValueRow{"Deviations", &ReportRequest::Values::deviations},
                             ValueRow{"Centre", &ReportRequest::Values::centre},
                             ValueRow{"Inertia", &ReportRequest::Values::inertia},
                             ValueRow{"Density", &ReportRequest::Values::density},
                             ValueRow{"Materials", &ReportRequest::Values::materials},
                             ValueRow{"Volume", &ReportRequest::Values::volume},
                             ValueRow{"Types", &ReportRequest::Values::types},
                             ValueRow{"Date", &ReportRequest::Values::date}};

[[noreturn]] void ThrowUnexpected(const char* field, std::string_view found,
                                  const std::string& expected)
{
    throw RequestError(std::string("The field ") + field + " of the request holds \"" +
                       std::string(found) + "\", expected " + expected + ".");
}

std::int64_t CountUpTo(Request& request, const char* field, std::int64_t most)
{
    const std::int64_t count = request.Count(field);
    if (count > most) {
        ThrowUnexpected(field, std::to_string(count),
                        "a whole number from 0 to " + std::to_string(most));
    }
    return count;
}

std::vector<std::string_view> ReadNames(Request& request, const char* countField, const char* field)
{
    std::vector<std::string_view> names;
    const std::int64_t count = CountUpTo(request, countField, kMost);
    for (std::int64_t i = 0; i < count; ++i) {
        names.push_back(request.Text(field));
    }
    return names;
}

ReportRequest::Pick ReadPick(Request& request)
{
    ReportRequest::Pick pick;
    pick.instance = request.Any("instance");
    pick.part = request.Any("part");
    pick.version = request.Any("version");
    const std::int64_t count = CountUpTo(request, "path count", kMost);
    for (std::int64_t i = 0; i < count; ++i) {
        pick.path.push_back(request.Text("path"));
    }
    return pick;
}

bool IsAll(const std::vector<std::string_view>& names)
{
    return names.size() == 1 && names.front() == kAll;
}

ReportRequest::Values ValuesOf(const std::vector<std::string_view>& names)
{
    ReportRequest::Values values;
    if (IsAll(names)) {
        for (const ValueRow& row : kValues) {
            values.*row.wanted = true;
        }
        return values;
    }
    for (const std::string_view name : names) {
        const auto row = std::ranges::find(kValues, name, &ValueRow::name);
        if (row == kValues.end()) {
            std::string expected = "one of ";
            for (const ValueRow& known : kValues) {
                expected.append(known.name).append(", ");
            }
            ThrowUnexpected("value", name, expected + "or \"*\" alone");
        }
        values.*row->wanted = true;
    }
    return values;
}

std::vector<std::string> PropertiesOf(const Store& store,
                                      const std::vector<std::string_view>& names)
{
    if (names.empty()) {
        return {};
    }
    std::vector<std::string> known = store.PropertyNames();
    // A database that is older than a name of the report may hold a property of that name. Two
    // attributes of one name would be no XML.
    std::erase_if(known, [](const std::string& name) { return IsReportName(name); });
    if (IsAll(names)) {
        return known;
    }
    std::vector<std::string> properties;
    for (const std::string_view name : names) {
        if (std::ranges::find(known, name) == known.end()) {
            throw RequestError("The field property of the request names \"" + std::string(name) +
                               "\", which is no property of the database.");
        }
        if (std::ranges::find(properties, name) == properties.end()) {
            properties.emplace_back(name);
        }
    }
    return properties;
}
} // namespace

ReportRequest ReadReportRequest(const Store& store, std::string_view text)
{
    Request request(text);
    ReportRequest result;
    result.kind = static_cast<ReportRequest::Kind>(CountUpTo(request, "kind", 2));
    result.ofInstances = request.Flag("statistics of part instances");
    const std::int64_t picks = request.Count("pick count");
    for (std::int64_t i = 0; i < picks; ++i) {
        result.picks.push_back(ReadPick(request));
    }
    result.values = ValuesOf(ReadNames(request, "value count", "value"));
    result.properties = PropertiesOf(store, ReadNames(request, "property count", "property"));
    result.computation = ReadComputationRequest(request.Rest());
    return result;
}
} // namespace wb
