#pragma once

#include "CATDialog.h"

// Events tell what the user did; a value that the program sets sends none, unless it asks for it.

/// Whether a value that the program sets is told as one that the user sets.
enum class CATDlgTelling
{
    Silent,
    Notify ///< also when the control had that value already
};

/// A box of controls. Style 1 draws a titled border; 0x80001, 0x40001 and words not listed draw
/// none.
class WB_EXPORT CATDlgFrame : public CATDialog
{
public:
    CATDlgFrame(CATDialog* parent, const CATString& name, int style = 1);
};

/// A text. What does not fit ends in an ellipsis, and the tooltip holds the whole.
class WB_EXPORT CATDlgLabel : public CATDialog
{
public:
    enum class Role
    {
        Plain,
        Heading,
        Caption,
        Good,
        Warning,
        Problem
    };
    CATDlgLabel(CATDialog* parent, const CATString& name, int style = 0);
    /// How the text looks: a heading is larger, a caption quieter; Good, Warning and Problem carry
    /// their colour and stay readable without it.
    void SetRole(Role role);
    /// Marks a text that has changed: a sign before it and a colour, whatever its role, and a word
    /// for those who hear it. What stood there before belongs into the tooltip.
    void SetMark(bool marked);

private:
    void ShowLook();

    Role m_role = Role::Plain;
    bool m_isMarked = false;
};

/// How a field that takes input stands out from the others. Each carries a colour, a sign that is
/// painted in the field and is no part of its text, and a word for those who hear it. What it is
/// about belongs into the tooltip.
enum class CATDlgLook
{
    Plain,
    Edited,  ///< the user changed it and it is not handed on yet
    Unsaved, ///< it is handed on and waits to be saved
    Warning,
    Problem ///< what stands in it cannot be taken
};

/// A line of text to type into. Style 0x4000000 is read-only (still selectable and copyable),
/// 0x200000 editable.
class WB_EXPORT CATDlgEditor : public CATDialog
{
public:
    CATDlgEditor(CATDialog* parent, const CATString& name, int style = 0x200000);
    static const CATEvent Modified; ///< the user changed the text
    /// The user pressed Enter or left the field after he had typed in it, also when the text is the
    /// same again; once for what he typed.
    static const CATEvent Finished;
    /// The user pressed Esc while the text differed from the one that the program set, or in a
    /// field that looks like a problem: the program's text stands there again. Otherwise Esc goes
    /// to the window.
    static const CATEvent TakenBack;
    void SetText(const CATUnicodeString& text);
    CATUnicodeString Text() const;
    /// Width in characters that the editor asks for.
    void SetVisibleTextWidth(int characters);
    /// Numbers stand at the right.
    void SetRightAligned(bool rightAligned);
    /// What stands in the empty field, quietly; it is no text of the field.
    void SetEmptyText(const CATUnicodeString& text);
    void SetLook(CATDlgLook look);
    CATDlgLook Look() const { return m_look; }

private:
    CATDlgLook m_look = CATDlgLook::Plain;
};

/// A list of lines that drops down; the first line that is written is the chosen one until another
/// is. Style 0x40000: the user chooses, but types nothing; without that word typing finds a line.
/// The mouse wheel chooses only in a combo that has the keys, so that who scrolls a page over it
/// changes nothing.
class WB_EXPORT CATDlgCombo : public CATDialog
{
public:
    CATDlgCombo(CATDialog* parent, const CATString& name, int style = 0x40000);
    static const CATEvent Selected; ///< the user chose another line; the detail is its index from 0
    /// Writes line `index` (from 0), appending it when it is the next one; beyond that nothing.
    void SetLine(int index, const CATUnicodeString& text);
    void RemoveAll();
    int LineCount() const;
    CATUnicodeString Line(int index) const;
    /// The chosen line from 0, -1 for none.
    int SelectedIndex() const;
    void Select(int index);
    void SetLook(CATDlgLook look);
    CATDlgLook Look() const { return m_look; }

private:
    CATDlgLook m_look = CATDlgLook::Plain;
};

class WB_EXPORT CATDlgPushButton : public CATDialog
{
public:
    CATDlgPushButton(CATDialog* parent, const CATString& name, int style = 0);
    static const CATEvent Activated;
    /// Makes it the button of its window that Enter presses wherever the keys go, unless they go to
    /// another button, and that they go to when the window opens. Without one Enter presses the
    /// button that has the keys and no other.
    void SetDefault();
};

/// Buttons of one parent exclude each other.
class WB_EXPORT CATDlgRadioButton : public CATDialog
{
public:
    CATDlgRadioButton(CATDialog* parent, const CATString& name, int style = 0);
    static const CATEvent Modified; ///< checked or unchecked; the detail is 1 or 0
    void SetChecked(bool checked);
    bool IsChecked() const;
};

class WB_EXPORT CATDlgCheckButton : public CATDialog
{
public:
    CATDlgCheckButton(CATDialog* parent, const CATString& name, int style = 0);
    static const CATEvent Modified; ///< the detail is 1 or 0
    void SetChecked(bool checked, CATDlgTelling telling = CATDlgTelling::Silent);
    bool IsChecked() const { return m_isChecked; }

private:
    bool m_isChecked = false;
};

/// A number with two buttons that step through its range; arrow and page keys do the same, and a
/// number can be typed, with either decimal separator. What is typed beyond the range becomes the
/// end of the range.
class WB_EXPORT CATDlgSpinner : public CATDialog
{
public:
    CATDlgSpinner(CATDialog* parent, const CATString& name, int style = 0);
    static const CATEvent Modified; ///< the detail is the value without its decimals

    /// From `low` to `high` in so many steps: 0 to 8 in 8 steps goes up by one. Until it is set 0
    /// to 100 in 100 steps. The value is brought into the range without telling.
    void SetRange(double low, double high, int steps);
    /// One "%g" conversion, as CATUnicodeString::FromReal takes it.
    void SetFormat(const CATUnicodeString& format);
    /// Width in characters that the spinner asks for.
    void SetVisibleTextWidth(int characters);
    /// Beyond the range: its nearer end.
    void SetValue(double value, CATDlgTelling telling = CATDlgTelling::Silent);
    double Value() const { return m_value; }
    /// The value as it is shown, with the session's decimal separator.
    CATUnicodeString Text() const;

    /// A word that is kept as given; 16 makes the up button usable at the end of the range too,
    /// where it changes nothing.
    void SetUpSensitivity(int sensitivity);
    int UpSensitivity() const { return m_upSensitivity; }

private:
    void TakeValue(double value);

    double m_low = 0.0;
    double m_high = 100.0;
    double m_value = 0.0;
    CATUnicodeString m_format{"%g"};
    int m_upSensitivity = 0;
};

/// Pages behind tabs.
class WB_EXPORT CATDlgTabContainer : public CATDialog
{
public:
    CATDlgTabContainer(CATDialog* parent, const CATString& name, int style = 0);
    static const CATEvent PageSelected; ///< the detail is the page's index from 0
    int SelectedPage() const;
    void SelectPage(int index);
};

/// A page; its title stands on its tab.
class WB_EXPORT CATDlgTabPage : public CATDialog
{
public:
    CATDlgTabPage(CATDlgTabContainer* parent, const CATString& name, int style = 0);
};
