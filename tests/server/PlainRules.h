#pragma once

#include "PlainMatrices.h"

#include "WBCompute.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace wbtest
{
/// One set of values of one node, with the mass that follows from a size.
struct PlainSet
{
    std::optional<RealMatrix> inertia; // products with the sign of the matrix
    std::optional<RealVector> centre;
    std::optional<Real> mass;
    Real lower = 0;
    Real upper = 0;
    Real density = 0;
    // Mass, centre, xx, yy, zz, xy, xz, yz; what nobody stated is 0.
    std::array<Real, 10> sigmas{};
    std::string type;
    int order = 0;
    int dimension = 3;
    bool goal = false;
    bool precisionStated = false;
    bool sigmaOfMassStated = false;
};

/// One place where the walk stopped: an item of the sum.
struct PlainItem
{
    std::uint32_t part = 0;
    std::int32_t ownUse = -1; // the use, where it states something of its own weight
    Real pieces = 1;
    RealMatrix rotation{};
    RealVector shift{};
    PlainSet set; // completed
    std::string material;
    std::string code;
    bool assembly = false;
};

struct PlainTotal
{
    Real mass = 0;
    Real lower = 0;
    Real upper = 0;
    std::optional<RealVector> centre;
    std::optional<std::array<Real, 6>> inertia;
    Real items = 0;
    Real missing = 0;
    Real withoutCentre = 0;
    Real withoutInertia = 0;
};

/// The rules of the sum once more, as plainly as they can be said and in long double: the product
/// is opened out to single uses, nothing is shared, nothing kept. Slow, and for small products.
class PlainRules
{
public:
    PlainRules(const wb::Product& product, const std::vector<wb::MassType>& types,
               const wb::ComputeOptions& options);

    /// Every place where the walk stops below the node that these uses lead to from part 0.
    std::vector<PlainItem> Items(const std::vector<std::uint32_t>& path);

    /// Whether what was asked last is an item itself and not a sum of items.
    bool AsksItem() const { return m_asksItem; }

    static PlainTotal Sum(const std::vector<PlainItem>& items);

    /// Ten standard uncertainties: mass, centre, xx, yy, zz, xy, xz, yz.
    std::array<Real, 10> Sigmas(const std::vector<PlainItem>& items, bool apart) const;
    wb::Deviations RootSumSquare(const std::vector<PlainItem>& items, bool apart) const;

private:
    struct Node
    {
        std::uint32_t part = 0;
        std::int32_t use = -1;
        std::vector<std::string> names; // instances from the root down
        std::vector<std::string> codes; // of the nodes from the root down, itself included
        RealMatrix rotation{};
        RealVector shift{};
        Real pieces = 1;
    };

    bool IsLeaf(const Node& node) const { return m_below[node.part].empty(); }
    Node Child(const Node& node, std::uint32_t use) const;
    std::vector<PlainSet> SetsOf(const Node& node) const; // the most mature first, goals as well
    PlainSet Made(const wb::ValueSet& set, const Node& node, bool ofUse) const;
    std::string ActiveOf(const Node& node) const;
    void Complete(PlainSet& set, const Node& node);
    std::optional<PlainSet> Taken(const Node& node);
    bool IsIn(const std::vector<std::string>& names) const;
    bool AllIn(const Node& node) const;
    void Walk(const Node& node, std::vector<PlainItem>& items);
    void WalkBelow(const Node& node, std::vector<PlainItem>& items);
    bool SharesErrors(const PlainItem& item, bool apart) const;

    const wb::Product& m_product;
    const std::vector<wb::MassType>& m_types;
    wb::ComputeOptions m_options;
    std::vector<std::vector<std::uint32_t>> m_below;
    std::map<std::uint32_t, PlainTotal> m_activeBelow;
    bool m_asksItem = false;
};
} // namespace wbtest
