#include "CATWBServices.h"

#include "ReportUnitsSession.h"

#include <string>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

class ManageUnitsDisplay : public ReportUnitsSession
{
protected:
    static CATIDOMDocument_var Displayed(const std::string& report,
                                         const CATListValCATUnicodeString& list = {},
                                         unsigned char withSymbol = kWithSymbol,
                                         int decimals = kOwnDecimals)
    {
        CATIDOMDocument_var document = Parsed(report);
        CATWBServices::ManageUnitsDisplay(document, list, withSymbol, decimals);
        return document;
    }
    static std::string After(const std::string& report, const CATListValCATUnicodeString& list = {},
                             unsigned char withSymbol = kWithSymbol, int decimals = kOwnDecimals)
    {
        return Written(Displayed(report, list, withSymbol, decimals));
    }
    /// The one part instance of a report after its display, with the lines that are reported.
    std::string Instance(const std::string& attributes, const CATListValCATUnicodeString& list = {})
    {
        const DiagnosticCapture output;
        const std::string text = After("<R><PartInstance " + attributes + "/></R>", list);
        m_lines = output.Lines();
        return text.substr(3, text.size() - 7);
    }
    static CATIDOMNode_var Child(const CATIDOMDocument_var& document, int index)
    {
        return document->DocumentElement()->ChildNodes()->Item(index);
    }

    std::vector<std::string> m_lines;
};

const CATListValCATUnicodeString kReachList{"__magnitude__Reach"};

/// As a conversion leaves it.
constexpr const char* kReport =
    R"(<Report LengthUnit="in"><PRC COGx="1in" COGy="0,5in" COGz="-2.25" WB_Mass="10lb")"
    R"( WB_Lower_deviation="" WB_Upper_deviation="0.1234" MOIxx="1000000kg.mm2" POIyz="-0.5"/>)"
    R"(<PartInstance __magnitude__Reach="LENGTH" COGx="1in" Reach="1,5in" WB_Mass="10lb")"
    R"( WB_Mass_Details="10lb;20lb;0lb" MOIzz="2.5kg.mm2" WB_Density="7.85g/cm3")"
    R"( Density="7.85g/cm3; 1,25g/cm2" Density_dimension="3;2">)"
    R"(<PartInstance COGx="2in"/></PartInstance>)"
    R"(<WB_Section COGz="3in" WB_Mass="1.5" POIxy="1kg.mm2"/><Other COGx="1in"/></Report>)";

TEST_F(ManageUnitsDisplay, WholeReportWithFixedDecimals)
{
    EXPECT_EQ(
        After(kReport, kReachList, kWithSymbol, kFixedDecimals),
        R"(<Report LengthUnit="in"><PRC COGx="1.0000in" COGy="0.5000in" COGz="-2.2500in")"
        R"( WB_Mass="10.000lb" WB_Lower_deviation="0.000lb" WB_Upper_deviation="0.123lb")"
        R"( MOIxx="1000000.000kg.mm2" POIyz="-0.500kg.mm2"/>)"
        R"(<PartInstance __magnitude__Reach="LENGTH" COGx="1.0000in" Reach="1.5000in")"
        R"( WB_Mass="10.000lb" WB_Mass_Details="10.000lb;20.000lb;0.000lb" MOIzz="2.500kg.mm2")"
        R"( WB_Density="7.85000g/cm3" Density="7.85000g/cm3; 1.2500000g/cm2")"
        R"( Density_dimension="3;2"><PartInstance COGx="2.0000in"/></PartInstance>)"
        R"(<WB_Section COGz="3.0000in" WB_Mass="1.500lb" POIxy="1.000kg.mm2"/>)"
        R"(<Other COGx="1in"/></Report>)");
}

