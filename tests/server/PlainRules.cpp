#include "PlainRules.h"

#include <algorithm>
#include <cmath>

using namespace wb;

namespace wbtest
{
PlainRules::PlainRules(const Product& product, const std::vector<MassType>& types,
                       const ComputeOptions& options)
    : m_product(product), m_types(types), m_options(options), m_below(product.UsesByParent())
{}

PlainRules::Node PlainRules::Child(const Node& node, std::uint32_t number) const
{
    const Use& use = m_product.uses[number];
    Node child = node;
    child.part = use.part;
    child.use = static_cast<std::int32_t>(number);
    child.names.push_back(use.instance);
    child.codes.push_back(m_product.parts[use.part].code);
    RealMatrix rotation{};
    RealVector shift{};
    for (std::size_t i = 0; i < 3; ++i) {
        shift[i] = use.placement.shift[i];
        for (std::size_t k = 0; k < 3; ++k) {
            rotation[i][k] = use.placement.rotation[i][k];
        }
    }
    child.shift = Times(node.rotation, shift);
    for (std::size_t i = 0; i < 3; ++i) {
        child.shift[i] += node.shift[i];
    }
    child.rotation = Times(node.rotation, rotation);
    child.pieces = node.pieces * use.Pieces();
    return child;
}

PlainSet PlainRules::Made(const ValueSet& set, const Node& node, bool ofUse) const
{
    const MassType& type = *FindMassType(m_types, set.massType);
    const Part& part = m_product.parts[node.part];
    const auto densityOf = [&](const std::string& name, bool surface) {
        for (const Material& material : m_product.materials) {
            if (material.name == name) {
                return surface ? material.surfaceDensity : material.density;
            }
        }
        return kUnknown;
    };
    const auto counting = [&](const Use* use, bool surface) {
        const double ofUseItself = !use ? kUnknown : surface ? use->surfaceDensity : use->density;
        const double ofUsesMaterial = use ? densityOf(use->material, surface) : kUnknown;
        std::array<double, 4> pairs{ofUseItself, surface ? part.surfaceDensity : part.density,
                                    ofUsesMaterial, densityOf(part.material, surface)};
        if (part.densityFirst == DensityOrder::Material) {
            std::swap(pairs[0], pairs[2]);
            std::swap(pairs[1], pairs[3]);
        }
        const auto known = std::ranges::find_if(pairs, IsKnown);
        return known == pairs.end() ? kUnknown : *known;
    };

    const Use* use = node.use < 0 ? nullptr : &m_product.uses[static_cast<std::size_t>(node.use)];
    // A mass without a size counts for the kind of density that is there.
    const bool sized = set.Has(Fact::Area) || set.Has(Fact::Volume);
    const bool surface = sized ? !set.Has(Fact::Volume)
                               : !IsKnown(counting(use, false)) && IsKnown(counting(use, true));
    const double density = counting(use, surface);
    const double partsDensity = counting(nullptr, surface);
    PlainSet made;
    made.type = set.massType;
    made.order = type.order;
    made.goal = type.kind == MassType::Kind::Goal;
    made.dimension = surface ? 2 : 3;
    made.density = IsKnown(density) ? Real(density) : 0;
    Real scale = 1;
    if (set.Has(Fact::Mass)) {
        made.mass = set[Fact::Mass];
    } else if (sized && IsKnown(density)) {
        made.mass = Real(set[surface ? Fact::Area : Fact::Volume]) * density;
        if (!ofUse && IsKnown(partsDensity)) {
            scale = Real(density) / partsDensity;
        }
    }
    if (set.HasCentre()) {
        made.centre = {set[Fact::CgX], set[Fact::CgY], set[Fact::CgZ]};
    }
    if (set.HasInertia()) {
        std::array<Real, 6> six{};
        for (std::size_t k = 0; k < 6; ++k) {
            six[k] = scale * set.numbers[static_cast<std::size_t>(Fact::Ixx) + k];
        }
        made.inertia = FromSix(six);
    }
    if (made.mass) {
        const auto side = [&](Fact absolute, Fact percentage, double byDefault) {
            made.precisionStated |= set.Has(absolute) || set.Has(percentage);
            return set.Has(absolute)     ? Real(set[absolute])
                   : set.Has(percentage) ? std::abs(*made.mass) * set[percentage] / 100
                                         : std::abs(*made.mass) * byDefault / 100;
        };
        made.lower = side(Fact::Lower, Fact::LowerPct, type.lowerPct);
        made.upper = side(Fact::Upper, Fact::UpperPct, type.upperPct);
    }
    for (std::size_t k = 0; k < made.sigmas.size(); ++k) {
        const double sigma = set.numbers[static_cast<std::size_t>(Fact::SigmaMass) + k];
        const bool has = k == 0 || (k < 4 ? set.HasCentre() : set.HasInertia());
        made.sigmas[k] = has && IsKnown(sigma) ? Real(sigma) : 0;
    }
    made.sigmaOfMassStated = set.Has(Fact::SigmaMass);
    if (!made.sigmaOfMassStated) {
        made.sigmas[0] = (made.lower + made.upper) / std::sqrt(Real(12));
    }
    return made;
}

std::vector<PlainSet> PlainRules::SetsOf(const Node& node) const
{
    std::vector<PlainSet> sets;
    const Part& part = m_product.parts[node.part];
    static const std::vector<ValueSet> kNone;
    const auto& own = node.use < 0 ? kNone : m_product.uses[std::size_t(node.use)].sets;
    for (const MassType& type : m_types) {
        if (const ValueSet* set = FindSet(own, type.name)) {
            sets.push_back(Made(*set, node, true));
        } else if (const ValueSet* below = FindSet(part.sets, type.name)) {
            sets.push_back(Made(*below, node, false));
        }
    }
    std::ranges::sort(sets, std::ranges::greater(), &PlainSet::order);
    return sets;
}

std::string PlainRules::ActiveOf(const Node& node) const
{
    if (node.use >= 0) {
        const Use& use = m_product.uses[std::size_t(node.use)];
        if (!use.activeType.empty()) {
            return use.activeType;
        }
        if (use.sets.empty() && !m_product.parts[node.part].activeType.empty()) {
            return m_product.parts[node.part].activeType;
        }
    } else if (!m_product.parts[node.part].activeType.empty()) {
        return m_product.parts[node.part].activeType;
    }
    if (IsLeaf(node)) {
        for (const PlainSet& set : SetsOf(node)) {
            if (!set.goal) {
                return set.type;
            }
        }
    }
    return "Computed";
}

void PlainRules::Complete(PlainSet& set, const Node& node)
{
    std::vector<PlainSet> lenders = SetsOf(node);
    std::erase_if(lenders,
                  [&](const PlainSet& other) { return other.goal || other.type == set.type; });
    if (!IsLeaf(node)) {
        auto found = m_activeBelow.find(node.part);
        if (found == m_activeBelow.end()) {
            PlainRules active(m_product, m_types, {});
            Node alone;
            alone.part = node.part;
            alone.rotation = kUnit;
            std::vector<PlainItem> items;
            active.WalkBelow(alone, items);
            found = m_activeBelow.emplace(node.part, Sum(items)).first;
        }
        const PlainTotal& total = found->second;
        PlainSet sum;
        sum.mass = total.mass;
        sum.centre = total.centre;
        if (total.inertia) {
            sum.inertia = FromSix(*total.inertia);
        }
        const int calculated = FindMassType(m_types, "Calculated")->order;
        const auto place = std::ranges::find_if(
            lenders, [&](const PlainSet& other) { return other.order <= calculated; });
        lenders.insert(place, sum);
    }
    for (const PlainSet& lender : lenders) {
        if (!set.centre && lender.centre) {
            set.centre = lender.centre;
        }
    }
    for (const PlainSet& lender : lenders) {
        if (!set.inertia && lender.inertia && lender.mass && *lender.mass != 0) {
            auto six = Six(*lender.inertia);
            for (Real& value : six) {
                value *= *set.mass / *lender.mass;
            }
            set.inertia = FromSix(six);
        }
    }
}

bool PlainRules::IsIn(const std::vector<std::string>& names) const
{
    const auto& lines = m_options.filter.lines;
    bool in = std::ranges::none_of(lines, &Filter::Line::in);
    for (const Filter::Line& line : lines) {
        const auto from = line.FromRoot();
        if (from.size() <= names.size() && std::equal(from.begin(), from.end(), names.begin())) {
            in = line.in;
        }
    }
    return in;
}

bool PlainRules::AllIn(const Node& node) const
{
    if (IsLeaf(node)) {
        return IsIn(node.names);
    }
    return std::ranges::all_of(m_below[node.part],
                               [&](std::uint32_t use) { return AllIn(Child(node, use)); });
}

std::optional<PlainSet> PlainRules::Taken(const Node& node)
{
    using Precision = ComputeOptions::Precision;
    if (!IsLeaf(node) && !AllIn(node)) {
        return std::nullopt;
    }
    const auto sets = SetsOf(node);
    const auto named = [&](const std::string& type) -> std::optional<PlainSet> {
        const auto found = std::ranges::find(sets, type, &PlainSet::type);
        return found == sets.end() || !found->mass ? std::nullopt : std::optional(*found);
    };
    if (m_options.precision == Precision::Active) {
        return named(ActiveOf(node));
    }
    if (m_options.precision == Precision::Specified) {
        if (m_options.massType == "Computed") {
            return IsLeaf(node) ? named(ActiveOf(node)) : std::nullopt;
        }
        auto set = named(m_options.massType);
        return !set && IsLeaf(node) && m_options.orActive ? named(ActiveOf(node)) : set;
    }
    const auto highest = std::ranges::find_if(
        sets, [](const PlainSet& set) { return !set.goal && set.mass.has_value(); });
    if (highest == sets.end()) {
        return std::nullopt;
    }
    if (IsLeaf(node) || highest->order > FindMassType(m_types, "Calculated")->order) {
        return *highest;
    }
    std::vector<PlainItem> below;
    WalkBelow(node, below);
    const bool missing = std::ranges::any_of(
        below, [](const PlainItem& item) { return !item.set.mass.has_value(); });
    return missing ? std::optional(*highest) : std::nullopt;
}

void PlainRules::WalkBelow(const Node& node, std::vector<PlainItem>& items)
{
    for (const std::uint32_t use : m_below[node.part]) {
        Walk(Child(node, use), items);
    }
}

void PlainRules::Walk(const Node& node, std::vector<PlainItem>& items)
{
    auto set = Taken(node);
    if (!set && !IsLeaf(node)) {
        WalkBelow(node, items);
        return;
    }
    if (IsLeaf(node) && !IsIn(node.names)) {
        return;
    }
    PlainItem item;
    item.part = node.part;
    item.pieces = node.pieces;
    item.rotation = node.rotation;
    item.shift = node.shift;
    item.assembly = !IsLeaf(node);
    item.material = m_product.parts[node.part].material;
    if (node.use >= 0) {
        const Use& use = m_product.uses[std::size_t(node.use)];
        const bool own = !use.sets.empty() || !use.material.empty() || !use.activeType.empty() ||
                         IsKnown(use.density);
        item.ownUse = own ? node.use : -1;
        item.material = use.material.empty() ? item.material : use.material;
    }
    const auto code = std::find_if(node.codes.rbegin(), node.codes.rend(),
                                   [](const std::string& text) { return !text.empty(); });
    item.code = code == node.codes.rend() ? "(no code)" : *code;
    if (set) {
        Complete(*set, node);
        item.set = *set;
    }
    items.push_back(item);
}

std::vector<PlainItem> PlainRules::Items(const std::vector<std::uint32_t>& path)
{
    Node node;
    node.rotation = kUnit;
    node.codes = {m_product.parts[0].code};
    for (const std::uint32_t use : path) {
        node = Child(node, use);
    }
    node.rotation = kUnit;
    node.shift = {};
    node.pieces = 1;
    std::vector<PlainItem> items;
    Walk(node, items);
    m_asksItem = !items.empty() && (IsLeaf(node) || Taken(node));
    return items;
}
} // namespace wbtest
