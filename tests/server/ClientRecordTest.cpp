#include "CATWBAllDataBuffer.h"

#include "../CATTEQWBCmdsAndTools/ModuleSession.h"
#include "EditTesting.h"

using testing::HasSubstr;
using wbtest::kSpar;
using wbtest::ServedProduct;
using wbtest::Split;

// What the server sends becomes a client's record, and what the client's codec makes of that is
// what the server reads: both ends of the stream are the real ones.

namespace
{
/// One place of a product.
struct Place
{
    std::string root;
    std::vector<std::string> instances; // root side first
    wb::PartLine part;
    wb::RowId use = 0;

    std::string Path() const
    {
        std::string path;
        for (std::size_t i = instances.size() - 1; i-- > 0;) {
            path += instances[i] + "|";
        }
        return std::to_string(instances.size() - 1) + "|" + path;
    }
    std::string Named(bool hasInstance) const
    {
        return std::string(hasInstance ? "1|" : "0|") + instances.back() + "|" + part.identifier +
               "|" + part.version + "|" + Path() + root + "|";
    }
};

/// A record as the main panel has it.
CATWBAllDataBuffer RecordOf(ServedProduct& served, const Place& place, bool hasInstance,
                            const std::string& user)
{
    const std::string flag = hasInstance ? "1" : "0";
    const std::string node =
        place.instances.back() + "|" + place.part.identifier + "|" + place.part.version + "|";
    wb::CallContext context;
    context.user = user;
    const std::string answer =
        served.Server().Call("WBCompPartGetInitialValues",
                             flag + "||" + place.root + "|" + node + place.Path(), context);
    CATWBAllDataBuffer record;
    EXPECT_EQ(record.SetAllData(
                  (flag + "|" + node + place.root + "|" + place.Path() + answer).c_str(), true),
              S_OK);
    return record;
}

std::string Encoded(CATWBAllDataBuffer& record)
{
    CATUnicodeString text;
    EXPECT_EQ(record.GetAllData(text), S_OK);
    return text.ToStdString();
}

void AddPlaces(const wb::Store& store, const Place& above, std::vector<Place>& places)
{
    for (const wb::UseLine& use : store.UsesOf(above.part.id)) {
        Place place = above;
        place.instances.push_back(use.instance);
        place.part = use.part;
        place.use = use.id;
        places.push_back(place);
        AddPlaces(store, place, places);
    }
}

std::vector<Place> PlacesIn(const wb::Store& store, const std::string& root)
{
    std::vector<Place> places;
    AddPlaces(store, {root, {}, store.FindRoot(root).value(), 0}, places);
    return places;
}

/// The quantities of value sets, the active type and the properties that are stated in a place, as
/// changes that state them again. A set without a mass does not travel with a record; and where a
/// use is made of another material, the record shows the inertia as it is there, not as stated.
std::vector<std::string> StatedAgain(ServedProduct& served, const Place& place,
                                     const CATWBAllDataBuffer& record)
{
    const auto fields =
        Split(served.Server().Call("WBGetStatedValues", place.Named(false), {}), '|');
    const bool isScaled = !served.Store().ReadUse(place.use).use.material.empty();
    std::vector<std::string> changes;
    for (std::size_t at = 9 + std::stoul(fields[5]); at + 9 <= fields.size(); at += 9) {
        const std::string& massType = fields[at + 1];
        const std::string& quantity = fields[at + 2];
        auto status = CATENOWBCSCommonDefinitions::Empty;
        record.GetMassTypeStatus(massType.c_str(), status);
        const bool travels = status == CATENOWBCSCommonDefinitions::Assigned ||
                             quantity == "active" || quantity.starts_with("property ");
        if (travels && !(isScaled && quantity == "inertia") && fields[at + 3] != "__null__") {
            changes.push_back(fields[at] + "|" + massType + "|" + quantity + "|1|" +
                              fields[at + 3] + "|");
        }
    }
    return changes;
}

class ClientRecord : public testing::TestWithParam<const char*>
{
protected:
    static std::string Apply(ServedProduct& served, const Place& place, bool hasInstance,
                             const std::vector<std::string>& changes, const std::string& record)
    {
        std::string request = place.Named(hasInstance) + std::to_string(changes.size()) + "|";
        for (const std::string& change : changes) {
            request += change;
        }
        wb::CallContext context;
        context.user = "kim";
        return served.Server().Call("WBApplyValues", request + record, context);
    }

