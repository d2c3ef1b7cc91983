#include "PlainRules.h"

#include <algorithm>
#include <cmath>

using namespace wb;

namespace wbtest
{
namespace
{
constexpr RealMatrix kUnit{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};
// Where xx, yy, zz, xy, xz, yz stand in a matrix.
constexpr std::array<std::array<std::size_t, 2>, 6> kCells{
    {{0, 0}, {1, 1}, {2, 2}, {0, 1}, {0, 2}, {1, 2}}};

RealVector Times(const RealMatrix& m, const RealVector& v)
{
    RealVector product{};
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t k = 0; k < 3; ++k) {
            product[i] += m[i][k] * v[k];
        }
    }
    return product;
}

RealMatrix Times(const RealMatrix& a, const RealMatrix& b)
{
    RealMatrix product{};
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j) {
            for (std::size_t k = 0; k < 3; ++k) {
                product[i][j] += a[i][k] * b[k][j];
            }
        }
    }
    return product;
}

RealMatrix Transposed(const RealMatrix& m)
{
    RealMatrix turned{};
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t k = 0; k < 3; ++k) {
            turned[k][i] = m[i][k];
        }
    }
    return turned;
}

RealMatrix Turned(const RealMatrix& inertia, const RealMatrix& rotation)
{
    return Times(Times(rotation, inertia), Transposed(rotation));
}

/// a.b E - (a bt + b at) / 2, so that with a = b it is the matrix of a point of 1 kg at a.
RealMatrix Offset(const RealVector& a, const RealVector& b)
{
    const Real dot = a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
    RealMatrix offset{};
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t k = 0; k < 3; ++k) {
            offset[i][k] = (i == k ? dot : 0) - (a[i] * b[k] + a[k] * b[i]) / 2;
        }
    }
    return offset;
}

/// Six figures with products as + integral.
std::array<Real, 6> Six(const RealMatrix& m)
{
    std::array<Real, 6> six{};
    for (std::size_t k = 0; k < 6; ++k) {
        six[k] = (k < 3 ? 1 : -1) * m[kCells[k][0]][kCells[k][1]];
    }
    return six;
}

RealMatrix FromSix(const std::array<Real, 6>& six)
{
    RealMatrix m{};
    for (std::size_t k = 0; k < 6; ++k) {
        const Real value = (k < 3 ? 1 : -1) * six[k];
        m[kCells[k][0]][kCells[k][1]] = value;
        m[kCells[k][1]][kCells[k][0]] = value;
    }
    return m;
}

RealVector StandingAt(const PlainItem& item)
{
    RealVector point = Times(item.rotation, *item.set.centre);
    for (std::size_t i = 0; i < 3; ++i) {
        point[i] += item.shift[i];
    }
    return point;
}

/// From the centre of the total to the item's, in metres.
RealVector Arm(const PlainItem& item, const PlainTotal& total)
{
    RealVector arm = StandingAt(item);
    for (std::size_t i = 0; i < 3; ++i) {
        arm[i] = (arm[i] - (*total.centre)[i]) / 1000;
    }
    return arm;
}

Real CentredMass(const std::vector<PlainItem>& items)
{
    Real mass = 0;
    for (const PlainItem& item : items) {
        mass += item.set.mass && item.set.centre ? item.pieces * *item.set.mass : 0;
    }
    return mass;
}

/// What an error of 1 in the k-th figure of one piece does to the ten of the total.
std::array<Real, 10> Effect(const PlainItem& item, const PlainTotal& total, Real centred,
                            std::size_t k)
{
    std::array<Real, 10> effect{};
    effect[0] = k == 0 ? 1 : 0;
    RealMatrix inertia{};
    if (k >= 4) {
        std::array<Real, 6> one{};
        one[k - 4] = 1;
        inertia = Turned(FromSix(one), item.rotation);
    } else if (item.set.centre && total.centre) {
        const RealVector arm = Arm(item, total);
        RealVector moved{};
        if (k == 0) {
            moved = arm;
            for (std::size_t i = 0; i < 3; ++i) {
                effect[1 + i] = moved[i] * 1000 / centred;
            }
            inertia = Offset(arm, arm);
        } else {
            RealVector one{};
            one[k - 1] = 1;
            moved = Times(item.rotation, one);
            const Real mass = *item.set.mass;
            for (std::size_t i = 0; i < 3; ++i) {
                effect[1 + i] = mass * moved[i] / centred;
                moved[i] *= 2 * mass / 1000;
            }
            inertia = Offset(arm, moved);
        }
    }
    const auto six = Six(inertia);
    std::copy(six.begin(), six.end(), effect.begin() + 4);
    return effect;
}
} // namespace

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

