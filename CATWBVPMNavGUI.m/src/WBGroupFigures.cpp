#include "WBGroupFigures.h"

#include "CATIDOMElement.h"
#include "CATIDOMNodeList.h"

#include <charconv>
#include <cmath>
#include <functional>

namespace
{

constexpr const char* kInstanceElement = "PartInstance";

std::optional<double> NumberOf(const CATIDOMElement& element, CATDOMName name)
{
    const int index = element.FindAttribute(name);
    return index < 0 ? std::nullopt : WBServerNumber(element.AttributeText(index));
}

} // namespace

std::optional<double> WBServerNumber(std::string_view text)
{
    double value = 0.0;
    const char* const end = text.data() + text.size();
    const auto [last, error] = std::from_chars(text.data(), end, value);
    const bool isNumber = error == std::errc() && last == end && std::isfinite(value);
    return isNumber ? std::optional(value) : std::nullopt;
}

std::size_t WBGroupFigures::PlaceHash::operator()(const Place& place) const
{
    constexpr std::size_t kSpread = 0x9e3779b97f4a7c15U;
    return std::hash<std::string_view>()(place.instance) ^
           (static_cast<std::size_t>(place.parent) * kSpread);
}

WBGroupFigures::WBGroupFigures(const CATIDOMDocument_var& document)
    : m_document(document),
      m_instance(Name("Instance_ID")),
      m_part(Name("Part_ID")),
      m_mass(Name("WB_Mass")),
      m_status(Name("WB_Status")),
      m_centre{Name("COGx"), Name("COGy"), Name("COGz")}
{
    const CATIDOMNodeList_var roots = document->ElementsByTagName("PRC");
    if (roots->Length() > 0) {
        const CATIDOMNode_var root = roots->Item(0);
        m_rootMass = NumberOf(*root->AsElement(), m_mass);
        AddInstancesOf(root, kNone);
    }
}

void WBGroupFigures::AddInstancesOf(const CATIDOMNode_var& parent, int parentRow)
{
    for (CATIDOMNode_var child = parent->FirstChild(); !child.IsNull();
         child = child->NextSibling()) {
        const CATIDOMElement* const element = child->AsElement();
        if (element == nullptr || !(child->NodeName() == kInstanceElement)) {
            continue; // a section
        }
        const int row = Count();
        m_rows.push_back({child, parentRow});
        const int index = element->FindAttribute(m_instance);
        if (index >= 0) {
            m_places.emplace(Place{parentRow, element->AttributeText(index)}, row);
        }
        AddInstancesOf(child, row);
    }
}

int WBGroupFigures::Below(int parent, const CATUnicodeString& instance) const
{
    const auto found = m_places.find(Place{parent, instance.View()});
    return found == m_places.end() ? kNone : found->second;
}

int WBGroupFigures::Find(const WBPickedInstance& picked) const
{
    int row = kNone;
    for (auto name = picked.path.rbegin(); name != picked.path.rend(); ++name) {
        row = Below(row, *name);
        if (row == kNone) {
            return kNone;
        }
    }
    row = Below(row, picked.instance);
    return row != kNone && Text(row, m_part) == picked.part.View() ? row : kNone;
}

WBPickedInstance WBGroupFigures::Instance(int row) const
{
    WBPickedInstance picked{
        Text(row, "Instance_ID"), Text(row, "Part_ID"), Text(row, "Version"), {}};
    for (int above = Parent(row); above != kNone; above = Parent(above)) {
        picked.path.push_back(Text(above, "Instance_ID"));
    }
    return picked;
}

std::optional<std::string_view> WBGroupFigures::Text(int row, CATDOMName name) const
{
    const CATIDOMElement& element = Element(row);
    const int index = element.FindAttribute(name);
    return index < 0 ? std::nullopt : std::optional(element.AttributeText(index));
}

CATUnicodeString WBGroupFigures::Text(int row, std::string_view attribute) const
{
    return Text(row, Name(attribute)).value_or(std::string_view());
}

std::optional<double> WBGroupFigures::Number(int row, CATDOMName name) const
{
    return NumberOf(Element(row), name);
}

std::optional<std::array<double, 3>> WBGroupFigures::Centre(int row) const
{
    std::array<double, 3> centre{};
    for (std::size_t axis = 0; axis < centre.size(); ++axis) {
        const std::optional<double> coordinate = Number(row, m_centre[axis]);
        if (!coordinate) {
            return std::nullopt;
        }
        centre[axis] = *coordinate;
    }
    return centre;
}

bool WBGroupFigures::IsIncomplete(int row) const
{
    const std::string_view status = Text(row, m_status).value_or(std::string_view());
    return status == "no mass" || status == "no centre";
}

int WBGroupFigures::AttributeCount(int row) const
{
    return Element(row).AttributeCount();
}

CATDOMName WBGroupFigures::AttributeName(int row, int index) const
{
    return Element(row).AttributeName(index);
}

std::string_view WBGroupFigures::AttributeText(int row, int index) const
{
    return Element(row).AttributeText(index);
}
