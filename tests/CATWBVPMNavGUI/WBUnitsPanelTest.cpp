#include "WBUnitsPanel.h"

#include "PanelChecks.h"
#include "PanelSession.h"
#include "TestMagnitude.h"

#include "CATCommandWatch.h"
#include "CATDlgNotify.h"
#include "CATFatalError.h"
#include "CATStatus.h"
#include "CATWBVPMNavGUITable.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QScrollBar>

extern "C" void CATWBVPMNavGUIRegister();

namespace
{

constexpr int kYes = 3;
constexpr int kNo = 4;

class WBUnitsPanelTest : public PanelSession
{
protected:
    WBUnitsPanelTest()
    {
        m_window = new CATDlgDialog(&CATSession::Root(), "Main", 0x4001);
        m_frame = std::make_unique<CATApplicationFrame>(m_window);
        m_before = CATWBVPMNavGUISetTable({});
        CATWBVPMNavGUIRegister();
        CATDlgNotify::SetAnswerer([this](const CATDlgNotify::Shown& box) {
            boxes.push_back(box.title.ToStdString() + ": " + box.text.ToStdString());
            styles.push_back(box.style);
            return std::optional<int>(answer);
        });
    }
    ~WBUnitsPanelTest() override
    {
        CATSession::Close();
        CATDlgNotify::SetAnswerer({});
        CATWBVPMNavGUISetTable(m_before);
    }

    void Open()
    {
        panel = CATWBVPMNavUnitsConversion::Instance();
        ASSERT_NE(panel, nullptr);
        panel->BringToFront();
        Settle();
    }
    template <class T>
    T& Find(const char* name) const
    {
        return *FindBelow<T>(*panel, name);
    }
    CATDlgMultiList& Table() const { return Find<CATDlgMultiList>("Table"); }
    /// Quantity, unit, new unit, stored, shown.
    std::vector<std::string> Row(int row) const { return CellsOf(Table(), row); }
    /// As the user does: the listeners of the combo are told.
    void Choose(const char* combo, const char* line) const
    {
        auto* widget = qobject_cast<QComboBox*>(Find<CATDlgCombo>(combo).Widget());
        const int index = widget->findText(line);
        ASSERT_GE(index, 0) << line;
        widget->setCurrentIndex(index);
    }
    void ChooseUnit(int row, const char* symbol) const
    {
        ViewOf(Table())->setCurrentIndex(ViewOf(Table())->model()->index(row - 1, 0));
        Choose("Unit", symbol);
    }
    void Click(const char* button) const
    {
        auto* widget = qobject_cast<QAbstractButton*>(Find<CATDlgPushButton>(button).Widget());
        ASSERT_TRUE(widget->isEnabled()) << button;
        widget->click();
        Settle();
    }
    std::string Line(const char* combo) const
    {
        return Find<CATDlgCombo>(combo)
            .Line(Find<CATDlgCombo>(combo).SelectedIndex())
            .ToStdString();
    }
    std::string Text(const char* label) const
    {
        return Find<CATDlgLabel>(label).Title().ToStdString();
    }
    bool CanPress(const char* button) const { return Find<CATDlgPushButton>(button).IsSensitive(); }
    bool IsBold(int row) const
    {
        Settle();
        return ViewOf(Table())->model()->index(row - 1, 0).data(Qt::FontRole).value<QFont>().bold();
    }
    static std::string Current(const char* magnitude)
    {
        return CATCkeGlobalFunctions::GetParmDictionary()
            ->FindMagnitude(magnitude)
            ->CurrentUnit()
            ->Symbol()
            .ToStdString();
    }
    /// A session that has no place for settings.
    static void ForgetSettings()
    {
        CATSetEnvironmentSource([](const char*) { return std::optional<std::string>(); });
        CATSettingRepository::CloseAll();
    }

