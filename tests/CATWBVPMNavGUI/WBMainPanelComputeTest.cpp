#include "MainPanelSession.h"

#include "CATDlgNotify.h"
#include "CATFatalError.h"
#include "CATWBVPMNavGUITable.h"

#include <QAbstractButton>
#include <QLabel>

namespace
{

using Definitions = CATENOWBCSCommonDefinitions;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// A box that the panel showed.
struct Box
{
    std::string title;
    std::string text;
    int style;
};

constexpr int kErrorStyle = 0x10000000;
constexpr int kWarningStyle = 0x8000000;

class WBMainPanelComputeTest : public MainPanelSession
{
protected:
    WBMainPanelComputeTest()
    {
        CATDlgNotify::SetAnswerer([this](const CATDlgNotify::Shown& box) {
            boxes.push_back({box.title.ToStdString(), box.text.ToStdString(), box.style});
            return std::optional(1);
        });
        // As in the workbench.
        CATSetFatalErrorHandler([](const CATFatalError& error) { throw error; });
        CATSession::SetFaultReporter(
            [this](const CATUnicodeString&, const CATUnicodeString&) { ++faults; });
        server->answers["WBCompPartCompute"] = Answer("2");
        server->details = DetailsSaid{"Firewall", {{"Computed", "0|0|0|"}}}.Text();
        server->computedDetails = DetailsSaid{"Firewall", {{"Computed", "4|4|4|"}}}.Text();
        record = RecordOf(FirewallStream());
    }
    ~WBMainPanelComputeTest() override
    {
        CATSession::SetFaultReporter({});
        CATSetFatalErrorHandler({});
        CATDlgNotify::SetAnswerer({});
    }

    /// An answer of that mass, one material and one mass type.
    static std::string Answer(const std::string& mass)
    {
        return mass + "|0.06|0.1|1|2|3|0.5|0.25|0.125|0.02|0.01|0.03|"
                      "1|Steel|3|2|7800|1|Calculated|2|"
                      "1|0|0|0|1|0|0|0|1|7|8|9|";
    }
    void PressCompute()
    {
        panel->Widget()->findChild<QAbstractButton*>("ComputeButton")->click();
        Settle();
    }
    void Choose(const char* combo, int line) { Find<CATDlgCombo>(combo)->Select(line); }
    /// As the user does it.
    void ChooseStoredSums(int line)
    {
        Choose("StoredSums", line);
        Find<CATDlgCombo>("StoredSums")->Send(CATDlgCombo::Selected, line);
    }
    std::string CellOfComputed(int column) const
    {
        return List("MassTypes")->Cell(column, 1).ToStdString();
    }
    bool IsMarked(CATDlgMultiList* list, int column, int row) const
    {
        return ViewOf(*list)
                   ->model()
                   ->index(row - 1, column)
                   .data(Qt::ToolTipRole)
                   .toString()
                   .length() > 0;
    }
    std::string Spoken(const char* label) const
    {
        return panel->Widget()->findChild<QLabel*>(label)->accessibleDescription().toStdString();
    }
    bool MarksAreExplained() const { return Find<CATDlgLabel>("MarksNote")->IsVisible(); }

    RecordHandle record;
    std::vector<Box> boxes;
    int faults = 0;
};

constexpr int kMassColumn = 3;

} // namespace

TEST_F(WBMainPanelComputeTest, OffersWhatARecordCanBeAskedFor)
{
    Open(record);
    const auto lines = [this](const char* name) {
        std::vector<std::string> texts;
        const auto* combo = Find<CATDlgCombo>(name);
        texts.reserve(static_cast<std::size_t>(combo->LineCount()));
        for (int line = 0; line < combo->LineCount(); ++line) {
            texts.push_back(combo->Line(line).ToStdString());
        }
        return texts;
    };
    EXPECT_THAT(lines("Entity"), ElementsAre("this instance with what is below",
                                             "the whole product", "the part alone"));
    // As the record lists them.
    EXPECT_THAT(lines("Precision"), ElementsAre("active values", "most precise values", "Computed",
                                                "Estimated", "Calculated", "Weighed", "Supplier"));
    EXPECT_THAT(lines("StoredSums"), ElementsAre("update what changed", "compute all anew",
                                                 "take as stored below level"));
    EXPECT_EQ(Find<CATDlgCombo>("Precision")->SelectedIndex(), 0);
    EXPECT_EQ(Text("Filter"), "No filter");
    EXPECT_TRUE(Find<CATDlgPushButton>("ComputeButton")->IsSensitive());
    EXPECT_EQ(Find<CATDlgPushButton>("ComputeButton")->Title(), "Compute");
}

