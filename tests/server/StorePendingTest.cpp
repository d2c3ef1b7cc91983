#include "PendingTesting.h"

#include "SqlConnection.h"

#include <filesystem>
#include <map>
#include <random>

using namespace wb;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using wbtest::SqlConnection;

namespace
{
class StorePending : public wbtest::TwoStores
{
protected:
    std::int64_t Change(const char* identifier) { return m_bob->ChangeNumber(Part(identifier)); }
    /// The parts whose change numbers rise.
    std::string Raised(const std::function<void()>& change)
    {
        constexpr std::array kParts{"ASM", "P", "Q", "R", "W", "Z"};
        std::map<std::string, std::int64_t> before;
        for (const char* part : kParts) {
            before[part] = Change(part);
        }
        change();
        std::string raised;
        for (const char* part : kParts) {
            raised +=
                before[part] == Change(part) ? "" : (raised.empty() ? "" : " ") + std::string(part);
        }
        return raised;
    }
    void Save(const PendingChange& change)
    {
        m_ann->PutPending("ann", {change});
        EXPECT_EQ(m_ann->SavePending("ann").saved, 1U);
    }
    /// Whether a set of a part or use of the product R is older than a change below it.
    bool IsOutdated(const char* user, const char* instance)
    {
        const PendingView view(*m_bob, user);
        const Product product = m_bob->ReadProduct(Part("R"));
        for (const wb::Use& use : product.uses) {
            if (use.instance == instance) {
                return (use.sets.empty() ? product.parts[use.part].sets : use.sets)
                    .at(0)
                    .isOutdated;
            }
        }
        return false;
    }
    std::vector<std::string> Facts(OwnerKind kind, RowId owner)
    {
        std::vector<std::string> lines;
        for (const FactChange& change : m_bob->FactChangesOf(kind, owner)) {
            lines.push_back(change.who + " " + change.what + " " + change.file + ": " +
                            change.subject + ", " + change.fact + ": " + change.before + " > " +
                            change.after);
        }
        return lines;
    }
};

TEST_F(StorePending, ChangeIsSeenByItsUserAloneUntilItIsSaved)
{
    m_ann->PutPending("ann", {OfPart("P", m_mass, "4", "6")});
    EXPECT_EQ(Seen(*m_ann, "ann", "P", m_mass), "6");
    EXPECT_EQ(Seen(*m_bob, "ann", "P", m_mass), "6") << "also in another program";
    EXPECT_EQ(Seen(*m_bob, "bob", "P", m_mass), "4");
    EXPECT_EQ(Committed("P", m_mass), "4");
    EXPECT_EQ(m_ann->SavePending("ann").saved, 1U);
    EXPECT_EQ(Seen(*m_bob, "bob", "P", m_mass), "6");
    EXPECT_THAT(m_bob->PendingChanges("ann"), IsEmpty());
}

TEST_F(StorePending, WhatIsPendingIsListedOldestFirst)
{
    m_ann->PutPending("ann", {OfUse("R", "right", {"Supplier", "mass"}, "11", "12"),
                              OfPart("P", m_mass, "4", "")});
    m_ann->PutPending("ann", {OfPart("Q", m_density, "2700", "2,75e3")});
    const std::vector<PendingState> states = m_bob->PendingChanges("ann");
    ASSERT_THAT(states, SizeIs(3));
    EXPECT_EQ(states[0].subject, "use R A / right");
    EXPECT_EQ(states[0].kind, OwnerKind::Use);
    EXPECT_EQ(states[0].owner, Use("R", "right"));
    EXPECT_EQ(states[0].quantity, (Quantity{"Supplier", "mass"}));
    EXPECT_EQ(states[0].stored, "11");
    EXPECT_EQ(states[1].subject, "part P A");
    EXPECT_EQ(states[1].seen, "4");
    EXPECT_EQ(states[1].after, "");
    EXPECT_EQ(states[2].after, "2750") << "as a quantity says it";
    for (const PendingState& state : states) {
        EXPECT_FALSE(state.conflicts);
        EXPECT_FALSE(state.isGone);
        EXPECT_THAT(state.when, testing::MatchesRegex("....-..-.. ..:..:.."));
        EXPECT_EQ(state.by + state.at, "");
    }
    EXPECT_THAT(m_bob->PendingChanges("bob"), IsEmpty());
}

TEST_F(StorePending, LaterChangeOfTheSameQuantityGivesWayToTheFirst)
{
    m_ann->PutPending("ann", {OfPart("P", m_mass, "4", "6"), OfPart("P", m_centre, "1;2;3", "")});
    m_ann->PutPending("ann", {OfPart("P", m_mass, "4", "7")});
    const std::vector<PendingState> states = m_ann->PendingChanges("ann");
    ASSERT_THAT(states, SizeIs(2));
    EXPECT_EQ(states[0].quantity, m_centre);
    EXPECT_EQ(states[1].after, "7");
    EXPECT_EQ(Seen(*m_ann, "ann", "P", m_mass), "7");
}

TEST_F(StorePending, ValueThatWasSeenLeavesNothingPending)
{
    m_ann->PutPending("ann", {OfPart("P", m_mass, "4", "6")});
    m_ann->PutPending("ann", {OfPart("P", m_mass, "4", "4,0")});
    EXPECT_THAT(m_ann->PendingChanges("ann"), IsEmpty());
    EXPECT_EQ(m_ann->PendingNumber("ann"), 0);
}

TEST_F(StorePending, NumberDiffersAfterEachChange)
{
    EXPECT_EQ(m_bob->PendingNumber("ann"), 0);
    std::set<std::int64_t> numbers{0};
    const auto isNew = [&] {
        return numbers.insert(m_bob->PendingNumber("ann")).second;
    };
    m_ann->PutPending("ann", {OfPart("P", m_mass, "4", "6")});
    EXPECT_TRUE(isNew());
    m_ann->PutPending("ann", {OfPart("Q", m_density, "2700", "1")});
    EXPECT_TRUE(isNew());
    m_ann->PutPending("ann", {OfPart("Q", m_density, "2700", "2")});
    EXPECT_TRUE(isNew());
    m_ann->PutPending("ann", {OfPart("Q", m_density, "2700", "2700")});
    EXPECT_TRUE(isNew()) << "one less";
    m_ann->PutPending("ann", {});
    EXPECT_FALSE(isNew());
    m_ann->PutPending("bob", {OfPart("Q", m_density, "2700", "2")});
    EXPECT_FALSE(isNew()) << "those of another user";
    EXPECT_EQ(m_ann->AbortPending("ann"), 1U);
    EXPECT_EQ(m_bob->PendingNumber("ann"), 0);
    m_ann->PutPending("ann", {OfPart("P", m_mass, "4", "6")});
    EXPECT_TRUE(isNew()) << "never one that was there before";
}

TEST_F(StorePending, PutIsAllOrNothing)
{
    EXPECT_THROW(
        m_ann->PutPending("ann", {OfPart("P", m_mass, "4", "6"), OfPart("Q", m_mass, "", "heavy")}),
        StoreError);
    EXPECT_THAT(m_ann->PendingChanges("ann"), IsEmpty());
    EXPECT_EQ(m_ann->PendingNumber("ann"), 0);
    try {
        m_ann->PutPending("ann", {OfPart("Q", m_mass, "", "heavy")});
    } catch (const StoreError& error) {
        EXPECT_EQ(error.what(), Path() + ": part Q A, mass type Weighed, mass: found \"heavy\", "
                                         "expected a number in kg");
    }
}

TEST_F(StorePending, ChangeOfWhatIsNotThereIsRefused)
{
    for (const OwnerKind kind : {OwnerKind::Part, OwnerKind::Use}) {
        EXPECT_THAT(
            [&] {
                m_ann->PutPending("ann", {{kind, 999, m_mass, "", "1", {}}});
            },
            testing::ThrowsMessage<StoreError>(
                Path() + ": what was to be changed is not in the database any more"));
    }
    EXPECT_THAT(m_ann->PendingChanges("ann"), IsEmpty());
}

TEST_F(StorePending, EmptySaveAndAbortDoNothing)
{
    SqlConnection other(Path());
    ASSERT_EQ(other.Run("BEGIN IMMEDIATE"), SQLITE_OK); // nothing is written, so nothing waits
    const SaveOutcome outcome = m_ann->SavePending("ann");
    EXPECT_EQ(outcome.saved, 0U);
    EXPECT_THAT(outcome.conflicts, IsEmpty());
    EXPECT_EQ(m_ann->AbortPending("ann"), 0U);
    EXPECT_THAT(m_bob->History(), SizeIs(1));
}

TEST_F(StorePending, SaveTellsTheHistoryOnce)
{
    m_ann->PutPending("ann", {OfPart("P", m_mass, "4", "6"),
                              OfUse("R", "right", m_place, "port", "starboard"),
                              OfPart("P", m_centre, "1;2;3", "")});
    EXPECT_EQ(m_ann->SavePending("ann").saved, 3U);
    EXPECT_EQ(m_ann->SavePending("ann").saved, 0U);
    const std::vector<HistoryEntry> history = m_bob->History();
    ASSERT_THAT(history, SizeIs(2));
    EXPECT_EQ(history[1].who, "ann");
    EXPECT_EQ(history[1].what, "save");
    EXPECT_EQ(history[1].subject + history[1].checksum, "");
    ASSERT_THAT(history[1].changes, SizeIs(3));
    EXPECT_EQ(history[1].changes[0].What(), "part P A, mass type Weighed, mass");
    EXPECT_EQ(history[1].changes[0].before, "4");
    EXPECT_EQ(history[1].changes[0].after, "6");
    EXPECT_EQ(history[1].changes[1].What(), "use R A / right, property Place");
    EXPECT_EQ(history[1].changes[2].after, "");
    EXPECT_EQ(history[1].changes[0].kind, OwnerKind::Part);
    EXPECT_EQ(history[1].changes[0].owner, Part("P"));
    EXPECT_EQ(history[1].changes[1].kind, OwnerKind::Use);
    EXPECT_EQ(history[1].changes[1].owner, Use("R", "right"));
}

TEST_F(StorePending, ChangesOfAnOwnerAreToldNewestFirst)
{
    Save(OfPart("P", m_mass, "4", "6"));
    Import("part,mass_type,mass [kg],cgx [mm],cgy [mm],cgz [mm]\nP,Weighed,7.50,1,2,4\n");
    EXPECT_THAT(Facts(OwnerKind::Part, Part("P")),
                ElementsAre("kim import t.csv: part P A, mass type Weighed, mass: 6 > 7.50 kg",
                            "kim import t.csv: part P A, mass type Weighed, cgz: 3 mm > 4 mm",
                            "ann save : part P A, mass type Weighed, mass: 4 > 6"));
    EXPECT_THAT(Facts(OwnerKind::Use, Part("P")), IsEmpty()) << "a use of the same number";
    EXPECT_THAT(m_bob->FactChangesOf(OwnerKind::Part, Part("P")).at(0).when,
                testing::MatchesRegex("....-..-.. ..:..:.."));
}

TEST_F(StorePending, ThoseOfOneOwnerAreTheSameAsAmongAll)
{
    m_ann->PutPending("ann", {OfPart("P", m_mass, "4", "6"), OfPart("Q", m_density, "2700", "1"),
                              OfUse("ASM", "p", m_density, "", "3"),
                              OfPart("P", m_vendor, "Smith", "Miller")});
    m_bob->PutPending("bob", {OfPart("P", m_mass, "4", "9")});
    m_bob->SavePending("bob");
    const auto ofP = m_ann->PendingChangesOf("ann", OwnerKind::Part, Part("P"));
    ASSERT_THAT(ofP, SizeIs(2));
    EXPECT_EQ(ofP[0].quantity, m_mass);
    EXPECT_TRUE(ofP[0].conflicts);
    EXPECT_EQ(ofP[0].stored, "9");
    EXPECT_EQ(ofP[0].by, "bob");
    EXPECT_EQ(ofP[1].quantity, m_vendor);
    EXPECT_FALSE(ofP[1].conflicts);
    EXPECT_THAT(m_ann->PendingChangesOf("ann", OwnerKind::Use, Use("ASM", "p")), SizeIs(1));
    EXPECT_THAT(m_ann->PendingChangesOf("ann", OwnerKind::Part, Part("ASM")), IsEmpty());
    EXPECT_THAT(m_ann->PendingChangesOf("bob", OwnerKind::Part, Part("P")), IsEmpty());
}

TEST_F(StorePending, AbortGivesUpThoseOfTheUserAlone)
{
    m_ann->PutPending("ann", {OfPart("P", m_mass, "4", "6"), OfPart("Q", m_density, "2700", "1")});
    m_bob->PutPending("bob", {OfPart("P", m_mass, "4", "9")});
    EXPECT_EQ(m_bob->AbortPending("ann"), 2U);
    EXPECT_THAT(m_ann->PendingChanges("ann"), IsEmpty());
    EXPECT_THAT(m_ann->PendingChanges("bob"), SizeIs(1));
    EXPECT_EQ(Committed("P", m_mass), "4");
    EXPECT_THAT(m_bob->History(), SizeIs(1));
}

TEST_F(StorePending, SecondSaveOfOneQuantityConflictsAndLosesNothing)
{
    m_ann->PutPending("ann", {OfPart("P", m_mass, "4", "6"), OfPart("Q", m_density, "2700", "1")});
    m_bob->PutPending("bob", {OfPart("P", m_mass, "4", "9"), OfPart("W", m_density, "", "3")});
    EXPECT_EQ(m_ann->SavePending("ann").saved, 2U);
    const SaveOutcome outcome = m_bob->SavePending("bob");
    EXPECT_EQ(outcome.saved, 0U);
    ASSERT_THAT(outcome.conflicts, SizeIs(1));
    const PendingState& state = outcome.conflicts[0];
    EXPECT_EQ(state.subject, "part P A");
    EXPECT_EQ(state.seen, "4");
    EXPECT_EQ(state.after, "9");
    EXPECT_EQ(state.stored, "6");
    EXPECT_EQ(state.by, "ann");
    EXPECT_EQ(state.at, m_bob->History().at(1).when);
    EXPECT_FALSE(state.isGone);
    EXPECT_EQ(Committed("P", m_mass), "6");
    EXPECT_EQ(Committed("W", m_density), "") << "nothing of it is saved";
    EXPECT_THAT(m_bob->PendingChanges("bob"), SizeIs(2));
    EXPECT_THAT(m_bob->History(), SizeIs(2));
}

TEST_F(StorePending, WhoSavedThatQuantityLastStandsInTheWay)
{
    const auto save = [&](const char* user, const PendingChange& change) {
        m_bob->PutPending(user, {change});
        EXPECT_EQ(m_bob->SavePending(user).saved, 1U);
    };
    m_ann->PutPending("ann", {OfPart("P", m_centre, "1;2;3", "0;0;0")});
    save("bob", OfPart("P", m_centre, "1;2;3", "4;5;6"));
    save("carl", OfPart("P", m_centre, "4;5;6", "7;8;9"));
    save("dora", OfPart("P", m_mass, "4", "6"));
    m_ann->PutPending("ann", {OfPart("P", m_mass, "6", "9")});
    const std::vector<PendingState> changes = m_ann->PendingChanges("ann");
    ASSERT_THAT(changes, SizeIs(2));
    EXPECT_EQ(changes[0].by, "carl");
    EXPECT_FALSE(changes[1].conflicts);
    EXPECT_EQ(changes[1].by + changes[1].at, "") << "nobody stands in the way of the mass";
}

TEST_F(StorePending, ConflictIsSolvedByWhoeverChangesTheNewValue)
{
    m_ann->PutPending("ann", {OfPart("P", m_mass, "4", "6")});
    m_bob->PutPending("bob", {OfPart("P", m_mass, "4", "9")});
    m_ann->SavePending("ann");
    m_bob->PutPending("bob", {OfPart("P", m_mass, "6", "9")});
    EXPECT_EQ(m_bob->SavePending("bob").saved, 1U);
    EXPECT_EQ(Committed("P", m_mass), "9");
}

TEST_F(StorePending, DifferentQuantitiesOfOneSetDoNotConflict)
{
    m_ann->PutPending("ann", {OfPart("P", m_mass, "4", "6")});
    m_bob->PutPending("bob", {OfPart("P", m_centre, "1;2;3", "4;5;6")});
    EXPECT_EQ(m_ann->SavePending("ann").saved, 1U);
    EXPECT_EQ(m_bob->SavePending("bob").saved, 1U);
    EXPECT_EQ(Committed("P", m_mass), "6");
    EXPECT_EQ(Committed("P", m_centre), "4;5;6");
}

TEST_F(StorePending, ValuesThatAreWrittenAlikeAreNoConflict)
{
    // 1/3 lb in kg and its text of fifteen digits differ in what a double holds beyond them.
    Import("part,mass_type,mass [lb]\nQ,Weighed,0.333333333333333333\n");
    const std::string seen = Committed("Q", m_mass);
    m_ann->PutPending("ann", {OfPart("Q", m_mass, seen.c_str(), "1")});
    Import("part,mass_type,mass [kg]\nQ,Weighed," + seen + "\n");
    EXPECT_FALSE(m_ann->PendingChanges("ann").at(0).conflicts);
    EXPECT_EQ(m_ann->SavePending("ann").saved, 1U);
}

TEST_F(StorePending, ImportMayConflictAndSaysWhoAndWhen)
{
    m_ann->PutPending("ann",
                      {OfPart("P", m_centre, "1;2;3", "0;0;0"), OfPart("P", m_mass, "4", "6")});
    Import("part,mass_type,cgx [mm],cgy [mm],cgz [mm]\nP,Weighed,1,2.5,3\n");
    const SaveOutcome outcome = m_ann->SavePending("ann");
    ASSERT_THAT(outcome.conflicts, SizeIs(1));
    EXPECT_EQ(outcome.conflicts[0].stored, "1;2.5;3");
    EXPECT_EQ(outcome.conflicts[0].by, "kim");
    EXPECT_EQ(outcome.conflicts[0].at, m_bob->History().at(1).when);
}

TEST_F(StorePending, WhoAddedAFactThatNobodyHadStatedIsNotKnown)
{
    m_ann->PutPending("ann", {OfPart("W", m_mass, "", "6")});
    Import("part,mass_type,mass [kg]\nW,Weighed,5\n");
    const SaveOutcome outcome = m_ann->SavePending("ann");
    ASSERT_THAT(outcome.conflicts, SizeIs(1));
    EXPECT_EQ(outcome.conflicts[0].stored, "5");
    EXPECT_EQ(outcome.conflicts[0].by + outcome.conflicts[0].at, "");
}

TEST_F(StorePending, UseThatAnImportRemovedConflicts)
{
    m_ann->PutPending("ann", {OfUse("ASM", "q", m_mass, "", "6")});
    const RowId use = Use("ASM", "q");
    Import("parent,instance,part\n,,R\nR,left,ASM\nR,right,ASM\nASM,p,P\n", "R");
    const SaveOutcome outcome = m_ann->SavePending("ann");
    ASSERT_THAT(outcome.conflicts, SizeIs(1));
    EXPECT_TRUE(outcome.conflicts[0].isGone);
    EXPECT_EQ(outcome.conflicts[0].subject, "use ASM A / q");
    EXPECT_EQ(outcome.conflicts[0].stored, "");
    EXPECT_EQ(outcome.conflicts[0].by, "kim");
    EXPECT_THAT(Facts(OwnerKind::Use, use),
                ElementsAre("kim import t.csv: use ASM A / q, : Q A > "));
    EXPECT_EQ(m_ann->AbortPending("ann"), 1U);
}

TEST_F(StorePending, NewUseNeverTakesOverWhatIsSaidOfARemovedOne)
{
    // "p" of Z is the use of the highest number.
    m_ann->PutPending("ann", {OfUse("Z", "p", m_mass, "", "6")});
    const RowId removed = Use("Z", "p");
    Import("parent,instance,part\n,,Z\nZ,other,W\n", "Z");
    EXPECT_GT(Use("Z", "other"), removed);
    const PendingView view(*m_ann, "ann");
    EXPECT_THAT(m_ann->ReadUse(Use("Z", "other")).use.sets, IsEmpty());
    EXPECT_TRUE(m_ann->PendingChanges("ann").at(0).isGone);
}

TEST_F(StorePending, SumsRiseForThePartAndAllAboveIt)
{
    EXPECT_EQ(Raised([&] { Save(OfPart("P", m_mass, "4", "6")); }), "ASM P R Z");
    EXPECT_EQ(Raised([&] { Save(OfPart("Q", m_density, "2700", "1")); }), "ASM Q R");
    EXPECT_EQ(Raised([&] { Save(OfUse("ASM", "q", m_material, "", "Wax")); }), "ASM R");
    EXPECT_EQ(Raised([&] { Save(OfPart("P", m_active, "", "Weighed")); }), "ASM P R Z");
    EXPECT_EQ(Raised([&] { Save(OfPart("W", {"", "density order"}, "", "wb")); }), "W");
}

TEST_F(StorePending, PropertiesRaiseNothingAndMakeNothingOlder)
{
    EXPECT_EQ(Raised([&] { Save(OfPart("P", m_vendor, "Smith", "Jones")); }), "");
    EXPECT_EQ(Raised([&] { Save(OfUse("R", "right", m_place, "port", "")); }), "");
    EXPECT_FALSE(IsOutdated("bob", "left"));
    EXPECT_EQ(Committed("P", m_vendor), "Jones");
    EXPECT_EQ(m_bob->Roots().size(), 3U);
}

TEST_F(StorePending, SavedChangeMakesSetsAboveItOlder)
{
    EXPECT_FALSE(IsOutdated("bob", "left"));
    Save(OfPart("P", m_mass, "4", "6"));
    EXPECT_TRUE(IsOutdated("bob", "left"));
    EXPECT_TRUE(IsOutdated("bob", "right"));
    Save(OfPart("ASM", m_mass, "10", "12"));
    EXPECT_FALSE(IsOutdated("bob", "left")) << "stated anew";
    EXPECT_TRUE(IsOutdated("bob", "right"));
    Save(OfUse("R", "right", {"Supplier", "mass"}, "11", "12"));
    EXPECT_FALSE(IsOutdated("bob", "right"));
}

TEST_F(StorePending, SetsThatAreSavedTogetherWithTheChangeAreNotOlder)
{
    m_ann->PutPending("ann", {OfPart("P", m_mass, "4", "6"), OfPart("ASM", m_mass, "10", "12")});
    EXPECT_EQ(m_ann->SavePending("ann").saved, 2U);
    EXPECT_FALSE(IsOutdated("bob", "left"));
    EXPECT_TRUE(IsOutdated("bob", "right"));
}

TEST_F(StorePending, TypedFormOfASavedValueIsForgotten)
{
    EXPECT_EQ(m_bob->CommittedPart(Part("P")).part.sets.at(0).typed,
              "mass=4 kg|cgx=1 mm|cgy=2 mm|cgz=3 mm");
    Save(OfPart("P", m_mass, "4", "6"));
    EXPECT_EQ(m_bob->CommittedPart(Part("P")).part.sets.at(0).typed, "cgx=1 mm|cgy=2 mm|cgz=3 mm");
}

TEST_F(StorePending, LastImposedTypeStaysWhenTheChoiceIsTakenBack)
{
    EXPECT_EQ(m_bob->CommittedPart(Part("ASM")).part.lastImposed, "Weighed") << "by the import";
    EXPECT_EQ(m_bob->CommittedUse(Use("R", "right")).use.lastImposed, "Supplier");
    EXPECT_EQ(m_bob->CommittedPart(Part("P")).part.lastImposed, "");
    Save(OfPart("ASM", m_active, "Weighed", ""));
    EXPECT_EQ(m_bob->CommittedPart(Part("ASM")).part.activeType, "");
    EXPECT_EQ(m_bob->CommittedPart(Part("ASM")).part.lastImposed, "Weighed");
    Import("part,name\nASM,Frame\n");
    EXPECT_EQ(m_bob->CommittedPart(Part("ASM")).part.lastImposed, "Weighed");
    Save(OfPart("ASM", m_active, "", "Estimated"));
    EXPECT_EQ(m_bob->CommittedPart(Part("ASM")).part.lastImposed, "Estimated");
}

TEST_F(StorePending, SaveThatAnotherProgramStandsInTheWayOfLeavesEverythingPending)
{
    m_ann->PutPending("ann", {OfPart("P", m_mass, "4", "6")});
    {
        SqlConnection other(Path());
        ASSERT_EQ(other.Run("BEGIN IMMEDIATE"), SQLITE_OK);
        for (const auto& act : std::vector<std::function<void()>>{
                 [&] { m_ann->SavePending("ann"); }, [&] { m_ann->AbortPending("ann"); },
                 [&] {
                     m_ann->PutPending("ann", {OfPart("P", m_mass, "4", "7")});
                 }}) {
            try {
                act();
                ADD_FAILURE() << "nobody may write";
            } catch (const StoreError& error) {
                EXPECT_THAT(error.what(), HasSubstr("another program is writing"));
            }
        }
    }
    EXPECT_EQ(m_ann->PendingChanges("ann").at(0).after, "6");
    EXPECT_EQ(m_ann->SavePending("ann").saved, 1U);
}

TEST_F(StorePending, FullDiskLeavesEverythingPending)
{
    m_ann->PutPending("ann", {OfPart("P", m_mass, "4", "6"), OfPart("Q", m_density, "2700", "1")});
    // Whatever is the last that a save writes, it is undone with the rest.
    for (const char* table : {"history", "changed_fact", "outdated_set", "part_value"}) {
        SqlConnection(Path()).Run(std::string("CREATE TRIGGER full BEFORE INSERT ON ") + table +
                                  " BEGIN SELECT RAISE(ABORT, 'database or disk is full'); END");
        EXPECT_THROW(m_ann->SavePending("ann"), StoreError) << table;
        SqlConnection(Path()).Run("DROP TRIGGER full");
        EXPECT_EQ(Committed("P", m_mass), "4") << table;
        EXPECT_EQ(Committed("Q", m_density), "2700") << table;
        EXPECT_THAT(m_bob->History(), SizeIs(1)) << table;
        EXPECT_THAT(m_bob->PendingChanges("ann"), SizeIs(2)) << table;
    }
    SqlConnection(Path()).Run("CREATE TRIGGER full BEFORE DELETE ON pending_change BEGIN SELECT "
                              "RAISE(ABORT, 'database or disk is full'); END");
    EXPECT_THROW(m_ann->SavePending("ann"), StoreError);
    EXPECT_THROW(m_ann->AbortPending("ann"), StoreError);
    SqlConnection(Path()).Run("DROP TRIGGER full");
    EXPECT_EQ(Committed("P", m_mass), "4");
    EXPECT_EQ(m_ann->SavePending("ann").saved, 2U);
}

TEST_F(StorePending, ValueThatMayNotBeStatedAnyMoreIsSaidAndStaysPending)
{
    m_ann->PutPending("ann",
                      {OfPart("P", m_active, "", "Supplier"), OfPart("Q", m_density, "2700", "1")});
    // The use that counts with Supplier is there no more.
    Import("parent,instance,part\n,,R\nR,left,ASM\n", "R");
    MassType goal{"Supplier", 25, MassType::Kind::Goal, "", 0, 0, ""};
    ASSERT_THAT(m_bob->PutMassTypes({goal}, "kim", "m.csv"), IsEmpty());
    try {
        m_ann->SavePending("ann");
        ADD_FAILURE() << "a goal never counts";
    } catch (const StoreError& error) {
        EXPECT_EQ(error.what(), Path() + ": part P A, active: found \"Supplier\", expected a "
                                         "claim, since a goal never counts");
    }
    EXPECT_THAT(m_ann->PendingChanges("ann"), SizeIs(2));
    EXPECT_EQ(Committed("Q", m_density), "2700");
    EXPECT_EQ(Seen(*m_ann, "ann", "P", m_active), "") << "it is not shown either";
}

TEST_F(StorePending, ImportNeverTakesWhatIsPendingForStored)
{
    m_ann->PutPending("kim", {OfPart("P", m_mass, "4", "6"),
                              OfUse("R", "right", {"Supplier", "mass"}, "11", "12")});
    const PendingView view(*m_ann, "kim");
    Import("parent,instance,part,note\n,,P,heavy\nR,right,ASM,near\n");
    EXPECT_EQ(Committed("P", m_mass), "4");
    EXPECT_EQ(CommittedOfUse("R", "right", {"Supplier", "mass"}), "11");
    EXPECT_EQ(m_bob->CommittedPart(Part("P")).part.note, "heavy");
}

TEST_F(StorePending, ImportFillsAClearedPropertyAgain)
{
    Save(OfPart("P", m_vendor, "Smith", ""));
    const auto read = ReadProductTable("part,p:Vendor\nP,Jones\n", "t.csv", {}, *m_ann);
    const ImportOutcome outcome =
        m_ann->Import(read.product, {"kim", "t.csv", "c", KnownFacts::Refuse});
    EXPECT_THAT(outcome.errors, IsEmpty());
    EXPECT_EQ(Committed("P", m_vendor), "Jones");
    EXPECT_THAT(outcome.counts.changedFacts, IsEmpty());
}

/// What two users do at random, in two programs, beside a model of plain maps.
TEST_F(StorePending, RandomSeriesEqualsAPlainModel)
{
    struct Change
    {
        std::string seen;
        std::string after;
    };
    struct Field
    {
        OwnerKind kind;
        RowId owner;
        Quantity quantity;
        bool operator<(const Field& other) const
        {
            return std::tie(kind, owner, quantity) <
                   std::tie(other.kind, other.owner, other.quantity);
        }
    };
    const std::vector<Field> fields{{OwnerKind::Part, Part("P"), m_mass},
                                    {OwnerKind::Part, Part("P"), m_centre},
                                    {OwnerKind::Part, Part("Q"), m_density},
                                    {OwnerKind::Use, Use("ASM", "q"), m_mass},
                                    {OwnerKind::Part, Part("P"), m_vendor}};
    std::map<Field, std::string> committed;
    const auto read = [&](const Field& field) {
        return field.kind == OwnerKind::Part
                   ? QuantityText(m_bob->ReadPart(field.owner).part, field.quantity)
                   : QuantityText(m_bob->ReadUse(field.owner).use, field.quantity);
    };
    for (const Field& field : fields) {
        committed[field] = read(field);
    }
    std::array<std::map<Field, Change>, 2> pending;
    const unsigned seed = std::random_device()();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const auto pick = [&](std::size_t count) {
        return random() % count;
    };
    constexpr std::array kUsers{"ann", "bob"};
    std::size_t saves = 0;
    for (int step = 0; step < 300; ++step) {
        const std::size_t who = pick(2);
        Store& store = pick(2) == 0 ? *m_ann : *m_bob;
        switch (pick(5)) {
        default: {
            const Field& field = fields[pick(fields.size())];
            std::string after = std::to_string(1 + pick(3));
            after = field.quantity == m_centre ? after + ";0;0" : after;
            store.PutPending(
                kUsers[who],
                {{field.kind, field.owner, field.quantity, committed[field], after, {}}});
            pending[who].erase(field);
            if (after != committed[field]) {
                pending[who][field] = {committed[field], after};
            }
            break;
        }
        case 0: {
            std::size_t conflicts = 0;
            for (const auto& [field, change] : pending[who]) {
                conflicts += change.seen == committed[field] ? 0 : 1;
            }
            const SaveOutcome outcome = store.SavePending(kUsers[who]);
            ASSERT_EQ(outcome.conflicts.size(), conflicts);
            ASSERT_EQ(outcome.saved, conflicts == 0 ? pending[who].size() : 0);
            if (conflicts == 0) {
                saves += pending[who].empty() ? 0 : 1;
                for (const auto& [field, change] : pending[who]) {
                    committed[field] = change.after;
                }
                pending[who].clear();
            }
            break;
        }
        case 1:
            ASSERT_EQ(store.AbortPending(kUsers[who]), pending[who].size());
            pending[who].clear();
            break;
        }
        for (std::size_t user = 0; user < kUsers.size(); ++user) {
            const PendingView view(*m_bob, kUsers[user]);
            ASSERT_EQ(view.Number() == 0, pending[user].empty());
            for (const Field& field : fields) {
                const auto found = pending[user].find(field);
                ASSERT_EQ(read(field),
                          found == pending[user].end() ? committed[field] : found->second.after);
            }
        }
        for (const Field& field : fields) {
            ASSERT_EQ(read(field), committed[field]);
        }
    }
    EXPECT_THAT(m_bob->History(), SizeIs(1 + saves));
}
} // namespace
