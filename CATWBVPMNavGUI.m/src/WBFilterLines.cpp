#include "WBFilterLines.h"

#include "WBFilterSet.h"
#include "WBListTable.h"
#include "WBNavigatorPlaces.h"
#include "WBPanelControls.h"

#include <algorithm>
#include <string>
#include <utility>

namespace
{

constexpr int kLeftOut = 0; // line of the combo for new lines

CATUnicodeString WayText(bool isIn)
{
    return isIn ? WBFilterText("Way.In", "@in") : WBFilterText("Way.Out", "@out");
}

CATUnicodeString PathText(const CATUnicodeString& root, const WBPickedInstance& item)
{
    std::string path = root.ToStdString();
    for (const CATUnicodeString& name : WBNamesFromRoot(item)) {
        path += "/";
        path += name.View();
    }
    return path;
}

/// The part's name, or why the line has no effect.
CATUnicodeString NameText(const WBPickedInstance& item, const WBProductPlace& place)
{
    if (place.state == WBProductPlace::State::Gone) {
        return WBFilterText("Place.Gone", "@(not in the product any more)");
    }
    return WBIsThere(item, place)
               ? place.partName
               : WBFilterText("Place.OtherPart", "@(is now /p1 /p2)", {place.part, place.version});
}

} // namespace

const CATEvent WBFilterLines::Changed("FilterLinesChanged");

WBFilterLines::WBFilterLines(CATDialog* window)
    : CATDlgFrame(window, "Instances"), m_list(WBAddList(this, "List", 0, {}))
{
    m_list->SetAccessibleName(WBFilterText("Lines.Spoken", "@Lines of the filter"));
    auto* buttons = new CATDlgFrame(this, "Buttons", kWBPlainFrame);
    buttons->SetPlacement(1, 0);
    m_newLines = WBAddChoice(buttons, "NewLines", 0, 0);
    m_newLines->SetLine(kLeftOut, WBFilterText("NewLines.Out", "@left out"));
    m_newLines->SetLine(kLeftOut + 1, WBFilterText("NewLines.In", "@left in"));
    int column = 2;
    buttons->SetColumnStretch(column, 1);
    const auto addButton = [&](const char* name, auto action) {
        auto* button = new CATDlgPushButton(buttons, name);
        button->SetPlacement(0, ++column);
        Subscribe(button, CATDlgPushButton::Activated, action);
        return button;
    };
    m_toggle = addButton("ToggleButton", [this](const CATNotification&) { Toggle(); });
    m_up = addButton("UpButton", [this](const CATNotification&) { Move(-1); });
    m_down = addButton("DownButton", [this](const CATNotification&) { Move(1); });
    m_remove = addButton("RemoveButton", [this](const CATNotification&) { Remove(); });
    Subscribe(m_list, CATDlgMultiList::RowSelected,
              [this](const CATNotification&) { ShowWhatCanBeDone(); });
}

void WBFilterLines::Show(const CATUnicodeString& root, std::vector<WBFilterLine> lines)
{
    m_root = root;
    m_lines = std::move(lines);
    m_list->SetEmptyText(WBFilterText("Lines.None", "@Pick instances in the navigator"));
    WBShowTable(*m_list, Table());
    m_list->SelectRow(m_lines.empty() ? 0 : 1);
    ShowWhatCanBeDone();
}

void WBFilterLines::ShowText(const CATUnicodeString& text)
{
    m_lines.clear();
    m_list->SetEmptyText(text);
    WBShowTable(*m_list, Table());
    ShowWhatCanBeDone();
}

bool WBFilterLines::Add(const WBPickedInstance& picked)
{
    const auto known = std::ranges::find(m_lines, picked, &WBFilterLine::item);
    const int row = static_cast<int>(known - m_lines.begin()) + 1;
    const bool isNew = known == m_lines.end();
    if (isNew) {
        m_lines.push_back({m_newLines->SelectedIndex() != kLeftOut, picked});
        WriteRow(row); // one alone: a user may pick thousands at once, and they come one by one
    }
    m_list->SelectRow(row);
    ShowWhatCanBeDone();
    return isNew;
}

WBPanelTable WBFilterLines::Table() const
{
    WBPanelTable table;
    table.columns = {
        {WBFilterText("Way.Title", "@In or out"),
         WBFilterText("Way.Tooltip", "@Whether the line leaves in or leaves out"), false},
        {WBFilterText("Instance.Title", "@Instance"), {}, false},
        {WBFilterText("Part.Title", "@Part"), {}, false},
        {WBFilterText("Version.Title", "@Version"), {}, false},
        {WBFilterText("Name.Title", "@Name"), {}, false},
        {WBFilterText("Path.Title", "@Path"),
         WBFilterText("Path.Tooltip", "@From the product down to the instance"), false}};
    for (const WBFilterLine& line : m_lines) {
        table.rows.push_back(Cells(line));
    }
    return table;
}

WBPanelRow WBFilterLines::Cells(const WBFilterLine& line) const
{
    const WBPickedInstance& item = line.item;
    return {WayText(line.isIn),
            item.instance,
            item.part,
            item.version,
            NameText(item, WBFindInNavigator(m_root, WBNamesFromRoot(item))),
            PathText(m_root, item)};
}

void WBFilterLines::WriteRow(int row)
{
    const WBPanelRow cells = Cells(m_lines[static_cast<std::size_t>(row) - 1]);
    for (int column = 0; column < cells.Size(); ++column) {
        m_list->SetCell(column, row, cells[column + 1]);
    }
}

void WBFilterLines::Toggle()
{
    const int row = m_list->SelectedRow();
    WBFilterLine& line = m_lines[static_cast<std::size_t>(row) - 1];
    line.isIn = !line.isIn;
    WriteRow(row);
    Send(Changed);
}

void WBFilterLines::Move(int by)
{
    const int row = m_list->SelectedRow();
    const auto line = m_lines.begin() + row - 1;
    std::iter_swap(line, line + by);
    WriteRow(row);
    WriteRow(row + by);
    m_list->SelectRow(row + by);
    ShowWhatCanBeDone();
    Send(Changed);
}

void WBFilterLines::Remove()
{
    const int row = m_list->SelectedRow();
    m_lines.erase(m_lines.begin() + row - 1);
    WBShowTable(*m_list, Table());
    m_list->SelectRow(std::min(row, m_list->RowCount()));
    ShowWhatCanBeDone();
    Send(Changed);
}

void WBFilterLines::ShowWhatCanBeDone()
{
    const int row = m_list->SelectedRow();
    m_toggle->SetSensitivity(row > 0);
    m_up->SetSensitivity(row > 1);
    m_down->SetSensitivity(row > 0 && row < m_list->RowCount());
    m_remove->SetSensitivity(row > 0);
}
