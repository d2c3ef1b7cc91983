#include "MethodsTesting.h"

#include "SqlConnection.h"
#include "WBCompute.h"
#include "WBProductGraph.h"

#include <algorithm>
#include <string>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
constexpr const char* kColumns =
    "parent,instance,part,type,standard,quantity,x [mm],y [mm],z [mm],mass_type,values_on,active,"
    "mass [kg],material,material_density [kg/m3],volume [m3],code,p:Note\n";

/// A root R of an assembly ASM, weighed as a whole, and of a part Q; ASM holds two parts P.
class OutdatedSets : public testing::Test
{
protected:
    OutdatedSets()
    {
        Import(",,R,,,,,,,,,,,,,,,\n"
               "R,asm,ASM,,,,,,,Weighed,,yes,10,,,,,\n"
               "R,q,Q,,,,,,,Weighed,,,1,,,,,\n"
               "ASM,p,P,,,2,1,2,3,Estimated,,,4,,,,,\n");
    }

    void Import(const std::string& rows) { served.ImportTable(kColumns + rows); }

    /// The lines that tell of values which are older than a change below them.
    std::vector<std::string> Outdated()
    {
        const auto root = served.Store().FindRoot("R");
        const wb::ProductGraph graph(served.Store().ReadProduct(root->id),
                                     served.Store().MassTypes());
        std::vector<std::string> lines;
        for (const std::string& line : wb::Compute(graph, {0, {}}, {}).warnings) {
            if (line.find("older than") != std::string::npos) {
                lines.push_back(line);
            }
        }
        return lines;
    }

    wbtest::ServedProduct served;
    const std::string asmLine = "ASM A has values that are older than a change below it";
};

TEST_F(OutdatedSets, ValuesThatCameWithWhatIsBelowAreNotOlder)
{
    EXPECT_THAT(Outdated(), IsEmpty());
}

TEST_F(OutdatedSets, ChangedMassBelowMakesThemOlderUntilTheyAreStatedAnew)
{
    Import(",,P,,,,,,,Estimated,,,5,,,,,\n");
    EXPECT_THAT(Outdated(), ElementsAre(asmLine));
    Import(",,ASM,,,,,,,Weighed,,,10,,,,,\n"); // the same as before
    EXPECT_THAT(Outdated(), ElementsAre(asmLine));
    Import(",,ASM,,,,,,,Weighed,,,11,,,,,\n");
    EXPECT_THAT(Outdated(), IsEmpty());
    Import(",,P,,,,,,,Weighed,,,6,,,,,\n");
    EXPECT_THAT(Outdated(), ElementsAre(asmLine));
}

TEST_F(OutdatedSets, ValuesStatedTogetherWithTheChangeAreNotOlder)
{
    Import(",,P,,,,,,,Estimated,,,5,,,,,\n,,ASM,,,,,,,Weighed,,,11,,,,,\n");
    EXPECT_THAT(Outdated(), IsEmpty());
}

TEST_F(OutdatedSets, OneStatedAnewLeavesTheOtherSetOfItsAssemblyOlder)
{
    Import(",,ASM,,,,,,,Supplier,,,9,,,,,\n");
    Import(",,P,,,,,,,Estimated,,,5,,,,,\n,,ASM,,,,,,,Supplier,,,12,,,,,\n");
    EXPECT_THAT(Outdated(), ElementsAre(asmLine)); // the weighed ones are active
    Import(",,ASM,,,,,,,Supplier,,yes,,,,,,\n");
    EXPECT_THAT(Outdated(), IsEmpty());
}

TEST_F(OutdatedSets, PlacesQuantitiesAndFurtherPartsAreChangesBelow)
{
    int mass = 20;
    for (const char* row : {"ASM,p,P,,,2,1,2,4,,,,,,,,,\n", "ASM,p,P,,,3,,,,,,,,,,,,\n",
                            "ASM,more,Q,,,,,,,,,,,,,,,\n"}) {
        Import(row);
        EXPECT_THAT(Outdated(), ElementsAre(asmLine)) << row;
        Import(",,ASM,,,,,,,Weighed,,," + std::to_string(++mass) + ",,,,,\n");
        EXPECT_THAT(Outdated(), IsEmpty()) << row;
    }
}

