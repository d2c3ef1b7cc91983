#include "CATWBServices.h"

#include "ReportDoubles.h"
#include "ReportUnitsSession.h"

#include <string>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

class ManageUnitsConversion : public ReportUnitsSession
{
protected:
    static CATIDOMDocument_var Converted(const std::string& report,
                                         unsigned char withSymbol = kWithSymbol,
                                         int decimals = kOwnDecimals)
    {
        CATIDOMDocument_var document = Parsed(report);
        CATWBServices::ManageUnitsConversion(document, withSymbol, decimals);
        return document;
    }
    static std::string After(const std::string& report, unsigned char withSymbol = kWithSymbol,
                             int decimals = kOwnDecimals)
    {
        return Written(Converted(report, withSymbol, decimals));
    }
    /// The one part instance of a report after its conversion, with the lines that are reported.
    std::string Instance(const std::string& attributes)
    {
        const DiagnosticCapture output;
        const std::string text = After("<R><PartInstance " + attributes + "/></R>");
        m_lines = output.Lines();
        const std::size_t begin = text.find("<PartInstance ");
        return text.substr(begin, text.find("/>") + 2 - begin);
    }
    static CATIDOMNode_var Child(const CATIDOMDocument_var& document, int index)
    {
        return document->DocumentElement()->ChildNodes()->Item(index);
    }

    std::vector<std::string> m_lines;
};

constexpr const char* kReport =
    R"(<Report Name="R1"><PRC V_ID="P" COGx="25.4" COGy="12,7" COGz="-50.8" WB_Mass="0.45359237")"
    R"( WB_Lower_deviation="0.90718474" WB_Upper_deviation="none" MOIxx="1" MOIyy="2.5")"
    R"( MOIzz="1e-6" POIxy="-0,5" POIxz="0" POIyz="0.25"/>)"
    R"(<PartInstance Name="I1" COGx="25.4" __magnitude__Reach="LENGTH" Reach="38,1")"
    R"( WB_Mass="4,5359237" WB_Mass_Details="4.5359237;9.0718474;" MOIxx="0.002")"
    R"( WB_Density="7850" Density="7850;12,5" Density_dimension="3;2">)"
    R"(<PartInstance Name="I2" COGx=""/></PartInstance>)"
    R"(<WB_Section Name="S" COGz="0" WB_Mass="4.5359237" POIyz="-1"/>)"
    R"(<Other COGx="25.4"/></Report>)";

TEST_F(ManageUnitsConversion, WholeReport)
{
    const SilentStreams silent;
    EXPECT_EQ(After(kReport),
              R"(<Report Name="R1" LengthUnit="in" MassUnit="lb" InertiaMomentUnit="kg.mm2")"
              R"( DensityUnit="g/cm3" SurfacicDensityUnit="g/cm2">)"
              R"(<PRC V_ID="P" COGx="1in" COGy="0.5in" COGz="-2in" WB_Mass="1lb")"
              R"( WB_Lower_deviation="2lb" WB_Upper_deviation="0lb" MOIxx="1000000kg.mm2")"
              R"( MOIyy="2500000kg.mm2" MOIzz="1kg.mm2" POIxy="-500000kg.mm2" POIxz="0kg.mm2")"
              R"( POIyz="250000kg.mm2"/>)"
              R"(<PartInstance Name="I1" COGx="1in" __magnitude__Reach="LENGTH" Reach="1.5in")"
              R"( WB_Mass="10lb" WB_Mass_Details="10lb;20lb;0lb" MOIxx="2000kg.mm2")"
              R"( WB_Density="7.85g/cm3" Density="7.85g/cm3; 1.25g/cm2" Density_dimension="3;2">)"
              R"(<PartInstance Name="I2" COGx="0in"/></PartInstance>)"
              R"(<WB_Section Name="S" COGz="0in" WB_Mass="10lb" POIyz="-1000000kg.mm2"/>)"
              R"(<Other COGx="25.4"/></Report>)");
}

