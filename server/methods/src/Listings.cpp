#include "Methods.h"
#include "Request.h"
#include "XmlText.h"

#include "CATENOWBCSCommonDefinitions.h"

namespace wb
{
namespace
{
void AppendElement(std::string& xml, const char* tag, std::string_view name)
{
    xml.append("<").append(tag);
    XmlAttributes(xml).Add("name", name);
    xml += "/>";
}
} // namespace

std::string ListRoots(const MethodCall& call, std::string_view)
{
    const auto roots = call.store.Roots();
    AnswerText answer;
    answer.Add(roots.size());
    for (const PartLine& root : roots) {
        answer.Add(root.identifier).Add(root.version).Add(root.name).Add(PartTypeName(root.type));
    }
    return answer.Take();
}

std::string ListUses(const MethodCall& call, std::string_view text)
{
    Request request(text);
    const std::string_view identifier = request.Text("part");
    const std::string_view version = request.Text("version");
    request.End();
    const auto part = call.store.FindPart(identifier, version);
    if (!part) {
        throw RequestError("The field part of the request names \"" + std::string(identifier) +
                           "\" in version \"" + std::string(version) +
                           "\", which the database does not hold.");
    }
    const auto uses = call.store.UsesOf(part->id);
    AnswerText answer;
    answer.Add(uses.size());
    for (const UseLine& use : uses) {
        answer.Add(use.instance)
            .Add(use.part.identifier)
            .Add(use.part.version)
            .Add(use.part.name)
            .Add(PartTypeName(use.part.type))
            .Add(use.quantity)
            .Add(use.part.hasUses);
        for (const double coefficient : Coefficients(use.placement)) {
            answer.Add(coefficient);
        }
    }
    return answer.Take();
}

std::string ListMassTypes(const MethodCall& call, std::string_view)
{
    const auto types = call.store.MassTypes();
    AnswerText answer;
    answer.Add(types.size());
    for (const MassType& type : types) {
        answer.Add(type.name)
            .Add(type.order)
            .Add(type.kind == MassType::Kind::Goal ? "goal" : "claim")
            .Add(type.category)
            .Add(type.lowerPct)
            .Add(type.upperPct)
            .Add(type.meaning);
    }
    return answer.Take();
}

std::string GetMassTypesAndAttrNames(const MethodCall& call, std::string_view)
{
    std::string xml = "<massTypesAndAttrNames>";
    AppendElement(xml, "massType", CATENOWBCSCommonDefinitions::Computed);
    // A budget is asked for less often than what somebody claims.
    const std::vector<MassType> types = call.store.MassTypes();
    for (const MassType::Kind kind : {MassType::Kind::Claim, MassType::Kind::Goal}) {
        for (const MassType& type : types) {
            if (type.kind == kind) {
                AppendElement(xml, "massType", type.name);
            }
        }
    }
    for (const std::string& name : call.store.PropertyNames()) {
        AppendElement(xml, "attrName", name);
    }
    return xml + "</massTypesAndAttrNames>";
}
} // namespace wb
