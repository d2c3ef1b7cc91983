#include "WBChecks.h"

#include "ComputeTesting.h"

using namespace wb;
using testing::ElementsAre;
using testing::IsEmpty;
using wbtest::SmallProduct;

namespace
{
std::vector<std::string> Texts(const Body& body, bool isAdjustment = false)
{
    std::vector<std::string> texts;
    for (const Finding& finding : CheckBody(body, isAdjustment)) {
        texts.push_back(finding.text);
    }
    return texts;
}

Body Heavy(const Inertia& inertia, double x = 0)
{
    return {2, 0, 0, {x, 0, 0}, inertia};
}

constexpr double kNothing = kUnknown;
} // namespace

TEST(WBChecks, RealBodiesPass)
{
    EXPECT_THAT(Texts(Heavy({1, 1, 1, 0, 0, 0})), IsEmpty());
    EXPECT_THAT(Texts(Heavy({0, 2, 2, 0, 0, 0})), IsEmpty()) << "a thin rod";
    EXPECT_THAT(Texts(Heavy({1, 1, 2, 0, 0, 0})), IsEmpty()) << "a thin plate";
    EXPECT_THAT(Texts(Heavy({0, 0, 0, 0, 0, 0})), IsEmpty()) << "a point";
    EXPECT_THAT(Texts({kNothing, 0, 0, {}, {kNothing, 0, 0, 0, 0, 0}}), IsEmpty());
}

TEST(WBChecks, NegativeMassIsAnAdjustmentOrWrong)
{
    const Body taken{-2, 0, 0, {}, {-1, -1, -1, 0, 0, 0}};
    EXPECT_THAT(Texts(taken, true), IsEmpty());
    EXPECT_EQ(Texts(taken).at(0), "has a negative mass");
}

TEST(WBChecks, InertiaWithoutMassIsWrong)
{
    EXPECT_THAT(Texts({0, 0, 0, {}, {1, 1, 1, 0, 0, 0}}),
                ElementsAre("has an inertia and no mass at all"));
    EXPECT_THAT(Texts({0, 0, 0, {}, {}}), IsEmpty());
}

TEST(WBChecks, MomentAboveTheSumOfTheOtherTwoIsWrong)
{
    // Three unequal moments stay the same three in any order.
    EXPECT_THAT(Texts(Heavy({1, 2, 4, 0, 0, 0})),
                ElementsAre("has a largest principal moment above the sum of the other two"));
}

TEST(WBChecks, LittleTooMuchIsARemarkAboutRounding)
{
    // 3.002 passes 1 + 2 by 0.7 thousandths of itself, 3.004 by 1.3.
    const auto findings = CheckBody(Heavy({1, 2, 3.002, 0, 0, 0}), false);
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(findings[0].kind, Finding::Kind::Rounding);
    EXPECT_EQ(CheckBody(Heavy({1, 2, 3.004, 0, 0, 0}), false).at(0).kind,
              Finding::Kind::Impossible);
}

TEST(WBChecks, NegativeInertiaIsWrong)
{
    EXPECT_THAT(Texts(Heavy({-1, -1, -1, 0, 0, 0})),
                ElementsAre("has an inertia that is negative about some axis"));
}

TEST(WBChecks, ExchangeThatHealsIsAskedAbout)
{
    // Integrals xx = yy = zz = 1 with xy = xz = 0.9 and yz = -0.8: their determinant is
    // 1 - 0.81 - 0.81 - 0.64 - 2 0.9 0.9 0.8 < 0; with yz = +0.8 it is 1 - 2.26 + 1.296 = 0.036.
    const Inertia signs{2, 2, 2, 0.9, 0.9, -0.8};
    EXPECT_THAT(Texts(Heavy(signs)),
                ElementsAre("has a largest principal moment above the sum of the other two; wrong "
                            "sign or order?"));
    // Integrals xx = 1, yy = 0.1, zz = 1 and xy = 0.5, xz = 0.1: 0.1 1 < 0.5^2. With the two
    // products exchanged: 0.1 > 0.1^2.
    const Inertia order{1.1, 2, 1.1, 0.5, 0.1, 0};
    EXPECT_THAT(Texts(Heavy(order)),
                ElementsAre("has a largest principal moment above the sum of the other two; wrong "
                            "sign or order?"));
}

