#include "CATWBVPMNavReportPreview.h"

#include "VirtualSlots.h"

#include <gtest/gtest.h>

// Libraries built against an earlier header call virtual operations by their place in the table.

TEST(ReportPreviewSlots, OperationsFollowThoseOfTheDialogInTheirOrder)
{
    using Preview = CATWBVPMNavReportPreview;
    std::ptrdiff_t slot = SlotOf(&SlotProbe<CATDlgDialog>::Added);
    EXPECT_EQ(SlotOf(&Preview::OnSaveNotification), slot++);
    EXPECT_EQ(SlotOf(&Preview::OnCloseNotification), slot++);
    EXPECT_EQ(SlotOf(&Preview::OnUnitsDisplayNotification), slot++);
    EXPECT_EQ(SlotOf(&Preview::CountAncestors), slot++);
    EXPECT_EQ(SlotOf(&Preview::PrintNode), slot++);
    EXPECT_EQ(SlotOf(&Preview::UpdatePreviewPanelList), slot++);
    EXPECT_EQ(SlotOf(&Preview::OnTrailingZeroNotification), slot++);
    EXPECT_EQ(SlotOf(&Preview::OnTrailingDigitsNotification), slot++);
    EXPECT_EQ(SlotOf(&Preview::OnSaveToNotification), slot++);
    EXPECT_EQ(SlotOf(&SlotProbe<Preview>::Added), slot);
}

TEST(ReportPreviewSlots, ResourceQueryKeepsItsPlace)
{
    EXPECT_EQ(SlotOf(&CATWBVPMNavReportPreview::GetResourceFilename),
              SlotOf(&CATCommand::GetResourceFilename));
}
