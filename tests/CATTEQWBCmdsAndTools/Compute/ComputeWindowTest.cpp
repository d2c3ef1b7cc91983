#include "ComputeSession.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>

namespace
{

using testing::ElementsAre;

class ComputeWindow : public ComputeSession
{
protected:
    ComputeWindow() { Start(); }
};

enum class Kind
{
    Frame,
    Label,
    Editor,
    Tabs,
    Page,
    List,
    Radio,
    Push,
    Combo
};

constexpr int kNoGrid = -1; // a page stands behind its tab, in no grid

struct Expected
{
    const char* name;
    const char* parent;
    Kind kind;
    int style;
    int row;
    int column;
    int justification;
};

constexpr int kPlain = 0x80001;
constexpr int kInner = 1;
constexpr int kRead = 0x4000000;

const std::vector<Expected> kControls{
    {"Frame001", "CATWBComputeCmd", Kind::Frame, kPlain, 0, 0, 30},
    {"SelectionLabel", "Frame001", Kind::Label, 0, 0, 0, 30},
    {"SelectionEditor", "Frame001", Kind::Editor, kRead, 0, 1, 30},
    {"ResultTabContainer", "CATWBComputeCmd", Kind::Tabs, 0, 1, 0, 30},
    {"ResultTabPage", "ResultTabContainer", Kind::Page, 0, kNoGrid, kNoGrid, 30},
    {"MassFrame", "ResultTabPage", Kind::Frame, kInner, 0, 0, 30},
    {"MassLabel", "MassFrame", Kind::Label, 0, 0, 0, 30},
    {"MassEditor", "MassFrame", Kind::Editor, kRead, 0, 1, 30},
    {"LowerDeviationLabel", "MassFrame", Kind::Label, 0, 1, 0, 30},
    {"LowerDeviationEditor", "MassFrame", Kind::Editor, kRead, 1, 1, 30},
    {"UpperDeviationLabel", "MassFrame", Kind::Label, 0, 2, 0, 30},
    {"UpperDeviationEditor", "MassFrame", Kind::Editor, kRead, 2, 1, 30},
    {"CenterOfGravityFrame", "ResultTabPage", Kind::Frame, kInner, 0, 1, 30},
    {"CGxLabel", "CenterOfGravityFrame", Kind::Label, 0, 0, 0, 30},
    {"CGxEditor", "CenterOfGravityFrame", Kind::Editor, kRead, 0, 1, 30},
    {"CGyLabel", "CenterOfGravityFrame", Kind::Label, 0, 1, 0, 30},
    {"CGyEditor", "CenterOfGravityFrame", Kind::Editor, kRead, 1, 1, 30},
    {"CGzLabel", "CenterOfGravityFrame", Kind::Label, 0, 2, 0, 30},
    {"CGzEditor", "CenterOfGravityFrame", Kind::Editor, kRead, 2, 1, 30},
    {"MomentOfInertiaFrame", "ResultTabPage", Kind::Frame, kInner, 1, 0, 30},
    {"IxxLabel", "MomentOfInertiaFrame", Kind::Label, 0, 0, 0, 30},
    {"IxxEditor", "MomentOfInertiaFrame", Kind::Editor, kRead, 0, 1, 30},
    {"IyyLabel", "MomentOfInertiaFrame", Kind::Label, 0, 1, 0, 30},
    {"IyyEditor", "MomentOfInertiaFrame", Kind::Editor, kRead, 1, 1, 30},
    {"IzzLabel", "MomentOfInertiaFrame", Kind::Label, 0, 2, 0, 30},
    {"IzzEditor", "MomentOfInertiaFrame", Kind::Editor, kRead, 2, 1, 30},
    {"ProductOfInertiaFrame", "ResultTabPage", Kind::Frame, kInner, 1, 1, 30},
    {"IxyLabel", "ProductOfInertiaFrame", Kind::Label, 0, 0, 0, 30},
    {"IxyEditor", "ProductOfInertiaFrame", Kind::Editor, kRead, 0, 1, 30},
    {"IxzLabel", "ProductOfInertiaFrame", Kind::Label, 0, 1, 0, 30},
    {"IxzEditor", "ProductOfInertiaFrame", Kind::Editor, kRead, 1, 1, 30},
    {"IyzLabel", "ProductOfInertiaFrame", Kind::Label, 0, 2, 0, 30},
    {"IyzEditor", "ProductOfInertiaFrame", Kind::Editor, kRead, 2, 1, 30},
    {"StatisticsPage", "ResultTabContainer", Kind::Page, 0, kNoGrid, kNoGrid, 30},
    {"StatisticsMultiList", "StatisticsPage", Kind::List, 0, 0, 0, 30},
    {"MassTypeStatPage", "ResultTabContainer", Kind::Page, 0, kNoGrid, kNoGrid, 30},
    {"MassTypeStatMultiList", "MassTypeStatPage", Kind::List, 0, 0, 0, 30},
    {"Frame043", "CATWBComputeCmd", Kind::Frame, kPlain, 2, 0, 30},
    {"InertiaModeFrame", "Frame043", Kind::Frame, kInner, 0, 0, 30},
    {"CGButton", "InertiaModeFrame", Kind::Radio, 0, 0, 0, 30},
    {"ReferenceButton", "InertiaModeFrame", Kind::Radio, 0, 1, 0, 30},
    {"ComputeOptionFrame", "Frame043", Kind::Frame, kInner, 0, 1, 30},
    {"ActiveButton", "ComputeOptionFrame", Kind::Radio, 0, 0, 0, 30},
    {"MostPreciseButton", "ComputeOptionFrame", Kind::Radio, 0, 1, 0, 30},
    {"SpecifiedButton", "ComputeOptionFrame", Kind::Radio, 0, 2, 0, 30},
    {"SpecifiedMassTypeFrame", "ComputeOptionFrame", Kind::Frame, kInner, 3, 0, 30},
    {"SpecifiedMassTypeLabel", "SpecifiedMassTypeFrame", Kind::Label, 0, 0, 0, 30},
    {"SpecifiedMassTypeCombo", "SpecifiedMassTypeFrame", Kind::Combo, 0x40000, 0, 1, 30},
    {"UpdateOptionFrame", "Frame043", Kind::Frame, kInner, 0, 2, 30},
    {"CheckUpToDateButton", "UpdateOptionFrame", Kind::Radio, 0, 0, 0, 30},
    {"ForceUpdateButton", "UpdateOptionFrame", Kind::Radio, 0, 1, 0, 30},
    {"AssumeUpToDateButton", "UpdateOptionFrame", Kind::Radio, 0, 2, 0, 30},
    {"UpdateLevelInfoLabel", "UpdateOptionFrame", Kind::Label, 0, 3, 0, 30},
    {"UpdateLevelEditor", "UpdateOptionFrame", Kind::Editor, 0x200000, 3, 1, 30},
    {"ConfigHandler", "Frame043", Kind::Frame, kInner, 1, 0, 30},
    {"ConfigHandlerEditor", "ConfigHandler", Kind::Editor, kRead, 0, 0, 30},
    {"Frame047", "CATWBComputeCmd", Kind::Frame, kPlain, 3, 0, 4},
    {"ComputeButton", "Frame047", Kind::Push, 0, 0, 0, 30},
    {"Label049", "Frame047", Kind::Label, 0, 0, 1, 30},
    {"CloseButton", "Frame047", Kind::Push, 0, 0, 2, 30},
};

Kind KindOf(const CATDialog& control)
{
    const auto is = [&control]<class T>(std::type_identity<T>) {
        return dynamic_cast<const T*>(&control) != nullptr;
    };
    if (is(std::type_identity<CATDlgFrame>())) {
        return Kind::Frame;
    }
    if (is(std::type_identity<CATDlgLabel>())) {
        return Kind::Label;
    }
    if (is(std::type_identity<CATDlgEditor>())) {
        return Kind::Editor;
    }
    if (is(std::type_identity<CATDlgTabContainer>())) {
        return Kind::Tabs;
    }
    if (is(std::type_identity<CATDlgTabPage>())) {
        return Kind::Page;
    }
    if (is(std::type_identity<CATDlgMultiList>())) {
        return Kind::List;
    }
    if (is(std::type_identity<CATDlgRadioButton>())) {
        return Kind::Radio;
    }
    if (is(std::type_identity<CATDlgPushButton>())) {
        return Kind::Push;
    }
    return Kind::Combo;
}

int CountBelow(const CATCommand& parent)
{
    int count = parent.ChildCount();
    for (int position = 1; position <= parent.ChildCount(); ++position) {
        count += CountBelow(*parent.Child(position));
    }
    return count;
}

/// Row, column, rows and columns of the cell that the widget, or the box it stands in, fills.
std::vector<int> CellOf(const QWidget* widget)
{
    while (widget != nullptr && widget->parentWidget() != nullptr) {
        const auto* grid = qobject_cast<QGridLayout*>(widget->parentWidget()->layout());
        const int index = grid == nullptr ? -1 : grid->indexOf(widget);
        if (index >= 0) {
            int row = 0;
            int column = 0;
            int rows = 0;
            int columns = 0;
            grid->getItemPosition(index, &row, &column, &rows, &columns);
            return {row, column, rows, columns};
        }
        widget = widget->parentWidget();
    }
    return {};
}

} // namespace

