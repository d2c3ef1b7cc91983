#include "WBQuantity.h"

#include "CATENOWBCSCommonDefinitions.h"
#include "WBNumbers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace wb;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace
{
/// The shipped mass types and one material.
class Known : public KnownProducts
{
public:
    std::optional<Material> FindMaterial(std::string_view name) const override
    {
        return name == "Steel" ? std::optional(Material{"Steel", 7850, kUnknown, {}, {}})
                               : std::nullopt;
    }
};

ValueSet Set(const char* massType, double mass)
{
    ValueSet set;
    set.massType = massType;
    set[Fact::Mass] = mass;
    return set;
}

class WBQuantity : public testing::Test
{
protected:
    std::string SetPart(const Quantity& quantity, std::string_view text)
    {
        return SetQuantity(part, quantity, text, known);
    }
    std::string SetUse(const Quantity& quantity, std::string_view text)
    {
        return SetQuantity(use, PartType::Part, quantity, text, known);
    }
    void AddProperty(Property::Type type, const char* value, bool isDate = false)
    {
        part.properties.push_back({"N", type, isDate, value, {}, "typed", 0});
    }

    Known known;
    Part part;
    Use use;
};

const Quantity kWeighedMass{"Weighed", "mass"};
const Quantity kWeighedCentre{"Weighed", "centre"};
const Quantity kWeighedInertia{"Weighed", "inertia"};
const Quantity kWeighedPrecision{"Weighed", "precision"};
const Quantity kActive{"", "active"};
const Quantity kDensity{"", "density"};
const Quantity kMaterial{"", "material"};
const Quantity kOrder{"", "density order"};
const Quantity kProperty{"", "property N"};
} // namespace

TEST_F(WBQuantity, NothingStatedIsAnEmptyText)
{
    for (const Quantity& quantity :
         {kWeighedMass, kWeighedCentre, kWeighedInertia, kWeighedPrecision, kActive, kDensity,
          kMaterial, kOrder, kProperty, Quantity{"", "mass"}, Quantity{"Weighed", "active"}}) {
        EXPECT_EQ(QuantityText(part, quantity), "") << QuantityName(quantity);
        EXPECT_EQ(QuantityText(use, quantity), "") << QuantityName(quantity);
    }
}

TEST_F(WBQuantity, EachComesBackAsItWasStated)
{
    AddProperty(Property::Type::Text, "old");
    const std::vector<std::pair<Quantity, std::string>> texts{
        {kWeighedMass, "12.5"},
        {kWeighedCentre, "1;-2.25;0"},
        {kWeighedInertia, "3;4;5;0.1;-0.2;0.3"},
        {kWeighedPrecision, "percent;1;2.5"},
        {{"Target", "mass"}, "40"},
        {kActive, "Weighed"},
        {kDensity, "2700"},
        {kMaterial, "Steel"},
        {kProperty, "new"}};
    use.properties = part.properties;
    for (const auto& [quantity, text] : texts) {
        EXPECT_EQ(SetPart(quantity, text), "");
        EXPECT_EQ(QuantityText(part, quantity), text);
        EXPECT_EQ(SetUse(quantity, text), "");
        EXPECT_EQ(QuantityText(use, quantity), text);
    }
    EXPECT_EQ(SetPart(kOrder, "material"), "");
    EXPECT_EQ(QuantityText(part, kOrder), "material");
    EXPECT_EQ(part.densityFirst, DensityOrder::Material);
    const ValueSet& set = *FindSet(part.sets, "Weighed");
    EXPECT_EQ(set[Fact::Mass], 12.5);
    EXPECT_EQ(set[Fact::CgY], -2.25);
    EXPECT_EQ(set[Fact::Ixz], -0.2);
    EXPECT_EQ(set[Fact::LowerPct], 1);
    EXPECT_EQ(set[Fact::UpperPct], 2.5);
}

