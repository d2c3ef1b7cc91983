#include "ServerTesting.h"
#include "WBStore.h"

using namespace wb;
using testing::ElementsAre;
using testing::HasSubstr;

namespace
{
/// A new database in a directory of its own.
class WBStoreImport : public testing::Test
{
protected:
    void SetUp() override { m_store = Store::OpenOrCreate(m_directory.File("x.db")).store; }

    /// Facts that differ from what is stored are refused.
    ImportOutcome Import(const std::string& table)
    {
        const auto read = ReadProductTable(table, "t.csv", {}, *m_store);
        return read.Ok() ? m_store->Import(read.product,
                                           {"kim", "t.csv", "c0ffee", KnownFacts::Refuse, ""})
                         : ImportOutcome{{}, read.errors};
    }
    void Good(const std::string& table) { EXPECT_THAT(Import(table).errors, ElementsAre()); }
    /// The error of importing a second table after a first.
    std::string Second(const std::string& first, const std::string& second)
    {
        Good(first);
        const auto errors = Import(second).errors;
        return errors.empty() ? std::string() : errors.front();
    }
    Part PartOf(const char* identifier, const char* version = "A")
    {
        return m_store->ReadPart(m_store->FindPart(identifier, version)->id).part;
    }
    std::int64_t Change(const char* identifier)
    {
        return m_store->ChangeNumber(m_store->FindPart(identifier, "A")->id);
    }

    wbtest::Directory m_directory;
    std::unique_ptr<Store> m_store;
};

constexpr const char* kWhole =
    "parent,instance,part,version,name,type,standard,quantity,x [mm],y [mm],z [mm],rz "
    "[deg],mass_type,"
    "values_on,active,mass [lb],lower_pct,upper_pct,cgx [mm],cgy [mm],cgz [mm],volume "
    "[m3],material,"
    "material_on,material_density [kg/m3],density "
    "[kg/m3],density_first,errors,growth_pct,code,source,"
    "source_date,author,note,doc,doc_version,doc_use,doc_checkin_date,doc_checkin_user,"
    "doc_checkout_user,doc_mass_type,doc_mass [kg],p:Vendor,p:Time [h],i:Place\n"
    ",,A,B,Top,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,\n"
    "A,P.1,P,C,Bolt,part,yes,4,1,2,3,90,Weighed,,yes,2.0,1,2,5,6,7,,Al,,2780,12,material,apart,3,"
    "WING,"
    "scale,2026-05-01,kim,dry,D,A.1,both,2026-05-02,lee,max,Weighed,1.5,Acme,2,left\n"
    "A,P.1,P,C,,,,,,,,,Estimated,instance,yes,1,,,,,,0.5,Ti,instance,4430,,,,,,,,,,,,,,,,,,,,\n";
} // namespace

