#include "KeptSums.h"

#include "ComputeTesting.h"

#include <algorithm>
#include <limits>

using namespace wb;

namespace
{
/// No two figures alike.
KeptSum EveryFigure()
{
    KeptSum sum;
    double next = 0.5;
    for (Body* body : {&sum.firm, &sum.taken, &sum.loose}) {
        for (double* figure : {&body->mass, &body->lower, &body->upper}) {
            *figure = ++next;
        }
        for (double& coordinate : body->centre) {
            coordinate = ++next;
        }
        for (double& term : body->inertia) {
            term = ++next;
        }
    }
    sum.hasApart = true;
    sum.massMissing = true;
    sum.counts = {101, 102, 103, 104};
    sum.materials = {{"Wax", Dimension::Surface, 5, 6}, {"Tin", Dimension::Volume, 7, 8}};
    sum.massTypes = {{"Weighed", 9}};
    sum.codes = {{"10", 11}, {"", 12}};
    sum.withoutCode = 13;
    sum.growthAllowance = 14;
    sum.sharedErrors = {{3, {15, 16}}, {4, {17, 18}}};
    sum.ownSquares = {19, 20};
    sum.apartSquares = {21, 22};
    return sum;
}

std::string Bytes(const KeptSum& sum)
{
    return WriteSum(sum, [](std::uint32_t node) { return RowId{node} - 100; });
}
std::optional<KeptSum> Read(const std::string& bytes)
{
    return ReadSum(bytes, [](RowId row) { return static_cast<std::uint32_t>(row + 100); });
}

void ExpectSameBody(const Body& left, const Body& right)
{
    EXPECT_EQ(left.mass, right.mass);
    EXPECT_EQ(left.lower, right.lower);
    EXPECT_EQ(left.upper, right.upper);
    EXPECT_EQ(left.centre, right.centre);
    EXPECT_EQ(left.inertia, right.inertia);
}

ComputeOptions WithLine(const Filter::Line& line)
{
    ComputeOptions options;
    options.filter.lines = {line};
    return options;
}
} // namespace

TEST(KeptSums, EveryFigureComesBack)
{
    const KeptSum sum = EveryFigure();
    const auto read = Read(Bytes(sum));
    ASSERT_TRUE(read);
    ExpectSameBody(read->firm, sum.firm);
    ExpectSameBody(read->taken, sum.taken);
    ExpectSameBody(read->loose, sum.loose);
    EXPECT_TRUE(read->hasApart);
    EXPECT_TRUE(read->massMissing);
    EXPECT_EQ(read->counts.leaves, 101);
    EXPECT_EQ(read->counts.withoutMass, 102);
    EXPECT_EQ(read->counts.massWithoutCentre, 103);
    EXPECT_EQ(read->counts.massWithoutInertia, 104);
    ASSERT_EQ(read->materials.size(), 2U);
    EXPECT_EQ(read->materials[0].material, "Wax");
    EXPECT_EQ(read->materials[0].dimension, Dimension::Surface);
    EXPECT_EQ(read->materials[0].density, 5);
    EXPECT_EQ(read->materials[0].mass, 6);
    EXPECT_EQ(read->materials[1].dimension, Dimension::Volume);
    ASSERT_EQ(read->massTypes.size(), 1U);
    EXPECT_EQ(read->massTypes[0].name, "Weighed");
    EXPECT_EQ(read->massTypes[0].mass, 9);
    ASSERT_EQ(read->codes.size(), 2U);
    EXPECT_EQ(read->codes[0].name, "10");
    EXPECT_EQ(read->codes[1].name, "");
    EXPECT_EQ(read->codes[1].mass, 12);
    EXPECT_EQ(read->withoutCode, 13);
    EXPECT_EQ(read->growthAllowance, 14);
    EXPECT_EQ(read->sharedErrors, sum.sharedErrors);
    EXPECT_EQ(read->ownSquares.lower, 19);
    EXPECT_EQ(read->ownSquares.upper, 20);
    EXPECT_EQ(read->apartSquares.lower, 21);
    EXPECT_EQ(read->apartSquares.upper, 22);
    EXPECT_FALSE(read->isStale);
}

