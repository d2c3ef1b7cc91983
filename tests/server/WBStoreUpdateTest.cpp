#include "ServerTesting.h"
#include "WBStore.h"

using namespace wb;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace
{
/// A new database into which tables come one after another.
class WBStoreUpdate : public testing::Test
{
protected:
    void SetUp() override { m_store = Store::OpenOrCreate(m_directory.File("x.db")).store; }

    ImportOutcome Import(const std::string& table, const std::string& replace = {})
    {
        const auto read = ReadProductTable(table, "t.csv", {}, *m_store);
        return read.Ok() ? m_store->Import(read.product,
                                           {"kim", "t.csv", "c0ffee", KnownFacts::Update, replace})
                         : ImportOutcome{{}, read.errors};
    }
    ImportCounts Good(const std::string& table, const std::string& replace = {})
    {
        const ImportOutcome outcome = Import(table, replace);
        EXPECT_THAT(outcome.errors, IsEmpty());
        return outcome.counts;
    }
    Part PartOf(const char* identifier)
    {
        return m_store->ReadPart(m_store->FindPart(identifier, "A")->id).part;
    }
    Use UseOf(const char* parent, const char* instance)
    {
        const auto line = m_store->FindUse(m_store->FindPart(parent, "A")->id, instance);
        return m_store->ReadUse(line->id).use;
    }
    std::vector<std::string> InstancesOf(const char* parent)
    {
        std::vector<std::string> names;
        for (const UseLine& use : m_store->UsesOf(m_store->FindPart(parent, "A")->id)) {
            names.push_back(use.instance + " " + use.part.identifier);
        }
        return names;
    }
    std::int64_t Change(const char* identifier)
    {
        return m_store->ChangeNumber(m_store->FindPart(identifier, "A")->id);
    }

    /// What an entry of the history says was there before, and what is there after.
    std::vector<std::string> Before(std::size_t entry)
    {
        return Facts(entry, &ChangedFact::before);
    }
    std::vector<std::string> After(std::size_t entry) { return Facts(entry, &ChangedFact::after); }
    std::vector<std::string> Facts(std::size_t entry, std::string ChangedFact::*side)
    {
        std::vector<std::string> lines;
        const HistoryEntry found = m_store->History().at(entry);
        for (const ChangedFact& fact : found.changes) {
            lines.push_back(fact.What() + ": " + fact.*side);
        }
        return lines;
    }

    wbtest::Directory m_directory;
    std::unique_ptr<Store> m_store;
};

constexpr const char* kTree = "parent,instance,part\n,,R\nR,s,S\nR,t,T\nS,p,P\nS,q,Q\nT,v,V\n";
} // namespace

TEST_F(WBStoreUpdate, FilledCellsTakeTheirPlaceAndBlankOnesLeave)
{
    Good("part,name,code,mass_type,mass [lb],cgx [mm],cgy [mm],cgz [mm]\n"
         "P,Bolt,WING,Weighed,2,1,2,3\n");
    const auto counts = Good("part,name,code,mass_type,mass [kg]\nP,Nut,,Weighed,1.50\n");
    EXPECT_EQ(counts.changedParts, 1U);
    const Part part = PartOf("P");
    EXPECT_EQ(part.name, "Nut");
    EXPECT_EQ(part.code, "WING");
    EXPECT_EQ(part.sets.at(0)[Fact::Mass], 1.5);
    EXPECT_EQ(part.sets.at(0)[Fact::CgZ], 3);
    EXPECT_EQ(TypedText(part.sets.at(0).typed, "mass"), "1.50 kg");
    EXPECT_EQ(TypedText(part.sets.at(0).typed, "cgx"), "1 mm");
}

