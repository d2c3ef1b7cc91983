#include "TemporaryDirectory.h"
#include "XMLTestSupport.h"

#include <libxml/parser.h>
#include <libxml/xmlsave.h>
#include <pugixml.hpp>

#include <cstring>
#include <map>
#include <memory>
#include <random>

namespace
{

// Documents of any kinds of nodes and characters, by a number that begins them.
class RandomDocument
{
public:
    explicit RandomDocument(unsigned seed) : m_random(seed)
    {
        CreateCATIXMLDOMDocumentBuilder()->CreateDocument(AnyName(), m_document);
        m_open.push_back(m_document->DocumentElement());
        for (int count = 0; count < 60; ++count) {
            AddOne();
        }
    }
    CATIDOMDocument_var Document() const { return m_document; }

private:
    std::size_t Draw(std::size_t below)
    {
        return std::uniform_int_distribution<std::size_t>(0, below - 1)(m_random);
    }
    std::string AnyName()
    {
        constexpr std::array kNames{"a", "PartInstance", "\u00e9l\u00e9ment", "x-1.2_3", "_"};
        return kNames[Draw(kNames.size())];
    }
    std::string AnyText()
    {
        constexpr std::array kPieces{"a",
                                     "\u00e4",
                                     "\U0001f600",
                                     "&",
                                     "<",
                                     ">",
                                     "\"",
                                     "'",
                                     "\t",
                                     "\n",
                                     " ",
                                     "]]>",
                                     "0.123456789",
                                     "\u0085",
                                     "\u2028",
                                     "&amp;",
                                     "--",
                                     "\x7f",
                                     "a longer text"};
        std::string text;
        for (std::size_t count = Draw(8); count > 0; --count) {
            text += kPieces[Draw(kPieces.size())];
        }
        return text;
    }
    // Two texts beside each other would be read as one.
    bool EndsInText() const
    {
        const CATIDOMNode_var last = m_open.back()->LastChild();
        return last && last->NodeType() == CATDOMNodeType::Text;
    }
    void AddOne()
    {
        CATIDOMElement& parent = *m_open.back()->AsElement();
        switch (Draw(6)) {
        case 0: {
            const CATIDOMElement_var child = m_document->CreateElement(AnyName());
            parent.AppendChild(child);
            m_open.push_back(child);
            return;
        }
        case 1:
            parent.AppendChild(m_document->CreateElement(AnyName()));
            return;
        case 2: {
            const std::string text = AnyText();
            if (!text.empty() && !EndsInText()) {
                parent.AppendChild(m_document->CreateTextNode(text));
            }
            return;
        }
        case 3:
            parent.AppendChild(m_document->CreateComment("comment " + std::to_string(Draw(100))));
            return;
        case 4:
            if (m_open.size() > 1) {
                m_open.pop_back();
            }
            return;
        default:
            parent.SetAttribute(AnyName(), AnyText());
        }
    }

    std::mt19937 m_random;
    CATIDOMDocument_var m_document;
    std::vector<CATIDOMNode_var> m_open;
};

// What a tree holds, told in one form for every reader.
std::string Told(const CATIDOMNode_var& node)
{
    if (node->NodeType() != CATDOMNodeType::Element) {
        return node->NodeName().ToStdString() + "{" + node->NodeValue().ToStdString() + "}";
    }
    std::string told = node->NodeName().ToStdString() + "[";
    const CATIDOMNamedNodeMap_var attributes = node->Attributes();
    for (int index = 0; index < attributes->Length(); ++index) {
        const CATIDOMNode_var attribute = attributes->Item(index);
        told +=
            attribute->NodeName().ToStdString() + "=" + attribute->NodeValue().ToStdString() + ";";
    }
    told += "](";
    for (CATIDOMNode_var child = node->FirstChild(); child; child = child->NextSibling()) {
        told += Told(child);
    }
    return told + ")";
}

std::string Told(const pugi::xml_node& node)
{
    switch (node.type()) {
    case pugi::node_pcdata:
        return std::string("#text{") + node.value() + "}";
    case pugi::node_comment:
        return std::string("#comment{") + node.value() + "}";
    default:
        break;
    }
    std::string told = std::string(node.name()) + "[";
    for (const pugi::xml_attribute& attribute : node.attributes()) {
        told += std::string(attribute.name()) + "=" + attribute.value() + ";";
    }
    told += "](";
    for (const pugi::xml_node& child : node.children()) {
        told += Told(child);
    }
    return told + ")";
}

std::string TextOf(xmlChar* text)
{
    const std::unique_ptr<xmlChar, void (*)(void*)> owner(text, xmlFree);
    return text == nullptr ? std::string() : reinterpret_cast<const char*>(text);
}

std::string Told(xmlNode* node)
{
    switch (node->type) {
    case XML_TEXT_NODE:
        return "#text{" + TextOf(xmlNodeGetContent(node)) + "}";
    case XML_COMMENT_NODE:
        return "#comment{" + TextOf(xmlNodeGetContent(node)) + "}";
    default:
        break;
    }
    std::string told = std::string(reinterpret_cast<const char*>(node->name)) + "[";
    for (xmlAttr* attribute = node->properties; attribute != nullptr; attribute = attribute->next) {
        told += std::string(reinterpret_cast<const char*>(attribute->name)) + "=" +
                TextOf(xmlNodeGetContent(reinterpret_cast<xmlNode*>(attribute))) + ";";
    }
    told += "](";
    for (xmlNode* child = node->children; child != nullptr; child = child->next) {
        told += Told(child);
    }
    return told + ")";
}

TEST(SecondReader, OthersReadWhatIsWritten)
{
    const unsigned first = std::random_device()();
    for (unsigned round = 0; round < 200; ++round) {
        SCOPED_TRACE("seed " + std::to_string(first + round));
        const CATIDOMDocument_var document = RandomDocument(first + round).Document();
        const std::string text = CreateCATIXMLDOMDocumentBuilder()->WriteText(document);
        const std::string told = Told(CATIDOMNode_var(document->DocumentElement()));

        EXPECT_EQ(Told(CATIDOMNode_var(Parsed(text)->DocumentElement())), told);
        EXPECT_EQ(CreateCATIXMLDOMDocumentBuilder()->WriteText(Parsed(text)), text);

        pugi::xml_document plain;
        ASSERT_TRUE(
            plain.load_buffer(text.data(), text.size(), pugi::parse_full | pugi::parse_ws_pcdata));
        EXPECT_EQ(Told(plain.document_element()), told);

        xmlDoc* tree = xmlReadMemory(text.data(), static_cast<int>(text.size()), nullptr, nullptr,
                                     XML_PARSE_NONET);
        ASSERT_NE(tree, nullptr);
        EXPECT_EQ(Told(xmlDocGetRootElement(tree)), told);
        xmlFreeDoc(tree);
        ASSERT_FALSE(testing::Test::HasFailure());
    }
}

TEST(SecondReader, CommandLineToolFindsNothingWrongWithAFile)
{
    const TemporaryDirectory directory;
    CATXMLProblem problem;
    const CATIDOMDocument_var document = RandomDocument(1).Document();
    ASSERT_EQ(CreateCATIXMLDOMDocumentBuilder()->WriteToFile(document, directory.At("report.xml"),
                                                             {}, {}, problem),
              S_OK);
    const std::string command = "xmllint --nonet --noout '" + directory.At("report.xml") + "' 2>&1";
    EXPECT_EQ(std::system(command.c_str()), 0);
}

} // namespace