TEST_F(WBQuantity, EachIsClearedByAnEmptyText)
{
    part.sets = {Set("Weighed", 12)};
    part.sets[0].note = "scale 7"; // so that the set stays
    for (const auto& [quantity, text] :
         std::vector<std::pair<Quantity, std::string>>{{kWeighedMass, "3"},
                                                       {kWeighedCentre, "1;2;3"},
                                                       {kWeighedInertia, "3;4;5;0;0;0"},
                                                       {kWeighedPrecision, "absolute;1;2"},
                                                       {kActive, "Weighed"},
                                                       {kDensity, "1"},
                                                       {kMaterial, "Steel"},
                                                       {kOrder, "wb"}}) {
        EXPECT_EQ(SetPart(quantity, text), "");
        EXPECT_EQ(SetPart(quantity, ""), "") << QuantityName(quantity);
        EXPECT_EQ(QuantityText(part, quantity), "") << QuantityName(quantity);
    }
    EXPECT_FALSE(part.sets.at(0).HasSomething());
}

TEST_F(WBQuantity, NumbersAreWrittenWithFifteenDigitsAndReadWithEitherMark)
{
    EXPECT_EQ(SetPart(kWeighedMass, "0,1"), "");
    EXPECT_EQ(QuantityText(part, kWeighedMass), "0.1");
    EXPECT_EQ(SetPart(kWeighedMass, "0.12345678901234567"), "");
    EXPECT_EQ(QuantityText(part, kWeighedMass), "0.123456789012346");
    EXPECT_EQ(SetPart(kWeighedMass, "-0"), "");
    EXPECT_FALSE(std::signbit(part.sets.at(0)[Fact::Mass]));
    EXPECT_EQ(SetPart(kDensity, "-0"), "");
    EXPECT_FALSE(std::signbit(part.density));
}

TEST_F(WBQuantity, TextThatSaysTheSameChangesNothingToTheLastDigit)
{
    const double third = 1.0 / 3.0;
    part.sets = {Set("Weighed", third)};
    part.sets[0].typed = "mass=0.735 lb";
    part.density = third;
    part.typed = "density=0.02 lb/ft3";
    EXPECT_EQ(SetPart(kWeighedMass, QuantityText(part, kWeighedMass)), "");
    EXPECT_EQ(SetPart(kDensity, QuantityText(part, kDensity)), "");
    EXPECT_EQ(part.sets[0][Fact::Mass], third);
    EXPECT_EQ(part.density, third);
    EXPECT_EQ(part.sets[0].typed, "mass=0.735 lb");
    EXPECT_EQ(part.typed, "density=0.02 lb/ft3");
}

TEST_F(WBQuantity, UnknownAndZeroAreDifferent)
{
    EXPECT_EQ(SetPart(kWeighedMass, "0"), "");
    EXPECT_EQ(QuantityText(part, kWeighedMass), "0");
    EXPECT_EQ(SetPart(kWeighedMass, ""), "");
    EXPECT_EQ(QuantityText(part, kWeighedMass), "");
    EXPECT_EQ(SetPart(kDensity, "0"), "");
    EXPECT_EQ(QuantityText(part, kDensity), "0");
    EXPECT_EQ(SetPart(kDensity, ""), "");
    EXPECT_EQ(QuantityText(part, kDensity), "");
}

TEST_F(WBQuantity, TypedFormOfWhatChangesIsForgottenAndNoOther)
{
    part.sets = {Set("Weighed", 1)};
    ValueSet& set = part.sets[0];
    set[Fact::CgX] = set[Fact::CgY] = set[Fact::CgZ] = 25.4;
    set.typed = "mass=1.0 kg|cgx=1 in|cgy=1 in|cgz=1 in";
    EXPECT_EQ(SetPart(kWeighedCentre, "25.4;50;25.4"), "");
    EXPECT_EQ(set.typed, "mass=1.0 kg|cgx=1 in|cgz=1 in");
    EXPECT_EQ(SetPart(kWeighedMass, "2"), "");
    EXPECT_EQ(set.typed, "cgx=1 in|cgz=1 in");
    part.density = 1;
    part.typed = "growth_pct=5|density=1 kg/m3";
    EXPECT_EQ(SetPart(kDensity, ""), "");
    EXPECT_EQ(part.typed, "growth_pct=5");
}

