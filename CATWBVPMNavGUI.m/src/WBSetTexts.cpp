#include "WBSetTexts.h"

#include "WBFigures.h"
#include "WBPanelUnits.h"

#include <array>
#include <cmath>

namespace
{

using Definitions = CATENOWBCSCommonDefinitions;

constexpr const char* kLength = "LENGTH";
constexpr const char* kInertia = "INERTIAMOMENT";

bool IsComputed(const WBPanelMassType& massType)
{
    return massType.name == Definitions::Computed;
}

/// Text pieces with ", " between those that say something.
CATUnicodeString Listed(const std::array<CATUnicodeString, 3>& pieces)
{
    CATUnicodeString whole;
    for (const CATUnicodeString& piece : pieces) {
        if (!whole.IsEmpty() && !piece.IsEmpty()) {
            whole += ", ";
        }
        whole += piece;
    }
    return whole;
}

CATUnicodeString OriginWords(WBOrigin origin, const CATUnicodeString& lender, bool isComputed)
{
    switch (origin) {
    case WBOrigin::Stated:
        return WBPanelText("Origin.Stated", "@stated");
    case WBOrigin::SizeTimesDensity:
        return WBPanelText("Origin.Sized", "@size times density");
    case WBOrigin::Lent:
        return isComputed ? WBPanelText("Origin.From", "@from /p1", {lender})
                          : WBPanelText("Origin.Lent", "@not stated; sums use /p1", {lender});
    case WBOrigin::SummedUp:
        return WBPanelText("Origin.Summed", "@summed up");
    case WBOrigin::Unknown:
        break;
    }
    return WBPanelText("Origin.Unknown", "@not known");
}

CATUnicodeString DeviationWords(const WBSetDetails& said)
{
    switch (said.precision) {
    case WBPrecisionOrigin::Stated:
        return WBPanelText("Origin.PrecisionStated", "@stated precision");
    case WBPrecisionOrigin::Default:
        return WBPanelText("Origin.PrecisionDefault", "@default precision");
    case WBPrecisionOrigin::None:
        break;
    }
    return said.mass == WBOrigin::SummedUp
               ? WBPanelText("Origin.DeviationSum", "@summed up, worst case")
               : CATUnicodeString();
}

CATUnicodeString WordsOfFigure(const WBSetDetails& said, std::size_t figure, bool isComputed)
{
    if (figure == kWBLower || figure == kWBUpper) {
        return DeviationWords(said);
    }
    if (figure >= kWBInertia) {
        return OriginWords(said.inertia, said.inertiaLender, isComputed);
    }
    return figure >= kWBCentre ? OriginWords(said.centre, said.centreLender, isComputed)
                               : OriginWords(said.mass, {}, isComputed);
}

/// The ten figures that have an uncertainty stand among the twelve without the deviations.
std::optional<double> SigmaOf(const WBTenFigures& sigmas, std::size_t figure)
{
    constexpr std::size_t kDeviations = 2;
    if (figure == 0) {
        return sigmas.front();
    }
    return figure < kWBCentre ? std::nullopt : sigmas[figure - kDeviations];
}

WBTenFigures SigmasOf(const WBPanelRecord& record, const WBPanelMassType& massType,
                      const WBSetDetails& said)
{
    const std::optional<WBUncertaintyDetails>& uncertainty = record.details.uncertainty;
    return IsComputed(massType) && uncertainty ? uncertainty->sigmas : said.sigmas;
}

CATUnicodeString Shown(const char* magnitude, const std::optional<double>& value)
{
    return value ? WBValueWithUnit(magnitude, *value) : WBOrDash({});
}

/// What the server said about the mass type; nothing is known where it said nothing.
WBSetDetails SaidOf(const WBPanelRecord& record, const WBPanelMassType& massType)
{
    const WBSetDetails* said = record.details.Of(massType.name);
    return said == nullptr ? WBSetDetails() : *said;
}

/// In whose axes the mass type's figures stand.
CATUnicodeString AxesOf(const WBPanelRecord& record, const WBPanelMassType& massType)
{
    const bool isOfRoot =
        IsComputed(massType) && record.computed && record.computed->entity == Definitions::Root;
    return isOfRoot ? WBPanelText("Axes.Root", "@the product /p1", {record.root})
                    : WBPanelText("Axes.Part", "@the part");
}

CATUnicodeString InertiaHeading(const WBPanelMassType& massType)
{
    return massType.inertia ? WBPanelText("Inertia.Heading", "@Inertia of /p1", {massType.name})
                            : WBPanelText("Inertia.Unknown", "@The inertia of /p1 is not known",
                                          {massType.name});
}

CATUnicodeString PointWords(const WBPanelRecord& record, const WBPanelMassType& massType)
{
    const CATUnicodeString axes = AxesOf(record, massType);
    if (!massType.centre) {
        return WBPanelText("Inertia.AboutUnknown",
                           "@About the centre of gravity, wherever it is, in the axes of /p1.",
                           {axes});
    }
    return WBPanelText("Inertia.About",
                       "@About the centre of gravity (x /p1   y /p2   z /p3), in the axes of /p4.",
                       {WBNumberInUnit(kLength, massType.centre->GetX()),
                        WBNumberInUnit(kLength, massType.centre->GetY()),
                        WBValueWithUnit(kLength, massType.centre->GetZ()), axes});
}

CATUnicodeString LenderWords(const WBSetDetails& said, const WBPanelMassType& massType)
{
    if (said.inertia != WBOrigin::Lent) {
        return {};
    }
    return IsComputed(massType)
               ? WBPanelText("Inertia.From", "@Taken from /p1 and scaled to this mass.",
                             {said.inertiaLender})
               : WBPanelText("Inertia.Lent",
                             "@Not stated: sums use the one of /p1, scaled to this mass.",
                             {said.inertiaLender});
}

CATUnicodeString InertiaWords(const WBPanelRecord& record, const WBPanelMassType& massType)
{
    const CATUnicodeString lender = LenderWords(SaidOf(record, massType), massType);
    if (!massType.inertia) {
        return lender.IsEmpty() ? WBPanelText("Inertia.NotStated", "@Nothing states it.") : lender;
    }
    const CATUnicodeString point = PointWords(record, massType);
    return lender.IsEmpty() ? point : point + "\n" + lender;
}

/// k = sqrt(I / m), in mm. A moment below 0 belongs to no body, and has no radius.
CATUnicodeString RadiusOfGyration(double moment, const std::optional<double>& mass)
{
    constexpr double kMillimetresPerMetre = 1000.0;
    return !mass || *mass <= 0.0 || moment < 0.0
               ? CATUnicodeString()
               : WBNumberInUnit(kLength, kMillimetresPerMetre * std::sqrt(moment / *mass));
}

} // namespace

