#pragma once

#include "CATDlgControls.h"

#include <QLineEdit>

#include <functional>

/// A line of text. A read-only one lies flat on its window; a text that is cut shows its beginning,
/// and whole in the tooltip.
class LineEditor : public QLineEdit
{
public:
    LineEditor(QWidget* parent, bool isReadOnly);
    void SetVisibleCharacters(int characters);
    bool IsCut() const;
    /// A text that comes from the program: what Esc leads back to.
    void SetGivenText(const QString& text);
    void SetLook(CATDlgLook look);
    /// Who hears that the user is done with a text that he changed, and that he took it back.
    void SetListeners(std::function<void()> onFinished, std::function<void()> onTakenBack);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    int WidthOf(int characters) const;
    void PaintSign();
    void TellIfFinished();
    bool CanBeTakenBack() const;

    int m_characters;
    QString m_given;        ///< by the program
    bool m_isTyped = false; ///< by the user since then, or since the listener was told
    CATDlgLook m_look = CATDlgLook::Plain;
    std::function<void()> m_onFinished;
    std::function<void()> m_onTakenBack;
};