TEST_F(WBStoreImport, EverythingStatedIsReadBack)
{
    Good(kWhole);
    const Part part = PartOf("P", "C");
    EXPECT_EQ(part.name, "Bolt");
    EXPECT_EQ(part.type, PartType::Part);
    EXPECT_EQ(part.standard, Answer::Yes);
    EXPECT_EQ(part.material, "Al");
    EXPECT_EQ(part.density, 12);
    EXPECT_EQ(part.densityFirst, DensityOrder::Material);
    EXPECT_EQ(part.errors, ErrorRule::Apart);
    EXPECT_EQ(part.growthPct, 3);
    EXPECT_EQ(part.code, "WING");
    EXPECT_EQ(part.activeType, "Weighed");
    EXPECT_EQ(TypedText(part.typed, "density"), "12 kg/m3");
    ASSERT_EQ(part.sets.size(), 1U);
    const ValueSet& set = part.sets[0];
    EXPECT_EQ(set[Fact::Mass], 0.90718474);
    EXPECT_EQ(set[Fact::CgZ], 7);
    EXPECT_FALSE(set.HasInertia());
    EXPECT_EQ(TypedText(set.typed, "mass"), "2.0 lb");
    EXPECT_EQ(set.source + set.sourceDate + set.author + set.note, "scale2026-05-01kimdry");
    ASSERT_EQ(part.documents.size(), 1U);
    const DocumentRevision& revision = part.documents[0];
    EXPECT_EQ(revision.document + revision.version, "DA.1");
    EXPECT_EQ(revision.use, DocumentRevision::Use::Both);
    EXPECT_EQ(revision.checkinDate + revision.checkinUser + revision.checkoutUser,
              "2026-05-02leemax");
    EXPECT_EQ(revision.massType, "Weighed");
    EXPECT_EQ(revision.mass, 1.5);
    ASSERT_EQ(part.properties.size(), 2U);
    EXPECT_EQ(part.properties[0].value, "Acme");
    EXPECT_EQ(part.properties[1].magnitude, "TIME");
    EXPECT_EQ(part.properties[1].value, "7200");
    EXPECT_EQ(part.properties[1].typed, "2 h");

    const auto line = m_store->FindUse(m_store->FindPart("A", "B")->id, "P.1");
    ASSERT_TRUE(line);
    EXPECT_EQ(line->quantity, 4);
    EXPECT_THAT(Coefficients(line->placement), ElementsAre(0, 1, 0, -1, 0, 0, 0, 0, 1, 1, 2, 3));
    EXPECT_EQ(line->part.version, "C");
    EXPECT_EQ(line->part.name, "Bolt");
    const Use use = m_store->ReadUse(line->id).use;
    EXPECT_EQ(use.material, "Ti");
    EXPECT_EQ(use.activeType, "Estimated");
    EXPECT_TRUE(use.positionStated);
    EXPECT_TRUE(use.rotationStated);
    EXPECT_EQ(use.sets.at(0)[Fact::Volume], 0.5);
    EXPECT_EQ(use.properties.at(0).value, "left");
    EXPECT_EQ(TypedText(use.typed, "rz"), "90 deg");
    EXPECT_EQ(m_store->FindMaterial("Ti")->density, 4430);
    EXPECT_EQ(m_store->FindMaterial("Cu"), std::nullopt);
}

TEST_F(WBStoreImport, SameTableTwiceChangesNothing)
{
    Good(kWhole);
    const ImportCounts again = Import(kWhole).counts;
    EXPECT_FALSE(again.Changes());
    EXPECT_EQ(again.unchangedParts, 2U);
    EXPECT_EQ(again.unchangedUses, 1U);
    EXPECT_EQ(m_store->History().size(), 1U);
    EXPECT_EQ(m_store->ReadPart(m_store->FindPart("A", "B")->id).part.name, "Top");
}

TEST_F(WBStoreImport, HistorySaysWhoWhatAndFromWhichFile)
{
    Good("part\nP\n");
    const auto history = m_store->History();
    ASSERT_EQ(history.size(), 1U);
    EXPECT_EQ(history[0].who, "kim");
    EXPECT_EQ(history[0].what, "import");
    EXPECT_EQ(history[0].subject, "t.csv");
    EXPECT_EQ(history[0].checksum, "c0ffee");
    EXPECT_EQ(history[0].when.size(), std::string("2026-01-01 00:00:00").size());
}

TEST_F(WBStoreImport, WhatIsNewIsCounted)
{
    const auto outcome = Import("parent,part\n,A\nA,P\n");
    EXPECT_EQ(outcome.counts.newParts, 2U);
    EXPECT_EQ(outcome.counts.newUses, 1U);
    EXPECT_THAT(outcome.counts.unusedParts, ElementsAre("A A"));
}