    CATWBVPMNavUnitsConversion* panel = nullptr;
    std::vector<std::string> boxes;
    std::vector<int> styles;
    int answer = kYes;

private:
    CATDlgDialog* m_window = nullptr;
    std::unique_ptr<CATApplicationFrame> m_frame;
    CATWBVPMNavGUITable m_before;
};

constexpr int kMassRow = 1;
constexpr int kLengthRow = 2;

} // namespace

TEST_F(WBUnitsPanelTest, ThereIsOneASessionMadeHiddenBelowTheMainWindow)
{
    panel = CATWBVPMNavUnitsConversion::Instance();
    ASSERT_NE(panel, nullptr);
    EXPECT_STREQ(panel->ClassName(), "WBUnitsPanel");
    EXPECT_EQ(panel->Name(), "CATWBVPMNavUnitsConversion");
    EXPECT_EQ(panel->Parent(), CATApplicationFrame::GetFrame()->MainWindow());
    EXPECT_EQ(panel->Style(), 0x4001);
    EXPECT_EQ(panel->GetResourceFilename(0), "CATWBVPMNavUnitsConversion");
    EXPECT_EQ(panel->GetResourceFilename(1), "");
    EXPECT_FALSE(panel->IsVisible());
    EXPECT_EQ(CATWBVPMNavUnitsConversion::Instance(), panel);
    panel->SetVisibility(true);
    panel->SetVisibility(false);
    EXPECT_EQ(CATWBVPMNavUnitsConversion::Instance(), panel);
}

TEST_F(WBUnitsPanelTest, PanelThatIsOrWillBeDestroyedIsMadeAnew)
{
    Open();
    const CATCommandWatch<CATWBVPMNavUnitsConversion> first(panel);
    panel->RequestDelayedDestruction();
    CATWBVPMNavUnitsConversion* second = CATWBVPMNavUnitsConversion::Instance();
    EXPECT_NE(second, first.Get());
    Settle();
    EXPECT_EQ(first.Get(), nullptr);
    EXPECT_EQ(CATWBVPMNavUnitsConversion::Instance(), second);
    const CATCommandWatch<CATWBVPMNavUnitsConversion> watch(second);
    second->RequestDelayedDestruction();
    Settle();
    ASSERT_EQ(watch.Get(), nullptr);
    panel = CATWBVPMNavUnitsConversion::Instance();
    ASSERT_NE(panel, nullptr);
    ShowIn("MASS", "lb"); // those that are gone hear nothing: the sanitizers watch
    EXPECT_EQ(Row(kMassRow)[1], "lb");
}

TEST_F(WBUnitsPanelTest, ThereIsNoneWithoutAMainWindow)
{
    CATSession::Close();
    EXPECT_EQ(CATWBVPMNavUnitsConversion::Instance(), nullptr);
}

TEST_F(WBUnitsPanelTest, ShowsEveryMagnitudeAndTheUnitsOfTheFirst)
{
    Open();
    EXPECT_EQ(Table().RowCount(),
              CATCkeGlobalFunctions::GetParmDictionary()->MagnitudeNames().Size());
    EXPECT_THAT(Row(kMassRow), testing::ElementsAre("Mass", "kg", "", "12.5 kg", "12.5 kg"));
    EXPECT_EQ(Table().SelectedRow(), kMassRow);
    EXPECT_EQ(Line("Unit"), "kg");
    EXPECT_EQ(Find<CATDlgCombo>("Unit").LineCount(), 7); // kg mg g t oz lb slug
    EXPECT_EQ(Text("Quantity"), "of the selected quantity: Mass");
    EXPECT_EQ(Find<CATDlgCombo>("Unit").Widget()->accessibleName().toStdString(), "Unit of Mass");
    EXPECT_EQ(Line("Preset"), "As shipped");
    EXPECT_EQ(Text("State"), "");
    EXPECT_FALSE(CanPress("ApplyButton"));
    EXPECT_FALSE(CanPress("ResetButton"));
    EXPECT_TRUE(CanPress("CloseButton"));
}