TEST_F(ComputeWindow, HoldsEveryControlInItsPlaceWithItsWords)
{
    for (const Expected& expected : kControls) {
        SCOPED_TRACE(expected.name);
        const auto& control = Find<CATDialog>(expected.name);
        EXPECT_EQ(control.Parent()->Name(), expected.parent);
        EXPECT_EQ(KindOf(control), expected.kind);
        EXPECT_EQ(control.Style(), expected.style);
        EXPECT_EQ(control.Justification(), expected.justification);
        if (expected.row != kNoGrid) {
            const std::vector<int> cell = CellOf(control.Widget());
            ASSERT_EQ(cell.size(), 4U);
            EXPECT_EQ(cell[0], expected.row);
            EXPECT_EQ(cell[1], expected.column);
        }
    }
}

TEST_F(ComputeWindow, HoldsNothingElse)
{
    EXPECT_EQ(CountBelow(*command), static_cast<int>(kControls.size()));
}

TEST_F(ComputeWindow, OptionsBesideEachOtherReachOverBothRows)
{
    EXPECT_THAT(CellOf(Find<CATDialog>("ComputeOptionFrame").Widget()), ElementsAre(0, 1, 2, 1));
    EXPECT_THAT(CellOf(Find<CATDialog>("UpdateOptionFrame").Widget()), ElementsAre(0, 2, 2, 1));
    for (const char* button :
         {"CheckUpToDateButton", "ForceUpdateButton", "AssumeUpToDateButton"}) {
        EXPECT_THAT(CellOf(Find<CATDialog>(button).Widget()), ElementsAre(testing::_, 0, 1, 3))
            << button;
    }
}

