#pragma once

#include "ReportFacts.h"
#include "ReportRequest.h"
#include "WBReportWalk.h"
#include "XmlText.h"

#include <cstdint>
#include <string>
#include <vector>

namespace wb
{
/// Everything that the elements of a report are written from.
struct ReportSource
{
    const ReportRequest& request;
    const ProductGraph& graph;
    const ReportWalk& walk;
    const ReportFacts& facts;
    std::string time; // of the computation, as reports write it
};

/// Writes the attributes that several elements of a report share, each run in the order in which
/// the elements have it, as far as the request wants it.
class ReportAttributes
{
public:
    explicit ReportAttributes(const ReportSource& source) : m_source(source) {}

    /// Mass of all pieces, in a plain report also of one, and how far off it may be.
    void AddMasses(XmlAttributes& to, const Body& body, double pieces) const;
    void AddDeviations(XmlAttributes& to, const Body& body) const;
    /// Centre and inertia.
    void AddPlace(XmlAttributes& to, const Body& body) const;
    /// Densities, materials and volume of so many pieces of a sum.
    void AddMadeOf(XmlAttributes& to, std::uint32_t number, double pieces) const;
    /// Densities and masses of materials, a list each. What there is no density of is 0 in a list
    /// that has one.
    void AddDensities(XmlAttributes& to, const std::vector<MaterialShare>& shares,
                      double pieces) const;
    void AddStatus(XmlAttributes& to, std::uint32_t number) const;
    /// Where the values that a sum took come from.
    void AddSource(XmlAttributes& to, std::uint32_t number) const;
    /// Mass types and document that are active, and when all of this was computed.
    void AddTypes(XmlAttributes& to, std::uint32_t number) const;
    /// Those of a use stand before those of its part.
    void AddProperties(XmlAttributes& to, const std::vector<ReportFacts::PropertyText>& ofPart,
                       const std::vector<ReportFacts::PropertyText>& ofUse) const;

private:
    bool IsKind(ReportRequest::Kind kind) const { return m_source.request.kind == kind; }
    const ReportRequest::Values& Wanted() const { return m_source.request.values; }
    void AddProperty(XmlAttributes& to, const ReportFacts::PropertyText& property) const;

    const ReportSource& m_source;
};
} // namespace wb
