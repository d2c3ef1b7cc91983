#include "WBComputeAnswer.h"

#include "WBInertia.h"
#include "WBNumbers.h"

#include "CATWBToken.h"

#include "CATDiagnostics.h"
#include "CATNumberLocale.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

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

/// The fields of an answer, front to back. What should be a number and is none reads as 0. The
/// first field that is not what it should be is told to the diagnostic output: what follows it has
/// most often merely lost its place.
class AnswerFields
{
public:
    explicit AnswerFields(const CATUnicodeString& answer) : m_fields(answer) {}

    CATUnicodeString Text() { return Next(); }
    /// A real as it was received.
    CATUnicodeString RealText()
    {
        const std::string_view text = Next();
        NoteReal(text);
        return text;
    }
    double Real() { return NoteReal(Next()); }
    int Integer()
    {
        const std::string_view text = Next();
        int value = 0;
        if (CATReadInt(text, value) != 1) {
            Note(kNoNumber, text);
        }
        return value;
    }
    /// How many of the announced rows there are at most. A field takes at least its "|": an answer
    /// that announces more rows than it has bytes left does not hold them.
    std::size_t BelievedRows(int announced)
    {
        const std::size_t rows = announced > 0 ? static_cast<std::size_t>(announced) : 0;
        const std::size_t believed = std::min(rows, m_fields.UnreadBytes());
        if (announced < 0 || believed < rows) {
            Note(" announces rows that are not there: ", announced);
        }
        return believed;
    }
    void ExpectEnd()
    {
        if (!m_fields.IsAtEnd()) {
            Note(" should be the last; bytes behind it: ", m_fields.UnreadBytes());
        }
    }
    bool IsWhole() const { return m_isWhole; }

private:
    std::string_view Next()
    {
        ++m_number;
        return m_fields.NextView();
    }
    double NoteReal(std::string_view text)
    {
        double value = 0.0;
        if (ReadAnyReal(text, value) != 1 || !std::isfinite(value)) {
            Note(kNoNumber, text);
        }
        return value;
    }
    template <class Detail>
    void Note(const char* problem, const Detail& detail)
    {
        if (m_isWhole) {
            CATDiagnosticOutput().Line("Field ", m_number, " of the answer", problem, detail);
        }
        m_isWhole = false;
    }

    static constexpr const char* kNoNumber = " holds no number: ";

    CATWBToken m_fields;
    int m_number = 0; // of the field that was read last, from 1
    bool m_isWhole = true;
};

WBComputeValues ReadValues(AnswerFields& fields)
{
    WBComputeValues values;
    for (const auto field : kValueFields) {
        values.*field = fields.RealText();
        if (field != &WBComputeValues::lowerDeviation) {
            SynchronizeSeparator(values.*field);
        }
    }
    return values;
}

/// Reads the count of a list and makes room for its rows.
template <class Row>
WBAnsweredList<Row> ReadCount(AnswerFields& fields)
{
    WBAnsweredList<Row> list;
    list.count = fields.Integer();
    list.rows.resize(fields.BelievedRows(list.count));
    return list;
}

/// All names first, then kind and density of each row, then all masses.
WBAnsweredList<WBStatisticsRow> ReadStatistics(AnswerFields& fields)
{
    auto list = ReadCount<WBStatisticsRow>(fields);
    for (WBStatisticsRow& row : list.rows) {
        row.name = fields.Text();
    }
    for (WBStatisticsRow& row : list.rows) {
        row.kind = fields.Integer();
        row.density = fields.Real();
    }
    for (WBStatisticsRow& row : list.rows) {
        row.mass = fields.Real();
    }
    return list;
}

WBAnsweredList<WBMassTypeRow> ReadMassTypes(AnswerFields& fields)
{
    auto list = ReadCount<WBMassTypeRow>(fields);
    for (WBMassTypeRow& row : list.rows) {
        row.name = fields.Text();
        row.mass = fields.Real();
    }
    return list;
}

} // namespace

WBComputeAnswer WBReadComputeAnswer(const CATUnicodeString& answer)
{
    AnswerFields fields(answer);
    WBComputeAnswer read;
    read.values = ReadValues(fields);
    read.statistics = ReadStatistics(fields);
    read.massTypes = ReadMassTypes(fields);
    fields.ExpectEnd();
    read.isWhole = fields.IsWhole();
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
