#include "WBMaterialStatistics.h"

#include "ModuleSession.h"

#include <rapidcheck.h>

#include <chrono>
#include <cmath>
#include <limits>
#include <string>
#include <tuple>
#include <vector>

namespace
{

using Entry = std::tuple<std::string, double, int>;

WBMaterialStatistics Statistics(const std::vector<Entry>& entries)
{
    WBMaterialStatistics statistics;
    for (const auto& [name, real, integer] : entries) {
        statistics.names.Append(name);
        statistics.reals.Append(real);
        statistics.integers.Append(integer);
    }
    return statistics;
}

std::vector<Entry> Entries(const WBMaterialStatistics& statistics)
{
    std::vector<Entry> entries;
    for (int position = 1; position <= statistics.names.Size(); ++position) {
        entries.emplace_back(statistics.names[position].ToStdString(), statistics.reals[position],
                             statistics.integers[position]);
    }
    return entries;
}

/// The rule itself, by comparing every entry with every later one.
std::vector<Entry> ByComparingAll(std::vector<Entry> entries)
{
    for (std::size_t first = 0; first < entries.size(); ++first) {
        for (std::size_t later = first + 1; later < entries.size();) {
            if (entries[first] == entries[later]) {
                entries.erase(entries.begin() + static_cast<std::ptrdiff_t>(later));
            } else {
                ++later;
            }
        }
    }
    return entries;
}

TEST(WithoutDuplicates, FirstOfEqualEntriesStaysInItsPlace)
{
    EXPECT_EQ(
        Entries(WithoutDuplicates(Statistics({{"a", 1, 3},
                                              {"b", 1, 3},
                                              {"a", 1, 3},
                                              {"a", 2, 3},
                                              {"a", 1, 2},
                                              {"a", 1, 3},
                                              {"b", 1, 3},
                                              {"A", 1, 3}}))),
        (std::vector<Entry>{{"a", 1, 3}, {"b", 1, 3}, {"a", 2, 3}, {"a", 1, 2}, {"A", 1, 3}}));
}

TEST(WithoutDuplicates, RunsOfDuplicatesAllGo)
{
    EXPECT_EQ(Entries(WithoutDuplicates(Statistics(std::vector<Entry>(5, Entry{"a", 1, 3})))),
              (std::vector<Entry>{{"a", 1, 3}}));
}

TEST(WithoutDuplicates, ZeroEqualsMinusZero)
{
    const auto kept = Entries(WithoutDuplicates(Statistics({{"a", -0.0, 3}, {"a", 0.0, 3}})));
    ASSERT_EQ(kept.size(), 1U);
    EXPECT_TRUE(std::signbit(std::get<1>(kept[0])));
}

TEST(WithoutDuplicates, RealThatIsNoNumberEqualsNothing)
{
    const double none = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(WithoutDuplicates(Statistics({{"a", none, 3}, {"a", none, 3}})).names.Size(), 2);
}

TEST(WithoutDuplicates, NothingStaysNothing)
{
    EXPECT_TRUE(WithoutDuplicates({}).names.IsEmpty());
}

TEST(WithoutDuplicates, AgreesWithComparingAll)
{
    EXPECT_TRUE(rc::check([](const std::vector<std::tuple<bool, bool, bool>>& choices) {
        std::vector<Entry> entries;
        for (const auto& [name, real, integer] : choices) {
            entries.emplace_back(name ? "a" : "b", real ? 1.0 : 2.0, integer ? 2 : 3);
        }
        RC_ASSERT(Entries(WithoutDuplicates(Statistics(entries))) == ByComparingAll(entries));
    }));
}

TEST(WithoutDuplicates, ManyEntriesThatEqualNothingDoNotTakeForever)
{
    // Comparing each of these with each other would take minutes.
    const double none = std::numeric_limits<double>::quiet_NaN();
    const auto begin = std::chrono::steady_clock::now();
    const std::vector<Entry> entries(200000, Entry{"a", none, 3});
    EXPECT_EQ(WithoutDuplicates(Statistics(entries)).names.Size(), 200000);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(20));
}

} // namespace
