#include "EditsSession.h"

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

class WBEditsTest : public EditsSession
{};

class WBEditsNumberTest : public EditsSession, public testing::WithParamInterface<const char*>
{
protected:
    WBEditsNumberTest() { EXPECT_TRUE(CATUseNumberLocale(GetParam())); }
    bool IsComma() const { return std::string_view(GetParam()) != "C"; }
};

} // namespace

INSTANTIATE_TEST_SUITE_P(BothSeparators, WBEditsNumberTest, testing::Values("C", "de_DE.UTF-8"),
                         [](const auto& locale) { return locale.index == 0 ? "Point" : "Comma"; });

TEST_P(WBEditsNumberTest, FieldsShowWhatIsStatedWithItsUnit)
{
    const std::vector<std::pair<Kind, const char*>> rows{
        {Kind::Mass, "12.346 kg"},  {Kind::CentreX, "100 mm"},     {Kind::CentreY, "200.5 mm"},
        {Kind::CentreZ, "-300 mm"}, {Kind::Ixx, "4 kg.m2"},        {Kind::Iyy, "5 kg.m2"},
        {Kind::Izz, "6 kg.m2"},     {Kind::Ixy, "0.1 kg.m2"},      {Kind::Ixz, "0.2 kg.m2"},
        {Kind::Iyz, "0.3 kg.m2"},   {Kind::LowerPrecision, "5 %"}, {Kind::UpperPrecision, "10 %"}};
    for (const auto& [kind, shown] : rows) {
        CATUnicodeString expected = shown;
        if (IsComma()) {
            // The symbol of inertia has a point of its own.
            expected.ReplaceAll(".", ",");
            expected.ReplaceAll("kg,m2", "kg.m2");
        }
        EXPECT_EQ(Text(Field(kind, "Estimated")), expected);
    }
    ShowIn("MASS", "lb");
    EXPECT_EQ(Text(Field(Kind::Mass, "Estimated")), IsComma() ? "27,217 lb" : "27.217 lb");
}

TEST_P(WBEditsNumberTest, TypedValueIsShownInTheCurrentUnitAndTravelsInStorageUnits)
{
    EXPECT_EQ(Type(Field(Kind::Mass, "Weighed"), "12 lb"), "");
    EXPECT_EQ(Text(Field(Kind::Mass, "Weighed")), IsComma() ? "5,443 kg" : "5.443 kg");
    EXPECT_EQ(Type(Field(Kind::Mass, "Estimated"), "2*3,5"), "");
    EXPECT_EQ(Text(Field(Kind::Mass, "Estimated")), "7 kg");
    EXPECT_EQ(Type(Field(Kind::Mass, "Target"), "2*3 lb"), "");
    double mass = 0.0;
    record->GetMass("Weighed", mass);
    EXPECT_DOUBLE_EQ(mass, 5.44310844);
    record->GetMass("Estimated", mass);
    EXPECT_DOUBLE_EQ(mass, 7);
    record->GetMass("Target", mass);
    EXPECT_DOUBLE_EQ(mass, 2.72155422);
    ShowIn("MASS", "g");
    EXPECT_EQ(Text(Field(Kind::Mass, "Estimated")), "7000 g");
    EXPECT_EQ(Type(Field(Kind::Mass, "Estimated"), "500"), "");
    record->GetMass("Estimated", mass);
    EXPECT_DOUBLE_EQ(mass, 0.5);
}

TEST_P(WBEditsNumberTest, TextAsTheFieldShowsItIsNoEdit)
{
    for (const char* typed : {"12.346 kg", "12,346 kg", "12.346", "12,346kg", " 12.346 kg "}) {
        EXPECT_EQ(Type(Field(Kind::Mass, "Estimated"), typed), "");
        EXPECT_FALSE(Edits().HasEdits()) << typed;
    }
    EXPECT_EQ(Type(Field(Kind::Mass, "Estimated"), "12.3456"), ""); // what is stated
    EXPECT_FALSE(Edits().HasEdits());
    EXPECT_EQ(Edits().Undo(), std::nullopt);
    EXPECT_EQ(Type(Field(Kind::Mass, "Estimated"), "12.3460"), ""); // another text, a new value
    EXPECT_TRUE(Edits().HasEdits());
    double mass = 0.0;
    record->GetMass("Estimated", mass);
    EXPECT_EQ(mass, 12.346);
    EXPECT_EQ(Type(Field(Kind::CentreX, "Weighed"), "  "), "");
    EXPECT_EQ(Edits().EditCount(), 1);
}

