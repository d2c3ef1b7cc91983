#pragma once

#include "CATDlgControls.h"
#include "WBPartComputation.h"

#include <vector>

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
    /// After the user chose how stored sums count: only one way takes a level.
    void ShowWhetherALevelCounts();

    CATDlgPushButton* Button() const { return m_compute; }
    CATDlgCombo* StoredSums() const { return m_storedSums; }

private:
    // Controls belong to the controls that they stand in.
    CATDlgFrame* m_frame;
    CATDlgCombo* m_entity = nullptr;
    CATDlgCombo* m_precision = nullptr;
    CATDlgCombo* m_storedSums = nullptr;
    CATDlgEditor* m_level = nullptr;
    CATDlgLabel* m_filter = nullptr;
    CATDlgPushButton* m_compute = nullptr;

    std::vector<CATUnicodeString> m_precisions; // as requests say them, a line of the combo each
};
