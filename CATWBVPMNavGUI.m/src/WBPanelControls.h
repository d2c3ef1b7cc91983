#pragma once

#include "CATDlgControls.h"
#include "CATDlgMultiList.h"

/// How the panel's pages are built.

inline constexpr int kWBPlainFrame = 0x80001; // no title, no border
inline constexpr int kWBOwnSize = 4;

/// A caption; its text comes from the resources, by the name with "Label" behind it.
void WBAddCaption(CATDialog* parent, const char* name, int row, int column);
/// Caption and value, side by side from `column` on. The caption's text comes from the resources.
CATDlgLabel* WBAddFact(CATDialog* parent, const char* name, int row, int column = 0,
                       int valueColumns = 1);
/// Caption and combo, likewise.
CATDlgCombo* WBAddChoice(CATDialog* parent, const char* name, int row, int column);
/// A quiet text that comes from the resources or is written by program.
CATDlgLabel* WBAddNote(CATDialog* parent, const char* name, int row, int columns = 1);
CATDlgMultiList* WBAddList(CATDialog* parent, const char* name, int row,
                           const CATUnicodeString& emptyText, int column = 0, int columns = 1);
