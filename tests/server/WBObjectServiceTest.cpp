#include "MethodsTesting.h"

using testing::ElementsAre;

namespace
{
constexpr const char* kService = "ENOVIA5_GetObjectIdentifier";
constexpr const char* kTree = "parent,instance,part,version,name\n,,A,B,Top\nA,S.1,S,,Sub\n"
                              "S,T.1,T,,Third\nT,P.1,P,C,Bolt\n,,Z,,\n";

/// The answer for some identificators; those that stay are left in them.
std::string Ask(std::vector<std::string>& identificators, const std::string& input,
                bool withPartName = true, const char* service = kService)
{
    wbtest::ServedProduct served;
    served.ImportTable(kTree);
    return served.Server()
        .RunObjectService(service, identificators, input, withPartName)
        .value_or("(nothing)");
}

std::string AskOne(const std::string& identificator, const std::string& input)
{
    std::vector<std::string> identificators{identificator};
    return Ask(identificators, input);
}
} // namespace

TEST(WBObjectService, RecordNamesTheInstanceItsPartAndThePathFromItsParentUp)
{
    EXPECT_EQ(AskOne("A|S.1|T.1|P.1", "A|NoConfig"), "0|P.1|P|C|2|T.1|S.1|Bolt|");
    EXPECT_EQ(AskOne("A|S.1", "A|NoConfig|"), "1|S.1|S|A|0|Sub|");
}

TEST(WBObjectService, NameIsSentOnlyWhenAskedFor)
{
    std::vector<std::string> identificators{"A|S.1|T.1"};
    EXPECT_EQ(Ask(identificators, "A|NoConfig", false), "1|T.1|T|A|1|S.1|");
}

TEST(WBObjectService, WhatLeadsNowhereLeavesTheList)
{
    std::vector<std::string> identificators{"A|S.1", "A|X.1", "Z|S.1", "A", "", "A|S.1|T.1"};
    EXPECT_EQ(Ask(identificators, "A|NoConfig"), "1|S.1|S|A|0|Sub|1|T.1|T|A|1|S.1|Third|");
    EXPECT_THAT(identificators, ElementsAre("A|S.1", "A|S.1|T.1"));
}

TEST(WBObjectService, FieldsAAndBAreChecked)
{
    EXPECT_EQ(AskOne("A|S.1", "A|NoConfig|S|A|"), "1|S.1|S|A|0|Sub|");
    EXPECT_EQ(AskOne("A|S.1", "A|NoConfig|S|---|"), "1|S.1|S|A|0|Sub|");
    EXPECT_EQ(AskOne("A|S.1", "A|NoConfig|S|B|"), "");
    EXPECT_EQ(AskOne("A|S.1", "A|NoConfig|T|A|"), "");
    EXPECT_EQ(AskOne("A|S.1", "A|NoConfig|T|---|"), "");
}

TEST(WBObjectService, NoIdentificatorsGiveNoRecords)
{
    std::vector<std::string> identificators;
    EXPECT_EQ(Ask(identificators, "A|NoConfig"), "");
}

TEST(WBObjectService, InputThatCannotBeReadGivesNothing)
{
    for (const char* input : {"", "A", "|NoConfig", "A||"}) {
        EXPECT_EQ(AskOne("A|S.1", input), "(nothing)") << input;
    }
    std::vector<std::string> identificators{"A|S.1"};
    EXPECT_EQ(Ask(identificators, "A|NoConfig", true, "OtherService"), "(nothing)");
    EXPECT_THAT(identificators, ElementsAre("A|S.1"));
}
