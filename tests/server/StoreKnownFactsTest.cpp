#include "MethodsTesting.h"

using namespace wb;
using testing::ElementsAre;

namespace
{
/// What an import of a second table into a database with a first one complains about.
std::vector<std::string> Second(const std::string& first, const std::string& second)
{
    wbtest::ServedProduct served;
    served.ImportTable(first);
    const std::string file = served.Folder().Write("s.csv", second);
    std::vector<std::string> errors =
        ImportFile(served.Store(), file, {{}, "kim", KnownFacts::Refuse}).errors;
    for (std::string& error : errors) {
        error.erase(0, file.size());
    }
    return errors;
}
} // namespace

TEST(StoreKnownFacts, OtherChoicesAreToldByTheirWords)
{
    EXPECT_THAT(Second("part,type,standard,density_first,errors\nP,part,yes,material,apart\n",
                       "part,type,standard,density_first,errors\nP,assembly,no,wb,together\n"),
                ElementsAre(":2: part P A, type: found \"assembly\", the database holds \"part\"; "
                            "expected the same fact or a blank cell",
                            ":2: part P A, standard: found \"no\", the database holds \"yes\"; "
                            "expected the same fact or a blank cell",
                            ":2: part P A, density_first: found \"wb\", the database holds "
                            "\"material\"; expected the same fact or a blank cell",
                            ":2: part P A, errors: found \"together\", the database holds "
                            "\"apart\"; expected the same fact or a blank cell"));
    EXPECT_THAT(Second("part,doc,doc_version,doc_use\nP,D,1,active\n",
                       "part,doc,doc_version,doc_use\nP,D,1,both\n"),
                ElementsAre(":2: part P A, doc_use: found \"both\", the database holds \"active\"; "
                            "expected the same fact or a blank cell"));
}

TEST(StoreKnownFacts, OtherKindOfAPropertyIsToldAsItsHeader)
{
    EXPECT_THAT(Second("part,p:N:int\nP,5\n", "part,p:N:real\nP,5\n"),
                ElementsAre(":2: part P A, property N: found \"N:real\", the database holds "
                            "\"N:int\"; expected the same fact or a blank cell"));
    EXPECT_THAT(Second("part,p:N [kg]\nP,5\n", "part,p:N:bool\nP,yes\n"),
                ElementsAre(":2: part P A, property N: found \"N:bool\", the database holds "
                            "\"N:MASS\"; expected the same fact or a blank cell"));
    EXPECT_THAT(Second("part,p:N:date\nP,2026-01-02\n", "part,p:N:int\nP,5\n"),
                ElementsAre(":2: part P A, property N: found \"N:int\", the database holds "
                            "\"N:date\"; expected the same fact or a blank cell"));
}

TEST(StoreKnownFacts, AParentCannotBecomeASinglePart)
{
    const std::string assembly = "parent,instance,part\n,,A\nA,p,P\n";
    EXPECT_THAT(Second(assembly, "part,type\nA,part\n"),
                ElementsAre(":2: column \"type\": found \"part\", but A has parts below it in the "
                            "database, expected assembly or product"));
    EXPECT_THAT(Second(assembly, "part,type\nA,adjustment\n").size(), 1U);
    EXPECT_THAT(Second(assembly, "part,type\nA,assembly\nP,part\n"), ElementsAre());
}

TEST(StoreKnownFacts, RadiiOfAKnownPartTakeItsStoredDensity)
{
    // 5000 kg/m3 times 0.001 m3 times (0.1 m) squared, not the 2700 of its material.
    wbtest::ServedProduct served;
    served.ImportTable("part,density [kg/m3]\nP,5000\n");
    served.ImportTable("part,mass_type,volume [m3],material,material_density [kg/m3],kx [mm],ky "
                       "[mm],kz [mm]\nP,Estimated,0.001,Aluminium,2700,100,100,100\n");
    const auto part = served.Store().FindFacts("P", "A");
    ASSERT_TRUE(part.has_value());
    EXPECT_DOUBLE_EQ(part->sets.at(0)[Fact::Ixx], 0.05);
    EXPECT_FALSE(served.Store().FindFacts("P", "B").has_value());
}

