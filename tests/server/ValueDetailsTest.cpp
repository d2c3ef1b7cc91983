#include "PartRequestTesting.h"
#include "SqlConnection.h"

#include <cmath>

using namespace wb;
using testing::HasSubstr;
using testing::StartsWith;
using wbtest::AnswerFields;
using wbtest::PartRequest;
using wbtest::ServedProduct;

namespace
{
const PartRequest kAssembly{.place = "S.1|S|A|0"};
const PartRequest kLeaf{.place = "P.1|P|A|0"};

constexpr std::size_t kSetFields = 24;
const std::string kNull = "__null__";
const std::string kNoSigmas = "__null__|__null__|__null__|__null__|__null__|__null__|__null__|"
                              "__null__|__null__|__null__|";
const std::string kNoSource = "__null__|__null__|__null__|__null__|";
const std::string kNoMoments = "__null__|__null__|__null__|";

/// A set about which nothing is known.
std::string Nothing(const std::string& name)
{
    return name + "|0|0|0|__null__|__null__|0|" + kNoSigmas + kNoSource + kNoMoments;
}

/// The fields of the set of that name: the name first.
std::vector<std::string> SetOf(const std::string& answer, const std::string& name)
{
    const auto fields = wbtest::Split(answer, '|');
    for (std::size_t first = 2; first + kSetFields <= fields.size(); first += kSetFields) {
        if (fields[first] == name) {
            return {fields.begin() + static_cast<std::ptrdiff_t>(first),
                    fields.begin() + static_cast<std::ptrdiff_t>(first + kSetFields)};
        }
    }
    ADD_FAILURE() << name << " is not in " << answer;
    return std::vector<std::string>(kSetFields);
}

/// Origins, lenders and precision: the six fields behind the name.
std::vector<std::string> OriginsOf(const std::string& answer, const std::string& name)
{
    const auto set = SetOf(answer, name);
    return {set.begin() + 1, set.begin() + 7};
}

/// What stands behind all sets, from the coverage on.
AnswerFields BehindSets(const std::string& answer)
{
    AnswerFields fields(answer);
    fields.Next();
    const double sets = fields.NextNumber();
    EXPECT_GT(sets, 0.0) << answer;
    fields.Skip(static_cast<std::size_t>(sets) * kSetFields);
    return fields;
}

/// What stands behind the shares.
AnswerFields BehindShares(const std::string& answer)
{
    AnswerFields fields = BehindSets(answer);
    fields.Skip(4);
    for (int list = 0; list < 2; ++list) {
        fields.Skip(2 * static_cast<std::size_t>(fields.NextNumber()));
    }
    fields.Next();
    return fields;
}

using Texts = std::vector<std::string>;

/// Two points in an assembly: 2 kg at x = 0, sigma 0.3 kg, and 6 kg at x = 4 mm, sigma 0.4 kg.
constexpr const char* kTwoPoints =
    "parent,instance,part,code,growth_pct [%],mass_type,mass [kg],cgx [mm],cgy [mm],cgz [mm],"
    "sigma_mass [kg]\n"
    ",,A,TOP,,,,,,,\nA,S.1,S,,,,,,,,\n"
    "S,1,P,WING,10,Weighed,2,0,0,0,0.3\n"
    "S,2,Q,,5,Estimated,6,4,0,0,0.4\n";

} // namespace

