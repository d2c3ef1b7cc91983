#include "WBComputeTexts.h"

#include "WBInertia.h"
#include "WBUnitDisplay.h"

#include "CATWBServices.h"

#include <cmath>

namespace
{

constexpr const char* kNothing = "---";
constexpr int kVolumic = 3;

/// A value in the current unit of a magnitude, or plain where there is none.
class Shower
{
public:
    explicit Shower(const CATUnicodeString& magnitude)
    {
        const CATICkeMagnitude_var found = CATWBServices::GetMagnitude(magnitude);
        const WBUnitPair units =
            found.IsNull() ? WBUnitPair() : UnitsFor(*found, WBUnitsTask::Convert);
        if (units.IsComplete()) {
            m_display.emplace(units, WBShowOptions{.withSymbol = true, .decimals = 0});
        }
    }
    bool HasUnits() const { return m_display.has_value(); }
    CATUnicodeString Text(double value)
    {
        return m_display ? CATUnicodeString(m_display->Show(value).View())
                         : CATUnicodeString::FromReal(value, "%g");
    }

private:
    std::optional<WBUnitDisplay> m_display;
};

CATUnicodeString ShareText(double mass, double totalMass)
{
    const double share = mass / totalMass * 100.0;
    // Of no mass at all there are no shares.
    return std::isfinite(share) ? CATUnicodeString::FromReal(share, "%.3g") + "%" : kNothing;
}

} // namespace

std::optional<std::vector<CATUnicodeString>> WBShownInUnits(const CATUnicodeString& magnitude,
                                                            std::span<const double> values)
{
    Shower shower(magnitude);
    if (!shower.HasUnits()) {
        return std::nullopt;
    }
    std::vector<CATUnicodeString> texts;
    for (const double value : values) {
        texts.push_back(shower.Text(value));
    }
    return texts;
}

std::vector<double> WBInertiaValues(const CATMath3x3Matrix& matrix)
{
    const auto [xx, yy, zz, xy, xz, yz] = MomentsAndProducts(matrix);
    return {xx, yy, zz, xy, xz, yz};
}

std::vector<CATListValCATUnicodeString> WBStatisticsTable(const std::vector<WBStatisticsRow>& rows,
                                                          double totalMass)
{
    Shower volumic("DENSITY");
    Shower surfacic("SURFACICMASS");
    Shower mass("MASS");
    std::vector<CATListValCATUnicodeString> table;
    table.reserve(rows.size());
    for (const WBStatisticsRow& row : rows) {
        Shower& density = row.kind == kVolumic ? volumic : surfacic;
        table.push_back(
            {row.name, row.density == 0.0 ? CATUnicodeString(kNothing) : density.Text(row.density),
             mass.Text(row.mass), ShareText(row.mass, totalMass)});
    }
    return table;
}

std::vector<CATListValCATUnicodeString> WBMassTypeTable(const std::vector<WBMassTypeRow>& rows,
                                                        double totalMass)
{
    Shower mass("MASS");
    std::vector<CATListValCATUnicodeString> table;
    table.reserve(rows.size());
    for (const WBMassTypeRow& row : rows) {
        table.push_back({row.name, mass.Text(row.mass), ShareText(row.mass, totalMass)});
    }
    return table;
}
