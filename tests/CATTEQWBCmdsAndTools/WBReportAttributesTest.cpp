#include "CATWBServices.h"

#include "ReportUnitsSession.h"

#include <string>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

class GetMagnitude : public ReportUnitsSession
{};

TEST_F(GetMagnitude, IsTheDictionarysOrNull)
{
    for (const char* name :
         {"LENGTH", "MASS", "INERTIAMOMENT", "DENSITY", "SURFACICMASS", "VOLUME"}) {
        const CATICkeMagnitude_var magnitude = CATWBServices::GetMagnitude(name);
        ASSERT_FALSE(magnitude.IsNull()) << name;
        EXPECT_EQ(magnitude->Name(), name);
    }
    EXPECT_TRUE(CATWBServices::GetMagnitude("Mass").IsNull());
    EXPECT_TRUE(CATWBServices::GetMagnitude("").IsNull());
}

// One attribute

class SetAttributeValue : public ReportUnitsSession
{
protected:
    bool Set(const char* attribute, const char* magnitude, unsigned char withSymbol = kWithSymbol,
             int decimals = kOwnDecimals, unsigned char multiValued = 0)
    {
        const CATICkeMagnitude_var found = Magnitude(magnitude);
        return CATWBServices::SetAttributeValue(m_node, attribute, found->CurrentUnit(),
                                                found->StorageUnit(), withSymbol, decimals,
                                                multiValued) != 0;
    }
    bool SetList(const char* attribute, const char* magnitude,
                 unsigned char withSymbol = kWithSymbol, int decimals = kOwnDecimals)
    {
        return Set(attribute, magnitude, withSymbol, decimals, 1);
    }
    void Take(const std::string& text)
    {
        m_document = Parsed(text);
        m_node = m_document->DocumentElement();
    }
    std::string Now() const { return Written(m_document); }

    CATIDOMDocument_var m_document;
    CATIDOMNode_var m_node;
};

TEST_F(SetAttributeValue, RewritesTheAttributeInItsPlace)
{
    Take(R"(<R A="1" COGx="25.4" B="2"><S COGx="25.4"/></R>)");
    EXPECT_TRUE(Set("COGx", "LENGTH"));
    EXPECT_EQ(Now(), R"(<R A="1" COGx="1in" B="2"><S COGx="25.4"/></R>)");
}

TEST_F(SetAttributeValue, AnswersOneOrZero)
{
    Take(R"(<R COGx="25.4"/>)");
    const CATICkeUnit_var mm = Unit("LENGTH", "mm");
    EXPECT_EQ(CATWBServices::SetAttributeValue(m_node, "COGx", mm, mm, 1, 0, 0), 1);
    EXPECT_EQ(CATWBServices::SetAttributeValue(m_node, "COGx", mm, mm, 1, 0, 1), 1);
    EXPECT_EQ(CATWBServices::SetAttributeValue(m_node, "COGy", mm, mm, 1, 0, 0), 0);
}

TEST_F(SetAttributeValue, WritesTheSymbolAndTheDecimalsAskedFor)
{
    struct Row
    {
        unsigned char withSymbol;
        int decimals;
        const char* text;
    };
    constexpr Row kRows[] = {{1, 0, "0.5in"},   {0, 0, "0.5"},    {1, -1, "0.5000in"},
                             {0, -1, "0.5000"}, {1, 2, "0.50in"}, {255, 0, "0.5in"}};
    for (const Row& row : kRows) {
        Take(R"(<R COGx="12.7"/>)");
        EXPECT_TRUE(Set("COGx", "LENGTH", row.withSymbol, row.decimals));
        EXPECT_EQ(Now(), "<R COGx=\"" + std::string(row.text) + "\"/>");
    }
}

