#include "PendingTesting.h"

#include "SqlConnection.h"

using namespace wb;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
class PendingViews : public wbtest::TwoStores
{
protected:
    std::string InProduct(const Store& store, const char* identifier, const Quantity& quantity)
    {
        const Product product = store.ReadProduct(Part("R"));
        return QuantityText(wbtest::PartNamed(product, identifier), quantity);
    }
    DensityCount Densities(const char* user)
    {
        const PendingView view(*m_bob, user);
        return m_bob->CountDensities(Part("R"));
    }
    /// "part ASM Weighed" for every set of the product R that is older than a change below it.
    std::vector<std::string> Outdated(const char* user)
    {
        const PendingView view(*m_bob, user);
        const Product product = m_bob->ReadProduct(Part("R"));
        std::vector<std::string> lines;
        const auto list = [&](const std::string& owner, const std::vector<ValueSet>& sets) {
            for (const ValueSet& set : sets) {
                if (set.isOutdated) {
                    lines.push_back(owner + " " + set.massType);
                }
            }
        };
        for (const wb::Part& part : product.parts) {
            list("part " + part.identifier, part.sets);
        }
        for (const wb::Use& use : product.uses) {
            list("use " + use.instance, use.sets);
        }
        return lines;
    }
};

TEST_F(PendingViews, EveryReadOfFactsSeesThem)
{
    m_ann->PutPending("ann",
                      {OfPart("P", m_mass, "4", "6"), OfUse("ASM", "q", m_material, "", "Wax"),
                       OfPart("P", m_material, "Steel", "")});
    const PendingView view(*m_bob, "ann");
    EXPECT_EQ(QuantityText(m_bob->ReadPart(Part("P")).part, m_mass), "6");
    EXPECT_EQ(QuantityText(*m_bob->FindFacts("P", "A"), m_mass), "6");
    EXPECT_EQ(m_bob->ReadUse(Use("ASM", "q")).use.material, "Wax");
    const wb::Part parent = m_bob->ReadPart(Part("ASM")).part;
    const wb::Part part = m_bob->ReadPart(Part("Q")).part;
    EXPECT_EQ(m_bob->FindUseFacts(parent, "q", part)->material, "Wax");
    EXPECT_EQ(InProduct(*m_bob, "P", m_mass), "6");
    EXPECT_EQ(m_bob->CommittedPart(Part("P")).part.sets.at(0)[Fact::Mass], 4);
    EXPECT_EQ(m_bob->CommittedUse(Use("ASM", "q")).use.material, "");
}

TEST_F(PendingViews, ProductBringsTheMaterialsThatItNowNeeds)
{
    m_ann->PutPending("ann", {OfPart("P", m_material, "Steel", "Wax")});
    const PendingView view(*m_bob, "ann");
    std::vector<std::string> names;
    for (const Material& material : m_bob->ReadProduct(Part("R")).materials) {
        names.push_back(material.name);
    }
    EXPECT_THAT(names, ElementsAre("Wax"));
}

TEST_F(PendingViews, SeveralChangesOfOneOwnerAreAllSeen)
{
    m_ann->PutPending("ann", {OfPart("P", m_mass, "4", ""), OfPart("P", m_centre, "1;2;3", ""),
                              OfPart("P", {"Supplier", "mass"}, "", "7"),
                              OfPart("P", m_active, "", "Supplier")});
    const PendingView view(*m_bob, "ann");
    const wb::Part part = m_bob->ReadPart(Part("P")).part;
    ASSERT_EQ(part.sets.size(), 1U);
    EXPECT_EQ(part.sets[0].massType, "Supplier");
    EXPECT_EQ(part.activeType, "Supplier");
    EXPECT_EQ(part.Imposed(), "Supplier");
}

