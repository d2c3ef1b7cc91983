// Panel and server must agree on what a filter leaves in: their two rules, side by side.

#include "WBDefinedFilter.h"

#include "../server/RandomProduct.h"

#include <gmock/gmock.h>

namespace
{

using wbtest::RandomProduct;

WBPickedInstance PanelItem(const wb::Filter::Line& line)
{
    WBPickedInstance item{line.instance, line.part, line.version, {}};
    for (const std::string& name : line.path) {
        item.path.emplace_back(name);
    }
    return item;
}

WBDefinedFilter PanelFilter(const wb::Filter& filter)
{
    WBDefinedFilter same{filter.name, {}};
    for (const wb::Filter::Line& line : filter.lines) {
        same.lines.push_back({line.in, PanelItem(line)});
    }
    return same;
}

/// Lines that lead somewhere, and some that lead nowhere any more where that is asked for.
wb::Filter SomeFilter(RandomProduct& random, bool mayLeadNowhere)
{
    wb::Filter filter;
    filter.name = "Random";
    const std::size_t count = random.Below(6);
    for (std::size_t i = 0; i < count; ++i) {
        wb::Filter::Line line = random.SomeLine();
        if (mayLeadNowhere && random.Chance(0.15)) {
            line.version = "B";
        }
        if (mayLeadNowhere && !line.instance.empty() && random.Chance(0.15)) {
            line.instance += "x";
        }
        filter.lines.push_back(line);
    }
    return filter;
}

bool ServerLeavesIn(const wb::ProductGraph& graph, const std::vector<std::string>& names,
                    const wb::Filter& filter)
{
    wb::ComputeOptions options;
    options.filter = filter;
    const wb::ComputeResult result = wb::Compute(graph, *graph.FindPath(0, names), options);
    return std::ranges::find(result.warnings, "the filter leaves out what is asked") ==
           result.warnings.end();
}

WBProductPlace PlaceIn(const wb::ProductGraph& graph, const std::vector<CATUnicodeString>& names)
{
    std::vector<std::string> texts;
    for (const CATUnicodeString& name : names) {
        texts.push_back(name.ToStdString());
    }
    const auto path = graph.FindPath(0, texts);
    if (!path) {
        return {WBProductPlace::State::Gone, {}, {}, {}};
    }
    const std::uint32_t node = path->uses.empty() ? 0 : graph.UseAt(path->uses.back()).node;
    const wb::ProductGraph::PartRow& part = graph.PartOf(node);
    return {WBProductPlace::State::There, part.identifier, part.version, part.name};
}

/// Asks both about some places of random products, and counts the answers.
struct Counts
{
    int in = 0;
    int out = 0;
};

Counts CompareOnRandomProducts(bool knowsProduct)
{
    constexpr unsigned kProducts = 250;
    constexpr int kPlaces = 12;
    Counts counts;
    for (unsigned seed = 0; seed < kProducts; ++seed) {
        RandomProduct random(seed);
        const wb::ProductGraph graph(random.product, wb::ShippedMassTypes());
        const wb::Filter filter = SomeFilter(random, knowsProduct);
        const WBDefinedFilter panelFilter = PanelFilter(filter);
        const WBPlaceFinder find = [&](const std::vector<CATUnicodeString>& names) {
            return knowsProduct ? PlaceIn(graph, names) : WBProductPlace();
        };
        for (int place = 0; place < kPlaces; ++place) {
            const wb::Filter::Line asked = random.SomeLine();
            const bool isIn = ServerLeavesIn(graph, asked.FromRoot(), filter);
            EXPECT_EQ(WBLeavesIn(panelFilter, PanelItem(asked), find), isIn)
                << "seed " << seed << ": " << WBDefinedFilterText(panelFilter).View() << " at "
                << testing::PrintToString(asked.FromRoot());
            ++(isIn ? counts.in : counts.out);
        }
    }
    return counts;
}

} // namespace

TEST(WBFilterRule, LeavesInWhatTheServerLeavesIn)
{
    const Counts counts = CompareOnRandomProducts(true);
    EXPECT_GT(counts.in, 300);
    EXPECT_GT(counts.out, 300);
}

TEST(WBFilterRule, NeedsNoProductWhereAllLinesLeadSomewhere)
{
    const Counts counts = CompareOnRandomProducts(false);
    EXPECT_GT(counts.in, 300);
    EXPECT_GT(counts.out, 300);
}

TEST(WBFilterRule, ServerReadsTheTextThatThePanelWrites)
{
    for (unsigned seed = 0; seed < 100; ++seed) {
        RandomProduct random(seed);
        const wb::Filter filter = SomeFilter(random, true);
        const CATUnicodeString text = WBDefinedFilterText(PanelFilter(filter));
        wb::Filter read;
        EXPECT_EQ(wb::ReadFilterText(text.View(), read), "") << text.View();
        EXPECT_EQ(WBDefinedFilterText(PanelFilter(read)), text);
        EXPECT_EQ(read.lines.size(), filter.lines.size());
    }
}
