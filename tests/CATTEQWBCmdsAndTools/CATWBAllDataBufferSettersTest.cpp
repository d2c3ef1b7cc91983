#include "CATWBAllDataBuffer.h"

#include "CodecStreams.h"
#include "ModuleSession.h"

#include <string>
#include <vector>

// A panel that derives from the record hears of every value by overriding its setter, so the codec
// must not write past them.

namespace
{

using Codec = CATWBAllDataBuffer;

std::string Shown(const CATUnicodeString& text)
{
    return text.ToStdString();
}
std::string Shown(int number)
{
    return std::to_string(number);
}
std::string Shown(double number)
{
    return CATUnicodeString::FromReal(number).ToStdString();
}
std::string Shown(const CATMathPoint& point)
{
    return Shown(point.GetX()) + " " + Shown(point.GetY()) + " " + Shown(point.GetZ());
}
std::string Shown(const CATMath3x3Matrix& matrix)
{
    std::string rows;
    for (int row = 1; row <= 3; ++row) {
        for (int column = 1; column <= 3; ++column) {
            rows += (rows.empty() ? "" : " ") + Shown(matrix.GetCoef(row, column));
        }
    }
    return rows;
}

/// Writes down every setter's call, with its values, and then does what the record does.
class Listening : public Codec
{
public:
    // clang-format off
    long SetCurrentInstanceID(const CATUnicodeString& v) override { Hear("instance", v); return Codec::SetCurrentInstanceID(v); }
    long SetCurrentPartID(const CATUnicodeString& v) override { Hear("part", v); return Codec::SetCurrentPartID(v); }
    long SetCurrentPartVersion(const CATUnicodeString& v) override { Hear("version", v); return Codec::SetCurrentPartVersion(v); }
    long SetCurrentPRCID(const CATUnicodeString& v) override { Hear("root", v); return Codec::SetCurrentPRCID(v); }
    long SetPersistencyFlag(int v) override { Hear("persistency", v); return Codec::SetPersistencyFlag(v); }
    long SetActiveMassType(const CATUnicodeString& v) override { Hear("active", v); return Codec::SetActiveMassType(v); }
    long SetLastImposedMassType(const CATUnicodeString& v) override { Hear("last imposed", v); return Codec::SetLastImposedMassType(v); }
    long SetWBDensityStatus(ValueStatus v) override { Hear("density status", static_cast<int>(v)); return Codec::SetWBDensityStatus(v); }
    long SetWBDensity(double v) override { Hear("density", v); return Codec::SetWBDensity(v); }
    long SetWBMaterialName(CATUnicodeString v) override { Hear("material", v); return Codec::SetWBMaterialName(v); }
    long SetUpToDateFlag(bool v) override { Hear("up to date", static_cast<int>(v)); return Codec::SetUpToDateFlag(v); }
    long SetDensityPriority(DensityPriority v) override { Hear("priority", static_cast<int>(v)); return Codec::SetDensityPriority(v); }
    long SetMassTypeStatus(const CATUnicodeString& t, ValueStatus v) override { Hear("status of", t, static_cast<int>(v)); return Codec::SetMassTypeStatus(t, v); }
    long SetMass(const CATUnicodeString& t, double v) override { Hear("mass of", t, v); return Codec::SetMass(t, v); }
    long SetLowerDeviation(const CATUnicodeString& t, double v) override { Hear("lower deviation of", t, v); return Codec::SetLowerDeviation(t, v); }
    long SetUpperDeviation(const CATUnicodeString& t, double v) override { Hear("upper deviation of", t, v); return Codec::SetUpperDeviation(t, v); }
    long SetCenterOfGravity(const CATUnicodeString& t, const CATMathPoint& v) override { Hear("centre of", t, v); return Codec::SetCenterOfGravity(t, v); }
    long SetInertia(const CATUnicodeString& t, const CATMath3x3Matrix& v) override { Hear("inertia of", t, v); return Codec::SetInertia(t, v); }
    long SetPrecisionType(const CATUnicodeString& t, PrecisionType v) override { Hear("precision type of", t, static_cast<int>(v)); return Codec::SetPrecisionType(t, v); }
    long SetPrecisionValueType(const CATUnicodeString& t, PrecisionValueType v) override { Hear("value type of", t, static_cast<int>(v)); return Codec::SetPrecisionValueType(t, v); }
    long SetLowerPrecision(const CATUnicodeString& t, double v) override { Hear("lower precision of", t, v); return Codec::SetLowerPrecision(t, v); }
    long SetUpperPrecision(const CATUnicodeString& t, double v) override { Hear("upper precision of", t, v); return Codec::SetUpperPrecision(t, v); }
    long SetDefaultLowerPrecision(const CATUnicodeString& t, double v) override { Hear("default lower of", t, v); return Codec::SetDefaultLowerPrecision(t, v); }
    long SetDefaultUpperPrecision(const CATUnicodeString& t, double v) override { Hear("default upper of", t, v); return Codec::SetDefaultUpperPrecision(t, v); }
    // clang-format on
    long SetWBMatStatInfo(const CATListValCATUnicodeString& names, const CATRawColldouble& reals,
                          const CATRawCollint& integers) override
    {
        Hear("statistics", names.Size());
        return Codec::SetWBMatStatInfo(names, reals, integers);
    }
    long SetListOfTransMatrix(const CATRawColldouble& values) override
    {
        Hear("transformation", values.Size());
        return Codec::SetListOfTransMatrix(values);
    }