TEST(KeptSums, BytesThatAreNotAllThereAreNoSum)
{
    const std::string bytes = Bytes(EveryFigure());
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        EXPECT_FALSE(Read(bytes.substr(0, size))) << size;
    }
    EXPECT_FALSE(Read(bytes + '\0'));
    std::string ofAnotherForm = bytes;
    ofAnotherForm[0] = 2;
    EXPECT_FALSE(Read(ofAnotherForm));
}

TEST(KeptSums, AnyBytesAreReadToTheirEndAndNoFurther)
{
    const std::string bytes = Bytes(EveryFigure());
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        for (const char other : {'\x00', '\x01', '\x7f', '\x80', '\xff'}) {
            std::string damaged = bytes;
            damaged[i] = other;
            const auto read = Read(damaged);
            if (read) {
                EXPECT_EQ(Bytes(*read).size(), bytes.size()) << i;
            }
        }
    }
}

TEST(KeptSums, SharesThatNoOrderHoldsAreNoSum)
{
    for (const double odd : {kUnknown, std::numeric_limits<double>::infinity()}) {
        KeptSum sum = EveryFigure();
        sum.materials[1].mass = odd;
        EXPECT_FALSE(Read(Bytes(sum)));
        sum = EveryFigure();
        sum.materials[1].density = odd;
        EXPECT_FALSE(Read(Bytes(sum)));
        sum = EveryFigure();
        sum.massTypes[0].mass = odd;
        EXPECT_FALSE(Read(Bytes(sum)));
        sum = EveryFigure();
        sum.codes[1].mass = odd;
        EXPECT_FALSE(Read(Bytes(sum)));
    }
}

TEST(KeptSums, AnswerAndWarningsComeBackOrNothing)
{
    const std::string bytes = WriteTexts({"1|a\nb|", "- one\n- two"});
    const auto read = ReadTexts(bytes);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->answer, "1|a\nb|");
    EXPECT_EQ(read->warnings, "- one\n- two");
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        EXPECT_FALSE(ReadTexts(bytes.substr(0, size))) << size;
    }
    EXPECT_FALSE(ReadTexts(bytes + "x"));
    std::string ofAnotherForm = bytes;
    ofAnotherForm[0] = 2;
    EXPECT_FALSE(ReadTexts(ofAnotherForm));
}

TEST(KeptSums, EverythingThatAnAnswerDependsOnIsInItsKey)
{
    const Filter::Line line{true, "i", "p", "v", {"a", "b"}};
    std::vector<Filter::Line> others(7, line);
    others[0].in = false;
    others[1].instance = "j";
    others[2].part = "q";
    others[3].version = "w";
    others[4].path = {"b", "a"};
    others[5].path = {"a"};
    others[6].path = {};
    std::vector<std::string> keys{AnswerKey({}), AnswerKey(WithLine(line))};
    for (const Filter::Line& other : others) {
        keys.push_back(AnswerKey(WithLine(other)));
    }
    ComputeOptions named = WithLine(line);
    named.filter.name = "another";
    keys.push_back(AnswerKey(named));
    for (const bool otherWayRound : {false, true}) {
        ComputeOptions two = WithLine(otherWayRound ? others[1] : line);
        two.filter.lines.push_back(otherWayRound ? line : others[1]);
        keys.push_back(AnswerKey(two));
    }
    for (const ComputeOptions& options :
         {wbtest::MostPrecise(), wbtest::Specified("Weighed"), wbtest::Specified("Computed")}) {
        keys.push_back(AnswerKey(options));
        keys.push_back(SumKey(options));
    }
    keys.push_back(SumKey({}));
    std::ranges::sort(keys);
    EXPECT_TRUE(std::ranges::adjacent_find(keys) == keys.end());
}
