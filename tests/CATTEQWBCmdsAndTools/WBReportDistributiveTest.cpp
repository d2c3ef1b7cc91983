#include "CATWBServices.h"

#include "ReportUnitsSession.h"

#include <string>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

class DistributiveReport : public ReportUnitsSession
{
protected:
    static CATIDOMDocument_var Converted(const std::string& report,
                                         unsigned char withSymbol = kWithSymbol,
                                         int decimals = kOwnDecimals)
    {
        const CATIDOMDocument_var document = Parsed(report);
        CATWBServices::ManageUnitsConversionDistributive(document, withSymbol, decimals);
        return document;
    }
    static CATIDOMDocument_var Displayed(const std::string& report,
                                         unsigned char withSymbol = kWithSymbol,
                                         int decimals = kOwnDecimals)
    {
        CATIDOMDocument_var document = Parsed(report);
        CATWBServices::ManageUnitsDisplayDistributive(document, withSymbol, decimals);
        return document;
    }
    static CATIDOMNode_var Child(const CATIDOMDocument_var& document, int index)
    {
        return document->DocumentElement()->ChildNodes()->Item(index);
    }
};

constexpr const char* kReport =
    R"(<Report Name="R"><PRC COGx="25.4" WB_Mass="0,45359237" MOIxx="1" WB_Density="7850")"
    R"( Density="7850;12.5;25" Density_dimension="3;2" Cut_Volume="0.001"/>)"
    R"(<WB_Section COGy="12.7" WB_Upper_deviation="x" POIyz="-0.5" Cut_Volume="2"/>)"
    R"(<PartInstance COGz="-50,8" WB_Lower_deviation="0.90718474" MOIzz="0" WB_Density="1000")"
    R"( Density="1000;;1" Density_dimension="0;0;0" Cut_Volume="0,5")"
    R"( WB_Mass_Details="1;2" A="" __magnitude__Reach="LENGTH" Reach="25.4"/>)"
    R"(<Other COGx="25.4"/></Report>)";

TEST_F(DistributiveReport, WholeReportConverted)
{
    EXPECT_EQ(Written(Converted(kReport)),
              R"(<Report Name="R" LengthUnit="in" MassUnit="lb" InertiaMomentUnit="kg.mm2")"
              R"( DensityUnit="g/cm3" SurfacicDensityUnit="g/cm2" VolumeUnit="L">)"
              R"(<PRC COGx="1in" WB_Mass="1lb" MOIxx="1000000kg.mm2" WB_Density="7.85g/cm3")"
              R"( Density="7.85g/cm3; 1.25g/cm2; 2.5g/cm2" Density_dimension="3;2")"
              R"( Cut_Volume="1L"/>)"
              R"(<WB_Section COGy="0.5in" WB_Upper_deviation="0lb" POIyz="-500000kg.mm2")"
              R"( Cut_Volume="2000L"/>)"
              R"(<PartInstance COGz="-2in" WB_Lower_deviation="2lb" MOIzz="0kg.mm2")"
              R"( WB_Density="1g/cm3" Density="1g/cm3" Density_dimension="0;0;0")"
              R"( Cut_Volume="500L" WB_Mass_Details="1;2" A="" __magnitude__Reach="LENGTH")"
              R"( Reach="25.4"/><Other COGx="25.4"/></Report>)");
}

TEST_F(DistributiveReport, WholeReportConvertedWhereTheSessionWritesACommaWithFixedDecimals)
{
    const NumberLocale comma(kCommaLocale);
    EXPECT_EQ(Written(Converted(kReport, kWithoutSymbol, kFixedDecimals)),
              R"(<Report Name="R" LengthUnit="in" MassUnit="lb" InertiaMomentUnit="kg.mm2")"
              R"( DensityUnit="g/cm3" SurfacicDensityUnit="g/cm2" VolumeUnit="L">)"
              R"(<PRC COGx="1,0000" WB_Mass="1,000" MOIxx="1000000,000" WB_Density="7,85000")"
              R"( Density="7,85000; 1,2500000; 2,5000000" Density_dimension="3;2")"
              R"( Cut_Volume="1,000000"/>)"
              R"(<WB_Section COGy="0,5000" WB_Upper_deviation="0,000" POIyz="-500000,000")"
              R"( Cut_Volume="2000,000000"/>)"
              R"(<PartInstance COGz="-2,0000" WB_Lower_deviation="2,000" MOIzz="0,000")"
              R"( WB_Density="1,00000" Density="1,00000" Density_dimension="0;0;0")"
              R"( Cut_Volume="500,000000" WB_Mass_Details="1;2" A="" __magnitude__Reach="LENGTH")"
              R"( Reach="25.4"/><Other COGx="25.4"/></Report>)");
}

