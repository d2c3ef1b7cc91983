#include "CATNavigator.h"

#include "FakeProductSource.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
struct CATNavigatorTest : testing::Test
{
    CATNavigatorTest() { FillCar(*source); }
    ~CATNavigatorTest() override { CATNavigator::Close(); }

    CATNavigatorNode_var OpenCar() const { return CATNavigator::Open(source, CarRoot()); }

    std::shared_ptr<FakeProductSource> source = std::make_shared<FakeProductSource>();
};

TEST_F(CATNavigatorTest, HasNoRootUntilOneIsOpened)
{
    EXPECT_TRUE(CATNavigator::CurrentRoot().IsNull());
    EXPECT_TRUE(CATNavigator::Find({}).IsNull());
    EXPECT_TRUE(CATNavigator::Find({"front"}).IsNull());
}

TEST_F(CATNavigatorTest, AnOpenedRootIsTheCurrentOne)
{
    const CATNavigatorNode_var root = OpenCar();
    EXPECT_EQ(root->Row().part, "CAR");
    EXPECT_EQ(CATNavigator::CurrentRoot(), root);
    EXPECT_THAT(source->asked, IsEmpty());
}

TEST_F(CATNavigatorTest, OpeningAnotherRootReplacesTheOneThatWasOpen)
{
    OpenCar();
    const CATNavigatorNode_var boat =
        CATNavigator::Open(source, MakeRow("BOAT", "BOAT", Below::Nothing));
    EXPECT_EQ(CATNavigator::CurrentRoot(), boat);
}

TEST_F(CATNavigatorTest, WithoutASourceNothingIsOpenedAndTheOpenRootStays)
{
    const CATNavigatorNode_var car = OpenCar();
    EXPECT_TRUE(CATNavigator::Open(nullptr, MakeRow("BOAT", "BOAT", Below::Nothing)).IsNull());
    EXPECT_EQ(CATNavigator::CurrentRoot(), car);
}

TEST_F(CATNavigatorTest, ClosingLeavesNoRoot)
{
    OpenCar();
    CATNavigator::Close();
    EXPECT_TRUE(CATNavigator::CurrentRoot().IsNull());
    CATNavigator::Close(); // closing nothing is harmless
}

TEST_F(CATNavigatorTest, FindsANodeByInstanceNamesBelowTheRoot)
{
    const CATNavigatorNode_var root = OpenCar();
    EXPECT_EQ(CATNavigator::Find({}), root);
    EXPECT_EQ(CATNavigator::Find({"front", "right"})->Row().instance, "right");
    EXPECT_TRUE(CATNavigator::Find({"front", "middle"}).IsNull());
    EXPECT_TRUE(CATNavigator::Find({"rear", "right"}).IsNull());
    EXPECT_TRUE(CATNavigator::Find({"FRONT"}).IsNull());
}

TEST_F(CATNavigatorTest, ANodeReadsItsChildrenWhenFirstAskedForThem)
{
    const CATNavigatorNode_var root = OpenCar();
    const std::vector<CATNavigatorNode_var>& children = root->Children();
    ASSERT_EQ(children.size(), 2U);
    EXPECT_EQ(children[0]->Row().instance, "front");
    EXPECT_EQ(children[1]->Row().instance, "body");
    EXPECT_EQ(&root->Children(), &children);
    EXPECT_THAT(source->asked, ElementsAre("CAR A"));
}

TEST_F(CATNavigatorTest, ANodeWithoutUsesIsNotAskedFor)
{
    OpenCar();
    const CATNavigatorNode_var body = CATNavigator::Find({"body"});
    source->asked.clear();
    EXPECT_THAT(body->Children(), IsEmpty());
    EXPECT_THAT(source->asked, IsEmpty());
}

TEST_F(CATNavigatorTest, AfterASourceThatGaveNothingTheNextCallAsksAgain)
{
    const CATNavigatorNode_var root = OpenCar();
    const auto uses = std::exchange(source->uses, {});
    EXPECT_THAT(root->Children(), IsEmpty());
    source->uses = uses;
    EXPECT_EQ(root->Children().size(), 2U);
}

