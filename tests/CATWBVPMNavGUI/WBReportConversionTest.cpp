#include "WBReportConversion.h"

#include "CATIXMLDOMDocumentBuilder.h"
#include "CATWBVPMNavGUITable.h"
#include "PanelSession.h"

#include <string>

extern "C" void CATWBVPMNavGUIRegister();

namespace
{

using Kind = CATWBReportConversion::Kind;
using Values = CATWBReportConversion::Values;

CATIDOMDocument_var DocumentOf(const std::string& text)
{
    CATIDOMDocument_var document;
    CATXMLProblem problem;
    EXPECT_EQ(CreateCATIXMLDOMDocumentBuilder()->ParseText(text, document, problem), S_OK)
        << problem.sentence.Text();
    return document;
}

/// Every attribute of the first element of that name, in order: "COGx=0 COGy=90".
std::string AttributesOf(const CATIDOMDocument_var& document, const char* tag)
{
    const CATIDOMNode_var node = document->ElementsByTagName(tag)->Item(0);
    const CATIDOMElement* element = node->AsElement();
    std::string text;
    for (int index = 0; index < element->AttributeCount(); ++index) {
        text += std::string(index == 0 ? "" : " ") +
                std::string(document->NameText(element->AttributeName(index))) + "=" +
                std::string(element->AttributeText(index));
    }
    return text;
}

/// Goes through the table, as whoever stands below the panels does.
class WBReportConversion : public PanelSession
{
protected:
    WBReportConversion()
    {
        CATWBVPMNavGUIRegister();
        convert = CATWBVPMNavGUISetTable({}).convertReport;
    }

    /// The attributes of the first element of that name after the conversion.
    std::string Converted(const std::string& text, const CATWBReportConversion& conversion,
                          const char* tag = "PartInstance") const
    {
        CATIDOMDocument_var document = DocumentOf(text);
        convert(document, conversion);
        return AttributesOf(document, tag);
    }

    decltype(CATWBVPMNavGUITable::convertReport) convert = nullptr;
};

// The x axis goes to y, y to -x.
const CATMath3x3Matrix kQuarterTurn(0, -1, 0, 1, 0, 0, 0, 0, 1);

constexpr const char* kTurnedReport =
    R"(<Report><PRC/><PartInstance Name="A" COGx="100" COGy="0" COGz="0" WB_Mass="2" )"
    R"(MOIxx="1" MOIyy="2" MOIzz="3" POIxy="0" POIxz="0" POIyz="0"/></Report>)";

constexpr const char* kProperty =
    R"(<Report><PRC WB_Mass="2"/>)"
    R"(<PartInstance Name="A" WB_Mass="2" Cut_Volume="2" __magnitude__Span="LENGTH" Span="2"/></Report>)";

} // namespace

TEST_F(WBReportConversion, MagnitudeAttributesComeOnceInOrderOfFirstAppearance)
{
    const CATIDOMDocument_var document = DocumentOf(
        R"(<Report __magnitude__Top="MASS"><PRC __magnitude__Root="MASS"><PartInstance Name="A" )"
        R"(__magnitude__Span="LENGTH" Span="1"><PartInstance __magnitude__Area="AREA" Name="B" )"
        R"(Area="1" __magnitude__Span="LENGTH" Span="2"/></PartInstance>)"
        R"(<PartInstance __magnitude="X" magnitude__="Y" __Magnitude__Z="Z" __magnitude__A="MASS"/>)"
        R"(</PRC></Report>)");
    EXPECT_EQ(
        WBMagnitudeAttributes(document),
        (CATListValCATUnicodeString{"__magnitude__Span", "__magnitude__Area", "__magnitude__A"}));
}

TEST_F(WBReportConversion, ReportWithoutInstancesHasNoMagnitudeAttributes)
{
    EXPECT_TRUE(WBMagnitudeAttributes(DocumentOf("<Report><PRC/></Report>")).IsEmpty());
}

TEST_F(WBReportConversion, StoredReportIsConvertedWithItsUserProperties)
{
    ShowIn("MASS", "g");
    ShowIn("LENGTH", "cm");
    EXPECT_EQ(Converted(kProperty, {.withSymbols = true}),
              "Name=A WB_Mass=2000g Cut_Volume=2 __magnitude__Span=LENGTH Span=0.2cm");
    EXPECT_EQ(Converted(kProperty, {}, "Report"),
              "LengthUnit=cm MassUnit=g InertiaMomentUnit=kg.m2 DensityUnit=kg/m3 "
              "SurfacicDensityUnit=kg/m2");
}

TEST_F(WBReportConversion, StoredDistributiveReportIsConvertedWithItsVolumes)
{
    ShowIn("MASS", "g");
    ShowIn("VOLUME", "L");
    const CATWBReportConversion distributive{.kind = Kind::Distributive, .withSymbols = true};
    EXPECT_EQ(Converted(kProperty, distributive),
              "Name=A WB_Mass=2000g Cut_Volume=2000L __magnitude__Span=LENGTH Span=2");
    EXPECT_EQ(Converted(kProperty, distributive, "Report"),
              "LengthUnit=mm MassUnit=g InertiaMomentUnit=kg.m2 DensityUnit=kg/m3 "
              "SurfacicDensityUnit=kg/m2 VolumeUnit=L");
}