TEST_F(ManageUnitsDisplay, WholeReportWithoutSymbols)
{
    EXPECT_EQ(After(kReport, kReachList, kWithoutSymbol, kOwnDecimals),
              R"(<Report LengthUnit="in"><PRC COGx="1" COGy="0.5" COGz="-2.25" WB_Mass="10")"
              R"( WB_Lower_deviation="0" WB_Upper_deviation="0.123" MOIxx="1000000" POIyz="-0.5"/>)"
              R"(<PartInstance __magnitude__Reach="LENGTH" COGx="1" Reach="1.5" WB_Mass="10")"
              R"( WB_Mass_Details="10;20;0" MOIzz="2.5" WB_Density="7.85" Density="7.85; 1.25")"
              R"( Density_dimension="3;2"><PartInstance COGx="2"/></PartInstance>)"
              R"(<WB_Section COGz="3" WB_Mass="1.5" POIxy="1"/><Other COGx="1in"/></Report>)");
}

TEST_F(ManageUnitsDisplay, WholeReportWhereTheSessionWritesAComma)
{
    const NumberLocale comma(kCommaLocale);
    EXPECT_EQ(
        After(kReport, kReachList),
        R"(<Report LengthUnit="in"><PRC COGx="1in" COGy="0,5in" COGz="-2,25in" WB_Mass="10lb")"
        R"( WB_Lower_deviation="0lb" WB_Upper_deviation="0,123lb" MOIxx="1000000kg.mm2")"
        R"( POIyz="-0,5kg.mm2"/>)"
        R"(<PartInstance __magnitude__Reach="LENGTH" COGx="1in" Reach="1,5in" WB_Mass="10lb")"
        R"( WB_Mass_Details="10lb;20lb;0lb" MOIzz="2,5kg.mm2" WB_Density="7,85g/cm3")"
        R"( Density="7,85g/cm3; 1,25g/cm2" Density_dimension="3;2">)"
        R"(<PartInstance COGx="2in"/></PartInstance>)"
        R"(<WB_Section COGz="3in" WB_Mass="1,5lb" POIxy="1kg.mm2"/><Other COGx="1in"/></Report>)");
}

TEST_F(ManageUnitsDisplay, RootsAndSectionsHaveCentreMassesAndInertiasPartsDensitiesToo)
{
    const CATIDOMDocument_var report = Displayed(ReportOfEveryAttribute());
    const auto totals =
        ElementsAre("COGx=1in", "COGy=1in", "COGz=1in", "WB_Mass=1lb", "WB_Lower_deviation=1lb",
                    "WB_Upper_deviation=1lb", "MOIxx=1kg.mm2", "MOIyy=1kg.mm2", "MOIzz=1kg.mm2",
                    "POIxy=1kg.mm2", "POIxz=1kg.mm2", "POIyz=1kg.mm2");
    EXPECT_THAT(Changed(Child(report, 0)), totals);
    EXPECT_THAT(Changed(Child(report, 1)),
                ElementsAre("COGx=1in", "COGy=1in", "COGz=1in", "WB_Mass=1lb",
                            "WB_Lower_deviation=1lb", "WB_Upper_deviation=1lb",
                            "WB_Mass_Details=1lb", "MOIxx=1kg.mm2", "MOIyy=1kg.mm2",
                            "MOIzz=1kg.mm2", "POIxy=1kg.mm2", "POIxz=1kg.mm2", "POIyz=1kg.mm2",
                            "WB_Density=1g/cm3", "Density=1g/cm3"));
    EXPECT_THAT(Changed(Child(report, 2)), totals);
    EXPECT_THAT(Changed(Child(report, 3)), IsEmpty());
}

TEST_F(ManageUnitsDisplay, WritesNoHeader)
{
    EXPECT_EQ(After("<R/>"), "<R/>");
    EXPECT_EQ(After(R"(<R LengthUnit="old"/>)"), R"(<R LengthUnit="old"/>)");
}

TEST_F(ManageUnitsDisplay, OptionsChangedForthAndBackShowTheSameAgain)
{
    CATIDOMDocument_var report = Displayed(kReport, kReachList);
    const std::string before = Written(report);
    for (int round = 0; round < 100; ++round) {
        CATWBServices::ManageUnitsDisplay(report, kReachList, kWithoutSymbol, kFixedDecimals);
        CATWBServices::ManageUnitsDisplay(report, kReachList, kWithSymbol, kOwnDecimals);
    }
    EXPECT_EQ(Written(report), before);
}

