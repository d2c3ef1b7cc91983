#pragma once

#include "CATDlgControls.h"
#include "CATDlgDialog.h"

/// The group panel: collects the instances that the user picks into groups, by hand or by criteria,
/// and says what each group weighs. Closing it, by its frame (WindowClosed) or its close button
/// (Activated), hides it.
class WB_EXPORT CATWBVPMNavGroupPanel : public CATDlgDialog
{
public:
    /// Makes the panel through the table of the panels library, hidden and without controls: the
    /// root whose groups it holds, and part and version of the first picked instance. Null when no
    /// panels library is registered.
    static CATWBVPMNavGroupPanel* Create(CATCommand* parent, const CATUnicodeString& root,
                                         const CATUnicodeString& part,
                                         const CATUnicodeString& version);
    /// The panel's dialog name.
    static constexpr const char* kName = "CATWBVPMNavGroupPanel";

    // Slot order is binary interface: append, never sort.
    /// Lays out the controls; called once, before the panel is shown.
    virtual void Build() = 0;
    /// Whether the panel waits for one instance, which SetWMMInstance gives it. The panel itself
    /// sets and clears it.
    virtual bool IsInstanceInputActive() const = 0;
    /// Adds a picked instance to the group: its name, part identifier and version, the `count`
    /// instance names from its parent up to just below the root, joined by "|", and the part's
    /// name, which is empty when the session does not ask for names.
    virtual void AddValuesInMultiList(const CATUnicodeString& instance,
                                      const CATUnicodeString& part, const CATUnicodeString& version,
                                      const CATUnicodeString& path, int count,
                                      const CATUnicodeString& partName) = 0;
    /// Gives the panel the instance that it waits for.
    virtual void SetWMMInstance(CATUnicodeString instance, CATUnicodeString part,
                                CATUnicodeString version, CATUnicodeString path, int count) = 0;
    virtual CATDlgPushButton* GetCloseButton() = 0;

protected:
    explicit CATWBVPMNavGroupPanel(CATCommand* parent);
};
