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

namespace
{
/// A quantity of which nothing is stated.
std::string Nothing(const std::string& quantity)
{
    return quantity + "|__null__|__null__|0|0|__null__|__null__|";
}

/// One that is stated and not changed.
std::string Said(const std::string& quantity, const std::string& text)
{
    return quantity + "|" + text + "|" + text + "|0|0|__null__|__null__|";
}

std::string NoSet(const std::string& massType)
{
    std::string text;
    for (const char* quantity : {"mass", "centre", "inertia", "precision"}) {
        text += Nothing("PartRef|" + massType + "|" + quantity);
    }
    return text;
}
} // namespace

TEST(StatedValues, EverythingThatIsStatedOfAPartAndItsUse)
{
    EditedProduct product;
    // One on the left and two on the right; the glider has one more. 5 x 4 quantities of sets,
    // active, density and material of part and use, their order, four properties.
    EXPECT_EQ(product.As("kim", "WBGetStatedValues", kSpar),
              "SPAR|1|0|3|1|2|Brass|Steel|0|0|30|" + NoSet("Target") + NoSet("Estimated") +
                  NoSet("Calculated") + NoSet("Supplier") + Said("PartRef|Weighed|mass", "10") +
                  Said("PartRef|Weighed|centre", "1;2;3") +
                  Said("PartRef|Weighed|inertia", "4;5;6;0.1;0.2;0.3") +
                  Said("PartRef|Weighed|precision", "percent;1;2") +
                  Said("PartRef|__null__|active", "Weighed") + Nothing("PartRef|__null__|density") +
                  Nothing("PartInst|__null__|density") + Nothing("PartRef|__null__|material") +
                  Nothing("PartInst|__null__|material") +
                  Nothing("PartRef|__null__|density order") +
                  Said("PartRef|__null__|property Vendor", "Smith") +
                  Said("PartRef|__null__|property Built", "2026/01/31") +
                  Said("PartRef|__null__|property Holes", "4") +
                  Said("PartRef|__null__|property Length", "12.5"));
}

TEST(StatedValues, UseWithASetOfItsOwnOwnsItAndItsChoice)
{
    EditedProduct product;
    const std::string answer = product.As("kim", "WBGetStatedValues", kBolt);
    // A leaf, a standard part, one place, no other root, a use with sets of its own.
    EXPECT_THAT(answer, StartsWith("BOLT|1|1|1|0|2|Brass|Steel|1|0|"));
    EXPECT_THAT(answer, HasSubstr(Said("PartInst|Weighed|mass", "0.5")));
    EXPECT_THAT(answer, HasSubstr(Nothing("PartInst|Weighed|precision")));
    EXPECT_THAT(answer, HasSubstr(NoSet("Supplier")));
    EXPECT_THAT(answer, HasSubstr(Nothing("PartInst|__null__|active")));
}

TEST(StatedValues, DensityAndMaterialOfPartAndUse)
{
    EditedProduct product;
    const std::string answer = product.As("kim", "WBGetStatedValues", kHook);
    EXPECT_THAT(answer, HasSubstr(Nothing("PartRef|__null__|density")));
    EXPECT_THAT(answer, HasSubstr(Said("PartInst|__null__|density", "2000")));
    EXPECT_THAT(answer, HasSubstr(Nothing("PartRef|__null__|material")));
    EXPECT_THAT(answer, HasSubstr(Said("PartInst|__null__|material", "Brass")));
}

TEST(StatedValues, AssemblyAndPropertyOfAUse)
{
    EditedProduct product;
    const std::string answer = product.As("kim", "WBGetStatedValues", kLeft);
    EXPECT_THAT(answer, StartsWith("WING|0|0|3|1|"));
    EXPECT_THAT(answer, HasSubstr(Said("PartInst|__null__|property Side", "port")));
}

TEST(StatedValues, RootHasNoUse)
{
    EditedProduct product;
    const std::string answer = product.As("kim", "WBGetStatedValues", kRoot);
    // 5 x 4 quantities of sets, active, density, material and density order of the part.
    EXPECT_THAT(answer, StartsWith("PLANE|0|0|1|0|2|Brass|Steel|0|0|24|"));
    EXPECT_THAT(answer, testing::Not(HasSubstr("PartInst")));
}

TEST(StatedValues, PlacesMultiplyQuantities)
{
    EditedProduct product;
    // Three ribs on the left, two times three on the right.
    EXPECT_THAT(product.As("kim", "WBGetStatedValues", kRib), StartsWith("RIB|1|0|9|1|"));
    EXPECT_THAT(product.As("kim", "WBGetStatedValues", "1|rib|RIB|A|1|one|GLIDER|"),
                StartsWith("RIB|1|0|3|1|"));
}

TEST(StatedValues, WhatFollowsFromASizeWasNotStated)
{
    EditedProduct product;
    const std::string answer = product.As("kim", "WBGetStatedValues", kRib);
    EXPECT_THAT(answer, HasSubstr(Nothing("PartRef|Calculated|mass")));
    EXPECT_THAT(answer, HasSubstr(Said("PartRef|Calculated|centre", "0;0;0")));
    EXPECT_THAT(answer, HasSubstr(Nothing("PartRef|Calculated|inertia")));
    EXPECT_THAT(answer, HasSubstr(Said("PartRef|__null__|material", "Steel")));
}

