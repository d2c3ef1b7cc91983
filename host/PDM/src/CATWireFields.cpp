#include "CATWireFields.h"

#include <charconv>
#include <cmath>

std::string_view CATWireFields::Text()
{
    const std::string_view field = Next().value_or(std::string_view());
    return field == "__null__" ? std::string_view() : field;
}

int CATWireFields::Count()
{
    const std::optional<int> count = Number<int>();
    if (!count || *count < 0) {
        Fail("a count");
        return 0;
    }
    return *count;
}

int CATWireFields::Quantity()
{
    const std::optional<int> quantity = Number<int>();
    if (!quantity || *quantity < 1) {
        Fail("a number of pieces");
        return 0;
    }
    return *quantity;
}

bool CATWireFields::Flag()
{
    const std::string_view field = Text();
    if (field != "0" && field != "1") {
        Fail("0 or 1");
    }
    return field == "1";
}

double CATWireFields::Real()
{
    const std::optional<double> value = Number<double>();
    if (!value || !std::isfinite(*value)) {
        Fail("a number");
        return 0.0;
    }
    return *value;
}

void CATWireFields::End()
{
    if (!m_rest.empty()) {
        ++m_field;
        Fail("the end");
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
        Fail("there");
        return std::nullopt;
    }
    const std::string_view field = m_rest.substr(0, end);
    m_rest.remove_prefix(end + 1);
    return field;
}

void CATWireFields::Fail(std::string_view expected)
{
    // The first fault is the one that explains the others.
    if (IsSound()) {
        m_wrongField = m_field;
        m_expected = expected;
    }
}

template <class T>
std::optional<T> CATWireFields::Number()
{
    const std::string_view field = Text();
    T value{};
    const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), value);
    if (error != std::errc() || end != field.data() + field.size()) {
        return std::nullopt;
    }
    return value;
}
