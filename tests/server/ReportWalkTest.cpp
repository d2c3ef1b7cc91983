#include "RandomProduct.h"
#include "ServerTesting.h"

#include "WBReportWalk.h"

#include <cmath>
#include <map>
#include <tuple>
#include <utility>

using namespace wb;
using testing::ElementsAre;
using wbtest::MostPrecise;
using wbtest::RandomProduct;
using wbtest::SmallProduct;
using wbtest::Specified;

namespace
{
using Place = ReportWalk::Place;

/// Of the largest figure of its kind; sums over all places may lose a few digits.
constexpr double kShare = 1e-9;
constexpr ReportOptions kEverything{true, true, true};

/// One visited place and the uses that lead to it.
struct Visited
{
    Place place;
    std::vector<std::uint32_t> uses;
};

class Collecting : public ReportVisitor
{
public:
    bool Enter(const Place& place) override
    {
        if (place.use != ReportWalk::kRoot) {
            m_uses.push_back(place.use);
        }
        all.push_back({place, m_uses});
        return true;
    }
    void Leave(const Place& place) override
    {
        if (place.use != ReportWalk::kRoot) {
            EXPECT_EQ(m_uses.back(), place.use);
            m_uses.pop_back();
        }
    }

    std::vector<Visited> all;

private:
    std::vector<std::uint32_t> m_uses;
};

std::vector<Visited> AllPlaces(const ReportWalk& walk)
{
    Collecting collecting;
    walk.Visit(walk.Root(), collecting);
    return collecting.all;
}

/// "R/A.1/B.1 x2" for each place.
std::vector<std::string> Names(const ProductGraph& graph, const std::vector<Visited>& places)
{
    std::vector<std::string> names;
    for (const Visited& visited : places) {
        std::string name = graph.PartOf(0).identifier;
        for (const std::uint32_t use : visited.uses) {
            name += "/" + graph.InstanceOf(use);
        }
        names.push_back(name + " x" + std::to_string(static_cast<int>(visited.place.pieces)));
    }
    return names;
}

testing::AssertionResult IsSame(double left, double right)
{
    const bool same = left == right || (!IsKnown(left) && !IsKnown(right));
    return same ? testing::AssertionSuccess()
                : testing::AssertionFailure() << left << " is not " << right;
}

void ExpectExactly(const Total& found, const Total& expected)
{
    EXPECT_TRUE(IsSame(found.body.mass, expected.body.mass));
    EXPECT_TRUE(IsSame(found.body.lower, expected.body.lower));
    EXPECT_TRUE(IsSame(found.body.upper, expected.body.upper));
    for (std::size_t axis = 0; axis < 3; ++axis) {
        EXPECT_TRUE(IsSame(found.body.centre[axis], expected.body.centre[axis])) << axis;
    }
    for (std::size_t term = 0; term < 6; ++term) {
        EXPECT_TRUE(IsSame(found.body.inertia[term], expected.body.inertia[term])) << term;
    }
    EXPECT_EQ(found.counts.leaves, expected.counts.leaves);
    EXPECT_EQ(found.counts.withoutMass, expected.counts.withoutMass);
    EXPECT_NEAR(found.counts.massWithoutCentre, expected.counts.massWithoutCentre, kShare);
    EXPECT_NEAR(found.counts.massWithoutInertia, expected.counts.massWithoutInertia, kShare);
}

std::map<std::tuple<std::string, int, double>, double>
ByMaterial(const std::vector<MaterialShare>& shares)
{
    std::map<std::tuple<std::string, int, double>, double> masses;
    for (const MaterialShare& share : shares) {
        masses[{share.material, static_cast<int>(share.dimension), share.density}] += share.mass;
    }
    return masses;
}

template <typename Map>
void ExpectMasses(const Map& found, const Map& expected, double whole)
{
    ASSERT_EQ(found.size(), expected.size());
    auto other = expected.begin();
    for (const auto& [key, mass] : found) {
        EXPECT_TRUE(key == other->first);
        EXPECT_NEAR(mass, other->second, kShare * (1 + std::abs(whole)));
        ++other;
    }
}

/// What a computation answers that asks for this node.
void ExpectAsAsked(const ProductGraph& graph, const ComputeOptions& options, const ReportWalk& walk,
                   const Visited& visited)
{
    ComputeOptions asked = options;
    asked.validate = false;
    const ComputeResult result = Compute(graph, {0, visited.uses}, asked);
    ASSERT_EQ(result.error, "");
    const std::uint32_t number = visited.place.number;
    const Total& total = walk.TotalOf(number);
    ExpectExactly(total, result.total);
    const Claim* taken = walk.TakenOf(number);
    EXPECT_EQ(taken == nullptr ? "" : graph.Types()[taken->type].name, result.takenType);
    const double mass = total.HasMass() ? total.body.mass : 0.0;
    ExpectMasses(ByMaterial(walk.MaterialsOf(number)), ByMaterial(result.statistics.materials),
                 mass);
    const auto types = walk.MassTypesOf(number);
    ASSERT_EQ(types.size(), result.statistics.massTypes.size());
    for (std::size_t i = 0; i < types.size(); ++i) {
        EXPECT_EQ(types[i].name, result.statistics.massTypes[i].name);
        EXPECT_NEAR(types[i].mass, result.statistics.massTypes[i].mass,
                    kShare * (1 + std::abs(mass)));
    }
}

/// Everything right below an element makes up the element, in the axes of the root.
void ExpectChildrenMakeUp(const ReportWalk& walk, const std::vector<Visited>& places,
                          std::size_t position)
{
    const Visited& parent = places[position];
    const Total& total = walk.TotalOf(parent.place.number);
    if (walk.TakenOf(parent.place.number) != nullptr || !total.HasMass()) {
        return;
    }
    const Body whole = walk.BodyAt(parent.place);
    double mass = 0.0;
    double size = 0.0;
    double lower = 0.0;
    std::array<double, 3> moment{};
    Inertia inertia{};
    bool hasChildren = false;
    bool isWhole = total.HasCentre() && total.counts.massWithoutCentre == 0.0;
    for (std::size_t i = position + 1;
         i < places.size() && places[i].uses.size() > parent.uses.size(); ++i) {
        if (places[i].uses.size() != parent.uses.size() + 1) {
            continue;
        }
        hasChildren = true;
        Body body = walk.BodyAt(places[i].place);
        if (!IsKnown(body.mass)) {
            continue;
        }
        if (!IsKnown(body.inertia[0])) {
            body.inertia = {};
        }
        mass += body.mass;
        size += std::abs(body.mass);
        lower += body.lower;
        if (!IsKnown(body.centre[0])) {
            isWhole = isWhole && body.mass == 0.0; // of nothing, or of masses that cancel
            continue;
        }
        for (std::size_t axis = 0; axis < 3; ++axis) {
            moment[axis] += body.mass * body.centre[axis];
        }
        const Inertia about = InertiaAbout(body, whole.centre);
        for (std::size_t term = 0; term < 6; ++term) {
            inertia[term] += about[term];
        }
    }
    if (!hasChildren) {
        return;
    }
    EXPECT_NEAR(whole.mass, mass, kShare * (1 + size));
    EXPECT_NEAR(whole.lower, lower, kShare * (1 + size));
    if (!isWhole) {
        return;
    }
    for (std::size_t axis = 0; axis < 3; ++axis) {
        EXPECT_NEAR(whole.mass * whole.centre[axis], moment[axis], kShare * (1 + size) * 1e4);
    }
    for (std::size_t term = 0; term < 6; ++term) {
        EXPECT_NEAR(whole.inertia[term], inertia[term], 1e-7 * (1 + size) * 10) << term;
    }
}

void ExpectSectionsMakeUp(const ReportWalk& walk, const ComputeResult& result)
{
    const Total& total = walk.TotalOf(walk.Root().number);
    const auto sections = walk.Sections({});
    double mass = 0.0;
    double size = 1.0;
    double lower = 0.0;
    double upper = 0.0;
    Counts counts;
    std::array<double, 3> moment{};
    Inertia inertia{};
    std::map<std::string, double> codes;
    std::map<std::tuple<std::string, int, double>, double> materials;
    bool allHaveCentre = true;
    for (const ReportSection& section : sections) {
        counts.leaves += section.total.counts.leaves;
        counts.withoutMass += section.total.counts.withoutMass;
        counts.massWithoutCentre += section.total.counts.massWithoutCentre;
        counts.massWithoutInertia += section.total.counts.massWithoutInertia;
        for (const auto& [key, share] : ByMaterial(section.materials)) {
            materials[key] += share;
        }
        const Body& body = section.total.body;
        if (!section.total.HasMass()) {
            continue;
        }
        mass += body.mass;
        size += std::abs(body.mass);
        lower += body.lower;
        upper += body.upper;
        codes[section.code] = body.mass;
        allHaveCentre = allHaveCentre && section.total.HasCentre();
        for (std::size_t axis = 0; axis < 3; ++axis) {
            moment[axis] += body.mass * body.centre[axis];
        }
        const Inertia about = InertiaAbout(body, total.body.centre);
        for (std::size_t term = 0; term < 6; ++term) {
            inertia[term] += about[term];
        }
    }
    EXPECT_EQ(counts.leaves, total.counts.leaves);
    EXPECT_EQ(counts.withoutMass, total.counts.withoutMass);
    EXPECT_NEAR(counts.massWithoutCentre, total.counts.massWithoutCentre, kShare * size);
    EXPECT_NEAR(counts.massWithoutInertia, total.counts.massWithoutInertia, kShare * size);
    ExpectMasses(materials, ByMaterial(result.statistics.materials), size);
    if (!total.HasMass()) {
        EXPECT_TRUE(codes.empty());
        return;
    }
    EXPECT_NEAR(mass, total.body.mass, kShare * size);
    EXPECT_NEAR(lower, total.body.lower, kShare * size);
    EXPECT_NEAR(upper, total.body.upper, kShare * size);
    for (const NamedShare& share : result.statistics.codes) {
        EXPECT_NEAR(codes[share.name], share.mass, kShare * size) << share.name;
    }
    // Sections in which masses cancel have no centre of their own.
    if (!total.HasCentre() || !allHaveCentre) {
        return;
    }
    for (std::size_t axis = 0; axis < 3; ++axis) {
        EXPECT_NEAR(moment[axis], total.body.mass * total.body.centre[axis], kShare * size * 1e4);
    }
    if (walk.TakenOf(walk.Root().number) != nullptr) {
        ASSERT_EQ(sections.size(), 1U);
        ExpectExactly(sections[0].total, total);
        return;
    }
    for (std::size_t term = 0; term < 6; ++term) {
        EXPECT_NEAR(inertia[term], total.body.inertia[term], 1e-7 * size * 10) << term;
    }
}

void ExpectReport(const ProductGraph& graph, const ComputeOptions& options)
{
    const ReportWalk walk(graph, options, kEverything);
    ASSERT_EQ(walk.Error(), "");
    const auto places = AllPlaces(walk);
    EXPECT_EQ(walk.PlacesBelow(walk.Root().number), static_cast<double>(places.size() - 1));
    for (std::size_t i = 0; i < places.size(); ++i) {
        SCOPED_TRACE(testing::PrintToString(places[i].uses));
        ExpectAsAsked(graph, options, walk, places[i]);
        ExpectChildrenMakeUp(walk, places, i);
        if (testing::Test::HasFailure()) {
            return;
        }
    }
    ExpectSectionsMakeUp(walk, Compute(graph, {0, {}}, options));
}

std::vector<ComputeOptions> AllPrecisions()
{
    std::vector<ComputeOptions> all{{}, MostPrecise()};
    for (const char* type :
         {"Computed", "Target", "Estimated", "Calculated", "Supplier", "Weighed"}) {
        all.push_back(Specified(type));
    }
    return all;
}

ComputeOptions Filtered(ComputeOptions options, const std::string& text)
{
    EXPECT_EQ(ReadFilterText(text, options.filter), "");
    return options;
}

ProductGraph SampleGraph(const std::string& file)
{
    const auto read = ReadLocalProduct(wbtest::DataFile(file));
    EXPECT_TRUE(read.Ok());
    return {read.product, ShippedMassTypes()};
}

/// A, turned by 90 degrees about z at (10, 20, 30), twice two pieces of B at (1, 2, 3) in it.
SmallProduct Turned()
{
    SmallProduct small;
    Use& a = small.Put("R", "A", {10, 20, 30});
    a.placement.rotation = RotationFromAngles(0, 0, 90);
    a.quantity = 2;
    small.Put("A", "B", {1, 2, 3}).quantity = 2;
    small.Set("B", "Weighed",
              {{Fact::Mass, 4},
               {Fact::CgX, 5},
               {Fact::CgY, 0},
               {Fact::CgZ, 0},
               {Fact::Ixx, 1},
               {Fact::Iyy, 2},
               {Fact::Izz, 2.5},
               {Fact::Ixy, 0.1},
               {Fact::Ixz, 0.2},
               {Fact::Iyz, 0.3}});
    return small;
}
} // namespace