TEST_F(ComputeWindow, BeginsWithTheUsualOptions)
{
    for (const char* button : {"CGButton", "ActiveButton", "CheckUpToDateButton"}) {
        EXPECT_TRUE(IsChecked(button)) << button;
    }
    for (const char* button : {"ReferenceButton", "MostPreciseButton", "SpecifiedButton",
                               "ForceUpdateButton", "AssumeUpToDateButton"}) {
        EXPECT_FALSE(IsChecked(button)) << button;
    }
    EXPECT_EQ(Text("UpdateLevelEditor"), "0");
}

TEST_F(ComputeWindow, BeginsWithEverythingOnButWhatBelongsToAnOption)
{
    for (const Expected& expected : kControls) {
        const std::string name = expected.name;
        const bool isOff = name == "UpdateLevelEditor" || name == "UpdateLevelInfoLabel" ||
                           name.starts_with("SpecifiedMassType");
        EXPECT_EQ(IsOn(expected.name), !isOff) << name;
    }
}

TEST_F(ComputeWindow, BeginsWithTheRootAndItsFilterAndNoValues)
{
    EXPECT_EQ(Text("SelectionEditor"), "LA1");
    EXPECT_EQ(Text("ConfigHandlerEditor"), "Only of LA1");
    for (const auto& editors : {kMassEditors, kCentreEditors, kInertiaEditors}) {
        for (const char* editor : editors) {
            EXPECT_EQ(Text(editor), "") << editor;
        }
    }
    EXPECT_EQ(Find<CATDlgMultiList>("StatisticsMultiList").RowCount(), 0);
    EXPECT_EQ(Find<CATDlgMultiList>("MassTypeStatMultiList").RowCount(), 0);
    EXPECT_EQ(Find<CATDlgTabContainer>("ResultTabContainer").SelectedPage(), 0);
}

