#include "CATWBVPMNavReportPanel.h"

#include "CATWBVPMNavGUITable.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>

namespace
{

using Panel = CATWBVPMNavReportPanel;

/// The place of a virtual operation in its table: libraries built against an earlier header call it
/// by that. A pointer to such a member begins with the offset of the place in bytes, plus 1.
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

TEST(CATWBVPMNavReportPanel, OperationsKeepTheirOrder)
{
    const std::ptrdiff_t first = SlotOf(&Probe<CATDlgDialog>::Added);
    EXPECT_EQ(SlotOf(&Panel::Build), first);
    EXPECT_EQ(SlotOf(&Panel::IsInstanceInputActive), first + 1);
    EXPECT_EQ(SlotOf(&Panel::SetWMMInstance), first + 2);
    EXPECT_EQ(SlotOf(&Panel::GetCloseButton), first + 3);
    EXPECT_EQ(SlotOf(&Probe<Panel>::Added), first + 4);
}

TEST(CATWBVPMNavReportPanel, ThereIsNoPanelWithoutAPanelsLibrary)
{
    const CATWBVPMNavGUITable before = CATWBVPMNavGUISetTable({});
    EXPECT_EQ(Panel::Create(nullptr), nullptr);
    CATWBVPMNavGUISetTable(before);
}
