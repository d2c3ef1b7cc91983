#include "EditTesting.h"

using testing::HasSubstr;
using testing::StartsWith;
using wbtest::EditedProduct;
using wbtest::kBolt;
using wbtest::kHook;
using wbtest::kLeft;
using wbtest::kRib;
using wbtest::kRoot;
using wbtest::kSpar;
using wbtest::RecordFields;
using wbtest::SparOf;

namespace
{
RecordFields Of(const std::string& head)
{
    RecordFields record;
    record.head = head;
    return record;
}
const RecordFields kRibRecord = Of("1|RIB|A|0||");
const RecordFields kBoltRecord = Of("1|BOLT|A|0||");
const RecordFields kHookRecord = Of("0|HOOK|A|0||");
const RecordFields kLeftRecord = Of("1|WING|A|0||");

RecordFields With(RecordFields record, const std::string& massType)
{
    record.massTypes = {massType};
    return record;
}

RecordFields WithDensity(RecordFields record, const std::string& density)
{
    record.density = density;
    return record;
}

RecordFields WithActive(RecordFields record, const std::string& active)
{
    record.active = active + "|__null__|";
    return record;
}

RecordFields WithProperty(const std::string& property)
{
    RecordFields record;
    record.properties = {property};
    return record;
}
} // namespace

TEST(ApplyValues, EachQuantityOfASetIsTakenFromItsFields)
{
    EditedProduct product;
    RecordFields record = With({}, "Weighed|1|0|0|12|7|8|9|14|15|16|0.5|0.4|0.6|1|1|0.1|0.2|0");
    EXPECT_EQ(product.Apply("kim", kSpar,
                            {"PartRef|Weighed|mass|1|10", "PartRef|Weighed|centre|1|1;2;3",
                             "PartRef|Weighed|inertia|1|4;5;6;0.1;0.2;0.3",
                             "PartRef|Weighed|precision|1|percent;1;2"},
                            record),
              "Apply|OK|4|");
    const auto stated = [&](const char* quantity) {
        return product.Stated("kim", kSpar, std::string("PartRef|Weighed|") + quantity);
    };
    EXPECT_EQ(stated("mass"), "12|10|1|0");
    EXPECT_EQ(stated("centre"), "7;8;9|1;2;3|1|0");
    EXPECT_EQ(stated("inertia"), "14;15;16;0.4;0.5;0.6|4;5;6;0.1;0.2;0.3|1|0");
    EXPECT_EQ(stated("precision"), "absolute;0.1;0.2|percent;1;2|1|0");
    product.Apply("kim", kSpar, {"PartRef|Weighed|precision|1|percent;1;2"},
                  SparOf("12", "1|0|3|4"));
    EXPECT_EQ(stated("precision"), "percent;3;4|percent;1;2|1|0");
}

TEST(ApplyValues, RootIsAPartToo)
{
    EditedProduct product;
    EXPECT_EQ(product.Apply("kim", kRoot, {"PartRef|Estimated|mass|1|__null__"},
                            With(Of("0|PLANE|A|0||"), "Estimated|1|0|0|900|0|0|0|0|0|0|0|0|0|0|0")),
              "Apply|OK|1|");
    EXPECT_EQ(product.Stated("kim", kRoot, "PartRef|Estimated|mass"), "900|__null__|1|0");
}

TEST(ApplyValues, WhatIsNotNamedIsLeftAlone)
{
    EditedProduct product;
    RecordFields record = With({}, "Weighed|1|0|0|12|7|8|9|14|15|16|0.5|0.4|0.6|1|1|0.1|0.2|0");
    record.active = "Estimated|__null__|";
    record.density = "1|99|Brass|";
    record.priority = "1|";
    record.properties = {"Vendor|1|0|Part|Miller"};
    EXPECT_EQ(product.Apply("kim", kSpar, {"PartRef|Weighed|mass|1|10"}, record), "Apply|OK|1|");
    EXPECT_THAT(product.Pending("kim"),
                StartsWith("1|part SPAR A|mass type Weighed, mass|10|12|10|0|"));
    EXPECT_EQ(product.Apply("kim", kSpar, {}, record), "Apply|OK|0|");
}

