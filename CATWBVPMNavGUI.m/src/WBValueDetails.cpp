#include "WBValueDetails.h"

#include "CATDiagnostics.h"
#include "CATWireFields.h"
#include "RunServerCode.h"

#include <utility>

namespace
{

WBSetDetails ReadSet(CATWireFields& fields)
{
    WBSetDetails set;
    set.massType = fields.Text();
    for (WBOrigin* origin : {&set.mass, &set.centre, &set.inertia}) {
        *origin = fields.Word(WBOrigin::SummedUp);
    }
    set.centreLender = fields.Text();
    set.inertiaLender = fields.Text();
    set.precision = fields.Word(WBPrecisionOrigin::Default);
    fields.OptionalReals(set.sigmas);
    for (CATUnicodeString* text : {&set.source, &set.sourceDate, &set.author, &set.note}) {
        *text = fields.Text();
    }
    fields.OptionalReals(set.principalMoments);
    return set;
}

WBCoverage ReadCoverage(CATWireFields& fields)
{
    WBCoverage coverage;
    for (double* value : {&coverage.leaves, &coverage.leavesWithoutMass,
                          &coverage.massWithoutCentre, &coverage.massWithoutInertia}) {
        *value = fields.Real();
    }
    return coverage;
}

std::vector<WBShare> ReadShares(CATWireFields& fields)
{
    return fields.List<WBShare>([&fields] {
        WBShare share;
        share.name = fields.Text();
        share.mass = fields.Real();
        return share;
    });
}

std::optional<WBImposedDetails> ReadImposed(CATWireFields& fields)
{
    if (!fields.Flag()) {
        return std::nullopt;
    }
    WBImposedDetails imposed;
    imposed.massType = fields.Text();
    for (WBTwelveFigures* figures : {&imposed.own, &imposed.below, &imposed.difference}) {
        fields.OptionalReals(*figures);
    }
    return imposed;
}

std::optional<WBUncertaintyDetails> ReadUncertainty(CATWireFields& fields)
{
    if (!fields.Flag()) {
        return std::nullopt;
    }
    WBUncertaintyDetails uncertainty;
    fields.OptionalReals(uncertainty.sigmas);
    uncertainty.shareUnstated = fields.OptionalReal();
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
    CATWireFields fields(answer.View());
    WBValueDetails details;
    details.partName = fields.Text();
    details.sets = fields.List<WBSetDetails>([&fields] { return ReadSet(fields); });
    details.coverage = ReadCoverage(fields);
    details.codes = ReadShares(fields);
    details.massTypes = ReadShares(fields);
    details.growthAllowance = fields.OptionalReal();
    details.imposed = ReadImposed(fields);
    details.uncertainty = ReadUncertainty(fields);
    details.warnings = fields.List<CATUnicodeString>([&fields] { return fields.Text(); });
    fields.End();
    return fields.IsSound() ? std::optional(std::move(details)) : std::nullopt;
}
