#pragma once

#include "CATICkeUnit.h"
#include "ModuleSession.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <cmath>
#include <cstdio>
#include <string>
#include <utility>

/// How a unit writes: its own number of decimals, what stands between number and symbol, and which
/// of the two comes first.
struct Look
{
    int decimals = 3;
    const char* between = "";
    bool symbolFirst = false;
};

/// A unit with a straight conversion that shows values as its look says.
class LookUnit : public CATICkeUnit
{
public:
    LookUnit(CATUnicodeString symbol, double factor, double offset, Look shown)
        : m_look(shown), m_symbol(std::move(symbol)), m_factor(factor), m_offset(offset)
    {}
    CATUnicodeString Symbol() const override { return m_symbol; }
    double ToStorage(double value) const override { return value * m_factor + m_offset; }
    double FromStorage(double value) const override { return (value - m_offset) / m_factor; }
    CATUnicodeString Show(double storageValue, int decimals) const override
    {
        EXPECT_GE(decimals, 0);
        char number[512];
        std::snprintf(number, sizeof(number), "%.*f", decimals > 0 ? decimals : m_look.decimals,
                      FromStorage(storageValue));
        std::string text = number;
        if (decimals == 0 && text.find_first_of(".,") != std::string::npos) {
            text.erase(text.find_last_not_of('0') + 1);
            text.erase(text.find_last_not_of(".,") + 1);
        }
        const std::string symbol = m_symbol.ToStdString();
        return m_look.symbolFirst ? symbol + m_look.between + text : text + m_look.between + symbol;
    }

private:
    Look m_look;
    CATUnicodeString m_symbol;
    double m_factor;
    double m_offset;
};

inline CATICkeUnit_var Unit(const char* symbol, double factor = 1, double offset = 0,
                            Look look = {})
{
    return CATICkeUnit_var::Adopt(new LookUnit(symbol, factor, offset, look));
}

// The display in its plainest form, one step after the other.

inline std::string Without(std::string text, const std::string& what)
{
    while (!what.empty() && text.find(what) != std::string::npos) {
        text.erase(text.find(what), what.size());
    }
    return text;
}

inline int PlainDefaultDecimals(const CATICkeUnit_var& unit)
{
    std::string text = Without(unit->Show(unit->ToStorage(1.111111111111), 0).ToStdString(),
                               unit->Symbol().ToStdString());
    text = Without(text, text.find("1.") != std::string::npos ? "1." : "1,");
    return CATUnicodeString(text).Length();
}

inline std::string PlainDisplay(const CATICkeUnit_var& target, const CATICkeUnit_var& source,
                                double value, unsigned char withSymbol, int decimals)
{
    const int count = decimals < 0 ? PlainDefaultDecimals(target) : decimals;
    const std::string text = target->Show(source->ToStorage(value), count).ToStdString();
    return withSymbol != 0 ? text : Without(text, target->Symbol().ToStdString());
}

// Any of what a display takes.

inline double AnyValue()
{
    // From a thousandth of the smallest decimal up to what fills a line, both signs, zero too.
    return *rc::gen::inRange(-99999, 100000) * std::pow(10.0, *rc::gen::inRange(-12, 8));
}

inline int AnyDecimals()
{
    return *rc::gen::inRange(-2, 8);
}

inline const char* AnyLocale()
{
    return *rc::gen::element(kPointLocale, kCommaLocale);
}

inline CATICkeUnit_var AnyLookUnit()
{
    const Look look{.decimals = *rc::gen::inRange(0, 10),
                    .between = *rc::gen::element("", "", " ", "\u00a0"),
                    .symbolFirst = *rc::gen::inRange(0, 4) == 0};
    const char* symbol = *rc::gen::element("kg", "mm", "kg.m2", "\u00b5g", "", "in", "\u00b0", "t");
    const double factor = *rc::gen::element(1.0, 1000.0, 0.001, 25.4, 0.45359237);
    const double offset = *rc::gen::element(0.0, 0.0, 273.15);
    return Unit(symbol, factor, offset, look);
}

/// With all its digits and the separator of the session.
inline std::string Number(double value)
{
    return CATUnicodeString::FromReal(value, "%.17g").ToStdString();
}
