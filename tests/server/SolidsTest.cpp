#include "ComputeTesting.h"

#include <numbers>

using namespace wb;
using wbtest::ExpectSame;
using wbtest::SmallProduct;

// A turn by 30 degrees about (1, 1, 1): with r = sqrt 3 and
//     a = (1 + r)/3,  b = (1 - r)/3,  c = 1/3
// its columns are u1 = (a, c, b), u2 = (b, a, c), u3 = (c, b, a), and
//     aa = (4 + 2r)/9, bb = (4 - 2r)/9, cc = 1/9, ab = -2/9, ac = (1 + r)/9, bc = (1 - r)/9.
// Twice the same is a turn by 60 degrees, with the columns (2, 2, -1)/3, (-1, 2, 2)/3 and
// (2, -1, 2)/3. A body of the principal moments I1, I2, I3 has sum of Ik uk ukt when turned; its
// products are those of the matrix with the other sign.
namespace
{
constexpr double r = std::numbers::sqrt3;
const Placement::Matrix kTurn{{{(1 + r) / 3, (1 - r) / 3, 1.0 / 3},
                               {1.0 / 3, (1 + r) / 3, (1 - r) / 3},
                               {(1 - r) / 3, 1.0 / 3, (1 + r) / 3}}};
constexpr double kAcross = 2.54 + 1.0 / 6; // of two spheres on a rod, kg.m2

void SetBody(SmallProduct& small, const std::string& part, const Body& body)
{
    const auto& [xx, yy, zz, xy, xz, yz] = body.inertia;
    small.Set(part, "Weighed",
              {{Fact::Mass, body.mass},
               {Fact::Lower, 0},
               {Fact::Upper, 0},
               {Fact::CgX, body.centre[0]},
               {Fact::CgY, body.centre[1]},
               {Fact::CgZ, body.centre[2]},
               {Fact::Ixx, xx},
               {Fact::Iyy, yy},
               {Fact::Izz, zz},
               {Fact::Ixy, xy},
               {Fact::Ixz, xz},
               {Fact::Iyz, yz}});
}

/// S, alone and turned once below R.
SmallProduct Once(const SmallProduct& solid)
{
    SmallProduct small;
    small.Put("R", "S").placement.rotation = kTurn;
    for (const Part& part : solid.product.parts) {
        small.Of(part.identifier) = part;
    }
    for (const Use& use : solid.product.uses) {
        small.Put("S", solid.product.parts[use.part].identifier, use.placement.shift);
    }
    return small;
}

/// R holds A turned, 100 mm up; A holds S turned once more, 300 mm along its x: what stands in the
/// middle of S is at 300 u1 + (0, 0, 100) = (100 + 100 r, 100, 200 - 100 r).
SmallProduct Twice(const SmallProduct& solid)
{
    SmallProduct small = Once(solid);
    Use& outer = small.product.uses[0];
    outer.placement.shift = {300, 0, 0};
    small.Of("A");
    outer.parent = static_cast<std::uint32_t>(small.product.parts.size() - 1);
    small.Put("R", "A", {0, 0, 100}).placement.rotation = kTurn;
    return small;
}

SmallProduct Leaf(const Body& body)
{
    SmallProduct small;
    SetBody(small, "S", body);
    return small;
}

/// S from two spheres of 5 kg and 100 mm at the ends of a thin rod of 2 kg, 1 m along x.
SmallProduct Dumbbell()
{
    SmallProduct small;
    small.Put("S", "rod");
    small.Put("S", "ball", {500, 0, 0});
    small.Put("S", "ball", {-500, 0, 0});
    SetBody(small, "rod", {2, 0, 0, {}, {0, 1.0 / 6, 1.0 / 6, 0, 0, 0}});
    SetBody(small, "ball", {5, 0, 0, {}, {0.02, 0.02, 0.02, 0, 0, 0}});
    return small;
}

/// S from a box of 4 kg, 400 x 100 x 100 mm, and one of 3 kg, 100 x 300 x 100 mm, in a corner:
/// their centres are (200, 50, 50) and (50, 250, 50).
SmallProduct Corner()
{
    SmallProduct small;
    small.Put("S", "long", {200, 50, 50});
    small.Put("S", "short", {50, 250, 50});
    SetBody(small, "long", {4, 0, 0, {}, {0.02 / 3, 0.17 / 3, 0.17 / 3, 0, 0, 0}});
    SetBody(small, "short", {3, 0, 0, {}, {0.025, 0.005, 0.025, 0, 0, 0}});
    return small;
}

void ExpectTurned(const SmallProduct& solid, const Body& once, const Body& twice)
{
    ExpectSame(Once(solid).Compute().total.body, once);
    ExpectSame(Twice(solid).Compute().total.body, twice);
}

Body At(double mass, const Inertia& inertia, const std::array<double, 3>& centre = {})
{
    return {mass, 0, 0, centre, inertia};
}

/// In two levels, where S has its centre in the middle.
Body AtTwo(double mass, const Inertia& inertia)
{
    return At(mass, inertia, {100 + 100 * r, 100, 200 - 100 * r});
}

Inertia Ninths(const Inertia& inertia)
{
    Inertia ninths = inertia;
    for (double& value : ninths) {
        value /= 9;
    }
    return ninths;
}
} // namespace