TEST_F(DistributiveReport, WholeReportDisplayed)
{
    EXPECT_EQ(
        Written(Displayed(R"(<Report LengthUnit="in"><PRC COGx="1,5in" WB_Mass="2lb")"
                          R"( Density="1g/cm3; 2.5g/cm2; 3" Density_dimension="3;2")"
                          R"( Cut_Volume="0.25L"/><WB_Section MOIxx="5"/>)"
                          R"(<PartInstance WB_Density="x" WB_Mass_Details="1lb;2lb"/></Report>)",
                          kWithoutSymbol, kFixedDecimals)),
        R"(<Report LengthUnit="in"><PRC COGx="1.5000" WB_Mass="2.000")"
        R"( Density="1.00000; 2.5000000; 3.0000000" Density_dimension="3;2")"
        R"( Cut_Volume="0.250000"/><WB_Section MOIxx="5.000"/>)"
        R"(<PartInstance WB_Density="0.00000" WB_Mass_Details="1lb;2lb"/></Report>)");
}

TEST_F(DistributiveReport, EveryKindOfElementHasDensitiesAndVolume)
{
    const CATIDOMDocument_var converted = Converted(ReportOfEveryAttribute());
    const CATIDOMDocument_var displayed = Displayed(ReportOfEveryAttribute());
    for (int kind = 0; kind < 3; ++kind) {
        EXPECT_THAT(Changed(Child(converted, kind)),
                    ElementsAre("COGx=0.0394in", "COGy=0.0394in", "COGz=0.0394in",
                                "WB_Mass=2.205lb", "WB_Lower_deviation=2.205lb",
                                "WB_Upper_deviation=2.205lb", "MOIxx=1000000kg.mm2",
                                "MOIyy=1000000kg.mm2", "MOIzz=1000000kg.mm2", "POIxy=1000000kg.mm2",
                                "POIxz=1000000kg.mm2", "POIyz=1000000kg.mm2",
                                "WB_Density=0.001g/cm3", "Density=0.001g/cm3", "Cut_Volume=1000L"));
        EXPECT_THAT(Changed(Child(displayed, kind)),
                    ElementsAre("COGx=1in", "COGy=1in", "COGz=1in", "WB_Mass=1lb",
                                "WB_Lower_deviation=1lb", "WB_Upper_deviation=1lb", "MOIxx=1kg.mm2",
                                "MOIyy=1kg.mm2", "MOIzz=1kg.mm2", "POIxy=1kg.mm2", "POIxz=1kg.mm2",
                                "POIyz=1kg.mm2", "WB_Density=1g/cm3", "Density=1g/cm3",
                                "Cut_Volume=1L"));
    }
    EXPECT_THAT(Changed(Child(converted, 3)), IsEmpty());
    EXPECT_THAT(Changed(Child(displayed, 3)), IsEmpty());
}

TEST_F(DistributiveReport, ConversionAloneWritesTheHeader)
{
    EXPECT_EQ(Written(Converted("<R/>")),
              R"(<R LengthUnit="in" MassUnit="lb" InertiaMomentUnit="kg.mm2" DensityUnit="g/cm3")"
              R"( SurfacicDensityUnit="g/cm2" VolumeUnit="L"/>)");
    EXPECT_EQ(Written(Displayed("<R/>")), "<R/>");
}