TEST(ReportWalk, EveryNodeOfTheSamplesWeighsWhatAComputationOfItAnswers)
{
    struct Sample
    {
        const char* file;
        const char* filter;
    };
    for (const Sample& sample :
         {Sample{"light_aeroplane.csv", "2|F|X|FUS-110.1|FUS-110|A|2|FUS-100.1|FUS-000.1|X|"
                                        "WNG-000.1|WNG-000|A|0"},
          Sample{"small_satellite.csv", "1|F|I|STR-000.1|STR-000|A|0"}}) {
        const ProductGraph graph = SampleGraph(sample.file);
        for (const ComputeOptions& options : AllPrecisions()) {
            SCOPED_TRACE(std::string(sample.file) + " " + options.massType);
            ExpectReport(graph, options);
            ExpectReport(graph, Filtered(options, sample.filter));
        }
    }
}

TEST(ReportWalk, EveryNodeOfAnyProductWeighsWhatAComputationOfItAnswers)
{
    constexpr unsigned kProducts = 200;
    for (unsigned seed = 0; seed < kProducts; ++seed) {
        RandomProduct random(5000 + seed);
        const ProductGraph graph(random.product, ShippedMassTypes());
        for (ComputeOptions options : AllPrecisions()) {
            SCOPED_TRACE("product " + std::to_string(seed) + " " + options.massType);
            ExpectReport(graph, options);
            const std::size_t lines = 1 + random.Below(3);
            for (std::size_t i = 0; i < lines; ++i) {
                options.filter.lines.push_back(random.SomeLine());
            }
            ExpectReport(graph, options);
            if (testing::Test::HasFailure()) {
                return;
            }
        }
    }
}

