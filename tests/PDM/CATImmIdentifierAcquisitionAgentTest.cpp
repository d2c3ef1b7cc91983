#include "CATImmIdentifierAcquisitionAgent.h"

#include "CATNavigator.h"
#include "FakeProductSource.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace
{
CATPathElement_var Path(std::vector<CATBaseUnknown_var> objects)
{
    return CATPathElement_var::Adopt(new CATPathElement(std::move(objects)));
}

struct CATImmIdentifierAcquisitionAgentTest : testing::Test
{
    CATImmIdentifierAcquisitionAgentTest()
    {
        FillCar(*source);
        source->uses["CAR A"][0].version = "C";
        source->uses["AXLE C"] = source->uses["AXLE A"];
        root = CATNavigator::Open(source, CarRoot());
        front = CATNavigator::Find({"front"});
        left = CATNavigator::Find({"front", "left"});
    }
    ~CATImmIdentifierAcquisitionAgentTest() override { CATNavigator::Close(); }

    std::shared_ptr<FakeProductSource> source = std::make_shared<FakeProductSource>();
    CATNavigatorNode_var root;
    CATNavigatorNode_var front;
    CATNavigatorNode_var left;
    CATImmIdentifierAcquisitionAgent agent;
    CATListValCATUnicodeString values{"untouched"};
};

TEST_F(CATImmIdentifierAcquisitionAgentTest, APickedInstanceTellsWhatItIs)
{
    ASSERT_TRUE(agent.Offer({Path({root, front})}));
    EXPECT_EQ(agent.GetType(), "Item/ENOVIA_VPMItemInstance");
    EXPECT_EQ(agent.GetIdentificator()->Text(), "CAR|front");
    EXPECT_EQ(agent.GetIdentifiers(values), S_OK);
    EXPECT_EQ(values, (CATListValCATUnicodeString{"AXLE", "C"}));
}

TEST_F(CATImmIdentifierAcquisitionAgentTest, APickedRootIsAnItemAndNoInstance)
{
    ASSERT_TRUE(agent.Offer({Path({root})}));
    EXPECT_EQ(agent.GetType(), "Item/ENOVIA_VPMItem");
    EXPECT_EQ(agent.GetIdentificator()->Text(), "CAR");
}

TEST_F(CATImmIdentifierAcquisitionAgentTest, TheLeafIsMeantWhereverThePathsCursorStands)
{
    const CATPathElement_var path = Path({root, front, left});
    path->InitToTopElement();
    ASSERT_TRUE(agent.Offer({path}));
    EXPECT_EQ(agent.GetIdentificator()->Text(), "CAR|front|left");
}

TEST_F(CATImmIdentifierAcquisitionAgentTest, OfASetTheFirstPickIsMeant)
{
    agent.SetBehaviour(CATDialogAgent::kTakesSets);
    ASSERT_TRUE(agent.Offer({Path({root, front, left}), Path({root, front})}));
    EXPECT_EQ(agent.GetIdentificator()->Text(), "CAR|front|left");
}

TEST_F(CATImmIdentifierAcquisitionAgentTest, WithoutAPickThereIsNothingToTell)
{
    EXPECT_EQ(agent.GetType(), "");
    EXPECT_TRUE(agent.GetIdentificator().IsNull());
    EXPECT_EQ(agent.GetIdentifiers(values), E_FAIL);
    EXPECT_EQ(values, CATListValCATUnicodeString{"untouched"});
}

TEST_F(CATImmIdentifierAcquisitionAgentTest, AfterItIsArmedAgainThePickIsForgotten)
{
    ASSERT_TRUE(agent.Offer({Path({root, front})}));
    agent.InitializeAcquisition();
    EXPECT_TRUE(agent.GetIdentificator().IsNull());
}

TEST_F(CATImmIdentifierAcquisitionAgentTest, AnObjectBelowANodeIsNotTakenForTheNode)
{
    const CATBaseUnknown_var note = CATBaseUnknown_var::Adopt(new CATBaseUnknown);
    ASSERT_TRUE(agent.Offer({Path({root, front, note})}));
    EXPECT_EQ(agent.GetType(), "");
    EXPECT_TRUE(agent.GetIdentificator().IsNull());
    EXPECT_EQ(agent.GetIdentifiers(values), E_FAIL);
    EXPECT_EQ(values, CATListValCATUnicodeString{"untouched"});
}

/// An object with a few attributes of its own.
struct Thing : CATBaseUnknown, CATISpecAttrAccess
{
    explicit Thing(std::vector<const char*> attributes) : known(std::move(attributes)) {}
    long GetString(const CATUnicodeString& attribute, CATUnicodeString& value) const override
    {
        for (const char* name : known) {
            if (attribute == name) {
                value = "value";
                return S_OK;
            }
        }
        return S_FALSE;
    }
    std::vector<const char*> known;
};

TEST_F(CATImmIdentifierAcquisitionAgentTest, AnObjectThatLacksTheAttributesHasNoTypeAndIdentifiers)
{
    ASSERT_TRUE(agent.Offer({Path({CATBaseUnknown_var::Adopt(new Thing({"V_ID"}))})}));
    EXPECT_EQ(agent.GetType(), "");
    EXPECT_EQ(agent.GetIdentifiers(values), E_FAIL);
    ASSERT_TRUE(agent.Offer({Path({CATBaseUnknown_var::Adopt(new Thing({"V_version"}))})}));
    EXPECT_EQ(agent.GetIdentifiers(values), E_FAIL);
    EXPECT_EQ(values, CATListValCATUnicodeString{"untouched"});
}

TEST_F(CATImmIdentifierAcquisitionAgentTest, BeginsWithTheBehaviourItIsMadeWith)
{
    EXPECT_EQ(agent.Behaviour(), 0);
    EXPECT_EQ(CATImmIdentifierAcquisitionAgent(0x10).Behaviour(), 0x10);
}

TEST_F(CATImmIdentifierAcquisitionAgentTest, IsNamedAfterItsClass)
{
    EXPECT_STREQ(agent.ClassName(), "CATImmIdentifierAcquisitionAgent");
    EXPECT_EQ(agent.Name(), "CATImmIdentifierAcquisitionAgent");
}
} // namespace
