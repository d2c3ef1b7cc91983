#include "CATWBVPMNavUnitsConversion.h"

#include "CATFatalError.h"
#include "CATWBVPMNavGUITable.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace
{

using Panel = CATWBVPMNavUnitsConversion;

/// Notes fatal errors and goes on after them.
class CATWBVPMNavUnitsConversionTest : public testing::Test
{
protected:
    CATWBVPMNavUnitsConversionTest()
        : m_before(CATSetFatalErrorHandler(
              [this](const CATFatalError& error) { fatal.push_back(error.Text()); }))
    {}
    ~CATWBVPMNavUnitsConversionTest() override { CATSetFatalErrorHandler(m_before); }

    std::vector<std::string> fatal;

private:
    CATFatalErrorHandler m_before;
};

} // namespace

TEST_F(CATWBVPMNavUnitsConversionTest, ThereIsNoPanelWithoutAPanelsLibrary)
{
    const CATWBVPMNavGUITable before = CATWBVPMNavGUISetTable({});
    EXPECT_EQ(Panel::Instance(), nullptr);
    CATWBVPMNavGUISetTable(before);
}

TEST_F(CATWBVPMNavUnitsConversionTest, EveryUnitsTypeHasOneEventOfItsOwn)
{
    std::set<const CATEvent*> events;
    std::set<std::string> names;
    for (int type = 0; type <= 5; ++type) {
        EXPECT_EQ(&Panel::GetChangedEvent(type), &Panel::GetChangedEvent(type));
        events.insert(&Panel::GetChangedEvent(type));
        names.insert(Panel::GetChangedEvent(type).Name());
    }
    EXPECT_EQ(events.size(), 6U);
    EXPECT_EQ(names.size(), 6U);
    EXPECT_STREQ(Panel::GetChangedEvent(2).Name(), "MassUnitChanged");
    EXPECT_TRUE(fatal.empty());
}

TEST_F(CATWBVPMNavUnitsConversionTest, AnotherUnitsTypeIsAProgrammingError)
{
    EXPECT_EQ(&Panel::GetChangedEvent(-1), &Panel::GetChangedEvent(0));
    EXPECT_EQ(&Panel::GetChangedEvent(6), &Panel::GetChangedEvent(0));
    EXPECT_EQ(fatal,
              (std::vector<std::string>{"there is no units type -1", "there is no units type 6"}));
}
