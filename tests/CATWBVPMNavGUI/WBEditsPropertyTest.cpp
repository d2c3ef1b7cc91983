#include "EditsSession.h"

namespace
{

using testing::ElementsAre;

constexpr int kVendor = 1; // a text
constexpr int kDue = 2;    // a date
constexpr int kCount = 3;
constexpr int kRough = 4;
constexpr int kFlammable = 5;
constexpr int kReach = 6; // a length
constexpr int kBay = 7;   // of the use

class WBEditsPropertyTest : public EditsSession
{
protected:
    /// What the record holds after the text was typed.
    CATUnicodeString Taken(int property, const char* typed)
    {
        EXPECT_EQ(Type(PropertyField(property), typed), "") << typed;
        CATUnicodeString value;
        record->GetPropertyValue(property, value);
        return value;
    }
    void ExpectRefused(int property, const char* typed, const char* sentence)
    {
        EXPECT_EQ(Type(PropertyField(property), typed), sentence);
        EXPECT_FALSE(Edits().HasEdits()) << typed;
    }
};

} // namespace

TEST_F(WBEditsPropertyTest, ValuesAreShownAsPeopleReadThem)
{
    EXPECT_EQ(Text(PropertyField(kVendor)), "Smith");
    EXPECT_EQ(Text(PropertyField(kDue)), "2026/09/01");
    EXPECT_EQ(Text(PropertyField(kCount)), "3");
    EXPECT_EQ(Text(PropertyField(kRough)), "3.25");
    EXPECT_EQ(Text(PropertyField(kFlammable)), "no");
    EXPECT_EQ(Text(PropertyField(kReach)), "1500.25 mm");
    EXPECT_EQ(Text(PropertyField(kBay)), "7");
    ShowIn("LENGTH", "m");
    ASSERT_TRUE(CATUseNumberLocale("de_DE.UTF-8"));
    CATMsgCatalog::SetLanguage("de");
    EXPECT_EQ(Text(PropertyField(kRough)), "3,25");
    EXPECT_EQ(Text(PropertyField(kReach)), "1,50025 m");
    EXPECT_EQ(Text(PropertyField(kFlammable)), "nein");
}

TEST_F(WBEditsPropertyTest, TextIsTakenAsItIsUnlessStreamsCannotCarryIt)
{
    for (const char* typed : {"a|b", "__null__", "~", "x #WB_ERROR# y", "a\nb", "a\x7f"}) {
        EXPECT_EQ(Type(PropertyField(kVendor), typed).ToStdString(),
                  "\"" + std::string(typed) +
                      "\" cannot be stored: it is, or holds, a text with a meaning of its own, "
                      "such as |.");
    }
    EXPECT_FALSE(Edits().HasEdits());
    EXPECT_EQ(Taken(kVendor, " Müller & Söhne; ~3 kg "), "Müller & Söhne; ~3 kg");
    EXPECT_EQ(Lines(), "1|PartRef|__null__|property Vendor|1|Smith|");
    EXPECT_EQ(Taken(kVendor, ""), "");
    EXPECT_EQ(Lines(), "1|PartRef|__null__|property Vendor|0|Smith|");
}

TEST_F(WBEditsPropertyTest, DateIsTypedInTheRecordsFormatOrWithOtherSigns)
{
    EXPECT_EQ(Taken(kDue, "2026/11/21"), "2026/11/21");
    EXPECT_EQ(Taken(kDue, "2027-02-28"), "2027/02/28");
    EXPECT_EQ(Text(PropertyField(kDue)), "2027/02/28");
    EXPECT_EQ(Taken(kDue, "1.7.2027"), "2027/07/01");
    Edits().UndoAll();
    for (const char* typed :
         {"2026-02-30", "2026/13/01", "2026/7/1", "tomorrow", "31.6.2026", "1.7.26", "1-7-26"}) {
        ExpectRefused(
            kDue, typed,
            (std::string("\"") + typed + "\" is no date; expected one like 2026/07/01.").c_str());
    }
    EXPECT_EQ(Taken(kDue, ""), "");
}