TEST_F(SetAttributeValue, TakesEitherSeparatorAndWritesTheSessions)
{
    for (const char* text : {"12.7", "12,7"}) {
        const std::string report = "<R COGx=\"" + std::string(text) + "\"/>";
        Take(report);
        EXPECT_TRUE(Set("COGx", "LENGTH"));
        EXPECT_EQ(Now(), R"(<R COGx="0.5in"/>)");
        const NumberLocale comma(kCommaLocale);
        Take(report);
        EXPECT_TRUE(Set("COGx", "LENGTH"));
        EXPECT_EQ(Now(), R"(<R COGx="0,5in"/>)");
    }
}

TEST_F(SetAttributeValue, TextThatIsNoNumberIsWrittenAsZero)
{
    for (const char* text : {"", "abc", ";1"}) {
        Take("<R COGx=\"" + std::string(text) + "\"/>");
        EXPECT_TRUE(Set("COGx", "LENGTH"));
        EXPECT_EQ(Now(), R"(<R COGx="0in"/>)") << text;
    }
}

TEST_F(SetAttributeValue, SingleValueEndsAtASemicolon)
{
    Take(R"(<R WB_Mass="0.45359237;2"/>)");
    EXPECT_TRUE(Set("WB_Mass", "MASS"));
    EXPECT_EQ(Now(), R"(<R WB_Mass="1lb"/>)");
}

TEST_F(SetAttributeValue, ListIsRewrittenItemByItemUpToAnEmptyOne)
{
    Take(R"(<R L="0.45359237;0,90718474;x;;1"/>)");
    EXPECT_TRUE(SetList("L", "MASS"));
    EXPECT_EQ(Now(), R"(<R L="1lb; 2lb; 0lb"/>)");
    Take(R"(<R L="0.45359237;0,90718474"/>)");
    EXPECT_TRUE(SetList("L", "MASS", kWithoutSymbol, kFixedDecimals));
    EXPECT_EQ(Now(), R"(<R L="1.000; 2.000"/>)");
    Take(R"(<R L=""/>)");
    EXPECT_TRUE(SetList("L", "MASS"));
    EXPECT_EQ(Now(), R"(<R L=""/>)");
    Take(R"(<R L="0.45359237;1"/>)");
    EXPECT_TRUE(Set("L", "MASS", kWithoutSymbol, kFixedDecimals, 0x80)); // any flag but zero
    EXPECT_EQ(Now(), R"(<R L="1.000; 2.205"/>)");
}

TEST_F(SetAttributeValue, ElementWithoutTheAttributeStaysAsItIs)
{
    const std::string report = R"(<R COGx="25.4"><S Other="1"/></R>)";
    Take(report);
    for (const char* name : {"COGy", "Other", "cogx", "COG", ""}) {
        EXPECT_FALSE(Set(name, "LENGTH")) << name;
        EXPECT_FALSE(SetList(name, "LENGTH")) << name;
    }
    EXPECT_EQ(Now(), report);
}

TEST_F(SetAttributeValue, NodesThatAreNoElementsStayAsTheyAre)
{
    const std::string report = R"(<R COGx="25.4">COGx<!--COGx--></R>)";
    Take(report);
    const CATIDOMNode_var element = m_node;
    const CATIDOMNode_var nodes[] = {{},
                                     m_document,
                                     element->FirstChild(),
                                     element->LastChild(),
                                     element->Attributes()->Item(0)};
    for (const CATIDOMNode_var& node : nodes) {
        m_node = node;
        EXPECT_FALSE(Set("COGx", "LENGTH"));
        EXPECT_FALSE(SetList("COGx", "LENGTH"));
    }
    EXPECT_EQ(Now(), report);
}

TEST_F(SetAttributeValue, ValueThatNoDocumentCanHoldIsNotWritten)
{
    const std::string report = R"(<R COGx="25.4"/>)";
    Take(report);
    const CATICkeUnit_var unit = UnitThatShows("\x01");
    EXPECT_EQ(CATWBServices::SetAttributeValue(m_node, "COGx", unit, unit, 1, 0, 0), 0);
    EXPECT_EQ(CATWBServices::SetAttributeValue(m_node, "COGx", unit, unit, 1, 0, 1), 0);
    EXPECT_EQ(
        CATWBServices::SetAttributeValue(m_node, "COGx", "COGx", unit, unit, unit, unit, 1, 0), 0);
    EXPECT_EQ(Now(), report);
}

