#pragma once

#include "CATCommand.h"

#include <functional>
#include <memory>
#include <string>

class QWidget;

/// The base of windows and controls. A control stands in its parent (a window, a frame, a tab page)
/// at the place that SetPlacement gives it. Its texts come from the resource file of the dialog it
/// stands in ("dialogs/<Class>.toml", the class named by the dialog's GetResourceFilename): the key
/// is the path of control names below the dialog and the field, "MassFrame.MassLabel.Title"; fields
/// are Title, Tooltip, Icon (a file below "icons" of the resources). They are read when the window
/// is first shown, and for controls made later at once. Texts set by program win. A control that
/// should show a text and has none in the resources shows its name, so that what is missing can be
/// seen.
///
/// Without a running toolkit (a script) windows and controls exist, keep name, style words and
/// title, and have no widget: every other operation does nothing and answers as for an empty
/// control. Check buttons and spinners keep their value, since dialogs store the user's choices
/// when they go. The same holds for a control without a parent.
///
/// The toolkit's object carries the control's name as its object name. The words of style and
/// justification are kept as given (Style) and read in one table per kind of control; words that
/// are not in it do nothing.
class WB_EXPORT CATDialog : public CATCommand
{
public:
    ~CATDialog() override;

    void SetVisibility(bool visible);
    bool IsVisible() const;
    /// A control that is not sensitive is greyed and takes no input.
    void SetSensitivity(bool sensitive);
    bool IsSensitive() const;
    /// The visible text: a window's title, a frame's, a label's, a button's.
    void SetTitle(const CATUnicodeString& title);
    CATUnicodeString Title() const;
    void SetTooltip(const CATUnicodeString& tooltip);
    CATUnicodeString Tooltip() const;
    /// The name that a screen reader speaks; by default the visible text of the control, or of the
    /// label that stands before it.
    void SetAccessibleName(const CATUnicodeString& name);

    /// A guard is asked when the user presses this push button, or closes this window by its frame,
    /// by Esc or by its standard button Close, before anybody is told; where it answers false
    /// nothing happens: the window stays and no event is sent. It may ask the user in a box: what
    /// is pressed or closed a second time meanwhile does nothing, and so does the first time when
    /// the control is destroyed before the guard has answered. A guard that fails refuses; the
    /// window recovers or ends as after a handler of its own. What the program hides is not asked
    /// about. An empty guard ends it. Other controls, and message boxes, ask nobody.
    void SetGuard(std::function<bool()> guard);

    /// Who is told, once a file, that a dialog's resource file is missing or broken; the sentence
    /// names the file. The diagnostic error stream hears it too.
    static void ReportProblemsTo(std::function<void(const CATUnicodeString& sentence)> listener);

    /// Cell of the parent's grid, from 0, and how many rows and columns the control covers.
    /// Justification 30 fills the cell, 4 keeps the control's own size: a frame (a row of buttons)
    /// at the right of its cell, any other control at the left. A control that is never placed goes
    /// below the others.
    void SetPlacement(int row, int column, int rows = 1, int columns = 1, int justification = 30);
    /// How much of the free room a row or column of this container's grid takes; 0: none beyond
    /// need.
    void SetRowStretch(int row, int stretch);
    void SetColumnStretch(int column, int stretch);

    int Style() const;
    int Justification() const;

    /// The toolkit's object, for the application that builds windows of its own; null for none.
    QWidget* Widget() const;

protected:
    CATDialog(CATCommand* parent, const CATString& name, int style);
    /// Called once by each kind of control with the toolkit's object that it made; this class owns
    /// it from then on. `outer` is what stands in the parent's grid when that is more than the
    /// object itself; `container` is the piece inside it that takes controls, for a control that
    /// takes any.
    void Adopt(QWidget* widget, QWidget* outer = nullptr, QWidget* container = nullptr);
    /// The toolkit's object that a control of this parent is made in; null where there is none.
    static QWidget* Inside(CATDialog* parent);
    /// The window that the control stands in (itself for a window); null for a control without one.
    CATDialog* Window();
    /// Reads the resources of a window and of all that stands in it, once: before it is first
    /// shown.
    void ApplyResources();
    /// What the guard answers to what the user just did; true without one. After false the control
    /// may be gone.
    bool IsAllowedByGuard();

private:
    struct State;
    CATDialog* ParentDialog() const;
    std::string ResourcePath(const char* field) const;
    void TakeTextsFromResources();
    void ShowTitle();
    void PlaceLeftOver();
    std::unique_ptr<State> m_state;
};
