#include "WBDefinedFilter.h"

#include "PanelSession.h"

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

WBPickedInstance Item(const char* instance, std::vector<CATUnicodeString> path,
                      const char* part = "P")
{
    return {instance, part, "A", std::move(path)};
}

WBProductPlace There(const char* part = "P", const char* version = "A")
{
    return {WBProductPlace::State::There, part, version, {}};
}

WBProductPlace Everywhere(const std::vector<CATUnicodeString>&)
{
    return There();
}

/// What the filter of these lines, as they are stored, says of an instance of part P.
bool LeavesIn(const std::string& lines, const char* instance, std::vector<CATUnicodeString> path,
              const WBPlaceFinder& find = Everywhere)
{
    const std::optional<WBDefinedFilter> filter = WBReadDefinedFilter(lines);
    EXPECT_TRUE(filter.has_value()) << lines;
    return filter && WBLeavesIn(*filter, Item(instance, std::move(path)), find);
}

} // namespace

TEST(WBDefinedFilter, IsReadAndWrittenLineByLine)
{
    const CATUnicodeString text = "2|Without doors|X|DOR.1|DOR|B|2|FUS.2|FUS.1|I||LA1|A|0";
    const std::optional<WBDefinedFilter> filter = WBReadDefinedFilter(text);
    ASSERT_TRUE(filter.has_value());
    EXPECT_EQ(filter->name, "Without doors");
    ASSERT_EQ(filter->lines.size(), 2U);
    EXPECT_FALSE(filter->lines[0].isIn);
    EXPECT_EQ(filter->lines[0].item.instance, "DOR.1");
    EXPECT_EQ(filter->lines[0].item.part, "DOR");
    EXPECT_EQ(filter->lines[0].item.version, "B");
    EXPECT_THAT(filter->lines[0].item.path, ElementsAre("FUS.2", "FUS.1"));
    EXPECT_TRUE(filter->lines[1].isIn);
    EXPECT_EQ(filter->lines[1].item.instance, "");
    EXPECT_THAT(filter->lines[1].item.path, IsEmpty());
    EXPECT_EQ(WBDefinedFilterText(*filter), text);
}

TEST(WBDefinedFilter, MayHaveNoLinesYet)
{
    const std::optional<WBDefinedFilter> filter = WBReadDefinedFilter("0|Begun");
    ASSERT_TRUE(filter.has_value());
    EXPECT_EQ(filter->name, "Begun");
    EXPECT_THAT(filter->lines, IsEmpty());
    EXPECT_EQ(WBDefinedFilterText(*filter), "0|Begun");
}

TEST(WBDefinedFilter, AnyOtherTextIsNone)
{
    for (const char* text :
         {"", "1", "Begun", "0|", "0|Begun|", "-1|Begun", "1|Begun", "1|A|I|P.1|P|B|x",
          "1|A|in|P.1|P|B|0", "2|A|I|P.1|P|B|0", "1|A|I|P.1|P|B|0|X", "1|A|I|P.1|P|B|2|F.1"}) {
        EXPECT_FALSE(WBReadDefinedFilter(text).has_value()) << text;
    }
}

TEST(WBDefinedFilter, NamesRunFromTheRootDown)
{
    EXPECT_THAT(WBNamesFromRoot(Item("C.1", {"B.1", "A.1"})), ElementsAre("A.1", "B.1", "C.1"));
    EXPECT_THAT(WBNamesFromRoot(Item("", {})), IsEmpty());
}

TEST(WBDefinedFilter, WithoutLinesEverythingIsIn)
{
    EXPECT_TRUE(LeavesIn("0|None", "A.1", {}));
}

TEST(WBDefinedFilter, LineIsAboutItsInstanceAndEverythingBelow)
{
    const char* filter = "1|F|X|B.1|P|A|1|A.1";
    EXPECT_FALSE(LeavesIn(filter, "B.1", {"A.1"}));
    EXPECT_FALSE(LeavesIn(filter, "C.1", {"B.1", "A.1"}));
    EXPECT_TRUE(LeavesIn(filter, "A.1", {}));
    EXPECT_TRUE(LeavesIn(filter, "B.1", {})); // of that name elsewhere
    EXPECT_TRUE(LeavesIn(filter, "B.1", {"A.1", "A.1"}));
    EXPECT_TRUE(LeavesIn(filter, "B.12", {"A.1"}));
}

