#pragma once

#include "CATWBVPMMainPanel.h"

#include "CATWBAllDataBuffer.h"

#include "CATHandle.h"

#include "WBPanelTexts.h"
#include "WBUnitWatch.h"

class CATDlgFrame;
class CATDlgMultiList;

/// The main panel as users see it: who the part is, its active mass and centre of gravity, and
/// behind tabs everything else that the record knows. It only reads: every text can be selected and
/// copied, none changed. Values stand in the current units, also when these change.
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
    void BuildMassTypes(CATDlgTabContainer* tabs);
    void BuildMaterial(CATDlgTabContainer* tabs);
    void BuildDocuments(CATDlgTabContainer* tabs);
    void BuildProperties(CATDlgTabContainer* tabs);
    void BuildPosition(CATDlgTabContainer* tabs);
    void BuildCloseButton();

    /// How a table comes into its list: as another one, or as the same rows in other units.
    using TableWriter = void (*)(CATDlgMultiList& list, const WBPanelTable& table);
    /// Reads the record and shows it, the active mass type selected.
    void Fill();
    /// Shows what was read, in the current units.
    void ShowRecord(TableWriter write);
    void FillHeadingAndSummary();
    void FillInertia(TableWriter write);
    void FillMaterial(TableWriter write);
    void FillDocuments(TableWriter write);
    /// The active mass type's row of the table, 0 where it has none.
    int ActiveRow() const;
    /// The inertia of the mass type in that row of the table; 0: of none.
    void ShowInertiaOf(int row);

    CATHandle<CATWBAllDataBuffer> m_record;
    WBPanelRecord m_shown; // what the record said when it was set
    int m_inertiaRow = 0;  // of the mass type whose inertia is shown

    // Controls belong to the controls that they stand in.
    CATDlgLabel* m_name = nullptr;
    CATDlgLabel* m_part = nullptr;
    CATDlgLabel* m_instance = nullptr;
    CATDlgLabel* m_path = nullptr;
    CATDlgLabel* m_upToDate = nullptr;
    CATDlgLabel* m_kind = nullptr;
    CATDlgLabel* m_active = nullptr;
    CATDlgLabel* m_imposed = nullptr;
    CATDlgLabel* m_mass = nullptr;
    CATDlgLabel* m_bounds = nullptr;
    CATDlgLabel* m_centre = nullptr;
    CATDlgMultiList* m_massTypes = nullptr;
    CATDlgLabel* m_inertiaHeading = nullptr;
    CATDlgMultiList* m_inertia = nullptr;
    CATDlgLabel* m_density = nullptr;
    CATDlgLabel* m_material = nullptr;
    CATDlgLabel* m_appliedOn = nullptr;
    CATDlgLabel* m_partDensity = nullptr;
    CATDlgLabel* m_partMaterial = nullptr;
    CATDlgLabel* m_priority = nullptr;
    CATDlgMultiList* m_materials = nullptr;
    CATDlgLabel* m_activeDocument = nullptr;
    CATDlgLabel* m_attachedRevision = nullptr;
    CATDlgLabel* m_computedOn = nullptr;
    CATDlgLabel* m_oldRevisions = nullptr;
    CATDlgLabel* m_specificRevision = nullptr;
    CATDlgLabel* m_saving = nullptr;
    CATDlgMultiList* m_revisions = nullptr;
    CATDlgMultiList* m_properties = nullptr;
    CATDlgLabel* m_placementWords = nullptr;
    CATDlgMultiList* m_placement = nullptr;
    CATDlgPushButton* m_close = nullptr;

    WBUnitWatch m_unitWatch; // last: it goes before what it writes to
};
