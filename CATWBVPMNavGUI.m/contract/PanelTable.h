#pragma once

#include "CATWBVPMNavGUITable.h"

/// The table that is registered now.
CATWBVPMNavGUITable& WBPanelTable();
