#pragma once

#include "Collector.h"
#include "Selection.h"
#include "WBReportWalk.h"
#include "Walk.h"

#include <cstdint>
#include <unordered_map>
#include <utility>
#include <vector>

namespace wb
{
/// What the sums of a walk are made of, each made from those of its children: of one piece.
class ReportShares
{
public:
    ReportShares(const Selection& selection, const Walk& walk, const ReportOptions& wanted);

    /// One node, after all that stands below it.
    void Make(std::uint32_t number);

    double VolumeOf(std::uint32_t number) const { return m_volumes[number]; }
    std::vector<NamedShare> MassTypesOf(std::uint32_t number) const;
    std::vector<MaterialShare> MaterialsOf(std::uint32_t number) const;
    /// Adds what so many pieces of a node are made of, by material key.
    void AddMaterials(std::uint32_t number, double pieces,
                      std::unordered_map<std::uint32_t, double>& sum) const;
    /// Keys and masses with their names, largest first.
    template <typename Masses>
    std::vector<MaterialShare> Named(const Masses& masses) const
    {
        std::vector<MaterialShare> shares;
        for (const auto& [key, mass] : masses) {
            const MaterialKey& material = m_keys[key];
            shares.push_back({MaterialNameOf(*m_selection.graph, material.material),
                              material.dimension, material.density, mass});
        }
        SortByMass(shares);
        return shares;
    }

private:
    using Masses = std::vector<std::pair<std::uint32_t, double>>; // key or mass type, and kg

    std::uint32_t KeyOf(std::uint32_t number, const Claim& claim);
    double MadeVolume(std::uint32_t number) const;
    Masses SumOf(std::uint32_t number, const std::vector<Masses>& below);

    const Selection& m_selection;
    const Walk& m_walk;
    const ReportOptions m_wanted;
    std::vector<MaterialKey> m_keys;
    std::unordered_map<MaterialKey, std::uint32_t, MaterialHash> m_keyNumbers;
    std::vector<Masses> m_materials; // by number, as the next two
    std::vector<Masses> m_types;
    std::vector<double> m_volumes;
    SparseSums<double> m_sum; // kept between nodes
};
} // namespace wb
