#pragma once

#include <QDialog>
#include <QScrollArea>

#include <functional>

class QAbstractButton;
class QDialogButtonBox;
class QPushButton;

/// The room of a window's controls: as large as they need, and scrolled where the screen is
/// smaller.
class ContentArea : public QScrollArea
{
public:
    explicit ContentArea(QWidget* parent);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
};

/// A modeless window. Closing it, by its frame or by Esc, asks `mayClose`, hides it and calls
/// `onClosed`. Enter presses the default button from anywhere but another button; in a window
/// without one it presses the button that has the focus and no other.
class DialogWindow : public QDialog
{
public:
    explicit DialogWindow(QWidget* parent);
    QWidget* Content() const { return m_content; }
    /// The row below the controls, made at the first call.
    QDialogButtonBox* Buttons();
    /// One that takes the window away answers false.
    void SetMayClose(std::function<bool()> mayClose) { m_mayClose = std::move(mayClose); }
    void SetOnClosed(std::function<void()> onClosed) { m_onClosed = std::move(onClosed); }
    /// The size for the first showing; an empty one means what the controls need.
    void SetPreferredSize(const QSize& size);
    QSize sizeHint() const override;

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    QSize Bounded(QSize size) const;
    /// Null where no button was made the default.
    QPushButton* DefaultButton() const;
    QAbstractButton* ButtonOfEnter() const;
    /// The user begins at the default button, else in the first control that does something, not in
    /// a text that can be copied.
    void FocusFirstField();

    ContentArea* m_area;
    QWidget* m_content;
    QDialogButtonBox* m_buttons = nullptr;
    QSize m_preferredSize;
    std::function<bool()> m_mayClose;
    std::function<void()> m_onClosed;
    bool m_wasShown = false;
};
