#include "RecordText.h"
#include "Request.h"

#include "EditTesting.h"

using namespace wb;
using testing::ElementsAre;
using testing::HasSubstr;

namespace
{
// What the client makes of a record with all there can be in one; as its own tests have it.
constexpr const char* kOfClient =
    "0|PART-0001|A|DOC-55|B|2|Computed|1|5|5|12.5|1|2|3|10|20|30|0.5|0.25|0.75|1|1|5|5|0|Estimated|"
    "0|0|Estimated|Estimated|1|7850|Steel|PartRef|4|INST-0001|ROOT-1|SUB-3|PRC-07|0|"
    "<userDefinedProps>|1|Customer|1|0|Part|CUST-01|</userDefinedProps>|";

RecordText Read(const std::string& text)
{
    Request request(text);
    return ReadRecord(request);
}

std::string Refusal(const std::string& text)
{
    try {
        Read(text);
        return "";
    } catch (const RequestError& error) {
        return error.what();
    }
}

std::string Joined(const std::vector<std::string>& fields, std::size_t count)
{
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        text += fields[i] + "|";
    }
    return text;
}
} // namespace

TEST(RecordText, EveryFieldOfAClientsRecordIsRead)
{
    const std::string text = kOfClient;
    const RecordText record = Read(text);
    EXPECT_FALSE(record.hasInstance);
    EXPECT_EQ(record.part, "PART-0001");
    EXPECT_EQ(record.version, "A");
    ASSERT_EQ(record.massTypes.size(), 2U);
    const RecordText::MassType& computed = record.massTypes[0];
    EXPECT_EQ(computed.name, "Computed");
    ASSERT_TRUE(computed.values && computed.precision);
    EXPECT_EQ(computed.values->mass, 12.5);
    EXPECT_THAT(computed.values->centre, ElementsAre(1, 2, 3));
    // xx, yy, zz, xy, xz, yz; the stream has xz before xy.
    EXPECT_THAT(computed.values->inertia, ElementsAre(10, 20, 30, 0.25, 0.5, 0.75));
    EXPECT_TRUE(computed.precision->isAbsolute);
    EXPECT_EQ(computed.precision->lower, 5);
    EXPECT_EQ(record.massTypes[1].name, "Estimated");
    EXPECT_FALSE(record.massTypes[1].values || record.massTypes[1].precision);
    EXPECT_EQ(record.activeType, "Estimated");
    EXPECT_TRUE(record.hasDensity);
    EXPECT_EQ(record.density, 7850);
    EXPECT_EQ(record.material, "Steel");
    EXPECT_EQ(record.appliedOn, "PartRef");
    EXPECT_FALSE(record.materialFirst);
    ASSERT_EQ(record.properties.size(), 1U);
    EXPECT_EQ(record.properties[0].name, "Customer");
    EXPECT_FALSE(record.properties[0].ofUse);
    EXPECT_EQ(record.properties[0].value, "CUST-01");
}

TEST(RecordText, ShortestRecordHoldsNothing)
{
    const RecordText record = Read("1|P|A|||0|||0|0|<userDefinedProps>|0|</userDefinedProps>|");
    EXPECT_TRUE(record.hasInstance);
    EXPECT_TRUE(record.massTypes.empty());
    EXPECT_EQ(record.activeType, "");
    EXPECT_FALSE(record.hasDensity);
    EXPECT_TRUE(record.properties.empty());
}

TEST(RecordText, LowerComesBeforeUpperPrecision)
{
    wbtest::RecordFields record;
    record.massTypes = {"Weighed|0|1|0|3|4"};
    const std::string text = record.Text();
    const RecordText read = Read(text);
    EXPECT_FALSE(read.massTypes[0].precision->isAbsolute);
    EXPECT_EQ(read.massTypes[0].precision->lower, 3);
    EXPECT_EQ(read.massTypes[0].precision->upper, 4);
}

TEST(RecordText, MaterialOfNothingHasNoAddress)
{
    wbtest::RecordFields record;
    record.head = "0|SPAR|A|0||";
    record.density = "1|7800|__null__|";
    const std::string text = record.Text();
    const RecordText read = Read(text);
    EXPECT_EQ(read.density, 7800);
    EXPECT_EQ(read.material, "");
    EXPECT_EQ(read.appliedOn, "");
}