TEST(ApplyValues, WhatSomebodyElseSavedMeanwhileIsLeftAlone)
{
    EditedProduct product;
    product.WeighSpar("anna", "11");
    product.Save("anna");
    // Kim's record still holds 10 kg, but the centre is all that was changed there.
    RecordFields record = With({}, "Weighed|1|0|0|10|7|8|9|4|5|6|0.2|0.1|0.3|1|0|1|2|0");
    EXPECT_EQ(product.Apply("kim", kSpar, {"PartRef|Weighed|centre|1|1;2;3"}, record),
              "Apply|OK|1|");
    EXPECT_EQ(product.Save("kim"), "Save|OK");
    EXPECT_EQ(product.Stated("kim", kSpar, "PartRef|Weighed|mass"), "11|11|0|0");
    EXPECT_EQ(product.Stated("kim", kSpar, "PartRef|Weighed|centre"), "7;8;9|7;8;9|0|0");
}

TEST(ApplyValues, ClearedQuantityIsUnknownAndZeroIsZero)
{
    EditedProduct product;
    EXPECT_EQ(product.Apply("kim", kSpar, {"PartRef|Weighed|centre|0|1;2;3"}, SparOf("10")),
              "Apply|OK|1|");
    EXPECT_EQ(product.Stated("kim", kSpar, "PartRef|Weighed|centre"), "__null__|1;2;3|1|0");
    EXPECT_EQ(product.WeighSpar("kim", "0"), "Apply|OK|1|");
    EXPECT_EQ(product.Stated("kim", kSpar, "PartRef|Weighed|mass"), "0|10|1|0");
    // From nothing to 0: that is a statement.
    EXPECT_EQ(product.Apply("kim", kRib, {"PartRef|Calculated|mass|1|__null__"},
                            With(kRibRecord, "Calculated|1|0|0|0|0|0|0|0|0|0|0|0|0|0|0")),
              "Apply|OK|1|");
    EXPECT_EQ(product.Stated("kim", kRib, "PartRef|Calculated|mass"), "0|__null__|1|0");
}

TEST(ApplyValues, NegativeZeroIsZero)
{
    EditedProduct product;
    EXPECT_EQ(product.WeighSpar("kim", "-0"), "Apply|OK|1|");
    EXPECT_EQ(product.Stated("kim", kSpar, "PartRef|Weighed|mass"), "0|10|1|0");
}

TEST(ApplyValues, ClearedQuantityIsNotLookedForInTheRecord)
{
    EditedProduct product;
    EXPECT_EQ(product.Apply("kim", kSpar,
                            {"PartRef|Weighed|mass|0|10", "PartRef|Weighed|precision|0|percent;1;2",
                             "PartRef|__null__|property Vendor|0|Smith",
                             "PartRef|__null__|active|0|Weighed"},
                            RecordFields()),
              "Apply|OK|4|");
    EXPECT_EQ(product.Stated("kim", kSpar, "PartRef|Weighed|precision"),
              "__null__|percent;1;2|1|0");
    EXPECT_EQ(product.Stated("kim", kSpar, "PartRef|__null__|property Vendor"),
              "__null__|Smith|1|0");
    EXPECT_EQ(product.Stated("kim", kSpar, "PartRef|__null__|active"), "__null__|Weighed|1|0");
}

TEST(ApplyValues, ValueWithTheSameDigitsIsUnchanged)
{
    EditedProduct product;
    EXPECT_EQ(product.WeighSpar("kim", "10.0000000000000001"), "Apply|OK|0|");
    EXPECT_EQ(product.WeighSpar("kim", "1e1"), "Apply|OK|0|");
    EXPECT_EQ(product.Pending("kim"), "0|");
    EXPECT_EQ(product.WeighSpar("kim", "10.0000000000001"), "Apply|OK|1|");
}

