#pragma once

#include "CATCommandWatch.h"
#include "CATStateCommand.h"
#include "CATWBVPMNavReportPanel.h"
#include "WBExport.h"

class CATImmIdentifierAcquisitionAgent;

/// Feeds the report panel: the panel opens with the command, and whatever item instances the user
/// picks in the navigator go into its list as long as it takes instances. The command stays until
/// it is cancelled or its panel is closed. The report itself is the panel's work.
///
/// Where there is no panels library or no main window, the command runs without a panel: picks are
/// asked about and dropped.
class WB_EXPORT CATWBVPMNavReport : public CATStateCommand
{
public:
    CATWBVPMNavReport();
    /// Asks for the destruction of the panel and of the agent.
    ~CATWBVPMNavReport() override;

    const char* ClassName() const override;
    /// Level 0 and below are the command's own catalog, "CATWBVPMNavReport"; above stand those of
    /// the host's dialog agent.
    CATString GetResourceFilename(int level) const override;

protected:
    void BuildGraph() override;

private:
    /// The action of the only transition. False when the PDM did not answer for the pick; the
    /// command waits for the next one either way.
    bool ProcessSelection();

    // Belongs to its parent in the command tree, and may go before this command at the session's
    // end.
    CATCommandWatch<CATWBVPMNavReportPanel> m_panel;
    CATImmIdentifierAcquisitionAgent* m_agent = nullptr;
};

/// Makes the command; the command tree owns it.
extern "C" WB_EXPORT CATCommand* fctCreateCATWBVPMNavReport();