TEST_P(WBEditsNumberTest, TextThatCannotBeReadIsToldWithAnExample)
{
    ShowIn("LENGTH", "in");
    const std::vector<std::tuple<WBEditField, const char*, const char*>> rows{
        {Field(Kind::Mass, "Weighed"), "abc",
         "\"abc\" is no mass; expected a number like 12.5 kg."},
        {Field(Kind::Mass, "Weighed"), "12 mm",
         "\"12 mm\" is no mass; expected a number like 12.5 kg."},
        {Field(Kind::CentreY, "Weighed"), "12 kg",
         "\"12 kg\" is no length; expected a number like 12.5 in."},
        {Field(Kind::Ixy, "Weighed"), "1+2+3",
         "\"1+2+3\" is no inertia; expected a number like 12.5 kg.m2."},
        {Field(Kind::Density), "1/0", "\"1/0\" is no density; expected a number like 12.5 kg/m3."},
        {Field(Kind::LowerPrecision, "Estimated"), "2 kg",
         "\"2 kg\" is no percentage; expected a number like 5 %."},
    };
    const CATUnicodeString before = Travelling();
    for (const auto& [field, typed, sentence] : rows) {
        CATUnicodeString expected = sentence;
        if (IsComma()) {
            expected.ReplaceAll("12.5", "12,5");
        }
        EXPECT_EQ(Type(field, typed), expected);
    }
    EXPECT_FALSE(Edits().HasEdits());
    EXPECT_EQ(Edits().Undo(), std::nullopt);
    EXPECT_EQ(Travelling(), before);
}

TEST_F(WBEditsTest, GermanIsSpokenToGermans)
{
    CATMsgCatalog::SetLanguage("de");
    EXPECT_EQ(Type(Field(Kind::Mass, "Weighed"), "abc"),
              "„abc“ ist keine Masse; erwartet wird eine Zahl wie 12.5 kg.");
    EXPECT_THAT(Edits().Choices(Field(Kind::PrecisionKind, "Weighed")),
                ElementsAre("", "in Prozent", "als Masse"));
}

TEST_F(WBEditsTest, OnlyWhatTheServerNamesCanBeEdited)
{
    EXPECT_TRUE(Edits().IsEditable(Field(Kind::Mass, "Weighed")));
    EXPECT_TRUE(Edits().IsEditable(Field(Kind::Mass, "Target")));
    EXPECT_TRUE(Edits().IsEditable(Field(Kind::ActiveMassType)));
    EXPECT_TRUE(Edits().IsEditable(Field(Kind::DensityOrder)));
    EXPECT_TRUE(Edits().IsEditable(Field(Kind::AppliedOn)));
    EXPECT_TRUE(Edits().IsEditable(PropertyField(7)));
    for (const WBEditField& field :
         {Field(Kind::Mass, "Computed"), Field(Kind::Ixx, "Computed"), Field(Kind::Mass, ""),
          Field(Kind::Mass, "Nonsense"), PropertyField(0), PropertyField(8), PropertyField(-1)}) {
        EXPECT_FALSE(Edits().IsEditable(field));
        EXPECT_EQ(Text(field), "");
        EXPECT_EQ(Type(field, "1"), "This value cannot be changed here.");
        EXPECT_EQ(Edits().StateOf(field), State::Plain);
    }
    EXPECT_FALSE(Edits().HasEdits());
}

TEST_F(WBEditsTest, ComputedIsNotEditedEvenWhereAnAnswerListsIt)
{
    m_stated.quantities.push_back(Stated(kPart, "Computed", "mass", "20"));
    EXPECT_FALSE(Edits().IsEditable(Field(Kind::Mass, "Computed")));
    EXPECT_EQ(Edits().Tooltip(Field(Kind::Mass, "Computed")),
              "Computed follows from what is below; it is not typed.");
}

