#pragma once

#include "OpenPanelSession.h"
#include "WBReportOpening.h"
#include "WBReportPanel.h"

/// A preview that was asked for in the place of a real one.
struct OpenedPreview
{
    int kind;
    std::string selection;
    CATIDOMDocument_var document;
    int flag;
    CATDialog* window;
};

/// A report panel in a session with a main window, LA1 open in the navigator, and a server that
/// makes small reports.
class ReportPanelSession : public OpenPanelSession<WBReportPanel>
{
protected:
    ReportPanelSession()
    {
        Previews().clear();
        m_makers = WBSetPreviewMakers({Note<0>, Note<1>, Note<2>});
        OpenProduct("LA1");
        server->answers["WBGetMassTypesAndAttrNames"] =
            R"(<n><massType name="Computed"/><massType name="Weighed"/>)"
            R"(<attrName name="Location"/><attrName name="Operating_time"/><attrName name="Vendor"/></n>)";
        server->answers["WBMakeReport"] = kReport;
    }
    ~ReportPanelSession() override
    {
        Previews().clear();
        WBSetPreviewMakers(m_makers);
    }

    void Open() { Show(new WBReportPanel(Window())); }
    /// The control of that name in that frame.
    template <class T>
    T* FindIn(const char* frame, const char* name) const
    {
        return FindBelow<T>(*Find<CATDlgFrame>(frame), name);
    }
    CATDlgMultiList* Instances() const { return FindIn<CATDlgMultiList>("Instances", "List"); }
    CATDlgMultiList* Properties() const { return FindIn<CATDlgMultiList>("Properties", "List"); }
    void Pick(const char* instance, const char* part = "P", const char* path = "",
              int count = 0) const
    {
        panel->SetWMMInstance(instance, part, "A", path, count);
    }
    std::vector<std::string> Requests() const { return server->CallsOf("WBMakeReport"); }
    static std::vector<OpenedPreview>& Previews()
    {
        static std::vector<OpenedPreview> previews;
        return previews;
    }
    /// An attribute of the first element of that name in the report that was opened last.
    static std::string Opened(const char* tag, const char* attribute)
    {
        CATUnicodeString value = "(none)";
        Previews().back().document->ElementsByTagName(tag)->Item(0)->AsElement()->GetAttribute(
            attribute, value);
        return value.ToStdString();
    }

    static constexpr const char* kReport =
        R"(<WB_Report Root="LA1"><PRC PRC_ID="LA1" WB_Mass="2" COGx="100" COGy="0" COGz="0" )"
        R"(MOIxx="1" MOIyy="2" MOIzz="3" POIxy="0" POIxz="0" POIyz="0">)"
        R"(<WB_Section Name="W" WB_Mass="2"/>)"
        R"(<PartInstance Part_ID="P" Instance_ID="P.1" WB_Mass="2"/></PRC></WB_Report>)";

    WBPreviewMakers RealMakers() const { return m_makers; }

private:
    template <int kind>
    static CATDialog* Note(const CATUnicodeString& selection, const CATIDOMDocument_var& document,
                           unsigned char flag)
    {
        auto* window =
            new CATDlgDialog(CATApplicationFrame::GetFrame()->MainWindow(), "Preview", 0x4001);
        Previews().push_back({kind, selection.ToStdString(), document, flag, window});
        return window;
    }

    WBPreviewMakers m_makers{};
};
