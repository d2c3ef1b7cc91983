#pragma once

#include <string>

/// A product of twelve parts of 10 kg each, weighed, and what is asked about it.
inline std::string PartName(int number)
{
    return (number < 10 ? "P0" : "P") + std::to_string(number);
}

inline constexpr int kTwelve = 12;

inline std::string TwelveParts()
{
    std::string table = "parent,instance,part,mass_type,mass [kg],cgx [mm],cgy [mm],cgz [mm],"
                        "p:Vendor\n,,ROOT,,,,,,\n";
    for (int number = 1; number <= kTwelve; ++number) {
        table += "ROOT,i." + std::to_string(number) + "," + PartName(number) +
                 ",Weighed,10,0,0,0,Smith\n";
    }
    return table;
}

/// What the main panel sends when somebody changed one quantity of the weighed values: `quantity`
/// is "mass" or "centre".
inline std::string ApplyRequest(int number, const std::string& quantity, const std::string& seen,
                                const std::string& mass, const std::string& centre)
{
    const std::string part = PartName(number);
    return "1|i." + std::to_string(number) + "|" + part + "|A|0|ROOT|1|PartRef|Weighed|" +
           quantity + "|1|" + seen + "|" + "1|" + part + "|A|0||1|Weighed|1|0|0|" + mass + "|" +
           centre + "|0|0|0|0|0|0|0|0|Weighed|__null__|0|0|<userDefinedProps>|0|" +
           "</userDefinedProps>|";
}

/// The whole product as it counts now.
inline constexpr const char* kComputeRoot = "0||||0|0||Active|0|1|ROOT|0|No Filter|0|";
