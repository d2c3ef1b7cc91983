#include "PanelSession.h"
#include "WBPanelTexts.h"

namespace
{

constexpr int kText = 1;
constexpr int kInteger = 2;
constexpr int kReal = 3;
constexpr int kYesNo = 4;
constexpr int kQuantity = 100;
constexpr const char* kDateFormat = "%Y/%m/%d";

class WBPropertyTextsTest : public PanelSession
{
protected:
    static CATUnicodeString Value(int type, const char* value, const char* magnitude = "")
    {
        WBPanelProperty property;
        property.type = type;
        property.value = value;
        property.magnitude = magnitude;
        return WBPropertyText(property, kDateFormat);
    }
    static CATUnicodeString Date(const char* value, const char* format = kDateFormat)
    {
        WBPanelProperty property;
        property.type = kText;
        property.isDate = true;
        property.value = value;
        return WBPropertyText(property, format);
    }
};

} // namespace

TEST_F(WBPropertyTextsTest, TextsAndWholeNumbersStayAsTheyAre)
{
    EXPECT_EQ(Value(kText, "1.50"), "1.50");
    EXPECT_EQ(Value(kInteger, "007"), "007");
    EXPECT_EQ(Value(kText, ""), "");
}

TEST_F(WBPropertyTextsTest, QuantityStandsInTheCurrentUnitOfItsMagnitude)
{
    EXPECT_EQ(Value(kQuantity, "3600", "TIME"), "1"); // hours are the shipped choice
    ShowIn("TIME", "s");
    EXPECT_EQ(Value(kQuantity, "3600", "TIME"), "3600");
    EXPECT_EQ(Value(kQuantity, "", "TIME"), "");
    EXPECT_EQ(Value(kQuantity, "soon", "TIME"), "soon");
    EXPECT_EQ(Value(kQuantity, "2.5", "NO_SUCH_MAGNITUDE"), "2.5");
}

TEST_F(WBPropertyTextsTest, NumbersAreReadWithEitherSeparatorAndShownWithTheSessions)
{
    EXPECT_EQ(Value(kReal, "3.25"), "3.25");
    EXPECT_EQ(Value(kReal, "3,25"), "3.25");
    ASSERT_TRUE(CATUseNumberLocale("de_DE.UTF-8"));
    EXPECT_EQ(Value(kReal, "3.25"), "3,25");
    EXPECT_EQ(Value(kQuantity, "2.5", "LENGTH"), "2,5");
    EXPECT_EQ(Value(kText, "3.25"), "3.25");
    EXPECT_EQ(Value(kReal, "many"), "many");
}

TEST_F(WBPropertyTextsTest, YesAndNoAreWords)
{
    for (const char* value : {"1", "yes", "Yes", "TRUE"}) {
        EXPECT_EQ(Value(kYesNo, value), "yes") << value;
    }
    for (const char* value : {"0", "no", "False"}) {
        EXPECT_EQ(Value(kYesNo, value), "no") << value;
    }
    EXPECT_EQ(Value(kYesNo, "perhaps"), "perhaps");
    EXPECT_EQ(Value(kYesNo, ""), "");
    EXPECT_EQ(Value(kInteger, "1"), "1");
    CATMsgCatalog::SetLanguage("de");
    EXPECT_EQ(Value(kYesNo, "1"), "ja");
    EXPECT_EQ(Value(kYesNo, "0"), "nein");
}

TEST_F(WBPropertyTextsTest, DatesFollowTheRecordsFormat)
{
    EXPECT_EQ(Date("2026-09-01"), "2026/09/01");
    EXPECT_EQ(Date("2026/09/01"), "2026/09/01");
    EXPECT_EQ(Date("2026-9-1"), "2026/09/01");
    EXPECT_EQ(Date("2026-09-01", "%d.%m.%Y"), "01.09.2026");
}

TEST_F(WBPropertyTextsTest, TextThatIsNoDateIsShownAsItIs)
{
    for (const char* value :
         {"", "next year", "2026", "2026-09", "2026-31-12", "x-y-z", "2026-1-z"}) {
        EXPECT_EQ(Date(value), value);
    }
}

TEST_F(WBPropertyTextsTest, TableNamesUnitKindAndOwner)
{
    WBPanelRecord record;
    record.dateFormat = kDateFormat;
    record.properties = {{"Operating_time", kQuantity, false, "Part", "7200", "TIME"},
                         {"Next", kText, true, "Part", "2026-09-01", ""},
                         {"Location", kText, false, "Instance", "Bay 3", "LENGTH"},
                         {"Count", kInteger, false, "Part", "3", ""},
                         {"Rough", kReal, false, "Part", "3.5", ""},
                         {"Flammable", kYesNo, false, "Somebody", "0", ""}};
    const WBPanelTable table = WBPropertyTable(record);
    EXPECT_THAT(table.rows,
                testing::ElementsAre(WBPanelRow({"Operating_time", "2", "h", "quantity", "part"}),
                                     WBPanelRow({"Next", "2026/09/01", "", "date", "part"}),
                                     WBPanelRow({"Location", "Bay 3", "", "text", "instance"}),
                                     WBPanelRow({"Count", "3", "", "whole number", "part"}),
                                     WBPanelRow({"Rough", "3.5", "", "number", "part"}),
                                     WBPanelRow({"Flammable", "no", "", "yes or no", "Somebody"})));
    ASSERT_EQ(table.columns.size(), 5U);
    EXPECT_EQ(table.columns[1].title, "Value");
    for (const auto& column : table.columns) {
        EXPECT_FALSE(column.isNumber);
    }
}