TEST(RecordText, InstanceOfThePDMHasNoAddress)
{
    wbtest::RecordFields record;
    record.density = "1|7800|Steel|";
    record.priority = "1|";
    const std::string text = record.Text();
    EXPECT_EQ(Read(text).material, "Steel");
    EXPECT_TRUE(Read(text).materialFirst);
}

TEST(RecordText, AnnouncedTwoMeansThreeFields)
{
    wbtest::RecordFields record;
    record.head = "0|SPAR|A|0||";
    record.density = "1|7800|Steel|PartInst|2|spar||PLANE|";
    EXPECT_EQ(Refusal(record.Text()), "");
    // One element of a path is announced as three, and is three.
    record.density = "1|7800|Steel|PartInst|3|spar|left|PLANE|";
    EXPECT_EQ(Refusal(record.Text()), "");
    record.density = "1|7800|Steel|PartInst|2|spar|PLANE|";
    EXPECT_NE(Refusal(record.Text()), "");
    record.density = "1|7800|Steel|PartInst|1|spar|";
    EXPECT_THAT(Refusal(record.Text()), HasSubstr("address count"));
}

TEST(RecordText, TextThatEndsEarlyIsNoRecord)
{
    const auto fields = wbtest::Split(kOfClient, '|');
    for (std::size_t count = 0; count < fields.size(); ++count) {
        EXPECT_NE(Refusal(Joined(fields, count)), "") << count;
    }
    EXPECT_EQ(Refusal(Joined(fields, fields.size())), "");
}

TEST(RecordText, MissingFieldIsNamed)
{
    const auto fields = wbtest::Split(kOfClient, '|');
    const std::vector<std::string> names{"has-instance",
                                         "part",
                                         "version",
                                         "active document",
                                         "active document version",
                                         "mass type count",
                                         "mass type",
                                         "status",
                                         "lower deviation",
                                         "upper deviation",
                                         "mass",
                                         "centre x",
                                         "centre y",
                                         "centre z",
                                         "Ixx",
                                         "Iyy",
                                         "Izz",
                                         "Ixz",
                                         "Ixy",
                                         "Iyz",
                                         "precision type",
                                         "precision value type",
                                         "lower precision",
                                         "upper precision",
                                         "standard part",
                                         "mass type",
                                         "status",
                                         "precision type",
                                         "active mass type",
                                         "last imposed mass type",
                                         "density status",
                                         "density",
                                         "material",
                                         "applied on",
                                         "address count",
                                         "address",
                                         "address",
                                         "address",
                                         "address",
                                         "density priority",
                                         "<userDefinedProps>",
                                         "property count",
                                         "property name",
                                         "property type",
                                         "property is-date",
                                         "property owner",
                                         "property value",
                                         "</userDefinedProps>"};
    ASSERT_EQ(names.size(), fields.size());
    for (std::size_t count = 0; count < fields.size(); ++count) {
        EXPECT_EQ(Refusal(Joined(fields, count)),
                  "The field " + names[count] + " of the request is missing.");
    }
}

TEST(RecordText, WhatIsExpectedIsSaid)
{
    const auto fields = wbtest::Split(kOfClient, '|');
    const auto refusal = [&](std::size_t field, const char* text) {
        auto changed = fields;
        changed[field] = text;
        return Refusal(Joined(changed, changed.size()));
    };
    EXPECT_EQ(refusal(25, "Computed"),
              "The field mass type of the request holds \"Computed\", expected each mass type "
              "once.");
    EXPECT_EQ(refusal(33, "Part"), "The field applied on of the request holds \"Part\", expected "
                                   "PartRef or PartInst.");
    EXPECT_EQ(refusal(34, "1"),
              "The field address count of the request holds \"1\", expected at least 2.");
    EXPECT_EQ(refusal(34, "10003"), "The field address count of the request holds \"10003\", "
                                    "expected a whole number from 0 to 10002.");
    EXPECT_EQ(refusal(40, "x"), "The field <userDefinedProps> of the request holds \"x\", "
                                "expected this very word.");
    EXPECT_EQ(refusal(45, "Use"), "The field property owner of the request holds \"Use\", "
                                  "expected Part or Instance.");
}

