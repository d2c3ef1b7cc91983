#pragma once

#include "CATDlgControls.h"
#include "CATDlgDialog.h"
#include "CATDlgMultiList.h"
#include "CATTrace.h"

#include <functional>
#include <initializer_list>

/// What the windows of the previews have in common around their lists. The window owns all
/// controls.

/// A place in a grid, from 0.
struct WBPreviewCell
{
    int row;
    int column;
    int columns = 1;
};

/// A line that says what the report was made for.
CATDlgEditor* AddPreviewSelection(CATDlgDialog& window, const WBPreviewCell& cell,
                                  const CATUnicodeString& selectionText);

/// A list below those that the frame has; 100 characters wide, and as many lines high.
CATDlgMultiList* AddPreviewList(CATDlgFrame& frame, const char* name, int row, int lines);
/// Takes from the catalog what the list is called for those who hear it, and what is shown in its
/// place while it has no rows: "Name" and "EmptyText" below the names of its frame and its own.
void TakeListTexts(CATDlgMultiList& list, const char* catalog);

/// A row of buttons at the right.
CATDlgFrame* AddPreviewButtonFrame(CATDlgDialog& window, const char* name,
                                   const WBPreviewCell& cell);
void AddPreviewButton(CATDlgDialog& window, CATDlgFrame& frame, const char* name, int column,
                      std::function<void()> onPressed);

template <class Preview>
struct WBPreviewButton
{
    const char* name;
    void (Preview::*handler)();
};
template <class Preview>
void AddPreviewButtons(Preview& window, const char* frameName, const WBPreviewCell& cell,
                       std::initializer_list<WBPreviewButton<Preview>> buttons)
{
    CATDlgFrame* const frame = AddPreviewButtonFrame(window, frameName, cell);
    int column = 0;
    for (const WBPreviewButton<Preview>& each : buttons) {
        AddPreviewButton(window, *frame, each.name, column,
                         [&window, handler = each.handler] { (window.*handler)(); });
        ++column;
    }
}

/// Whether reports shall be shown in the navigator's stable order. When that cannot be told, the
/// user reads why, and the answer is false.
bool AsksForStableOrder(CATDlgDialog& window, const DSTrace& trace);
