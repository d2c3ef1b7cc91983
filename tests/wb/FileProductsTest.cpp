#include "FileProducts.h"

#include "TemporaryDirectory.h"

#include <gmock/gmock.h>

using testing::HasSubstr;

namespace
{

constexpr const char* kProduct =
    "parent,instance,part,version,name,type,quantity,x [mm],y [mm],z [mm],rz [deg]\n"
    ",,ROOT,A,Whole,product,,,,,\n"
    "ROOT,ARM.1,ARM,A,Arm,assembly,,10,20,30,90\n"
    "ARM,BOLT.1,BOLT,B,Bolt,part,4,1,2,3,\n";

} // namespace

TEST(FileProducts, ATableFileIsASourceWithoutADatabase)
{
    const TemporaryDirectory folder;
    std::string problem;
    const auto source = OpenFileProducts(folder.Write("p.csv", kProduct), problem);
    ASSERT_TRUE(source) << problem;

    const std::vector<CATProductRow> roots = source->Roots();
    ASSERT_EQ(roots.size(), 1U);
    EXPECT_EQ(roots[0].instance, CATUnicodeString("ROOT"));
    EXPECT_EQ(roots[0].part, CATUnicodeString("ROOT"));
    EXPECT_EQ(roots[0].version, CATUnicodeString("A"));
    EXPECT_EQ(roots[0].name, CATUnicodeString("Whole"));
    EXPECT_EQ(roots[0].type, CATUnicodeString("product"));
    EXPECT_TRUE(roots[0].hasUses);
}

TEST(FileProducts, UsesCarryQuantityAndPlacement)
{
    const TemporaryDirectory folder;
    std::string problem;
    const auto source = OpenFileProducts(folder.Write("p.csv", kProduct), problem);
    ASSERT_TRUE(source) << problem;

    const std::vector<CATProductRow> arms = source->Uses("ROOT", "A");
    ASSERT_EQ(arms.size(), 1U);
    EXPECT_EQ(arms[0].instance, CATUnicodeString("ARM.1"));
    EXPECT_EQ(arms[0].type, CATUnicodeString("assembly"));
    EXPECT_EQ(arms[0].quantity, 1);
    EXPECT_TRUE(arms[0].hasUses);
    std::array<double, 12> coefficients{};
    arms[0].placement.GetCoefficients(coefficients);
    // Turned by 90 degrees about z, the x axis points along y and the y axis along -x.
    EXPECT_EQ(coefficients, (std::array<double, 12>{0, 1, 0, -1, 0, 0, 0, 0, 1, 10, 20, 30}));

    const std::vector<CATProductRow> bolts = source->Uses("ARM", "A");
    ASSERT_EQ(bolts.size(), 1U);
    EXPECT_EQ(bolts[0].version, CATUnicodeString("B"));
    EXPECT_EQ(bolts[0].quantity, 4);
    EXPECT_FALSE(bolts[0].hasUses);
    EXPECT_TRUE(source->Uses("ARM", "B").empty()) << "another version has no uses";
}

TEST(FileProducts, AWrongFileIsRefusedWithItsPlace)
{
    const TemporaryDirectory folder;
    std::string problem;
    EXPECT_FALSE(OpenFileProducts(
        folder.Write("p.csv",
                     "parent,instance,part,x [mm],y [mm],z [mm]\n,,R,,,\nR,A.1,A,ten,0,0\n"),
        problem));
    EXPECT_THAT(problem, HasSubstr("p.csv"));
    EXPECT_THAT(problem, HasSubstr(":3:"));
    EXPECT_THAT(problem, HasSubstr("ten"));

    problem.clear();
    EXPECT_FALSE(OpenFileProducts(folder.At("missing.csv"), problem));
    EXPECT_THAT(problem, HasSubstr("missing.csv"));
}