WBSetFacts WBReadSetFacts(const WBPanelRecord& record, const WBPanelMassType* massType)
{
    if (massType == nullptr) {
        return {WBPanelText("Set.NoType", "@Select a mass type to see where its values come from"),
                WBOrDash({}), WBOrDash({})};
    }
    const WBSetDetails said = SaidOf(record, *massType);
    return {WBPanelText("Set.Heading", "@Values of /p1", {massType->name}),
            WBOrDash(Listed({said.source, said.sourceDate, said.author})), WBOrDash(said.note)};
}

WBPanelTable WBSetTable(const WBPanelRecord& record, const WBPanelMassType* massType)
{
    WBPanelTable table;
    table.columns = {
        {WBPanelText("Set.Quantity.Title", "@Quantity"), {}, false},
        {WBPanelText("Set.Value.Title", "@Value"), {}, true},
        {WBPanelText("Set.Sigma.Title", "@Standard uncertainty"),
         WBPanelText("Set.Sigma.Tooltip",
                     "@As it was stated; of Computed as it follows from the parts. A dash where "
                     "nothing is known of it"),
         true},
        {WBPanelText("Set.Origin.Title", "@Where from"), {}, false}};
    if (massType == nullptr) {
        return table;
    }
    const WBSetDetails said = SaidOf(record, *massType);
    const WBTenFigures sigmas = SigmasOf(record, *massType, said);
    const WBTwelveFigures figures = WBFiguresOf(*massType);
    for (std::size_t index = 0; index < kWBFigures.size(); ++index) {
        const WBFigure& figure = kWBFigures[index];
        table.rows.push_back({WBPanelText(figure.titleKey, figure.title),
                              Shown(figure.magnitude, figures[index]),
                              Shown(figure.magnitude, SigmaOf(sigmas, index)),
                              WordsOfFigure(said, index, IsComputed(*massType))});
    }
    return table;
}