TEST_F(DistributiveReport, ReportsNothing)
{
    const DiagnosticCapture output;
    Forget("MASS");
    const CATIDOMDocument_var report = Converted(kReport);
    EXPECT_EQ(Child(report, 0)->AsElement()->HasAttribute("WB_Mass"), true);
    EXPECT_THAT(output.Lines(), IsEmpty());
}

TEST_F(DistributiveReport, MagnitudeThatIsNotKnownLeavesItsAttributes)
{
    struct Row
    {
        const char* magnitude;
        std::vector<std::string> kept;
    };
    const std::vector<Row> rows{
        {"LENGTH", {"COGx", "COGy", "COGz"}},
        {"MASS", {"WB_Mass", "WB_Lower_deviation", "WB_Upper_deviation"}},
        {"INERTIAMOMENT", {"MOIxx", "MOIyy", "MOIzz", "POIxy", "POIxz", "POIyz"}},
        {"DENSITY", {"WB_Density", "Density"}},
        {"SURFACICMASS", {"WB_Density", "Density"}}, // both densities need both magnitudes here
        {"VOLUME", {"Cut_Volume"}}};
    constexpr int kRewritten = 15;
    for (const Row& row : rows) {
        const CATICkeMagnitude_var known = Magnitude(row.magnitude);
        Forget(row.magnitude);
        for (const CATIDOMDocument_var& report :
             {Converted(ReportOfEveryAttribute()), Displayed(ReportOfEveryAttribute())}) {
            CATIDOMElement& root = *Child(report, 0)->AsElement();
            for (const std::string& name : row.kept) {
                CATUnicodeString text;
                EXPECT_EQ(root.GetAttribute(name, text), S_OK);
                EXPECT_EQ(text, "1") << name;
            }
            EXPECT_EQ(Changed(Child(report, 0)).size(), kRewritten - row.kept.size());
        }
        Replace(row.magnitude, known);
    }
}

TEST_F(DistributiveReport, SectionsAreFollowedByRootsAndParts)
{
    AnsweringDocument report("<R/>");
    CATIDOMDocument_var document = report.Handle();
    CATWBServices::ManageUnitsConversionDistributive(document, kWithSymbol, kOwnDecimals);
    CATWBServices::ManageUnitsDisplayDistributive(document, kWithSymbol, kOwnDecimals);
    EXPECT_THAT(report.asked, ElementsAre("WB_Section", "PRC", "PartInstance", "WB_Section", "PRC",
                                          "PartInstance"));
}

TEST_F(DistributiveReport, LookUpThatFailsSkipsItsSetAlone)
{
    AnsweringDocument report(R"(<R><WB_Section COGx="1"/><PRC Density="1" Density_dimension="1"/>)"
                             R"(<PartInstance COGx="1"/></R>)");
    report.missing = "PRC";
    CATIDOMDocument_var document = report.Handle();
    CATWBServices::ManageUnitsDisplayDistributive(document, kWithSymbol, kOwnDecimals);
    EXPECT_EQ(report.Text(),
              R"(<R><WB_Section COGx="1in"/><PRC Density="1" Density_dimension="1"/>)"
              R"(<PartInstance COGx="1in"/></R>)");
}

TEST_F(DistributiveReport, WithoutADocumentElementNothingHappens)
{
    AnsweringDocument report(ReportOfEveryAttribute());
    report.hasDocumentElement = false;
    CATIDOMDocument_var document = report.Handle();
    CATWBServices::ManageUnitsConversionDistributive(document, kWithSymbol, kOwnDecimals);
    CATWBServices::ManageUnitsDisplayDistributive(document, kWithSymbol, kOwnDecimals);
    EXPECT_EQ(report.Text(), ReportOfEveryAttribute());
}

TEST_F(DistributiveReport, NullDocumentIsTheCallersError)
{
    CATIDOMDocument_var none;
    EXPECT_THROW(CATWBServices::ManageUnitsConversionDistributive(none, 1, 0), CATNullHandle);
    EXPECT_THROW(CATWBServices::ManageUnitsDisplayDistributive(none, 1, 0), CATNullHandle);
}

} // namespace
