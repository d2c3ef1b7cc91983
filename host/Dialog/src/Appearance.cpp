#include "Appearance.h"

#include <QApplication>
#include <QFont>
#include <QFontDatabase>
#include <QProxyStyle>

namespace
{

struct PaletteRow
{
    QPalette::ColorRole role;
    QRgb usual;
    QRgb disabled;
};

constexpr PaletteRow kPalette[] = {
    {QPalette::Window, 0xfff4f5f7, 0xfff4f5f7},
    {QPalette::WindowText, 0xff1d232b, 0xff8a919b},
    {QPalette::Base, 0xffffffff, 0xfff4f5f7},
    {QPalette::AlternateBase, 0xfff1f4f8, 0xfff1f4f8},
    {QPalette::Text, 0xff1d232b, 0xff8a919b},
    {QPalette::PlaceholderText, 0xff6b7480, 0xff8a919b},
    {QPalette::Button, 0xffebedf0, 0xfff0f1f3},
    {QPalette::ButtonText, 0xff1d232b, 0xff8a919b},
    {QPalette::BrightText, 0xffffffff, 0xffffffff},
    {QPalette::Highlight, 0xff1f5fae, 0xffb9c3d0},
    {QPalette::HighlightedText, 0xffffffff, 0xffffffff},
    {QPalette::ToolTipBase, 0xfffffbe6, 0xfffffbe6},
    {QPalette::ToolTipText, 0xff1d232b, 0xff1d232b},
    {QPalette::Link, 0xff1f5fae, 0xff8a919b},
    {QPalette::Light, 0xffffffff, 0xffffffff},
    {QPalette::Midlight, 0xfff0f1f3, 0xfff0f1f3},
    {QPalette::Mid, 0xffb8bec7, 0xffb8bec7},
    {QPalette::Dark, 0xff8a919b, 0xff8a919b},
    {QPalette::Shadow, 0xff5c636d, 0xff5c636d},
};

constexpr int kFontPoints = 9;

/// Room beside the text of a button that is wider than the least button, both sides together: the
/// toolkit lets long words all but touch the frame.
constexpr int kButtonRoom = 14;

/// The same buttons in every box: those that the toolkit makes get no pictures either.
class PlainButtons : public QProxyStyle
{
public:
    PlainButtons() : QProxyStyle(QStringLiteral("Fusion")) {}
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override
    {
        return hint == SH_DialogButtonBox_ButtonsHaveIcons
                   ? 0
                   : QProxyStyle::styleHint(hint, option, widget, returned);
    }
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override
    {
        const QSize room(type == CT_PushButton ? kButtonRoom : 0, 0);
        return QProxyStyle::sizeFromContents(type, option, contents + room, widget);
    }
};

} // namespace

void GiveAppearance(QApplication& application)
{
    QApplication::setStyle(new PlainButtons); // the application deletes it
    QPalette palette;
    for (const PaletteRow& row : kPalette) {
        palette.setColor(QPalette::Active, row.role, QColor::fromRgb(row.usual));
        palette.setColor(QPalette::Inactive, row.role, QColor::fromRgb(row.usual));
        palette.setColor(QPalette::Disabled, row.role, QColor::fromRgb(row.disabled));
    }
    QApplication::setPalette(palette);

    const QString family = QStringLiteral("DejaVu Sans");
    QFont font = QFontDatabase::hasFamily(family) ? QFont(family) : application.font();
    font.setPointSize(kFontPoints);
    QApplication::setFont(font);
}

QPalette ReadOnlyPalette()
{
    QPalette palette = QApplication::palette();
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        palette.setColor(group, QPalette::Base, QColor(0xe9, 0xec, 0xf0));
    }
    return palette;
}

QColor QuietColour()
{
    return {0x56, 0x5f, 0x6b};
}

QColor GoodColour()
{
    return {0x1a, 0x66, 0x2b};
}

QColor WarningColour()
{
    return {0x84, 0x4d, 0x00};
}

QColor ProblemColour()
{
    return {0xa8, 0x20, 0x1a};
}

QColor ChangedColour()
{
    return {0x7a, 0x1f, 0x8f};
}

QColor EditedColour()
{
    return {0x1b, 0x4f, 0xa0};
}
