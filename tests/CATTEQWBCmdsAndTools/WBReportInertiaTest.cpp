#include "CATWBServices.h"

#include "ModuleSession.h"
#include "ReportDocuments.h"

#include <rapidcheck.h>

#include <array>
#include <cmath>
#include <string>
#include <string_view>

namespace
{

constexpr unsigned char kMoveInertia = 0;
constexpr unsigned char kKeepInertia = 1;

const CATMath3x3Matrix kIdentity = CATMath3x3Matrix::Identity();
// No rotation: determinant 2, the inverse is (1 -1 0, 0 1 0, 0 0 0.5).
const CATMath3x3Matrix kShear(1, 1, 0, 0, 1, 0, 0, 0, 2);

std::string AfterMove(const std::string& text, CATMathPoint point, unsigned char keepAtCentre,
                      const CATMath3x3Matrix* axes = nullptr)
{
    CATIDOMDocument_var document = Parsed(text);
    CATMath3x3Matrix ownAxes = axes != nullptr ? *axes : CATMath3x3Matrix();
    CATWBServices::InertiaReferencePointConversion(
        document, &point, axes != nullptr ? &ownAxes : nullptr, keepAtCentre);
    return Written(document);
}

std::string AfterTurn(const std::string& text, CATMath3x3Matrix axes)
{
    CATIDOMDocument_var document = Parsed(text);
    CATWBServices::InertiaDirectionConversion(document, &axes);
    return Written(document);
}

// A report of the three kinds of elements in one another, all with the same body.
std::string ThreeKinds(const std::string& instance, const std::string& root,
                       const std::string& section)
{
    return "<Report><PRC " + root + "><PartInstance " + instance + "/></PRC><Group><WB_Section " +
           section + "/></Group></Report>";
}

std::string ThreeAlike(const std::string& body)
{
    return ThreeKinds(body, body, body);
}

// Reference point

TEST(InertiaReferencePoint, MovesEveryInertiaThereAndTakesThePointFromEveryCentre)
{
    // The offset is (1, 2, 3) m, its term (13 -2 -3, -2 10 -6, -3 -6 5), the mass 2: the moments
    // gain 26, 20, 10, the products 4, 6, 12.
    EXPECT_EQ(AfterMove(ThreeAlike(R"(MOIxx="1" MOIyy="2" MOIzz="3" POIxy="0.1" POIxz="0.2")"
                                   R"( POIyz="0.3" COGx="100" COGy="200" COGz="300" WB_Mass="2")"),
                        {1100, 2200, 3300}, kMoveInertia),
              ThreeAlike(R"(MOIxx="27" MOIyy="22" MOIzz="13" POIxy="4.1" POIxz="6.2" POIyz="12.3")"
                         R"( COGx="-1000" COGy="-2000" COGz="-3000" WB_Mass="2")"));
}

TEST(InertiaReferencePoint, FlagKeepsTheInertiaButForItsRoundingAndMovesTheCentre)
{
    EXPECT_EQ(AfterMove(ThreeAlike(R"(MOIxx="1.50" MOIyy="2,5" MOIzz="3.1234567" POIxy="-0.10")"
                                   R"( POIxz="2e-1" POIyz="0" COGx="100" COGy="200" COGz="300")"
                                   R"( WB_Mass="2.00")"),
                        {1100, 2200, 3300}, kKeepInertia),
              ThreeAlike(R"(MOIxx="1.5" MOIyy="2.5" MOIzz="3.12346" POIxy="-0.1" POIxz="0.2")"
                         R"( POIyz="0" COGx="-1000" COGy="-2000" COGz="-3000" WB_Mass="2.00")"));
}

TEST(InertiaReferencePoint, AnyFlagButZeroKeepsTheInertia)
{
    EXPECT_THAT(AfterMove(R"(<PRC MOIxx="1" WB_Mass="2"/>)", {0, 1000, 0}, 0x80),
                testing::HasSubstr(R"(MOIxx="1")"));
}

TEST(InertiaReferencePoint, AxesAreMultipliedToThePoint)
{
    // The shear takes (1000, 2000, 3000) to (1000 + 2000, 2000, 6000); the inertias stay in the
    // report's own axes. Offset (3, 2, 6), mass 1: 40, 45, 13, products 6, 18, 12.
    EXPECT_EQ(AfterMove(ThreeAlike(R"(MOIxx="0" MOIyy="0" MOIzz="0" POIxy="0" POIxz="0" POIyz="0")"
                                   R"( COGx="0" COGy="0" COGz="0" WB_Mass="1")"),
                        {1000, 2000, 3000}, kMoveInertia, &kShear),
              ThreeAlike(R"(MOIxx="40" MOIyy="45" MOIzz="13" POIxy="6" POIxz="18" POIyz="12")"
                         R"( COGx="-3000" COGy="-2000" COGz="-6000" WB_Mass="1")"));
}

TEST(InertiaReferencePoint, BoxOfAReportAboutItsCorner)
{
    // 12 kg, 1 by 2 by 3 m: m (b^2 + c^2) / 12 = 13, 10, 5 about its centre; about the corner
    // m (b^2 + c^2) / 3 = 52, 40, 20 and the products m a b / 4 = 6, m a c / 4 = 9, m b c / 4 = 18.
    EXPECT_EQ(AfterMove(ThreeAlike(R"(WB_Mass="12" COGx="500" COGy="1000" COGz="1500" MOIxx="13")"
                                   R"( MOIyy="10" MOIzz="5" POIxy="0" POIxz="0" POIyz="0")"),
                        {0, 0, 0}, kMoveInertia),
              ThreeAlike(R"(WB_Mass="12" COGx="500" COGy="1000" COGz="1500" MOIxx="52")"
                         R"( MOIyy="40" MOIzz="20" POIxy="6" POIxz="9" POIyz="18")"));
}

TEST(InertiaReferencePoint, ElementWithoutAMassKeepsItsInertiaAndGetsNone)
{
    EXPECT_EQ(AfterMove(R"(<PRC MOIxx="1" COGx="5"/>)", {1005, 1000, 0}, kMoveInertia),
              R"(<PRC MOIxx="1" COGx="-1000" MOIyy="0" MOIzz="0" POIxy="0" POIxz="0" POIyz="0")"
              R"( COGy="-1000" COGz="0"/>)");
}

// Directions

const std::string kSkewBody =
    R"(MOIxx="10" MOIyy="20" MOIzz="30" POIxy="1" POIxz="2" POIyz="3" COGx="1" COGy="2" COGz="3")";

TEST(InertiaDirection, InstancesTakeTheInverseOfTheAxesRootsAndSectionsTheTranspose)
{
    // I A = (10 -1 -2, -1 20 -3, -2 -3 30) (1 1 0, 0 1 0, 0 0 2) = (10 9 -4, -1 19 -6, -2 -5 60).
    // The inverse takes the second row from the first and halves the third: (11 -10 2, -1 19 -6,
    // -1 -2.5 30). The transpose adds the first to the second and doubles the third: (10 9 -4,
    // 9 28 -10, -4 -10 120). Products are written from above the diagonal, negated. The centre
    // takes the axes as they are: (1 + 2, 2, 2 * 3).
    const std::string byTranspose = R"(MOIxx="10" MOIyy="28" MOIzz="120" POIxy="-9" POIxz="4")"
                                    R"( POIyz="10" COGx="3" COGy="2" COGz="6")";
    EXPECT_EQ(AfterTurn(ThreeAlike(kSkewBody), kShear),
              ThreeKinds(R"(MOIxx="11" MOIyy="19" MOIzz="30" POIxy="10" POIxz="-2" POIyz="6")"
                         R"( COGx="3" COGy="2" COGz="6")",
                         byTranspose, byTranspose));
}

TEST(InertiaDirection, RotationTurnsEveryKindAlikeAndTheCentreTheOtherWay)
{
    // Two spheres on a rod along x, 3.54 kg.m2 across and 0.04 along. Axes turned about z by the
    // angle of cosine 0.8 and sine 0.6: 0.64 * 0.04 + 0.36 * 3.54 = 1.3, 0.36 * 0.04 + 0.64 * 3.54
    // = 2.28, product -0.8 * 0.6 * (3.54 - 0.04) = -1.68: seen from the turned axes, the rod
    // points to (0.8, -0.6). The centre at (100, 0, 0) goes to (80, 60, 0).
    const CATMath3x3Matrix axes(0.8, -0.6, 0, 0.6, 0.8, 0, 0, 0, 1);
    EXPECT_EQ(AfterTurn(ThreeAlike(R"(MOIxx="0.04" MOIyy="3.54" MOIzz="3.54" POIxy="0" POIxz="0")"
                                   R"( POIyz="0" COGx="100" COGy="0" COGz="0")"),
                        axes),
              ThreeAlike(R"(MOIxx="1.3" MOIyy="2.28" MOIzz="3.54" POIxy="-1.68" POIxz="0")"
                         R"( POIyz="0" COGx="80" COGy="60" COGz="0")"));
}

TEST(InertiaDirection, BoxAboutItsCornerInAxesThatAreExchanged)
{
    // The new x, y and z axis are the old y, z and x axis. The box about its corner has 52, 40, 20
    // and the products 6 (xy), 9 (xz), 18 (yz); in the new axes 40, 20, 52 and 18, 6, 9. The
    // centre (500, 1000, 1500) goes the other way, to (1500, 500, 1000).
    const CATMath3x3Matrix axes(0, 0, 1, 1, 0, 0, 0, 1, 0);
    EXPECT_EQ(AfterTurn(ThreeAlike(R"(COGx="500" COGy="1000" COGz="1500" MOIxx="52" MOIyy="40")"
                                   R"( MOIzz="20" POIxy="6" POIxz="9" POIyz="18")"),
                        axes),
              ThreeAlike(R"(COGx="1500" COGy="500" COGz="1000" MOIxx="40" MOIyy="20")"
                         R"( MOIzz="52" POIxy="18" POIxz="6" POIyz="9")"));
}

TEST(InertiaDirection, IdentityChangesNothingButTheWriting)
{
    EXPECT_EQ(AfterTurn(ThreeAlike(R"(MOIxx="10.50" MOIyy="2e1" MOIzz="30,25" POIxy="-1.0")"
                                   R"( POIxz="1234567.8" POIyz="0.00000012345678" COGx="+1")"
                                   R"( COGy=" 2" COGz="3kg" WB_Mass="7.00")"),
                        kIdentity),
              ThreeAlike(R"(MOIxx="10.5" MOIyy="20" MOIzz="30.25" POIxy="-1" POIxz="1.23457e+06")"
                         R"( POIyz="1.23457e-07" COGx="1" COGy="2" COGz="3" WB_Mass="7.00")"));
}

TEST(InertiaDirection, SingularAxesLeaveTheInertiaOfInstancesAsItIsWritten)
{
    // Flattens onto the plane of x and y. I A = (10 -1 0, -1 20 0, -2 -3 0), the transpose takes
    // the third row to 0.
    const CATMath3x3Matrix flat(1, 0, 0, 0, 1, 0, 0, 0, 0);
    const std::string turned = R"(MOIxx="10" MOIyy="20" MOIzz="0" POIxy="1" POIxz="0" POIyz="0")"
                               R"( COGx="1" COGy="2" COGz="0")";
    EXPECT_EQ(AfterTurn(ThreeKinds(R"(MOIxx="10.00" MOIyy="x" POIyz="3,50" COGx="1.0" COGy="2")"
                                   R"( COGz="3")",
                                   kSkewBody, kSkewBody),
                        flat),
              ThreeKinds(R"(MOIxx="10.00" MOIyy="x" POIyz="3,50" COGx="1" COGy="2" COGz="0")",
                         turned, turned));
}

// What both operations share

std::string MovedByNothing(const std::string& text)
{
    return AfterMove(text, {0, 0, 0}, kKeepInertia);
}

TEST(ReportInertia, ElementsOfOtherNamesAreNotTouched)
{
    const std::string text = R"(<Report COGx="1.0"><prc COGx="1.0"/><PARTINSTANCE COGx="1.0"/>)"
                             R"(<WB_section COGx="1.0"/><MaterialStat COGx="1.0"/></Report>)";
    EXPECT_EQ(MovedByNothing(text), text);
    EXPECT_EQ(AfterTurn(text, kShear), text);
}

TEST(ReportInertia, InstancesInOneAnotherAreAllTaken)
{
    const std::string rest =
        R"(MOIxx="0" MOIyy="0" MOIzz="0" POIxy="0" POIxz="0" POIyz="0" COGy="0" COGz="0")";
    EXPECT_EQ(AfterMove("<PartInstance COGx=\"1\" " + rest + "><PartInstance COGx=\"2\" " + rest +
                            "/><PartInstance COGx=\"3\" " + rest + "/></PartInstance>",
                        {10, 0, 0}, kKeepInertia),
              "<PartInstance COGx=\"-9\" " + rest + "><PartInstance COGx=\"-8\" " + rest +
                  "/><PartInstance COGx=\"-7\" " + rest + "/></PartInstance>");
}

TEST(ReportInertia, AttributesThatAnElementLacksComeBehindItsOthersInOrder)
{
    const std::string all = R"(MOIxx="0" MOIyy="0" MOIzz="0" POIxy="0" POIxz="0" POIyz="0")"
                            R"( COGx="0" COGy="0" COGz="0")";
    EXPECT_EQ(MovedByNothing("<Report><PRC/><PRC/><PartInstance N=\"1\"/><WB_Section/></Report>"),
              "<Report><PRC " + all + "/><PRC " + all + "/><PartInstance N=\"1\" " + all +
                  "/><WB_Section " + all + "/></Report>");
    EXPECT_EQ(AfterTurn(R"(<PRC COGy="0" N="1" MOIyy="0"/>)", kIdentity),
              R"(<PRC COGy="0" N="1" MOIyy="0" MOIxx="0" MOIzz="0" POIxy="0" POIxz="0" POIyz="0")"
              R"( COGx="0" COGz="0"/>)");
}

// One text in every kind of element and, through a product of inertia, in a matrix that is turned
// by nothing.
std::string WithNumber(const std::string& number)
{
    return ThreeAlike(R"(MOIxx="0" MOIyy="0" MOIzz="0" POIxy=")" + number +
                      R"(" POIxz="0" POIyz="0" COGx=")" + number + R"(" COGy="0" COGz="0")");
}

