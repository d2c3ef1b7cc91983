#pragma once

#include "CATCommandWatch.h"
#include "CATStateCommand.h"
#include "CATUnicodeString.h"
#include "CATWBVPMMainPanel.h"
#include "WBExport.h"

class CATImmIdentifierAcquisitionAgent;
class CATPathElementAgent;
class CATWBAllDataBuffer;

/// Shows what is known about the weight and balance of a part or assembly: the user picks it, in
/// the navigator or in a product-structure window, and the main panel opens on it. Every further
/// pick refills the panel; closing the panel ends the command.
///
/// The workshop in which the command is made decides what it lets the user pick: in the navigator
/// item instances, in the product structure instances of a product whose document lives in the PDM.
/// In any other workshop it waits for nothing.
class WB_EXPORT CATTEQWBComputePartCmd : public CATStateCommand
{
public:
    CATTEQWBComputePartCmd();
    /// Asks for the destruction of the panel and of the agents.
    ~CATTEQWBComputePartCmd() override;

    const char* ClassName() const override;
    /// Level 0 is the command's own catalog, "CATTEQWBComputePartCmd"; above stand those of the
    /// host's dialog agent.
    CATString GetResourceFilename(int level) const override;

protected:
    void BuildGraph() override;

private:
    bool IsSelectionValid();
    bool IsNavigatorSelectionValid() const;
    bool IsProductSelectionValid();
    /// The action of the only transition. False when the pick could not be shown; the command waits
    /// for the next one either way.
    bool ProcessSelection();
    bool ShowSelection();
    void ShowWrongSelection();
    void RearmAgents();
    /// Where the picked product stands: how many objects its path has (-1 when that is unknown),
    /// its own instance name, and the instance names from its parent up to just below the root,
    /// joined by "|". E_FAIL, after a diagnostic line, when the path cannot be read.
    long GetInstancePath(int& depth, CATUnicodeString& leafName, CATUnicodeString& path) const;
    /// Puts the picked product's position into the record.
    bool AddTransformation(CATWBAllDataBuffer& record) const;
    bool FillPanel(CATWBAllDataBuffer& record);

    // Belongs to its parent in the command tree, and may go before this command at the session's
    // end.
    CATCommandWatch<CATWBVPMMainPanel> m_mainPanel;
    CATImmIdentifierAcquisitionAgent* m_identifierAgent = nullptr;
    CATPathElementAgent* m_pathAgent = nullptr;
    CATString m_workshop;
    CATString m_workbench;
    CATUnicodeString m_pendingMessage; // said by the selection check, shown and cleared afterwards
};

/// Makes the command; the command tree owns it.
extern "C" WB_EXPORT CATCommand* fctCreateCATTEQWBComputePartCmd();