TEST_F(WBMainPanelComputeTest, ChoicesStayForTheNextRecordWhereItOffersThem)
{
    Open(record);
    Choose("Entity", 2);
    Choose("Precision", 3); // Estimated
    panel->SetModel(RecordOf(FirewallStream()).Get());
    EXPECT_EQ(Find<CATDlgCombo>("Entity")->SelectedIndex(), 2);
    EXPECT_EQ(Find<CATDlgCombo>("Precision")->SelectedIndex(), 3);
    panel->SetModel(RecordOf(WideStream()).Get()); // knows no Estimated
    EXPECT_EQ(Find<CATDlgCombo>("Precision")->SelectedIndex(), 0);
}

TEST_F(WBMainPanelComputeTest, WithoutARecordThereIsNothingToCompute)
{
    Open(record);
    panel->SetModel(nullptr);
    EXPECT_FALSE(Find<CATDlgPushButton>("ComputeButton")->IsSensitive());
}

TEST_F(WBMainPanelComputeTest, LevelIsTypedOnlyWhereItCounts)
{
    Open(record);
    EXPECT_FALSE(Find<CATDlgEditor>("Level")->IsSensitive());
    ChooseStoredSums(2);
    EXPECT_TRUE(Find<CATDlgEditor>("Level")->IsSensitive());
    ChooseStoredSums(1);
    EXPECT_FALSE(Find<CATDlgEditor>("Level")->IsSensitive());
}

TEST_F(WBMainPanelComputeTest, RequestIsMadeOfTheRecordAndTheChoices)
{
    Open(record);
    PressCompute();
    Choose("Entity", 1);
    Choose("Precision", 1);
    ChooseStoredSums(2);
    Find<CATDlgEditor>("Level")->SetText("3");
    PressCompute();
    const std::string part = "1|FUS-110.1|FUS-110|A|2|FUS-100.1|FUS-000.1|1|Stainless steel 321|";
    EXPECT_THAT(server->CallsOf("WBCompPartCompute"),
                ElementsAre(part + "Active|0|0|LA1|0|No Filter|0|",
                            part + "MostPrecise|2|3|1|LA1|0|No Filter|0|"));
    EXPECT_THAT(server->CallsOf("WBGetValueDetails"),
                ElementsAre("0|" + part + "Active|0|0|LA1|0|No Filter|0|",
                            "1|" + part + "Active|0|0|LA1|0|No Filter|0|",
                            "1|" + part + "MostPrecise|2|3|1|LA1|0|No Filter|0|"));
    EXPECT_THAT(boxes, IsEmpty());
}

TEST_F(WBMainPanelComputeTest, WarningsAreFetchedBeforeTheServerIsAskedForAnythingElse)
{
    Open(record);
    server->calls.clear();
    PressCompute();
    ASSERT_EQ(server->calls.size(), 3U);
    EXPECT_THAT(server->calls[0], testing::StartsWith("WBCompPartCompute"));
    EXPECT_EQ(server->calls[1], "WBWarningMsg: ");
    EXPECT_THAT(server->calls[2], testing::StartsWith("WBGetValueDetails"));
}

TEST_F(WBMainPanelComputeTest, FilterOfTheRootIsShownAndSent)
{
    CATWBVPMNavGUITable table;
    table.getFilter = [](const CATUnicodeString&) -> CATUnicodeString {
        return "1|Doors|X|D.1|D|A|0";
    };
    table.getDisplayFilter = [](const CATUnicodeString& root) {
        return "Doors of " + root;
    };
    const CATWBVPMNavGUITable before = CATWBVPMNavGUISetTable(table);
    Open(record);
    record->SetActiveMassType("Computed");
    PressCompute();
    EXPECT_EQ(Text("Filter"), "Doors of LA1");
    EXPECT_THAT(server->CallsOf("WBCompPartCompute").back(),
                testing::EndsWith("|LA1|1|Doors|X|D.1|D|A|0|0|"));
    EXPECT_EQ(Text("UnusualSum"), "Doors of LA1");
    CATWBVPMNavGUISetTable(before);
}

