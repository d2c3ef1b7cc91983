#include "ReportUnits.h"

#include "CATCkeGlobalFunctions.h"
#include "CATIDOMElement.h"
#include "CATWBUnitHeader.h"

#include <algorithm>
#include <array>
#include <span>
#include <sstream>

namespace
{

// The first stands for the centres, which the reference point always moves.
constexpr std::array kMovedMagnitudes{"LENGTH", "MASS", "INERTIAMOMENT"};

CATICkeMagnitude_var FindMagnitude(const CATUnicodeString& name)
{
    return CATCkeGlobalFunctions::GetParmDictionary()->FindMagnitude(name);
}

/// The magnitude by its name in any letter case, as people type it; null when there is none.
CATICkeMagnitude_var FindTypedMagnitude(const CATUnicodeString& typed)
{
    const CATListValCATUnicodeString names =
        CATCkeGlobalFunctions::GetParmDictionary()->MagnitudeNames();
    const auto& items = names.Items();
    const auto found = std::find_if(items.begin(), items.end(), [&](const CATUnicodeString& name) {
        return name.Compare(typed) != 0;
    });
    return found == items.end() ? CATICkeMagnitude_var() : FindMagnitude(*found);
}

std::string Enumerated(const CATListValCATUnicodeString& list)
{
    std::string text;
    for (const CATUnicodeString& item : list.Items()) {
        text += (text.empty() ? "" : ", ") + item.ToStdString();
    }
    return text;
}

std::string SymbolOf(const CATICkeUnit_var& unit)
{
    return unit.IsNull() ? std::string() : unit->Symbol().ToStdString();
}

/// Uses one "MASS=lb"; what is wrong with it, or the empty text. `named` are the magnitudes that
/// were named before it.
std::string UseUnit(const std::string& choice, CATListValCATUnicodeString& named)
{
    const std::size_t sign = choice.find('=');
    if (sign == std::string::npos) {
        return "expected MAGNITUDE=UNIT, found \"" + choice + "\"";
    }
    const CATUnicodeString name = CATUnicodeString(choice.substr(0, sign)).Stripped();
    const CATUnicodeString symbol = CATUnicodeString(choice.substr(sign + 1)).Stripped();
    const CATICkeMagnitude_var magnitude = FindTypedMagnitude(name);
    if (magnitude.IsNull()) {
        return "expected a magnitude, found \"" + name.ToStdString() + "\"; there are " +
               Enumerated(CATCkeGlobalFunctions::GetParmDictionary()->MagnitudeNames());
    }
    if (named.Locate(magnitude->Name()) != 0) {
        return "expected each magnitude once, found " + magnitude->Name().ToStdString() + " twice";
    }
    named.Append(magnitude->Name());
    if (magnitude->UseUnit(symbol) < 0) {
        return "expected a unit of " + magnitude->Name().ToStdString() + ", found \"" +
               symbol.ToStdString() + "\"; there are " + Enumerated(magnitude->UnitSymbols());
    }
    return {};
}

/// The units other than those of the server that --display takes a report's numbers in.
std::string UnitsOfItsOwn()
{
    std::string text;
    for (const CATWBUnitHeaderRow& row : kCATWBUnitHeader) {
        const CATICkeMagnitude_var magnitude = FindMagnitude(row.magnitude);
        if (magnitude.IsNull() ||
            SymbolOf(magnitude->CurrentUnit()) == SymbolOf(magnitude->StorageUnit())) {
            continue;
        }
        text.append(text.empty() ? "" : ", ").append(row.magnitude).append(" in ");
        text.append(SymbolOf(magnitude->CurrentUnit()));
    }
    return text;
}

bool NamesNoUnits(const CATIDOMDocument_var& document)
{
    return std::ranges::none_of(kCATWBUnitHeader, [&](const CATWBUnitHeaderRow& row) {
        CATUnicodeString said;
        return document->DocumentElement()->GetAttribute(row.attribute, said) == S_OK;
    });
}

/// Masses and densities of statistics are no business of a conversion, and stay in storage units.
bool LeavesStatisticsBehind(const CATIDOMDocument_var& document)
{
    const bool hasStatistics = document->ElementsByTagName("MaterialStat")->Length() +
                                   document->ElementsByTagName("MassTypeStat")->Length() >
                               0;
    constexpr std::array kMagnitudes{"MASS", "DENSITY", "SURFACICMASS"};
    return hasStatistics && std::ranges::any_of(kMagnitudes, [](const char* name) {
               const CATICkeMagnitude_var magnitude = FindMagnitude(name);
               return !magnitude.IsNull() &&
                      SymbolOf(magnitude->StorageUnit()) != SymbolOf(magnitude->CurrentUnit());
           });
}

} // namespace