TEST_F(SetAttributeValue, UnitsAreNotAskedForWhereNothingIsShown)
{
    Take(R"(<R L=""/>)");
    EXPECT_EQ(CATWBServices::SetAttributeValue(m_node, "None", {}, {}, 1, -1, 0), 0);
    EXPECT_EQ(CATWBServices::SetAttributeValue(m_node, "L", {}, {}, 1, -1, 1), 1);
    EXPECT_THROW(CATWBServices::SetAttributeValue(m_node, "L", {}, {}, 1, -1, 0), CATNullHandle);
}

// A list of densities

class SetDensities : public ReportUnitsSession
{
protected:
    bool Set(const char* attribute = "D", const char* dimensions = "N",
             unsigned char withSymbol = kWithSymbol, int decimals = kOwnDecimals)
    {
        return CATWBServices::SetAttributeValue(
                   m_node, attribute, dimensions, Unit("DENSITY", "g/cm3"),
                   Unit("DENSITY", "kg/m3"), Unit("SURFACICMASS", "g/cm2"),
                   Unit("SURFACICMASS", "kg/m2"), withSymbol, decimals) != 0;
    }
    void Take(const std::string& text)
    {
        m_document = Parsed(text);
        m_node = m_document->DocumentElement();
    }
    std::string Now() const { return Written(m_document); }

    CATIDOMDocument_var m_document;
    CATIDOMNode_var m_node;
};

TEST_F(SetDensities, EachItemHasTheUnitsOfItsDimension)
{
    Take(R"(<R N="3;2;0" D="7850;12,5;1000"/>)");
    EXPECT_TRUE(Set());
    EXPECT_EQ(Now(), R"(<R N="3;2;0" D="7.85g/cm3; 1.25g/cm2; 1g/cm3"/>)");
    Take(R"(<R N="3;2;0" D="7850;12,5;1000"/>)");
    EXPECT_TRUE(Set("D", "N", kWithoutSymbol, kFixedDecimals));
    EXPECT_EQ(Now(), R"(<R N="3;2;0" D="7.85000; 1.2500000; 1.00000"/>)");
}

TEST_F(SetDensities, AnyFlagButZeroKeepsTheSymbols)
{
    Take(R"(<R N="3;2" D="1000;10"/>)");
    EXPECT_TRUE(Set("D", "N", 0x80));
    EXPECT_EQ(Now(), R"(<R N="3;2" D="1g/cm3; 1g/cm2"/>)");
}

TEST_F(SetDensities, NumbersAreTheSessions)
{
    const NumberLocale comma(kCommaLocale);
    Take(R"(<R N="3;2" D="7850.0;12,5"/>)");
    EXPECT_TRUE(Set());
    EXPECT_EQ(Now(), R"(<R N="3;2" D="7,85g/cm3; 1,25g/cm2"/>)");
}

TEST_F(SetDensities, MissingDimensionIsTheOneBefore)
{
    Take(R"(<R N="x;2;y" D="1000;10;10;20"/>)");
    EXPECT_TRUE(Set());
    EXPECT_EQ(Now(), R"(<R N="x;2;y" D="1g/cm3; 1g/cm2; 1g/cm2; 2g/cm2"/>)");
    Take(R"(<R N="" D="1000;2000"/>)");
    EXPECT_TRUE(Set());
    EXPECT_EQ(Now(), R"(<R N="" D="1g/cm3; 2g/cm3"/>)");
}

TEST_F(SetDensities, EndAtTheFirstEmptyItem)
{
    Take(R"(<R N="2;2;2" D="10;;10"/>)");
    EXPECT_TRUE(Set());
    EXPECT_EQ(Now(), R"(<R N="2;2;2" D="1g/cm2"/>)");
}

