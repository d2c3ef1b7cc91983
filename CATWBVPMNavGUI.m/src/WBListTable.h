#pragma once

#include "WBPanelTexts.h"

class CATDlgMultiList;

/// Puts a table into a list in place of what stood there; no row is selected then.
void WBShowTable(CATDlgMultiList& list, const WBPanelTable& table);
/// Writes the same rows anew (in other units, in another state): what the user selected, sorted,
/// filtered and sized stays. A table with another number of rows is shown in place of the present
/// one.
void WBRewriteTable(CATDlgMultiList& list, const WBPanelTable& table);
