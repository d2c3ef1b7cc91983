#include "CATDocument.h"
#include "CATNavigator.h"
#include "CATPDMServices.h"

#include "FakeProductSource.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{
struct CATPDMIdentitiesTest : testing::Test
{
    CATPDMIdentitiesTest() { FillCar(*source); }
    ~CATPDMIdentitiesTest() override { CATNavigator::Close(); }

    CATProductDocument_var Document(const char* environment) const
    {
        return CATProductDocument::Open(source, CarRoot(), environment);
    }

    std::shared_ptr<FakeProductSource> source = std::make_shared<FakeProductSource>();
    CATIPLMIdentificator_var identificator;
};

TEST_F(CATPDMIdentitiesTest, AProductIsKnownByItsRootAndTheInstanceNamesFromTheRootDown)
{
    const CATBaseUnknown_var wheel = Document("ENOVIA5")->FindProduct({"front", "left"});
    EXPECT_EQ(CATPDMCATIAServices::ExtractEnoviaIdFromCATIA(wheel, identificator), S_OK);
    EXPECT_EQ(identificator->Text(), "CAR|front|left");
    EXPECT_EQ(identificator->ReferenceCount(), 1);
}

TEST_F(CATPDMIdentitiesTest, ARootProductIsKnownByItsPartNumber)
{
    const CATBaseUnknown_var root = Document("ENOVIA5")->GetRoot();
    EXPECT_EQ(CATPDMCATIAServices::ExtractEnoviaIdFromCATIA(root, identificator), S_OK);
    EXPECT_EQ(identificator->Text(), "CAR");
}

TEST_F(CATPDMIdentitiesTest, AProductOfADocumentOutsideThePdmHasNoPdmIdentifier)
{
    for (const char* environment : {"FILE", "enovia5", ""}) {
        const CATBaseUnknown_var wheel = Document(environment)->FindProduct({"front", "left"});
        EXPECT_EQ(CATPDMCATIAServices::ExtractEnoviaIdFromCATIA(wheel, identificator), E_FAIL);
        EXPECT_TRUE(identificator.IsNull());
    }
}

/// An object of a document that is no product.
struct Sketch : CATBaseUnknown, CATILinkableObject
{
    explicit Sketch(CATDocument_var home) : document(std::move(home)) {}
    CATUnicodeString GetType() const override { return "SKETCH"; }
    CATDocument_var GetDocument() const override { return document; }
    CATDocument_var document;
};

/// A product that has left its document, or, without the base, never could live in one.
template <class... Bases>
struct LooseProduct : CATBaseUnknown, CATIProduct, Bases...
{
    CATUnicodeString GetPartNumber() const override { return "P"; }
    CATUnicodeString GetPartVersion() const override { return "A"; }
    CATUnicodeString GetInstanceName() const override { return "P"; }
    CATUnicodeString GetPartName() const override { return "P"; }
    int GetQuantity() const override { return 1; }
    CATIProduct_var GetParent() const override { return {}; }
    bool HasChildren() const override { return false; }
    int GetChildCount() const override { return 0; }
    CATIProduct_var GetChild(int /*position*/) const override { return {}; }
};

struct NoDocument : CATILinkableObject
{
    CATUnicodeString GetType() const override { return "ASMPRODUCT"; }
    CATDocument_var GetDocument() const override { return {}; }
};

TEST_F(CATPDMIdentitiesTest, NothingButAProductInADocumentHasAPdmIdentifier)
{
    const CATBaseUnknown_var objects[] = {
        {},
        CATBaseUnknown_var::Adopt(new CATBaseUnknown),
        CATBaseUnknown_var::Adopt(new Sketch(Document("ENOVIA5"))),
        CATBaseUnknown_var::Adopt(new LooseProduct<>),
        CATBaseUnknown_var::Adopt(new LooseProduct<NoDocument>),
    };
    for (const CATBaseUnknown_var& object : objects) {
        EXPECT_EQ(CATPDMCATIAServices::ExtractEnoviaIdFromCATIA(object, identificator), E_FAIL);
        EXPECT_TRUE(identificator.IsNull());
    }
}

TEST_F(CATPDMIdentitiesTest, ANavigatorNodeIsKnownByItsRootAndTheInstanceNamesFromTheRootDown)
{
    const CATNavigatorNode_var root = CATNavigator::Open(source, CarRoot());
    EXPECT_EQ(CATPDMNavServices::ExtractEnoviaIdFromNav(root)->Text(), "CAR");
    const CATIPLMIdentificator_var wheel =
        CATPDMNavServices::ExtractEnoviaIdFromNav(CATNavigator::Find({"front", "right"}));
    EXPECT_EQ(wheel->Text(), "CAR|front|right");
    EXPECT_EQ(wheel->ReferenceCount(), 1);
}

TEST_F(CATPDMIdentitiesTest, NothingButANavigatorNodeGivesAnIdentifierOfTheNavigator)
{
    EXPECT_TRUE(CATPDMNavServices::ExtractEnoviaIdFromNav({}).IsNull());
    const CATBaseUnknown_var product = Document("ENOVIA5")->GetRoot();
    EXPECT_TRUE(CATPDMNavServices::ExtractEnoviaIdFromNav(product).IsNull());
}
} // namespace