TEST(StoreKnownFacts, RadiiTakeTheMassAndTheCentreThatAreStored)
{
    wbtest::ServedProduct served;
    served.ImportTable("part,mass_type,mass [kg],cgx [mm],cgy [mm],cgz [mm]\n"
                       "P,Weighed,2,100,0,0\nP,Estimated,9,,,\n");
    served.ImportTable("part,mass_type,kx [mm],ky [mm],kz [mm],inertia_at\n"
                       "P,Weighed,100,200,300,origin\n");
    const auto part = served.Store().FindFacts("P", "A");
    const ValueSet& set = *FindSet(part->sets, "Weighed");
    // 2 kg times the square of 0.1, 0.2 and 0.3 m, less 2 kg times the square of 0.1 m about y, z.
    EXPECT_DOUBLE_EQ(set[Fact::Ixx], 0.02);
    EXPECT_DOUBLE_EQ(set[Fact::Iyy], 0.06);
    EXPECT_DOUBLE_EQ(set[Fact::Izz], 0.16);
}

TEST(StoreKnownFacts, RadiiOfAUseTakeWhatIsStoredOfThatUse)
{
    wbtest::ServedProduct served;
    served.ImportTable("parent,instance,part,material,material_on,material_density [kg/m3]\n"
                       ",,A,,,\nA,i,P,Al,,2700\nA,i,P,Ti,instance,4430\nA,j,P,,,\n");
    served.ImportTable("parent,instance,part,values_on,mass_type,volume [m3],kx [mm],ky [mm],kz "
                       "[mm]\nA,i,P,instance,Weighed,0.001,100,100,100\n"
                       "A,j,P,instance,Weighed,0.001,100,100,100\n");
    const Product product = served.Store().ReadProduct(served.Store().FindRoot("A")->id);
    EXPECT_DOUBLE_EQ(product.uses.at(0).sets.at(0)[Fact::Ixx], 0.0443);
    EXPECT_DOUBLE_EQ(product.uses.at(1).sets.at(0)[Fact::Ixx], 0.027);
    // A mass that is stored of the use counts before its size.
    served.ImportTable("parent,instance,part,values_on,mass_type,mass [kg]\n"
                       "A,j,P,instance,Weighed,3\n");
    served.ImportTable("parent,instance,part,values_on,mass_type,kx [mm],ky [mm],kz [mm]\n"
                       "A,j,P,instance,Weighed,200,100,100\n");
    const Product then = served.Store().ReadProduct(served.Store().FindRoot("A")->id);
    EXPECT_DOUBLE_EQ(then.uses.at(1).sets.at(0)[Fact::Ixx], 0.12); // 3 kg times 0.2 m squared
}

TEST(StoreKnownFacts, AUseIsKnownAsTheSamePartAlone)
{
    wbtest::ServedProduct served;
    served.ImportTable("parent,instance,part,version,i:N\n,,A,A,\nA,i,P,A,x\n,,P,B,\n,,Q,A,\n");
    const Store& store = served.Store();
    const auto part = [](const char* identifier, const char* version) {
        Part named;
        named.identifier = identifier;
        named.version = version;
        return named;
    };
    ASSERT_TRUE(store.FindUseFacts(part("A", "A"), "i", part("P", "A")));
    EXPECT_EQ(store.FindUseFacts(part("A", "A"), "i", part("P", "A"))->properties.size(), 1U);
    EXPECT_FALSE(store.FindUseFacts(part("A", "A"), "i", part("P", "B")));
    EXPECT_FALSE(store.FindUseFacts(part("A", "A"), "i", part("Q", "A")));
    EXPECT_FALSE(store.FindUseFacts(part("A", "A"), "j", part("P", "A")));
    EXPECT_FALSE(store.FindUseFacts(part("A", "B"), "i", part("P", "A")));
}
