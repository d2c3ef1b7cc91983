#include "ComputeSession.h"

#include <QApplication>
#include <QTimer>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr int kErrorStyle = 0x10000000;

/// What the user is told.
using ComputeMessages = ComputeSession;

/// Presses Cancel in the progress box as soon as it comes.
class ProgressCanceller
{
public:
    ProgressCanceller()
    {
        QObject::connect(&m_look, &QTimer::timeout, [this] {
            for (QWidget* window : QApplication::topLevelWidgets()) {
                if (window->objectName() == QLatin1String("ProgressBox") && window->isVisible()) {
                    m_hasCancelled = true;
                    window->findChild<QAbstractButton*>("CancelButton")->click();
                }
            }
        });
        m_look.start(20);
    }
    bool HasCancelled() const { return m_hasCancelled; }

private:
    QTimer m_look;
    bool m_hasCancelled = false;
};

} // namespace

TEST_F(ComputeMessages, AGoodAnswerIsNotCommented)
{
    Start();
    Compute(kAnswer);
    EXPECT_THAT(boxes, IsEmpty());
}

TEST_F(ComputeMessages, AServersErrorIsShownWithoutItsMarker)
{
    Start();
    Compute("#WB_ERROR#There is no root LA1.");
    EXPECT_THAT(boxes, ElementsAre(ComputeBox{"The server reports an error",
                                              "There is no root LA1.", kErrorStyle}));
    EXPECT_EQ(Text("MassEditor"), "");
    EXPECT_THAT(server->calls, SizeIs(2)); // nobody asks for warnings
}

TEST_F(ComputeMessages, AMarkerInsideIsTakenToStandAtTheStart)
{
    Start();
    // Ten characters are cut off, as many as the marker has.
    Compute("1|2|3|4|5|#WB_ERROR#No.");
    EXPECT_THAT(boxes, ElementsAre(ComputeBox{"The server reports an error", "#WB_ERROR#No.",
                                              kErrorStyle}));
}

TEST_F(ComputeMessages, AnEmptyAnswerIsALostServer)
{
    Start();
    Compute("");
    EXPECT_THAT(boxes, ElementsAre(ComputeBox{
                           "No answer from the server",
                           "The weight-and-balance server did not answer, so nothing was computed. "
                           "Check that the server is running, then compute again.",
                           kErrorStyle}));
    EXPECT_THAT(server->calls, SizeIs(2)); // nobody asks for warnings
}

TEST_F(ComputeMessages, WithoutAServerTheUserIsToldTheSame)
{
    CATSetServerCaller(nullptr);
    Start();
    Click("ComputeButton");
    ASSERT_THAT(boxes, SizeIs(1));
    EXPECT_EQ(boxes.front().title, "No answer from the server");
    EXPECT_TRUE(command->IsVisible());
}

TEST_F(ComputeMessages, WarningsAreShownAfterTheValues)
{
    Start();
    server->answers[kWarningMethod] = "- FUS-110 has no centre of gravity.";
    Compute(kAnswer);
    EXPECT_THAT(boxes, ElementsAre(ComputeBox{"Warnings of the computation",
                                              "- FUS-110 has no centre of gravity.", kErrorStyle}));
    EXPECT_EQ(Text("MassEditor"), "100lb");
}

TEST_F(ComputeMessages, WarningsWithAnErrorAreCalledErrors)
{
    Start();
    server->answers[kWarningMethod] = "- Stale.\nERROR LA1 holds itself.";
    Compute(kAnswer);
    EXPECT_THAT(boxes, ElementsAre(ComputeBox{"Errors in the computation",
                                              "- Stale.\nERROR LA1 holds itself.", kErrorStyle}));
}

TEST_F(ComputeMessages, AnErrorIsKnownByItsCapitals)
{
    Start();
    server->answers[kWarningMethod] = "- An error is not meant here.";
    Compute(kAnswer);
    ASSERT_THAT(boxes, SizeIs(1));
    EXPECT_EQ(boxes.front().title, "Warnings of the computation");
}

