#pragma once

#include "WBPending.h"
#include "WBProduct.h"
#include "WBQuantity.h"

#include <string>
#include <string_view>
#include <vector>

namespace wb
{
/// The owner as streams write it.
const char* OwnerField(OwnerKind kind);

/// The property that the quantity is the value of, or null.
const Property* FindProperty(const std::vector<Property>& properties, const Quantity& quantity);

/// A text of the quantity as streams write it: a date has the delimiter that all clients read.
/// property: what it is the value of, null for other quantities.
std::string ShownText(const Property* property, std::string text);
/// The same where nobody knows the property any more: what reads as a date is taken for one.
std::string ShownText(std::string_view fact, std::string text);
} // namespace wb
