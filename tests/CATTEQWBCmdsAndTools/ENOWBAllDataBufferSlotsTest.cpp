#include "CATWBAllDataBuffer.h"

#include "VirtualSlots.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstring>
#include <memory>
#include <set>

// Libraries built against an earlier header call the record's operations by their place in the
// virtual table, so the places are tested one by one.

namespace
{

using Record = ENOWBAllDataBuffer;

struct Row
{
    int place; ///< from 1, behind the operations of the base
    const char* name;
    std::ptrdiff_t slot;
};

#define ROW(place, name)                                                                           \
    Row                                                                                            \
    {                                                                                              \
        place, #name, SlotOf(&Record::name)                                                        \
    }

TEST(ENOWBAllDataBufferSlots, EachOperationStandsInItsPlace)
{
    const std::ptrdiff_t baseSlots = SlotOf(&SlotProbe<CATBaseUnknown>::Added);
    const std::array rows{
        ROW(1, GetMassTypes),
        ROW(2, UnSetMassType),
        ROW(3, SetDocName),
        ROW(4, SetActiveMassType),
        ROW(5, GetActiveMassType),
        ROW(6, SetLastImposedMassType),
        ROW(7, GetLastImposedMassType),
        ROW(8, SetWBDensityStatus),
        ROW(9, GetWBDensityStatus),
        ROW(10, SetWBDensity),
        ROW(11, GetWBDensity),
        ROW(12, SetWBMaterialName),
        ROW(13, GetWBMaterialName),
        ROW(14, SetUpToDateFlag),
        ROW(15, GetUpToDateFlag),
        ROW(16, SetPersistencyFlag),
        ROW(17, GetPersistencyFlag),
        ROW(18, SetDensityPriority),
        ROW(19, GetDensityPriority),
        ROW(20, SetMassTypeStatus),
        ROW(21, GetMassTypeStatus),
        ROW(22, SetMass),
        ROW(23, GetMass),
        ROW(24, UnSetMass),
        ROW(25, SetLowerDeviation),
        ROW(26, GetLowerDeviation),
        ROW(27, SetUpperDeviation),
        ROW(28, GetUpperDeviation),
        ROW(29, SetCenterOfGravity),
        ROW(30, GetCenterOfGravity),
        ROW(31, UnSetCenterOfGravity),
        ROW(32, SetInertia),
        ROW(33, GetInertia),
        ROW(34, UnSetInertia),
        ROW(35, SetPrecisionStatus),
        ROW(36, GetPrecisionStatus),
        ROW(37, SetPrecisionType),
        ROW(38, GetPrecisionType),
        ROW(39, SetPrecisionValueType),
        ROW(40, GetPrecisionValueType),
        ROW(41, SetDefaultLowerPrecision),
        ROW(42, GetDefaultLowerPrecision),
        ROW(43, SetDefaultUpperPrecision),
        ROW(44, GetDefaultUpperPrecision),
        ROW(45, SetLowerPrecision),
        ROW(46, GetLowerPrecision),
        ROW(47, SetUpperPrecision),
        ROW(48, GetUpperPrecision),
        ROW(49, SetCurrentPRCID),
        ROW(50, GetCurrentPRCID),
        ROW(51, SetEntityToCompute),
        ROW(52, GetEntityToCompute),
        ROW(53, SetConfigFiltersPRC),
        ROW(54, GetConfigFiltersPRC),
        ROW(55, SetCurrentPRCFilter),
        ROW(56, GetCurrentPRCFilter),
        ROW(57, SetCurrentPartID),
        ROW(58, GetCurrentPartID),
        ROW(59, SetCurrentInstanceID),
        ROW(60, GetCurrentInstanceID),
        ROW(61, SetCurrentPartVersion),
        ROW(62, GetCurrentPartVersion),
        ROW(63, SetInertiaReferencePoint),
        ROW(64, GetInertiaReferencePoint),
        ROW(65, SetInertiaReferenceAxis),
        ROW(66, GetInertiaReferenceAxis),
        ROW(67, SetWBMatStatInfo),
        ROW(68, GetWBMatStatInfo),
        ROW(69, UnSetWBMatStatInfo),
        ROW(70, GetListOfTransMatrix),
        ROW(71, SetListOfTransMatrix),
    };
    static_assert(rows.size() == 71);
    for (const Row& row : rows) {
        EXPECT_EQ(row.slot, baseSlots + row.place - 1) << row.name;
    }
}

TEST(ENOWBAllDataBufferSlots, ThereAreNoMoreThanThese)
{
    EXPECT_EQ(SlotOf(&SlotProbe<Record>::Added), SlotOf(&SlotProbe<CATBaseUnknown>::Added) + 71);
}

TEST(ENOWBAllDataBufferSlots, OperationsOfTheBaseComeFirst)
{
    EXPECT_EQ(SlotOf(&Record::ClassName), SlotOf(&CATBaseUnknown::ClassName));
    EXPECT_LT(SlotOf(&CATBaseUnknown::ClassName), SlotOf(&Record::GetMassTypes));
}

TEST(CATWBAllDataBufferSlots, TheCodecAddsNoOperation)
{
    EXPECT_EQ(SlotOf(&SlotProbe<CATWBAllDataBuffer>::Added), SlotOf(&SlotProbe<Record>::Added));
}

TEST(CATWBAllDataBufferSlots, TheCodecAddsNoData)
{
    EXPECT_EQ(sizeof(CATWBAllDataBuffer), sizeof(ENOWBAllDataBuffer));
}

/// The functions that an object's table holds, from the first behind the destructor.
std::array<const void*, 72> Table(const CATBaseUnknown& object)
{
    const void* const* table = nullptr;
    std::memcpy(&table, &object, sizeof(table));
    std::array<const void*, 72> functions{};
    std::memcpy(functions.data(), table + SlotOf(&CATBaseUnknown::ClassName), sizeof(functions));
    return functions;
}

TEST(CATWBAllDataBufferSlots, TheCodecsTableIsTheRecords)
{
    const ENOWBAllDataBuffer record;
    const CATWBAllDataBuffer codec;
    EXPECT_EQ(Table(codec), Table(record));
    // No two operations share a function, so that equal tables mean equal order.
    const auto functions = Table(record);
    EXPECT_EQ(std::set<const void*>(functions.begin(), functions.end()).size(), functions.size());
}

/// Counts how often its destructor has run.
class Destroyed : public CATWBAllDataBuffer
{
public:
    explicit Destroyed(int& count) : m_count(count) {}
    ~Destroyed() override { ++m_count; }

private:
    int& m_count;
};

TEST(CATWBAllDataBufferSlots, TheDestructorTakesThePlaceThatTheBaseGivesIt)
{
    int count = 0;
    const CATBaseUnknown* record = new Destroyed(count);
    record->Release();
    EXPECT_EQ(count, 1);
}

#undef ROW

} // namespace
