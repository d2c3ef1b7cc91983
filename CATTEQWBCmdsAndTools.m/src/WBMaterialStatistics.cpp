#include "WBMaterialStatistics.h"

#include "WBFieldReader.h"

#include <cmath>
#include <functional>
#include <string_view>
#include <unordered_set>

namespace
{

struct Entry
{
    std::string_view name;
    int integer;
    double real;

    friend bool operator==(const Entry&, const Entry&) = default;
};

struct EntryHash
{
    std::size_t operator()(const Entry& entry) const
    {
        // The standard hash of a real gives 0.0 and -0.0, which are equal, the same value.
        std::size_t hash = std::hash<std::string_view>()(entry.name);
        hash = hash * 31 + std::hash<double>()(entry.real);
        return hash * 31 + std::hash<int>()(entry.integer);
    }
};

} // namespace

WBMaterialStatistics ReadMaterialStatistics(WBFieldReader& reader)
{
    WBMaterialStatistics statistics;
    const int announced = reader.LenientInt("Number of material statistics: ");
    for (int index = 0; reader.HasEntry(index, announced); ++index) {
        statistics.names.Append(reader.Text("Name: "));
    }
    reader.ReportKept("material statistics", announced, statistics.names.Size());
    if (statistics.names.Size() < announced) {
        // The entries that are missing are all alike, so one stands for them: it is what is left
        // of them once duplicates are gone.
        statistics.names.Append(CATUnicodeString());
    }
    const int count = statistics.names.Size();
    for (int index = 0; index < count; ++index) {
        statistics.integers.Append(reader.LenientInt("Integer: "));
        statistics.reals.Append(reader.LenientReal("Real: "));
    }
    reader.SkipTexts(count);
    return statistics;
}

WBMaterialStatistics WithoutDuplicates(const WBMaterialStatistics& statistics)
{
    WBMaterialStatistics kept;
    const int count = statistics.names.Size();
    std::unordered_set<Entry, EntryHash> seen;
    seen.reserve(static_cast<std::size_t>(count));
    for (int position = 1; position <= count; ++position) {
        const Entry entry{statistics.names[position].View(), statistics.integers[position],
                          statistics.reals[position]};
        // Entries that equal nothing, not even themselves, need not be looked up; in the set they
        // would all share one place and be compared with each other.
        if (std::isnan(entry.real) || seen.insert(entry).second) {
            kept.names.Append(statistics.names[position]);
            kept.reals.Append(entry.real);
            kept.integers.Append(entry.integer);
        }
    }
    return kept;
}
