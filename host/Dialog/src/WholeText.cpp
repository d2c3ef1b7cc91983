#include "WholeText.h"

#include <QHelpEvent>
#include <QTextDocument>
#include <QToolTip>
#include <QWidget>

QString AsTooltip(const QString& text)
{
    return text.isEmpty() ? text : Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal);
}

bool ShowWholeText(QWidget& widget, QEvent& event, const QString& text, bool isCut)
{
    if (event.type() != QEvent::ToolTip || !isCut) {
        return false;
    }
    const QString more = widget.toolTip();
    const QString whole = more.isEmpty() ? text : text + QLatin1Char('\n') + more;
    QToolTip::showText(static_cast<QHelpEvent&>(event).globalPos(), AsTooltip(whole), &widget);
    return true;
}