// Where numbers are written with a comma the breakdown, which comes with points, ends at them:
// 4.5359237 reads as 4 (8.818lb) and 9.0718474 as 9 (19.842lb).
TEST_F(ManageUnitsConversion, WholeReportWhereTheSessionWritesACommaWithFixedDecimals)
{
    const SilentStreams silent;
    const NumberLocale comma(kCommaLocale);
    EXPECT_EQ(
        After(kReport, kWithSymbol, kFixedDecimals),
        R"(<Report Name="R1" LengthUnit="in" MassUnit="lb" InertiaMomentUnit="kg.mm2")"
        R"( DensityUnit="g/cm3" SurfacicDensityUnit="g/cm2">)"
        R"(<PRC V_ID="P" COGx="1,0000in" COGy="0,5000in" COGz="-2,0000in" WB_Mass="1,000lb")"
        R"( WB_Lower_deviation="2,000lb" WB_Upper_deviation="0,000lb" MOIxx="1000000,000kg.mm2")"
        R"( MOIyy="2500000,000kg.mm2" MOIzz="1,000kg.mm2" POIxy="-500000,000kg.mm2")"
        R"( POIxz="0,000kg.mm2" POIyz="250000,000kg.mm2"/>)"
        R"(<PartInstance Name="I1" COGx="1,0000in" __magnitude__Reach="LENGTH" Reach="1,5000in")"
        R"( WB_Mass="10,000lb" WB_Mass_Details="8,818lb;19,842lb;0,000lb" MOIxx="2000,000kg.mm2")"
        R"( WB_Density="7,85000g/cm3" Density="7,85000g/cm3; 1,2500000g/cm2")"
        R"( Density_dimension="3;2"><PartInstance Name="I2" COGx="0,0000in"/></PartInstance>)"
        R"(<WB_Section Name="S" COGz="0,0000in" WB_Mass="10,000lb" POIyz="-1000000,000kg.mm2"/>)"
        R"(<Other COGx="25.4"/></Report>)");
}

TEST_F(ManageUnitsConversion, WholeReportWithoutSymbols)
{
    const SilentStreams silent;
    EXPECT_EQ(After(R"(<R><PRC COGx="25.4" WB_Mass="0.45359237" MOIxx="1"/>)"
                    R"(<PartInstance A="" __magnitude__P="MASS" P="4.5359237")"
                    R"( WB_Mass_Details="4.5359237;0" WB_Density="1000" Density="1000;10")"
                    R"( Density_dimension="0;2"/><WB_Section WB_Mass="0.45359237"/></R>)",
                    kWithoutSymbol),
              R"(<R LengthUnit="in" MassUnit="lb" InertiaMomentUnit="kg.mm2")"
              R"( DensityUnit="g/cm3" SurfacicDensityUnit="g/cm2">)"
              R"(<PRC COGx="1" WB_Mass="1" MOIxx="1000000"/>)"
              R"(<PartInstance A="" __magnitude__P="MASS" P="10")"
              R"( WB_Mass_Details="10;0" WB_Density="1" Density="1; 1" Density_dimension="0;2"/>)"
              R"(<WB_Section WB_Mass="1"/></R>)");
}

