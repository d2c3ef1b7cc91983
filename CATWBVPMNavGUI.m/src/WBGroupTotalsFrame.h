#pragma once

#include "CATDlgControls.h"
#include "WBGroupTotals.h"

/// What a group weighs, as texts in the user's language and units; what is unknown is a dash.
struct WBGroupTotalsTexts
{
    CATUnicodeString items;
    CATUnicodeString mass;
    CATUnicodeString share; ///< of the product's mass
    CATUnicodeString centre;
    CATUnicodeString missing; ///< how many items lack mass or centre, as sentences; may be empty
};
WBGroupTotalsTexts WBDescribeTotals(const std::optional<WBGroupTotals>& totals);

/// The part of the group panel that shows them.
class WBGroupTotalsFrame : public CATDlgFrame
{
public:
    explicit WBGroupTotalsFrame(CATDialog* window);

    /// `whatCounts`: remarks on which items count; may be empty.
    void Show(const std::optional<WBGroupTotals>& totals, const CATUnicodeString& whatCounts);

private:
    // Controls belong to the controls that they stand in.
    CATDlgLabel* m_items;
    CATDlgLabel* m_mass;
    CATDlgLabel* m_share;
    CATDlgLabel* m_centre;
    CATDlgLabel* m_whatCounts;
    CATDlgLabel* m_missing;
};