TEST(Solids, BoxTurnedObliquely)
{
    // 12 kg, 100 x 200 x 300 mm: 0.13, 0.10, 0.05.
    // xx = 0.13 aa + 0.10 bb + 0.05 cc = (0.13 (4 + 2r) + 0.10 (4 - 2r) + 0.05)/9
    // yy = 0.13 cc + 0.10 aa + 0.05 bb, zz = 0.13 bb + 0.10 cc + 0.05 aa; products:
    // xy = -(0.13 ac + 0.10 ab + 0.05 bc), xz = -(0.13 ab + 0.10 bc + 0.05 ac),
    // yz = -(0.13 bc + 0.10 ac + 0.05 ab).
    // By 60 degrees: xx = (4 0.13 + 0.10 + 4 0.05)/9, yy = (4 0.13 + 4 0.10 + 0.05)/9,
    // zz = (0.13 + 4 0.10 + 4 0.05)/9; xy = -(4 0.13 - 2 0.10 - 2 0.05)/9,
    // xz = -(-2 0.13 - 2 0.10 + 4 0.05)/9, yz = -(-2 0.13 + 4 0.10 - 2 0.05)/9.
    ExpectTurned(Leaf(At(12, {0.13, 0.10, 0.05, 0, 0, 0})),
                 At(12, Ninths({0.97 + 0.06 * r, 0.73 + 0.10 * r, 0.82 - 0.16 * r, 0.02 - 0.08 * r,
                                0.11 + 0.05 * r, 0.03 * r - 0.13})),
                 AtTwo(12, Ninths({0.82, 0.97, 0.73, -0.22, 0.26, -0.04})));
}

TEST(Solids, CylinderTurnedObliquely)
{
    // 8 kg, radius 50 mm, 300 mm along z: 0.065, 0.065, 0.01: turned 0.065 E - 0.055 u3 u3t, with
    // the products + 0.055 times those of u3.
    ExpectTurned(
        Leaf(At(8, {0.065, 0.065, 0.01, 0, 0, 0})),
        At(8, Ninths({0.585 - 0.055, 0.585 - 0.055 * (4 - 2 * r), 0.585 - 0.055 * (4 + 2 * r),
                      0.055 * (1 - r), 0.055 * (1 + r), -0.11})),
        AtTwo(8, Ninths({0.585 - 0.22, 0.585 - 0.055, 0.585 - 0.22, -0.11, 0.22, -0.11})));
}

TEST(Solids, SphereTurnedObliquely)
{
    // 5 kg, radius 100 mm: 0.02 about every axis, however it stands.
    const Inertia inertia{0.02, 0.02, 0.02, 0, 0, 0};
    ExpectTurned(Leaf(At(5, inertia)), At(5, inertia), AtTwo(5, inertia));
}

TEST(Solids, TwoSpheresOnARodTurnedObliquely)
{
    // Along 2 0.02 = 0.04, across 2 (0.02 + 5 0.25) + 1/6: across E - 8/3 u1 u1t.
    ExpectTurned(
        Dumbbell(),
        At(12, {kAcross - (32 + 16 * r) / 27, kAcross - 8.0 / 27, kAcross - (32 - 16 * r) / 27,
                8 * (1 + r) / 27, -16.0 / 27, 8 * (1 - r) / 27}),
        AtTwo(12, {kAcross - 32.0 / 27, kAcross - 32.0 / 27, kAcross - 8.0 / 27, 32.0 / 27,
                   -16.0 / 27, -16.0 / 27}));
}

TEST(Solids, TwoBoxesInACornerTurnedObliquely)
{
    // Centre (4 (200, 50, 50) + 3 (50, 250, 50))/7 = (950/7, 950/7, 50). The masses make a reduced
    // one of 12/7 kg at (0.15, -0.2, 0) m, so in 1/4200 kg.m2:
    // ixx = 28 + 105 + 288 = 421 = iyy, izz = 238 + 105 + 450 = 793, ixy = -12/7 0.03 = -216.
    // As a matrix: 421 E + 216 (e1 e2t + e2 e1t) + 372 e3 e3t. Turned:
    // xx = 421 + 432 ab + 372 cc, yy = 421 + 432 ac + 372 bb, zz = 421 + 432 bc + 372 aa,
    // and off the diagonal xy = 216 (aa + bc) + 372 bc, xz = 216 (ac + bb) + 372 ac,
    // yz = 216 (cc + ab) + 372 ab.
    // Centre 950/7 (a + b, a + c, b + c) + 50 (c, b, a).
    Inertia once{325 + 124.0 / 3,
                 469 + 48 * r + (496 - 248 * r) / 3,
                 469 - 48 * r + (496 + 248 * r) / 3,
                 (156 * r - 1452) / 9,
                 -(1452 + 156 * r) / 9,
                 960.0 / 9};
    // By 60 degrees: xx = 421 - 864/9 + 4 372/9 = zz, yy = 421 + 4 432/9 + 372/9,
    // xy = (2 216 - 2 372)/9 = yz, xz = (5 216 + 4 372)/9.
    Inertia twice{325 + 496.0 / 3, 613 + 124.0 / 3, 325 + 496.0 / 3,
                  312.0 / 9,       -2568.0 / 9,     312.0 / 9};
    for (std::size_t i = 0; i < 6; ++i) {
        once[i] /= 4200;
        twice[i] /= 4200;
    }
    ExpectTurned(Corner(), At(7, once, {2250.0 / 21, (2250 + 600 * r) / 21, (2250 - 600 * r) / 21}),
                 At(7, twice,
                    {1650.0 / 21 + 100 + 100 * r, 3450.0 / 21 + 100, 1650.0 / 21 + 200 - 100 * r}));
}
