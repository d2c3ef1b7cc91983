#include "WBPickedObject.h"

#include "../ModuleSession.h"
#include "PickedProducts.h"

#include "CATImmIdentifierAcquisitionAgent.h"

#include <gtest/gtest.h>

namespace
{

using testing::ElementsAre;

struct Identified
{
    bool isDone = false;
    WBPickedObject picked;
    std::vector<std::string> errors;
};

Identified IdentifyProduct(const CATPathElement_var& path)
{
    const DiagnosticCapture errors(CATDiagnosticErrors());
    CATPathElementAgent agent("agent");
    if (!path.IsNull()) {
        agent.Offer({path});
    }
    Identified result;
    result.isDone = WBIdentifyProductPick(&agent, result.picked);
    result.errors = errors.Lines();
    return result;
}

Identified IdentifyNode(const CATPathElement_var& path)
{
    const DiagnosticCapture errors(CATDiagnosticErrors());
    CATImmIdentifierAcquisitionAgent agent;
    agent.Offer({path});
    Identified result;
    result.isDone = WBIdentifyNavigatorPick(&agent, result.picked);
    result.errors = errors.Lines();
    return result;
}

CATBaseUnknown_var NoProduct()
{
    return CATBaseUnknown_var::Adopt(new CATBaseUnknown);
}

struct InstancePath
{
    long status = S_FALSE;
    int depth = 99;
    CATUnicodeString leafName = "unset";
    CATUnicodeString path = "unset";
    std::vector<std::string> errors;
};

InstancePath ReadPath(const CATPathElement_var& picked)
{
    const DiagnosticCapture errors(CATDiagnosticErrors());
    InstancePath read;
    read.status = WBReadInstancePath(picked, read.depth, read.leafName, read.path);
    read.errors = errors.Lines();
    return read;
}

} // namespace

TEST(WBPickedObject, NavigatorTypeMustNameItsFamilyBeforeTheInstance)
{
    EXPECT_TRUE(WBIsNavigatorInstanceType("Item/ENOVIA_VPMItemInstance"));
    EXPECT_TRUE(WBIsNavigatorInstanceType("xENOVIA_VPMItemInstance2"));
    EXPECT_FALSE(WBIsNavigatorInstanceType("ENOVIA_VPMItemInstance"));
    EXPECT_FALSE(WBIsNavigatorInstanceType("Item/ENOVIA_VPMItem"));
    EXPECT_FALSE(WBIsNavigatorInstanceType("Item/enovia_vpmiteminstance"));
    EXPECT_FALSE(WBIsNavigatorInstanceType(""));
}

TEST(WBPickedObject, NavigatorPickIsIdentifiedByRootPartAndVersion)
{
    CATNavigator::Open(std::make_shared<AeroplaneSource>(),
                       AeroplaneSource::Row("LA1", "LA1", true));
    const Identified result =
        IdentifyNode(PathTo(CATNavigator::Find({"FUS-000.1", "FUS-100.1", "FUS-110.1"})));
    CATNavigator::Close();
    EXPECT_TRUE(result.isDone);
    EXPECT_EQ(result.picked.rootIdentifier, "LA1");
    EXPECT_EQ(result.picked.fieldA, "FUS-110");
    EXPECT_EQ(result.picked.fieldB, "A");
    EXPECT_TRUE(result.picked.hasInstance);
    EXPECT_EQ(result.picked.depth, 0);
    ASSERT_EQ(result.picked.identificators.Size(), 1);
    EXPECT_EQ(result.picked.identificators[1]->Text(), "LA1|FUS-000.1|FUS-100.1|FUS-110.1");
}

TEST(WBPickedObject, NavigatorPickForgetsWhatAProductPickSaid)
{
    CATNavigator::Open(std::make_shared<AeroplaneSource>(),
                       AeroplaneSource::Row("LA1", "LA1", true));
    CATImmIdentifierAcquisitionAgent agent;
    agent.Offer({PathTo(CATNavigator::Find({"FUS-000.1"}))});
    WBPickedObject picked;
    picked.hasInstance = false;
    picked.depth = 4;
    EXPECT_TRUE(WBIdentifyNavigatorPick(&agent, picked));
    CATNavigator::Close();
    EXPECT_TRUE(picked.hasInstance);
    EXPECT_EQ(picked.depth, 0);
}

