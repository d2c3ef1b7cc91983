#include "WBPanelTexts.h"
#include "WBPanelUnits.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace
{

constexpr const char* kMass = "MASS";
constexpr const char* kLength = "LENGTH";

constexpr int kByVolume = 3;
constexpr int kByArea = 2;

/// What the server calls mass that no material gives; it files it under the volumes.
constexpr std::array<const char*, 2> kWithoutMaterial{"(no material)", "(imposed)"};

CATUnicodeString DimensionText(const WBPanelStatistic& statistic)
{
    if (std::ranges::any_of(kWithoutMaterial, [&statistic](const char* name) {
            return statistic.material == name;
        })) {
        return {};
    }
    switch (statistic.dimension) {
    case kByVolume:
        return WBPanelText("Dimension.Volume", "@by volume");
    case kByArea:
        return WBPanelText("Dimension.Area", "@by area");
    default:
        return {};
    }
}

double WholeMass(const std::vector<WBPanelStatistic>& statistics)
{
    double whole = 0.0;
    for (const WBPanelStatistic& statistic : statistics) {
        whole += statistic.mass;
    }
    return whole;
}

// Axes are unit vectors: six significant digits tell a turn of a thousandth of a degree.
CATUnicodeString AxisNumber(double value)
{
    constexpr double kNoise = 1e-12; // what the product of several turns leaves of a 0
    return CATUnicodeString::FromReal(std::fabs(value) < kNoise ? 0.0 : value, "%.6g");
}

/// The axis of a turn; for half turns, where the difference of the matrix and its transpose
/// vanishes, it is read from the matrix itself.
CATMathVector TurnAxis(const CATMath3x3Matrix& turn, double angle)
{
    const double sine = std::sin(angle);
    constexpr double kNearlyHalfTurn = 1e-6;
    if (sine > kNearlyHalfTurn) {
        return {(turn.GetCoef(3, 2) - turn.GetCoef(2, 3)) / (2.0 * sine),
                (turn.GetCoef(1, 3) - turn.GetCoef(3, 1)) / (2.0 * sine),
                (turn.GetCoef(2, 1) - turn.GetCoef(1, 2)) / (2.0 * sine)};
    }
    int longest = 1;
    for (int column = 2; column <= 3; ++column) {
        if (turn.GetCoef(column, column) > turn.GetCoef(longest, longest)) {
            longest = column;
        }
    }
    // The columns of (turn + 1) are multiples of the axis; the longest one is the most exact.
    std::array<double, 3> axis{};
    double square = 0.0;
    for (int row = 1; row <= 3; ++row) {
        const double term = turn.GetCoef(row, longest) + (row == longest ? 1.0 : 0.0);
        axis[static_cast<std::size_t>(row) - 1] = term;
        square += term * term;
    }
    const double length = std::sqrt(square);
    return {axis[0] / length, axis[1] / length, axis[2] / length};
}

CATUnicodeString TurnWords(const CATMath3x3Matrix& turn)
{
    if (turn.Determinant() < 0.0) {
        return WBPanelText("Turn.Mirrored", "@Mirrored: an opposite-hand use of the part.");
    }
    const double cosine =
        (turn.GetCoef(1, 1) + turn.GetCoef(2, 2) + turn.GetCoef(3, 3) - 1.0) / 2.0;
    const double angle = std::acos(std::fmax(-1.0, std::fmin(1.0, cosine)));
    constexpr double kNoTurn = 1e-7;
    if (angle < kNoTurn) {
        return WBPanelText("Turn.None", "@Not turned.");
    }
    const CATMathVector axis = TurnAxis(turn, angle);
    return WBPanelText("Turn.Angle", "@Turned by /p1 about the axis (/p2; /p3; /p4).",
                       {WBValueWithUnit("ANGLE", angle), AxisNumber(axis.GetX()),
                        AxisNumber(axis.GetY()), AxisNumber(axis.GetZ())});
}

CATUnicodeString ShiftWords(const CATMathVector& shift)
{
    if (shift == CATMathVector()) {
        return WBPanelText("Shift.None", "@Not shifted.");
    }
    return WBPanelText("Shift.By", "@Shifted by x /p1, y /p2, z /p3.",
                       {WBValueWithUnit(kLength, shift.GetX()),
                        WBValueWithUnit(kLength, shift.GetY()),
                        WBValueWithUnit(kLength, shift.GetZ())});
}

} // namespace

