#include "WBReportPlacing.h"

#include "WBPanelControls.h"
#include "WBPanelUnits.h"
#include "WBPickedInstances.h"
#include "WBTurn.h"
#include "WBTypedNumber.h"

#include "CATCkeGlobalFunctions.h"

#include <algorithm>
#include <span>
#include <string>

namespace
{

constexpr const char* kLength = "LENGTH";
constexpr int kFieldCharacters = 7;

struct FieldRow
{
    const char* name; // of the control
    const char* key;
    const char* defaultName;
};
constexpr std::array kPoint{FieldRow{"PointX", "PointX.Name", "@X of the reference point"},
                            FieldRow{"PointY", "PointY.Name", "@Y of the reference point"},
                            FieldRow{"PointZ", "PointZ.Name", "@Z of the reference point"}};
constexpr std::array kTurns{FieldRow{"TurnX", "TurnX.Name", "@Turn about x"},
                            FieldRow{"TurnY", "TurnY.Name", "@Turn about y"},
                            FieldRow{"TurnZ", "TurnZ.Name", "@Turn about z"}};

CATUnicodeString NameOf(const FieldRow& field)
{
    return WBReportText(field.key, field.defaultName);
}

CATICkeUnit_var CurrentLengthUnit()
{
    const CATICkeMagnitude_var length =
        CATCkeGlobalFunctions::GetParmDictionary()->FindMagnitude(kLength);
    return length.IsNull() ? CATICkeUnit_var() : length->CurrentUnit();
}

bool IsEmpty(const CATDlgEditor& editor)
{
    return editor.Text().Stripped().IsEmpty();
}

bool AreEmpty(std::span<CATDlgEditor* const> editors)
{
    return std::ranges::all_of(editors,
                               [](const CATDlgEditor* editor) { return IsEmpty(*editor); });
}

/// Caption and field; the caption is the one that the resources give.
CATDlgEditor* AddField(CATDlgFrame* frame, const char* name, int column)
{
    auto* editor = new CATDlgEditor(frame, name);
    editor->SetPlacement(0, column + 1);
    editor->SetVisibleTextWidth(kFieldCharacters);
    editor->SetRightAligned(true);
    return editor;
}

CATDlgLabel* AddCaption(CATDlgFrame* frame, const char* name, int column)
{
    auto* caption = new CATDlgLabel(frame, std::string(name) + "Label");
    caption->SetRole(CATDlgLabel::Role::Caption);
    caption->SetPlacement(0, column);
    return caption;
}

CATUnicodeString NoNumber(const FieldRow& field, const CATDlgEditor& editor,
                          const CATUnicodeString& unit)
{
    return WBReportText("NumberError.Text",
                        "@/p1: \"/p2\" is no number. Expected a number in /p3 from -1000000000 to "
                        "1000000000, such as 2500, 2500.5 or 2500/2, or nothing for 0.",
                        {NameOf(field), editor.Text(), unit});
}

} // namespace

WBReportPlacing::WBReportPlacing(CATDialog* window)
    : CATDlgFrame(window, "Placing", kWBPlainFrame), m_lengthUnit(CurrentLengthUnit())
{
    SetColumnStretch(0, 1);
    SetColumnStretch(1, 1);
    BuildReference();
    BuildAxes();
    FollowLengthUnit();
    ShowWhetherInertiaIsMoved();
}

void WBReportPlacing::BuildReference()
{
    m_referenceFrame = new CATDlgFrame(this, "Reference");
    m_referenceFrame->SetPlacement(0, 0);
    int column = 0;
    for (std::size_t axis = 0; axis < kAxes; ++axis, column += 2) {
        m_pointLabels[axis] = AddCaption(m_referenceFrame, kPoint[axis].name, column);
        m_point[axis] = AddField(m_referenceFrame, kPoint[axis].name, column);
        m_referenceFrame->SetColumnStretch(column + 1, 1);
        Subscribe(m_point[axis], CATDlgEditor::Modified,
                  [this](const CATNotification&) { ShowWhetherInertiaIsMoved(); });
    }
    m_keepInertia = new CATDlgCheckButton(m_referenceFrame, "KeepInertia");
    m_keepInertia->SetPlacement(1, 0, 1, column);
}