TEST_F(PendingViews, PropertiesOfUsesAreSeen)
{
    m_ann->PutPending("ann", {OfUse("R", "right", m_place, "port", "starboard"),
                              OfUse("R", "right", {"Supplier", "mass"}, "11", "12")});
    const auto properties = [&](const char* user) {
        const PendingView view(*m_bob, user);
        std::vector<std::string> lines;
        m_bob->UseProperties([&](RowId use, const Property& property) {
            lines.push_back(std::to_string(use) + " " + property.name + "=" + property.value);
        });
        return lines;
    };
    const std::string right = std::to_string(Use("R", "right"));
    EXPECT_THAT(properties("ann"), ElementsAre(right + " Place=starboard"));
    EXPECT_THAT(properties("bob"), ElementsAre(right + " Place=port"));
    Import("parent,instance,part,i:Place\nZ,p,P,bow\n");
    EXPECT_THAT(properties("ann"), testing::Contains(std::to_string(Use("Z", "p")) + " Place=bow"));
}

TEST_F(PendingViews, DensitiesAreCountedWithThem)
{
    // P has a material, Q a density: in R each stands in one kind of place.
    EXPECT_EQ(Densities("ann").with, 2);
    EXPECT_EQ(Densities("ann").without, 0);
    m_ann->PutPending("ann", {OfPart("P", m_material, "Steel", "")});
    EXPECT_EQ(Densities("ann").with, 1);
    EXPECT_EQ(Densities("ann").without, 1);
    EXPECT_EQ(Densities("bob").without, 0);
    m_ann->PutPending("ann", {OfPart("Q", m_density, "2700", "")});
    EXPECT_EQ(Densities("ann").without, 2);
    m_ann->PutPending("ann", {OfUse("ASM", "q", m_material, "", "Wax")});
    EXPECT_EQ(Densities("ann").with, 1);
    m_ann->PutPending("ann", {OfUse("ASM", "p", m_density, "", "5")});
    EXPECT_EQ(Densities("ann").with, 2);
    m_ann->SavePending("ann");
    EXPECT_EQ(Densities("bob").with, 2) << "as after saving";
}

TEST_F(PendingViews, DensitiesOfSurfacesAndOfMaterialsCountToo)
{
    Import("parent,instance,part,surface_density [kg/m2],material,"
           "material_surface_density [kg/m2]\nASM,s,SHEET,3,,\n,,COVER,,Foil,0.2\n"
           ",,LID,,Riddle,\n");
    EXPECT_EQ(Densities("ann").with, 3);
    m_ann->PutPending("ann", {OfPart("SHEET", m_material, "", "Riddle")});
    EXPECT_EQ(Densities("ann").with, 3) << "it has a density of its own";
    m_ann->PutPending("ann", {OfPart("P", m_material, "Steel", "Foil")});
    EXPECT_EQ(Densities("ann").with, 3);
    m_ann->PutPending("ann", {OfPart("P", m_material, "Steel", "Riddle")});
    EXPECT_EQ(Densities("ann").with, 2) << "nobody knows what that weighs";
    m_ann->SavePending("ann");
    EXPECT_EQ(Densities("bob").with, 2) << "as after saving";
}

TEST_F(PendingViews, OtherPendingChangesLeaveTheCountAlone)
{
    m_ann->PutPending("ann", {OfPart("P", m_mass, "4", "5")});
    EXPECT_EQ(Densities("ann").with, 2);
}

TEST_F(PendingViews, SetsAboveAPendingChangeCountAsOlder)
{
    m_ann->PutPending("ann", {OfPart("P", m_mass, "4", "6")});
    EXPECT_THAT(Outdated("ann"), ElementsAre("part ASM Weighed", "use right Supplier"));
    EXPECT_THAT(Outdated("bob"), IsEmpty());
    m_ann->PutPending("ann", {OfPart("ASM", m_mass, "10", "12")});
    EXPECT_THAT(Outdated("ann"), ElementsAre("use right Supplier")) << "he has stated it anew";
    m_ann->SavePending("ann");
    EXPECT_THAT(Outdated("bob"), ElementsAre("use right Supplier")) << "as after saving";
}