struct Writing
{
    const char* read;
    const char* written;
};

void ExpectWritings(std::initializer_list<Writing> writings)
{
    for (const auto& [read, written] : writings) {
        EXPECT_EQ(MovedByNothing(WithNumber(read)), WithNumber(written)) << read;
        EXPECT_EQ(AfterTurn(WithNumber(read), kIdentity), WithNumber(written)) << read;
    }
}

TEST(ReportInertia, NumbersAreReadWithEitherSeparatorAndWrittenWithSixDigits)
{
    const NumberLocale locale(kPointLocale);
    ExpectWritings({{"3.5", "3.5"},
                    {"3,5", "3.5"},
                    {"-0.25", "-0.25"},
                    {"1234567", "1.23457e+06"},
                    {"123456.5", "123456"}, // half to even
                    {"0.0001234567", "0.000123457"},
                    {"0.00001234567", "1.23457e-05"},
                    {"1.234,5", "1.234"},
                    {"1,234.5", "1"}, // a "." is there, so the "," ends the number
                    {"1,2,3", "1.2"},
                    {"12.5kg", "12.5"},
                    {" +7", "7"},
                    {"1e3", "1000"},
                    {"0x10", "16"}});
}

TEST(ReportInertia, NumbersAreReadAndWrittenAlikeWhereTheSeparatorIsAComma)
{
    const NumberLocale locale(kCommaLocale);
    ExpectWritings({{"3.5", "3,5"},
                    {"3,5", "3,5"},
                    {"-0.25", "-0,25"},
                    {"1234567", "1,23457e+06"},
                    {"0.00001234567", "1,23457e-05"},
                    {"1.234,5", "1,234"},
                    {"1,234.5", "1,234"},
                    {"1.2.3", "1,2"},
                    {"12.5kg", "12,5"},
                    {"1e3", "1000"}});
}

