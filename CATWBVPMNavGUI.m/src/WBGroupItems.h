#pragma once

#include "WBGroupStore.h"
#include "WBGroupTotals.h"
#include "WBPanelTexts.h"

#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

struct WBGroupItem
{
    WBPickedInstance picked;
    CATUnicodeString partName; ///< as people say it; may be empty

    friend bool operator==(const WBGroupItem&, const WBGroupItem&) = default;
};

/// How an item stands to the product that is open.
enum class WBItemState
{
    NotLookedUp, ///< there are no figures
    Counts,
    CountsWithAssembly, ///< it stands in another item and counts with that one
    FilteredOut,        ///< the filter of the product leaves it out
    Gone                ///< there is no such instance any more
};

struct WBItemStanding
{
    WBItemState state;
    int coveringRow; ///< of the figures: the item that it counts with

    friend bool operator==(const WBItemStanding&, const WBItemStanding&) = default;
};

/// The instances of a group, each once, in the order in which they came. They belong to one root.
class WBGroupItems
{
public:
    explicit WBGroupItems(CATUnicodeString root) : m_root(std::move(root)) {}

    /// False when the instance at that place is there already.
    bool Add(const WBGroupItem& item);
    /// The number of those that were not there yet.
    int AddAll(const std::vector<WBGroupItem>& items);
    /// The position, from 1, of the instance at that place; 0 for none.
    int Position(const WBPickedInstance& picked) const;
    /// The one at that position, from 1; any other position removes nothing.
    void Remove(int position);
    void RemoveGone();
    void Clear();
    /// Finds the items in the product; null: there are no figures. They must outlive the next call.
    void LookUp(const WBGroupFigures* figures);

    const std::vector<WBGroupItem>& Items() const { return m_items; }
    /// One an item.
    const std::vector<WBItemStanding>& Standings() const { return m_standings; }
    int CountOf(WBItemState state) const;
    /// What those that count weigh; nothing without figures.
    std::optional<WBGroupTotals> Totals() const;
    /// A row an item: instance, name, part, version, mass, remark, path with the root first.
    WBPanelTable Table() const;
    /// The row of the item at that position, from 1.
    WBPanelRow Row(int position) const;
    /// "INSTANCE (ROOT/.../INSTANCE)" of each that is gone.
    std::vector<CATUnicodeString> GoneTexts() const;

    WBStoredGroup Stored() const;
    /// In place of the present items; false, with nothing changed, when the stored group has
    /// instances without a name or a part.
    bool Take(const WBStoredGroup& group);

private:
    /// An item as it was found in the figures, asked once: filters may take long.
    struct LookedUp
    {
        int row;
        WBItemState state; ///< by itself, whatever other items there are
    };

    bool Append(const WBGroupItem& item);
    LookedUp Found(const WBPickedInstance& picked) const;
    std::vector<int> Rows() const;
    void SettleStandings();
    CATUnicodeString RemarkOf(std::size_t index) const;

    CATUnicodeString m_root;
    std::vector<WBGroupItem> m_items;
    std::unordered_set<std::string> m_places;
    const WBGroupFigures* m_figures = nullptr;
    std::vector<LookedUp> m_lookedUp;
    std::vector<WBItemStanding> m_standings;
};

/// The column of the remarks.
inline constexpr int kWBRemarkColumn = 5;
/// The instances in these rows of the figures, as a table of the same columns.
WBPanelTable WBFoundTable(const CATUnicodeString& root, const WBGroupFigures& figures,
                          const std::vector<int>& rows);
/// That so many items count with the assemblies that they stand in.
CATUnicodeString WBInsideText(int count);
/// "ROOT/.../INSTANCE"
CATUnicodeString WBPathText(const CATUnicodeString& root, const WBPickedInstance& picked);
