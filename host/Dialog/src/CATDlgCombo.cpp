#include "CATDlgControls.h"
#include "FieldLook.h"
#include "StyleWords.h"
#include "Toolkit.h"
#include "WholeText.h"

#include <QComboBox>
#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <QWheelEvent>

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

/// A combo whose chosen line ends in an ellipsis where it does not fit, and shows whole in the
/// tooltip.
class ComboBox : public QComboBox
{
public:
    using QComboBox::QComboBox;

    void SetLook(CATDlgLook look)
    {
        m_look = look;
        TakeLook(*this, look);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QStylePainter painter(this);
        QStyleOptionComboBox option;
        initStyleOption(&option);
        painter.drawComplexControl(QStyle::CC_ComboBox, option);
        option.currentText = fontMetrics().elidedText(currentText(), Qt::ElideRight, Room(option));
        const int signRoom = SignRoom(*this, m_look);
        if (signRoom > 0) {
            const FieldLook& look = FieldLookOf(m_look);
            painter.setPen(look.colour());
            painter.drawText(rect().adjusted(kFrame, 0, 0, 0),
                             static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter),
                             QString::fromUtf8(look.sign));
            option.rect.setLeft(signRoom);
        }
        painter.drawControl(QStyle::CE_ComboBoxLabel, option);
    }

    void wheelEvent(QWheelEvent* event) override
    {
        if (hasFocus()) {
            QComboBox::wheelEvent(event);
        } else {
            event->ignore();
        }
    }

    bool event(QEvent* event) override
    {
        return ShowWholeText(*this, *event, currentText(), IsCut()) || QComboBox::event(event);
    }

private:
    bool IsCut() const
    {
        QStyleOptionComboBox option;
        initStyleOption(&option);
        return fontMetrics().horizontalAdvance(currentText()) > Room(option);
    }

    int Room(const QStyleOptionComboBox& option) const
    {
        return style()
                   ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField,
                                    this)
                   .width() -
               2 - SignRoom(*this, m_look);
    }

    static constexpr int kFrame = 5;
    CATDlgLook m_look = CATDlgLook::Plain;
};

} // namespace

CATDlgCombo::CATDlgCombo(CATDialog* parent, const CATString& name, int style)
    : CATDialog(parent, name, style)
{
    QWidget* inside = Inside(parent);
    if (inside == nullptr) {
        return;
    }
    auto* combo = new ComboBox(inside);
    combo->setInsertPolicy(QComboBox::NoInsert);
    combo->setFocusPolicy(Qt::StrongFocus); // the wheel brings no keys
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

void CATDlgCombo::SetLook(CATDlgLook look)
{
    m_look = look;
    if (auto* combo = dynamic_cast<ComboBox*>(Widget())) {
        combo->SetLook(look);
    }
}
