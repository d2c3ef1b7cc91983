#include "WBComputeBar.h"

#include "WBPanelControls.h"
#include "WBSumTexts.h"

#include "CATWBAllDataBuffer.h"

#include <algorithm>
#include <array>
#include <string>

namespace
{

using Definitions = CATENOWBCSCommonDefinitions;

// In the order of the lines.
constexpr std::array kEntities{Definitions::InstanceWithChildren, Definitions::Root,
                               Definitions::PartAlone};
constexpr std::array kStoredSums{WBStoredSums::Check, WBStoredSums::Force, WBStoredSums::Assume};

/// Caption and combo, side by side.
CATDlgCombo* AddChoice(CATDialog* parent, const char* name, int row, int column)
{
    auto* caption = new CATDlgLabel(parent, std::string(name) + "Label");
    caption->SetRole(CATDlgLabel::Role::Caption);
    caption->SetPlacement(row, column);
    auto* combo = new CATDlgCombo(parent, name);
    combo->SetPlacement(row, column + 1);
    return combo;
}

} // namespace

WBComputeBar::WBComputeBar(CATDialog* window, int row)
    : m_frame(new CATDlgFrame(window, "Compute", kWBPlainFrame))
{
    m_frame->SetPlacement(row, 0);
    m_frame->SetColumnStretch(1, 1);
    m_frame->SetColumnStretch(3, 1);
    m_entity = AddChoice(m_frame, "Entity", 0, 0);
    m_precision = AddChoice(m_frame, "Precision", 0, 2);
    m_filter = WBAddFact(m_frame, "Filter", 1, 0);
    m_storedSums = AddChoice(m_frame, "StoredSums", 1, 2);
    auto* levelLabel = new CATDlgLabel(m_frame, "LevelLabel");
    levelLabel->SetRole(CATDlgLabel::Role::Caption);
    levelLabel->SetPlacement(1, 4);
    m_level = new CATDlgEditor(m_frame, "Level");
    m_level->SetPlacement(1, 5, 1, 1, kWBOwnSize);
    m_level->SetVisibleTextWidth(3);
    m_level->SetText("0");
    m_compute = new CATDlgPushButton(m_frame, "ComputeButton");
    m_compute->SetPlacement(0, 4, 1, 2);
    for (std::size_t index = 0; index < kEntities.size(); ++index) {
        m_entity->SetLine(static_cast<int>(index), WBEntityText(kEntities[index]));
    }
    for (std::size_t index = 0; index < kStoredSums.size(); ++index) {
        m_storedSums->SetLine(static_cast<int>(index), WBStoredSumsText(kStoredSums[index]));
    }
    ShowWhetherALevelCounts();
}

void WBComputeBar::Offer(const CATWBAllDataBuffer* record, const CATUnicodeString& shownFilter)
{
    const CATUnicodeString chosen = Choice().precision;
    m_precisions = {WBComputationChoice::kActive, WBComputationChoice::kMostPrecise};
    if (record != nullptr) {
        CATListValCATUnicodeString massTypes;
        record->GetMassTypes(massTypes);
        const auto& names = massTypes.Items();
        m_precisions.insert(m_precisions.end(), names.begin(), names.end());
    }
    m_precision->RemoveAll();
    for (std::size_t index = 0; index < m_precisions.size(); ++index) {
        m_precision->SetLine(static_cast<int>(index), WBPrecisionChoiceText(m_precisions[index]));
    }
    const auto found = std::ranges::find(m_precisions, chosen);
    if (found != m_precisions.end()) {
        m_precision->Select(static_cast<int>(found - m_precisions.begin()));
    }
    m_filter->SetTitle(shownFilter);
    m_compute->SetSensitivity(record != nullptr);
}

WBComputationChoice WBComputeBar::Choice() const
{
    WBComputationChoice choice;
    choice.entity = kEntities[static_cast<std::size_t>(std::max(m_entity->SelectedIndex(), 0))];
    choice.storedSums =
        kStoredSums[static_cast<std::size_t>(std::max(m_storedSums->SelectedIndex(), 0))];
    choice.level = m_level->Text();
    const auto precision = static_cast<std::size_t>(std::max(m_precision->SelectedIndex(), 0));
    if (precision < m_precisions.size()) {
        choice.precision = m_precisions[precision];
    }
    return choice;
}

void WBComputeBar::ShowWhetherALevelCounts()
{
    m_level->SetSensitivity(Choice().storedSums == WBStoredSums::Assume);
}
