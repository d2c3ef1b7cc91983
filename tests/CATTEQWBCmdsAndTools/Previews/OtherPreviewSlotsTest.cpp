#include "CATWBVPMNavDistributiveReportPreview.h"
#include "CATWBVPMNavMatStatPreview.h"

#include "VirtualSlots.h"

// Libraries built against an earlier header call virtual operations by their place in the table.

TEST(DistributiveReportPreviewSlots, OperationsFollowThoseOfTheDialogInTheirOrder)
{
    using Preview = CATWBVPMNavDistributiveReportPreview;
    std::ptrdiff_t slot = SlotOf(&SlotProbe<CATDlgDialog>::Added);
    EXPECT_EQ(SlotOf(&Preview::OnSaveNotification), slot++);
    EXPECT_EQ(SlotOf(&Preview::OnCloseNotification), slot++);
    EXPECT_EQ(SlotOf(&Preview::OnSaveAsNotification), slot++);
    EXPECT_EQ(SlotOf(&Preview::OnUnitsDisplayNotification), slot++);
    EXPECT_EQ(SlotOf(&Preview::OnTrailingZeroNotification), slot++);
    EXPECT_EQ(SlotOf(&Preview::OnTrailingDigitsNotification), slot++);
    EXPECT_EQ(SlotOf(&Preview::CountAncestors), slot++);
    EXPECT_EQ(SlotOf(&Preview::PrintNode), slot++);
    EXPECT_EQ(SlotOf(&Preview::UpdatePreviewPanelList), slot++);
    EXPECT_EQ(SlotOf(&SlotProbe<Preview>::Added), slot);
    EXPECT_EQ(SlotOf(&Preview::GetResourceFilename), SlotOf(&CATCommand::GetResourceFilename));
}

TEST(MatStatPreviewSlots, OperationsFollowThoseOfTheDialogInTheirOrder)
{
    using Preview = CATWBVPMNavMatStatPreview;
    std::ptrdiff_t slot = SlotOf(&SlotProbe<CATDlgDialog>::Added);
    EXPECT_EQ(SlotOf(&Preview::OnSaveNotification), slot++);
    EXPECT_EQ(SlotOf(&Preview::OnCloseNotification), slot++);
    EXPECT_EQ(SlotOf(&Preview::OnSaveAsNotification), slot++);
    EXPECT_EQ(SlotOf(&Preview::PrintNode), slot++);
    EXPECT_EQ(SlotOf(&Preview::UpdatePreviewPanelList), slot++);
    EXPECT_EQ(SlotOf(&Preview::OnUnitsDisplayNotification), slot++);
    EXPECT_EQ(SlotOf(&Preview::OnTrailingZeroNotification), slot++);
    EXPECT_EQ(SlotOf(&Preview::OnTrailingDigitsNotification), slot++);
    EXPECT_EQ(SlotOf(&SlotProbe<Preview>::Added), slot);
    EXPECT_EQ(SlotOf(&Preview::GetResourceFilename), SlotOf(&CATCommand::GetResourceFilename));
}