TEST(ReportWalk, PlacesComeDepthFirstInStoredOrderWithAllTheirPieces)
{
    SmallProduct small;
    small.Put("R", "B").quantity = 2;
    small.Put("R", "A");
    small.Put("B", "C").quantity = 3;
    small.Put("B", "A");
    const ProductGraph graph(small.product, ShippedMassTypes());
    const ReportWalk walk(graph, {}, {});
    EXPECT_THAT(Names(graph, AllPlaces(walk)),
                ElementsAre("R x1", "R/B.1 x2", "R/B.1/C.1 x6", "R/B.1/A.1 x2", "R/A.1 x1"));
    EXPECT_EQ(walk.PlacesBelow(walk.Root().number), 4);
}

TEST(ReportWalk, BodyOfAPlaceIsThatOfAllPiecesInTheAxesOfTheRoot)
{
    const ProductGraph graph(Turned().product, ShippedMassTypes());
    const ReportWalk walk(graph, {}, {});
    const auto places = AllPlaces(walk);
    ASSERT_EQ(places.size(), 3U);
    // x of A points along y of the root, y of A along -x: (6, 2, 3) stands at (10 - 2, 20 + 6, 33).
    const Body expected{16, 0.08, 0.08, {8, 26, 33}, {8, 4, 10, -0.4, -1.2, 0.8}};
    wbtest::ExpectSame(walk.BodyAt(places[2].place), expected);
    wbtest::ExpectSame(walk.BodyAt(places[1].place), expected);
    EXPECT_EQ(walk.TotalOf(places[2].place.number).body.mass, 4);
}

