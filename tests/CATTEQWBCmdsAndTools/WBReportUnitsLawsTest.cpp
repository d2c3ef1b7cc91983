#include "CATWBServices.h"

#include "CATCkeGlobalFunctions.h"
#include "CATIDOMNamedNodeMap.h"
#include "ModuleSession.h"
#include "PlainDisplay.h"
#include "ReportDocuments.h"
#include "TestMagnitude.h"

#include <rapidcheck.h>

#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

// The four operations on whole reports, held against the plainest way to do the same: one element,
// one attribute, one text after the other, through the document's own operations.

namespace
{

using Texts = std::vector<std::string>;

const Texts kCentre{"COGx", "COGy", "COGz"};
const Texts kMasses{"WB_Mass", "WB_Lower_deviation", "WB_Upper_deviation"};
const Texts kInertia{"MOIxx", "MOIyy", "MOIzz", "POIxy", "POIxz", "POIyz"};
const std::string kHint = "__magnitude__";

// A dictionary in which anything may be missing

CATICkeParmDictionary_var AnyDictionary()
{
    auto* dictionary = new TestDictionary;
    for (const char* name :
         {"LENGTH", "MASS", "INERTIAMOMENT", "DENSITY", "SURFACICMASS", "VOLUME", "OWN"}) {
        const int lack = *rc::gen::inRange(0, 20);
        if (lack != 0) {
            dictionary->magnitudes[name] =
                MagnitudeOf(lack == 1 ? CATICkeUnit_var() : AnyLookUnit(),
                            lack == 2 ? CATICkeUnit_var() : AnyLookUnit());
        }
    }
    return CATICkeParmDictionary_var::Adopt(dictionary);
}

/// The session has any dictionary, and any locale, while this lives.
class AnySession
{
public:
    AnySession() : m_locale(AnyLocale())
    {
        CATCkeGlobalFunctions::SetParmDictionary(AnyDictionary());
    }
    ~AnySession() { CATCkeGlobalFunctions::SetParmDictionary({}); }
    AnySession(const AnySession&) = delete;
    AnySession& operator=(const AnySession&) = delete;

private:
    NumberLocale m_locale;
};

CATICkeMagnitude_var Magnitude(const std::string& name)
{
    return CATCkeGlobalFunctions::GetParmDictionary()->FindMagnitude(name);
}

// Any report

std::string AnyNumberText()
{
    if (*rc::gen::inRange(0, 2) == 0) {
        return Number(AnyValue());
    }
    return *rc::gen::element<std::string>("1.5", "1,5", "-2.25", "1.2.3", "1,2,3", "1.234,5",
                                          "1,234.5", "12.5kg", " 7", "abc", "", "0", "1e3", ".5");
}

std::string AnyListText()
{
    std::string list;
    const int items = *rc::gen::inRange(0, 4);
    for (int item = 0; item < items; ++item) {
        list += AnyNumberText() + (item + 1 < items ? ";" : *rc::gen::element("", "", ";", ";;"));
    }
    return list;
}

std::string AnyDimensionsText()
{
    std::string list;
    const int items = *rc::gen::inRange(0, 5);
    for (int item = 0; item < items; ++item) {
        list += *rc::gen::element("2;", "3;", "2.5;", "x;", ";", "-2;", " 2;");
    }
    return list;
}

std::string AnyElement(int depth)
{
    Texts attributes;
    const auto add = [&](const std::string& name, const std::string& text) {
        const auto place = *rc::gen::inRange<std::size_t>(0, attributes.size() + 1);
        attributes.insert(attributes.begin() + static_cast<std::ptrdiff_t>(place),
                          " " + name + "=\"" + text + '"');
    };
    const auto perhaps = [] {
        return *rc::gen::inRange(0, 3) != 0;
    };
    for (const Texts& names :
         {kCentre, kMasses, kInertia, Texts{"WB_Density", "Cut_Volume", "Mass", "Name"}}) {
        for (const std::string& name : names) {
            if (perhaps()) {
                add(name, AnyNumberText());
            }
        }
    }
    if (perhaps()) {
        add("WB_Mass_Details", AnyListText());
    }
    if (perhaps()) {
        add("Density", AnyListText());
        add("Density_dimension", AnyDimensionsText());
    }
    for (const char* property : {"Own", "Unit_mass", "WB_Mass", ""}) {
        if (perhaps() && perhaps()) {
            add(kHint + property,
                *rc::gen::element("OWN", "OWN", "MASS", "VOLUME", "UNKNOWN", "", "mass"));
        }
    }
    for (const char* property : {"Own", "Unit_mass"}) {
        if (perhaps()) {
            add(property, AnyNumberText());
        }
    }

    std::string element = *rc::gen::element("PRC", "PartInstance", "PartInstance", "WB_Section",
                                            "Other", "partinstance");
    std::string text = "<" + element;
    for (const std::string& attribute : attributes) {
        text += attribute;
    }
    text += ">";
    const int children = depth == 0 ? 0 : *rc::gen::inRange(0, 4);
    for (int child = 0; child < children; ++child) {
        text += *rc::gen::element("", "<!--PRC-->", "text") + AnyElement(depth - 1);
    }
    return text + "</" + element + ">";
}

// The plain way

struct Options
{
    unsigned char withSymbol;
    int decimals;
    bool convert;
};

enum class Rule
{
    Everywhere, // every separator of the other kind is replaced
    First,      // the first one is
    None        // the text is read as it stands
};

double Read(std::string text, Rule rule)
{
    const bool sessionWritesPoint =
        CATUnicodeString::FromReal(0.12345, "%.15g").ToStdString().find('.') != std::string::npos;
    const bool textHasPoint = text.find('.') != std::string::npos;
    if (rule != Rule::None && textHasPoint != sessionWritesPoint) {
        const char from = textHasPoint ? '.' : ',';
        const char to = textHasPoint ? ',' : '.';
        std::size_t place = text.find(from);
        while (place != std::string::npos) {
            text[place] = to;
            place = rule == Rule::First ? std::string::npos : text.find(from, place);
        }
    }
    return std::strtod(text.c_str(), nullptr);
}

Texts Split(const std::string& text)
{
    Texts items(1);
    for (const char character : text) {
        if (character == ';') {
            items.emplace_back();
        } else {
            items.back() += character;
        }
    }
    return items;
}

class PlainWay
{
public:
    PlainWay(CATIDOMDocument_var document, Options options)
        : m_document(std::move(document)), m_options(options)
    {}