TEST(ValueDetails, LeafWithOneSetIsToldFieldByField)
{
    ServedProduct served;
    // 1 in the off-diagonal of a 2 by 2 block turns 2 and 2 into 3 and 1.
    served.ImportTable(
        "parent,instance,part,name,mass_type,mass [kg],lower_pct [%],upper_pct [%],cgx [mm],"
        "cgy [mm],cgz [mm],ixx [kg.m2],iyy [kg.m2],izz [kg.m2],ixy [kg.m2],ixz [kg.m2],"
        "iyz [kg.m2],poi_sign,sigma_mass [kg],sigma_cgx [mm],sigma_cgy [mm],sigma_cgz [mm],"
        "sigma_ixx [kg.m2],sigma_iyy [kg.m2],sigma_izz [kg.m2],sigma_ixy [kg.m2],"
        "sigma_ixz [kg.m2],sigma_iyz [kg.m2],source,source_date,author,note\n"
        ",,A,,,,,,,,,,,,,,,,,,,,,,,,,,,,,\n"
        "A,P.1,P,Bolt,Weighed,4,1,2,1,2,3,2,2,5,1,0,0,positive,0.1,0.2,0.3,0.4,0.5,0.6,0.7,0.8,"
        "0.9,1.1,Scale 7,2026-05-26,kim,dry\n");
    EXPECT_EQ(wbtest::DetailsOfRecord(served, kLeaf),
              "Bolt|6|" + Nothing("Computed") + Nothing("Target") + Nothing("Estimated") +
                  Nothing("Calculated") + Nothing("Supplier") +
                  "Weighed|1|1|1|__null__|__null__|1|0.1|0.2|0.3|0.4|0.5|0.6|0.7|0.8|0.9|1.1|"
                  "Scale 7|2026/05/26|kim|dry|5|3|1|"
                  // Nothing was computed: no leaves, no shares, no growth, nothing imposed.
                  "0|0|0|0|0|0|0|0|0|0|");
}

TEST(ValueDetails, RecordOfALeafHasNoComputedUntilSomebodyComputes)
{
    ServedProduct served;
    served.ImportTable("parent,instance,part,mass_type,volume [m3],density [kg/m3],lower [kg],"
                       "upper [kg],cgx [mm],cgy [mm],cgz [mm]\n,,A,,,,,,,,\n"
                       "A,P.1,P,Calculated,0.5,4,0.1,0.2,1,2,3\n");
    EXPECT_EQ(OriginsOf(wbtest::DetailsOfRecord(served, kLeaf), "Computed"),
              (Texts{"0", "0", "0", kNull, kNull, "0"}));
    const std::string computed = wbtest::DetailsOfComputation(served, kLeaf);
    EXPECT_EQ(OriginsOf(computed, "Computed"), (Texts{"2", "1", "0", kNull, kNull, "1"}));
    EXPECT_EQ(OriginsOf(computed, "Calculated"), (Texts{"2", "1", "0", kNull, kNull, "1"}));
    BehindSets(computed).Expect(
        {"1", "0", "0", "2", "1", "(no code)", "2", "1", "Calculated", "2", "0", "0", "1"});
}

TEST(ValueDetails, SumWithoutAnyMassIsUnknown)
{
    ServedProduct served;
    served.ImportTable("parent,instance,part\n,,A\nA,S.1,S\nS,1,P\n");
    EXPECT_EQ(OriginsOf(wbtest::DetailsOfComputation(served, {.place = "S.1|S|A|0"}), "Computed"),
              (Texts{"0", "0", "0", kNull, kNull, "0"}));
}

TEST(ValueDetails, PrecisionIsStatedOrTheTypesDefaultOrNone)
{
    ServedProduct served;
    served.ImportTable(
        "parent,instance,part,mass_type,mass [kg],lower [kg],upper [kg],"
        "lower_pct [%],upper_pct [%],cgx [mm],cgy [mm],cgz [mm]\n,,A,,,,,,,,,\n"
        "A,P.1,P,Weighed,2,0.1,0.2,,,,,\n"
        ",,P,Supplier,2,,,,,,,\n,,P,Estimated,,,,,,1,1,1\n,,P,Calculated,,,,3,4,1,1,1\n");
    const std::string answer = wbtest::DetailsOfRecord(served, kLeaf);
    EXPECT_EQ(SetOf(answer, "Weighed").at(6), "1");
    EXPECT_EQ(SetOf(answer, "Supplier").at(6), "2");
    EXPECT_EQ(SetOf(answer, "Estimated").at(6), "0");
    EXPECT_EQ(SetOf(answer, "Calculated").at(6), "1");
    EXPECT_EQ(SetOf(answer, "Target").at(6), "0");
}