TEST_F(ManageUnitsConversion, RootsAndSectionsHaveCentreMassesAndInertiasPartsDensitiesToo)
{
    const SilentStreams silent;
    const CATIDOMDocument_var report = Converted(ReportOfEveryAttribute());
    // 1 mm is 0.03937in, 1 kg 2.2046lb, 1 kg/m3 a thousandth of 1 g/cm3.
    const auto totals =
        ElementsAre("COGx=0.0394in", "COGy=0.0394in", "COGz=0.0394in", "WB_Mass=2.205lb",
                    "WB_Lower_deviation=2.205lb", "WB_Upper_deviation=2.205lb",
                    "MOIxx=1000000kg.mm2", "MOIyy=1000000kg.mm2", "MOIzz=1000000kg.mm2",
                    "POIxy=1000000kg.mm2", "POIxz=1000000kg.mm2", "POIyz=1000000kg.mm2");
    EXPECT_THAT(Changed(Child(report, 0)), totals);
    EXPECT_THAT(Changed(Child(report, 1)),
                ElementsAre("COGx=0.0394in", "COGy=0.0394in", "COGz=0.0394in", "WB_Mass=2.205lb",
                            "WB_Lower_deviation=2.205lb", "WB_Upper_deviation=2.205lb",
                            "WB_Mass_Details=2.205lb", "MOIxx=1000000kg.mm2", "MOIyy=1000000kg.mm2",
                            "MOIzz=1000000kg.mm2", "POIxy=1000000kg.mm2", "POIxz=1000000kg.mm2",
                            "POIyz=1000000kg.mm2", "WB_Density=0.001g/cm3", "Density=0.001g/cm3"));
    EXPECT_THAT(Changed(Child(report, 2)), totals);
    EXPECT_THAT(Changed(Child(report, 3)), IsEmpty());
}

TEST_F(ManageUnitsConversion, ElementsAreFoundWhereverTheyStand)
{
    const SilentStreams silent;
    EXPECT_EQ(After(R"(<PRC COGx="25.4"><A><WB_Section COGx="25.4"><PartInstance COGx="25.4"/>)"
                    R"(</WB_Section></A></PRC>)"),
              R"(<PRC COGx="1in" LengthUnit="in" MassUnit="lb" InertiaMomentUnit="kg.mm2")"
              R"( DensityUnit="g/cm3" SurfacicDensityUnit="g/cm2"><A><WB_Section COGx="1in">)"
              R"(<PartInstance COGx="1in"/></WB_Section></A></PRC>)");
}

TEST_F(ManageUnitsConversion, LetterCaseOfElementsAndAttributesCounts)
{
    const CATIDOMDocument_var report =
        Converted(R"(<R><Prc COGx="25.4"/><partinstance COGx="25.4"/><WB_section COGx="25.4"/>)"
                  R"(<PRC cogx="25.4" COGX="25.4"/></R>)");
    EXPECT_EQ(Written(report),
              R"(<R LengthUnit="in" MassUnit="lb" InertiaMomentUnit="kg.mm2" DensityUnit="g/cm3")"
              R"( SurfacicDensityUnit="g/cm2"><Prc COGx="25.4"/><partinstance COGx="25.4"/>)"
              R"(<WB_section COGx="25.4"/><PRC cogx="25.4" COGX="25.4"/></R>)");
}

TEST_F(ManageUnitsConversion, DoneTwiceConvertsTheConvertedNumbers)
{
    CATIDOMDocument_var report = Parsed(R"(<R><PRC COGx="645.16"/></R>)"); // 25.4 * 25.4
    CATWBServices::ManageUnitsConversion(report, kWithSymbol, kOwnDecimals);
    EXPECT_THAT(Changed(Child(report, 0)), ElementsAre("COGx=25.4in"));
    CATWBServices::ManageUnitsConversion(report, kWithSymbol, kOwnDecimals);
    EXPECT_THAT(Changed(Child(report, 0)), ElementsAre("COGx=1in"));
}

TEST_F(ManageUnitsConversion, NullDocumentIsTheCallersError)
{
    CATIDOMDocument_var none;
    EXPECT_THROW(CATWBServices::ManageUnitsConversion(none, 1, 0), CATNullHandle);
}

TEST_F(ManageUnitsConversion, WithoutADocumentElementNothingHappens)
{
    AnsweringDocument report(ReportOfEveryAttribute());
    report.hasDocumentElement = false;
    CATIDOMDocument_var document = report.Handle();
    CATWBServices::ManageUnitsConversion(document, kWithSymbol, kOwnDecimals);
    EXPECT_EQ(report.Text(), ReportOfEveryAttribute());
}

// The unit header

TEST_F(ManageUnitsConversion, HeaderIsWrittenWithoutAnyElement)
{
    EXPECT_EQ(After(R"(<R Name="x"/>)"),
              R"(<R Name="x" LengthUnit="in" MassUnit="lb" InertiaMomentUnit="kg.mm2")"
              R"( DensityUnit="g/cm3" SurfacicDensityUnit="g/cm2"/>)");
}

