#include "WBRules.h"
#include "WBKnown.h"

#include <gtest/gtest.h>

using namespace wb;
using Common = CATENOWBCSCommonDefinitions;

namespace
{
ValueSet SetOf(const char* type, std::initializer_list<std::pair<Fact, double>> numbers)
{
    ValueSet set;
    set.massType = type;
    for (const auto& [fact, value] : numbers) {
        set[fact] = value;
    }
    return set;
}

const std::vector<MassType> kTypes = ShippedMassTypes();
const std::vector<ValueSet> kNone;
} // namespace

TEST(WBRules, DensityOfWeightAndBalanceGoesFirstFromUseToPart)
{
    DensityChoice choice;
    choice.partMaterial.volumic = 4;
    EXPECT_EQ(DensityInUse(choice, Dimension::Volume), 4);
    choice.useMaterial.volumic = 3;
    EXPECT_EQ(DensityInUse(choice, Dimension::Volume), 3);
    choice.part.volumic = 2;
    EXPECT_EQ(DensityInUse(choice, Dimension::Volume), 2);
    choice.use.volumic = 1;
    EXPECT_EQ(DensityInUse(choice, Dimension::Volume), 1);
    EXPECT_FALSE(IsKnown(DensityInUse(choice, Dimension::Surface)));
}

TEST(WBRules, MaterialFirstTurnsTheTwoPairsRound)
{
    DensityChoice choice{
        {1, kUnknown}, {2, kUnknown}, {3, kUnknown}, {4, kUnknown}, Common::MaterialDensityFirst};
    EXPECT_EQ(DensityInUse(choice, Dimension::Volume), 3);
    choice.useMaterial = {};
    EXPECT_EQ(DensityInUse(choice, Dimension::Volume), 4);
    choice.partMaterial = {};
    EXPECT_EQ(DensityInUse(choice, Dimension::Volume), 1);
}

TEST(WBRules, MassOfASizedSetIsSizeTimesDensity)
{
    DensityChoice choice;
    choice.partMaterial = {2780, 1.5};
    EXPECT_DOUBLE_EQ(WithMass(SetOf("E", {{Fact::Volume, 0.00123}}), choice)[Fact::Mass], 3.4194);
    EXPECT_DOUBLE_EQ(WithMass(SetOf("E", {{Fact::Area, 2}}), choice)[Fact::Mass], 3.0);
    EXPECT_FALSE(WithMass(SetOf("E", {{Fact::Area, 2}}), {}).Has(Fact::Mass));
}

TEST(WBRules, StatedMassGoesBeforeSize)
{
    DensityChoice choice;
    choice.part.volumic = 1000;
    const auto set = SetOf("E", {{Fact::Volume, 1}, {Fact::Mass, 7}});
    EXPECT_EQ(WithMass(set, choice)[Fact::Mass], 7);
    EXPECT_FALSE(SizedBy(set));
}

TEST(WBRules, AnotherDensityScalesTheInertiaAndLeavesTheCentre)
{
    DensityChoice choice;
    choice.partMaterial.volumic = 1000;
    choice.useMaterial.volumic = 3000;
    const auto set = WithMass(
        SetOf("E", {{Fact::Volume, 0.001}, {Fact::CgX, 5}, {Fact::Ixx, 2}, {Fact::Ixy, 1}}),
        choice);
    EXPECT_DOUBLE_EQ(set[Fact::Mass], 3.0);
    EXPECT_DOUBLE_EQ(set[Fact::Ixx], 6.0);
    EXPECT_DOUBLE_EQ(set[Fact::Ixy], 3.0);
    EXPECT_EQ(set[Fact::CgX], 5);
}

TEST(WBRules, StatusSaysWhetherThereIsAMass)
{
    const auto mass = SetOf("E", {{Fact::Mass, 0}});
    const auto centre = SetOf("E", {{Fact::CgX, 1}});
    const auto nothing = SetOf("E", {});
    EXPECT_EQ(StatusOf(&mass), Common::Assigned);
    EXPECT_EQ(StatusOf(&centre), Common::PartiallyAssigned);
    EXPECT_EQ(StatusOf(&nothing), Common::Empty);
    EXPECT_EQ(StatusOf(nullptr), Common::Empty);
}

