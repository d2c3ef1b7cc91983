#include "CATDocument.h"
#include "CATIProduct.h"

#include "FakeProductSource.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <memory>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
constexpr double kTolerance = 1e-12; // of coefficients of size 1 and shifts of some 100 mm

struct CATProductTest : testing::Test
{
    CATProductTest() { FillCar(*source); }

    CATProductDocument_var Open(const CATProductRow& root = CarRoot()) const
    {
        return CATProductDocument::Open(source, root, CATProductDocument::kPdmEnvironment);
    }

    std::shared_ptr<FakeProductSource> source = std::make_shared<FakeProductSource>();
};

void ExpectCoefficients(const CATIProduct_var& product, const std::array<double, 12>& expected)
{
    std::array<double, 12> actual{};
    CATIMovable_var(product)->GetAbsoluteTransformation().GetCoefficients(actual);
    for (std::size_t index = 0; index < expected.size(); ++index) {
        EXPECT_NEAR(actual[index], expected[index], kTolerance) << "coefficient " << index + 1;
    }
}

TEST_F(CATProductTest, TellsTheFactsOfItsUse)
{
    CATProductRow row = MakeRow("bolts", "M8", Below::Nothing);
    row.version = "C";
    row.name = "Bolt M8x40";
    row.quantity = 12;
    source->uses["CAR A"] = {row};

    const CATIProduct_var bolts = Open()->GetRoot()->GetChild(1);
    EXPECT_EQ(bolts->GetPartNumber(), "M8");
    EXPECT_EQ(bolts->GetPartVersion(), "C");
    EXPECT_EQ(bolts->GetInstanceName(), "bolts");
    EXPECT_EQ(bolts->GetPartName(), "Bolt M8x40");
    EXPECT_EQ(bolts->GetQuantity(), 12);
    EXPECT_FALSE(bolts->HasChildren());
}

TEST_F(CATProductTest, TheRootIsNamedByItsPartNumberAndHasNoParent)
{
    CATProductRow root = CarRoot();
    root.instance = "";
    const CATIProduct_var product = Open(root)->GetRoot();
    EXPECT_EQ(product->GetInstanceName(), "CAR");
    EXPECT_TRUE(product->GetParent().IsNull());
}

TEST_F(CATProductTest, TellsThatItHasChildrenWithoutReadingThem)
{
    EXPECT_TRUE(Open()->GetRoot()->HasChildren());
    EXPECT_THAT(source->asked, IsEmpty());
}

TEST_F(CATProductTest, ReadsItsChildrenOnceByPartAndVersion)
{
    CATProductRow root = CarRoot();
    root.version = "B";
    source->uses["CAR B"] = {MakeRow("body", "BODY", Below::Nothing)};
    const CATIProduct_var product = Open(root)->GetRoot();
    EXPECT_EQ(product->GetChildCount(), 1);
    EXPECT_EQ(product->GetChildCount(), 1);
    EXPECT_EQ(product->GetChild(1)->GetInstanceName(), "body");
    EXPECT_THAT(source->asked, ElementsAre("CAR B"));
}

TEST_F(CATProductTest, ChildrenComeInTheOrderOfTheSource)
{
    const CATIProduct_var root = Open()->GetRoot();
    ASSERT_EQ(root->GetChildCount(), 2);
    EXPECT_EQ(root->GetChild(1)->GetInstanceName(), "front");
    EXPECT_EQ(root->GetChild(2)->GetInstanceName(), "body");
}

TEST_F(CATProductTest, ThereIsNoChildOutsideThePositions)
{
    const CATIProduct_var root = Open()->GetRoot();
    EXPECT_TRUE(root->GetChild(0).IsNull());
    EXPECT_TRUE(root->GetChild(3).IsNull());
    EXPECT_TRUE(root->GetChild(-1).IsNull());
}

TEST_F(CATProductTest, APartWithoutUsesIsNotAskedFor)
{
    const CATIProduct_var body = Open()->FindProduct({"body"});
    source->asked.clear();
    EXPECT_EQ(body->GetChildCount(), 0);
    EXPECT_THAT(source->asked, IsEmpty());
}

