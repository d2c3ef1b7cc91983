#include "TextLabel.h"

#include "Toolkit.h"
#include "WholeText.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QStyle>

namespace
{
// A label asks for at most so much, and keeps at least so much of it when room is short.
constexpr int kAskedCharacters = 60;
constexpr int kKeptCharacters = 12;
} // namespace

TextLabel::TextLabel(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void TextLabel::SetSign(const QString& sign)
{
    m_sign = sign;
    const int width = sign.isEmpty() ? 0 : fontMetrics().horizontalAdvance(sign + QLatin1Char(' '));
    setContentsMargins(width, 0, 0, 0);
    update();
}

void TextLabel::Announce(QWidget* field)
{
    // The name of a field is not a stop of its own for the Tab key.
    setFocusPolicy(Qt::ClickFocus);
    // With a buddy the toolkit would read "&" as an accelerator and swallow it.
    setBuddy(text().contains(QLatin1Char('&')) ? nullptr : field);
}

QString TextLabel::SpokenText() const
{
    QString spoken = text().trimmed();
    while (spoken.endsWith(QLatin1Char(':'))) {
        spoken.chop(1);
        spoken = spoken.trimmed();
    }
    return spoken;
}

QString TextLabel::LongestLine() const
{
    QString longest;
    for (const QString& line : text().split(QLatin1Char('\n'))) {
        if (fontMetrics().horizontalAdvance(line) > fontMetrics().horizontalAdvance(longest)) {
            longest = line;
        }
    }
    return longest;
}

bool TextLabel::IsCut() const
{
    return fontMetrics().horizontalAdvance(LongestLine()) > contentsRect().width();
}

QSize TextLabel::sizeHint() const
{
    const int most = kAskedCharacters * fontMetrics().averageCharWidth();
    const int width = std::min(fontMetrics().horizontalAdvance(LongestLine()) + 2, most);
    const int lines = static_cast<int>(text().count(QLatin1Char('\n'))) + 1;
    return {width + contentsMargins().left(), lines * fontMetrics().lineSpacing() + 4};
}

QSize TextLabel::minimumSizeHint() const
{
    const QSize hint = sizeHint();
    const int least = kKeptCharacters * fontMetrics().averageCharWidth();
    return {std::min(hint.width(), least + contentsMargins().left()), hint.height()};
}

bool TextLabel::event(QEvent* event)
{
    return ShowWholeText(*this, *event, text(), IsCut()) || QLabel::event(event);
}

void TextLabel::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    if (!m_sign.isEmpty()) {
        painter.drawText(rect(), static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter), m_sign);
    }
    // While something is selected the toolkit paints, so that the selection is seen. Else the label
    // paints itself: the toolkit would put a text cursor where nothing can be typed.
    if (hasSelectedText()) {
        painter.end();
        QLabel::paintEvent(event);
        return;
    }
    QStringList lines = text().split(QLatin1Char('\n'));
    for (QString& line : lines) {
        line = fontMetrics().elidedText(line, Qt::ElideRight, contentsRect().width());
    }
    style()->drawItemText(&painter, contentsRect(), static_cast<int>(alignment()), palette(),
                          isEnabled(), lines.join(QLatin1Char('\n')), foregroundRole());
    if (hasFocus()) {
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void TextLabel::CopyWhatIsMeant() const
{
    QApplication::clipboard()->setText(hasSelectedText() ? selectedText() : text());
}

void TextLabel::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy)) {
        CopyWhatIsMeant();
        return;
    }
    QLabel::keyPressEvent(event);
}

void TextLabel::contextMenuEvent(QContextMenuEvent* event)
{
    auto* menu = new QMenu(this); // deletes itself when it closes
    menu->setAttribute(Qt::WA_DeleteOnClose);
    connect(menu->addAction(DialogMessage("Text.Copy", "@Copy")), &QAction::triggered, this,
            [this] { CopyWhatIsMeant(); });
    menu->popup(event->globalPos());
}