TEST_F(ManageUnitsConversion, HeaderReplacesEarlierSymbolsInTheirPlaces)
{
    EXPECT_EQ(After(R"(<R SurfacicDensityUnit="a" VolumeUnit="b" LengthUnit="c"/>)"),
              R"(<R SurfacicDensityUnit="g/cm2" VolumeUnit="b" LengthUnit="in" MassUnit="lb")"
              R"( InertiaMomentUnit="kg.mm2" DensityUnit="g/cm3"/>)");
}

TEST_F(ManageUnitsConversion, HeaderLacksTheUnitsOfMagnitudesThatAreNotKnown)
{
    Forget("LENGTH");
    Forget("DENSITY");
    EXPECT_EQ(After("<R/>"), R"(<R MassUnit="lb" InertiaMomentUnit="kg.mm2")"
                             R"( SurfacicDensityUnit="g/cm2"/>)");
    Forget("MASS");
    Forget("INERTIAMOMENT");
    Forget("SURFACICMASS");
    EXPECT_EQ(After("<R/>"), "<R/>");
}

TEST_F(ManageUnitsConversion, HeaderNeedsTheCurrentUnitsAlone)
{
    TakeStorageUnit("MASS");
    TakeStorageUnit("SURFACICMASS");
    TakeCurrentUnit("LENGTH");
    TakeCurrentUnit("DENSITY");
    EXPECT_EQ(After("<R/>"), R"(<R MassUnit="lb" InertiaMomentUnit="kg.mm2")"
                             R"( SurfacicDensityUnit="g/cm2"/>)");
}

TEST_F(ManageUnitsConversion, RootsAreFollowedByPartsAndSections)
{
    AnsweringDocument report("<R/>");
    CATIDOMDocument_var document = report.Handle();
    CATWBServices::ManageUnitsConversion(document, kWithSymbol, kOwnDecimals);
    EXPECT_THAT(report.asked, ElementsAre("PRC", "PartInstance", "WB_Section"));
}

// A look-up that fails skips its set with what the set writes to the header, and no other.
TEST_F(ManageUnitsConversion, EachSetWritesItsOwnPartOfTheHeader)
{
    const SilentStreams silent;
    const std::string body = R"(<PRC COGx="25.4"/><PartInstance COGx="25.4"/>)"
                             R"(<WB_Section COGx="25.4"/></R>)";
    const auto without = [&body](const char* name) {
        AnsweringDocument report("<R>" + body);
        report.missing = name;
        CATIDOMDocument_var document = report.Handle();
        CATWBServices::ManageUnitsConversion(document, kWithSymbol, kOwnDecimals);
        return report.Text();
    };
    EXPECT_EQ(without("PRC"),
              R"(<R DensityUnit="g/cm3" SurfacicDensityUnit="g/cm2" LengthUnit="in")"
              R"( MassUnit="lb" InertiaMomentUnit="kg.mm2">)"
              R"(<PRC COGx="25.4"/><PartInstance COGx="1in"/><WB_Section COGx="1in"/></R>)");
    EXPECT_EQ(without("PartInstance"),
              R"(<R LengthUnit="in" MassUnit="lb" InertiaMomentUnit="kg.mm2">)"
              R"(<PRC COGx="1in"/><PartInstance COGx="25.4"/><WB_Section COGx="1in"/></R>)");
    EXPECT_EQ(without("WB_Section"),
              R"(<R LengthUnit="in" MassUnit="lb" InertiaMomentUnit="kg.mm2" DensityUnit="g/cm3")"
              R"( SurfacicDensityUnit="g/cm2">)"
              R"(<PRC COGx="1in"/><PartInstance COGx="1in"/><WB_Section COGx="25.4"/></R>)");
}

// What is missing