TEST(ValueDetails, SetWithoutCentreOrInertiaIsLentThemByTheOthers)
{
    ServedProduct served;
    served.ImportTable(
        "parent,instance,part,mass_type,mass [kg],cgx [mm],cgy [mm],cgz [mm],"
        "ixx [kg.m2],iyy [kg.m2],izz [kg.m2]\n,,A,,,,,,,,\n"
        "A,P.1,P,Weighed,2,,,,,,\n,,P,Supplier,2,1,1,1,,,\n,,P,Estimated,2,,,,1,2,3\n"
        ",,P,Calculated,,3,3,3,,,\n");
    const std::string answer = wbtest::DetailsOfRecord(served, kLeaf);
    EXPECT_EQ(OriginsOf(answer, "Weighed"), (Texts{"1", "3", "3", "Supplier", "Estimated", "2"}));
    EXPECT_EQ(OriginsOf(answer, "Supplier"), (Texts{"1", "1", "3", kNull, "Estimated", "2"}));
    EXPECT_EQ(OriginsOf(answer, "Estimated"), (Texts{"1", "3", "1", "Supplier", kNull, "2"}));
    // Without a mass it never counts, so that nobody completes it.
    EXPECT_EQ(OriginsOf(answer, "Calculated"), (Texts{"0", "1", "0", kNull, kNull, "0"}));
    // The principal moments are those of what is stated.
    EXPECT_EQ(SetOf(answer, "Weighed").at(21), kNull);
    EXPECT_EQ(SetOf(answer, "Estimated").at(21), "3");
    // Computed takes the active set, completed.
    EXPECT_EQ(OriginsOf(wbtest::DetailsOfComputation(served, kLeaf), "Computed"),
              (Texts{"1", "3", "3", "Supplier", "Estimated", "2"}));
}

TEST(ValueDetails, SumBelowLendsToAnAssemblysOwnValues)
{
    ServedProduct served;
    served.ImportTable(wbtest::kImposed);
    EXPECT_EQ(OriginsOf(wbtest::DetailsOfRecord(served, kAssembly), "Weighed"),
              (Texts{"1", "3", "3", "Computed", "Computed", "2"}));
}

TEST(ValueDetails, UsesOwnSetIsToldBeforeThatOfThePart)
{
    ServedProduct served;
    served.ImportTable("parent,instance,part,mass_type,values_on,mass [kg],volume [m3],source,"
                       "material,material_on,material_density [kg/m3]\n,,A,,,,,,,,\n"
                       "A,P.1,P,Weighed,,2,,part's,,,\nA,P.1,P,Weighed,instance,3,,use's,,,\n"
                       ",,P,Calculated,,,0.5,,,,\nA,P.1,P,,,,,,Ti,instance,10\n");
    const std::string answer = wbtest::DetailsOfRecord(served, kLeaf);
    EXPECT_EQ(SetOf(answer, "Weighed").at(17), "use's");
    EXPECT_EQ(SetOf(answer, "Calculated").at(1), "2"); // sized by the use's material
}

TEST(ValueDetails, SumHasCoverageSharesAndGrowth)
{
    ServedProduct served;
    served.ImportTable(kTwoPoints);
    for (const std::string& answer : {wbtest::DetailsOfRecord(served, kAssembly),
                                      wbtest::DetailsOfComputation(served, kAssembly)}) {
        EXPECT_EQ(OriginsOf(answer, "Computed"), (Texts{"4", "4", "4", kNull, kNull, "0"}));
        // Growth: 10 % of 2 kg and 5 % of 6 kg. Q and S have no code, the root has.
        BehindSets(answer).Expect({"2", "0", "0", "8", "2", "TOP", "6", "WING", "2", "2",
                                   "Estimated", "6", "Weighed", "2", "0.5", "0"});
    }
}