WBPanelTable WBMaterialTable(const WBPanelRecord& record)
{
    WBPanelTable table;
    table.keyColumns = {0, 3}; // a material may count by volume and by area
    table.columns = {
        {WBPanelText("Materials.Name.Title", "@Material"),
         WBPanelText("Materials.Name.Tooltip",
                     "@(imposed): the own mass of an assembly, which stands for what is below it. "
                     "(no material): parts without one."),
         false},
        {WBTitleWithUnit(WBPanelText("Materials.Mass.Title", "@Mass"), kMass), {}, true},
        {WBPanelText("Materials.Share.Title", "@Share [%]"),
         WBPanelText("Materials.Share.Tooltip", "@Share in the mass of all materials listed here"),
         true},
        {WBPanelText("Materials.Dimension.Title", "@Counted"),
         WBPanelText("Materials.Dimension.Tooltip",
                     "@Whether the mass comes from a volume or from an area; empty where no "
                     "material gives it"),
         false}};
    const double whole = WholeMass(record.statistics);
    for (const WBPanelStatistic& statistic : record.statistics) {
        // Nothing has a share in nothing.
        const CATUnicodeString share =
            whole == 0.0 ? CATUnicodeString()
                         : CATUnicodeString::FromReal(100.0 * statistic.mass / whole, "%.3g");
        table.rows.push_back({statistic.material, WBNumberInUnit(kMass, statistic.mass), share,
                              DimensionText(statistic)});
    }
    return table;
}

WBPanelTable WBRevisionTable(const WBPanelRecord& record)
{
    WBPanelTable table;
    table.columns = {
        {WBPanelText("Revisions.Version.Title", "@Version"), {}, false},
        {WBTitleWithUnit(WBPanelText("Revisions.Mass.Title", "@Mass"), kMass), {}, true},
        {WBPanelText("Revisions.MassType.Title", "@Active mass type"), {}, false},
        {WBPanelText("Revisions.CheckInDate.Title", "@Checked in"), {}, false},
        {WBPanelText("Revisions.CheckInUser.Title", "@Checked in by"), {}, false},
        {WBPanelText("Revisions.CheckOutUser.Title", "@Checked out by"),
         WBPanelText("Revisions.CheckOutUser.Tooltip", "@Who holds the revision; empty: nobody"),
         false}};
    for (const WBPanelRevision& revision : record.revisions) {
        table.rows.push_back(
            {revision.version,
             revision.mass ? WBNumberInUnit(kMass, *revision.mass) : CATUnicodeString(),
             revision.activeMassType, revision.checkInDate, revision.checkInUser,
             revision.checkOutUser});
    }
    return table;
}

WBPanelTable WBPlacementTable(const WBPanelRecord& record)
{
    WBPanelTable table;
    table.columns = {
        {WBPanelText("Placement.Row.Title", "@In the product"), {}, false},
        {WBPanelText("Placement.AxisX.Title", "@x axis of the part"), {}, true},
        {WBPanelText("Placement.AxisY.Title", "@y axis of the part"), {}, true},
        {WBPanelText("Placement.AxisZ.Title", "@z axis of the part"), {}, true},
        {WBTitleWithUnit(WBPanelText("Placement.Shift.Title", "@Shift"), kLength), {}, true}};
    if (!record.placement) {
        return table;
    }
    const CATMath3x3Matrix& rotation = record.placement->Rotation();
    const CATMathVector& shift = record.placement->Shift();
    const std::array shifts{shift.GetX(), shift.GetY(), shift.GetZ()};
    constexpr std::array kAxes{"x", "y", "z"};
    for (int row = 1; row <= 3; ++row) {
        const auto index = static_cast<std::size_t>(row) - 1;
        table.rows.push_back({kAxes[index], AxisNumber(rotation.GetCoef(row, 1)),
                              AxisNumber(rotation.GetCoef(row, 2)),
                              AxisNumber(rotation.GetCoef(row, 3)),
                              WBNumberInUnit(kLength, shifts[index])});
    }
    return table;
}

CATUnicodeString WBPlacementWords(const std::optional<CATMathTransformation>& placement)
{
    if (!placement) {
        return WBPanelText("Placement.Unknown", "@The position in the product is not known.");
    }
    return TurnWords(placement->Rotation()) + "\n" + ShiftWords(placement->Shift());
}
