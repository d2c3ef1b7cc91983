#include "ShownWeight.h"

#include <charconv>

namespace wb
{
namespace
{
std::string Digits(double value, std::chars_format format, int precision)
{
    std::array<char, 400> text{};
    const auto [end, error] =
        std::to_chars(text.data(), text.data() + text.size(), value, format, precision);
    return {text.data(), end};
}
} // namespace

std::string ShownMass(double mass)
{
    constexpr int kMassDigits = 9;
    return Digits(mass, std::chars_format::general, kMassDigits) + " kg";
}

std::string ShownPlace(const std::array<double, 3>& place)
{
    constexpr int kDecimals = 3;
    std::string text;
    for (const double term : place) {
        text += (text.empty() ? "" : ", ") + Digits(term, std::chars_format::fixed, kDecimals);
    }
    return text + " mm";
}

std::string ShownWeight(const Total& total)
{
    const std::string mass = total.HasMass() ? ShownMass(total.body.mass) : "mass unknown";
    const std::string centre =
        total.HasCentre() ? " at " + ShownPlace(total.body.centre) : ", centre unknown";
    // What has no mass is not in the figure, and the reader should know.
    return mass + centre + (total.IsPartial() ? " (some items have no mass)" : "");
}
} // namespace wb
