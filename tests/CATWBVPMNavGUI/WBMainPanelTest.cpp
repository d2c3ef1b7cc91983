#include "WBMainPanel.h"

#include "MainPanelSession.h"
#include "Toolkit.h"

#include "CATDlgMultiList.h"
#include "CATFatalError.h"
#include "CATWBVPMNavGUITable.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QGridLayout>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPalette>
#include <QScreen>
#include <QTabWidget>
#include <QTableView>
#include <QToolTip>

extern "C" void CATWBVPMNavGUIRegister();

namespace
{

const testing::Environment* const s_toolkit = testing::AddGlobalTestEnvironment(new Toolkit);

using WBMainPanelTest = MainPanelSession;

/// The heading of the pages of one mass type.
std::string HeadingOf(const CATDlgTabPage& page)
{
    return FindBelow<CATDlgLabel>(page, "Heading")->Title().ToStdString();
}

/// The cell of the area's grid in which the control of that name stands.
QRect CellIn(const QWidget& area, const char* name)
{
    auto* widget = area.findChild<QWidget*>(name);
    auto* grid =
        widget == nullptr ? nullptr : qobject_cast<QGridLayout*>(widget->parentWidget()->layout());
    if (grid == nullptr) {
        ADD_FAILURE() << "no grid with " << name;
        return {};
    }
    int row = 0;
    int column = 0;
    int rows = 0;
    int columns = 0;
    grid->getItemPosition(grid->indexOf(widget), &row, &column, &rows, &columns);
    return grid->cellRect(row, column);
}

} // namespace

TEST_F(WBMainPanelTest, IsMadeThroughTheTableOfTheLibrary)
{
    const CATWBVPMNavGUITable before = CATWBVPMNavGUISetTable({});
    CATWBVPMNavGUIRegister();
    const RecordHandle record = RecordOf(FirewallStream());
    CATWBVPMMainPanel* made = CATWBVPMMainPanel::Create(&CATSession::Root(), record.Get());
    CATWBVPMNavGUISetTable(before);
    ASSERT_NE(made, nullptr);
    EXPECT_STREQ(made->ClassName(), "WBMainPanel");
    EXPECT_EQ(made->Name(), "CATWBVPMMainPanel");
    EXPECT_EQ(made->Parent(), &CATSession::Root());
    EXPECT_EQ(made->GetResourceFilename(0), "CATWBVPMMainPanel");
    EXPECT_EQ(made->GetResourceFilename(1), "");
    EXPECT_EQ(record->ReferenceCount(), 2);
}

TEST_F(WBMainPanelTest, ShowsTheFirewallAtFirstGlance)
{
    server->details = DetailsSaid{"Firewall", {{"Calculated", "1|1|1|"}}}.Text();
    const RecordHandle record = RecordOf(FirewallStream());
    record->SetIsLeaf(true);
    Open(record);
    EXPECT_EQ(panel->Title(), "Weight and balance of Firewall");
    EXPECT_EQ(Text("Name"), "Firewall");
    EXPECT_EQ(Text("Part"), "FUS-110, version A");
    EXPECT_EQ(Text("Instance"), "FUS-110.1");
    EXPECT_EQ(Text("Path"), "LA1 / FUS-000.1 / FUS-100.1 / FUS-110.1");
    EXPECT_EQ(Text("UpToDate"), "Up to date");
    EXPECT_EQ(Text("Kind"), "Single part");
    EXPECT_EQ(Text("ActiveMassType"), "Calculated");
    EXPECT_EQ(Text("LastImposed"), "Estimated");
    EXPECT_EQ(Text("Mass"), "1.92 kg");
    EXPECT_EQ(Text("Bounds"), "1.862 to 2.016 kg"); // 1.92 - 0.0576 and 1.92 + 0.096
    EXPECT_EQ(Text("Centre"), "x 2   y 0   z -60 mm");
}

TEST_F(WBMainPanelTest, CaptionsComeFromTheResources)
{
    Open(RecordOf(FirewallStream()));
    EXPECT_EQ(Text("CentreLabel"), "Centre of gravity");
    EXPECT_EQ(Text("BoundsLabel"), "Mass range");
    EXPECT_EQ(Tabs()->tabText(0), "Mass types");
    EXPECT_EQ(Tabs()->tabText(8), "Position");
    EXPECT_EQ(panel->GetCloseButton()->Title(), "Close");
    // A caption that the resources lack shows the control's name.
    for (QLabel* label : panel->Widget()->findChildren<QLabel*>()) {
        EXPECT_FALSE(label->text().endsWith("Label")) << label->text().toStdString();
        EXPECT_FALSE(label->text().endsWith("Note")) << label->text().toStdString();
    }
}

