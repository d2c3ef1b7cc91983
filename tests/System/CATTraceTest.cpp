#include "CATTrace.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{

class DSTraceTest : public testing::Test
{
protected:
    ~DSTraceTest() override { DSTrace::SetListener({}); }
    void Listen()
    {
        DSTrace::SetListener([this](std::string_view component, std::string_view line) {
            m_heard.push_back(std::string(component) + ": " + std::string(line));
        });
    }
    std::vector<std::string> m_heard;
};

TEST_F(DSTraceTest, LineCarriesItsComponentAndItsPieces)
{
    Listen();
    const DSTrace first("FirstPart");
    const DSTrace second("SecondPart");
    EXPECT_TRUE(DSTrace::IsHeard());
    first.Line("node ", 3, " of ", CATUnicodeString("PRC"), " took ", 0.25);
    second.Line();
    EXPECT_EQ(m_heard,
              (std::vector<std::string>{"FirstPart: node 3 of PRC took 0.25", "SecondPart: "}));
}

TEST_F(DSTraceTest, NobodyListensAtFirst)
{
    EXPECT_FALSE(DSTrace::IsHeard());
    DSTrace("Part").Line("nobody hears this");
    Listen();
    EXPECT_TRUE(m_heard.empty());
}

TEST_F(DSTraceTest, InstallingAListenerGivesTheOneBefore)
{
    EXPECT_FALSE(DSTrace::SetListener([](std::string_view, std::string_view) {}));
    EXPECT_TRUE(DSTrace::SetListener({}));
    EXPECT_FALSE(DSTrace::IsHeard());
}

TEST_F(DSTraceTest, ListenerMayTakeItselfOff)
{
    int calls = 0;
    DSTrace::SetListener([&calls](std::string_view, std::string_view) {
        DSTrace::SetListener({});
        ++calls;
    });
    const DSTrace trace("Part");
    trace.Line("a");
    trace.Line("b");
    EXPECT_EQ(calls, 1);
}

} // namespace
