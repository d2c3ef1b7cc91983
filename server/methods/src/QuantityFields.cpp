#include "QuantityFields.h"

#include "Request.h"
#include "WBTexts.h"

#include "CATENOWBCSCommonDefinitions.h"

#include <algorithm>

namespace wb
{
const char* OwnerField(OwnerKind kind)
{
    return kind == OwnerKind::Part ? CATENOWBCSCommonDefinitions::partRef
                                   : CATENOWBCSCommonDefinitions::partInst;
}

const Property* FindProperty(const std::vector<Property>& properties, const Quantity& quantity)
{
    if (!quantity.name.starts_with(kPropertyQuantity)) {
        return nullptr;
    }
    const auto found = std::ranges::find(
        properties, std::string_view(quantity.name).substr(kPropertyQuantity.size()),
        &Property::name);
    return found == properties.end() ? nullptr : &*found;
}

std::string ShownText(const Property* property, std::string text)
{
    return property != nullptr && property->isDate ? WireDate(std::move(text)) : text;
}

std::string ShownText(std::string_view fact, std::string text)
{
    const bool isDate = fact.starts_with(kPropertyQuantity) && IsDate(text);
    return isDate ? WireDate(std::move(text)) : text;
}
} // namespace wb