TEST_F(WBMainPanelTest, WordsThatAreNotPlainAtOnceExplainThemselves)
{
    const struct
    {
        const char* language;
        const char* imposed;
    } languages[] = {{"en", "other than Computed"}, {"de", "außer Computed"}};
    for (const auto& row : languages) {
        CATMsgCatalog::SetLanguage(row.language);
        Open(RecordOf(FirewallStream()));
        for (const char* name :
             {"UpToDate", "ActiveMassTypeLabel", "LastImposedLabel", "MassLabel", "BoundsLabel",
              "CentreLabel", "AppliedOnLabel", "PriorityLabel", "ComputedOnLabel",
              "SpecificRevisionLabel", "SourceLabel", "ItemsLabel", "GrowthLabel", "PredictedLabel",
              "UncertaintyLabel", "FilterLabel"}) {
            EXPECT_NE(Find<CATDlgLabel>(name)->Tooltip(), "") << row.language << " " << name;
        }
        EXPECT_TRUE(Find<CATDlgLabel>("LastImposedLabel")->Tooltip().Contains(row.imposed));
        CATRequestDelayedDestruction(panel);
        Settle();
    }
}

TEST_F(WBMainPanelTest, SpeaksGermanWithACommaToo)
{
    CATMsgCatalog::SetLanguage("de");
    ASSERT_TRUE(CATUseNumberLocale("de_DE.UTF-8"));
    Open(RecordOf(FirewallStream()));
    EXPECT_EQ(Text("CentreLabel"), "Schwerpunkt");
    EXPECT_EQ(Text("Mass"), "1,92 kg");
    EXPECT_EQ(Text("Bounds"), "1,862 bis 2,016 kg");
    EXPECT_EQ(Tabs()->tabText(0), "Massentypen");
    EXPECT_EQ(panel->GetCloseButton()->Title(), "Schließen");
}

TEST_F(WBMainPanelTest, FillsEveryTab)
{
    Open(RecordOf(FirewallStream()));
    EXPECT_EQ(List("MassTypes")->RowCount(), 5);
    EXPECT_EQ(List("MassTypes")->Cell(0, 3), "Calculated");
    EXPECT_EQ(List("MassTypes")->Cell(3, 3), "1.92");
    EXPECT_EQ(Text("Density"), "7900 kg/m3");
    EXPECT_EQ(Text("MaterialName"), "Stainless steel 321");
    EXPECT_EQ(Text("AppliedOn"), "–");
    EXPECT_EQ(Text("PartDensity"), "–");
    EXPECT_EQ(Text("PartMaterial"), "–");
    EXPECT_EQ(Text("Priority"), "the density of the material");
    EXPECT_EQ(List("Material")->Cell(2, 1), "75");
    EXPECT_EQ(Text("ActiveDocument"), "DOC-55, version B");
    EXPECT_EQ(Text("AttachedRevision"), "DOC-55 2");
    EXPECT_EQ(Text("ComputedOn"), "the latest revision");
    EXPECT_EQ(Text("OldRevisions"), "yes");
    EXPECT_EQ(Text("SpecificRevision"), "yes");
    EXPECT_EQ(Text("Saving"), "yes");
    EXPECT_EQ(List("Documents")->Cell(5, 2), "jones");
    EXPECT_EQ(List("Properties")->RowCount(), 6);
    EXPECT_EQ(List("Properties")->Cell(1, 1), "1");
    EXPECT_EQ(List("Properties")->Cell(2, 1), "h");
    EXPECT_EQ(WordsOn("Position"), "Turned by 30 deg about the axis (0; 0; 1).\n"
                                   "Shifted by x 1000 mm, y -20.5 mm, z 0 mm.");
    EXPECT_EQ(List("Position")->Cell(4, 2), "-20.5");
}

TEST_F(WBMainPanelTest, ActiveMassTypeIsSelectedBoldAndItsInertiaShown)
{
    Open(RecordOf(FirewallStream()));
    CATDlgMultiList* list = List("MassTypes");
    EXPECT_EQ(list->SelectedRow(), 3);
    const QTableView* view = ViewOf(*list);
    EXPECT_TRUE(view->model()->index(2, 0).data(Qt::FontRole).value<QFont>().bold());
    EXPECT_FALSE(view->model()->index(1, 0).data(Qt::FontRole).value<QFont>().bold());
    EXPECT_EQ(HeadingOf(*Find<CATDlgTabPage>("Inertia")), "Inertia of Calculated");
    EXPECT_EQ(List("Inertia", "Matrix")->Cell(1, 1), "0.275557");
    EXPECT_EQ(HeadingOf(*Find<CATDlgTabPage>("Values")), "Values of Calculated");
    EXPECT_EQ(List("Values")->Cell(1, 1), "1.92 kg");
}

