#include "FieldLook.h"

#include "Appearance.h"

#include <QApplication>
#include <QFontMetrics>
#include <QPalette>
#include <QWidget>

#include <array>

namespace
{

// In the order of CATDlgLook.
constexpr std::array kLooks{
    FieldLook{nullptr, "", ""}, FieldLook{&EditedColour, "\u270e", "edited"},
    FieldLook{&ChangedColour, "\u25cf", "not saved"},
    FieldLook{&WarningColour, "\u26a0", "warning"}, FieldLook{&ProblemColour, "\u2715", "problem"}};

/// White paper with a breath of the colour, on which the usual text stays readable.
QColor PaperOf(const QColor& colour)
{
    constexpr int kWhite = 255;
    constexpr int kBreath = 14;
    const auto mixed = [](int part) {
        return kWhite - (kWhite - part) / kBreath;
    };
    return {mixed(colour.red()), mixed(colour.green()), mixed(colour.blue())};
}

} // namespace

const FieldLook& FieldLookOf(CATDlgLook look)
{
    return kLooks[static_cast<std::size_t>(look)];
}

int SignRoom(const QWidget& field, CATDlgLook look)
{
    const QString sign = QString::fromUtf8(FieldLookOf(look).sign);
    return sign.isEmpty() ? 0 : field.fontMetrics().horizontalAdvance(sign + QLatin1Char(' '));
}

void TakeLook(QWidget& field, CATDlgLook look)
{
    const FieldLook& described = FieldLookOf(look);
    QPalette palette = QApplication::palette();
    if (described.colour != nullptr) {
        for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
            palette.setColor(group, QPalette::Base, PaperOf(described.colour()));
            palette.setColor(group, QPalette::Button, PaperOf(described.colour()));
        }
    }
    field.setPalette(palette);
    field.setAccessibleDescription(QString::fromUtf8(described.meaning));
    field.update();
}
