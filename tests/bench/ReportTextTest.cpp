#include "ReportText.h"

#include <gmock/gmock.h>
#include <pugixml.hpp>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <set>
#include <string>
#include <vector>

namespace
{

using testing::ElementsAre;
using testing::IsSupersetOf;
using testing::Optional;

constexpr const char* kNumbers[] = {"COGx",
                                    "COGy",
                                    "COGz",
                                    "WB_Mass",
                                    "WB_Lower_deviation",
                                    "WB_Upper_deviation",
                                    "MOIxx",
                                    "MOIyy",
                                    "MOIzz",
                                    "POIxy",
                                    "POIxz",
                                    "POIyz"};

/// A report read by another parser, with every blank kept.
class ReadReport
{
public:
    explicit ReadReport(const ReportOptions& options)
    {
        const std::string text = ReportText(options);
        const pugi::xml_parse_result result =
            m_document.load_buffer(text.data(), text.size(), pugi::parse_full);
        EXPECT_TRUE(result) << result.description();
    }
    pugi::xml_node Root() const { return m_document.document_element().child("PRC"); }
    std::vector<pugi::xml_node> Nodes(const std::string& name = "") const
    {
        std::vector<pugi::xml_node> nodes;
        Collect(m_document.document_element(), name, nodes);
        return nodes;
    }

private:
    static void Collect(const pugi::xml_node& node, const std::string& name,
                        std::vector<pugi::xml_node>& nodes)
    {
        if (name.empty() || node.name() == name) {
            nodes.push_back(node);
        }
        for (const pugi::xml_node child : node.children()) {
            Collect(child, name, nodes);
        }
    }