    std::vector<std::string> m_heard;

private:
    template <class Value>
    void Hear(const std::string& what, const Value& value)
    {
        m_heard.push_back(what + " " + Shown(value));
    }
    template <class Value>
    void Hear(const std::string& what, const CATUnicodeString& massType, const Value& value)
    {
        m_heard.push_back(what + " " + Shown(massType) + " " + Shown(value));
    }
};

TEST(CATWBAllDataBufferSetters, HearEveryReceivedValueInItsOrder)
{
    const SilentStreams silent;
    const FatalErrors errors(FatalErrors::Then::Throw);
    ServerStream stream;
    stream.massTypes = "2|Weighed|1|1|2|3|4|5|6|7|8|9|10|11|12|1|1|13|14|1|15|16|Target|2|0|17|18|";
    stream.activeTypes = "0|Weighed|Target|";
    stream.priority = "5|1|";
    Listening record;
    EXPECT_EQ(record.SetAllData(stream.Full(), true), S_OK);
    EXPECT_THAT(
        record.m_heard,
        testing::ElementsAre(
            "instance INST-0001", "part PART-0001", "version A", "root PRC-07", "persistency 1",
            "status of Weighed 1", "mass of Weighed 1", "lower deviation of Weighed 2",
            "upper deviation of Weighed 3", "centre of Weighed 4 5 6",
            // The products come as xz 10, xy 11, yz 12 and stand in the matrix negated.
            "inertia of Weighed 7 -11 -10 -11 8 -12 -10 -12 9", "precision type of Weighed 1",
            "value type of Weighed 1", "lower precision of Weighed 13",
            "upper precision of Weighed 14", "lower deviation of Weighed 13",
            "upper deviation of Weighed 14", "default lower of Weighed 15",
            "default upper of Weighed 16", "status of Target 2", "precision type of Target 0",
            "value type of Target 0", "default lower of Target 17", "default upper of Target 18",
            "active Weighed", "last imposed Target", "density status 1", "density 7850",
            "material Steel", "up to date 1", "priority 1", "statistics 1", "transformation 12"));
}

TEST(CATWBAllDataBufferSetters, HearTheComputedValues)
{
    const SilentStreams silent;
    Listening record;
    const std::string stream = "1|2|3|4|5|6|7|8|9|10|11|12|0|0|";
    EXPECT_EQ(record.SetComputedData(stream + kTransformation, false), S_OK);
    EXPECT_THAT(record.m_heard,
                testing::ElementsAre("lower deviation of Computed 2",
                                     "upper deviation of Computed 3", "mass of Computed 1",
                                     "centre of Computed 4 5 6",
                                     "inertia of Computed 7 -11 -10 -11 8 -12 -10 -12 9",
                                     "status of Computed 1", "statistics 0"));
}

TEST(CATWBAllDataBufferSetters, ComputationWithoutAComputedMassTypeChangesNoOther)
{
    const SilentStreams silent;
    ServerStream before;
    before.massTypes = "1|Weighed|1|1|2|3|4|5|6|7|8|9|10|11|12|0|0|15|16|";
    Codec record;
    ASSERT_EQ(record.SetAllData(before.Full(), true), S_OK);
    EXPECT_EQ(record.SetComputedData("91|92|93|94|95|96|97|98|99|0|0|0|0|0|", false), S_OK);
    CATUnicodeString request;
    EXPECT_EQ(record.GetAllData(request), S_OK);
    EXPECT_THAT(request.ToStdString(),
                testing::HasSubstr("|1|Weighed|1|0|0|1|4|5|6|7|8|9|10|11|12|0|0|Estimated|"));
}

} // namespace
