#include "EditTesting.h"

#include "WBNumbers.h"
#include "WBProductExport.h"
#include "WBTexts.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <random>
#include <string>
#include <vector>

using testing::AnyOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;
using wbtest::EditedProduct;
using wbtest::RecordFields;
using wbtest::Split;

namespace
{
const std::string kNul("a\0b", 3);

/// What somebody or something may put where a field was.
std::vector<std::string> HostileFields()
{
    return {"",
            "inf",
            "-inf",
            "nan",
            "1e400",
            "-1e400",
            "1e308",
            "1e-400",
            "0x10",
            "-0",
            "1,5",
            "1.5.5",
            "99999999999999999999",
            "-1",
            "2",
            "3",
            "1e3",
            "__null__",
            "~",
            "#WB_ERROR#",
            "Computed",
            "Target",
            "Weighed",
            "PartInst",
            "density order",
            "property ",
            "property Vendor",
            "percent;1",
            "1;2;3;4;5;6",
            ";;",
            "a\nb",
            "\xFF\xFE",
            kNul,
            "' OR 1=1 --",
            "%s%n",
            "2026-02-30",
            std::string(100'000, 'x'),
            std::string(5'000, '9')};
}

/// Requests that are good, by method.
std::vector<std::pair<std::string, std::string>> GoodRequests()
{
    RecordFields spar = wbtest::SparOf("12", "1|1|0.5|0.25");
    spar.density = "1|7800|Steel|";
    spar.properties = {"Vendor|1|0|Part|Miller", "Built|1|1|Part|2026/02/01", "Holes|2|0|Part|5",
                       "Length|100|0|Part|13,5"};
    RecordFields hook;
    hook.head = "0|HOOK|A|0||";
    hook.massTypes = {"Estimated|1|0|0|3|0|0|0|0|0|0|0|0|0|0|0"};
    hook.active = "Estimated|__null__|";
    hook.density = "1|8600|Steel|PartInst|2|hook||PLANE|";
    hook.priority = "1|";
    return {{"WBApplyValues", std::string(wbtest::kSpar) +
                                  "9|PartRef|Weighed|mass|1|10|PartRef|Weighed|centre|1|1;2;3|"
                                  "PartRef|Weighed|inertia|0|4;5;6;0.1;0.2;0.3|"
                                  "PartRef|Weighed|precision|1|percent;1;2|"
                                  "PartRef|__null__|density|1|__null__|"
                                  "PartRef|__null__|material|1|__null__|"
                                  "PartRef|__null__|property Vendor|1|Smith|"
                                  "PartRef|__null__|property Built|1|2026/01/31|"
                                  "PartRef|__null__|property Length|1|12.5|" +
                                  spar.Text()},
            {"WBApplyValues", std::string(wbtest::kHook) +
                                  "5|PartInst|Estimated|mass|1|__null__|"
                                  "PartInst|__null__|active|1|__null__|"
                                  "PartInst|__null__|density|1|2000|"
                                  "PartInst|__null__|material|1|Brass|"
                                  "PartRef|__null__|density order|1|__null__|" +
                                  hook.Text()},
            {"WBGetStatedValues", wbtest::kSpar},
            {"WBGetStatedValues", wbtest::kRoot},
            {"WBHistory", wbtest::kHook},
            {"WBSaveManagement", "Abort"}};
}

/// Damages requests, the same way in every run.
class Damage
{
public:
    explicit Damage(unsigned seed) : m_random(seed) {}

    std::size_t Below(std::size_t count) { return m_random() % count; }

    std::string Of(const std::string& request)
    {
        std::string damaged = request;
        for (std::size_t i = 1 + Below(4) / 3; i > 0; --i) {
            damaged = Below(6) == 0 ? OfBytes(damaged) : OfFields(damaged);
        }
        return damaged;
    }

private:
    std::string OfFields(const std::string& request)
    {
        static const std::vector<std::string> kHostile = HostileFields();
        std::vector<std::string> fields = Split(request, '|');
        if (fields.empty()) {
            return kHostile[Below(kHostile.size())];
        }
        const auto at = static_cast<std::ptrdiff_t>(Below(fields.size()));
        const auto place = fields.begin() + at;
        switch (Below(10)) {
        case 0:
            fields.erase(place);
            break;
        case 1:
            fields.insert(place, std::string(*place));
            break;
        case 2:
            std::swap(*place, fields[Below(fields.size())]);
            break;
        case 3:
        case 4:
        case 5:
            // What is no number is another value, as of somebody who types in the wrong place.
            *place = wb::WriteNumber(static_cast<double>(Below(100)) / 8);
            break;
        default:
            *place = kHostile[Below(kHostile.size())];
        }
        std::string damaged;
        for (const std::string& field : fields) {
            damaged += field + "|";
        }
        return damaged;
    }
    std::string OfBytes(std::string request)
    {
        const std::size_t at = Below(request.size() + 1);
        switch (Below(3)) {
        case 0:
            return request.substr(0, at);
        case 1:
            return request.insert(at, 1, static_cast<char>(Below(256)));
        default:
            return at < request.size() ? request.replace(at, 1, 1, static_cast<char>(Below(256)))
                                       : request;
        }
    }

    std::mt19937 m_random;
};

/// Everything that is committed, as an export writes it, and how often somebody wrote.
std::string CommittedOf(EditedProduct& product)
{
    const wb::Store& store = product.Store();
    return wb::ExportProduct(store, "PLANE").table + wb::ExportProduct(store, "GLIDER").table +
           std::to_string(store.History().size()) + " " +
           std::to_string(store.ChangeNumber(store.FindRoot("PLANE")->id));
}

bool IsError(const std::string& answer)
{
    return answer.starts_with("#WB_ERROR#");
}

/// How many fields an answer has by the counts in it, or 0 where these lie.
std::size_t FieldsOf(const std::string& method, const std::vector<std::string>& fields)
{
    const auto count = [&](std::size_t at) {
        return at < fields.size() ? std::stoul(fields[at]) : 0UL;
    };
    if (method == "WBHistory") {
        return 1 + 8 * count(0);
    }
    const std::size_t materials = count(5);
    return 9 + materials + 9 * count(8 + materials);
}

void ExpectGoodAnswer(const std::string& method, const std::string& answer)
{
    if (method == "WBSaveManagement") {
        EXPECT_THAT(answer, AnyOf("Save|OK", "Save|NA", "Save|FALSE", "Abort|OK"));
        return;
    }
    if (IsError(answer)) {
        EXPECT_GT(answer.size(), 20U) << "a sentence";
        return;
    }
    if (method == "WBApplyValues") {
        EXPECT_THAT(answer, testing::MatchesRegex("Apply\\|OK\\|[0-9]+\\|"));
        return;
    }
    const std::vector<std::string> fields = Split(answer, '|');
    EXPECT_EQ(fields.size(), FieldsOf(method, fields)) << answer;
}
} // namespace

TEST(DamagedRequests, AreAnsweredAndChangeNothingThatIsCommitted)
{
    EditedProduct product;
    const std::string committed = CommittedOf(product);
    const auto requests = GoodRequests();
    for (const auto& [method, request] : requests) {
        EXPECT_FALSE(IsError(product.As("test", method, request)))
            << product.As("test", method, request);
    }
    ASSERT_EQ(product.Abort("test"), "Abort|OK");
    Damage damage(6);
    std::size_t accepted = 0;
    for (int turn = 0; turn < 1500; ++turn) {
        const auto& [method, request] = requests[damage.Below(requests.size())];
        const std::string damaged = damage.Of(request);
        SCOPED_TRACE(method + " " + damaged.substr(0, 2000));
        const std::string pending = product.Pending("kim");
        const std::string answer = product.As("kim", method, damaged);
        ExpectGoodAnswer(method, answer);
        if (IsError(answer) || answer == "Apply|OK|0|") {
            ASSERT_EQ(product.Pending("kim"), pending);
        }
        accepted += answer.starts_with("Apply|OK|") ? 1 : 0;
        ASSERT_EQ(CommittedOf(product), committed);
        ASSERT_EQ(product.Pending("anna"), "0|");
        // What was taken is seen and can be summed up.
        ASSERT_FALSE(IsError(product.As("kim", "WBGetStatedValues", wbtest::kSpar)));
        ASSERT_FALSE(IsError(product.Mass("kim"))) << product.Pending("kim");
    }
    EXPECT_GT(accepted, 30U) << "some damage does not matter, and is taken for what it says";
    ASSERT_EQ(product.Abort("kim"), "Abort|OK");
    EXPECT_EQ(product.Pending("kim"), "0|");
    EXPECT_EQ(CommittedOf(product), committed);
}

TEST(DamagedRequests, WhateverIsTakenCanBeSavedAndReadAgain)
{
    const auto requests = GoodRequests();
    Damage damage(7);
    auto product = std::make_unique<EditedProduct>();
    std::size_t saved = 0;
    for (int turn = 0; turn < 400; ++turn) {
        const std::string damaged = damage.Of(requests[damage.Below(2)].second);
        SCOPED_TRACE(damaged.substr(0, 2000));
        if (!product->As("kim", "WBApplyValues", damaged).starts_with("Apply|OK|") ||
            product->Pending("kim") == "0|") {
            ASSERT_EQ(product->Save("kim"), "Save|NA");
            continue;
        }
        const bool conflicts = std::ranges::any_of(product->Store().PendingChanges("kim"),
                                                   &wb::PendingState::conflicts);
        ASSERT_EQ(product->Save("kim"), conflicts ? "Save|FALSE" : "Save|OK")
            << product->Warnings("kim");
        if (conflicts) {
            ASSERT_NE(product->Warnings("kim"), "");
            ASSERT_EQ(product->Abort("kim"), "Abort|OK");
            continue;
        }
        ++saved;
        for (const char* root : {"PLANE", "GLIDER"}) {
            const auto exported = wb::ExportProduct(product->Store(), root);
            ASSERT_EQ(exported.error, "");
            const auto read = wb::ReadProductTable(exported.table, "t.csv", {}, product->Store());
            ASSERT_THAT(read.errors, testing::IsEmpty()) << exported.table;
        }
        product = std::make_unique<EditedProduct>();
    }
    EXPECT_GT(saved, 20U);
}

TEST(DamagedRequests, FiguresThatNoSumCanHoldAreRefused)
{
    EditedProduct product;
    for (const char* mass : {"1e308", "1.1e90", "1e91"}) {
        EXPECT_THAT(product.WeighSpar("kim", mass), HasSubstr("expected a number in kg")) << mass;
    }
    EXPECT_EQ(product.WeighSpar("kim", "1e90"), "Apply|OK|1|");
    for (const std::string& field :
         Split(product.As("kim", "WBCompPartCompute",
                          "1|left|WING|A|0|0|__null__|Active|0|0|PLANE|0|No Filter|0|"),
               '|')) {
        EXPECT_THAT(field, Not(AnyOf(HasSubstr("inf"), HasSubstr("nan"))));
    }
}

TEST(DamagedRequests, FiguresOfAFileThatNoSumCanHoldTravelAsUnknown)
{
    EditedProduct product;
    product.ImportTable("part,mass_type,mass [kg]\nSPAR,Weighed,1.7e308\n");
    EXPECT_EQ(product.Mass("kim"), "0");
    // Whoever sees such a figure can put it right.
    EXPECT_EQ(product.WeighSpar("kim", "12", "1.7e+308"), "Apply|OK|1|");
    EXPECT_EQ(product.Mass("kim"), "112.5");
}

TEST(DamagedRequests, NamesOfUsersMayHoldAnything)
{
    EditedProduct product;
    const std::vector<std::string> names{
        "o'Brien",    "\"",         "'); DELETE FROM part; SELECT ('",
        "a|b|c",      "two\nlines", "__null__",
        "#WB_ERROR#", kNul,         "\xFF",
        "\xC3\xBC",   "%",          std::string(10'000, 'n')};
    std::string seen = "10";
    int mass = 20;
    for (const std::string& name : names) {
        SCOPED_TRACE(name.substr(0, 40));
        ASSERT_EQ(product.WeighSpar("anna", "1", seen), "Apply|OK|1|");
        ASSERT_EQ(product.WeighSpar(name, std::to_string(++mass), seen), "Apply|OK|1|");
        ASSERT_THAT(product.Pending(name), StartsWith("1|part SPAR A|"));
        ASSERT_EQ(product.Save(name), "Save|OK");
        ASSERT_EQ(product.Pending(name), "0|");
        seen = std::to_string(mass);
        // Whom others are told of moves no field.
        const std::string history = product.As("kim", "WBHistory", wbtest::kSpar);
        const auto fields = Split(history, '|');
        ASSERT_EQ(fields.size(), FieldsOf("WBHistory", fields));
        ASSERT_EQ(fields[6], "mass type Weighed, mass");
        ASSERT_EQ(fields[8], seen);
        EXPECT_EQ(history.find("#WB_ERROR#"), std::string::npos);
        EXPECT_FALSE(wb::FirstNonUtf8(history));
        const auto stated = Split(product.As("anna", "WBGetStatedValues", wbtest::kSpar), '|');
        ASSERT_EQ(stated.size(), FieldsOf("WBGetStatedValues", stated));
        const auto pending = Split(product.Pending("anna"), '|');
        ASSERT_EQ(pending.size(), 10U);
        ASSERT_EQ(product.Save("anna"), "Save|FALSE");
        const std::string warnings = product.Warnings("anna");
        EXPECT_THAT(warnings, HasSubstr(" saved " + seen + " kg on "));
        EXPECT_EQ(warnings.find('\n'), std::string::npos) << "a line a conflict";
        ASSERT_EQ(product.Abort("anna"), "Abort|OK");
    }
    EXPECT_THAT(product.As("kim", "WBHistory", wbtest::kSpar), HasSubstr("|a?b?c|save|"));
}

TEST(DamagedRequests, NamesOfFilesMayHoldAnything)
{
    EditedProduct product;
    product.Import(
        product.Folder().Write("a|b ~1.csv", "part,mass_type,mass [kg]\nSPAR,Weighed,11\n"));
    const std::string history = product.As("kim", "WBHistory", wbtest::kSpar);
    const auto fields = Split(history, '|');
    ASSERT_EQ(fields.size(), 9U);
    EXPECT_THAT(fields[4], testing::EndsWith("a?b ~1.csv"));
    EXPECT_THAT(fields[8], StartsWith("11"));
}