TEST_F(WBMainPanelTest, SelectedMassTypeShowsItsInertia)
{
    Open(RecordOf(FirewallStream()));
    QTableView* view = ViewOf(*List("MassTypes"));
    view->setFocus();
    QKeyEvent up(QEvent::KeyPress, Qt::Key_Up, Qt::NoModifier);
    QApplication::sendEvent(view, &up);
    EXPECT_EQ(HeadingOf(*Find<CATDlgTabPage>("Inertia")), "The inertia of Estimated is not known");
    EXPECT_EQ(List("Inertia", "Matrix")->RowCount(), 0);
    QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
    QApplication::sendEvent(view, &down);
    EXPECT_EQ(HeadingOf(*Find<CATDlgTabPage>("Inertia")), "Inertia of Calculated");
    EXPECT_EQ(List("Inertia", "Matrix")->RowCount(), 3);
}

TEST_F(WBMainPanelTest, SelectedMassTypeShowsWhereItsValuesComeFrom)
{
    DetailsSaid said{"Firewall", {{"Estimated"}, {"Calculated"}}};
    said.sets[0].source = "Guess 3|2025/12/24|keller|before the review|";
    said.sets[1].principal = "0.3|0.2|0.1|";
    server->details = said.Text();
    Open(RecordOf(FirewallStream()));
    EXPECT_EQ(Text("Source"), "–");
    EXPECT_EQ(List("Inertia", "Principal")->RowCount(), 0); // Calculated: inertia unknown
    List("MassTypes")->Send(CATDlgMultiList::RowSelected, 2);
    EXPECT_EQ(HeadingOf(*Find<CATDlgTabPage>("Values")), "Values of Estimated");
    EXPECT_EQ(Text("Source"), "Guess 3, 2025/12/24, keller");
    EXPECT_EQ(Text("Remark"), "before the review");
    EXPECT_EQ(List("Values")->Cell(0, 1), "Mass");
}

TEST_F(WBMainPanelTest, InertiaPageSaysPointAxesAndSignInWords)
{
    DetailsSaid said{"Firewall", {{"Calculated", "1|1|1|"}}};
    said.sets[0].principal = "0.48|0.1875|0.12|";
    server->details = said.Text();
    Open(RecordOf(FirewallStream()));
    EXPECT_EQ(WordsOn("Inertia"),
              "About the centre of gravity (x 2   y 0   z -60 mm), in the axes of the part.");
    EXPECT_THAT(Text("InertiaNote"), testing::HasSubstr("Ixy = + ∫ x y dm"));
    EXPECT_THAT(Text("InertiaNote"), testing::HasSubstr("opposite sign"));
    // sqrt(0.48 / 1.92) m = 0.5 m, sqrt(0.1875 / 1.92) m = 0.3125 m, sqrt(0.12 / 1.92) m = 0.25 m.
    const CATDlgMultiList& principal = *List("Inertia", "Principal");
    EXPECT_EQ(principal.Cell(1, 1), "0.48");
    EXPECT_EQ(principal.Cell(2, 1), "500");
    EXPECT_EQ(principal.Cell(2, 2), "312.5");
    EXPECT_EQ(principal.Cell(2, 3), "250");
    ShowIn("LENGTH", "cm");
    EXPECT_EQ(principal.Cell(2, 1), "50");
    EXPECT_EQ(principal.ColumnTitles()[3], "Radius of gyration [cm]");
    EXPECT_EQ(WordsOn("Inertia"),
              "About the centre of gravity (x 0.2   y 0   z -6 cm), in the axes of the part.");
}