TEST_F(PendingViews, SetsFarAboveAPendingChangeCountAsOlder)
{
    Import("parent,instance,part,mass_type,values_on,mass [kg]\n,,R,Supplier,,30\n"
           "R,left,ASM,Supplier,instance,12\n");
    EXPECT_THAT(Outdated("ann"), IsEmpty());
    m_ann->PutPending("ann", {OfPart("P", m_mass, "4", "6")});
    EXPECT_THAT(Outdated("ann"), ElementsAre("part R Supplier", "part ASM Weighed",
                                             "use left Supplier", "use right Supplier"));
    m_ann->AbortPending("ann");
    m_ann->PutPending("ann", {OfUse("R", "left", m_density, "", "5")});
    EXPECT_THAT(Outdated("ann"), ElementsAre("part R Supplier"));
}

TEST_F(PendingViews, SetThatIsNotStatedAnewStaysOlder)
{
    Import("part,mass_type,mass [kg]\nASM,Estimated,9\n");
    m_ann->PutPending("ann", {OfPart("P", m_mass, "4", "6"), OfPart("ASM", m_mass, "10", "12")});
    EXPECT_THAT(Outdated("ann"), ElementsAre("part ASM Estimated", "use right Supplier"));
    m_ann->SavePending("ann");
    EXPECT_THAT(Outdated("bob"), ElementsAre("part ASM Estimated", "use right Supplier"));
}

TEST_F(PendingViews, ChangeOfAUseMakesItsParentOlder)
{
    m_ann->PutPending("ann", {OfUse("ASM", "q", m_density, "", "5")});
    EXPECT_THAT(Outdated("ann"), ElementsAre("part ASM Weighed", "use right Supplier"));
    m_ann->SavePending("ann");
    EXPECT_THAT(Outdated("bob"), ElementsAre("part ASM Weighed", "use right Supplier"));
}

TEST_F(PendingViews, ChangeOfAnAssemblyLeavesItsOtherSetsAlone)
{
    // The use's own values do not stand above the assembly but beside its own.
    m_ann->PutPending("ann", {OfPart("ASM", m_mass, "10", "12")});
    EXPECT_THAT(Outdated("ann"), IsEmpty());
    m_ann->SavePending("ann");
    EXPECT_THAT(Outdated("bob"), IsEmpty());
}

TEST_F(PendingViews, PropertiesMakeNothingOlder)
{
    m_ann->PutPending(
        "ann", {OfPart("P", m_vendor, "Smith", "Jones"), OfUse("R", "right", m_place, "port", "")});
    EXPECT_THAT(Outdated("ann"), IsEmpty());
}

TEST_F(PendingViews, RestatedSetIsNoLongerOlder)
{
    Import("part,mass_type,mass [kg]\nP,Weighed,5\n");
    EXPECT_THAT(Outdated("ann"), ElementsAre("part ASM Weighed", "use right Supplier"));
    m_ann->PutPending("ann", {OfPart("ASM", {"Weighed", "precision"}, "", "percent;1;1")});
    EXPECT_THAT(Outdated("ann"), ElementsAre("use right Supplier"));
    m_ann->SavePending("ann");
    EXPECT_THAT(Outdated("bob"), ElementsAre("use right Supplier"));
}

TEST_F(PendingViews, WhatIsPutSavedAndGivenUpUnderAViewIsSeenAtOnce)
{
    const PendingView view(*m_ann, "ann");
    EXPECT_EQ(view.Number(), 0);
    m_ann->PutPending("ann", {OfPart("P", m_mass, "4", "6")});
    EXPECT_EQ(QuantityText(m_ann->ReadPart(Part("P")).part, m_mass), "6");
    EXPECT_EQ(view.Number(), m_ann->PendingNumber("ann"));
    m_ann->AbortPending("ann");
    EXPECT_EQ(QuantityText(m_ann->ReadPart(Part("P")).part, m_mass), "4");
    EXPECT_EQ(view.Number(), 0);
    m_ann->PutPending("ann", {OfPart("P", m_mass, "4", "6")});
    m_ann->SavePending("ann");
    EXPECT_EQ(QuantityText(m_ann->ReadPart(Part("P")).part, m_mass), "6");
    EXPECT_EQ(view.Number(), 0);
}

