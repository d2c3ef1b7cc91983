#pragma once

#include "ReportAttributes.h"
#include "WBReportWalk.h"
#include "WBServer.h"
#include "XmlText.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace wb
{
/// Writes the elements of one report in document order: the document's and the root's beginning,
/// sections, instances, the end.
class ReportWriter : private ReportVisitor
{
public:
    /// Both must outlive it. Long work throws RequestError when the context cancels it.
    ReportWriter(const ReportSource& source, const CallContext& context);

    /// root: what the root weighs.
    void BeginDocument(const Body& root);
    void WriteSections();
    /// places: how many instances are written between here and the end of instances.
    void BeginInstances(double places);
    /// An instance and everything below it, of the root only what is below; uses: that lead to it
    /// from the root down.
    void WriteFrom(const ReportWalk::Place& place, const std::vector<std::uint32_t>& uses);
    void EndInstances();
    /// The whole text; afterwards nothing more may be written.
    std::string EndDocument();

private:
    using Written = XmlAttributes::Written;

    /// Attributes that are the same wherever one piece of a sum stands. Most uses are one piece, so
    /// that these need be written but once.
    struct OfNumber
    {
        Written part;
        Written name;
        Written version;
        Written masses;
        Written madeOf;
        Written status;
        Written properties;
    };

    bool Enter(const ReportWalk::Place& place) override;
    void Leave(const ReportWalk::Place& place) override;

    const OfNumber& Of(std::uint32_t number);
    OfNumber Make(std::uint32_t number) const;
    void AddInstance(XmlAttributes& to, const ReportWalk::Place& place);
    void AddNamedInstance(XmlAttributes& to, const ReportWalk::Place& place);
    void WriteStatistics(std::uint32_t number, double pieces, std::string_view instance);
    void KeepRichest(std::size_t begin, std::size_t attributes);
    void StopIfCancelled() const;
    void Look();

    const ReportSource& m_source;
    const CallContext& m_context;
    const ReportAttributes m_attributes;
    const ReportRequest::Kind m_kind;
    std::string m_text;
    std::string m_path;               // of the place, escaped
    std::vector<std::size_t> m_above; // lengths of the path at the places above
    std::unordered_map<std::uint32_t, OfNumber> m_kept;
    OfNumber m_passing; // of a sum that is not kept

    // While instances are written.
    std::size_t m_begin = 0; // of the first one
    double m_places = 0.0;
    std::size_t m_done = 0;
    // The instance with most attributes, the first of several.
    std::size_t m_richestBegin = 0;
    std::size_t m_richestEnd = 0;
    std::size_t m_richestCount = 0;
};
} // namespace wb