TEST_F(WBEditsPropertyTest, EditsAreListedAsPeopleReadThem)
{
    EXPECT_THAT(Edits().EditLines(), testing::IsEmpty());
    ShowIn("LENGTH", "m");
    Type(PropertyField(kFlammable), "yes");
    Type(PropertyField(kReach), "2");
    Type(PropertyField(kVendor), "");
    Type(Field(Kind::CentreX, "Weighed"), "1");
    EXPECT_THAT(Edits().EditLines(),
                ElementsAre("Weighed: centre of gravity (– → incomplete)",
                            "property Vendor (Smith → –)", "property Flammable (no → yes)",
                            "property Reach (1.50025 m → 2 m)"));
    EXPECT_EQ(Edits().Name(PropertyField(kReach)), "property Reach");
    EXPECT_EQ(Edits().Name(Field(Kind::Ixy, "Weighed")), "Weighed: inertia");
    EXPECT_EQ(Edits().Name(Field(Kind::AppliedOn)), "");
    CATMsgCatalog::SetLanguage("de");
    EXPECT_EQ(Edits().EditLines()[0], "Weighed: Schwerpunkt (– → unvollständig)");
}

TEST_F(WBEditsPropertyTest, WholeNumberHasNoFraction)
{
    EXPECT_EQ(Taken(kCount, "12"), "12");
    EXPECT_EQ(Taken(kCount, "2*3"), "6");
    EXPECT_EQ(Taken(kCount, "-4"), "-4");
    Edits().UndoAll();
    ExpectRefused(kCount, "2.5", "\"2.5\" is no whole number; expected one like 12.");
    ExpectRefused(kCount, "many", "\"many\" is no whole number; expected one like 12.");
    ExpectRefused(kCount, "1e15", "\"1e15\" is no whole number; expected one like 12.");
    ExpectRefused(kCount, "3.0", ""); // what is stated
}

TEST_F(WBEditsPropertyTest, NumberIsTypedWithEitherSeparator)
{
    EXPECT_EQ(Taken(kRough, "1,5"), "1.5");
    EXPECT_EQ(Taken(kRough, "2.5*2"), "5");
    Edits().UndoAll();
    ExpectRefused(kRough, "1.5 kg", "\"1.5 kg\" is no number; expected one like 12.5.");
    ExpectRefused(kRough, "3,25", "");
}

TEST_F(WBEditsPropertyTest, DimensionedValueIsTypedInAnyUnitOfItsMagnitude)
{
    ShowIn("LENGTH", "m");
    EXPECT_EQ(Text(PropertyField(kReach)), "1.50025 m");
    EXPECT_EQ(Taken(kReach, "2"), "2000");
    EXPECT_EQ(Taken(kReach, "10 inch"), "254");
    EXPECT_EQ(Text(PropertyField(kReach)), "0.254 m");
    Edits().UndoAll();
    ExpectRefused(kReach, "2 kg", "\"2 kg\" is no value in m; expected a number like 12.5 m.");
    ExpectRefused(kReach, "1,50025 m", "");
    EXPECT_EQ(Taken(kReach, ""), "");
}

TEST_F(WBEditsPropertyTest, QuestionIsAnsweredInTheUsersWords)
{
    EXPECT_THAT(Edits().Choices(PropertyField(kFlammable)), ElementsAre("", "yes", "no"));
    EXPECT_EQ(Taken(kFlammable, "yes"), "yes");
    EXPECT_EQ(Text(PropertyField(kFlammable)), "yes");
    Edits().UndoAll();
    ExpectRefused(kFlammable, "perhaps", "\"perhaps\" is none of the choices.");
    CATMsgCatalog::SetLanguage("de");
    EXPECT_EQ(Taken(kFlammable, "ja"), "yes");
}

TEST_F(WBEditsPropertyTest, PropertyOfTheUseIsTheUsesToState)
{
    EXPECT_EQ(Taken(kBay, "8"), "8");
    EXPECT_EQ(Lines(), "1|PartInst|__null__|property Bay|1|7|");
}

TEST_F(WBEditsPropertyTest, PropertyThatTheServerDoesNotNameIsNotEdited)
{
    std::erase_if(m_stated.quantities, [](const WBStatedQuantity& quantity) {
        return quantity.name == "property Vendor";
    });
    EXPECT_FALSE(Edits().IsEditable(PropertyField(kVendor)));
    EXPECT_TRUE(Edits().IsEditable(PropertyField(kDue)));
}
