#include "WBComputeAnswer.h"

#include "WBInertia.h"
#include "WBNumbers.h"

#include "CATWBToken.h"

#include <algorithm>
#include <array>

namespace
{

// In the order of the answer. The products come as yz, xz, xy.
constexpr std::array kValueFields{&WBComputeValues::mass,
                                  &WBComputeValues::lowerDeviation,
                                  &WBComputeValues::upperDeviation,
                                  &WBComputeValues::cgX,
                                  &WBComputeValues::cgY,
                                  &WBComputeValues::cgZ,
                                  &WBComputeValues::ixx,
                                  &WBComputeValues::iyy,
                                  &WBComputeValues::izz,
                                  &WBComputeValues::iyz,
                                  &WBComputeValues::ixz,
                                  &WBComputeValues::ixy};

int NextInteger(CATWBToken& fields)
{
    int value = 0;
    fields.NextString().ReadInt(value);
    return value;
}

double NextReal(CATWBToken& fields)
{
    double value = 0.0;
    ReadAnyReal(fields.NextView(), value);
    return value;
}

WBComputeValues ReadValues(CATWBToken& fields)
{
    WBComputeValues values;
    for (const auto field : kValueFields) {
        values.*field = fields.NextString();
        if (field != &WBComputeValues::lowerDeviation) {
            SynchronizeSeparator(values.*field);
        }
    }
    return values;
}

/// Reads the count of a list and makes room for its rows. A field takes at least its "|": an answer
/// that announces more rows than it has bytes left does not hold them.
template <class Row>
WBAnsweredList<Row> ReadCount(CATWBToken& fields)
{
    WBAnsweredList<Row> list;
    list.count = NextInteger(fields);
    const std::size_t announced = list.count > 0 ? static_cast<std::size_t>(list.count) : 0;
    list.rows.resize(std::min(announced, fields.UnreadBytes()));
    return list;
}

/// All names first, then kind and density of each row, then all masses.
WBAnsweredList<WBStatisticsRow> ReadStatistics(CATWBToken& fields)
{
    auto list = ReadCount<WBStatisticsRow>(fields);
    for (WBStatisticsRow& row : list.rows) {
        row.name = fields.NextString();
    }
    for (WBStatisticsRow& row : list.rows) {
        row.kind = NextInteger(fields);
        row.density = NextReal(fields);
    }
    for (WBStatisticsRow& row : list.rows) {
        row.mass = NextReal(fields);
    }
    return list;
}

WBAnsweredList<WBMassTypeRow> ReadMassTypes(CATWBToken& fields)
{
    auto list = ReadCount<WBMassTypeRow>(fields);
    for (WBMassTypeRow& row : list.rows) {
        row.name = fields.NextString();
        row.mass = NextReal(fields);
    }
    return list;
}

} // namespace

WBComputeAnswer WBReadComputeAnswer(const CATUnicodeString& answer)
{
    CATWBToken fields(answer);
    WBComputeAnswer read;
    read.values = ReadValues(fields);
    read.statistics = ReadStatistics(fields);
    read.massTypes = ReadMassTypes(fields);
    return read;
}

double WBValueOf(const CATUnicodeString& text)
{
    double value = 0.0;
    text.ReadReal(value);
    return value;
}

CATMath3x3Matrix WBCentreInertia(const WBComputeValues& values)
{
    return InertiaMatrix({.xx = WBValueOf(values.ixx),
                          .yy = WBValueOf(values.iyy),
                          .zz = WBValueOf(values.izz),
                          .xy = WBValueOf(values.ixy),
                          .xz = WBValueOf(values.ixz),
                          .yz = WBValueOf(values.iyz)});
}