TEST(ReportInertia, WhatIsNoNumberCountsAsZeroAndZeroHasNoSign)
{
    for (const char* locale : {kPointLocale, kCommaLocale}) {
        const NumberLocale guard(locale);
        ExpectWritings({{"", "0"}, {"abc", "0"}, {"-", "0"}, {".", "0"}, {"-0", "0"}, {"0", "0"}});
    }
}

TEST(ReportInertia, NumbersWithoutEndAreWrittenAsTheyAreRead)
{
    EXPECT_THAT(MovedByNothing(R"(<PRC COGx="1e999" COGy="-inf" COGz="nan"/>)"),
                testing::StartsWith(R"(<PRC COGx="inf" COGy="-inf" COGz="nan")"));
}

TEST(ReportInertia, NullDocumentPointOrAxesDoNothing)
{
    CATIDOMDocument_var none;
    CATMathPoint point(1, 2, 3);
    CATMath3x3Matrix axes = kShear;
    CATWBServices::InertiaReferencePointConversion(none, &point, &axes, kMoveInertia);
    CATWBServices::InertiaDirectionConversion(none, &axes);
    EXPECT_TRUE(none.IsNull());

    const std::string text = ThreeAlike(R"(COGx="1.0")");
    CATIDOMDocument_var document = Parsed(text);
    CATWBServices::InertiaReferencePointConversion(document, nullptr, &axes, kMoveInertia);
    CATWBServices::InertiaDirectionConversion(document, nullptr);
    EXPECT_EQ(Written(document), text);
    EXPECT_EQ(point, CATMathPoint(1, 2, 3));
    EXPECT_EQ(axes, kShear);
}

