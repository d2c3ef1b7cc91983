#pragma once

#include "CATUnicodeString.h"

#include <memory>

class CATDlgApplication;
class CATDlgDialog;
class CATDlgMultiList;

/// What the benchmarks of lists share: a list as a report's preview has it, and its texts.

inline constexpr int kListColumns = 24;
/// A column of numbers with a unit, in no order.
inline constexpr int kListSortColumn = 5;
inline constexpr int kListWidth = 1200;
inline constexpr int kListHeight = 800;

/// The text of a cell, rows and columns counted from 0; all are made at the first call.
const CATUnicodeString& ListCellText(int row, int column);

/// The window toolkit, without a screen.
class ListToolkit
{
public:
    ListToolkit();
    ~ListToolkit();
    ListToolkit(const ListToolkit&) = delete;
    ListToolkit& operator=(const ListToolkit&) = delete;
    /// Until all is settled and painted.
    static void ProcessEvents();

private:
    std::unique_ptr<CATDlgApplication> m_application;
};

/// A window with an empty list in it.
class ListWindow
{
public:
    ListWindow();
    ~ListWindow();
    ListWindow(const ListWindow&) = delete;
    ListWindow& operator=(const ListWindow&) = delete;
    void Show();

private:
    std::unique_ptr<CATDlgDialog> m_window;

public:
    CATDlgMultiList& list;
};
