#include "ReportText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <vector>

namespace
{

constexpr std::size_t kPieceBytes = 65536;
constexpr int kMostMaterialsOfAnInstance = 3;
constexpr double kLengthSteps = 1e3;       // to the micrometre
constexpr double kTypedInertiaSteps = 1e6; // to the square millimetre times a kilogram
constexpr double kMassSteps = 1e6;         // to the milligram

struct Material
{
    const char* name;
    double density; // kg/m3, or kg/m2 of a surfacic one
    int dimension;  // 2 surfacic, 3 volumic
};
constexpr std::array kMaterials{
    Material{"Al 2024-T3", 2780.0, 3},           Material{"Steel 1.4301", 7900.0, 3},
    Material{"Ti-6Al-4V <annealed>", 4430.0, 3}, Material{"Glass & epoxy", 1850.5, 3},
    Material{"Sealant 5 \xC2\xB5m", 1.35, 2},    Material{"Paint", 0.125, 2},
    Material{R"(PA 6.6 "black")", 1140.0, 3},    Material{"Copper", 8960.0, 3},
};
constexpr std::array kMassTypes{"Estimated", "Calculated", "Supplier", "Weighed"};
constexpr std::array kSuppliers{"Works 1", "Works 2", "Foundry & Sons"};

/// Numbers that look like chance and are the same everywhere.
class Chance
{
public:
    explicit Chance(std::uint64_t seed) : m_state(seed) {}
    /// From 0 up to, not including, 1.
    double Share() { return static_cast<double>(Next() >> 11) * 0x1p-53; }
    double Between(double low, double high) { return low + (high - low) * Share(); }
    /// From 0 to count - 1.
    int Below(int count) { return static_cast<int>(Next() % static_cast<std::uint64_t>(count)); }

private:
    std::uint64_t Next()
    {
        m_state += 0x9E3779B97F4A7C15U;
        std::uint64_t mixed = m_state;
        mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9U;
        mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBU;
        return mixed ^ (mixed >> 31);
    }

    std::uint64_t m_state;
};

double Rounded(double value, double steps)
{
    return std::round(value * steps) / steps;
}

/// What an element says of its mass.
struct Body
{
    std::array<double, 3> centre{};   // mm
    double mass = 0.0;                // kg
    std::array<double, 3> moments{};  // kg.m2: xx, yy, zz
    std::array<double, 3> products{}; // kg.m2: xy, xz, yz
    std::vector<int> materials;
};

/// A box of some size and mass somewhere in the product, a little turned. Half of the values were
/// typed, with some decimals; the others come from a calculation and have all their digits.
Body MakeBody(Chance& chance)
{
    Body body;
    const bool typed = chance.Below(2) == 0;
    for (double& coordinate : body.centre) {
        coordinate = chance.Between(-25000.0, 25000.0);
        coordinate = typed ? Rounded(coordinate, kLengthSteps) : coordinate;
    }
    body.mass = Rounded(std::pow(10.0, chance.Between(-1.0, 3.0)), kMassSteps);
    std::array<double, 3> squares{};
    for (double& square : squares) {
        const double side = chance.Between(0.02, 1.5);
        square = side * side;
    }
    for (std::size_t axis = 0; axis < 3; ++axis) {
        body.moments[axis] = body.mass / 12.0 * (squares[(axis + 1) % 3] + squares[(axis + 2) % 3]);
    }
    const double least = *std::min_element(body.moments.begin(), body.moments.end());
    for (double& product : body.products) {
        product = least * chance.Between(-0.1, 0.1);
    }
    if (typed) {
        for (std::size_t axis = 0; axis < 3; ++axis) {
            body.moments[axis] = Rounded(body.moments[axis], kTypedInertiaSteps);
            body.products[axis] = Rounded(body.products[axis], kTypedInertiaSteps);
        }
    }
    const int count = 1 + chance.Below(kMostMaterialsOfAnInstance);
    for (int index = 0; index < count; ++index) {
        body.materials.push_back(chance.Below(static_cast<int>(kMaterials.size())));
    }
    return body;
}

class Writer
{
public:
    Writer(const ReportOptions& options, const ReportSink& sink)
        : m_options(options), m_sink(sink), m_chance(options.seed)
    {
        m_piece.reserve(kPieceBytes + 4096);
    }

    void WriteDocument()
    {
        m_piece += R"(<?xml version="1.0" encoding="UTF-8"?><WBReport>)";
        WriteRoot();
        m_piece += "</WBReport>";
        m_sink(m_piece);
    }

private:
    void WriteRoot()
    {
        Open("PRC");
        Attribute("V_ID", "PRC-0001");
        Attribute("Name", "Made product");
        WriteBody(MakeBody(m_chance));
        WriteMassTypes();
        m_piece += '>';
        if (m_options.distributive) {
            WriteSections();
            WriteFlatInstances();
        } else {
            WriteStatistics("PRC-0001", "", m_options.materials);
            WriteSections();
            WriteInstances(m_options.instances, "");
        }
        m_piece += "</PRC>";
    }