TEST(ApplyValues, NumbersMayHaveADecimalComma)
{
    EditedProduct product;
    EXPECT_EQ(product.WeighSpar("kim", "12,5"), "Apply|OK|1|");
    EXPECT_EQ(product.Stated("kim", kSpar, "PartRef|Weighed|mass"), "12.5|10|1|0");
    EXPECT_EQ(product.Apply("kim", kSpar, {"PartRef|__null__|property Length|1|12,5"},
                            WithProperty("Length|100|0|Part|13,75")),
              "Apply|OK|1|");
    EXPECT_EQ(product.Stated("kim", kSpar, "PartRef|__null__|property Length"), "13.75|12.5|1|0");
}

TEST(ApplyValues, PropertiesArePutByTheirType)
{
    EditedProduct product;
    const auto apply = [&](const std::string& name, const std::string& seen,
                           const std::string& property) {
        return product.Apply("kim", kSpar, {"PartRef|__null__|property " + name + "|1|" + seen},
                             WithProperty(name + "|" + property));
    };
    EXPECT_EQ(apply("Vendor", "Smith", "1|0|Part|Miller & Co"), "Apply|OK|1|");
    EXPECT_EQ(apply("Built", "2026-01-31", "1|1|Part|2026-02-01"), "Apply|OK|1|");
    EXPECT_EQ(apply("Holes", "4", "2|0|Part|5"), "Apply|OK|1|");
    EXPECT_THAT(apply("Holes", "4", "2|0|Part|5.5"), HasSubstr("property Holes"));
    EXPECT_THAT(apply("Built", "2026-01-31", "1|1|Part|2026/02/30"), HasSubstr("property Built"));
    EXPECT_THAT(apply("Length", "12.5", "100|0|Part|long"), HasSubstr("property Length"));
    EXPECT_THAT(apply("Colour", "", "1|0|Part|red"), StartsWith("#WB_ERROR#"));
    // The record holds it of the part, and not of the use.
    EXPECT_THAT(product.Apply("kim", kLeft, {"PartInst|__null__|property Side|1|port"},
                              With(kLeftRecord, "Computed|0|0")),
                HasSubstr("property Side of PartInst as stated"));
    RecordFields side = kLeftRecord;
    side.properties = {"Side|1|0|Part|red", "Side|1|0|Instance|green"};
    EXPECT_EQ(product.Apply("kim", kLeft, {"PartInst|__null__|property Side|1|port"}, side),
              "Apply|OK|1|");
    EXPECT_EQ(product.Stated("kim", kLeft, "PartInst|__null__|property Side"), "green|port|1|0");
}

TEST(ApplyValues, PropertyIsTakenByItsName)
{
    EditedProduct product;
    RecordFields record;
    record.properties = {"Vendor|1|0|Part|Computed", "Holes|2|0|Part|7"};
    EXPECT_EQ(product.Apply("kim", kSpar,
                            {"PartRef|__null__|property Holes|1|4",
                             "PartRef|__null__|property Vendor|1|Smith"},
                            record),
              "Apply|OK|2|");
    EXPECT_EQ(product.Stated("kim", kSpar, "PartRef|__null__|property Holes"), "7|4|1|0");
    // The word has a meaning as an active type alone.
    EXPECT_EQ(product.Stated("kim", kSpar, "PartRef|__null__|property Vendor"),
              "Computed|Smith|1|0");
}

TEST(ApplyValues, ActiveTypeIsPutAndComputedMeansThatNobodyChose)
{
    EditedProduct product;
    RecordFields wing = With(kLeftRecord, "Estimated|1|0|0|50|0|0|0|0|0|0|0|0|0|0|0");
    EXPECT_EQ(
        product.Apply("kim", kLeft,
                      {"PartRef|Estimated|mass|1|__null__", "PartRef|__null__|active|1|__null__"},
                      WithActive(wing, "Estimated")),
        "Apply|OK|2|");
    EXPECT_EQ(product.Stated("kim", kLeft, "PartRef|__null__|active"), "Estimated|__null__|1|0");
    EXPECT_EQ(product.Apply("kim", kLeft, {"PartRef|__null__|active|1|__null__"},
                            WithActive(wing, "Computed")),
              "Apply|OK|1|");
    EXPECT_EQ(product.Stated("kim", kLeft, "PartRef|__null__|active"), "__null__|__null__|0|0");
}