TEST_F(ManageUnitsDisplay, ConvertedValuesAreShownInTheUnitsOwnWay)
{
    const SilentStreams silent;
    CATIDOMDocument_var report = Parsed(R"(<R><PRC WB_Mass="0.45359237"/></R>)");
    CATWBServices::ManageUnitsConversion(report, kWithSymbol, kFixedDecimals);
    EXPECT_THAT(Changed(Child(report, 0)), ElementsAre("WB_Mass=1.000lb"));
    CATWBServices::ManageUnitsDisplay(report, {}, kWithoutSymbol, kOwnDecimals);
    EXPECT_THAT(Changed(Child(report, 0)), IsEmpty()); // it is "1"
}

TEST_F(ManageUnitsDisplay, NullDocumentIsTheCallersError)
{
    CATIDOMDocument_var none;
    EXPECT_THROW(CATWBServices::ManageUnitsDisplay(none, {}, 1, 0), CATNullHandle);
}

TEST_F(ManageUnitsDisplay, WithoutADocumentElementNothingHappens)
{
    AnsweringDocument report(ReportOfEveryAttribute());
    report.hasDocumentElement = false;
    CATIDOMDocument_var document = report.Handle();
    CATWBServices::ManageUnitsDisplay(document, {}, kWithSymbol, kOwnDecimals);
    EXPECT_EQ(report.Text(), ReportOfEveryAttribute());
}

TEST_F(ManageUnitsDisplay, RootsAreFollowedBySectionsAndParts)
{
    AnsweringDocument report("<R/>");
    CATIDOMDocument_var document = report.Handle();
    CATWBServices::ManageUnitsDisplay(document, {}, kWithSymbol, kOwnDecimals);
    EXPECT_THAT(report.asked, ElementsAre("PRC", "WB_Section", "PartInstance"));
}

TEST_F(ManageUnitsDisplay, LookUpThatFailsSkipsItsSetAlone)
{
    const auto without = [](const char* name) {
        AnsweringDocument report(
            R"(<R><PRC COGx="1"/><WB_Section COGx="1"/><PartInstance COGx="1"/></R>)");
        report.missing = name;
        CATIDOMDocument_var document = report.Handle();
        CATWBServices::ManageUnitsDisplay(document, {}, kWithSymbol, kOwnDecimals);
        return report.Text();
    };
    EXPECT_EQ(without("PRC"),
              R"(<R><PRC COGx="1"/><WB_Section COGx="1in"/><PartInstance COGx="1in"/></R>)");
    EXPECT_EQ(without("WB_Section"),
              R"(<R><PRC COGx="1in"/><WB_Section COGx="1"/><PartInstance COGx="1in"/></R>)");
    EXPECT_EQ(without("PartInstance"),
              R"(<R><PRC COGx="1in"/><WB_Section COGx="1in"/><PartInstance COGx="1"/></R>)");
}

// What is missing

TEST_F(ManageUnitsDisplay, MagnitudeThatIsNotKnownOrHasNoCurrentUnitLeavesItsAttributes)
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
        {"SURFACICMASS", {"Density"}}};
    constexpr int kRewritten = 15;
    const DiagnosticCapture output;
    for (const Row& row : rows) {
        const CATICkeMagnitude_var known = Magnitude(row.magnitude);
        const CATICkeMagnitude_var lacking[] = {{}, MagnitudeOf(known->StorageUnit(), {})};
        for (const CATICkeMagnitude_var& magnitude : lacking) {
            Replace(row.magnitude, magnitude);
            const CATIDOMDocument_var report = Displayed(ReportOfEveryAttribute());
            CATIDOMElement& instance = *Child(report, 1)->AsElement();
            for (const std::string& name : row.kept) {
                CATUnicodeString text;
                EXPECT_EQ(instance.GetAttribute(name, text), S_OK);
                EXPECT_EQ(text, "1") << name;
            }
            EXPECT_EQ(Changed(Child(report, 1)).size(), kRewritten - row.kept.size());
        }
        Replace(row.magnitude, known);
    }
    EXPECT_THAT(output.Lines(), IsEmpty());
}