TEST_F(WBMainPanelComputeTest, AnswerFillsComputedAndTheStatistics)
{
    Open(record);
    EXPECT_EQ(CellOfComputed(kMassColumn), "");
    PressCompute();
    EXPECT_EQ(CellOfComputed(kMassColumn), "2");
    EXPECT_EQ(CellOfComputed(6), "1"); // CoG x
    EXPECT_EQ(CellOfComputed(9), "0.5");
    // On the stream: the products xz, xy, yz.
    EXPECT_EQ(CellOfComputed(12), "0.01");
    EXPECT_EQ(CellOfComputed(13), "0.02");
    EXPECT_EQ(List("Material")->RowCount(), 1);
    EXPECT_EQ(List("Material")->Cell(0, 1), "Steel");
    EXPECT_EQ(Text("What"),
              "Computed here: this instance with what is below; active values; unfiltered.");
    double mass = 0.0;
    record->GetMass("Computed", mass);
    EXPECT_EQ(mass, 2.0);
    EXPECT_THAT(boxes, IsEmpty());
}

TEST_F(WBMainPanelComputeTest, PageAndSelectionStay)
{
    Open(record);
    Tabs()->setCurrentIndex(3);
    List("MassTypes")->SelectRow(2);
    PressCompute();
    EXPECT_EQ(Tabs()->currentIndex(), 3);
    EXPECT_EQ(List("MassTypes")->SelectedRow(), 2);
}

TEST_F(WBMainPanelComputeTest, WhatDiffersFromBeforeIsMarkedAndExplained)
{
    record->SetActiveMassType("Computed");
    Open(record);
    EXPECT_FALSE(MarksAreExplained());
    PressCompute();
    EXPECT_TRUE(MarksAreExplained());
    EXPECT_EQ(Text("Mass"), "2 kg");
    EXPECT_EQ(Spoken("Mass"), "changed");
    EXPECT_EQ(Find<CATDlgLabel>("Mass")->Tooltip(), "Before: –");
    EXPECT_TRUE(IsMarked(List("MassTypes"), kMassColumn, 1));
    EXPECT_FALSE(IsMarked(List("MassTypes"), kMassColumn, 2)); // Estimated is as it was
    EXPECT_TRUE(IsMarked(List("Values"), 1, 1));
    EXPECT_TRUE(IsMarked(List("Inertia", "Matrix"), 1, 1));
    EXPECT_TRUE(IsMarked(List("Material"), 1, 1));
    EXPECT_EQ(Spoken("Part"), "");

    server->answers["WBCompPartCompute"] = Answer("2.5");
    PressCompute();
    EXPECT_EQ(Find<CATDlgLabel>("Mass")->Tooltip(), "Before: 2 kg");
    EXPECT_EQ(ViewOf(*List("MassTypes"))->model()->index(0, kMassColumn).data(Qt::ToolTipRole),
              QVariant("Before: 2"));
    EXPECT_FALSE(IsMarked(List("MassTypes"), 6, 1)); // the centre is as it was
    EXPECT_EQ(Spoken("Centre"), "");

    PressCompute(); // the same again
    EXPECT_FALSE(MarksAreExplained());
    EXPECT_EQ(Spoken("Mass"), "");
}

TEST_F(WBMainPanelComputeTest, MarksFollowTheUnits)
{
    record->SetActiveMassType("Computed");
    Open(record);
    PressCompute();
    server->answers["WBCompPartCompute"] = Answer("2.0004"); // 2 kg in kilograms of three decimals
    PressCompute();
    EXPECT_EQ(Spoken("Mass"), "");
    ShowIn("MASS", "g");
    EXPECT_EQ(Text("Mass"), "2000.4 g");
    EXPECT_EQ(Spoken("Mass"), "changed");
    EXPECT_EQ(Find<CATDlgLabel>("Mass")->Tooltip(), "Before: 2000 g");
}

TEST_F(WBMainPanelComputeTest, MarksShowForTheMassTypeThatIsSelectedNext)
{
    Open(record); // Calculated is active and selected
    PressCompute();
    EXPECT_FALSE(IsMarked(List("Values"), 1, 1));
    List("MassTypes")->Send(CATDlgMultiList::RowSelected, 1);
    EXPECT_TRUE(IsMarked(List("Values"), 1, 1));
}