TEST_F(WBEditsTest, WithoutStatedValuesNothingCanBeEdited)
{
    WBEdits edits(*record, {});
    for (const WBEditField& field :
         {Field(Kind::Mass, "Estimated"), Field(Kind::ActiveMassType), Field(Kind::Density),
          Field(Kind::Material), Field(Kind::AppliedOn), Field(Kind::DensityOrder),
          PropertyField(1)}) {
        EXPECT_FALSE(edits.IsEditable(field));
        EXPECT_EQ(edits.Text(field), "");
        EXPECT_EQ(edits.Tooltip(field), "");
    }
}

TEST_F(WBEditsTest, ValueThatIsNotStatedIsEmptyAndItsTooltipSaysWhatCounts)
{
    EXPECT_EQ(Text(Field(Kind::Mass, "Calculated")), "");
    EXPECT_EQ(Edits().Tooltip(Field(Kind::Mass, "Calculated")),
              "Nothing is stated; 7.5 kg counts.");
    EXPECT_EQ(Edits().Tooltip(Field(Kind::LowerPrecision, "Calculated")),
              "Nothing is stated; 3 % counts.");
    EXPECT_EQ(Edits().Tooltip(Field(Kind::UpperPrecision, "Calculated")),
              "Nothing is stated; 5 % counts.");
    EXPECT_EQ(Edits().Tooltip(Field(Kind::PrecisionKind, "Calculated")),
              "Nothing is stated; default -3 % / +5 % counts.");
    EXPECT_EQ(Edits().Tooltip(Field(Kind::Mass, "Weighed")), "");
    EXPECT_EQ(Edits().Tooltip(Field(Kind::CentreX, "Weighed")), "");
    EXPECT_EQ(Edits().Tooltip(Field(Kind::LowerPrecision, "Target")), "");
    EXPECT_EQ(Edits().Tooltip(Field(Kind::Mass, "Estimated")), "");
    EXPECT_EQ(Text(Field(Kind::Density)), "");
    EXPECT_EQ(Edits().Tooltip(Field(Kind::Density)), "Nothing is stated; 7850 kg/m3 counts.");
    EXPECT_EQ(Text(Field(Kind::DensityOrder)), "");
    EXPECT_EQ(Edits().Tooltip(Field(Kind::DensityOrder)),
              "Nothing is stated; the density stated for the part counts.");
    EXPECT_EQ(Edits().Tooltip(Field(Kind::Material)), "");
}

TEST_F(WBEditsTest, FiguresThatAnotherMassTypeLendsAreToldToCount)
{
    StateAs(kPart, "Estimated", "centre", "");
    StateAs(kPart, "Estimated", "inertia", "");
    EXPECT_EQ(Edits().Tooltip(Field(Kind::CentreY, "Estimated")),
              "Nothing is stated; 200.5 mm counts.");
    EXPECT_EQ(Edits().Tooltip(Field(Kind::Ixx, "Estimated")), "Nothing is stated; 4 kg.m2 counts.");
    EXPECT_EQ(Edits().Tooltip(Field(Kind::Iyz, "Estimated")),
              "Nothing is stated; 0.3 kg.m2 counts.");
}

TEST_F(WBEditsTest, UseWithoutAMaterialOfItsOwnIsToldThePartsOne)
{
    Type(Field(Kind::AppliedOn), "this instance alone");
    EXPECT_EQ(Text(Field(Kind::Material)), "");
    EXPECT_EQ(Edits().Tooltip(Field(Kind::Material)), "Nothing is stated; Steel counts.");
    EXPECT_EQ(Edits().Tooltip(Field(Kind::Density)), "Nothing is stated; 7850 kg/m3 counts.");
}

TEST_F(WBEditsTest, ActiveMassTypeIsOneThatIsNoGoal)
{
    EXPECT_THAT(Edits().Choices(Field(Kind::ActiveMassType)),
                ElementsAre("", "Estimated", "Calculated", "Weighed"));
    EXPECT_EQ(Text(Field(Kind::ActiveMassType)), "Estimated");
    EXPECT_EQ(Type(Field(Kind::ActiveMassType), "Target"), "\"Target\" is none of the choices.");
    EXPECT_EQ(Type(Field(Kind::ActiveMassType), "Computed"),
              "\"Computed\" is none of the choices.");
    EXPECT_EQ(Type(Field(Kind::ActiveMassType), "weighed"), ""); // in any letter case
    EXPECT_EQ(Text(Field(Kind::ActiveMassType)), "Weighed");
}