bool UseReportUnits(const std::string& choices, std::string& problem)
{
    CATListValCATUnicodeString named;
    std::size_t begin = 0;
    for (std::size_t end = 0; end != std::string::npos; begin = end + 1) {
        end = choices.find(',', begin);
        const std::string wrong = UseUnit(choices.substr(begin, end - begin), named);
        if (!wrong.empty()) {
            problem = "--units: " + wrong;
            return false;
        }
    }
    return true;
}

std::string ReferenceProblem(const CATWBReportConversion& conversion)
{
    if (!conversion.reference || conversion.values == CATWBReportConversion::Values::Stored) {
        return {};
    }
    std::span<const char* const> moved = kMovedMagnitudes;
    if (conversion.keepInertiaAtCentre) {
        moved = moved.first(1);
    }
    for (const char* name : moved) {
        const CATICkeMagnitude_var magnitude = FindMagnitude(name);
        if (magnitude.IsNull()) {
            continue; // no value of it is treated at all
        }
        const std::string stored = SymbolOf(magnitude->StorageUnit());
        const std::string current = SymbolOf(magnitude->CurrentUnit());
        if (stored != current) {
            std::string problem = "--reference beside --display: expected values of ";
            problem.append(name).append(" in ").append(stored);
            problem.append(", found the current unit ").append(current);
            return problem.append("; bring in the reference point when the report is converted");
        }
    }
    return {};
}

std::vector<std::string> UnitWarnings(const CATIDOMDocument_var& document,
                                      CATWBReportConversion::Values values)
{
    const bool isStored = values == CATWBReportConversion::Values::Stored;
    std::vector<std::string> warnings;
    const std::string unitsOfItsOwn = isStored ? std::string() : UnitsOfItsOwn();
    if (!unitsOfItsOwn.empty() && NamesNoUnits(document)) {
        warnings.push_back("the report names no units, as one that was never converted; --display "
                           "takes its numbers as they stand: " +
                           unitsOfItsOwn);
    }
    if (LeavesStatisticsBehind(document)) {
        warnings.emplace_back("its MaterialStat and MassTypeStat stay in kg, kg/m3 and kg/m2");
    }
    for (const CATWBUnitHeaderRow& row : kCATWBUnitHeader) {
        CATUnicodeString said;
        const CATICkeMagnitude_var magnitude = FindMagnitude(row.magnitude);
        if (magnitude.IsNull() ||
            document->DocumentElement()->GetAttribute(row.attribute, said) != S_OK) {
            continue;
        }
        const std::string taken =
            SymbolOf(isStored ? magnitude->StorageUnit() : magnitude->CurrentUnit());
        if (said.ToStdString() == taken) {
            continue;
        }
        const std::string unit = said.ToStdString();
        std::string& warning = warnings.emplace_back("the report says ");
        warning.append(row.attribute).append("=\"").append(unit);
        warning.append("\", but its numbers are taken as ").append(taken);
        if (isStored) {
            warning.append("; --display shows a report anew that was converted before");
        } else {
            warning.append("; --units ").append(row.magnitude).append("=").append(unit);
            warning.append(" takes them as the report says");
        }
    }
    return warnings;
}