TEST_F(SetDensities, BothAttributesMustBeThere)
{
    for (const char* report : {R"(<R D="1"><S N="2"/></R>)", R"(<R N="2"><S D="1"/></R>)"}) {
        Take(report);
        EXPECT_FALSE(Set());
        EXPECT_FALSE(Set("D", "Unknown"));
        EXPECT_FALSE(Set("Unknown", "N"));
        EXPECT_EQ(Now(), report);
    }
}

TEST_F(SetDensities, NodesThatAreNoElementsStayAsTheyAre)
{
    const std::string report = R"(<R D="1" N="2">D</R>)";
    Take(report);
    m_node = m_node->FirstChild();
    EXPECT_FALSE(Set());
    m_node = {};
    EXPECT_FALSE(Set());
    EXPECT_EQ(Now(), report);
}

TEST_F(SetDensities, OnlyTheUnitsOfADimensionThatIsThereAreNeeded)
{
    const CATICkeUnit_var volume = Unit("DENSITY", "kg/m3");
    const CATICkeUnit_var surface = Unit("SURFACICMASS", "kg/m2");
    Take(R"(<R D="1" N="3"/>)");
    EXPECT_EQ(CATWBServices::SetAttributeValue(m_node, "D", "N", volume, volume, {}, {}, 1, -1), 1);
    EXPECT_EQ(Now(), R"(<R D="1.00kg/m3" N="3"/>)");
    Take(R"(<R D="1" N="2"/>)");
    EXPECT_EQ(CATWBServices::SetAttributeValue(m_node, "D", "N", {}, {}, surface, surface, 1, -1),
              1);
    EXPECT_EQ(Now(), R"(<R D="1.000000kg/m2" N="2"/>)");
    EXPECT_THROW(CATWBServices::SetAttributeValue(m_node, "D", "N", volume, volume, {}, {}, 1, -1),
                 CATNullHandle);
}

// Attributes of many nodes

class ManageAttributes : public ReportUnitsSession
{
protected:
    using Member = void (*)(CATIDOMNodeList_var&, const CATICkeMagnitude_var&, const unsigned char&,
                            const unsigned char&, int);
    struct Row
    {
        Member member;
        const char* magnitude;
        std::vector<std::string> converted;
        std::vector<std::string> displayed;
    };

    static std::vector<Row> Rows()
    {
        // 1 mm is 0.03937in, 1 kg 2.2046lb, 1 kg.m2 a million kg.mm2, 1 m3 a thousand litres.
        return {{CATWBServices::ManageLengthAttributes,
                 "LENGTH",
                 {"COGx=0.0394in", "COGy=0.0394in", "COGz=0.0394in"},
                 {"COGx=1in", "COGy=1in", "COGz=1in"}},
                {CATWBServices::ManageMassAttributes,
                 "MASS",
                 {"WB_Mass=2.205lb", "WB_Lower_deviation=2.205lb", "WB_Upper_deviation=2.205lb"},
                 {"WB_Mass=1lb", "WB_Lower_deviation=1lb", "WB_Upper_deviation=1lb"}},
                {CATWBServices::ManageInertiaAttributes,
                 "INERTIAMOMENT",
                 {"MOIxx=1000000kg.mm2", "MOIyy=1000000kg.mm2", "MOIzz=1000000kg.mm2",
                  "POIxy=1000000kg.mm2", "POIxz=1000000kg.mm2", "POIyz=1000000kg.mm2"},
                 {"MOIxx=1kg.mm2", "MOIyy=1kg.mm2", "MOIzz=1kg.mm2", "POIxy=1kg.mm2",
                  "POIxz=1kg.mm2", "POIyz=1kg.mm2"}},
                {CATWBServices::ManageVolumeAttributes,
                 "VOLUME",
                 {"Cut_Volume=1000L"},
                 {"Cut_Volume=1L"}}};
    }
    static std::string EveryNode()
    {
        return "<R><A " + std::string(kEveryAttribute) + "/>text<!--comment--><B " +
               kEveryAttribute + "/></R>";
    }
    void Take(const std::string& text)
    {
        m_document = Parsed(text);
        m_nodes = m_document->DocumentElement()->ChildNodes();
    }
    std::string Now() const { return Written(m_document); }