TEST(ValueDetails, UncertaintyFollowsFromThoseOfTheLeaves)
{
    ServedProduct served;
    served.ImportTable(kTwoPoints);
    AnswerFields fields = BehindShares(wbtest::DetailsOfRecord(served, kAssembly));
    fields.Expect({"0", "1"});
    // Mass: 0.3 and 0.4. Centre 3 mm: an error of 1 kg of P moves it by -3/8, of Q by 1/8 mm.
    fields.ExpectNumbers({0.5});
    fields.ExpectNumbers({std::hypot(0.3 * 3.0 / 8.0, 0.4 / 8.0), 0.0, 0.0});
    // Inertia about y and z: 0.003^2 m2 an error of 1 kg of P, 0.001^2 of Q.
    const double sigma = std::hypot(0.3 * 9e-6, 0.4 * 1e-6);
    fields.ExpectNumbers({0.0, sigma, sigma, 0.0, 0.0, 0.0});
    fields.Expect({"0"}); // somebody stated all of them
}

TEST(ValueDetails, ShareWhoseUncertaintyNobodyStatedIsTold)
{
    ServedProduct served;
    served.ImportTable(
        "parent,instance,part,mass_type,mass [kg],sigma_mass [kg]\n,,A,,,\nA,S.1,S,,,\n"
        "S,1,P,Weighed,2,0.3\nS,2,Q,Estimated,6,\n");
    const std::string answer = wbtest::DetailsOfRecord(served, kAssembly);
    EXPECT_EQ(OriginsOf(answer, "Computed"), (Texts{"4", "0", "0", kNull, kNull, "0"}));
    AnswerFields fields = BehindShares(answer);
    fields.Expect({"0", "1"});
    // Q: 10 % and 20 % of 6 kg, from -0.6 to 1.2 as likely anywhere between.
    fields.ExpectNumbers({std::hypot(0.3, 1.8 / std::sqrt(12.0))});
    // Neither centre nor inertia is known.
    for (int figure = 0; figure < 9; ++figure) {
        EXPECT_EQ(fields.Next(), kNull);
    }
    fields.ExpectNumbers({0.75});
}

TEST(ValueDetails, InertiaThatNobodyStatedHasNoUncertainty)
{
    ServedProduct served;
    served.ImportTable(
        "parent,instance,part,mass_type,mass [kg],cgx [mm],cgy [mm],cgz [mm],"
        "sigma_mass [kg],sigma_cgx [mm],sigma_cgy [mm],sigma_cgz [mm]\n,,A,,,,,,,,,\n"
        "A,P.1,P,Weighed,2,1,1,1,0.1,0.2,0.3,0.4\n");
    AnswerFields fields = BehindShares(wbtest::DetailsOfComputation(served, kLeaf));
    fields.Expect(
        {"0", "1", "0.1", "0.2", "0.3", "0.4", kNull, kNull, kNull, kNull, kNull, kNull, "0"});
}

TEST(ValueDetails, ImposedValuesCountByTheirOwnDensity)
{
    ServedProduct served;
    served.ImportTable("parent,instance,part,mass_type,mass [kg],volume [m3],density [kg/m3],"
                       "material,material_density [kg/m3],active\n,,A,,,,,,,\n"
                       "A,S.1,S,Calculated,,0.5,4,Al,6,yes\nS,1,P,Weighed,1,,,Ti,10,\n");
    PartRequest request = kAssembly;
    request.priority = "1";
    request.material = "Ti";
    BehindShares(wbtest::DetailsOfComputation(served, request)).Expect({"1", "Calculated", "2"});
}

