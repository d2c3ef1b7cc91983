#pragma once

#include "CATDialog.h"

#include <QJsonObject>
#include <QString>

#include <string>
#include <string_view>

class QLineEdit;
class QTableView;

/// Finding controls by name and saying what they show: the story player's eyes.

/// The control named "Dialog/Control" ("Dialog/Page/Control" where pages share names), or "Control"
/// where one visible window has it; "Dialog" names the window itself. The newest window of a name
/// is meant. Null, with what was found instead.
CATDialog* FindControl(std::string_view name, std::string& problem);

/// What a person reads on a control: an editor's, spinner's or label's text, a button's title, a
/// combo's chosen line, "on" or "off" for a check or radio button.
QString VisibleText(const CATDialog& control);

/// The line that a control is typed into: an editor's, a spinner's, or the filter of a list, which
/// is named like its list with "Filter" behind. Null, with what was found instead.
QLineEdit* FindLine(const std::string& name, std::string& problem);

/// The table that shows a list; null for another control.
const QTableView* SeenTable(const CATDialog& list);

/// A list's cell as the user sees the list now: row from 1, column by title or by index from 0.
/// False, with what was found instead.
bool SeenCell(const CATDialog& list, const std::string& row, const std::string& column,
              QString& text, std::string& problem);
/// The index of a list's column by title (with or without the unit in brackets) or index, -1 for
/// none.
int SeenColumn(const CATDialog& list, const std::string& column);

/// Closes every message box that stands open, as a click on its button does.
void CloseBoxes();

/// Every open window with its controls, texts, lists, states and style words.
QJsonObject DumpWindows();
