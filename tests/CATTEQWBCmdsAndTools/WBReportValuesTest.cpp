#include "CATWBServices.h"

#include "ReportUnitsSession.h"

#include <algorithm>
#include <string>

// What the four operations on whole reports do to each value of each kind of element, whichever
// separator the server and the session write; and what none of them looks at.

namespace
{

/// The texts of an element's attributes, by what they are measured in.
struct Texts
{
    std::string length;
    std::string mass;
    std::string details;
    std::string inertia;
    std::string density;
    std::string materials;
    std::string volume;
};

/// One text everywhere, and twice where a surfacic density follows a volumic one.
Texts Kept(const std::string& text)
{
    return {text, text, text, text, text, text + ";" + text, text};
}

std::string Element(const std::string& name, const Texts& texts)
{
    std::string element = "<" + name;
    const auto add = [&element](const char* attribute, const std::string& text) {
        element += std::string(" ") + attribute + "=\"" + text + '"';
    };
    for (const char* attribute : {"COGx", "COGy", "COGz"}) {
        add(attribute, texts.length);
    }
    for (const char* attribute : {"WB_Mass", "WB_Lower_deviation", "WB_Upper_deviation"}) {
        add(attribute, texts.mass);
    }
    add("WB_Mass_Details", texts.details);
    for (const char* attribute : {"MOIxx", "MOIyy", "MOIzz", "POIxy", "POIxz", "POIyz"}) {
        add(attribute, texts.inertia);
    }
    add("WB_Density", texts.density);
    add("Density", texts.materials);
    add("Density_dimension", "3;2");
    add("Cut_Volume", texts.volume);
    return element + "/>";
}

std::string Elements(const Texts& root, const Texts& instance, const Texts& section)
{
    return Element("PRC", root) + Element("PartInstance", instance) +
           Element("WB_Section", section) + "</R>";
}

/// Two and a half of everything, in the session of inches and pounds but for lengths and masses,
/// so that the numbers are short: 2.5 mm are 0.25cm, 2.5 kg 2500g, 2.5 kg.m2 2500000kg.mm2,
/// 2.5 kg/m3 0.0025g/cm3, 2.5 kg/m2 0.25g/cm2 and 2.5 m3 2500L.
class ReportValues : public ReportUnitsSession
{
protected:
    ReportValues()
    {
        Use("LENGTH", "cm");
        Use("MASS", "g");
    }

