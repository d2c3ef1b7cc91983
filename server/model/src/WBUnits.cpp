#include "WBUnits.h"

#include "WBTexts.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <numbers>
#include <numeric>

namespace wb
{
namespace
{
/// A fraction in lowest terms. Every factor below is a product of a few legal definitions; as whole
/// numbers below 2^53 they reach the conversion without any rounding.
struct Ratio
{
    std::uint64_t numerator = 1;
    std::uint64_t denominator = 1;
};

constexpr Ratio operator*(Ratio left, Ratio right)
{
    const std::uint64_t over = std::gcd(left.numerator, right.denominator);
    const std::uint64_t under = std::gcd(right.numerator, left.denominator);
    return {(left.numerator / over) * (right.numerator / under),
            (left.denominator / under) * (right.denominator / over)};
}

constexpr Ratio operator/(Ratio left, Ratio right)
{
    return left * Ratio{right.denominator, right.numerator};
}

constexpr Ratio Lowest(std::uint64_t numerator, std::uint64_t denominator)
{
    const std::uint64_t common = std::gcd(numerator, denominator);
    return {numerator / common, denominator / common};
}

constexpr Ratio kOne{};
constexpr Ratio kMilli = Lowest(1, 1000);
constexpr Ratio kCenti = Lowest(1, 100);
constexpr Ratio kKilo = Lowest(1000, 1);
constexpr Ratio kInch = Lowest(254, 10000);           // metres
constexpr Ratio kFoot = kInch * Lowest(12, 1);        // metres
constexpr Ratio kPound = Lowest(45359237, 100000000); // kilograms
constexpr Ratio kGravity = Lowest(980665, 100000);    // metres per square second
constexpr Ratio kPoundForce = kPound * kGravity;      // newtons
constexpr Ratio kSlug = kPoundForce / kFoot;          // kilograms
constexpr Ratio kGram = kMilli;                       // kilograms

constexpr Unit Exact(const char* symbol, Ratio ratio)
{
    return {symbol, static_cast<double>(ratio.numerator), static_cast<double>(ratio.denominator)};
}

constexpr std::array kLength{Exact("mm", kOne),         Exact("cm", Lowest(10, 1)),
                             Exact("m", kKilo),         Exact("km", kKilo* kKilo),
                             Exact("in", kInch* kKilo), Exact("ft", kFoot* kKilo)};
constexpr std::array kMass{
    Exact("kg", kOne),   Exact("mg", kGram* kMilli),         Exact("g", kGram),
    Exact("t", kKilo),   Exact("oz", kPound* Lowest(1, 16)), Exact("lb", kPound),
    Exact("slug", kSlug)};
constexpr std::array kInertia{Exact("kg.m2", kOne),
                              Exact("g.mm2", kGram* kMilli* kMilli),
                              Exact("kg.mm2", kMilli* kMilli),
                              Exact("lb.in2", kPound* kInch* kInch),
                              Exact("lb.ft2", kPound* kFoot* kFoot),
                              Exact("slug.ft2", kSlug* kFoot* kFoot)};
constexpr std::array kDensity{Exact("kg/m3", kOne),
                              Exact("g/cm3", kGram / (kCenti * kCenti * kCenti)),
                              Exact("lb/in3", kPound / (kInch * kInch * kInch)),
                              Exact("lb/ft3", kPound / (kFoot * kFoot * kFoot))};
constexpr std::array kSurfaceDensity{Exact("kg/m2", kOne),
                                     Exact("g/cm2", kGram / (kCenti * kCenti)),
                                     Exact("lb/ft2", kPound / (kFoot * kFoot))};
constexpr std::array kVolume{
    Exact("m3", kOne),  Exact("mm3", kMilli* kMilli* kMilli), Exact("cm3", kCenti* kCenti* kCenti),
    Exact("L", kMilli), Exact("in3", kInch* kInch* kInch),    Exact("ft3", kFoot* kFoot* kFoot)};
constexpr std::array kArea{Exact("m2", kOne), Exact("mm2", kMilli* kMilli),
                           Exact("cm2", kCenti* kCenti), Exact("in2", kInch* kInch),
                           Exact("ft2", kFoot* kFoot)};
constexpr std::array kAngle{Exact("rad", kOne), Unit{"deg", std::numbers::pi, 180.0}};
constexpr std::array kTime{Exact("s", kOne), Exact("min", Lowest(60, 1)),
                           Exact("h", Lowest(3600, 1))};
constexpr std::array kPower{Exact("W", kOne), Exact("kW", kKilo)};
constexpr std::array kForce{Exact("N", kOne), Exact("kN", kKilo), Exact("lbf", kPoundForce)};
constexpr std::array kTorque{Exact("N.m", kOne)};
// The newton metre is a torque and an energy, so a property in it says which it is.
constexpr std::array kEnergy{Exact("J", kOne), Exact("N.m", kOne), Exact("W.h", Lowest(3600, 1))};
constexpr std::array kTemperature{Exact("K", kOne), Unit{"degC", 1.0, 1.0, 273.15}};
constexpr std::array kPressure{Exact("Pa", kOne), Exact("bar", Lowest(100000, 1))};
constexpr std::array kVoltage{Exact("V", kOne)};
constexpr std::array kCurrent{Exact("A", kOne)};
constexpr std::array kCharge{Exact("C", kOne), Exact("A.h", Lowest(3600, 1))};
constexpr std::array kPercent{Exact("%", kOne)};

constexpr std::array<Magnitude, 19> kMagnitudes{{{"LENGTH", kLength},
                                                 {"MASS", kMass},
                                                 {"INERTIAMOMENT", kInertia},
                                                 {"DENSITY", kDensity},
                                                 {"SURFACICMASS", kSurfaceDensity},
                                                 {"VOLUME", kVolume},
                                                 {"AREA", kArea},
                                                 {"ANGLE", kAngle},
                                                 {"TIME", kTime},
                                                 {"POWER", kPower},
                                                 {"FORCE", kForce},
                                                 {"TORQUE", kTorque},
                                                 {"ENERGY", kEnergy},
                                                 {"TEMPERATURE", kTemperature},
                                                 {"PRESSURE", kPressure},
                                                 {"VOLTAGE", kVoltage},
                                                 {"ELECTRIC_CURRENT", kCurrent},
                                                 {"ELECTRIC_CHARGE", kCharge},
                                                 {"RATIO", kPercent}}};

constexpr bool AllExact()
{
    constexpr double kLargestExact = 9007199254740992.0;
    return std::ranges::all_of(kMagnitudes, [](const Magnitude& magnitude) {
        return std::ranges::all_of(magnitude.units, [](const Unit& unit) {
            return unit.numerator < kLargestExact && unit.denominator < kLargestExact;
        });
    });
}
static_assert(AllExact(), "a factor that does not fit a double exactly would round twice");
} // namespace

std::span<const Magnitude> Magnitudes()
{
    return kMagnitudes;
}

const Magnitude* FindMagnitude(std::string_view name)
{
    const std::string wanted = LowerCase(name);
    const auto found = std::ranges::find_if(kMagnitudes, [&](const Magnitude& magnitude) {
        return LowerCase(magnitude.name) == wanted;
    });
    return found == kMagnitudes.end() ? nullptr : &*found;
}

const Unit* FindUnit(const Magnitude& magnitude, std::string_view symbol)
{
    const auto found = std::ranges::find_if(
        magnitude.units, [&](const Unit& unit) { return unit.symbol == symbol; });
    return found == magnitude.units.end() ? nullptr : &*found;
}

std::vector<const Magnitude*> MagnitudesOfUnit(std::string_view symbol)
{
    std::vector<const Magnitude*> found;
    for (const Magnitude& magnitude : kMagnitudes) {
        if (FindUnit(magnitude, symbol) != nullptr) {
            found.push_back(&magnitude);
        }
    }
    return found;
}

std::string UnitList(const Magnitude& magnitude)
{
    std::string list;
    for (const Unit& unit : magnitude.units) {
        list += (list.empty() ? "" : ", ") + std::string(unit.symbol);
    }
    return list;
}

double ToStorage(const Unit& unit, double typed)
{
    return typed * unit.numerator / unit.denominator + unit.offset;
}
} // namespace wb
