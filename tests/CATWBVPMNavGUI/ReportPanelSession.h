#pragma once

#include "PanelChecks.h"
#include "PanelSession.h"
#include "WBReportOpening.h"
#include "WBReportPanel.h"

#include "CATDlgNotify.h"
#include "CATNavigator.h"
#include "CATWBVPMNavGUITable.h"

#include <QComboBox>

/// Products that have nothing below them.
class LonelyProducts : public CATProductSource
{
public:
    std::vector<CATProductRow> Roots() override { return {}; }
    std::vector<CATProductRow> Uses(const CATUnicodeString&, const CATUnicodeString&) override
    {
        return {};
    }
};

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
class ReportPanelSession : public PanelSession
{
protected:
    ReportPanelSession()
    {
        m_window = new CATDlgDialog(&CATSession::Root(), "Main", 0x4001);
        m_frame = std::make_unique<CATApplicationFrame>(m_window);
        m_table = CATWBVPMNavGUISetTable({});
        CATDlgNotify::SetAnswerer([this](const CATDlgNotify::Shown& box) {
            boxes.push_back({box.title.ToStdString(), box.text.ToStdString(), box.style});
            return std::optional(1);
        });
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
        CATNavigator::Close();
        CATSession::Close();
        CATDlgNotify::SetAnswerer({});
        CATWBVPMNavGUISetTable(m_table);
    }

    static void OpenProduct(const char* root)
    {
        CATProductRow row;
        row.instance = root;
        row.part = root;
        row.version = "A";
        CATNavigator::Open(std::make_shared<LonelyProducts>(), row);
    }
    void Open()
    {
        panel = new WBReportPanel(m_window);
        panel->Build();
        panel->SetVisibility(true);
        Settle();
    }
    template <class T>
    T* Find(const char* name) const
    {
        return FindBelow<T>(*panel, name);
    }
    /// The control of that name in that frame.
    template <class T>
    T* FindIn(const char* frame, const char* name) const
    {
        return FindBelow<T>(*Find<CATDlgFrame>(frame), name);
    }
    CATDlgMultiList* Instances() const { return FindIn<CATDlgMultiList>("Instances", "List"); }
    CATDlgMultiList* Properties() const { return FindIn<CATDlgMultiList>("Properties", "List"); }
    std::string Text(const char* label) const
    {
        return Find<CATDlgLabel>(label)->Title().ToStdString();
    }
    std::string Typed(const char* field) const
    {
        return Find<CATDlgEditor>(field)->Text().ToStdString();
    }
    /// Whether the user can use it: neither it nor what it stands in is greyed.
    bool IsUsable(const char* name) const
    {
        return panel->Widget()->findChild<QWidget*>(name)->isEnabled();
    }
    void Click(const char* name) const
    {
        auto* button = panel->Widget()->findChild<QAbstractButton*>(name);
        ASSERT_TRUE(button->isEnabled()) << name;
        button->click();
        Settle();
    }
    void Choose(const char* combo, int line) const
    {
        qobject_cast<QComboBox*>(Find<CATDlgCombo>(combo)->Widget())->setCurrentIndex(line);
    }
    /// As the user does it: a character after the other.
    void Type(const char* field, const char* text) const
    {
        auto* editor = Find<CATDlgEditor>(field);
        editor->SetText(text);
        editor->Send(CATDlgEditor::Modified);
    }
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

    struct Box
    {
        std::string title;
        std::string text;
        int style;
    };
    static constexpr int kErrorStyle = 0x10000000;
    static constexpr int kWarningStyle = 0x8000000;
    static constexpr const char* kReport =
        R"(<WB_Report Root="LA1"><PRC PRC_ID="LA1" WB_Mass="2" COGx="100" COGy="0" COGz="0" )"
        R"(MOIxx="1" MOIyy="2" MOIzz="3" POIxy="0" POIxz="0" POIyz="0">)"
        R"(<WB_Section Name="W" WB_Mass="2"/>)"
        R"(<PartInstance Part_ID="P" Instance_ID="P.1" WB_Mass="2"/></PRC></WB_Report>)";

    WBReportPanel* panel = nullptr;
    std::vector<Box> boxes;

    CATDlgDialog* Window() const { return m_window; }
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

    CATDlgDialog* m_window = nullptr;
    std::unique_ptr<CATApplicationFrame> m_frame;
    CATWBVPMNavGUITable m_table;
    WBPreviewMakers m_makers{};
};