TEST_F(WBQuantity, TypedFormOfAnInertiaGoesAsAWhole)
{
    part.sets = {Set("Weighed", 1)};
    ValueSet& set = part.sets[0];
    EXPECT_EQ(SetPart(kWeighedInertia, "1;2;3;0;0;0"), "");
    set.typed = "mass=1 kg|kx=1 m|ky=2 m|kz=3 m|ixx=1|iyy=2|izz=3|ixy=0|ixz=0|iyz=0|"
                "poi_sign=negative|inertia_at=origin";
    EXPECT_EQ(SetPart(kWeighedInertia, "1;2;3;0;0;0"), "");
    EXPECT_THAT(set.typed, HasSubstr("inertia_at"));
    EXPECT_EQ(SetPart(kWeighedInertia, "1;2;3;0;0;0.5"), "");
    EXPECT_EQ(set.typed, "mass=1 kg");
    set.typed = "mass=1 kg|kx=1 m|ixx=1|iyz=0.5|poi_sign=negative";
    EXPECT_EQ(SetPart(kWeighedInertia, "4;2;3;0;0;0.5"), "");
    EXPECT_EQ(set.typed, "mass=1 kg") << "whichever of them changed";
}

TEST_F(WBQuantity, PrecisionsInMassAndInPerCentExcludeEachOther)
{
    part.sets = {Set("Weighed", 1)};
    ValueSet& set = part.sets[0];
    EXPECT_EQ(SetPart(kWeighedPrecision, "percent;3;4"), "");
    set.typed = "lower_pct=3|upper_pct=4";
    EXPECT_EQ(SetPart(kWeighedPrecision, "absolute;0.5;0.25"), "");
    EXPECT_EQ(QuantityText(part, kWeighedPrecision), "absolute;0.5;0.25");
    EXPECT_FALSE(set.Has(Fact::LowerPct));
    EXPECT_FALSE(set.Has(Fact::UpperPct));
    EXPECT_EQ(set.typed, "");
    EXPECT_EQ(SetPart(kWeighedPrecision, "percent;3;4"), "");
    EXPECT_FALSE(set.Has(Fact::Lower));
    EXPECT_FALSE(set.Has(Fact::Upper));
}

TEST_F(WBQuantity, PrecisionMayBeExact)
{
    EXPECT_EQ(SetPart(kWeighedPrecision, "percent;0;0"), "");
    EXPECT_EQ(QuantityText(part, kWeighedPrecision), "percent;0;0");
}

TEST_F(WBQuantity, NewSetStandsByTheOrderOfItsType)
{
    part.sets = {Set("Estimated", 1), Set("Weighed", 2)};
    EXPECT_EQ(SetPart({"Supplier", "mass"}, "3"), "");
    EXPECT_EQ(SetPart({"Target", "mass"}, "4"), "");
    std::vector<std::string> names;
    for (const ValueSet& set : part.sets) {
        names.push_back(set.massType);
    }
    EXPECT_THAT(names, ElementsAre("Target", "Estimated", "Supplier", "Weighed"));
}

TEST_F(WBQuantity, SetOfATypeThatIsNotKnownStandsFirst)
{
    part.sets = {Set("Forgotten", 1)};
    EXPECT_EQ(SetPart({"Estimated", "mass"}, "2"), "");
    ASSERT_EQ(part.sets.size(), 2U);
    EXPECT_EQ(part.sets[0].massType, "Forgotten");
    EXPECT_EQ(part.sets[1].massType, "Estimated");
}

TEST_F(WBQuantity, SetThatSaysNothingAnyMoreGoesAway)
{
    use.sets = {Set("Weighed", 2)};
    EXPECT_EQ(SetUse(kWeighedMass, ""), "");
    EXPECT_THAT(use.sets, IsEmpty());
    EXPECT_EQ(SetUse(kWeighedMass, ""), "");
    EXPECT_THAT(use.sets, IsEmpty());
}

