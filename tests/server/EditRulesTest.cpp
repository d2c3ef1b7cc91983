#include "EditTesting.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;
using wb::OwnerKind;
using wb::Quantity;
using wbtest::EditedProduct;

namespace
{
/// A change of the wing's spar, or of the plane's left wing where it says so.
struct ChangeRow
{
    OwnerKind kind;
    Quantity quantity;
    const char* before;
    const char* after;
    bool touchesSums;
};

const std::vector<ChangeRow> kChanges{
    {OwnerKind::Part, {"Weighed", "mass"}, "10", "12", true},
    {OwnerKind::Part, {"Weighed", "centre"}, "1;2;3", "1;2;4", true},
    {OwnerKind::Part, {"Weighed", "inertia"}, "4;5;6;0.1;0.2;0.3", "4;5;6;0.1;0.2;0.4", true},
    {OwnerKind::Part, {"Weighed", "precision"}, "percent;1;2", "absolute;1;2", true},
    {OwnerKind::Part, {"Estimated", "mass"}, "", "9", true},
    {OwnerKind::Part, {"Target", "mass"}, "", "9", true},
    {OwnerKind::Part, {"", "active"}, "Weighed", "", true},
    {OwnerKind::Part, {"", "density"}, "", "2700", true},
    {OwnerKind::Part, {"", "material"}, "", "Brass", true},
    {OwnerKind::Part, {"", "density order"}, "", "material", true},
    {OwnerKind::Part, {"", "property Vendor"}, "Smith", "Miller", false},
    {OwnerKind::Part, {"", "property Built"}, "2026-01-31", "", false},
    {OwnerKind::Use, {"Weighed", "mass"}, "", "40", true},
    {OwnerKind::Use, {"", "density"}, "", "2700", true},
    {OwnerKind::Use, {"", "material"}, "", "Brass", true},
    {OwnerKind::Use, {"", "property Side"}, "port", "starboard", false},
};

class EditRules : public testing::Test
{
protected:
    wb::Store& Store() { return m_product.Store(); }
    wb::RowId Part(const char* identifier) { return Store().FindPart(identifier, "A")->id; }
    wb::RowId OwnerOf(OwnerKind kind)
    {
        return kind == OwnerKind::Part ? Part("SPAR") : Store().FindUse(Part("PLANE"), "left")->id;
    }
    wb::PendingChange Change(const ChangeRow& row)
    {
        return {row.kind, OwnerOf(row.kind), row.quantity, row.before, row.after, {}};
    }
    std::string Stored(const ChangeRow& row)
    {
        const wb::RowId owner = OwnerOf(row.kind);
        return row.kind == OwnerKind::Part
                   ? QuantityText(Store().CommittedPart(owner).part, row.quantity)
                   : QuantityText(Store().CommittedUse(owner).use, row.quantity);
    }
    std::map<std::string, std::int64_t> Numbers()
    {
        std::map<std::string, std::int64_t> numbers;
        for (const char* part : {"PLANE", "GLIDER", "WING", "SPAR", "RIB", "BOLT", "HOOK"}) {
            numbers[part] = Store().ChangeNumber(Part(part));
        }
        return numbers;
    }
    void Impose(const char* before, const char* after, bool save = true)
    {
        Store().PutPending("kim",
                           {{OwnerKind::Part, Part("WING"), {"", "active"}, before, after, {}}});
        if (save) {
            ASSERT_EQ(m_product.Save("kim"), "Save|OK");
        }
    }

    EditedProduct m_product;
};
} // namespace

TEST_F(EditRules, SavedChangeRaisesTheNumberOfWhatSumsDependOnOnce)
{
    for (const ChangeRow& row : kChanges) {
        SCOPED_TRACE(QuantityName(row.quantity));
        ASSERT_EQ(Stored(row), row.before);
        const auto before = Numbers();
        Store().PutPending("kim", {Change(row)});
        EXPECT_EQ(Numbers(), before) << "nothing is committed yet";
        ASSERT_EQ(m_product.Save("kim"), "Save|OK");
        EXPECT_EQ(Stored(row), row.after);
        std::int64_t highest = 0;
        for (const auto& [part, number] : before) {
            highest = std::max(highest, number);
        }
        const bool ofPart = row.kind == OwnerKind::Part;
        for (const auto& [part, number] : Numbers()) {
            const bool isAbove =
                ofPart ? part == "SPAR" || part == "WING" || part == "PLANE" || part == "GLIDER"
                       : part == "PLANE";
            if (row.touchesSums && isAbove) {
                EXPECT_GT(number, highest) << part;
            } else {
                EXPECT_EQ(number, before.at(part)) << part;
            }
        }
    }
}

TEST_F(EditRules, SeveralChangesOfOneSaveAreOneStep)
{
    std::vector<wb::PendingChange> changes;
    for (const ChangeRow& row : kChanges) {
        changes.push_back(Change(row));
    }
    const auto before = Numbers();
    Store().PutPending("kim", changes);
    ASSERT_EQ(m_product.Save("kim"), "Save|OK");
    for (const ChangeRow& row : kChanges) {
        EXPECT_EQ(Stored(row), row.after) << QuantityName(row.quantity);
    }
    const auto after = Numbers();
    EXPECT_EQ(after.at("SPAR"), before.at("SPAR") + 1);
    EXPECT_EQ(after.at("WING"), after.at("SPAR"));
    EXPECT_EQ(after.at("PLANE"), after.at("SPAR"));
    EXPECT_EQ(after.at("GLIDER"), after.at("SPAR"));
    EXPECT_EQ(after.at("RIB"), before.at("RIB"));
    EXPECT_THAT(Store().History(), SizeIs(2)) << "the import and one save";
    EXPECT_THAT(Store().History().back().changes, SizeIs(kChanges.size()));
}

