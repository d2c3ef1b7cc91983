#include "CATTEQWBComputePartCmd.h"
#include "CATWBComputeCmd.h"
#include "CATWBVPMMainPanel.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>

// Libraries built against an earlier header call virtual operations by their place in the table.

namespace
{

/// The place of a virtual operation in its table. A pointer to such a member begins with the offset
/// of the place in bytes, plus 1.
template <class Member>
std::ptrdiff_t SlotOf(Member member)
{
    std::ptrdiff_t encoded = 0;
    static_assert(sizeof(member) == 2 * sizeof(encoded));
    std::memcpy(&encoded, &member, sizeof(encoded));
    EXPECT_EQ(encoded % static_cast<std::ptrdiff_t>(sizeof(void*)), 1) << "is not virtual";
    return (encoded - 1) / static_cast<std::ptrdiff_t>(sizeof(void*));
}

/// A virtual operation added to a class stands behind all that the class has.
template <class Class>
class Probe : public Class
{
public:
    using Class::Class;
    virtual void Added() {}
};

} // namespace

TEST(SlotOrder, CommandAddsNoVirtualOperationToTheStateCommand)
{
    EXPECT_EQ(SlotOf(&Probe<CATTEQWBComputePartCmd>::Added),
              SlotOf(&Probe<CATStateCommand>::Added));
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
    const std::ptrdiff_t first = SlotOf(&Probe<CATDlgDialog>::Added);
    EXPECT_EQ(SlotOf(&CATWBComputeCmd::OnModifyUnit), first);
    EXPECT_EQ(SlotOf(&Probe<CATWBComputeCmd>::Added), first + 1);
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
    const std::ptrdiff_t first = SlotOf(&Probe<CATDlgDialog>::Added);
    EXPECT_EQ(SlotOf(&CATWBVPMMainPanel::SetModel), first);
    EXPECT_EQ(SlotOf(&CATWBVPMMainPanel::GetCloseButton), first + 1);
    EXPECT_EQ(SlotOf(&Probe<CATWBVPMMainPanel>::Added), first + 2);
}
