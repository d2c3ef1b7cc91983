#include "WBSumTexts.h"

#include "WBFigures.h"
#include "WBPanelUnits.h"

#include <utility>

namespace
{

using Definitions = CATENOWBCSCommonDefinitions;

constexpr const char* kMass = "MASS";

CATUnicodeString Count(double count)
{
    return CATUnicodeString::FromReal(count, "%.15g");
}

CATUnicodeString Percent(double share)
{
    return CATUnicodeString::FromReal(100.0 * share, "%.3g");
}

/// Computed of the record; null where it lists none.
const WBPanelMassType* Computed(const WBPanelRecord& record)
{
    for (const WBPanelMassType& massType : record.massTypes) {
        if (massType.name == Definitions::Computed) {
            return &massType;
        }
    }
    return nullptr;
}

std::optional<double> ComputedMass(const WBPanelRecord& record)
{
    const WBPanelMassType* computed = Computed(record);
    return computed == nullptr ? std::nullopt : computed->mass;
}

CATUnicodeString Items(const WBCoverage& coverage)
{
    if (coverage.leavesWithoutMass != 0.0) {
        return WBPanelText(
            "Sum.Items.Some", "@/p1 of /p2 items have a mass",
            {Count(coverage.leaves - coverage.leavesWithoutMass), Count(coverage.leaves)});
    }
    return coverage.leaves == 1.0 ? WBPanelText("Sum.Items.One", "@the only item has a mass")
                                  : WBPanelText("Sum.Items.All", "@all /p1 items have a mass",
                                                {Count(coverage.leaves)});
}

CATUnicodeString WithoutCentre(double mass)
{
    return mass == 0.0 ? WBPanelText("Sum.NoMass", "@none")
                       : WBPanelText("Sum.WithoutCentre.Text", "@/p1, at the centre of the rest",
                                     {WBValueWithUnit(kMass, mass)});
}

CATUnicodeString WithoutInertia(double mass)
{
    return mass == 0.0 ? WBPanelText("Sum.NoMass", "@none")
                       : WBPanelText("Sum.WithoutInertia.Text", "@/p1, as points",
                                     {WBValueWithUnit(kMass, mass)});
}

CATUnicodeString Uncertainty(const WBUncertaintyDetails& uncertainty)
{
    const std::optional<double>& sigma = uncertainty.sigmas.front();
    if (!sigma || !uncertainty.shareUnstated) {
        return WBOrDash({});
    }
    return WBPanelText("Sum.Uncertainty.Text", "@/p1, stated for /p2 %",
                       {WBValueWithUnit(kMass, *sigma), Percent(1.0 - *uncertainty.shareUnstated)});
}

WBPanelTable ShareTable(const CATUnicodeString& title, const std::vector<WBShare>& shares)
{
    WBPanelTable table;
    table.columns = {{title, {}, false},
                     {WBTitleWithUnit(WBPanelText("Shares.Mass.Title", "@Mass"), kMass), {}, true},
                     {WBPanelText("Shares.Share.Title", "@Share [%]"), {}, true}};
    double whole = 0.0;
    for (const WBShare& share : shares) {
        whole += share.mass;
    }
    for (const WBShare& share : shares) {
        // Nothing has a share in nothing.
        table.rows.push_back({WBOrDash(share.name), WBNumberInUnit(kMass, share.mass),
                              whole == 0.0 ? CATUnicodeString() : Percent(share.mass / whole)});
    }
    return table;
}

} // namespace

WBSumFacts WBReadSumFacts(const WBPanelRecord& record)
{
    const WBValueDetails& details = record.details;
    const CATUnicodeString dash = WBOrDash({});
    WBSumFacts facts{dash, dash, dash, dash, dash, dash};
    // A leaf that came with its own values alone has no sum to speak of.
    if (!details.coverage || details.coverage->leaves == 0.0) {
        return facts;
    }
    facts.items = Items(*details.coverage);
    facts.withoutCentre = WithoutCentre(details.coverage->massWithoutCentre);
    facts.withoutInertia = WithoutInertia(details.coverage->massWithoutInertia);
    if (details.growthAllowance) {
        facts.growth = WBValueWithUnit(kMass, *details.growthAllowance);
    }
    const std::optional<double> mass = ComputedMass(record);
    if (mass && details.growthAllowance) {
        facts.predicted = WBValueWithUnit(kMass, *mass + *details.growthAllowance);
    }
    if (details.uncertainty) {
        facts.uncertainty = Uncertainty(*details.uncertainty);
    }
    return facts;
}

CATUnicodeString WBWhatIsSummedUp(const WBPanelRecord& record)
{
    if (record.computed) {
        const WBComputationChoice& choice = *record.computed;
        const CATUnicodeString filter =
            record.isFiltered ? WBPanelText("Sum.Filtered", "@filter: /p1", {record.filter})
                              : WBPanelText("Sum.Unfiltered", "@unfiltered");
        return WBPanelText(
            "Sum.Computed", "@Computed here: /p1; /p2; /p3.",
            {WBEntityText(choice.entity), WBPrecisionChoiceText(choice.precision), filter});
    }
    return ComputedMass(record)
               ? WBPanelText("Sum.Stored",
                             "@As stored: what is below, by active values, unfiltered.")
               : WBPanelText("Sum.None", "@Nothing is computed yet.");
}

