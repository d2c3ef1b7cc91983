#pragma once

#include "WBKnown.h"
#include "WBProduct.h"

#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace wb
{
/// What somebody changes at a time of a part version or of a use, and what two people may not both
/// change unseen. Its value travels as a text: numbers as "%.15g" writes them with ".", several
/// joined by ";"; an empty text is unknown or none.
///
/// | mass type | name            | text                                                         |
/// |-----------|-----------------|--------------------------------------------------------------|
/// | its name  | mass            | kg                                                           |
/// | its name  | centre          | x;y;z in mm, in the part's axes                              |
/// | its name  | inertia         | Ixx;Iyy;Izz;Ixy;Ixz;Iyz in kg.m2 about the centre, products  |
/// |           |                 | + integral                                                   |
/// | its name  | precision       | percent;LOWER;UPPER, or absolute;LOWER;UPPER in kg           |
/// | empty     | active          | a mass type; empty: nobody chose, so an assembly is summed   |
/// | empty     | density         | kg/m3                                                        |
/// | empty     | material        | its name                                                     |
/// | empty     | density order   | wb or material, of parts alone                               |
/// | empty     | property NAME   | its value: an integer, a number (in storage units where it   |
/// |           |                 | has a magnitude), yes or no, a date yyyy-mm-dd, or any text  |
struct Quantity
{
    std::string massType; // empty: of the owner itself
    std::string name;

    bool operator==(const Quantity&) const = default;
    bool operator<(const Quantity& other) const
    {
        return std::tie(massType, name) < std::tie(other.massType, other.name);
    }
};

constexpr std::string_view kMassQuantity = "mass";
constexpr std::string_view kCentreQuantity = "centre";
constexpr std::string_view kInertiaQuantity = "inertia";
constexpr std::string_view kPrecisionQuantity = "precision";
constexpr std::string_view kActiveQuantity = "active";
constexpr std::string_view kDensityQuantity = "density";
constexpr std::string_view kMaterialQuantity = "material";
constexpr std::string_view kDensityOrderQuantity = "density order";
constexpr std::string_view kPropertyQuantity = "property "; // the property's name follows

/// How messages and the history call it: "mass type Weighed, mass", "density", "property Vendor".
std::string QuantityName(const Quantity& quantity);

/// The same for what an import tells of: the names of the facts that the quantity holds, such as
/// "mass type Weighed, cgx", "mass type Weighed, cgy", ...
std::vector<std::string> FactsOf(const Quantity& quantity);

/// What is stated. Empty where nothing is, and for a quantity that the owner cannot have.
std::string QuantityText(const Part& part, const Quantity& quantity);
std::string QuantityText(const Use& use, const Quantity& quantity);

/// States another value, or with an empty text none. Numbers may have either decimal mark; a date
/// may have "/" for "-"; a text that says what is stated already changes nothing, to the last
/// digit. What was typed in place of the old value is forgotten. A set that says nothing any more
/// goes away. A property that is cleared stays, with an empty value, so that it can be stated
/// again. known: the mass types and materials that there are. Returns a sentence without its full
/// stop, such as "mass type Weighed, mass: found "x", expected a number in kg", and changes nothing
/// then; else an empty text.
std::string SetQuantity(Part& part, const Quantity& quantity, std::string_view text,
                        const KnownProducts& known);
/// type: what is stated of the part that is used; a negative mass is for adjustments alone.
std::string SetQuantity(Use& use, PartType type, const Quantity& quantity, std::string_view text,
                        const KnownProducts& known);

/// Whether sums may change with it. Properties are not summed.
bool TouchesSums(const Quantity& quantity);
} // namespace wb