TEST_F(WBEditsTest, NothingImposedOnAnAssemblyIsCalledComputed)
{
    m_stated.isLeaf = false;
    EXPECT_THAT(Edits().Choices(Field(Kind::ActiveMassType)),
                ElementsAre("Computed", "Estimated", "Calculated", "Weighed"));
    EXPECT_EQ(Type(Field(Kind::ActiveMassType), "Computed"), "");
    EXPECT_EQ(Text(Field(Kind::ActiveMassType)), "Computed");
    EXPECT_EQ(Lines(), "1|PartRef|__null__|active|0|Estimated|");
}

TEST_F(WBEditsTest, UseThatChoosesNothingTakesWhatItsPartHas)
{
    m_stated.isLeaf = false;
    StatedAs(kPart, "", "active").owner = kUse;
    EXPECT_THAT(Edits().Choices(Field(Kind::ActiveMassType)),
                ElementsAre("", "Estimated", "Calculated", "Weighed"));
    EXPECT_EQ(Type(Field(Kind::ActiveMassType), ""), "");
    EXPECT_EQ(Text(Field(Kind::ActiveMassType)), "");
    EXPECT_EQ(Lines(), "1|PartInst|__null__|active|0|Estimated|");
}

TEST_F(WBEditsTest, ActiveMassTypeThatNobodyChoseIsToldByWhatCounts)
{
    StateAs(kPart, "", "active", "");
    EXPECT_EQ(Text(Field(Kind::ActiveMassType)), "");
    EXPECT_EQ(Edits().Tooltip(Field(Kind::ActiveMassType)), "Nothing is stated; Estimated counts.");
}

TEST_F(WBEditsTest, PrecisionIsAPercentageOrAMass)
{
    EXPECT_THAT(Edits().Choices(Field(Kind::PrecisionKind, "Estimated")),
                ElementsAre("", "in percent", "as a mass"));
    EXPECT_EQ(Text(Field(Kind::PrecisionKind, "Estimated")), "in percent");
    EXPECT_EQ(Type(Field(Kind::LowerPrecision, "Estimated"), "2,5 %"), "");
    EXPECT_EQ(Text(Field(Kind::LowerPrecision, "Estimated")), "2.5 %");
    EXPECT_EQ(Type(Field(Kind::PrecisionKind, "Estimated"), "as a mass"), "");
    // 5 % is not 5 kg: the numbers have to be typed again.
    EXPECT_EQ(Text(Field(Kind::LowerPrecision, "Estimated")), "");
    EXPECT_EQ(Text(Field(Kind::UpperPrecision, "Estimated")), "");
    EXPECT_EQ(Type(Field(Kind::LowerPrecision, "Estimated"), "200 g"), "");
    EXPECT_EQ(Type(Field(Kind::UpperPrecision, "Estimated"), "0.1"), "");
    EXPECT_EQ(Text(Field(Kind::LowerPrecision, "Estimated")), "0.2 kg");
    EXPECT_EQ(Type(Field(Kind::LowerPrecision, "Estimated"), "5 %"),
              "\"5 %\" is no mass; expected a number like 12.5 kg.");
    EXPECT_EQ(Lines(), "1|PartRef|Estimated|precision|1|percent;5;10|");
    EXPECT_EQ(Type(Field(Kind::PrecisionKind, "Estimated"), "in percent"), "");
    EXPECT_EQ(Text(Field(Kind::UpperPrecision, "Estimated")), "10 %"); // as it is stated
    EXPECT_FALSE(Edits().HasEdits());
}

