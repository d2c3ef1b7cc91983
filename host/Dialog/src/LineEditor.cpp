#include "LineEditor.h"

#include "Appearance.h"
#include "FieldLook.h"
#include "WholeText.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>

#include <algorithm>
#include <utility>

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
    connect(this, &QLineEdit::textEdited, this, [this] { m_isTyped = true; });
    connect(this, &QLineEdit::editingFinished, this, [this] { TellIfFinished(); });
}

void LineEditor::SetGivenText(const QString& text)
{
    m_given = text;
    m_isTyped = false;
    setText(text);
    home(false); // a long text shows its beginning
}

void LineEditor::SetLook(CATDlgLook look)
{
    m_look = look;
    setTextMargins(SignRoom(*this, look), 0, 0, 0);
    TakeLook(*this, look);
}

void LineEditor::SetListeners(std::function<void()> onFinished, std::function<void()> onTakenBack)
{
    m_onFinished = std::move(onFinished);
    m_onTakenBack = std::move(onTakenBack);
}

void LineEditor::TellIfFinished()
{
    // Enter and the loss of the keys behind it are one end.
    if (m_isTyped) {
        m_isTyped = false;
        m_onFinished();
    }
}

bool LineEditor::CanBeTakenBack() const
{
    return !isReadOnly() && (text() != m_given || m_look == CATDlgLook::Problem);
}

void LineEditor::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && CanBeTakenBack()) {
        SetGivenText(QString(m_given));
        m_onTakenBack();
        return;
    }
    QLineEdit::keyPressEvent(event);
}

void LineEditor::SetVisibleCharacters(int characters)
{
    m_characters = std::max(characters, 1);
    updateGeometry();
}

bool LineEditor::IsCut() const
{
    return fontMetrics().horizontalAdvance(text()) >
           width() - kRoomBesideText - SignRoom(*this, m_look);
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
        PaintSign();
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
    painter.end();
    PaintSign();
}

void LineEditor::PaintSign()
{
    if (m_look == CATDlgLook::Plain) {
        return;
    }
    const FieldLook& look = FieldLookOf(m_look);
    constexpr int kFrame = 5;
    QPainter painter(this);
    painter.setPen(look.colour());
    painter.drawText(rect().adjusted(kFrame, 0, 0, 0),
                     static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter),
                     QString::fromUtf8(look.sign));
}

void LineEditor::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason) {
        home(false);
    }
}