TEST_F(ComputeWindow, BeginsWithTheKeysOnComputeAndNoTextSelected)
{
    EXPECT_EQ(command->Widget()->focusWidget(), Find<CATDialog>("ComputeButton").Widget());
    for (const QLineEdit* editor : command->Widget()->findChildren<QLineEdit*>()) {
        EXPECT_FALSE(editor->hasSelectedText()) << editor->objectName().toStdString();
    }
}

TEST_F(ComputeWindow, ListsHaveTheirColumns)
{
    EXPECT_EQ(Find<CATDlgMultiList>("StatisticsMultiList").ColumnTitles(),
              CATListValCATUnicodeString({"Material", "Density", "Mass", "Share of mass"}));
    EXPECT_EQ(Find<CATDlgMultiList>("MassTypeStatMultiList").ColumnTitles(),
              CATListValCATUnicodeString({"Mass type", "Mass", "Share of mass"}));
}

TEST_F(ComputeWindow, ResultsAreReadOnlyCanBeSelectedAndStandAtTheRight)
{
    for (const auto& editors : {kMassEditors, kCentreEditors, kInertiaEditors}) {
        for (const char* name : editors) {
            const auto* editor = qobject_cast<QLineEdit*>(Find<CATDialog>(name).Widget());
            ASSERT_NE(editor, nullptr) << name;
            EXPECT_TRUE(editor->isReadOnly()) << name;
            EXPECT_TRUE(editor->isEnabled()) << name;
            EXPECT_NE(editor->alignment() & Qt::AlignRight, 0) << name;
        }
    }
    EXPECT_FALSE(
        qobject_cast<QLineEdit*>(Find<CATDialog>("UpdateLevelEditor").Widget())->isReadOnly());
}

TEST_F(ComputeWindow, EditorsAskForTheirWidths)
{
    // A character more is a character's width more.
    const auto widthOf = [this](const char* name) {
        return Find<CATDialog>(name).Widget()->sizeHint().width();
    };
    const int character = command->Widget()->fontMetrics().horizontalAdvance(QLatin1Char('0'));
    EXPECT_EQ(widthOf("SelectionEditor") - widthOf("UpdateLevelEditor"), 34 * character);
    EXPECT_EQ(widthOf("ConfigHandlerEditor") - widthOf("UpdateLevelEditor"), 19 * character);
}

TEST_F(ComputeWindow, EveryFieldIsNamedForThoseWhoHearIt)
{
    const auto spoken = [this](const char* name) {
        return Find<CATDialog>(name).Widget()->accessibleName().toStdString();
    };
    EXPECT_EQ(spoken("SelectionEditor"), "Product");
    EXPECT_EQ(spoken("MassEditor"), "Mass");
    EXPECT_EQ(spoken("LowerDeviationEditor"), "Lower deviation");
    EXPECT_EQ(spoken("IxyEditor"), "Ixy");
    EXPECT_EQ(spoken("SpecifiedMassTypeCombo"), "Mass type");
    EXPECT_EQ(spoken("UpdateLevelEditor"), "below level");
}