TEST_F(WBMainPanelComputeTest, MarksGoAtTheNextRecord)
{
    Open(record);
    PressCompute();
    ASSERT_TRUE(MarksAreExplained());
    const RecordHandle next = RecordOf(FirewallStream());
    panel->SetModel(next.Get());
    EXPECT_FALSE(MarksAreExplained());
    EXPECT_FALSE(IsMarked(List("MassTypes"), kMassColumn, 1));
    EXPECT_EQ(Text("What"), "Nothing is computed yet.");
    EXPECT_THAT(server->CallsOf("WBGetValueDetails").back(), testing::StartsWith("0|"));
}

TEST_F(WBMainPanelComputeTest, SumOfSomethingElseIsNotTakenForTheUsualOne)
{
    record->SetActiveMassType("Computed");
    record->SetUpToDateFlag(false);
    Open(record);
    Choose("Entity", 1);
    Choose("Precision", 1);
    PressCompute();
    EXPECT_EQ(Text("UnusualSum"), "the whole product\nmost precise values");
    EXPECT_TRUE(Find<CATDlgLabel>("UnusualSum")->IsVisible());
    EXPECT_EQ(Text("UpToDate"), "Not up to date");
    Choose("Entity", 0);
    Choose("Precision", 0);
    PressCompute();
    EXPECT_FALSE(Find<CATDlgLabel>("UnusualSum")->IsVisible());
    EXPECT_EQ(Text("UpToDate"), "Up to date"); // the server keeps this one
}

TEST_F(WBMainPanelComputeTest, PlaceComesWithTheAnswerWhereTheSessionHasNone)
{
    Open(record);
    const auto shift = [this] {
        return List("Position")->Cell(4, 1).ToStdString();
    };
    ASSERT_EQ(shift(), "1000");
    Choose("Entity", 1); // the root's place is not the part's
    PressCompute();
    EXPECT_EQ(shift(), "1000");
    Choose("Entity", 0);
    PressCompute();
    EXPECT_EQ(shift(), "7");
    // A product instance has its place from the session.
    const RecordHandle product = RecordOf(FirewallStream());
    product->SetHasInstInENOVIA(false);
    panel->SetModel(product.Get());
    PressCompute();
    EXPECT_EQ(shift(), "1000");
}

TEST_F(WBMainPanelComputeTest, LevelThatIsNoneIsRefusedBeforeTheServerIsAsked)
{
    Open(record);
    ChooseStoredSums(2);
    Find<CATDlgEditor>("Level")->SetText("two");
    PressCompute();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].title, "Level");
    EXPECT_THAT(boxes[0].text, HasSubstr("whole number from 0"));
    EXPECT_EQ(boxes[0].style, kErrorStyle);
    EXPECT_THAT(server->CallsOf("WBCompPartCompute"), IsEmpty());
    ChooseStoredSums(0); // there it does not count
    PressCompute();
    EXPECT_EQ(server->CallsOf("WBCompPartCompute").size(), 1U);
}

TEST_F(WBMainPanelComputeTest, ServersErrorIsToldAndNothingChanges)
{
    Open(record);
    server->answers["WBCompPartCompute"] = "#WB_ERROR#The field root names no product.";
    PressCompute();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].title, "The server reports an error");
    EXPECT_EQ(boxes[0].text, "The field root names no product.");
    EXPECT_EQ(boxes[0].style, kErrorStyle);
    EXPECT_EQ(CellOfComputed(kMassColumn), "");
    EXPECT_THAT(server->CallsOf("WBWarningMsg"), IsEmpty());
    EXPECT_FALSE(MarksAreExplained());
}

TEST_F(WBMainPanelComputeTest, ServerThatDoesNotAnswerIsTold)
{
    Open(record);
    server->answers.erase("WBCompPartCompute");
    PressCompute();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].title, "No answer from the server");
    EXPECT_THAT(boxes[0].text, HasSubstr("did not answer"));
    EXPECT_EQ(boxes[0].style, kErrorStyle);
    EXPECT_EQ(CellOfComputed(kMassColumn), "");
}

TEST_F(WBMainPanelComputeTest, AnswerOfAnotherLengthIsToldAndNothingChanges)
{
    Open(record);
    const std::string good = Answer("2");
    for (const std::string& bad :
         {good.substr(0, good.size() - 2), good + "1|", std::string("2|")}) {
        boxes.clear();
        server->answers["WBCompPartCompute"] = bad;
        PressCompute();
        ASSERT_EQ(boxes.size(), 1U) << bad;
        EXPECT_EQ(boxes[0].title, "The answer cannot be read");
        EXPECT_THAT(boxes[0].text, HasSubstr("incomplete or damaged"));
        EXPECT_EQ(CellOfComputed(kMassColumn), "");
    }
    EXPECT_EQ(faults, 0);
    server->answers["WBCompPartCompute"] = good;
    PressCompute(); // the next computation works
    EXPECT_EQ(CellOfComputed(kMassColumn), "2");
}

