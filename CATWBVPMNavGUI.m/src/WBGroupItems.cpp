#include "WBGroupItems.h"

#include "WBGroupTexts.h"
#include "WBPanelUnits.h"
#include "WBPickReading.h"

#include "CATWBVPMNavFilterPanel.h"

#include <algorithm>

namespace
{

constexpr const char* kMass = "MASS";
constexpr int kNone = WBGroupFigures::kNone;

/// Names joined as commands and settings have them: leaf side first.
std::string JoinedPath(const WBPickedInstance& picked)
{
    std::string path;
    for (const CATUnicodeString& name : picked.path) {
        path += path.empty() ? "" : "|";
        path += name.View();
    }
    return path;
}

/// Where an instance stands, whatever part it is of.
std::string PlaceOf(const WBPickedInstance& picked)
{
    return picked.instance.ToStdString() + "|" + JoinedPath(picked);
}

int NameCount(const CATUnicodeString& path)
{
    return path.IsEmpty() ? 0 : 1 + static_cast<int>(std::ranges::count(path.View(), '|'));
}

bool IsLetInByFilter(const CATUnicodeString& root, const WBPickedInstance& picked)
{
    return CATWBVPMNavFilterPanel::IsValid(root, picked.instance, picked.part, picked.version,
                                           static_cast<int>(picked.path.size()),
                                           JoinedPath(picked));
}

/// The path stands last: it is long, and what is before it is looked at more.
std::vector<WBPanelTable::Column> Columns()
{
    return {{WBGroupText("Instance.Title", "@Instance"), {}, false},
            {WBGroupText("Name.Title", "@Name"), {}, false},
            {WBGroupText("Part.Title", "@Part"), {}, false},
            {WBGroupText("Version.Title", "@Version"), {}, false},
            {WBTitleWithUnit(WBGroupText("Mass.Title", "@Mass"), kMass), {}, true},
            {WBGroupText("Remark.Title", "@Remark"), {}, false},
            {WBGroupText("Path.Title", "@Path"),
             WBGroupText("Path.Tooltip", "@From the product down to the instance"), false}};
}

CATUnicodeString MassText(const WBGroupFigures& figures, int row)
{
    const std::optional<double> mass = figures.Mass(row);
    return mass ? WBNumberInUnit(kMass, *mass) : CATUnicodeString();
}

/// What is missing of an item that counts.
CATUnicodeString WhatIsMissing(const WBGroupFigures& figures, int row)
{
    if (!figures.Mass(row)) {
        return WBGroupText("Remark.NoMass", "@no mass");
    }
    if (!figures.Centre(row)) {
        return WBGroupText("Remark.NoCentre", "@no centre of gravity");
    }
    return figures.IsIncomplete(row) ? WBGroupText("Remark.Incomplete", "@incomplete below")
                                     : CATUnicodeString();
}

CATUnicodeString InsideText(const WBGroupFigures& figures, int coveringRow)
{
    return WBGroupText("Remark.Inside", "@counts with /p1",
                       {figures.Text(coveringRow, "Instance_ID")});
}

} // namespace

CATUnicodeString WBInsideText(int count)
{
    return WBGroupCount("Counts.Inside", count,
                        "@1 more counts once, with the assembly that it stands in.",
                        "@/p1 more count once, with the assemblies that they stand in.");
}

CATUnicodeString WBPathText(const CATUnicodeString& root, const WBPickedInstance& picked)
{
    std::string path = root.ToStdString();
    for (auto name = picked.path.rbegin(); name != picked.path.rend(); ++name) {
        path += "/" + name->ToStdString();
    }
    return path + "/" + picked.instance.ToStdString();
}

bool WBGroupItems::Add(const WBGroupItem& item)
{
    return AddAll({item}) == 1;
}

int WBGroupItems::AddAll(const std::vector<WBGroupItem>& items)
{
    int added = 0;
    for (const WBGroupItem& item : items) {
        added += Append(item) ? 1 : 0;
    }
    SettleStandings();
    return added;
}

bool WBGroupItems::Append(const WBGroupItem& item)
{
    if (!m_places.insert(PlaceOf(item.picked)).second) {
        return false;
    }
    m_items.push_back(item);
    m_lookedUp.push_back(Found(item.picked));
    return true;
}

int WBGroupItems::Position(const WBPickedInstance& picked) const
{
    const auto found = std::ranges::find_if(m_items, [&](const WBGroupItem& item) {
        return item.picked.instance == picked.instance && item.picked.path == picked.path;
    });
    return found == m_items.end() ? 0 : static_cast<int>(found - m_items.begin()) + 1;
}

void WBGroupItems::Remove(int position)
{
    if (position < 1 || position > static_cast<int>(m_items.size())) {
        return;
    }
    const auto offset = static_cast<std::ptrdiff_t>(position) - 1;
    m_places.erase(PlaceOf(m_items[static_cast<std::size_t>(offset)].picked));
    m_items.erase(m_items.begin() + offset);
    m_lookedUp.erase(m_lookedUp.begin() + offset);
    SettleStandings();
}

void WBGroupItems::RemoveGone()
{
    for (int position = static_cast<int>(m_items.size()); position >= 1; --position) {
        if (m_standings[static_cast<std::size_t>(position) - 1].state == WBItemState::Gone) {
            Remove(position);
        }
    }
}

void WBGroupItems::Clear()
{
    m_items.clear();
    m_places.clear();
    m_lookedUp.clear();
    SettleStandings();
}