TEST_F(WBMainPanelTest, ImposedAssemblyHasAPageOfItsOwn)
{
    DetailsSaid said{"Wing"};
    said.imposed = "1|Estimated|104|10|20|620|0|120|1|2|3|0|0|0|"
                   "100|3|5|600|10|120|2|2|2|0|0|0|4|7|15|20|-10|0|-1|0|1|0|0|0|";
    server->details = said.Text();
    Open(RecordOf(FirewallStream()));
    const auto page = [this] {
        return Find<CATDlgTabPage>("Imposed");
    };
    EXPECT_TRUE(page()->IsVisible());
    EXPECT_EQ(List("Imposed")->RowCount(), 12);
    EXPECT_EQ(List("Imposed")->Cell(1, 1), "104 kg");
    EXPECT_EQ(List("Imposed")->Cell(2, 1), "100 kg");
    EXPECT_EQ(List("Imposed")->Cell(3, 1), "4 kg");
    EXPECT_THAT(WordsOn("Imposed"), testing::HasSubstr("Estimated stand for everything below"));
    server->details = DetailsSaid{"Wing"}.Text();
    panel->SetModel(RecordOf(FirewallStream()).Get());
    EXPECT_FALSE(page()->IsVisible());
}

TEST_F(WBMainPanelTest, SumPageShowsCoverageSharesAndWarnings)
{
    DetailsSaid said{"Wing"};
    said.coverage = "187|1|12.5|3|";
    said.codes = "1|WING|95.5|";
    said.massTypes = "2|Estimated|20|Calculated|75.5|";
    said.growth = "4.25|";
    said.uncertainty = "1|0.5|__null__|__null__|__null__|__null__|__null__|__null__|__null__|"
                       "__null__|__null__|0.25|";
    said.warnings = "1|1 of 187 items has no mass|";
    server->details = said.Text();
    Open(RecordOf(FirewallStream()));
    EXPECT_EQ(Text("What"), "Nothing is computed yet.");
    EXPECT_EQ(Text("Items"), "186 of 187 items have a mass");
    EXPECT_EQ(Text("WithoutCentre"), "12.5 kg, at the centre of the rest");
    EXPECT_EQ(Text("WithoutInertia"), "3 kg, as points");
    EXPECT_EQ(Text("Growth"), "4.25 kg");
    EXPECT_EQ(Text("Predicted"), "–");
    EXPECT_EQ(Text("Uncertainty"), "0.5 kg, stated for 75 %");
    EXPECT_EQ(List("Sum", "Codes")->Cell(0, 1), "WING");
    EXPECT_EQ(List("Sum", "MassTypeShares")->Cell(0, 2), "Calculated");
    EXPECT_EQ(List("Sum", "Warnings")->Cell(0, 1), "1 of 187 items has no mass");
    ShowIn("MASS", "g");
    EXPECT_EQ(Text("Growth"), "4250 g");
    EXPECT_EQ(List("Sum", "Codes")->Cell(1, 1), "95500");
}

TEST_F(WBMainPanelTest, SelectionOfNoRowShowsNoInertia)
{
    Open(RecordOf(FirewallStream()));
    for (const int row : {0, 6, 99}) { // of five rows
        List("MassTypes")->Send(CATDlgMultiList::RowSelected, row);
        EXPECT_EQ(HeadingOf(*Find<CATDlgTabPage>("Inertia")), "Inertia: select a mass type") << row;
        EXPECT_EQ(List("Inertia", "Matrix")->RowCount(), 0) << row;
    }
}

TEST_F(WBMainPanelTest, AnotherRecordReplacesTheShownOne)
{
    const RecordHandle first = RecordOf(FirewallStream());
    const RecordHandle second = RecordOf(WideStream());
    Open(first);
    panel->SetModel(second.Get());
    EXPECT_EQ(first->ReferenceCount(), 1);
    EXPECT_EQ(second->ReferenceCount(), 2);
    EXPECT_EQ(List("MassTypes")->RowCount(), 60);
    EXPECT_EQ(List("MassTypes")->SelectedRow(), 1);
    EXPECT_EQ(Text("Mass"), "1234567.891 kg");
    EXPECT_EQ(Text("UpToDate"), "Not up to date");
    panel->SetModel(first.Get());
    EXPECT_EQ(second->ReferenceCount(), 1);
    EXPECT_EQ(List("MassTypes")->RowCount(), 5);
    EXPECT_EQ(Text("Mass"), "1.92 kg");
}

TEST_F(WBMainPanelTest, RecordWithoutTheActiveTypeSelectsNoRow)
{
    const RecordHandle record = RecordOf(FirewallStream());
    Open(record);
    record->SetActiveMassType("Gone");
    panel->SetModel(record.Get());
    EXPECT_EQ(List("MassTypes")->SelectedRow(), 0);
    EXPECT_EQ(HeadingOf(*Find<CATDlgTabPage>("Inertia")), "Inertia: select a mass type");
    EXPECT_EQ(Text("Mass"), "–");
}

