#include "XMLTestSupport.h"

namespace
{

TEST(CATIDOMDocument, DocumentElementStandsBesideCommentsAndInstructions)
{
    const CATIDOMDocument_var document = Parsed("<!--c--><?p?><r/><!--d-->");
    EXPECT_EQ(document->DocumentElement()->NodeName(), "r");
    EXPECT_EQ(Names(document->ChildNodes()),
              (std::vector<std::string>{"#comment", "p", "r", "#comment"}));
}

TEST(CATIDOMDocument, ElementsByTagNameComeInDocumentOrder)
{
    const CATIDOMDocument_var document =
        Parsed("<a i=\"0\"><b/><a i=\"1\"><a i=\"2\"/></a>a<!--a--><a i=\"3\"/></a>");
    const CATIDOMNodeList_var list = document->ElementsByTagName("a");
    ASSERT_EQ(list->Length(), 4);
    for (int index = 0; index < 4; ++index) {
        CATUnicodeString number;
        EXPECT_EQ(list->Item(index)->AsElement()->GetAttribute("i", number), S_OK);
        EXPECT_EQ(number, CATUnicodeString::FromInt(index));
    }
    EXPECT_EQ(Names(document->ElementsByTagName("*")),
              (std::vector<std::string>{"a", "b", "a", "a", "a"}));
    EXPECT_EQ(document->ElementsByTagName("A")->Length(), 0);
    EXPECT_EQ(document->ElementsByTagName("")->Length(), 0);
}

TEST(CATIDOMDocument, NewNodesStandNowhere)
{
    const CATIDOMDocument_var document = Parsed("<r/>");
    const CATIDOMElement_var element = document->CreateElement("e");
    EXPECT_TRUE(element->ParentNode().IsNull());
    EXPECT_TRUE(element->OwnerDocument() == document);
    EXPECT_EQ(element->AttributeCount(), 0);
    EXPECT_EQ(document->ElementsByTagName("e")->Length(), 0);
    EXPECT_EQ(document->CreateTextNode("t")->NodeType(), CATDOMNodeType::Text);
    EXPECT_EQ(document->CreateTextNode("")->NodeValue(), "");
    EXPECT_EQ(document->CreateComment("c")->NodeType(), CATDOMNodeType::Comment);
    EXPECT_EQ(document->CreateComment("c")->NodeValue(), "c");
}

struct NameRow
{
    const char* name;
    bool isGood;
};
constexpr std::array kNames{
    NameRow{"a", true},
    NameRow{"_", true},
    NameRow{":", true},
    NameRow{"a-b.c_1:Z", true},
    NameRow{"\u00e9t\u00e9", true},
    NameRow{"a\u00b7", true},
    NameRow{"", false},
    NameRow{"1a", false},
    NameRow{"-a", false},
    NameRow{".a", false},
    NameRow{"a b", false},
    NameRow{"a>", false},
    NameRow{"a/", false},
    NameRow{"a=", false},
    NameRow{"a\n", false},
    NameRow{"*", false},
    NameRow{"\u00b7", false},
    NameRow{"\u00d7", false},
    NameRow{"a\xff", false},
    NameRow{"a\u2028", false},
};

TEST(CATIDOMDocument, NamesAreThoseThatCanBeReadAgain)
{
    const CATIDOMDocument_var document = Parsed("<r/>");
    for (const NameRow& row : kNames) {
        EXPECT_EQ(document->CreateElement(row.name).IsNull(), !row.isGood) << row.name;
        EXPECT_EQ(document->DocumentElement()->SetAttribute(row.name, "v"),
                  row.isGood ? S_OK : E_INVALIDARG)
            << row.name;
        CATIDOMDocument_var made;
        EXPECT_EQ(CreateCATIXMLDOMDocumentBuilder()->CreateDocument(row.name, made),
                  row.isGood ? S_OK : E_INVALIDARG)
            << row.name;
        EXPECT_EQ(made.IsNull(), !row.isGood);
        if (row.isGood) {
            EXPECT_EQ(Parsed(Written(made))->DocumentElement()->NodeName(), row.name);
        }
    }
}

struct TextRow
{
    std::string_view text;
    bool isGood;
};
using namespace std::string_view_literals;
constexpr std::array kTexts{
    TextRow{"", true},
    TextRow{"tab\tline\nreturn\r", true},
    TextRow{"\x7f\u0080\u009f\u07ff\u0800\ud7ff\ue000\ufffd\U00010000\U0010ffff", true},
    TextRow{"long enough for eight bytes at once, and \u00e4", true},
    TextRow{"\0"sv, false},
    TextRow{"1234567\x01", false},
    TextRow{"12345678\x1f", false},
    TextRow{"\x0b", false},
    TextRow{"\xff", false},
    TextRow{"\x80", false},
    TextRow{"\xc3", false},
    TextRow{"\xc3(", false},
    TextRow{"\xc0\x80", false},
    TextRow{"\xe0\x9f\xbf", false},
    TextRow{"\xf0\x8f\xbf\xbf", false},
    TextRow{"\xed\xa0\x80", false},
    TextRow{"\xed\xbf\xbf", false},
    TextRow{"\xef\xbf\xbe", false},
    TextRow{"\xef\xbf\xbf", false},
    TextRow{"\xf4\x90\x80\x80", false},
    TextRow{"\xf8\x88\x80\x80\x80", false},
};

TEST(CATIDOMDocument, TextsHoldWhatXMLCanHold)
{
    const CATIDOMDocument_var document = Parsed("<r k=\"old\"/>");
    const CATIDOMElement_var root = document->DocumentElement();
    for (const TextRow& row : kTexts) {
        const long status = row.isGood ? S_OK : E_INVALIDARG;
        const std::string shown = testing::PrintToString(std::string(row.text));
        EXPECT_EQ(document->CreateTextNode(row.text).IsNull(), !row.isGood) << shown;
        EXPECT_EQ(root->SetAttribute("new", row.text), status) << shown;
        root->RemoveAttribute("new");
        EXPECT_EQ(root->SetAttribute("k", row.text), status) << shown;
        EXPECT_EQ(root->AttributeText(0), row.isGood ? row.text : "old") << shown;
        if (row.isGood) {
            root->AppendChild(document->CreateTextNode("> ]]> " + std::string(row.text)));
            const CATIDOMDocument_var again = Parsed(Written(document));
            EXPECT_EQ(again->DocumentElement()->AttributeText(0), row.text) << shown;
            EXPECT_EQ(Written(again), Written(document)) << shown;
        }
        root->SetAttribute("k", "old");
    }
}

TEST(CATIDOMDocument, CommentsHoldWhatCanStandInOne)
{
    const CATIDOMDocument_var document = Parsed("<r/>");
    for (const char* text : {"--", "a--b", "-", "a-", "\r", "\x01"}) {
        EXPECT_TRUE(document->CreateComment(text).IsNull()) << text;
    }
    for (const char* text : {"", "-a", "a-b", " <&>\" "}) {
        const CATIDOMNode_var comment = document->CreateComment(text);
        ASSERT_FALSE(comment.IsNull()) << text;
        document->AppendChild(comment);
    }
    EXPECT_EQ(Written(document), "<r/><!----><!---a--><!--a-b--><!-- <&>\" -->");
    EXPECT_EQ(Written(Parsed(Written(document))), Written(document));
}

TEST(CATIDOMDocument, KnowsTheNamesThatSomethingHadOnce)
{
    const CATIDOMDocument_var document = Parsed("<r a=\"1\"><?target?></r>");
    EXPECT_FALSE(document->FindName("b").IsKnown());
    EXPECT_FALSE(document->FindName("target").IsKnown());
    EXPECT_FALSE(document->FindName("").IsKnown());
    const CATIDOMNodeList_var asked = document->ElementsByTagName("b");
    EXPECT_FALSE(document->FindName("b").IsKnown());
    const CATDOMName r = document->FindName("r");
    const CATDOMName a = document->FindName("a");
    EXPECT_TRUE(r.IsKnown());
    EXPECT_TRUE(a.IsKnown());
    EXPECT_FALSE(r == a);
    EXPECT_EQ(document->NameText(r), "r");
    EXPECT_EQ(document->NameText(a), "a");
    EXPECT_EQ(document->NameText(CATDOMName{}), "");
    const CATIDOMElement_var element = document->CreateElement("b");
    EXPECT_TRUE(document->FindName("b").IsKnown());
    element->SetAttribute("c", "");
    EXPECT_EQ(document->NameText(document->FindName("c")), "c");
    element->RemoveAttribute("c");
    EXPECT_TRUE(document->FindName("c").IsKnown());
}

// More names than the table begins with, some of them alike in their first and last bytes.
TEST(CATIDOMDocument, TellsManyNamesApart)
{
    const CATIDOMDocument_var document = Parsed("<r/>");
    const CATIDOMElement_var root = document->DocumentElement();
    for (int number = 0; number < 1000; ++number) {
        root->SetAttribute("name_" + std::to_string(number) + "_same", std::to_string(number));
    }
    for (int number = 0; number < 1000; ++number) {
        CATUnicodeString value;
        EXPECT_EQ(root->GetAttribute("name_" + std::to_string(number) + "_same", value), S_OK);
        EXPECT_EQ(value, std::to_string(number));
    }
}

TEST(CATIDOMDocument, ManyDocumentsLiveSideBySide)
{
    const CATIDOMDocument_var first = Parsed("<r><a/></r>");
    {
        const CATIDOMDocument_var second = Parsed("<r><b/></r>");
        EXPECT_TRUE(Find(second, "a").IsNull());
    }
    EXPECT_EQ(Find(first, "a")->NodeName(), "a");
}

} // namespace
