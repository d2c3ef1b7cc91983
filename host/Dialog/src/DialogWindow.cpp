#include "DialogWindow.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QVBoxLayout>

namespace
{
// The window frame needs some of the screen too.
constexpr int kFrameRoom = 40;
constexpr QSize kLeastContent(120, 40);
} // namespace

ContentArea::ContentArea(QWidget* parent) : QScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
}

QSize ContentArea::sizeHint() const
{
    return widget() == nullptr ? kLeastContent : widget()->sizeHint().expandedTo(kLeastContent);
}

QSize ContentArea::minimumSizeHint() const
{
    // Small windows scroll; half of what the screen of a small laptop has is asked for at most.
    constexpr QSize kMost(400, 250);
    return widget() == nullptr ? kLeastContent : widget()->minimumSizeHint().boundedTo(kMost);
}

DialogWindow::DialogWindow(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                          Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint),
      m_area(new ContentArea(this)),
      m_content(new QWidget)
{
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    m_area->setWidget(m_content); // the area deletes it
    m_content->setAutoFillBackground(false);
    rows->addWidget(m_area, 1);
}

QDialogButtonBox* DialogWindow::Buttons()
{
    if (m_buttons == nullptr) {
        m_buttons = new QDialogButtonBox(this);
        m_buttons->setContentsMargins(9, 4, 9, 9);
        layout()->addWidget(m_buttons);
    }
    return m_buttons;
}

QSize DialogWindow::Bounded(QSize size) const
{
    const QScreen* display = screen();
    if (display != nullptr) {
        size = size.boundedTo(display->availableSize() - QSize(0, kFrameRoom));
    }
    return size;
}

void DialogWindow::SetPreferredSize(const QSize& size)
{
    m_preferredSize = Bounded(size);
    if (m_wasShown) {
        resize(m_preferredSize);
    }
}

QSize DialogWindow::sizeHint() const
{
    return m_preferredSize.isEmpty() ? Bounded(QDialog::sizeHint()) : m_preferredSize;
}

void DialogWindow::closeEvent(QCloseEvent* event)
{
    // The window is hidden here and belongs to its command: the toolkit has nothing left to do.
    event->ignore();
    // After a no the window may be gone.
    if (!isVisible() || (m_mayClose && !m_mayClose())) {
        return;
    }
    hide();
    if (m_onClosed) {
        m_onClosed();
    }
}

void DialogWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape) {
        close();
        return;
    }
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (QAbstractButton* button = ButtonOfEnter()) {
            button->click();
        }
        return;
    }
    QDialog::keyPressEvent(event);
}

QPushButton* DialogWindow::DefaultButton() const
{
    for (auto* button : m_content->findChildren<QPushButton*>()) {
        if (button->isDefault()) {
            return button;
        }
    }
    return nullptr;
}

QAbstractButton* DialogWindow::ButtonOfEnter() const
{
    // A radio or check button takes the blank; Enter there means that the choice is made.
    QPushButton* usual = DefaultButton();
    const bool isOnButton = qobject_cast<QPushButton*>(focusWidget()) != nullptr;
    return usual == nullptr || isOnButton ? qobject_cast<QAbstractButton*>(focusWidget()) : usual;
}

void DialogWindow::FocusFirstField()
{
    if (QPushButton* button = DefaultButton()) {
        button->setFocus(Qt::ActiveWindowFocusReason);
        return;
    }
    for (QWidget* widget = nextInFocusChain(); widget != this;
         widget = widget->nextInFocusChain()) {
        const bool takesKeys = (widget->focusPolicy() & Qt::TabFocus) != 0 && widget->isEnabled() &&
                               widget->isVisibleTo(this);
        // A text that can only be read is no place to begin.
        const auto* editor = qobject_cast<QLineEdit*>(widget);
        const bool isText =
            qobject_cast<QLabel*>(widget) != nullptr || (editor != nullptr && editor->isReadOnly());
        if (takesKeys && !isText) {
            widget->setFocus(Qt::ActiveWindowFocusReason);
            return;
        }
    }
}

void DialogWindow::showEvent(QShowEvent* event)
{
    if (!m_wasShown) {
        m_wasShown = true;
        resize(sizeHint());
        FocusFirstField();
    }
    QDialog::showEvent(event);
}