TEST(WBPickedObject, RootIsIdentifiedByTheValueNamedExactlyVId)
{
    CATUnicodeString identifier = "unset";
    EXPECT_TRUE(WBFindRootIdentifier({"V_Name", "V_version", "V_ID"}, {"Aeroplane", "A", "LA1"},
                                     identifier));
    EXPECT_EQ(identifier, "LA1");
    EXPECT_TRUE(
        WBFindRootIdentifier({"V_Name", "V_ID", "V_ID"}, {"A", "first", "second"}, identifier));
    EXPECT_EQ(identifier, "first");
}

TEST(WBPickedObject, RootWithoutVIdHasNoIdentifier)
{
    CATUnicodeString identifier = "unset";
    EXPECT_FALSE(WBFindRootIdentifier({"v_id", "V_IDX", "V_version"}, {"x", "y", "A"}, identifier));
    EXPECT_FALSE(WBFindRootIdentifier({}, {}, identifier));
    EXPECT_FALSE(WBFindRootIdentifier({"V_version", "V_ID"}, {"A"}, identifier)); // value missing
    EXPECT_EQ(identifier, "unset");
}

TEST(WBPickedObject, NavigatorPickWithoutAgentIsRefused)
{
    const DiagnosticCapture errors(CATDiagnosticErrors());
    WBPickedObject picked;
    EXPECT_FALSE(WBIdentifyNavigatorPick(nullptr, picked));
    EXPECT_THAT(errors.Lines(), ElementsAre("Acquisition agent not initialized!"));
}

TEST(WBPickedObject, NavigatorPickWithoutAnOpenRootIsRefused)
{
    const CATNavigatorNode_var root = CATNavigator::Open(std::make_shared<AeroplaneSource>(),
                                                         AeroplaneSource::Row("LA1", "LA1", true));
    const CATPathElement_var path = PathTo(CATNavigator::Find({"FUS-000.1"}));
    CATNavigator::Close();
    const Identified result = IdentifyNode(path);
    EXPECT_FALSE(result.isDone);
    EXPECT_TRUE(result.picked.identificators.IsEmpty());
    EXPECT_THAT(result.errors, ElementsAre("Unable to retrieve the current product's identifier!"));
}

TEST(WBPickedObject, TreeObjectThatIsNoNodeOfTheNavigatorIsRefused)
{
    CATNavigator::Open(std::make_shared<AeroplaneSource>(),
                       AeroplaneSource::Row("LA1", "LA1", true));
    const Identified result = IdentifyNode(
        CATPathElement_var::Adopt(new CATPathElement({CATBaseUnknown_var::Adopt(new FakeTreeObject(
            {{"Type", "ENOVIA_VPMItemInstance"}, {"V_ID", "X"}, {"V_version", "A"}}))})));
    CATNavigator::Close();
    EXPECT_FALSE(result.isDone);
    EXPECT_THAT(result.errors, ElementsAre("Unable to retrieve the current product's identifier!"));
}

TEST(WBPickedObject, ProductPickIsIdentifiedByPartNumbersOfRootAndLeaf)
{
    const FakeAeroplane aeroplane;
    const Identified result = IdentifyProduct(aeroplane.Path(4));
    EXPECT_TRUE(result.isDone);
    EXPECT_EQ(result.picked.rootIdentifier, "LA1");
    EXPECT_EQ(result.picked.fieldA, "FUS-110");
    EXPECT_EQ(result.picked.fieldB, "---");
    EXPECT_FALSE(result.picked.hasInstance);
    EXPECT_EQ(result.picked.depth, 4);
    ASSERT_EQ(result.picked.identificators.Size(), 1);
    EXPECT_EQ(result.picked.identificators[1]->Text(), "LA1|FUS-000.1|FUS-100.1|FUS-110.1");
}

