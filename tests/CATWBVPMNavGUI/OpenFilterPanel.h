#pragma once

#include "FilterPanelSession.h"
#include "OpenPanelSession.h"

inline constexpr const char* kWing = "1|No wing|X|WNG-000.1|WNG-000|A|0";
inline constexpr const char* kFront = "1|Front alone|I|FUS-100.1|FUS-100|A|1|FUS-000.1";
inline constexpr const char* kDamaged = "2|No wing|X|WNG-000.1|WNG-000|A|0";

/// A filter panel in a session with a main window.
class OpenFilterPanel : public OpenPanelSession<WBFilterPanel, FilterSession>
{
protected:
    ~OpenFilterPanel() override
    {
        CATSession::Close();
        CATWBVPMNavFilterPanel::selectedPRCConfigHandler = "NoConfig";
    }

    /// As the command opens it.
    void Open(const char* root = "LA1")
    {
        auto* made = new WBFilterPanel(Window());
        made->SetPRCId(root);
        Show(made);
    }
    void Pick(const char* instance, const char* part = "P", const char* path = "",
              int count = 0) const
    {
        panel->AddValuesInMultiList(instance, part, "A", path, count);
    }
    void PickWing() const { Pick("WNG-000.1", "WNG-000"); }
    void PickFuselage() const { Pick("FUS-000.1", "FUS-000"); }
    void PickFront() const { Pick("FUS-100.1", "FUS-100", "FUS-000.1", 1); }
    CATDlgMultiList* List() const { return Find<CATDlgMultiList>("List"); }
    std::vector<std::string> Row(int row) const { return CellsOf(*List(), row); }
    /// Instance and in or out, line by line.
    std::vector<std::string> Lines() const
    {
        std::vector<std::string> lines;
        for (int row = 1; row <= List()->RowCount(); ++row) {
            lines.push_back(Row(row)[1] + " " + Row(row)[0]);
        }
        return lines;
    }
    std::vector<std::string> Filters() const { return LinesOf(*Find<CATDlgCombo>("Filter")); }
    std::string Chosen() const
    {
        const auto* combo = Find<CATDlgCombo>("Filter");
        return combo->Line(combo->SelectedIndex()).ToStdString();
    }
    std::string Name() const { return Typed("Name"); }
    bool IsOn() const { return Find<CATDlgCheckButton>("On")->IsChecked(); }
    void TypeName(const char* text) const { Type("Name", text); }
    static std::string Handler()
    {
        return CATWBVPMNavFilterPanel::selectedPRCConfigHandler.ToStdString();
    }
};