TEST_F(CATNavigatorTest, NodesKnowTheirParentAndTheirPath)
{
    const CATNavigatorNode_var root = OpenCar();
    const CATNavigatorNode_var left = CATNavigator::Find({"front", "left"});
    EXPECT_TRUE(root->IsRoot());
    EXPECT_EQ(root->Parent(), nullptr);
    EXPECT_FALSE(left->IsRoot());
    EXPECT_EQ(left->Parent(), root->Children()[0].Get());
    EXPECT_EQ(root->PathNames(), CATListValCATUnicodeString{"CAR"});
    EXPECT_EQ(left->PathNames(), (CATListValCATUnicodeString{"CAR", "front", "left"}));
}

TEST_F(CATNavigatorTest, APathBeginsWithTheRootsPartNumber)
{
    CATProductRow root = CarRoot();
    root.instance = "my car";
    EXPECT_EQ(CATNavigator::Open(source, root)->PathNames(), CATListValCATUnicodeString{"CAR"});
}

TEST_F(CATNavigatorTest, ANodeTellsItsAttributes)
{
    source->uses["CAR A"][0].version = "C";
    OpenCar();
    const CATISpecAttrAccess_var front = CATNavigator::Find({"front"});
    const std::vector<std::pair<const char*, const char*>> expected{
        {"Type", "ENOVIA_VPMItemInstance"},
        {"V_ID", "AXLE"},
        {"V_version", "C"},
        {"V_Name", "Name of AXLE"},
        {"Instance", "front"}};
    for (const auto& [attribute, text] : expected) {
        CATUnicodeString value;
        EXPECT_EQ(front->GetString(attribute, value), S_OK) << attribute;
        EXPECT_EQ(value, text) << attribute;
    }
}

TEST_F(CATNavigatorTest, TheRootIsAnItemAndNoInstance)
{
    CATUnicodeString type;
    EXPECT_EQ(OpenCar()->GetString("Type", type), S_OK);
    EXPECT_EQ(type, "ENOVIA_VPMItem");
}

TEST_F(CATNavigatorTest, AnUnknownAttributeLeavesTheOutput)
{
    const CATNavigatorNode_var root = OpenCar();
    CATUnicodeString value = "untouched";
    EXPECT_EQ(root->GetString("v_id", value), S_FALSE);
    EXPECT_EQ(root->GetString("", value), S_FALSE);
    EXPECT_EQ(value, "untouched");
}

TEST_F(CATNavigatorTest, TellsItsNodesClassForDiagnostics)
{
    EXPECT_STREQ(OpenCar()->ClassName(), "CATNavigatorNode");
}

TEST_F(CATNavigatorTest, ANodeThatIsHeldKeepsItsPathWhenTheRootIsClosed)
{
    OpenCar();
    const CATNavigatorNode_var left = CATNavigator::Find({"front", "left"});
    CATNavigator::Close();
    EXPECT_EQ(left->PathNames(), (CATListValCATUnicodeString{"CAR", "front", "left"}));
    EXPECT_EQ(left->Row().part, "WHEEL");
    EXPECT_TRUE(left->Parent()->Parent()->IsRoot());
}

TEST_F(CATNavigatorTest, ANodeThatIsHeldHasNoChildrenWhenTheRootIsClosed)
{
    const CATNavigatorNode_var root = OpenCar();
    const CATNavigatorNode_var front = CATNavigator::Find({"front"});
    source->asked.clear();
    CATNavigator::Close();
    EXPECT_THAT(root->Children(), IsEmpty());
    EXPECT_THAT(front->Children(), IsEmpty());
    EXPECT_THAT(source->asked, IsEmpty());
}

TEST_F(CATNavigatorTest, AClosedTreeGoesAway)
{
    OpenCar();
    CATNavigatorNode_var left = CATNavigator::Find({"front", "left"});
    CATNavigator::Close();
    EXPECT_EQ(source.use_count(), 1);
    EXPECT_EQ(left->ReferenceCount(), 1); // the tree holds it no more
}

TEST_F(CATNavigatorTest, AReplacedTreeGoesAway)
{
    OpenCar();
    CATNavigator::Find({"front", "left"});
    CATNavigator::Open(std::make_shared<FakeProductSource>(),
                       MakeRow("BOAT", "BOAT", Below::Nothing));
    EXPECT_EQ(source.use_count(), 1);
}
} // namespace