TEST_F(ManageUnitsConversion, MagnitudeThatIsNotKnownOrLacksAUnitLeavesItsAttributesWithoutAWord)
{
    struct Row
    {
        const char* magnitude;
        std::vector<std::string> kept; // attributes of a part instance that stay as they are
    };
    const std::vector<Row> rows{
        {"LENGTH", {"COGx", "COGy", "COGz"}},
        {"MASS", {"WB_Mass", "WB_Lower_deviation", "WB_Upper_deviation", "WB_Mass_Details"}},
        {"INERTIAMOMENT", {"MOIxx", "MOIyy", "MOIzz", "POIxy", "POIxz", "POIyz"}},
        {"DENSITY", {"WB_Density", "Density"}},
        {"SURFACICMASS", {"Density"}},
        {"VOLUME", {}}};
    constexpr int kRewritten = 15;
    for (const Row& row : rows) {
        const CATICkeMagnitude_var known = Magnitude(row.magnitude);
        const CATICkeMagnitude_var lacking[] = {
            {}, MagnitudeOf({}, known->CurrentUnit()), MagnitudeOf(known->StorageUnit(), {})};
        for (const CATICkeMagnitude_var& magnitude : lacking) {
            Replace(row.magnitude, magnitude);
            const DiagnosticCapture output;
            const CATIDOMDocument_var report = Converted(ReportOfEveryAttribute());
            CATIDOMElement& instance = *Child(report, 1)->AsElement();
            for (const std::string& name : row.kept) {
                CATUnicodeString text;
                EXPECT_EQ(instance.GetAttribute(name, text), S_OK);
                EXPECT_EQ(text, "1") << name;
            }
            EXPECT_EQ(Changed(Child(report, 1)).size(), kRewritten - row.kept.size());
            EXPECT_EQ(output.Lines().size(), 1U); // the one past the end of the instance's map
        }
        Replace(row.magnitude, known);
    }
}

TEST_F(ManageUnitsConversion, DensityOfTheReportNeedsItsOwnMagnitudeAlone)
{
    const std::string attributes = R"(WB_Density="1000" Density="1000;10" Density_dimension="3;2")";
    Forget("SURFACICMASS");
    EXPECT_EQ(Instance(attributes), R"(<PartInstance WB_Density="1g/cm3" Density="1000;10")"
                                    R"( Density_dimension="3;2"/>)");
}

TEST_F(ManageUnitsConversion, MaterialDensitiesNeedTheirDimensions)
{
    EXPECT_EQ(Instance(R"(Density="1000")"), R"(<PartInstance Density="1000"/>)");
    EXPECT_EQ(Instance(R"(Density_dimension="2")"), R"(<PartInstance Density_dimension="2"/>)");
}

// Lists

TEST_F(ManageUnitsConversion, MaterialDensityWithoutADimensionIsVolumicWhateverCameBefore)
{
    EXPECT_EQ(
        Instance(R"(Density="10;1000;10;1000" Density_dimension="2;x;2")"),
        R"(<PartInstance Density="1g/cm2; 1g/cm3; 1g/cm2; 1g/cm3" Density_dimension="2;x;2"/>)");
}

TEST_F(ManageUnitsConversion, MaterialDensitiesEndAtTheFirstEmptyItem)
{
    EXPECT_EQ(Instance(R"(Density="1000;;10" Density_dimension="3;3;2")"),
              R"(<PartInstance Density="1g/cm3" Density_dimension="3;3;2"/>)");
    EXPECT_EQ(Instance(R"(Density=";10" Density_dimension="3;2")"),
              R"(<PartInstance Density="" Density_dimension="3;2"/>)");
}

TEST_F(ManageUnitsConversion, MaterialDensitiesTakeEitherSeparator)
{
    EXPECT_EQ(Instance(R"(Density="1500,0;12.5" Density_dimension="3;2")"),
              R"(<PartInstance Density="1.5g/cm3; 1.25g/cm2" Density_dimension="3;2"/>)");
    const NumberLocale comma(kCommaLocale);
    EXPECT_EQ(Instance(R"(Density="1500,0;12.5" Density_dimension="3;2")"),
              R"(<PartInstance Density="1,5g/cm3; 1,25g/cm2" Density_dimension="3;2"/>)");
}

