#include "CATWireFields.h"

#include <charconv>
#include <cmath>

namespace
{
constexpr std::string_view kNull = "__null__";

/// The number that fills the text.
template <class T>
std::optional<T> NumberOf(std::string_view text)
{
    T value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) {
        return std::nullopt;
    }
    return value;
}
} // namespace

std::string_view CATWireFields::Text()
{
    const std::string_view field = Next().value_or(std::string_view());
    return field == kNull ? std::string_view() : field;
}

long long CATWireFields::Count()
{
    const auto count = NumberOf<long long>(Text());
    if (!count || *count < 0) {
        Refuse("a count");
        return 0;
    }
    return *count;
}

int CATWireFields::Quantity()
{
    const auto quantity = NumberOf<int>(Text());
    if (!quantity || *quantity < 1) {
        Refuse("a number of pieces");
        return 0;
    }
    return *quantity;
}

bool CATWireFields::Flag()
{
    const std::string_view field = Text();
    if (field != "0" && field != "1") {
        Refuse("0 or 1");
    }
    return field == "1";
}

int CATWireFields::Digit(int most)
{
    const auto digit = NumberOf<int>(Text());
    if (!digit || *digit < 0 || *digit > most) {
        Refuse("a known choice");
        return 0;
    }
    return *digit;
}

double CATWireFields::Real()
{
    return FiniteNumber(Text());
}

std::optional<double> CATWireFields::OptionalReal()
{
    const std::string_view field = Next().value_or(std::string_view());
    return field == kNull ? std::nullopt : std::optional(FiniteNumber(field));
}

void CATWireFields::End()
{
    if (!m_rest.empty()) {
        ++m_field;
        Refuse("the end");
    }
}

std::optional<std::string_view> CATWireFields::Next()
{
    if (!IsSound()) {
        return std::nullopt;
    }
    ++m_field;
    const std::size_t end = m_rest.find('|');
    if (end == std::string_view::npos) {
        Refuse("there");
        return std::nullopt;
    }
    const std::string_view field = m_rest.substr(0, end);
    m_rest.remove_prefix(end + 1);
    return field;
}

void CATWireFields::Refuse(std::string_view expected)
{
    // The first fault is the one that explains the others.
    if (IsSound()) {
        m_wrongField = m_field;
        m_expected = expected;
    }
}

double CATWireFields::FiniteNumber(std::string_view field)
{
    const auto value = NumberOf<double>(field);
    if (!value || !std::isfinite(*value)) {
        Refuse("a number");
        return 0.0;
    }
    return *value;
}
