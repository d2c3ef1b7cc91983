#include "WBGroupAttributes.h"
#include "GroupProduct.h"
#include "PanelSession.h"

#include <algorithm>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

class WBGroupAttributesTest : public PanelSession
{
protected:
    /// "TITLE:MAGNITUDE" of the attribute of that name.
    static std::string Offered(const char* name, const std::string& report = kGroupReport)
    {
        const std::vector<WBGroupAttribute> attributes = WBGroupAttributes(FiguresOf(report));
        const auto found =
            std::ranges::find(attributes, CATUnicodeString(name), &WBGroupAttribute::name);
        return found == attributes.end()
                   ? "none"
                   : found->title.ToStdString() + ":" + found->magnitude.ToStdString();
    }
    static std::string OneProperty(const std::string& first, const std::string& second)
    {
        return R"(<WB_Report><PRC><PartInstance Instance_ID="A" P=")" + first +
               R"("/><PartInstance Instance_ID="B" P=")" + second + R"("/></PRC></WB_Report>)";
    }
    static std::vector<int> Match(const std::vector<WBCriterion>& criteria,
                                  WBJoined joined = WBJoined::And)
    {
        return WBMatchingRows(FiguresOf(), criteria, joined);
    }
    static std::vector<int> MatchText(const char* attribute, WBComparison comparison,
                                      const char* value)
    {
        return Match({{attribute, comparison, value, ""}});
    }
};

} // namespace

TEST_F(WBGroupAttributesTest, WhatEveryProductHasIsOfferedInTheUsersLanguage)
{
    EXPECT_EQ(Offered("Name"), "Name:");
    EXPECT_EQ(Offered("WB_Mass"), "Mass:MASS");
    EXPECT_EQ(Offered("COGz"), "CoG z:LENGTH");
    EXPECT_EQ(Offered("POIyz"), "Iyz:INERTIAMOMENT");
    EXPECT_EQ(Offered("WB_Density"), "Stated density:DENSITY");
    EXPECT_EQ(Offered("Cut_Volume"), "Volume:VOLUME");
    EXPECT_EQ(Offered("Quantity"), "Pieces:NUMBER");
    EXPECT_EQ(Offered("Material"), "Material:");
    CATMsgCatalog::SetLanguage("de");
    EXPECT_EQ(Offered("WB_Mass"), "Masse:MASS");
}

TEST_F(WBGroupAttributesTest, PropertiesFollowByTheirNamesAndKinds)
{
    EXPECT_EQ(Offered("Vendor"), "Vendor:");
    EXPECT_EQ(Offered("Next_inspection"), "Next_inspection:DATE");
    EXPECT_EQ(Offered("Operating_time"), "Operating_time:TIME");
    EXPECT_EQ(Offered("Flammable"), "Flammable:YESNO");
    EXPECT_EQ(Offered("Rivets"), "Rivets:NUMBER");
    EXPECT_EQ(Offered("Size"), "Size:LENGTH");
    const std::vector<WBGroupAttribute> attributes = WBGroupAttributes(FiguresOf());
    EXPECT_EQ(attributes.front().name, "Name");
    std::vector<std::string> last;
    for (std::size_t index = attributes.size() - 7; index < attributes.size(); ++index) {
        last.push_back(attributes[index].name.ToStdString());
    }
    EXPECT_THAT(last, ElementsAre("InstancePath", "Vendor", "Next_inspection", "Operating_time",
                                  "Flammable", "Rivets", "Size"));
}

TEST_F(WBGroupAttributesTest, WhatIsNoPropertyIsNotOfferedAsOne)
{
    for (const char* name : {"instIdAttrAlias", "__magnitude__Unit_mass", "__magnitude__Size",
                             "Density_dimension", "WB_Mass_Details", "WB_Last_calculation_date"}) {
        EXPECT_EQ(Offered(name), "none") << name;
    }
}

TEST_F(WBGroupAttributesTest, OneValueThatIsNoDateOrNumberMakesThePropertyAText)
{
    EXPECT_EQ(Offered("P", OneProperty("2026/11/21", "2027/01/01")), "P:DATE");
    EXPECT_EQ(Offered("P", OneProperty("2026/11/21", "soon")), "P:");
    EXPECT_EQ(Offered("P", OneProperty("3", "4.5")), "P:NUMBER");
    EXPECT_EQ(Offered("P", OneProperty("3", "n/a")), "P:");
    EXPECT_EQ(Offered("P", OneProperty("yes", "no")), "P:YESNO");
    EXPECT_EQ(Offered("P", OneProperty("yes", "perhaps")), "P:");
    EXPECT_EQ(Offered("P", OneProperty("yes", "3")), "P:");
}

