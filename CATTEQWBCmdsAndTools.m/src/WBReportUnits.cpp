#include "WBReportUnits.h"

#include "WBReportAttributes.h"
#include "WBReportNodes.h"
#include "WBUserProperties.h"

#include "CATIDOMElement.h"
#include "CATIDOMNodeList.h"

#include <array>
#include <optional>
#include <span>
#include <vector>

namespace
{

enum class Form
{
    Number,    // each attribute is one number, with either decimal separator
    Breakdown, // each attribute is a list of numbers as the session writes them
    Densities  // a list of densities and its dimensions; the magnitude is that of surfaces
};

struct Row
{
    const char* magnitude;
    const char* header; // where a conversion writes the unit on the document element; or nullptr
    Form form;
    std::span<const char* const> attributes;
};

constexpr const char* kVolumicDensity = "DENSITY"; // the other magnitude of Form::Densities
constexpr std::array kBreakdownAttributes{"WB_Mass_Details"};

// Roots and sections: their conversion names the units that a report always has.
constexpr std::array kTotals{
    Row{"LENGTH", "LengthUnit", Form::Number, kCentreAttributes},
    Row{"MASS", "MassUnit", Form::Number, kMassAttributes},
    Row{"INERTIAMOMENT", "InertiaMomentUnit", Form::Number, kInertiaAttributes}};

// Part instances alone have densities, so that their conversion names the units of these.
constexpr std::array kParts{
    Row{"LENGTH", nullptr, Form::Number, kCentreAttributes},
    Row{"MASS", nullptr, Form::Number, kMassAttributes},
    Row{"MASS", nullptr, Form::Breakdown, kBreakdownAttributes},
    Row{"INERTIAMOMENT", nullptr, Form::Number, kInertiaAttributes},
    Row{kVolumicDensity, "DensityUnit", Form::Number, kDensityAttributes},
    Row{"SURFACICMASS", "SurfacicDensityUnit", Form::Densities, kMaterialDensityAttributes}};

/// A row whose units and names have been found.
struct ReadyRow
{
    Form form;
    std::vector<CATDOMName> names;
    WBUnitDisplay display;
    std::optional<WBUnitDisplay> volumic; // Form::Densities alone
};

void RewriteRow(CATIDOMElement& element, ReadyRow& row)
{
    switch (row.form) {
    case Form::Number:
        for (const CATDOMName name : row.names) {
            RewriteValue(element, name, row.display);
        }
        break;
    case Form::Breakdown:
        RewriteBreakdown(element, row.names.front(), row.display);
        break;
    case Form::Densities:
        RewriteDensities(element, row.names, *row.volumic, row.display,
                         WBMissingDimension::Volumic);
        break;
    }
}

/// One conversion or display of a report.
class Walk
{
public:
    Walk(const CATIDOMDocument& document, WBUnitsTask task, WBShowOptions options)
        : m_document(document),
          m_task(task),
          m_options(options),
          m_documentElement(document.DocumentElement())
    {}

    void Totals(const char* element)
    {
        Set(element, kTotals, [](CATIDOMElement&, int) {});
    }
    /// `visit` is called with each part instance after its rows, and its number from 0.
    template <class Visit>
    void Parts(Visit visit)
    {
        Set(kPartInstanceElement, kParts, visit);
    }

private:
    template <class Visit>
    void Set(const char* name, std::span<const Row> rows, Visit visit)
    {
        if (m_documentElement.IsNull()) {
            return;
        }
        const CATIDOMNodeList_var elements = m_document.ElementsByTagName(name);
        if (elements.IsNull()) {
            return;
        }
        std::vector<ReadyRow> ready = Ready(rows);
        ForEachElement(*elements, [&ready, &visit](CATIDOMElement& element, int index) {
            for (ReadyRow& row : ready) {
                RewriteRow(element, row);
            }
            visit(element, index);
        });
    }

    /// The rows whose magnitudes and units are there. A conversion names the unit of every row that
    /// has a header attribute, also where there is nothing to convert.
    std::vector<ReadyRow> Ready(std::span<const Row> rows)
    {
        std::vector<ReadyRow> ready;
        for (const Row& row : rows) {
            const CATICkeMagnitude_var magnitude = KnownMagnitude(row.magnitude);
            if (m_task == WBUnitsTask::Convert && row.header != nullptr) {
                WriteUnitSymbol(*m_documentElement, row.header, magnitude);
            }
            const std::optional<WBUnitDisplay> display = DisplayOf(magnitude, m_task, m_options);
            const bool isPair = row.form == Form::Densities;
            const std::optional<WBUnitDisplay> volumic =
                isPair ? DisplayOf(KnownMagnitude(kVolumicDensity), m_task, m_options)
                       : std::nullopt;
            if (display && (volumic || !isPair)) {
                ready.push_back({row.form, NamesIn(m_document, row.attributes), *display, volumic});
            }
        }
        return ready;
    }

    const CATIDOMDocument& m_document;
    const WBUnitsTask m_task;
    const WBShowOptions m_options;
    CATIDOMElement_var m_documentElement;
};

void RewriteDistributive(const CATIDOMDocument& document, WBUnitsTask task, WBShowOptions options)
{
    const CATICkeMagnitude_var length = KnownMagnitude("LENGTH");
    const CATICkeMagnitude_var mass = KnownMagnitude("MASS");
    const CATICkeMagnitude_var inertia = KnownMagnitude("INERTIAMOMENT");
    const CATICkeMagnitude_var density = KnownMagnitude(kVolumicDensity);
    const CATICkeMagnitude_var surfacicMass = KnownMagnitude("SURFACICMASS");
    const CATICkeMagnitude_var volume = KnownMagnitude("VOLUME");
    if (document.DocumentElement().IsNull()) {
        return;
    }
    for (const char* name : {kSectionElement, kRootElement, kPartInstanceElement}) {
        const CATIDOMNodeList_var elements = document.ElementsByTagName(name);
        RewriteValues(elements, length, kCentreAttributes, task, options);
        RewriteValues(elements, mass, kMassAttributes, task, options);
        RewriteValues(elements, inertia, kInertiaAttributes, task, options);
        RewriteAllDensities(elements, density, surfacicMass, task, options);
        RewriteValues(elements, volume, kVolumeAttributes, task, options);
    }
}

} // namespace

void ConvertReport(const CATIDOMDocument_var& document, WBShowOptions options)
{
    Walk walk(*document, WBUnitsTask::Convert, options);
    WBUserProperties properties(*document, WBUnitsTask::Convert, options, {});
    walk.Totals(kRootElement);
    walk.Parts([&properties](CATIDOMElement& element, int number) {
        properties.RewriteOwn(element, number);
    });
    walk.Totals(kSectionElement);
}

void DisplayReport(const CATIDOMDocument_var& document,
                   const CATListValCATUnicodeString& magnitudeAttributes, WBShowOptions options)
{
    Walk walk(*document, WBUnitsTask::Display, options);
    WBUserProperties properties(*document, WBUnitsTask::Display, options, magnitudeAttributes);
    walk.Totals(kRootElement);
    walk.Totals(kSectionElement);
    walk.Parts([&properties](CATIDOMElement& element, int) { properties.RewriteListed(element); });
}

void ConvertDistributiveReport(const CATIDOMDocument_var& document, WBShowOptions options)
{
    WriteUnitHeader(document);
    RewriteDistributive(*document, WBUnitsTask::Convert, options);
}

void DisplayDistributiveReport(const CATIDOMDocument_var& document, WBShowOptions options)
{
    RewriteDistributive(*document, WBUnitsTask::Display, options);
}