TEST(ApplyValues, WhatCannotBeActiveIsRefused)
{
    EditedProduct product;
    const auto apply = [&](const char* active) {
        return product.Apply("kim", kSpar, {"PartRef|__null__|active|1|Weighed"},
                             WithActive({}, active));
    };
    EXPECT_THAT(apply("Computed"), HasSubstr("nothing stands below the part"));
    EXPECT_THAT(apply("Target"), HasSubstr("a goal never counts"));
    EXPECT_THAT(apply("Guessed"), HasSubstr("active: \"Guessed\" is not a mass type"));
    EXPECT_THAT(apply(""), HasSubstr("active of PartRef as stated"));
    EXPECT_EQ(product.Pending("kim"), "0|");
}

TEST(ApplyValues, PickInstanceGivesDensityAndMaterialToThePart)
{
    EditedProduct product;
    EXPECT_EQ(product.Apply(
                  "kim", kRib,
                  {"PartInst|__null__|density|1|__null__", "PartInst|__null__|material|1|Steel"},
                  WithDensity(kRibRecord, "1|7000|Brass|")),
              "Apply|OK|2|");
    EXPECT_EQ(product.Stated("kim", kRib, "PartRef|__null__|density"), "7000|__null__|1|0");
    EXPECT_EQ(product.Stated("kim", kRib, "PartRef|__null__|material"), "Brass|Steel|1|0");
    EXPECT_EQ(product.Stated("kim", kRib, "PartInst|__null__|material"), "__null__|__null__|0|0");
    // Two names of one quantity.
    EXPECT_THAT(product.Apply(
                    "kim", kRib,
                    {"PartInst|__null__|density|1|__null__", "PartRef|__null__|density|1|__null__"},
                    WithDensity(kRibRecord, "1|7000|Brass|")),
                HasSubstr("density of PartRef twice"));
    // Everything else stays with the owner that is named.
    EXPECT_THAT(product.Apply("kim", kRib, {"PartInst|Weighed|density|1|__null__"},
                              WithDensity(kRibRecord, "1|7000|Brass|")),
                HasSubstr("mass type Weighed, density of PartInst as stated"));
    EXPECT_EQ(product.Apply("kim", kRib, {"PartInst|Weighed|mass|1|__null__"},
                            With(kRibRecord, "Weighed|1|0|0|3|0|0|0|0|0|0|0|0|0|0|0")),
              "Apply|OK|1|");
    EXPECT_EQ(product.Stated("kim", kRib, "PartInst|Weighed|mass"), "3|__null__|1|0");
}

TEST(ApplyValues, OtherPicksGiveTheMaterialToWhatItIsAppliedTo)
{
    EditedProduct product;
    const RecordFields toUse = WithDensity(kHookRecord, "1|8000|Steel|PartInst|2|hook||PLANE|");
    const RecordFields toPart = WithDensity(kHookRecord, "1|8000|Steel|PartRef|2|hook||PLANE|");
    EXPECT_EQ(product.Apply("kim", kHook, {"PartInst|__null__|material|1|Brass"}, toUse),
              "Apply|OK|1|");
    EXPECT_EQ(product.Apply("kim", kHook, {"PartRef|__null__|material|1|__null__"}, toPart),
              "Apply|OK|1|");
    EXPECT_EQ(product.Stated("kim", kHook, "PartInst|__null__|material"), "Steel|Brass|1|0");
    EXPECT_EQ(product.Stated("kim", kHook, "PartRef|__null__|material"), "Steel|__null__|1|0");
    EXPECT_THAT(product.Apply("kim", kHook, {"PartRef|__null__|material|1|__null__"}, toUse),
                HasSubstr("material of PartRef as stated"));
    EXPECT_EQ(product.Apply("kim", kHook, {"PartInst|__null__|density|1|2000"}, toPart),
              "Apply|OK|1|");
    EXPECT_EQ(product.Stated("kim", kHook, "PartInst|__null__|density"), "8000|2000|1|0");
}