TEST_F(PendingViews, UsesBelowAPartAreReadTogetherAsOneByOne)
{
    Import("parent,instance,part,values_on,mass_type,mass [kg]\n,,R,,,\n"
           "R,a,P,instance,Estimated,3\n");
    m_ann->PutPending("ann", {OfUse("R", "right", {"Supplier", "mass"}, "11", "12")});
    const PendingView view(*m_ann, "ann");
    const auto uses = m_ann->ReadUsesBelow(Part("R"));
    ASSERT_EQ(uses.size(), 3U);
    EXPECT_EQ(uses[0].use.instance, "left");
    EXPECT_EQ(uses[1].use.instance, "right");
    EXPECT_EQ(uses[2].use.instance, "a") << "in the order they were stored, not by name";
    EXPECT_THAT(uses[0].use.sets, IsEmpty());
    EXPECT_EQ(QuantityText(uses[1].use, {"Supplier", "mass"}), "12");
    EXPECT_EQ(QuantityText(uses[1].use, m_place), "port");
    EXPECT_EQ(QuantityText(uses[2].use, {"Estimated", "mass"}), "3");
    for (const StoredUse& use : uses) {
        const StoredUse single = m_ann->ReadUse(use.id);
        EXPECT_EQ(use.parent, single.parent);
        EXPECT_EQ(use.part, single.part);
        EXPECT_EQ(use.use.instance, single.use.instance);
    }
    EXPECT_THAT(m_ann->ReadUsesBelow(Part("P")), IsEmpty());
}

TEST_F(PendingViews, ChangesOfOthersAreNotSeenUnderAView)
{
    const PendingView view(*m_ann, "bob");
    m_ann->PutPending("ann", {OfPart("P", m_mass, "4", "6")});
    EXPECT_EQ(QuantityText(m_ann->ReadPart(Part("P")).part, m_mass), "4");
}

TEST_F(PendingViews, ViewsNest)
{
    m_ann->PutPending("ann", {OfPart("P", m_mass, "4", "6")});
    m_ann->PutPending("bob", {OfPart("P", m_mass, "4", "7")});
    const auto mass = [&] {
        return QuantityText(m_ann->ReadPart(Part("P")).part, m_mass);
    };
    {
        const PendingView ann(*m_ann, "ann");
        {
            const PendingView bob(*m_ann, "bob");
            EXPECT_EQ(mass(), "7");
            const PendingView nobody(*m_ann, "");
            EXPECT_EQ(mass(), "4");
        }
        EXPECT_EQ(mass(), "6");
        {
            const PendingView again(*m_ann, "ann");
            m_ann->PutPending("ann", {OfPart("P", m_mass, "4", "8")});
        }
        EXPECT_EQ(mass(), "8") << "changed under the inner view of the same user";
    }
    EXPECT_EQ(mass(), "4");
}

TEST_F(PendingViews, FailedWriteLeavesTheViewAsItWas)
{
    m_ann->PutPending("ann", {OfPart("P", m_mass, "4", "6")});
    const PendingView view(*m_ann, "ann");
    {
        wbtest::SqlConnection other(Path());
        ASSERT_EQ(other.Run("BEGIN IMMEDIATE"), SQLITE_OK);
        EXPECT_THROW(m_ann->AbortPending("ann"), StoreError);
    }
    EXPECT_EQ(QuantityText(m_ann->ReadPart(Part("P")).part, m_mass), "6");
}

TEST_F(PendingViews, GoneOwnersAreLeftOut)
{
    m_ann->PutPending("ann", {OfUse("ASM", "q", m_material, "", "Wax")});
    Import("parent,instance,part\n,,R\nR,left,ASM\nR,right,ASM\nASM,p,P\n", "R");
    EXPECT_EQ(Densities("ann").with, 1);
    const PendingView view(*m_bob, "ann");
    EXPECT_EQ(m_bob->ReadProduct(Part("R")).uses.size(), 3U);
}
} // namespace
