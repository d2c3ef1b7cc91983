#include "WBEditWords.h"

#include "PanelSession.h"

namespace
{

using WBEditWordsTest = PanelSession;

} // namespace

TEST_F(WBEditWordsTest, NothingToSayIsNoText)
{
    EXPECT_EQ(WBEditWords({}), "");
}

TEST_F(WBEditWordsTest, EveryFactHasItsSignAndItsNumber)
{
    EXPECT_EQ(WBEditWords({1, 0, 0, 0}), "✎ 1 edit is not applied.");
    EXPECT_EQ(WBEditWords({2, 0, 0, 0}), "✎ 2 edits are not applied.");
    EXPECT_EQ(WBEditWords({0, 1, 0, 0}), "✕ 1 entry cannot be taken.");
    EXPECT_EQ(WBEditWords({0, 3, 0, 0}), "✕ 3 entries cannot be taken.");
    EXPECT_EQ(WBEditWords({0, 0, 1, 0}), "● 1 change is not saved.");
    EXPECT_EQ(WBEditWords({0, 0, 4, 0}), "● 4 changes are not saved.");
    EXPECT_EQ(WBEditWords({0, 0, 0, 1}), "⚠ 1 change cannot be saved: see the page Changes.");
    EXPECT_EQ(WBEditWords({0, 0, 0, 2}), "⚠ 2 changes cannot be saved: see the page Changes.");
}

TEST_F(WBEditWordsTest, WhatIsWrongComesFirst)
{
    EXPECT_EQ(WBEditWords({2, 1, 4, 2}),
              "✕ 1 entry cannot be taken.   ✎ 2 edits are not applied.   ⚠ 2 changes cannot be "
              "saved: see the page Changes.   ● 4 changes are not saved.");
}

TEST_F(WBEditWordsTest, EditsOfAStandardPartAreSaidToBe)
{
    EXPECT_EQ(WBEditWords({1, 0, 0, 0, true}),
              "✎ 1 edit is not applied.   A standard part: change it only if you look after it.");
    EXPECT_EQ(WBEditWords({0, 0, 0, 0, true}), "");
}

TEST_F(WBEditWordsTest, PanelThatCanEditNothingSaysSo)
{
    EXPECT_EQ(WBEditWords({0, 0, 0, 0, false, false}),
              "Nothing can be edited: the server does not say what is stated.");
}

TEST_F(WBEditWordsTest, UnappliedEditsHaveTheirOwnSentence)
{
    EXPECT_EQ(WBUnappliedWords(1), "1 edit is not applied.");
    EXPECT_EQ(WBUnappliedWords(7), "7 edits are not applied.");
    CATMsgCatalog::SetLanguage("de");
    EXPECT_EQ(WBUnappliedWords(7), "7 Eingaben sind nicht übernommen.");
}