TEST(ReportInertia, InstancesComeFirstThenRootsThenSections)
{
    const CATIDOMNodeList_var nothing = Parsed("<Report/>")->ElementsByTagName("PRC");
    auto* mock = new testing::NiceMock<MockDocument>;
    CATIDOMDocument_var document = CATHandle<MockDocument>::Adopt(mock);
    const testing::InSequence inOrder;
    for (int operation = 0; operation < 2; ++operation) {
        for (const char* name : {"PartInstance", "PRC", "WB_Section"}) {
            EXPECT_CALL(*mock, ElementsByTagName(CATUnicodeString(name)))
                .WillOnce(testing::Return(nothing));
        }
    }
    CATMathPoint point;
    CATMath3x3Matrix axes = kIdentity;
    CATWBServices::InertiaReferencePointConversion(document, &point, nullptr, kMoveInertia);
    CATWBServices::InertiaDirectionConversion(document, &axes);
}

// Laws, on the numbers that stand in a report before and after

using Numbers = std::array<double, 9>; // in the order in which they are written
constexpr std::array kNames{"MOIxx", "MOIyy", "MOIzz", "POIxy", "POIxz",
                            "POIyz", "COGx",  "COGy",  "COGz"};

CATIDOMDocument_var ReportOf(const char* element, const Numbers& numbers, double mass)
{
    std::string text = "<" + std::string(element) + " WB_Mass=\"" + std::to_string(mass) + '"';
    for (std::size_t index = 0; index < kNames.size(); ++index) {
        text += " " + std::string(kNames[index]) + "=\"" +
                CATUnicodeString::FromReal(numbers[index]).ToStdString() + '"';
    }
    return Parsed(text + "/>");
}