TEST_F(WBStoreUpdate, HistoryKeepsWhatWasBefore)
{
    Good("part,name,mass_type,mass [lb]\nP,Bolt,Weighed,2\n");
    Good("part,name,mass_type,mass [kg],code\nP,Nut,Weighed,1.50,WING\n");
    ASSERT_EQ(m_store->History().size(), 2U);
    EXPECT_THAT(Before(0), IsEmpty());
    EXPECT_THAT(Before(1),
                ElementsAre("part P A, name: Bolt", "part P A, mass type Weighed, mass: 2 lb"));
    EXPECT_THAT(After(1),
                ElementsAre("part P A, name: Nut", "part P A, mass type Weighed, mass: 1.50 kg"));
}

TEST_F(WBStoreUpdate, AlikeNumbersChangeNothing)
{
    Good("part,mass_type,mass [g]\nP,Weighed,1500\n");
    const auto counts = Good("part,mass_type,mass [kg]\nP,Weighed,1.5\n");
    EXPECT_FALSE(counts.Changes());
    EXPECT_EQ(TypedText(PartOf("P").sets.at(0).typed, "mass"), "1500 g");
    EXPECT_EQ(m_store->History().size(), 1U);
}

TEST_F(WBStoreUpdate, AlikeNumberBesideAChangeStaysAsItWasTyped)
{
    Good("part,mass_type,mass [g],cgx [mm],cgy [mm],cgz [mm],ixx [kg.m2],iyy [kg.m2],izz [kg.m2]\n"
         "P,Weighed,1500,25.4,0,0,1,2,3\n");
    Good("part,mass_type,mass [kg],cgx [in],cgy [in],cgz [in],ixx [kg.mm2],iyy [kg.mm2],izz "
         "[kg.mm2]\nP,Weighed,1.5,1,2,0,1e6,2e6,3e6\n");
    EXPECT_EQ(PartOf("P").sets.at(0).typed,
              "mass=1500 g|cgx=25.4 mm|cgz=0 mm|ixx=1 kg.m2|iyy=2 kg.m2|izz=3 kg.m2|cgy=2 in");
}

TEST_F(WBStoreUpdate, WhereASetComesFromGivesWay)
{
    Good("part,mass_type,mass [kg],source,source_date,author,note\n"
         "P,Weighed,1,scale,2026-01-02,kim,dry\n");
    const std::int64_t before = Change("P");
    const auto counts = Good("part,mass_type,source,source_date,author,note\n"
                             "P,Weighed,crane,2026-02-03,lee,wet\n");
    EXPECT_EQ(counts.changedFacts.size(), 4U);
    const ValueSet set = PartOf("P").sets.at(0);
    EXPECT_EQ(set.source + " " + set.sourceDate + " " + set.author + " " + set.note,
              "crane 2026-02-03 lee wet");
    EXPECT_EQ(Change("P"), before);
}

TEST_F(WBStoreUpdate, EveryNumberOfASetGivesWay)
{
    // Each fact stands once with 1 and once with 2, in the table's own order of columns.
    const std::string header =
        "part,mass_type,mass [kg],lower [kg],upper [kg],cgx [mm],cgy [mm],cgz [mm],ixx "
        "[kg.m2],iyy [kg.m2],izz [kg.m2],ixy [kg.m2],ixz [kg.m2],iyz [kg.m2],poi_sign,volume "
        "[m3],area [m2],sigma_mass [kg],sigma_cgx [mm],sigma_cgy [mm],sigma_cgz [mm],sigma_ixx "
        "[kg.m2],sigma_iyy [kg.m2],sigma_izz [kg.m2],sigma_ixy [kg.m2],sigma_ixz "
        "[kg.m2],sigma_iyz [kg.m2]\n";
    const auto row = [](const std::string& number) {
        std::string cells = "P,Weighed";
        for (int column = 0; column < 24; ++column) {
            cells += (column == 12 ? ",positive," : ",") + number;
        }
        return cells + "\n";
    };
    Good(header + row("1"));
    EXPECT_EQ(Good(header + row("2")).changedFacts.size(), 24U);
    const ValueSet set = PartOf("P").sets.at(0);
    for (std::size_t i = 0; i < kSetNumbers; ++i) {
        const auto fact = static_cast<Fact>(i);
        const bool isPercentage = fact == Fact::LowerPct || fact == Fact::UpperPct;
        EXPECT_EQ(set.Has(fact), !isPercentage) << FactName(fact);
        EXPECT_TRUE(isPercentage || set[fact] == 2) << FactName(fact);
        EXPECT_TRUE(isPercentage || TypedText(set.typed, FactName(fact)).starts_with("2 "))
            << FactName(fact);
    }
}