TEST_F(EditRules, WhatIsKeptIsNotAnsweredAfterASave)
{
    // The wing weighs 10 + 3 x 8 kg and stands three times; bolt 0.5 kg, hook 0.002 x 2000 kg.
    ASSERT_EQ(m_product.Mass("anna"), "106.5");
    ASSERT_EQ(m_product.Mass("anna"), "106.5") << "this one is kept";
    m_product.WeighSpar("kim", "12");
    EXPECT_EQ(m_product.Mass("anna"), "106.5");
    EXPECT_EQ(m_product.Mass("kim"), "112.5");
    ASSERT_EQ(m_product.Save("kim"), "Save|OK");
    EXPECT_EQ(m_product.Mass("anna"), "112.5");
    EXPECT_EQ(m_product.Mass("kim"), "112.5");
}

TEST_F(EditRules, WhatIsKeptIsAnsweredAfterASavedProperty)
{
    m_product.Mass("anna");
    const std::int64_t number = Store().ChangeNumber(Part("PLANE"));
    Store().PutPending(
        "kim", {{OwnerKind::Part, Part("SPAR"), {"", "property Vendor"}, "Smith", "Miller", {}}});
    ASSERT_EQ(m_product.Save("kim"), "Save|OK");
    EXPECT_EQ(Store().ChangeNumber(Part("PLANE")), number);
    EXPECT_EQ(m_product.Mass("anna"), "106.5");
    EXPECT_THAT(m_product.As("anna", "WBGetStatedValues", wbtest::kSpar), HasSubstr("|Miller|"))
        << "what no sum depends on is new all the same";
}

TEST_F(EditRules, EveryQuantityConflictsWithItselfAlone)
{
    // Every value goes to and fro between its two texts.
    const auto other = [&](const ChangeRow& row) {
        wb::PendingChange change = Change(row);
        if (Stored(row) == row.after) {
            std::swap(change.seen, change.after);
        }
        return change;
    };
    for (const ChangeRow& mine : kChanges) {
        SCOPED_TRACE(QuantityName(mine.quantity));
        std::vector<wb::PendingChange> rest;
        for (const ChangeRow& row : kChanges) {
            if (&row != &mine) {
                rest.push_back(other(row));
            }
        }
        Store().PutPending("kim", {other(mine)});
        Store().PutPending("anna", rest);
        ASSERT_EQ(m_product.Save("anna"), "Save|OK");
        EXPECT_EQ(m_product.Save("kim"), "Save|OK") << m_product.Warnings("kim");
        Store().PutPending("kim", {other(mine)});
        Store().PutPending("anna", {other(mine)});
        ASSERT_EQ(m_product.Save("anna"), "Save|OK");
        EXPECT_EQ(m_product.Save("kim"), "Save|FALSE");
        ASSERT_EQ(m_product.Abort("kim"), "Abort|OK");
    }
}

TEST_F(EditRules, LastImposedTypeOutlivesSavesOfComputed)
{
    const auto wing = [&] {
        const wb::Part part = Store().CommittedPart(Part("WING")).part;
        return std::vector{part.activeType, part.lastImposed};
    };
    EXPECT_THAT(wing(), ElementsAre("", ""));
    Impose("", "Estimated");
    EXPECT_THAT(wing(), ElementsAre("Estimated", "Estimated"));
    Impose("Estimated", "");
    EXPECT_THAT(wing(), ElementsAre("", "Estimated"));
    Impose("", "Weighed");
    EXPECT_THAT(wing(), ElementsAre("Weighed", "Weighed"));
    Impose("Weighed", "Supplier");
    Impose("Supplier", "");
    EXPECT_THAT(wing(), ElementsAre("", "Supplier"));
    // What was imposed and given up, or taken back before it was saved, never was.
    Impose("", "Weighed", false);
    ASSERT_EQ(m_product.Abort("kim"), "Abort|OK");
    EXPECT_THAT(wing(), ElementsAre("", "Supplier"));
    Impose("", "Weighed", false);
    Impose("", "", false);
    EXPECT_EQ(m_product.Save("kim"), "Save|NA");
    EXPECT_THAT(wing(), ElementsAre("", "Supplier"));
}

TEST_F(EditRules, TextWithTheSameFifteenDigitsLeavesNothingBehind)
{
    const auto before = Numbers();
    EXPECT_EQ(m_product.WeighSpar("kim", "10.0000000000000001"), "Apply|OK|0|");
    EXPECT_EQ(m_product.WeighSpar("kim", "1e1"), "Apply|OK|0|");
    EXPECT_EQ(m_product.WeighSpar("kim", "10,0"), "Apply|OK|0|");
    EXPECT_EQ(m_product.Save("kim"), "Save|NA");
    EXPECT_EQ(Numbers(), before);
    EXPECT_THAT(Store().History(), SizeIs(1));
    // One more in the fifteenth digit is another value.
    EXPECT_EQ(m_product.WeighSpar("kim", "10.0000000000001"), "Apply|OK|1|");
    EXPECT_EQ(m_product.Save("kim"), "Save|OK");
    EXPECT_NE(Numbers(), before);
}
