#include "CATNavigator.h"
#include "CATPDMServices.h"

#include "FakeProductSource.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{
struct CATImmCAAServicesTest : testing::Test
{
    ~CATImmCAAServicesTest() override { CATNavigator::Close(); }

    CATListValCATUnicodeString names{"untouched"};
    CATListValCATUnicodeString values{"untouched"};
    CATUnicodeString type = "untouched";
};

TEST_F(CATImmCAAServicesTest, TellsTheCurrentRootWithItsIdentifierFirst)
{
    CATProductRow root = CarRoot();
    root.version = "B";
    CATNavigator::Open(std::make_shared<FakeProductSource>(), root);
    EXPECT_EQ(CATImmCAAServices::GetCurrentRootIdentifiers(names, values, type), S_OK);
    EXPECT_EQ(names, (CATListValCATUnicodeString{"V_ID", "V_version", "V_Name"}));
    EXPECT_EQ(values, (CATListValCATUnicodeString{"CAR", "B", "Name of CAR"}));
    EXPECT_EQ(type, "ENOVIA_VPMItem");
}

TEST_F(CATImmCAAServicesTest, WithoutARootItFailsAndLeavesTheOutputs)
{
    EXPECT_EQ(CATImmCAAServices::GetCurrentRootIdentifiers(names, values, type), E_FAIL);
    EXPECT_EQ(names, CATListValCATUnicodeString{"untouched"});
    EXPECT_EQ(values, CATListValCATUnicodeString{"untouched"});
    EXPECT_EQ(type, "untouched");
}

TEST_F(CATImmCAAServicesTest, TheRootTypeIsEmptyUntilARootIsOpen)
{
    EXPECT_EQ(CATImmCAAServices::GetCurrentRootType(), "");
    CATNavigator::Open(std::make_shared<FakeProductSource>(), CarRoot());
    EXPECT_EQ(CATImmCAAServices::GetCurrentRootType(), "ENOVIA_VPMItem");
}
} // namespace