TEST_F(WBStoreImport, NewFactsOfAKnownPartAreAdded)
{
    Good("part,mass_type,mass [kg]\nP,Estimated,1\n");
    const auto outcome = Import("part,name,mass_type,mass [kg],p:V,doc,doc_version\n"
                                "P,Bolt,Weighed,2,x,D,A\n");
    EXPECT_THAT(outcome.errors, ElementsAre());
    EXPECT_EQ(outcome.counts.changedParts, 1U);
    const Part part = PartOf("P");
    EXPECT_EQ(part.name, "Bolt");
    EXPECT_EQ(part.sets.size(), 2U);
    EXPECT_EQ(part.properties.size(), 1U);
    EXPECT_EQ(part.documents.size(), 1U);
}

TEST_F(WBStoreImport, NewNumbersOfAKnownSetAreAdded)
{
    Good("part,mass_type,mass [kg]\nP,Estimated,1\n");
    Good("part,mass_type,cgx [in],cgy [in],cgz [in],density "
         "[kg/m3],growth_pct\nP,Estimated,1,0,0,5,2\n");
    const Part part = PartOf("P");
    EXPECT_EQ(part.sets.at(0)[Fact::Mass], 1);
    EXPECT_EQ(part.sets.at(0)[Fact::CgX], 25.4);
    EXPECT_EQ(part.sets.at(0).typed, "mass=1 kg|cgx=1 in|cgy=0 in|cgz=0 in");
    EXPECT_EQ(part.typed, "growth_pct=2 %|density=5 kg/m3");
}

TEST_F(WBStoreImport, NewUsesOfAKnownPartAreAdded)
{
    Good("parent,instance,part\n,,A\nA,P.1,P\n");
    const auto outcome =
        Import("parent,instance,part,quantity,x [mm],y [mm],z [mm],rz [deg],material,"
               "material_on,i:N\nA,P.2,P,,,,,,,,\nA,P.1,P,3,1,2,3,90,Ti,instance,x\n");
    EXPECT_THAT(outcome.errors, ElementsAre());
    EXPECT_EQ(outcome.counts.newUses, 1U);
    EXPECT_EQ(outcome.counts.changedUses, 1U);
    EXPECT_EQ(outcome.counts.unchangedParts, 2U);
    const auto uses = m_store->UsesOf(m_store->FindPart("A", "A")->id);
    ASSERT_EQ(uses.size(), 2U);
    EXPECT_EQ(uses[0].quantity, 3);
    EXPECT_THAT(Coefficients(uses[0].placement), ElementsAre(0, 1, 0, -1, 0, 0, 0, 0, 1, 1, 2, 3));
    EXPECT_EQ(uses[1].instance, "P.2");
    const Use first = m_store->ReadUse(uses[0].id).use;
    EXPECT_EQ(first.material, "Ti");
    EXPECT_EQ(first.typed, "x=1 mm|y=2 mm|z=3 mm|rz=90 deg");
    EXPECT_EQ(first.properties.size(), 1U);
}

TEST_F(WBStoreImport, BlankVersionIsTheOneThatIsStored)
{
    Good("part,version\nP,C\n");
    Good("part,name\nP,Bolt\n");
    EXPECT_EQ(PartOf("P", "C").name, "Bolt");
    Good("part,version\nP,D\n");
    EXPECT_THAT(Import("part,name\nP,Nut\n").errors, ElementsAre(HasSubstr("P has 2 versions")));
}

TEST_F(WBStoreImport, ParentMayBeInTheDatabaseAlone)
{
    Good("part,version\nA,B\n");
    Good("parent,parent_version,part\nA,B,P\nA,,Q\n");
    EXPECT_EQ(m_store->UsesOf(m_store->FindPart("A", "B")->id).size(), 2U);
}

TEST_F(WBStoreImport, StoredTypeAllowsANegativeMass)
{
    Good("part,type\nP,adjustment\n");
    Good("part,mass_type,mass [kg]\nP,Estimated,-1\n");
    EXPECT_EQ(PartOf("P").sets.at(0)[Fact::Mass], -1);
}

