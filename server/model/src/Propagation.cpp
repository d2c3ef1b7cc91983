#include "Propagation.h"

#include "Moments.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>

namespace wb
{
namespace
{
using Outcome = NodeResult::Outcome;
using Covariance = std::array<std::array<double, 10>, 10>;

constexpr double kMetres = 1e-3; // in a mm
constexpr std::array kUnturned = Placement().rotation;

std::array<double, 3> InMetres(const std::array<double, 3>& point)
{
    return {point[0] * kMetres, point[1] * kMetres, point[2] * kMetres};
}

using Point = std::array<double, 3>;

/// A point near the mass of each node, in m. Errors are carried from one such point to the next, so
/// no digits are lost however far from its axes a part stands. The asked node's is the centre of
/// the total, a leaf's its own.
std::vector<Point> PointsOf(const Selection& selection, const Walk& walk,
                            const std::vector<double>& pieces)
{
    std::vector<Point> points(selection.Count());
    for (const std::uint32_t number : selection.childrenFirst) {
        if (pieces[number] == 0.0) {
            continue;
        }
        const NodeResult& result = walk.At(number);
        if (result.apart < 0) {
            points[number] = InMetres(result.body.centre);
        } else if (result.outcome == Outcome::Taken) {
            points[number] = InMetres(walk.ApartOf(number).taken.centre);
        } else {
            const Body total = walk.Total(number);
            points[number] = InMetres(IsKnown(total.centre[0]) ? total.centre : result.body.centre);
        }
    }
    return points;
}

/// How a child stands about the point of its parent.
MomentsMove MoveOf(const ProductGraph::UseRow& use, const Point& parent, const Point& child)
{
    Placement metres = use.placement;
    metres.shift = InMetres(metres.shift);
    Point offset = Placed(child, metres);
    for (std::size_t axis = 0; axis < 3; ++axis) {
        offset[axis] -= parent[axis];
    }
    return {metres.rotation, offset};
}

/// The errors of one leaf, each as what it does to the leaf's moments about its own centre when it
/// is one standard uncertainty large. They are independent of each other.
std::vector<Moments> ErrorsOf(const Claim& claim, const Sigmas* sigmas)
{
    std::vector<Moments> errors;
    errors.push_back({SigmaOfMass(claim, sigmas)});
    if (sigmas == nullptr) {
        return errors;
    }
    for (std::size_t axis = 0; claim.HasCentre() && axis < 3; ++axis) {
        if (IsKnown(sigmas->centre[axis])) {
            Moments shifted{};
            shifted[1 + axis] = claim.body.mass * sigmas->centre[axis] * kMetres;
            errors.push_back(shifted);
        }
    }
    for (std::size_t term = 0; claim.HasInertia() && term < 6; ++term) {
        if (IsKnown(sigmas->inertia[term])) {
            Inertia one{};
            one[term] = sigmas->inertia[term];
            Moments heavier{};
            std::ranges::copy(IntegralsOf(one), heavier.begin() + 4);
            errors.push_back(heavier);
        }
    }
    return errors;
}

/// The variances of the ten results, summed up.
class Variances
{
public:
    /// The centre is that of the masses which have one.
    explicit Variances(double centredMass) : m_perKilogram(1.0 / (centredMass * kMetres)) {}

    /// An error that changes the total's moments about its centre by so much. At the centre the
    /// first-order change of centre and inertia is just that of place and integrals.
    void Add(const Moments& change)
    {
        const Inertia inertia = InertiaOf(Integrals(change));
        m_mass += change[0] * change[0];
        for (std::size_t i = 0; i < 3; ++i) {
            m_centre[i] += std::pow(change[1 + i] * m_perKilogram, 2);
        }
        for (std::size_t i = 0; i < 6; ++i) {
            m_inertia[i] += inertia[i] * inertia[i];
        }
    }

    void Add(const Covariance& covariance)
    {
        m_mass += covariance[0][0];
        for (std::size_t i = 0; i < 3; ++i) {
            m_centre[i] += covariance[1 + i][1 + i] * m_perKilogram * m_perKilogram;
            m_inertia[3 + i] += covariance[7 + i][7 + i];
            // ixx is the sum of the integrals of yy and zz, and so round.
            const std::size_t a = 4 + (i + 1) % 3;
            const std::size_t b = 4 + (i + 2) % 3;
            m_inertia[i] += covariance[a][a] + covariance[b][b] + 2.0 * covariance[a][b];
        }
    }

    Uncertainty Roots() const
    {
        Uncertainty roots;
        // Rounding may leave a variance of nothing a little below 0.
        const auto root = [](double variance) {
            return std::sqrt(std::max(variance, 0.0));
        };
        roots.mass = root(m_mass);
        std::ranges::transform(m_centre, roots.centre.begin(), root);
        std::ranges::transform(m_inertia, roots.inertia.begin(), root);
        return roots;
    }

private:
    static std::array<double, 6> Integrals(const Moments& moments)
    {
        std::array<double, 6> integrals{};
        std::copy(moments.begin() + 4, moments.end(), integrals.begin());
        return integrals;
    }

