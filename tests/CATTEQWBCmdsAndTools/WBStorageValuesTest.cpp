#include "CATWBServices.h"

#include "CATCkeGlobalFunctions.h"
#include "CATHandle.h"
#include "ModuleSession.h"

#include <map>
#include <string>
#include <utility>

namespace
{

/// A unit whose conversion into storage cannot be mistaken for another's.
class LinearUnit : public CATICkeUnit
{
public:
    LinearUnit(double factor, double offset) : m_factor(factor), m_offset(offset) {}
    CATUnicodeString Symbol() const override { return "u"; }
    double ToStorage(double value) const override { return value * m_factor + m_offset; }
    double FromStorage(double value) const override { return (value - m_offset) / m_factor; }
    CATUnicodeString Show(double value, int) const override
    {
        return CATUnicodeString::FromReal(value);
    }

private:
    double m_factor;
    double m_offset;
};

class TwoUnitMagnitude : public CATICkeMagnitude
{
public:
    TwoUnitMagnitude(CATICkeUnit_var storage, CATICkeUnit_var current)
        : m_storage(std::move(storage)), m_current(std::move(current))
    {}
    CATUnicodeString Name() const override { return "MAGNITUDE"; }
    CATICkeUnit_var StorageUnit() const override { return m_storage; }
    CATICkeUnit_var CurrentUnit() const override { return m_current; }
    long SetCurrentUnit(const CATUnicodeString&) override { return S_FALSE; }
    CATICkeUnit_var FindUnit(const CATUnicodeString&) const override { return {}; }
    CATListValCATUnicodeString UnitSymbols() const override { return {}; }
    long UseUnit(const CATUnicodeString&) override { return S_FALSE; }

private:
    CATICkeUnit_var m_storage;
    CATICkeUnit_var m_current;
};

class Dictionary : public CATICkeParmDictionary
{
public:
    CATICkeMagnitude_var FindMagnitude(const CATUnicodeString& name) const override
    {
        const auto found = magnitudes.find(name.ToStdString());
        return found == magnitudes.end() ? CATICkeMagnitude_var() : found->second;
    }
    CATListValCATUnicodeString MagnitudeNames() const override { return {}; }

    std::map<std::string, CATICkeMagnitude_var> magnitudes;
};

CATICkeUnit_var Unit(double factor, double offset)
{
    return CATICkeUnit_var::Adopt(new LinearUnit(factor, offset));
}

CATICkeMagnitude_var Magnitude(const CATICkeUnit_var& storage, const CATICkeUnit_var& current)
{
    return CATICkeMagnitude_var::Adopt(new TwoUnitMagnitude(storage, current));
}

class RestoreValue : public testing::Test
{
protected:
    RestoreValue()
    {
        auto* dictionary = new Dictionary;
        // By the storage unit first: (2 v + 1) and then (10 v + 3).
        const CATICkeMagnitude_var both = Magnitude(Unit(2, 1), Unit(10, 3));
        dictionary->magnitudes = {{"MASS", both},
                                  {"LENGTH", both},
                                  {"Length", both},
                                  {"LENGTHS", both},
                                  {"NOSTORAGE", Magnitude({}, Unit(10, 3))},
                                  {"NOCURRENT", Magnitude(Unit(2, 1), {})}};
        CATCkeGlobalFunctions::SetParmDictionary(CATICkeParmDictionary_var::Adopt(dictionary));
    }
    ~RestoreValue() override { CATCkeGlobalFunctions::SetParmDictionary({}); }
};

TEST_F(RestoreValue, GoesThroughTheStorageUnitAndThenTheCurrentOne)
{
    double value = 4.0;
    EXPECT_EQ(CATWBServices::RestoreValue("MASS", value), S_OK);
    EXPECT_EQ(value, 93.0); // 2 * 4 + 1 = 9; 10 * 9 + 3 = 93
    EXPECT_EQ(CATWBServices::RestoreValue("LENGTHS", value = 4.0), S_OK);
    EXPECT_EQ(value, 93.0);
}

TEST_F(RestoreValue, LengthsAreMultipliedByAMillionInAnyLetterCase)
{
    for (const char* name : {"LENGTH", "Length"}) {
        double value = 4.0;
        EXPECT_EQ(CATWBServices::RestoreValue(name, value), S_OK) << name;
        EXPECT_EQ(value, 93e6) << name;
    }
}

TEST_F(RestoreValue, FailsWithoutTheMagnitudeOrAUnitAndLeavesTheValue)
{
    for (const char* name : {"UNKNOWN", "NOSTORAGE", "NOCURRENT", ""}) {
        double value = 4.0;
        EXPECT_EQ(CATWBServices::RestoreValue(name, value), E_FAIL) << name;
        EXPECT_EQ(value, 4.0) << name;
    }
}

} // namespace