    void WriteSections()
    {
        for (int index = 1; index <= m_options.sections; ++index) {
            Open("WB_Section");
            Attribute("Name", "Section " + std::to_string(index));
            Attribute("Section_ID", "S" + std::to_string(index));
            WriteBody(MakeBody(m_chance));
            m_piece += "/>";
        }
    }

    void WriteFlatInstances()
    {
        for (int index = 0; index < m_options.instances; ++index) {
            const std::string name = NextInstanceName();
            Open("PartInstance");
            Attribute("Name", "Part of " + name);
            Attribute("Instance_ID", name);
            Attribute("Instance_path", name);
            const Body body = MakeBody(m_chance);
            WriteBody(body);
            WriteMassDetails(body);
            Attribute("WB_Last_calculation_date", NextDate());
            WriteMassTypes();
            Attribute("Supplier", kSuppliers[Pick(kSuppliers.size())]);
            m_piece += "/>";
        }
    }

    /// Shares the instances out among at most `children` trees of nearly the same size.
    void WriteInstances(int count, const std::string& pathAbove)
    {
        const int trees = std::min(count, m_options.children);
        for (int index = 0; index < trees; ++index) {
            WriteInstanceTree(count / trees + (index < count % trees ? 1 : 0), pathAbove);
        }
    }

    void WriteInstanceTree(int count, const std::string& pathAbove)
    {
        const std::string name = NextInstanceName();
        const std::string path = pathAbove.empty() ? name : name + '|' + pathAbove;
        WriteNestedInstance(name, path);
        const bool hasStatistics =
            m_options.statisticsEvery > 0 && m_written % m_options.statisticsEvery == 0;
        if (count == 1 && !hasStatistics) {
            m_piece += "/>";
            return;
        }
        m_piece += '>';
        if (hasStatistics) {
            WriteStatistics(name, path, 1);
        }
        WriteInstances(count - 1, path);
        m_piece += "</PartInstance>";
    }

    // The alias comes first: the first attribute is the one that a conversion never examines.
    void WriteNestedInstance(const std::string& name, const std::string& path)
    {
        Open("PartInstance");
        Attribute("instIdAttrAlias", "Instance_ID");
        Attribute("Instance_ID", name);
        Attribute("Instance_path", path);
        const Body body = MakeBody(m_chance);
        WriteBody(body);
        WriteMassDetails(body);
        WriteDensities(body);
        Attribute("WB_Last_calculation_date", NextDate());
        Attribute("WBActiveMassTypeID", kMassTypes[Pick(kMassTypes.size())]);
        Number("Unit_mass", body.mass);
        Attribute("__magnitude__Unit_mass", "MASS");
        Number("Harness_length", Rounded(m_chance.Between(0.0, 9000.0), kLengthSteps));
        Attribute("__magnitude__Harness_length", "LENGTH");
    }

    /// What every element has; in a distributive report its densities and volume too.
    void WriteBody(const Body& body)
    {
        Number("COGx", body.centre[0]);
        Number("COGy", body.centre[1]);
        Number("COGz", body.centre[2]);
        Number("WB_Mass", body.mass);
        Number("WB_Lower_deviation", Rounded(body.mass * 0.03, kMassSteps));
        Number("WB_Upper_deviation", Rounded(body.mass * 0.05, kMassSteps));
        Number("MOIxx", body.moments[0]);
        Number("MOIyy", body.moments[1]);
        Number("MOIzz", body.moments[2]);
        Number("POIxy", body.products[0]);
        Number("POIxz", body.products[1]);
        Number("POIyz", body.products[2]);
        if (m_options.distributive) {
            WriteDensities(body);
            Number("Cut_Volume", body.mass / kMaterials.front().density);
        }
    }

    void WriteDensities(const Body& body)
    {
        Number("WB_Density", Rounded(m_chance.Between(900.0, 8000.0), 100.0));
        Begin("Density");
        for (std::size_t index = 0; index < body.materials.size(); ++index) {
            m_piece += index == 0 ? "" : ";";
            AppendNumber(MaterialOf(body, index).density);
        }
        m_piece += '"';
        Begin("Density_dimension");
        for (std::size_t index = 0; index < body.materials.size(); ++index) {
            m_piece += index == 0 ? "" : ";";
            m_piece += std::to_string(MaterialOf(body, index).dimension);
        }
        m_piece += '"';
    }

