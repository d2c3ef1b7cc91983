#include "XMLTestSupport.h"

namespace
{

using Type = CATDOMNodeType;

struct KindRow
{
    Type type;
    const char* name;
    const char* value;
};

TEST(CATIDOMNode, TellsItsKindNameAndValue)
{
    const CATIDOMDocument_var document =
        Parsed("<r a=\"1\">text<![CDATA[<data>]]><!--comment--><?target some data?></r>");
    constexpr std::array kRows{KindRow{Type::Text, "#text", "text"},
                               KindRow{Type::CDataSection, "#cdata-section", "<data>"},
                               KindRow{Type::Comment, "#comment", "comment"},
                               KindRow{Type::ProcessingInstruction, "target", "some data"}};
    const CATIDOMNodeList_var children = document->DocumentElement()->ChildNodes();
    ASSERT_EQ(children->Length(), 4);
    for (int index = 0; index < 4; ++index) {
        const CATIDOMNode_var node = children->Item(index);
        const KindRow& row = kRows[static_cast<std::size_t>(index)];
        EXPECT_EQ(node->NodeType(), row.type);
        EXPECT_EQ(node->NodeName(), row.name);
        EXPECT_EQ(node->NodeValue(), row.value);
        EXPECT_EQ(node->AsElement(), nullptr);
        EXPECT_TRUE(node->Attributes().IsNull());
        EXPECT_EQ(node->ChildNodes()->Length(), 0);
        EXPECT_STREQ(node->ClassName(), "CATIDOMNode");
    }
    EXPECT_EQ(document->NodeType(), Type::Document);
    EXPECT_EQ(document->NodeName(), "#document");
    EXPECT_EQ(document->NodeValue(), "");
    EXPECT_EQ(document->AsElement(), nullptr);
    EXPECT_TRUE(document->Attributes().IsNull());
    EXPECT_STREQ(document->ClassName(), "CATIDOMDocument");
    const CATIDOMElement_var element = document->DocumentElement();
    EXPECT_EQ(element->NodeType(), Type::Element);
    EXPECT_EQ(element->NodeName(), "r");
    EXPECT_EQ(element->NodeValue(), "");
    EXPECT_EQ(element->AsElement(), element.Get());
    EXPECT_STREQ(element->ClassName(), "CATIDOMElement");
}

TEST(CATIDOMNode, NumbersOfTheKindsAreThoseOfEveryObjectModel)
{
    EXPECT_EQ(static_cast<int>(Type::Element), 1);
    EXPECT_EQ(static_cast<int>(Type::Attribute), 2);
    EXPECT_EQ(static_cast<int>(Type::Text), 3);
    EXPECT_EQ(static_cast<int>(Type::CDataSection), 4);
    EXPECT_EQ(static_cast<int>(Type::ProcessingInstruction), 7);
    EXPECT_EQ(static_cast<int>(Type::Comment), 8);
    EXPECT_EQ(static_cast<int>(Type::Document), 9);
}

TEST(CATIDOMNode, FindsItsNeighbours)
{
    const CATIDOMDocument_var document = Parsed("<r><a/><b/><c/></r>");
    const CATIDOMNode_var root = document->DocumentElement();
    const CATIDOMNode_var b = Find(document, "b");
    EXPECT_EQ(root->FirstChild()->NodeName(), "a");
    EXPECT_EQ(root->LastChild()->NodeName(), "c");
    EXPECT_EQ(b->PreviousSibling()->NodeName(), "a");
    EXPECT_EQ(b->NextSibling()->NodeName(), "c");
    EXPECT_TRUE(b->ParentNode() == root);
    EXPECT_TRUE(root->FirstChild()->PreviousSibling().IsNull());
    EXPECT_TRUE(root->LastChild()->NextSibling().IsNull());
    EXPECT_TRUE(b->FirstChild().IsNull());
    EXPECT_TRUE(b->LastChild().IsNull());
    EXPECT_EQ(root->ParentNode()->NodeType(), Type::Document);
    EXPECT_TRUE(document->ParentNode().IsNull());
    EXPECT_TRUE(b->OwnerDocument() == document);
    EXPECT_TRUE(document->OwnerDocument() == document);
}

TEST(CATIDOMNode, AppendAndInsertPutNodesInTheirPlace)
{
    const CATIDOMDocument_var document = Parsed("<r><a/><c/></r>");
    const CATIDOMNode_var root = document->DocumentElement();
    EXPECT_EQ(root->AppendChild(document->CreateElement("d")), S_OK);
    EXPECT_EQ(root->InsertBefore(document->CreateElement("b"), Find(document, "c")), S_OK);
    EXPECT_EQ(root->InsertBefore(document->CreateComment("0"), root->FirstChild()), S_OK);
    EXPECT_EQ(root->InsertBefore(document->CreateTextNode("end"), CATIDOMNode_var()), S_OK);
    EXPECT_EQ(Written(document), "<r><!--0--><a/><b/><c/><d/>end</r>");
}

TEST(CATIDOMNode, NodeThatStandsElsewhereIsTakenOutThereFirst)
{
    const CATIDOMDocument_var document = Parsed("<r><a><x/></a><b/><c/></r>");
    EXPECT_EQ(Find(document, "b")->AppendChild(Find(document, "x")), S_OK);
    EXPECT_EQ(Written(document), "<r><a/><b><x/></b><c/></r>");
    const CATIDOMNode_var root = document->DocumentElement();
    EXPECT_EQ(root->AppendChild(root->FirstChild()), S_OK);
    EXPECT_EQ(root->InsertBefore(Find(document, "c"), Find(document, "b")), S_OK);
    EXPECT_EQ(Written(document), "<r><c/><b><x/></b><a/></r>");
}

TEST(CATIDOMNode, InsertingANodeBeforeItselfLeavesItThere)
{
    const CATIDOMDocument_var document = Parsed("<r><a/><b/><c/></r>");
    const CATIDOMNode_var b = Find(document, "b");
    EXPECT_EQ(document->DocumentElement()->InsertBefore(b, b), S_OK);
    EXPECT_EQ(Written(document), "<r><a/><b/><c/></r>");
}

TEST(CATIDOMNode, RefusesWhatTheTreeDoesNotAllow)
{
    const CATIDOMDocument_var document = Parsed("<r k=\"v\"><a><x/></a>text<b/></r>");
    const CATIDOMDocument_var other = Parsed("<other/>");
    const CATIDOMNode_var root = document->DocumentElement();
    const CATIDOMNode_var a = Find(document, "a");
    const CATIDOMNode_var x = Find(document, "x");
    const CATIDOMNode_var b = Find(document, "b");
    const CATIDOMNode_var text = a->NextSibling();
    const CATIDOMNode_var attribute = root->Attributes()->Item(0);
    EXPECT_EQ(root->AppendChild(CATIDOMNode_var()), E_INVALIDARG);
    EXPECT_EQ(root->AppendChild(other->DocumentElement()), E_INVALIDARG);
    EXPECT_EQ(root->AppendChild(attribute), E_INVALIDARG);
    EXPECT_EQ(root->AppendChild(document), E_INVALIDARG);
    EXPECT_EQ(root->AppendChild(root), E_INVALIDARG);
    EXPECT_EQ(x->AppendChild(root), E_INVALIDARG);
    EXPECT_EQ(x->AppendChild(a), E_INVALIDARG);
    EXPECT_EQ(text->AppendChild(b), E_INVALIDARG);
    EXPECT_EQ(root->InsertBefore(b, x), E_INVALIDARG);
    EXPECT_EQ(root->InsertBefore(b, attribute), E_INVALIDARG);
    EXPECT_EQ(root->InsertBefore(document->CreateElement("n"), root), E_INVALIDARG);
    EXPECT_EQ(root->RemoveChild(x), E_INVALIDARG);
    EXPECT_EQ(root->RemoveChild(CATIDOMNode_var()), E_INVALIDARG);
    EXPECT_EQ(root->RemoveChild(attribute), E_INVALIDARG);
    EXPECT_EQ(Written(document), "<r k=\"v\"><a><x/></a>text<b/></r>");
    EXPECT_EQ(Written(other), "<other/>");
}

TEST(CATIDOMNode, DocumentTakesOneElementAndNoText)
{
    const CATIDOMDocument_var document = Parsed("<r/>");
    const CATIDOMNode_var root = document->DocumentElement();
    EXPECT_EQ(document->AppendChild(document->CreateElement("second")), E_INVALIDARG);
    EXPECT_EQ(document->AppendChild(document->CreateTextNode("text")), E_INVALIDARG);
    EXPECT_EQ(document->InsertBefore(document->CreateComment("before"), root), S_OK);
    EXPECT_EQ(document->AppendChild(document->CreateComment("after")), S_OK);
    EXPECT_EQ(document->AppendChild(root), S_OK);
    EXPECT_EQ(Written(document), "<!--before--><!--after--><r/>");
    EXPECT_EQ(document->RemoveChild(root), S_OK);
    EXPECT_TRUE(document->DocumentElement().IsNull());
    EXPECT_EQ(document->AppendChild(document->CreateElement("second")), S_OK);
    EXPECT_EQ(Written(document), "<!--before--><!--after--><second/>");
}

// An element with as many others in it as make `depth` in all.
CATIDOMNode_var Tower(const CATIDOMDocument_var& document, int depth)
{
    CATIDOMNode_var tower = document->CreateElement("top");
    CATIDOMNode_var at = tower;
    for (int height = 1; height < depth; ++height) {
        const CATIDOMNode_var next = document->CreateElement("level");
        EXPECT_EQ(at->AppendChild(next), S_OK);
        at = next;
    }
    return tower;
}

TEST(CATIDOMNode, RefusesAPlaceThatIsTooDeep)
{
    const CATIDOMDocument_var document = Parsed("<r><a/></r>");
    const CATIDOMNode_var root = document->DocumentElement();
    const CATIDOMNode_var a = Find(document, "a");
    const CATIDOMNode_var tower = Tower(document, kCATDOMMostDepth - 1);
    tower->InsertBefore(document->CreateElement("low"), tower->FirstChild());
    EXPECT_EQ(a->AppendChild(tower), E_INVALIDARG);
    EXPECT_EQ(a->FirstChild().IsNull(), true);
    EXPECT_EQ(root->AppendChild(tower), S_OK);
    // The deepest still takes a text, but no element.
    CATIDOMNode_var deepest = tower;
    for (CATIDOMNode_var next = tower; next; next = next->LastChild()) {
        deepest = next;
    }
    EXPECT_EQ(deepest->AppendChild(document->CreateElement("more")), E_INVALIDARG);
    EXPECT_EQ(deepest->AppendChild(document->CreateTextNode("text")), S_OK);
    EXPECT_EQ(root->InsertBefore(tower, a), S_OK);
    EXPECT_TRUE(Parsed(CreateCATIXMLDOMDocumentBuilder()->WriteText(document)));
}

TEST(CATIDOMNode, RemovedNodeStaysWhatItIsAndCanBePutInAgain)
{
    const CATIDOMDocument_var document =
        Parsed("<r><a k=\"a long value, kept elsewhere\">t<x/></a><b/></r>");
    const CATIDOMNode_var root = document->DocumentElement();
    const CATIDOMElement_var a = Find(document, "a");
    EXPECT_EQ(root->RemoveChild(a), S_OK);
    EXPECT_TRUE(a->ParentNode().IsNull());
    EXPECT_TRUE(a->NextSibling().IsNull());
    EXPECT_EQ(Written(document), "<r><b/></r>");
    EXPECT_EQ(Names(a->ChildNodes()), (std::vector<std::string>{"#text", "x"}));
    EXPECT_EQ(root->AppendChild(a), S_OK);
    EXPECT_EQ(Written(document), "<r><b/><a k=\"a long value, kept elsewhere\">t<x/></a></r>");
}

TEST(CATIDOMNode, EveryHandleKeepsTheWholeDocument)
{
    CATIDOMNode_var node = Find(Parsed("<r><a k=\"v\"/></r>"), "a");
    EXPECT_EQ(node->ParentNode()->NodeName(), "r");
    CATIDOMNode_var attribute = node->Attributes()->Item(0);
    node = {};
    EXPECT_EQ(attribute->NodeValue(), "v");
    CATIDOMNodeList_var list = attribute->OwnerDocument()->ElementsByTagName("a");
    attribute = {};
    CATIDOMNamedNodeMap_var map = list->Item(0)->Attributes();
    list = {};
    EXPECT_EQ(map->Length(), 1);
    const CATIDOMNodeList_var none = map->Item(0)->ChildNodes();
    map = {};
    EXPECT_EQ(Written(none->OwnerDocument()), "<r><a k=\"v\"/></r>");
}

TEST(CATIDOMNode, HeldNodeInARemovedOneThatNobodyHoldsStaysOnItsOwn)
{
    const CATIDOMDocument_var document = Parsed("<r><a><b><c/></b><d/></a></r>");
    const CATIDOMNode_var b = Find(document, "b");
    const CATIDOMNode_var c = Find(document, "c");
    document->DocumentElement()->RemoveChild(Find(document, "a"));
    EXPECT_TRUE(b->ParentNode().IsNull());
    EXPECT_TRUE(b->NextSibling().IsNull());
    EXPECT_TRUE(c->ParentNode() == b);
    document->DocumentElement()->AppendChild(b);
    EXPECT_EQ(Written(document), "<r><b><c/></b></r>");
}

TEST(CATIDOMNode, MoveWithinTheParentKeepsTheHandle)
{
    const CATIDOMDocument_var document = Parsed("<r><a/><b/></r>");
    const CATIDOMNode_var root = document->DocumentElement();
    for (int turn = 0; turn < 1000; ++turn) {
        root->AppendChild(root->FirstChild());
    }
    EXPECT_EQ(Written(document), "<r><a/><b/></r>");
}

// Between two neighbours there is room for some nodes; when it is used up all are numbered anew.
TEST(CATIDOMNode, ManyNodesFitBetweenTwo)
{
    const CATIDOMDocument_var document = Parsed("<r><a/><z/></r>");
    const CATIDOMNode_var root = document->DocumentElement();
    const CATIDOMNode_var z = root->LastChild();
    const CATIDOMNodeList_var list = document->ElementsByTagName("z");
    EXPECT_TRUE(list->Item(0) == z);
    for (int count = 0; count < 200; ++count) {
        root->InsertBefore(document->CreateElement("z"), z);
        ASSERT_TRUE(list->Item(count + 1) == z);
        ASSERT_TRUE(list->Item(count) == z->PreviousSibling());
    }
}

} // namespace