TEST(ValueDetails, OwnValuesAreImposedWhereThePrecisionTakesThem)
{
    ServedProduct served;
    served.ImportTable(wbtest::kImposed);
    PartRequest request = kAssembly;
    for (const char* precision : {"Active", "MostPrecise", "Weighed"}) {
        request.precision = precision;
        BehindShares(wbtest::DetailsOfComputation(served, request)).Expect({"1", "Weighed", "9"});
    }
    request.precision = "Computed";
    BehindShares(wbtest::DetailsOfComputation(served, request)).Expect({"0"});
}

TEST(ValueDetails, ImposedValuesStandBesideTheSameStaleSum)
{
    ServedProduct served;
    served.ImportTable("parent,instance,part,mass_type,mass [kg],active\n,,A,,,\n"
                       "A,S.1,S,Weighed,9,yes\nS,1,T,,,\nT,1,P,Weighed,5,\n");
    wbtest::ComputePart(served, kAssembly);
    served.ImportTable("part,mass_type,mass [kg]\nP,Weighed,6\n");
    PartRequest request = kAssembly;
    for (const auto& [policy, below] : {std::pair("2|0", "5"), std::pair("2|1", "6")}) {
        request.policy = policy;
        AnswerFields fields = BehindShares(wbtest::DetailsOfComputation(served, request));
        fields.Expect({"1", "Weighed", "9"});
        fields.Skip(11);
        EXPECT_EQ(fields.Next(), below) << policy;
        fields.Skip(23);
        fields.Expect({"0"}); // no leaf was looked at
    }
}

TEST(ValueDetails, ImposedValuesStandBesideWhatIsBelow)
{
    ServedProduct served;
    served.ImportTable(wbtest::kImposed);
    for (const std::string& answer : {wbtest::DetailsOfRecord(served, kAssembly),
                                      wbtest::DetailsOfComputation(served, kAssembly)}) {
        AnswerFields fields = BehindShares(answer);
        fields.Expect({"1", "Weighed"});
        // Own: 0.5 % of 9 kg; centre and inertia lent, the latter times 9/8.
        fields.ExpectNumbers({9.0, 0.045, 0.045});
        fields.ExpectNumbers({3.0, 0.0, 0.0});
        fields.ExpectNumbers({3.375, 3.375027, 3.375027, 0.675, 1.0125, 1.35});
        fields.ExpectNumbers({8.0, 1.1, 1.4});
        fields.ExpectNumbers({3.0, 0.0, 0.0});
        fields.ExpectNumbers({3.0, 3.000024, 3.000024, 0.6, 0.9, 1.2});
        fields.ExpectNumbers({1.0, -1.055, -1.355});
        fields.ExpectNumbers({0.0, 0.0, 0.0});
        fields.ExpectNumbers({0.375, 0.375003, 0.375003, 0.075, 0.1125, 0.15});
        fields.Expect({"1"}); // the uncertainty follows
    }
}

TEST(ValueDetails, SumThatWasMadeBeforeAChangeSaysSo)
{
    ServedProduct served;
    served.ImportTable(kTwoPoints);
    EXPECT_THAT(served.Initial("1||A|S.1|S|A|0|"), HasSubstr("|Computed|1|8|"));
    served.ImportTable("part,mass_type,mass [kg]\nP,Weighed,4\n");
    const std::string stale = wbtest::DetailsOfRecord(served, kAssembly);
    EXPECT_EQ(OriginsOf(stale, "Computed"), (Texts{"4", "4", "4", kNull, kNull, "0"}));
    // Of the 8 kg that the record still carries. What is made now would be 10 kg, so that its
    // uncertainty would not be theirs.
    BehindSets(stale).Expect({"2", "0", "0", "8", "2", "TOP", "6", "WING", "2", "2", "Estimated",
                              "6", "Weighed", "2", "0.5", "0", "0", "1",
                              "the values were computed before something below was changed"});
    BehindSets(wbtest::DetailsOfComputation(served, kAssembly))
        .Expect({"2", "0", "0", "10", "2", "TOP", "6", "WING", "4", "2", "Estimated", "6",
                 "Weighed", "4", "0.7", "0", "1"});
    EXPECT_THAT(wbtest::DetailsOfRecord(served, kAssembly), HasSubstr("|2|0|0|10|"));
}

