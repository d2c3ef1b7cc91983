#pragma once

#include "CATUnicodeString.h"

#include <QDoubleSpinBox>

/// A number with two buttons, read and written as the session writes numbers.
class SpinBox : public QDoubleSpinBox
{
public:
    explicit SpinBox(QWidget* parent);
    void SetFormat(const CATUnicodeString& format);
    void SetVisibleCharacters(int characters);
    void SetAlwaysUp(bool isAlwaysUp);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

    QString textFromValue(double value) const override;
    double valueFromText(const QString& text) const override;
    QValidator::State validate(QString& text, int& position) const override;
    void fixup(QString& text) const override;

protected:
    StepEnabled stepEnabled() const override;

private:
    CATUnicodeString m_format{"%g"};
    int m_characters;
    bool m_isAlwaysUp = false;
};
