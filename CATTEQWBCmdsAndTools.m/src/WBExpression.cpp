#include "WBExpression.h"

#include "WBNumbers.h"

#include <array>
#include <cmath>
#include <string_view>

namespace
{

struct OperatorRow
{
    char symbol;
    double (*apply)(double left, double right);
};

constexpr std::array kOperators{
    OperatorRow{'^',
                [](double left, double right) {
                    return std::pow(left, right);
                }},
    OperatorRow{'*',
                [](double left, double right) {
                    return left * right;
                }},
    OperatorRow{'/',
                [](double left, double right) {
                    return left / right;
                }},
    OperatorRow{'+',
                [](double left, double right) {
                    return left + right;
                }},
    OperatorRow{'-',
                [](double left, double right) {
                    return left - right;
                }},
};

double Operand(std::string_view text)
{
    double value = 0.0;
    ReadAnyReal(text, value);
    return value;
}

} // namespace

std::optional<double> ExpressionValue(const CATUnicodeString& text)
{
    const std::string_view expression = text.View();
    // Two different operators are not evaluated at all, so 2*-3 and 1e-5+1 stay as typed, while the
    // "-" of 1e-5 alone is taken for a subtraction.
    const OperatorRow* chosen = nullptr;
    for (const OperatorRow& row : kOperators) {
        if (expression.find(row.symbol) == std::string_view::npos) {
            continue;
        }
        if (chosen != nullptr) {
            return std::nullopt;
        }
        chosen = &row;
    }
    if (chosen == nullptr) {
        return std::nullopt;
    }
    // Only the first operator splits the text, so 1+2+3 gives 3: the right side, 2+3, reads as 2.
    // A side without a number counts as 0, so -4 gives -4.
    const std::size_t position = expression.find(chosen->symbol);
    return chosen->apply(Operand(expression.substr(0, position)),
                         Operand(expression.substr(position + 1)));
}
