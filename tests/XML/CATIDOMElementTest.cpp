#include "FatalErrorCapture.h"
#include "XMLTestSupport.h"

#include <malloc.h>

namespace
{

TEST(CATIDOMElement, AttributesKeepTheirOrderOfAppearance)
{
    const CATIDOMDocument_var document = Parsed("<r z=\"1\" a=\"2\" m=\"3\"/>");
    const CATIDOMElement_var root = document->DocumentElement();
    EXPECT_EQ(root->SetAttribute("b", "4"), S_OK);
    EXPECT_EQ(root->SetAttribute("a", "two"), S_OK);
    EXPECT_EQ(Written(document), "<r z=\"1\" a=\"two\" m=\"3\" b=\"4\"/>");
    EXPECT_EQ(root->RemoveAttribute("z"), S_OK);
    EXPECT_EQ(root->SetAttribute("z", ""), S_OK);
    EXPECT_EQ(Written(document), "<r a=\"two\" m=\"3\" b=\"4\" z=\"\"/>");
}

TEST(CATIDOMElement, AttributeThatIsMissingIsNotOneThatIsEmpty)
{
    const CATIDOMDocument_var document = Parsed("<r empty=\"\"/>");
    const CATIDOMElement_var root = document->DocumentElement();
    CATUnicodeString value = "before";
    EXPECT_FALSE(root->HasAttribute("missing"));
    EXPECT_EQ(root->GetAttribute("missing", value), E_FAIL);
    EXPECT_EQ(value, "before");
    EXPECT_EQ(root->RemoveAttribute("missing"), S_FALSE);
    EXPECT_TRUE(root->HasAttribute("empty"));
    EXPECT_EQ(root->GetAttribute("empty", value), S_OK);
    EXPECT_EQ(value, "");
    EXPECT_EQ(root->RemoveAttribute("empty"), S_OK);
    EXPECT_FALSE(root->HasAttribute("empty"));
}

TEST(CATIDOMElement, WalksAttributesByNumber)
{
    const CATIDOMDocument_var document = Parsed("<r a=\"1\" b=\"22\"><s b=\"3\"/></r>");
    const CATIDOMElement_var root = document->DocumentElement();
    const CATDOMName a = document->FindName("a");
    const CATDOMName b = document->FindName("b");
    EXPECT_EQ(root->AttributeCount(), 2);
    EXPECT_TRUE(root->AttributeName(0) == a);
    EXPECT_TRUE(root->AttributeName(1) == b);
    EXPECT_EQ(root->AttributeText(1), "22");
    EXPECT_EQ(root->FindAttribute(a), 0);
    EXPECT_EQ(root->FindAttribute(b), 1);
    EXPECT_EQ(root->FindAttribute(CATDOMName{}), -1);
    EXPECT_EQ(root->FindAttribute(CATDOMName{1000}), -1);
    const CATIDOMElement_var s = Find(document, "s");
    EXPECT_EQ(s->FindAttribute(a), -1);
    EXPECT_EQ(s->FindAttribute(b), 0);
    EXPECT_EQ(root->FindAttribute(b), 1);
    EXPECT_EQ(root->RewriteAttribute(1, "x"), S_OK);
    EXPECT_EQ(root->RewriteAttribute(1, "\x01"), E_INVALIDARG);
    EXPECT_EQ(Written(document), "<r a=\"1\" b=\"x\"><s b=\"3\"/></r>");
    EXPECT_EQ(root->RewriteAttribute(1, std::string_view()), S_OK);
    EXPECT_EQ(root->AttributeText(1), "");
}

TEST(CATIDOMElement, IndexOutOfRangeRaisesTheFatalError)
{
    const CATIDOMElement_var root = Parsed("<r a=\"1\"/>")->DocumentElement();
    const FatalErrorCapture capture;
    EXPECT_FALSE(root->AttributeName(1).IsKnown());
    EXPECT_EQ(root->AttributeText(-1), "");
    EXPECT_EQ(root->RewriteAttribute(1, ""), E_INVALIDARG);
    EXPECT_EQ(capture.Errors().size(), 3U);
}

TEST(CATIDOMElement, ElementsByTagNameAreThoseBelowIt)
{
    const CATIDOMDocument_var document = Parsed("<a><a><a/><b/></a><a/></a>");
    const CATIDOMElement_var inner = Find(document, "b")->ParentNode();
    EXPECT_EQ(inner->ElementsByTagName("a")->Length(), 1);
    EXPECT_EQ(Names(inner->ElementsByTagName("*")), (std::vector<std::string>{"a", "b"}));
}

// Texts of all lengths around those that stand in place, in turns.
TEST(CATIDOMElement, TextsOfAnyLengthTakeTheirTurns)
{
    const CATIDOMElement_var root = Parsed("<r a=\"1\" b=\"2\"/>")->DocumentElement();
    const std::vector<std::size_t> lengths{0,   19,    20, 18,    21,    300,  20,
                                           301, 70000, 5,  16384, 16385, 90000};
    for (const std::size_t length : lengths) {
        const std::string text(length, 'x');
        EXPECT_EQ(root->RewriteAttribute(0, text), S_OK);
        EXPECT_EQ(root->AttributeText(0), text);
        EXPECT_EQ(root->AttributeText(1), "2");
    }
}

TEST(CATIDOMElement, TextMayBeMadeOfThePartOfItself)
{
    const CATIDOMElement_var root =
        Parsed("<r short=\"0123456789\" long=\"0123456789012345678901234567890123456789\"/>")
            ->DocumentElement();
    EXPECT_EQ(root->RewriteAttribute(0, root->AttributeText(0).substr(3)), S_OK);
    EXPECT_EQ(root->AttributeText(0), "3456789");
    EXPECT_EQ(root->RewriteAttribute(1, root->AttributeText(1).substr(5)), S_OK);
    EXPECT_EQ(root->AttributeText(1), "56789012345678901234567890123456789");
    EXPECT_EQ(root->RewriteAttribute(0, root->AttributeText(1)), S_OK);
    EXPECT_EQ(root->AttributeText(0), root->AttributeText(1));
    EXPECT_EQ(root->RewriteAttribute(1, root->AttributeText(1).substr(30)), S_OK);
    EXPECT_EQ(root->AttributeText(1), "56789");
}

TEST(CATIDOMElement, RemovingAttributesKeepsTheOthers)
{
    const CATIDOMDocument_var document = Parsed("<r/>");
    const CATIDOMElement_var root = document->DocumentElement();
    const std::string tail(40, 't');
    for (int number = 0; number < 100; ++number) {
        EXPECT_EQ(root->SetAttribute("a" + std::to_string(number), std::to_string(number) + tail),
                  S_OK);
    }
    for (int number = 0; number < 100; number += 2) {
        EXPECT_EQ(root->RemoveAttribute("a" + std::to_string(number)), S_OK);
    }
    EXPECT_EQ(root->AttributeCount(), 50);
    for (int number = 1; number < 100; number += 2) {
        EXPECT_EQ(root->AttributeText(number / 2), std::to_string(number) + tail);
        EXPECT_EQ(root->FindAttribute(document->FindName("a" + std::to_string(number))),
                  number / 2);
    }
}

std::size_t MemoryInUse()
{
    const struct mallinfo2 facts = mallinfo2();
    return facts.uordblks + facts.hblkhd;
}

// A value as it is shown on one of two turns: in storage units, then with a unit's symbol.
std::string ShownValue(int element, int attribute, int turn)
{
    const std::string digits = std::to_string(element) + ".123456789012345";
    const auto length = static_cast<std::size_t>((element * 7 + attribute * 5 + turn * 11) % 16);
    return digits.substr(0, 3 + length) + (turn % 2 == 0 ? "" : "kg.m2");
}

TEST(CATIDOMElement, RewritingAgainAndAgainDoesNotGrowTheMemory)
{
    std::string text = "<r>";
    for (int element = 0; element < 2000; ++element) {
        text += "<e a0=\"0\" a1=\"1\" a2=\"2\" a3=\"3\" a4=\"4\" a5=\"5\" a6=\"6\" a7=\"7\"/>";
    }
    text += "</r>";
    const std::size_t before = MemoryInUse();
    const CATIDOMDocument_var document = Parsed(text);
    const CATIDOMNodeList_var elements = document->ElementsByTagName("e");
    std::size_t afterFirst = 0;
    for (int turn = 0; turn < 100; ++turn) {
        for (int element = 0; element < elements->Length(); ++element) {
            CATIDOMElement* rewritten = elements->Item(element)->AsElement();
            for (int attribute = 0; attribute < rewritten->AttributeCount(); ++attribute) {
                rewritten->RewriteAttribute(attribute, ShownValue(element, attribute, turn % 2));
            }
            rewritten->SetAttribute("new", "a text that is too long to stand in place");
            rewritten->RemoveAttribute("new");
        }
        if (turn == 1) {
            afterFirst = MemoryInUse() - before;
        }
    }
    EXPECT_LE(MemoryInUse() - before, afterFirst + afterFirst / 10);
}

TEST(CATIDOMElement, RemovedTreesGiveTheirRoomBack)
{
    const CATIDOMDocument_var document = Parsed("<r/>");
    const CATIDOMElement_var root = document->DocumentElement();
    const std::string longText(30000, 'x');
    std::size_t afterFirst = 0;
    for (int turn = 0; turn < 1000; ++turn) {
        const CATIDOMElement_var element = document->CreateElement("e");
        element->SetAttribute("a", std::string(100, 'a'));
        element->SetAttribute("b", longText);
        element->AppendChild(document->CreateTextNode(longText));
        root->AppendChild(element);
        root->RemoveChild(element);
        if (turn == 0) {
            afterFirst = MemoryInUse();
        }
    }
    EXPECT_LE(MemoryInUse(), afterFirst + 200000);
}

TEST(CATIDOMElement, ReportTakesLittleMoreMemoryThanItsText)
{
    std::string text = "<r>";
    for (int element = 0; element < 5000; ++element) {
        text += "<PartInstance";
        for (int attribute = 0; attribute < 25; ++attribute) {
            text += " WB_Value" + std::to_string(attribute) + "=\"" +
                    ShownValue(element, attribute, 0) + '"';
        }
        text += "/>";
    }
    text += "</r>";
    const std::size_t before = MemoryInUse();
    const CATIDOMDocument_var document = Parsed(text);
    EXPECT_LE(MemoryInUse() - before, text.size() * 22 / 10);
}

} // namespace