TEST_F(WBUnitsPanelTest, QuantitySaysHowFilesAndCommandsCallIt)
{
    Open();
    const QModelIndex cell = ViewOf(Table())->model()->index(kLengthRow - 1, 0);
    EXPECT_EQ(cell.data(Qt::ToolTipRole).toString().toStdString(),
              "LENGTH in unit files and commands. Units: mm, um, cm, m, km, in, ft");
}

TEST_F(WBUnitsPanelTest, SelectedRowOffersItsUnits)
{
    Open();
    ViewOf(Table())->setFocus();
    QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
    QApplication::sendEvent(ViewOf(Table()), &down);
    EXPECT_EQ(Text("Quantity"), "of the selected quantity: Length");
    EXPECT_EQ(Line("Unit"), "mm");
    EXPECT_EQ(Find<CATDlgCombo>("Unit").Line(5), "in");
}

TEST_F(WBUnitsPanelTest, ChosenUnitIsPendingUntilItIsApplied)
{
    Open();
    ChooseUnit(kMassRow, "lb");
    EXPECT_THAT(Row(kMassRow), testing::ElementsAre("Mass", "kg", "lb", "12.5 kg", "27.558 lb"));
    EXPECT_TRUE(IsBold(kMassRow));
    EXPECT_FALSE(IsBold(kLengthRow));
    EXPECT_EQ(Text("State"), "1 change is not applied yet");
    EXPECT_EQ(Find<CATDlgLabel>("State").Widget()->accessibleDescription().toStdString(),
              "warning");
    EXPECT_EQ(Line("Preset"), "Own choice");
    EXPECT_EQ(Current("MASS"), "kg");
    ChooseUnit(kLengthRow, "in");
    EXPECT_EQ(Text("State"), "2 changes are not applied yet");
    ChooseUnit(kMassRow, "lb");
    EXPECT_EQ(Line("Unit"), "lb");

    Click("ApplyButton");
    EXPECT_EQ(Current("MASS"), "lb");
    EXPECT_EQ(Current("LENGTH"), "in");
    EXPECT_THAT(Row(kMassRow), testing::ElementsAre("Mass", "lb", "", "12.5 kg", "27.558 lb"));
    EXPECT_FALSE(IsBold(kMassRow));
    EXPECT_EQ(Text("State"), "");
    EXPECT_EQ(Find<CATDlgLabel>("State").Widget()->accessibleDescription().toStdString(), "");
    EXPECT_FALSE(CanPress("ApplyButton"));
    EXPECT_FALSE(CanPress("ResetButton"));
    EXPECT_TRUE(panel->IsVisible());
    EXPECT_TRUE(boxes.empty());
}

TEST_F(WBUnitsPanelTest, AppliedUnitsAreThereInTheNextSession)
{
    Open();
    ChooseUnit(kMassRow, "lb");
    Click("ApplyButton");
    CATSettingRepository::CloseAll();
    CATCkeGlobalFunctions::SetParmDictionary({});
    EXPECT_EQ(Current("MASS"), "lb");
}

TEST_F(WBUnitsPanelTest, ResetGivesUpWhatIsPendingAndNothingElse)
{
    Open();
    ChooseUnit(kMassRow, "lb");
    Click("ApplyButton");
    ChooseUnit(kMassRow, "g");
    ChooseUnit(kLengthRow, "in");
    Click("ResetButton");
    EXPECT_EQ(Text("State"), "");
    EXPECT_THAT(Row(kMassRow), testing::ElementsAre("Mass", "lb", "", "12.5 kg", "27.558 lb"));
    EXPECT_EQ(Row(kLengthRow)[2], "");
    EXPECT_EQ(Line("Unit"), "mm"); // of the selected row, length
    EXPECT_EQ(Current("MASS"), "lb");
    EXPECT_EQ(Current("LENGTH"), "mm");
}

TEST_F(WBUnitsPanelTest, CurrentUnitChosenAgainIsPendingNoMore)
{
    Open();
    ChooseUnit(kMassRow, "lb");
    ChooseUnit(kMassRow, "kg");
    EXPECT_EQ(Text("State"), "");
    EXPECT_FALSE(CanPress("ApplyButton"));
    EXPECT_FALSE(IsBold(kMassRow));
}

