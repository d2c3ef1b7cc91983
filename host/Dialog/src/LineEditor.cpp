#include "LineEditor.h"

#include "Appearance.h"
#include "WholeText.h"

#include <QFocusEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>

#include <algorithm>

namespace
{
constexpr int kUsualCharacters = 16;
// However wide the owner wants it, an editor gives way down to this when the window is small.
constexpr int kKeptCharacters = 8;
// The room the frame, the margins and the text cursor take beside the characters.
constexpr int kRoomBesideText = 12;
} // namespace

LineEditor::LineEditor(QWidget* parent, bool isReadOnly)
    : QLineEdit(parent), m_characters(kUsualCharacters)
{
    setReadOnly(isReadOnly);
    if (isReadOnly) {
        setFrame(false);
        setTextMargins(2, 0, 2, 0);
        setPalette(ReadOnlyPalette());
    }
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void LineEditor::SetVisibleCharacters(int characters)
{
    m_characters = std::max(characters, 1);
    updateGeometry();
}

bool LineEditor::IsCut() const
{
    return fontMetrics().horizontalAdvance(text()) > width() - kRoomBesideText;
}

int LineEditor::WidthOf(int characters) const
{
    return characters * fontMetrics().horizontalAdvance(QLatin1Char('0')) + kRoomBesideText;
}

QSize LineEditor::sizeHint() const
{
    // Flat and framed editors are equally tall, so that the texts of a row stand on one line.
    return {WidthOf(m_characters), fontMetrics().height() + 10};
}

QSize LineEditor::minimumSizeHint() const
{
    return {WidthOf(std::min(m_characters, kKeptCharacters)), sizeHint().height()};
}

bool LineEditor::event(QEvent* event)
{
    return ShowWholeText(*this, *event, text(), IsCut()) || QLineEdit::event(event);
}

void LineEditor::paintEvent(QPaintEvent* event)
{
    if (hasFocus() || !IsCut()) {
        QLineEdit::paintEvent(event);
        return;
    }
    QStyleOptionFrame panel;
    initStyleOption(&panel);
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_PanelLineEdit, &panel, &painter, this);
    // One pixel more at both sides is what the toolkit leaves for the text cursor.
    const QRect room = style()
                           ->subElementRect(QStyle::SE_LineEditContents, &panel, this)
                           .marginsRemoved(textMargins())
                           .adjusted(2, 0, -2, 0);
    style()->drawItemText(
        &painter, room, static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter), palette(), isEnabled(),
        fontMetrics().elidedText(text(), Qt::ElideRight, room.width()), QPalette::Text);
}

void LineEditor::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason) {
        home(false);
    }
}
