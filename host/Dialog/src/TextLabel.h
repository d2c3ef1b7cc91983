#pragma once

#include <QLabel>

/// A text that ends in an ellipsis where it does not fit, and then shows whole in its tooltip. The
/// whole text can be selected and copied, by mouse and keyboard, also where it is cut.
class TextLabel : public QLabel
{
public:
    explicit TextLabel(QWidget* parent);

    /// A sign before the text, in the text's colour; empty for none. It is painted beside the text,
    /// so it is neither copied nor part of the text.
    void SetSign(const QString& sign);
    /// Makes `field` the one that this label names.
    void Announce(QWidget* field);
    /// The text without the colon and the blanks at its end.
    QString SpokenText() const;
    bool IsCut() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void CopyWhatIsMeant() const;
    QString LongestLine() const;

    QString m_sign;
};