    double m_perKilogram;
    double m_mass = 0.0;
    std::array<double, 3> m_centre{};
    std::array<double, 6> m_inertia{};
};

/// Adds count times L V Lt, where L is a move: the covariance of so many pieces whose errors have
/// nothing to do with each other.
void AddMoved(Covariance& sum, const Covariance& covariance, const MomentsMove& move, double count)
{
    Covariance half{}; // rows moved: row i holds L times column i of V
    for (std::size_t column = 0; column < 10; ++column) {
        half[column] = move(covariance[column]); // V is symmetric
    }
    for (std::size_t row = 0; row < 10; ++row) {
        Moments line{};
        for (std::size_t column = 0; column < 10; ++column) {
            line[column] = half[column][row];
        }
        const Moments moved = move(line);
        for (std::size_t column = 0; column < 10; ++column) {
            sum[row][column] += count * moved[column];
        }
    }
}

/// Adds the covariance of so many pieces that have one error of their own each.
void AddError(Covariance& sum, const Moments& error, double count)
{
    for (std::size_t row = 0; row < 10; ++row) {
        const double factor = count * error[row];
        for (std::size_t column = 0; column < 10; ++column) {
            sum[row][column] += factor * error[column];
        }
    }
}

/// Errors that pieces do not share, summed up from the leaves: each node once, about its own
/// centre, so that no digits are lost however far off things stand.
class ApartErrors
{
public:
    ApartErrors(const Selection& selection, const Walk& walk, const std::vector<double>& pieces,
                const std::vector<Point>& points, Errors errors)
        : m_selection(selection),
          m_walk(walk),
          m_points(points),
          m_errors(errors),
          m_firm(selection.Count()),
          m_loose(selection.Count())
    {
        for (const std::uint32_t number : selection.childrenFirst) {
            if (pieces[number] > 0.0 && walk.At(number).outcome == Outcome::Descended) {
                SumUp(number);
            }
        }
    }

    void AddTo(Variances& variances) const
    {
        const std::uint32_t asked = *m_selection.asked;
        if (m_walk.At(asked).outcome == Outcome::Taken) {
            for (const Moments& error : ErrorsHere(asked)) {
                variances.Add(error);
            }
            return;
        }
        for (const auto* covariances : {&m_firm, &m_loose}) {
            if ((*covariances)[asked]) {
                variances.Add(*(*covariances)[asked]);
            }
        }
    }

private:
    using Kept = std::unique_ptr<Covariance>;

    /// The errors of a leaf, unless its pieces share them.
    std::vector<Moments> ErrorsHere(std::uint32_t number) const
    {
        const ProductGraph& graph = *m_selection.graph;
        const Claim& claim = *m_walk.At(number).claim;
        const bool apart =
            m_errors == Errors::Apart || graph.PartOf(m_selection.GraphNode(number)).errorsApart;
        return apart ? ErrorsOf(claim, graph.SigmasOf(claim)) : std::vector<Moments>();
    }

    static Covariance& Made(Kept& kept)
    {
        if (!kept) {
            kept = std::make_unique<Covariance>();
        }
        return *kept;
    }

    void SumUp(std::uint32_t number)
    {
        m_selection.ForEachChild(number, [&](std::uint32_t child, const ProductGraph::UseRow& use) {
            const MomentsMove move = MoveOf(use, m_points[number], m_points[child]);
            // What has no centre is turned along and stands wherever the total's centre is.
            const MomentsMove turn(use.placement.rotation, {});
            const NodeResult& result = m_walk.At(child);
            if (result.outcome == Outcome::Taken) {
                for (const Moments& error : ErrorsHere(child)) {
                    AddError(Made(result.noCentre ? m_loose[number] : m_firm[number]),
                             result.noCentre ? turn(error) : move(error), use.pieces);
                }
                return;
            }
            if (m_firm[child]) {
                AddMoved(Made(m_firm[number]), *m_firm[child], move, use.pieces);
            }
            if (m_loose[child]) {
                AddMoved(Made(m_loose[number]), *m_loose[child], turn, use.pieces);
            }
        });
    }