TEST_F(ComputeMessages, ALongWarningIsShortened)
{
    Start();
    std::string warning;
    for (int line = 0; line < 12; ++line) {
        warning += "- " + std::string(98, 'w') + "\n"; // 101 characters each
    }
    server->answers[kWarningMethod] = warning + "ERROR at the end";
    Compute(kAnswer);
    // Up to the tenth "- ", which begins the tenth line.
    EXPECT_THAT(boxes, ElementsAre(ComputeBox{"Errors in the computation",
                                              warning.substr(0, 9 * 101) + "...\nERROR at the end",
                                              kErrorStyle}));
}

TEST_F(ComputeMessages, AnAnswerThatCannotBeReadInFullIsSaidAndTheNextOneIsNot)
{
    Start();
    server->answers[kWarningMethod] = "- Stale.";
    Compute("381.35925|11.5");
    const ComputeBox unreadable{
        "The answer could not be read in full",
        "The answer of the weight-and-balance server is incomplete or damaged: what could not be "
        "read is shown as 0. Do not use these values. Compute again, and tell whoever looks after "
        "the server if it does not help.",
        kErrorStyle};
    const ComputeBox stale{"Warnings of the computation", "- Stale.", kErrorStyle};
    EXPECT_THAT(boxes, ElementsAre(unreadable, stale));
    EXPECT_THAT(output.Lines(), testing::Contains("Field 3 of the answer holds no number: "));
    Compute(kAnswer);
    EXPECT_THAT(boxes, ElementsAre(unreadable, stale, stale));
    EXPECT_EQ(Text("MassEditor"), "100lb");
}

TEST_F(ComputeMessages, OfEveryBadAnswerTheUserIsToldOnceAndTheNextComputationWorks)
{
    Start();
    const std::string values = "1|2|3|4|5|6|7|8|9|10|11|12|";
    for (const std::string& answer :
         {std::string(), std::string("#WB_ERROR#"), std::string("|"), std::string("heavy"),
          std::string(100000, '|'), "9" + std::string(400, '9'), values, values + "2|Al|",
          values + "2|Al|Paint|3|2780|2|10|1|0|", values + "-1|-1|", values + "x|y|",
          values + "2147483647|Al|3|2780|1|0|", values + "99999999999999999999|Al|3|2780|1|0|",
          values + "0|2147483647|Weighed|1|", values + "0|-2147483648|",
          values + "1|Al|3|2780|nan|0|", std::string("381,35925;11,5")}) {
        boxes.clear();
        Compute(answer);
        EXPECT_THAT(boxes, SizeIs(1)) << answer.substr(0, 60);
        boxes.clear();
        Compute(kAnswer);
        EXPECT_THAT(boxes, IsEmpty()) << answer.substr(0, 60);
        EXPECT_EQ(Text("MassEditor"), "100lb") << answer.substr(0, 60);
        EXPECT_EQ(Row("StatisticsMultiList", 1)[2], "50lb") << answer.substr(0, 60);
        EXPECT_EQ(Find<CATDlgMultiList>("MassTypeStatMultiList").RowCount(), 2);
    }
}

TEST_F(ComputeMessages, ACancelledQuestionForMassTypesLeavesAWindowThatWorks)
{
    server->worksOn = kMassTypesMethod;
    const ProgressCanceller canceller;
    Start();
    EXPECT_TRUE(canceller.HasCancelled());
    EXPECT_TRUE(command->IsVisible());
    EXPECT_EQ(Find<CATDlgCombo>("SpecifiedMassTypeCombo").LineCount(), 0);
    Compute(kAnswer);
    EXPECT_EQ(Text("MassEditor"), "100lb");
    EXPECT_THAT(boxes, IsEmpty());
}

TEST_F(ComputeMessages, ALongComputationShowsItsProgressAndCanBeCancelled)
{
    Start();
    server->worksOn = kComputeMethod;
    const ProgressCanceller canceller;
    Compute(kAnswer);
    EXPECT_TRUE(canceller.HasCancelled());
    EXPECT_THAT(boxes, ElementsAre(ComputeBox{"The server reports an error",
                                              "The call was cancelled.", kErrorStyle}));
    EXPECT_TRUE(command->IsVisible());
    EXPECT_EQ(Text("MassEditor"), "");
    EXPECT_THAT(server->calls, SizeIs(2)); // nobody asks for warnings

    server->worksOn.clear();
    Compute(kAnswer);
    EXPECT_EQ(Text("MassEditor"), "100lb");
    EXPECT_THAT(boxes, SizeIs(1));
}

