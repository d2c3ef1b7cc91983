#include "ReportWriter.h"

#include "Request.h"
#include "ResidentProducts.h"

#include <algorithm>
#include <array>
#include <utility>

namespace wb
{
namespace
{
using Kind = ReportRequest::Kind;

constexpr std::array kKindNames{"report", "distributive", "material_statistics"};

std::string_view PrecisionText(const ComputeOptions& options)
{
    switch (options.precision) {
    case ComputeOptions::Precision::Active:
        return "Active";
    case ComputeOptions::Precision::MostPrecise:
        return "MostPrecise";
    default:
        return options.massType;
    }
}

/// Attributes for later.
template <typename Write>
XmlAttributes::Written Kept(const Write& write)
{
    XmlAttributes::Written written;
    XmlAttributes attributes(written.text);
    write(attributes);
    written.count = attributes.Count();
    return written;
}
} // namespace

ReportWriter::ReportWriter(const ReportSource& source, const CallContext& context)
    : m_source(source), m_context(context), m_attributes(source), m_kind(source.request.kind)
{}

void ReportWriter::BeginDocument(const Body& root)
{
    const ProductGraph::PartRow& part = m_source.graph.PartOf(0);
    const ComputeOptions& options = m_source.request.computation.options;
    const std::uint32_t number = m_source.walk.Root().number;
    AppendEscaped(m_path, part.identifier);

    m_text = "<WB_Report";
    XmlAttributes document(m_text);
    document.Add("Kind", kKindNames[static_cast<std::size_t>(m_kind)]);
    document.Add("Root", part.identifier);
    document.Add("Version", part.version);
    document.Add("Precision", PrecisionText(options));
    document.Add("Filter", options.filter.IsEmpty() ? std::string_view() : options.filter.name);
    document.Add("User", m_context.user);
    document.Add("Created", m_source.time);

    m_text += "><PRC";
    XmlAttributes to(m_text);
    to.AddEscaped("PRC_ID", m_path);
    to.Add("Name", m_source.facts.Of(0).name);
    to.Add("Version", part.version);
    if (m_kind == Kind::MaterialStatistics) {
        m_text += '>';
        WriteStatistics(number, 1.0, part.identifier);
        return;
    }
    to.Add("WB_Mass", root.mass);
    m_attributes.AddDeviations(to, root);
    m_attributes.AddPlace(to, root);
    if (m_kind == Kind::Distributive) {
        m_attributes.AddMadeOf(to, number, 1.0);
    }
    m_attributes.AddStatus(to, number);
    m_attributes.AddTypes(to, number);
    m_text += '>';
}

std::string ReportWriter::EndDocument()
{
    m_text += "</PRC></WB_Report>";
    return std::move(m_text);
}

void ReportWriter::WriteSections()
{
    for (const ReportSection& section : m_source.walk.Sections([this] { StopIfCancelled(); })) {
        m_text += "<WB_Section";
        XmlAttributes to(m_text);
        to.Add("Name", section.code);
        to.Add("WB_Mass", section.total.body.mass);
        m_attributes.AddDeviations(to, section.total.body);
        m_attributes.AddPlace(to, section.total.body);
        if (m_kind == Kind::Distributive) {
            to.Add("Quantity", section.total.counts.leaves);
            m_attributes.AddDensities(to, section.materials, 1.0);
            to.Add("Cut_Volume", section.volume);
        }
        m_text += "/>";
    }
}

void ReportWriter::BeginInstances(double places)
{
    m_begin = m_text.size();
    m_places = places;
}

void ReportWriter::WriteFrom(const ReportWalk::Place& place, const std::vector<std::uint32_t>& uses)
{
    const std::size_t root = m_path.size();
    for (std::size_t i = 0; i + 1 < uses.size(); ++i) {
        m_path += '/';
        AppendEscaped(m_path, m_source.graph.InstanceOf(uses[i]));
    }
    m_source.walk.Visit(place, *this);
    m_path.resize(root);
}

void ReportWriter::EndInstances()
{
    // The list of a distributive report takes its columns from the first instance.
    const auto at = [this](std::size_t position) {
        return m_text.begin() + static_cast<std::ptrdiff_t>(position);
    };
    if (m_richestCount > 0) {
        std::rotate(at(m_begin), at(m_richestBegin), at(m_richestEnd));
    }
}

bool ReportWriter::Enter(const ReportWalk::Place& place)
{
    if (place.use == ReportWalk::kRoot) {
        return true;
    }
    Look();
    const std::string& instance = m_source.graph.InstanceOf(place.use);
    m_above.push_back(m_path.size());
    m_path += '/';
    AppendEscaped(m_path, instance);
    const std::size_t begin = m_text.size();
    m_text += "<PartInstance";
    XmlAttributes to(m_text);
    switch (m_kind) {
    case Kind::Report:
        AddInstance(to, place);
        m_text += m_source.walk.PlacesBelow(place.number) > 0.0 ? ">" : "/>";
        break;
    case Kind::Distributive:
        AddInstance(to, place);
        m_text += "/>";
        KeepRichest(begin, to.Count());
        break;
    case Kind::MaterialStatistics:
        AddNamedInstance(to, place);
        m_text += '>';
        WriteStatistics(place.number, place.pieces, instance);
        break;
    }
    return true;
}

void ReportWriter::Leave(const ReportWalk::Place& place)
{
    if (place.use == ReportWalk::kRoot) {
        return;
    }
    m_path.resize(m_above.back());
    m_above.pop_back();
    const bool isOpen = m_kind == Kind::MaterialStatistics ||
                        (m_kind == Kind::Report && m_source.walk.PlacesBelow(place.number) > 0.0);
    m_text += isOpen ? "</PartInstance>" : "";
}

void ReportWriter::KeepRichest(std::size_t begin, std::size_t attributes)
{
    if (attributes > m_richestCount) {
        m_richestCount = attributes;
        m_richestBegin = begin;
        m_richestEnd = m_text.size();
    }
}

void ReportWriter::StopIfCancelled() const
{
    if (IsCancelled(m_context)) {
        throw RequestError("The computation was cancelled.");
    }
}

void ReportWriter::Look()
{
    constexpr std::size_t kBetweenLooks = 1024;
    constexpr double kShareBefore = 0.6; // of the whole call, as its progress shows it
    if (++m_done % kBetweenLooks != 0) {
        return;
    }
    StopIfCancelled();
    const double share = static_cast<double>(m_done) / m_places;
    Report(m_context, kShareBefore + (1.0 - kShareBefore) * share, "writing the report");
    if (m_done == kBetweenLooks) {
        // By now it shows how long an instance is: room for all of them is made once.
        constexpr double kAndSome = 1.1;
        const double each = static_cast<double>(m_text.size() - m_begin) / kBetweenLooks;
        m_text.reserve(m_text.size() + static_cast<std::size_t>(kAndSome * each * m_places));
    }
}

const ReportWriter::OfNumber& ReportWriter::Of(std::uint32_t number)
{
    // Some twenty megabytes. A product of more sums than that hardly uses any of them twice.
    constexpr std::size_t kMostKept = 20000;
    const auto found = m_kept.find(number);
    if (found != m_kept.end()) {
        return found->second;
    }
    if (m_kept.size() < kMostKept) {
        return m_kept.emplace(number, Make(number)).first->second;
    }
    m_passing = Make(number);
    return m_passing;
}

ReportWriter::OfNumber ReportWriter::Make(std::uint32_t number) const
{
    OfNumber same;
    const std::uint32_t node = m_source.walk.NodeOf(number);
    const ProductGraph::PartRow& part = m_source.graph.PartOf(node);
    const ReportFacts::PartText& facts = m_source.facts.Of(m_source.graph.Nodes()[node].part);
    const Body& body = m_source.walk.TotalOf(number).body;
    same.part = Kept([&](XmlAttributes& to) { to.Add("Part_ID", part.identifier); });
    same.name = Kept([&](XmlAttributes& to) { to.Add("Name", facts.name); });
    same.version = Kept([&](XmlAttributes& to) { to.Add("Version", part.version); });
    same.masses = Kept([&](XmlAttributes& to) { m_attributes.AddMasses(to, body, 1.0); });
    same.madeOf = Kept([&](XmlAttributes& to) { m_attributes.AddMadeOf(to, number, 1.0); });
    same.status = Kept([&](XmlAttributes& to) {
        m_attributes.AddStatus(to, number);
        m_attributes.AddSource(to, number);
        m_attributes.AddTypes(to, number);
    });
    same.properties =
        Kept([&](XmlAttributes& to) { m_attributes.AddProperties(to, facts.properties, {}); });
    return same;
}

void ReportWriter::AddInstance(XmlAttributes& to, const ReportWalk::Place& place)
{
    const OfNumber& same = Of(place.number);
    const bool isOnePiece = place.pieces == 1.0;
    if (m_kind == Kind::Report) {
        to.AddEscaped("instIdAttrAlias", "Instance_ID");
    }
    to.Add(same.part);
    to.AddEscaped("Instance_ID", std::string_view(m_path).substr(m_above.back() + 1));
    to.Add(same.name);
    to.Add(same.version);
    to.Add("Quantity", place.pieces);
    if (isOnePiece) {
        to.Add(same.masses);
    } else {
        m_attributes.AddMasses(to, m_source.walk.TotalOf(place.number).body, place.pieces);
    }
    m_attributes.AddPlace(to, m_source.walk.BodyAt(place));
    if (isOnePiece) {
        to.Add(same.madeOf);
    } else {
        m_attributes.AddMadeOf(to, place.number, place.pieces);
    }
    if (place.code >= 0) {
        to.Add("Code", m_source.graph.Codes()[static_cast<std::size_t>(place.code)]);
    }
    to.Add(same.status);
    to.AddEscaped("InstancePath", m_path);
    const auto& ofUse = m_source.facts.OfUse(place.use);
    if (ofUse.empty()) {
        to.Add(same.properties);
    } else {
        const std::uint32_t node = m_source.walk.NodeOf(place.number);
        const std::uint32_t part = m_source.graph.Nodes()[node].part;
        m_attributes.AddProperties(to, m_source.facts.Of(part).properties, ofUse);
    }
}

void ReportWriter::AddNamedInstance(XmlAttributes& to, const ReportWalk::Place& place)
{
    const OfNumber& same = Of(place.number);
    to.Add(same.part);
    to.AddEscaped("Instance_ID", std::string_view(m_path).substr(m_above.back() + 1));
    to.Add(same.name);
    to.Add("Quantity", place.pieces);
}

void ReportWriter::WriteStatistics(std::uint32_t number, double pieces, std::string_view instance)
{
    const double whole = m_source.walk.TotalOf(number).body.mass;
    const auto write = [&](const char* tag, std::string_view name, double mass,
                           const MaterialShare* material) {
        m_text.append("<").append(tag);
        XmlAttributes to(m_text);
        to.Add("InstanceID", instance);
        to.Add("Name", name);
        to.Add("Mass", pieces * mass);
        if (material != nullptr) {
            to.Add("Density", material->density == 0.0 ? kUnknown : material->density);
            to.Add("Dimension", static_cast<double>(material->dimension));
        }
        // Of nothing there are no shares.
        to.Add("Mass_ratio", mass / whole * 100.0);
        to.AddEscaped("InstancePath", m_path);
        m_text += "/>";
    };
    // A list shows the last of them first: there the largest material and the least mature mass
    // type belong on top.
    const std::vector<MaterialShare> materials = m_source.walk.MaterialsOf(number);
    for (auto share = materials.rbegin(); share != materials.rend(); ++share) {
        write("MaterialStat", share->material, share->mass, &*share);
    }
    const std::vector<NamedShare> massTypes = m_source.walk.MassTypesOf(number);
    for (auto share = massTypes.rbegin(); share != massTypes.rend(); ++share) {
        write("MassTypeStat", share->name, share->mass, nullptr);
    }
}
} // namespace wb
