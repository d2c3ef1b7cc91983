#include "WBStatisticsUnits.h"

#include "ReportUnitsSession.h"

#include <string>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

constexpr WBShowOptions kWithSymbols{true, kOwnDecimals};
constexpr WBShowOptions kPlain{false, kOwnDecimals};
constexpr WBShowOptions kWithZeros{false, kFixedDecimals};

class WBStatisticsUnits : public ReportUnitsSession
{
protected:
    static CATIDOMDocument_var Rewritten(const std::string& report, WBUnitsTask task,
                                         WBShowOptions options)
    {
        const CATIDOMDocument_var document = Parsed(report);
        RewriteStatistics(document, task, options);
        return document;
    }
    static CATIDOMDocument_var Converted(const std::string& report,
                                         WBShowOptions options = kWithSymbols)
    {
        return Rewritten(report, WBUnitsTask::Convert, options);
    }
    static CATIDOMDocument_var Displayed(const std::string& report,
                                         WBShowOptions options = kWithSymbols)
    {
        return Rewritten(report, WBUnitsTask::Display, options);
    }
    static CATIDOMNode_var Statistic(const CATIDOMDocument_var& document)
    {
        return document->DocumentElement()->FirstChild();
    }
    /// The attribute of the first statistic.
    static std::string Value(const CATIDOMDocument_var& document, const char* attribute)
    {
        CATUnicodeString value;
        EXPECT_EQ(CATIDOMElement_var(Statistic(document))->GetAttribute(attribute, value), S_OK);
        return value.ToStdString();
    }
};

// One material of each kind, one material without a density, one mass type; 2780 kg/m3, 10 kg/m2;
// a pound, half a pound, two pounds and three.
constexpr const char* kReport =
    R"(<Report Name="R"><PRC WB_Mass="1"><MaterialStat InstanceID="LA1" Name="Al" Mass="0.45359237")"
    R"( Density="2780" Dimension="3" Mass_ratio="33.3333" InstancePath="LA1"/>)"
    R"(<PartInstance Mass="1" Density="1" Mass_ratio="1"><MaterialStat Mass="0,226796185")"
    R"( Density="10" Dimension="2" Mass_ratio="66,66666"/>)"
    R"(<MaterialStat Mass="0.90718474" Mass_ratio="0.00012345"/></PartInstance>)"
    R"(<MassTypeStat Mass="1.36077711" Density="5" Dimension="2" Mass_ratio="100"/></PRC></Report>)";

TEST_F(WBStatisticsUnits, AWholeReportIsConverted)
{
    EXPECT_EQ(Written(Converted(kReport)),
              R"(<Report Name="R" MassUnit="lb" DensityUnit="g/cm3" SurfacicDensityUnit="g/cm2">)"
              R"(<PRC WB_Mass="1"><MaterialStat InstanceID="LA1" Name="Al" Mass="1lb")"
              R"( Density="2.78g/cm3" Dimension="3" Mass_ratio="33.3%" InstancePath="LA1"/>)"
              R"(<PartInstance Mass="1" Density="1" Mass_ratio="1"><MaterialStat Mass="0.5lb")"
              R"( Density="1g/cm2" Dimension="2" Mass_ratio="66.7%"/>)"
              R"(<MaterialStat Mass="2lb" Mass_ratio="0.000123%"/></PartInstance>)"
              R"(<MassTypeStat Mass="3lb" Density="5" Dimension="2" Mass_ratio="100%"/></PRC>)"
              R"(</Report>)");
}

TEST_F(WBStatisticsUnits, AWholeReportIsShownAnew)
{
    EXPECT_EQ(Written(Displayed(kReport)),
              R"(<Report Name="R" MassUnit="lb" DensityUnit="g/cm3" SurfacicDensityUnit="g/cm2">)"
              R"(<PRC WB_Mass="1"><MaterialStat InstanceID="LA1" Name="Al" Mass="0.454lb")"
              R"( Density="2780g/cm3" Dimension="3" Mass_ratio="33.3%" InstancePath="LA1"/>)"
              R"(<PartInstance Mass="1" Density="1" Mass_ratio="1"><MaterialStat Mass="0.227lb")"
              R"( Density="10g/cm2" Dimension="2" Mass_ratio="66.7%"/>)"
              R"(<MaterialStat Mass="0.907lb" Mass_ratio="0.000123%"/></PartInstance>)"
              R"(<MassTypeStat Mass="1.361lb" Density="5" Dimension="2" Mass_ratio="100%"/></PRC>)"
              R"(</Report>)");
}

