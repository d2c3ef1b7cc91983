#include "WBUnitsPanel.h"

#include "WBListTable.h"

#include "CATApplicationFrame.h"
#include "CATCommandWatch.h"
#include "CATDlgMultiList.h"
#include "CATDlgNotify.h"
#include "CATStatus.h"

#include <string>

namespace
{

constexpr int kPlainFrame = 0x80001; // no title, no border
constexpr int kPreferredWidth = 620;
constexpr int kPreferredHeight = 640;
constexpr int kWarningStyle = 0x8000000;
constexpr int kQuestionStyle = 0x8800200;
constexpr int kYes = 3;

CATDlgFrame* AddFrame(CATDialog* parent, const char* name, int row)
{
    auto* frame = new CATDlgFrame(parent, name, kPlainFrame);
    frame->SetPlacement(row, 0);
    return frame;
}

CATDlgLabel* AddCaption(CATDialog* parent, const std::string& name, int row, int column)
{
    auto* caption = new CATDlgLabel(parent, name);
    caption->SetRole(CATDlgLabel::Role::Caption);
    caption->SetPlacement(row, column);
    return caption;
}

/// Caption and combo, side by side; what is left of the row stays free.
CATDlgCombo* AddCombo(CATDlgFrame* frame, const char* name)
{
    AddCaption(frame, std::string(name) + "Label", 0, 0);
    auto* combo = new CATDlgCombo(frame, name);
    combo->SetPlacement(0, 1);
    frame->SetColumnStretch(2, 1);
    return combo;
}

CATUnicodeString Joined(const CATListValCATUnicodeString& texts)
{
    CATUnicodeString joined;
    for (const CATUnicodeString& text : texts.Items()) {
        joined += (joined.IsEmpty() ? "" : ", ") + text;
    }
    return joined;
}

CATUnicodeString PendingText(std::size_t count)
{
    if (count == 0) {
        return {};
    }
    return count == 1 ? WBUnitsText("Pending.One", "@1 change is not applied yet")
                      : WBUnitsText("Pending.Several", "@/p1 changes are not applied yet",
                                    {CATUnicodeString::FromInt(static_cast<int>(count))});
}

} // namespace

WBUnitsPanel::WBUnitsPanel(CATDialog* parent)
    : CATWBVPMNavUnitsConversion(parent),
      m_unitWatch([this](const CATICkeMagnitude_var& magnitude) { HearOfUnit(*magnitude); })
{
    SetPreferredSize(kPreferredWidth, kPreferredHeight);
    SetRowStretch(1, 1);
    BuildPresets();
    BuildTable();
    BuildUnit();
    BuildButtons();
    Subscribe(this, WindowClosed, [this](const CATNotification&) { SettleChoices(); });
    Show();
}

CATWBVPMNavUnitsConversion* WBUnitsPanel::OfSession()
{
    static CATCommandWatch<WBUnitsPanel> panel;
    WBUnitsPanel* known = panel.Get();
    if (known != nullptr && !known->IsDestructionRequested()) {
        return known;
    }
    const CATApplicationFrame* frame = CATApplicationFrame::GetFrame();
    CATDlgDialog* window = frame == nullptr ? nullptr : frame->MainWindow();
    if (window == nullptr) {
        return nullptr;
    }
    panel = new WBUnitsPanel(window); // the main window owns it
    return panel.Get();
}

const char* WBUnitsPanel::ClassName() const
{
    return "WBUnitsPanel";
}

CATString WBUnitsPanel::GetResourceFilename(int level) const
{
    return level == 0 ? CATString(kName)
                      : CATWBVPMNavUnitsConversion::GetResourceFilename(level - 1);
}

bool WBUnitsPanel::RecoverFromFault()
{
    Show();
    return true;
}

CATDlgPushButton* WBUnitsPanel::GetCloseButton()
{
    return m_close;
}

