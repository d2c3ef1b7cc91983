#pragma once

#include "ResidentProducts.h"
#include "WBProductGraph.h"
#include "WBStore.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace wb
{
/// What a report tells of parts and uses that no sum depends on. A change of it raises no change
/// number, so it is read for each report; figures come from the product in memory.
class ReportFacts
{
public:
    struct PropertyText
    {
        std::size_t position = 0; // among the names that were asked for
        std::string value;
        std::string magnitude; // of a dimensioned one
    };
    struct PartText
    {
        std::string name;                     // the identifier where the part has none
        std::string document;                 // the one marked active
        std::vector<PropertyText> properties; // by position
    };

    /// Reads what there is of a product. properties: those that are wanted, in their order;
    /// sources: whether SourceOf is. Throws StoreError, and RequestError when the context cancels
    /// it.
    ReportFacts(const Store& store, const ResidentProduct& product,
                std::vector<std::string> properties, bool sources, const CallContext& context);

    const std::vector<std::string>& PropertyNames() const { return m_names; }
    const PartText& Of(std::uint32_t part) const { return m_parts[part]; }
    /// What a use has of its own, by position.
    const std::vector<PropertyText>& OfUse(std::uint32_t use) const;
    /// Where a node's values of a mass type come from; empty where nobody said.
    std::string_view SourceOf(std::uint32_t node, std::string_view massType) const;

private:
    using Sources = std::vector<std::pair<std::string, std::string>>; // by mass type

    void ReadParts(const Store& store, bool sources, const CallContext& context);
    void ReadUses(const Store& store);
    void Take(const Property& property, std::vector<PropertyText>& texts) const;

    const ResidentProduct& m_product;
    std::vector<std::string> m_names;
    std::unordered_map<std::string, std::size_t> m_positions; // by name
    std::vector<PartText> m_parts;
    std::unordered_map<std::uint32_t, std::vector<PropertyText>> m_uses;
    std::vector<Sources> m_sources; // by node: of a part, or of the use alone
};
} // namespace wb