TEST(ValueDetails, FiguresBelowThatNobodyKnowsAreUnknownInTheDifference)
{
    ServedProduct served;
    served.ImportTable(
        "parent,instance,part,mass_type,mass [kg],cgx [mm],cgy [mm],cgz [mm],active\n"
        ",,A,,,,,,\nA,S.1,S,Weighed,9,1,2,3,yes\nS,1,P,,,,,,\n");
    AnswerFields fields = BehindShares(wbtest::DetailsOfRecord(served, kAssembly));
    fields.Expect({"1", "Weighed", "9", "0.045", "0.045", "1", "2", "3"});
    fields.Skip(6);
    EXPECT_EQ(fields.Next(), kNull); // mass below
    fields.Skip(11);
    EXPECT_EQ(fields.Next(), kNull); // own less below
    fields.Skip(11);
    fields.Expect({"0"}); // no uncertainty of a mass that nobody knows
}

TEST(ValueDetails, NothingIsImposedWhereTheFilterLeavesSomethingOut)
{
    ServedProduct served;
    served.ImportTable(wbtest::kImposed);
    PartRequest request = kAssembly;
    request.filter = "1|No Q|X|2|Q|A|1|S.1";
    BehindShares(wbtest::DetailsOfComputation(served, request)).Expect({"0"});
    // The record knows no filter.
    BehindShares(wbtest::DetailsOfRecord(served, request)).Expect({"1", "Weighed"});
}

TEST(ValueDetails, PartAloneHasItsOwnValuesAndNothingBelow)
{
    ServedProduct served;
    served.ImportTable(wbtest::kImposed);
    PartRequest request = kAssembly;
    request.entity = "2";
    const std::string answer = wbtest::DetailsOfComputation(served, request);
    EXPECT_EQ(OriginsOf(answer, "Computed"), (Texts{"1", "0", "0", kNull, kNull, "2"}));
    BehindShares(answer).Expect({"0"});
}

TEST(ValueDetails, DefinedPrecisionIsAStatedOne)
{
    ServedProduct served;
    served.ImportTable(wbtest::kImposed);
    PartRequest request = kAssembly;
    request.defined = "1|0|10|25";
    const std::string answer = wbtest::DetailsOfComputation(served, request);
    EXPECT_EQ(SetOf(answer, "Computed").at(6), "1");
    AnswerFields fields = BehindShares(answer);
    fields.Expect({"1", "Weighed", "9", "0.045", "0.045"}); // own values keep their own
}

TEST(ValueDetails, RootIsComputedWhileTheSetsAreThoseOfThePlace)
{
    ServedProduct served;
    served.ImportSample("light_aeroplane.csv");
    PartRequest request;
    request.root = "LA1";
    request.place = "PWR-100.1|PWR-100|A|1|PWR-000.1";
    request.entity = "1";
    const std::string answer = wbtest::DetailsOfComputation(served, request);
    EXPECT_THAT(answer, StartsWith("Engine|6|Computed|4|4|4|"));
    EXPECT_EQ(OriginsOf(answer, "Weighed"), (Texts{"1", "1", "3", kNull, "Computed", "1"}));

    AnswerFields fields = BehindSets(answer);
    fields.ExpectNumbers({216.0, 0.0, 0.35, 17.3326});
    for (const char* kind : {"code", "mass_type"}) {
        const auto rows = wbtest::ExpectedRows("LA1", "LA1", "Active", kind);
        EXPECT_EQ(fields.NextNumber(), static_cast<double>(rows.size())) << kind;
        for (const auto& row : rows) {
            EXPECT_EQ(fields.Next(), row[4]);
            EXPECT_NEAR(fields.NextNumber(), wbtest::Cell(row, 5), 1e-9 * 381.0) << row[4];
        }
    }
    fields.Expect({"0", "0", "1"}); // no growth stated, nothing imposed, an uncertainty
    const auto sigma = wbtest::ExpectedRows("LA1", "LA1", "Active", "sigma").at(0);
    ASSERT_EQ(sigma[4], "together");
    fields.ExpectNumbers({wbtest::Cell(sigma, 5)});
    fields.ExpectNumbers({wbtest::Cell(sigma, 8), wbtest::Cell(sigma, 9), wbtest::Cell(sigma, 10)});
    std::vector<double> inertia;
    for (std::size_t column = 11; column < 17; ++column) {
        inertia.push_back(wbtest::Cell(sigma, column));
    }
    fields.ExpectNumbers(inertia);
}

