#include "WBStatisticsUnits.h"

#include "WBNumbers.h"
#include "WBReportAttributes.h"
#include "WBReportNodes.h"

#include "CATIDOMElement.h"
#include "CATIDOMNodeList.h"
#include "CATNumberLocale.h"

#include <optional>
#include <utility>

namespace
{

constexpr int kSurfacic = 2;

/// One conversion or display of a document's statistics.
class StatisticsWalk
{
public:
    StatisticsWalk(const CATIDOMDocument& document, CATIDOMElement& documentElement,
                   WBUnitsTask task, WBShowOptions options)
        : m_document(document),
          m_documentElement(documentElement),
          m_task(task),
          m_options(options),
          m_mass(Magnitude("MASS", "MassUnit")),
          m_volumicDensity(Magnitude("DENSITY", "DensityUnit")),
          m_surfacicDensity(Magnitude("SURFACICMASS", "SurfacicDensityUnit")),
          m_massName(document.FindName("Mass")),
          m_densityName(document.FindName("Density")),
          m_dimensionName(document.FindName("Dimension")),
          m_shareName(document.FindName("Mass_ratio"))
    {}

    void Materials()
    {
        ForEach(kMaterialStatElement, [this](CATIDOMElement& element) {
            Rewrite(element, m_massName, m_mass);
            Rewrite(element, m_densityName,
                    DimensionOf(element) == kSurfacic ? m_surfacicDensity : m_volumicDensity);
            RewriteShare(element);
        });
    }
    void MassTypes()
    {
        ForEach(kMassTypeStatElement, [this](CATIDOMElement& element) {
            Rewrite(element, m_massName, m_mass);
            RewriteShare(element);
        });
    }

private:
    /// How values of the magnitude are shown, its unit named on the document element; nothing when
    /// it is not known or lacks a unit.
    std::optional<WBUnitDisplay> Magnitude(const char* name, const char* header)
    {
        const CATICkeMagnitude_var magnitude = KnownMagnitude(name);
        WriteUnitSymbol(m_documentElement, header, magnitude);
        return DisplayOf(magnitude, m_task, m_options);
    }

    template <class Visit>
    void ForEach(const char* name, Visit visit)
    {
        const CATIDOMNodeList_var elements = m_document.ElementsByTagName(name);
        if (!elements.IsNull()) {
            ForEachElement(*elements, [&visit](CATIDOMElement& element, int) { visit(element); });
        }
    }

    static void Rewrite(CATIDOMElement& element, CATDOMName name,
                        std::optional<WBUnitDisplay>& display)
    {
        if (display) {
            RewriteValue(element, name, *display);
        }
    }

    int DimensionOf(const CATIDOMElement& element) const
    {
        int dimension = 0;
        const int index = element.FindAttribute(m_dimensionName);
        if (index >= 0) {
            CATReadInt(element.AttributeText(index), dimension);
        }
        return dimension;
    }

    void RewriteShare(CATIDOMElement& element) const
    {
        const int index = element.FindAttribute(m_shareName);
        if (index < 0) {
            return;
        }
        double share = 0.0;
        ReadAnyReal(element.AttributeText(index), share);
        CATUnicodeString shown = CATUnicodeString::FromReal(share, "%.3g");
        if (m_options.withSymbol) {
            shown.Append("%");
        }
        element.RewriteAttribute(index, shown.View());
    }

    const CATIDOMDocument& m_document;
    CATIDOMElement& m_documentElement;
    const WBUnitsTask m_task;
    const WBShowOptions m_options;
    std::optional<WBUnitDisplay> m_mass;
    std::optional<WBUnitDisplay> m_volumicDensity;
    std::optional<WBUnitDisplay> m_surfacicDensity;
    const CATDOMName m_massName;
    const CATDOMName m_densityName;
    const CATDOMName m_dimensionName;
    const CATDOMName m_shareName;
};

} // namespace

void RewriteStatistics(const CATIDOMDocument_var& document, WBUnitsTask task, WBShowOptions options)
{
    if (document.IsNull()) {
        return;
    }
    const CATIDOMElement_var documentElement = document->DocumentElement();
    if (documentElement.IsNull()) {
        return;
    }
    StatisticsWalk walk(*document, *documentElement, task, options);
    walk.Materials();
    walk.MassTypes();
}
