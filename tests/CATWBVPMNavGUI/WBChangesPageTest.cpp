#include "EditingSession.h"

#include "RunServerCode.h"

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

class WBChangesPageTest : public EditingSession
{
protected:
    WBChangesPageTest()
    {
        server->answers["WBPendingChanges"] =
            "1|part BOLT A|mass type Estimated, mass|12.5|13|11|1|anna|2026/11/21 19:00:00|"
            "2026/11/21 18:00:00|";
        server->answers["WBHistory"] = "1|2026/11/21 17:00:00|anna|save|__null__|part BOLT A|"
                                       "material|Brass|Steel|";
        server->answers["WBCompPartGetInitialValues"] = Values("12.5");
    }
    std::size_t TimesAsked() const { return server->CallsOf("WBHistory").size(); }
    CATDlgMultiList* Pending() const { return List("Changes", "Pending"); }
    CATDlgMultiList* History() const { return List("Changes", "History"); }
};

} // namespace

TEST_F(WBChangesPageTest, AsksWhenItIsLookedAt)
{
    Open(record);
    EXPECT_EQ(TimesAsked(), 0U);
    EXPECT_EQ(Pending()->RowCount(), 0);
    TurnTo("Changes");
    EXPECT_THAT(server->CallsOf("WBHistory"), ElementsAre("1|BOLT.1|BOLT|A|1|AXLE.1|CAR|"));
    EXPECT_THAT(server->CallsOf("WBPendingChanges"), ElementsAre(""));
    EXPECT_EQ(Pending()->Cell(3, 1), "13 kg");
    EXPECT_EQ(History()->Cell(3, 1), "Brass");
    TurnTo("Values");
    TurnTo("Changes");
    EXPECT_EQ(TimesAsked(), 1U); // nothing can have changed
}

TEST_F(WBChangesPageTest, ConflictIsMarkedInItsRowAndInWords)
{
    Open(record);
    TurnTo("Changes");
    EXPECT_EQ(Pending()->Cell(5, 1),
              "cannot be saved: anna saved another value on 2026/11/21 19:00:00");
    EXPECT_TRUE(ViewOf(*Pending())->model()->index(0, 5).data(Qt::FontRole).value<QFont>().bold());
    EXPECT_THAT(WordsOn("Changes"), testing::StartsWith("1 of your changes is not saved. None"));
}

TEST_F(WBChangesPageTest, ReadsAnewAfterApplyingAndSaving)
{
    Open(record);
    TurnTo("Changes");
    Type("StatedMassEditor", "13");
    Click("ApplyButton");
    EXPECT_EQ(TimesAsked(), 2U);
    server->answers["WBPendingChanges"] = "0|";
    RunServerCode("WBSaveManagement", "Save");
    EXPECT_EQ(TimesAsked(), 3U);
    EXPECT_EQ(Pending()->RowCount(), 0);
    EXPECT_EQ(WordsOn("Changes"), "You have no changes that are not saved.");
    // Behind another page it waits.
    TurnTo("Values");
    RunServerCode("WBSaveManagement", "Save");
    EXPECT_EQ(TimesAsked(), 3U);
    TurnTo("Changes");
    EXPECT_EQ(TimesAsked(), 4U);
}

TEST_F(WBChangesPageTest, ReadsAnewAfterSavingAlsoWhereEditsWait)
{
    Open(record);
    TurnTo("Changes");
    Type("StatedMassEditor", "13");
    RunServerCode("WBSaveManagement", "Save");
    EXPECT_EQ(TimesAsked(), 2U);
    EXPECT_EQ(Field("StatedMassEditor"), "13 kg");
}

TEST_F(WBChangesPageTest, AnotherRecordHasAnotherHistory)
{
    Open(record);
    TurnTo("Changes");
    panel->SetModel(RecordOf("1|AXLE.1|AXLE|A|CAR|0|" + Values("20")).Get());
    EXPECT_EQ(server->CallsOf("WBHistory").back(), "1|AXLE.1|AXLE|A|0|CAR|");
    TurnTo("Values");
    panel->SetModel(record.Get());
    EXPECT_EQ(History()->RowCount(), 0); // what it shows is never of another part
    EXPECT_EQ(WordsOn("Changes"), "");
    panel->SetModel(nullptr);
    TurnTo("Changes");
    EXPECT_EQ(TimesAsked(), 2U);
}

TEST_F(WBChangesPageTest, AnswerThatCannotBeReadIsSaidInThePage)
{
    for (const char* method : {"WBHistory", "WBPendingChanges"}) {
        const std::string good = server->answers[method];
        server->answers[method] = "3|damaged|";
        Open(record);
        TurnTo("Changes");
        EXPECT_EQ(WordsOn("Changes"), "The server does not say what was changed.") << method;
        EXPECT_THAT(boxes, IsEmpty());
        server->answers[method] = good;
        CATRequestDelayedDestruction(panel);
        Settle();
    }
}

TEST_F(WBChangesPageTest, FollowsTheUnits)
{
    Open(record);
    TurnTo("Changes");
    ShowIn("MASS", "g");
    EXPECT_EQ(Pending()->Cell(3, 1), "13000 g");
    EXPECT_EQ(TimesAsked(), 1U);
}
