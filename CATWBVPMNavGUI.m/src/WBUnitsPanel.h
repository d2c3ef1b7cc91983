#pragma once

#include "CATWBVPMNavUnitsConversion.h"

#include "WBUnitChoices.h"
#include "WBUnitWatch.h"

class CATDlgMultiList;

/// The units panel as users see it: a table of all magnitudes with an example of each, and below it
/// the unit of the one that is selected. What the user chooses, unit by unit or a whole preset, is
/// shown at once in the table and holds for the session only when it is applied.
class WBUnitsPanel : public CATWBVPMNavUnitsConversion
{
public:
    explicit WBUnitsPanel(CATDialog* parent);
    /// The session's panel, made hidden below the main window when there is none (any more). Null
    /// in a session without a main window.
    static CATWBVPMNavUnitsConversion* OfSession();

    const char* ClassName() const override;
    CATString GetResourceFilename(int level) const override;
    /// What failed was the panel's own action: it stays open and shows the units anew.
    bool RecoverFromFault() override;
    CATDlgPushButton* GetCloseButton() override;

private:
    void BuildPresets();
    void BuildTable();
    void BuildUnit();
    void BuildButtons();

    /// Shows the dictionary's units and the user's choices in all controls.
    void Show();
    void ShowTable();
    void ShowUnitOfSelectedRow();
    void ShowState();
    /// The magnitude of the selected row; null when none is.
    CATICkeMagnitude_var SelectedMagnitude() const;

    void ChoosePreset(int line);
    void ChooseUnit(int line);
    void Apply();
    void GiveUp();
    /// Before choices that are not applied go out of sight, the user says what shall become of
    /// them.
    void SettleChoices();
    void TellNotKept();
    void HearOfUnit(const CATICkeMagnitude& magnitude);

    WBMagnitudes m_magnitudes; // a row of the table each
    WBUnitChoices m_choices;

    // Controls belong to the controls that they stand in.
    CATDlgCombo* m_presets = nullptr;
    CATDlgMultiList* m_table = nullptr;
    CATDlgLabel* m_quantity = nullptr;
    CATDlgCombo* m_unit = nullptr;
    CATDlgLabel* m_state = nullptr;
    CATDlgPushButton* m_apply = nullptr;
    CATDlgPushButton* m_reset = nullptr;
    CATDlgPushButton* m_close = nullptr;

    WBUnitWatch m_unitWatch; // last: it goes before what it writes to
};
