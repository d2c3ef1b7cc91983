#include "CATDlgControls.h"
#include "LineEditor.h"
#include "StyleWords.h"
#include "Toolkit.h"

#include <array>

const CATEvent CATDlgEditor::Modified("EditorModified");
const CATEvent CATDlgEditor::Finished("EditorFinished");
const CATEvent CATDlgEditor::TakenBack("EditorTakenBack");

namespace
{

enum class Editing
{
    ReadOnly,
    Editable
};
constexpr std::array kEditorWords{StyleWord<Editing>{0x4000000, Editing::ReadOnly},
                                  StyleWord<Editing>{0x200000, Editing::Editable}};

} // namespace

CATDlgEditor::CATDlgEditor(CATDialog* parent, const CATString& name, int style)
    : CATDialog(parent, name, style)
{
    QWidget* inside = Inside(parent);
    if (inside == nullptr) {
        return;
    }
    const Editing editing = LookOf<Editing>(style, kEditorWords, Editing::Editable);
    auto* editor = new LineEditor(inside, editing == Editing::ReadOnly);
    Adopt(editor);
    QObject::connect(editor, &QLineEdit::textEdited, editor,
                     [this] { SendFromUser(*this, Modified); });
    editor->SetListeners([this] { SendFromUser(*this, Finished); },
                         [this] { SendFromUser(*this, TakenBack); });
}

void CATDlgEditor::SetText(const CATUnicodeString& text)
{
    if (auto* editor = dynamic_cast<LineEditor*>(Widget())) {
        editor->SetGivenText(ToQt(text));
    }
}

CATUnicodeString CATDlgEditor::Text() const
{
    auto* editor = qobject_cast<QLineEdit*>(Widget());
    return editor == nullptr ? CATUnicodeString() : FromQt(editor->text());
}

void CATDlgEditor::SetVisibleTextWidth(int characters)
{
    if (auto* editor = dynamic_cast<LineEditor*>(Widget())) {
        editor->SetVisibleCharacters(characters);
    }
}

void CATDlgEditor::SetRightAligned(bool rightAligned)
{
    if (auto* editor = qobject_cast<QLineEdit*>(Widget())) {
        editor->setAlignment((rightAligned ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    }
}

void CATDlgEditor::SetEmptyText(const CATUnicodeString& text)
{
    if (auto* editor = qobject_cast<QLineEdit*>(Widget())) {
        editor->setPlaceholderText(ToQt(text));
    }
}

void CATDlgEditor::SetLook(CATDlgLook look)
{
    m_look = look;
    if (auto* editor = dynamic_cast<LineEditor*>(Widget())) {
        editor->SetLook(look);
    }
}