Numbers NumbersOf(const CATIDOMDocument_var& document)
{
    Numbers numbers{};
    for (std::size_t index = 0; index < kNames.size(); ++index) {
        CATUnicodeString text;
        EXPECT_EQ(document->DocumentElement()->GetAttribute(kNames[index], text), S_OK);
        EXPECT_EQ(text.ReadReal(numbers[index]), 1) << text.View();
    }
    return numbers;
}

CATMath3x3Matrix InertiaOf(const Numbers& numbers)
{
    const auto& [xx, yy, zz, xy, xz, yz, x, y, z] = numbers;
    return {xx, -xy, -xz, -xy, yy, -yz, -xz, -yz, zz};
}

Numbers AnyNumbers()
{
    Numbers numbers{};
    for (double& number : numbers) {
        number = *rc::gen::inRange(-1000, 1001);
    }
    return numbers;
}

CATMath3x3Matrix AnyRotation()
{
    const auto any = [] {
        return static_cast<double>(*rc::gen::inRange(-9, 10));
    };
    // Of a quaternion; the first number is never 0, so that it is one.
    double w = *rc::gen::inRange(1, 10);
    double x = any();
    double y = any();
    double z = any();
    const double length = std::sqrt(w * w + x * x + y * y + z * z);
    w /= length;
    x /= length;
    y /= length;
    z /= length;
    return {1 - 2 * (y * y + z * z), 2 * (x * y - w * z),     2 * (x * z + w * y),
            2 * (x * y + w * z),     1 - 2 * (x * x + z * z), 2 * (y * z - w * x),
            2 * (x * z - w * y),     2 * (y * z + w * x),     1 - 2 * (x * x + y * y)};
}

void Turn(CATIDOMDocument_var document, CATMath3x3Matrix axes)
{
    CATWBServices::InertiaDirectionConversion(document, &axes);
}

// Six digits of numbers below 10,000 are wrong by 0.005 at most; a turn mixes nine of them.
constexpr double kAfterRounding = 0.05;

bool AllNear(const Numbers& a, const Numbers& b)
{
    for (std::size_t index = 0; index < a.size(); ++index) {
        if (std::abs(a[index] - b[index]) > kAfterRounding) {
            return false;
        }
    }
    return true;
}