void WBUnitsPanel::BuildPresets()
{
    CATDlgFrame* frame = AddFrame(this, "Presets", 0);
    m_presets = AddCombo(frame, "Preset");
    m_presets->SetLine(0, WBUnitsText("Preset.Own", "@Own choice"));
    for (const WBUnitPreset& preset : WBUnitPresets()) {
        m_presets->SetLine(m_presets->LineCount(), WBUnitsText(preset.key, preset.defaultTitle));
    }
    Subscribe(m_presets, CATDlgCombo::Selected,
              [this](const CATNotification& selected) { ChoosePreset(selected.detail); });
}

void WBUnitsPanel::BuildTable()
{
    m_table = new CATDlgMultiList(this, "Table");
    m_table->SetPlacement(1, 0);
    m_table->SetEmptyText(WBUnitsText("Table.None", "@No units are known"));
    Subscribe(m_table, CATDlgMultiList::RowSelected,
              [this](const CATNotification&) { ShowUnitOfSelectedRow(); });
}

void WBUnitsPanel::BuildUnit()
{
    CATDlgFrame* frame = AddFrame(this, "Choice", 2);
    m_unit = AddCombo(frame, "Unit");
    m_quantity = AddCaption(frame, "Quantity", 0, 2);
    Subscribe(m_unit, CATDlgCombo::Selected,
              [this](const CATNotification& selected) { ChooseUnit(selected.detail); });
    AddCaption(this, "Note", 3, 0);
}

void WBUnitsPanel::BuildButtons()
{
    CATDlgFrame* frame = AddFrame(this, "Buttons", 4);
    frame->SetColumnStretch(0, 1);
    m_state = new CATDlgLabel(frame, "State");
    m_state->SetPlacement(0, 0);
    int column = 0;
    const auto addButton = [&](const char* name) {
        auto* button = new CATDlgPushButton(frame, name);
        button->SetPlacement(0, ++column);
        return button;
    };
    m_apply = addButton("ApplyButton");
    m_reset = addButton("ResetButton");
    m_close = addButton("CloseButton");
    Subscribe(m_apply, CATDlgPushButton::Activated, [this](const CATNotification&) { Apply(); });
    Subscribe(m_reset, CATDlgPushButton::Activated, [this](const CATNotification&) { GiveUp(); });
    Subscribe(m_close, CATDlgPushButton::Activated, [this](const CATNotification&) {
        SettleChoices();
        SetVisibility(false);
    });
}

void WBUnitsPanel::Show()
{
    m_magnitudes = WBMagnitudesInOrder(*CATCkeGlobalFunctions::GetParmDictionary());
    m_presets->Select(WBPresetOf(m_choices, m_magnitudes) + 1);
    ShowTable();
    ShowUnitOfSelectedRow();
    ShowState();
}

void WBUnitsPanel::ShowTable()
{
    WBRewriteTable(*m_table, WBUnitTable(m_magnitudes, m_choices));
    int row = 0;
    for (const CATICkeMagnitude_var& magnitude : m_magnitudes) {
        ++row;
        const CATUnicodeString name = magnitude->Name();
        m_table->SetRowEmphasis(row, m_choices.contains(name.View()));
        m_table->SetCellTooltip(
            0, row,
            WBUnitsText("Quantity.Tooltip", "@/p1: /p2", {name, Joined(magnitude->UnitSymbols())}));
    }
    if (m_table->SelectedRow() == 0) {
        m_table->SelectRow(1);
    }
}

CATICkeMagnitude_var WBUnitsPanel::SelectedMagnitude() const
{
    const auto index = static_cast<std::size_t>(m_table->SelectedRow()) - 1;
    return index < m_magnitudes.size() ? m_magnitudes[index] : CATICkeMagnitude_var();
}