TEST(WBDefinedFilter, LineWithoutNamesIsAboutTheRoot)
{
    EXPECT_FALSE(LeavesIn("1|F|X||P|A|0", "A.1", {}));
    EXPECT_TRUE(LeavesIn("2|F|X||P|A|0|I|A.1|P|A|0", "A.1", {}));
}

TEST(WBDefinedFilter, LastLineThatMatchesWins)
{
    EXPECT_TRUE(LeavesIn("2|F|X|A.1|P|A|0|I|B.1|P|A|1|A.1", "B.1", {"A.1"}));
    EXPECT_FALSE(LeavesIn("2|F|I|B.1|P|A|1|A.1|X|A.1|P|A|0", "B.1", {"A.1"}));
    EXPECT_TRUE(LeavesIn("2|F|X|B.1|P|A|1|A.1|I|A.1|P|A|0", "B.1", {"A.1"}));
    EXPECT_FALSE(LeavesIn("3|F|I|A.1|P|A|0|I|B.1|P|A|1|A.1|X|B.1|P|A|1|A.1", "B.1", {"A.1"}));
}

TEST(WBDefinedFilter, WhereSomethingIsLetInTheRestIsOut)
{
    EXPECT_FALSE(LeavesIn("1|F|I|A.1|P|A|0", "B.1", {}));
    EXPECT_FALSE(LeavesIn("2|F|I|A.1|P|A|0|X|C.1|P|A|1|A.1", "B.1", {}));
    EXPECT_TRUE(LeavesIn("2|F|I|A.1|P|A|0|X|C.1|P|A|1|A.1", "D.1", {"A.1"}));
}

TEST(WBDefinedFilter, AssemblyIsInWithWhateverIsLeftInBelowIt)
{
    const char* filter = "1|F|I|C.1|P|A|2|B.1|A.1";
    EXPECT_TRUE(LeavesIn(filter, "A.1", {}));
    EXPECT_TRUE(LeavesIn(filter, "B.1", {"A.1"}));
    EXPECT_FALSE(LeavesIn(filter, "B.2", {"A.1"}));
    // What was let in first and taken out again is not there.
    EXPECT_FALSE(LeavesIn("2|F|I|C.1|P|A|1|A.1|X|A.1|P|A|0", "A.1", {}));
    EXPECT_TRUE(LeavesIn("2|F|X|A.1|P|A|0|I|C.1|P|A|1|A.1", "A.1", {}));
}

TEST(WBDefinedFilter, LineWhoseInstanceIsGoneOrReplacedNamesNothing)
{
    const WBPlaceFinder gone = [](const std::vector<CATUnicodeString>&) {
        return WBProductPlace{WBProductPlace::State::Gone, {}, {}, {}};
    };
    const WBPlaceFinder otherPart = [](const std::vector<CATUnicodeString>&) {
        return There("Q");
    };
    const WBPlaceFinder otherVersion = [](const std::vector<CATUnicodeString>&) {
        return There("P", "B");
    };
    const WBPlaceFinder unknown = [](const std::vector<CATUnicodeString>&) {
        return WBProductPlace();
    };
    for (const WBPlaceFinder& find : {gone, otherPart, otherVersion}) {
        EXPECT_TRUE(LeavesIn("1|F|X|A.1|P|A|0", "A.1", {}, find));
        EXPECT_TRUE(LeavesIn("1|F|X|A.1|P|A|0", "B.1", {"A.1"}, find));
        // Still, who names what shall be in does not get all the rest.
        EXPECT_FALSE(LeavesIn("1|F|I|A.1|P|A|0", "A.1", {}, find));
        EXPECT_FALSE(LeavesIn("1|F|I|B.1|P|A|1|A.1", "A.1", {}, find));
    }
    EXPECT_FALSE(LeavesIn("1|F|X|A.1|P|A|0", "A.1", {}, unknown));
    EXPECT_TRUE(LeavesIn("1|F|I|A.1|P|A|0", "A.1", {}, unknown));
}

TEST(WBDefinedFilter, InstanceIsThereAsThePartThatItWas)
{
    const WBPickedInstance item = Item("A.1", {});
    EXPECT_TRUE(WBIsThere(item, There()));
    EXPECT_FALSE(WBIsThere(item, There("Q")));
    EXPECT_FALSE(WBIsThere(item, There("P", "B")));
    EXPECT_TRUE(WBIsThere(item, {}));
}