    const Texts& Lines() const { return m_lines; }

    void ConvertReport()
    {
        for (const char* set : {"PRC", "PartInstance", "WB_Section"}) {
            const bool isInstance = set == std::string("PartInstance");
            const Rule rule = set == std::string("WB_Section") ? Rule::First : Rule::Everywhere;
            ForSet(set, rule, !isInstance);
            if (isInstance) {
                Instances(rule);
                for (int i = 0; i < Length(set); ++i) {
                    UserPropertiesOfMap(Element(set, i), i);
                }
            }
        }
    }

    void DisplayReport(const CATListValCATUnicodeString& hints)
    {
        ForSet("PRC", Rule::Everywhere, false);
        ForSet("WB_Section", Rule::Everywhere, false);
        ForSet("PartInstance", Rule::First, false);
        Instances(Rule::First);
        for (int i = 0; i < Length("PartInstance"); ++i) {
            for (int position = 1; position <= hints.Size(); ++position) {
                UserPropertyOfList(Element("PartInstance", i), hints[position].ToStdString());
            }
        }
    }

    void Distributive()
    {
        if (m_options.convert) {
            for (const auto& [attribute, magnitude] :
                 std::vector<std::pair<const char*, const char*>>{
                     {"LengthUnit", "LENGTH"},
                     {"MassUnit", "MASS"},
                     {"InertiaMomentUnit", "INERTIAMOMENT"},
                     {"DensityUnit", "DENSITY"},
                     {"SurfacicDensityUnit", "SURFACICMASS"},
                     {"VolumeUnit", "VOLUME"}}) {
                Header(attribute, magnitude);
            }
        }
        for (const char* set : {"WB_Section", "PRC", "PartInstance"}) {
            ForSet(set, Rule::Everywhere, false);
            if (HasUnits("DENSITY") && HasUnits("SURFACICMASS")) {
                Values(set, {"WB_Density"}, "DENSITY", Rule::Everywhere);
                Densities(set, true);
            }
            Values(set, {"Cut_Volume"}, "VOLUME", Rule::Everywhere);
        }
    }

private:
    int Length(const std::string& set) const
    {
        return m_document->ElementsByTagName(set)->Length();
    }
    CATIDOMElement_var Element(const std::string& set, int index) const
    {
        return m_document->ElementsByTagName(set)->Item(index);
    }
    static bool Has(const CATIDOMElement_var& element, const std::string& name)
    {
        CATUnicodeString text;
        return element->GetAttribute(name, text) == S_OK;
    }
    static std::string Text(const CATIDOMElement_var& element, const std::string& name)
    {
        CATUnicodeString text;
        element->GetAttribute(name, text);
        return text.ToStdString();
    }