TEST(ValueDetails, RootsAreToldAsParts)
{
    ServedProduct served;
    served.ImportTable("parent,instance,part,name,mass_type,mass [kg],volume [m3],material,"
                       "material_density [kg/m3]\n,,A,Top,Target,5,,,\nA,P.1,P,,Weighed,2,,,\n"
                       ",,B,Block,Calculated,,0.5,Al,4\n");
    PartRequest request{.place = "|A|A|0"};
    const std::string top = wbtest::DetailsOfRecord(served, request);
    EXPECT_THAT(top, StartsWith("Top|6|"));
    EXPECT_EQ(SetOf(top, "Target").at(1), "1");
    EXPECT_EQ(SetOf(top, "Computed").at(1), "4");
    request.place = "|B|A|0";
    request.root = "B";
    const std::string block = wbtest::DetailsOfComputation(served, request);
    EXPECT_THAT(block, StartsWith("Block|6|"));
    EXPECT_EQ(SetOf(block, "Calculated").at(1), "2");
    EXPECT_EQ(SetOf(block, "Computed").at(1), "2");
}

TEST(ValueDetails, AllWarningsAreToldInFull)
{
    ServedProduct served;
    std::string table = "parent,instance,part,mass_type,mass [kg],cgx [mm],cgy [mm],cgz [mm],"
                        "ixx [kg.m2],iyy [kg.m2],izz [kg.m2]\n,,A,,,,,,,,\nA,S.1,S,,,,,,,,\n"
                        "S,0,Z,Weighed,1,0,0,0,1,1,1\n";
    for (int number = 1; number <= 12; ++number) {
        const std::string text = std::to_string(number);
        table += "S," + text + ",N" + text + ",,,,,,,,\n";
    }
    served.ImportTable(table);
    AnswerFields fields = BehindShares(wbtest::DetailsOfComputation(served, kAssembly));
    fields.Next();   // nothing imposed
    fields.Skip(12); // uncertainty
    fields.Expect({"13", "12 of 13 items have no mass; the total leaves them out",
                   "N1 A has no mass", "N10 A has no mass", "N11 A has no mass",
                   "N12 A has no mass", "N2 A has no mass", "N3 A has no mass", "N4 A has no mass",
                   "N5 A has no mass", "N6 A has no mass", "N7 A has no mass", "N8 A has no mass",
                   "N9 A has no mass"});
    EXPECT_TRUE(fields.IsAtEnd());
}

TEST(ValueDetails, WarningsOfAComputationStayForWhoeverAskedForIt)
{
    ServedProduct served;
    served.ImportTable("parent,instance,part\n,,A\nA,P.1,P\n");
    wbtest::ComputePart(served, kLeaf);
    wbtest::DetailsOfComputation(served, kLeaf);
    EXPECT_THAT(wbtest::Warnings(served), HasSubstr("has no mass"));
}