TEST_F(WBUnitsPanelTest, PresetIsPendingAsAWholeAndThenApplied)
{
    Open();
    Choose("Preset", "Inch-pound");
    EXPECT_EQ(Text("State"), "6 changes are not applied yet");
    EXPECT_EQ(Row(kLengthRow)[2], "in");
    EXPECT_EQ(Row(kLengthRow)[4], "50 in");
    EXPECT_EQ(Line("Unit"), "lb");
    EXPECT_EQ(Line("Preset"), "Inch-pound");
    Click("ApplyButton");
    EXPECT_EQ(Current("INERTIAMOMENT"), "lb.in2");
    EXPECT_EQ(Current("VOLUME"), "in3");
    EXPECT_EQ(Current("SURFACICMASS"), "lb/ft2");
    EXPECT_EQ(Line("Preset"), "Inch-pound");
    Choose("Preset", "As shipped");
    EXPECT_EQ(Text("State"), "6 changes are not applied yet");
    Click("ApplyButton");
    EXPECT_EQ(Current("MASS"), "kg");
}

TEST_F(WBUnitsPanelTest, OwnChoiceChoosesNothing)
{
    Open();
    Choose("Preset", "Own choice");
    EXPECT_EQ(Line("Preset"), "As shipped");
    EXPECT_EQ(Text("State"), "");
}

TEST_F(WBUnitsPanelTest, ChangesByAnyoneAreToldByUnitsType)
{
    panel = CATWBVPMNavUnitsConversion::Instance(); // hidden as it is
    auto* listener = new CATCommand(&CATSession::Root(), "Listener");
    std::vector<std::string> heard;
    for (int type = 0; type <= 5; ++type) {
        listener->Subscribe(panel, CATWBVPMNavUnitsConversion::GetChangedEvent(type),
                            [&heard](const CATNotification& changed) {
                                heard.push_back(std::string(changed.event.Name()) + " " +
                                                std::to_string(changed.detail));
                            });
    }
    ShowIn("DENSITY", "g/cm3");
    ShowIn("SURFACICMASS", "lb/ft2");
    ShowIn("MASS", "lb");
    ShowIn("LENGTH", "in");
    ShowIn("INERTIAMOMENT", "lb.in2");
    ShowIn("VOLUME", "L");
    ShowIn("TIME", "min");
    ShowIn("TIME", "min"); // it is that already
    CATCkeGlobalFunctions::GetParmDictionary()->FindMagnitude("MASS")->UseUnit("g");
    EXPECT_THAT(heard, testing::ElementsAre("DensityUnitChanged 1", "DensityUnitChanged 1",
                                            "MassUnitChanged 2", "LengthUnitChanged 3",
                                            "InertiaUnitChanged 4", "VolumeUnitChanged 5",
                                            "OtherUnitChanged 0", "MassUnitChanged 2"));
}

TEST_F(WBUnitsPanelTest, ApplyTellsEveryUnitOnceWhenItHolds)
{
    Open();
    auto* listener = new CATCommand(&CATSession::Root(), "Listener");
    std::vector<std::string> heard;
    for (const int type : {2, 3, 4}) {
        listener->Subscribe(panel, CATWBVPMNavUnitsConversion::GetChangedEvent(type),
                            [&heard](const CATNotification&) {
                                heard.push_back(Current("MASS") + " " + Current("LENGTH"));
                            });
    }
    ChooseUnit(kMassRow, "lb");
    ChooseUnit(kLengthRow, "in");
    EXPECT_TRUE(heard.empty());
    Click("ApplyButton");
    EXPECT_THAT(heard, testing::ElementsAre("lb mm", "lb in"));
}