TEST_F(WBStatisticsUnits, WithoutSymbolsThereAreBareNumbers)
{
    const CATIDOMDocument_var document = Converted(kReport, kPlain);
    EXPECT_EQ(Written(document),
              R"(<Report Name="R" MassUnit="lb" DensityUnit="g/cm3" SurfacicDensityUnit="g/cm2">)"
              R"(<PRC WB_Mass="1"><MaterialStat InstanceID="LA1" Name="Al" Mass="1")"
              R"( Density="2.78" Dimension="3" Mass_ratio="33.3" InstancePath="LA1"/>)"
              R"(<PartInstance Mass="1" Density="1" Mass_ratio="1"><MaterialStat Mass="0.5")"
              R"( Density="1" Dimension="2" Mass_ratio="66.7"/>)"
              R"(<MaterialStat Mass="2" Mass_ratio="0.000123"/></PartInstance>)"
              R"(<MassTypeStat Mass="3" Density="5" Dimension="2" Mass_ratio="100"/></PRC>)"
              R"(</Report>)");
}

TEST_F(WBStatisticsUnits, TrailingZerosFillTheDecimalsOfTheUnitButNotTheShares)
{
    const CATIDOMDocument_var document = Converted(
        R"(<R><MaterialStat Mass="0.45359237" Density="1000" Mass_ratio="25"/></R>)", kWithZeros);
    EXPECT_EQ(Value(document, "Mass"), "1.000");
    EXPECT_EQ(Value(document, "Density"), "1.00000");
    EXPECT_EQ(Value(document, "Mass_ratio"), "25");
}

TEST_F(WBStatisticsUnits, SymbolsComeAndGoWithoutTouchingTheValues)
{
    const CATIDOMDocument_var document = Converted(kReport, kPlain);
    const std::string plain = Written(document);
    RewriteStatistics(document, WBUnitsTask::Display, kWithSymbols);
    EXPECT_EQ(Written(document), Written(Converted(kReport)));
    RewriteStatistics(document, WBUnitsTask::Display, kPlain);
    EXPECT_EQ(Written(document), plain);
}

TEST_F(WBStatisticsUnits, NumbersAreReadWithEitherSeparatorAndWrittenWithTheSessions)
{
    const NumberLocale comma(kCommaLocale);
    const CATIDOMDocument_var document = Converted(
        R"(<R><MaterialStat Mass="0.226796185" Density="2780,0" Mass_ratio="12.34"/></R>)");
    EXPECT_EQ(Value(document, "Mass"), "0,5lb");
    EXPECT_EQ(Value(document, "Density"), "2,78g/cm3");
    EXPECT_EQ(Value(document, "Mass_ratio"), "12,3%");
}

TEST_F(WBStatisticsUnits, WhatIsNoNumberCountsAsZero)
{
    const CATIDOMDocument_var document =
        Converted(R"(<R><MaterialStat Mass="?" Density="" Mass_ratio="none"/></R>)");
    EXPECT_EQ(Value(document, "Mass"), "0lb");
    EXPECT_EQ(Value(document, "Density"), "0g/cm3");
    EXPECT_EQ(Value(document, "Mass_ratio"), "0%");
}

TEST_F(WBStatisticsUnits, OnlyADimensionOfTwoIsSurfacic)
{
    for (const char* dimension : {"3", "", "x", "0", "22", "-2"}) {
        EXPECT_EQ(Value(Converted(std::string(R"(<R><MaterialStat Density="1000" Dimension=")") +
                                  dimension + R"("/></R>)"),
                        "Density"),
                  "1g/cm3")
            << dimension;
    }
    for (const char* dimension : {"2", " 2", "2.5", "2x"}) {
        EXPECT_EQ(Value(Converted(std::string(R"(<R><MaterialStat Density="1000" Dimension=")") +
                                  dimension + R"("/></R>)"),
                        "Density"),
                  "100g/cm2")
            << dimension;
    }
}

TEST_F(WBStatisticsUnits, ADimensionHoldsForItsOwnElementAlone)
{
    const CATIDOMDocument_var document = Converted(
        R"(<R><MaterialStat Density="10" Dimension="2"/><MaterialStat Density="1000"/></R>)");
    EXPECT_THAT(Changed(Statistic(document)->NextSibling()), ElementsAre("Density=1g/cm3"));
}

TEST_F(WBStatisticsUnits, NoValueIsMadeWhereThereIsNone)
{
    const CATIDOMDocument_var document = Converted(R"(<R><MaterialStat Name="1"/></R>)");
    EXPECT_THAT(Changed(Statistic(document)), IsEmpty());
    EXPECT_EQ(Statistic(document)->Attributes()->Length(), 1);
}

