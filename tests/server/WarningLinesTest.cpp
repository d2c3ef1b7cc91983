#include "ComputeTesting.h"

using namespace wb;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using wbtest::SmallProduct;

namespace
{
constexpr wbtest::Facts kPoint{{Fact::Mass, 1}, {Fact::CgX, 0}, {Fact::CgY, 0}, {Fact::CgZ, 0},
                               {Fact::Ixx, 1},  {Fact::Iyy, 1}, {Fact::Izz, 1}, {Fact::Ixy, 0},
                               {Fact::Ixz, 0},  {Fact::Iyz, 0}};

/// R with one leaf of every trouble and two imposed assemblies.
SmallProduct Troubled()
{
    SmallProduct small;
    small.Put("R", "noInertia");
    small.Put("R", "noCentre");
    small.Put("R", "off");
    small.Put("R", "cut");
    small.Put("R", "bad");
    small.Put("R", "noMass").quantity = 2;
    small.Put("off", "good");
    small.Put("cut", "good");
    small.Put("cut", "good");
    small.Set("noInertia", "Weighed",
              {{Fact::Mass, 1}, {Fact::CgX, 0}, {Fact::CgY, 0}, {Fact::CgZ, 0}});
    small.Set("noCentre", "Weighed", kPoint);
    small.Of("noCentre").sets[0][Fact::CgX] = kUnknown;
    small.Set("good", "Weighed", kPoint);
    small.Set("bad", "Weighed", kPoint);
    small.Of("bad").sets[0][Fact::Izz] = 4;
    for (const char* imposed : {"off", "cut"}) {
        small.Set(imposed, "Weighed", kPoint);
        small.Of(imposed).sets[0][Fact::Mass] = 9;
        small.Of(imposed).activeType = "Weighed";
    }
    return small;
}

ComputeOptions Filtered(const std::string& text)
{
    ComputeOptions options;
    EXPECT_EQ(ReadFilterText(text, options.filter), "");
    return options;
}
} // namespace

TEST(WarningLines, WorstEffectComesFirst)
{
    const auto result = Troubled().Compute(Filtered("1|F|X|good.2|good|A|1|cut.1"));
    EXPECT_THAT(result.warnings,
                ElementsAre("the filter \"F\" leaves out 1 of 8 items",
                            "2 of 7 items have no mass; the total leaves them out",
                            "1 kg without centre of gravity stand at the centre of the rest",
                            "1 kg without inertia count as points", "noMass A has no mass",
                            "bad A has a largest principal moment above the sum of the other two",
                            "the values of cut A do not count: the filter leaves out something "
                            "below it",
                            "off A states 9 kg, below it stand 1 kg",
                            "noCentre A has no centre of gravity", "noInertia A has no inertia"));
}

TEST(WarningLines, NothingButItsNumberIsSaidOfWhatTheFilterLeavesOut)
{
    // Of noInertia, noCentre, off's one, cut's two, bad and two pieces of noMass one is left.
    const auto result = Troubled().Compute(Filtered("1|F|I|good.1|good|A|1|off.1"));
    EXPECT_EQ(result.total.body.mass, 9);
    EXPECT_THAT(result.warnings, ElementsAre("the filter \"F\" leaves out 7 of 8 items",
                                             "off A states 9 kg, below it stand 1 kg"));
}

TEST(WarningLines, FilterThatLeavesOutNothingSaysSo)
{
    SmallProduct small;
    small.Put("R", "P").quantity = 3;
    small.Set("P", "Weighed", kPoint);
    const auto first = [&](const std::string& filter, const std::vector<std::string>& place = {}) {
        return small.Compute(Filtered(filter), place).warnings.at(0);
    };
    EXPECT_EQ(first("1|All - of it|I|P.1|P|A|0"),
              "the filter \"All -of it\" leaves out none of 3 items");
    EXPECT_EQ(first("1|F|I|P.1|P|A|0", {"P.1"}), "the filter \"F\" leaves out none of 1 item");
    EXPECT_THAT(small.Compute(Filtered("0|No Filter")).warnings, ElementsAre());
}

TEST(WarningLines, ItemsThatAFilterLeavesOutArePiecesWhateverStandsForThem)
{
    // Two pieces of A with three of P each, and one Q; A says it all, but not where P is cut.
    SmallProduct small;
    small.Put("R", "A").quantity = 2;
    small.Put("R", "Q");
    small.Put("A", "P").quantity = 3;
    small.Put("A", "P");
    for (const char* part : {"P", "Q", "A"}) {
        small.Set(part, "Weighed", kPoint);
    }
    small.Of("A").activeType = "Weighed";
    EXPECT_EQ(small.Compute(Filtered("1|F|X|Q.1|Q|A|0")).warnings.at(0),
              "the filter \"F\" leaves out 1 of 9 items");
    EXPECT_EQ(small.Compute(Filtered("1|F|X|P.1|P|A|1|A.1")).warnings.at(0),
              "the filter \"F\" leaves out 6 of 9 items");
    EXPECT_EQ(small.Compute(Filtered("2|F|X|P.1|P|A|1|A.1|X|P.2|P|A|1|A.1"), {"A.1"}).leftOut->of,
              4);
}