    /// The mass shared out among the materials.
    void WriteMassDetails(const Body& body)
    {
        Begin("WB_Mass_Details");
        double left = body.mass;
        for (std::size_t index = 0; index < body.materials.size(); ++index) {
            const bool isLast = index + 1 == body.materials.size();
            const double part = isLast ? left : left * m_chance.Between(0.1, 0.9);
            left -= part;
            m_piece += index == 0 ? "" : ";";
            AppendNumber(part);
        }
        m_piece += '"';
    }

    void WriteMassTypes()
    {
        Attribute("WBActiveMassTypeID", kMassTypes[Pick(kMassTypes.size())]);
        Attribute("WBLastImposedMassTypeID", kMassTypes[Pick(kMassTypes.size())]);
        Attribute("WBActiveDocumentID", "DOC-" + std::to_string(m_chance.Below(10000)));
    }

    void WriteStatistics(const std::string& name, const std::string& path, int materials)
    {
        for (int index = 0; index < materials; ++index) {
            const Material& material =
                kMaterials[static_cast<std::size_t>(index) % kMaterials.size()];
            BeginStatistic("MaterialStat", name, material.name, path);
            Number("Density", material.density);
            Attribute("Dimension", std::to_string(material.dimension));
            m_piece += "/>";
        }
        for (const char* massType : kMassTypes) {
            BeginStatistic("MassTypeStat", name, massType, path);
            m_piece += "/>";
        }
    }

    void BeginStatistic(const char* element, const std::string& owner, const char* name,
                        const std::string& path)
    {
        Open(element);
        Attribute("InstanceID", owner);
        Attribute("Name", name);
        Number("Mass", Rounded(m_chance.Between(1.0, 900.0), kMassSteps));
        Number("Mass_ratio", m_chance.Between(0.0, 100.0));
        if (!path.empty()) {
            Attribute("InstancePath", path);
        }
    }

    std::string NextInstanceName()
    {
        ++m_written;
        const std::string number = std::to_string(m_written);
        return "P" + std::string(number.size() < 7 ? 7 - number.size() : 0, '0') + number + ".1";
    }
    std::string NextDate()
    {
        const int month = 1 + m_chance.Below(12);
        const int day = 1 + m_chance.Below(28);
        std::string date = "2026/00/00";
        date[5] = static_cast<char>('0' + month / 10);
        date[6] = static_cast<char>('0' + month % 10);
        date[8] = static_cast<char>('0' + day / 10);
        date[9] = static_cast<char>('0' + day % 10);
        return date;
    }
    std::size_t Pick(std::size_t count)
    {
        return static_cast<std::size_t>(m_chance.Below(static_cast<int>(count)));
    }
    static const Material& MaterialOf(const Body& body, std::size_t index)
    {
        return kMaterials[static_cast<std::size_t>(body.materials[index])];
    }

    void Open(const char* element)
    {
        if (m_piece.size() >= kPieceBytes) {
            m_sink(m_piece);
            m_piece.clear();
        }
        m_piece += '<';
        m_piece += element;
    }
    void Begin(const char* attribute)
    {
        m_piece += ' ';
        m_piece += attribute;
        m_piece += "=\"";
    }
    void Attribute(const char* attribute, std::string_view text)
    {
        Begin(attribute);
        for (const char character : text) {
            AppendEscaped(character);
        }
        m_piece += '"';
    }
    void AppendEscaped(char character)
    {
        switch (character) {
        case '&':
            m_piece += "&amp;";
            break;
        case '<':
            m_piece += "&lt;";
            break;
        case '"':
            m_piece += "&quot;";
            break;
        default:
            m_piece += character;
        }
    }
    void Number(const char* attribute, double value)
    {
        Begin(attribute);
        AppendNumber(value);
        m_piece += '"';
    }
    /// As "%.15g" with the report's separator.
    void AppendNumber(double value)
    {
        char digits[40];
        char* const end =
            std::to_chars(digits, digits + sizeof digits, value, std::chars_format::general, 15)
                .ptr;
        std::replace(digits, digits + (end - digits), '.', m_options.separator);
        m_piece.append(digits, end);
    }

    const ReportOptions& m_options;
    const ReportSink& m_sink;
    Chance m_chance;
    std::string m_piece;
    int m_written = 0;
};

} // namespace

std::optional<std::string> ReportProblem(const ReportOptions& options)
{
    if (options.instances < 0 || options.sections < 0 || options.materials < 0 ||
        options.statisticsEvery < 0) {
        return "A number of elements cannot be negative.";
    }
    if (options.children < 2) {
        return "An instance must be allowed at least 2 children.";
    }
    if (options.separator != '.' && options.separator != ',') {
        return "The decimal separator must be \".\" or \",\".";
    }
    return std::nullopt;
}

void WriteReport(const ReportOptions& options, const ReportSink& sink)
{
    Writer(options, sink).WriteDocument();
}

std::string ReportText(const ReportOptions& options)
{
    std::string text;
    WriteReport(options, [&text](std::string_view piece) { text += piece; });
    return text;
}
