#include "WBQuantityTexts.h"

#include "PanelSession.h"

namespace
{
using WBQuantityTextsTest = PanelSession;
using testing::ElementsAre;
} // namespace

TEST_F(WBQuantityTextsTest, QuantityHasItsPiecesWhateverItsText)
{
    EXPECT_THAT(WBPiecesOf("mass", "12.5"), ElementsAre("12.5"));
    EXPECT_THAT(WBPiecesOf("centre", "1;2;3"), ElementsAre("1", "2", "3"));
    EXPECT_THAT(WBPiecesOf("centre", ""), ElementsAre("", "", ""));
    EXPECT_EQ(WBPiecesOf("inertia", "").size(), 6U);
    EXPECT_THAT(WBPiecesOf("precision", "percent;1;2"), ElementsAre("percent", "1", "2"));
    EXPECT_THAT(WBPiecesOf("density", ""), ElementsAre(""));
    EXPECT_THAT(WBPiecesOf("property Note", "a;b"), ElementsAre("a;b"));
}

TEST_F(WBQuantityTextsTest, TextOfNoPiecesIsEmpty)
{
    EXPECT_EQ(WBTextOf({"1", "2", "3"}), "1;2;3");
    EXPECT_EQ(WBTextOf({"", "", ""}), "");
    EXPECT_EQ(WBTextOf({"", "2", ""}), ";2;");
    EXPECT_EQ(WBTextOf({"Steel"}), "Steel");
}

TEST_F(WBQuantityTextsTest, QuantityIsCompleteWithAllOfItsPiecesOrNone)
{
    EXPECT_TRUE(WBAreComplete({"1", "2"}));
    EXPECT_TRUE(WBAreComplete({"", ""}));
    EXPECT_FALSE(WBAreComplete({"1", ""}));
    EXPECT_FALSE(WBAreComplete({"", "2"}));
}

TEST_F(WBQuantityTextsTest, NumbersAreWrittenWithAPointAndFifteenDigits)
{
    for (const char* locale : {"C", "de_DE.UTF-8"}) {
        ASSERT_TRUE(CATUseNumberLocale(locale));
        EXPECT_EQ(WBPieceOf(12.5), "12.5");
        EXPECT_EQ(WBPieceOf(1.0 / 3.0), "0.333333333333333");
        EXPECT_EQ(WBPieceOf(1e20), "1e+20");
        EXPECT_EQ(WBPieceOf(0.00001), "1e-05");
        EXPECT_EQ(WBPieceOf(-0.0), "0");
        EXPECT_EQ(WBNumberOf("12.5"), std::optional(12.5));
        EXPECT_EQ(WBNumberOf("-1e-05"), std::optional(-1e-5));
    }
    for (const char* piece : {"", "12,5", "abc", "12.5 kg", "inf", "nan"}) {
        EXPECT_EQ(WBNumberOf(piece), std::nullopt) << piece;
    }
}
