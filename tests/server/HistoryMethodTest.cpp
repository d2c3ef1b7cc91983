#include "EditTesting.h"
#include "ReportTime.h"
#include "SqlConnection.h"

#include <cstdlib>
#include <ctime>

using testing::HasSubstr;
using testing::StartsWith;
using wbtest::EditedProduct;
using wbtest::kBolt;
using wbtest::kSpar;
using wbtest::RecordFields;
using wbtest::SparOf;

namespace
{
/// All fields but the times, each record in brackets.
std::string WithoutTimes(const std::string& answer)
{
    const auto fields = wbtest::Split(answer, '|');
    std::string text = fields[0];
    for (std::size_t at = 1; at + 8 <= fields.size(); at += 8) {
        text += " [";
        for (std::size_t i = 1; i < 8; ++i) {
            text += fields[at + i] + (i < 7 ? "|" : "]");
        }
    }
    return text;
}

std::string History(EditedProduct& product, const std::string& place)
{
    return product.As("anna", "WBHistory", place);
}
} // namespace

TEST(HistoryMethod, NothingChangedIsNoHistory)
{
    EditedProduct product;
    EXPECT_EQ(History(product, kSpar), "0|");
}

TEST(HistoryMethod, SavedChangesSayWhoWhatBeforeAndAfter)
{
    EditedProduct product;
    product.WeighSpar("kim", "12");
    EXPECT_EQ(History(product, kSpar), "0|") << "what is pending is no history";
    product.Save("kim");
    product.WeighSpar("anna", "13", "12");
    product.Save("anna");
    EXPECT_EQ(WithoutTimes(History(product, kSpar)),
              "2 [anna|save|__null__|part SPAR A|mass type Weighed, mass|12|13] "
              "[kim|save|__null__|part SPAR A|mass type Weighed, mass|10|12]");
    EXPECT_EQ(History(product, "0|rib|RIB|A|1|left|PLANE|"), "0|");
}

TEST(HistoryMethod, WhatWasUnknownBeforeIsNull)
{
    EditedProduct product;
    product.Apply("kim", kSpar, {"PartRef|Weighed|centre|0|1;2;3"}, RecordFields());
    product.Save("kim");
    EXPECT_THAT(History(product, kSpar), HasSubstr("|mass type Weighed, centre|1;2;3|__null__|"));
}

TEST(HistoryMethod, ImportsAreInItWithTheirFile)
{
    EditedProduct product;
    product.ImportTable("parent,instance,part,mass_type,mass [kg]\n,,SPAR,Weighed,14\n");
    const std::string history = WithoutTimes(History(product, kSpar));
    EXPECT_THAT(history, StartsWith("1 [kim|import|"));
    EXPECT_THAT(history, HasSubstr("t.csv|part SPAR A|mass type Weighed, mass|10"));
    EXPECT_THAT(history, HasSubstr("|14"));
}

TEST(HistoryMethod, PartAndUseTogetherTheNewestFirst)
{
    EditedProduct product;
    RecordFields record;
    record.head = "1|BOLT|A|0||";
    record.massTypes = {"Weighed|1|0|0|0.7|0|0|0|0|0|0|0|0|0|0|1"};
    wbtest::SqlConnection clock(product.Store().Path());
    product.Apply("kim", kBolt, {"PartInst|Weighed|mass|1|0.5"}, record);
    product.Save("kim");
    ASSERT_EQ(clock.Run("UPDATE history SET at = '2026-03-01 10:00:00' WHERE what = 'save'"),
              SQLITE_OK);
    product.Apply("kim", kBolt, {"PartRef|Weighed|mass|1|__null__"}, record);
    product.Save("kim");
    ASSERT_EQ(clock.Run("UPDATE history SET at = '2026-02-01 10:00:00' WHERE what = 'save' AND "
                        "at <> '2026-03-01 10:00:00'"),
              SQLITE_OK);
    EXPECT_EQ(WithoutTimes(History(product, kBolt)),
              "2 [kim|save|__null__|use PLANE A / bolt|mass type Weighed, mass|0.5|0.7] "
              "[kim|save|__null__|part BOLT A|mass type Weighed, mass|__null__|0.7]");
    EXPECT_EQ(History(product, "0||PLANE|A|0|PLANE|"), "0|") << "of the root alone";
}

TEST(HistoryMethod, TimesAreThoseOfTheServersPlaceAndDatesHaveSlashes)
{
    EditedProduct product;
    RecordFields record;
    record.properties = {"Built|1|1|Part|2026-02-28"};
    product.Apply("kim", kSpar, {"PartRef|__null__|property Built|1|2026/01/31"}, record);
    product.Save("kim");
    wbtest::SqlConnection clock(product.Store().Path());
    ASSERT_EQ(clock.Run("UPDATE history SET at = '2026-11-21 19:00:00' WHERE what = 'save'"),
              SQLITE_OK);
    const char* before = std::getenv("TZ");
    const std::string zone = before == nullptr ? "" : before;
    setenv("TZ", "UTC-2", 1); // two hours ahead
    tzset();
    EXPECT_EQ(History(product, kSpar), "1|2026/11/21 21:00:00|kim|save|__null__|part SPAR A|"
                                       "property Built|2026/01/31|2026/02/28|");
    EXPECT_EQ(wb::WireTime("2026-11-21 23:30:00"), "2026/11/22 01:30:00");
    EXPECT_EQ(wb::WireTime("yesterday"), "yesterday");
    EXPECT_EQ(wb::WireTime("2026-11-21 23:30:00 or so"), "2026-11-21 23:30:00 or so");
    EXPECT_EQ(wb::WireTime(""), "");
    if (before == nullptr) {
        unsetenv("TZ");
    } else {
        setenv("TZ", zone.c_str(), 1);
    }
    tzset();
}

TEST(HistoryMethod, WrongPlaceIsNamed)
{
    EditedProduct product;
    EXPECT_THAT(History(product, "1|tail|SPAR|A|1|left|PLANE|"),
                StartsWith("#WB_ERROR#The field instance"));
    EXPECT_THAT(History(product, std::string(kSpar) + "x|"), StartsWith("#WB_ERROR#The request"));
}
