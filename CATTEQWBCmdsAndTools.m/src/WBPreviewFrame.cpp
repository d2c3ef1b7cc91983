#include "WBPreviewFrame.h"

#include "CATWBServices.h"

#include "CATMsgCatalog.h"

#include <utility>

namespace
{

constexpr int kPlainFrame = 0x80001; // no title, no border
constexpr int kReadOnly = 0x4000000;
constexpr int kFillCell = 30;
constexpr int kKeepSize = 4;
constexpr int kErrorStyle = 0x10000000;
constexpr int kSelectionWidth = 30;
constexpr int kListWidth = 100;

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

CATDlgFrame* AddPreviewButtonFrame(CATDlgDialog& window, const char* name,
                                   const WBPreviewCell& cell)
{
    auto* frame = new CATDlgFrame(&window, name, kPlainFrame);
    frame->SetPlacement(cell.row, cell.column, 1, cell.columns, kKeepSize);
    return frame;
}

void AddPreviewButton(CATDlgDialog& window, CATDlgFrame& frame, const char* name, int column,
                      std::function<void()> onPressed)
{
    auto* button = new CATDlgPushButton(&frame, name);
    button->SetPlacement(0, column, 1, 1, kFillCell);
    window.Subscribe(button, CATDlgPushButton::Activated,
                     [onPressed = std::move(onPressed)](const CATNotification&) { onPressed(); });
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
