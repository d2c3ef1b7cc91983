#pragma once

#include "CATDlgControls.h"
#include "WBGroupTotals.h"

/// What both pages of the group panel are to it.
class WBGroupPage : public CATDlgTabPage
{
public:
    using CATDlgTabPage::CATDlgTabPage;

    static const CATEvent Changed; ///< what the group adds up to may be another
    static const CATEvent Said;    ///< there is something new to read in Word()

    /// Takes up the product's figures, which must outlive the next call; null: there are none.
    virtual void TakeFigures(const WBGroupFigures* figures) = 0;
    /// Shows everything anew in the user's units.
    virtual void FollowUnits() = 0;
    /// Of the group; nothing where there is none or no figures are known.
    virtual std::optional<WBGroupTotals> Totals() const = 0;
    /// Remarks on which items count, as sentences; may be empty.
    virtual CATUnicodeString WhatCounts() const = 0;
    virtual bool HasUnsaved() const = 0;
    /// False, after a box, when the group is not saved.
    virtual bool Save() = 0;

    /// What the page has to say to its user, empty for nothing.
    const CATUnicodeString& Word() const { return m_word; }
    void Say(const CATUnicodeString& word)
    {
        m_word = word;
        Send(Said);
    }

private:
    CATUnicodeString m_word;
};