CATUnicodeString WBUnusualSum(const WBPanelRecord& record)
{
    if (!record.computed || !(record.activeMassType == Definitions::Computed)) {
        return {};
    }
    const WBComputationChoice usual;
    CATUnicodeString lines;
    const auto add = [&lines](bool isUnusual, const CATUnicodeString& line) {
        if (isUnusual) {
            lines += lines.IsEmpty() ? line : "\n" + line;
        }
    };
    const WBComputationChoice& choice = *record.computed;
    add(choice.entity != usual.entity, WBEntityText(choice.entity));
    add(!(choice.precision == usual.precision), WBPrecisionChoiceText(choice.precision));
    add(record.isFiltered, record.filter);
    return lines;
}

WBPanelTable WBCodeTable(const WBPanelRecord& record)
{
    return ShareTable(WBPanelText("Shares.Code.Title", "@Code"), record.details.codes);
}

WBPanelTable WBMassTypeShareTable(const WBPanelRecord& record)
{
    return ShareTable(WBPanelText("Shares.MassType.Title", "@Mass type"), record.details.massTypes);
}

WBPanelTable WBWarningTable(const WBPanelRecord& record)
{
    WBPanelTable table;
    table.columns = {{WBPanelText("Warnings.Text.Title", "@Warnings of the sum"), {}, false}};
    for (const CATUnicodeString& warning : record.details.warnings) {
        table.rows.push_back({warning});
    }
    return table;
}

WBPanelTable WBImposedTable(const WBPanelRecord& record)
{
    const std::optional<WBImposedDetails>& imposed = record.details.imposed;
    WBPanelTable table;
    table.columns = {{WBPanelText("Set.Quantity.Title", "@Quantity"), {}, false},
                     {WBPanelText("Imposed.Own.Title", "@Own"), {}, true},
                     {WBPanelText("Imposed.Below.Title", "@Below"), {}, true},
                     {WBPanelText("Imposed.Difference.Title", "@Difference"),
                      WBPanelText("Imposed.Difference.Tooltip", "@Own less below"), true}};
    if (!imposed) {
        return table;
    }
    for (std::size_t index = 0; index < kWBFigures.size(); ++index) {
        const WBFigure& figure = kWBFigures[index];
        WBPanelRow row{WBPanelText(figure.titleKey, figure.title)};
        for (const WBTwelveFigures* figures :
             {&imposed->own, &imposed->below, &imposed->difference}) {
            const std::optional<double>& value = (*figures)[index];
            row.Append(value ? WBValueWithUnit(figure.magnitude, *value) : WBOrDash({}));
        }
        table.rows.push_back(std::move(row));
    }
    return table;
}

CATUnicodeString WBImposedWords(const WBPanelRecord& record)
{
    const std::optional<WBImposedDetails>& imposed = record.details.imposed;
    if (!imposed) {
        return {};
    }
    CATUnicodeString words = WBPanelText("Imposed.Words",
                                         "@In sums the values of /p1 stand for everything below; "
                                         "they replace it and are not added.",
                                         {imposed->massType});
    // The table shows what sums use: figures that the mass type does not state are others' there.
    const WBSetDetails* said = record.details.Of(imposed->massType);
    if (said != nullptr && said->centre == WBOrigin::Lent) {
        words +=
            "\n" + WBPanelText("Imposed.CentreLent", "@The centre of gravity is taken from /p1.",
                               {said->centreLender});
    }
    if (said != nullptr && said->inertia == WBOrigin::Lent) {
        words += "\n" + WBPanelText("Imposed.InertiaLent",
                                    "@The inertia is taken from /p1 and scaled to this mass.",
                                    {said->inertiaLender});
    }
    return words;
}

CATUnicodeString WBEntityText(Definitions::Entity entity)
{
    switch (entity) {
    case Definitions::Root:
        return WBPanelText("Entity.Root", "@the whole product");
    case Definitions::PartAlone:
        return WBPanelText("Entity.Part", "@the part alone");
    case Definitions::InstanceWithChildren:
        break;
    }
    return WBPanelText("Entity.Instance", "@this instance with what is below");
}

CATUnicodeString WBPrecisionChoiceText(const CATUnicodeString& precision)
{
    if (precision == WBComputationChoice::kActive) {
        return WBPanelText("PrecisionChoice.Active", "@active values");
    }
    return precision == WBComputationChoice::kMostPrecise
               ? WBPanelText("PrecisionChoice.MostPrecise", "@most precise values")
               : precision;
}

CATUnicodeString WBStoredSumsText(WBStoredSums storedSums)
{
    switch (storedSums) {
    case WBStoredSums::Force:
        return WBPanelText("StoredSums.Force", "@compute all anew");
    case WBStoredSums::Assume:
        return WBPanelText("StoredSums.Assume", "@take as stored below level");
    case WBStoredSums::Check:
        break;
    }
    return WBPanelText("StoredSums.Check", "@update what changed");
}