TEST(ReportWalk, OppositeHandMirrorsCentreAndProducts)
{
    SmallProduct small = Turned();
    small.product.uses.front().placement = {{{{1, 0, 0}, {0, -1, 0}, {0, 0, 1}}}, {0, 100, 0}};
    const ProductGraph graph(small.product, ShippedMassTypes());
    const ReportWalk walk(graph, {}, {});
    wbtest::ExpectSame(walk.BodyAt(AllPlaces(walk)[2].place),
                       {16, 0.08, 0.08, {6, 98, 3}, {4, 8, 10, -0.4, 0.8, -1.2}});
}

TEST(ReportWalk, FoundPlaceIsTheVisitedOne)
{
    const ProductGraph graph = SampleGraph("light_aeroplane.csv");
    const ReportWalk walk(graph, Filtered({}, "1|F|X|FUS-110.1|FUS-110|A|2|FUS-100.1|FUS-000.1"),
                          {});
    for (const Visited& visited : AllPlaces(walk)) {
        const auto found = walk.Find(visited.uses);
        ASSERT_TRUE(found);
        EXPECT_EQ(found->number, visited.place.number);
        EXPECT_EQ(found->use, visited.place.use);
        EXPECT_EQ(found->code, visited.place.code);
        EXPECT_EQ(found->pieces, visited.place.pieces);
        EXPECT_EQ(found->placement, visited.place.placement);
        EXPECT_EQ(found->isTurned, visited.place.isTurned);
    }
    const auto left = graph.FindPath(0, {"FUS-000.1", "FUS-100.1", "FUS-110.1"});
    ASSERT_TRUE(left);
    EXPECT_FALSE(walk.Find(left->uses)) << "the filter leaves it out";
}