    CATICkeUnit_var Target(const std::string& magnitude) const
    {
        return Magnitude(magnitude)->CurrentUnit();
    }
    CATICkeUnit_var Source(const std::string& magnitude) const
    {
        return m_options.convert ? Magnitude(magnitude)->StorageUnit()
                                 : Magnitude(magnitude)->CurrentUnit();
    }
    bool HasUnits(const std::string& magnitude) const
    {
        return !Magnitude(magnitude).IsNull() && !Target(magnitude).IsNull() &&
               !Source(magnitude).IsNull();
    }
    std::string Show(const std::string& text, const std::string& magnitude, Rule rule) const
    {
        return PlainDisplay(Target(magnitude), Source(magnitude), Read(text, rule),
                            m_options.withSymbol, m_options.decimals);
    }

    void Header(const char* attribute, const std::string& magnitude) const
    {
        if (!Magnitude(magnitude).IsNull() && !Target(magnitude).IsNull()) {
            m_document->DocumentElement()->SetAttribute(attribute, Target(magnitude)->Symbol());
        }
    }
    void Values(const std::string& set, const Texts& names, const std::string& magnitude,
                Rule rule) const
    {
        if (!HasUnits(magnitude)) {
            return;
        }
        for (int i = 0; i < Length(set); ++i) {
            for (const std::string& name : names) {
                const CATIDOMElement_var element = Element(set, i);
                if (Has(element, name)) {
                    element->SetAttribute(name, Show(Text(element, name), magnitude, rule));
                }
            }
        }
    }
    /// What every element of a report has.
    void ForSet(const std::string& set, Rule rule, bool writesHeader) const
    {
        const bool isSectionOfDisplay = !m_options.convert && set == "WB_Section";
        if (writesHeader && m_options.convert) {
            Header("LengthUnit", "LENGTH");
            Header("MassUnit", "MASS");
            Header("InertiaMomentUnit", "INERTIAMOMENT");
        }
        Values(set, kCentre, "LENGTH", rule);
        Values(set, kMasses, "MASS", rule);
        Values(set, kInertia, "INERTIAMOMENT", isSectionOfDisplay ? Rule::First : rule);
    }
    void Densities(const std::string& set, bool carriesOver) const
    {
        for (int i = 0; i < Length(set); ++i) {
            const CATIDOMElement_var element = Element(set, i);
            if (!Has(element, "Density") || !Has(element, "Density_dimension")) {
                continue;
            }
            const Texts values = Split(Text(element, "Density"));
            const Texts dimensions = Split(Text(element, "Density_dimension"));
            std::string shown;
            int dimension = 0;
            for (std::size_t k = 0; k < values.size() && !values[k].empty(); ++k) {
                dimension = carriesOver ? dimension : 0;
                if (k < dimensions.size()) {
                    CATUnicodeString(dimensions[k]).ReadInt(dimension);
                }
                shown += (k == 0 ? "" : "; ") +
                         Show(values[k], dimension == 2 ? "SURFACICMASS" : "DENSITY", Rule::First);
            }
            element->SetAttribute("Density", shown);
        }
    }
    /// What the part instances of a report have beside.
    void Instances(Rule rule) const
    {
        const std::string set = "PartInstance";
        if (HasUnits("MASS")) {
            for (int i = 0; i < Length(set); ++i) {
                const CATIDOMElement_var element = Element(set, i);
                if (!Has(element, "WB_Mass_Details")) {
                    continue;
                }
                std::string shown;
                for (const std::string& item : Split(Text(element, "WB_Mass_Details"))) {
                    shown += Show(item, "MASS", Rule::None) + ";";
                }
                shown.pop_back();
                element->SetAttribute("WB_Mass_Details", shown);
            }
        }
        if (m_options.convert) {
            Header("DensityUnit", "DENSITY");
            Header("SurfacicDensityUnit", "SURFACICMASS");
        }
        Values(set, {"WB_Density"}, "DENSITY", rule);
        if (HasUnits("DENSITY") && HasUnits("SURFACICMASS")) {
            Densities(set, false);
        }
    }

