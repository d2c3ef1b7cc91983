#include "WBComputeControls.h"

#include "CATWBComputeCmd.h"

#include "CATMsgCatalog.h"

#include <span>
#include <string>

namespace
{

constexpr int kPlainFrame = 0x80001; // no title, no border
constexpr int kTitledFrame = 1;
constexpr int kReadOnly = 0x4000000;
constexpr int kEditable = 0x200000;
constexpr int kChosenOnly = 0x40000;
constexpr int kFillCell = 30;
constexpr int kKeepSize = 4;
constexpr int kSelectionWidth = 35;
constexpr int kFilterWidth = 20;
constexpr int kLevelWidth = 1;

/// A place in the grid of the parent.
struct Cell
{
    int row;
    int column;
    int rows = 1;
    int columns = 1;
};

template <class Control>
Control* Placed(Control* control, const Cell& cell)
{
    control->SetPlacement(cell.row, cell.column, cell.rows, cell.columns, kFillCell);
    return control;
}

/// A control in the default style of its kind. The parent owns it.
template <class Control>
Control* Add(CATDialog* parent, const char* name, const Cell& cell)
{
    return Placed(new Control(parent, name), cell);
}

template <class Control>
Control* Add(CATDialog* parent, const char* name, int style, const Cell& cell)
{
    return Placed(new Control(parent, name, style), cell);
}

/// A label and, beside it, what it names.
struct Field
{
    const char* label;
    const char* editor;
};
constexpr std::array kMassFields{Field{"MassLabel", "MassEditor"},
                                 Field{"LowerDeviationLabel", "LowerDeviationEditor"},
                                 Field{"UpperDeviationLabel", "UpperDeviationEditor"}};
constexpr std::array kCentreFields{Field{"CGxLabel", "CGxEditor"}, Field{"CGyLabel", "CGyEditor"},
                                   Field{"CGzLabel", "CGzEditor"}};
constexpr std::array kMomentFields{Field{"IxxLabel", "IxxEditor"}, Field{"IyyLabel", "IyyEditor"},
                                   Field{"IzzLabel", "IzzEditor"}};
constexpr std::array kProductFields{Field{"IxyLabel", "IxyEditor"}, Field{"IxzLabel", "IxzEditor"},
                                    Field{"IyzLabel", "IyzEditor"}};

/// A titled frame of fields, one below the other.
void AddResults(CATDlgTabPage* page, const char* frameName, int row, int column,
                std::span<const Field> fields, std::span<CATDlgEditor*> editors)
{
    auto* frame = Add<CATDlgFrame>(page, frameName, kTitledFrame, Cell{row, column});
    int line = 0;
    for (const Field& field : fields) {
        Add<CATDlgLabel>(frame, field.label, Cell{line, 0});
        auto* editor = Add<CATDlgEditor>(frame, field.editor, kReadOnly, Cell{line, 1});
        editor->SetRightAligned(true);
        editors[static_cast<std::size_t>(line)] = editor;
        ++line;
    }
}

struct Column
{
    const char* defaultTitle;
    const char* defaultTooltip;
    bool isNumber;
};
constexpr const char* kShareTooltip = "@Of the mass of the whole product";
constexpr std::array kStatisticsColumns{
    Column{"@Material",
           "@(imposed): the own mass of an assembly, which stands for what is below it. "
           "(no material): parts without one.",
           false},
    Column{"@Density", "@The density that was used; --- where there was none", true},
    Column{"@Mass", "@The mass of this material in the product", true},
    Column{"@Share of mass", kShareTooltip, true}};
constexpr std::array kMassTypeColumns{
    Column{"@Mass type", "@The mass type whose values were taken", false},
    Column{"@Mass", "@The mass that has its value from this mass type", true},
    Column{"@Share of mass", kShareTooltip, true}};

/// A page that is one list.
CATDlgMultiList* AddListPage(CATDlgTabContainer* tabs, const char* pageName, const char* listName,
                             std::span<const Column> columns)
{
    auto* page = new CATDlgTabPage(tabs, pageName); // the container owns and places it
    auto* list = Add<CATDlgMultiList>(page, listName, Cell{0, 0});
    const std::string path = tabs->Name().ToStdString() + "." + pageName + "." + listName + ".";
    const auto text = [&path](const char* key, int index, const char* defaultText) {
        return WBComputeMessage((path + key + std::to_string(index + 1)).c_str(), defaultText);
    };
    CATListValCATUnicodeString titles;
    for (const Column& column : columns) {
        titles.Append(text("ColumnTitle", titles.Size(), column.defaultTitle));
    }
    list->SetColumnTitles(titles);
    int index = 0;
    for (const Column& column : columns) {
        list->SetColumnIsNumber(index, column.isNumber);
        list->SetColumnTooltip(index, text("ColumnTooltip", index, column.defaultTooltip));
        ++index;
    }
    list->SetEmptyText(WBComputeMessage((path + "EmptyText").c_str(), "@Nothing to show"));
    return list;
}

void AddSelection(CATDlgDialog& window, WBComputeControls& controls)
{
    auto* frame = Add<CATDlgFrame>(&window, "Frame001", kPlainFrame, Cell{0, 0});
    Add<CATDlgLabel>(frame, "SelectionLabel", Cell{0, 0});
    controls.selection = Add<CATDlgEditor>(frame, "SelectionEditor", kReadOnly, Cell{0, 1});
    controls.selection->SetVisibleTextWidth(kSelectionWidth);
}

void AddResultTabs(CATDlgDialog& window, WBComputeControls& controls)
{
    auto* tabs = Add<CATDlgTabContainer>(&window, "ResultTabContainer", Cell{1, 0});
    controls.resultTabs = tabs;
    auto* page = new CATDlgTabPage(tabs, "ResultTabPage"); // the container owns and places it
    page->SetColumnStretch(0, 1);
    page->SetColumnStretch(1, 1);
    AddResults(page, "MassFrame", 0, 0, kMassFields, controls.mass);
    AddResults(page, "CenterOfGravityFrame", 0, 1, kCentreFields, controls.centre);
    const std::span inertia(controls.inertia);
    AddResults(page, "MomentOfInertiaFrame", 1, 0, kMomentFields, inertia.first(3));
    AddResults(page, "ProductOfInertiaFrame", 1, 1, kProductFields, inertia.last(3));
    controls.statistics =
        AddListPage(tabs, "StatisticsPage", "StatisticsMultiList", kStatisticsColumns);
    controls.massTypeStatistics =
        AddListPage(tabs, "MassTypeStatPage", "MassTypeStatMultiList", kMassTypeColumns);
}

void AddPrecisionOptions(CATDlgFrame* options, WBComputeControls& controls)
{
    auto* frame = Add<CATDlgFrame>(options, "ComputeOptionFrame", kTitledFrame, Cell{0, 1, 2});
    controls.active = Add<CATDlgRadioButton>(frame, "ActiveButton", Cell{0, 0});
    controls.mostPrecise = Add<CATDlgRadioButton>(frame, "MostPreciseButton", Cell{1, 0});
    controls.specified = Add<CATDlgRadioButton>(frame, "SpecifiedButton", Cell{2, 0});
    controls.specifiedMassType =
        Add<CATDlgFrame>(frame, "SpecifiedMassTypeFrame", kTitledFrame, Cell{3, 0});
    CATDlgFrame* inner = controls.specifiedMassType;
    Add<CATDlgLabel>(inner, "SpecifiedMassTypeLabel", Cell{0, 0});
    controls.massTypes = Add<CATDlgCombo>(inner, "SpecifiedMassTypeCombo", kChosenOnly, Cell{0, 1});
}

void AddUpdateOptions(CATDlgFrame* options, WBComputeControls& controls)
{
    auto* frame = Add<CATDlgFrame>(options, "UpdateOptionFrame", kTitledFrame, Cell{0, 2, 2});
    controls.checkUpToDate = Add<CATDlgRadioButton>(frame, "CheckUpToDateButton", Cell{0, 0, 1, 3});
    controls.forceUpdate = Add<CATDlgRadioButton>(frame, "ForceUpdateButton", Cell{1, 0, 1, 3});
    controls.assumeUpToDate =
        Add<CATDlgRadioButton>(frame, "AssumeUpToDateButton", Cell{2, 0, 1, 3});
    // The label comes before its editor, so that it names it for those who hear it too.
    controls.updateLevelInfo = Add<CATDlgLabel>(frame, "UpdateLevelInfoLabel", Cell{3, 0});
    controls.updateLevel = Add<CATDlgEditor>(frame, "UpdateLevelEditor", kEditable, Cell{3, 1});
    controls.updateLevel->SetVisibleTextWidth(kLevelWidth);
    // The editor asks for one digit, but levels of two digits shall be seen too.
    frame->SetColumnStretch(1, 1);
    frame->SetColumnStretch(2, 1);
}

void AddOptions(CATDlgDialog& window, WBComputeControls& controls)
{
    auto* options = Add<CATDlgFrame>(&window, "Frame043", kPlainFrame, Cell{2, 0});
    for (const int column : {0, 1, 2}) {
        options->SetColumnStretch(column, 1);
    }
    controls.inertiaMode = Add<CATDlgFrame>(options, "InertiaModeFrame", kTitledFrame, Cell{0, 0});
    controls.aboutCentre = Add<CATDlgRadioButton>(controls.inertiaMode, "CGButton", Cell{0, 0});
    controls.aboutReference =
        Add<CATDlgRadioButton>(controls.inertiaMode, "ReferenceButton", Cell{1, 0});
    AddPrecisionOptions(options, controls);
    AddUpdateOptions(options, controls);
    auto* filter = Add<CATDlgFrame>(options, "ConfigHandler", kTitledFrame, Cell{1, 0});
    controls.filter = Add<CATDlgEditor>(filter, "ConfigHandlerEditor", kReadOnly, Cell{0, 0});
    controls.filter->SetVisibleTextWidth(kFilterWidth);
}

void AddButtons(CATDlgDialog& window, WBComputeControls& controls)
{
    auto* frame = new CATDlgFrame(&window, "Frame047", kPlainFrame); // the window owns it
    frame->SetPlacement(3, 0, 1, 1, kKeepSize);
    controls.compute = Add<CATDlgPushButton>(frame, "ComputeButton", Cell{0, 0});
    controls.compute->SetDefault();
    Add<CATDlgLabel>(frame, "Label049", Cell{0, 1}); // keeps the buttons apart
    controls.close = Add<CATDlgPushButton>(frame, "CloseButton", Cell{0, 2});
}

} // namespace

WBComputeControls WBBuildComputeControls(CATDlgDialog& window)
{
    WBComputeControls controls{};
    AddSelection(window, controls);
    AddResultTabs(window, controls);
    AddOptions(window, controls);
    AddButtons(window, controls);
    return controls;
}

CATUnicodeString WBComputeMessage(const char* key, const char* defaultText)
{
    return CATMsgCatalog::BuildMessage(CATWBComputeCmd::kName, key, defaultText);
}