TEST(ReportWalk, RootThatTheFilterLeavesOutHasFiguresOfNothing)
{
    SmallProduct small = Turned();
    const ProductGraph graph(small.product, ShippedMassTypes());
    const ReportWalk walk(graph, Filtered({}, "1|F|X||R|A|0"), kEverything);
    EXPECT_EQ(Names(graph, AllPlaces(walk)), std::vector<std::string>{"R x1"});
    const Place root = walk.Root();
    ExpectExactly(walk.TotalOf(root.number),
                  Compute(graph, {0, {}}, Filtered({}, "1|F|X||R|A|0")).total);
    EXPECT_EQ(walk.NodeOf(root.number), 0U);
    EXPECT_EQ(walk.TakenOf(root.number), nullptr);
    EXPECT_EQ(walk.PlacesBelow(root.number), 0);
    EXPECT_TRUE(walk.MaterialsOf(root.number).empty());
    EXPECT_TRUE(walk.MassTypesOf(root.number).empty());
    EXPECT_FALSE(IsKnown(walk.VolumeOf(root.number)));
    EXPECT_TRUE(walk.Sections({}).empty());
    EXPECT_FALSE(walk.Find(std::vector<std::uint32_t>{0}));
}

TEST(ReportWalk, StructureBelowOwnValuesGoesOnButTheSectionsCountTheOwnValues)
{
    SmallProduct small = Turned();
    small.Set("A", "Weighed", {{Fact::Mass, 9}});
    small.Of("A").activeType = "Weighed";
    small.Of("B").code = "B";
    const ProductGraph graph(small.product, ShippedMassTypes());
    const ReportWalk walk(graph, {}, {});
    const auto places = AllPlaces(walk);
    ASSERT_EQ(places.size(), 3U);
    EXPECT_EQ(walk.BodyAt(places[1].place).mass, 18);
    EXPECT_EQ(walk.BodyAt(places[2].place).mass, 16);
    const auto sections = walk.Sections({});
    ASSERT_EQ(sections.size(), 1U);
    EXPECT_EQ(sections[0].code, "(no code)");
    EXPECT_EQ(sections[0].total.body.mass, 18);
}

TEST(ReportWalk, SectionOfARootWhoseOwnValuesCountIsTheRoot)
{
    SmallProduct small = Turned();
    small.Set("R", "Weighed",
              {{Fact::Mass, 9},
               {Fact::CgX, 1},
               {Fact::CgY, 2},
               {Fact::CgZ, 3},
               {Fact::Lower, 0},
               {Fact::Upper, 0}});
    small.Of("R").code = "ALL";
    small.Of("R").activeType = "Weighed";
    const ProductGraph graph(small.product, ShippedMassTypes());
    const auto sections = ReportWalk(graph, {}, {}).Sections({});
    ASSERT_EQ(sections.size(), 1U);
    EXPECT_EQ(sections[0].code, "ALL");
    EXPECT_EQ(sections[0].total.body.mass, 9);
    EXPECT_EQ(sections[0].total.body.centre, (std::array<double, 3>{1, 2, 3}));
}

