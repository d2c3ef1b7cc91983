#include "WBReportContents.h"

#include "WBListTable.h"
#include "WBPanelControls.h"
#include "WBPickedInstances.h"

#include <algorithm>
#include <array>
#include <string_view>

const CATEvent WBReportContents::Changed("ReportContentsChanged");

namespace
{

// In the order of the kinds.
constexpr std::array kKinds{"Report", "Distributive", "MaterialStatistics"};
// As requests name them, and so the controls.
constexpr std::array kValues{"Deviations", "Centre", "Inertia", "Density",
                             "Materials",  "Volume", "Types",   "Date"};

} // namespace

WBReportContents::WBReportContents(CATDialog* window)
    : CATDlgFrame(window, "Contents", kWBPlainFrame)
{
    SetColumnStretch(2, 1);
    BuildKinds();
    BuildValues();
    BuildProperties();
    ShowWhatCounts();
}

void WBReportContents::BuildKinds()
{
    auto* frame = new CATDlgFrame(this, "Kind");
    frame->SetPlacement(0, 0);
    int row = 0;
    for (const char* name : kKinds) {
        auto* button = new CATDlgRadioButton(frame, name);
        button->SetPlacement(row, 0);
        Subscribe(button, CATDlgRadioButton::Modified,
                  [this](const CATNotification&) { ShowWhatCounts(); });
        m_kinds.push_back(button);
        ++row;
    }
    m_kinds.front()->SetChecked(true);
    m_everyInstance = new CATDlgCheckButton(frame, "EveryInstance");
    m_everyInstance->SetPlacement(row, 0);
}

void WBReportContents::BuildValues()
{
    m_valuesFrame = new CATDlgFrame(this, "Values");
    m_valuesFrame->SetPlacement(0, 1);
    constexpr int kRows = 4;
    int index = 0;
    for (const char* name : kValues) {
        auto* check = new CATDlgCheckButton(m_valuesFrame, name);
        check->SetPlacement(index % kRows, index / kRows);
        check->SetChecked(true);
        Subscribe(check, CATDlgCheckButton::Modified,
                  [this](const CATNotification&) { Send(Changed); });
        m_values.push_back(check);
        ++index;
    }
}

void WBReportContents::BuildProperties()
{
    m_propertiesFrame = new CATDlgFrame(this, "Properties");
    m_propertiesFrame->SetPlacement(0, 2);
    m_propertiesFrame->SetColumnStretch(0, 1);
    m_properties =
        WBAddList(m_propertiesFrame, "List", 0, WBReportText("Properties.None", "@No properties"));
    constexpr int kLeastLines = 2;
    m_properties->SetVisibleLines(kLeastLines);
    m_properties->SetAccessibleName(WBReportText("Properties.Spoken", "@Properties"));
    auto* buttons = new CATDlgFrame(m_propertiesFrame, "Buttons", kWBPlainFrame);
    buttons->SetPlacement(0, 1);
    int row = 0;
    const auto addButton = [&](const char* name, auto action) {
        auto* button = new CATDlgPushButton(buttons, name);
        button->SetPlacement(row++, 0);
        Subscribe(button, CATDlgPushButton::Activated,
                  [action](const CATNotification&) { action(); });
        return button;
    };
    m_takeOrLeave = addButton("TakeButton", [this] { TakeOrLeaveSelected(); });
    m_takeAll = addButton("AllButton", [this] { TakeAll(true); });
    m_takeNone = addButton("NoneButton", [this] { TakeAll(false); });
    OfferProperties({});
}

void WBReportContents::OfferProperties(const std::vector<CATUnicodeString>& names)
{
    m_propertyNames = names;
    m_isPropertyTaken.assign(names.size(), false);
    ShowProperties();
    m_properties->SelectRow(names.empty() ? 0 : 1);
}

WBReportKind WBReportContents::Kind() const
{
    const auto chosen = std::ranges::find_if(
        m_kinds, [](const CATDlgRadioButton* button) { return button->IsChecked(); });
    return chosen == m_kinds.end() ? WBReportKind::Report
                                   : static_cast<WBReportKind>(chosen - m_kinds.begin());
}

bool WBReportContents::HasCentre() const
{
    return IsInReport("Centre");
}

bool WBReportContents::HasInertia() const
{
    return IsInReport("Inertia");
}

bool WBReportContents::IsInReport(const char* value) const
{
    const auto* const found = std::ranges::find(kValues, std::string_view(value));
    return Kind() != WBReportKind::MaterialStatistics &&
           m_values[static_cast<std::size_t>(found - kValues.begin())]->IsChecked();
}

void WBReportContents::Read(WBReportOptions& options) const
{
    options.kind = Kind();
    options.isOfEveryInstance = m_everyInstance->IsChecked();
    std::vector<bool> isValueTaken;
    for (const CATDlgCheckButton* check : m_values) {
        isValueTaken.push_back(check->IsChecked());
    }
    options.values = WBTakenNames({kValues.begin(), kValues.end()}, isValueTaken);
    options.properties = WBTakenNames(m_propertyNames, m_isPropertyTaken);
}

void WBReportContents::ShowWhatCounts()
{
    const bool isStatistics = Kind() == WBReportKind::MaterialStatistics;
    m_everyInstance->SetSensitivity(isStatistics);
    m_valuesFrame->SetSensitivity(!isStatistics);
    m_propertiesFrame->SetSensitivity(!isStatistics);
    Send(Changed);
}

void WBReportContents::ShowProperties()
{
    WBPanelTable table;
    table.columns = {{WBReportText("Property.Title", "@Property"), {}, false},
                     {WBReportText("Taken.Title", "@Taken"), {}, false}};
    for (std::size_t index = 0; index < m_propertyNames.size(); ++index) {
        table.rows.push_back({m_propertyNames[index], m_isPropertyTaken[index]
                                                          ? WBReportText("Taken.Yes", "@yes")
                                                          : CATUnicodeString()});
    }
    WBRewriteTable(*m_properties, table);
    for (CATDlgPushButton* button : {m_takeOrLeave, m_takeAll, m_takeNone}) {
        button->SetSensitivity(!m_propertyNames.empty());
    }
}

void WBReportContents::TakeOrLeaveSelected()
{
    const auto index = static_cast<std::size_t>(m_properties->SelectedRow()) - 1;
    if (index < m_isPropertyTaken.size()) {
        m_isPropertyTaken[index] = !m_isPropertyTaken[index];
        ShowProperties();
    }
}

void WBReportContents::TakeAll(bool isTaken)
{
    m_isPropertyTaken.assign(m_propertyNames.size(), isTaken);
    ShowProperties();
}
