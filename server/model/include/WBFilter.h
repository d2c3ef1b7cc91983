#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace wb
{
/// Which parts of a product count. Lines apply in order and the last one that names a node or
/// something above it wins; where none does, a node is in, unless some line lets something in.
struct Filter
{
    struct Line
    {
        bool in = true;
        std::string instance; // empty: the root itself
        std::string part;
        std::string version;
        std::vector<std::string> path; // the instances above, leaf side first

        /// Instance names from below the root down to the node.
        std::vector<std::string> FromRoot() const;
    };

    std::string name;
    std::vector<Line> lines;

    bool IsEmpty() const { return lines.empty(); }
};

/// Reads a filter from a stream of fields: next answers the field that its argument names. Returns
/// an empty text, or why the fields hold no filter; then the filter is empty.
std::string ReadFilter(const std::function<std::string(const char* field)>& next, Filter& filter);

/// The same of a whole text, "0|No Filter" or "1|Name|X|INSTANCE|PART|A|0".
std::string ReadFilterText(std::string_view text, Filter& filter);
} // namespace wb
