#include "EditsSession.h"

#include "CATFindPath.h"
#include "CATTomlFile.h"

#include <map>

namespace
{

/// What fields say of edits, of what is applied and not saved, and of what others saved meanwhile.
class WBEditStatesTest : public EditsSession
{
protected:
    State StateOf(Kind kind) { return Edits().StateOf(Field(kind, "Estimated")); }
    CATUnicodeString Tooltip(Kind kind) { return Edits().Tooltip(Field(kind, "Estimated")); }
    WBStatedQuantity& Pending(const char* name, const char* stored)
    {
        WBStatedQuantity& quantity = StatedAs(kPart, "Estimated", name);
        quantity.stored = stored;
        quantity.isPending = true;
        return quantity;
    }
    void Conflict(const char* name, const char* stored, const char* by)
    {
        WBStatedQuantity& quantity = Pending(name, stored);
        quantity.isInConflict = true;
        quantity.by = by;
        quantity.at = "2026/11/21 19:00:00";
    }
};

} // namespace

TEST_F(WBEditStatesTest, FieldThatWasTypedInIsEditedAndItsNeighboursAreNot)
{
    EXPECT_EQ(StateOf(Kind::CentreX), State::Plain);
    Type(Field(Kind::CentreX, "Estimated"), "7");
    EXPECT_EQ(StateOf(Kind::CentreX), State::Edited);
    EXPECT_EQ(StateOf(Kind::CentreY), State::Plain);
    EXPECT_EQ(StateOf(Kind::Mass), State::Plain);
    EXPECT_EQ(Tooltip(Kind::CentreX), "Not applied yet. Saved is 100 mm.");
    EXPECT_EQ(Tooltip(Kind::CentreY), "");
    Edits().Undo();
    EXPECT_EQ(StateOf(Kind::CentreX), State::Plain);
    Type(Field(Kind::Mass, "Weighed"), "7");
    EXPECT_EQ(Edits().Tooltip(Field(Kind::Mass, "Weighed")), "Not applied yet. Nothing is saved.");
    Type(Field(Kind::PrecisionKind, "Estimated"), "as a mass");
    EXPECT_EQ(Tooltip(Kind::PrecisionKind), "Not applied yet. Saved is in percent.");
    EXPECT_EQ(Tooltip(Kind::LowerPrecision), "Not applied yet. Saved is 5 %.");
}

TEST_F(WBEditStatesTest, AppliedValueIsPendingUntilItIsSaved)
{
    Pending("centre", "100;7;-300");
    Pending("mass", "");
    EXPECT_EQ(StateOf(Kind::CentreX), State::Plain);
    EXPECT_EQ(StateOf(Kind::CentreY), State::Pending);
    EXPECT_EQ(Tooltip(Kind::CentreY), "Applied, but not saved. Saved is 7 mm.");
    EXPECT_EQ(StateOf(Kind::Mass), State::Pending);
    EXPECT_EQ(Tooltip(Kind::Mass), "Applied, but not saved. Nothing is saved.");
    Type(Field(Kind::CentreY, "Estimated"), "8");
    EXPECT_EQ(StateOf(Kind::CentreY), State::Edited);
}

TEST_F(WBEditStatesTest, ClearedValueThatIsPendingTellsWhatCountsToo)
{
    WBStatedQuantity& mass = Pending("mass", "11");
    mass.text = "";
    EXPECT_EQ(Tooltip(Kind::Mass),
              "Applied, but not saved. Saved is 11 kg. Nothing is stated; 12.346 kg counts.");
}

TEST_F(WBEditStatesTest, ClearedValueThatNothingCountsForTellsThatAlone)
{
    WBStatedQuantity& vendor = StatedAs(kPart, "", "property Vendor");
    vendor.text = "";
    vendor.isPending = true;
    EXPECT_EQ(Edits().Tooltip(PropertyField(1)), "Applied, but not saved. Saved is Smith.");
}

