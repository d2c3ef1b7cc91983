#include "CATTEQWBComputePartCmd.h"
#include "CATWBComputeCmd.h"
#include "CATWBVPMMainPanel.h"
#include "VirtualSlots.h"

#include <gtest/gtest.h>

// Libraries built against an earlier header call virtual operations by their place in the table.

TEST(SlotOrder, CommandAddsNoVirtualOperationToTheStateCommand)
{
    EXPECT_EQ(SlotOf(&SlotProbe<CATTEQWBComputePartCmd>::Added),
              SlotOf(&SlotProbe<CATStateCommand>::Added));
}

TEST(SlotOrder, CommandKeepsTheTableOfTheCommandBase)
{
    EXPECT_EQ(SlotOf(&CATTEQWBComputePartCmd::Activate), SlotOf(&CATCommand::Activate));
    EXPECT_EQ(SlotOf(&CATTEQWBComputePartCmd::Desactivate), SlotOf(&CATCommand::Activate) + 1);
    EXPECT_EQ(SlotOf(&CATTEQWBComputePartCmd::Cancel), SlotOf(&CATCommand::Activate) + 2);
    EXPECT_EQ(SlotOf(&CATTEQWBComputePartCmd::GetResourceFilename),
              SlotOf(&CATCommand::Activate) + 3);
}

TEST(SlotOrder, ComputeCommandAddsOneOperationToTheDialog)
{
    const std::ptrdiff_t first = SlotOf(&SlotProbe<CATDlgDialog>::Added);
    EXPECT_EQ(SlotOf(&CATWBComputeCmd::OnModifyUnit), first);
    EXPECT_EQ(SlotOf(&SlotProbe<CATWBComputeCmd>::Added), first + 1);
}

TEST(SlotOrder, ComputeCommandKeepsTheTableOfTheCommandBase)
{
    EXPECT_EQ(SlotOf(&CATWBComputeCmd::Activate), SlotOf(&CATCommand::Activate));
    EXPECT_EQ(SlotOf(&CATWBComputeCmd::Desactivate), SlotOf(&CATCommand::Activate) + 1);
    EXPECT_EQ(SlotOf(&CATWBComputeCmd::Cancel), SlotOf(&CATCommand::Activate) + 2);
    EXPECT_EQ(SlotOf(&CATWBComputeCmd::GetResourceFilename), SlotOf(&CATCommand::Activate) + 3);
}

TEST(SlotOrder, MainPanelsOperationsFollowThoseOfTheDialogInTheirOrder)
{
    const std::ptrdiff_t first = SlotOf(&SlotProbe<CATDlgDialog>::Added);
    EXPECT_EQ(SlotOf(&CATWBVPMMainPanel::SetModel), first);
    EXPECT_EQ(SlotOf(&CATWBVPMMainPanel::GetCloseButton), first + 1);
    EXPECT_EQ(SlotOf(&SlotProbe<CATWBVPMMainPanel>::Added), first + 2);
}
