#include "WBCriterion.h"
#include "PanelSession.h"

namespace
{

using testing::HasSubstr;

class WBCriterionValueTest : public PanelSession
{
protected:
    static std::string Read(const char* typed, const char* magnitude)
    {
        const WBTypedValue value = WBReadTypedValue(typed, magnitude);
        EXPECT_TRUE(value.problem.IsEmpty()) << value.problem.Text();
        return value.value.ToStdString();
    }
    static std::string Problem(const char* typed, const char* magnitude)
    {
        const WBTypedValue value = WBReadTypedValue(typed, magnitude);
        EXPECT_TRUE(value.value.IsEmpty()) << value.value.Text();
        return value.problem.ToStdString();
    }
    static bool Meets(const char* text, WBComparison comparison, const char* value,
                      const char* magnitude)
    {
        const WBCriterion criterion{"A", comparison, value, magnitude};
        EXPECT_TRUE(WBIsReadable(criterion)) << value;
        return WBCriterionTest(criterion).Meets(text);
    }
};
constexpr const char* kText = "";

} // namespace

TEST_F(WBCriterionValueTest, TextsAreTakenWithoutTheBlanksAroundThem)
{
    EXPECT_EQ(Read("  Al 2024 ", kText), "Al 2024");
    EXPECT_EQ(Problem("  ", kText), "There is no value. Type one.");
}

TEST_F(WBCriterionValueTest, NumbersAreTakenInTheCurrentUnitOrInTheOneThatIsTyped)
{
    EXPECT_EQ(Read("12.5", "MASS"), "12.5 kg");
    EXPECT_EQ(Read("12,5", "MASS"), "12.5 kg");
    EXPECT_EQ(Read(" +12.5lb ", "MASS"), "12.5 lb");
    EXPECT_EQ(Read("-3 pounds", "MASS"), "-3 lb");
    EXPECT_EQ(Read("2e-3 kg.m2", "INERTIAMOMENT"), "0.002 kg.m2");
    EXPECT_EQ(Read("2,5e3 mm", "LENGTH"), "2500 mm");
    ShowIn("MASS", "lb");
    EXPECT_EQ(Read("12.5", "MASS"), "12.5 lb");
    EXPECT_EQ(Read("12.5 kg", "MASS"), "12.5 kg");
}

TEST_F(WBCriterionValueTest, DecimalCommaIsReadInASessionThatWritesOne)
{
    CATUseNumberLocale("de_DE.UTF-8");
    EXPECT_EQ(Read("12,5 lb", "MASS"), "12.5 lb");
    EXPECT_EQ(Read("12.5 lb", "MASS"), "12.5 lb");
    EXPECT_EQ(WBShownValue({"A", WBComparison::Less, "12.5 lb", "MASS"}), "12,5 lb");
    EXPECT_EQ(WBShownValue({"A", WBComparison::Less, "12.5", kWBPlainNumber}), "12,5");
    EXPECT_EQ(WBTypedForm("12.5", kWBPlainNumber), "12,5");
}

TEST_F(WBCriterionValueTest, WhatIsNoNumberOfTheMagnitudeIsRefusedWithWhatIsExpected)
{
    for (const char* typed : {"heavy", "12 mm", "1.2.3", "1,234.5", "12 kg kg", "--3", "+-3", "inf",
                              "nan", "kg", "0x10", "1e999", "1e308 t", "3 +"}) {
        const std::string problem = Problem(typed, "MASS");
        EXPECT_THAT(problem, HasSubstr("\"" + std::string(typed) + "\" cannot be read"));
        EXPECT_THAT(problem,
                    HasSubstr("in kg, or with one of the units kg, mg, g, t, oz, lb, slug."));
    }
}

TEST_F(WBCriterionValueTest, NumbersWithoutMagnitudeHaveNoUnit)
{
    EXPECT_EQ(Read("1,5", kWBPlainNumber), "1.5");
    EXPECT_EQ(Problem("1.5 kg", kWBPlainNumber),
              "\"1.5 kg\" is no number. Expected a number such as 12.5 or 12,5.");
    EXPECT_THAT(Problem("many", kWBPlainNumber), HasSubstr("\"many\" is no number"));
}

TEST_F(WBCriterionValueTest, DatesAreTakenWithTheYearFirstOrWithPoints)
{
    for (const char* typed :
         {"2026/11/02", "2026-11-02", " 2026/11/2 ", "2.11.2026", "02.11.2026"}) {
        EXPECT_EQ(Read(typed, kWBDate), "2026/11/02") << typed;
    }
}