TEST_F(WBUnitsPanelTest, ChangeBySomebodyElseShowsInTheOpenPanel)
{
    Open();
    ChooseUnit(kMassRow, "lb");
    ChooseUnit(kLengthRow, "in");
    ShowIn("MASS", "lb"); // what the user was about to do
    EXPECT_THAT(Row(kMassRow), testing::ElementsAre("Mass", "lb", "", "12.5 kg", "27.558 lb"));
    EXPECT_EQ(Text("State"), "1 change is not applied yet");
    ShowIn("LENGTH", "cm"); // something else: the choice stays
    EXPECT_THAT(Row(kLengthRow), testing::ElementsAre("Length", "cm", "in", "1270 mm", "50 in"));
    EXPECT_EQ(Text("State"), "1 change is not applied yet");
    EXPECT_EQ(Table().SelectedRow(), kLengthRow);
}

TEST_F(WBUnitsPanelTest, SortedTableKeepsItsOrderAndItsSelectionWhileUnitsAreChosen)
{
    Open();
    ViewOf(Table())->sortByColumn(0, Qt::AscendingOrder); // Acceleration, Angle, Area, ...
    Settle();
    ViewOf(Table())->setCurrentIndex(ViewOf(Table())->model()->index(2, 0));
    ASSERT_EQ(Text("Quantity"), "of the selected quantity: Area");
    Choose("Unit", "ft2");
    Settle();
    EXPECT_EQ(ViewOf(Table())->model()->index(2, 2).data().toString(), "ft2");
    EXPECT_EQ(ViewOf(Table())->currentIndex().row(), 2);
    EXPECT_EQ(Text("Quantity"), "of the selected quantity: Area");
}

TEST_F(WBUnitsPanelTest, UnitsThatCannotBeKeptAreUsedAndTheUserIsToldOnce)
{
    Open();
    ForgetSettings();
    Choose("Preset", "Inch-pound");
    Click("ApplyButton");
    EXPECT_EQ(Current("MASS"), "lb");
    EXPECT_EQ(Current("SURFACICMASS"), "lb/ft2");
    EXPECT_EQ(Text("State"), "");
    EXPECT_THAT(boxes, testing::ElementsAre(
                           "Units: The units are used now, but they could not be written to "
                           "your settings: they hold for this session only."));
    EXPECT_THAT(styles, testing::ElementsAre(0x8000000)); // a warning
}

TEST_F(WBUnitsPanelTest, CloseButtonHidesThePanelWithoutAWordWhereNothingIsPending)
{
    Open();
    panel->GetCloseButton()->Widget()->setFocus();
    Click("CloseButton");
    EXPECT_FALSE(panel->IsVisible());
    EXPECT_TRUE(boxes.empty());
    EXPECT_EQ(panel->GetCloseButton(), &Find<CATDlgPushButton>("CloseButton"));
    Open();
    EXPECT_TRUE(panel->IsVisible());
}

TEST_F(WBUnitsPanelTest, PendingChoicesAreAppliedAtClosingWhenTheUserWantsIt)
{
    Open();
    ChooseUnit(kMassRow, "lb");
    Click("CloseButton");
    EXPECT_THAT(boxes,
                testing::ElementsAre("Units: 1 change is not applied yet. Apply before closing?"));
    EXPECT_THAT(styles, testing::ElementsAre(0x8800200)); // a question
    EXPECT_EQ(Current("MASS"), "lb");
    EXPECT_FALSE(panel->IsVisible());
}

TEST_F(WBUnitsPanelTest, PendingChoicesAreGivenUpAtClosingWhenTheUserSaysNo)
{
    answer = kNo;
    Open();
    ChooseUnit(kMassRow, "lb");
    panel->Widget()->close();
    EXPECT_EQ(boxes.size(), 1U);
    EXPECT_EQ(Current("MASS"), "kg");
    EXPECT_FALSE(panel->IsVisible());
    Open();
    EXPECT_EQ(Row(kMassRow)[2], "");
    EXPECT_FALSE(CanPress("ApplyButton"));
}

