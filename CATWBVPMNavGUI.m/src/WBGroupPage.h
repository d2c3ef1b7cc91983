#pragma once

#include "CATDlgControls.h"
#include "WBGroupTotals.h"

/// What the pages of the group panel are to it.
class WBGroupPage : public CATDlgTabPage
{
public:
    using CATDlgTabPage::CATDlgTabPage;

    static const CATEvent Changed; ///< the group is another one, or adds up to something else
    static const CATEvent Said;    ///< there is something new to read in Word()

    /// Takes up the product's figures, which must outlive the next call; null: there are none.
    virtual void TakeFigures(const WBGroupFigures* figures) = 0;
    /// Shows everything anew in the user's units.
    virtual void FollowUnits() {}
    /// Of the instances that the page shows; nothing where it shows none or no figures are known.
    virtual std::optional<WBGroupTotals> Totals() const { return std::nullopt; }
    /// Remarks on which items count, as sentences; may be empty.
    virtual CATUnicodeString WhatCounts() const { return {}; }

    /// What the page has to say to its user, empty for nothing.
    const CATUnicodeString& Word() const { return m_word; }
    void Say(const CATUnicodeString& word);

private:
    CATUnicodeString m_word;
};
