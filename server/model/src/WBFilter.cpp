#include "WBFilter.h"

#include "WBNumbers.h"

namespace wb
{
namespace
{
/// A count that no filter and no path reaches; beyond it the text is something else.
constexpr long long kMost = 1000000;

/// Puts a sentence into error unless one stands there already.
long long CountField(const std::function<std::string(const char*)>& next, const char* field,
                     std::string& error)
{
    const std::string text = next(field);
    const auto count = ReadInteger(text);
    if (count && *count >= 0 && *count <= kMost) {
        return *count;
    }
    if (error.empty()) {
        error = std::string("The field ") + field + " of the filter holds \"" + text +
                "\", expected a count.";
    }
    return 0;
}

Filter::Line ReadLine(const std::function<std::string(const char*)>& next, std::string& error)
{
    Filter::Line line;
    const std::string side = next("filter line");
    if (side != "I" && side != "X") {
        error = "The field filter line holds \"" + side + "\", expected I or X.";
        return line;
    }
    line.in = side == "I";
    line.instance = next("filter instance");
    line.part = next("filter part");
    line.version = next("filter version");
    const long long count = CountField(next, "filter path count", error);
    for (long long i = 0; i < count; ++i) {
        line.path.push_back(next("filter path"));
    }
    return line;
}
} // namespace

std::vector<std::string> Filter::Line::FromRoot() const
{
    std::vector<std::string> names(path.rbegin(), path.rend());
    if (!instance.empty()) {
        names.push_back(instance);
    }
    return names;
}

std::string ReadFilter(const std::function<std::string(const char* field)>& next, Filter& filter)
{
    filter = {};
    std::string error;
    const long long count = CountField(next, "filter line count", error);
    filter.name = next("filter name");
    for (long long i = 0; i < count && error.empty(); ++i) {
        filter.lines.push_back(ReadLine(next, error));
    }
    if (!error.empty()) {
        filter = {};
    }
    return error;
}

std::string ReadFilterText(std::string_view text, Filter& filter)
{
    bool missing = false;
    std::size_t start = 0;
    const auto next = [&](const char*) {
        if (start > text.size()) {
            missing = true;
            return std::string();
        }
        const std::size_t end = std::min(text.find('|', start), text.size());
        std::string field(text.substr(start, end - start));
        start = end + 1;
        return field;
    };
    std::string error = ReadFilter(next, filter);
    if (error.empty() && missing) {
        filter = {};
        error = "The filter ends before its last line.";
    }
    return error;
}
} // namespace wb