TEST_F(CATProductTest, AfterASourceThatGaveNothingTheNextCallAsksAgain)
{
    const CATIProduct_var root = Open()->GetRoot();
    const auto uses = std::exchange(source->uses, {});
    EXPECT_EQ(root->GetChildCount(), 0);
    source->uses = uses;
    EXPECT_EQ(root->GetChildCount(), 2);
}

TEST_F(CATProductTest, HandlesOnOnePlaceAreEqual)
{
    const CATProductDocument_var document = Open();
    const CATIProduct_var front = document->GetRoot()->GetChild(1);
    EXPECT_EQ(front, document->FindProduct({"front"}));
    EXPECT_EQ(front, document->FindProduct({"front", "left"})->GetParent());
}

TEST_F(CATProductTest, TwoUsesOfOnePartAreTwoProducts)
{
    const CATProductDocument_var document = Open();
    const CATIProduct_var left = document->FindProduct({"front", "left"});
    const CATIProduct_var right = document->FindProduct({"front", "right"});
    EXPECT_EQ(left->GetPartNumber(), right->GetPartNumber());
    EXPECT_FALSE(left == right);
}

TEST_F(CATProductTest, AProductThatWasLetGoCanBeAskedForAgain)
{
    const CATProductDocument_var document = Open();
    EXPECT_EQ(document->FindProduct({"front"})->GetPartNumber(), "AXLE");
    const CATIProduct_var again = document->FindProduct({"front"});
    EXPECT_EQ(again->GetPartNumber(), "AXLE");
    EXPECT_EQ(CATBaseUnknown_var(again)->ReferenceCount(), 2); // `again` and the handle that asks
}

TEST_F(CATProductTest, IsALinkableObjectOfTheKindOfProducts)
{
    const CATProductDocument_var document = Open();
    const CATILinkableObject_var linkable = document->FindProduct({"body"});
    ASSERT_FALSE(linkable.IsNull());
    EXPECT_EQ(linkable->GetType(), "ASMPRODUCT");
    EXPECT_EQ(linkable->GetDocument(), CATDocument_var(document));
}

TEST_F(CATProductTest, TellsItsClassForDiagnostics)
{
    EXPECT_STREQ(CATBaseUnknown_var(Open()->GetRoot())->ClassName(), "CATProduct");
}

TEST_F(CATProductTest, TheRootStandsInItsOwnAxesWhateverItsRowSays)
{
    CATProductRow root = CarRoot();
    root.placement = Shifted(1, 2, 3);
    source->uses["CAR A"] = {MakeRow("body", "BODY", Below::Nothing, Shifted(10, 20, 30))};
    const CATIProduct_var product = Open(root)->GetRoot();
    ExpectCoefficients(product, {1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0});
    ExpectCoefficients(product->GetChild(1), {1, 0, 0, 0, 1, 0, 0, 0, 1, 10, 20, 30});
}

TEST_F(CATProductTest, AUseTurnedBy30DegreesKeepsTheImagesOfItsAxes)
{
    // About z: x goes to (cos, sin, 0), y to (-sin, cos, 0).
    const double c = std::sqrt(3.0) / 2.0;
    const double s = 0.5;
    const std::array<double, 12> turned{c, s, 0, -s, c, 0, 0, 0, 1, 100, 0, 7};
    source->uses["CAR A"] = {
        MakeRow("front", "AXLE", Below::Uses, CATMathTransformation::FromCoefficients(turned))};
    ExpectCoefficients(Open()->FindProduct({"front"}), turned);
}

TEST_F(CATProductTest, PlacementsMultiplyFromTheRootDown)
{
    const double c = std::sqrt(3.0) / 2.0;
    const double s = 0.5;
    const std::array<double, 12> turned{c, s, 0, -s, c, 0, 0, 0, 1, 100, 0, 7};
    source->uses["CAR A"] = {
        MakeRow("front", "AXLE", Below::Uses, CATMathTransformation::FromCoefficients(turned))};
    source->uses["AXLE A"] = {MakeRow("left", "WHEEL", Below::Nothing, Shifted(10, 0, 1))};
    // The wheel's shift of 10 along x is turned first: (10 cos, 10 sin, 1), then moved.
    ExpectCoefficients(Open()->FindProduct({"front", "left"}),
                       {c, s, 0, -s, c, 0, 0, 0, 1, 100 + 10 * c, 10 * s, 8});
}
} // namespace