TEST_F(WBMainPanelTest, ChangedUnitShowsAtOnceInEveryPlace)
{
    Open(RecordOf(FirewallStream()));
    server->calls.clear();
    ShowIn("MASS", "g");
    EXPECT_EQ(Text("Mass"), "1920 g");
    EXPECT_EQ(Text("Bounds"), "1862.4 to 2016 g");
    EXPECT_EQ(List("MassTypes")->ColumnTitles()[4], "Mass [g]");
    EXPECT_EQ(List("MassTypes")->Cell(3, 3), "1920");
    EXPECT_EQ(List("Material")->Cell(1, 1), "1500");
    EXPECT_EQ(List("Documents")->Cell(1, 1), "2100");
    ShowIn("LENGTH", "cm");
    EXPECT_EQ(Text("Centre"), "x 0.2   y 0   z -6 cm");
    EXPECT_EQ(List("MassTypes")->Cell(8, 3), "-6");
    EXPECT_EQ(List("Position")->ColumnTitles()[5], "Shift [cm]");
    EXPECT_EQ(List("Position")->Cell(4, 2), "-2.05");
    EXPECT_THAT(WordsOn("Position"), testing::EndsWith("Shifted by x 100 cm, y -2.05 cm, z 0 cm."));
    ShowIn("INERTIAMOMENT", "kg.mm2");
    EXPECT_EQ(List("Inertia", "Matrix")->Cell(1, 1), "275557");
    ShowIn("DENSITY", "g/cm3");
    EXPECT_EQ(Text("Density"), "7.9 g/cm3");
    ShowIn("TIME", "min");
    EXPECT_EQ(List("Properties")->Cell(1, 1), "60");
    EXPECT_EQ(List("Properties")->Cell(2, 1), "min");
    EXPECT_THAT(server->calls, testing::IsEmpty()); // what was read once is shown anew
}

TEST_F(WBMainPanelTest, ChangedUnitLeavesPageSelectionAndSortingToTheUser)
{
    Open(RecordOf(FirewallStream()));
    CATDlgMultiList* list = List("MassTypes");
    QTableView* view = ViewOf(*list);
    view->sortByColumn(3, Qt::DescendingOrder); // by mass: Estimated before Calculated
    Settle();
    view->setCurrentIndex(view->model()->index(0, 0));
    ASSERT_EQ(HeadingOf(*Find<CATDlgTabPage>("Inertia")), "The inertia of Estimated is not known");
    Tabs()->setCurrentIndex(1);

    ShowIn("MASS", "g");
    Settle();
    EXPECT_EQ(Tabs()->currentIndex(), 1);
    EXPECT_EQ(view->model()->index(0, 3).data().toString(), "2100");
    EXPECT_EQ(view->model()->index(1, 3).data().toString(), "1920");
    EXPECT_EQ(view->currentIndex().row(), 0);
    EXPECT_TRUE(view->selectionModel()->isSelected(view->currentIndex()));
    EXPECT_EQ(list->SelectedRow(), 2);
    EXPECT_EQ(HeadingOf(*Find<CATDlgTabPage>("Inertia")), "The inertia of Estimated is not known");
    EXPECT_TRUE(view->model()->index(1, 0).data(Qt::FontRole).value<QFont>().bold());
}

TEST_F(WBMainPanelTest, ClosedPanelIsInTheNewUnitWhenItShowsAgain)
{
    Open(RecordOf(FirewallStream()));
    panel->SetVisibility(false);
    ShowIn("MASS", "g");
    panel->SetVisibility(true);
    EXPECT_EQ(Text("Mass"), "1920 g");
}

TEST_F(WBMainPanelTest, PanelThatIsGoneHearsOfNoUnit)
{
    Open(RecordOf(FirewallStream()));
    CATSession::Close();
    ShowIn("MASS", "g"); // touches nothing that is gone: the sanitizers watch
}

TEST_F(WBMainPanelTest, EmptyRecordShowsDashesAndEmptyLists)
{
    Open(RecordHandle::Adopt(new CATWBAllDataBuffer));
    EXPECT_EQ(Text("Mass"), "–");
    EXPECT_EQ(Text("Centre"), "–");
    EXPECT_EQ(List("MassTypes")->RowCount(), 0);
    EXPECT_EQ(WordsOn("Position"), "The position in the product is not known.");
}