TEST_F(WBStatisticsUnits, AnUnknownMagnitudeLeavesItsValuesAndItsUnitAlone)
{
    Forget("MASS");
    EXPECT_EQ(
        Written(Converted(R"(<R><MaterialStat Mass="1" Density="1000" Mass_ratio="1"/></R>)")),
        R"(<R DensityUnit="g/cm3" SurfacicDensityUnit="g/cm2"><MaterialStat Mass="1")"
        R"( Density="1g/cm3" Mass_ratio="1%"/></R>)");
}

TEST_F(WBStatisticsUnits, EachKindOfDensityNeedsItsOwnMagnitudeAlone)
{
    constexpr const char* kBoth =
        R"(<R><MaterialStat Density="1000"/><MaterialStat Density="10" Dimension="2"/></R>)";
    Forget("DENSITY");
    EXPECT_EQ(Written(Converted(kBoth)),
              R"(<R MassUnit="lb" SurfacicDensityUnit="g/cm2"><MaterialStat Density="1000"/>)"
              R"(<MaterialStat Density="1g/cm2" Dimension="2"/></R>)");
    Forget("SURFACICMASS");
    EXPECT_EQ(Written(Converted(kBoth)), R"(<R MassUnit="lb"><MaterialStat Density="1000"/>)"
                                         R"(<MaterialStat Density="10" Dimension="2"/></R>)");
}

TEST_F(WBStatisticsUnits, ASurfacicDensityWithoutItsMagnitudeStays)
{
    Forget("SURFACICMASS");
    EXPECT_EQ(
        Written(Converted(
            R"(<R><MaterialStat Density="1000"/><MaterialStat Density="10" Dimension="2"/></R>)")),
        R"(<R MassUnit="lb" DensityUnit="g/cm3"><MaterialStat Density="1g/cm3"/>)"
        R"(<MaterialStat Density="10" Dimension="2"/></R>)");
}

TEST_F(WBStatisticsUnits, WithoutAStorageUnitNothingIsConvertedButShown)
{
    TakeStorageUnit("MASS");
    constexpr const char* kOne = R"(<R><MassTypeStat Mass="1.5"/></R>)";
    EXPECT_EQ(Value(Converted(kOne), "Mass"), "1.5");
    EXPECT_EQ(Value(Displayed(kOne), "Mass"), "1.5lb");
}

TEST_F(WBStatisticsUnits, WithoutACurrentUnitNothingIsShownOrNamed)
{
    TakeCurrentUnit("MASS");
    EXPECT_EQ(
        Written(Displayed(R"(<R><MassTypeStat Mass="1.5"/></R>)")),
        R"(<R DensityUnit="g/cm3" SurfacicDensityUnit="g/cm2"><MassTypeStat Mass="1.5"/></R>)");
}

TEST_F(WBStatisticsUnits, AReportWithoutStatisticsIsToldItsUnits)
{
    EXPECT_EQ(Written(Converted("<R/>")),
              R"(<R MassUnit="lb" DensityUnit="g/cm3" SurfacicDensityUnit="g/cm2"/>)");
}

TEST_F(WBStatisticsUnits, AnEarlierUnitIsReplaced)
{
    EXPECT_EQ(Written(Displayed(R"(<R MassUnit="kg" DensityUnit="?"/>)")),
              R"(<R MassUnit="lb" DensityUnit="g/cm3" SurfacicDensityUnit="g/cm2"/>)");
}

TEST_F(WBStatisticsUnits, NoDocumentIsNoFault)
{
    EXPECT_NO_THROW(RewriteStatistics({}, WBUnitsTask::Convert, kPlain));
}

TEST_F(WBStatisticsUnits, ADocumentWithoutDocumentElementStaysAsItIs)
{
    AnsweringDocument document(kReport);
    document.hasDocumentElement = false;
    RewriteStatistics(document.Handle(), WBUnitsTask::Convert, kPlain);
    EXPECT_EQ(document.Text(), Written(Parsed(kReport)));
}

TEST_F(WBStatisticsUnits, AFailingSearchLeavesTheOtherKindOfStatisticsToBeDone)
{
    AnsweringDocument document(
        R"(<R><MaterialStat Mass="0.45359237"/><MassTypeStat Mass="0.45359237"/></R>)");
    document.missing = "MaterialStat";
    RewriteStatistics(document.Handle(), WBUnitsTask::Convert, kPlain);
    EXPECT_THAT(document.asked, ElementsAre("MaterialStat", "MassTypeStat"));
    EXPECT_THAT(document.Text(), testing::HasSubstr(R"(<MaterialStat Mass="0.45359237"/>)"
                                                    R"(<MassTypeStat Mass="1"/>)"));
}

} // namespace