TEST_F(WBStoreImport, FactStatedDifferentlyIsRefusedWithBothValues)
{
    EXPECT_EQ(Second("part,mass_type,mass [kg]\nP,Estimated,1.50\n",
                     "part,name,mass_type,mass [kg]\nP,Bolt,Estimated,2\n"),
              "t.csv:2: part P A, mass type Estimated, mass: found \"2 kg\", the database holds "
              "\"1.50 kg\"; expected the same fact or a blank cell");
    EXPECT_EQ(PartOf("P").name, "");
    EXPECT_EQ(m_store->History().size(), 1U);
}

TEST_F(WBStoreImport, TextsAndChoicesStatedDifferentlyAreRefused)
{
    EXPECT_THAT(Second("part,name,type,material\nP,Bolt,part,Al\n",
                       "part,name,type,material\nP,,,\nP,Nut,,\n"),
                HasSubstr("t.csv:3: part P A, name: found \"Nut\", the database holds \"Bolt\""));
    EXPECT_THAT(Import("part,type\nP,assembly\n").errors, ElementsAre(HasSubstr("part P A, type")));
    EXPECT_THAT(Import("part,material\nP,Ti\n").errors,
                ElementsAre(HasSubstr("material: found \"Ti\", the database holds \"Al\"")));
}

TEST_F(WBStoreImport, UsesStatedDifferentlyAreRefused)
{
    Good("parent,instance,part,quantity,x [mm],y [mm],z [mm],rz [deg],i:N\n,,A,,,,,,\n"
         "A,i,P,2,1,2,3,90,x\n,,Q,,,,,,\n");
    EXPECT_THAT(
        Import("parent,instance,part\nA,i,Q\n").errors,
        ElementsAre(HasSubstr("use A A / i: found part \"Q A\", the database holds \"P A\"")));
    EXPECT_THAT(
        Import("parent,instance,part,quantity\nA,i,P,3\n").errors,
        ElementsAre(HasSubstr("use A A / i, quantity: found \"3\", the database holds \"2\"")));
    EXPECT_THAT(
        Import("parent,instance,part,x [mm],y [mm],z [mm]\nA,i,P,1,2,4\n").errors,
        ElementsAre(HasSubstr("position in mm: found \"1 2 4\", the database holds \"1 2 3\"")));
    EXPECT_THAT(Import("parent,instance,part,rz [deg]\nA,i,P,180\n").errors,
                ElementsAre(HasSubstr("rotation: found \"-1 0 0 0 -1 0 0 0 1\"")));
    EXPECT_THAT(Import("parent,instance,part,i:N\nA,i,P,y\n").errors,
                ElementsAre(HasSubstr("property N: found \"y\", the database holds \"x\"")));
}

TEST_F(WBStoreImport, MaterialsKeepTheirOneDensity)
{
    Good("part,material,material_density [kg/m3]\nP,Al,2780\nQ,Cu,\n");
    EXPECT_THAT(Import("part,material,material_density [g/cm3]\nP,Al,2.7\n").errors,
                ElementsAre(HasSubstr("material Al, material_density: found \"2.7 g/cm3\", the "
                                      "database holds \"2780 kg/m3\"")));
    EXPECT_THAT(Import("part,material,material_surface_density [kg/m2]\nP,Al,3\n").errors,
                ElementsAre(HasSubstr("material_surface_density: found \"3 kg/m2\", the database "
                                      "holds \"material_density 2780 kg/m3\"")));
    EXPECT_THAT(Import("part,material,material_density [g/cm3]\nP,Al,2.78\n").errors,
                ElementsAre());
}

TEST_F(WBStoreImport, DensityAddedToAMaterialChangesWhatIsMadeOfIt)
{
    Good("parent,part,material\n,A,\nA,P,Cu\n,Z,\n");
    const std::int64_t before = Change("A");
    Good("part,material,material_density [kg/m3]\nQ,Cu,8900\n");
    EXPECT_EQ(m_store->FindMaterial("Cu")->density, 8900);
    EXPECT_GT(Change("P"), before);
    EXPECT_GT(Change("A"), before);
    EXPECT_EQ(Change("Z"), before);
}