TEST_F(ManageUnitsConversion, MassDetailsKeepEveryItemAndReadNumbersAsTheSessionWritesThem)
{
    Use("MASS", "g");
    EXPECT_EQ(Instance(R"(WB_Mass_Details="3,5;;1.5;")"),
              R"(<PartInstance WB_Mass_Details="3000g;0g;1500g;0g"/>)");
    EXPECT_EQ(Instance(R"(WB_Mass_Details="")"), R"(<PartInstance WB_Mass_Details="0g"/>)");
    const NumberLocale comma(kCommaLocale);
    EXPECT_EQ(Instance(R"(WB_Mass_Details="3,5;;1.5;")"),
              R"(<PartInstance WB_Mass_Details="3500g;0g;1000g;0g"/>)");
}

// Properties of users

TEST_F(ManageUnitsConversion, PropertyIsConvertedByTheMagnitudeThatItsCompanionNames)
{
    Use("FORCE", "kN");
    EXPECT_EQ(Instance(R"(Name="i" __magnitude__Reach="LENGTH" Reach="25.4" Load="1500,0")"
                       R"( Plain="25.4" __magnitude__Load="FORCE")"),
              R"(<PartInstance Name="i" __magnitude__Reach="LENGTH" Reach="1in" Load="1.5kN")"
              R"( Plain="25.4" __magnitude__Load="FORCE"/>)");
    EXPECT_THAT(m_lines, ElementsAre("Error encountered: attribute 6 is null for the node at "
                                     "iteration 0"));
}

TEST_F(ManageUnitsConversion, PropertyIsConvertedByTheMagnitudeOfItsOwnElement)
{
    const SilentStreams silent;
    const CATIDOMDocument_var report =
        Converted(R"(<R><PartInstance A="1" __magnitude__P="LENGTH" P="25.4"/>)"
                  R"(<PartInstance A="1" __magnitude__P="MASS" P="0.45359237"/>)"
                  R"(<PartInstance A="1" P="25.4" __magnitude__P="LENGTH"/></R>)");
    EXPECT_THAT(Changed(Child(report, 0)), ElementsAre("__magnitude__P=LENGTH", "P=1in"));
    EXPECT_THAT(Changed(Child(report, 1)), ElementsAre("__magnitude__P=MASS", "P=1lb"));
    EXPECT_THAT(Changed(Child(report, 2)), ElementsAre("P=1in", "__magnitude__P=LENGTH"));
}

TEST_F(ManageUnitsConversion, PropertyTextsAreReadWithEitherSeparatorAndShownAsAsked)
{
    const SilentStreams silent;
    const NumberLocale comma(kCommaLocale);
    const std::string report =
        R"(<R><PartInstance A="1" __magnitude__P="LENGTH" P="12.7" __magnitude__Q="LENGTH")"
        R"( Q="x"/></R>)";
    EXPECT_THAT(
        Changed(Child(Converted(report, kWithoutSymbol, kFixedDecimals), 0)),
        ElementsAre("__magnitude__P=LENGTH", "P=0,5000", "__magnitude__Q=LENGTH", "Q=0,0000"));
}

// The value of a property that is named by the first attribute stays in storage units.
TEST_F(ManageUnitsConversion, FirstAttributeIsNotExamined)
{
    EXPECT_EQ(Instance(R"(__magnitude__P="LENGTH" P="25.4")"),
              R"(<PartInstance __magnitude__P="LENGTH" P="25.4"/>)");
    EXPECT_THAT(m_lines,
                ElementsAre("Error encountered: attribute 2 is null for the node at iteration 0"));
}

TEST_F(ManageUnitsConversion, EveryInstanceWithAttributesIsAskedForOnePastTheEnd)
{
    const DiagnosticCapture output;
    After(R"(<R><PartInstance/><PartInstance A="1" B="2"/><PRC A="1"/><WB_Section A="1"/>)"
          R"(<PartInstance A="1"><PartInstance A="1" B="2" C="3"/></PartInstance></R>)");
    EXPECT_THAT(output.Lines(),
                ElementsAre("Error encountered: attribute 2 is null for the node at iteration 1",
                            "Error encountered: attribute 1 is null for the node at iteration 2",
                            "Error encountered: attribute 3 is null for the node at iteration 3"));
}