namespace
{

/// A control that shows a text, in both languages.
struct Label
{
    const char* name;
    const char* english;
    const char* german;
};

const std::vector<Label> kLabels{
    {"SelectionLabel", "Product", "Produkt"},
    {"ResultTabPage", "Result", "Ergebnis"},
    {"MassFrame", "Mass", "Masse"},
    {"MassLabel", "Mass", "Masse"},
    {"LowerDeviationLabel", "Lower deviation", "Untere Abweichung"},
    {"UpperDeviationLabel", "Upper deviation", "Obere Abweichung"},
    {"CenterOfGravityFrame", "Centre of gravity", "Schwerpunkt"},
    {"CGxLabel", "x", "x"},
    {"CGyLabel", "y", "y"},
    {"CGzLabel", "z", "z"},
    {"MomentOfInertiaFrame", "Moments of inertia", "Trägheitsmomente"},
    {"IxxLabel", "Ixx", "Ixx"},
    {"IyyLabel", "Iyy", "Iyy"},
    {"IzzLabel", "Izz", "Izz"},
    {"ProductOfInertiaFrame", "Products of inertia", "Deviationsmomente"},
    {"IxyLabel", "Ixy", "Ixy"},
    {"IxzLabel", "Ixz", "Ixz"},
    {"IyzLabel", "Iyz", "Iyz"},
    {"StatisticsPage", "Materials", "Werkstoffe"},
    {"MassTypeStatPage", "Mass types", "Massentypen"},
    {"InertiaModeFrame", "Inertia about", "Trägheit um"},
    {"CGButton", "Centre of gravity", "Schwerpunkt"},
    {"ReferenceButton", "Origin", "Ursprung"},
    {"ComputeOptionFrame", "Values that count", "Werte, die zählen"},
    {"ActiveButton", "Active mass type", "Aktiver Massentyp"},
    {"MostPreciseButton", "Most precise", "Genaueste"},
    {"SpecifiedButton", "One mass type", "Ein Massentyp"},
    {"SpecifiedMassTypeFrame", "", ""},
    {"SpecifiedMassTypeLabel", "Mass type", "Massentyp"},
    {"UpdateOptionFrame", "Stored results", "Gespeicherte Ergebnisse"},
    {"CheckUpToDateButton", "Update what changed", "Geändertes aktualisieren"},
    {"ForceUpdateButton", "Compute all anew", "Alles neu berechnen"},
    {"AssumeUpToDateButton", "Take as stored", "Wie gespeichert"},
    {"UpdateLevelInfoLabel", "below level", "unter Ebene"},
    {"ConfigHandler", "Filter", "Filter"},
    {"ComputeButton", "Compute", "Berechnen"},
    {"Label049", "", ""},
    {"CloseButton", "Close", "Schließen"},
};

} // namespace

TEST_F(ComputeWindow, SpeaksEnglish)
{
    EXPECT_EQ(command->Title(), "Compute product");
    for (const Label& label : kLabels) {
        EXPECT_EQ(Find<CATDialog>(label.name).Title(), label.english) << label.name;
    }
}

TEST_F(ComputeSession, WindowSpeaksGerman)
{
    CATMsgCatalog::SetLanguage("de");
    Start();
    EXPECT_EQ(command->Title(), "Produkt berechnen");
    for (const Label& label : kLabels) {
        EXPECT_EQ(Find<CATDialog>(label.name).Title(), label.german) << label.name;
    }
    EXPECT_EQ(Find<CATDlgMultiList>("StatisticsMultiList").ColumnTitles(),
              CATListValCATUnicodeString({"Werkstoff", "Dichte", "Masse", "Massenanteil"}));
    EXPECT_EQ(Find<CATDlgMultiList>("MassTypeStatMultiList").ColumnTitles(),
              CATListValCATUnicodeString({"Massentyp", "Masse", "Massenanteil"}));
}

