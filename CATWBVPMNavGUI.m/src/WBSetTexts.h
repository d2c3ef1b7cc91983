#pragma once

#include "WBPanelTexts.h"

/// What the panel says about one mass type beside its row among the others; null: none is selected.

struct WBSetFacts
{
    CATUnicodeString heading; ///< which mass type it is
    CATUnicodeString source;  ///< where it was stated, when and by whom
    CATUnicodeString note;
};
WBSetFacts WBReadSetFacts(const WBPanelRecord& record, const WBPanelMassType* massType);

/// A row a figure: value, standard uncertainty, and where the value comes from.
WBPanelTable WBSetTable(const WBPanelRecord& record, const WBPanelMassType* massType);

struct WBInertiaFacts
{
    CATUnicodeString heading; ///< whose inertia, or that it is not known
    CATUnicodeString words;   ///< about which point, in whose axes, and whether it is lent
};
WBInertiaFacts WBReadInertiaFacts(const WBPanelRecord& record, const WBPanelMassType* massType);

/// The matrix; no rows where the inertia is not known.
WBPanelTable WBInertiaTable(const WBPanelMassType* massType);
/// Principal moments, largest first, with the radius of gyration about each principal axis.
WBPanelTable WBPrincipalTable(const WBPanelRecord& record, const WBPanelMassType* massType);
