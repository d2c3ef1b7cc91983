#include "WBPreviewColumns.h"

#include <gmock/gmock.h>

#include <array>
#include <string>
#include <vector>

namespace
{

using Names = std::vector<std::string>;
using testing::ElementsAre;

CATListValCATUnicodeString ListOf(const Names& names)
{
    CATListValCATUnicodeString list;
    for (const std::string& name : names) {
        list.Append(name);
    }
    return list;
}

Names TextsOf(const CATListValCATUnicodeString& list)
{
    Names texts;
    for (const CATUnicodeString& text : list.Items()) {
        texts.push_back(text.ToStdString());
    }
    return texts;
}

using Rule = WBPreviewColumns (*)(const CATListValCATUnicodeString& names);

WBPreviewColumns ReportInstanceColumnsWithDate(const CATListValCATUnicodeString& names)
{
    return ReportInstanceColumns(names, false);
}

Names Columns(Rule rule, const Names& names)
{
    return TextsOf(rule(ListOf(names)).Names());
}

constexpr std::array<Rule, 5> kAllRules{&ReportInstanceColumnsWithDate, &ReportRootColumns,
                                        &DistributiveRootColumns, &DistributiveSectionColumns,
                                        &DistributiveInstanceColumns};
/// Those whose identifiers come before the mass at the front of the list.
constexpr std::array<Rule, 3> kIdentifiersFirst{&ReportInstanceColumnsWithDate, &ReportRootColumns,
                                                &DistributiveRootColumns};
constexpr std::array kOtherIdentifiers{"WBLastImposedMassTypeID", "WBActiveMassTypeID",
                                       "WBActiveDocumentID"};

// The list of columns

TEST(WBPreviewColumns, AColumnGoesBeforeTheOneAtItsPosition)
{
    WBPreviewColumns columns;
    columns.Append("a");
    columns.Append("b");
    columns.Insert("c", 1);
    columns.Insert("d", 3);
    EXPECT_THAT(TextsOf(columns.Names()), ElementsAre("c", "a", "d", "b"));
}

TEST(WBPreviewColumns, AColumnBeyondTheEndIsAppended)
{
    WBPreviewColumns columns;
    columns.Insert("a", 2);
    columns.Insert("b", 7);
    EXPECT_THAT(TextsOf(columns.Names()), ElementsAre("a", "b"));
}

TEST(WBPreviewColumns, TitlesHaveBlanksForUnderscoresAndAFirstOneOfTheirOwn)
{
    WBPreviewColumns columns;
    columns.Append("WB_Lower_deviation");
    columns.Append("_COGx_");
    columns.Append("Name");
    EXPECT_THAT(TextsOf(columns.Titles("Sr_No")),
                ElementsAre("Sr_No", "WB Lower deviation", " COGx ", "Name"));
    EXPECT_THAT(TextsOf(columns.Names()), ElementsAre("WB_Lower_deviation", "_COGx_", "Name"));
}

TEST(WBPreviewColumns, ANoColumnsListHasItsFirstTitleAlone)
{
    EXPECT_THAT(TextsOf(WBPreviewColumns().Titles("")), ElementsAre(""));
}

// What all rules have in common

TEST(WBPreviewColumns, NoNamesGiveNoColumns)
{
    for (const Rule rule : kAllRules) {
        EXPECT_THAT(Columns(rule, {}), ElementsAre());
    }
}

TEST(WBPreviewColumns, OtherAttributesKeepTheOrderInWhichTheyWereMet)
{
    for (const Rule rule : kAllRules) {
        EXPECT_THAT(Columns(rule, {"COGz", "Code", "COGx", "WB_Status"}),
                    ElementsAre("COGz", "Code", "COGx", "WB_Status"));
    }
}

TEST(WBPreviewColumns, IdentifiersAreKnownByTheirLettersInAnyCase)
{
    for (const char* name : {"Part_ID", "Liquid", "PartId", "xiDx"}) {
        for (const Rule rule : kIdentifiersFirst) {
            EXPECT_THAT(Columns(rule, {"Code", name}), ElementsAre(name, "Code"));
        }
        EXPECT_THAT(Columns(&DistributiveSectionColumns, {"Code", "COGx", name}),
                    ElementsAre("Code", name, "COGx"));
        EXPECT_THAT(Columns(&DistributiveInstanceColumns, {"Code", "COGx", name}),
                    ElementsAre("Code", name, "COGx"));
    }
}

TEST(WBPreviewColumns, TheLettersApartAreNoIdentifier)
{
    EXPECT_THAT(Columns(&ReportRootColumns, {"Code", "I_D"}), ElementsAre("Code", "I_D"));
}

TEST(WBPreviewColumns, TheMassIsKnownInAnyLetterCase)
{
    for (const Rule rule : kIdentifiersFirst) {
        EXPECT_THAT(Columns(rule, {"Code", "wb_MASS"}), ElementsAre("wb_MASS", "Code"));
    }
    EXPECT_THAT(Columns(&DistributiveSectionColumns, {"Code", "COGx", "wb_MASS"}),
                ElementsAre("Code", "wb_MASS", "COGx"));
    EXPECT_THAT(Columns(&DistributiveInstanceColumns, {"Code", "wb_MASS"}),
                ElementsAre("wb_MASS", "Code"));
}

TEST(WBPreviewColumns, AnAttributeThatOnlyBeginsLikeTheMassIsNone)
{
    for (const Rule rule : kAllRules) {
        EXPECT_THAT(Columns(rule, {"Code", "COGx", "WB_Mass_Details"}),
                    ElementsAre("Code", "COGx", "WB_Mass_Details"));
    }
}

// Reports, and the root of a distributive one

TEST(WBPreviewColumns, IdentifiersStandInReverseOrderBeforeTheMass)
{
    for (const Rule rule : kIdentifiersFirst) {
        EXPECT_THAT(
            Columns(rule, {"Part_ID", "Name", "WB_Mass", "COGx", "Instance_ID", "Quantity"}),
            ElementsAre("Instance_ID", "Part_ID", "WB_Mass", "Name", "COGx", "Quantity"));
    }
}

TEST(WBPreviewColumns, TheMassStandsBehindTheIdentifiersFoundBeforeIt)
{
    for (const Rule rule : kIdentifiersFirst) {
        EXPECT_THAT(Columns(rule, {"A_ID", "B_ID", "Name", "WB_Mass"}),
                    ElementsAre("B_ID", "A_ID", "WB_Mass", "Name"));
    }
}

TEST(WBPreviewColumns, IdentifiersOfDocumentsAndMassTypesIdentifyNoInstanceOfAReport)
{
    for (const Rule rule : {&ReportInstanceColumnsWithDate, &DistributiveRootColumns}) {
        for (const char* other : kOtherIdentifiers) {
            EXPECT_THAT(Columns(rule, {"Name", other, "Part_ID"}),
                        ElementsAre("Part_ID", "Name", other));
        }
        EXPECT_THAT(Columns(rule, {"Name", "wbactivedocumentid"}),
                    ElementsAre("Name", "wbactivedocumentid"));
    }
}

TEST(WBPreviewColumns, IdentifiersOfDocumentsAndMassTypesDoIdentifyTheRootOfAReport)
{
    for (const char* other : kOtherIdentifiers) {
        EXPECT_THAT(Columns(&ReportRootColumns, {"PRC_ID", "Name", other, "WB_Mass"}),
                    ElementsAre(other, "PRC_ID", "WB_Mass", "Name"));
    }
}

TEST(WBPreviewColumns, TheDateOfTheComputationIsLeftOutWhenItIsNotWanted)
{
    const CATListValCATUnicodeString names =
        ListOf({"WB_Last_calculation_date", "Name", "wb_last_Calculation_date"});
    EXPECT_THAT(TextsOf(ReportInstanceColumns(names, true).Names()), ElementsAre("Name"));
    EXPECT_THAT(TextsOf(ReportInstanceColumns(names, false).Names()),
                ElementsAre("WB_Last_calculation_date", "Name", "wb_last_Calculation_date"));
}

TEST(WBPreviewColumns, OnlyTheDateIsTheDate)
{
    EXPECT_TRUE(IsCalculationDate("WB_Last_calculation_date"));
    EXPECT_TRUE(IsCalculationDate("WB_LAST_CALCULATION_DATE"));
    EXPECT_FALSE(IsCalculationDate("WB_Last_calculation_dates"));
    EXPECT_FALSE(IsCalculationDate(""));
}

TEST(WBPreviewColumns, TheNameIsNothingSpecialWhereIdentifiersComeFirst)
{
    for (const Rule rule : kIdentifiersFirst) {
        EXPECT_THAT(Columns(rule, {"Code", "Name"}), ElementsAre("Code", "Name"));
    }
}

// Sections of a distributive report

TEST(WBPreviewColumns, SectionsHaveTheirNameThenTheirMass)
{
    EXPECT_THAT(Columns(&DistributiveSectionColumns, {"COGx", "WB_Mass", "Name", "Quantity"}),
                ElementsAre("Name", "COGx", "WB_Mass", "Quantity"));
    EXPECT_THAT(Columns(&DistributiveSectionColumns, {"Name", "COGx", "WB_Mass", "Quantity"}),
                ElementsAre("Name", "WB_Mass", "COGx", "Quantity"));
}

TEST(WBPreviewColumns, IdentifiersOfSectionsStandBehindTheFirstOfTheRest)
{
    // The count begins at 2; the name and the mass bring it to 4.
    EXPECT_THAT(
        Columns(&DistributiveSectionColumns, {"Name", "WB_Mass", "COGx", "COGy", "A_ID", "B_ID"}),
        ElementsAre("Name", "WB_Mass", "COGx", "B_ID", "A_ID", "COGy"));
}

TEST(WBPreviewColumns, IdentifiersOfSectionsDoNotMoveWhatFollows)
{
    // The count stays at 2: each goes before the one found last.
    EXPECT_THAT(Columns(&DistributiveSectionColumns, {"COGx", "A_ID", "B_ID", "C_ID"}),
                ElementsAre("COGx", "C_ID", "B_ID", "A_ID"));
}

TEST(WBPreviewColumns, AMassThatIsFoundBehindIdentifiersStandsBehindTheFirst)
{
    EXPECT_THAT(Columns(&DistributiveSectionColumns, {"A_ID", "B_ID", "WB_Mass", "C_ID"}),
                ElementsAre("A_ID", "WB_Mass", "C_ID", "B_ID"));
}

TEST(WBPreviewColumns, ANameThatIsFoundLastStandsBeforeAllInSections)
{
    EXPECT_THAT(Columns(&DistributiveSectionColumns, {"COGx", "WB_Mass", "name", "A_ID"}),
                ElementsAre("name", "COGx", "WB_Mass", "A_ID"));
}

TEST(WBPreviewColumns, IdentifiersOfDocumentsAndMassTypesIdentifyNoSection)
{
    for (const char* other : kOtherIdentifiers) {
        EXPECT_THAT(Columns(&DistributiveSectionColumns, {"Name", "COGx", "COGy", other}),
                    ElementsAre("Name", "COGx", "COGy", other));
    }
}

// Part instances of a distributive report

TEST(WBPreviewColumns, DistributedInstancesHaveTheirNameThenIdentifiersThenTheMass)
{
    EXPECT_THAT(Columns(&DistributiveInstanceColumns,
                        {"Name", "A_ID", "COGx", "B_ID", "WB_Mass", "Quantity"}),
                ElementsAre("Name", "B_ID", "A_ID", "WB_Mass", "COGx", "Quantity"));
}

TEST(WBPreviewColumns, DistributedInstancesCountEachNameAndIdentifier)
{
    // Two identifiers and no name count up to 3: the mass goes third.
    EXPECT_THAT(Columns(&DistributiveInstanceColumns, {"COGx", "A_ID", "B_ID", "COGy", "WB_Mass"}),
                ElementsAre("COGx", "B_ID", "WB_Mass", "A_ID", "COGy"));
    // A name alone counts up to 2.
    EXPECT_THAT(Columns(&DistributiveInstanceColumns, {"COGx", "Name", "WB_Mass"}),
                ElementsAre("Name", "WB_Mass", "COGx"));
}

TEST(WBPreviewColumns, AMassThatIsFoundFirstMovesNothingInDistributedInstances)
{
    EXPECT_THAT(Columns(&DistributiveInstanceColumns, {"WB_Mass", "A_ID", "NAME", "B_ID"}),
                ElementsAre("NAME", "B_ID", "WB_Mass", "A_ID"));
}

TEST(WBPreviewColumns, IdentifiersOfDocumentsAndMassTypesDoIdentifyDistributedInstances)
{
    for (const char* other : kOtherIdentifiers) {
        EXPECT_THAT(Columns(&DistributiveInstanceColumns, {"Name", "COGx", other}),
                    ElementsAre("Name", other, "COGx"));
    }
}

TEST(WBPreviewColumns, AnIdentifierWithoutANameBeforeItIsAppendedToAnEmptyList)
{
    EXPECT_THAT(Columns(&DistributiveInstanceColumns, {"A_ID", "Name"}),
                ElementsAre("Name", "A_ID"));
}

} // namespace