    CATIDOMDocument_var m_document;
    CATIDOMNodeList_var m_nodes;
};

TEST_F(ManageAttributes, EachMemberConvertsItsOwnOfEveryElement)
{
    for (const Row& row : Rows()) {
        Take(EveryNode());
        row.member(m_nodes, Magnitude(row.magnitude), 1, kWithSymbol, kOwnDecimals);
        EXPECT_EQ(Changed(m_nodes->Item(0)), row.converted);
        EXPECT_EQ(Changed(m_nodes->Item(3)), row.converted);
        EXPECT_EQ(m_nodes->Length(), 4);
    }
}

TEST_F(ManageAttributes, EachMemberShowsAnewWhatIsConverted)
{
    for (const Row& row : Rows()) {
        Take(EveryNode());
        row.member(m_nodes, Magnitude(row.magnitude), 0, kWithSymbol, kOwnDecimals);
        EXPECT_EQ(Changed(m_nodes->Item(0)), row.displayed);
        EXPECT_EQ(Changed(m_nodes->Item(3)), row.displayed);
    }
}

TEST_F(ManageAttributes, EachMemberTakesTheSymbolAndTheDecimals)
{
    struct Asked
    {
        Member member;
        const char* magnitude;
        const char* attribute;
        const char* text; // of 1, without the symbol, with fixed decimals
    };
    constexpr Asked kAsked[] = {
        {CATWBServices::ManageLengthAttributes, "LENGTH", "COGx", "1.0000"},
        {CATWBServices::ManageMassAttributes, "MASS", "WB_Mass", "1.000"},
        {CATWBServices::ManageInertiaAttributes, "INERTIAMOMENT", "MOIxx", "1.000"},
        {CATWBServices::ManageVolumeAttributes, "VOLUME", "Cut_Volume", "1.000000"}};
    for (const Asked& asked : kAsked) {
        const std::string attribute = asked.attribute;
        Take("<R><A " + attribute + "=\"1\"/></R>");
        asked.member(m_nodes, Magnitude(asked.magnitude), 0, kWithoutSymbol, kFixedDecimals);
        EXPECT_EQ(Now(), "<R><A " + attribute + "=\"" + asked.text + "\"/></R>");
    }
}

TEST_F(ManageAttributes, DensitiesAreTheVolumicOneAndTheListOfMaterials)
{
    Take(EveryNode());
    m_nodes->Item(3)->AsElement()->SetAttribute("Density_dimension", "2");
    CATWBServices::ManageDensityAttributes(m_nodes, Magnitude("DENSITY"), Magnitude("SURFACICMASS"),
                                           1, kWithSymbol, kOwnDecimals);
    EXPECT_THAT(Changed(m_nodes->Item(0)),
                ElementsAre("WB_Density=0.001g/cm3", "Density=0.001g/cm3"));
    EXPECT_THAT(Changed(m_nodes->Item(3)),
                ElementsAre("WB_Density=0.001g/cm3", "Density=0.1g/cm2", "Density_dimension=2"));
}

