#include "ReportUnits.h"

#include "CATIXMLDOMDocumentBuilder.h"
#include "ShippedUnits.h"

#include <gmock/gmock.h>

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace
{

using Values = CATWBReportConversion::Values;

class ReportUnits : public testing::Test
{
protected:
    static std::string Current(const char* magnitude)
    {
        return CATCkeGlobalFunctions::GetParmDictionary()
            ->FindMagnitude(magnitude)
            ->CurrentUnit()
            ->Symbol()
            .ToStdString();
    }
    static void Use(const std::string& choices)
    {
        std::string problem;
        EXPECT_TRUE(UseReportUnits(choices, problem)) << problem;
    }
    static std::string Refusal(const std::string& choices)
    {
        std::string problem;
        EXPECT_FALSE(UseReportUnits(choices, problem)) << choices;
        return problem;
    }
    static std::vector<std::string> Warnings(const std::string& text, Values values)
    {
        CATIDOMDocument_var document;
        CATXMLProblem problem;
        EXPECT_EQ(CreateCATIXMLDOMDocumentBuilder()->ParseText(text, document, problem), 0);
        return UnitWarnings(document, values);
    }

    ShippedUnits shipped;
};

CATWBReportConversion ReferenceTo(Values values, bool keepAtCentre = false)
{
    CATWBReportConversion conversion;
    conversion.values = values;
    conversion.reference = CATMathPoint(1, 2, 3);
    conversion.keepInertiaAtCentre = keepAtCentre;
    return conversion;
}

} // namespace

TEST_F(ReportUnits, ChosenUnitsAreCurrentAndNotKept)
{
    Use("MASS=lb,LENGTH=in");
    EXPECT_EQ(Current("MASS"), "lb");
    EXPECT_EQ(Current("LENGTH"), "in");
    EXPECT_EQ(Current("VOLUME"), "m3");
    EXPECT_EQ(shipped.Settings().FileCount(), 0U);
}

TEST_F(ReportUnits, MagnitudesAndNamesOfUnitsAreTakenAsPeopleTypeThem)
{
    Use(" mass = pounds , Length=Inch");
    EXPECT_EQ(Current("MASS"), "lb");
    EXPECT_EQ(Current("LENGTH"), "in");
}

TEST_F(ReportUnits, UnknownMagnitudeListsThoseThatThereAre)
{
    EXPECT_THAT(Refusal("MASS=lb,WEIGHT=lb"),
                StartsWith("--units: expected a magnitude, found \"WEIGHT\"; there are LENGTH, "
                           "MASS, INERTIAMOMENT, DENSITY, SURFACICMASS, VOLUME, "));
}

TEST_F(ReportUnits, UnknownUnitListsThoseOfItsMagnitude)
{
    EXPECT_EQ(Refusal("MASS=in"), "--units: expected a unit of MASS, found \"in\"; there are kg, "
                                  "mg, g, t, oz, lb, slug");
    EXPECT_THAT(Refusal("MASS="), HasSubstr("found \"\"; there are kg"));
}

TEST_F(ReportUnits, ChoiceWithoutASignIsNamed)
{
    EXPECT_EQ(Refusal("MASS=lb,in"), "--units: expected MAGNITUDE=UNIT, found \"in\"");
    EXPECT_EQ(Refusal(""), "--units: expected MAGNITUDE=UNIT, found \"\"");
    EXPECT_EQ(Refusal("MASS=lb,"), "--units: expected MAGNITUDE=UNIT, found \"\"");
}

TEST_F(ReportUnits, MagnitudeIsNamedOnce)
{
    EXPECT_EQ(Refusal("MASS=lb,mass=kg"),
              "--units: expected each magnitude once, found MASS twice");
}

TEST_F(ReportUnits, StoredValuesTakeAReferencePointInAnyUnits)
{
    Use("MASS=lb,LENGTH=in,INERTIAMOMENT=lb.in2");
    EXPECT_THAT(ReferenceProblem(ReferenceTo(Values::Stored)), IsEmpty());
}

