#include "JsonText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace
{
std::string Text(const char* text)
{
    std::string json = ">";
    AppendJsonText(json, text);
    return json;
}

std::string Number(double value)
{
    std::string json = ">";
    AppendJsonNumber(json, value);
    return json;
}
} // namespace

TEST(JsonText, QuotesBackslashesAndControlCharactersAreEscaped)
{
    EXPECT_EQ(Text("Flügel, 5\""), ">\"Flügel, 5\\\"\"");
    EXPECT_EQ(Text("a\\b\n\x1f"), ">\"a\\\\b\\u000a\\u001f\"");
}

TEST(JsonText, NumbersAreTheShortestThatReadBack)
{
    EXPECT_EQ(Number(0.1), ">0.1");
    EXPECT_EQ(Number(107.92069999999997), ">107.92069999999997");
    EXPECT_EQ(Number(-0.0), ">0");
}

TEST(JsonText, WhatIsNoNumberIsNull)
{
    EXPECT_EQ(Number(NAN), ">null");
    EXPECT_EQ(Number(std::numeric_limits<double>::infinity()), ">null");
}