PlainTotal PlainRules::Sum(const std::vector<PlainItem>& items)
{
    PlainTotal total;
    RealVector moment{};
    for (const PlainItem& item : items) {
        total.items += item.pieces;
        if (!item.set.mass) {
            total.missing += item.pieces;
            continue;
        }
        const Real mass = item.pieces * *item.set.mass;
        total.mass += mass;
        total.lower += item.pieces * item.set.lower;
        total.upper += item.pieces * item.set.upper;
        total.withoutInertia += item.set.inertia ? 0 : mass;
        total.withoutCentre += item.set.centre ? 0 : mass;
        if (item.set.centre) {
            const RealVector point = StandingAt(item);
            for (std::size_t i = 0; i < 3; ++i) {
                moment[i] += mass * point[i];
            }
        }
    }
    if (total.mass == 0) {
        return total;
    }
    if (const Real centred = CentredMass(items); centred != 0) {
        total.centre = {moment[0] / centred, moment[1] / centred, moment[2] / centred};
    } else if (total.withoutInertia != 0) {
        return total; // masses that stand nobody knows where, some of which are no known points
    }
    total.inertia.emplace();
    for (const PlainItem& item : items) {
        if (!item.set.mass) {
            continue;
        }
        const auto own = item.set.inertia ? Six(Turned(*item.set.inertia, item.rotation))
                                          : std::array<Real, 6>{};
        std::array<Real, 6> offset{};
        if (item.set.centre && total.centre) {
            const RealVector arm = Arm(item, total);
            offset = Six(Offset(arm, arm));
        }
        for (std::size_t k = 0; k < 6; ++k) {
            (*total.inertia)[k] += item.pieces * (own[k] + *item.set.mass * offset[k]);
        }
    }
    return total;
}

bool PlainRules::SharesErrors(const PlainItem& item, bool apart) const
{
    return !apart && m_product.parts[item.part].errors != ErrorRule::Apart;
}

std::array<Real, 10> PlainRules::Sigmas(const std::vector<PlainItem>& items, bool apart) const
{
    const PlainTotal total = Sum(items);
    const Real centred = CentredMass(items);
    std::array<Real, 10> squares{};
    std::map<std::pair<std::uint32_t, std::int32_t>, std::array<std::array<Real, 10>, 10>> shared;
    for (const PlainItem& item : items) {
        if (!item.set.mass) {
            continue;
        }
        for (std::size_t k = 0; k < 10; ++k) {
            const auto effect = Effect(item, total, centred, k);
            for (std::size_t i = 0; i < 10; ++i) {
                const Real error = effect[i] * item.set.sigmas[k];
                if (SharesErrors(item, apart)) {
                    shared[{item.part, item.ownUse}][k][i] += item.pieces * error;
                } else {
                    squares[i] += item.pieces * error * error;
                }
            }
        }
    }
    for (const auto& [part, errors] : shared) {
        for (const auto& error : errors) {
            for (std::size_t i = 0; i < 10; ++i) {
                squares[i] += error[i] * error[i];
            }
        }
    }
    for (Real& square : squares) {
        square = std::sqrt(square);
    }
    return squares;
}

Deviations PlainRules::RootSumSquare(const std::vector<PlainItem>& items, bool apart) const
{
    std::map<std::pair<std::uint32_t, std::int32_t>, std::array<Real, 2>> shared;
    std::array<Real, 2> squares{};
    for (const PlainItem& item : items) {
        const std::array<Real, 2> sides{item.set.lower, item.set.upper};
        for (std::size_t i = 0; i < 2; ++i) {
            if (SharesErrors(item, apart)) {
                shared[{item.part, item.ownUse}][i] += item.pieces * sides[i];
            } else {
                squares[i] += item.pieces * sides[i] * sides[i];
            }
        }
    }
    for (const auto& [part, sides] : shared) {
        squares[0] += sides[0] * sides[0];
        squares[1] += sides[1] * sides[1];
    }
    return {static_cast<double>(std::sqrt(squares[0])), static_cast<double>(std::sqrt(squares[1]))};
}
} // namespace wbtest
