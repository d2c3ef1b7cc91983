#pragma once

#include "CATProductSource.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

/// A source whose products a test writes down, and which remembers what it was asked for.
class FakeProductSource : public CATProductSource
{
public:
    std::vector<CATProductRow> Roots() override { return roots; }
    std::vector<CATProductRow> Uses(const CATUnicodeString& part,
                                    const CATUnicodeString& version) override
    {
        const std::string key = part.ToStdString() + " " + version.ToStdString();
        asked.push_back(key);
        const auto found = uses.find(key);
        return found == uses.end() ? std::vector<CATProductRow>() : found->second;
    }

    std::vector<CATProductRow> roots;
    std::map<std::string, std::vector<CATProductRow>> uses; ///< by "part version"
    std::vector<std::string> asked;
};

/// Whether a row promises uses of its own.
enum class Below
{
    Nothing,
    Uses
};

/// A use of version "A" of a part that is called "Name of" the part.
inline CATProductRow MakeRow(const std::string& instance, const std::string& part, Below below,
                             const CATMathTransformation& placement = {})
{
    CATProductRow row;
    row.instance = instance;
    row.part = part;
    row.version = "A";
    row.name = "Name of " + part;
    row.type = below == Below::Uses ? "assembly" : "part";
    row.hasUses = below == Below::Uses;
    row.placement = placement;
    return row;
}

inline CATMathTransformation Shifted(double x, double y, double z)
{
    return {CATMath3x3Matrix::Identity(), CATMathVector(x, y, z)};
}

/// CAR: front (AXLE: left WHEEL, right WHEEL), body (BODY).
inline CATProductRow CarRoot()
{
    return MakeRow("CAR", "CAR", Below::Uses);
}

inline void FillCar(FakeProductSource& source)
{
    source.uses["CAR A"] = {MakeRow("front", "AXLE", Below::Uses),
                            MakeRow("body", "BODY", Below::Nothing)};
    source.uses["AXLE A"] = {MakeRow("left", "WHEEL", Below::Nothing),
                             MakeRow("right", "WHEEL", Below::Nothing)};
}
