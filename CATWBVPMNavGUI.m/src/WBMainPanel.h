#pragma once

#include "CATWBVPMMainPanel.h"

#include "CATWBAllDataBuffer.h"

#include "CATHandle.h"
#include "CATServerCallWatch.h"

#include "WBChangesPage.h"
#include "WBComputeBar.h"
#include "WBPanelEditing.h"
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
///
/// What somebody stated can be edited in place. Edits stay in the panel until they are applied; no
/// pick, computation or closing loses them unasked.
class WBMainPanel : public CATWBVPMMainPanel
{
public:
    WBMainPanel(CATCommand* parent, CATWBAllDataBuffer* record);

    const char* ClassName() const override;
    CATString GetResourceFilename(int level) const override;
    /// What failed was the panel's own action: it stays open, keeps its edits and shows its record
    /// anew.
    bool RecoverFromFault() override;
    /// Where edits are not applied the user is asked first, and may stay with the present record.
    void SetModel(CATWBAllDataBuffer* record) override;
    CATDlgPushButton* GetCloseButton() override;

private:
    void BuildHeading();
    void BuildSummary(CATDlgFrame* frame);
    void BuildPages();
    void BuildMassTypes(CATDlgTabContainer* tabs);
    void BuildValues(CATDlgTabContainer* tabs);
    void BuildStatedValues(CATDlgTabPage* page, int row);
    void BuildInertia(CATDlgTabContainer* tabs);
    void BuildStatedInertia(CATDlgTabPage* page, int row);
    void BuildSum(CATDlgTabContainer* tabs);
    void BuildShares(CATDlgTabPage* page);
    void BuildImposed(CATDlgTabContainer* tabs);
    void BuildMaterial(CATDlgTabContainer* tabs);
    void BuildDocuments(CATDlgTabContainer* tabs);
    void BuildProperties(CATDlgTabContainer* tabs);
    void BuildPosition(CATDlgTabContainer* tabs);
    void BuildChanges(CATDlgTabContainer* tabs);
    void BuildComputeBar();
    void BuildLastLine();

    /// Shows the record as it came, the active mass type selected and nothing marked.
    void Fill();
    /// Reads the record and what the server says beside it.
    void Read();
    /// Shows what was read, in the current units.
    void ShowRecord(WBTableWriter write);
    void ShowSelectedMassType(WBShowing& showing);
    void ShowFieldsOfSelectedMassType();
    void ShowSelectedProperty(WBShowing& showing);
    void ShowMaterial(WBShowing& showing);
    void ShowDocuments(WBShowing& showing);
    /// The active mass type's row of the table, 0 where it has none.
    int ActiveRow() const;
    /// Shows the mass type in that row of the table on the pages of one mass type; 0: none.
    void SelectMassType(int row);
    /// The same for a property.
    void SelectProperty(int row);
    /// The same mass type in a record that lists it; else null.
    const WBPanelMassType* SelectedIn(const WBPanelRecord& record) const;

    /// What the form edits: the selected mass type and property.
    void EditSelected();
    /// Reads the record anew from the server, and shows it in the place of what stands there.
    void ShowAnew();
    void HearOfServerCall(const CATUnicodeString& method);
    void LookAtChanges();

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
    int m_selectedProperty = 0; // from 1; 0: none

    // Controls belong to the controls that they stand in.
    std::vector<WBFactLabel<WBPanelSummary>> m_summary;
    CATDlgLabel* m_upToDate = nullptr;
    CATDlgLabel* m_unusualSum = nullptr;
    CATDlgTabContainer* m_tabs = nullptr;
    CATDlgMultiList* m_massTypes = nullptr;
    std::vector<WBFactLabel<WBSetFacts>> m_set;
    CATDlgFrame* m_statedValues = nullptr;
    CATDlgLabel* m_whyNoValues = nullptr;
    CATDlgTabPage* m_inertiaPage = nullptr;
    CATDlgFrame* m_statedInertia = nullptr;
    CATDlgLabel* m_whyNoInertia = nullptr;
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
    std::vector<WBFactLabel<WBPropertyFacts>> m_property;
    CATDlgLabel* m_placementWords = nullptr;
    CATDlgMultiList* m_placement = nullptr;
    CATDlgLabel* m_marks = nullptr;
    CATDlgPushButton* m_close = nullptr;
    std::unique_ptr<WBComputeBar> m_computeBar;
    std::unique_ptr<WBChangesPage> m_changes;
    WBPanelEditing m_editing;

    // Last: they go before what they write to.
    WBUnitWatch m_unitWatch;
    CATServerCallWatch m_serverWatch;
};
