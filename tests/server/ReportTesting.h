#pragma once

#include "MethodsTesting.h"
#include "WBNumbers.h"

#include <pugixml.hpp>

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <ctime>
#include <string>
#include <vector>

namespace wbtest
{
/// A report, field by field.
struct Asked
{
    std::string kind = "0";
    std::string ofInstances = "0";
    std::string picks = "0";
    std::string values = "1|*";
    std::string properties = "1|*";
    std::string precision = "Active";
    std::string policy = "0";
    std::string root = "A";
    std::string filter = "0|No Filter";
    std::string defined = "0";

    std::string Text() const
    {
        return kind + "|" + ofInstances + "|" + picks + "|" + values + "|" + properties +
               "|0||||0|0||" + precision + "|" + policy + "|1|" + root + "|" + filter + "|" +
               defined + "|";
    }
};

/// 21 November 2026, 15:04:05 UTC.
inline std::chrono::system_clock::time_point SomeMoment()
{
    return std::chrono::system_clock::from_time_t(1795273445);
}

inline wb::CallContext ContextOf(const std::string& user)
{
    wb::CallContext context;
    context.user = user;
    context.now = SomeMoment;
    return context;
}

/// The process stands in another time zone while it lives.
class TimeZone
{
public:
    explicit TimeZone(const char* zone) { Set(zone); }
    TimeZone(const TimeZone&) = delete;
    TimeZone& operator=(const TimeZone&) = delete;
    ~TimeZone() { Set("UTC0"); }

private:
    static void Set(const char* zone)
    {
        setenv("TZ", zone, 1); // NOLINT(concurrency-mt-unsafe): tests run one by one
        tzset();
    }
};

inline std::string Report(ServedProduct& served, const Asked& asked)
{
    return served.Server().Call("WBMakeReport", asked.Text(), ContextOf("kim"));
}

/// A report as a second reader reads it.
class ReadReport
{
public:
    ReadReport(ServedProduct& served, const Asked& asked) : text(Report(served, asked))
    {
        const auto result = m_document.load_string(text.c_str(), pugi::parse_full);
        EXPECT_TRUE(result) << result.description() << " in " << text;
    }

    pugi::xml_node Root() const { return m_document.document_element(); }
    pugi::xml_node Prc() const { return Root().child("PRC"); }
    /// The instance at a path, "A/S.1".
    pugi::xml_node At(const std::string& path) const
    {
        return m_document.find_node([&](const pugi::xml_node& node) {
            return node.name() == std::string("PartInstance") &&
                   node.attribute("InstancePath").value() == path;
        });
    }

    std::string text;

private:
    pugi::xml_document m_document;
};

inline std::vector<std::string> AttributeNames(const pugi::xml_node& element)
{
    std::vector<std::string> names;
    for (const pugi::xml_attribute& attribute : element.attributes()) {
        names.emplace_back(attribute.name());
    }
    return names;
}

/// What the children of an element say under a name, in document order.
inline std::vector<std::string> Below(const pugi::xml_node& element, const char* tag,
                                      const char* name)
{
    std::vector<std::string> values;
    for (const pugi::xml_node& child : element.children(tag)) {
        values.emplace_back(child.attribute(name).value());
    }
    return values;
}

inline std::string Value(const pugi::xml_node& element, const char* name)
{
    const pugi::xml_attribute attribute = element.attribute(name);
    return attribute ? attribute.value() : "(absent)";
}

inline double Number(const pugi::xml_node& element, const char* name)
{
    return wb::ReadNumber(Value(element, name)).value_or(std::nan(""));
}

/// Two B of 1 kg each below either of two S; names alone.
constexpr const char* kTwice = "parent,instance,part,mass_type,mass [kg]\n"
                               ",,A,,\n"
                               "A,S.1,S,,\n"
                               "A,S.2,S,,\n"
                               "S,B.1,B,Weighed,1\n"
                               "S,B.2,B,,\n";

inline std::vector<std::string> AllPaths(const ReadReport& report)
{
    std::vector<std::string> paths;
    struct Walker : pugi::xml_tree_walker
    {
        std::vector<std::string>& into;
        explicit Walker(std::vector<std::string>& paths) : into(paths) {}
        bool for_each(pugi::xml_node& node) override
        {
            if (node.name() == std::string("PartInstance")) {
                into.emplace_back(node.attribute("InstancePath").value());
            }
            return true;
        }
    };
    Walker walker(paths);
    report.Root().parent().traverse(walker);
    return paths;
}

/// A turned by 90 degrees: two S of two pieces each of a leaf with everything that can be told.
constexpr const char* kRich =
    "parent,instance,part,name,quantity,x [mm],y [mm],z [mm],rz [deg],mass_type,mass [kg],"
    "lower [kg],upper [kg],cgx [mm],cgy [mm],cgz [mm],ixx [kg.m2],iyy [kg.m2],izz [kg.m2],"
    "ixy [kg.m2],ixz [kg.m2],iyz [kg.m2],poi_sign,active,volume [m3],material,"
    "material_density [kg/m3],density [kg/m3],code,source,doc,doc_version,doc_use,p:Vendor,"
    "p:Power [W],p:Built:date,i:Where\n"
    ",,A,Whole,,,,,,,,,,,,,,,,,,,,,,,,,TOP,,,,,,,,\n"
    "A,S.1,S,Sub,2,10,20,30,90,,,,,,,,,,,,,,,,,,,,,,,,,,,,left\n"
    "S,P.1,P,Leaf,2,1,2,3,,Weighed,4,0.5,0.25,5,0,0,1,2,2.5,0.1,0.2,0.3,positive,yes,0.002,Steel,"
    "7800,2000,FUEL,scale 7,DOC,B,active,Smith,12.5,2026-05-31,\n";
} // namespace wbtest
