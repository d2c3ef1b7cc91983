#include "CATWBVPMNavFilterPanel.h"

#include "VirtualSlots.h"

#include "CATWBVPMNavGUITable.h"

#include <gtest/gtest.h>

// Libraries built against an earlier header call virtual operations by their place in the table.

namespace
{

using Panel = CATWBVPMNavFilterPanel;

} // namespace

TEST(CATWBVPMNavFilterPanel, OperationsKeepTheirOrder)
{
    const std::ptrdiff_t first = SlotOf(&SlotProbe<CATDlgDialog>::Added);
    EXPECT_EQ(SlotOf(&Panel::SetPRCId), first);
    EXPECT_EQ(SlotOf(&Panel::Build), first + 1);
    EXPECT_EQ(SlotOf(&Panel::SetCurrentFilters), first + 2);
    EXPECT_EQ(SlotOf(&Panel::AddValuesInMultiList), first + 3);
    EXPECT_EQ(SlotOf(&Panel::GetOkButton), first + 4);
    EXPECT_EQ(SlotOf(&Panel::GetCancelButton), first + 5);
    EXPECT_EQ(SlotOf(&SlotProbe<Panel>::Added), first + 6);
}

TEST(CATWBVPMNavFilterPanel, WithoutAPanelsLibraryThereIsNoPanelAndNothingIsLeftOut)
{
    const CATWBVPMNavGUITable before = CATWBVPMNavGUISetTable({});
    EXPECT_EQ(Panel::Create(nullptr), nullptr);
    EXPECT_TRUE(Panel::IsValid("LA1", "FUS-000.1", "FUS-000", "A", 0, ""));
    CATWBVPMNavGUISetTable(before);
}
