#include "CATENOWBCSCommonServices.h"

#include "DiagnosticCapture.h"

#include <gmock/gmock.h>

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace
{

CATUnicodeString NameOfDocumentElement(const CATIDOMDocument_var& document)
{
    return document->DocumentElement()->NodeName();
}

} // namespace

TEST(CATENOWBCSCommonServices, TextBecomesADocument)
{
    const DiagnosticCapture errors(CATDiagnosticErrors());
    CATIDOMDocument_var document;
    EXPECT_EQ(CATENOWBCSCommonServices::GetDOMFromXMLStringBuffer(
                  "<massTypes><massType name=\"Gew\xc3\xa4gt\"/></massTypes>", document),
              S_OK);
    ASSERT_FALSE(document.IsNull());
    EXPECT_EQ(NameOfDocumentElement(document), CATUnicodeString("massTypes"));
    CATUnicodeString name;
    const CATIDOMNode_var first = document->ElementsByTagName("massType")->Item(0);
    EXPECT_EQ(first->AsElement()->GetAttribute("name", name), S_OK);
    EXPECT_EQ(name, CATUnicodeString("Gew\xc3\xa4gt"));
    EXPECT_THAT(errors.Lines(), IsEmpty());
}

TEST(CATENOWBCSCommonServices, DocumentReplacesTheOneThatStoodThere)
{
    CATIDOMDocument_var document;
    ASSERT_EQ(CATENOWBCSCommonServices::GetDOMFromXMLStringBuffer("<old/>", document), S_OK);
    EXPECT_EQ(CATENOWBCSCommonServices::GetDOMFromXMLStringBuffer("<new/>", document), S_OK);
    EXPECT_EQ(NameOfDocumentElement(document), CATUnicodeString("new"));
}

TEST(CATENOWBCSCommonServices, BrokenTextFailsAndIsReportedWithLineAndColumn)
{
    const DiagnosticCapture errors(CATDiagnosticErrors());
    CATIDOMDocument_var document;
    ASSERT_EQ(CATENOWBCSCommonServices::GetDOMFromXMLStringBuffer("<kept/>", document), S_OK);
    // The second line closes an element that is not open; "</b>" begins at its third character.
    EXPECT_EQ(CATENOWBCSCommonServices::GetDOMFromXMLStringBuffer("<a>\n  </b></a>", document),
              E_FAIL);
    EXPECT_EQ(NameOfDocumentElement(document), CATUnicodeString("kept"));
    EXPECT_THAT(errors.Lines(), ElementsAre(AllOf(HasSubstr("line 2"), HasSubstr("column "))));
}

TEST(CATENOWBCSCommonServices, TextsThatAreNoDocumentFailWithoutOne)
{
    for (const char* text : {"", " ", "massTypes", "#WB_ERROR#no such root", "<a", "<a></a><b/>",
                             "<!DOCTYPE a [<!ENTITY x SYSTEM \"file:///etc/passwd\">]><a>&x;</a>",
                             "<a n=\"\xff\"/>"}) {
        const DiagnosticCapture errors(CATDiagnosticErrors());
        CATIDOMDocument_var document;
        EXPECT_EQ(CATENOWBCSCommonServices::GetDOMFromXMLStringBuffer(text, document), E_FAIL)
            << text;
        EXPECT_TRUE(document.IsNull()) << text;
        EXPECT_EQ(errors.Lines().size(), 1U) << text;
    }
}
