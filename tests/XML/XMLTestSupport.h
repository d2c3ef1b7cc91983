#pragma once

#include "CATIXMLDOMDocumentBuilder.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

inline constexpr const char* kDeclaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

/// The document of a text that is known to be one.
inline CATIDOMDocument_var Parsed(std::string_view text)
{
    CATIDOMDocument_var document;
    CATXMLProblem problem;
    EXPECT_EQ(CreateCATIXMLDOMDocumentBuilder()->ParseText(text, document, problem), S_OK)
        << problem.sentence.Text();
    return document;
}

/// What is wrong with a text that is known to be none. The output must not have been touched.
inline CATXMLProblem ProblemOf(std::string_view text)
{
    CATIDOMDocument_var document;
    CATXMLProblem problem;
    EXPECT_EQ(CreateCATIXMLDOMDocumentBuilder()->ParseText(text, document, problem), E_FAIL);
    EXPECT_TRUE(document.IsNull());
    return problem;
}

/// The document's text without the declaration before it.
inline std::string Written(const CATIDOMDocument_var& document)
{
    const std::string text = CreateCATIXMLDOMDocumentBuilder()->WriteText(document);
    EXPECT_TRUE(text.starts_with(kDeclaration));
    return text.substr(std::string_view(kDeclaration).size());
}

/// The names of the nodes that the list gives, from index 0 on until it gives none.
inline std::vector<std::string> Names(const CATIDOMNodeList_var& list)
{
    std::vector<std::string> names;
    for (CATIDOMNode_var node = list->Item(0); node;
         node = list->Item(static_cast<int>(names.size()))) {
        names.push_back(node->NodeName().ToStdString());
    }
    return names;
}

/// The first element of that name.
inline CATIDOMElement_var Find(const CATIDOMDocument_var& document, const char* name)
{
    return document->ElementsByTagName(name)->Item(0);
}
