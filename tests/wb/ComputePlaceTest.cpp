#include "ComputePlace.h"

#include "WBKnown.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
/// R holds the wing "W" twice and the part "P/7" once; a wing holds a "spar/main" and a "rib".
wb::Product AProduct()
{
    wb::Product product;
    for (const char* identifier : {"R", "W", "P/7", "S", "B"}) {
        product.parts.emplace_back().identifier = identifier;
        product.parts.back().version = "A";
    }
    const auto use = [&](std::uint32_t parent, std::uint32_t part, const char* instance) {
        wb::Use& added = product.uses.emplace_back();
        added.parent = parent;
        added.part = part;
        added.instance = instance;
    };
    use(0, 1, "left");
    use(0, 1, "right");
    use(0, 2, "P/7.1");
    use(1, 3, "spar/main");
    use(1, 4, "rib");
    return product;
}

class ComputePlace : public testing::Test
{
protected:
    std::string Found(const std::string& below)
    {
        const auto path = FindComputeNode(graph, below, problem);
        return path ? PathText(graph, *path) : "nothing: " + problem;
    }
    /// The filter's lines as "I left/rib" or "X".
    std::vector<std::string> Lines(const std::vector<std::string>& included,
                                   const std::vector<std::string>& excluded)
    {
        const auto filter = FilterOfPaths(graph, included, excluded, problem);
        EXPECT_TRUE(filter) << problem;
        std::vector<std::string> lines;
        for (const wb::Filter::Line& line : filter.value_or(wb::Filter()).lines) {
            std::string& text = lines.emplace_back(line.in ? "I" : "X");
            for (const std::string& name : line.FromRoot()) {
                text += ' ' + name;
            }
            text += ": " + line.part + line.version;
        }
        return lines;
    }
    std::string FilterProblem(const std::vector<std::string>& included,
                              const std::vector<std::string>& excluded)
    {
        EXPECT_FALSE(FilterOfPaths(graph, included, excluded, problem));
        return problem;
    }

    wb::ProductGraph graph{AProduct(), wb::ShippedMassTypes()};
    std::string problem;
};
} // namespace

TEST_F(ComputePlace, NodesAreFoundByInstanceNames)
{
    EXPECT_EQ(Found(""), "R");
    EXPECT_EQ(Found("left"), "R/left");
    EXPECT_EQ(Found("right/rib"), "R/right/rib");
}

TEST_F(ComputePlace, NamesMayHoldASlash)
{
    EXPECT_EQ(Found("P/7.1"), "R/P/7.1");
    EXPECT_EQ(Found("right/spar/main"), "R/right/spar/main");
}

TEST_F(ComputePlace, SlashAtTheEndIsPassedOver)
{
    EXPECT_EQ(Found("left/"), "R/left");
}

TEST_F(ComputePlace, MissingStepIsNamedWithWhatThereIs)
{
    EXPECT_EQ(Found("left/ribb"),
              "nothing: \"R/left\" has no instance \"ribb\", expected one of rib, spar/main");
    EXPECT_EQ(Found("lft/rib"),
              "nothing: \"R\" has no instance \"lft\", expected one of left, right, P/7.1");
    EXPECT_EQ(Found("left/rib/x"),
              "nothing: \"R/left/rib\" has no instance \"x\": there is nothing below it");
}

TEST_F(ComputePlace, LeavingOutKeepsAllTheRest)
{
    EXPECT_THAT(Lines({}, {}), IsEmpty());
    EXPECT_THAT(Lines({}, {"R/left"}), ElementsAre("X left: WA"));
}

TEST_F(ComputePlace, LettingInLeavesOutAllTheRest)
{
    EXPECT_THAT(Lines({"R/left/rib"}, {}), ElementsAre("I left rib: BA"));
    EXPECT_THAT(Lines({"R/left"}, {"R/right"}), ElementsAre("I left: WA", "X right: WA"));
}

TEST_F(ComputePlace, LongerPathDecidesInWhateverOrderItIsGiven)
{
    EXPECT_THAT(Lines({"R/left"}, {"R/left/rib"}), ElementsAre("I left: WA", "X left rib: BA"));
    EXPECT_THAT(Lines({"R"}, {"R/left"}), ElementsAre("I: RA", "X left: WA"));
}

TEST_F(ComputePlace, LettingInBelowWhatIsLeftOutKeepsAllTheRest)
{
    EXPECT_THAT(Lines({"R/left/rib"}, {"R/left"}),
                ElementsAre("I: RA", "X left: WA", "I left rib: BA"));
}

TEST_F(ComputePlace, FilterPathsBeginWithTheProduct)
{
    EXPECT_EQ(FilterProblem({"left"}, {}),
              "--include: expected a path in the product, R/INSTANCE/INSTANCE, found \"left\"");
    EXPECT_EQ(FilterProblem({}, {"R/lft"}),
              "--exclude: \"R\" has no instance \"lft\", expected one of left, right, P/7.1");
    EXPECT_EQ(FilterProblem({"R/left"}, {"R/left/"}),
              "--include and --exclude both name \"R/left/\"");
}
