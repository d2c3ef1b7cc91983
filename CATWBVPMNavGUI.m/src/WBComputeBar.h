#pragma once

#include "WBSumChoices.h"

class CATWBAllDataBuffer;

/// The part of the main panel in which a computation is chosen and started. It offers what a record
/// can be asked for and knows nothing of answers.
class WBComputeBar
{
public:
    WBComputeBar(CATDialog* window, int row);

    /// Offers the record's mass types; what was chosen stays chosen where it is still offered.
    /// Null: there is nothing to compute.
    void Offer(const CATWBAllDataBuffer* record, const CATUnicodeString& shownFilter);
    WBComputationChoice Choice() const;

    WBSumChoices& Sums() { return m_sums; }
    CATDlgPushButton* Button() const { return m_compute; }

private:
    // Controls belong to the controls that they stand in.
    CATDlgFrame* m_frame;
    CATDlgCombo* m_entity;
    WBSumChoices m_sums;
    CATDlgLabel* m_filter;
    CATDlgPushButton* m_compute;
};