TEST_F(WBEditsTest, PrecisionGetsItsKindFromTheFirstNumber)
{
    EXPECT_EQ(Type(Field(Kind::LowerPrecision, "Weighed"), "0.5"), "");
    EXPECT_EQ(Text(Field(Kind::PrecisionKind, "Weighed")), "in percent");
    EXPECT_EQ(Text(Field(Kind::LowerPrecision, "Weighed")), "0.5 %");
    EXPECT_EQ(Type(Field(Kind::UpperPrecision, "Target"), "0.5 lb"), "");
    EXPECT_EQ(Text(Field(Kind::PrecisionKind, "Target")), "as a mass");
    EXPECT_EQ(Text(Field(Kind::UpperPrecision, "Target")), "0.227 kg");
    EXPECT_EQ(Type(Field(Kind::UpperPrecision, "Calculated"), "abc"),
              "\"abc\" is no percentage; expected a number like 5 %.");
    EXPECT_EQ(Text(Field(Kind::PrecisionKind, "Calculated")), "");
}

TEST_F(WBEditsTest, PrecisionWithoutNumbersIsNone)
{
    EXPECT_EQ(Type(Field(Kind::LowerPrecision, "Estimated"), ""), "");
    EXPECT_EQ(Text(Field(Kind::PrecisionKind, "Estimated")), "in percent");
    EXPECT_EQ(Type(Field(Kind::UpperPrecision, "Estimated"), ""), "");
    EXPECT_EQ(Text(Field(Kind::PrecisionKind, "Estimated")), "");
    EXPECT_EQ(Edits().CompletenessError(), "");
    EXPECT_EQ(Lines(), "1|PartRef|Estimated|precision|0|percent;5;10|");
}

TEST_F(WBEditsTest, PrecisionThatIsNegativeIsRefused)
{
    EXPECT_EQ(Type(Field(Kind::LowerPrecision, "Estimated"), "-1"),
              "A precision says how far the mass may lie off; it cannot be negative.");
    EXPECT_EQ(Type(Field(Kind::UpperPrecision, "Estimated"), "0"), "");
    EXPECT_EQ(Text(Field(Kind::UpperPrecision, "Estimated")), "0 %");
}

TEST_F(WBEditsTest, DensityIsLargerThanNothing)
{
    const CATUnicodeString sentence =
        "A density is larger than 0; leave the field empty where it is not known.";
    EXPECT_EQ(Type(Field(Kind::Density), "0"), sentence);
    EXPECT_EQ(Type(Field(Kind::Density), "-1"), sentence);
    EXPECT_EQ(Type(Field(Kind::Density), "7.9 g/cm3"), "");
    EXPECT_EQ(Text(Field(Kind::Density)), "7900 kg/m3");
}

TEST_F(WBEditsTest, MaterialIsOneOfTheDatabase)
{
    EXPECT_THAT(Edits().Choices(Field(Kind::Material)), ElementsAre("", "Aluminium", "Steel"));
    EXPECT_EQ(Text(Field(Kind::Material)), "Steel");
    EXPECT_EQ(Type(Field(Kind::Material), "Wood"), "\"Wood\" is not a material of the database.");
    EXPECT_EQ(Type(Field(Kind::Material), "Aluminium"), "");
    EXPECT_EQ(Text(Field(Kind::Material)), "Aluminium");
    EXPECT_EQ(Type(Field(Kind::Material), ""), "");
    EXPECT_EQ(Text(Field(Kind::Material)), "");
}

TEST_F(WBEditsTest, DensityAndMaterialAreThoseOfTheObjectThatIsChosen)
{
    StateAs(kUse, "", "density", "2700");
    StateAs(kPart, "", "density", "7850");
    EXPECT_THAT(Edits().Choices(Field(Kind::AppliedOn)),
                ElementsAre("the part, wherever it is used", "this instance alone"));
    EXPECT_EQ(Text(Field(Kind::AppliedOn)), "this instance alone"); // it states something
    EXPECT_EQ(Text(Field(Kind::Density)), "2700 kg/m3");
    EXPECT_EQ(Text(Field(Kind::Material)), "");
    EXPECT_EQ(Type(Field(Kind::AppliedOn), "the part, wherever it is used"), "");
    EXPECT_EQ(Text(Field(Kind::Density)), "7850 kg/m3");
    EXPECT_EQ(Text(Field(Kind::Material)), "Steel");
    EXPECT_FALSE(Edits().HasEdits());
    EXPECT_EQ(Type(Field(Kind::AppliedOn), "nobody"), "\"nobody\" is none of the choices.");
    EXPECT_EQ(Type(Field(Kind::AppliedOn), ""), "\"\" is none of the choices.");
    EXPECT_EQ(Edits().Undo(), Field(Kind::AppliedOn));
    EXPECT_EQ(Text(Field(Kind::AppliedOn)), "this instance alone");
}