TEST_F(WBStoreUpdate, FactsOfAPartGiveWay)
{
    const std::string header = "part,code,note,growth_pct,density [kg/m3],surface_density "
                               "[kg/m2],material,mass_type,active\n";
    Good(header + "P,WING,,1,2,3,Al,Weighed,yes\nP,,old,,,,,,\nQ,,,,,,Ti,,\n");
    const auto counts = Good(header + "P,BODY,,4,5,6,Ti,Estimated,yes\n"
                                      "P,,new,,,,,,\n");
    EXPECT_EQ(counts.changedFacts.size(), 7U);
    const Part part = PartOf("P");
    EXPECT_EQ(part.code + part.note + part.material + part.activeType, "BODYnewTiEstimated");
    EXPECT_EQ(part.growthPct, 4);
    EXPECT_EQ(part.density, 5);
    EXPECT_EQ(part.surfaceDensity, 6);
    EXPECT_EQ(part.typed, "growth_pct=4 %|density=5 kg/m3|surface_density=6 kg/m2");
}

TEST_F(WBStoreUpdate, FactsOfAUseGiveWay)
{
    const std::string header = "parent,instance,part,values_on,material_on,material,density "
                               "[kg/m3],surface_density [kg/m2],note,mass_type,active,mass [kg]\n";
    Good(header + ",,R,,,,,,,,,\nR,p,P,instance,instance,Al,1,2,old,,,\n"
                  "R,p,P,instance,,,,,,Weighed,yes,1\nR,q,P,instance,instance,Ti,,,,,,\n");
    const std::int64_t before = Change("R");
    const auto counts = Good(header + "R,p,P,instance,instance,Ti,3,4,new,,,\n"
                                      "R,p,P,instance,,,,,,Estimated,yes,2\n");
    EXPECT_EQ(counts.changedUses, 1U);
    EXPECT_EQ(counts.changedFacts.size(), 5U);
    EXPECT_EQ(counts.changedFacts.at(0).What(), "use R A / p, material");
    const Use use = UseOf("R", "p");
    EXPECT_EQ(use.material + use.note + use.activeType, "TinewEstimated");
    EXPECT_EQ(use.density, 3);
    EXPECT_EQ(use.surfaceDensity, 4);
    EXPECT_EQ(use.typed, "density=3 kg/m3|surface_density=4 kg/m2");
    EXPECT_EQ(use.sets.size(), 2U);
    EXPECT_GT(Change("R"), before);
}

TEST_F(WBStoreUpdate, RevisionGivesWay)
{
    const std::string header = "part,doc,doc_version,doc_use,doc_checkin_date,doc_checkin_user,"
                               "doc_checkout_user,doc_mass_type,doc_mass [kg]\n";
    Good(header + "P,D,1,attached,2026-01-02,kim,lee,Weighed,1\n");
    const auto counts = Good(header + "P,D,1,both,2026-02-03,max,eva,Computed,2\n");
    EXPECT_EQ(counts.changedFacts.size(), 6U);
    const DocumentRevision revision = PartOf("P").documents.at(0);
    EXPECT_EQ(revision.checkinDate + revision.checkinUser + revision.checkoutUser +
                  revision.massType,
              "2026-02-03maxevaComputed");
    EXPECT_EQ(revision.use, DocumentRevision::Use::Both);
    EXPECT_EQ(revision.mass, 2);
    EXPECT_EQ(revision.typed, "doc_mass=2 kg");
}

