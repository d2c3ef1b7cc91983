#include "WBValueDetails.h"

#include "CATDiagnostics.h"
#include "CATWBToken.h"
#include "RunServerCode.h"

#include <charconv>
#include <cmath>
#include <string_view>
#include <utility>

namespace
{

constexpr std::string_view kNothing = "__null__";

/// Reads fields until one is not what it should be: from then on nothing it answers counts.
class Fields
{
public:
    explicit Fields(const CATUnicodeString& answer) : m_fields(answer) {}

    CATUnicodeString Text()
    {
        const std::string_view text = m_fields.NextView();
        return text == kNothing ? CATUnicodeString() : CATUnicodeString(text);
    }
    std::optional<double> Number()
    {
        const std::string_view text = m_fields.NextView();
        if (text == kNothing) {
            return std::nullopt;
        }
        const double value = Read<double>(text);
        m_isGood = m_isGood && std::isfinite(value);
        return value;
    }
    double KnownNumber()
    {
        const std::optional<double> value = Number();
        m_isGood = m_isGood && value.has_value();
        return value.value_or(0.0);
    }
    /// A whole number from 0 to `most`.
    int Digit(int most)
    {
        const int value = Read<int>(m_fields.NextView());
        m_isGood = m_isGood && value >= 0 && value <= most;
        return m_isGood ? value : 0;
    }
    bool Flag() { return Digit(1) == 1; }
    template <class Enumeration>
    Enumeration Word(Enumeration last)
    {
        return static_cast<Enumeration>(Digit(static_cast<int>(last)));
    }
    template <std::size_t count>
    void Numbers(std::array<std::optional<double>, count>& values)
    {
        for (std::optional<double>& value : values) {
            value = Number();
        }
    }
    /// A count and that many entries. An entry takes at least the "|" of a field, so a count beyond
    /// what is left is a wrong one.
    template <class Entry, class ReadEntry>
    std::vector<Entry> List(ReadEntry readEntry)
    {
        std::vector<Entry> entries;
        const int count = Read<int>(m_fields.NextView());
        m_isGood = m_isGood && count >= 0;
        for (int index = 0; m_isGood && index < count; ++index) {
            m_isGood = !m_fields.IsAtEnd();
            entries.push_back(readEntry());
        }
        return entries;
    }
    bool AreReadToTheEnd() const { return m_isGood && m_fields.IsAtEnd(); }

private:
    /// A whole field as the server writes numbers: with a ".", whatever the user's language.
    template <class Value>
    Value Read(std::string_view text)
    {
        Value value{};
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
        m_isGood = m_isGood && error == std::errc() && end == text.data() + text.size();
        return value;
    }

    CATWBToken m_fields;
    bool m_isGood = true;
};

WBSetDetails ReadSet(Fields& fields)
{
    WBSetDetails set;
    set.massType = fields.Text();
    for (WBOrigin* origin : {&set.mass, &set.centre, &set.inertia}) {
        *origin = fields.Word(WBOrigin::SummedUp);
    }
    set.centreLender = fields.Text();
    set.inertiaLender = fields.Text();
    set.precision = fields.Word(WBPrecisionOrigin::Default);
    fields.Numbers(set.sigmas);
    for (CATUnicodeString* text : {&set.source, &set.sourceDate, &set.author, &set.note}) {
        *text = fields.Text();
    }
    fields.Numbers(set.principalMoments);
    return set;
}

WBCoverage ReadCoverage(Fields& fields)
{
    WBCoverage coverage;
    for (double* value : {&coverage.leaves, &coverage.leavesWithoutMass,
                          &coverage.massWithoutCentre, &coverage.massWithoutInertia}) {
        *value = fields.KnownNumber();
    }
    return coverage;
}

std::vector<WBShare> ReadShares(Fields& fields)
{
    return fields.List<WBShare>([&fields] {
        WBShare share;
        share.name = fields.Text();
        share.mass = fields.KnownNumber();
        return share;
    });
}

std::optional<WBImposedDetails> ReadImposed(Fields& fields)
{
    if (!fields.Flag()) {
        return std::nullopt;
    }
    WBImposedDetails imposed;
    imposed.massType = fields.Text();
    for (WBTwelveFigures* figures : {&imposed.own, &imposed.below, &imposed.difference}) {
        fields.Numbers(*figures);
    }
    return imposed;
}

std::optional<WBUncertaintyDetails> ReadUncertainty(Fields& fields)
{
    if (!fields.Flag()) {
        return std::nullopt;
    }
    WBUncertaintyDetails uncertainty;
    fields.Numbers(uncertainty.sigmas);
    uncertainty.shareUnstated = fields.Number();
    return uncertainty;
}

} // namespace

const WBSetDetails* WBValueDetails::Of(const CATUnicodeString& massType) const
{
    for (const WBSetDetails& set : sets) {
        if (set.massType == massType) {
            return &set;
        }
    }
    return nullptr;
}

WBValueDetails WBAskValueDetails(WBDetailsOf what, const CATUnicodeString& computationRequest)
{
    const CATUnicodeString shown = what == WBDetailsOf::Computation ? "1|" : "0|";
    const CATUnicodeString answer = RunServerCode("WBGetValueDetails", shown + computationRequest);
    std::optional<WBValueDetails> details = WBReadValueDetails(answer);
    if (!details) {
        CATDiagnosticErrors().Line("The server does not tell which values are known: ", answer);
        return {};
    }
    return *std::move(details);
}

std::optional<WBValueDetails> WBReadValueDetails(const CATUnicodeString& answer)
{
    Fields fields(answer);
    WBValueDetails details;
    details.partName = fields.Text();
    details.sets = fields.List<WBSetDetails>([&fields] { return ReadSet(fields); });
    details.coverage = ReadCoverage(fields);
    details.codes = ReadShares(fields);
    details.massTypes = ReadShares(fields);
    details.growthAllowance = fields.Number();
    details.imposed = ReadImposed(fields);
    details.uncertainty = ReadUncertainty(fields);
    details.warnings = fields.List<CATUnicodeString>([&fields] { return fields.Text(); });
    return fields.AreReadToTheEnd() ? std::optional(std::move(details)) : std::nullopt;
}