TEST(ReportWalk, CodeIsTheNodesOwnElseThatOfTheNearestAbove)
{
    SmallProduct small;
    small.Put("R", "A");
    small.Put("A", "B");
    small.Put("B", "C");
    small.Of("A").code = "WING";
    small.Of("C").code = "FUEL";
    const ProductGraph graph(small.product, ShippedMassTypes());
    std::vector<std::string> codes;
    for (const Visited& visited : AllPlaces(ReportWalk(graph, {}, {}))) {
        const std::int32_t code = visited.place.code;
        codes.push_back(code < 0 ? "-" : graph.Codes()[static_cast<std::size_t>(code)]);
    }
    EXPECT_THAT(codes, ElementsAre("-", "WING", "WING", "FUEL"));
}

TEST(ReportWalk, SectionsStandTheHeaviestFirstThenByNameAndThoseWithoutMassLast)
{
    SmallProduct small;
    for (const char* part : {"Q", "S", "T", "U", "V"}) {
        small.Put("R", part);
        small.Of(part).code = std::string("c") + part;
    }
    // Names that do not stand in the order of the product.
    std::swap(small.Of("S").code, small.Of("U").code);
    std::swap(small.Of("Q").code, small.Of("V").code);
    small.Set("S", "Weighed", {{Fact::Mass, 2}});
    small.Set("T", "Weighed", {{Fact::Mass, 5}});
    small.Set("U", "Weighed", {{Fact::Mass, 2}});
    const ProductGraph graph(small.product, ShippedMassTypes());
    std::vector<std::string> names;
    for (const ReportSection& section : ReportWalk(graph, {}, {}).Sections({})) {
        names.push_back(section.code);
    }
    EXPECT_THAT(names, ElementsAre("cT", "cS", "cU", "cQ", "cV"));
}

TEST(ReportWalk, MassWithoutCentreStandsInItsSectionAtTheCentreOfTheRestOfTheProduct)
{
    SmallProduct small;
    small.Put("R", "P", {100, 0, 0});
    small.Put("R", "Q", {300, 0, 0});
    small.Put("R", "L");
    small.Of("P").code = "ONE";
    small.Of("L").code = "ONE";
    small.Of("Q").code = "TWO";
    small.Set("P", "Weighed", {{Fact::Mass, 3}, {Fact::CgX, 0}, {Fact::CgY, 0}, {Fact::CgZ, 0}});
    small.Set("Q", "Weighed", {{Fact::Mass, 1}, {Fact::CgX, 0}, {Fact::CgY, 0}, {Fact::CgZ, 0}});
    small.Set("L", "Weighed", {{Fact::Mass, 2}});
    const ProductGraph graph(small.product, ShippedMassTypes());
    const auto sections = ReportWalk(graph, {}, {}).Sections({});
    ASSERT_EQ(sections.size(), 2U);
    // The rest stands at (3 * 100 + 1 * 300) / 4 = 150: ONE is 3 kg at 100 and 2 kg at 150.
    EXPECT_DOUBLE_EQ(sections[0].total.body.centre[0], 120);
    // 3 (20 mm)2 + 2 (30 mm)2
    EXPECT_NEAR(sections[0].total.body.inertia[1], 0.003, 1e-15);
    EXPECT_DOUBLE_EQ(sections[1].total.body.centre[0], 300);
}

TEST(ReportWalk, SectionsOfAProductWithoutAnyCentreKnowTheInertiaThatAllOfTheirMassStates)
{
    SmallProduct small;
    small.Put("R", "P");
    small.Put("R", "Q");
    small.Of("P").code = "ONE";
    small.Of("Q").code = "TWO";
    small.Set("P", "Weighed",
              {{Fact::Mass, 3},
               {Fact::Ixx, 1},
               {Fact::Iyy, 2},
               {Fact::Izz, 2.5},
               {Fact::Ixy, 0},
               {Fact::Ixz, 0},
               {Fact::Iyz, 0}});
    small.Set("Q", "Weighed", {{Fact::Mass, 2}});
    const ProductGraph graph(small.product, ShippedMassTypes());
    const auto sections = ReportWalk(graph, {}, {}).Sections({});
    ASSERT_EQ(sections.size(), 2U);
    EXPECT_FALSE(sections[0].total.HasCentre());
    EXPECT_EQ(sections[0].total.body.inertia, (Inertia{1, 2, 2.5, 0, 0, 0}));
    EXPECT_FALSE(sections[1].total.HasCentre());
    EXPECT_FALSE(sections[1].total.HasInertia());
}

