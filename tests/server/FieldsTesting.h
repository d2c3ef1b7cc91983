#pragma once

#include "WBNumbers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <sstream>
#include <string>
#include <vector>

namespace wbtest
{
inline std::vector<std::string> Split(const std::string& text, char separator)
{
    std::vector<std::string> fields;
    std::istringstream stream(text);
    for (std::string field; std::getline(stream, field, separator);) {
        fields.push_back(field);
    }
    return fields;
}

/// Of the largest figure of the same kind; the expected totals have twelve digits.
constexpr double kFieldTolerance = 1e-9;

/// Reads the fields of an answer front to back, each with what a test expects there.
class AnswerFields
{
public:
    explicit AnswerFields(const std::string& answer) : m_fields(Split(answer, '|')) {}

    std::string Next() { return m_next < m_fields.size() ? m_fields[m_next++] : "(end)"; }
    double NextNumber() { return wb::ReadNumber(Next()).value_or(std::nan("")); }
    void Skip(std::size_t count) { m_next += count; }
    bool IsAtEnd() const { return m_next >= m_fields.size(); }

    /// Texts as they stand.
    void Expect(const std::vector<std::string>& expected)
    {
        std::vector<std::string> found;
        for (std::size_t i = 0; i < expected.size(); ++i) {
            found.push_back(Next());
        }
        EXPECT_EQ(found, expected) << "before field " << m_next;
    }
    /// Numbers of one kind, to a share of the largest.
    void ExpectNumbers(const std::vector<double>& expected)
    {
        double largest = 0.0;
        for (const double number : expected) {
            largest = std::max(largest, std::abs(number));
        }
        for (const double number : expected) {
            const std::size_t field = m_next;
            EXPECT_NEAR(NextNumber(), number, kFieldTolerance * largest) << "field " << field;
        }
    }

private:
    std::vector<std::string> m_fields;
    std::size_t m_next = 0;
};
} // namespace wbtest