TEST_F(ManageUnitsDisplay, StorageUnitsAreNotNeeded)
{
    for (const char* name : {"LENGTH", "MASS", "INERTIAMOMENT", "DENSITY", "SURFACICMASS"}) {
        TakeStorageUnit(name);
    }
    EXPECT_EQ(Changed(Child(Displayed(ReportOfEveryAttribute()), 1)).size(), 15U);
    EXPECT_EQ(Instance(R"(__magnitude__Reach="LENGTH" Reach="1")", kReachList),
              R"(<PartInstance __magnitude__Reach="LENGTH" Reach="1in"/>)");
}

// Lists

TEST_F(ManageUnitsDisplay, MaterialDensityWithoutADimensionIsVolumicAndAnEmptyOneEndsTheList)
{
    EXPECT_EQ(Instance(R"(Density="1g/cm2; 1;;1" Density_dimension="2;;2;2")"),
              R"(<PartInstance Density="1g/cm2; 1g/cm3" Density_dimension="2;;2;2"/>)");
    EXPECT_EQ(Instance(R"(Density="1")"), R"(<PartInstance Density="1"/>)");
}

TEST_F(ManageUnitsDisplay, MassDetailsKeepEveryItemAndReadNumbersAsTheSessionWritesThem)
{
    EXPECT_EQ(Instance(R"(WB_Mass_Details="3,5;;1.5lb;")"),
              R"(<PartInstance WB_Mass_Details="3lb;0lb;1.5lb;0lb"/>)");
    const NumberLocale comma(kCommaLocale);
    EXPECT_EQ(Instance(R"(WB_Mass_Details="3,5;;1.5lb;")"),
              R"(<PartInstance WB_Mass_Details="3,5lb;0lb;1lb;0lb"/>)");
}

// Properties of users

TEST_F(ManageUnitsDisplay, PropertiesAreThoseOfTheList)
{
    EXPECT_EQ(Instance(R"(__magnitude__P="LENGTH" P="1" __magnitude__Q="MASS" Q="2")"
                       R"( __magnitude__R="LENGTH" R="3")",
                       {"__magnitude__R", "__magnitude__P"}),
              R"(<PartInstance __magnitude__P="LENGTH" P="1in" __magnitude__Q="MASS" Q="2")"
              R"( __magnitude__R="LENGTH" R="3in"/>)");
    EXPECT_THAT(m_lines, IsEmpty());
}

TEST_F(ManageUnitsDisplay, WithoutAListThereAreNoProperties)
{
    const std::string attributes = R"(__magnitude__P="LENGTH" P="1")";
    EXPECT_EQ(Instance(attributes), "<PartInstance " + attributes + "/>");
    EXPECT_THAT(m_lines, IsEmpty());
}

TEST_F(ManageUnitsDisplay, PropertyIsShownInTheMagnitudeOfItsOwnElement)
{
    const CATIDOMDocument_var report =
        Displayed(R"(<R><PartInstance Reach="1" __magnitude__Reach="LENGTH"/>)"
                  R"(<PartInstance Reach="2" __magnitude__Reach="MASS"/></R>)",
                  kReachList);
    EXPECT_THAT(Changed(Child(report, 0)), ElementsAre("Reach=1in", "__magnitude__Reach=LENGTH"));
    EXPECT_THAT(Changed(Child(report, 1)), ElementsAre("Reach=2lb", "__magnitude__Reach=MASS"));
}

TEST_F(ManageUnitsDisplay, PropertyThatAnInstanceDoesNotHaveIsNotReported)
{
    EXPECT_EQ(Instance(R"(Reach="1")", {"__magnitude__Reach", "__magnitude__Other"}),
              R"(<PartInstance Reach="1"/>)");
    EXPECT_THAT(m_lines, IsEmpty());
}

// Lists are made of companions; a name that is none is its own property and magnitude.
TEST_F(ManageUnitsDisplay, ListedNameWithoutThePrefixIsTakenWhole)
{
    EXPECT_EQ(Instance(R"(P="LENGTH" Unit_of_reach="1")", {"P", "Unit_of_reach", ""}),
              R"(<PartInstance P="0in" Unit_of_reach="1"/>)");
    EXPECT_THAT(m_lines, ElementsAre("Error encountered: could not find the magnitude 1 for "
                                     "Unit_of_reach!"));
}