void WBUnitsPanel::ShowUnitOfSelectedRow()
{
    m_unit->RemoveAll();
    const CATICkeMagnitude_var magnitude = SelectedMagnitude();
    const CATICkeUnit_var chosen =
        magnitude.IsNull() ? CATICkeUnit_var() : WBChosenUnit(m_choices, *magnitude);
    m_unit->SetSensitivity(!chosen.IsNull());
    if (magnitude.IsNull()) {
        m_quantity->SetTitle("");
        return;
    }
    const CATUnicodeString title = WBMagnitudeTitle(magnitude->Name());
    m_quantity->SetTitle(WBUnitsText("Choice.Quantity", "@of the selected quantity: /p1", {title}));
    m_unit->SetAccessibleName(WBUnitsText("Choice.Spoken", "@Unit of /p1", {title}));
    const CATListValCATUnicodeString symbols = magnitude->UnitSymbols();
    for (const CATUnicodeString& symbol : symbols.Items()) {
        const int line = m_unit->LineCount();
        m_unit->SetLine(line, symbol);
        if (symbol == chosen->Symbol()) {
            m_unit->Select(line);
        }
    }
}

void WBUnitsPanel::ShowState()
{
    const bool isPending = !m_choices.empty();
    m_state->SetTitle(PendingText(m_choices.size()));
    m_state->SetRole(isPending ? CATDlgLabel::Role::Warning : CATDlgLabel::Role::Plain);
    m_apply->SetSensitivity(isPending);
    m_reset->SetSensitivity(isPending);
}

void WBUnitsPanel::ChoosePreset(int line)
{
    // The first line only says that the units agree with no preset.
    if (line > 0) {
        WBChoosePreset(m_choices, m_magnitudes,
                       WBUnitPresets()[static_cast<std::size_t>(line) - 1]);
    }
    Show();
}

void WBUnitsPanel::ChooseUnit(int line)
{
    WBChooseUnit(m_choices, *SelectedMagnitude(), m_unit->Line(line));
    Show();
}

void WBUnitsPanel::Apply()
{
    bool isKept = true;
    // A choice goes away as soon as the panel hears that it holds.
    const WBUnitChoices choices = m_choices;
    for (const CATICkeMagnitude_var& magnitude : WBMagnitudes(m_magnitudes)) {
        const CATUnicodeString name = magnitude->Name();
        const auto choice = choices.find(name.View());
        if (choice != choices.end()) {
            isKept = magnitude->SetCurrentUnit(choice->second) != E_FAIL && isKept;
        }
    }
    if (!isKept) {
        TellNotKept();
    }
}

void WBUnitsPanel::GiveUp()
{
    m_choices.clear();
    Show();
}

void WBUnitsPanel::SettleChoices()
{
    if (m_choices.empty()) {
        return;
    }
    auto* question = new CATDlgNotify(this, "PendingUnits", kQuestionStyle);
    question->SetTitle(Title());
    question->SetText(WBUnitsText("Close.Question", "@/p1. Shall they be applied?",
                                  {PendingText(m_choices.size())}));
    const bool shallApply = question->DisplayBlocking() == kYes;
    question->RequestDelayedDestruction();
    if (shallApply) {
        Apply();
    } else {
        GiveUp();
    }
}

void WBUnitsPanel::TellNotKept()
{
    // Below the main window: it stays when the panel goes.
    auto* box = new CATDlgNotify(Parent(), "UnitsNotKept", kWarningStyle); // deletes itself
    box->SetTitle(Title());
    box->SetText(WBUnitsText("NotKept.Text",
                             "@The units are used now, but they could not be written to your "
                             "settings: they hold for this session only."));
    box->DisplayNonBlocking();
}

void WBUnitsPanel::HearOfUnit(const CATICkeMagnitude& magnitude)
{
    const CATUnicodeString name = magnitude.Name();
    const auto choice = m_choices.find(name.View());
    if (choice != m_choices.end() && choice->second == magnitude.CurrentUnit()->Symbol()) {
        m_choices.erase(choice);
    }
    Show();
    const int type = WBUnitsType(name);
    Send(GetChangedEvent(type), type);
}
