#pragma once

#include "ResourceKeys.h"
#include "VirtualSlots.h"

#include "NavigatorSession.h"

/// What is true of every command of the navigator. A test program instantiates it for the session
/// of its command, which has the command's name, kName, and its prompts, kPrompts.
template <class Session>
class NavigatorCommand : public Session
{};

TYPED_TEST_SUITE_P(NavigatorCommand);

TYPED_TEST_P(NavigatorCommand, IsMadeByItsFactoryUnderItsName)
{
    this->Make();
    EXPECT_EQ(this->command->Name(), TypeParam::kName);
    EXPECT_STREQ(this->command->ClassName(), TypeParam::kName);
    EXPECT_EQ(this->command->Mode(), CATCommandMode::Exclusive);
    CATSession::Start(this->command);
}

TYPED_TEST_P(NavigatorCommand, HasItsOwnCatalogAtLevelZeroAndBelowAndTheAgentsAbove)
{
    this->Start();
    const CATCommand* base = this->command;
    EXPECT_EQ(base->GetResourceFilename(0), TypeParam::kName);
    EXPECT_EQ(base->GetResourceFilename(-1), TypeParam::kName);
    EXPECT_EQ(base->GetResourceFilename(1), "");
    EXPECT_EQ(base->GetResourceFilename(2), "");
}

TYPED_TEST_P(NavigatorCommand, PromptsForAPick)
{
    this->Start();
    EXPECT_EQ(this->frame->Prompt(), TypeParam::kPrompts.english);
}

TYPED_TEST_P(NavigatorCommand, PromptsInGermanToo)
{
    CATMsgCatalog::SetLanguage("de");
    this->Start();
    EXPECT_EQ(this->frame->Prompt(), TypeParam::kPrompts.german);
}

TYPED_TEST_P(NavigatorCommand, PromptsWithItsOwnTextWhereTheCatalogLacksIt)
{
    this->LoseTextsOf(TypeParam::kPrompts.catalog);
    this->Start();
    EXPECT_EQ(this->frame->Prompt(), TypeParam::kPrompts.byDefault);
}

TYPED_TEST_P(NavigatorCommand, EveryEnglishTextHasAGermanOne)
{
    const std::string catalog = std::string("catalogs/") + TypeParam::kName + ".toml";
    EXPECT_EQ(ResourceKeys(catalog), ResourceKeys("de/" + catalog));
}

TYPED_TEST_P(NavigatorCommand, WaitsWithOneAgentOfTheNavigatorThatTakesSets)
{
    this->Start();
    ASSERT_EQ(this->command->CurrentState()->Agents().size(), 1U);
    EXPECT_STREQ(this->agent.Get()->ClassName(), "CATImmIdentifierAcquisitionAgent");
    EXPECT_EQ(this->agent.Get()->Behaviour(), 0x40a40010);
}

TYPED_TEST_P(NavigatorCommand, AddsNoVirtualOperationToTheStateCommand)
{
    using Tested = typename TypeParam::Command;
    EXPECT_EQ(SlotOf(&SlotProbe<Tested>::Added), SlotOf(&SlotProbe<CATStateCommand>::Added));
    EXPECT_EQ(SlotOf(&Tested::Activate), SlotOf(&CATCommand::Activate));
    EXPECT_EQ(SlotOf(&Tested::Desactivate), SlotOf(&CATCommand::Activate) + 1);
    EXPECT_EQ(SlotOf(&Tested::Cancel), SlotOf(&CATCommand::Activate) + 2);
    EXPECT_EQ(SlotOf(&Tested::GetResourceFilename), SlotOf(&CATCommand::Activate) + 3);
}

TYPED_TEST_P(NavigatorCommand, CancelAsksForDestructionAndSaysDone)
{
    this->Start();
    EXPECT_EQ(this->command->Cancel(nullptr, nullptr), S_OK);
    this->ExpectEnds();
}

TYPED_TEST_P(NavigatorCommand, CancelledCommandTakesItsPanelAndItsAgentAlong)
{
    this->Start();
    CATSession::CancelRunningCommand();
    this->ExpectEnds();
}

REGISTER_TYPED_TEST_SUITE_P(NavigatorCommand, IsMadeByItsFactoryUnderItsName,
                            HasItsOwnCatalogAtLevelZeroAndBelowAndTheAgentsAbove, PromptsForAPick,
                            PromptsInGermanToo, PromptsWithItsOwnTextWhereTheCatalogLacksIt,
                            EveryEnglishTextHasAGermanOne,
                            WaitsWithOneAgentOfTheNavigatorThatTakesSets,
                            AddsNoVirtualOperationToTheStateCommand,
                            CancelAsksForDestructionAndSaysDone,
                            CancelledCommandTakesItsPanelAndItsAgentAlong);