TEST_F(WBUnitsPanelTest, QuestionAtClosingLeavesNoBoxBehind)
{
    Open();
    const int children = panel->ChildCount();
    ChooseUnit(kMassRow, "lb");
    Click("CloseButton");
    EXPECT_EQ(panel->ChildCount(), children);
}

TEST_F(WBUnitsPanelTest, SpeaksGermanWithACommaToo)
{
    CATMsgCatalog::SetLanguage("de");
    ASSERT_TRUE(CATUseNumberLocale("de_DE.UTF-8"));
    Open();
    EXPECT_EQ(panel->Title(), "Einheiten");
    ChooseUnit(kMassRow, "lb");
    EXPECT_THAT(Row(kMassRow), testing::ElementsAre("Masse", "kg", "lb", "12,5 kg", "27,558 lb"));
    EXPECT_EQ(Text("PresetLabel"), "Vorgabe");
    EXPECT_EQ(Text("UnitLabel"), "Einheit");
    EXPECT_EQ(Text("Quantity"), "der gewählten Größe: Masse");
    EXPECT_EQ(Line("Preset"), "Eigene Wahl");
    EXPECT_EQ(Text("State"), "1 Änderung ist noch nicht angewendet");
    EXPECT_EQ(Find<CATDlgPushButton>("ApplyButton").Title(), "Anwenden");
    EXPECT_EQ(Find<CATDlgPushButton>("ResetButton").Title(), "Zurücksetzen");
    EXPECT_EQ(Find<CATDlgPushButton>("CloseButton").Title(), "Schließen");
    answer = kNo;
    Click("CloseButton");
    EXPECT_THAT(boxes,
                testing::ElementsAre("Einheiten: 1 Änderung ist noch nicht angewendet. Vor dem "
                                     "Schließen anwenden?"));
}

TEST_F(WBUnitsPanelTest, CaptionsAndTooltipsComeFromTheResources)
{
    Open();
    EXPECT_EQ(panel->Title(), "Units");
    EXPECT_EQ(Text("PresetLabel"), "Preset");
    EXPECT_EQ(Text("UnitLabel"), "Unit");
    EXPECT_EQ(Text("Note"), "Stored values do not change; units only say how values are shown.");
    for (const char* button : {"ApplyButton", "ResetButton"}) {
        EXPECT_FALSE(Find<CATDlgPushButton>(button).Tooltip().IsEmpty()) << button;
    }
    for (const char* combo : {"Preset", "Unit"}) {
        EXPECT_FALSE(Find<CATDlgCombo>(combo).Tooltip().IsEmpty()) << combo;
    }
    EXPECT_EQ(Find<CATDlgCombo>("Preset").Widget()->accessibleName().toStdString(), "Preset");
}

TEST_F(WBUnitsPanelTest, DictionaryWithoutMagnitudesLeavesNothingToChoose)
{
    // As in a session whose unit files are missing.
    CATCkeGlobalFunctions::SetParmDictionary(CATICkeParmDictionary_var::Adopt(new TestDictionary));
    Open();
    EXPECT_EQ(Table().RowCount(), 0);
    // What stands in the place of rows is painted, no cell holds it.
    const QImage seen = ViewOf(Table())->viewport()->grab().toImage();
    int painted = 0;
    for (int y = 0; y < seen.height(); ++y) {
        for (int x = 0; x < seen.width(); ++x) {
            painted += seen.pixel(x, y) != seen.pixel(0, 0) ? 1 : 0;
        }
    }
    EXPECT_GT(painted, 100);
    EXPECT_EQ(Text("Quantity"), "");
    EXPECT_FALSE(Find<CATDlgCombo>("Unit").IsSensitive());
    EXPECT_EQ(Find<CATDlgCombo>("Unit").LineCount(), 0);
    EXPECT_EQ(Line("Preset"), "Own choice");
    Choose("Preset", "SI");
    EXPECT_EQ(Text("State"), "");
}

