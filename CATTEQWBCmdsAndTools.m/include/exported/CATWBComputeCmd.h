#pragma once

#include "CATCollections.h"
#include "CATCommandWatch.h"
#include "CATDlgDialog.h"
#include "CATUnicodeString.h"
#include "CATWBVPMNavUnitsConversion.h"
#include "WBExport.h"

#include <memory>

class CATMath3x3Matrix;
struct WBComputeControls;
struct WBComputeValues;

/// Computes the product that is open in the navigator as a whole: mass with deviations, centre of
/// gravity, inertia, and what it is made of. The command is its own window. The user says whose
/// values count, what becomes of stored results, and about which point the inertia is shown; the
/// server computes.
///
/// The last answer stays until the next one, whatever happens to units and options meanwhile; only
/// the point of the inertia is followed at once.
class WB_EXPORT CATWBComputeCmd : public CATDlgDialog
{
public:
    /// The window's name, and that of its catalog and its resource file.
    static constexpr const char* kName = "CATWBComputeCmd";

    CATWBComputeCmd();
    ~CATWBComputeCmd() override;

    const char* ClassName() const override;
    /// Level 0 and below are the command's own catalog; above stand those of the dialog base.
    CATString GetResourceFilename(int level) const override;

    /// Shows the window, made at the first activation, for the navigator's current root. Without
    /// one the command ends, with no message. S_OK in any case.
    long Activate(CATCommand* from, const CATNotification* why) override;
    /// Hides the window. S_OK.
    long Desactivate(CATCommand* from, const CATNotification* why) override;
    /// Hides the window and asks for the command's delayed destruction. S_OK.
    long Cancel(CATCommand* from, const CATNotification* why) override;

    // What the user has done. Slot order is binary interface: append, never sort.

    /// A unit of masses, lengths or inertias has changed. Does nothing: what is shown keeps the
    /// units in which it was computed until the next answer or option.
    virtual void OnModifyUnit();

    void OnComputeButtonPushBActivateNotification();
    void OnCloseButtonPushBActivateNotification();
    void OnSpecifiedButtonRadBModifyNotification();
    void OnReferenceButtonRadBModifyNotification();
    void OnAssumeUpToDateButtonNotification();
    void OnResultTabContainerSelectNotification();

private:
    void Build();
    void SubscribeToControls();
    void SetInitialState();
    void SubscribeToCallbacks();
    void UnsubscribeToCallbacks();
    /// The identifier of the current root; empty when it has no values.
    CATUnicodeString SelectedIdentifier() const;
    void ShowSelection();
    /// Fills the combo of mass types from the server.
    void GetSpecifiedMassTypes();
    CATUnicodeString ComputeRequest() const;
    /// Shows what the answer holds. False when it could not be read in full.
    bool RefreshPanelWithInfo(const CATUnicodeString& answer);
    void ShowPendingWarning();

    // Each leaves its editors as they are when the magnitude or one of its units cannot be had.
    void RefreshMassUnits();
    void RefreshLengthUnits();
    void RefreshMomentOfInertiaUnits(const CATMath3x3Matrix& matrix);

    /// Shows plain numbers, then numbers in units where these can be had. Null: nothing.
    void FillInertiaWithValues(const CATMath3x3Matrix* matrix);
    /// Gives the inertia of the last answer about the origin, as a new matrix. S_OK.
    long ConvertInertiaMatrixInRefMode(std::unique_ptr<CATMath3x3Matrix>& matrix) const;

    bool m_isFirstActivation = true;
    // What the root is called: parallel lists of names and values, and its type.
    CATListValCATUnicodeString m_rootNames;
    CATListValCATUnicodeString m_rootValues;
    CATUnicodeString m_rootType;
    std::unique_ptr<WBComputeControls> m_controls; // null before the first activation
    std::unique_ptr<WBComputeValues> m_values;     // of the last answer
    std::unique_ptr<CATMath3x3Matrix> m_inertia;   // of the last answer; null before it
    CATCommandWatch<CATWBVPMNavUnitsConversion> m_unitsPanel;
};

/// Makes the command; the command tree owns it.
extern "C" WB_EXPORT CATCommand* fctCreateCATWBComputeCmd();