    const Selection& m_selection;
    const Walk& m_walk;
    const std::vector<Point>& m_points;
    Errors m_errors;
    std::vector<Kept> m_firm;  // of assemblies; null where there are no such errors
    std::vector<Kept> m_loose; // of masses without centre
};

/// For each node the sum over all its pieces of how its point stands about the total's centre.
std::vector<MomentsSum> StandingOf(const Selection& selection, const Walk& walk,
                                   const std::vector<double>& pieces,
                                   const std::vector<Point>& points)
{
    std::vector<MomentsSum> standing(selection.Count());
    standing[*selection.asked] = {1.0, MomentsMove(kUnturned, {})};
    for (std::size_t i = selection.childrenFirst.size(); i-- > 0;) {
        const std::uint32_t number = selection.childrenFirst[i];
        if (pieces[number] == 0.0 || walk.At(number).outcome != Outcome::Descended) {
            continue;
        }
        selection.ForEachChild(number, [&](std::uint32_t child, const ProductGraph::UseRow& use) {
            standing[child].Add(standing[number], MoveOf(use, points[number], points[child]),
                                use.pieces);
        });
    }
    return standing;
}

/// What has no centre stands at the total's, turned as its parents are and wherever they are.
MomentsSum AtTheCentre(MomentsSum standing)
{
    standing.move.shift = {};
    standing.move.shiftTwice = {};
    standing.move.shiftTurn = {};
    return standing;
}

/// Share of the mass for which neither an uncertainty nor a precision was stated.
double ShareUnstated(const Selection& selection, const Walk& walk,
                     const std::vector<double>& pieces)
{
    double mass = 0.0;
    double unstated = 0.0;
    for (const std::uint32_t number : selection.childrenFirst) {
        const NodeResult& result = walk.At(number);
        if (pieces[number] == 0.0 || result.outcome != Outcome::Taken) {
            continue;
        }
        const Sigmas* sigmas = selection.graph->SigmasOf(*result.claim);
        const bool stated =
            result.claim->precisionStated || (sigmas != nullptr && IsKnown(sigmas->mass));
        const double here = pieces[number] * std::abs(result.claim->body.mass);
        mass += here;
        unstated += stated ? 0.0 : here;
    }
    return mass == 0.0 ? 0.0 : unstated / mass;
}

/// True when a leaf's centre is less certain than it is far, in the mean of its pieces, from the
/// centre of the total.
bool IsUnderstated(const Claim& claim, const Sigmas* sigmas, const MomentsSum& standing)
{
    if (sigmas == nullptr || !claim.HasCentre()) {
        return false;
    }
    double square = 0.0;
    for (const double component : sigmas->centre) {
        square += IsKnown(component) ? std::pow(component * kMetres, 2) : 0.0;
    }
    const Moments moments = standing({1.0});
    const double meanSquare = (moments[4] + moments[5] + moments[6]) / moments[0];
    return square > 0.0 && square > meanSquare;
}
} // namespace

double SigmaOfMass(const Claim& claim, const Sigmas* sigmas)
{
    if (sigmas != nullptr && IsKnown(sigmas->mass)) {
        return sigmas->mass;
    }
    return (claim.body.lower + claim.body.upper) / std::sqrt(12.0);
}

double SigmaOfPieces(double sigma, double pieces, bool apart)
{
    return sigma * (apart ? std::sqrt(pieces) : pieces);
}

Uncertainty Propagate(const Selection& selection, const Walk& walk,
                      const std::vector<double>& pieces, const Body& total, Errors errors)
{
    const ProductGraph& graph = *selection.graph;
    const std::vector<Point> points = PointsOf(selection, walk, pieces);
    const std::vector<MomentsSum> standing = StandingOf(selection, walk, pieces, points);
    Variances variances(total.mass - walk.ApartOf(*selection.asked).loose.mass);
    bool someApart = errors == Errors::Apart;
    std::vector<std::string> understated;
    for (const std::uint32_t number : selection.childrenFirst) {
        const NodeResult& result = walk.At(number);
        if (pieces[number] == 0.0 || result.outcome != Outcome::Taken) {
            continue;
        }
        const Claim& claim = *result.claim;
        const Sigmas* sigmas = graph.SigmasOf(claim);
        const ProductGraph::PartRow& part = graph.PartOf(selection.GraphNode(number));
        if (!result.noCentre && IsUnderstated(claim, sigmas, standing[number])) {
            understated.push_back(part.name);
        }
        if (errors == Errors::Apart || part.errorsApart) {
            someApart = true;
            continue;
        }
        const MomentsSum sum = result.noCentre ? AtTheCentre(standing[number]) : standing[number];
        for (const Moments& error : ErrorsOf(claim, sigmas)) {
            variances.Add(sum(error));
        }
    }
    if (someApart) {
        ApartErrors(selection, walk, pieces, points, errors).AddTo(variances);
    }
    Uncertainty uncertainty = variances.Roots();
    uncertainty.shareUnstated = ShareUnstated(selection, walk, pieces);
    uncertainty.understated = std::move(understated);
    if (!IsKnown(total.centre[0])) {
        uncertainty.centre.fill(kUnknown);
    }
    if (!IsKnown(total.inertia[0])) {
        uncertainty.inertia.fill(kUnknown);
    }
    return uncertainty;
}
} // namespace wb