TEST_F(ManageAttributes, AnyFlagButZeroConvertsAndKeepsTheSymbol)
{
    constexpr unsigned char kAnyFlag = 0x80;
    for (const Row& row : Rows()) {
        Take(EveryNode());
        row.member(m_nodes, Magnitude(row.magnitude), kAnyFlag, kAnyFlag, kOwnDecimals);
        EXPECT_EQ(Changed(m_nodes->Item(0)), row.converted);
    }
    Take(EveryNode());
    CATWBServices::ManageDensityAttributes(m_nodes, Magnitude("DENSITY"), Magnitude("SURFACICMASS"),
                                           kAnyFlag, kAnyFlag, kOwnDecimals);
    EXPECT_THAT(Changed(m_nodes->Item(0)),
                ElementsAre("WB_Density=0.001g/cm3", "Density=0.001g/cm3"));
}

TEST_F(ManageAttributes, DensitiesAreShownAnew)
{
    Take(R"(<R><A WB_Density="7.85" Density="7.85; 1.25;" Density_dimension="3;2"/></R>)");
    CATWBServices::ManageDensityAttributes(m_nodes, Magnitude("DENSITY"), Magnitude("SURFACICMASS"),
                                           0, kWithoutSymbol, kFixedDecimals);
    EXPECT_EQ(Now(), R"(<R><A WB_Density="7.85000" Density="7.85000; 1.2500000")"
                     R"( Density_dimension="3;2"/></R>)");
}

TEST_F(ManageAttributes, DensityWithoutADimensionHasTheOneOfTheItemBefore)
{
    Take(R"(<R><A Density="10;10" Density_dimension="2"/></R>)");
    CATWBServices::ManageDensityAttributes(m_nodes, Magnitude("DENSITY"), Magnitude("SURFACICMASS"),
                                           1, kWithSymbol, kOwnDecimals);
    EXPECT_EQ(Now(), R"(<R><A Density="1g/cm2; 1g/cm2" Density_dimension="2"/></R>)");
}

TEST_F(ManageAttributes, MassDetailsAndWholeListsAreNobodys)
{
    Take(R"(<R><A WB_Mass_Details="1;2"/><B COGx="25.4;50.8"/></R>)");
    CATWBServices::ManageMassAttributes(m_nodes, Magnitude("MASS"), 1, kWithSymbol, kOwnDecimals);
    CATWBServices::ManageLengthAttributes(m_nodes, Magnitude("LENGTH"), 1, kWithSymbol,
                                          kOwnDecimals);
    EXPECT_EQ(Now(), R"(<R><A WB_Mass_Details="1;2"/><B COGx="1in"/></R>)");
}

TEST_F(ManageAttributes, ElementThatLacksOneHasTheOthersRewritten)
{
    Take(R"(<R><A COGx="25.4" COGz="50.8"/><B COGy="76.2"/><C/></R>)");
    CATWBServices::ManageLengthAttributes(m_nodes, Magnitude("LENGTH"), 1, kWithSymbol,
                                          kOwnDecimals);
    EXPECT_EQ(Now(), R"(<R><A COGx="1in" COGz="2in"/><B COGy="3in"/><C/></R>)");
    Take(R"(<R><A Density="1000" Density_dimension="1"/><B WB_Density="1000" Density="1"/></R>)");
    CATWBServices::ManageDensityAttributes(m_nodes, Magnitude("DENSITY"), Magnitude("SURFACICMASS"),
                                           1, kWithSymbol, kOwnDecimals);
    EXPECT_EQ(Now(), R"(<R><A Density="1g/cm3" Density_dimension="1"/>)"
                     R"(<B WB_Density="1g/cm3" Density="1"/></R>)");
}

TEST_F(ManageAttributes, WithoutAListNothingHappens)
{
    CATIDOMNodeList_var none;
    for (const Row& row : Rows()) {
        row.member(none, Magnitude(row.magnitude), 1, kWithSymbol, kOwnDecimals);
    }
    CATWBServices::ManageDensityAttributes(none, Magnitude("DENSITY"), Magnitude("SURFACICMASS"), 1,
                                           kWithSymbol, kOwnDecimals);
    EXPECT_TRUE(none.IsNull());
}