TEST_F(WBStoreUpdate, NewUseBelowAStoredParentMakesItNew)
{
    Good(kTree);
    const std::int64_t before = Change("R");
    Good("parent,instance,part\nS,new,V\n");
    EXPECT_GT(Change("S"), before);
    EXPECT_EQ(Change("R"), Change("S"));
    EXPECT_EQ(Change("V"), before);
}

TEST_F(WBStoreUpdate, DensityOfAMaterialAloneIsKept)
{
    Good("part,material\nP,Al\n");
    const auto counts = Good("part,material,material_density [kg/m3]\nP,Al,2780\n");
    EXPECT_FALSE(counts.Changes());
    EXPECT_EQ(m_store->FindMaterial("Al")->density, 2780);
    EXPECT_EQ(m_store->FindMaterial("Al")->typed, "material_density=2780 kg/m3");
    EXPECT_EQ(m_store->History().size(), 2U);
}

TEST_F(WBStoreUpdate, PlaceAndTurnThatWereNotStatedAreAdded)
{
    Good("parent,instance,part\n,,R\nR,p,P\n");
    const std::int64_t before = Change("R");
    const auto counts =
        Good("parent,instance,part,x [mm],y [mm],z [mm],ry [deg]\nR,p,P,1,2,3,90\n");
    EXPECT_EQ(counts.changedUses, 1U);
    EXPECT_THAT(counts.changedFacts, IsEmpty());
    EXPECT_THAT(Coefficients(UseOf("R", "p").placement),
                ElementsAre(0, 0, -1, 0, 1, 0, 1, 0, 0, 1, 2, 3));
    EXPECT_EQ(UseOf("R", "p").typed, "x=1 mm|y=2 mm|z=3 mm|ry=90 deg");
    EXPECT_GT(Change("R"), before);
    EXPECT_EQ(Good("parent,instance,part,rz [deg]\nR,p,P,30\n").changedFacts.at(0).before,
              "0 0 1 0 1 0 -1 0 0");
}

TEST_F(WBStoreUpdate, AlikePlacesInOtherUnitsChangeNothing)
{
    Good("parent,instance,part,x [mm],y [mm],z [mm],rz [deg]\n,,R,,,,\nR,p,P,17.78,0,1e-9,30\n");
    const auto counts = Good("parent,instance,part,x [in],y [in],z [in],rz [rad]\n"
                             "R,p,P,0.7,0,3.937007874015748e-11,0.5235987755982988\n");
    EXPECT_FALSE(counts.Changes());
    EXPECT_EQ(UseOf("R", "p").typed, "rz=30 deg|x=17.78 mm|y=0 mm|z=1e-9 mm");
    // A small shift is no rounding.
    EXPECT_EQ(Good("parent,instance,part,x [mm],y [mm],z [mm]\nR,p,P,17.78,0,2e-9\n").changedUses,
              1U);
}

TEST_F(WBStoreUpdate, ChangeNumbersRiseForWhatSumsDependOnAlone)
{
    Good("parent,instance,part,name,mass_type,mass [kg],p:V,doc,doc_version,doc_use,doc_mass [kg]\n"
         ",,R,,,,,,,,\nR,p,P,Bolt,Weighed,1,x,D,1,active,1\nR,q,Q,,,,,,,,\n");
    const std::int64_t before = Change("R");
    Good("part,name,p:V,doc,doc_version,doc_use,doc_mass [kg]\nP,Nut,y,D,1,both,2\n");
    EXPECT_EQ(Change("R"), before);
    EXPECT_EQ(Change("P"), before);
    Good("part,mass_type,mass [kg]\nP,Weighed,2\n");
    EXPECT_GT(Change("P"), before);
    EXPECT_EQ(Change("R"), Change("P"));
    EXPECT_EQ(Change("Q"), before);
    const std::int64_t then = Change("R");
    Good("parent,instance,part,quantity\nR,q,Q,2\n");
    EXPECT_GT(Change("R"), then);
    EXPECT_EQ(Change("Q"), before);
}