TEST_F(WBReportConversion, CurrentReportIsOnlyShownAnewWithItsUserProperties)
{
    ShowIn("MASS", "g");
    ShowIn("LENGTH", "cm");
    const CATWBReportConversion display{.values = Values::Current, .withSymbols = true};
    EXPECT_EQ(Converted(kProperty, display),
              "Name=A WB_Mass=2g Cut_Volume=2 __magnitude__Span=LENGTH Span=2cm");
    EXPECT_EQ(Converted(kProperty, display, "Report"), "");
}

TEST_F(WBReportConversion, CurrentDistributiveReportIsOnlyShownAnewWithItsVolumes)
{
    ShowIn("MASS", "g");
    const CATWBReportConversion display{
        .kind = Kind::Distributive, .values = Values::Current, .withSymbols = true};
    EXPECT_EQ(Converted(kProperty, display),
              "Name=A WB_Mass=2g Cut_Volume=2m3 __magnitude__Span=LENGTH Span=2");
    EXPECT_EQ(Converted(kProperty, display, "Report"), "");
}

TEST_F(WBReportConversion, DecimalsReachEveryService)
{
    for (const Kind kind : {Kind::Report, Kind::Distributive}) {
        for (const Values values : {Values::Stored, Values::Current}) {
            // Kilograms have three decimals of their own.
            EXPECT_THAT(Converted(kProperty, {.kind = kind, .values = values, .decimals = -1}),
                        testing::HasSubstr("WB_Mass=2.000 "));
            EXPECT_THAT(Converted(kProperty, {.kind = kind, .values = values}),
                        testing::HasSubstr("WB_Mass=2 "));
        }
    }
}

TEST_F(WBReportConversion, AxesGoFirstThenTheReferencePointThenUnits)
{
    ShowIn("LENGTH", "cm");
    // The centre turns to (0, 100, 0) and the reference point (10, 0, 0) to (0, 10, 0), in mm, so
    // that 9 cm are between them. The quarter turn changes the moments about x and y; then 2 kg
    // at 0.09 m add 2 x 0.0081 = 0.0162 about x and z.
    EXPECT_EQ(Converted(kTurnedReport, {.axes = kQuarterTurn, .reference = CATMathPoint(10, 0, 0)}),
              "Name=A COGx=0 COGy=9 COGz=0 WB_Mass=2 MOIxx=2.0162 MOIyy=1 MOIzz=3.0162 "
              "POIxy=0 POIxz=0 POIyz=0");
}

TEST_F(WBReportConversion, InertiaStaysAtTheCentreWhenAsked)
{
    EXPECT_EQ(Converted(kTurnedReport, {.axes = kQuarterTurn,
                                        .reference = CATMathPoint(10, 0, 0),
                                        .keepInertiaAtCentre = true}),
              "Name=A COGx=0 COGy=90 COGz=0 WB_Mass=2 MOIxx=2 MOIyy=1 MOIzz=3 "
              "POIxy=0 POIxz=0 POIyz=0");
}

TEST_F(WBReportConversion, ReferencePointAloneIsNotTurned)
{
    // 2 kg at 0.09 m add 0.0162 about y and z.
    EXPECT_EQ(Converted(kTurnedReport, {.reference = CATMathPoint(10, 0, 0)}),
              "Name=A COGx=90 COGy=0 COGz=0 WB_Mass=2 MOIxx=1 MOIyy=2.0162 MOIzz=3.0162 "
              "POIxy=0 POIxz=0 POIyz=0");
}

TEST_F(WBReportConversion, WithoutAxesAndReferencePointNothingIsRoundedToSixDigits)
{
    EXPECT_EQ(Converted(R"(<Report><PartInstance Name="A" MOIxx="1234.56789"/></Report>)", {}),
              "Name=A MOIxx=1234.56789");
}

TEST_F(WBReportConversion, CommaLocaleReadsPointsAndWritesCommas)
{
    ASSERT_TRUE(CATUseNumberLocale("de_DE.UTF-8"));
    EXPECT_EQ(
        Converted(R"(<Report><PartInstance Name="A" COGx="1.5" COGy="2,5" COGz="0"/></Report>)",
                  {.reference = CATMathPoint(1, 0, 0), .keepInertiaAtCentre = true}),
        "Name=A COGx=0,5 COGy=2,5 COGz=0");
}