TEST_F(WBGroupAttributesTest, MassesAreFound)
{
    EXPECT_THAT(Match({{"WB_Mass", WBComparison::AtLeast, "20 kg", "MASS"}}),
                ElementsAre(kWing, kSkin, kTail));
    EXPECT_THAT(Match({{"WB_Mass", WBComparison::Equal, "10000 g", "MASS"}}), ElementsAre(kSpar));
}

TEST_F(WBGroupAttributesTest, WhatIsUnknownMeetsNoCriterion)
{
    EXPECT_THAT(Match({{"WB_Mass", WBComparison::NotEqual, "40 kg", "MASS"}}),
                ElementsAre(kSpar, kSkin, kTail, kTank)); // not the box
    EXPECT_THAT(MatchText("Vendor", WBComparison::IsNot, "Weber"), ElementsAre(kSpar));
    EXPECT_THAT(MatchText("Never_heard_of", WBComparison::IsNot, "Weber"), IsEmpty());
}

TEST_F(WBGroupAttributesTest, StatusFindsWhatLacksAMass)
{
    EXPECT_THAT(MatchText("WB_Status", WBComparison::Is, "no mass"), ElementsAre(kBox));
}

TEST_F(WBGroupAttributesTest, OneOfSeveralMaterialsIsEnough)
{
    EXPECT_THAT(MatchText("Material", WBComparison::Is, "paint"), ElementsAre(kSpar));
    EXPECT_THAT(MatchText("Material", WBComparison::BeginsWith, "fab"), ElementsAre(kSkin));
    EXPECT_THAT(MatchText("Material", WBComparison::IsNot, "Paint"), ElementsAre(kSkin));
    EXPECT_THAT(MatchText("Material", WBComparison::Contains, ";"), IsEmpty());
}

TEST_F(WBGroupAttributesTest, DensitiesOfSheetsAndUnknownOnesAreNoneOfVolume)
{
    EXPECT_THAT(Match({{"Density", WBComparison::Greater, "1000 kg/m3", "DENSITY"}}),
                ElementsAre(kSpar));
    EXPECT_THAT(Match({{"Density", WBComparison::Less, "1000 kg/m3", "DENSITY"}}),
                ElementsAre(kTank)); // by its 900, not by the spar's sheet of 2.5 or its own 0
    EXPECT_THAT(Match({{"Density", WBComparison::NotEqual, "900 kg/m3", "DENSITY"}}),
                ElementsAre(kSpar));
    EXPECT_THAT(Match({{"Density", WBComparison::Less, "1 kg/m3", "DENSITY"}}), IsEmpty());
}

TEST_F(WBGroupAttributesTest, PropertiesAreFoundByTheirKinds)
{
    EXPECT_THAT(Match({{"Operating_time", WBComparison::Greater, "2 h", "TIME"}}),
                ElementsAre(kSpar)); // 12600 s are 3.5 h
    EXPECT_THAT(Match({{"Next_inspection", WBComparison::AtMost, "2026/12/31", kWBDate}}),
                ElementsAre(kTail));
    EXPECT_THAT(Match({{"Flammable", WBComparison::Is, "yes", kWBYesNo}}), ElementsAre(kSkin));
    EXPECT_THAT(Match({{"Rivets", WBComparison::Less, "100", kWBPlainNumber}}), ElementsAre(kSkin));
    EXPECT_THAT(MatchText("Vendor", WBComparison::Contains, "smith & s"), ElementsAre(kSpar));
}

TEST_F(WBGroupAttributesTest, PropertyThatIsOfAnotherMagnitudeNowMeetsNothing)
{
    EXPECT_THAT(Match({{"Size", WBComparison::Less, "1 m", "LENGTH"}}), ElementsAre(kBox));
    EXPECT_THAT(Match({{"Size", WBComparison::Less, "1000 kg", "MASS"}}), IsEmpty());
    EXPECT_THAT(Match({{"Rivets", WBComparison::Less, "1000 kg", "MASS"}}), IsEmpty());
    EXPECT_THAT(Match({{"WB_Mass", WBComparison::Less, "1000 m", "LENGTH"}}), IsEmpty());
}

TEST_F(WBGroupAttributesTest, CriteriaAreJoinedByAndOrOr)
{
    const std::vector<WBCriterion> criteria{{"WB_Mass", WBComparison::Greater, "15 kg", "MASS"},
                                            {"Name", WBComparison::Contains, "a", ""}};
    EXPECT_THAT(Match(criteria, WBJoined::And), ElementsAre(kTail));
    EXPECT_THAT(Match(criteria, WBJoined::Or), ElementsAre(kWing, kSpar, kSkin, kTail, kTank));
}

TEST_F(WBGroupAttributesTest, WithoutCriteriaNothingMatches)
{
    EXPECT_THAT(Match({}, WBJoined::And), IsEmpty());
    EXPECT_THAT(Match({}, WBJoined::Or), IsEmpty());
}
