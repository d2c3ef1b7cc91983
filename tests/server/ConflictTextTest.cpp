#include "ConflictText.h"

#include "EditTesting.h"

using namespace wb;
using testing::EndsWith;

namespace
{
PendingState Change(const Quantity& quantity, const std::string& seen, const std::string& after,
                    const std::string& stored)
{
    PendingState change;
    change.quantity = quantity;
    change.seen = seen;
    change.after = after;
    change.subject = "part WING A";
    change.stored = stored;
    change.by = "ANNA";
    change.at = "noon";
    return change;
}
} // namespace

TEST(ConflictText, UnitsAreThoseOfTheQuantity)
{
    EXPECT_EQ(ConflictText(Change({"Weighed", "mass"}, "10", "12", "11")),
              "part WING A, mass type Weighed, mass: you changed 10 kg to 12 kg, but ANNA saved 11 "
              "kg on noon");
    EXPECT_EQ(ConflictText(Change({"Weighed", "centre"}, "1;2;3", "1;2;4", "1;2;5")),
              "part WING A, mass type Weighed, centre: you changed 1; 2; 3 mm to 1; 2; 4 mm, but "
              "ANNA saved 1; 2; 5 mm on noon");
    EXPECT_THAT(
        ConflictText(Change({"Weighed", "inertia"}, "", "1;1;1;0;0;0", "2;2;2;0;0;0")),
        EndsWith("you changed nothing to 1; 1; 1; 0; 0; 0 kg.m2, but ANNA saved 2; 2; 2; 0; "
                 "0; 0 kg.m2 on noon"));
    EXPECT_THAT(
        ConflictText(Change({"", "density"}, "1", "2", "")),
        EndsWith("density: you changed 1 kg/m3 to 2 kg/m3, but ANNA saved nothing on noon"));
    EXPECT_THAT(ConflictText(Change({"", "material"}, "Steel", "", "Brass")),
                EndsWith("material: you changed Steel to nothing, but ANNA saved Brass on noon"));
}

TEST(ConflictText, PrecisionIsTwoNumbersOfOneUnit)
{
    EXPECT_THAT(
        ConflictText(Change({"Weighed", "precision"}, "percent;1;2", "absolute;0.1;0.2", "")),
        EndsWith("precision: you changed 1 and 2 % to 0.1 and 0.2 kg, but ANNA saved "
                 "nothing on noon"));
}

TEST(ConflictText, DatesHaveTheDelimiterOfClients)
{
    EXPECT_THAT(
        ConflictText(Change({"", "property Built"}, "2026-01-31", "2026-02-28", "x")),
        EndsWith("property Built: you changed 2026/01/31 to 2026/02/28, but ANNA saved x on "
                 "noon"));
}

TEST(ConflictText, OtherTextsKeepTheirHyphens)
{
    EXPECT_THAT(ConflictText(Change({"", "property Norm"}, "EN-2", "EN-3", "EN-4")),
                EndsWith("you changed EN-2 to EN-3, but ANNA saved EN-4 on noon"));
    EXPECT_THAT(ConflictText(Change({"", "material"}, "2026-01-31", "", "Steel")),
                EndsWith("you changed 2026-01-31 to nothing, but ANNA saved Steel on noon"));
}

TEST(ConflictText, WhoSavedTheSameValueIsSaidToHaveDoneSo)
{
    PendingState change = Change({"Weighed", "mass"}, "10", "12", "12");
    EXPECT_THAT(ConflictText(change), EndsWith("to 12 kg, but ANNA saved the same value on noon"));
    change.by = "";
    EXPECT_THAT(ConflictText(change), EndsWith("to 12 kg, but the same value is stored now"));
}

TEST(ConflictText, TextsThatHoldSemicolonsStayAsTheyAre)
{
    EXPECT_THAT(ConflictText(Change({"", "property Note"}, "a;b", "c;d", "e;f")),
                EndsWith("you changed a;b to c;d, but ANNA saved e;f on noon"));
}

TEST(ConflictText, WhoSavedMayBeUnknown)
{
    PendingState change = Change({"Weighed", "mass"}, "10", "12", "11");
    change.by = "";
    EXPECT_THAT(ConflictText(change), EndsWith("to 12 kg, but 11 kg is stored now"));
    change.isGone = true;
    EXPECT_THAT(ConflictText(change), EndsWith("to 12 kg, but it is no longer there"));
}

TEST(ConflictText, NoTextBeginsALineOfItsOwn)
{
    EXPECT_THAT(ConflictText(Change({"", "property Note"}, "a - b", "c - d", "e - f")),
                testing::Not(testing::HasSubstr("- ")));
}