WBInertiaFacts WBReadInertiaFacts(const WBPanelRecord& record, const WBPanelMassType* massType)
{
    if (massType == nullptr) {
        return {WBPanelText("Inertia.NoType", "@Inertia: select a mass type"), {}};
    }
    return {InertiaHeading(*massType), InertiaWords(record, *massType)};
}

WBPanelTable WBInertiaTable(const WBPanelMassType* massType)
{
    constexpr std::array kAxes{"x", "y", "z"};
    constexpr std::array kTerms{"Ixx   -Ixy   -Ixz", "-Ixy   Iyy   -Iyz", "-Ixz   -Iyz   Izz"};
    WBPanelTable table;
    table.columns.push_back({WBPanelText("Inertia.Row.Title", "@Row"), {}, false});
    for (const char* axis : kAxes) {
        table.columns.push_back({WBTitleWithUnit(axis, kInertia), {}, true});
    }
    // The last column takes the room that is left, so it is one of words.
    table.columns.push_back({WBPanelText("Inertia.Terms.Title", "@Terms of the row"), {}, false});
    if (massType == nullptr || !massType->inertia) {
        return table;
    }
    for (int row = 1; row <= 3; ++row) {
        const auto index = static_cast<std::size_t>(row) - 1;
        WBPanelRow cells{kAxes[index]};
        for (int column = 1; column <= 3; ++column) {
            cells.Append(WBNumberInUnit(kInertia, massType->inertia->GetCoef(row, column)));
        }
        cells.Append(kTerms[index]);
        table.rows.push_back(std::move(cells));
    }
    return table;
}

WBPanelTable WBPrincipalTable(const WBPanelRecord& record, const WBPanelMassType* massType)
{
    WBPanelTable table;
    table.columns = {
        {WBPanelText("Principal.Axis.Title", "@Principal axis"), {}, false},
        {WBTitleWithUnit(WBPanelText("Principal.Moment.Title", "@Principal moment"), kInertia),
         {},
         true},
        {WBTitleWithUnit(WBPanelText("Principal.Radius.Title", "@Radius of gyration"), kLength),
         WBPanelText("Principal.Radius.Tooltip",
                     "@How far from the axis the whole mass would have the same moment: the square "
                     "root of moment by mass"),
         true}};
    if (massType == nullptr || !massType->inertia) {
        return table;
    }
    const std::array axes{WBPanelText("Principal.Largest", "@largest"),
                          WBPanelText("Principal.Middle", "@middle"),
                          WBPanelText("Principal.Smallest", "@smallest")};
    const WBSetDetails said = SaidOf(record, *massType);
    for (std::size_t index = 0; index < axes.size(); ++index) {
        const std::optional<double> moment = said.principalMoments[index];
        if (moment) {
            table.rows.push_back({axes[index], WBNumberInUnit(kInertia, *moment),
                                  RadiusOfGyration(*moment, massType->mass)});
        }
    }
    return table;
}
