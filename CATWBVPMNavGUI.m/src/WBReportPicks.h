#pragma once

#include "CATDlgControls.h"
#include "CATDlgMultiList.h"
#include "WBPickedInstances.h"

/// The part of the report panel that collects what the user picks.
class WBReportPicks : public CATDlgFrame
{
public:
    explicit WBReportPicks(CATDialog* window);

    static const CATEvent TakenOut; ///< the user took instances out of the list

    /// Whether picks belong into the list: the user's check, on at first.
    bool IsInputActive() const;
    /// Adds an instance of the present root; false when it is there already.
    bool Add(const WBPickedInstance& picked);
    /// The root that is open now. False when instances of another one had to go.
    bool SetRoot(const CATUnicodeString& root);
    const WBPickedInstances& Picked() const { return m_picked; }

private:
    void Remove();
    void Clear();
    void Show();
    void ShowWhatCanBeTakenOut();

    WBPickedInstances m_picked;

    // Controls belong to the controls that they stand in.
    CATDlgMultiList* m_list;
    CATDlgCheckButton* m_addPicked;
    CATDlgPushButton* m_remove;
    CATDlgPushButton* m_clear;
};