TEST_F(WBStoreUpdate, ChoicesAndActiveTypeGiveWay)
{
    Good("part,type,standard,density_first,errors,mass_type,active,mass [kg]\n"
         "P,part,yes,material,apart,Weighed,yes,1\n");
    Good("part,type,standard,density_first,errors,mass_type,active,mass [kg]\n"
         "P,assembly,no,wb,together,Estimated,yes,2\n");
    const Part part = PartOf("P");
    EXPECT_EQ(part.type, PartType::Assembly);
    EXPECT_EQ(part.standard, Answer::No);
    EXPECT_EQ(part.densityFirst, DensityOrder::WeightAndBalance);
    EXPECT_EQ(part.errors, ErrorRule::Together);
    EXPECT_EQ(part.activeType, "Estimated");
    EXPECT_EQ(part.sets.size(), 2U);
}

TEST_F(WBStoreUpdate, PrecisionOfOneKindTakesThePlaceOfTheOther)
{
    Good("part,mass_type,mass [kg],lower_pct,upper_pct\nP,Weighed,1,2,3\n");
    Good("part,mass_type,lower [g],upper [g]\nP,Weighed,10,20\n");
    ValueSet set = PartOf("P").sets.at(0);
    EXPECT_EQ(set[Fact::Lower], 0.01);
    EXPECT_FALSE(set.Has(Fact::LowerPct));
    EXPECT_FALSE(set.Has(Fact::UpperPct));
    EXPECT_EQ(set.typed, "mass=1 kg|lower=10 g|upper=20 g");
    Good("part,mass_type,lower_pct,upper_pct\nP,Weighed,4,5\n");
    set = PartOf("P").sets.at(0);
    EXPECT_EQ(set[Fact::UpperPct], 5);
    EXPECT_FALSE(set.Has(Fact::Lower));
}

TEST_F(WBStoreUpdate, InertiaTakesItsFormAlong)
{
    Good("part,mass_type,mass [kg],ixx [kg.m2],iyy [kg.m2],izz [kg.m2],ixy [kg.m2],ixz "
         "[kg.m2],iyz [kg.m2],poi_sign\nP,Weighed,2,1,1,1,0.1,0,0,negative\n");
    Good("part,mass_type,mass [kg],kx [m],ky [m],kz [m]\nP,Weighed,2,1,2,3\n");
    const ValueSet set = PartOf("P").sets.at(0);
    EXPECT_EQ(set[Fact::Izz], 18); // 2 kg x (3 m) squared
    EXPECT_EQ(set[Fact::Ixy], 0);
    EXPECT_EQ(set.typed, "mass=2 kg|kx=1 m|ky=2 m|kz=3 m");
}

TEST_F(WBStoreUpdate, BlankProductsLeaveThoseThatAreStored)
{
    Good("part,mass_type,ixx [kg.m2],iyy [kg.m2],izz [kg.m2],ixy [kg.m2],ixz [kg.m2],iyz "
         "[kg.m2],poi_sign\nP,Weighed,1,1,1,0.1,0.2,0.3,positive\n");
    Good("part,mass_type,ixx [kg.m2],iyy [kg.m2],izz [kg.m2]\nP,Weighed,2,1,1\n");
    const ValueSet set = PartOf("P").sets.at(0);
    EXPECT_EQ(set[Fact::Ixx], 2);
    EXPECT_EQ(set[Fact::Iyz], 0.3);
}

TEST_F(WBStoreUpdate, SignOfProductsComesWithAnInertiaThatWasLacking)
{
    Good("part,mass_type,mass [kg]\nP,Weighed,2\n");
    Good("part,mass_type,ixx [kg.m2],iyy [kg.m2],izz [kg.m2],ixy [kg.m2],ixz [kg.m2],iyz "
         "[kg.m2],poi_sign\nP,Weighed,1,1,1,0.1,0,0,negative\n");
    EXPECT_EQ(TypedText(PartOf("P").sets.at(0).typed, "poi_sign"), "negative");
    EXPECT_EQ(PartOf("P").sets.at(0)[Fact::Ixy], -0.1);
}