    pugi::xml_document m_document;
};

ReportOptions Options(int instances)
{
    ReportOptions options;
    options.instances = instances;
    return options;
}

ReportOptions Distributive(int instances)
{
    ReportOptions options = Options(instances);
    options.distributive = true;
    return options;
}

std::vector<std::string> AttributeNames(const pugi::xml_node& node)
{
    std::vector<std::string> names;
    for (const pugi::xml_attribute attribute : node.attributes()) {
        names.emplace_back(attribute.name());
    }
    return names;
}

int ChildCount(const pugi::xml_node& node, const char* name)
{
    const auto children = node.children(name);
    return static_cast<int>(std::distance(children.begin(), children.end()));
}

std::vector<std::string> Items(const std::string& text, char delimiter)
{
    std::vector<std::string> items(1);
    for (const char character : text) {
        if (character == delimiter) {
            items.emplace_back();
        } else {
            items.back() += character;
        }
    }
    return items;
}

std::string FifteenDigits(const std::string& text)
{
    char shown[64];
    std::snprintf(shown, sizeof shown, "%.15g", std::stod(text));
    return shown;
}

TEST(ReportText, HoldsAsManyElementsAsAskedFor)
{
    ReportOptions options = Options(1234);
    options.sections = 7;
    options.materials = 5;
    options.statisticsEvery = 100;
    const ReadReport report(options);
    EXPECT_EQ(report.Nodes("PRC").size(), 1U);
    EXPECT_EQ(report.Nodes("PartInstance").size(), 1234U);
    EXPECT_EQ(report.Nodes("WB_Section").size(), 7U);
    EXPECT_EQ(ChildCount(report.Root(), "WB_Section"), 7);
    EXPECT_EQ(ChildCount(report.Root(), "MaterialStat"), 5);
    EXPECT_EQ(ChildCount(report.Root(), "MassTypeStat"), 4);
    // Instances 100, 200, ... 1200 have one material and the four mass types.
    EXPECT_EQ(report.Nodes("MaterialStat").size(), 5U + 12U);
    EXPECT_EQ(report.Nodes("MassTypeStat").size(), 4U + 12U * 4U);
}

TEST(ReportText, OfNothingHoldsTheRootAlone)
{
    ReportOptions options = Options(0);
    options.sections = 0;
    options.materials = 0;
    options.statisticsEvery = 0;
    const ReadReport report(options);
    EXPECT_TRUE(report.Nodes("PartInstance").empty());
    EXPECT_TRUE(report.Nodes("WB_Section").empty());
    EXPECT_TRUE(report.Nodes("MaterialStat").empty());
}

TEST(ReportText, StatisticsOfAnInstanceStandBelowItAndNameIt)
{
    ReportOptions options = Options(20);
    options.statisticsEvery = 10;
    const ReadReport report(options);
    int owners = 0;
    for (const pugi::xml_node node : report.Nodes("PartInstance")) {
        owners += node.child("MaterialStat") ? 1 : 0;
        for (const char* kind : {"MaterialStat", "MassTypeStat"}) {
            for (const pugi::xml_node statistic : node.children(kind)) {
                EXPECT_STREQ(statistic.attribute("InstanceID").value(),
                             node.attribute("Instance_ID").value());
                EXPECT_STREQ(statistic.attribute("InstancePath").value(),
                             node.attribute("Instance_path").value());
            }
        }
    }
    EXPECT_EQ(owners, 2);
}

TEST(ReportText, StatisticsHaveTheAttributesOfTheirKind)
{
    const ReadReport report(Options(1));
    EXPECT_THAT(AttributeNames(report.Root().child("MaterialStat")),
                ElementsAre("InstanceID", "Name", "Mass", "Mass_ratio", "Density", "Dimension"));
    EXPECT_THAT(AttributeNames(report.Root().child("MassTypeStat")),
                ElementsAre("InstanceID", "Name", "Mass", "Mass_ratio"));
}

TEST(ReportText, MaterialsAreVolumicAndSurfacic)
{
    const ReadReport report(Options(1));
    std::set<std::string> dimensions;
    for (const pugi::xml_node statistic : report.Nodes("MaterialStat")) {
        dimensions.insert(statistic.attribute("Dimension").value());
    }
    EXPECT_THAT(dimensions, ElementsAre("2", "3"));
}

TEST(ReportText, NamesKeepWhatIsMarkupInXml)
{
    const ReadReport report(Options(1));
    std::set<std::string> names;
    for (const pugi::xml_node statistic : report.Nodes("MaterialStat")) {
        names.insert(statistic.attribute("Name").value());
    }
    EXPECT_THAT(names, IsSupersetOf({"Glass & epoxy", "PA 6.6 \"black\"", "Sealant 5 \xC2\xB5m",
                                     "Ti-6Al-4V <annealed>"}));
}

TEST(ReportText, EveryInstanceHasThese25Attributes)
{
    const ReadReport report(Options(100));
    for (const pugi::xml_node node : report.Nodes("PartInstance")) {
        ASSERT_THAT(AttributeNames(node),
                    ElementsAre("instIdAttrAlias", "Instance_ID", "Instance_path", "COGx", "COGy",
                                "COGz", "WB_Mass", "WB_Lower_deviation", "WB_Upper_deviation",
                                "MOIxx", "MOIyy", "MOIzz", "POIxy", "POIxz", "POIyz",
                                "WB_Mass_Details", "WB_Density", "Density", "Density_dimension",
                                "WB_Last_calculation_date", "WBActiveMassTypeID", "Unit_mass",
                                "__magnitude__Unit_mass", "Harness_length",
                                "__magnitude__Harness_length"));
    }
}

TEST(ReportText, EveryInstanceOfADistributiveReportHasThese25Attributes)
{
    const ReadReport report(Distributive(100));
    for (const pugi::xml_node node : report.Nodes("PartInstance")) {
        ASSERT_THAT(AttributeNames(node),
                    ElementsAre("Name", "Instance_ID", "Instance_path", "COGx", "COGy", "COGz",
                                "WB_Mass", "WB_Lower_deviation", "WB_Upper_deviation", "MOIxx",
                                "MOIyy", "MOIzz", "POIxy", "POIxz", "POIyz", "WB_Density",
                                "Density", "Density_dimension", "Cut_Volume", "WB_Mass_Details",
                                "WB_Last_calculation_date", "WBActiveMassTypeID",
                                "WBLastImposedMassTypeID", "WBActiveDocumentID", "Supplier"));
    }
}

TEST(ReportText, RootAndSectionsOfADistributiveReportHaveDensitiesAndAVolume)
{
    const ReadReport report(Distributive(1));
    for (const pugi::xml_node node : {report.Root(), report.Root().child("WB_Section")}) {
        for (const char* name : {"WB_Density", "Density", "Density_dimension", "Cut_Volume"}) {
            EXPECT_TRUE(node.attribute(name)) << node.name() << ' ' << name;
        }
    }
}

TEST(ReportText, RootAndSectionsHaveCentreMassAndInertiaAlone)
{
    const ReadReport report(Options(1));
    for (const pugi::xml_node node : {report.Root(), report.Root().child("WB_Section")}) {
        for (const char* name : kNumbers) {
            EXPECT_TRUE(node.attribute(name)) << node.name() << ' ' << name;
        }
        for (const char* name : {"WB_Density", "Density", "Cut_Volume", "WB_Mass_Details"}) {
            EXPECT_FALSE(node.attribute(name)) << node.name() << ' ' << name;
        }
    }
}

TEST(ReportText, TheRootNamesItsDocumentAndMassTypes)
{
    const ReadReport report(Options(1));
    const pugi::xml_node root = report.Root();
    for (const char* name :
         {"V_ID", "WBActiveMassTypeID", "WBLastImposedMassTypeID", "WBActiveDocumentID"}) {
        EXPECT_STRNE(root.attribute(name).value(), "") << name;
    }
}

TEST(ReportText, InstancesStandInOneAnotherUpToTheNumberOfChildren)
{
    ReportOptions options = Options(500);
    options.children = 3;
    const ReadReport report(options);
    EXPECT_EQ(ChildCount(report.Root(), "PartInstance"), 3);
    for (const pugi::xml_node node : report.Nodes("PartInstance")) {
        EXPECT_LE(ChildCount(node, "PartInstance"), 3);
        const std::string parent = node.parent().name();
        EXPECT_TRUE(parent == "PRC" || parent == "PartInstance") << parent;
    }
}

TEST(ReportText, APathGoesFromTheInstanceUpToJustBelowTheRoot)
{
    const ReadReport report(Options(300));
    for (const pugi::xml_node node : report.Nodes("PartInstance")) {
        std::string path;
        for (pugi::xml_node at = node; std::string(at.name()) == "PartInstance"; at = at.parent()) {
            path += path.empty() ? "" : "|";
            path += at.attribute("Instance_ID").value();
        }
        ASSERT_EQ(node.attribute("Instance_path").value(), path);
    }
}

TEST(ReportText, TheAliasNamesAnIdentifierThatNoOtherInstanceHas)
{
    std::set<std::string> identifiers;
    const ReadReport report(Options(300));
    for (const pugi::xml_node node : report.Nodes("PartInstance")) {
        const char* const name = node.attribute("instIdAttrAlias").value();
        EXPECT_TRUE(identifiers.insert(node.attribute(name).value()).second);
    }
    EXPECT_FALSE(identifiers.contains(""));
}

TEST(ReportText, MagnitudesStandBesideThePropertiesThatTheyBelongTo)
{
    const ReadReport report(Options(10));
    for (const pugi::xml_node node : report.Nodes("PartInstance")) {
        EXPECT_STREQ(node.attribute("__magnitude__Unit_mass").value(), "MASS");
        EXPECT_STREQ(node.attribute("__magnitude__Harness_length").value(), "LENGTH");
    }
}

TEST(ReportText, ADistributiveReportIsFlat)
{
    const ReadReport report(Distributive(50));
    EXPECT_EQ(ChildCount(report.Root(), "PartInstance"), 50);
    EXPECT_EQ(ChildCount(report.Root(), "WB_Section"), 10);
    EXPECT_TRUE(report.Nodes("MaterialStat").empty());
    EXPECT_TRUE(report.Nodes("MassTypeStat").empty());
}

TEST(ReportText, NothingStandsBetweenElements)
{
    for (const ReportOptions& options : {Options(200), Distributive(200)}) {
        const ReadReport report(options);
        for (const pugi::xml_node node : report.Nodes()) {
            ASSERT_EQ(node.type(), pugi::node_element);
        }
    }
}

TEST(ReportText, NoAttributeIsEmpty)
{
    for (const ReportOptions& options : {Options(1000), Distributive(1000)}) {
        const ReadReport report(options);
        for (const pugi::xml_node node : report.Nodes()) {
            for (const pugi::xml_attribute attribute : node.attributes()) {
                ASSERT_STRNE(attribute.value(), "") << attribute.name();
            }
        }
    }
}

TEST(ReportText, NumbersHaveUpToFifteenDigits)
{
    std::size_t longest = 0;
    const ReadReport report(Options(300));
    for (const pugi::xml_node node : report.Nodes("PartInstance")) {
        for (const char* name : kNumbers) {
            const std::string text = node.attribute(name).value();
            ASSERT_EQ(FifteenDigits(text), text) << name;
            longest = std::max(longest, text.size());
        }
    }
    EXPECT_GE(longest, 16U);
}

TEST(ReportText, ListsOfMaterialsHaveOneItemEachAndTheMassesAddUp)
{
    std::size_t most = 0;
    const ReadReport report(Options(300));
    for (const pugi::xml_node node : report.Nodes("PartInstance")) {
        const auto details = Items(node.attribute("WB_Mass_Details").value(), ';');
        const auto densities = Items(node.attribute("Density").value(), ';');
        const auto dimensions = Items(node.attribute("Density_dimension").value(), ';');
        ASSERT_EQ(details.size(), densities.size());
        ASSERT_EQ(details.size(), dimensions.size());
        double sum = 0.0;
        for (const std::string& item : details) {
            sum += std::stod(item);
        }
        const double mass = node.attribute("WB_Mass").as_double();
        ASSERT_NEAR(sum, mass, 1e-9 * mass);
        most = std::max(most, details.size());
    }
    EXPECT_EQ(most, 3U);
}

TEST(ReportText, MomentsAreThoseOfABody)
{
    // Each moment of a body is at most the sum of the other two.
    const ReadReport report(Options(300));
    for (const pugi::xml_node node : report.Nodes("PartInstance")) {
        const double xx = node.attribute("MOIxx").as_double();
        const double yy = node.attribute("MOIyy").as_double();
        const double zz = node.attribute("MOIzz").as_double();
        ASSERT_TRUE(xx <= yy + zz && yy <= xx + zz && zz <= xx + yy) << xx << ' ' << yy;
        ASSERT_LT(std::abs(node.attribute("POIxy").as_double()), std::min(xx, yy));
    }
}

TEST(ReportText, WithACommaIsTheSameReportInOtherLetters)
{
    ReportOptions options = Options(100);
    options.separator = ',';
    const ReadReport commas(options);
    const ReadReport points(Options(100));
    const auto left = points.Nodes("PartInstance");
    const auto right = commas.Nodes("PartInstance");
    ASSERT_EQ(left.size(), right.size());
    for (std::size_t index = 0; index < left.size(); ++index) {
        for (const char* name :
             {"COGx", "MOIxx", "WB_Density", "Density", "WB_Mass_Details", "Unit_mass"}) {
            std::string text = left[index].attribute(name).value();
            std::replace(text.begin(), text.end(), '.', ',');
            ASSERT_EQ(right[index].attribute(name).value(), text);
        }
        // Names keep their point.
        ASSERT_STREQ(right[index].attribute("Instance_ID").value(),
                     left[index].attribute("Instance_ID").value());
    }
}

TEST(ReportText, IsTheSameForTheSameSeedAndAnotherForAnother)
{
    ReportOptions options = Options(100);
    const std::string text = ReportText(options);
    EXPECT_EQ(ReportText(options), text);
    options.seed = 2;
    EXPECT_NE(ReportText(options), text);
}

TEST(ReportText, ComesInPiecesThatMakeTheWholeText)
{
    const ReportOptions options = Options(1000);
    std::string joined;
    int pieces = 0;
    WriteReport(options, [&](std::string_view piece) {
        joined += piece;
        ++pieces;
    });
    EXPECT_EQ(joined, ReportText(options));
    EXPECT_GT(pieces, 5);
}

TEST(ReportProblem, SaysWhatIsWrong)
{
    const auto Changed = [](auto change) {
        ReportOptions options;
        change(options);
        return ReportProblem(options);
    };
    EXPECT_EQ(Changed([](ReportOptions&) {}), std::nullopt);
    EXPECT_EQ(Changed([](ReportOptions& options) { options.separator = ','; }), std::nullopt);
    const std::string negative = "A number of elements cannot be negative.";
    EXPECT_THAT(Changed([](ReportOptions& options) { options.instances = -1; }),
                Optional(negative));
    EXPECT_THAT(Changed([](ReportOptions& options) { options.sections = -1; }), Optional(negative));
    EXPECT_THAT(Changed([](ReportOptions& options) { options.materials = -1; }),
                Optional(negative));
    EXPECT_THAT(Changed([](ReportOptions& options) { options.statisticsEvery = -1; }),
                Optional(negative));
    EXPECT_THAT(Changed([](ReportOptions& options) { options.children = 1; }),
                Optional(std::string("An instance must be allowed at least 2 children.")));
    EXPECT_THAT(Changed([](ReportOptions& options) { options.separator = ';'; }),
                Optional(std::string("The decimal separator must be \".\" or \",\".")));
}

} // namespace
