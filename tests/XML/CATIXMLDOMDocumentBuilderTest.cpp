#include "CATIXMLDOMDocumentBuilder.h"

#include <gtest/gtest.h>

namespace
{

CATIDOMDocument_var Parsed(std::string_view text)
{
    CATIDOMDocument_var document;
    CATXMLProblem problem;
    EXPECT_EQ(CreateCATIXMLDOMDocumentBuilder()->ParseText(text, document, problem), S_OK)
        << problem.sentence.Text();
    return document;
}

constexpr const char* kDeclaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

TEST(CATIXMLDOMDocumentBuilder, WritesWhatItRead)
{
    const std::string text =
        "<!--before--><r a=\"1\" b=\"&amp;&lt;&quot;&#9;&#10;&#13;>\"><c/>text "
        "&amp; &lt;more&gt;<![CDATA[a<b]]><?do it?><d>x</d></r><!--after-->";
    EXPECT_EQ(CreateCATIXMLDOMDocumentBuilder()->WriteText(Parsed(text)), kDeclaration + text);
}

TEST(CATIXMLDOMDocumentBuilder, RemovesThroughALiveList)
{
    const CATIDOMDocument_var document = Parsed("<r><a/><b/><a><a/></a></r>");
    const CATIDOMNodeList_var list = document->ElementsByTagName("a");
    EXPECT_EQ(list->Length(), 3);
    while (list->Length() > 0) {
        const CATIDOMNode_var node = list->Item(0);
        node->ParentNode()->RemoveChild(node);
    }
    EXPECT_EQ(CreateCATIXMLDOMDocumentBuilder()->WriteText(document),
              std::string(kDeclaration) + "<r><b/></r>");
}

} // namespace