TEST_F(WBStoreUpdate, PositionTurnAndQuantityGiveWay)
{
    Good("parent,instance,part,quantity,x [mm],y [mm],z [mm],rz [deg],i:N\n,,R,,,,,,\n"
         "R,p,P,2,1,2,3,90,a\n");
    const auto counts = Good("parent,instance,part,quantity,x [in],y [in],z [in],rx [deg],i:N\n"
                             "R,p,P,3,1,0,0,180,b\n");
    EXPECT_EQ(counts.changedUses, 1U);
    const Use use = UseOf("R", "p");
    EXPECT_EQ(use.quantity, 3);
    EXPECT_THAT(Coefficients(use.placement), ElementsAre(1, 0, 0, 0, -1, 0, 0, 0, -1, 25.4, 0, 0));
    EXPECT_EQ(use.typed, "x=1 in|y=0 in|z=0 in|rx=180 deg");
    EXPECT_EQ(use.properties.at(0).value, "b");
}

TEST_F(WBStoreUpdate, PropertyMayBecomeOneOfAnotherKind)
{
    Good("part,p:N:int,p:M\nP,5,x\n");
    Good("part,p:N [kg]\nP,5\n");
    const Part part = PartOf("P");
    ASSERT_EQ(part.properties.size(), 2U);
    EXPECT_EQ(part.properties[0].name, "N");
    EXPECT_EQ(part.properties[0].magnitude, "MASS");
    EXPECT_THAT(Before(1), ElementsAre("part P A, property N: N:int"));
}

TEST_F(WBStoreUpdate, TextMayBecomeADate)
{
    Good("part,p:N\nP,2026-01-02\n");
    Good("part,p:N:date\nP,2026-01-02\n");
    EXPECT_TRUE(PartOf("P").properties.at(0).isDate);
    EXPECT_THAT(Before(1), ElementsAre("part P A, property N: N"));
    EXPECT_THAT(After(1), ElementsAre("part P A, property N: N:date"));
}

TEST_F(WBStoreUpdate, AttachedMarkMovesToTheStatedRevision)
{
    Good("part,doc,doc_version,doc_use\nP,D,1,both\n");
    Good("part,doc,doc_version,doc_use\nP,D,2,attached\n");
    const auto documents = PartOf("P").documents;
    ASSERT_EQ(documents.size(), 2U);
    EXPECT_EQ(documents[0].use, DocumentRevision::Use::Active);
    EXPECT_EQ(documents[1].use, DocumentRevision::Use::Attached);
}

TEST_F(WBStoreUpdate, MaterialKeepsItsDensity)
{
    Good("part,material,material_density [kg/m3]\nP,Al,2780\n");
    EXPECT_THAT(Import("part,material,material_density [kg/m3]\nQ,Al,2700\n").errors,
                ElementsAre("t.csv:2: material Al, material_density: found \"2700 kg/m3\", the "
                            "database holds \"2780 kg/m3\"; expected the same fact or a blank "
                            "cell"));
    EXPECT_FALSE(m_store->FindPart("Q", "A"));
}

TEST_F(WBStoreUpdate, NegativeMassNeedsAnAdjustmentToTheEnd)
{
    Good("parent,instance,part,type,values_on,mass_type,mass [kg]\n,,R,,,,\n"
         "R,p,P,adjustment,,Weighed,-1\nR,q,Q,adjustment,instance,Weighed,-2\n");
    EXPECT_THAT(
        Import("part,type\nP,part\n").errors,
        ElementsAre("t.csv:2: column \"type\": found \"part\", but P has a negative mass in "
                    "the database, expected adjustment"));
    EXPECT_THAT(Import("part,type\nQ,part\n").errors,
                ElementsAre(HasSubstr("but Q has a negative")));
    EXPECT_EQ(PartOf("P").type, PartType::Adjustment);
    Good("part,type,mass_type,mass [kg]\nO,adjustment,Weighed,0\n");
    EXPECT_EQ(Good("part,type\nO,part\n").changedParts, 1U);
}