TEST(WBChecks, InertiaThatFitsAtTheOriginAloneIsAskedAbout)
{
    // 2 kg at (2, 2, 2) m: about the origin 16 more about each axis, so (17, 18, 20) with the
    // products 8 is possible there; (1, 2, 4) at the centre is not.
    const Body body{2, 0, 0, {2000, 2000, 2000}, {1, 2, 4, 0, 0, 0}};
    EXPECT_THAT(Texts(body),
                ElementsAre("has a largest principal moment above the sum of the other two; given "
                            "about the origin?"));
}

TEST(ComputeWarnings, ImpossibleValuesAreUsedAndSaid)
{
    SmallProduct small;
    small.Put("R", "L");
    small.Of("L").name = "Bad - part";
    small.Set("L", "Weighed",
              {{Fact::Mass, 2},
               {Fact::CgX, 0},
               {Fact::CgY, 0},
               {Fact::CgZ, 0},
               {Fact::Ixx, 1},
               {Fact::Iyy, 2},
               {Fact::Izz, 4},
               {Fact::Ixy, 0},
               {Fact::Ixz, 0},
               {Fact::Iyz, 0}});
    const auto result = small.Compute();
    EXPECT_EQ(result.total.body.inertia[2], 4);
    EXPECT_THAT(result.warnings,
                ElementsAre("Bad -part (L A) has a largest principal moment above the sum of the "
                            "other two"));
}

TEST(ComputeWarnings, NobodyWhoReadsNonePaysForThem)
{
    SmallProduct small;
    small.Put("R", "L");
    ComputeOptions options;
    options.validate = false;
    EXPECT_FALSE(small.Compute().warnings.empty());
    EXPECT_TRUE(small.Compute(options).warnings.empty());
}

TEST(ComputeWarnings, SumsComeFirstThenItemsByTheirEffect)
{
    SmallProduct small;
    small.Put("R", "N");
    small.Put("R", "C");
    small.Put("R", "I");
    small.Put("R", "P");
    small.Put("I", "P");
    small.Set("N", "Estimated", {{Fact::CgX, 0}, {Fact::CgY, 0}, {Fact::CgZ, 0}});
    small.Set("C", "Weighed", {{Fact::Mass, 1}});
    small.Set("P", "Weighed", {{Fact::Mass, 2}, {Fact::CgX, 0}, {Fact::CgY, 0}, {Fact::CgZ, 0}});
    small.Set("I", "Weighed", {{Fact::Mass, 3}});
    small.Of("I").activeType = "Weighed";
    const auto result = small.Compute();
    EXPECT_THAT(result.warnings,
                ElementsAre("1 of 4 items has no mass; the total leaves it out",
                            "1 kg without centre of gravity stand at the centre of the rest",
                            "3 kg without inertia count as points", "N A has no mass",
                            "I A states 3 kg, below it stand 2 kg", "C A has no centre of gravity",
                            "P A has no inertia", "C A has no inertia"));
}

TEST(ComputeWarnings, ImposedValueWithinTheDeviationsIsNoCauseForAWord)
{
    // 3 kg -0.015 against 2.8 kg +20 %.
    SmallProduct small;
    small.Put("I", "P");
    small.Set("P", "Estimated", {{Fact::Mass, 2.8}});
    small.Set("I", "Weighed", {{Fact::Mass, 3}});
    small.Of("I").activeType = "Weighed";
    const auto result = small.Compute();
    for (const std::string& warning : result.warnings) {
        EXPECT_THAT(warning, testing::Not(testing::HasSubstr("states")));
    }
}

TEST(ComputeWarnings, TextHasEightLinesAndHowManyMoreThereAre)
{
    std::vector<std::string> warnings(8, "w");
    EXPECT_EQ(WarningText({}), "");
    EXPECT_EQ(WarningText({"a", "b"}), "- a\n- b");
    EXPECT_EQ(WarningText(warnings), "- w\n- w\n- w\n- w\n- w\n- w\n- w\n- w");
    warnings.resize(20, "v");
    EXPECT_EQ(WarningText(warnings), "- w\n- w\n- w\n- w\n- w\n- w\n- w\n- w\n- and 12 more");
    EXPECT_EQ(WarningText(warnings, 0).size(), 20 * 4 - 1U);
}