TEST_F(ComputeMessages, ARefusedQuestionForAFilterComputesNothing)
{
    table.getFilter = nullptr; // then there is none
    SetTable(table);
    Start();
    boxAnswer = 4;
    Compute(kAnswer);
    EXPECT_THAT(boxes, ElementsAre(testing::Field(&ComputeBox::style, 0x8800200)));
    EXPECT_THAT(server->calls, SizeIs(1)); // the mass types
    EXPECT_EQ(Text("MassEditor"), "");
}

TEST_F(ComputeMessages, AnAcceptedQuestionForAFilterComputes)
{
    table.getFilter = nullptr;
    SetTable(table);
    Start();
    boxAnswer = 3;
    Compute(kAnswer);
    EXPECT_THAT(boxes, SizeIs(1));
    EXPECT_EQ(Text("MassEditor"), "100lb");
}

TEST_F(ComputeMessages, SpeakGerman)
{
    CATMsgCatalog::SetLanguage("de");
    Start();
    Compute("#WB_ERROR#Nein.");
    Compute("");
    Compute("1");
    server->answers[kWarningMethod] = "- Alt.";
    Compute(kAnswer);
    server->answers[kWarningMethod] = "ERROR Zyklus.";
    Compute(kAnswer);
    EXPECT_THAT(
        boxes,
        ElementsAre(
            ComputeBox{"Der Server meldet einen Fehler", "Nein.", kErrorStyle},
            ComputeBox{"Keine Antwort vom Server",
                       "Der Server hat nicht geantwortet, daher wurde nichts berechnet. Prüfen "
                       "Sie, ob der Server läuft, und berechnen Sie erneut.",
                       kErrorStyle},
            ComputeBox{"Die Antwort war nicht ganz zu lesen",
                       "Die Antwort des Servers ist unvollständig oder beschädigt: Was nicht zu "
                       "lesen war, steht hier als 0. Verwenden Sie diese Werte nicht. Berechnen "
                       "Sie erneut, und wenn das nicht hilft, wenden Sie sich an den Betreuer des "
                       "Servers.",
                       kErrorStyle},
            ComputeBox{"Warnungen der Berechnung", "- Alt.", kErrorStyle},
            ComputeBox{"Fehler in der Berechnung", "ERROR Zyklus.", kErrorStyle}));
}

TEST_F(ComputeDefaultTexts, BoxesAreWordedByTheProgram)
{
    Start();
    Compute("#WB_ERROR#No.");
    Compute("");
    Compute("1");
    server->answers[kWarningMethod] = "- Stale.";
    Compute(kAnswer);
    server->answers[kWarningMethod] = "ERROR A cycle.";
    Compute(kAnswer);
    EXPECT_THAT(boxes, ElementsAre(ComputeBox{"Server Error", "No.", kErrorStyle},
                                   ComputeBox{"Communication Error",
                                              "The server could not be reached.", kErrorStyle},
                                   ComputeBox{"Unreadable Answer",
                                              "The server's answer could not be read in full.",
                                              kErrorStyle},
                                   ComputeBox{"Warnings", "- Stale.", kErrorStyle},
                                   ComputeBox{"Errors", "ERROR A cycle.", kErrorStyle}));
}

TEST_F(ComputeDefaultTexts, NoFilterIsWordedByTheProgram)
{
    SetTable({});
    Start();
    EXPECT_EQ(Text("ConfigHandlerEditor"), "No filter");
}

TEST_F(ComputeDefaultTexts, AnotherServersWordForErrorsStandsInTheCatalog)
{
    WriteCatalog("[WBWarnings001]\nMessage = \"FATAL\"\n");
    CATMsgCatalog::SetLanguage("en"); // reads it anew
    Start();
    server->answers[kWarningMethod] = "- ERROR is another word here.";
    Compute(kAnswer);
    server->answers[kWarningMethod] = "FATAL A cycle.";
    Compute(kAnswer);
    EXPECT_THAT(boxes,
                ElementsAre(ComputeBox{"Warnings", "- ERROR is another word here.", kErrorStyle},
                            ComputeBox{"Errors", "FATAL A cycle.", kErrorStyle}));
}