namespace
{

const std::vector<Label> kTooltips{
    {"LowerDeviationLabel", "By how much less the mass may be",
     "Um wie viel die Masse kleiner sein kann"},
    {"UpperDeviationLabel", "By how much more the mass may be",
     "Um wie viel die Masse größer sein kann"},
    {"CGxLabel", "In the product's axes", "In den Achsen des Produkts"},
    {"CGyLabel", "In the product's axes", "In den Achsen des Produkts"},
    {"CGzLabel", "In the product's axes", "In den Achsen des Produkts"},
    {"IxxLabel", "About the axis through the chosen point along x",
     "Um die Achse durch den gewählten Punkt entlang x"},
    {"IyyLabel", "About the axis through the chosen point along y",
     "Um die Achse durch den gewählten Punkt entlang y"},
    {"IzzLabel", "About the axis through the chosen point along z",
     "Um die Achse durch den gewählten Punkt entlang z"},
    {"IxyLabel", "The positive sum of mass times x times y from the chosen point",
     "Die positive Summe aus Masse mal x mal y vom gewählten Punkt aus"},
    {"IxzLabel", "The positive sum of mass times x times z from the chosen point",
     "Die positive Summe aus Masse mal x mal z vom gewählten Punkt aus"},
    {"IyzLabel", "The positive sum of mass times y times z from the chosen point",
     "Die positive Summe aus Masse mal y mal z vom gewählten Punkt aus"},
    {"ReferenceButton", "About the origin of the product's axes",
     "Um den Ursprung der Achsen des Produkts"},
    {"ActiveButton", "Of each part the mass type that is active",
     "Von jedem Teil den aktiven Massentyp"},
    {"MostPreciseButton", "Of each part the most mature mass type that it has",
     "Von jedem Teil den reifsten Massentyp, den es hat"},
    {"SpecifiedButton", "The same mass type for every part", "Derselbe Massentyp für jedes Teil"},
    {"CheckUpToDateButton",
     "Computes what has changed since it was stored and takes the rest as it is stored",
     "Berechnet, was sich seit dem Speichern geändert hat, und nimmt das Übrige, wie es "
     "gespeichert ist"},
    {"ForceUpdateButton", "Computes everything, whatever is stored",
     "Berechnet alles, gleich was gespeichert ist"},
    {"AssumeUpToDateButton", "Takes what lies deeper than the level as it is stored",
     "Nimmt, was tiefer als die Ebene liegt, wie es gespeichert ist"},
    {"UpdateLevelInfoLabel", "The product itself is level 0", "Das Produkt selbst ist Ebene 0"},
    {"ConfigHandlerEditor", "Which part of the product is computed",
     "Welcher Teil des Produkts berechnet wird"},
    {"ComputeButton", "Computes the whole product with these options",
     "Berechnet das ganze Produkt mit diesen Einstellungen"},
};

/// What the tooltips of the columns say beside the titles.
std::vector<std::string> ColumnTooltips(const CATDialog& list)
{
    const auto* view = qobject_cast<const QTableView*>(list.Widget());
    std::vector<std::string> tooltips;
    for (int column = 0; column < view->model()->columnCount(); ++column) {
        const QVariant whole = view->model()->headerData(column, Qt::Horizontal, Qt::ToolTipRole);
        tooltips.push_back(whole.toString().section(QLatin1Char('\n'), 1).toStdString());
    }
    return tooltips;
}

} // namespace