TEST_F(WBMainPanelComputeTest, FieldThatIsNoNumberLeavesThePanelAndItsRecordAsTheyWere)
{
    Open(record);
    PressCompute();
    ASSERT_EQ(CellOfComputed(kMassColumn), "2");
    server->answers["WBCompPartCompute"] =
        Answer("3").replace(2, 4, "much"); // the lower deviation, behind a good mass
    PressCompute();
    EXPECT_EQ(faults, 1);
    EXPECT_FALSE(panel->IsDestructionRequested());
    EXPECT_TRUE(panel->IsVisible());
    EXPECT_EQ(CellOfComputed(kMassColumn), "2");
    double mass = 0.0;
    record->GetMass("Computed", mass);
    EXPECT_EQ(mass, 2.0);
    // What is shown is still the computation before.
    EXPECT_THAT(server->CallsOf("WBGetValueDetails").back(), testing::StartsWith("1|"));
    server->answers["WBCompPartCompute"] = Answer("4");
    PressCompute(); // the next computation works
    EXPECT_EQ(CellOfComputed(kMassColumn), "4");
}

TEST_F(WBMainPanelComputeTest, WarningsStandInABoxOfTheirOwn)
{
    Open(record);
    server->answers["WBWarningMsg"] = "- 1 of 186 items has no mass\n- Placard has no inertia";
    PressCompute();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].title, "Warnings of the computation");
    EXPECT_THAT(boxes[0].text, HasSubstr("- Placard has no inertia"));
    EXPECT_EQ(boxes[0].style, kWarningStyle);
    EXPECT_EQ(CellOfComputed(kMassColumn), "2");
}

TEST_F(WBMainPanelComputeTest, ErrorsAmongTheWarningsMakeAnErrorBox)
{
    Open(record);
    for (const char* text : {"ERROR: nothing has a mass", "- Panel has no mass\nERROR: nothing"}) {
        boxes.clear();
        server->answers["WBWarningMsg"] = text;
        PressCompute();
        ASSERT_EQ(boxes.size(), 1U);
        EXPECT_EQ(boxes[0].title, "Errors in the computation");
        EXPECT_EQ(boxes[0].style, kErrorStyle);
    }
    boxes.clear();
    server->answers["WBWarningMsg"] = "- ERROR lamp (LMP-1 A) has no mass"; // a part called so
    PressCompute();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].title, "Warnings of the computation");
}

TEST_F(WBMainPanelComputeTest, BoxesSpeakGermanToo)
{
    CATMsgCatalog::SetLanguage("de");
    Open(record);
    server->answers["WBWarningMsg"] = "- Placard has no inertia";
    PressCompute();
    server->answers.erase("WBCompPartCompute");
    PressCompute();
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_EQ(boxes[0].title, "Warnungen der Berechnung");
    EXPECT_EQ(boxes[1].title, "Keine Antwort vom Server");
    EXPECT_EQ(Find<CATDlgPushButton>("ComputeButton")->Title(), "Berechnen");
}

TEST_F(WBMainPanelComputeTest, NothingIsCutInSilenceWhereAllIsMarked)
{
    for (const char* language : {"en", "de"}) {
        CATMsgCatalog::SetLanguage(language);
        const RecordHandle shown = RecordOf(FirewallStream());
        shown->SetActiveMassType("Computed");
        Open(shown);
        Choose("Entity", 1);
        Choose("Precision", 1);
        PressCompute();
        for (const QSize& size : {QSize(800, 600), QSize(1000, 700), QSize(1920, 1080)}) {
            Resize(size.width(), size.height());
            EXPECT_EQ(panel->Widget()->size(), size) << language;
            for (const char* page : {"MassTypes", "Values", "Inertia", "Sum", "Material"}) {
                SCOPED_TRACE(std::string(language) + " " + page);
                TurnTo(page);
                ExpectNoLabelIsCutInSilence(*panel->Widget());
                ExpectNothingLeavesTheWindow(*panel->Widget());
            }
        }
        CATRequestDelayedDestruction(panel);
        Settle();
    }
}
