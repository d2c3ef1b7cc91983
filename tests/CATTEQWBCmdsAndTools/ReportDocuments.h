#pragma once

#include "CATIDOMNamedNodeMap.h"
#include "CATIXMLDOMDocumentBuilder.h"

#include <gmock/gmock.h>

#include <string>
#include <string_view>

/// Reports as texts, for tests that put a whole one in and look at the whole that comes out.

inline CATIDOMDocument_var Parsed(std::string_view text)
{
    CATIDOMDocument_var document;
    CATXMLProblem problem;
    EXPECT_EQ(CreateCATIXMLDOMDocumentBuilder()->ParseText(text, document, problem), S_OK)
        << text << '\n'
        << problem.sentence.View();
    return document;
}

/// The document's text without the declaration before it.
inline std::string Written(const CATIDOMDocument_var& document)
{
    const std::string text = CreateCATIXMLDOMDocumentBuilder()->WriteText(document);
    const std::size_t declarationEnd = text.find("?>");
    const std::size_t begin =
        text.find('<', declarationEnd == std::string::npos ? 0 : declarationEnd);
    const std::size_t end = text.rfind('>');
    return begin > end ? std::string() : text.substr(begin, end + 1 - begin);
}

/// A document of which a test says what may be asked.
class MockDocument : public CATIDOMDocument
{
public:
    MOCK_METHOD(CATDOMNodeType, NodeType, (), (const, override));
    MOCK_METHOD(CATUnicodeString, NodeName, (), (const, override));
    MOCK_METHOD(CATUnicodeString, NodeValue, (), (const, override));
    MOCK_METHOD(CATIDOMNode_var, ParentNode, (), (const, override));
    MOCK_METHOD(CATIDOMNode_var, FirstChild, (), (const, override));
    MOCK_METHOD(CATIDOMNode_var, LastChild, (), (const, override));
    MOCK_METHOD(CATIDOMNode_var, PreviousSibling, (), (const, override));
    MOCK_METHOD(CATIDOMNode_var, NextSibling, (), (const, override));
    MOCK_METHOD(CATIDOMNodeList_var, ChildNodes, (), (const, override));
    MOCK_METHOD(CATIDOMNamedNodeMap_var, Attributes, (), (const, override));
    MOCK_METHOD(CATIDOMDocument_var, OwnerDocument, (), (const, override));
    MOCK_METHOD(long, AppendChild, (const CATIDOMNode_var&), (override));
    MOCK_METHOD(long, InsertBefore, (const CATIDOMNode_var&, const CATIDOMNode_var&), (override));
    MOCK_METHOD(long, RemoveChild, (const CATIDOMNode_var&), (override));
    MOCK_METHOD(CATIDOMElement*, AsElement, (), (override));
    MOCK_METHOD(CATIDOMElement_var, DocumentElement, (), (const, override));
    MOCK_METHOD(CATIDOMNodeList_var, ElementsByTagName, (const CATUnicodeString&),
                (const, override));
    MOCK_METHOD(CATIDOMElement_var, CreateElement, (const CATUnicodeString&), (override));
    MOCK_METHOD(CATIDOMNode_var, CreateTextNode, (const CATUnicodeString&), (override));
    MOCK_METHOD(CATIDOMNode_var, CreateComment, (const CATUnicodeString&), (override));
    MOCK_METHOD(CATDOMName, FindName, (std::string_view), (const, override));
    MOCK_METHOD(std::string_view, NameText, (CATDOMName), (const, override));
};