    /// Calls `check` with each way to send 2.5 under each locale: the text, what puts the session's
    /// separator in the place of "!", and whether the text has that one.
    template <class Check>
    static void InEveryWriting(Check check)
    {
        for (const char* locale : {kPointLocale, kCommaLocale}) {
            const NumberLocale numbers(locale);
            const char separator = CATDecimalSeparator().front();
            for (const char* text : {"2.5", "2,5"}) {
                SCOPED_TRACE(std::string(locale) + " " + text);
                const auto written = [separator](std::string shown) {
                    std::replace(shown.begin(), shown.end(), '!', separator);
                    return shown;
                };
                check(std::string(text), written, text[1] == separator);
            }
        }
    }
    /// The values as a server sends them.
    static std::string Sent(const std::string& text)
    {
        return "<R>" + Elements(Kept(text), Kept(text), Kept(text));
    }
};

constexpr const char* kHeader =
    R"(<R LengthUnit="cm" MassUnit="g" InertiaMomentUnit="kg.mm2" DensityUnit="g/cm3")"
    R"( SurfacicDensityUnit="g/cm2")";

TEST_F(ReportValues, ConversionReadsEitherSeparatorInEveryRowButTheBreakdown)
{
    const SilentStreams silent;
    InEveryWriting([](const std::string& text, auto written, bool isSessions) {
        Texts totals = Kept(text);
        totals.length = written("0!25cm");
        totals.mass = "2500g";
        totals.inertia = "2500000kg.mm2";
        Texts instance = totals;
        instance.details = isSessions ? "2500g" : "2000g";
        instance.density = written("0!0025g/cm3");
        instance.materials = written("0!0025g/cm3; 0!25g/cm2");
        CATIDOMDocument_var document = Parsed(Sent(text));
        CATWBServices::ManageUnitsConversion(document, kWithSymbol, kOwnDecimals);
        EXPECT_EQ(Written(document),
                  std::string(kHeader) + ">" + Elements(totals, instance, totals));
    });
}

TEST_F(ReportValues, DisplayReadsEitherSeparatorInEveryRowButTheBreakdown)
{
    InEveryWriting([](const std::string& text, auto written, bool isSessions) {
        Texts totals = Kept(text);
        totals.length = written("2!5cm");
        totals.mass = written("2!5g");
        totals.inertia = written("2!5kg.mm2");
        Texts instance = totals;
        instance.details = isSessions ? written("2!5g") : "2g";
        instance.density = written("2!5g/cm3");
        instance.materials = written("2!5g/cm3; 2!5g/cm2");
        CATIDOMDocument_var document = Parsed(Sent(text));
        CATWBServices::ManageUnitsDisplay(document, {}, kWithSymbol, kOwnDecimals);
        EXPECT_EQ(Written(document), "<R>" + Elements(totals, instance, totals));
    });
}

TEST_F(ReportValues, DistributiveConversionReadsEitherSeparatorInEveryRow)
{
    InEveryWriting([](const std::string& text, auto written, bool) {
        const Texts all{written("0!25cm"),
                        "2500g",
                        text,
                        "2500000kg.mm2",
                        written("0!0025g/cm3"),
                        written("0!0025g/cm3; 0!25g/cm2"),
                        "2500L"};
        const CATIDOMDocument_var document = Parsed(Sent(text));
        CATWBServices::ManageUnitsConversionDistributive(document, kWithSymbol, kOwnDecimals);
        EXPECT_EQ(Written(document),
                  std::string(kHeader) + R"( VolumeUnit="L">)" + Elements(all, all, all));
    });
}

TEST_F(ReportValues, DistributiveDisplayReadsEitherSeparatorInEveryRow)
{
    InEveryWriting([](const std::string& text, auto written, bool) {
        const Texts all{written("2!5cm"),     written("2!5g"),     text,
                        written("2!5kg.mm2"), written("2!5g/cm3"), written("2!5g/cm3; 2!5g/cm2"),
                        written("2!5L")};
        CATIDOMDocument_var document = Parsed(Sent(text));
        CATWBServices::ManageUnitsDisplayDistributive(document, kWithSymbol, kOwnDecimals);
        EXPECT_EQ(Written(document), "<R>" + Elements(all, all, all));
    });
}

TEST_F(ReportValues, ReportWithoutARootIsConvertedAndHasTheHeaderOfItsKnownMagnitudes)
{
    const SilentStreams silent;
    const auto converted = [] {
        CATIDOMDocument_var document =
            Parsed(R"(<R><PartInstance COGx="2.5" WB_Mass="1"/><WB_Section COGx="5"/></R>)");
        CATWBServices::ManageUnitsConversion(document, kWithSymbol, kOwnDecimals);
        return Written(document);
    };
    EXPECT_EQ(converted(), std::string(kHeader) +
                               R"(><PartInstance COGx="0.25cm" WB_Mass="1000g"/>)"
                               R"(<WB_Section COGx="0.5cm"/></R>)");
    Forget("LENGTH");
    EXPECT_EQ(converted(), R"(<R MassUnit="g" InertiaMomentUnit="kg.mm2" DensityUnit="g/cm3")"
                           R"( SurfacicDensityUnit="g/cm2"><PartInstance COGx="2.5")"
                           R"( WB_Mass="1000g"/><WB_Section COGx="5"/></R>)");
}

TEST_F(ReportValues, AnyFlagButZeroKeepsTheSymbols)
{
    constexpr unsigned char kAnyFlag = 0x80;
    CATIDOMDocument_var document = Parsed(R"(<R><PRC COGx="25"/></R>)");
    const auto centre = [&document] {
        return document->DocumentElement()->FirstChild()->Attributes()->Item(0)->NodeValue();
    };
    CATWBServices::ManageUnitsConversion(document, kAnyFlag, kOwnDecimals);
    EXPECT_EQ(centre(), "2.5cm");
    CATWBServices::ManageUnitsDisplay(document, {}, kWithoutSymbol, kOwnDecimals);
    EXPECT_EQ(centre(), "2.5");
    CATWBServices::ManageUnitsDisplay(document, {}, kAnyFlag, kOwnDecimals);
    EXPECT_EQ(centre(), "2.5cm");
    CATWBServices::ManageUnitsDisplayDistributive(document, kWithoutSymbol, kOwnDecimals);
    EXPECT_EQ(centre(), "2.5");
    CATWBServices::ManageUnitsDisplayDistributive(document, kAnyFlag, kOwnDecimals);
    EXPECT_EQ(centre(), "2.5cm");
    CATWBServices::ManageUnitsConversionDistributive(document, kAnyFlag, kOwnDecimals);
    EXPECT_EQ(centre(), "0.25cm");
}

// Statistics, identifiers and dates are the previews' own; a statistic's "Density" is none of the
// lists that go with dimensions.
TEST_F(ReportValues, WhatThePreviewsReadIsLeftAsItCame)
{
    const std::string rest =
        R"(><PRC WBLastImposedMassTypeID="1.50" WBActiveMassTypeID="1.50" WBActiveDocumentID="1.50">)"
        R"(<MaterialStat InstanceID="1.50" Name="1.50" Mass="1.50" Density="1.50")"
        R"( Mass_ratio="1.50" InstancePath="1.50" Dimension="2"/>)"
        R"(<PartInstance instIdAttrAlias="V_ID" V_ID="1.50" WB_Last_calculation_date="1.50")"
        R"( WBLastImposedMassTypeID="1.50" WBActiveMassTypeID="1.50" WBActiveDocumentID="1.50">)"
        R"(<MassTypeStat InstanceID="1.50" Name="1.50" Mass="1.50" Mass_ratio="1.50")"
        R"( InstancePath="1.50"/><MaterialStat COGx="1.50" WB_Mass="1.50" Density="1.50")"
        R"( Density_dimension="2"/></PartInstance></PRC></R>)";
    const SilentStreams silent;
    CATIDOMDocument_var document = Parsed("<R" + rest);
    CATWBServices::ManageUnitsDisplay(document, {}, kWithSymbol, kFixedDecimals);
    CATWBServices::ManageUnitsDisplayDistributive(document, kWithSymbol, kFixedDecimals);
    EXPECT_EQ(Written(document), "<R" + rest);
    CATWBServices::ManageUnitsConversion(document, kWithSymbol, kFixedDecimals);
    EXPECT_EQ(Written(document), kHeader + rest);
    CATWBServices::ManageUnitsConversionDistributive(document, kWithSymbol, kFixedDecimals);
    EXPECT_EQ(Written(document), std::string(kHeader) + R"( VolumeUnit="L")" + rest);
}

} // namespace
