#pragma once

#include "CATDlgControls.h"
#include "CATDlgMultiList.h"
#include "WBReportRequest.h"

/// The part of the report panel in which the user says what kind of report it shall be and what
/// shall stand in it. What the kind has no use for is greyed and keeps its state.
class WBReportContents : public CATDlgFrame
{
public:
    explicit WBReportContents(CATDialog* window);

    static const CATEvent Changed; ///< the user chose another kind or other values

    /// The properties that can be taken; none of them is at first.
    void OfferProperties(const std::vector<CATUnicodeString>& names);
    WBReportKind Kind() const;
    bool HasCentre() const;  ///< whether centres of gravity are in the report
    bool HasInertia() const; ///< whether inertias are
    /// Fills the kind and what shall be there.
    void Read(WBReportOptions& options) const;

private:
    void BuildKinds();
    void BuildValues();
    void BuildProperties();
    void ShowWhatCounts();
    void ShowProperties();
    void TakeOrLeaveSelected();
    void TakeAll(bool isTaken);
    bool IsInReport(const char* value) const;

    std::vector<CATUnicodeString> m_propertyNames;
    std::vector<bool> m_isPropertyTaken;

    // Controls belong to the controls that they stand in.
    std::vector<CATDlgRadioButton*> m_kinds; // in the order of the kinds
    CATDlgCheckButton* m_everyInstance = nullptr;
    CATDlgFrame* m_valuesFrame = nullptr;
    std::vector<CATDlgCheckButton*> m_values; // in the order of the values' names
    CATDlgFrame* m_propertiesFrame = nullptr;
    CATDlgMultiList* m_properties = nullptr;
    CATDlgPushButton* m_takeOrLeave = nullptr;
    CATDlgPushButton* m_takeAll = nullptr;
    CATDlgPushButton* m_takeNone = nullptr;
};