TEST(RecordText, FieldTooManyIsNoRecord)
{
    const auto fields = wbtest::Split(kOfClient, '|');
    for (std::size_t at = 0; at <= fields.size(); ++at) {
        auto more = fields;
        more.insert(more.begin() + static_cast<std::ptrdiff_t>(at), "x");
        EXPECT_NE(Refusal(Joined(more, more.size())), "") << at;
    }
}

TEST(RecordText, FieldTooFewIsNoRecord)
{
    const auto fields = wbtest::Split(kOfClient, '|');
    for (std::size_t at = 0; at < fields.size(); ++at) {
        auto fewer = fields;
        fewer.erase(fewer.begin() + static_cast<std::ptrdiff_t>(at));
        EXPECT_NE(Refusal(Joined(fewer, fewer.size())), "") << at;
    }
}

TEST(RecordText, CountsThatLieAreRefused)
{
    const auto fields = wbtest::Split(kOfClient, '|');
    for (const std::size_t at : {5U, 34U, 41U}) { // mass types, address, properties
        for (const char* count :
             {"0", "1", "2", "3", "4", "5", "99999999999", "-1", "", "x", "1.0"}) {
            auto lie = fields;
            if (lie[at] != count) {
                lie[at] = count;
                EXPECT_NE(Refusal(Joined(lie, lie.size())), "") << at << " " << count;
            }
        }
    }
}

TEST(RecordText, WrongFieldIsNamed)
{
    struct Wrong
    {
        std::size_t field;
        const char* text;
        const char* name;
    };
    const auto fields = wbtest::Split(kOfClient, '|');
    for (const Wrong& wrong : {Wrong{0, "2", "has-instance"},
                               Wrong{1, "", "part"},
                               Wrong{2, "", "version"},
                               Wrong{6, "", "mass type"},
                               Wrong{7, "3", "status"},
                               Wrong{7, "one", "status"},
                               Wrong{8, "", "lower deviation"},
                               Wrong{9, "x", "upper deviation"},
                               Wrong{10, "", "mass"},
                               Wrong{10, "1e999", "mass"},
                               Wrong{11, "nan", "centre x"},
                               Wrong{12, "0x1", "centre y"},
                               Wrong{13, "inf", "centre z"},
                               Wrong{14, "1 ", "Ixx"},
                               Wrong{15, "--1", "Iyy"},
                               Wrong{16, "1.2.3", "Izz"},
                               Wrong{17, "", "Ixz"},
                               Wrong{18, "kg", "Ixy"},
                               Wrong{19, "1;2", "Iyz"},
                               Wrong{20, "2", "precision type"},
                               Wrong{21, "2", "precision value type"},
                               Wrong{22, "", "lower precision"},
                               Wrong{23, "", "upper precision"},
                               Wrong{24, "2", "standard part"},
                               Wrong{25, "Computed", "mass type"},
                               Wrong{30, "3", "density status"},
                               Wrong{31, "", "density"},
                               Wrong{33, "Part", "applied on"},
                               Wrong{34, "10003", "address count"},
                               Wrong{39, "2", "density priority"},
                               Wrong{40, "<userDefinedProp>", "<userDefinedProps>"},
                               Wrong{42, "", "property name"},
                               Wrong{43, "text", "property type"},
                               Wrong{44, "2", "property is-date"},
                               Wrong{45, "Use", "property owner"},
                               Wrong{47, "", "</userDefinedProps>"}}) {
        auto changed = fields;
        changed[wrong.field] = wrong.text;
        EXPECT_THAT(Refusal(Joined(changed, changed.size())),
                    testing::StartsWith(std::string("The field ") + wrong.name + " of the request"))
            << wrong.field;
    }
}

TEST(RecordText, NumbersMayHaveADecimalComma)
{
    std::string text = kOfClient;
    text.replace(text.find("12.5"), 4, "12,5");
    EXPECT_EQ(Read(text).massTypes[0].values->mass, 12.5);
}