TEST(WBRules, DeviationsAreSizesInKilograms)
{
    const MassType& estimated = *FindMassType(kTypes, "Estimated");
    const auto absolute = DeviationsOf(
        SetOf("E", {{Fact::Mass, 5}, {Fact::Lower, 0.1}, {Fact::Upper, 0.2}}), estimated);
    EXPECT_EQ(absolute.lower, 0.1);
    EXPECT_EQ(absolute.upper, 0.2);
    const auto percentage = DeviationsOf(
        SetOf("E", {{Fact::Mass, -50}, {Fact::LowerPct, 2}, {Fact::UpperPct, 4}}), estimated);
    EXPECT_DOUBLE_EQ(percentage.lower, 1.0);
    EXPECT_DOUBLE_EQ(percentage.upper, 2.0);
    const auto byDefault = DeviationsOf(SetOf("E", {{Fact::Mass, 3.9}}), estimated);
    EXPECT_DOUBLE_EQ(byDefault.lower, 0.39);
    EXPECT_DOUBLE_EQ(byDefault.upper, 0.78);
    EXPECT_EQ(DeviationsOf(SetOf("E", {{Fact::Lower, 1}}), estimated).lower, 0.0);
}

TEST(WBRules, MostMatureClaimOfALeafIsActive)
{
    const std::vector<ValueSet> sets{SetOf("Estimated", {{Fact::Mass, 1}}),
                                     SetOf("Weighed", {{Fact::Mass, 2}}),
                                     SetOf("Calculated", {{Fact::Mass, 3}})};
    EXPECT_EQ(ActiveType({nullptr, &sets}, "", "", true, kTypes), "Weighed");
    EXPECT_EQ(ActiveType({nullptr, &sets}, "", "Estimated", true, kTypes), "Estimated");
}

TEST(WBRules, GoalsAreNeverActive)
{
    const std::vector<ValueSet> sets{SetOf("Target", {{Fact::Mass, 1}})};
    EXPECT_EQ(ActiveType({nullptr, &sets}, "", "", true, kTypes), "Computed");
}

TEST(WBRules, AssemblyWithoutAChoiceIsComputed)
{
    const std::vector<ValueSet> sets{SetOf("Weighed", {{Fact::Mass, 1}})};
    EXPECT_EQ(ActiveType({nullptr, &sets}, "", "", false, kTypes), "Computed");
    EXPECT_EQ(ActiveType({nullptr, &sets}, "", "Weighed", false, kTypes), "Weighed");
}

TEST(WBRules, UseWithSetsOfItsOwnHasItsOwnChoice)
{
    const std::vector<ValueSet> part{SetOf("Calculated", {{Fact::Mass, 1}})};
    const std::vector<ValueSet> use{SetOf("Estimated", {{Fact::Mass, 2}})};
    EXPECT_EQ(ActiveType({&use, &part}, "Estimated", "", true, kTypes), "Estimated");
    EXPECT_EQ(ActiveType({&use, &part}, "", "Estimated", true, kTypes), "Calculated");
    EXPECT_EQ(ActiveType({&kNone, &part}, "", "Estimated", true, kTypes), "Estimated");
}

TEST(WBRules, SetOfTheUseStandsBeforeTheParts)
{
    const std::vector<ValueSet> part{SetOf("Weighed", {{Fact::Mass, 1}}),
                                     SetOf("Estimated", {{Fact::Mass, 3}})};
    const std::vector<ValueSet> use{SetOf("Weighed", {{Fact::Mass, 2}})};
    const NodeSets sets{&use, &part};
    EXPECT_EQ((*sets.Find("Weighed"))[Fact::Mass], 2);
    EXPECT_EQ((*sets.Find("Estimated"))[Fact::Mass], 3);
    EXPECT_EQ(sets.Find("Supplier"), nullptr);
}