TEST(ReportWalk, VolumeOfAnAssemblyIsThatOfItsLeavesIfAllHaveOne)
{
    SmallProduct small;
    small.Put("R", "A").quantity = 2;
    small.Put("A", "P").quantity = 3;
    small.Put("A", "Q");
    small.Put("R", "E");
    small.Put("E", "N");
    small.Set("P", "Weighed", {{Fact::Mass, 1}});
    small.Set("P", "Calculated", {{Fact::Mass, 1}, {Fact::Volume, 0.5}});
    small.Set("P", "Target", {{Fact::Mass, 1}, {Fact::Volume, 9}});
    small.Set("Q", "Calculated", {{Fact::Mass, 1}, {Fact::Volume, 0.25}});
    small.Set("N", "Weighed", {{Fact::Mass, 1}});
    small.Set("N", "Target", {{Fact::Mass, 1}, {Fact::Volume, 9}}); // a goal, no claim
    small.Of("Q").code = "Q";
    const ProductGraph graph(small.product, ShippedMassTypes());
    const ReportWalk walk(graph, {}, {false, false, true});
    std::vector<std::string> volumes;
    for (const Visited& visited : AllPlaces(walk)) {
        const double volume = walk.VolumeOf(visited.place.number);
        volumes.push_back(IsKnown(volume) ? std::to_string(volume).substr(0, 4) : "-");
    }
    // A weighed part is as large as its model says; N has no model.
    EXPECT_THAT(volumes, ElementsAre("-", "1.75", "0.50", "0.25", "-", "-"));
    const auto sections = walk.Sections({});
    ASSERT_EQ(sections.size(), 2U);
    EXPECT_FALSE(IsKnown(sections[0].volume)) << sections[0].code;
    EXPECT_EQ(sections[1].volume, 0.5) << "two pieces of Q";
}

TEST(ReportWalk, VolumeOfAnAssemblyOfWhichNothingIsLeftIsUnknown)
{
    SmallProduct small;
    small.Put("R", "A");
    small.Put("A", "P");
    small.Set("P", "Calculated", {{Fact::Mass, 1}, {Fact::Volume, 0.5}});
    const ProductGraph graph(small.product, ShippedMassTypes());
    const ReportWalk walk(graph, Filtered({}, "1|F|X|P.1|P|A|1|A.1"), {false, false, true});
    const auto places = AllPlaces(walk);
    ASSERT_EQ(Names(graph, places), (std::vector<std::string>{"R x1", "R/A.1 x1"}));
    EXPECT_FALSE(IsKnown(walk.VolumeOf(places[1].place.number)));
}

TEST(ReportWalk, VolumeThatCountingValuesStateGoesFirst)
{
    SmallProduct small;
    small.Put("R", "A");
    small.Put("A", "P");
    small.Set("P", "Weighed", {{Fact::Mass, 1}, {Fact::Volume, 0.5}});
    small.Set("P", "Calculated", {{Fact::Mass, 1}, {Fact::Volume, 0.25}});
    small.Set("A", "Weighed", {{Fact::Mass, 3}, {Fact::Volume, 2}});
    const auto volumes = [&](const ComputeOptions& options) {
        const ProductGraph graph(small.product, ShippedMassTypes());
        const ReportWalk walk(graph, options, {false, false, true});
        std::vector<double> found;
        for (const Visited& visited : AllPlaces(walk)) {
            found.push_back(walk.VolumeOf(visited.place.number));
        }
        return found;
    };
    EXPECT_THAT(volumes({}), ElementsAre(0.5, 0.5, 0.5));
    EXPECT_THAT(volumes(Specified("Calculated")), ElementsAre(0.25, 0.25, 0.25));
    EXPECT_THAT(volumes(MostPrecise()), ElementsAre(2, 2, 0.5));
}