TEST(WarningLines, WhatIsUnknownIsNamedBeforeWhatIsLeftOut)
{
    SmallProduct small;
    small.Put("R", "P");
    small.Put("R", "Q");
    const auto result = small.Compute(Filtered("1|F|X|Q.1|Q|A|0"));
    EXPECT_EQ(result.warnings.at(0), "unknown, and sent as 0: mass, centre of gravity and inertia");
    EXPECT_EQ(result.warnings.at(1), "the filter \"F\" leaves out 1 of 2 items");
    EXPECT_EQ(result.warnings.at(2), "1 of 1 item has no mass; the total leaves it out");
}

TEST(WarningLines, PartByItselfKnowsNoFilter)
{
    SmallProduct small;
    small.Put("R", "P");
    small.Set("P", "Weighed", kPoint);
    ComputeOptions options = Filtered("1|F|X|P.1|P|A|0");
    options.asked = ComputeOptions::Asked::Alone;
    EXPECT_THAT(small.Compute(options, {"P.1"}).warnings, ElementsAre());
}

TEST(WarningLines, NothingIsSaidOfWhatStandsBelowImposedValues)
{
    SmallProduct small;
    small.Put("A", "noMass");
    small.Set("A", "Weighed", kPoint);
    small.Of("A").activeType = "Weighed";
    small.Of("noMass");
    EXPECT_THAT(small.Compute().warnings, ElementsAre());
}

TEST(WarningLines, OneOfTwoThingsIsSaidInTheSingular)
{
    SmallProduct small;
    small.Put("R", "L");
    small.Put("R", "M");
    small.Set("L", "Weighed", kPoint);
    EXPECT_EQ(small.Compute().warnings.at(0), "1 of 2 items has no mass; the total leaves it out");
    small.Put("R", "M");
    EXPECT_EQ(small.Compute().warnings.at(0),
              "2 of 3 items have no mass; the total leaves them out");
}

TEST(WarningLines, UnknownFiguresOfTheTotalAreNamedBeforeAllElse)
{
    SmallProduct small;
    small.Put("R", "L");
    small.Set("L", "Weighed", {{Fact::Mass, 1}});
    EXPECT_EQ(small.Compute({}, {"L.1"}).warnings.at(0),
              "unknown, and sent as 0: centre of gravity and inertia");
    small.Of("L").sets[0] = SmallProduct::Made(
        "Weighed", {{Fact::Mass, 1}, {Fact::CgX, 0}, {Fact::CgY, 0}, {Fact::CgZ, 0}});
    EXPECT_EQ(small.Compute({}, {"L.1"}).warnings.at(0), "unknown, and sent as 0: inertia");
    small.Of("L").sets[0] = SmallProduct::Made("Weighed", kPoint);
    EXPECT_THAT(small.Compute({}, {"L.1"}).warnings, ElementsAre());
}

TEST(WarningLines, NoNameEverBeginsALineOfItsOwn)
{
    // Readers cut the text into lines at "- ".
    SmallProduct small;
    small.Put("R", "L -  -  - x");
    small.Put("R", "M").instance = "i - - 1";
    small.Of("L -  -  - x").name = "- bracket -  left";
    small.Of("M").version = "- B";
    small.Set("M", "Weighed", {{Fact::Mass, -1}});
    const auto result = small.Compute(Filtered("2|F - |X|q - 1|Q|A|0|X|q -  2|Q|A|1|i - - 1"));
    EXPECT_THAT(result.warnings, Contains(HasSubstr("bracket")));
    EXPECT_THAT(result.warnings, Contains(HasSubstr("M -B")));
    EXPECT_THAT(result.warnings, Contains(HasSubstr("q -2")));
    EXPECT_THAT(result.warnings, Each(Not(HasSubstr("- "))));
}

TEST(WarningLines, StandardPartWithoutMaterialIsFine)
{
    SmallProduct small;
    small.Put("R", "bolt").quantity = 9;
    small.Of("bolt").standard = Answer::Yes;
    small.Set("bolt", "Weighed", kPoint);
    EXPECT_EQ(small.Mass(), 9);
    EXPECT_THAT(small.Compute().warnings, ElementsAre());
}

TEST(WarningLines, ImposedValueIsOffWhenTheDeviationsDoNotReach)
{
    // 10 kg -0.5 / +0.25 above 9 kg -0.25 / +0.5: they meet at 9.5 and part just below.
    SmallProduct small;
    small.Put("I", "P");
    small.Set("P", "Weighed", kPoint);
    small.Set("I", "Weighed", kPoint);
    small.Of("I").activeType = "Weighed";
    const auto warned = [&](double below) {
        small.Of("P").sets[0][Fact::Mass] = below;
        small.Of("P").sets[0][Fact::Lower] = 0.25;
        small.Of("P").sets[0][Fact::Upper] = 0.5;
        small.Of("I").sets[0][Fact::Mass] = 10;
        small.Of("I").sets[0][Fact::Lower] = 0.5;
        small.Of("I").sets[0][Fact::Upper] = 0.25;
        return !small.Compute().warnings.empty();
    };
    EXPECT_FALSE(warned(9));
    EXPECT_TRUE(warned(8.99));
    EXPECT_FALSE(warned(10.5));
    EXPECT_TRUE(warned(10.51));
}

TEST(WarningLines, NinthLineSaysHowManyMoreThereAre)
{
    EXPECT_EQ(WarningText(std::vector<std::string>(9, "w")),
              "- w\n- w\n- w\n- w\n- w\n- w\n- w\n- w\n- and 1 more");
    EXPECT_EQ(WarningText({"a", "b", "c"}, 2), "- a\n- b\n- and 1 more");
}