TEST(ValueDetails, GoalsAreToldLikeClaims)
{
    ServedProduct served;
    served.ImportTable("parent,instance,part,mass_type,mass [kg]\n,,A,,\nA,P.1,P,Target,2\n");
    EXPECT_EQ(OriginsOf(wbtest::DetailsOfRecord(served, kLeaf), "Target"),
              (Texts{"1", "0", "0", kNull, kNull, "2"}));
}

TEST(ValueDetails, ForcedComputationIsToldFromWhatItRead)
{
    ServedProduct served;
    served.ImportTable(kTwoPoints);
    PartRequest request = kAssembly;
    request.policy = "1";
    EXPECT_THAT(wbtest::ComputePart(served, request), StartsWith("8|"));
    wbtest::RunSql(served.Store().Path(), "UPDATE part_value SET mass = 7 WHERE mass = 6");
    BehindSets(wbtest::DetailsOfComputation(served, request)).Expect({"2", "0", "0", "8"});
    EXPECT_THAT(wbtest::ComputePart(served, request), StartsWith("9|"));
    BehindSets(wbtest::DetailsOfComputation(served, request)).Expect({"2", "0", "0", "9"});
}

TEST(ValueDetails, LeafIsToldWithoutItsProductBeingRead)
{
    ServedProduct served;
    served.ImportTable("parent,instance,part,mass_type,mass [kg]\n,,A,,\nA,P.1,P,Weighed,2\n"
                       "A,S.1,S,,\nS,t,T,,\nT,u,U,,\n");
    // A product that holds itself cannot be summed up.
    wbtest::RunSql(served.Store().Path(),
                   "UPDATE use SET part = (SELECT id FROM part WHERE identifier = 'S') "
                   "WHERE instance = 'u'");
    EXPECT_EQ(SetOf(wbtest::DetailsOfRecord(served, kLeaf), "Weighed").at(1), "1");
    EXPECT_THAT(wbtest::DetailsOfRecord(served, kAssembly),
                HasSubstr("#WB_ERROR#The product holds itself: S > T > S."));
}

TEST(ValueDetails, WrongFieldsAreNamedAndTheNextRequestIsAnswered)
{
    ServedProduct served;
    served.ImportTable(wbtest::kImposed);
    const std::string good = wbtest::DetailsOfRecord(served, kAssembly);
    EXPECT_THAT(good, StartsWith("S|6|"));
    const auto details = [&](const std::string& text) {
        return served.Call("WBGetValueDetails", text);
    };
    EXPECT_EQ(details(""), "#WB_ERROR#The field shown of the request is missing.");
    EXPECT_EQ(details("2|" + kAssembly.Text()),
              "#WB_ERROR#The field shown of the request holds \"2\", expected 0 or 1.");
    EXPECT_EQ(details("00" + kAssembly.Text()),
              "#WB_ERROR#The field shown of the request holds \"001\", expected 0 or 1.");
    std::string text = "1|" + kAssembly.Text();
    text.pop_back();
    for (std::size_t length = 0; length < text.size(); ++length) {
        EXPECT_THAT(details(text.substr(0, length)), StartsWith("#WB_ERROR#The field ")) << length;
    }
    PartRequest request = kAssembly;
    request.place = "S.1|S|B|0";
    EXPECT_EQ(wbtest::DetailsOfComputation(served, request),
              "#WB_ERROR#The field version of the request names \"B\", but the instance is one of "
              "\"A\".");
    // The place matters here, whatever is computed.
    request.entity = "1";
    EXPECT_THAT(wbtest::DetailsOfComputation(served, request), HasSubstr("The field version"));
    request = kAssembly;
    request.precision = "Guessed";
    EXPECT_THAT(wbtest::DetailsOfComputation(served, request),
                HasSubstr("The field precision of the request names \"Guessed\""));
    EXPECT_EQ(wbtest::DetailsOfRecord(served, kAssembly), good);
}
