#pragma once

#include "GroupProduct.h"
#include "OpenPanelSession.h"
#include "WBGroupPanel.h"

#include <QTabWidget>

/// A group panel of LA1 in a session with a main window, LA1 open in the navigator, and a server
/// that reports the product of the group tests.
class GroupPanelSession : public OpenPanelSession<WBGroupPanel>
{
protected:
    GroupPanelSession()
    {
        OpenProduct("LA1");
        server->answers["WBMakeReport"] = kGroupReport;
    }
    void Open() { Show(new WBGroupPanel(Window(), "LA1")); }
    /// As a later session finds it.
    void OpenAgain()
    {
        delete panel;
        CATSettingRepository::CloseAll();
        Open();
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

    using OpenPanelSession::Click;
    void Click(const char* page, const char* name) const
    {
        Press(qobject_cast<QAbstractButton*>(On<CATDialog>(page, name)->Widget()));
    }
    using OpenPanelSession::IsUsable;
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
        return LinesOf(*On<CATDlgCombo>(page, combo));
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
};
