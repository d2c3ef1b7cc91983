#pragma once

#include "CATDlgControls.h"
#include "CATDlgMultiList.h"
#include "WBDefinedFilter.h"
#include "WBPanelTexts.h"

/// The part of the filter panel that shows the lines of one filter, and changes them as the user
/// says.
class WBFilterLines : public CATDlgFrame
{
public:
    explicit WBFilterLines(CATDialog* window);

    static const CATEvent Changed; ///< the user changed lines by the buttons here

    /// Shows the lines of a filter of that root, as the product is now.
    void Show(const CATUnicodeString& root, std::vector<WBFilterLine> lines);
    /// Shows a text and no lines; none can be changed then.
    void ShowText(const CATUnicodeString& text);
    const std::vector<WBFilterLine>& Lines() const { return m_lines; }

    /// Appends a line for an instance, in or out as the user chose for new ones. False when there
    /// is one already; either way the line is selected.
    bool Add(const WBPickedInstance& picked);

private:
    WBPanelTable Table() const;
    WBPanelRow Cells(const WBFilterLine& line) const;
    void WriteRow(int row);
    void Toggle();
    void Move(int by);
    void Remove();
    void ShowWhatCanBeDone();

    CATUnicodeString m_root;
    std::vector<WBFilterLine> m_lines;

    // Controls belong to the controls that they stand in.
    CATDlgMultiList* m_list;
    CATDlgCombo* m_newLines = nullptr;
    CATDlgPushButton* m_toggle = nullptr;
    CATDlgPushButton* m_up = nullptr;
    CATDlgPushButton* m_down = nullptr;
    CATDlgPushButton* m_remove = nullptr;
};
