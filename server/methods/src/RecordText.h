#pragma once

#include "WBBody.h"
#include "WBProduct.h"

#include <array>
#include <optional>
#include <string_view>
#include <vector>

namespace wb
{
class Request;

/// A record as clients send it back after somebody has changed it. Views of the request's text;
/// nothing is looked up.
struct RecordText
{
    struct Values
    {
        double mass = 0.0;
        std::array<double, 3> centre{};
        Inertia inertia{}; // products + integral
    };
    struct Precision
    {
        bool isAbsolute = false; // kg; else % of the mass
        double lower = 0.0;
        double upper = 0.0;
    };
    struct MassType
    {
        std::string_view name;
        std::optional<Values> values;
        std::optional<Precision> precision;
    };
    struct Property
    {
        std::string_view name;
        bool ofUse = false;
        std::string_view value; // empty: none
    };

    bool hasInstance = false;
    std::string_view part;
    std::string_view version;
    std::vector<MassType> massTypes;
    std::string_view activeType;
    bool hasDensity = false; // density and material count
    double density = 0.0;
    std::string_view material;  // empty: none
    std::string_view appliedOn; // what the material belongs to; empty where the record does not say
    bool materialFirst = false;
    std::vector<Property> properties;

    /// What it says of a mass type, or null.
    const MassType* Find(std::string_view massType) const;
};

/// Reads all that is left of the request. Throws RequestError with a sentence that names the field
/// where it is no record: where it ends early or goes on, where a count or a number is none.
RecordText ReadRecord(Request& request);
} // namespace wb
