#pragma once

#include "FieldsTesting.h"
#include "MethodsTesting.h"

#include <fstream>
#include <string>
#include <vector>

namespace wbtest
{
/// A computation beside one part, field by field.
struct PartRequest
{
    std::string place; // instance, part, version, count, path
    std::string priority = "0";
    std::string material = "__null__";
    std::string precision = "Active";
    std::string policy = "0";
    std::string entity = "0";
    std::string root = "A";
    std::string filter = "0|No Filter";
    std::string defined = "0";

    std::string Text() const
    {
        return "1|" + place + "|" + priority + "|" + material + "|" + precision + "|" + policy +
               "|" + entity + "|" + root + "|" + filter + "|" + defined + "|";
    }
};

inline std::string ComputePart(ServedProduct& served, const PartRequest& request)
{
    return served.Call("WBCompPartCompute", request.Text());
}

/// What is told of the values that the record holds, or of that computation.
inline std::string DetailsOfRecord(ServedProduct& served, const PartRequest& request)
{
    return served.Call("WBGetValueDetails", "0|" + request.Text());
}
inline std::string DetailsOfComputation(ServedProduct& served, const PartRequest& request)
{
    return served.Call("WBGetValueDetails", "1|" + request.Text());
}

inline std::string Warnings(ServedProduct& served)
{
    return served.Call("WBWarningMsg", "");
}

/// Cells of the expected totals of one node and kind of row, in the order of the file.
inline std::vector<std::vector<std::string>> ExpectedRows(const std::string& product,
                                                          const std::string& node,
                                                          const std::string& mode,
                                                          const std::string& kind)
{
    std::vector<std::vector<std::string>> rows;
    std::ifstream file(DataFile("expected_totals.csv"));
    for (std::string line; std::getline(file, line);) {
        auto row = Split(line, ',');
        row.resize(24);
        if (row[0] == product && row[1] == node && row[2] == mode && row[3] == kind) {
            rows.push_back(std::move(row));
        }
    }
    return rows;
}

/// A cell of a row; an empty one is 0.
inline double Cell(const std::vector<std::string>& row, std::size_t column)
{
    return wb::ReadNumber(row[column]).value_or(0.0);
}

constexpr const char* kUnitPlace = "1|0|0|0|1|0|0|0|1|0|0|0|";

/// An assembly that says 9 kg of itself, turned by 90 degrees about z in the root A, above 2 kg at
/// x = 0 and three pieces of 2 kg at x = 4 mm.
constexpr const char* kImposed =
    "parent,instance,part,quantity,x [mm],y [mm],z [mm],rz [deg],mass_type,mass [kg],lower [kg],"
    "upper [kg],cgx [mm],cgy [mm],cgz [mm],ixx [kg.m2],iyy [kg.m2],izz [kg.m2],ixy [kg.m2],"
    "ixz [kg.m2],iyz [kg.m2],poi_sign,active\n"
    ",,A,,,,,,,,,,,,,,,,,,,,\n"
    "A,S.1,S,,10,20,30,90,Weighed,9,,,,,,,,,,,,,yes\n"
    "S,1,P,,,,,,Weighed,2,0.5,0.2,0,0,0,,,,,,,,\n"
    "S,2,Q,3,4,0,0,,Weighed,2,0.2,0.4,0,0,0,1,1,1,0.2,0.3,0.4,positive,\n";
} // namespace wbtest
