#include "ReportArguments.h"

#include "OptionTexts.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <span>
#include <string_view>
#include <vector>

namespace
{

constexpr int kMostDecimals = 15; // a real has no more to show

/// Off by more than this in any term, a product of a matrix with its transpose is not the identity:
/// as for positions in product tables.
constexpr double kRotationTolerance = 1e-5;

/// A determinant this small beside the lengths of the rows is a 0 that rounding has missed.
constexpr double kSingularTolerance = 1e-12;

/// Exactly one finite number, or false.
template <class Number>
bool ReadWhole(std::string_view text, Number& number)
{
    if (text.size() > 1 && text[0] == '+' && text[1] != '-') {
        text.remove_prefix(1);
    }
    const char* end = text.data() + text.size();
    const std::from_chars_result result = std::from_chars(text.data(), end, number);
    return result.ec == std::errc() && result.ptr == end &&
           std::isfinite(static_cast<double>(number));
}

std::string Quoted(std::string_view text)
{
    return '"' + std::string(text) + '"';
}

/// Reads as many numbers as there is room for; else false with "<expected>, found ...".
bool ReadNumbers(const std::string& text, const std::string& expected, std::span<double> numbers,
                 std::string& problem)
{
    const std::vector<std::string_view> items = SplitAtCommas(text);
    if (items.size() != numbers.size()) {
        problem = expected + ", found " + std::to_string(items.size()) + " in " + Quoted(text);
        return false;
    }
    for (std::size_t index = 0; index < items.size(); ++index) {
        if (!ReadWhole(items[index], numbers[index])) {
            problem = expected + ", found " + Quoted(items[index]) + " in " + Quoted(text);
            return false;
        }
    }
    return true;
}

bool ReadDecimals(const std::string& text, int& decimals, std::string& problem)
{
    if (ReadWhole(WithoutBlanks(text), decimals) && decimals >= -1 && decimals <= kMostDecimals) {
        return true;
    }
    problem = "--decimals: expected a whole number from -1 to " + std::to_string(kMostDecimals) +
              ", found " + Quoted(text);
    return false;
}

bool ReadReference(const std::string& text, std::optional<CATMathPoint>& reference,
                   std::string& problem)
{
    std::array<double, 3> xyz{};
    if (!ReadNumbers(text,
                     "--reference: expected X,Y,Z, three numbers in mm with \".\" for the decimal "
                     "mark",
                     xyz, problem)) {
        return false;
    }
    reference = CATMathPoint(xyz[0], xyz[1], xyz[2]);
    return true;
}

double RowLength(const CATMath3x3Matrix& matrix, int row)
{
    return std::hypot(matrix.GetCoef(row, 1), matrix.GetCoef(row, 2), matrix.GetCoef(row, 3));
}

bool IsSingular(const CATMath3x3Matrix& matrix)
{
    // The determinant is the volume that the rows span: at most the product of their lengths.
    const double most = RowLength(matrix, 1) * RowLength(matrix, 2) * RowLength(matrix, 3);
    const double volume = std::abs(matrix.Determinant());
    return !std::isfinite(most) || !(volume > kSingularTolerance * most);
}

bool ReadAxes(const std::string& text, std::optional<CATMath3x3Matrix>& axes, std::string& problem)
{
    std::array<double, 9> a{};
    if (!ReadNumbers(text,
                     "--axes: expected a11,a12,a13,a21,...,a33, nine numbers row by row with \".\" "
                     "for the decimal mark",
                     a, problem)) {
        return false;
    }
    const CATMath3x3Matrix matrix(a[0], a[1], a[2], a[3], a[4], a[5], a[6], a[7], a[8]);
    if (IsSingular(matrix)) {
        problem =
            "--axes: expected a matrix that has an inverse, found the singular " + Quoted(text);
        return false;
    }
    axes = matrix;
    return true;
}

/// The farthest that any term of A A^T is from the identity.
double DistanceFromRotation(const CATMath3x3Matrix& axes)
{
    const CATMath3x3Matrix off = axes * axes.Transpose() - CATMath3x3Matrix::Identity();
    double most = 0.0;
    for (int row = 1; row <= 3; ++row) {
        for (int column = 1; column <= 3; ++column) {
            most = std::max(most, std::abs(off.GetCoef(row, column)));
        }
    }
    return most;
}

} // namespace

std::optional<CATWBReportConversion> ReadReportConversion(const ConvertReportOptions& options,
                                                          std::string& problem)
{
    CATWBReportConversion conversion;
    conversion.kind = options.distributive ? CATWBReportConversion::Kind::Distributive
                                           : CATWBReportConversion::Kind::Report;
    conversion.values = options.display ? CATWBReportConversion::Values::Current
                                        : CATWBReportConversion::Values::Stored;
    conversion.withSymbols = options.symbols;
    conversion.keepInertiaAtCentre = options.keepAtCentre;
    if (options.keepAtCentre && !options.reference) {
        problem = "--keep-cog: expected --reference beside it, found none";
        return std::nullopt;
    }
    const bool isGood =
        (!options.decimals || ReadDecimals(*options.decimals, conversion.decimals, problem)) &&
        (!options.reference || ReadReference(*options.reference, conversion.reference, problem)) &&
        (!options.axes || ReadAxes(*options.axes, conversion.axes, problem));
    return isGood ? std::optional(conversion) : std::nullopt;
}

std::string AxesWarning(const CATMath3x3Matrix& axes)
{
    const double distance = DistanceFromRotation(axes);
    if (distance > kRotationTolerance) {
        std::array<char, 32> number{};
        std::snprintf(number.data(), number.size(), "%.2g", distance);
        return "--axes is not a rotation (its rows are off by " + std::string(number.data()) +
               "): inertias of part instances go by its inverse, those of roots and sections by "
               "its transpose, and the two differ";
    }
    if (axes.Determinant() < 0.0) {
        return "--axes is not a rotation: it turns a right hand into a left one";
    }
    return {};
}
