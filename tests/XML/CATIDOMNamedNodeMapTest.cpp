#include "XMLTestSupport.h"

namespace
{

TEST(CATIDOMNamedNodeMap, GivesAttributesInOrderOfAppearanceAndNullPastTheEnd)
{
    const CATIDOMNamedNodeMap_var map =
        Parsed("<r z=\"1\" a=\"2\" m=\"3\"/>")->DocumentElement()->Attributes();
    ASSERT_EQ(map->Length(), 3);
    EXPECT_EQ(map->Item(0)->NodeName(), "z");
    EXPECT_EQ(map->Item(1)->NodeName(), "a");
    EXPECT_EQ(map->Item(2)->NodeName(), "m");
    EXPECT_EQ(map->Item(2)->NodeValue(), "3");
    EXPECT_TRUE(map->Item(3).IsNull());
    EXPECT_TRUE(map->Item(-1).IsNull());
    EXPECT_EQ(map->NamedItem("a")->NodeValue(), "2");
    EXPECT_TRUE(map->NamedItem("b").IsNull());
    EXPECT_TRUE(map->NamedItem("r").IsNull());
    EXPECT_STREQ(map->ClassName(), "CATIDOMNamedNodeMap");
}

TEST(CATIDOMNamedNodeMap, IsLive)
{
    const CATIDOMElement_var root = Parsed("<r a=\"1\"/>")->DocumentElement();
    const CATIDOMNamedNodeMap_var map = root->Attributes();
    root->SetAttribute("b", "2");
    EXPECT_EQ(map->Length(), 2);
    EXPECT_EQ(map->Item(1)->NodeName(), "b");
    root->RemoveAttribute("a");
    EXPECT_EQ(map->Length(), 1);
    EXPECT_EQ(map->Item(0)->NodeName(), "b");
    EXPECT_TRUE(map->Item(1).IsNull());
}

TEST(CATIDOMNamedNodeMap, OfAnElementWithoutAttributesIsEmpty)
{
    const CATIDOMNamedNodeMap_var map = Parsed("<r/>")->DocumentElement()->Attributes();
    EXPECT_EQ(map->Length(), 0);
    EXPECT_TRUE(map->Item(0).IsNull());
}

TEST(CATIDOMNamedNodeMap, AttributeIsANodeWithoutATree)
{
    const CATIDOMDocument_var document = Parsed("<r a=\"1\">text</r>");
    const CATIDOMNode_var attribute = document->DocumentElement()->Attributes()->Item(0);
    EXPECT_EQ(attribute->NodeType(), CATDOMNodeType::Attribute);
    EXPECT_TRUE(attribute->ParentNode().IsNull());
    EXPECT_TRUE(attribute->FirstChild().IsNull());
    EXPECT_TRUE(attribute->LastChild().IsNull());
    EXPECT_TRUE(attribute->PreviousSibling().IsNull());
    EXPECT_TRUE(attribute->NextSibling().IsNull());
    EXPECT_TRUE(attribute->Attributes().IsNull());
    EXPECT_EQ(attribute->AsElement(), nullptr);
    EXPECT_EQ(attribute->ChildNodes()->Length(), 0);
    EXPECT_TRUE(attribute->ChildNodes()->Item(0).IsNull());
    EXPECT_TRUE(attribute->OwnerDocument() == document);
    EXPECT_STREQ(attribute->ClassName(), "CATIDOMNode");
    const CATIDOMNode_var text = document->CreateTextNode("2");
    EXPECT_EQ(attribute->AppendChild(text), E_INVALIDARG);
    EXPECT_EQ(attribute->InsertBefore(text, CATIDOMNode_var()), E_INVALIDARG);
    EXPECT_EQ(attribute->RemoveChild(text), E_INVALIDARG);
}

TEST(CATIDOMNamedNodeMap, AttributeNodeFollowsTheTextAndKeepsTheLastOne)
{
    const CATIDOMElement_var root = Parsed("<r a=\"1\" b=\"2\"/>")->DocumentElement();
    const CATIDOMNode_var a = root->Attributes()->Item(0);
    const CATIDOMNode_var b = root->Attributes()->Item(1);
    root->SetAttribute("a", "one");
    EXPECT_EQ(a->NodeValue(), "one");
    root->RemoveAttribute("a");
    EXPECT_EQ(a->NodeName(), "a");
    EXPECT_EQ(a->NodeValue(), "one");
    EXPECT_EQ(b->NodeValue(), "2");
    // An attribute that comes later under the same name is another one.
    root->SetAttribute("a", "new");
    EXPECT_EQ(a->NodeValue(), "one");
    EXPECT_FALSE(root->Attributes()->NamedItem("a") == a);
}

TEST(CATIDOMNamedNodeMap, AttributeIsTheSameNodeAsLongAsItIsHeld)
{
    const CATIDOMElement_var root = Parsed("<r a=\"1\" b=\"2\" c=\"3\"/>")->DocumentElement();
    const CATIDOMNamedNodeMap_var map = root->Attributes();
    CATIDOMNode_var a = map->Item(0);
    CATIDOMNode_var b = map->Item(1);
    CATIDOMNode_var c = map->Item(2);
    EXPECT_TRUE(map->Item(0) == a);
    EXPECT_TRUE(root->Attributes()->NamedItem("c") == c);
    // They leave the element's keeping in any order.
    b = {};
    EXPECT_TRUE(map->Item(0) == a);
    EXPECT_TRUE(map->Item(2) == c);
    c = {};
    a = {};
    EXPECT_EQ(map->Item(1)->NodeValue(), "2");
    const CATIDOMNode_var again = map->Item(0);
    root->RemoveAttribute("a");
    EXPECT_EQ(again->NodeValue(), "1");
}

} // namespace