TEST_F(WBMainPanelTest, PanelWithoutARecordIsEmpty)
{
    panel = new WBMainPanel(&CATSession::Root(), nullptr);
    panel->SetVisibility(true);
    EXPECT_EQ(Text("Mass"), "–");
    EXPECT_EQ(List("MassTypes")->RowCount(), 0);
}

TEST_F(WBMainPanelTest, StateIsSaidToThoseWhoDoNotSeeItsColour)
{
    const RecordHandle record = RecordOf(FirewallStream());
    Open(record);
    const auto* sign = panel->Widget()->findChild<QLabel*>("UpToDate");
    EXPECT_EQ(sign->accessibleDescription(), "good");
    record->SetUpToDateFlag(false);
    panel->SetModel(record.Get());
    EXPECT_EQ(sign->accessibleDescription(), "warning");
    EXPECT_EQ(Text("UpToDate"), "Not up to date");
}

TEST_F(WBMainPanelTest, CaptionsAndNotesAreQuietAndWhatMattersMostIsLarge)
{
    Open(RecordOf(FirewallStream()));
    const auto label = [this](const char* name) {
        return panel->Widget()->findChild<QLabel*>(name);
    };
    const auto colour = [&](const char* name) {
        return label(name)->palette().color(QPalette::WindowText);
    };
    const QColor plain = colour("Bounds");
    for (const char* quiet :
         {"MassLabel", "PartLabel", "DensityLabel", "InertiaNote", "PrincipalNote"}) {
        EXPECT_NE(colour(quiet), plain) << quiet;
        EXPECT_EQ(colour(quiet), colour("BoundsLabel")) << quiet;
    }
    for (const char* large : {"Name", "ActiveMassType", "Mass"}) {
        EXPECT_GT(label(large)->fontMetrics().height(), label("Bounds")->fontMetrics().height())
            << large;
    }
}

TEST_F(WBMainPanelTest, ListsTakeTheRoomThatALargeScreenHas)
{
    Open(RecordOf(WideStream()));
    Resize(1920, 1080);
    for (const char* page :
         {"MassTypes", "Values", "Material", "Documents", "Properties", "Position"}) {
        TurnTo(page);
        EXPECT_GT(ViewOf(*List(page))->height(), 500) << page;
        EXPECT_GT(ViewOf(*List(page))->width(), 1800) << page;
    }
    TurnTo("Sum");
    EXPECT_GT(ViewOf(*List("Sum", "Codes"))->height(), 300);
    EXPECT_GT(ViewOf(*List("Sum", "Codes"))->width(), 900);
}

TEST_F(WBMainPanelTest, ControlsStandInReadingOrder)
{
    Open(RecordOf(FirewallStream()));
    Resize(1280, 800);
    const struct
    {
        const char* page;
        std::vector<const char*> downwards;
    } columns[] = {
        {"", {"Heading", "Tabs", "Compute", "Buttons"}},
        {"Heading",
         {"Name", "PartLabel", "PathLabel", "ActiveMassTypeLabel", "LastImposedLabel",
          "CentreLabel"}},
        {"Heading", {"UpToDate", "Kind"}},
        {"Heading", {"InstanceLabel", "MassLabel", "BoundsLabel"}},
        {"Values", {"Heading", "SourceLabel", "RemarkLabel", "List"}},
        {"Inertia", {"Heading", "Words", "Matrix", "InertiaNote", "Principal", "PrincipalNote"}},
        {"Sum", {"ItemsLabel", "WithoutCentreLabel", "WithoutInertiaLabel", "Codes", "Warnings"}},
        {"Sum", {"GrowthLabel", "PredictedLabel", "UncertaintyLabel", "MassTypeShares"}},
        {"Compute", {"EntityLabel", "FilterLabel"}},
        {"Compute", {"Precision", "StoredSums"}},
        {"Compute", {"ComputeButton", "Level"}},
        {"Material", {"DensityLabel", "MaterialNameLabel", "AppliedOnLabel", "List"}},
        {"Material", {"PartDensityLabel", "PartMaterialLabel", "PriorityLabel", "List"}},
        {"Documents", {"ActiveDocumentLabel", "AttachedRevisionLabel", "ComputedOnLabel", "List"}},
        {"Documents", {"OldRevisionsLabel", "SpecificRevisionLabel", "SavingLabel", "List"}},
        {"Position", {"Words", "List", "Note"}},
    };
    for (const auto& column : columns) {
        const std::string page = column.page;
        QWidget* area =
            page.empty() ? panel->Widget() : panel->Widget()->findChild<QWidget*>(column.page);
        ASSERT_NE(area, nullptr) << page;
        if (Find<CATDlgTabPage>(column.page) != nullptr) {
            TurnTo(column.page);
        }
        int above = -1;
        for (const char* name : column.downwards) {
            const QRect place = PlaceIn(*area, name);
            EXPECT_GT(place.top(), above) << page << " " << name;
            above = place.bottom();
        }
    }
    const QWidget& heading = *panel->Widget()->findChild<QWidget*>("Heading");
    EXPECT_EQ(PlaceIn(heading, "Kind").left(), PlaceIn(heading, "UpToDate").left());
    EXPECT_GT(PlaceIn(heading, "Kind").left(), PlaceIn(heading, "Instance").right());
}