TEST_F(ManageUnitsConversion, CompanionOfAPropertyThatIsNotThereIsReported)
{
    EXPECT_EQ(Instance(R"(A="1" __magnitude__P="NONE" __magnitude__Q="LENGTH" Q="25.4")"),
              R"(<PartInstance A="1" __magnitude__P="NONE" __magnitude__Q="LENGTH" Q="1in"/>)");
    EXPECT_THAT(m_lines,
                ElementsAre("Error encountered: could not find the XML attribute P on the current "
                            "node!",
                            "Error encountered: attribute 4 is null for the node at iteration 0"));
}

TEST_F(ManageUnitsConversion, PropertyOfAnUnknownMagnitudeIsReportedAndKept)
{
    EXPECT_EQ(
        Instance(R"(A="1" __magnitude__P="Length" P="25.4" __magnitude__Q="" Q="25.4")"),
        R"(<PartInstance A="1" __magnitude__P="Length" P="25.4" __magnitude__Q="" Q="25.4"/>)");
    EXPECT_THAT(m_lines,
                ElementsAre("Error encountered: could not find the magnitude Length for P!",
                            "Error encountered: could not find the magnitude  for Q!",
                            "Error encountered: attribute 5 is null for the node at iteration 0"));
}

TEST_F(ManageUnitsConversion, PropertyWhoseMagnitudeLacksAUnitIsReportedAndKept)
{
    TakeCurrentUnit("FORCE");
    TakeStorageUnit("POWER");
    EXPECT_EQ(
        Instance(R"(A="1" __magnitude__P="FORCE" P="25.4" __magnitude__Q="POWER" Q="1")"),
        R"(<PartInstance A="1" __magnitude__P="FORCE" P="25.4" __magnitude__Q="POWER" Q="1"/>)");
    EXPECT_THAT(m_lines,
                ElementsAre("Error encountered: could not find the current/storage unit for "
                            "magnitude FORCE associated with P!",
                            "Error encountered: could not find the current/storage unit for "
                            "magnitude POWER associated with Q!",
                            "Error encountered: attribute 5 is null for the node at iteration 0"));
}

TEST_F(ManageUnitsConversion, PropertyIsReportedAgainForEveryElement)
{
    const DiagnosticCapture output;
    After(R"(<R><PartInstance A="1" __magnitude__P="NONE" P="1"/>)"
          R"(<PartInstance A="1" P="1" __magnitude__P="NONE"/></R>)");
    EXPECT_THAT(output.Lines(),
                ElementsAre("Error encountered: could not find the magnitude NONE for P!",
                            "Error encountered: attribute 3 is null for the node at iteration 0",
                            "Error encountered: could not find the magnitude NONE for P!",
                            "Error encountered: attribute 3 is null for the node at iteration 1"));
}

TEST_F(ManageUnitsConversion, MagnitudesAndNamesAreLookedUpOnceHoweverManyInstancesThereAre)
{
    const SilentStreams silent;
    Forget("NONE");
    std::string instances;
    for (int count = 0; count < 10; ++count) {
        instances += R"(<PartInstance A="1" __magnitude__P="FORCE" P="1" __magnitude__Q="NONE")"
                     R"( Q="1" __magnitude__R="FORCE" R="1"/>)";
    }
    AnsweringDocument report("<R>" + instances + "</R>");
    CATIDOMDocument_var document = report.Handle();
    CATWBServices::ManageUnitsConversion(document, kWithSymbol, kOwnDecimals);
    EXPECT_EQ(TimesAsked("FORCE"), 1);
    EXPECT_EQ(TimesAsked("NONE"), 1);
    EXPECT_EQ(report.namesRead, 6); // of the attributes behind the first one
}

