#include "WBPreviewFrame.h"

#include "CATWBServices.h"

#include "CATMsgCatalog.h"

namespace
{

constexpr int kPlainFrame = 0x80001; // no title, no border
constexpr int kReadOnly = 0x4000000;
constexpr int kFillCell = 30;
constexpr int kKeepSize = 4;
constexpr int kErrorStyle = 0x10000000;
constexpr int kSelectionWidth = 30;
constexpr int kListWidth = 100;

/// Calls the handler whenever the publisher sends the event.
void Listen(CATDlgDialog& window, CATCommand* publisher, const CATEvent& event,
            const std::function<void()>& handler)
{
    window.Subscribe(publisher, event, [handler](const CATNotification&) { handler(); });
}

} // namespace

CATDlgEditor* AddPreviewSelection(CATDlgDialog& window, const WBPreviewCell& cell,
                                  const CATUnicodeString& selectionText)
{
    auto* frame = new CATDlgFrame(&window, "SelectionFrame", kPlainFrame);
    frame->SetPlacement(cell.row, cell.column, 1, cell.columns);
    auto* label = new CATDlgLabel(frame, "SelectionLabel");
    label->SetPlacement(0, 0);
    auto* editor = new CATDlgEditor(frame, "SelectionEditor", kReadOnly);
    editor->SetPlacement(0, 1);
    editor->SetVisibleTextWidth(kSelectionWidth);
    editor->SetText(selectionText);
    return editor;
}

CATDlgMultiList* AddPreviewList(CATDlgFrame& frame, const char* name, int row, int lines)
{
    auto* list = new CATDlgMultiList(&frame, name);
    list->SetPlacement(row, 0);
    list->SetVisibleLines(lines);
    list->SetVisibleTextWidth(kListWidth);
    return list;
}

void TakeListTexts(CATDlgMultiList& list, const char* catalog)
{
    const CATUnicodeString path = list.Parent()->Name() + "." + list.Name() + ".";
    list.SetAccessibleName(CATMsgCatalog::BuildMessage(catalog, path + "Name", "@" + list.Name()));
    list.SetEmptyText(CATMsgCatalog::BuildMessage(catalog, path + "EmptyText", "@Nothing to show"));
}

void AddPreviewButtons(CATDlgDialog& window, const char* frameName, const WBPreviewCell& cell,
                       std::initializer_list<WBPreviewButton> buttons)
{
    auto* frame = new CATDlgFrame(&window, frameName, kPlainFrame);
    frame->SetPlacement(cell.row, cell.column, 1, cell.columns, kKeepSize);
    int column = 0;
    for (const WBPreviewButton& each : buttons) {
        auto* button = new CATDlgPushButton(frame, each.name);
        button->SetPlacement(0, column, 1, 1, kFillCell);
        Listen(window, button, CATDlgPushButton::Activated, each.onPressed);
        ++column;
    }
}

bool AsksForStableOrder(CATDlgDialog& window, const DSTrace& trace)
{
    CATUnicodeString problem;
    const bool isUsed = CATWBServices::IsStableOrderUsed(problem);
    if (!problem.IsEmpty()) {
        trace.Line("Could not determine whether the stable order is used: ", problem);
        CATWBServices::DisplayMsg(&window,
                                  CATMsgCatalog::BuildMessage("CATWBVPMNavReportPanel",
                                                              "ToolsOptionsError001.Title",
                                                              "ToolsOptionsError001 title"),
                                  problem, kErrorStyle);
    }
    return isUsed;
}