TEST_F(WBQuantity, SetThatStillSaysSomethingStays)
{
    for (auto text :
         {&ValueSet::source, &ValueSet::sourceDate, &ValueSet::author, &ValueSet::note}) {
        part.sets = {Set("Weighed", 2)};
        part.sets[0].*text = "x";
        EXPECT_EQ(SetPart(kWeighedMass, ""), "");
        EXPECT_EQ(part.sets.size(), 1U);
    }
    part.sets = {Set("Weighed", 2)};
    part.sets[0][Fact::Volume] = 1;
    EXPECT_EQ(SetPart(kWeighedMass, ""), "");
    EXPECT_EQ(part.sets.size(), 1U);
}

TEST_F(WBQuantity, EmptySetThatWasThereStaysWhenNothingChanges)
{
    part.sets.emplace_back().massType = "Weighed";
    EXPECT_EQ(SetPart(kWeighedMass, ""), "");
    EXPECT_EQ(part.sets.size(), 1U);
}

TEST_F(WBQuantity, LastImposedStaysWhenTheChoiceIsTakenBack)
{
    EXPECT_EQ(part.Imposed(), "");
    EXPECT_EQ(SetPart(kActive, "Estimated"), "");
    EXPECT_EQ(part.Imposed(), "Estimated");
    EXPECT_EQ(SetPart(kActive, ""), "");
    EXPECT_EQ(part.activeType, "");
    EXPECT_EQ(part.Imposed(), "Estimated");
    EXPECT_EQ(SetPart(kActive, ""), "");
    EXPECT_EQ(part.Imposed(), "Estimated");
    EXPECT_EQ(SetUse(kActive, "Weighed"), "");
    EXPECT_EQ(use.Imposed(), "Weighed");
}

TEST_F(WBQuantity, ClearedPropertyStaysToBeStatedAgain)
{
    AddProperty(Property::Type::Integer, "5");
    EXPECT_EQ(SetPart(kProperty, ""), "");
    ASSERT_EQ(part.properties.size(), 1U);
    EXPECT_EQ(part.properties[0].value, "");
    EXPECT_EQ(part.properties[0].typed, "");
    EXPECT_EQ(part.properties[0].type, Property::Type::Integer);
    EXPECT_EQ(SetPart(kProperty, "6"), "");
    EXPECT_EQ(QuantityText(part, kProperty), "6");
}

TEST_F(WBQuantity, PropertyTextsAreThoseOfItsKind)
{
    struct Row
    {
        Property::Type type;
        bool isDate;
        const char* text;
        const char* stored; // null: refused
        const char* expected;
    };
    using enum Property::Type;
    for (const Row& row :
         {Row{Integer, false, "+7", "7", ""}, Row{Integer, false, "7.5", nullptr, "a whole number"},
          Row{Real, false, "7,50", "7.5", ""}, Row{Real, false, "much", nullptr, "a number"},
          Row{Dimensioned, false, "1e2", "100", ""},
          Row{Dimensioned, false, "1 kg", nullptr, "a number"}, Row{YesNo, false, "Yes", "yes", ""},
          Row{YesNo, false, "no", "no", ""}, Row{YesNo, false, "1", nullptr, "yes or no"},
          Row{Text, true, "2026/02/28", "2026-02-28", ""},
          Row{Text, true, "2026-02-29", nullptr, "a date yyyy-mm-dd"},
          Row{Text, false, "a/b", "a/b", ""},
          Row{Text, false, "a|b", nullptr, "a text without \"|\""},
          Row{Text, false, "__null__", nullptr, "a text other than"},
          Row{Text, false, "\xFF", nullptr, "a text in UTF-8"}}) {
        part.properties.clear();
        AddProperty(row.type, "", row.isDate);
        const std::string problem = SetPart(kProperty, row.text);
        if (row.stored != nullptr) {
            EXPECT_EQ(problem, "") << row.text;
            EXPECT_EQ(part.properties[0].value, row.stored);
            EXPECT_EQ(part.properties[0].typed, "") << "what was typed is another value";
        } else {
            EXPECT_THAT(problem, HasSubstr("property N: found \"" + std::string(row.text) +
                                           "\", expected " + row.expected));
            EXPECT_EQ(part.properties[0].value, "");
            EXPECT_EQ(part.properties[0].typed, "typed");
        }
    }
}

