#include "SpinBox.h"

#include "CATNumberLocale.h"
#include "Toolkit.h"

#include <QLineEdit>
#include <QStyleOptionSpinBox>

#include <algorithm>
#include <limits>
#include <optional>

namespace
{

constexpr int kUsualCharacters = 6;
// The room the margins and the text cursor take beside the characters.
constexpr int kRoomBesideText = 8;

/// The number of a text that is a number and nothing else, with either decimal separator.
std::optional<double> NumberIn(const QString& text)
{
    static const QString kLetters = QStringLiteral("0123456789+-.,eE");
    const QString number = text.trimmed();
    const bool isPlain = std::all_of(number.begin(), number.end(),
                                     [](QChar letter) { return kLetters.contains(letter); });
    std::string bytes = number.toStdString();
    std::ranges::replace(bytes, ',', '.');
    double value = 0.0;
    if (!isPlain || CATReadReal(bytes, ".", value) != 1) {
        return std::nullopt;
    }
    return value;
}

} // namespace

SpinBox::SpinBox(QWidget* parent) : QDoubleSpinBox(parent), m_characters(kUsualCharacters)
{
    // The toolkit rounds values to so many decimals; the format alone says what is shown.
    setDecimals(std::numeric_limits<double>::digits10);
    // A number that is being typed is no value before it is finished.
    setKeyboardTracking(false);
    setAlignment(Qt::AlignRight);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void SpinBox::SetFormat(const CATUnicodeString& format)
{
    m_format = format;
    lineEdit()->setText(textFromValue(value()));
}

void SpinBox::SetVisibleCharacters(int characters)
{
    m_characters = std::max(characters, 1);
    updateGeometry();
}

void SpinBox::SetAlwaysUp(bool isAlwaysUp)
{
    m_isAlwaysUp = isAlwaysUp;
    update();
}

QSize SpinBox::sizeHint() const
{
    QStyleOptionSpinBox option;
    initStyleOption(&option);
    const QSize text(m_characters * fontMetrics().horizontalAdvance(QLatin1Char('0')) +
                         kRoomBesideText,
                     lineEdit()->sizeHint().height());
    return style()->sizeFromContents(QStyle::CT_SpinBox, &option, text, this);
}

QString SpinBox::textFromValue(double value) const
{
    return ToQt(CATUnicodeString::FromReal(value, m_format.Text()));
}

double SpinBox::valueFromText(const QString& text) const
{
    return NumberIn(text).value_or(value());
}

QValidator::State SpinBox::validate(QString& text, int& /*position*/) const
{
    const std::optional<double> number = NumberIn(text);
    return number && *number >= minimum() && *number <= maximum() ? QValidator::Acceptable
                                                                  : QValidator::Intermediate;
}

void SpinBox::fixup(QString& text) const
{
    text = textFromValue(std::clamp(valueFromText(text), minimum(), maximum()));
}

QAbstractSpinBox::StepEnabled SpinBox::stepEnabled() const
{
    return QDoubleSpinBox::stepEnabled() | (m_isAlwaysUp ? StepUpEnabled : StepNone);
}
