#include "CATWBServices.h"

#include "CATCkeGlobalFunctions.h"
#include "ModuleSession.h"
#include "ReportDocuments.h"
#include "TestMagnitude.h"

#include <string>
#include <utility>

namespace
{

CATIDOMNode_var DocumentElementOf(const std::string& text)
{
    return Parsed(text)->DocumentElement();
}

TEST(ReportNode, ElementOfThatNameIsOne)
{
    const CATIDOMNode_var report = DocumentElementOf("<Report><PRC/><WB_Section/></Report>");
    EXPECT_NE(CATWBServices::IsNodeOfType(report, "Report"), 0);
    EXPECT_NE(CATWBServices::IsNodeOfType(report->FirstChild(), "PRC"), 0);
    EXPECT_NE(CATWBServices::IsWBSectionNode(report->LastChild()), 0);
    EXPECT_NE(CATWBServices::IsPartInstanceNode(DocumentElementOf("<PartInstance/>")), 0);
}

TEST(ReportNode, ElementOfAnotherNameIsNone)
{
    const CATIDOMNode_var instance = DocumentElementOf("<PartInstance/>");
    EXPECT_EQ(CATWBServices::IsNodeOfType(instance, "PRC"), 0);
    EXPECT_EQ(CATWBServices::IsNodeOfType(instance, "PartInstances"), 0);
    EXPECT_EQ(CATWBServices::IsNodeOfType(instance, "PartInst"), 0);
    EXPECT_EQ(CATWBServices::IsNodeOfType(instance, ""), 0);
    EXPECT_EQ(CATWBServices::IsWBSectionNode(instance), 0);
    EXPECT_EQ(CATWBServices::IsPartInstanceNode(DocumentElementOf("<WB_Section/>")), 0);
}

TEST(ReportNode, LetterCaseCounts)
{
    for (const char* name : {"partinstance", "PARTINSTANCE", "Partinstance"}) {
        EXPECT_EQ(
            CATWBServices::IsPartInstanceNode(DocumentElementOf("<" + std::string(name) + "/>")), 0)
            << name;
    }
    EXPECT_EQ(CATWBServices::IsWBSectionNode(DocumentElementOf("<WB_section/>")), 0);
    EXPECT_EQ(CATWBServices::IsNodeOfType(DocumentElementOf("<prc/>"), "PRC"), 0);
}

TEST(ReportNode, OnlyElementsAreWhateverOtherNodesAreCalled)
{
    const CATIDOMNode_var holder = DocumentElementOf(
        R"(<Report PartInstance="PartInstance" WB_Section="WB_Section">PartInstance)"
        "<!--PartInstance--><?PartInstance PartInstance?><![CDATA[PartInstance]]>"
        "<?WB_Section x?></Report>");
    const CATIDOMNamedNodeMap_var attributes = holder->Attributes();
    EXPECT_EQ(CATWBServices::IsPartInstanceNode(attributes->NamedItem("PartInstance")), 0);
    EXPECT_EQ(CATWBServices::IsWBSectionNode(attributes->NamedItem("WB_Section")), 0);
    int children = 0;
    for (CATIDOMNode_var child = holder->FirstChild(); !child.IsNull();
         child = child->NextSibling()) {
        ++children;
        EXPECT_EQ(CATWBServices::IsPartInstanceNode(child), 0) << child->NodeName().View();
        EXPECT_EQ(CATWBServices::IsWBSectionNode(child), 0) << child->NodeName().View();
        EXPECT_EQ(CATWBServices::IsNodeOfType(child, child->NodeName()), 0);
    }
    EXPECT_EQ(children, 5);
}

TEST(ReportNode, NameOfANodeThatIsNoElementIsNotAskedFor)
{
    const auto document = CATHandle<MockDocument>::Adopt(new testing::StrictMock<MockDocument>);
    EXPECT_CALL(*document, NodeType()).WillOnce(testing::Return(CATDOMNodeType::Document));
    EXPECT_EQ(CATWBServices::IsPartInstanceNode(document), 0);
}

TEST(ReportNode, NullNodeIsTheCallersError)
{
    EXPECT_THROW(CATWBServices::IsNodeOfType({}, "PRC"), CATNullHandle);
    EXPECT_THROW(CATWBServices::IsPartInstanceNode({}), CATNullHandle);
    EXPECT_THROW(CATWBServices::IsWBSectionNode({}), CATNullHandle);
}

/// A unit of which only the symbol matters.
class SymbolUnit : public CATICkeUnit
{
public:
    explicit SymbolUnit(CATUnicodeString symbol) : m_symbol(std::move(symbol)) {}
    CATUnicodeString Symbol() const override { return m_symbol; }
    double ToStorage(double value) const override { return value; }
    double FromStorage(double value) const override { return value; }
    CATUnicodeString Show(double, int) const override { return {}; }

private:
    CATUnicodeString m_symbol;
};

class UnitHeader : public testing::Test
{
protected:
    UnitHeader()
    {
        CATCkeGlobalFunctions::SetParmDictionary(CATICkeParmDictionary_var::Adopt(m_dictionary));
        Use("LENGTH", "in");
        Use("MASS", "lb");
        Use("INERTIAMOMENT", "lb.in2");
        Use("DENSITY", "lb/in3");
        Use("SURFACICMASS", "lb/ft2");
        Use("VOLUME", "in3");
    }
    ~UnitHeader() override { CATCkeGlobalFunctions::SetParmDictionary({}); }

