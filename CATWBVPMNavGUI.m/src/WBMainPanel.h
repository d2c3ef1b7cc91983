#pragma once

#include "CATWBVPMMainPanel.h"

#include "CATWBAllDataBuffer.h"

#include "CATHandle.h"

#include "WBComputeBar.h"
#include "WBSetTexts.h"
#include "WBShowing.h"
#include "WBSumTexts.h"
#include "WBUnitWatch.h"

#include <memory>

class CATDlgFrame;
class CATDlgMultiList;

/// The main panel as users see it: who the part is, its active mass and centre of gravity, behind
/// tabs everything else that is known, and a bar to have Computed computed. Every text can be
/// selected and copied. Values stand in the current units, also when these change; what a
/// computation changed is marked until the next record.
class WBMainPanel : public CATWBVPMMainPanel
{
public:
    WBMainPanel(CATCommand* parent, CATWBAllDataBuffer* record);

    const char* ClassName() const override;
    CATString GetResourceFilename(int level) const override;
    /// What failed was the panel's own action: it stays open and shows its record anew.
    bool RecoverFromFault() override;
    void SetModel(CATWBAllDataBuffer* record) override;
    CATDlgPushButton* GetCloseButton() override;

private:
    void BuildHeading();
    void BuildSummary(CATDlgFrame* frame);
    void BuildPages();
    void BuildMassTypes(CATDlgTabContainer* tabs);
    void BuildValues(CATDlgTabContainer* tabs);
    void BuildInertia(CATDlgTabContainer* tabs);
    void BuildSum(CATDlgTabContainer* tabs);
    void BuildShares(CATDlgTabPage* page);
    void BuildImposed(CATDlgTabContainer* tabs);
    void BuildMaterial(CATDlgTabContainer* tabs);
    void BuildDocuments(CATDlgTabContainer* tabs);
    void BuildProperties(CATDlgTabContainer* tabs);
    void BuildPosition(CATDlgTabContainer* tabs);
    void BuildComputeBar();
    void BuildLastLine();

    /// Shows the record as it came, the active mass type selected and nothing marked.
    void Fill();
    /// Reads the record and what the server says beside it.
    void Read();
    /// Shows what was read, in the current units.
    void ShowRecord(WBTableWriter write);
    void ShowSelectedMassType(WBShowing& showing);
    void ShowMaterial(WBShowing& showing);
    void ShowDocuments(WBShowing& showing);
    /// The active mass type's row of the table, 0 where it has none.
    int ActiveRow() const;
    /// Shows the mass type in that row of the table on the pages of one mass type; 0: none.
    void SelectMassType(int row);
    /// The same mass type in a record that lists it; else null.
    const WBPanelMassType* SelectedIn(const WBPanelRecord& record) const;

    void Compute();
    /// The server's answer; nothing, after a box, when it is none.
    std::optional<CATUnicodeString> AskForComputation(const CATUnicodeString& request);
    void Take(const CATUnicodeString& answer, const WBComputationChoice& choice);

    CATHandle<CATWBAllDataBuffer> m_record;
    WBPanelRecord m_shown;                 // what the record said when it was read
    std::optional<WBPanelRecord> m_before; // and before the last computation
    std::optional<WBComputationChoice> m_computed;
    CATUnicodeString m_request; // of the values that are shown
    int m_selectedRow = 0;      // of the mass type that the pages of one mass type show

    // Controls belong to the controls that they stand in.
    std::vector<WBFactLabel<WBPanelSummary>> m_summary;
    CATDlgLabel* m_upToDate = nullptr;
    CATDlgLabel* m_unusualSum = nullptr;
    CATDlgMultiList* m_massTypes = nullptr;
    std::vector<WBFactLabel<WBSetFacts>> m_set;
    CATDlgMultiList* m_setFigures = nullptr;
    std::vector<WBFactLabel<WBInertiaFacts>> m_inertiaFacts;
    CATDlgMultiList* m_inertia = nullptr;
    CATDlgMultiList* m_principal = nullptr;
    CATDlgLabel* m_what = nullptr;
    std::vector<WBFactLabel<WBSumFacts>> m_sum;
    CATDlgMultiList* m_massTypeShares = nullptr;
    CATDlgMultiList* m_codes = nullptr;
    CATDlgMultiList* m_warnings = nullptr;
    CATDlgTabPage* m_imposedPage = nullptr;
    CATDlgLabel* m_imposedWords = nullptr;
    CATDlgMultiList* m_imposed = nullptr;
    std::vector<WBFactLabel<WBMaterialFacts>> m_material;
    CATDlgMultiList* m_materials = nullptr;
    std::vector<WBFactLabel<WBDocumentFacts>> m_documents;
    CATDlgMultiList* m_revisions = nullptr;
    CATDlgMultiList* m_properties = nullptr;
    CATDlgLabel* m_placementWords = nullptr;
    CATDlgMultiList* m_placement = nullptr;
    CATDlgLabel* m_marks = nullptr;
    CATDlgPushButton* m_close = nullptr;
    std::unique_ptr<WBComputeBar> m_computeBar;

    WBUnitWatch m_unitWatch; // last: it goes before what it writes to
};