TEST(ReportWalk, WhatIsNotWantedIsNotThere)
{
    SmallProduct small;
    small.Set("R", "Weighed", {{Fact::Mass, 1}, {Fact::Volume, 0.5}});
    const ProductGraph graph(small.product, ShippedMassTypes());
    const ReportWalk walk(graph, {}, {});
    EXPECT_TRUE(walk.MaterialsOf(0).empty());
    EXPECT_TRUE(walk.MassTypesOf(0).empty());
    EXPECT_FALSE(IsKnown(walk.VolumeOf(0)));
    const auto sections = walk.Sections({});
    ASSERT_EQ(sections.size(), 1U);
    EXPECT_TRUE(sections[0].materials.empty());
    EXPECT_FALSE(IsKnown(sections[0].volume));
}

TEST(ReportWalk, UnknownMassTypeAndCancelAreErrors)
{
    const ProductGraph graph(Turned().product, ShippedMassTypes());
    EXPECT_EQ(ReportWalk(graph, Specified("Guessed"), {}).Error(),
              "The mass type \"Guessed\" is not known.");
    ComputeOptions options;
    options.cancelled = [] {
        return true;
    };
    EXPECT_EQ(ReportWalk(graph, options, {}).Error(), "The computation was cancelled.");
}

TEST(ReportWalk, ProductThatHoldsItselfIsAnError)
{
    SmallProduct small;
    small.Put("R", "A");
    small.Put("A", "R");
    const ProductGraph graph(small.product, ShippedMassTypes());
    EXPECT_EQ(ReportWalk(graph, {}, {}).Error(), "The product holds itself: R > A > R.");
}

TEST(ReportWalk, ProductDeeperThanACallStackIsVisited)
{
    constexpr std::uint32_t kDeep = 200'000;
    SmallProduct small;
    for (std::uint32_t number = 0; number < kDeep; ++number) {
        Part part;
        part.identifier = "P" + std::to_string(number);
        part.version = "A";
        small.product.parts.push_back(part);
        if (number > 0) {
            Use use;
            use.parent = number - 1;
            use.part = number;
            use.instance = "i";
            small.product.uses.push_back(use);
        }
    }
    const ProductGraph graph(small.product, ShippedMassTypes());
    const ReportWalk walk(graph, {}, {});
    class Counting : public ReportVisitor
    {
    public:
        bool Enter(const Place&) override
        {
            ++count;
            return true;
        }
        void Leave(const Place&) override { --open; }

        int count = 0;
        int open = 0;
    };
    Counting counting;
    walk.Visit(walk.Root(), counting);
    EXPECT_EQ(counting.count, static_cast<int>(kDeep));
    EXPECT_EQ(counting.open, -counting.count);
}

TEST(ReportWalk, VisitorThatStaysAboveIsLeftAllTheSame)
{
    class Staying : public ReportVisitor
    {
    public:
        bool Enter(const Place& place) override
        {
            calls += "+" + std::to_string(static_cast<int>(place.pieces));
            return place.use == ReportWalk::kRoot;
        }
        void Leave(const Place& place) override
        {
            calls += "-" + std::to_string(static_cast<int>(place.pieces));
        }

        std::string calls;
    };
    const ProductGraph graph(Turned().product, ShippedMassTypes());
    const ReportWalk walk(graph, {}, {});
    Staying staying;
    walk.Visit(walk.Root(), staying);
    EXPECT_EQ(staying.calls, "+1+2-2-1");
}

TEST(ReportWalk, SectionsLookUpNowAndThenSoThatTheWalkCanBeEnded)
{
    SmallProduct small;
    small.Put("R", "P");
    for (std::size_t i = 1; i < 5000; ++i) {
        Use use = small.product.uses.front();
        use.instance = "i" + std::to_string(i);
        small.product.uses.push_back(use);
    }
    const ProductGraph graph(small.product, ShippedMassTypes());
    const ReportWalk walk(graph, {}, {});
    int looks = 0;
    EXPECT_EQ(walk.Sections([&] { ++looks; }).size(), 1U);
    EXPECT_EQ(looks, 1);
    EXPECT_THROW(walk.Sections([] { throw std::runtime_error("enough"); }), std::runtime_error);
}