TEST_F(WBStoreUpdate, InstanceOfAnotherPartIsRefused)
{
    Good(kTree);
    EXPECT_THAT(Import("parent,instance,part\nS,p,Q\n").errors,
                ElementsAre("t.csv:2: use S A / p: found part \"Q A\", the database holds \"P A\"; "
                            "expected the same part, another instance name or --replace ROOT"));
}

TEST_F(WBStoreUpdate, ReplaceRemovesTheUsesThatTheTableLacks)
{
    Good(kTree);
    const std::int64_t before = Change("R");
    const auto counts = Good("parent,instance,part\n,,R\nR,s,S\nS,p,P\nS,w,W\n", "R");
    EXPECT_EQ(counts.removedUses, 2U); // R/t and S/q
    EXPECT_EQ(counts.newUses, 1U);
    EXPECT_THAT(InstancesOf("R"), ElementsAre("s S"));
    EXPECT_THAT(InstancesOf("S"), ElementsAre("p P", "w W"));
    // What left the product stands as it was.
    EXPECT_THAT(InstancesOf("T"), ElementsAre("v V"));
    EXPECT_THAT(counts.unusedParts, ElementsAre("R A", "T A", "Q A"));
    EXPECT_GT(Change("S"), before);
    EXPECT_GT(Change("R"), before);
    EXPECT_EQ(Change("T"), before);
    EXPECT_THAT(Before(1), ElementsAre("use R A / t: T A", "use S A / q: Q A"));
    EXPECT_THAT(After(1), ElementsAre("use R A / t: ", "use S A / q: "));
}

TEST_F(WBStoreUpdate, WithoutReplaceNothingIsRemoved)
{
    Good(kTree);
    EXPECT_EQ(Good("parent,instance,part\n,,R\nR,s,S\n").removedUses, 0U);
    EXPECT_THAT(InstancesOf("R"), ElementsAre("s S", "t T"));
}

TEST_F(WBStoreUpdate, ReplacedUseOfAnotherPartLosesWhatWasItsOwn)
{
    Good("parent,instance,part,values_on,mass_type,mass [kg],i:N\n,,R,,,,\n"
         "R,p,P,instance,Weighed,1,x\nR,q,Q,,,,y\n");
    const auto counts = Good("parent,instance,part\n,,R\nR,p,Q\nR,q,Q\n", "R");
    EXPECT_EQ(counts.removedUses, 1U);
    EXPECT_EQ(counts.newUses, 1U);
    EXPECT_THAT(UseOf("R", "p").sets, IsEmpty());
    EXPECT_THAT(UseOf("R", "p").properties, IsEmpty());
    EXPECT_EQ(UseOf("R", "q").properties.at(0).value, "y");
}

TEST_F(WBStoreUpdate, OtherProductsThatShareAnAssemblyAreNamed)
{
    Good(kTree);
    Good("parent,instance,part\n,,O\nO,s,S\n");
    const auto counts = Good("parent,instance,part\n,,R\nR,s,S\nR,t,T\nS,p,P\nT,v,V\n", "R");
    EXPECT_THAT(counts.rootsThatLostUses, ElementsAre("O A"));
}

TEST_F(WBStoreUpdate, ReplaceMakesRoomForASinglePartAndAnotherOrder)
{
    Good("parent,instance,part\n,,R\nR,s,S\nS,p,P\n");
    // S becomes a part, and P its sibling's parent: neither was possible beside the old uses.
    Good("parent,instance,part,type\n,,R,\nR,s,S,part\nR,p,P,\nP,s,S,\n", "R");
    EXPECT_THAT(InstancesOf("P"), ElementsAre("s S"));
    EXPECT_THAT(InstancesOf("S"), IsEmpty());
}