TEST_F(WBCriterionValueTest, DatesThatTheCalendarDoesNotKnowAreRefused)
{
    for (const char* typed :
         {"2026/06/31", "2026/13/01", "31.6.2026", "11/21/2026", "2026/11", "2026/11/21/1",
          "2026-11/21", "tomorrow", "0/1/1", "-2026/11/21", "2026/11/21 10:00", "12026/11/21"}) {
        EXPECT_THAT(
            Problem(typed, kWBDate),
            HasSubstr("\"" + std::string(typed) + "\" is no date. Expected year, month and day"));
    }
}

TEST_F(WBCriterionValueTest, YesAndNoAreTakenInEnglishAndInTheUsersLanguage)
{
    EXPECT_EQ(Read(" YES", kWBYesNo), "yes");
    EXPECT_EQ(Read("no", kWBYesNo), "no");
    EXPECT_EQ(Problem("perhaps", kWBYesNo), "\"perhaps\" cannot be read. Expected yes or no.");
    EXPECT_THAT(Problem("ja", kWBYesNo), HasSubstr("Expected yes or no"));
    CATMsgCatalog::SetLanguage("de");
    EXPECT_EQ(Read("Ja", kWBYesNo), "yes");
    EXPECT_EQ(Read("nein", kWBYesNo), "no");
    EXPECT_EQ(Read("yes", kWBYesNo), "yes");
    EXPECT_EQ(WBShownValue({"A", WBComparison::Is, "yes", kWBYesNo}), "ja");
    EXPECT_EQ(WBShownValue({"A", WBComparison::Is, "no", kWBYesNo}), "nein");
    EXPECT_EQ(WBTypedForm("no", kWBYesNo), "nein");
    EXPECT_EQ(WBTypedForm("yes", kWBYesNo), "ja");
}

TEST_F(WBCriterionValueTest, AttributesReadAsAUserWouldTypeThem)
{
    EXPECT_EQ(WBTypedForm("Steel", kText), "Steel");
    EXPECT_EQ(WBTypedForm("3.4194", "MASS"), "3.419 kg");
    EXPECT_EQ(WBTypedForm("2.5", kWBPlainNumber), "2.5");
    EXPECT_EQ(WBTypedForm("2026/03/02 10:11:12", kWBDate), "2026/03/02");
    EXPECT_EQ(WBTypedForm("yes", kWBYesNo), "yes");
    EXPECT_EQ(WBTypedForm("heavy", "MASS"), "");
    EXPECT_EQ(WBTypedForm("soon", kWBDate), "");
    EXPECT_EQ(WBTypedForm("maybe", kWBYesNo), "");
}

TEST_F(WBCriterionValueTest, ShownValuesKeepTheUnitInWhichTheyWereTyped)
{
    ShowIn("MASS", "g");
    EXPECT_EQ(WBShownValue({"A", WBComparison::Less, "12.5 lb", "MASS"}), "12.5 lb");
    EXPECT_EQ(WBShownValue({"A", WBComparison::Is, "Al 2024.5", kText}), "Al 2024.5");
    EXPECT_EQ(WBShownValue({"A", WBComparison::Less, "2026/11/21", kWBDate}), "2026/11/21");
    EXPECT_EQ(WBShownValue({"A", WBComparison::Less, "1.5", kWBPlainNumber}), "1.5");
}

TEST_F(WBCriterionValueTest, TextsAreComparedWithoutRegardToLetterCase)
{
    EXPECT_TRUE(Meets("STEEL 4130", WBComparison::Is, "Steel 4130", kText));
    EXPECT_FALSE(Meets("Steel 4130 N", WBComparison::Is, "Steel 4130", kText));
    EXPECT_FALSE(Meets("steel 4130", WBComparison::IsNot, "Steel 4130", kText));
    EXPECT_TRUE(Meets("Steel", WBComparison::IsNot, "Steel 4130", kText));
    EXPECT_TRUE(Meets("Stainless Steel 321", WBComparison::Contains, "steel", kText));
    EXPECT_TRUE(Meets("Müller Süd", WBComparison::Contains, "SÜD", kText));
    EXPECT_FALSE(Meets("Stee", WBComparison::Contains, "steel", kText));
    EXPECT_TRUE(Meets("Steel 4130", WBComparison::BeginsWith, "STEEL", kText));
    EXPECT_FALSE(Meets("Stainless Steel", WBComparison::BeginsWith, "steel", kText));
    EXPECT_FALSE(Meets("Ste", WBComparison::BeginsWith, "steel", kText));
}

