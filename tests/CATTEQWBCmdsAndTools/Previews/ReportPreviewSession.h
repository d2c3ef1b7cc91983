#pragma once

#include "PreviewSession.h"

#include "CATWBVPMNavReportPreview.h"

/// As the server's report arrives at a preview: a root, a leg with a foot, and another leg.
constexpr const char* kReport =
    R"(<WB_Report><PRC WB_Mass="200" PRC_ID="LA1" COGx="10" WBActiveMassTypeID="Weighed">)"
    R"(<PartInstance instIdAttrAlias="Instance_ID" Name="Leg" Part_ID="P2" WB_Mass="1.5")"
    R"( Instance_ID="Leg.2" WBActiveMassTypeID="Weighed" WB_Last_calculation_date="2025/12/01">)"
    R"(<PartInstance instIdAttrAlias="Instance_ID" Name="Foot" Part_ID="P3" Instance_ID="Foot.1")"
    R"( Reach="3" __magnitude__Reach="LENGTH"/></PartInstance>)"
    R"(<PartInstance instIdAttrAlias="Instance_ID" Instance_ID="Leg.1" WB_Mass="2"/>)"
    R"(</PRC></WB_Report>)";

/// A preview that says which of its operations were called.
class HeardPreview : public CATWBVPMNavReportPreview
{
public:
    using CATWBVPMNavReportPreview::CATWBVPMNavReportPreview;
    using CATWBVPMNavReportPreview::operator=;
    void OnSaveNotification() override
    {
        calls.emplace_back("Save");
        CATWBVPMNavReportPreview::OnSaveNotification();
    }
    void OnCloseNotification() override
    {
        calls.emplace_back("Close");
        CATWBVPMNavReportPreview::OnCloseNotification();
    }
    void OnUnitsDisplayNotification() override
    {
        calls.emplace_back("Units");
        CATWBVPMNavReportPreview::OnUnitsDisplayNotification();
    }
    void OnTrailingZeroNotification() override
    {
        calls.emplace_back("TrailingZero");
        CATWBVPMNavReportPreview::OnTrailingZeroNotification();
    }
    void OnTrailingDigitsNotification() override
    {
        calls.emplace_back("TrailingDigits");
        CATWBVPMNavReportPreview::OnTrailingDigitsNotification();
    }
    void OnSaveToNotification() override
    {
        calls.emplace_back("SaveTo");
        CATWBVPMNavReportPreview::OnSaveToNotification();
    }
    void UpdatePreviewPanelList() override
    {
        calls.emplace_back("Update");
        CATWBVPMNavReportPreview::UpdatePreviewPanelList();
    }

    std::vector<std::string> calls;
};

/// A session with one report and its preview.
class ReportPreview : public PreviewSession
{
protected:
    /// A preview of the report that is not built; the session owns it.
    HeardPreview& Make(const std::string& text = kReport, const char* selection = "Legs")
    {
        document = Parsed(text);
        return Of(document, selection);
    }
    HeardPreview& Of(const CATIDOMDocument_var& shown, const char* selection = "Legs")
    {
        preview = new HeardPreview(selection, shown, 0); // the command tree owns it
        watch = preview;
        return *preview;
    }
    HeardPreview& Built(const std::string& text = kReport, const char* selection = "Legs")
    {
        Make(text, selection).Build();
        return *preview;
    }
    CATDlgMultiList& Instances() const
    {
        return Find<CATDlgMultiList>(*preview, "ReportMultiListInst");
    }
    CATDlgMultiList& Roots() const { return Find<CATDlgMultiList>(*preview, "ReportMultiListPRC"); }
    CATDlgCheckButton& Units() const { return Find<CATDlgCheckButton>(*preview, "UnitsDisplay"); }
    CATDlgCheckButton& Zeros() const { return Find<CATDlgCheckButton>(*preview, "TrailingZero"); }
    CATDlgSpinner& Digits() const { return Find<CATDlgSpinner>(*preview, "DigitsDisplay"); }
    /// The column of the list of instances that has this title, row by row.
    std::vector<std::string> Column(const std::string& title) const
    {
        const std::vector<std::string> titles = Titles(Instances());
        const auto found = std::find(titles.begin(), titles.end(), title);
        const auto column = static_cast<std::size_t>(found - titles.begin());
        std::vector<std::string> cells;
        for (const std::vector<std::string>& row : Rows(Instances())) {
            cells.push_back(row.at(column));
        }
        return cells;
    }

    CATIDOMDocument_var document;
    HeardPreview* preview = nullptr;
    CATCommandWatch<CATWBVPMNavReportPreview> watch;
};