TEST_F(ComputeWindow, ExplainsItselfInTooltips)
{
    for (const Label& tooltip : kTooltips) {
        EXPECT_EQ(Find<CATDialog>(tooltip.name).Tooltip(), tooltip.english) << tooltip.name;
    }
    EXPECT_THAT(ColumnTooltips(Find<CATDialog>("StatisticsMultiList")),
                ElementsAre("(imposed): the own mass of an assembly, which stands for what is "
                            "below it. (no material): parts without one.",
                            "The density that was used; --- where there was none",
                            "The mass of this material in the product",
                            "Of the mass of the whole product"));
    EXPECT_THAT(ColumnTooltips(Find<CATDialog>("MassTypeStatMultiList")),
                ElementsAre("The mass type whose values were taken",
                            "The mass that has its value from this mass type",
                            "Of the mass of the whole product"));
}

TEST_F(ComputeSession, WindowExplainsItselfInGerman)
{
    CATMsgCatalog::SetLanguage("de");
    Start();
    for (const Label& tooltip : kTooltips) {
        EXPECT_EQ(Find<CATDialog>(tooltip.name).Tooltip(), tooltip.german) << tooltip.name;
    }
    EXPECT_THAT(ColumnTooltips(Find<CATDialog>("StatisticsMultiList")),
                ElementsAre("(imposed): die eigene Masse einer Baugruppe, die für alles unter ihr "
                            "steht. (no material): Teile ohne Werkstoff.",
                            "Die verwendete Dichte; --- wo es keine gab",
                            "Die Masse dieses Werkstoffs im Produkt",
                            "Von der Masse des ganzen Produkts"));
    EXPECT_THAT(ColumnTooltips(Find<CATDialog>("MassTypeStatMultiList")),
                ElementsAre("Der Massentyp, dessen Werte genommen wurden",
                            "Die Masse, deren Wert von diesem Massentyp kommt",
                            "Von der Masse des ganzen Produkts"));
}

TEST_F(ComputeDefaultTexts, ColumnsAreTitledByTheProgram)
{
    Start();
    EXPECT_EQ(Find<CATDlgMultiList>("StatisticsMultiList").ColumnTitles(),
              CATListValCATUnicodeString({"Material", "Density", "Mass", "Share of mass"}));
    EXPECT_EQ(Find<CATDlgMultiList>("MassTypeStatMultiList").ColumnTitles(),
              CATListValCATUnicodeString({"Mass type", "Mass", "Share of mass"}));
    // Numbers and names are explained too.
    EXPECT_THAT(
        ColumnTooltips(Find<CATDialog>("StatisticsMultiList")),
        ElementsAre("(imposed): the own mass of an assembly, which stands for what is below it. "
                    "(no material): parts without one.",
                    "The density that was used; --- where there was none",
                    "The mass of this material in the product",
                    "Of the mass of the whole product"));
    EXPECT_THAT(ColumnTooltips(Find<CATDialog>("MassTypeStatMultiList")),
                ElementsAre("The mass type whose values were taken",
                            "The mass that has its value from this mass type",
                            "Of the mass of the whole product"));
}

TEST_F(ComputeWindow, ALargerWindowGivesItsRoomToTheResults)
{
    const auto heightOf = [this](const char* name) {
        CATDlgApplication::ProcessEvents();
        return Find<CATDialog>(name).Widget()->height();
    };
    const QSize before = command->Widget()->size();
    const int tabs = heightOf("ResultTabContainer");
    const int options = heightOf("Frame043");
    command->Widget()->resize(before + QSize(300, 200));
    EXPECT_EQ(heightOf("ResultTabContainer"), tabs + 200);
    EXPECT_EQ(heightOf("Frame043"), options);
}

TEST_F(ComputeWindow, FramesBesideEachOtherAreEquallyWideWhereThereIsRoom)
{
    command->Widget()->resize(1200, 800);
    CATDlgApplication::ProcessEvents();
    const auto widthOf = [this](const char* name) {
        return Find<CATDialog>(name).Widget()->width();
    };
    EXPECT_NEAR(widthOf("MassFrame"), widthOf("CenterOfGravityFrame"), 1);
    EXPECT_NEAR(widthOf("MomentOfInertiaFrame"), widthOf("ProductOfInertiaFrame"), 1);
    EXPECT_NEAR(widthOf("InertiaModeFrame"), widthOf("ComputeOptionFrame"), 1);
    EXPECT_NEAR(widthOf("InertiaModeFrame"), widthOf("UpdateOptionFrame"), 1);
}

