#include "CATDocument.h"

#include "FakeProductSource.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
struct CATProductDocumentTest : testing::Test
{
    CATProductDocumentTest() { FillCar(*source); }

    CATProductDocument_var Open(const char* environment = "ENOVIA5") const
    {
        return CATProductDocument::Open(source, CarRoot(), environment);
    }

    std::shared_ptr<FakeProductSource> source = std::make_shared<FakeProductSource>();
};

TEST_F(CATProductDocumentTest, IsIdentifiedByPartNumberAndVersionOfItsRoot)
{
    CATUnicodeString identifier;
    EXPECT_EQ(Open()->GetIdentifier(identifier), S_OK);
    EXPECT_EQ(identifier, "CAR A");
}

TEST_F(CATProductDocumentTest, IsIdentifiedByThePartNumberAloneWhereTheRootHasNoVersion)
{
    CATProductRow root = CarRoot();
    root.version = "";
    CATUnicodeString identifier;
    EXPECT_EQ(CATProductDocument::Open(source, root, "FILE")->GetIdentifier(identifier), S_OK);
    EXPECT_EQ(identifier, "CAR");
}

TEST_F(CATProductDocumentTest, ARootWithoutANameGivesNoIdentifier)
{
    const CATProductDocument_var document = CATProductDocument::Open(source, {}, "FILE");
    CATUnicodeString identifier = "untouched";
    EXPECT_EQ(document->GetIdentifier(identifier), E_FAIL);
    EXPECT_EQ(identifier, "untouched");
}

TEST_F(CATProductDocumentTest, TellsItsStorageEnvironment)
{
    CATUnicodeString environment;
    EXPECT_EQ(Open("FILE")->GetStorageEnvironment(environment), S_OK);
    EXPECT_EQ(environment, "FILE");
}

TEST_F(CATProductDocumentTest, ADocumentThatIsStoredNowhereGivesNoEnvironment)
{
    CATUnicodeString environment = "untouched";
    EXPECT_EQ(Open("")->GetStorageEnvironment(environment), E_FAIL);
    EXPECT_EQ(environment, "untouched");
}

TEST_F(CATProductDocumentTest, TheNamesOfTheEnvironmentsAreThoseThatCommandsCompareWith)
{
    EXPECT_STREQ(CATProductDocument::kPdmEnvironment, "ENOVIA5");
    EXPECT_STREQ(CATProductDocument::kFileEnvironment, "FILE");
}

TEST_F(CATProductDocumentTest, NeedsASource)
{
    EXPECT_TRUE(CATProductDocument::Open(nullptr, CarRoot(), "FILE").IsNull());
}

TEST_F(CATProductDocumentTest, TellsItsClassForDiagnostics)
{
    EXPECT_STREQ(Open()->ClassName(), "CATProductDocument");
}

TEST_F(CATProductDocumentTest, OpeningReadsNothingBelowTheRoot)
{
    EXPECT_EQ(Open()->GetRoot()->GetPartNumber(), "CAR");
    EXPECT_THAT(source->asked, IsEmpty());
}

TEST_F(CATProductDocumentTest, FindsAProductByInstanceNamesBelowTheRoot)
{
    const CATProductDocument_var document = Open();
    const CATIProduct_var wheel = document->FindProduct({"front", "right"});
    EXPECT_EQ(wheel->GetInstanceName(), "right");
    EXPECT_EQ(wheel->GetParent()->GetInstanceName(), "front");
    EXPECT_THAT(source->asked, ElementsAre("CAR A", "AXLE A"));
}

TEST_F(CATProductDocumentTest, NoNamesFindTheRoot)
{
    const CATProductDocument_var document = Open();
    EXPECT_EQ(document->FindProduct({}), document->GetRoot());
}

TEST_F(CATProductDocumentTest, FindsNothingWhereANameIsUnknown)
{
    const CATProductDocument_var document = Open();
    EXPECT_TRUE(document->FindProduct({"front", "middle"}).IsNull());
    EXPECT_TRUE(document->FindProduct({"rear", "left"}).IsNull());
    EXPECT_TRUE(document->FindProduct({"body", "left"}).IsNull());
    EXPECT_TRUE(document->FindProduct({"CAR", "front"}).IsNull());
}

TEST_F(CATProductDocumentTest, FindsNamesInTheirLetterCaseOnly)
{
    EXPECT_TRUE(Open()->FindProduct({"Front"}).IsNull());
}

TEST_F(CATProductDocumentTest, GoesAwayWithTheLastHandleOnItOrItsProducts)
{
    const std::weak_ptr<FakeProductSource> watched = source;
    CATProductDocument_var document = Open();
    CATIProduct_var root = document->GetRoot();
    CATIProduct_var wheel = document->FindProduct({"front", "left"});
    source.reset();

    document = {};
    EXPECT_FALSE(watched.expired());
    root = {};
    EXPECT_FALSE(watched.expired());
    wheel = {};
    EXPECT_TRUE(watched.expired());
}

TEST_F(CATProductDocumentTest, AProductHeldAloneStillKnowsTheWholeStructure)
{
    const CATIProduct_var wheel = Open()->FindProduct({"front", "left"});
    const CATIProduct_var root = wheel->GetParent()->GetParent();
    EXPECT_EQ(root->GetPartNumber(), "CAR");
    EXPECT_EQ(root->GetChild(2)->GetInstanceName(), "body");
    CATUnicodeString identifier;
    EXPECT_EQ(CATILinkableObject_var(wheel)->GetDocument()->GetIdentifier(identifier), S_OK);
    EXPECT_EQ(identifier, "CAR A");
}
} // namespace
