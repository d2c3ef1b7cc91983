#include "ReportFacts.h"

#include "Request.h"

#include <algorithm>
#include <utility>

namespace wb
{
namespace
{
void SortByPosition(std::vector<ReportFacts::PropertyText>& texts)
{
    std::ranges::sort(texts, {}, &ReportFacts::PropertyText::position);
}

std::vector<std::pair<std::string, std::string>> SourcesIn(const std::vector<ValueSet>& sets)
{
    std::vector<std::pair<std::string, std::string>> sources;
    sources.reserve(sets.size());
    for (const ValueSet& set : sets) {
        sources.emplace_back(set.massType, set.source);
    }
    return sources;
}
} // namespace

ReportFacts::ReportFacts(const Store& store, const ResidentProduct& product,
                         std::vector<std::string> properties, bool sources,
                         const CallContext& context)
    : m_product(product), m_names(std::move(properties))
{
    for (const std::string& name : m_names) {
        m_positions.emplace(name, m_positions.size());
    }
    ReadParts(store, sources, context);
    ReadUses(store);
}

void ReportFacts::ReadParts(const Store& store, bool sources, const CallContext& context)
{
    const std::size_t count = m_product.graph->Parts().size();
    m_parts.reserve(count);
    m_sources.resize(sources ? m_product.graph->Nodes().size() : 0);
    for (std::size_t number = 0; number < count; ++number) {
        constexpr std::size_t kPartsBetweenLooks = 256;
        if (number % kPartsBetweenLooks == 0 && IsCancelled(context)) {
            throw RequestError("The computation was cancelled.");
        }
        const Part part = store.ReadPart(m_product.rows[number]).part;
        PartText& text = m_parts.emplace_back();
        text.name = part.ShownName();
        const auto active = std::ranges::find_if(
            part.documents, [](const DocumentRevision& revision) { return revision.IsActive(); });
        if (active != part.documents.end()) {
            text.document = active->document;
        }
        for (const Property& property : part.properties) {
            Take(property, text.properties);
        }
        SortByPosition(text.properties);
        if (sources) {
            m_sources[number] = SourcesIn(part.sets);
        }
    }
}

void ReportFacts::ReadUses(const Store& store)
{
    const std::size_t parts = m_product.graph->Parts().size();
    for (std::size_t node = parts; node < m_sources.size(); ++node) {
        m_sources[node] = SourcesIn(store.ReadUse(-m_product.rows[node]).use.sets);
    }
    if (m_names.empty()) {
        return;
    }
    std::unordered_map<RowId, std::uint32_t> numbers;
    numbers.reserve(m_product.uses.size());
    for (const RowId row : m_product.uses) {
        numbers.emplace(row, static_cast<std::uint32_t>(numbers.size()));
    }
    store.UseProperties([&](RowId row, const Property& property) {
        const auto use = numbers.find(row);
        if (use != numbers.end() && m_positions.contains(property.name)) {
            Take(property, m_uses[use->second]);
        }
    });
    for (auto& [use, texts] : m_uses) {
        SortByPosition(texts);
    }
}

void ReportFacts::Take(const Property& property, std::vector<PropertyText>& texts) const
{
    const auto position = m_positions.find(property.name);
    // One that somebody has cleared is unknown.
    if (position != m_positions.end() && !property.value.empty()) {
        texts.push_back({position->second,
                         property.isDate ? WireDate(property.value) : property.value,
                         property.magnitude});
    }
}

const std::vector<ReportFacts::PropertyText>& ReportFacts::OfUse(std::uint32_t use) const
{
    static const std::vector<PropertyText> kNone;
    const auto found = m_uses.find(use);
    return found == m_uses.end() ? kNone : found->second;
}

std::string_view ReportFacts::SourceOf(std::uint32_t node, std::string_view massType) const
{
    const auto find = [&](std::uint32_t number) {
        const Sources& sources = m_sources[number];
        return std::ranges::find(sources, massType, &Sources::value_type::first);
    };
    // A use's own values stand before those of the part.
    auto found = find(node);
    if (found == m_sources[node].end()) {
        const std::uint32_t part = m_product.graph->Nodes()[node].part;
        found = find(part);
        return found == m_sources[part].end() ? std::string_view() : found->second;
    }
    return found->second;
}
} // namespace wb
