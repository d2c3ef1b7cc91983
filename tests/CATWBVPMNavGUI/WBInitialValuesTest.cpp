#include "WBInitialValues.h"

#include "EditingSession.h"

namespace
{

class WBInitialValuesTest : public EditingSession
{
protected:
    WBInitialValuesTest() { server->answers["WBCompPartGetInitialValues"] = Values("13"); }
};

} // namespace

TEST_F(WBInitialValuesTest, RequestHasItsEmptyFieldAndThePathAsTheRecordHasIt)
{
    EXPECT_EQ(WBInitialValuesRequest(*record), "1||CAR|BOLT.1|BOLT|A|1|AXLE.1|");
    EXPECT_EQ(WBInitialValuesRequest(*RecordOf("0|AXLE.1|AXLE|A|CAR|0|" + Values("1", kOfUse))),
              "0||CAR|AXLE.1|AXLE|A|0|");
}

TEST_F(WBInitialValuesTest, RecordIsFilledInPlace)
{
    record->SetIsLeaf(true);
    ASSERT_TRUE(WBReadAnew(nullptr, *record));
    EXPECT_EQ(EstimateOf(*record), 13.0);
    EXPECT_TRUE(record->IsLeaf());
    EXPECT_EQ(record->ReferenceCount(), 1);
    EXPECT_EQ(WBInitialValuesRequest(*record), "1||CAR|BOLT.1|BOLT|A|1|AXLE.1|");
    CATListValCATUnicodeString massTypes;
    record->GetMassTypes(massTypes);
    EXPECT_EQ(massTypes.Size(), 3); // not once more
}

TEST_F(WBInitialValuesTest, PlaceOfAProductStaysTheSessions)
{
    const RecordHandle product = RecordOf("0|BOLT.1|BOLT|A|CAR|1|AXLE.1|" + Values("12.5", kOfUse));
    CATRawColldouble place;
    for (const double value : {1., 0., 0., 0., 1., 0., 0., 0., 1., 500., 600., 700.}) {
        place.Append(value);
    }
    for (const RecordHandle& shown : {product, record}) {
        shown->SetListOfTransMatrix(place);
        server->answers["WBCompPartGetInitialValues"] =
            Values("13", shown == product ? kOfUse : "");
        ASSERT_TRUE(WBReadAnew(nullptr, *shown));
    }
    CATRawColldouble ofProduct;
    product->GetListOfTransMatrix(ofProduct);
    ASSERT_EQ(ofProduct.Size(), 12);
    EXPECT_EQ(ofProduct[10], 500.0);
    CATRawColldouble ofItem;
    record->GetListOfTransMatrix(ofItem);
    EXPECT_EQ(ofItem[10], 5.0); // the server's
}

TEST_F(WBInitialValuesTest, AnswerThatIsNoneLeavesTheRecordAsItWas)
{
    Open(record);
    const char* const bad[] = {"", "#WB_ERROR#No such part.", "1|0|-1|"};
    for (const char* answer : bad) {
        boxes.clear();
        server->answers["WBCompPartGetInitialValues"] = answer;
        EXPECT_FALSE(WBReadAnew(panel, *record)) << answer;
        EXPECT_EQ(EstimateOf(*record), 12.5) << answer;
        EXPECT_EQ(boxes.size(), 1U) << answer;
    }
    server->answers["WBCompPartGetInitialValues"] = "1|0|1|x|";
    EXPECT_THROW(WBReadAnew(panel, *record), CATFatalError);
    EXPECT_EQ(EstimateOf(*record), 12.5);
}
