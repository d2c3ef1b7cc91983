#include "WBChecks.h"

#include "ComputeTesting.h"

using namespace wb;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

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

Body Of(const Inertia& inertia, const std::array<double, 3>& centre = {})
{
    return {2, 0, 0, centre, inertia};
}

Finding::Kind KindOf(const Inertia& inertia)
{
    const auto findings = CheckBody(Of(inertia), false);
    EXPECT_EQ(findings.size(), 1U);
    return findings.empty() ? Finding::Kind::Rounding : findings[0].kind;
}
} // namespace

TEST(ChecksLimits, ThinBodiesPassHoweverTheyStand)
{
    // A rod and a plate are at the limit, and their digits are rounded when they are turned.
    for (int x = 0; x < 360; x += 7) {
        for (int y = 0; y < 360; y += 11) {
            const auto turn = RotationFromAngles(x, y, 3.0 * x);
            EXPECT_THAT(Texts(Of(Turned({0, 1.0 / 6, 1.0 / 6, 0, 0, 0}, turn))), IsEmpty());
            EXPECT_THAT(Texts(Of(Turned({0.1, 0.2, 0.1 + 0.2, 0, 0, 0}, turn))), IsEmpty());
        }
    }
}

TEST(ChecksLimits, AThousandthOfTheLargestMomentIsTheLimit)
{
    // x - 3 = x / 1000 at x = 3000/999 = 3.003003..., in any of the three places and turned.
    constexpr double kLimit = 3000.0 / 999;
    const auto turn = RotationFromAngles(20, 30, 40);
    for (std::size_t place = 0; place < 3; ++place) {
        Inertia inertia{1, 2, 1, 0, 0, 0};
        inertia[(place + 1) % 3] = 1;
        inertia[(place + 2) % 3] = 2;
        inertia[place] = kLimit - 1e-9;
        EXPECT_EQ(KindOf(inertia), Finding::Kind::Rounding);
        EXPECT_EQ(KindOf(Turned(inertia, turn)), Finding::Kind::Rounding);
        inertia[place] = kLimit + 1e-9;
        EXPECT_EQ(KindOf(inertia), Finding::Kind::Impossible);
        EXPECT_EQ(KindOf(Turned(inertia, turn)), Finding::Kind::Impossible);
    }
}

TEST(ChecksLimits, SumOfTheOtherTwoMayBeReached)
{
    EXPECT_THAT(Texts(Of({1, 2, 3, 0, 0, 0})), IsEmpty());
    EXPECT_THAT(Texts(Of({1, 2, 3.0005, 0, 0, 0})), ElementsAre(HasSubstr("round")));
}

TEST(ChecksLimits, NegativeMomentAboutAnyAxisIsWrong)
{
    // xx = yy = 1 with the product 1.5: 1 - 1.5 about the diagonal.
    for (const Inertia& inertia : {Inertia{-1, 2, 2, 0, 0, 0}, Inertia{2, -1, 2, 0, 0, 0},
                                   Inertia{2, 2, -1, 0, 0, 0}, Inertia{1, 1, 2, 1.5, 0, 0}}) {
        EXPECT_THAT(Texts(Of(inertia)), testing::Contains(HasSubstr("negative about some axis")));
    }
}

TEST(ChecksLimits, MassOfNothingWithAnyInertiaIsWrong)
{
    for (std::size_t i = 0; i < 6; ++i) {
        Body body{0, 0, 0, {}, {}};
        body.inertia[i] = 1e-3;
        EXPECT_THAT(Texts(body), testing::Contains("has an inertia and no mass at all")) << i;
    }
    EXPECT_THAT(Texts({0, 0, 0, {}, {}}), IsEmpty());
}

TEST(ChecksLimits, FitAtTheOriginIsAskedAboutOnlyWhereItFails)
{
    // 2 kg at x = 2 m: 8 about y and z. (0.1, 9, 9) is fine at the centre as well.
    EXPECT_THAT(Texts(Of({0.1, 9, 9, 0, 0, 0}, {2000, 0, 0})), IsEmpty());
    // (1, 8.5, 10) needs 10 <= 9.5; less the offset it is (1, 0.5, 2), no better.
    EXPECT_THAT(Texts(Of({1, 8.5, 10, 0, 0, 0}, {2000, 0, 0})),
                ElementsAre("has a largest principal moment above the sum of the other two"));
}
