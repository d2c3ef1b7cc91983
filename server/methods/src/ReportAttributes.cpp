#include "ReportAttributes.h"

#include "WBNumbers.h"
#include "WBUnits.h"

#include "CATENOWBCSCommonDefinitions.h"

#include <algorithm>
#include <array>

namespace wb
{
namespace
{
using Kind = ReportRequest::Kind;

constexpr std::array kCentre{"COGx", "COGy", "COGz"};
constexpr std::array kInertia{"MOIxx", "MOIyy", "MOIzz", "POIxy", "POIxz", "POIyz"};

/// The worst that is missing: of the node itself, or of something that its sum leaves out or takes
/// for a point. The counts tell of it; masses that cancel have no centre and are in none of them.
const char* StatusText(const Total& total)
{
    const Counts& counts = total.counts;
    if (counts.withoutMass > 0.0) {
        return "no mass";
    }
    if (!total.HasCentre() || counts.massWithoutCentre != 0.0) {
        return "no centre";
    }
    return counts.massWithoutInertia != 0.0 ? "no inertia" : "complete";
}

/// "1;2;3": what each share has, in their order.
template <typename Append>
std::string ListOf(const std::vector<MaterialShare>& shares, const Append& append)
{
    std::string list;
    for (const MaterialShare& share : shares) {
        list += list.empty() ? "" : ";";
        append(list, share);
    }
    return list;
}

bool HasDensity(const MaterialShare& share)
{
    return share.density != 0.0;
}

std::string_view TypeName(const ProductGraph& graph, std::int32_t type)
{
    return type < 0 ? std::string_view() : graph.Types()[static_cast<std::size_t>(type)].name;
}
} // namespace

void ReportAttributes::AddMasses(XmlAttributes& to, const Body& body, double pieces) const
{
    const Body all = Pieces(body, pieces);
    to.Add("WB_Mass", all.mass);
    if (IsKind(Kind::Report) && IsKnown(body.mass)) {
        to.Add("Unit_mass", body.mass);
        to.Add("__magnitude__Unit_mass", "MASS");
    }
    AddDeviations(to, all);
}

void ReportAttributes::AddDeviations(XmlAttributes& to, const Body& body) const
{
    if (Wanted().deviations && IsKnown(body.mass)) {
        to.Add("WB_Lower_deviation", body.lower);
        to.Add("WB_Upper_deviation", body.upper);
    }
}

void ReportAttributes::AddPlace(XmlAttributes& to, const Body& body) const
{
    if (Wanted().centre) {
        for (std::size_t axis = 0; axis < kCentre.size(); ++axis) {
            to.Add(kCentre[axis], body.centre[axis]);
        }
    }
    if (Wanted().inertia) {
        for (std::size_t term = 0; term < kInertia.size(); ++term) {
            to.Add(kInertia[term], body.inertia[term]);
        }
    }
}

void ReportAttributes::AddMadeOf(XmlAttributes& to, std::uint32_t number, double pieces) const
{
    if (Wanted().density) {
        to.Add("WB_Density", m_source.graph.Nodes()[m_source.walk.NodeOf(number)].density);
    }
    const std::vector<MaterialShare> shares = m_source.walk.MaterialsOf(number);
    if (std::ranges::any_of(shares, IsOfMaterial)) {
        to.Add("Material", ListOf(shares, [](std::string& list, const MaterialShare& share) {
                   list += share.material;
               }));
    }
    AddDensities(to, shares, pieces);
    to.Add("Cut_Volume", pieces * m_source.walk.VolumeOf(number));
}

void ReportAttributes::AddDensities(XmlAttributes& to, const std::vector<MaterialShare>& shares,
                                    double pieces) const
{
    if (std::ranges::none_of(shares, IsOfMaterial)) {
        return; // the one mass is that of the element
    }
    if (std::ranges::any_of(shares, HasDensity)) {
        to.Add("Density", ListOf(shares, [](std::string& list, const MaterialShare& share) {
                   AppendNumber(list, share.density);
               }));
        to.Add("Density_dimension",
               ListOf(shares, [](std::string& list, const MaterialShare& share) {
                   list += std::to_string(static_cast<int>(share.dimension));
               }));
    }
    if (!IsKind(Kind::Report)) {
        return; // nobody would bring this list into the user's units there
    }
    to.Add("WB_Mass_Details", ListOf(shares, [&](std::string& list, const MaterialShare& share) {
               AppendNumber(list, pieces * share.mass);
           }));
}

void ReportAttributes::AddStatus(XmlAttributes& to, std::uint32_t number) const
{
    to.Add("WB_Status", StatusText(m_source.walk.TotalOf(number)));
}

void ReportAttributes::AddSource(XmlAttributes& to, std::uint32_t number) const
{
    const Claim* taken = m_source.walk.TakenOf(number);
    if (Wanted().types && taken != nullptr) {
        to.Add("Source", m_source.facts.SourceOf(m_source.walk.NodeOf(number),
                                                 m_source.graph.Types()[taken->type].name));
    }
}

void ReportAttributes::AddTypes(XmlAttributes& to, std::uint32_t number) const
{
    const ProductGraph& graph = m_source.graph;
    const ProductGraph::NodeRow& node = graph.Nodes()[m_source.walk.NodeOf(number)];
    if (Wanted().types) {
        to.Add("WBActiveMassTypeID", node.active < 0 ? CATENOWBCSCommonDefinitions::Computed
                                                     : TypeName(graph, node.active));
        to.Add("WBLastImposedMassTypeID", TypeName(graph, node.imposed));
        to.Add("WBActiveDocumentID", m_source.facts.Of(node.part).document);
    }
    if (Wanted().date) {
        to.Add("WB_Last_calculation_date", m_source.time);
    }
}

void ReportAttributes::AddProperty(XmlAttributes& to,
                                   const ReportFacts::PropertyText& property) const
{
    const std::string& name = m_source.facts.PropertyNames()[property.position];
    const Magnitude* const magnitude = FindMagnitude(property.magnitude);
    if (magnitude == nullptr) {
        to.Add(name, property.value);
    } else if (IsKind(Kind::Report)) {
        to.Add(name, property.value);
        to.Add("__magnitude__" + name, property.magnitude);
    } else {
        // Nobody brings it into the user's units, so it says its own.
        to.Add(name, property.value + magnitude->units.front().symbol);
    }
}

void ReportAttributes::AddProperties(XmlAttributes& to,
                                     const std::vector<ReportFacts::PropertyText>& ofPart,
                                     const std::vector<ReportFacts::PropertyText>& ofUse) const
{
    auto use = ofUse.begin();
    for (const ReportFacts::PropertyText& property : ofPart) {
        for (; use != ofUse.end() && use->position < property.position; ++use) {
            AddProperty(to, *use);
        }
        const bool isOfUseToo = use != ofUse.end() && use->position == property.position;
        if (!isOfUseToo) {
            AddProperty(to, property);
        }
    }
    for (; use != ofUse.end(); ++use) {
        AddProperty(to, *use);
    }
}
} // namespace wb