TEST_F(ManageUnitsConversion, PrefixIsExactAndMayHaveNothingBehindIt)
{
    EXPECT_EQ(Instance(R"(A="1" __Magnitude__P="LENGTH" magnitude__P="LENGTH" P="25.4")"
                       R"( x__magnitude__P="LENGTH" __magnitude__="LENGTH")"),
              R"(<PartInstance A="1" __Magnitude__P="LENGTH" magnitude__P="LENGTH" P="25.4")"
              R"( x__magnitude__P="LENGTH" __magnitude__="LENGTH"/>)");
    EXPECT_THAT(m_lines,
                ElementsAre("Error encountered: could not find the XML attribute  on the current "
                            "node!",
                            "Error encountered: attribute 6 is null for the node at iteration 0"));
}

// 1 kg is 2.205lb; as kilograms these are 4.861lb.
TEST_F(ManageUnitsConversion, AttributeOfTheReportThatIsAPropertyTooIsConvertedTwice)
{
    EXPECT_EQ(Instance(R"(WB_Mass="1" __magnitude__WB_Mass="MASS")"),
              R"(<PartInstance WB_Mass="4.861lb" __magnitude__WB_Mass="MASS"/>)");
    Forget("MASS");
    Replace("OTHER", MagnitudeOf(Unit("LENGTH", "mm"), Unit("LENGTH", "cm")));
    EXPECT_EQ(Instance(R"(WB_Mass="1" __magnitude__WB_Mass="OTHER")"),
              R"(<PartInstance WB_Mass="0.1cm" __magnitude__WB_Mass="OTHER"/>)");
}

TEST_F(ManageUnitsConversion, CompanionOfACompanionIsRewrittenBeforeItIsRead)
{
    EXPECT_EQ(Instance(R"(A="1" __magnitude____magnitude__P="LENGTH" __magnitude__P="LENGTH")"
                       R"( P="25.4")"),
              R"(<PartInstance A="1" __magnitude____magnitude__P="LENGTH" __magnitude__P="0in")"
              R"( P="25.4"/>)");
    EXPECT_THAT(m_lines,
                ElementsAre("Error encountered: could not find the magnitude 0in for P!",
                            "Error encountered: attribute 4 is null for the node at iteration 0"));
}

TEST_F(ManageUnitsConversion, PropertiesOfRootsAndSectionsStayAsTheyAre)
{
    const CATIDOMDocument_var report =
        Converted(R"(<R><PRC A="1" __magnitude__P="LENGTH" P="1"/>)"
                  R"(<WB_Section A="1" __magnitude__P="LENGTH" P="1"/></R>)");
    EXPECT_THAT(Changed(Child(report, 0)), ElementsAre("__magnitude__P=LENGTH"));
    EXPECT_THAT(Changed(Child(report, 1)), ElementsAre("__magnitude__P=LENGTH"));
}

TEST_F(ManageUnitsConversion, InstanceWithoutAnAttributeMapIsReportedAndTheNextOneIsConverted)
{
    AnsweringDocument report(R"(<R><PartInstance A="1" __magnitude__P="LENGTH" P="25.4"/></R>)");
    CATIDOMDocument_var document = report.Handle();
    const CATIDOMNode_var real = document->DocumentElement()->FirstChild();
    const CATIDOMNode_var noMap = ElementAsTold::WithMap({});
    report.parts = NodesAsTold::List({noMap, noMap, real});
    const DiagnosticCapture output;
    CATWBServices::ManageUnitsConversion(document, kWithSymbol, kOwnDecimals);
    EXPECT_THAT(Changed(real), ElementsAre("__magnitude__P=LENGTH", "P=1in"));
    EXPECT_THAT(output.Lines(),
                ElementsAre("Error encountered: Could not retrieve the list of attributes for the "
                            "node at iteration 0!",
                            "Error encountered: Could not retrieve the list of attributes for the "
                            "node at iteration 1!",
                            "Error encountered: attribute 3 is null for the node at iteration 2"));
}

} // namespace
