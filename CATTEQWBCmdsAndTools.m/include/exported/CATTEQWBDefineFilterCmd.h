#pragma once

#include "CATCommandWatch.h"
#include "CATStateCommand.h"
#include "CATUnicodeString.h"
#include "CATWBVPMNavFilterPanel.h"
#include "WBExport.h"

class CATImmIdentifierAcquisitionAgent;

/// Feeds the filter panel: the panel opens with the command for the navigator's root, and whatever
/// item instances the user picks become lines of its filter. The command stays until it is
/// cancelled or its panel is left, by OK, Cancel or its frame.
///
/// The root is the one that was open when the command began; picks are asked about for that one.
/// Where there is no panels library or no main window, the command runs without a panel: picks are
/// asked about and dropped.
class WB_EXPORT CATTEQWBDefineFilterCmd : public CATStateCommand
{
public:
    CATTEQWBDefineFilterCmd();
    /// Asks for the destruction of the panel and of the agent.
    ~CATTEQWBDefineFilterCmd() override;

    const char* ClassName() const override;
    /// Level 0 and below are the command's own catalog, "CATTEQWBDefineFilterCmd"; above stand
    /// those of the host's dialog agent.
    CATString GetResourceFilename(int level) const override;

protected:
    void BuildGraph() override;

private:
    /// Makes the panel for the root that is open, and shows it.
    void OpenPanel();
    /// The action of the only transition. False when nothing could be asked, or the PDM did not
    /// answer; the command waits for the next pick either way.
    bool ProcessSelection();

    // Belongs to its parent in the command tree, and may go before this command at the session's
    // end.
    CATCommandWatch<CATWBVPMNavFilterPanel> m_panel;
    CATImmIdentifierAcquisitionAgent* m_agent = nullptr;
    CATUnicodeString m_rootIdentifier;
};

/// Makes the command; the command tree owns it.
extern "C" WB_EXPORT CATCommand* fctCreateCATTEQWBDefineFilterCmd();
