#include "CATWBServices.h"

#include "CATHandle.h"
#include "ModuleSession.h"
#include "TestMagnitude.h"

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

CATICkeUnit_var Unit(double factor, double offset)
{
    return CATICkeUnit_var::Adopt(new LinearUnit(factor, offset));
}

class RestoreValue : public testing::Test
{
protected:
    RestoreValue()
    {
        auto* dictionary = new TestDictionary;
        // By the storage unit first: (2 v + 1) and then (10 v + 3).
        const CATICkeMagnitude_var both = MagnitudeOf(Unit(2, 1), Unit(10, 3));
        dictionary->magnitudes = {{"MASS", both},
                                  {"LENGTH", both},
                                  {"Length", both},
                                  {"LENGTHS", both},
                                  {"NOSTORAGE", MagnitudeOf({}, Unit(10, 3))},
                                  {"NOCURRENT", MagnitudeOf(Unit(2, 1), {})}};
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
