#pragma once

#include "CATIDOMDocument.h"
#include "WBReportRequest.h"

#include <array>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

/// What a report of a whole product tells of its instances: who stands below whom, and the
/// attributes of each. An instance is named by its row, from 0, in the order of the report. The
/// figures are in storage units and in the product's axes.
class WBGroupFigures
{
public:
    static constexpr int kNone = -1;

    /// The document holds a report of all of a product, instances nested; it is not changed any
    /// more.
    explicit WBGroupFigures(const CATIDOMDocument_var& document);

    int Count() const { return static_cast<int>(m_rows.size()); }
    /// The row of a picked instance: whoever stands at that place in the product, in whatever
    /// version of that part. kNone when nobody does, or an instance of another part.
    int Find(const WBPickedInstance& picked) const;
    /// The instance that this one stands in; kNone for one right below the root.
    int Parent(int row) const { return m_rows[Index(row)].parent; }
    WBPickedInstance Instance(int row) const;

    /// The name as the report keeps it; ask once for a walk over many rows.
    CATDOMName Name(std::string_view attribute) const { return m_document->FindName(attribute); }
    /// Nothing where the report does not know it.
    std::optional<std::string_view> Text(int row, CATDOMName name) const;
    CATUnicodeString Text(int row, std::string_view attribute) const;
    std::optional<double> Mass(int row) const { return Number(row, m_mass); }
    std::optional<std::array<double, 3>> Centre(int row) const;
    /// Whether the sum of what is below it leaves something out or takes it for what it is not:
    /// parts without mass or without centre of gravity.
    bool IsIncomplete(int row) const;
    std::optional<double> RootMass() const { return m_rootMass; }

    /// The attributes of a row, from 0, each by its name.
    int AttributeCount(int row) const;
    CATDOMName AttributeName(int row, int index) const;
    std::string_view AttributeName(CATDOMName name) const { return m_document->NameText(name); }
    std::string_view AttributeText(int row, int index) const;

private:
    struct Row
    {
        CATIDOMNode_var node;
        int parent;
    };
    /// Instance names are unique below one parent.
    struct Place
    {
        int parent;
        std::string_view instance; // of the document's texts
        friend bool operator==(const Place&, const Place&) = default;
    };
    struct PlaceHash
    {
        std::size_t operator()(const Place& place) const;
    };

    static std::size_t Index(int row) { return static_cast<std::size_t>(row); }
    CATIDOMElement& Element(int row) const { return *m_rows[Index(row)].node->AsElement(); }
    void AddInstancesOf(const CATIDOMNode_var& parent, int parentRow);
    int Below(int parent, const CATUnicodeString& instance) const;
    std::optional<double> Number(int row, CATDOMName name) const;

    CATIDOMDocument_var m_document;
    CATDOMName m_instance;
    CATDOMName m_part;
    CATDOMName m_mass;
    CATDOMName m_status;
    std::array<CATDOMName, 3> m_centre;
    std::vector<Row> m_rows;
    std::unordered_map<Place, int, PlaceHash> m_places;
    std::optional<double> m_rootMass;
};

/// A number as the server writes it; nothing for any other text.
std::optional<double> WBServerNumber(std::string_view text);