TEST_F(WBEditsTest, EditedMaterialGoesAlongToTheOtherObject)
{
    EXPECT_EQ(Text(Field(Kind::AppliedOn)), "the part, wherever it is used");
    Type(Field(Kind::Density), "2700");
    Type(Field(Kind::Material), "Aluminium");
    Type(Field(Kind::AppliedOn), "this instance alone");
    EXPECT_EQ(Text(Field(Kind::Density)), "2700 kg/m3");
    EXPECT_EQ(Text(Field(Kind::Material)), "Aluminium");
    EXPECT_EQ(Lines(), "2|PartInst|__null__|density|1|__null__|"
                       "PartInst|__null__|material|1|__null__|");
    EXPECT_EQ(Edits().Undo(), Field(Kind::AppliedOn));
    EXPECT_EQ(Lines(), "2|PartRef|__null__|density|1|__null__|"
                       "PartRef|__null__|material|1|Steel|");
}

TEST_F(WBEditsTest, MaterialThatWasClearedStaysClearedWhileTheOtherObjectGetsOne)
{
    Type(Field(Kind::Material), "");
    Type(Field(Kind::AppliedOn), "this instance alone");
    Type(Field(Kind::Material), "Aluminium");
    EXPECT_EQ(Lines(), "2|PartRef|__null__|material|0|Steel|"
                       "PartInst|__null__|material|1|__null__|");
    EXPECT_EQ(record->GetPartRefWBMaterialName(), "");
    EXPECT_TRUE(Edits().ApplyRequest().Contains("|1|0|Aluminium|PartInst|3|"));
    Edits().UndoAll();
    EXPECT_EQ(record->GetPartRefWBMaterialName(), "Steel");
    EXPECT_FALSE(Edits().HasEdits());
}

TEST_F(WBEditsTest, MaterialOfAnInstanceThatThePDMKnowsIsThePartsOwn)
{
    record->SetHasInstInENOVIA(true);
    StateAs(kUse, "", "density", "2700");
    EXPECT_FALSE(Edits().IsEditable(Field(Kind::AppliedOn)));
    EXPECT_EQ(Text(Field(Kind::AppliedOn)), "the part, wherever it is used");
    EXPECT_EQ(Edits().Tooltip(Field(Kind::AppliedOn)),
              "Density and material of this instance are those of its part.");
    EXPECT_EQ(Text(Field(Kind::Density)), "");
    EXPECT_EQ(Text(Field(Kind::Material)), "Steel");
}

TEST_F(WBEditsTest, RootHasNoUseThatCouldHaveAMaterial)
{
    std::erase_if(m_stated.quantities,
                  [](const WBStatedQuantity& quantity) { return quantity.owner == kUse; });
    EXPECT_FALSE(Edits().IsEditable(Field(Kind::AppliedOn)));
    EXPECT_TRUE(Edits().IsEditable(Field(Kind::Material)));
}

TEST_F(WBEditsTest, DensityOrderIsChosenInWords)
{
    EXPECT_THAT(Edits().Choices(Field(Kind::DensityOrder)),
                ElementsAre("", "the density stated for the part", "the density of the material"));
    EXPECT_EQ(Type(Field(Kind::DensityOrder), "the density of the material"), "");
    EXPECT_EQ(Text(Field(Kind::DensityOrder)), "the density of the material");
    EXPECT_EQ(Lines(), "1|PartRef|__null__|density order|1|__null__|");
}

TEST_F(WBEditsTest, FieldsThatAreTypedHaveNoChoices)
{
    EXPECT_THAT(Edits().Choices(Field(Kind::Mass, "Weighed")), IsEmpty());
    EXPECT_THAT(Edits().Choices(PropertyField(1)), IsEmpty());
    EXPECT_THAT(Edits().Choices(PropertyField(0)), IsEmpty());
}

