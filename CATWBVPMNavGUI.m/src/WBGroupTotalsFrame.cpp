#include "WBGroupTotalsFrame.h"

#include "WBGroupTexts.h"
#include "WBPanelControls.h"
#include "WBPanelTexts.h"
#include "WBPanelUnits.h"

namespace
{

constexpr const char* kMass = "MASS";
constexpr const char* kLength = "LENGTH";
constexpr int kColumns = 6;

CATUnicodeString ShareText(double share)
{
    return CATUnicodeString::FromReal(100.0 * share, "%.3g") + " %";
}

CATUnicodeString CentreText(const std::array<double, 3>& centre)
{
    const auto number = [](double value) {
        return WBNumberInUnit(kLength, value);
    };
    return WBGroupText(
        "Totals.Centre", "@x /p1, y /p2, z /p3 /p4",
        {number(centre[0]), number(centre[1]), number(centre[2]), WBUnitSymbol(kLength)});
}

CATUnicodeString MissingText(const WBGroupTotals& totals)
{
    CATUnicodeString text;
    const auto add = [&](int count, const char* key, const char* one, const char* several) {
        if (count > 0) {
            text += (text.IsEmpty() ? "" : " ") + WBGroupCount(key, count, one, several);
        }
    };
    add(totals.withoutMass, "Missing.Mass", "@1 has no mass and counts as nothing.",
        "@/p1 have no mass and count as nothing.");
    add(totals.withoutCentre, "Missing.Centre",
        "@1 has no centre of gravity and stands at that of the rest.",
        "@/p1 have no centre of gravity and stand at that of the rest.");
    add(totals.incomplete, "Missing.Below",
        "@Of 1 assembly some parts have no mass or no centre of gravity.",
        "@Of /p1 assemblies some parts have no mass or no centre of gravity.");
    return text;
}

} // namespace

WBGroupTotalsTexts WBDescribeTotals(const std::optional<WBGroupTotals>& totals)
{
    if (!totals) {
        return {WBOrDash({}), WBOrDash({}), WBOrDash({}), WBOrDash({}), {}};
    }
    const auto orDash = [](bool isKnown, auto text) {
        return isKnown ? text() : WBOrDash(CATUnicodeString());
    };
    return {CATUnicodeString::FromInt(totals->items),
            orDash(totals->mass.has_value(), [&] { return WBValueWithUnit(kMass, *totals->mass); }),
            orDash(totals->share.has_value(), [&] { return ShareText(*totals->share); }),
            orDash(totals->centre.has_value(), [&] { return CentreText(*totals->centre); }),
            MissingText(*totals)};
}

WBGroupTotalsFrame::WBGroupTotalsFrame(CATDialog* window)
    : CATDlgFrame(window, "Totals", kWBPlainFrame),
      m_items(WBAddFact(this, "Items", 0)),
      m_mass(WBAddFact(this, "Mass", 0, 2)),
      m_share(WBAddFact(this, "Share", 0, 4)),
      m_centre(WBAddFact(this, "Centre", 1, 0, kColumns - 1)),
      m_whatCounts(WBAddNote(this, "WhatCounts", 2, kColumns)),
      m_missing(WBAddNote(this, "Missing", 3, kColumns))
{
    for (const int column : {1, 3, 5}) {
        SetColumnStretch(column, 1);
    }
}

void WBGroupTotalsFrame::Show(const std::optional<WBGroupTotals>& totals,
                              const CATUnicodeString& whatCounts)
{
    const WBGroupTotalsTexts texts = WBDescribeTotals(totals);
    m_items->SetTitle(texts.items);
    m_mass->SetTitle(texts.mass);
    m_share->SetTitle(texts.share);
    m_centre->SetTitle(texts.centre);
    m_whatCounts->SetTitle(whatCounts);
    m_missing->SetTitle(texts.missing);
}
