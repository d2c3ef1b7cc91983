#pragma once

#include <QPalette>

class QApplication;

/// One look everywhere, so that a picture in the documentation is what the user sees: style, light
/// palette and font.
void GiveAppearance(QApplication& application);

/// The palette of a text that cannot be edited: readable, and flat on its window.
QPalette ReadOnlyPalette();

// Colours of texts; each has a contrast of at least 4.5 to 1 against the window and the lists.
QColor QuietColour();
QColor GoodColour();
QColor WarningColour();
QColor ProblemColour();
QColor ChangedColour();
QColor EditedColour();