void WBReportPlacing::BuildAxes()
{
    m_axesFrame = new CATDlgFrame(this, "Axes");
    m_axesFrame->SetPlacement(0, 1);
    int column = 0;
    for (std::size_t axis = 0; axis < kAxes; ++axis, column += 2) {
        AddCaption(m_axesFrame, kTurns[axis].name, column);
        m_angles[axis] = AddField(m_axesFrame, kTurns[axis].name, column);
        m_angles[axis]->SetAccessibleName(NameOf(kTurns[axis]));
        m_axesFrame->SetColumnStretch(column + 1, 1);
    }
    WBAddNote(m_axesFrame, "Note", 1, column);
}

void WBReportPlacing::ShowWhatCounts(bool hasCentre, bool hasInertia)
{
    m_hasCentre = hasCentre;
    m_hasInertia = hasInertia;
    m_referenceFrame->SetSensitivity(hasCentre);
    m_axesFrame->SetSensitivity(hasCentre || hasInertia);
    ShowWhetherInertiaIsMoved();
}

void WBReportPlacing::ShowWhetherInertiaIsMoved()
{
    m_keepInertia->SetSensitivity(m_hasInertia && HasPoint());
}

bool WBReportPlacing::HasPoint() const
{
    return !AreEmpty(m_point);
}

std::optional<double> WBReportPlacing::Millimetres(std::size_t axis) const
{
    const CATUnicodeString text = m_point[axis]->Text();
    if (!text.IsEmpty() && text == m_written[axis].text) {
        return m_written[axis].millimetres;
    }
    const std::optional<double> number =
        IsEmpty(*m_point[axis]) ? std::optional(0.0) : WBReadTypedNumber(text);
    if (!number || m_lengthUnit.IsNull()) {
        return number;
    }
    return m_lengthUnit->ToStorage(*number);
}

void WBReportPlacing::FollowLengthUnit()
{
    std::array<std::optional<double>, kAxes> before;
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        before[axis] = Millimetres(axis);
    }
    const CATICkeUnit_var unit = CurrentLengthUnit();
    const bool isSame = unit == m_lengthUnit;
    m_lengthUnit = unit;
    constexpr std::array kNames{"X", "Y", "Z"};
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        m_pointLabels[axis]->SetTitle(WBTitleWithUnit(kNames[axis], kLength));
        m_point[axis]->SetAccessibleName(WBTitleWithUnit(NameOf(kPoint[axis]), kLength));
        // What is no number stays for the user to mend, and nothing stays nothing.
        if (!isSame && before[axis] && !IsEmpty(*m_point[axis])) {
            m_written[axis] = {WBNumberInUnit(unit, *before[axis]), *before[axis]};
            m_point[axis]->SetText(m_written[axis].text);
        }
    }
}

WBReportPlacing::Reading WBReportPlacing::Read() const
{
    Reading reading;
    if (m_hasCentre || m_hasInertia) {
        ReadAxes(reading);
    }
    if (m_hasCentre && reading.problem.IsEmpty()) {
        ReadReference(reading);
    }
    return reading;
}

void WBReportPlacing::ReadReference(Reading& reading) const
{
    if (!HasPoint()) {
        return;
    }
    std::array<double, kAxes> point{};
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        const std::optional<double> length = Millimetres(axis);
        if (!length) {
            reading.problem = NoNumber(kPoint[axis], *m_point[axis], WBUnitSymbol(kLength));
            return;
        }
        point[axis] = *length;
    }
    reading.placing.reference = CATMathPoint(point[0], point[1], point[2]);
    reading.placing.keepsInertiaAtCentre = m_keepInertia->IsChecked();
}

void WBReportPlacing::ReadAxes(Reading& reading) const
{
    std::array<double, kAxes> angles{};
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        if (IsEmpty(*m_angles[axis])) {
            continue;
        }
        const std::optional<double> angle = WBReadTypedNumber(m_angles[axis]->Text());
        if (!angle) {
            reading.problem =
                NoNumber(kTurns[axis], *m_angles[axis], WBReportText("Degrees", "@degrees"));
            return;
        }
        angles[axis] = *angle;
    }
    // Turning by nothing would only round every figure to six digits.
    const CATMath3x3Matrix turn = WBTurnMatrix(angles[0], angles[1], angles[2]);
    if (!(turn == CATMath3x3Matrix::Identity())) {
        reading.placing.axes = turn;
    }
}
