#pragma once

#include "WBBody.h"
#include "WBProduct.h"
#include "WBRules.h"

#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace wb
{
class Walk;

/// One standard uncertainty a figure; unknown where nobody stated one. In the axes of the part.
struct Sigmas
{
    double mass = kUnknown;
    std::array<double, 3> centre{kUnknown, kUnknown, kUnknown};
    Inertia inertia{kUnknown, kUnknown, kUnknown, kUnknown, kUnknown, kUnknown};
};

/// What one mass type says of a node, with the mass that a size and a density give.
struct Claim
{
    /// In the axes of the part. What nobody stated is unknown: mass, centre or inertia; without a
    /// mass the deviations are 0.
    Body body;
    double density = 0.0;         // the one that counts here; 0 where there is none
    double massOfSize = kUnknown; // size times density where mass and size are both stated
    std::uint32_t type = 0;       // position in ProductGraph::Types()
    std::int32_t sigmas = -1;     // position among the stated uncertainties; -1: none
    std::int32_t sized = -1;      // position among the sets that state a size; -1: none
    Dimension dimension = Dimension::Volume;
    bool followsSize = false;     // no mass stated: it is size times density
    bool precisionStated = false; // the deviations are not the mass type's default
    bool isOutdated = false;      // something below has changed since these were stated

    bool HasMass() const { return IsKnown(body.mass); }
    bool HasCentre() const { return IsKnown(body.centre[0]); }
    bool HasInertia() const { return IsKnown(body.inertia[0]); }
};

/// A node in its product.
struct AskedPath
{
    std::uint32_t root = 0;          // number of a part
    std::vector<std::uint32_t> uses; // numbers of the uses from the root down; none: the root
};

/// A product in the form in which it is summed up: what was stated about a part is kept once, uses
/// are small records that stand together below their parent. Numbers of parts, uses and nodes are
/// positions in these arrays.
///
/// A node is what a sum can be of: a part version, or one use of it that states something of its
/// own (values, material, density, active type) and so weighs something else than the part
/// elsewhere. All other uses of a part share its node, and so the work. The first nodes are the
/// parts, in their order; those of uses follow.
class ProductGraph
{
public:
    struct PartRow
    {
        std::string identifier;
        std::string version;
        std::string name; // the identifier where the part has none
        double growthPct = kUnknown;
        std::int32_t code = -1; // position in Codes()
        PartType type = PartType::Unstated;
        bool standard = false;
        bool errorsApart = false;
        std::uint32_t firstUse = 0; // its uses below it stand together
        std::uint32_t useCount = 0;

        bool IsLeaf() const { return useCount == 0; }
    };
    struct UseRow
    {
        Placement placement;
        std::uint32_t node = 0;
        std::int32_t pieces = 1;
        bool turned = false; // more than shifted
    };
    struct NodeRow
    {
        std::uint32_t part = 0;
        std::uint32_t firstClaim = 0; // its claims stand together, the most mature first
        std::uint32_t claimCount = 0;
        std::int32_t active = -1;   // mass type; -1: Computed
        std::int32_t imposed = -1;  // the mass type that somebody made active last; -1: none
        std::int32_t material = -1; // position in Materials()
        double density = kUnknown;  // kg/m3; stated of the use, else of the part
        bool ofUse = false;         // a use that states something of its own
    };

    /// Builds it from what a table or a database says. Materials and mass types must hold all that
    /// the parts name; a set of a mass type that is not there does not count. A cycle makes the
    /// graph empty and Error() a sentence that names it. cancelled is asked now and then: true
    /// makes the graph one of no use, and Error() says so.
    ProductGraph(const Product& product, std::vector<MassType> types,
                 const std::function<bool()>& cancelled = {});
    ~ProductGraph();
    ProductGraph(const ProductGraph&) = delete;
    ProductGraph& operator=(const ProductGraph&) = delete;

    const std::string& Error() const { return m_error; }

    const std::vector<MassType>& Types() const { return m_types; }
    const std::vector<Material>& Materials() const { return m_materials; }
    const std::vector<std::string>& Codes() const { return m_codes; }

    std::span<const PartRow> Parts() const { return m_parts; }
    std::span<const NodeRow> Nodes() const { return m_nodes; }
    const PartRow& PartOf(std::uint32_t node) const { return m_parts[m_nodes[node].part]; }
    /// The uses below a part; the number of the first one is PartRow::firstUse.
    std::span<const UseRow> UsesOf(const PartRow& part) const
    {
        return std::span(m_uses).subspan(part.firstUse, part.useCount);
    }
    const UseRow& UseAt(std::uint32_t use) const { return m_uses[use]; }
    const std::string& InstanceOf(std::uint32_t use) const { return m_instances[use]; }
    std::span<const Claim> ClaimsOf(std::uint32_t node) const
    {
        return std::span(m_claims).subspan(m_nodes[node].firstClaim, m_nodes[node].claimCount);
    }
    const Sigmas* SigmasOf(const Claim& claim) const
    {
        return claim.sigmas < 0 ? nullptr : &m_sigmas[static_cast<std::size_t>(claim.sigmas)];
    }
    /// The volume that a claim states, in m3; unknown where it states none.
    double VolumeOf(const Claim& claim) const
    {
        return claim.sized < 0 ? kUnknown
                               : m_sized[static_cast<std::size_t>(claim.sized)].set[Fact::Volume];
    }
    /// All nodes, each after everything below it.
    std::span<const std::uint32_t> ChildrenFirst() const { return m_childrenFirst; }

    std::optional<std::uint32_t> FindPart(std::string_view identifier,
                                          std::string_view version) const;
    std::optional<std::uint32_t> FindUse(std::uint32_t part, std::string_view instance) const;
    /// The node that instance names lead to, from below the root down.
    std::optional<AskedPath> FindPath(std::uint32_t root,
                                      const std::vector<std::string>& instances) const;
    /// The graph's node at the end of a path.
    std::uint32_t NodeAt(const AskedPath& path) const
    {
        return path.uses.empty() ? path.root : m_uses[path.uses.back()].node;
    }
    std::int32_t FindMaterial(std::string_view name) const; // -1: not there
    std::int32_t FindType(std::string_view name) const;     // -1: not there

    /// Makes a material known that nothing of the product is made of, so that it can be tried.
    void AddMaterial(const Material& material);

    /// The claims of a node if another density went first or it were made of another material
    /// (-1: its own).
    std::vector<Claim> ClaimsWith(std::uint32_t node, std::optional<DensityPriority> first,
                                  std::int32_t material) const;

    /// What stands below each part, by its active values and unfiltered, in the axes of the part.
    /// It completes what assemblies leave unsaid. Unknown figures are unknown.
    const Body& ActiveBelow(std::uint32_t part) const { return m_activeBelow[part]; }

    /// The active, unfiltered result of every node, made once.
    const Walk& Active() const { return *m_active; }

private:
    struct SizedSet
    {
        ValueSet set;
        DensityChoice densities;
        bool ofUse = false;
    };

    void Build(const Product& product, const std::function<bool()>& cancelled);
    void AddParts(const Product& product);
    void AddUses(const Product& product, const std::vector<std::vector<std::uint32_t>>& below,
                 const std::function<bool()>& cancelled);
    void AddNode(const Part& part, std::uint32_t number, const Use* use);
    Claim MakeClaim(const ValueSet& set, const DensityChoice& densities, std::uint32_t type,
                    bool ofUse) const;
    DensityPair DensitiesOf(std::int32_t material) const;
    void OrderNodes(const std::vector<std::vector<std::uint32_t>>& below,
                    const std::function<bool()>& cancelled);

    std::vector<MassType> m_types;
    std::vector<Material> m_materials;
    std::unordered_map<std::string, std::int32_t> m_materialNumbers;
    std::vector<std::string> m_codes;
    std::vector<PartRow> m_parts;
    std::vector<UseRow> m_uses;
    std::vector<std::string> m_instances;
    std::vector<NodeRow> m_nodes;
    std::vector<Claim> m_claims;
    std::vector<Sigmas> m_sigmas;
    std::vector<SizedSet> m_sized;
    std::vector<std::uint32_t> m_childrenFirst;
    std::vector<Body> m_activeBelow;
    std::unique_ptr<Walk> m_active;
    std::string m_error;
};
} // namespace wb
