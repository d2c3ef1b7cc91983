#pragma once

#include <QLineEdit>

/// A line of text. A read-only one lies flat on its window; a text that is cut shows its beginning,
/// and whole in the tooltip.
class LineEditor : public QLineEdit
{
public:
    LineEditor(QWidget* parent, bool isReadOnly);
    void SetVisibleCharacters(int characters);
    bool IsCut() const;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    int WidthOf(int characters) const;
    int m_characters;
};