TEST(WBPickedObject, ProductPickWithoutItsPiecesIsRefusedWithALineThatNamesThePiece)
{
    const FakeAeroplane aeroplane;
    const FakeDocument_var outside = FakeDocument_var::Adopt(new FakeDocument);
    outside->environment = "FILE";
    const CATBaseUnknown_var notInPdm =
        FakeProduct_var::Adopt(new FakeProduct(aeroplane.products[0], "F", "F", outside));
    const struct
    {
        CATPathElement_var path;
        const char* line;
    } cases[] = {
        {CATPathElement_var(), "Could not retrieve the path for the current object!"},
        {CATPathElement_var::Adopt(new CATPathElement({})),
         "Unable to obtain the first element from the path (t-d)!"},
        {aeroplane.PathWith(3, 1, NoProduct()),
         "Could not obtain a valid CATIprd pointer for the topmost object!"},
        {aeroplane.PathWith(3, 3, CATBaseUnknown_var()),
         "Unable to obtain the first element from the path (b-u)!"},
        {aeroplane.PathWith(3, 3, NoProduct()),
         "Could not obtain a valid CATIprd pointer for the selected object!"},
        {aeroplane.PathWith(3, 3, notInPdm),
         "Unable to retrieve the PLM id of the current selection!"},
    };
    for (const auto& each : cases) {
        const Identified result = IdentifyProduct(each.path);
        EXPECT_FALSE(result.isDone) << each.line;
        EXPECT_TRUE(result.picked.identificators.IsEmpty()) << each.line;
        EXPECT_THAT(result.errors, ElementsAre(each.line));
    }
}

TEST(WBPickedObject, ProductPickWithoutAgentIsRefused)
{
    const DiagnosticCapture errors(CATDiagnosticErrors());
    WBPickedObject picked;
    EXPECT_FALSE(WBIdentifyProductPick(nullptr, picked));
    EXPECT_THAT(errors.Lines(), ElementsAre("Unable to retrieve the current object!"));
}

TEST(WBPickedObject, InstancePathGoesFromTheLeafsParentToJustBelowTheRoot)
{
    const InstancePath read = ReadPath(FakeAeroplane().Path(4));
    EXPECT_EQ(read.status, S_OK);
    EXPECT_EQ(read.depth, 4);
    EXPECT_EQ(read.leafName, "FUS-110.1");
    EXPECT_EQ(read.path, "FUS-100.1|FUS-000.1");
}

TEST(WBPickedObject, InstancePathWithOneNameHasNoSeparator)
{
    const InstancePath read = ReadPath(FakeAeroplane().Path(3));
    EXPECT_EQ(read.depth, 3);
    EXPECT_EQ(read.leafName, "FUS-100.1");
    EXPECT_EQ(read.path, "FUS-000.1");
}

TEST(WBPickedObject, InstancePathJustBelowTheRootIsEmpty)
{
    const InstancePath read = ReadPath(FakeAeroplane().Path(2));
    EXPECT_EQ(read.status, S_OK);
    EXPECT_EQ(read.depth, 2);
    EXPECT_EQ(read.leafName, "FUS-000.1");
    EXPECT_EQ(read.path, "");
}

TEST(WBPickedObject, InstancePathDoesNotLookAtTheRoot)
{
    const FakeAeroplane aeroplane;
    EXPECT_EQ(ReadPath(aeroplane.PathWith(3, 1, NoProduct())).status, S_OK);
}

TEST(WBPickedObject, InstancePathThatCannotBeReadFailsWithTheRightLine)
{
    const FakeAeroplane aeroplane;
    const InstancePath none = ReadPath(CATPathElement_var());
    EXPECT_EQ(none.status, E_FAIL);
    EXPECT_EQ(none.depth, -1);
    EXPECT_EQ(none.leafName, "");
    EXPECT_EQ(none.path, "");
    EXPECT_THAT(none.errors, ElementsAre("Could not retrieve the path of the selected object!"));

    const InstancePath hole = ReadPath(aeroplane.PathWith(4, 2, CATBaseUnknown_var()));
    EXPECT_EQ(hole.status, E_FAIL);
    EXPECT_THAT(hole.errors, ElementsAre("Unable to obtain the object/parent at position 2"));

    const InstancePath stranger = ReadPath(aeroplane.PathWith(4, 3, NoProduct()));
    EXPECT_EQ(stranger.status, E_FAIL);
    EXPECT_THAT(stranger.errors, ElementsAre("Unable to obtain a valid CATIprd pointer for the "
                                             "object/parent at position 3"));
}