    const SilentStreams m_silent;
    const NumberLocale m_numbers{GetParam()};
};

TEST_P(ClientRecord, RecordsOfAllPlacesAreReadAndChangeNothing)
{
    std::size_t restated = 0;
    for (const auto& [file, root] :
         {std::pair{"light_aeroplane.csv", "LA1"}, std::pair{"small_satellite.csv", "SC1"}}) {
        ServedProduct served;
        served.ImportSample(file);
        for (const Place& place : PlacesIn(served.Store(), root)) {
            for (const bool hasInstance : {false, true}) {
                CATWBAllDataBuffer record = RecordOf(served, place, hasInstance, "kim");
                EXPECT_EQ(Apply(served, place, hasInstance, {}, Encoded(record)), "Apply|OK|0|")
                    << place.Named(hasInstance);
                const auto changes = StatedAgain(served, place, record);
                EXPECT_EQ(Apply(served, place, hasInstance, changes, Encoded(record)),
                          "Apply|OK|0|")
                    << place.Named(hasInstance);
                restated += changes.size();
            }
        }
    }
    EXPECT_GT(restated, 500U) << "the samples state more than that";
}

TEST_P(ClientRecord, EditedRecordBecomesPending)
{
    ServedProduct served;
    served.ImportTable(wbtest::kPlane);
    const wb::PartLine spar = served.Store().FindPart("SPAR", "A").value();
    const Place place{"PLANE", {"left", "spar"}, spar, 0};
    CATWBAllDataBuffer record = RecordOf(served, place, true, "kim");
    record.SetMass("Weighed", 12.625);
    record.SetCenterOfGravity("Weighed", CATMathPoint(-1.5, 2.25, 1e-5));
    // The matrix holds the products negated.
    record.SetInertia("Weighed", CATMath3x3Matrix(7, -0.5, -0.25, -0.5, 8, 0.125, -0.25, 0.125, 9));
    record.SetPrecisionType("Weighed", CATENOWBCSCommonDefinitions::PrecisionDefined);
    record.SetPrecisionValueType("Weighed", CATENOWBCSCommonDefinitions::Absolute);
    record.SetLowerPrecision("Weighed", 0.375);
    record.SetUpperPrecision("Weighed", 0.75);
    EXPECT_EQ(Apply(served, place, true,
                    {"PartRef|Weighed|mass|1|10|", "PartRef|Weighed|centre|1|1;2;3|",
                     "PartRef|Weighed|inertia|1|4;5;6;0.1;0.2;0.3|",
                     "PartRef|Weighed|precision|1|percent;1;2|"},
                    Encoded(record)),
              "Apply|OK|4|");
    wb::CallContext context;
    context.user = "kim";
    const std::string stated = served.Server().Call("WBGetStatedValues", kSpar, context);
    EXPECT_THAT(stated, HasSubstr("|PartRef|Weighed|mass|12.625|10|1|"));
    EXPECT_THAT(stated, HasSubstr("|PartRef|Weighed|centre|-1.5;2.25;1e-05|1;2;3|1|"));
    EXPECT_THAT(stated, HasSubstr("|PartRef|Weighed|inertia|7;8;9;0.5;0.25;-0.125|"));
    EXPECT_THAT(stated, HasSubstr("|PartRef|Weighed|precision|absolute;0.375;0.75|"));
    // The record that is read again shows what was sent.
    CATWBAllDataBuffer again = RecordOf(served, place, true, "kim");
    double mass = 0.0;
    again.GetMass("Weighed", mass);
    EXPECT_EQ(mass, 12.625);
    EXPECT_EQ(Apply(served, place, true, {"PartRef|Weighed|mass|1|10|"}, Encoded(again)),
              "Apply|OK|0|");
}

INSTANTIATE_TEST_SUITE_P(BothSeparators, ClientRecord, testing::Values(kPointLocale, kCommaLocale),
                         [](const testing::TestParamInfo<const char*>& locale) {
                             return std::string(locale.index == 0 ? "Point" : "Comma");
                         });
} // namespace
