#include "RecordText.h"

#include "Request.h"

#include "CATENOWBCSCommonDefinitions.h"

#include <algorithm>
#include <array>
#include <set>
#include <string>
#include <utility>

namespace wb
{
namespace
{
using Common = CATENOWBCSCommonDefinitions;

[[noreturn]] void Refuse(const char* field, std::string_view found, const char* expected)
{
    throw RequestError(std::string("The field ") + field + " of the request holds \"" +
                       std::string(found) + "\", expected " + expected + ".");
}

/// Empty texts travel as a word of their own.
std::string_view NullableText(Request& request, const char* field)
{
    const std::string_view text = request.Any(field);
    return text == "__null__" ? std::string_view() : text;
}

void ReadWord(Request& request, const char* word)
{
    const std::string_view text = request.Any(word);
    if (text != word) {
        Refuse(word, text, "this very word");
    }
}

RecordText::Values ReadValues(Request& request)
{
    RecordText::Values values;
    // The server derives deviations by itself.
    request.Number("lower deviation");
    request.Number("upper deviation");
    values.mass = request.Number("mass");
    for (const auto& [position, field] :
         {std::pair{0, "centre x"}, {1, "centre y"}, {2, "centre z"}}) {
        values.centre[static_cast<std::size_t>(position)] = request.Number(field);
    }
    // On this stream xz stands before xy.
    constexpr std::array<std::pair<std::size_t, const char*>, 6> kTerms{
        {{0, "Ixx"}, {1, "Iyy"}, {2, "Izz"}, {4, "Ixz"}, {3, "Ixy"}, {5, "Iyz"}}};
    for (const auto& [position, field] : kTerms) {
        values.inertia[position] = request.Number(field);
    }
    return values;
}

RecordText::MassType ReadMassType(Request& request)
{
    RecordText::MassType type;
    type.name = request.Text("mass type");
    const bool isValued = request.Choice("status", Common::PartiallyAssigned) == Common::Assigned;
    if (isValued) {
        type.values = ReadValues(request);
    }
    if (request.Flag("precision type")) {
        RecordText::Precision precision;
        precision.isAbsolute = request.Flag("precision value type");
        precision.lower = request.Number("lower precision");
        precision.upper = request.Number("upper precision");
        type.precision = precision;
    }
    if (isValued) {
        request.Flag("standard part");
    }
    return type;
}

void ReadMassTypes(Request& request, RecordText& record)
{
    std::set<std::string_view> named;
    const std::int64_t count = request.Count("mass type count");
    for (std::int64_t i = 0; i < count; ++i) {
        const RecordText::MassType type = ReadMassType(request);
        if (!named.insert(type.name).second) {
            Refuse("mass type", type.name, "each mass type once");
        }
        record.massTypes.push_back(type);
    }
}

/// The address of what a material is applied to: the instance, the names above it, the root.
void ReadAddress(Request& request)
{
    const std::int64_t count = request.Choice("address count", kDeepest + 2);
    if (count < 2) {
        Refuse("address count", std::to_string(count), "at least 2");
    }
    // Right below the root nothing stands between the two, and an empty field takes that place.
    const std::int64_t fields = std::max<std::int64_t>(count, 3);
    for (std::int64_t i = 0; i < fields; ++i) {
        request.Any("address");
    }
}

void ReadDensity(Request& request, RecordText& record)
{
    record.hasDensity =
        request.Choice("density status", Common::PartiallyAssigned) == Common::Assigned;
    if (!record.hasDensity) {
        return;
    }
    record.density = request.Number("density");
    record.material = NullableText(request, "material");
    if (record.hasInstance || record.material.empty()) {
        return;
    }
    record.appliedOn = request.Any("applied on");
    if (record.appliedOn != Common::partRef && record.appliedOn != Common::partInst) {
        Refuse("applied on", record.appliedOn, "PartRef or PartInst");
    }
    ReadAddress(request);
}

void ReadProperties(Request& request, RecordText& record)
{
    ReadWord(request, "<userDefinedProps>");
    const std::int64_t count = request.Count("property count");
    for (std::int64_t i = 0; i < count; ++i) {
        RecordText::Property property;
        property.name = request.Text("property name");
        request.Count("property type");
        request.Flag("property is-date");
        const std::string_view owner = request.Any("property owner");
        if (owner != "Part" && owner != "Instance") {
            Refuse("property owner", owner, "Part or Instance");
        }
        property.ofUse = owner == "Instance";
        property.value = NullableText(request, "property value");
        record.properties.push_back(property);
    }
    ReadWord(request, "</userDefinedProps>");
}
} // namespace

const RecordText::MassType* RecordText::Find(std::string_view massType) const
{
    const auto found = std::ranges::find(massTypes, massType, &MassType::name);
    return found == massTypes.end() ? nullptr : &*found;
}

RecordText ReadRecord(Request& request)
{
    RecordText record;
    record.hasInstance = request.Flag("has-instance");
    record.part = request.Text("part");
    record.version = request.Text("version");
    request.Any("active document");
    request.Any("active document version");
    ReadMassTypes(request, record);
    record.activeType = request.Any("active mass type");
    request.Any("last imposed mass type");
    ReadDensity(request, record);
    record.materialFirst = request.Flag("density priority");
    ReadProperties(request, record);
    request.End();
    return record;
}
} // namespace wb