void WBGroupItems::LookUp(const WBGroupFigures* figures)
{
    m_figures = figures;
    m_lookedUp.clear();
    for (const WBGroupItem& item : m_items) {
        m_lookedUp.push_back(Found(item.picked));
    }
    SettleStandings();
}

WBGroupItems::LookedUp WBGroupItems::Found(const WBPickedInstance& picked) const
{
    if (m_figures == nullptr) {
        return {kNone, WBItemState::NotLookedUp};
    }
    const int row = m_figures->Find(picked);
    if (row != kNone) {
        return {row, WBItemState::Counts};
    }
    return {kNone, IsLetInByFilter(m_root, picked) ? WBItemState::Gone : WBItemState::FilteredOut};
}

std::vector<int> WBGroupItems::Rows() const
{
    std::vector<int> rows;
    rows.reserve(m_lookedUp.size());
    for (const LookedUp& item : m_lookedUp) {
        rows.push_back(item.row);
    }
    return rows;
}

void WBGroupItems::SettleStandings()
{
    m_standings.clear();
    for (const LookedUp& item : m_lookedUp) {
        m_standings.push_back({item.state, kNone});
    }
    if (m_figures == nullptr) {
        return;
    }
    const std::vector<int> covering = WBCoveringRows(*m_figures, Rows());
    for (std::size_t index = 0; index < covering.size(); ++index) {
        if (covering[index] != kNone) {
            m_standings[index] = {WBItemState::CountsWithAssembly, covering[index]};
        }
    }
}

int WBGroupItems::CountOf(WBItemState state) const
{
    return static_cast<int>(std::ranges::count(m_standings, state, &WBItemStanding::state));
}

std::optional<WBGroupTotals> WBGroupItems::Totals() const
{
    return m_figures == nullptr ? std::nullopt : std::optional(WBTotalsOf(*m_figures, Rows()));
}

CATUnicodeString WBGroupItems::RemarkOf(std::size_t index) const
{
    switch (m_standings[index].state) {
    case WBItemState::Gone:
        return WBGroupText("Remark.Gone", "@gone");
    case WBItemState::FilteredOut:
        return WBGroupText("Remark.FilteredOut", "@left out by the filter");
    case WBItemState::CountsWithAssembly:
        return InsideText(*m_figures, m_standings[index].coveringRow);
    case WBItemState::Counts:
        return WhatIsMissing(*m_figures, m_lookedUp[index].row);
    case WBItemState::NotLookedUp:
        break;
    }
    return {};
}

WBPanelTable WBGroupItems::Table() const
{
    WBPanelTable table;
    table.columns = Columns();
    for (int position = 1; position <= static_cast<int>(m_items.size()); ++position) {
        table.rows.push_back(Row(position));
    }
    return table;
}

WBPanelRow WBGroupItems::Row(int position) const
{
    const auto index = static_cast<std::size_t>(position) - 1;
    const WBGroupItem& item = m_items[index];
    const int row = m_lookedUp[index].row;
    return {item.picked.instance,
            item.partName,
            item.picked.part,
            item.picked.version,
            row == kNone ? CATUnicodeString() : MassText(*m_figures, row),
            RemarkOf(index),
            WBPathText(m_root, item.picked)};
}

std::vector<CATUnicodeString> WBGroupItems::GoneTexts() const
{
    std::vector<CATUnicodeString> texts;
    for (std::size_t index = 0; index < m_items.size(); ++index) {
        if (m_standings[index].state == WBItemState::Gone) {
            const WBPickedInstance& picked = m_items[index].picked;
            texts.push_back(picked.instance + " (" + WBPathText(m_root, picked) + ")");
        }
    }
    return texts;
}

WBStoredGroup WBGroupItems::Stored() const
{
    constexpr int kLists = 5;
    WBStoredGroup group;
    group.lists.resize(kLists);
    for (const WBGroupItem& item : m_items) {
        group.lists[0].Append(item.picked.instance);
        group.lists[1].Append(item.picked.part);
        group.lists[2].Append(item.picked.version);
        group.lists[3].Append(CATUnicodeString(JoinedPath(item.picked)));
        group.lists[4].Append(item.partName);
    }
    return group;
}

bool WBGroupItems::Take(const WBStoredGroup& group)
{
    const auto& lists = group.lists;
    std::vector<WBGroupItem> items;
    for (int position = 1; position <= lists[0].Size(); ++position) {
        const CATUnicodeString& path = lists[3][position];
        const std::optional<WBPickedInstance> picked = WBReadPickedInstance(
            lists[0][position], lists[1][position], lists[2][position], path, NameCount(path));
        if (!picked || picked->part.IsEmpty()) {
            return false;
        }
        items.push_back({*picked, lists[4][position]});
    }
    Clear();
    std::ranges::for_each(items, [this](const WBGroupItem& item) { Append(item); });
    SettleStandings();
    return true;
}

WBPanelTable WBFoundTable(const CATUnicodeString& root, const WBGroupFigures& figures,
                          const std::vector<int>& rows)
{
    WBPanelTable table;
    table.columns = Columns();
    const std::vector<int> covering = WBCoveringRows(figures, rows);
    for (std::size_t index = 0; index < rows.size(); ++index) {
        const int row = rows[index];
        const WBPickedInstance picked = figures.Instance(row);
        const CATUnicodeString remark = covering[index] == kNone
                                            ? WhatIsMissing(figures, row)
                                            : InsideText(figures, covering[index]);
        table.rows.push_back({picked.instance, figures.Text(row, "Name"), picked.part,
                              picked.version, MassText(figures, row), remark,
                              WBPathText(root, picked)});
    }
    return table;
}
