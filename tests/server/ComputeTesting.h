#pragma once

#include "BodyTesting.h"

#include "WBCompute.h"
#include "WBKnown.h"

#include <gmock/gmock.h>

#include <initializer_list>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace wbtest
{
using Facts = std::initializer_list<std::pair<wb::Fact, double>>;

/// A product of a few parts, each named by a letter or two and made where it is first named.
class SmallProduct
{
public:
    wb::Part& Of(const std::string& identifier) { return product.parts[Number(identifier)]; }

    /// One more set of values of a part.
    SmallProduct& Set(const std::string& part, const std::string& type, Facts facts)
    {
        Of(part).sets.push_back(Made(type, facts));
        return *this;
    }

    /// One use; its instance is named as the part and a number, "B.1".
    wb::Use& Put(const std::string& parent, const std::string& part,
                 std::array<double, 3> shift = {})
    {
        wb::Use use;
        use.parent = Number(parent);
        use.part = Number(part);
        int count = 1;
        for (const wb::Use& other : product.uses) {
            count += other.parent == use.parent && other.part == use.part;
        }
        use.instance = part + "." + std::to_string(count);
        use.placement.shift = shift;
        product.uses.push_back(use);
        return product.uses.back();
    }

    static wb::ValueSet Made(const std::string& type, Facts facts)
    {
        wb::ValueSet set;
        set.massType = type;
        for (const auto& [fact, value] : facts) {
            set[fact] = value;
        }
        return set;
    }

    /// Asks for the first part, or for what instance names below it lead to.
    wb::ComputeResult Compute(const wb::ComputeOptions& options = {},
                              const std::vector<std::string>& instances = {}) const
    {
        const wb::ProductGraph graph(product, wb::ShippedMassTypes());
        const auto path = graph.FindPath(0, instances);
        if (!path) {
            throw std::out_of_range(instances.back());
        }
        return wb::Compute(graph, *path, options);
    }

    double Mass(const wb::ComputeOptions& options = {},
                const std::vector<std::string>& instances = {}) const
    {
        return Compute(options, instances).total.body.mass;
    }

    wb::Product product;

private:
    std::uint32_t Number(const std::string& identifier)
    {
        for (std::uint32_t i = 0; i < product.parts.size(); ++i) {
            if (product.parts[i].identifier == identifier) {
                return i;
            }
        }
        wb::Part part;
        part.identifier = identifier;
        part.version = "A";
        product.parts.push_back(part);
        return static_cast<std::uint32_t>(product.parts.size() - 1);
    }
};

inline wb::ComputeOptions MostPrecise()
{
    wb::ComputeOptions options;
    options.precision = wb::ComputeOptions::Precision::MostPrecise;
    return options;
}

inline wb::ComputeOptions Specified(const std::string& type)
{
    wb::ComputeOptions options;
    options.precision = wb::ComputeOptions::Precision::Specified;
    options.massType = type;
    return options;
}

inline wb::ComputeOptions Derived()
{
    wb::ComputeOptions options;
    options.derived = true;
    return options;
}
} // namespace wbtest