TEST_F(ComputeWindow, LevelHasRoomForMoreDigitsThanItAsksForAndNoMoreThanHalfOfItsFrame)
{
    CATDlgApplication::ProcessEvents();
    const QWidget* editor = Find<CATDialog>("UpdateLevelEditor").Widget();
    EXPECT_GE(editor->width(), editor->sizeHint().width() +
                                   2 * editor->fontMetrics().horizontalAdvance(QLatin1Char('0')));
    command->Widget()->resize(1200, 800);
    CATDlgApplication::ProcessEvents();
    EXPECT_LT(editor->width(), Find<CATDialog>("UpdateOptionFrame").Widget()->width() / 2);
}

TEST_F(ComputeWindow, WiderWindowGivesItsRoomToTheFields)
{
    CATDlgApplication::ProcessEvents();
    const auto widthOf = [this](const char* name) {
        return Find<CATDialog>(name).Widget()->width();
    };
    const std::vector<const char*> fixed{"SelectionLabel", "MassLabel", "SpecifiedMassTypeLabel",
                                         "UpdateLevelInfoLabel", "Frame047"};
    const std::vector<const char*> wider{"SelectionEditor", "MassEditor", "CGxEditor",
                                         "SpecifiedMassTypeCombo", "ConfigHandlerEditor"};
    std::map<std::string, int> before;
    for (const auto& names : {fixed, wider}) {
        for (const char* name : names) {
            before[name] = widthOf(name);
        }
    }
    command->Widget()->resize(1200, 800);
    CATDlgApplication::ProcessEvents();
    for (const char* name : fixed) {
        EXPECT_EQ(widthOf(name), before[name]) << name;
    }
    for (const char* name : wider) {
        EXPECT_GT(widthOf(name), before[name]) << name;
    }
}

TEST_F(ComputeWindow, NumbersInListsStandAtTheRight)
{
    for (const char* list : {"StatisticsMultiList", "MassTypeStatMultiList"}) {
        QWidget* widget = Find<CATDialog>(list).Widget();
        const auto* view = qobject_cast<const QTableView*>(widget);
        if (view == nullptr) {
            view = widget->findChild<const QTableView*>();
        }
        ASSERT_NE(view, nullptr) << list;
        for (int column = 0; column < view->model()->columnCount(); ++column) {
            const int alignment =
                view->model()->headerData(column, Qt::Horizontal, Qt::TextAlignmentRole).toInt();
            EXPECT_EQ((alignment & Qt::AlignRight) != 0, column > 0) << list << " " << column;
        }
    }
}

namespace
{

struct EmptyList
{
    int page;
    const char* name;
    const char* text;
};

/// The list, which has no rows, looks as with that text and not as without one.
void ExpectEmptyText(CATDlgMultiList& list, const char* text)
{
    const auto look = [&list] {
        CATDlgApplication::ProcessEvents();
        return list.Widget()->grab().toImage();
    };
    const QImage before = look();
    list.SetEmptyText("");
    EXPECT_NE(look(), before) << text;
    list.SetEmptyText(text);
    EXPECT_EQ(look(), before) << text;
}

} // namespace

TEST_F(ComputeWindow, ListsWithoutRowsSaySo)
{
    for (const EmptyList& list : {EmptyList{1, "StatisticsMultiList", "No materials to show"},
                                  EmptyList{2, "MassTypeStatMultiList", "No mass types to show"}}) {
        GoToPage(list.page);
        ExpectEmptyText(Find<CATDlgMultiList>(list.name), list.text);
    }
}

TEST_F(ComputeDefaultTexts, ListsWithoutRowsSaySo)
{
    Start();
    GoToPage(1);
    ExpectEmptyText(Find<CATDlgMultiList>("StatisticsMultiList"), "Nothing to show");
}