TEST_F(WBMainPanelTest, CloseButtonKeepsItsSizeAtTheRight)
{
    Open(RecordOf(FirewallStream()));
    Resize(1280, 800);
    const QRect button = PlaceIn(*panel->Widget(), "CloseButton");
    EXPECT_LT(button.width(), 300);
    EXPECT_GT(button.right(), 1200);
}

TEST_F(WBMainPanelTest, ValuesOfTheHeadingStandBelowOneAnother)
{
    Open(RecordOf(FirewallStream()));
    const QWidget& heading = *panel->Widget()->findChild<QWidget*>("Heading");
    for (const QSize size : {QSize(800, 600), QSize(1920, 1080)}) {
        Resize(size.width(), size.height());
        for (const char* name : {"Path", "ActiveMassType", "LastImposed", "Centre"}) {
            EXPECT_EQ(PlaceIn(heading, name).left(), PlaceIn(heading, "Part").left()) << name;
        }
        for (const char* name : {"Mass", "Bounds"}) {
            EXPECT_EQ(PlaceIn(heading, name).left(), PlaceIn(heading, "Instance").left()) << name;
        }
    }
}

TEST_F(WBMainPanelTest, BothColumnsOfFactsShareTheRoomThatIsLeft)
{
    Open(RecordOf(FirewallStream()));
    Resize(1920, 1080);
    const struct
    {
        const char* area;
        const char* left;
        const char* right;
    } pairs[] = {{"Heading", "Part", "Instance"},
                 {"Heading", "ActiveMassType", "Mass"},
                 {"Material", "Density", "PartDensity"},
                 {"Documents", "ActiveDocument", "OldRevisions"}};
    for (const auto& pair : pairs) {
        const QWidget& area = *panel->Widget()->findChild<QWidget*>(pair.area);
        if (Find<CATDlgTabPage>(pair.area) != nullptr) {
            TurnTo(pair.area);
        }
        const int left = CellIn(area, pair.left).width();
        const int right = CellIn(area, pair.right).width();
        EXPECT_NEAR(left, right, 2) << pair.area;
        EXPECT_GT(left, 400) << pair.area;
    }
}

TEST_F(WBMainPanelTest, OpensAsLargeAsTheScreenAllows)
{
    Open(RecordOf(FirewallStream()));
    const QSize screen = panel->Widget()->screen()->availableSize();
    EXPECT_GE(panel->Widget()->width(), std::min(screen.width() - 100, 1000));
    EXPECT_GE(panel->Widget()->height(), std::min(screen.height() - 150, 700));
}

TEST_F(WBMainPanelTest, CloseButtonHidesThePanelAndTellsItsListeners)
{
    Open(RecordOf(FirewallStream()));
    auto* listener = new CATCommand(&CATSession::Root(), "Listener");
    int heard = 0;
    listener->Subscribe(panel->GetCloseButton(), CATDlgPushButton::Activated,
                        [&heard](const CATNotification&) { ++heard; });
    auto* button = panel->Widget()->findChild<QAbstractButton*>("CloseButton");
    ASSERT_NE(button, nullptr);
    button->click();
    EXPECT_FALSE(panel->IsVisible());
    EXPECT_EQ(heard, 1);
}

TEST_F(WBMainPanelTest, FaultOfAnOwnActionLeavesThePanelOpenAndReloaded)
{
    CATSession::SetFaultReporter([](const CATUnicodeString&, const CATUnicodeString&) {});
    Open(RecordOf(FirewallStream()));
    Find<CATDlgLabel>("Mass")->SetTitle("half written");
    EXPECT_FALSE(CATSession::RunGuarded(panel, [] { throw CATFatalError("x", "Some.cpp", 1); }));
    EXPECT_FALSE(panel->IsDestructionRequested());
    EXPECT_TRUE(panel->IsVisible());
    EXPECT_EQ(Text("Mass"), "1.92 kg");
    CATSession::SetFaultReporter({});
}

