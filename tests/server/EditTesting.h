#pragma once

#include "FieldsTesting.h"
#include "MethodsTesting.h"

#include <string>
#include <vector>

namespace wbtest
{
/// A wing stands once on the left and, two pieces of it, on the right of a plane, and once in a
/// glider. It has a spar of 10 kg and three ribs of 8 kg, which follow from size and density. The
/// plane's bolt is a standard part with a weight of its own in that one place; the hook has
/// material and density there alone.
constexpr const char* kPlane =
    "parent,instance,part,quantity,standard,values_on,material_on,mass_type,mass [kg],lower_pct,"
    "upper_pct,cgx [mm],cgy [mm],cgz [mm],ixx [kg.m2],iyy [kg.m2],izz [kg.m2],ixy [kg.m2],"
    "ixz [kg.m2],iyz [kg.m2],poi_sign,volume [m3],material,material_density [kg/m3],"
    "density [kg/m3],active,p:Vendor,p:Built:date,p:Holes:int,p:Length [mm],i:Side\n"
    ",,PLANE,,,,,,,,,,,,,,,,,,,,,,,,,,,,\n"
    "PLANE,left,WING,,,,,,,,,,,,,,,,,,,,,,,,,,,,port\n"
    "PLANE,right,WING,2,,,,,,,,,,,,,,,,,,,,,,,,,,,\n"
    "WING,spar,SPAR,,,,,Weighed,10,1,2,1,2,3,4,5,6,0.1,0.2,0.3,positive,,,,,yes,Smith,2026-01-31,4,"
    "12.5,\n"
    "WING,rib,RIB,3,,,,Calculated,,,,0,0,0,,,,,,,,0.001,Steel,8000,,,,,,,\n"
    "PLANE,bolt,BOLT,,yes,instance,,Weighed,0.5,,,,,,,,,,,,,,,,,,,,,,\n"
    "PLANE,hook,HOOK,,,,instance,Estimated,,,,,,,,,,,,,,0.002,Brass,8500,2000,,,,,,\n"
    ",,GLIDER,,,,,,,,,,,,,,,,,,,,,,,,,,,,\n"
    "GLIDER,one,WING,,,,,,,,,,,,,,,,,,,,,,,,,,,,\n";

/// The spar's place on the left side, as requests name it.
constexpr const char* kSpar = "1|spar|SPAR|A|1|left|PLANE|";
constexpr const char* kRib = "1|rib|RIB|A|1|left|PLANE|";
constexpr const char* kBolt = "1|bolt|BOLT|A|0|PLANE|";
constexpr const char* kHook = "0|hook|HOOK|A|0|PLANE|";
constexpr const char* kLeft = "1|left|WING|A|0|PLANE|";
constexpr const char* kRoot = "0||PLANE|A|0|PLANE|";

/// The text of a record as clients send it back.
struct RecordFields
{
    std::string head = "1|SPAR|A|0||";
    std::vector<std::string> massTypes; // each without its last separator
    std::string active = "Weighed|__null__|";
    std::string density = "0|";
    std::string priority = "0|";
    std::vector<std::string> properties;

    std::string Text() const
    {
        std::string text = head + std::to_string(massTypes.size()) + "|";
        for (const std::string& massType : massTypes) {
            text += massType + "|";
        }
        text += active + density + priority + "<userDefinedProps>|" +
                std::to_string(properties.size()) + "|";
        for (const std::string& property : properties) {
            text += property + "|";
        }
        return text + "</userDefinedProps>|";
    }
};

/// The spar's record with its mass and its precision as given.
inline RecordFields SparOf(const std::string& mass, const std::string& precision = "1|0|1|2")
{
    RecordFields record;
    record.massTypes = {"Computed|0|0",
                        "Weighed|1|0|0|" + mass + "|1|2|3|4|5|6|0.2|0.1|0.3|" + precision + "|0"};
    return record;
}

/// The product above, used by several people.
class EditedProduct : public ServedProduct
{
public:
    EditedProduct() { ImportTable(kPlane); }

    std::string As(const std::string& user, const std::string& method,
                   const std::string& request = "")
    {
        wb::CallContext context;
        context.user = user;
        return Server().Call(method, request, context);
    }
    /// Each change is owner, mass type, quantity, stated, seen text.
    std::string Apply(const std::string& user, const std::string& place,
                      const std::vector<std::string>& changes, const RecordFields& record)
    {
        return Apply(user, place, changes, record.Text());
    }
    std::string Apply(const std::string& user, const std::string& place,
                      const std::vector<std::string>& changes, const std::string& record)
    {
        std::string request = place + std::to_string(changes.size()) + "|";
        for (const std::string& change : changes) {
            request += change + "|";
        }
        return As(user, "WBApplyValues", request + record);
    }
    /// The spar's mass becomes another one; it was 10 kg, or seen.
    std::string WeighSpar(const std::string& user, const std::string& mass,
                          const std::string& seen = "10")
    {
        return Apply(user, kSpar, {"PartRef|Weighed|mass|1|" + seen}, SparOf(mass));
    }
    std::string Save(const std::string& user) { return As(user, "WBSaveManagement", "Save"); }
    std::string Abort(const std::string& user) { return As(user, "WBSaveManagement", "Abort"); }
    std::string Pending(const std::string& user) { return As(user, "WBPendingChanges"); }
    std::string Warnings(const std::string& user) { return As(user, "WBWarningMsg"); }
    /// The text of a quantity, that which is stored, and the two flags: "12|10|1|0".
    std::string Stated(const std::string& user, const std::string& place,
                       const std::string& quantity)
    {
        const std::string answer = As(user, "WBGetStatedValues", place);
        const std::size_t at = answer.find("|" + quantity + "|");
        if (at == std::string::npos) {
            return answer;
        }
        const auto fields = Split(answer.substr(at + quantity.size() + 2), '|');
        return fields[0] + "|" + fields[1] + "|" + fields[2] + "|" + fields[3];
    }
    /// What the plane weighs.
    std::string Mass(const std::string& user)
    {
        return Split(As(user, "WBComputeVPMValues",
                        "1|any|any|any|0|0|any|Active|0|1|PLANE|0|No Filter|0|"),
                     '|')
            .front();
    }
};
} // namespace wbtest
