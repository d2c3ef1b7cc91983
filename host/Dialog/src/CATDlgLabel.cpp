#include "Appearance.h"
#include "CATDlgControls.h"
#include "TextLabel.h"

#include <QApplication>

#include <array>

namespace
{

struct RoleLook
{
    double size; ///< times the usual font's
    QFont::Weight weight;
    QColor (*colour)();  ///< null: the usual text's
    const char* sign;    ///< carries the meaning where colours are not seen
    const char* meaning; ///< for those who hear it
};

// In the order of CATDlgLabel::Role.
constexpr std::array kRoles{
    RoleLook{1.0, QFont::Normal, nullptr, "", ""},
    RoleLook{1.3, QFont::DemiBold, nullptr, "", ""},
    RoleLook{1.0, QFont::Normal, &QuietColour, "", ""},
    RoleLook{1.0, QFont::Normal, &GoodColour, "\u2713", "good"},
    RoleLook{1.0, QFont::Normal, &WarningColour, "\u26a0", "warning"},
    RoleLook{1.0, QFont::DemiBold, &ProblemColour, "\u2715", "problem"},
};

// The corner that a marked cell of a list has.
constexpr const char* kChangedSign = "\u25e5";

} // namespace

CATDlgLabel::CATDlgLabel(CATDialog* parent, const CATString& name, int style)
    : CATDialog(parent, name, style)
{
    if (QWidget* inside = Inside(parent)) {
        Adopt(new TextLabel(inside));
    }
}

void CATDlgLabel::SetRole(Role role)
{
    m_role = role;
    ShowLook();
}

void CATDlgLabel::SetMark(bool marked)
{
    m_isMarked = marked;
    ShowLook();
}

void CATDlgLabel::ShowLook()
{
    auto* label = dynamic_cast<TextLabel*>(Widget());
    if (label == nullptr) {
        return;
    }
    RoleLook look = kRoles[static_cast<std::size_t>(m_role)];
    if (m_isMarked) {
        look.colour = &ChangedColour;
        look.sign = kChangedSign;
        look.meaning = "changed";
    }
    QFont font = QApplication::font();
    font.setPointSizeF(font.pointSizeF() * look.size);
    font.setWeight(look.weight);
    label->setFont(font);
    QPalette palette = QApplication::palette();
    if (look.colour != nullptr) {
        for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
            palette.setColor(group, QPalette::WindowText, look.colour());
            palette.setColor(group, QPalette::Text, look.colour());
        }
    }
    label->setPalette(palette);
    if (m_role == Role::Caption) {
        // It says what stands beside it: the Tab key goes to that.
        label->setFocusPolicy(Qt::ClickFocus);
    }
    label->SetSign(QString::fromUtf8(look.sign));
    label->setAccessibleDescription(QString::fromUtf8(look.meaning));
}
