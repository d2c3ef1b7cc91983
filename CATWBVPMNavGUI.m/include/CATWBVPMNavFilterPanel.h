#pragma once

#include "CATDlgControls.h"
#include "CATDlgDialog.h"

/// The filter panel: shows the filters of a root, lets the user change them and choose the one that
/// computations use. Leaving it, by its frame (WindowClosed), its OK or its Cancel button
/// (Activated), hides it; OK keeps what was done, the others do not.
class WB_EXPORT CATWBVPMNavFilterPanel : public CATDlgDialog
{
public:
    /// Makes the panel through the table of the panels library, hidden and without controls. Null
    /// when no panels library is registered.
    static CATWBVPMNavFilterPanel* Create(CATCommand* parent);
    /// The panel's dialog name.
    static constexpr const char* kName = "CATWBVPMNavFilterPanel";

    /// The filter text of a root, as the server takes it; "0|No Filter" where none is defined or no
    /// panels library is registered.
    static CATUnicodeString GetFilter(const CATUnicodeString& rootIdentifier);
    /// The root's filter as users read it; the catalog's text for no filter where no panels library
    /// is registered.
    static CATUnicodeString GetDisplayFilter(const CATUnicodeString& rootIdentifier);
    /// Whether the filter of the root lets a picked instance in: its name, part identifier and
    /// version, and the `count` instance names from its parent up to just below the root, joined by
    /// "|". True where no panels library is registered.
    static bool IsValid(const CATUnicodeString& root, const CATUnicodeString& instance,
                        const CATUnicodeString& part, const CATUnicodeString& version,
                        const int& count, const CATUnicodeString& path);
    /// The configuration handler of the current root, as the object service takes it; "NoConfig"
    /// until one is chosen.
    static CATUnicodeString selectedPRCConfigHandler;

    // Slot order is binary interface: append, never sort.
    /// Tells the panel whose filters it holds. The identifier it has already changes nothing.
    virtual void SetPRCId(const CATUnicodeString& rootIdentifier) = 0;
    /// Lays out the controls; called once, before the panel is shown. It may be called without a
    /// root identifier: then there is nothing to filter.
    virtual void Build() = 0;
    /// Shows the root's filters as they are kept, in place of what the panel shows.
    virtual void SetCurrentFilters() = 0;
    /// Adds a picked instance to the lines of the filter; the arguments are those of IsValid.
    virtual void AddValuesInMultiList(const CATUnicodeString& instance,
                                      const CATUnicodeString& part, const CATUnicodeString& version,
                                      const CATUnicodeString& path, int count) = 0;
    virtual CATDlgPushButton* GetOkButton() = 0;
    virtual CATDlgPushButton* GetCancelButton() = 0;

protected:
    explicit CATWBVPMNavFilterPanel(CATCommand* parent);
};