TEST_F(WBUnitsPanelTest, FaultOfAnOwnActionLeavesThePanelOpenAndReloaded)
{
    CATSession::SetFaultReporter([](const CATUnicodeString&, const CATUnicodeString&) {});
    Open();
    ChooseUnit(kMassRow, "lb");
    Find<CATDlgLabel>("State").SetTitle("half written");
    EXPECT_FALSE(CATSession::RunGuarded(panel, [] { throw CATFatalError("x", "Some.cpp", 1); }));
    EXPECT_FALSE(panel->IsDestructionRequested());
    EXPECT_TRUE(panel->IsVisible());
    EXPECT_EQ(Text("State"), "1 change is not applied yet");
    CATSession::SetFaultReporter({});
}

TEST_F(WBUnitsPanelTest, OpensWithEveryShippedMagnitudeInSight)
{
    Open();
    Choose("Preset", "Inch-pound"); // bold, and with long numbers
    Settle();
    const QTableView& view = *ViewOf(Table());
    EXPECT_FALSE(view.horizontalScrollBar()->isVisible());
    EXPECT_FALSE(view.verticalScrollBar()->isVisible());
    EXPECT_LE(panel->Widget()->width(), 700);
}

TEST_F(WBUnitsPanelTest, CaptionsAreQuiet)
{
    Open();
    const auto colour = [&](const char* label) {
        return Find<CATDlgLabel>(label).Widget()->palette().color(QPalette::WindowText);
    };
    for (const char* label : {"PresetLabel", "UnitLabel", "Quantity", "Note"}) {
        EXPECT_NE(colour(label), QApplication::palette().color(QPalette::WindowText)) << label;
    }
    EXPECT_EQ(colour("State"), QApplication::palette().color(QPalette::WindowText));
}

TEST_F(WBUnitsPanelTest, ControlsStandInReadingOrderAndTheTableTakesTheRoom)
{
    Open();
    QWidget& window = *panel->Widget();
    window.resize(900, 800);
    Settle();
    const auto place = [&](const char* name) {
        return PlaceIn(window, name);
    };
    EXPECT_LT(place("Preset").bottom(), place("Table").top());
    EXPECT_LT(place("Table").bottom(), place("Unit").top());
    EXPECT_LT(place("Unit").bottom(), place("Note").top());
    EXPECT_LT(place("Note").bottom(), place("CloseButton").top());
    EXPECT_LT(place("PresetLabel").right(), place("Preset").left());
    EXPECT_LT(place("UnitLabel").right(), place("Unit").left());
    EXPECT_LT(place("Unit").right(), place("Quantity").left());
    EXPECT_LT(place("State").right(), place("ApplyButton").left());
    EXPECT_LT(place("ApplyButton").right(), place("ResetButton").left());
    EXPECT_LT(place("ResetButton").right(), place("CloseButton").left());
    EXPECT_GT(window.width(), place("CloseButton").right());
    EXPECT_LT(window.width() - place("CloseButton").right(), 20);
    EXPECT_GT(place("Table").height(), 500);
    EXPECT_LT(place("Preset").width(), 300);
    EXPECT_LT(place("Unit").width(), 300);
}

TEST_F(WBUnitsPanelTest, NothingIsCutInSilenceOnSmallAndLargeScreens)
{
    for (const char* language : {"en", "de"}) {
        CATMsgCatalog::SetLanguage(language);
        Open();
        ChooseUnit(3, "lbf.in.s2"); // the longest symbol
        for (const QSize& size : {QSize(600, 400), QSize(1200, 900)}) {
            SCOPED_TRACE(std::string(language) + " " + std::to_string(size.width()));
            panel->Widget()->resize(size);
            Settle();
            ASSERT_EQ(panel->Widget()->size(), size);
            ExpectNoLabelIsCutInSilence(*panel->Widget());
            ExpectNothingLeavesTheWindow(*panel->Widget());
            ExpectListIsReadable(*ViewOf(Table()));
            ExpectEveryColumnIsReachedByKeys(*ViewOf(Table()));
        }
        panel->RequestDelayedDestruction();
        Settle();
    }
}
