#include "WBPanelControls.h"

#include <string>

CATDlgLabel* WBAddFact(CATDialog* parent, const char* name, int row, int column, int valueColumns)
{
    auto* caption = new CATDlgLabel(parent, std::string(name) + "Label");
    caption->SetRole(CATDlgLabel::Role::Caption);
    caption->SetPlacement(row, column);
    auto* value = new CATDlgLabel(parent, name);
    value->SetPlacement(row, column + 1, 1, valueColumns);
    return value;
}

CATDlgLabel* WBAddNote(CATDialog* parent, const char* name, int row, int columns)
{
    auto* note = new CATDlgLabel(parent, name);
    note->SetRole(CATDlgLabel::Role::Caption);
    note->SetPlacement(row, 0, 1, columns);
    return note;
}

CATDlgMultiList* WBAddList(CATDialog* parent, const char* name, int row,
                           const CATUnicodeString& emptyText, int column, int columns)
{
    auto* list = new CATDlgMultiList(parent, name);
    list->SetPlacement(row, column, 1, columns);
    list->SetEmptyText(emptyText);
    return list;
}
