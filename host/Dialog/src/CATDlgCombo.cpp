#include "CATDlgControls.h"
#include "StyleWords.h"
#include "Toolkit.h"

#include <QComboBox>

#include <array>

const CATEvent CATDlgCombo::Selected("ComboSelected");

namespace
{

enum class Typing
{
    FindsALine,
    None
};
constexpr std::array kComboWords{StyleWord<Typing>{0x40000, Typing::None}};
// A combo asks for so much and shows longer lines cut; its list is as wide as its lines.
constexpr int kVisibleCharacters = 12;

} // namespace

CATDlgCombo::CATDlgCombo(CATDialog* parent, const CATString& name, int style)
    : CATDialog(parent, name, style)
{
    QWidget* inside = Inside(parent);
    if (inside == nullptr) {
        return;
    }
    auto* combo = new QComboBox(inside);
    combo->setInsertPolicy(QComboBox::NoInsert);
    combo->setEditable(LookOf<Typing>(style, kComboWords, Typing::FindsALine) ==
                       Typing::FindsALine);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo->setMinimumContentsLength(kVisibleCharacters);
    combo->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    Adopt(combo);
    QObject::connect(combo, &QComboBox::currentIndexChanged, combo,
                     [this](int index) { SendFromUser(*this, Selected, index); });
}

void CATDlgCombo::SetLine(int index, const CATUnicodeString& text)
{
    auto* combo = qobject_cast<QComboBox*>(Widget());
    if (combo == nullptr || index < 0 || index > combo->count()) {
        return;
    }
    const Quiet quiet;
    if (index == combo->count()) {
        combo->addItem(ToQt(text));
    } else {
        combo->setItemText(index, ToQt(text));
    }
    combo->setItemData(index, ToQt(text), Qt::ToolTipRole);
}

void CATDlgCombo::RemoveAll()
{
    if (auto* combo = qobject_cast<QComboBox*>(Widget())) {
        const Quiet quiet;
        combo->clear();
    }
}

int CATDlgCombo::LineCount() const
{
    auto* combo = qobject_cast<QComboBox*>(Widget());
    return combo == nullptr ? 0 : combo->count();
}

CATUnicodeString CATDlgCombo::Line(int index) const
{
    auto* combo = qobject_cast<QComboBox*>(Widget());
    return combo == nullptr ? CATUnicodeString() : FromQt(combo->itemText(index));
}

int CATDlgCombo::SelectedIndex() const
{
    auto* combo = qobject_cast<QComboBox*>(Widget());
    return combo == nullptr ? -1 : combo->currentIndex();
}

void CATDlgCombo::Select(int index)
{
    if (auto* combo = qobject_cast<QComboBox*>(Widget())) {
        const Quiet quiet;
        combo->setCurrentIndex(index < combo->count() ? index : -1);
    }
}