TEST_F(WBQuantity, WhatIsRefusedIsSaidAndChangesNothing)
{
    part.sets = {Set("Weighed", 2)};
    part.sets[0][Fact::LowerPct] = part.sets[0][Fact::UpperPct] = 1;
    part.activeType = "Weighed";
    part.density = 3;
    part.material = "Steel";
    part.densityFirst = DensityOrder::WeightAndBalance;
    const std::vector<std::pair<Quantity, std::pair<std::string, std::string>>> rows{
        {kWeighedMass, {"x", "mass type Weighed, mass: found \"x\", expected a number in kg"}},
        {kWeighedMass, {"1;2", "expected a number in kg"}},
        {kWeighedMass, {"inf", "expected a number in kg"}},
        {kWeighedMass, {"nan", "expected a number in kg"}},
        {kWeighedMass, {"1e999", "expected a number in kg"}},
        {kWeighedMass, {"-1", "a mass that is not negative, or a part of type adjustment"}},
        {kWeighedCentre, {"1;2", "three numbers in mm, joined by \";\""}},
        {kWeighedCentre, {"1;;3", "three numbers in mm, joined by \";\""}},
        {kWeighedCentre, {"1;2;3;", "three numbers in mm, joined by \";\""}},
        {kWeighedInertia, {"1;2;3", "six numbers in kg.m2, joined by \";\""}},
        {kWeighedPrecision, {"1;2", "percent or absolute and two numbers that are not negative"}},
        {kWeighedPrecision, {"percent;1", "percent or absolute"}},
        {kWeighedPrecision, {"percent;1;-2", "two numbers that are not negative"}},
        {kWeighedPrecision, {"absolute1;2", "percent or absolute"}},
        {kWeighedPrecision, {"percent,1;2", "percent or absolute"}},
        {{"Guess", "mass"}, {"1", "\"Guess\" is not a mass type of the database"}},
        {{"Computed", "mass"}, {"1", "\"Computed\" is not a mass type of the database"}},
        {{"Weighed", "colour"}, {"1", "mass type Weighed, colour: no value set states this"}},
        {kActive, {"Guess", "active: \"Guess\" is not a mass type of the database"}},
        {kActive, {"Computed", "\"Computed\" is not a mass type of the database"}},
        {kActive, {"Target", "found \"Target\", expected a claim, since a goal never counts"}},
        {kDensity,
         {"-1", "density: found \"-1\", expected a number in kg/m3 that is not negative"}},
        {kDensity, {"x", "expected a number in kg/m3"}},
        {kMaterial, {"Wax", "material: \"Wax\" is not a material of the database"}},
        {kOrder, {"first", "density order: found \"first\", expected wb or material"}},
        {kProperty, {"x", "property N: there is no such property here"}},
        {{"", "colour"}, {"x", "colour: nothing of this name can be stated here"}},
        {{"", "mass"}, {"1", "mass: nothing of this name can be stated here"}},
        {kDensity, {"1e91", "expected a number in kg/m3"}},
        {kWeighedCentre, {"0;0;-1e91", "three numbers in mm"}},
        {kWeighedPrecision, {"absolute;1e91;0", "two numbers that are not negative"}}};
    for (const auto& [quantity, row] : rows) {
        const std::string before = QuantityText(part, quantity);
        EXPECT_THAT(SetPart(quantity, row.first), HasSubstr(row.second));
        EXPECT_EQ(QuantityText(part, quantity), before) << row.first;
        EXPECT_EQ(part.sets.size(), 1U);
        EXPECT_EQ(part.Imposed(), "Weighed");
    }
}

