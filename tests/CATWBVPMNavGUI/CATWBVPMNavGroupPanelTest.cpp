#include "CATWBVPMNavGroupPanel.h"

#include "VirtualSlots.h"

#include "CATWBVPMNavGUITable.h"

#include <gtest/gtest.h>

// Libraries built against an earlier header call virtual operations by their place in the table.

namespace
{

using Panel = CATWBVPMNavGroupPanel;

} // namespace

TEST(CATWBVPMNavGroupPanel, OperationsKeepTheirOrder)
{
    const std::ptrdiff_t first = SlotOf(&SlotProbe<CATDlgDialog>::Added);
    EXPECT_EQ(SlotOf(&Panel::Build), first);
    EXPECT_EQ(SlotOf(&Panel::IsInstanceInputActive), first + 1);
    EXPECT_EQ(SlotOf(&Panel::AddValuesInMultiList), first + 2);
    EXPECT_EQ(SlotOf(&Panel::SetWMMInstance), first + 3);
    EXPECT_EQ(SlotOf(&Panel::GetCloseButton), first + 4);
    EXPECT_EQ(SlotOf(&SlotProbe<Panel>::Added), first + 5);
}

TEST(CATWBVPMNavGroupPanel, ThereIsNoPanelWithoutAPanelsLibrary)
{
    const CATWBVPMNavGUITable before = CATWBVPMNavGUISetTable({});
    EXPECT_EQ(Panel::Create(nullptr, "LA1", "FUS-000", "A"), nullptr);
    CATWBVPMNavGUISetTable(before);
}