TEST_F(WBStoreUpdate, ReplaceNeedsARootOfTheTable)
{
    Good(kTree);
    EXPECT_THAT(
        Import("parent,instance,part\n,,R\nR,s,S\n", "X").errors,
        ElementsAre("t.csv: --replace \"X\": the table does not hold it, expected a product "
                    "root of the table"));
    EXPECT_THAT(Import("parent,instance,part\n,,R\nR,s,S\n", "S").errors,
                ElementsAre("t.csv: --replace \"S\": it is used in R, expected a product root"));
    EXPECT_THAT(Import("parent,instance,part\n,,S\nS,p,P\n", "S").errors,
                ElementsAre("t.csv: --replace \"S\": it is used in R, expected a product root"));
    EXPECT_THAT(InstancesOf("S"), ElementsAre("p P", "q Q"));
}

TEST_F(WBStoreUpdate, ReplaceByATableOfFactsAloneIsRefused)
{
    Good(kTree);
    EXPECT_THAT(Import("part,name\nR,Top\n", "R").errors,
                ElementsAre("t.csv: --replace \"R\": the table places nothing in it, expected the "
                            "uses that stay"));
    EXPECT_THAT(InstancesOf("R"), ElementsAre("s S", "t T"));
    // Where there is nothing to lose, nothing is refused.
    Good("part\nO\n");
    EXPECT_EQ(Good("part,name\nO,Single\n", "O").changedParts, 1U);
    EXPECT_EQ(Good("part\nNew\n", "New").newParts, 1U);
}

TEST_F(WBStoreUpdate, ManyRefusalsAreCounted)
{
    std::string first = "parent,instance,part\n,,R\n";
    std::string second = "parent,instance,part\n";
    for (int i = 0; i < 1000; ++i) {
        const std::string number = std::to_string(i);
        first += "R,i" + number + ",P\n";
        second += "R,i" + number + ",Q\n";
    }
    Good(first);
    const auto errors = Import(second).errors;
    ASSERT_EQ(errors.size(), 21U);
    EXPECT_THAT(errors[0], HasSubstr("t.csv:2: use R A / i0: found part \"Q A\""));
    EXPECT_THAT(errors[19], HasSubstr("t.csv:21: use R A / i19:"));
    EXPECT_EQ(errors[20], "and 980 more");
}

TEST_F(WBStoreUpdate, RefusedReplaceRemovesNothing)
{
    Good("parent,instance,part,material,material_density [kg/m3]\n,,R,,\nR,p,P,Al,2780\nR,q,Q,,\n");
    EXPECT_THAT(
        Import("parent,instance,part,material,material_density [kg/m3]\n,,R,,\nR,p,P,Al,1\n", "R")
            .errors,
        ElementsAre(HasSubstr("material_density")));
    EXPECT_THAT(InstancesOf("R"), ElementsAre("p P", "q Q"));
    EXPECT_EQ(m_store->History().size(), 1U);
}

TEST_F(WBStoreUpdate, ProductIsReadBackWhole)
{
    Good("parent,instance,part,material,material_density [kg/m3],material_on\n,,R,,,\nR,s,S,,,\n"
         "R,p,P,Al,2780,\nS,p,P,,,\nS,p,P,Ti,4430,instance\n,,O,Cu,,\n");
    const Product product = m_store->ReadProduct(m_store->FindRoot("R")->id);
    ASSERT_EQ(product.parts.size(), 3U);
    EXPECT_EQ(product.parts[0].identifier, "R");
    ASSERT_EQ(product.uses.size(), 3U);
    EXPECT_EQ(product.parts[product.uses[2].parent].identifier, "S");
    EXPECT_EQ(product.parts[product.uses[2].part].identifier, "P");
    ASSERT_EQ(product.materials.size(), 2U); // not that of O
    EXPECT_EQ(product.materials[1].density, 4430);
}