TEST_F(WBEditsTest, WhatIsNotThereCannotBeEdited)
{
    m_stated.quantities.push_back(Stated(kPart, "Simulated", "mass", ""));
    EXPECT_FALSE(Edits().IsEditable(Field(Kind::Mass, "Simulated"))) << "not in the record";
    EXPECT_FALSE(Edits().IsEditable(PropertyField(0)));
    EXPECT_FALSE(Edits().IsEditable(PropertyField(8)));
    EXPECT_EQ(Type(PropertyField(8), "x"), "This value cannot be changed here.");
}

TEST_F(WBEditsTest, ObjectIsChosenOnlyWhereTheServerNamesBoth)
{
    std::erase_if(m_stated.quantities, [](const WBStatedQuantity& quantity) {
        return quantity.owner == kPart && quantity.name == "density";
    });
    EXPECT_FALSE(Edits().IsEditable(Field(Kind::AppliedOn)));
}

TEST_F(WBEditsTest, AssemblyWhoseChoiceIsNotToldIsNotCalledComputed)
{
    m_stated.isLeaf = false;
    std::erase_if(m_stated.quantities,
                  [](const WBStatedQuantity& quantity) { return quantity.name == "active"; });
    EXPECT_EQ(Edits().Choices(Field(Kind::ActiveMassType)).at(0), "");
}

TEST_F(WBEditsTest, ChoicesThatDifferInLetterCaseAreToldApart)
{
    m_stated.materials = {"Steel", "STEEL"};
    EXPECT_EQ(Type(Field(Kind::Material), "STEEL"), "");
    EXPECT_EQ(Text(Field(Kind::Material)), "STEEL");
}

TEST_F(WBEditsTest, MaterialThatCannotBeChosenAnyMoreIsShownAsItIsCalled)
{
    StateAs(kPart, "", "material", "2024.50");
    EXPECT_EQ(Text(Field(Kind::Material)), "2024.50");
}

TEST_F(WBEditsTest, PrecisionOfTheSameKindKeepsItsNumbers)
{
    Type(Field(Kind::LowerPrecision, "Estimated"), "7");
    EXPECT_EQ(Type(Field(Kind::PrecisionKind, "Estimated"), "IN PERCENT"), "");
    EXPECT_EQ(Text(Field(Kind::LowerPrecision, "Estimated")), "7 %");
    Type(Field(Kind::UpperPrecision, "Estimated"), "");
    EXPECT_EQ(Text(Field(Kind::PrecisionKind, "Estimated")), "in percent") << "one number is left";
}

TEST_F(WBEditsTest, ObjectThatIsTheOneAlreadyIsNoStep)
{
    EXPECT_EQ(Type(Field(Kind::AppliedOn), "the part, wherever it is used"), "");
    EXPECT_EQ(Edits().Undo(), std::nullopt);
    Edits().UndoAll(); // harmless
    EXPECT_FALSE(Edits().HasEdits());
}

TEST_F(WBEditsTest, OtherObjectTakesWhatItCanHaveAndNothingElseMoves)
{
    std::erase_if(m_stated.quantities, [](const WBStatedQuantity& quantity) {
        return quantity.owner == kUse && quantity.name == "material";
    });
    Type(Field(Kind::Mass, "Weighed"), "5");
    Type(Field(Kind::Density), "2700");
    Type(Field(Kind::Material), "Aluminium");
    EXPECT_EQ(Type(Field(Kind::AppliedOn), "this instance alone"), "");
    EXPECT_EQ(Lines(), "2|PartRef|Weighed|mass|1|__null__|PartInst|__null__|density|1|__null__|");
    EXPECT_EQ(Text(Field(Kind::Mass, "Weighed")), "5 kg");
}

