#include "CATCkeUnit.h"

#include <algorithm>

namespace
{

// Half of all divisions are by one, and those that are spared are most of what converting costs.
double Scaled(double value, double numerator, double denominator)
{
    const double product = value * numerator;
    return denominator == 1.0 ? product : product / denominator;
}

} // namespace

bool CATCkeIsUsableSymbol(std::string_view symbol)
{
    constexpr std::size_t kMostBytes = 32;
    constexpr std::string_view kPartsOfNumbers = "0123456789+-.,eExX";
    constexpr std::string_view kPartsOfLists = ";|[]";
    if (symbol.empty() || symbol.size() > kMostBytes || symbol.front() == ' ' ||
        symbol.back() == ' ') {
        return false;
    }
    const auto isControl = [](char c) {
        return static_cast<unsigned char>(c) < ' ' || c == '\x7f';
    };
    return kPartsOfNumbers.find(symbol.front()) == std::string_view::npos &&
           symbol.find_first_of(kPartsOfLists) == std::string_view::npos &&
           std::ranges::none_of(symbol, isControl);
}

CATCkeUnit::CATCkeUnit(CATCkeUnitDefinition definition) : m_definition(std::move(definition))
{}

const char* CATCkeUnit::ClassName() const
{
    return "CATCkeUnit";
}

CATUnicodeString CATCkeUnit::Symbol() const
{
    return m_definition.symbol;
}

double CATCkeUnit::ToStorage(double value) const
{
    return Scaled(value + m_definition.offset, m_definition.factor.numerator,
                  m_definition.factor.denominator);
}

double CATCkeUnit::FromStorage(double storageValue) const
{
    return Scaled(storageValue, m_definition.factor.denominator, m_definition.factor.numerator) -
           m_definition.offset;
}

CATUnicodeString CATCkeUnit::Show(double storageValue, int decimals) const
{
    const double value = FromStorage(storageValue);
    const std::string_view symbol = m_definition.symbol.View();
    return decimals > 0
               ? CATCkeShowExactly(value, decimals, symbol)
               : CATCkeShowAtMost(value, m_definition.decimals, m_definition.small, symbol);
}

bool CATCkeUnit::IsStorage() const
{
    return m_definition.factor == CATCkeFactor{} && m_definition.offset == 0.0;
}
