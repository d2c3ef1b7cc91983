#pragma once

#include "ComputeTesting.h"

#include <random>
#include <string>
#include <vector>

namespace wbtest
{
/// Products of any shape with any mixture of what can be stated: seeded, so that a failure can be
/// looked at again. Part 0 is the root; parts are used by parts before them, so there is no cycle.
class RandomProduct
{
public:
    explicit RandomProduct(unsigned seed) : m_random(seed) { Make(); }

    wb::Product product;

    double Between(double low, double high)
    {
        return std::uniform_real_distribution<double>(low, high)(m_random);
    }
    std::size_t Below(std::size_t count)
    {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(m_random);
    }
    bool Chance(double share) { return Between(0, 1) < share; }

    /// Uses that lead from the root to some node.
    std::vector<std::uint32_t> SomePath()
    {
        const auto below = product.UsesByParent();
        std::vector<std::uint32_t> path;
        std::uint32_t part = 0;
        while (!below[part].empty() && Chance(0.7)) {
            path.push_back(below[part][Below(below[part].size())]);
            part = product.uses[path.back()].part;
        }
        return path;
    }
    std::vector<std::string> Names(const std::vector<std::uint32_t>& path) const
    {
        std::vector<std::string> names;
        names.reserve(path.size());
        for (const std::uint32_t use : path) {
            names.push_back(product.uses[use].instance);
        }
        return names;
    }
    wb::Filter::Line SomeLine()
    {
        const auto path = SomePath();
        const wb::Part& part = product.parts[path.empty() ? 0 : product.uses[path.back()].part];
        wb::Filter::Line line;
        line.in = Chance(0.5);
        line.part = part.identifier;
        line.version = part.version;
        const auto names = Names(path);
        if (!names.empty()) {
            line.instance = names.back();
            line.path.assign(names.rbegin() + 1, names.rend());
        }
        return line;
    }

private:
    static constexpr std::size_t kAssemblies = 6;
    static constexpr std::size_t kParts = 13;

    void Make()
    {
        product.materials = {{"Wax", 900, wb::kUnknown, {}, {}},
                             {"Steel", 7800, wb::kUnknown, {}, {}},
                             {"Foil", wb::kUnknown, 2, {}, {}},
                             {"Both", 1200, 3, {}, {}},
                             {"Neither", wb::kUnknown, wb::kUnknown, {}, {}}};
        for (std::size_t i = 0; i < kParts; ++i) {
            product.parts.push_back(SomePart(i));
        }
        for (std::uint32_t parent = 0; parent < kAssemblies; ++parent) {
            const std::size_t count = 1 + Below(4);
            for (std::size_t i = 0; i < count; ++i) {
                const std::size_t first = parent + 1U;
                product.uses.push_back(
                    SomeUse(parent, static_cast<std::uint32_t>(first + Below(kParts - first)), i));
            }
        }
    }

    const char* SomeMaterial()
    {
        constexpr std::array kNames{"Wax", "Steel", "Foil", "Both", "Neither"};
        return kNames[Below(kNames.size())];
    }
    const char* SomeType()
    {
        constexpr std::array kNames{"Estimated", "Calculated", "Supplier", "Weighed"};
        return kNames[Below(kNames.size())];
    }

    wb::Part SomePart(std::size_t number)
    {
        wb::Part part;
        part.identifier = "P" + std::to_string(number);
        part.version = "A";
        part.code = Chance(0.4) ? "C" + std::to_string(Below(3)) : "";
        part.growthPct = Chance(0.5) ? Between(0, 20) : wb::kUnknown;
        part.density = Chance(0.15) ? Between(500, 3000) : wb::kUnknown;
        part.surfaceDensity = Chance(0.15) ? Between(1, 5) : wb::kUnknown;
        part.densityFirst = Chance(0.3) ? wb::DensityOrder::Material : wb::DensityOrder::Unstated;
        part.errors = Chance(0.2) ? wb::ErrorRule::Apart : wb::ErrorRule::Unstated;
        part.material = Chance(0.6) ? SomeMaterial() : "";
        const bool leaf = number >= kAssemblies;
        part.sets = SomeSets(leaf ? 0.9 : 0.3, leaf);
        part.activeType = Chance(0.2) ? SomeType() : "";
        return part;
    }

    std::vector<wb::ValueSet> SomeSets(double share, bool leaf)
    {
        std::vector<wb::ValueSet> sets;
        for (const char* type : {"Target", "Estimated", "Calculated", "Supplier", "Weighed"}) {
            if (Chance(share * 0.55)) {
                sets.push_back(SomeSet(type, leaf));
            }
        }
        return sets;
    }

    wb::ValueSet SomeSet(const char* type, bool leaf)
    {
        using wb::Fact;
        wb::ValueSet set;
        set.massType = type;
        if (leaf && Chance(0.3)) {
            set[Chance(0.6) ? Fact::Volume : Fact::Area] = Between(0.001, 0.004);
            if (Chance(0.2)) {
                set[Fact::Mass] = Between(1, 5);
            }
        } else if (Chance(0.9)) {
            set[Fact::Mass] = Between(1, 5) * (Chance(0.05) ? -0.2 : 1);
        }
        if (Chance(0.3)) {
            set[Fact::Lower] = Between(0, 0.3);
            set[Fact::Upper] = Between(0, 0.3);
        } else if (Chance(0.3)) {
            set[Fact::LowerPct] = Between(0, 8);
            set[Fact::UpperPct] = Between(0, 8);
        }
        if (Chance(0.2)) {
            set[Fact::SigmaMass] = Between(0, 0.3);
        }
        if (Chance(0.7)) {
            State(set, Fact::CgX, 3, -300, 300);
            State(set, Fact::SigmaCgX, Chance(0.4) ? 3 : 0, 0, 9);
        }
        if (Chance(0.5)) {
            State(set, Fact::Ixx, 3, 0.5, 0.9);
            State(set, Fact::Ixy, 3, -0.1, 0.1);
            State(set, Fact::SigmaIxx, Chance(0.4) ? 6 : 0, 0, 0.05);
        }
        if (!set.HasSomething()) {
            set[Fact::Mass] = 1;
        }
        return set;
    }

    void State(wb::ValueSet& set, wb::Fact first, std::size_t count, double low, double high)
    {
        for (std::size_t i = 0; i < count; ++i) {
            set.numbers[static_cast<std::size_t>(first) + i] = Between(low, high);
        }
    }

    wb::Use SomeUse(std::uint32_t parent, std::uint32_t part, std::size_t number)
    {
        wb::Use use;
        use.parent = parent;
        use.part = part;
        use.instance = "i" + std::to_string(number);
        use.quantity = Chance(0.3) ? 1 + static_cast<int>(Below(4)) : 0;
        if (Chance(0.7)) {
            use.placement.rotation =
                wb::RotationFromAngles(Between(0, 360), Between(0, 360), Between(0, 360));
        }
        if (Chance(0.2)) {
            for (auto& row : use.placement.rotation) {
                row[1] = -row[1];
            }
        }
        use.placement.shift = {Between(-900, 900), Between(-900, 900), Between(-900, 900)};
        if (Chance(0.15)) {
            use.sets = SomeSets(0.7, part >= kAssemblies);
            use.activeType = Chance(0.3) ? SomeType() : "";
        }
        use.material = Chance(0.15) ? SomeMaterial() : "";
        use.density = Chance(0.1) ? Between(500, 3000) : wb::kUnknown;
        return use;
    }

    std::mt19937 m_random;
};
} // namespace wbtest