TEST_F(WBStoreImport, ChangeNumbersRiseUpToTheRoot)
{
    Good("parent,part\n,A\nA,B\nB,P\nA,Q\n");
    const std::int64_t before = Change("A");
    Good("part,name,p:V\nP,Bolt,x\n");
    EXPECT_EQ(Change("A"), before);
    Good("part,mass_type,mass [kg]\nP,Estimated,1\n");
    EXPECT_GT(Change("P"), before);
    EXPECT_EQ(Change("B"), Change("P"));
    EXPECT_EQ(Change("A"), Change("P"));
    EXPECT_EQ(Change("Q"), before);
}

TEST_F(WBStoreImport, PrecisionOfTheOtherKindIsRefused)
{
    EXPECT_THAT(Second("part,mass_type,lower_pct,upper_pct\nP,Estimated,1,2\n",
                       "part,mass_type,lower [kg],upper [kg]\nP,Estimated,1,2\n"),
                HasSubstr("lower: found \"1 kg\", the database holds \"lower_pct 1 %\""));
}

TEST_F(WBStoreImport, RevisionsStayAttachedOnce)
{
    Good("part,doc,doc_version,doc_use,doc_mass [kg]\nP,D,A,attached,1\n");
    EXPECT_THAT(Import("part,doc,doc_version,doc_use\nP,D,B,both\n").errors,
                ElementsAre(HasSubstr("attached revision: found \"B\", the database holds \"A\"")));
    EXPECT_THAT(Import("part,doc,doc_version,doc_mass [kg]\nP,D,A,2\n").errors,
                ElementsAre(HasSubstr("doc_mass: found \"2 kg\", the database holds \"1 kg\"")));
    Good("part,doc,doc_version,doc_use,doc_checkin_user\nP,D,B,active,\nP,D,A,,kim\n");
    EXPECT_EQ(PartOf("P").documents.at(0).checkinUser, "kim");
    EXPECT_EQ(PartOf("P").documents.at(1).version, "B");
}

TEST_F(WBStoreImport, CycleWithWhatIsStoredIsRefused)
{
    EXPECT_THAT(
        Second("parent,instance,part\n,,A\nA,i,B\n", "parent,instance,part\n,,C\nB,i,C\nC,i,A\n"),
        HasSubstr("is a cycle together with what the database holds"));
    EXPECT_EQ(m_store->UsesOf(m_store->FindPart("B", "A")->id).size(), 0U);
}

TEST_F(WBStoreImport, StoredLeafTypeIsNoParent)
{
    EXPECT_EQ(Second("part,type\nA,part\n", "parent,instance,part\nA,i,P\n"),
              "t.csv:2: column \"parent\": A is stored as type part, expected a parent of type "
              "assembly or product");
}

TEST_F(WBStoreImport, RootsAreThePartsThatNobodyUses)
{
    Good("parent,part,type\n,B,\n,A,\nA,P,\n,S,part\n");
    std::vector<std::string> names;
    for (const PartLine& root : m_store->Roots()) {
        names.push_back(root.identifier + " " + PartTypeName(root.type));
    }
    EXPECT_THAT(names, ElementsAre("A product", "B product", "S part"));
    EXPECT_TRUE(m_store->FindRoot("A")->hasUses);
    EXPECT_FALSE(m_store->FindRoot("P"));
    EXPECT_EQ(m_store->FindPart("P", "A")->type, PartType::Part);
    EXPECT_EQ(m_store->FindPart(m_store->FindPart("P", "A")->id)->identifier, "P");
    Good("parent,part\nB,A\n");
    EXPECT_EQ(m_store->FindPart("A", "A")->type, PartType::Assembly);
}

