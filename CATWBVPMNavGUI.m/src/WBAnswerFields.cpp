#include "WBAnswerFields.h"

#include <charconv>
#include <cmath>

namespace
{

constexpr std::string_view kNothing = "__null__";

} // namespace

CATUnicodeString WBAnswerFields::Text()
{
    m_isGood = m_isGood && !m_fields.IsAtEnd(); // a field that was cut off is not an empty one
    const std::string_view text = m_fields.NextView();
    return text == kNothing ? CATUnicodeString() : CATUnicodeString(text);
}

std::optional<double> WBAnswerFields::Number()
{
    const std::string_view text = m_fields.NextView();
    if (text == kNothing) {
        return std::nullopt;
    }
    const double value = Read<double>(text);
    m_isGood = m_isGood && std::isfinite(value);
    return value;
}

double WBAnswerFields::KnownNumber()
{
    const std::optional<double> value = Number();
    m_isGood = m_isGood && value.has_value();
    return value.value_or(0.0);
}

long long WBAnswerFields::Count()
{
    const auto value = Read<long long>(m_fields.NextView());
    m_isGood = m_isGood && value >= 0;
    return m_isGood ? value : 0;
}

int WBAnswerFields::Digit(int most)
{
    const int value = Read<int>(m_fields.NextView());
    m_isGood = m_isGood && value >= 0 && value <= most;
    return m_isGood ? value : 0;
}

template <class Value>
Value WBAnswerFields::Read(std::string_view text)
{
    Value value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    m_isGood = m_isGood && error == std::errc() && end == text.data() + text.size();
    return value;
}
