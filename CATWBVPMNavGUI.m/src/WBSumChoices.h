#pragma once

#include "CATDlgControls.h"
#include "WBPartComputation.h"

#include <vector>

/// Which values of the parts below a sum counts and what becomes of stored sums: the same controls
/// wherever something is summed up. Their captions come from the resources of the window.
class WBSumChoices
{
public:
    struct Cell
    {
        int row;
        int column;
    };
    /// Whether stored sums below a level can be taken as they are, and which level that is.
    enum class Level
    {
        Offered,
        Absent
    };
    /// Caption and combo stand side by side from each cell on, the level behind the stored sums.
    WBSumChoices(CATDialog* frame, Cell precision, Cell storedSums, Level level = Level::Offered);

    /// Offers active values, most precise values and these mass types; what was chosen stays chosen
    /// where it is still offered.
    void Offer(const std::vector<CATUnicodeString>& massTypes);
    /// Fills everything but the entity.
    void Read(WBComputationChoice& choice) const;
    /// After the user chose how stored sums count: only one way takes a level. For those that offer
    /// one, as is CheckLevel.
    void ShowWhetherALevelCounts();
    /// False, after a box, when a level counts and none was typed.
    bool CheckLevel(CATDialog* window) const;

    CATDlgCombo* StoredSums() const { return m_storedSums; }

private:
    void AddLevel(CATDialog* frame, Cell storedSums);
    WBStoredSums ChosenStoredSums() const;

    // Controls belong to the controls that they stand in.
    CATDlgCombo* m_precision = nullptr;
    CATDlgCombo* m_storedSums = nullptr;
    CATDlgEditor* m_level = nullptr; // null where none is offered

    std::vector<CATUnicodeString> m_precisions; // as requests say them, a line of the combo each
};