TEST_F(ManageAttributes, EmptyListAsksNoUnitForAnything)
{
    Take("<R/>");
    int asked = 0;
    const CATICkeUnit_var unit =
        CATICkeUnit_var::Adopt(new ScriptedUnit("u", 1.0, [&asked](double, int) {
            ++asked;
            return "u";
        }));
    const auto magnitude = MagnitudeOf(unit, unit);
    for (const Row& row : Rows()) {
        row.member(m_nodes, magnitude, 1, kWithoutSymbol, kFixedDecimals);
    }
    CATWBServices::ManageDensityAttributes(m_nodes, magnitude, magnitude, 1, kWithoutSymbol,
                                           kFixedDecimals);
    EXPECT_EQ(asked, 0);
}

TEST_F(ManageAttributes, MagnitudeIsNeededWithTheUnitsThatTheTaskTakes)
{
    for (const Row& row : Rows()) {
        const CATICkeUnit_var storage = Magnitude(row.magnitude)->StorageUnit();
        const CATICkeUnit_var current = Magnitude(row.magnitude)->CurrentUnit();
        const auto noStorage = MagnitudeOf({}, current);
        const auto noCurrent = MagnitudeOf(storage, {});
        Take(EveryNode());
        row.member(m_nodes, {}, 1, kWithSymbol, kOwnDecimals);
        row.member(m_nodes, {}, 0, kWithSymbol, kOwnDecimals);
        row.member(m_nodes, noStorage, 1, kWithSymbol, kOwnDecimals);
        row.member(m_nodes, noCurrent, 1, kWithSymbol, kOwnDecimals);
        row.member(m_nodes, noCurrent, 0, kWithSymbol, kOwnDecimals);
        EXPECT_EQ(Now(), EveryNode());
        row.member(m_nodes, noStorage, 0, kWithSymbol, kOwnDecimals);
        EXPECT_EQ(Changed(m_nodes->Item(0)), row.displayed);
    }
}

TEST_F(ManageAttributes, DensitiesNeedBothMagnitudesWithAllTheirUnits)
{
    const CATICkeMagnitude_var volumic = Magnitude("DENSITY");
    const CATICkeMagnitude_var surfacic = Magnitude("SURFACICMASS");
    const auto withoutStorage = [](const CATICkeMagnitude_var& magnitude) {
        return MagnitudeOf({}, magnitude->CurrentUnit());
    };
    const auto withoutCurrent = [](const CATICkeMagnitude_var& magnitude) {
        return MagnitudeOf(magnitude->StorageUnit(), {});
    };
    const std::pair<CATICkeMagnitude_var, CATICkeMagnitude_var> lacking[] = {
        {{}, surfacic},
        {volumic, {}},
        {withoutCurrent(volumic), surfacic},
        {volumic, withoutCurrent(surfacic)},
        {withoutStorage(volumic), surfacic},
        {volumic, withoutStorage(surfacic)}};
    Take(EveryNode());
    for (const auto& [first, second] : lacking) {
        CATWBServices::ManageDensityAttributes(m_nodes, first, second, 1, kWithSymbol,
                                               kOwnDecimals);
    }
    EXPECT_EQ(Now(), EveryNode());
    CATWBServices::ManageDensityAttributes(m_nodes, withoutStorage(volumic),
                                           withoutStorage(surfacic), 0, kWithSymbol, kOwnDecimals);
    EXPECT_THAT(Changed(m_nodes->Item(0)), ElementsAre("WB_Density=1g/cm3", "Density=1g/cm3"));
}

TEST_F(ManageAttributes, NumbersAreTheSessions)
{
    const NumberLocale comma(kCommaLocale);
    Take(R"(<R><A COGx="12.7" COGy="12,7"/></R>)");
    CATWBServices::ManageLengthAttributes(m_nodes, Magnitude("LENGTH"), 1, kWithSymbol,
                                          kFixedDecimals);
    EXPECT_EQ(Now(), R"(<R><A COGx="0,5000in" COGy="0,5000in"/></R>)");
}

} // namespace
