#pragma once

#include "AeroplanePicks.h"
#include "NavigatorSession.h"

/// What is true of the navigator's commands that open their panel when they begin. A test program
/// instantiates it for the session of its command.
template <class Session>
class PanelAtOnce : public Session
{};

TYPED_TEST_SUITE_P(PanelAtOnce);

TYPED_TEST_P(PanelAtOnce, PanelThatIsGoneGetsNothingMore)
{
    this->Start();
    this->Panel()->RequestDelayedDestruction();
    CATSession::RunDelayedDestructions();
    ASSERT_EQ(this->Panel(), nullptr);
    this->server->record = kFuselage;
    EXPECT_TRUE(CATOfferPick({PathToFuselage()}));
    EXPECT_EQ(this->server->calls.size(), 1U);
    this->ExpectWaitsAgain();
}

TYPED_TEST_P(PanelAtOnce, SessionThatEndsFirstTakesThePanelFromUnderTheCommand)
{
    this->Start();
    CATSession::Close();
    EXPECT_EQ(this->Panel(), nullptr);
}

REGISTER_TYPED_TEST_SUITE_P(PanelAtOnce, PanelThatIsGoneGetsNothingMore,
                            SessionThatEndsFirstTakesThePanelFromUnderTheCommand);
