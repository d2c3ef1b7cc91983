#pragma once

#include "Selection.h"
#include "WBKeptSum.h"
#include "Walk.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace wb
{
/// Values by number, of which few are met: they add up, and taking them all costs no more than
/// meeting them did.
template <typename Value>
class SparseSums
{
public:
    void Add(std::size_t number, const Value& value)
    {
        if (number >= m_values.size()) {
            m_values.resize(number + 1);
            m_met.resize(number + 1, false);
        }
        if (!m_met[number]) {
            m_met[number] = true;
            m_numbers.push_back(number);
            m_values[number] = value;
            return;
        }
        m_values[number] += value;
    }

    /// Calls take(number, value) for all that were met, and begins anew.
    template <typename Take>
    void TakeAll(const Take& take)
    {
        for (const std::size_t number : m_numbers) {
            take(number, m_values[number]);
            m_met[number] = false;
        }
        m_numbers.clear();
    }

private:
    std::vector<Value> m_values;
    std::vector<bool> m_met;
    std::vector<std::size_t> m_numbers; // in the order of their first value
};

/// Names that a graph numbers, and those that only kept sums know: they get the numbers behind.
class NumberedNames
{
public:
    explicit NumberedNames(std::size_t inGraph) : m_inGraph(inGraph) {}

    std::size_t OfAnother(const std::string& name)
    {
        const auto [found, isNew] = m_numbers.try_emplace(name, m_inGraph + m_others.size());
        if (isNew) {
            m_others.push_back(name);
        }
        return found->second;
    }
    const std::string* Other(std::size_t number) const
    {
        return number < m_inGraph ? nullptr : &m_others[number - m_inGraph];
    }

private:
    std::size_t m_inGraph;
    std::vector<std::string> m_others;
    std::unordered_map<std::string, std::size_t> m_numbers;
};

/// What the mass of a stop is counted under.
struct MaterialKey
{
    std::int32_t material = 0; // position in the graph; below 0: none, or imposed on an assembly
    Dimension dimension = Dimension::Volume;
    double density = 0.0;

    bool operator==(const MaterialKey&) const = default;
};
struct MaterialHash
{
    std::size_t operator()(const MaterialKey& key) const;
};

/// Of a node whose values were taken; material: the one that it is made of there. A leaf without
/// material and an imposed assembly without one have no density that means anything.
MaterialKey MaterialKeyOf(const ProductGraph::PartRow& part, const Claim& claim,
                          std::int32_t material);
/// A material of the graph, or what stands in its place.
std::string MaterialNameOf(const ProductGraph& graph, std::int32_t material);
/// Largest first, then by name.
void SortByMass(std::vector<MaterialShare>& shares);

/// Collects what every stop of a walk contributes to a sum beside its body.
class Collector
{
public:
    explicit Collector(const ProductGraph& graph);

    void Missing(double pieces);
    /// material: the one that the node is made of there.
    void Taken(const NodeResult& result, std::uint32_t node, std::int32_t material, double pieces);
    void Kept(const KeptSum& sum, double pieces);
    void Code(std::int32_t code, double mass) { m_codes.Add(static_cast<std::size_t>(code), mass); }

    /// All figures but the bodies; afterwards the collector is empty again.
    KeptSum Finish(double withoutCode);

private:
    struct Pair
    {
        double lower = 0.0;
        double upper = 0.0;

        Pair& operator+=(const Pair& other);
    };

    std::int32_t MaterialNumber(const std::string& name);
    std::size_t TypeNumber(const std::string& name);
    std::size_t CodeNumber(const std::string& name);
    std::string MaterialName(std::int32_t material) const;
    void FinishTypes();

    const ProductGraph& m_graph;
    KeptSum m_sum;
    std::unordered_map<MaterialKey, double, MaterialHash> m_materials;
    SparseSums<double> m_types;
    SparseSums<double> m_codes;
    SparseSums<Pair> m_shared; // by node of the graph
    NumberedNames m_otherMaterials;
    NumberedNames m_otherTypes;
    NumberedNames m_otherCodes;
    std::unordered_map<std::string, std::size_t> m_codeNumbers; // filled when a kept sum names one
};
} // namespace wb