TEST_F(WBStoreImport, LeavesAreCountedByDensityOncePerDifferentPlace)
{
    Good("parent,instance,part,material,material_on,material_density [kg/m3],density [kg/m3]\n"
         ",,A,,,,\nA,1,B,,,,\nA,2,B,,,,\nB,1,P,Al,,2780,\nB,2,Q,,,,\nB,3,Q,Ti,instance,4430,\n"
         "B,4,R,Cu,,,\nB,5,S,,,,7\n");
    const auto count = m_store->CountDensities(m_store->FindPart("A", "A")->id);
    EXPECT_EQ(count.with, 3);    // P, Q of titanium, S
    EXPECT_EQ(count.without, 2); // Q, R
}

TEST_F(WBStoreImport, MassTypesAreAddedAndChanged)
{
    auto types = ShippedMassTypes();
    types[1].lowerPct = 12;
    types.push_back({"Designed", 15, MassType::Kind::Claim, "calculated", 5, 6, "drawn"});
    EXPECT_THAT(m_store->PutMassTypes(types, "kim", "m.csv"), ElementsAre());
    const auto stored = m_store->MassTypes();
    ASSERT_EQ(stored.size(), 6U);
    EXPECT_EQ(stored[1].lowerPct, 12);
    EXPECT_EQ(stored[2].name, "Designed");
    EXPECT_EQ(stored[2].meaning, "drawn");
    EXPECT_EQ(m_store->History().at(0).what, "mass types");
    Good("part,mass_type,mass [kg]\nP,Designed,1\n");
    EXPECT_EQ(PartOf("P").sets.at(0).massType, "Designed");
}

TEST_F(WBStoreImport, ChangedMassTypeChangesAllSums)
{
    Good("part\nP\n");
    const std::int64_t before = Change("P");
    EXPECT_THAT(m_store->PutMassTypes(ShippedMassTypes(), "kim", "m.csv"), ElementsAre());
    EXPECT_EQ(Change("P"), before);
    EXPECT_EQ(m_store->History().size(), 1U);
    auto types = ShippedMassTypes();
    types[2].upperPct = 9;
    m_store->PutMassTypes(types, "kim", "m.csv");
    EXPECT_EQ(Change("P"), before + 1);
}

TEST_F(WBStoreImport, MassTypesMayExchangeTheirOrders)
{
    auto types = ShippedMassTypes();
    std::swap(types[1].order, types[2].order);
    EXPECT_THAT(m_store->PutMassTypes(types, "kim", "m.csv"), ElementsAre());
    EXPECT_EQ(m_store->MassTypes()[1].name, "Calculated");
}

TEST_F(WBStoreImport, OrderOfAnotherMassTypeIsRefused)
{
    EXPECT_THAT(
        m_store->PutMassTypes({{"X", 30, MassType::Kind::Goal, "", 0, 0, ""}}, "kim", "m.csv"),
        ElementsAre(HasSubstr("m.csv: mass type \"X\": the order 30 is that of \"Weighed\"")));
    EXPECT_EQ(m_store->MassTypes().size(), 5U);
}

TEST_F(WBStoreImport, MassTypeThatCountsSomewhereDoesNotBecomeAGoal)
{
    Good("part,mass_type,active,mass [kg]\nP,Weighed,yes,1\n");
    EXPECT_THAT(
        m_store->PutMassTypes({{"Weighed", 30, MassType::Kind::Goal, "", 0, 0, ""}}, "kim", "m"),
        ElementsAre(HasSubstr("some part counts with these values")));
}

TEST_F(WBStoreImport, TableReadUnderOtherMassTypesIsRefused)
{
    Product product;
    product.parts.resize(1);
    product.parts[0].identifier = "P";
    product.parts[0].version = "A";
    product.parts[0].sets.resize(1);
    product.parts[0].sets[0].massType = "Gone";
    EXPECT_THAT(m_store->Import(product, {"kim", "t.csv", ""}).errors,
                ElementsAre(HasSubstr("a mass type of the table is not in the database")));
    EXPECT_TRUE(m_store->Roots().empty());
}