namespace
{

/// Parts of which something is unknown, each with what is known.
constexpr const char* kLackingReport =
    R"(<Report><PRC Name="R" WB_Mass="9"/>)"
    R"(<PartInstance Name="Bare" WB_Mass="2"/>)"
    R"(<PartInstance Name="NoInertia" WB_Mass="2" COGx="1" COGy="2" COGz="3"/>)"
    R"(<PartInstance Name="NoCentre" WB_Mass="2" MOIxx="1" MOIyy="2" MOIzz="3" POIxy="0" )"
    R"(POIxz="0" POIyz="0"/>)"
    R"(<PartInstance Name="NoMass" COGx="1" COGy="2" COGz="3" MOIxx="1" MOIyy="2" MOIzz="3" )"
    R"(POIxy="0" POIxz="0" POIyz="0"/>)"
    R"(<PartInstance Name="Partial" WB_Mass="2" COGx="1" COGy="2" MOIxx="1"/>)"
    R"(<WB_Section Name="S" WB_Mass="4"/></Report>)";

/// Every element of that name, a line each.
std::string LinesOf(const CATIDOMDocument_var& document, const char* tag)
{
    std::string lines;
    const CATIDOMNodeList_var elements = document->ElementsByTagName(tag);
    for (int index = 0; index < elements->Length(); ++index) {
        const CATIDOMNode_var node = elements->Item(index);
        const CATIDOMElement* element = node->AsElement();
        for (int attribute = 0; attribute < element->AttributeCount(); ++attribute) {
            lines += std::string(document->NameText(element->AttributeName(attribute))) + "=" +
                     std::string(element->AttributeText(attribute)) + " ";
        }
        lines += "\n";
    }
    return lines;
}

} // namespace

TEST_F(WBReportConversion, UnknownStaysUnknown)
{
    CATIDOMDocument_var document = DocumentOf(kLackingReport);
    convert(document, {.axes = kQuarterTurn});
    EXPECT_EQ(LinesOf(document, "PRC"), "Name=R WB_Mass=9 \n");
    EXPECT_EQ(LinesOf(document, "WB_Section"), "Name=S WB_Mass=4 \n");
    // The quarter turn brings (1, 2, 3) to (-2, 1, 3) and changes the moments about x and y.
    EXPECT_EQ(LinesOf(document, "PartInstance"),
              "Name=Bare WB_Mass=2 \n"
              "Name=NoInertia WB_Mass=2 COGx=-2 COGy=1 COGz=3 \n"
              "Name=NoCentre WB_Mass=2 MOIxx=2 MOIyy=1 MOIzz=3 POIxy=0 POIxz=0 POIyz=0 \n"
              "Name=NoMass COGx=-2 COGy=1 COGz=3 MOIxx=2 MOIyy=1 MOIzz=3 POIxy=0 POIxz=0 "
              "POIyz=0 \n"
              "Name=Partial WB_Mass=2 \n");
}

TEST_F(WBReportConversion, InertiaThatCannotBeMovedIsUnknown)
{
    CATIDOMDocument_var document = DocumentOf(kLackingReport);
    convert(document, {.reference = CATMathPoint(1, 0, 0)});
    EXPECT_EQ(LinesOf(document, "PartInstance"), "Name=Bare WB_Mass=2 \n"
                                                 "Name=NoInertia WB_Mass=2 COGx=0 COGy=2 COGz=3 \n"
                                                 "Name=NoCentre WB_Mass=2 \n"
                                                 "Name=NoMass COGx=0 COGy=2 COGz=3 \n"
                                                 "Name=Partial WB_Mass=2 \n");
    document = DocumentOf(kLackingReport);
    convert(document, {.reference = CATMathPoint(1, 0, 0), .keepInertiaAtCentre = true});
    EXPECT_EQ(LinesOf(document, "PartInstance"),
              "Name=Bare WB_Mass=2 \n"
              "Name=NoInertia WB_Mass=2 COGx=0 COGy=2 COGz=3 \n"
              "Name=NoCentre WB_Mass=2 MOIxx=1 MOIyy=2 MOIzz=3 POIxy=0 POIxz=0 POIyz=0 \n"
              "Name=NoMass COGx=0 COGy=2 COGz=3 MOIxx=1 MOIyy=2 MOIzz=3 POIxy=0 POIxz=0 POIyz=0 "
              "\n"
              "Name=Partial WB_Mass=2 \n");
}

TEST_F(WBReportConversion, NothingIsTakenAwayWithoutAxesAndReferencePoint)
{
    CATIDOMDocument_var document =
        DocumentOf(R"(<Report><PartInstance Name="A" COGx="1" MOIxx="2"/></Report>)");
    convert(document, {});
    EXPECT_EQ(LinesOf(document, "PartInstance"), "Name=A COGx=1 MOIxx=2 \n");
}

TEST_F(WBReportConversion, KnownFiguresAreMovedAsEver)
{
    EXPECT_EQ(Converted(kTurnedReport, {.axes = kQuarterTurn, .reference = CATMathPoint(10, 0, 0)}),
              "Name=A COGx=0 COGy=90 COGz=0 WB_Mass=2 MOIxx=2.0162 MOIyy=1 MOIzz=3.0162 "
              "POIxy=0 POIxz=0 POIyz=0");
}