TEST_F(WBCriterionValueTest, NumbersAreComparedAcrossUnits)
{
    // 12 lb are 5.44310844 kg.
    EXPECT_TRUE(Meets("5.44", WBComparison::Less, "12 lb", "MASS"));
    EXPECT_FALSE(Meets("5.45", WBComparison::Less, "12 lb", "MASS"));
    EXPECT_TRUE(Meets("5.45", WBComparison::Greater, "12 lb", "MASS"));
    EXPECT_FALSE(Meets("5.44", WBComparison::Greater, "12 lb", "MASS"));
    EXPECT_TRUE(Meets("5.44", WBComparison::AtMost, "12 lb", "MASS"));
    EXPECT_FALSE(Meets("5.45", WBComparison::AtMost, "12 lb", "MASS"));
    EXPECT_TRUE(Meets("5.45", WBComparison::AtLeast, "12 lb", "MASS"));
    EXPECT_FALSE(Meets("5.44", WBComparison::AtLeast, "12 lb", "MASS"));
}

TEST_F(WBCriterionValueTest, NumbersAreEqualWhenTheyReadTheSameInTheUnitOfTheCriterion)
{
    // Kilograms have three decimals: 3.4194 and 3.419 both read 3.419.
    EXPECT_TRUE(Meets("3.4194", WBComparison::Equal, "3.419 kg", "MASS"));
    EXPECT_FALSE(Meets("3.4194", WBComparison::NotEqual, "3.419 kg", "MASS"));
    EXPECT_FALSE(Meets("3.4194", WBComparison::Greater, "3.419 kg", "MASS"));
    EXPECT_TRUE(Meets("3.4194", WBComparison::AtMost, "3.419 kg", "MASS"));
    EXPECT_TRUE(Meets("3.4186", WBComparison::AtLeast, "3.419 kg", "MASS"));
    EXPECT_FALSE(Meets("3.4186", WBComparison::Less, "3.419 kg", "MASS"));
    EXPECT_FALSE(Meets("3.4199", WBComparison::Equal, "3.419 kg", "MASS"));
    EXPECT_TRUE(Meets("3.4199", WBComparison::NotEqual, "3.419 kg", "MASS"));
    // Grams have one decimal: 3419.4 is not 3419.
    EXPECT_FALSE(Meets("3.4194", WBComparison::Equal, "3419 g", "MASS"));
    // What is there is not nothing.
    EXPECT_FALSE(Meets("0.0001", WBComparison::Equal, "0 kg", "MASS"));
    EXPECT_TRUE(Meets("0.0001", WBComparison::Greater, "0 kg", "MASS"));
}

TEST_F(WBCriterionValueTest, PlainNumbersAreComparedExactly)
{
    EXPECT_TRUE(Meets("0.1", WBComparison::Equal, "0.1", kWBPlainNumber));
    EXPECT_FALSE(Meets("0.10001", WBComparison::Equal, "0.1", kWBPlainNumber));
    EXPECT_TRUE(Meets("2", WBComparison::AtMost, "2", kWBPlainNumber));
    EXPECT_TRUE(Meets("-3", WBComparison::Less, "2", kWBPlainNumber));
}

TEST_F(WBCriterionValueTest, DatesAreComparedByTheDay)
{
    const auto meets = [](const char* text, WBComparison comparison) {
        return Meets(text, comparison, "2026/11/21", kWBDate);
    };
    EXPECT_TRUE(meets("2026/11/21", WBComparison::Equal));
    EXPECT_TRUE(meets("2026/11/21 10:11:12", WBComparison::Equal));
    EXPECT_TRUE(meets("2026-11-21", WBComparison::Equal));
    EXPECT_TRUE(meets("2026/11/20", WBComparison::Less));
    EXPECT_FALSE(meets("2026/11/21", WBComparison::Less));
    EXPECT_TRUE(meets("2025/12/31", WBComparison::AtMost));
    EXPECT_TRUE(meets("2026/12/01", WBComparison::Greater));
    EXPECT_FALSE(meets("2026/02/28", WBComparison::Greater));
    EXPECT_TRUE(meets("2027/01/01", WBComparison::AtLeast));
    EXPECT_TRUE(meets("2027/01/01", WBComparison::NotEqual));
    EXPECT_FALSE(meets("2026/11/21", WBComparison::NotEqual));
}