TEST(ApplyValues, StatedQuantityMustBeInTheRecord)
{
    EditedProduct product;
    const auto refusal = [&](const std::string& quantity, const RecordFields& record) {
        const std::string answer =
            product.Apply("kim", kSpar, {"PartRef|" + quantity + "|1|__null__"}, record);
        EXPECT_THAT(answer, StartsWith("#WB_ERROR#The field quantity of the request names "));
        return answer;
    };
    const RecordFields partly = With({}, "Weighed|2|0");
    for (const char* quantity : {"mass", "centre", "inertia", "precision"}) {
        EXPECT_THAT(refusal(std::string("Weighed|") + quantity, partly),
                    HasSubstr(std::string("mass type Weighed, ") + quantity));
        EXPECT_THAT(refusal(std::string("Supplier|") + quantity, partly), HasSubstr("Supplier"));
    }
    for (const char* quantity : {"density", "material", "property Vendor", "speed"}) {
        EXPECT_THAT(refusal(std::string("__null__|") + quantity, partly), HasSubstr(quantity));
    }
    refusal("__null__|material", WithDensity({}, "1|7800|__null__|"));
    refusal("__null__|density", WithDensity({}, "2|"));
    refusal("__null__|property Vendor", WithProperty("Vendor|1|0|Part|__null__"));
    refusal("Weighed|speed", SparOf("10"));
    EXPECT_EQ(product.Pending("kim"), "0|");
}

TEST(ApplyValues, WrongQuantityIsNamed)
{
    EditedProduct product;
    const auto apply = [&](const std::string& change) {
        return product.Apply("kim", kSpar, {change}, SparOf("12"));
    };
    EXPECT_THAT(apply("Part|Weighed|mass|1|10"), StartsWith("#WB_ERROR#The field owner"));
    EXPECT_THAT(apply("PartRef||mass|1|10"), StartsWith("#WB_ERROR#The field mass type"));
    EXPECT_THAT(apply("PartRef|Computed|mass|1|10"), StartsWith("#WB_ERROR#The field mass type"));
    EXPECT_THAT(apply("PartRef|Computed|mass|0|10"), StartsWith("#WB_ERROR#The field mass type"));
    EXPECT_THAT(apply("PartRef|Weighed||1|10"), StartsWith("#WB_ERROR#The field quantity"));
    EXPECT_THAT(apply("PartRef|Weighed|mass|2|10"), StartsWith("#WB_ERROR#The field stated"));
    EXPECT_THAT(apply("PartRef|Weighed|mass|1|ten"), StartsWith("#WB_ERROR#The field seen text"));
    EXPECT_THAT(apply("PartRef|Weighed|mass|1|~"), StartsWith("#WB_ERROR#The field seen text"));
    EXPECT_THAT(apply("PartRef|Weighed|speed|0|10"), HasSubstr("mass type Weighed, speed"));
    EXPECT_THAT(apply("PartRef|Guessed|mass|0|10"), HasSubstr("Guessed"));
    EXPECT_THAT(apply("PartRef|__null__|speed|0|10"), HasSubstr("speed"));
    EXPECT_THAT(apply("PartInst|__null__|density order|1|__null__"), HasSubstr("density order"));
    EXPECT_THAT(product.Apply("kim", kRoot, {"PartInst|Weighed|mass|0|10"}, Of("0|PLANE|A|0||")),
                HasSubstr("the root is no instance"));
    EXPECT_EQ(product.Pending("kim"), "0|");
}