// The elements with their two ways to turn an inertia, in turn.
const char* AnyKind()
{
    return *rc::gen::element("PartInstance", "PRC", "WB_Section");
}

TEST(ReportInertiaLaws, TurnAndItsOppositeGiveTheSameNumbers)
{
    EXPECT_TRUE(rc::check([] {
        const Numbers before = AnyNumbers();
        const CATMath3x3Matrix axes = AnyRotation();
        const CATIDOMDocument_var document = ReportOf(AnyKind(), before, 1);
        Turn(document, axes);
        Turn(document, axes.Transpose());
        RC_ASSERT(AllNear(NumbersOf(document), before));
    }));
}

TEST(ReportInertiaLaws, RotationTurnsAllKindsOfElementsAlike)
{
    EXPECT_TRUE(rc::check([] {
        const Numbers before = AnyNumbers();
        const CATMath3x3Matrix axes = AnyRotation();
        const CATIDOMDocument_var instance = ReportOf("PartInstance", before, 1);
        const CATIDOMDocument_var section = ReportOf("WB_Section", before, 1);
        Turn(instance, axes);
        Turn(section, axes);
        RC_ASSERT(AllNear(NumbersOf(instance), NumbersOf(section)));
    }));
}

// The coefficients of the polynomial whose roots are the principal moments.
double Trace(const CATMath3x3Matrix& m)
{
    return m.GetCoef(1, 1) + m.GetCoef(2, 2) + m.GetCoef(3, 3);
}
double SumOfMinors(const CATMath3x3Matrix& m)
{
    const double trace = Trace(m);
    return (trace * trace - Trace(m * m)) / 2;
}

TEST(ReportInertiaLaws, RotationKeepsThePrincipalMomentsAndTheDistanceOfTheCentre)
{
    EXPECT_TRUE(rc::check([] {
        const Numbers before = AnyNumbers();
        const CATIDOMDocument_var document = ReportOf(AnyKind(), before, 1);
        Turn(document, AnyRotation());
        const Numbers after = NumbersOf(document);
        const CATMath3x3Matrix was = InertiaOf(before);
        const CATMath3x3Matrix is = InertiaOf(after);
        // Of terms up to 3000 with an error of 0.005: twice, and three times, the terms beside it.
        RC_ASSERT(std::abs(Trace(is) - Trace(was)) < kAfterRounding);
        RC_ASSERT(std::abs(SumOfMinors(is) - SumOfMinors(was)) < 3000 * kAfterRounding * 2);
        RC_ASSERT(std::abs(is.Determinant() - was.Determinant()) <
                  3000.0 * 3000.0 * kAfterRounding * 3);
        RC_ASSERT(std::abs(std::hypot(after[6], after[7], after[8]) -
                           std::hypot(before[6], before[7], before[8])) < kAfterRounding);
    }));
}

TEST(ReportInertiaLaws, MoveOfAReportIsTheMoveOfOneMatrixInMetres)
{
    EXPECT_TRUE(rc::check([] {
        const Numbers before = AnyNumbers();
        const double mass = *rc::gen::inRange(0, 1000);
        const auto any = [] {
            return static_cast<double>(*rc::gen::inRange(-1000, 1001));
        };
        CATMathPoint point(any(), any(), any());
        CATIDOMDocument_var document = ReportOf(AnyKind(), before, mass);
        CATWBServices::InertiaReferencePointConversion(document, &point, nullptr, kMoveInertia);
        const Numbers after = NumbersOf(document);
        CATMath3x3Matrix expected = InertiaOf(before);
        CATWBServices::ConvertInertiaMatrix(
            expected, mass, {before[6] / 1000, before[7] / 1000, before[8] / 1000},
            {point.GetX() / 1000, point.GetY() / 1000, point.GetZ() / 1000}, 1);
        const CATMath3x3Matrix difference = InertiaOf(after) - expected;
        for (int row = 1; row <= 3; ++row) {
            for (int column = 1; column <= 3; ++column) {
                RC_ASSERT(std::abs(difference.GetCoef(row, column)) < kAfterRounding);
            }
        }
        RC_ASSERT(after[6] == before[6] - point.GetX());
        RC_ASSERT(after[7] == before[7] - point.GetY());
        RC_ASSERT(after[8] == before[8] - point.GetZ());
    }));
}

} // namespace