TEST_F(WBQuantity, PropertyThatStaysTheSameKeepsItsTypedForm)
{
    AddProperty(Property::Type::Real, "5");
    EXPECT_EQ(SetPart(kProperty, "5,0"), "");
    EXPECT_EQ(part.properties[0].typed, "typed");
    EXPECT_EQ(SetPart(kProperty, "6"), "");
    EXPECT_EQ(part.properties[0].typed, "");
}

TEST_F(WBQuantity, DensityOrderIsOfPartsAlone)
{
    EXPECT_EQ(SetUse(kOrder, "wb"), "density order: nothing of this name can be stated here");
}

TEST_F(WBQuantity, NegativeMassIsForAdjustments)
{
    part.type = PartType::Adjustment;
    EXPECT_EQ(SetPart(kWeighedMass, "-1"), "");
    EXPECT_EQ(QuantityText(part, kWeighedMass), "-1");
    EXPECT_EQ(SetQuantity(use, PartType::Adjustment, kWeighedMass, "-1", known), "");
    EXPECT_NE(SetQuantity(use, PartType::Unstated, kWeighedMass, "-2", known), "");
}

TEST_F(WBQuantity, SumsDependOnAllButProperties)
{
    for (const Quantity& quantity : {kWeighedMass, kWeighedCentre, kWeighedInertia,
                                     kWeighedPrecision, kActive, kDensity, kMaterial, kOrder}) {
        EXPECT_TRUE(TouchesSums(quantity)) << QuantityName(quantity);
    }
    EXPECT_FALSE(TouchesSums(kProperty));
    EXPECT_TRUE(TouchesSums({"Weighed", "property N"})) << "no set holds properties";
}

TEST_F(WBQuantity, WhatIsOfASetIsNotOfTheOwner)
{
    part.sets = {Set("Weighed", 1)};
    part.sets[0][Fact::LowerPct] = part.sets[0][Fact::UpperPct] = 1;
    part.densityFirst = DensityOrder::Material;
    EXPECT_EQ(QuantityText(part, {"Weighed", "density order"}), "");
    EXPECT_EQ(QuantityText(part, {"Weighed", "colour"}), "");
    EXPECT_THAT(FactsOf({"Weighed", "density order"}),
                ElementsAre("mass type Weighed, density order"));
    EXPECT_THAT(FactsOf({"", "centre"}), ElementsAre("centre"));
    EXPECT_THAT(FactsOf({"", "precision"}), ElementsAre("precision"));
}

TEST_F(WBQuantity, NamesAreThoseOfTheHistory)
{
    EXPECT_EQ(QuantityName(kWeighedMass), "mass type Weighed, mass");
    EXPECT_EQ(QuantityName(kDensity), "density");
    EXPECT_THAT(FactsOf(kWeighedMass), ElementsAre("mass type Weighed, mass"));
    EXPECT_THAT(
        FactsOf(kWeighedCentre),
        ElementsAre("mass type Weighed, cgx", "mass type Weighed, cgy", "mass type Weighed, cgz"));
    EXPECT_THAT(FactsOf({"X", "inertia"}),
                ElementsAre("mass type X, ixx", "mass type X, iyy", "mass type X, izz",
                            "mass type X, ixy", "mass type X, ixz", "mass type X, iyz"));
    EXPECT_THAT(FactsOf({"X", "precision"}),
                ElementsAre("mass type X, lower", "mass type X, upper", "mass type X, lower_pct",
                            "mass type X, upper_pct"));
    EXPECT_THAT(FactsOf(kActive), ElementsAre("active"));
    EXPECT_THAT(FactsOf(kDensity), ElementsAre("density"));
    EXPECT_THAT(FactsOf(kMaterial), ElementsAre("material"));
    EXPECT_THAT(FactsOf(kOrder), ElementsAre("density_first"));
    EXPECT_THAT(FactsOf(kProperty), ElementsAre("property N"));
}