TEST_F(ReportUnits, CurrentValuesTakeAReferencePointInStorageUnits)
{
    EXPECT_THAT(ReferenceProblem(ReferenceTo(Values::Current)), IsEmpty());
    for (const auto& [choice, sentence] :
         {std::pair("LENGTH=in", "values of LENGTH in mm, found the current unit in"),
          {"LENGTH=mm,MASS=lb", "values of MASS in kg, found the current unit lb"},
          {"MASS=kg,INERTIAMOMENT=kg.mm2",
           "values of INERTIAMOMENT in kg.m2, found the current unit kg.mm2"}}) {
        Use(choice);
        EXPECT_THAT(
            ReferenceProblem(ReferenceTo(Values::Current)),
            AllOf(StartsWith("--reference beside --display: expected "), HasSubstr(sentence)));
    }
}

TEST_F(ReportUnits, CentresAloneNeedOnlyTheirLength)
{
    Use("MASS=lb,INERTIAMOMENT=lb.in2");
    EXPECT_THAT(ReferenceProblem(ReferenceTo(Values::Current, true)), IsEmpty());
    Use("LENGTH=in");
    EXPECT_THAT(ReferenceProblem(ReferenceTo(Values::Current, true)), HasSubstr("LENGTH"));
}

TEST_F(ReportUnits, DisplayWithoutAReferencePointNeedsNoUnits)
{
    Use("LENGTH=in");
    CATWBReportConversion conversion;
    conversion.values = Values::Current;
    EXPECT_THAT(ReferenceProblem(conversion), IsEmpty());
}

TEST_F(ReportUnits, ReportThatWasConvertedBeforeIsSaid)
{
    EXPECT_THAT(Warnings(R"(<R LengthUnit="in" MassUnit="kg" VolumeUnit="L"/>)", Values::Stored),
                ElementsAre("the report says LengthUnit=\"in\", but its numbers are taken as mm; "
                            "--display shows a report anew that was converted before",
                            "the report says VolumeUnit=\"L\", but its numbers are taken as m3; "
                            "--display shows a report anew that was converted before"));
}

TEST_F(ReportUnits, ReportThatWasNeverConvertedIsNotShownInOtherUnitsUnsaid)
{
    EXPECT_THAT(Warnings("<R/>", Values::Current), IsEmpty());
    Use("LENGTH=in,VOLUME=L");
    EXPECT_THAT(Warnings("<R/>", Values::Current),
                ElementsAre("the report names no units, as one that was never converted; --display "
                            "takes its numbers as they stand: LENGTH in in, VOLUME in L"));
    EXPECT_THAT(Warnings("<R/>", Values::Stored), IsEmpty());
    EXPECT_THAT(Warnings(R"(<R LengthUnit="in"/>)", Values::Current), IsEmpty());
}

TEST_F(ReportUnits, ReportInOtherUnitsThanItIsShownInIsSaid)
{
    Use("LENGTH=in");
    EXPECT_THAT(
        Warnings(R"(<R LengthUnit="in" MassUnit="lb" InertiaMomentUnit="g.mm2" )"
                 R"(DensityUnit="g/cm3" SurfacicDensityUnit="g/m2"/>)",
                 Values::Current),
        ElementsAre("the report says MassUnit=\"lb\", but its numbers are taken as kg; --units "
                    "MASS=lb takes them as the report says",
                    HasSubstr("--units INERTIAMOMENT=g.mm2 "), HasSubstr("--units DENSITY=g/cm3 "),
                    HasSubstr("--units SURFACICMASS=g/m2 ")));
}

TEST_F(ReportUnits, StatisticsThatStayInStorageUnitsAreSaid)
{
    const std::string said = "its MaterialStat and MassTypeStat stay in kg, kg/m3 and kg/m2";
    const std::string materials = "<R><MaterialStat Mass='1'/></R>";
    EXPECT_THAT(Warnings(materials, Values::Stored), IsEmpty());
    Use("LENGTH=in");
    EXPECT_THAT(Warnings(materials, Values::Stored), IsEmpty());
    Use("DENSITY=g/cm3");
    EXPECT_THAT(Warnings(materials, Values::Stored), ElementsAre(said));
    EXPECT_THAT(Warnings("<R><MassTypeStat Mass='1'/></R>", Values::Stored), ElementsAre(said));
    EXPECT_THAT(Warnings("<R MassUnit='kg'/>", Values::Stored), IsEmpty());
}

TEST_F(ReportUnits, ReportOfTheServerNamesNoUnits)
{
    EXPECT_THAT(Warnings("<R/>", Values::Stored), IsEmpty());
    EXPECT_THAT(Warnings("<R/>", Values::Current), IsEmpty());
}
