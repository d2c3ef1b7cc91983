#pragma once

class QEvent;
class QString;
class QWidget;

/// Where `event` asks for the tooltip of a widget whose text is cut, shows the whole text, above
/// the widget's own tooltip, and answers true. Any other event is left to the widget.
bool ShowWholeText(QWidget& widget, QEvent& event, const QString& text, bool isCut);

/// A plain text as a tooltip that breaks its lines instead of running over the edge of the screen.
QString AsTooltip(const QString& text);
