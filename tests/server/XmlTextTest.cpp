#include "XmlText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using wb::AppendEscaped;
using wb::XmlAttributes;

namespace
{
std::string Escaped(std::string_view text)
{
    std::string xml = "before ";
    AppendEscaped(xml, text);
    EXPECT_EQ(xml.substr(0, 7), "before ");
    return xml.substr(7);
}
} // namespace

TEST(XmlText, CharactersThatXmlTakesForItsOwnAreEscaped)
{
    EXPECT_EQ(Escaped("a&b<c>d\"e'f"), "a&amp;b&lt;c&gt;d&quot;e'f");
    EXPECT_EQ(Escaped("&&"), "&amp;&amp;");
    EXPECT_EQ(Escaped(""), "");
}

TEST(XmlText, LineEndsAndTabsAreEscapedSoThatNoReaderTakesThemForBlanks)
{
    EXPECT_EQ(Escaped("a\tb\nc\rd"), "a&#9;b&#10;c&#13;d");
}

TEST(XmlText, WhatNoDocumentCanHoldIsReplaced)
{
    EXPECT_EQ(Escaped(std::string_view("a\0b", 3)), "a\xEF\xBF\xBD"
                                                    "b");
    EXPECT_EQ(Escaped("a\x1F"), "a\xEF\xBF\xBD");
    EXPECT_EQ(Escaped("\xEF\xBF\xBF!"), "\xEF\xBF\xBD!");
    EXPECT_EQ(Escaped("\xEF\xBF\xBE"), "\xEF\xBF\xBD");
    EXPECT_EQ(Escaped("x\xFF<y"), "x\xEF\xBF\xBD&lt;y") << "no UTF-8";
}

TEST(XmlText, OtherCharactersStandForThemselves)
{
    EXPECT_EQ(Escaped("\xC3\xA9 \xEF\xBF\xBD \xEF\xBC\xA1 \xF0\x9F\x9A\x80 \x7F"),
              "\xC3\xA9 \xEF\xBF\xBD \xEF\xBC\xA1 \xF0\x9F\x9A\x80 \x7F");
}

TEST(XmlText, AttributesAreCountedAndEmptyOnesLeftOut)
{
    std::string xml;
    XmlAttributes to(xml);
    to.Add("A", "x<");
    to.Add("B", "");
    to.Add("C", 1.5);
    to.Add("D", std::nan(""));
    to.Add("E", std::numeric_limits<double>::infinity());
    to.AddEscaped("F", "&lt;");
    to.Add(XmlAttributes::Written{" G=\"1\" H=\"2\"", 2});
    EXPECT_EQ(xml, " A=\"x&lt;\" C=\"1.5\" F=\"&lt;\" G=\"1\" H=\"2\"");
    EXPECT_EQ(to.Count(), 5U);
}

TEST(XmlText, NumbersHaveAPointAndFifteenDigits)
{
    std::string xml;
    XmlAttributes to(xml);
    to.Add("A", 1.0 / 3.0);
    to.Add("B", -0.0);
    to.Add("C", 1e-20);
    EXPECT_EQ(xml, " A=\"0.333333333333333\" B=\"0\" C=\"1e-20\"");
}
