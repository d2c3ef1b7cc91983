#pragma once

#include "ServerTesting.h"
#include "WBStore.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace wbtest
{
/// Two programs with one database, each at work for a user of its own: R holds two uses of the
/// assembly ASM, which holds a P and a Q; Z holds a P too.
class TwoStores : public testing::Test
{
protected:
    static constexpr const char* kProducts =
        "parent,instance,part,mass_type,values_on,active,mass [kg],cgx [mm],cgy [mm],cgz "
        "[mm],density [kg/m3],material,material_density [kg/m3],p:Vendor,i:Place\n"
        ",,R,,,,,,,,,,,,\n"
        "R,left,ASM,Weighed,,yes,10,,,,,,,,\n"
        "R,right,ASM,Supplier,instance,yes,11,,,,,,,,port\n"
        "ASM,p,P,Weighed,,,4 ,1,2,3,,Steel,7850,Smith,\n"
        "ASM,q,Q,Estimated,,,5,,,,2700,,,,\n"
        ",,Z,,,,,,,,,,,,\n"
        "Z,p,P,,,,,,,,,,,,\n"
        ",,W,,,,,,,,,Wax,900,,\n";

    void SetUp() override
    {
        m_ann = wb::Store::OpenOrCreate(Path(), kWait).store;
        Import(kProducts);
        m_bob = wb::Store::Open(Path(), kWait).store;
        ASSERT_NE(m_bob, nullptr);
    }

    std::string Path() const { return m_directory.File("x.db"); }
    /// By "kim", who has nothing pending.
    void Import(const std::string& table, const std::string& replace = {})
    {
        const auto read = wb::ReadProductTable(table, "t.csv", {}, *m_ann);
        ASSERT_THAT(read.errors, testing::IsEmpty());
        const wb::ImportOutcome outcome =
            m_ann->Import(read.product, {"kim", "t.csv", "c", wb::KnownFacts::Update, replace});
        ASSERT_THAT(outcome.errors, testing::IsEmpty());
    }

    wb::RowId Part(const char* identifier) { return m_ann->FindPart(identifier, "A")->id; }
    wb::RowId Use(const char* parent, const char* instance)
    {
        return m_ann->FindUse(Part(parent), instance)->id;
    }
    wb::PendingChange OfPart(const char* identifier, const wb::Quantity& quantity, const char* seen,
                             const char* after)
    {
        return {wb::OwnerKind::Part, Part(identifier), quantity, seen, after, {}};
    }
    wb::PendingChange OfUse(const char* parent, const char* instance, const wb::Quantity& quantity,
                            const char* seen, const char* after)
    {
        return {wb::OwnerKind::Use, Use(parent, instance), quantity, seen, after, {}};
    }

    /// What a user sees of a part.
    std::string Seen(const wb::Store& store, const char* user, const char* identifier,
                     const wb::Quantity& quantity)
    {
        const wb::PendingView view(store, user);
        return QuantityText(store.ReadPart(Part(identifier)).part, quantity);
    }
    std::string Committed(const char* identifier, const wb::Quantity& quantity)
    {
        return QuantityText(m_bob->CommittedPart(Part(identifier)).part, quantity);
    }
    std::string CommittedOfUse(const char* parent, const char* instance,
                               const wb::Quantity& quantity)
    {
        return QuantityText(m_bob->CommittedUse(Use(parent, instance)).use, quantity);
    }

    static constexpr int kWait = 20; // milliseconds
    wbtest::Directory m_directory;
    std::unique_ptr<wb::Store> m_ann;
    std::unique_ptr<wb::Store> m_bob;
    const wb::Quantity m_mass{"Weighed", "mass"};
    const wb::Quantity m_centre{"Weighed", "centre"};
    const wb::Quantity m_active{"", "active"};
    const wb::Quantity m_density{"", "density"};
    const wb::Quantity m_material{"", "material"};
    const wb::Quantity m_vendor{"", "property Vendor"};
    const wb::Quantity m_place{"", "property Place"};
};
} // namespace wbtest