    /// Puts the magnitude in the place of any earlier one; a null symbol stands for no unit.
    void Use(const std::string& magnitude, const char* current, const char* storage = "stored")
    {
        const auto unit = [](const char* symbol) {
            return symbol == nullptr ? CATICkeUnit_var()
                                     : CATICkeUnit_var::Adopt(new SymbolUnit(symbol));
        };
        m_dictionary->magnitudes[magnitude] = MagnitudeOf(unit(storage), unit(current));
    }
    void Forget(const std::string& magnitude) { m_dictionary->magnitudes.erase(magnitude); }

    static std::string AfterHeader(const std::string& text)
    {
        const CATIDOMDocument_var document = Parsed(text);
        CATWBServices::CreateHeaderSection(document);
        return Written(document);
    }

private:
    TestDictionary* m_dictionary = new TestDictionary; // the session's dictionary owns it
};

TEST_F(UnitHeader, HoldsTheSymbolsOfTheCurrentUnitsBehindWhatTheElementHas)
{
    EXPECT_EQ(
        AfterHeader(R"(<Report Name="R"><PRC COGx="1"/><PartInstance WB_Mass="2"/></Report>)"),
        R"(<Report Name="R" LengthUnit="in" MassUnit="lb" InertiaMomentUnit="lb.in2")"
        R"( DensityUnit="lb/in3" SurfacicDensityUnit="lb/ft2" VolumeUnit="in3">)"
        R"(<PRC COGx="1"/><PartInstance WB_Mass="2"/></Report>)");
}

TEST_F(UnitHeader, IsWrittenWithoutAnyElementOfTheReport)
{
    EXPECT_EQ(AfterHeader("<Empty/>"),
              R"(<Empty LengthUnit="in" MassUnit="lb" InertiaMomentUnit="lb.in2")"
              R"( DensityUnit="lb/in3" SurfacicDensityUnit="lb/ft2" VolumeUnit="in3"/>)");
}

TEST_F(UnitHeader, WrittenTwiceHoldsTheSymbolsOfTheSecondTimeInTheOldPlaces)
{
    const CATIDOMDocument_var document = Parsed(R"(<Report MassUnit="old" Name="R"/>)");
    CATWBServices::CreateHeaderSection(document);
    Use("MASS", "kg");
    Use("VOLUME", "m3");
    CATWBServices::CreateHeaderSection(document);
    EXPECT_EQ(Written(document),
              R"(<Report MassUnit="kg" Name="R" LengthUnit="in" InertiaMomentUnit="lb.in2")"
              R"( DensityUnit="lb/in3" SurfacicDensityUnit="lb/ft2" VolumeUnit="m3"/>)");
}

TEST_F(UnitHeader, MagnitudeThatIsNotKnownLeavesItsAttributeWithoutAWord)
{
    const DiagnosticCapture output;
    const DiagnosticCapture errors(CATDiagnosticErrors());
    Forget("LENGTH");
    Forget("DENSITY");
    EXPECT_EQ(AfterHeader(R"(<Report DensityUnit="old"/>)"),
              R"(<Report DensityUnit="old" MassUnit="lb" InertiaMomentUnit="lb.in2")"
              R"( SurfacicDensityUnit="lb/ft2" VolumeUnit="in3"/>)");
    EXPECT_THAT(output.Lines(), testing::IsEmpty());
    EXPECT_THAT(errors.Lines(), testing::IsEmpty());
}

TEST_F(UnitHeader, MagnitudeWithoutACurrentUnitLeavesItsAttributeAndOneWithoutAStorageUnitDoesNot)
{
    Use("MASS", nullptr);
    Use("VOLUME", "L", nullptr);
    EXPECT_EQ(AfterHeader("<Report/>"),
              R"(<Report LengthUnit="in" InertiaMomentUnit="lb.in2" DensityUnit="lb/in3")"
              R"( SurfacicDensityUnit="lb/ft2" VolumeUnit="L"/>)");
}

TEST_F(UnitHeader, DocumentWithoutADocumentElementIsLeftAlone)
{
    const auto document = CATHandle<MockDocument>::Adopt(new testing::StrictMock<MockDocument>);
    EXPECT_CALL(*document, DocumentElement()).WillOnce(testing::Return(CATIDOMElement_var()));
    CATWBServices::CreateHeaderSection(document);
}

TEST_F(UnitHeader, NullDocumentIsTheCallersError)
{
    EXPECT_THROW(CATWBServices::CreateHeaderSection({}), CATNullHandle);
}

} // namespace