TEST(ApplyValues, WrongValueIsRefusedByItsName)
{
    EditedProduct product;
    EXPECT_THAT(product.WeighSpar("kim", "-1"), HasSubstr("mass type Weighed, mass"));
    EXPECT_THAT(product.Apply("kim", kSpar, {"PartInst|Weighed|mass|1|__null__"}, SparOf("-1")),
                HasSubstr("mass type Weighed, mass"));
    EXPECT_THAT(product.Apply("kim", kSpar, {"PartRef|Weighed|precision|1|percent;1;2"},
                              SparOf("10", "1|0|-1|2")),
                HasSubstr("mass type Weighed, precision"));
    EXPECT_THAT(product.Apply("kim", kRib, {"PartRef|__null__|material|1|Steel"},
                              WithDensity(kRibRecord, "1|7000|Unobtainium|")),
                HasSubstr("material: \"Unobtainium\" is not a material of the database"));
    EXPECT_THAT(product.Apply("kim", kRib, {"PartRef|__null__|density|1|__null__"},
                              WithDensity(kRibRecord, "1|-7000|Steel|")),
                HasSubstr("density"));
    EXPECT_THAT(product.Apply("kim", kSpar, {"PartRef|__null__|property Vendor|1|Smith"},
                              WithProperty("Vendor|1|0|Part|a\x01z")),
                HasSubstr("property Vendor"));
    EXPECT_THAT(product.Apply("kim", kSpar, {"PartRef|__null__|property Vendor|1|Smith"},
                              WithProperty("Vendor|1|0|Part|\xff")),
                HasSubstr("UTF-8"));
    EXPECT_EQ(product.Pending("kim"), "0|");
}

TEST(ApplyValues, RefusalsAreWholeSentences)
{
    EditedProduct product;
    const auto apply = [&](const std::string& change, const RecordFields& record) {
        return product.Apply("kim", kSpar, {change}, record);
    };
    EXPECT_EQ(apply("Part|Weighed|mass|1|10", SparOf("12")),
              "#WB_ERROR#The field owner of the request holds \"Part\", expected PartRef or "
              "PartInst.");
    EXPECT_EQ(apply("PartRef|Weighed|mass|1|ten", SparOf("12")),
              "#WB_ERROR#The field seen text of the request holds what nobody can have seen: mass "
              "type Weighed, mass: found \"ten\", expected a number in kg.");
    EXPECT_EQ(apply("PartRef|Weighed|mass|1|10", SparOf("-1")),
              "#WB_ERROR#The record cannot be applied: mass type Weighed, mass: found \"-1\", "
              "expected a mass that is not negative, or a part of type adjustment.");
    EXPECT_EQ(apply("PartRef|Weighed|mass|1|10", kRibRecord),
              "#WB_ERROR#The field part of the record holds \"RIB\", but the place says \"SPAR\".");
    EXPECT_EQ(
        product.Apply("kim", kSpar, {"PartRef|Weighed|mass|1|10", "PartRef|Weighed|mass|1|10"},
                      SparOf("12")),
        "#WB_ERROR#The field quantity of the request names mass type Weighed, mass of PartRef "
        "twice.");
    RecordFields record = SparOf("12");
    record.head = "1|SPAR|A|\xff||";
    EXPECT_EQ(apply("PartRef|Weighed|mass|1|10", record),
              "#WB_ERROR#The request is not written in UTF-8.");
}

TEST(ApplyValues, AllQuantitiesOrNone)
{
    EditedProduct product;
    EXPECT_THAT(
        product.Apply("kim", kSpar,
                      {"PartRef|Weighed|mass|1|10", "PartRef|Weighed|precision|1|percent;1;2"},
                      SparOf("12", "1|0|-1|2")),
        StartsWith("#WB_ERROR#"));
    EXPECT_EQ(product.Pending("kim"), "0|");
}