    void UserPropertiesOfMap(const CATIDOMElement_var& element, int i)
    {
        const CATIDOMNamedNodeMap_var map = element->Attributes();
        for (int k = 1; k <= map->Length(); ++k) {
            const CATIDOMNode_var attribute = map->Item(k);
            if (attribute.IsNull()) {
                m_lines.push_back("Error encountered: attribute " + std::to_string(k) +
                                  " is null for the node at iteration " + std::to_string(i));
                continue;
            }
            const std::string name = attribute->NodeName().ToStdString();
            if (name.substr(0, kHint.size()) == kHint) {
                UserProperty(element, attribute->NodeValue().ToStdString(),
                             name.substr(kHint.size()));
            }
        }
    }
    void UserPropertyOfList(const CATIDOMElement_var& element, const std::string& hint)
    {
        if (Has(element, hint)) {
            UserProperty(element, Text(element, hint), hint.substr(kHint.size()));
        }
    }
    void UserProperty(const CATIDOMElement_var& element, const std::string& magnitude,
                      const std::string& name)
    {
        if (!Has(element, name)) {
            m_lines.push_back("Error encountered: could not find the XML attribute " + name +
                              " on the current node!");
        } else if (Magnitude(magnitude).IsNull()) {
            m_lines.push_back("Error encountered: could not find the magnitude " + magnitude +
                              " for " + name + "!");
        } else if (!HasUnits(magnitude)) {
            m_lines.push_back("Error encountered: could not find the current" +
                              std::string(m_options.convert ? "/storage" : "") +
                              " unit for magnitude " + magnitude + " associated with " + name +
                              "!");
        } else {
            element->SetAttribute(name, Show(Text(element, name), magnitude, Rule::First));
        }
    }

    CATIDOMDocument_var m_document;
    Options m_options;
    Texts m_lines;
};

CATListValCATUnicodeString AnyHints()
{
    CATListValCATUnicodeString hints;
    for (const char* property : {"Own", "WB_Mass", "Unit_mass", "Nowhere", ""}) {
        if (*rc::gen::inRange(0, 2) == 0) {
            hints.Append(kHint + property);
        }
    }
    return hints;
}

constexpr int kDepth = 2;

// Does the same to one report by an operation and in the plain way; what they leave and what they
// say must be the same.
template <class Operation, class Plain>
void Compare(bool convert, Operation operation, Plain plain)
{
    EXPECT_TRUE(rc::check([&] {
        const AnySession session;
        const std::string text = AnyElement(kDepth);
        const Options options{static_cast<unsigned char>(*rc::gen::element(0, 1, 2)), AnyDecimals(),
                              convert};
        const CATListValCATUnicodeString hints = AnyHints();
        const CATIDOMDocument_var expected = Parsed(text);
        PlainWay way(expected, options);
        plain(way, hints);

        CATIDOMDocument_var document = Parsed(text);
        const DiagnosticCapture heard;
        operation(document, hints, options);
        RC_ASSERT(Written(document) == Written(expected));
        RC_ASSERT(heard.Lines() == way.Lines());
    }));
}

TEST(ReportUnitsLaws, ConversionIsThePlainWay)
{
    Compare(
        true,
        [](CATIDOMDocument_var& document, const CATListValCATUnicodeString&,
           const Options& options) {
            CATWBServices::ManageUnitsConversion(document, options.withSymbol, options.decimals);
        },
        [](PlainWay& way, const CATListValCATUnicodeString&) { way.ConvertReport(); });
}

TEST(ReportUnitsLaws, DisplayIsThePlainWay)
{
    Compare(
        false,
        [](CATIDOMDocument_var& document, const CATListValCATUnicodeString& hints,
           const Options& options) {
            CATWBServices::ManageUnitsDisplay(document, hints, options.withSymbol,
                                              options.decimals);
        },
        [](PlainWay& way, const CATListValCATUnicodeString& hints) { way.DisplayReport(hints); });
}

TEST(ReportUnitsLaws, ConversionOfADistributiveReportIsThePlainWay)
{
    Compare(
        true,
        [](CATIDOMDocument_var& document, const CATListValCATUnicodeString&,
           const Options& options) {
            CATWBServices::ManageUnitsConversionDistributive(document, options.withSymbol,
                                                             options.decimals);
        },
        [](PlainWay& way, const CATListValCATUnicodeString&) { way.Distributive(); });
}

TEST(ReportUnitsLaws, DisplayOfADistributiveReportIsThePlainWay)
{
    Compare(
        false,
        [](CATIDOMDocument_var& document, const CATListValCATUnicodeString&,
           const Options& options) {
            CATWBServices::ManageUnitsDisplayDistributive(document, options.withSymbol,
                                                          options.decimals);
        },
        [](PlainWay& way, const CATListValCATUnicodeString&) { way.Distributive(); });
}

} // namespace