TEST(StatedValues, PendingChangeIsShownBesideWhatIsStored)
{
    EditedProduct product;
    EXPECT_EQ(product.WeighSpar("kim", "12"), "Apply|OK|1|");
    EXPECT_THAT(product.As("kim", "WBGetStatedValues", kSpar),
                HasSubstr("|PartRef|Weighed|mass|12|10|1|0|__null__|__null__|"));
    EXPECT_THAT(product.As("kim", "WBGetStatedValues", kSpar),
                HasSubstr(Said("PartRef|Weighed|centre", "1;2;3")));
    EXPECT_THAT(product.As("anna", "WBGetStatedValues", kSpar),
                HasSubstr(Said("PartRef|Weighed|mass", "10")));
    // The same part anywhere.
    EXPECT_EQ(product.Stated("kim", "0|spar|SPAR|A|1|one|GLIDER|", "PartRef|Weighed|mass"),
              "12|10|1|0");
}

TEST(StatedValues, DateThatIsPendingHasTheDelimiterOfClients)
{
    EditedProduct product;
    wbtest::RecordFields record;
    record.properties = {"Built|1|1|Part|2026/02/28"};
    EXPECT_EQ(product.Apply("kim", kSpar, {"PartRef|__null__|property Built|1|2026/01/31"}, record),
              "Apply|OK|1|");
    EXPECT_EQ(product.Stated("kim", kSpar, "PartRef|__null__|property Built"),
              "2026/02/28|2026/01/31|1|0");
    record.properties = {"Vendor|1|0|Part|2026-02-28"};
    EXPECT_EQ(product.Apply("kim", kSpar, {"PartRef|__null__|property Vendor|1|Smith"}, record),
              "Apply|OK|1|");
    EXPECT_EQ(product.Stated("kim", kSpar, "PartRef|__null__|property Vendor"),
              "2026-02-28|Smith|1|0")
        << "what is no date stays as it was typed";
}

TEST(StatedValues, NumberChangesWithWhatIsPending)
{
    EditedProduct product;
    const auto number = [&](const std::string& user) {
        return wbtest::Split(product.As(user, "WBGetStatedValues", kSpar), '|').at(9);
    };
    EXPECT_EQ(number("kim"), "0");
    product.WeighSpar("kim", "12");
    const std::string first = number("kim");
    EXPECT_NE(first, "0");
    EXPECT_EQ(number("anna"), "0");
    product.WeighSpar("kim", "13");
    EXPECT_NE(number("kim"), first);
    EXPECT_NE(number("kim"), "0");
    product.Save("kim");
    EXPECT_EQ(number("kim"), "0");
}

TEST(StatedValues, ConflictSaysWhoSavedWhen)
{
    EditedProduct product;
    product.WeighSpar("kim", "12");
    product.WeighSpar("anna", "11");
    EXPECT_EQ(product.Save("anna"), "Save|OK");
    const std::string answer = product.As("kim", "WBGetStatedValues", kSpar);
    EXPECT_THAT(answer, HasSubstr("|PartRef|Weighed|mass|12|11|1|1|anna|20"));
    EXPECT_THAT(answer, testing::ContainsRegex("\\|anna\\|[0-9]{4}/[0-9]{2}/[0-9]{2} "
                                               "[0-9]{2}:[0-9]{2}:[0-9]{2}\\|"));
}

TEST(StatedValues, UseThatLosesItsSetShowsThePartsOne)
{
    EditedProduct product;
    wbtest::RecordFields record;
    record.head = "1|BOLT|A|0||";
    EXPECT_EQ(product.Apply("kim", kBolt, {"PartInst|Weighed|mass|0|0.5"}, record), "Apply|OK|1|");
    const std::string answer = product.As("kim", "WBGetStatedValues", kBolt);
    EXPECT_THAT(answer, StartsWith("BOLT|1|1|1|0|2|Brass|Steel|0|"));
    EXPECT_THAT(answer, HasSubstr(NoSet("Weighed")));
}

TEST(StatedValues, WrongPlaceIsNamed)
{
    EditedProduct product;
    const auto answer = [&](const std::string& place) {
        return product.As("kim", "WBGetStatedValues", place);
    };
    EXPECT_THAT(answer("2|spar|SPAR|A|1|left|PLANE|"), StartsWith("#WB_ERROR#The field has-inst"));
    EXPECT_THAT(answer("1|tail|SPAR|A|1|left|PLANE|"), StartsWith("#WB_ERROR#The field instance"));
    EXPECT_THAT(answer("1|spar|RIB|A|1|left|PLANE|"), StartsWith("#WB_ERROR#The field part"));
    EXPECT_THAT(answer("1|spar|SPAR|B|1|left|PLANE|"), StartsWith("#WB_ERROR#The field version"));
    EXPECT_THAT(answer("1|spar|SPAR|A|10001|left|PLANE|"),
                StartsWith("#WB_ERROR#The field path count"));
    EXPECT_THAT(answer("1|spar|SPAR|A|1|middle|PLANE|"), StartsWith("#WB_ERROR#The field path"));
    EXPECT_THAT(answer("1|spar|SPAR|A|1|left|WING|"), StartsWith("#WB_ERROR#The field root"));
    EXPECT_THAT(answer("1|spar|SPAR|A|1|left|"), StartsWith("#WB_ERROR#The field root"));
    EXPECT_THAT(answer("1|spar|SPAR|A|1|left|PLANE|x|"), StartsWith("#WB_ERROR#The request"));
}