TEST(ApplyValues, QuantityIsNamedOnce)
{
    EditedProduct product;
    EXPECT_THAT(product.Apply("kim", kSpar,
                              {"PartRef|Weighed|mass|1|10", "PartRef|Weighed|mass|0|10"},
                              SparOf("12")),
                HasSubstr("mass type Weighed, mass of PartRef twice"));
    EXPECT_EQ(product.Apply("kim", kSpar,
                            {"PartRef|Weighed|mass|1|10", "PartInst|Weighed|mass|1|__null__"},
                            SparOf("12")),
              "Apply|OK|2|");
}

TEST(ApplyValues, RecordOfAnotherPartIsRefused)
{
    EditedProduct product;
    const auto apply = [&](const std::string& head) {
        RecordFields record = SparOf("12");
        record.head = head;
        return product.Apply("kim", kSpar, {"PartRef|Weighed|mass|1|10"}, record);
    };
    EXPECT_THAT(apply("0|SPAR|A|0||"), HasSubstr("The field has-instance of the record"));
    EXPECT_THAT(apply("1|RIB|A|0||"), HasSubstr("The field part of the record holds \"RIB\""));
    EXPECT_THAT(apply("1|SPAR|B|0||"), HasSubstr("The field version of the record"));
    EXPECT_EQ(apply("1|SPAR|A|DOC|B.2|"), "Apply|OK|1|");
}

TEST(ApplyValues, DamagedRequestChangesNothing)
{
    EditedProduct product;
    const std::string whole =
        std::string(kSpar) + "1|PartRef|Weighed|mass|1|10|" + SparOf("12").Text();
    const auto fields = wbtest::Split(whole, '|');
    std::string shortened;
    std::size_t sent = 0;
    for (const char* name :
         {"has-instance", "instance", "part", "version", "path count", "path", "root",
          "quantity count", "owner", "mass type", "quantity", "stated", "seen text"}) {
        EXPECT_EQ(product.As("kim", "WBApplyValues", shortened),
                  std::string("#WB_ERROR#The field ") + name + " of the request is missing.");
        shortened += fields.at(sent++) + "|";
    }
    for (; sent < fields.size(); ++sent) {
        EXPECT_THAT(product.As("kim", "WBApplyValues", shortened), StartsWith("#WB_ERROR#"))
            << shortened;
        shortened += fields[sent] + "|";
    }
    EXPECT_THAT(product.As("kim", "WBApplyValues", whole + "x|"), StartsWith("#WB_ERROR#"));
    for (const char* count : {"0", "2", "99999999999", "-1", "x", ""}) {
        EXPECT_THAT(product.As("kim", "WBApplyValues",
                               std::string(kSpar) + count + "|PartRef|Weighed|mass|1|10|" +
                                   SparOf("12").Text()),
                    StartsWith("#WB_ERROR#"))
            << count;
    }
    EXPECT_EQ(product.Pending("kim"), "0|");
    EXPECT_EQ(product.As("kim", "WBApplyValues", whole), "Apply|OK|1|");
}

TEST(ApplyValues, ChangingBackLeavesNothingPending)
{
    EditedProduct product;
    product.WeighSpar("kim", "12");
    EXPECT_EQ(product.WeighSpar("kim", "12"), "Apply|OK|0|");
    EXPECT_EQ(product.WeighSpar("kim", "10"), "Apply|OK|1|");
    EXPECT_EQ(product.Pending("kim"), "0|");
    EXPECT_EQ(product.Save("kim"), "Save|NA");
}

TEST(ApplyValues, WhatIsPendingAlreadyIsNotCountedAgain)
{
    EditedProduct product;
    const std::vector<std::string> changes{"PartRef|Weighed|mass|1|10",
                                           "PartInst|Weighed|mass|1|__null__",
                                           "PartRef|Weighed|precision|1|percent;1;2"};
    const RecordFields record = SparOf("12", "1|0|3|4");
    EXPECT_EQ(product.Apply("kim", kSpar, changes, record), "Apply|OK|3|");
    EXPECT_EQ(product.Apply("kim", kSpar, changes, record), "Apply|OK|0|");
}

