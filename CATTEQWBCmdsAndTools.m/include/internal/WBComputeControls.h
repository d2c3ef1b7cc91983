#pragma once

#include "CATDlgControls.h"
#include "CATDlgDialog.h"
#include "CATDlgMultiList.h"

#include <array>

/// The window of the compute command, control by control. All belong to the window.
struct WBComputeControls
{
    CATDlgEditor* selection;
    CATDlgTabContainer* resultTabs;
    std::array<CATDlgEditor*, 3> mass;    ///< mass, lower and upper deviation
    std::array<CATDlgEditor*, 3> centre;  ///< x, y, z
    std::array<CATDlgEditor*, 6> inertia; ///< xx, yy, zz, xy, xz, yz
    CATDlgMultiList* statistics;
    CATDlgMultiList* massTypeStatistics;

    CATDlgFrame* inertiaMode;
    CATDlgRadioButton* aboutCentre;
    CATDlgRadioButton* aboutReference;
    CATDlgRadioButton* active;
    CATDlgRadioButton* mostPrecise;
    CATDlgRadioButton* specified;
    CATDlgFrame* specifiedMassType;
    CATDlgCombo* massTypes;
    CATDlgRadioButton* checkUpToDate;
    CATDlgRadioButton* forceUpdate;
    CATDlgRadioButton* assumeUpToDate;
    CATDlgEditor* updateLevel;
    CATDlgLabel* updateLevelInfo;
    CATDlgEditor* filter;

    CATDlgPushButton* compute;
    CATDlgPushButton* close;
};

/// Makes all controls in the empty window, in their plain state.
WBComputeControls WBBuildComputeControls(CATDlgDialog& window);

/// A text of the compute command's catalog.
CATUnicodeString WBComputeMessage(const char* key, const char* defaultText);
