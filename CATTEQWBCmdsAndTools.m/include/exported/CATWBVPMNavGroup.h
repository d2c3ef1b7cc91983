#pragma once

#include "CATCommandWatch.h"
#include "CATStateCommand.h"
#include "CATWBVPMNavGroupPanel.h"
#include "WBExport.h"

class CATImmIdentifierAcquisitionAgent;
struct WBNavigatorRecord;

/// Feeds the group panel with the item instances that the user picks in the navigator, those that
/// the root's filter lets in. The panel opens with the first of them. The command stays until it is
/// cancelled or its panel is closed. Groups and criteria are the panel's work.
///
/// Where there is no panels library or no main window, the command runs without a panel: picks are
/// asked about and dropped.
class WB_EXPORT CATWBVPMNavGroup : public CATStateCommand
{
public:
    CATWBVPMNavGroup();
    /// Asks for the destruction of the panel and of the agent.
    ~CATWBVPMNavGroup() override;

    const char* ClassName() const override;
    /// Level 0 and below are the command's own catalog, "CATWBVPMNavGroup"; above stand those of
    /// the host's dialog agent.
    CATString GetResourceFilename(int level) const override;

    /// Whether the object is an item instance; without one, what the user has picked is looked at.
    /// False when nothing is picked.
    bool ValidSelection(const CATBaseUnknown_var& object = {}) const;
    /// Ends the command: asks for its delayed destruction.
    void OnCloseAction();

protected:
    void BuildGraph() override;

private:
    /// The action of the only transition. False when the PDM did not answer for the pick; the
    /// command waits for the next one either way.
    bool ProcessSelection();
    /// Gives a picked instance to the panel. False, after a warning, when the root's filter leaves
    /// it out.
    bool TakeRecord(const CATUnicodeString& root, const WBNavigatorRecord& record);

    // Null before the first accepted pick. Belongs to its parent in the command tree, and may go
    // before this command at the session's end.
    CATCommandWatch<CATWBVPMNavGroupPanel> m_panel;
    CATImmIdentifierAcquisitionAgent* m_agent = nullptr;
};

/// Makes the command; the command tree owns it.
extern "C" WB_EXPORT CATCommand* fctCreateCATWBVPMNavGroup();
