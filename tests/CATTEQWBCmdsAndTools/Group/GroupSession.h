#pragma once

#include "CATWBVPMNavGroup.h"

#include "../NavigatorSession.h"

#include <set>

class FakeGroupPanel : public PanelDouble<CATWBVPMNavGroupPanel>
{
public:
    FakeGroupPanel(CATCommand* parent, const CATUnicodeString& root, const CATUnicodeString& part,
                   const CATUnicodeString& version)
        : PanelDouble(parent)
    {
        calls.push_back(("made for " + root + ", " + part + ", " + version).ToStdString());
    }

    bool IsInstanceInputActive() const override { return instancesWanted > 0; }
    void AddValuesInMultiList(const CATUnicodeString& instance, const CATUnicodeString& part,
                              const CATUnicodeString& version, const CATUnicodeString& path,
                              int count, const CATUnicodeString& partName) override
    {
        calls.push_back((IsVisible() ? "" : "while hidden: ") +
                        InstanceText(instance, part, version, path, count) + ", " +
                        partName.ToStdString());
    }
    void SetWMMInstance(CATUnicodeString instance, CATUnicodeString part, CATUnicodeString version,
                        CATUnicodeString path, int count) override
    {
        calls.push_back("wanted: " + InstanceText(instance, part, version, path, count));
        --instancesWanted;
    }
    CATDlgPushButton* GetCloseButton() override { return m_close; }

    static CATWBVPMNavGroupPanel* Create(CATCommand* parent, const CATUnicodeString& root,
                                         const CATUnicodeString& part,
                                         const CATUnicodeString& version)
    {
        return new FakeGroupPanel(parent, root, part, version);
    }

    int instancesWanted = 0; ///< after so many the panel takes no more

private:
    CATDlgPushButton* m_close = MakeButton("CloseButton");
};

/// A filter that leaves out the parts that a test names, and keeps what it was asked.
class FakeFilter
{
public:
    static bool IsValid(const CATUnicodeString& root, const CATUnicodeString& instance,
                        const CATUnicodeString& part, const CATUnicodeString& version, int count,
                        const CATUnicodeString& path)
    {
        s_asked.push_back(root.ToStdString() + ": " +
                          InstanceText(instance, part, version, path, count));
        return s_leavesOut.count(part.ToStdString()) == 0;
    }
    static inline std::set<std::string> s_leavesOut;
    static inline std::vector<std::string> s_asked;
};

class GroupCommand : public NavigatorSession<CATWBVPMNavGroup, FakeGroupPanel>
{
public:
    static constexpr const char* kName = "CATWBVPMNavGroup";
    // The command prompts as the one that computes a part does.
    static constexpr NavigatorPrompts kPrompts{
        "CATTEQWBComputePartCmd", "Select a part or an assembly",
        "Wählen Sie ein Teil oder eine Baugruppe", "Select a Part in VPM Navigator"};

protected:
    GroupCommand() : NavigatorSession(fctCreateCATWBVPMNavGroup, Panels()) {}
    ~GroupCommand() override
    {
        FakeFilter::s_leavesOut.clear();
        FakeFilter::s_asked.clear();
    }

    /// Picks the fuselage, which opens the panel, and forgets what came of it.
    void StartWithPanel()
    {
        Start();
        server->record = kFuselage;
        ASSERT_TRUE(CATOfferPick({PathToFuselage()}));
        ASSERT_NE(Panel(), nullptr);
        Panel()->calls.clear();
        FakeFilter::s_asked.clear();
        server->calls.clear();
    }

private:
    static CATWBVPMNavGUITable Panels()
    {
        CATWBVPMNavGUITable panels;
        panels.createGroupPanel = FakeGroupPanel::Create;
        panels.isFilterValid = FakeFilter::IsValid;
        return panels;
    }
};
