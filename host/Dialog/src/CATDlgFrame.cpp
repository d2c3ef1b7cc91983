#include "CATDlgControls.h"
#include "StyleWords.h"

#include <QGroupBox>
#include <QLayout>

#include <array>

namespace
{

enum class Border
{
    Titled,
    None
};
constexpr std::array kFrameWords{StyleWord<Border>{1, Border::Titled},
                                 StyleWord<Border>{0x80001, Border::None},
                                 StyleWord<Border>{0x40001, Border::None}};

} // namespace

CATDlgFrame::CATDlgFrame(CATDialog* parent, const CATString& name, int style)
    : CATDialog(parent, name, style)
{
    QWidget* inside = Inside(parent);
    if (inside == nullptr) {
        return;
    }
    if (LookOf<Border>(style, kFrameWords, Border::None) == Border::Titled) {
        auto* box = new QGroupBox(inside);
        Adopt(box, nullptr, box);
    } else {
        auto* box = new QWidget(inside);
        Adopt(box, nullptr, box);
        // Without a border the controls line up with those beside the frame.
        box->layout()->setContentsMargins(0, 0, 0, 0);
    }
}
