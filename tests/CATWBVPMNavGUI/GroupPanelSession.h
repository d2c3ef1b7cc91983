#pragma once

#include "GroupProduct.h"
#include "PanelChecks.h"
#include "PanelSession.h"
#include "ReportPanelSession.h"
#include "WBGroupPanel.h"

#include <QTabWidget>

/// A group panel of LA1 in a session with a main window, LA1 open in the navigator, and a server
/// that reports the product of the group tests.
class GroupPanelSession : public PanelSession
{
protected:
    GroupPanelSession()
    {
        m_window = new CATDlgDialog(&CATSession::Root(), "Main", 0x4001);
        m_frame = std::make_unique<CATApplicationFrame>(m_window);
        m_table = CATWBVPMNavGUISetTable({});
        CATDlgNotify::SetAnswerer([this](const CATDlgNotify::Shown& box) {
            boxes.push_back({box.title.ToStdString(), box.text.ToStdString(), box.style});
            return std::optional(answer == Answer::Cancel ? box.cancel.value_or(box.no)
                                 : answer == Answer::Yes  ? box.yes
                                                          : box.no);
        });
        OpenProduct("LA1");
        server->answers["WBMakeReport"] = kGroupReport;
    }
    ~GroupPanelSession() override
    {
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
        panel = new WBGroupPanel(m_window, "LA1");
        panel->Build();
        panel->SetVisibility(true);
        Settle();
    }
    /// As a later session finds it.
    void OpenAgain()
    {
        delete panel;
        CATSettingRepository::CloseAll();
        Open();
    }
    template <class T>
    T* Find(const char* name) const
    {
        return FindBelow<T>(*panel, name);
    }
    /// The control of that name on that page.
    template <class T>
    T* On(const char* page, const char* name) const
    {
        return FindBelow<T>(*Find<CATDlgTabPage>(page), name);
    }
    static constexpr const char* kInstances = "InstancesPage";
    static constexpr const char* kCriteria = "CriteriaPage";
    static constexpr const char* kFound = "FoundPage";

    std::string Text(const char* label) const
    {
        return Find<CATDlgLabel>(label)->Title().ToStdString();
    }
    CATDlgMultiList* List(const char* page) const { return On<CATDlgMultiList>(page, "List"); }
    CATDlgMultiList* Found() const { return List(kFound); }
    static std::vector<std::string> Column(const CATDlgMultiList& list, int column)
    {
        std::vector<std::string> cells;
        for (int row = 1; row <= list.RowCount(); ++row) {
            cells.push_back(list.Cell(column, row).ToStdString());
        }
        return cells;
    }
    std::vector<std::string> Remarks() const { return Column(*List(kInstances), 5); }

    static void Press(const CATDialog& control)
    {
        auto* button = qobject_cast<QAbstractButton*>(control.Widget());
        ASSERT_TRUE(button->isEnabled()) << control.Name().Text();
        button->click();
        Settle();
    }
    void Click(const char* page, const char* name) const { Press(*On<CATDialog>(page, name)); }
    /// A button of the last line.
    void Click(const char* name) const { Press(*Find<CATDialog>(name)); }
    bool IsUsable(const char* page, const char* name) const
    {
        return On<CATDialog>(page, name)->Widget()->isEnabled();
    }
    void GoTo(const char* page) const
    {
        auto* tabs = qobject_cast<QTabWidget*>(Find<CATDlgTabContainer>("Pages")->Widget());
        tabs->setCurrentIndex(page == kInstances ? 0 : page == kCriteria ? 1 : 2);
        Settle();
    }
    void Pick(const WBPickedInstance& picked, const char* name = "") const
    {
        std::string path;
        for (const CATUnicodeString& above : picked.path) {
            path += (path.empty() ? "" : "|") + above.ToStdString();
        }
        panel->AddValuesInMultiList(picked.instance, picked.part, picked.version, path,
                                    static_cast<int>(picked.path.size()), name);
    }
    void PickValue(const WBPickedInstance& picked) const
    {
        panel->SetWMMInstance(picked.instance, picked.part, picked.version,
                              picked.path.empty() ? "" : picked.path.front(),
                              static_cast<int>(picked.path.size()));
    }
    void Choose(const char* combo, const char* line) const
    {
        auto* box = qobject_cast<QComboBox*>(On<CATDlgCombo>(kCriteria, combo)->Widget());
        const int index = box->findText(QString::fromUtf8(line));
        ASSERT_GE(index, 0) << line;
        box->setCurrentIndex(index);
        Settle();
    }
    std::vector<std::string> Lines(const char* page, const char* combo) const
    {
        const auto* box = On<CATDlgCombo>(page, combo);
        std::vector<std::string> lines;
        for (int line = 0; line < box->LineCount(); ++line) {
            lines.push_back(box->Line(line).ToStdString());
        }
        return lines;
    }
    void AddCriterion(const char* attribute, const char* comparison, const char* value) const
    {
        Choose("Attribute", attribute);
        Choose("Comparison", comparison);
        On<CATDlgEditor>(kCriteria, "Value")->SetText(value);
        Click(kCriteria, "AddButton");
    }
    void SaveAs(const char* page, const char* name) const
    {
        On<CATDlgEditor>(page, "Name")->SetText(name);
        Click(page, "SaveButton");
    }
    void Retrieve(const char* page, const char* name) const
    {
        auto* box = qobject_cast<QComboBox*>(On<CATDlgCombo>(page, "Stored")->Widget());
        box->setCurrentIndex(box->findText(QString::fromUtf8(name)));
        Click(page, "RetrieveButton");
    }
    CATDlgDialog* Window() const { return m_window; }

    enum class Answer
    {
        Yes,
        No,
        Cancel
    };
    struct ShownBox
    {
        std::string title;
        std::string text;
        int style;
    };
    static constexpr int kErrorStyle = 0x10000000;
    static constexpr int kWarningStyle = 0x8000000;

    WBGroupPanel* panel = nullptr;
    std::vector<ShownBox> boxes;
    Answer answer = Answer::Yes;

private:
    CATDlgDialog* m_window = nullptr;
    std::unique_ptr<CATApplicationFrame> m_frame;
    CATWBVPMNavGUITable m_table;
};
