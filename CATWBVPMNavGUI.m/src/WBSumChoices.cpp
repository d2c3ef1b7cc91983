#include "WBSumChoices.h"

#include "WBPanelControls.h"
#include "WBSumTexts.h"

#include "CATWBServices.h"

#include <algorithm>
#include <array>

namespace
{

constexpr int kErrorStyle = 0x10000000;

// In the order of the lines.
constexpr std::array kStoredSums{WBStoredSums::Check, WBStoredSums::Force, WBStoredSums::Assume};

} // namespace

WBSumChoices::WBSumChoices(CATDialog* frame, Cell precision, Cell storedSums, Level level)
{
    m_precision = WBAddChoice(frame, "Precision", precision.row, precision.column);
    m_storedSums = WBAddChoice(frame, "StoredSums", storedSums.row, storedSums.column);
    if (level == Level::Offered) {
        AddLevel(frame, storedSums);
    }
    // The last way is the one that takes a level.
    const std::size_t ways = kStoredSums.size() - (level == Level::Offered ? 0 : 1);
    for (std::size_t index = 0; index < ways; ++index) {
        m_storedSums->SetLine(static_cast<int>(index), WBStoredSumsText(kStoredSums[index]));
    }
}

void WBSumChoices::AddLevel(CATDialog* frame, Cell storedSums)
{
    auto* levelLabel = new CATDlgLabel(frame, "LevelLabel");
    levelLabel->SetRole(CATDlgLabel::Role::Caption);
    levelLabel->SetPlacement(storedSums.row, storedSums.column + 2);
    m_level = new CATDlgEditor(frame, "Level");
    m_level->SetPlacement(storedSums.row, storedSums.column + 3, 1, 1, kWBOwnSize);
    m_level->SetVisibleTextWidth(3);
    m_level->SetText("0");
    ShowWhetherALevelCounts();
}

void WBSumChoices::Offer(const std::vector<CATUnicodeString>& massTypes)
{
    WBComputationChoice before;
    Read(before);
    m_precisions = {WBComputationChoice::kActive, WBComputationChoice::kMostPrecise};
    m_precisions.insert(m_precisions.end(), massTypes.begin(), massTypes.end());
    m_precision->RemoveAll();
    for (std::size_t index = 0; index < m_precisions.size(); ++index) {
        m_precision->SetLine(static_cast<int>(index), WBPrecisionChoiceText(m_precisions[index]));
    }
    const auto found = std::ranges::find(m_precisions, before.precision);
    if (found != m_precisions.end()) {
        m_precision->Select(static_cast<int>(found - m_precisions.begin()));
    }
}

void WBSumChoices::Read(WBComputationChoice& choice) const
{
    choice.storedSums = ChosenStoredSums();
    if (m_level != nullptr) {
        choice.level = m_level->Text();
    }
    const auto precision = static_cast<std::size_t>(std::max(m_precision->SelectedIndex(), 0));
    if (precision < m_precisions.size()) {
        choice.precision = m_precisions[precision];
    }
}

void WBSumChoices::ShowWhetherALevelCounts()
{
    m_level->SetSensitivity(ChosenStoredSums() == WBStoredSums::Assume);
}

bool WBSumChoices::CheckLevel(CATDialog* window) const
{
    if (ChosenStoredSums() != WBStoredSums::Assume || WBIsLevel(m_level->Text())) {
        return true;
    }
    CATWBServices::DisplayMsg(window, WBPanelText("LevelError.Title", "@Level"),
                              WBPanelText("LevelError.Text",
                                          "@The level must be a whole number from 0 on; 0 is what "
                                          "is computed itself."),
                              kErrorStyle);
    return false;
}

WBStoredSums WBSumChoices::ChosenStoredSums() const
{
    return kStoredSums[static_cast<std::size_t>(std::max(m_storedSums->SelectedIndex(), 0))];
}