TEST(ApplyValues, LaterChangeTakesThePlaceOfTheEarlier)
{
    EditedProduct product;
    product.WeighSpar("kim", "12");
    product.WeighSpar("kim", "13");
    EXPECT_THAT(product.Pending("kim"),
                StartsWith("1|part SPAR A|mass type Weighed, mass|10|13|10|0|"));
}

TEST(ApplyValues, WhoSawWhatWasSavedSinceHasNoConflictAnyMore)
{
    EditedProduct product;
    product.WeighSpar("kim", "12");
    product.WeighSpar("anna", "11");
    product.Save("anna");
    EXPECT_EQ(product.Stated("kim", kSpar, "PartRef|Weighed|mass"), "12|11|1|1");
    // The same value, but now against 11 kg.
    EXPECT_EQ(product.WeighSpar("kim", "12", "11"), "Apply|OK|1|");
    EXPECT_EQ(product.Stated("kim", kSpar, "PartRef|Weighed|mass"), "12|11|1|0");
    EXPECT_EQ(product.Save("kim"), "Save|OK");
}

TEST(ApplyValues, WantingWhatSomebodySavedIsNoChange)
{
    EditedProduct product;
    product.WeighSpar("anna", "12");
    product.Save("anna");
    // Kim still saw 10 kg.
    EXPECT_EQ(product.WeighSpar("kim", "12"), "Apply|OK|0|");
    EXPECT_EQ(product.Pending("kim"), "0|");
    product.WeighSpar("kim", "13", "12");
    product.WeighSpar("anna", "14", "12");
    product.Save("anna");
    EXPECT_EQ(product.WeighSpar("kim", "14", "12"), "Apply|OK|1|");
    EXPECT_EQ(product.Pending("kim"), "0|");
}

TEST(ApplyValues, SetOfAUseIsItsOwn)
{
    EditedProduct product;
    EXPECT_EQ(product.Apply("kim", kBolt, {"PartInst|Weighed|mass|1|0.5"},
                            With(kBoltRecord, "Weighed|1|0|0|0.6|0|0|0|0|0|0|0|0|0|0|1")),
              "Apply|OK|1|");
    EXPECT_THAT(product.Pending("kim"),
                StartsWith("1|use PLANE A / bolt|mass type Weighed, mass|0.5|0.6|0.5|0|"));
}

TEST(ApplyValues, DensityOrderIsThatOfTheRecord)
{
    EditedProduct product;
    RecordFields record = kRibRecord;
    record.priority = "1|";
    EXPECT_EQ(product.Apply("kim", kRib, {"PartRef|__null__|density order|1|__null__"}, record),
              "Apply|OK|1|");
    EXPECT_EQ(product.Stated("kim", kRib, "PartRef|__null__|density order"),
              "material|__null__|1|0");
    record.priority = "0|";
    EXPECT_EQ(product.Apply("kim", kRib, {"PartRef|__null__|density order|1|__null__"}, record),
              "Apply|OK|1|");
    EXPECT_EQ(product.Stated("kim", kRib, "PartRef|__null__|density order"), "wb|__null__|1|0");
}

TEST(ApplyValues, SomebodyWithoutANameChangesNothing)
{
    EditedProduct product;
    EXPECT_THAT(product.WeighSpar("", "12"), HasSubstr("the caller has no name"));
}

TEST(ApplyValues, CancelledCallChangesNothing)
{
    EditedProduct product;
    const std::atomic<bool> cancel = true;
    wb::CallContext context;
    context.user = "kim";
    context.cancel = &cancel;
    EXPECT_THAT(product.Server().Call("WBApplyValues",
                                      std::string(kSpar) + "1|PartRef|Weighed|mass|1|10|" +
                                          SparOf("12").Text(),
                                      context),
                StartsWith("#WB_ERROR#"));
    EXPECT_EQ(product.Pending("kim"), "0|");
}