TEST_F(WBCriterionValueTest, YesIsYesAndNotNo)
{
    EXPECT_TRUE(Meets("yes", WBComparison::Is, "yes", kWBYesNo));
    EXPECT_FALSE(Meets("no", WBComparison::Is, "yes", kWBYesNo));
    EXPECT_TRUE(Meets("no", WBComparison::IsNot, "yes", kWBYesNo));
    EXPECT_FALSE(Meets("yes", WBComparison::IsNot, "yes", kWBYesNo));
}

TEST_F(WBCriterionValueTest, TextThatIsNoValueOfTheKindMeetsNothing)
{
    EXPECT_FALSE(Meets("heavy", WBComparison::NotEqual, "3 kg", "MASS"));
    EXPECT_FALSE(Meets("soon", WBComparison::NotEqual, "2026/11/21", kWBDate));
    EXPECT_FALSE(Meets("maybe", WBComparison::IsNot, "yes", kWBYesNo));
}

TEST_F(WBCriterionValueTest, EveryKindHasItsComparisonsByNamesOfTheirOwn)
{
    using testing::ElementsAre;
    const auto namesOf = [](WBValueKind kind) {
        std::vector<std::string> names;
        for (const WBComparison comparison : WBComparisonsOf(kind)) {
            names.emplace_back(WBComparisonName(comparison));
            EXPECT_EQ(WBComparisonNamed(kind, names.back()), comparison);
        }
        return names;
    };
    EXPECT_THAT(namesOf(WBValueKind::Text), ElementsAre("is", "is not", "contains", "begins with"));
    EXPECT_THAT(namesOf(WBValueKind::Number), ElementsAre("=", "!=", "<", "<=", ">", ">="));
    EXPECT_THAT(namesOf(WBValueKind::Date), ElementsAre("=", "!=", "<", "<=", ">", ">="));
    EXPECT_THAT(namesOf(WBValueKind::YesNo), ElementsAre("is", "is not"));
    EXPECT_EQ(WBComparisonNamed(WBValueKind::YesNo, "contains"), std::nullopt);
    EXPECT_EQ(WBComparisonNamed(WBValueKind::Text, "<"), std::nullopt);
    EXPECT_EQ(WBComparisonNamed(WBValueKind::Number, "=="), std::nullopt);
}

TEST_F(WBCriterionValueTest, MagnitudeTellsTheKind)
{
    EXPECT_EQ(WBKindOf(""), WBValueKind::Text);
    EXPECT_EQ(WBKindOf("DATE"), WBValueKind::Date);
    EXPECT_EQ(WBKindOf("YESNO"), WBValueKind::YesNo);
    EXPECT_EQ(WBKindOf("NUMBER"), WBValueKind::Number);
    EXPECT_EQ(WBKindOf("MASS"), WBValueKind::Number);
}

TEST_F(WBCriterionValueTest, CriterionWhosePartsDoNotFitIsNotReadable)
{
    const auto isReadable = [](const char* attribute, WBComparison comparison, const char* value,
                               const char* magnitude) {
        return WBIsReadable({attribute, comparison, value, magnitude});
    };
    EXPECT_TRUE(isReadable("A", WBComparison::Less, "3 kg", "MASS"));
    EXPECT_FALSE(isReadable("", WBComparison::Less, "3 kg", "MASS"));
    EXPECT_FALSE(isReadable("A", WBComparison::Is, "3 kg", "MASS"));
    EXPECT_FALSE(isReadable("A", WBComparison::Less, "3", "MASS"));
    EXPECT_FALSE(isReadable("A", WBComparison::Less, "3 stone", "MASS"));
    EXPECT_FALSE(isReadable("A", WBComparison::Less, "x kg", "MASS"));
    EXPECT_FALSE(isReadable("A", WBComparison::Less, "3 kg", "WEIGHT"));
    EXPECT_FALSE(isReadable("A", WBComparison::Less, "3 kg", kWBPlainNumber));
    EXPECT_FALSE(isReadable("A", WBComparison::Less, "2026/13/01", kWBDate));
    EXPECT_FALSE(isReadable("A", WBComparison::Is, "ja", kWBYesNo));
    EXPECT_FALSE(isReadable("A", WBComparison::Is, "", kText));
    EXPECT_FALSE(isReadable("A", WBComparison::Less, "text", kText));
    EXPECT_TRUE(isReadable("A", WBComparison::Is, "text", kText));
    EXPECT_TRUE(isReadable("A", WBComparison::Is, "no", kWBYesNo));
}
