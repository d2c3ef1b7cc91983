#include "WBComputeBar.h"

#include "WBPanelControls.h"
#include "WBSumTexts.h"

#include "CATWBAllDataBuffer.h"

#include <algorithm>
#include <array>

namespace
{

using Definitions = CATENOWBCSCommonDefinitions;

// In the order of the lines.
constexpr std::array kEntities{Definitions::InstanceWithChildren, Definitions::Root,
                               Definitions::PartAlone};

} // namespace

WBComputeBar::WBComputeBar(CATDialog* window, int row)
    : m_frame(new CATDlgFrame(window, "Compute", kWBPlainFrame)),
      m_entity(WBAddChoice(m_frame, "Entity", 0, 0)),
      m_sums(m_frame, {0, 2}, {1, 2}),
      m_filter(WBAddFact(m_frame, "Filter", 1, 0)),
      m_compute(new CATDlgPushButton(m_frame, "ComputeButton"))
{
    m_frame->SetPlacement(row, 0);
    m_frame->SetColumnStretch(1, 1);
    m_frame->SetColumnStretch(3, 1);
    m_compute->SetPlacement(0, 4, 1, 2);
    for (std::size_t index = 0; index < kEntities.size(); ++index) {
        m_entity->SetLine(static_cast<int>(index), WBEntityText(kEntities[index]));
    }
}

void WBComputeBar::Offer(const CATWBAllDataBuffer* record, const CATUnicodeString& shownFilter)
{
    CATListValCATUnicodeString massTypes;
    if (record != nullptr) {
        record->GetMassTypes(massTypes);
    }
    m_sums.Offer(massTypes.Items());
    m_filter->SetTitle(shownFilter);
    m_compute->SetSensitivity(record != nullptr);
}

WBComputationChoice WBComputeBar::Choice() const
{
    WBComputationChoice choice;
    choice.entity = kEntities[static_cast<std::size_t>(std::max(m_entity->SelectedIndex(), 0))];
    m_sums.Read(choice);
    return choice;
}