TEST_F(WBMainPanelTest, EveryFieldIsReadOnlySelectableAndCopyable)
{
    Open(RecordOf(FirewallStream()));
    for (QLabel* label : panel->Widget()->findChildren<QLabel*>()) {
        if (label->objectName().isEmpty()) {
            continue;
        }
        EXPECT_TRUE(label->textInteractionFlags().testFlag(Qt::TextSelectableByMouse))
            << label->objectName().toStdString();
        EXPECT_TRUE(label->textInteractionFlags().testFlag(Qt::TextSelectableByKeyboard))
            << label->objectName().toStdString();
        EXPECT_FALSE(label->textInteractionFlags().testFlag(Qt::TextEditable));
    }
    for (QTableView* view : panel->Widget()->findChildren<QTableView*>()) {
        EXPECT_EQ(view->editTriggers(), QAbstractItemView::NoEditTriggers);
        EXPECT_NE(view->selectionMode(), QAbstractItemView::NoSelection);
    }
    auto* mass = panel->Widget()->findChild<QLabel*>("Mass");
    ASSERT_NE(mass, nullptr);
    QKeyEvent copy(QEvent::KeyPress, Qt::Key_C, Qt::ControlModifier);
    QApplication::sendEvent(mass, &copy);
    EXPECT_EQ(QApplication::clipboard()->text(), "1.92 kg");
}

TEST_F(WBMainPanelTest, NumbersStandAtTheRightUnderTitlesThatDoToo)
{
    Open(RecordOf(FirewallStream()));
    const QAbstractItemModel& model = *ViewOf(*List("MassTypes"))->model();
    for (int column = 0; column < model.columnCount(); ++column) {
        const bool isNumber = column >= 3 && column <= 14;
        for (const QVariant& alignment :
             {model.index(2, column).data(Qt::TextAlignmentRole),
              model.headerData(column, Qt::Horizontal, Qt::TextAlignmentRole)}) {
            EXPECT_EQ((alignment.toInt() & Qt::AlignRight) != 0, isNumber) << column;
        }
    }
    EXPECT_TRUE(Says(model.headerData(3, Qt::Horizontal, Qt::ToolTipRole).toString().toStdString(),
                     "Mass as this mass type states it"));
}

TEST_F(WBMainPanelTest, NothingIsCutInSilenceOnSmallAndLargeScreens)
{
    Open(RecordOf(WideStream()));
    ASSERT_EQ(List("MassTypes")->RowCount(), 60);
    for (const QSize& size : {QSize(800, 600), QSize(1920, 1080)}) {
        Resize(size.width(), size.height());
        ASSERT_EQ(panel->Widget()->size(), size);
        for (int page = 0; page < Tabs()->count(); ++page) {
            SCOPED_TRACE(std::to_string(size.width()) + " wide, page " + std::to_string(page));
            if (!Tabs()->isTabVisible(page)) {
                continue;
            }
            Tabs()->setCurrentIndex(page);
            Settle();
            ExpectNoLabelIsCutInSilence(*panel->Widget());
            ExpectNothingLeavesTheWindow(*panel->Widget());
            for (QTableView* view : panel->Widget()->findChildren<QTableView*>()) {
                if (view->isVisible()) {
                    ExpectListIsReadable(*view);
                }
                if (view->isVisible() && view->model()->rowCount() > 0) {
                    ExpectEveryColumnIsReachedByKeys(*view);
                }
            }
        }
    }
}

TEST_F(WBMainPanelTest, FirstGlanceIsWholeForOrdinaryNamesOnASmallScreen)
{
    for (const char* language : {"en", "de"}) {
        CATMsgCatalog::SetLanguage(language);
        Open(RecordOf(FirewallStream()));
        Resize(800, 600);
        for (const char* name : {"Name", "Part", "Instance", "Path", "UpToDate", "Kind",
                                 "ActiveMassType", "LastImposed", "Mass", "Bounds", "Centre",
                                 "ActiveMassTypeLabel", "BoundsLabel", "CentreLabel"}) {
            const auto* label = panel->Widget()->findChild<QLabel*>(name);
            ASSERT_NE(label, nullptr) << name;
            EXPECT_LE(label->fontMetrics().horizontalAdvance(label->text()),
                      label->contentsRect().width())
                << name;
        }
    }
}