TEST_F(WBEditsTest, GermansReadEverySentenceInGerman)
{
    CATMsgCatalog::SetLanguage("de");
    EXPECT_EQ(Type(Field(Kind::Mass, "Computed"), "1"),
              "Dieser Wert kann hier nicht geändert werden.");
    EXPECT_EQ(Type(Field(Kind::Material), "Holz"), "„Holz“ ist kein Werkstoff der Datenbank.");
    EXPECT_EQ(Type(Field(Kind::AppliedOn), "x"), "„x“ steht nicht zur Wahl.");
    EXPECT_THAT(Edits().Choices(Field(Kind::AppliedOn)),
                ElementsAre("das Teil, wo immer es verwendet wird", "diese Instanz allein"));
    EXPECT_THAT(Edits().Choices(Field(Kind::DensityOrder)),
                ElementsAre("", "die für das Teil angegebene Dichte", "die Dichte des Werkstoffs"));
    EXPECT_THAT(Edits().Choices(PropertyField(5)), ElementsAre("", "ja", "nein"));
    EXPECT_EQ(Type(Field(Kind::LowerPrecision, "Estimated"), "-1"),
              "Eine Genauigkeit sagt, wie weit die Masse abweichen kann; sie kann nicht negativ "
              "sein.");
    EXPECT_EQ(Type(Field(Kind::Density), "0"),
              "Eine Dichte ist größer als 0; ist sie nicht bekannt, bleibt das Feld leer.");
    EXPECT_EQ(Type(PropertyField(1), "~"),
              "„~“ kann nicht gespeichert werden: Es ist oder enthält einen Text mit eigener "
              "Bedeutung, etwa |.");
    EXPECT_EQ(Type(PropertyField(2), "x"),
              "„x“ ist kein Datum; erwartet wird eines wie 2026/07/01.");
    EXPECT_EQ(Type(PropertyField(3), "x"), "„x“ ist keine ganze Zahl; erwartet wird eine wie 12.");
    EXPECT_EQ(Type(PropertyField(4), "x"), "„x“ ist keine Zahl; erwartet wird eine wie 12.5.");
    EXPECT_EQ(Type(PropertyField(6), "x"),
              "„x“ ist kein Wert in mm; erwartet wird eine Zahl wie 12.5 mm.");
    EXPECT_EQ(Edits().Tooltip(Field(Kind::Mass, "Computed")),
              "Computed ergibt sich aus dem, was darunter liegt; es wird nicht eingegeben.");
}

TEST_F(WBEditsTest, InstanceThatThePDMKnowsSaysWhoseMaterialItIsInGermanToo)
{
    record->SetHasInstInENOVIA(true);
    CATMsgCatalog::SetLanguage("de");
    EXPECT_EQ(Edits().Tooltip(Field(Kind::AppliedOn)),
              "Dichte und Werkstoff dieser Instanz sind die ihres Teils.");
}

TEST_F(WBEditsTest, BlanksCountInTextsAlone)
{
    StateAs(kPart, "", "property Vendor", "Smith & Co");
    StateAs(kPart, "", "property Reach", "1500.2512345");
    EXPECT_EQ(Type(PropertyField(6), "1500.251"), "");
    EXPECT_FALSE(Edits().HasEdits()) << "as it is shown, so that nothing changed";
    EXPECT_EQ(Type(PropertyField(1), "Smith&Co"), "");
    EXPECT_EQ(Text(PropertyField(1)), "Smith&Co");
}

TEST_F(WBEditsTest, TextOfDigitsIsNoNumber)
{
    StateAs(kPart, "", "property Vendor", "007.50");
    EXPECT_EQ(Text(PropertyField(1)), "007.50");
}

TEST_F(WBEditsTest, PartAndUseMayHavePropertiesOfOneName)
{
    std::string stream = WingStream();
    stream.replace(stream.find("7|Vendor|"), 2, "8|");
    record = RecordOf(stream + "Vendor|1|0|Instance|Jones|__null__|");
    m_stated.quantities.push_back(Stated(kUse, "", "property Vendor", "Jones"));
    EXPECT_EQ(Type(PropertyField(8), "Miller"), "");
    CATUnicodeString value;
    record->GetPropertyValue(8, value);
    EXPECT_EQ(value, "Miller");
    record->GetPropertyValue(1, value);
    EXPECT_EQ(value, "Smith");
}

TEST_F(WBEditsTest, AnswerThatWasTakenBackIsTheOldOne)
{
    EXPECT_EQ(Type(PropertyField(5), "yes"), "");
    EXPECT_EQ(Type(PropertyField(5), "no"), "");
    EXPECT_FALSE(Edits().HasEdits());
}