TEST_F(OutdatedSets, PartThatIsTakenOutIsAChangeBelow)
{
    Import("ASM,more,Q,,,,,,,,,,,,,,,\n,,ASM,,,,,,,Weighed,,,12,,,,,\n");
    const std::string path = served.Folder().Write(
        "r.csv", std::string(kColumns) + ",,R,,,,,,,,,,,,,,,\nR,asm,ASM,,,,,,,,,,,,,,,\n"
                                         "R,q,Q,,,,,,,,,,,,,,,\nASM,p,P,,,,,,,,,,,,,,,\n");
    wb::ImportFileOptions options;
    options.user = "kim";
    options.replace = "R";
    EXPECT_THAT(wb::ImportFile(served.Store(), path, options).errors, IsEmpty());
    EXPECT_THAT(Outdated(), ElementsAre(asmLine));
}

TEST_F(OutdatedSets, ValuesOfAUseAreOlderTooAndGoWithTheUse)
{
    Import("R,asm,ASM,,,,,,,Weighed,instance,yes,10.5,,,,,\n");
    EXPECT_THAT(Outdated(), IsEmpty());
    Import(",,P,,,,,,,Estimated,,,5,,,,,\n");
    EXPECT_THAT(Outdated(), ElementsAre(asmLine));
    Import("R,asm,ASM,,,,,,,Weighed,instance,,11,,,,,\n");
    EXPECT_THAT(Outdated(), IsEmpty());
}

TEST_F(OutdatedSets, DensityOfAMaterialBelowIsAChangeBelow)
{
    Import("ASM,s,S,,,,,,,Calculated,,,,Foam,,0.001,,\n,,ASM,,,,,,,Weighed,,,13,,,,,\n");
    EXPECT_THAT(Outdated(), IsEmpty());
    Import(",,S,,,,,,,,,,,Foam,100,,,\n");
    EXPECT_THAT(Outdated(), ElementsAre(asmLine));
}

TEST_F(OutdatedSets, WhatStandsBesideOrSaysNothingOfMassMakesNothingOlder)
{
    Import(",,Q,,,,,,,Weighed,,,2,,,,,\n"); // beside the assembly
    Import(",,P,,,,,,,,,,,,,,,checked\n");  // a property
    Import(",,ASM,,,,,,,,,,,,,,BODY,\n");   // its own code
    const std::string types =
        served.Folder().Write("m.csv", "mass_type,order,kind,category,lower_pct [%],upper_pct [%]\n"
                                       "Estimated,10,claim,estimated,11,22\n");
    EXPECT_THAT(wb::ImportMassTypes(served.Store(), types, "kim"), IsEmpty());
    EXPECT_THAT(Outdated(), IsEmpty());
}

TEST_F(OutdatedSets, StandardAssemblyIsNeverOlder)
{
    Import(",,ASM,,yes,,,,,,,,,,,,,\n");
    Import(",,P,,,,,,,Estimated,,,5,,,,,\n");
    EXPECT_THAT(Outdated(), IsEmpty());
}

TEST_F(OutdatedSets, SpeakAfterTheFilterAndBeforeTheDifference)
{
    Import(",,P,,,,,,,Estimated,,,50,,,,,\n");
    const auto root = served.Store().FindRoot("R");
    const wb::ProductGraph graph(served.Store().ReadProduct(root->id), served.Store().MassTypes());
    const std::vector<std::string> warnings = wb::Compute(graph, {0, {}}, {}).warnings;
    const auto at = std::ranges::find(warnings, asmLine);
    ASSERT_NE(at, warnings.end());
    ASSERT_NE(at + 1, warnings.end());
    EXPECT_EQ(*(at + 1), "ASM A states 10 kg, below it stand 100 kg");
}

TEST_F(OutdatedSets, FileThatKeepsNoListIsReadAndWrittenAllTheSame)
{
    {
        wbtest::SqlConnection sql(served.Folder().File("x.db"));
        sql.Run("DROP TABLE outdated_set");
    }
    Import(",,P,,,,,,,Estimated,,,5,,,,,\n");
    EXPECT_THAT(Outdated(), IsEmpty());
}
} // namespace