TEST_F(WBEditStatesTest, ConflictTellsWhoSavedWhat)
{
    Conflict("mass", "11", "ANNA");
    Conflict("centre", "1;2;3", "");
    Conflict("precision", "", "BEN");
    EXPECT_EQ(StateOf(Kind::Mass), State::Conflict);
    EXPECT_EQ(Tooltip(Kind::Mass),
              "ANNA saved 11 kg on 2026/11/21 19:00:00, after you had seen another value. Type "
              "yours again to keep it, or that one to give way.");
    EXPECT_EQ(Tooltip(Kind::CentreZ),
              "Somebody saved 3 mm on 2026/11/21 19:00:00, after you had seen another value. Type "
              "yours again to keep it, or that one to give way.");
    EXPECT_EQ(Tooltip(Kind::LowerPrecision),
              "BEN cleared this and saved it on 2026/11/21 19:00:00, after you had seen a value. "
              "Type yours again to keep it, or clear the field.");
    CATMsgCatalog::SetLanguage("de");
    EXPECT_EQ(Tooltip(Kind::Mass),
              "ANNA hat am 2026/11/21 19:00:00 11 kg gespeichert, nachdem Sie einen anderen Wert "
              "gesehen hatten. Geben Sie Ihren Wert noch einmal ein, damit er bleibt, oder jenen, "
              "wenn er gelten soll.");
}

TEST_F(WBEditStatesTest, TypingTheSameValueInAConflictKeepsIt)
{
    Conflict("centre", "1;2;3", "ANNA");
    EXPECT_EQ(Type(Field(Kind::CentreX, "Estimated"), "100 mm"), "");
    EXPECT_TRUE(Edits().HasEdits());
    for (const Kind kind : {Kind::CentreX, Kind::CentreY, Kind::CentreZ}) {
        EXPECT_EQ(StateOf(kind), State::Edited); // they go together
    }
    EXPECT_EQ(Lines(), "1|PartRef|Estimated|centre|1|1;2;3|");
    EXPECT_EQ(Edits().Undo(), Field(Kind::CentreX, "Estimated"));
    EXPECT_EQ(StateOf(Kind::CentreX), State::Conflict);
    EXPECT_FALSE(Edits().HasEdits());
}

TEST_F(WBEditStatesTest, TypingTheSavedValueInAConflictGivesWay)
{
    Conflict("mass", "11", "ANNA");
    EXPECT_EQ(Type(Field(Kind::Mass, "Estimated"), "11"), "");
    EXPECT_EQ(Lines(), "1|PartRef|Estimated|mass|1|11|");
    EXPECT_EQ(Type(Field(Kind::Mass, "Estimated"), "12.3456"), "");
    EXPECT_TRUE(Edits().HasEdits()); // the user's own value, confirmed
}

TEST_F(WBEditStatesTest, ConflictInAMaterialGoesAlongToTheObjectThatHasIt)
{
    WBStatedQuantity& material = StatedAs(kPart, "", "material");
    material.stored = "Aluminium";
    material.isPending = true;
    material.isInConflict = true;
    material.by = "ANNA";
    EXPECT_EQ(Edits().StateOf(Field(Kind::Material)), State::Conflict);
    Type(Field(Kind::AppliedOn), "this instance alone");
    EXPECT_EQ(Edits().StateOf(Field(Kind::Material)), State::Plain);
    EXPECT_EQ(Edits().StateOf(Field(Kind::AppliedOn)), State::Plain);
    EXPECT_EQ(Edits().Tooltip(Field(Kind::AppliedOn)), "");
}

TEST_F(WBEditStatesTest, EveryTextHasAGermanOneWithTheSameParameters)
{
    const auto textsOf = [](const std::string& resource) {
        std::map<std::string, int> parameters;
        const CATTomlResult file = CATReadTomlFile(CATFindResource(resource));
        EXPECT_TRUE(file.IsGood()) << file.problem;
        for (const auto& [group, keys] : *file.root.AsTable()) {
            for (const auto& [key, value] : *keys.AsTable()) {
                int count = 0;
                for (const char* parameter : {"/p1", "/p2", "/p3", "/p4"}) {
                    count += value.AsText()->find(parameter) != std::string::npos ? 1 : 0;
                }
                parameters[group + "." + key] = count;
            }
        }
        return parameters;
    };
    const auto english = textsOf("catalogs/WBEdits.toml");
    EXPECT_FALSE(english.empty());
    EXPECT_EQ(textsOf("de/catalogs/WBEdits.toml"), english);
}
