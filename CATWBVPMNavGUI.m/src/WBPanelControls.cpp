#include "WBPanelControls.h"

#include <string>

void WBAddCaption(CATDialog* parent, const char* name, int row, int column)
{
    auto* caption = new CATDlgLabel(parent, std::string(name) + "Label");
    caption->SetRole(CATDlgLabel::Role::Caption);
    caption->SetPlacement(row, column);
}

CATDlgLabel* WBAddFact(CATDialog* parent, const char* name, int row, int column, int valueColumns)
{
    WBAddCaption(parent, name, row, column);
    auto* value = new CATDlgLabel(parent, name);
    value->SetPlacement(row, column + 1, 1, valueColumns);
    return value;
}

CATDlgCombo* WBAddChoice(CATDialog* parent, const char* name, int row, int column)
{
    WBAddCaption(parent, name, row, column);
    auto* combo = new CATDlgCombo(parent, name);
    combo->SetPlacement(row, column + 1);
    return combo;
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