TEST_F(ManageUnitsDisplay, CompanionOfAPropertyThatIsNotThereIsReported)
{
    EXPECT_EQ(Instance(R"(__magnitude__P="NONE" __magnitude__Q="LENGTH" Q="1")",
                       {"__magnitude__P", "__magnitude__Q"}),
              R"(<PartInstance __magnitude__P="NONE" __magnitude__Q="LENGTH" Q="1in"/>)");
    EXPECT_THAT(m_lines, ElementsAre("Error encountered: could not find the XML attribute P on the "
                                     "current node!"));
}

TEST_F(ManageUnitsDisplay, PropertyOfAnUnknownMagnitudeIsReportedAndKept)
{
    EXPECT_EQ(Instance(R"(__magnitude__P="Length" P="1" __magnitude__Q="LENGTH" Q="1")",
                       {"__magnitude__P", "__magnitude__Q"}),
              R"(<PartInstance __magnitude__P="Length" P="1" __magnitude__Q="LENGTH" Q="1in"/>)");
    EXPECT_THAT(m_lines,
                ElementsAre("Error encountered: could not find the magnitude Length for P!"));
}

TEST_F(ManageUnitsDisplay, PropertyWhoseMagnitudeHasNoCurrentUnitIsReportedAndKept)
{
    TakeCurrentUnit("FORCE");
    EXPECT_EQ(Instance(R"(__magnitude__P="FORCE" P="1" __magnitude__Q="LENGTH" Q="1")",
                       {"__magnitude__P", "__magnitude__Q"}),
              R"(<PartInstance __magnitude__P="FORCE" P="1" __magnitude__Q="LENGTH" Q="1in"/>)");
    EXPECT_THAT(m_lines, ElementsAre("Error encountered: could not find the current unit for "
                                     "magnitude FORCE associated with P!"));
}

TEST_F(ManageUnitsDisplay, ReportsComeInstanceByInstanceInTheOrderOfTheList)
{
    const DiagnosticCapture output;
    After(R"(<R><PartInstance __magnitude__P="NONE" P="1" __magnitude__Q="NONE" Q="1"/>)"
          R"(<PartInstance __magnitude__P="OTHER" P="1"/></R>)",
          {"__magnitude__Q", "__magnitude__P"});
    EXPECT_THAT(output.Lines(),
                ElementsAre("Error encountered: could not find the magnitude NONE for Q!",
                            "Error encountered: could not find the magnitude NONE for P!",
                            "Error encountered: could not find the magnitude OTHER for P!"));
}

TEST_F(ManageUnitsDisplay, PropertiesOfRootsAndSectionsStayAsTheyAre)
{
    const CATIDOMDocument_var report =
        Displayed(R"(<R><PRC __magnitude__Reach="LENGTH" Reach="1"/>)"
                  R"(<WB_Section __magnitude__Reach="LENGTH" Reach="1"/></R>)",
                  kReachList);
    EXPECT_THAT(Changed(Child(report, 0)), ElementsAre("__magnitude__Reach=LENGTH"));
    EXPECT_THAT(Changed(Child(report, 1)), ElementsAre("__magnitude__Reach=LENGTH"));
}

// It is shown in pounds and then, as the property that it is too, in inches.
TEST_F(ManageUnitsDisplay, AttributeOfTheReportThatIsAPropertyTooHasThePropertysMagnitude)
{
    EXPECT_EQ(Instance(R"(WB_Mass="2,25" __magnitude__WB_Mass="LENGTH")", {"__magnitude__WB_Mass"}),
              R"(<PartInstance WB_Mass="2.25in" __magnitude__WB_Mass="LENGTH"/>)");
}

TEST_F(ManageUnitsDisplay, PropertyTextsAreReadWithEitherSeparatorAndShownAsAsked)
{
    const NumberLocale comma(kCommaLocale);
    EXPECT_EQ(After(R"(<R><PartInstance __magnitude__Reach="LENGTH" Reach="1.5"/></R>)", kReachList,
                    kWithoutSymbol, kFixedDecimals),
              R"(<R><PartInstance __magnitude__Reach="LENGTH" Reach="1,5000"/></R>)");
}

} // namespace
