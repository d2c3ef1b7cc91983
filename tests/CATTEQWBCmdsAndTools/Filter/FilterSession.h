#pragma once

#include "CATTEQWBDefineFilterCmd.h"

#include "../NavigatorSession.h"

class FakeFilterPanel : public PanelDouble<CATWBVPMNavFilterPanel>
{
public:
    using PanelDouble::PanelDouble;

    void SetPRCId(const CATUnicodeString& rootIdentifier) override
    {
        calls.push_back("root " + rootIdentifier.ToStdString());
    }
    void SetCurrentFilters() override
    {
        calls.emplace_back(IsVisible() ? "current filters too late" : "current filters");
    }
    void AddValuesInMultiList(const CATUnicodeString& instance, const CATUnicodeString& part,
                              const CATUnicodeString& version, const CATUnicodeString& path,
                              int count) override
    {
        calls.push_back(InstanceText(instance, part, version, path, count));
    }
    CATDlgPushButton* GetOkButton() override { return m_ok; }
    CATDlgPushButton* GetCancelButton() override { return m_cancel; }

    static CATWBVPMNavFilterPanel* Create(CATCommand* parent)
    {
        return new FakeFilterPanel(parent);
    }

private:
    CATDlgPushButton* m_ok = MakeButton("OkButton");
    CATDlgPushButton* m_cancel = MakeButton("CancelButton");
};

class FilterCommand : public NavigatorSession<CATTEQWBDefineFilterCmd, FakeFilterPanel>
{
public:
    static constexpr const char* kName = "CATTEQWBDefineFilterCmd";
    static constexpr NavigatorPrompts kPrompts{
        kName, "Select the instances that the filter shall take in or leave out",
        "Wählen Sie die Instanzen, die der Filter aufnehmen oder auslassen soll",
        "Select one or several Part Instances in the product structure"};

protected:
    FilterCommand() : NavigatorSession(fctCreateCATTEQWBDefineFilterCmd, Panels()) {}
    ~FilterCommand() override
    {
        EXPECT_THAT(boxes, testing::IsEmpty()) << "the command shows no boxes of its own";
    }

private:
    static CATWBVPMNavGUITable Panels()
    {
        CATWBVPMNavGUITable panels;
        panels.createFilterPanel = FakeFilterPanel::Create;
        return panels;
    }
};
