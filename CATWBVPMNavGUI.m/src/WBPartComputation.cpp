#include "WBPartComputation.h"

#include "WBRootFilter.h"

#include "CATHandle.h"
#include "CATWBAllDataBuffer.h"
#include "CATWBToken.h"
#include "CATWBVPMNavFilterPanel.h"

#include <algorithm>
#include <string>

namespace
{

using Definitions = CATENOWBCSCommonDefinitions;

std::vector<std::string> FieldsOf(const CATUnicodeString& stream)
{
    std::vector<std::string> fields;
    CATWBToken tokens(stream);
    while (!tokens.IsAtEnd()) {
        fields.emplace_back(tokens.NextView());
    }
    return fields;
}

CATUnicodeString StreamOf(const std::vector<std::string>& fields)
{
    std::string stream;
    for (const std::string& field : fields) {
        stream += field;
        stream += '|';
    }
    return stream;
}

/// The record's own request says "Active" and "0" (check) at this place, behind part, version,
/// count and path, density priority and material.
std::size_t PlaceOfPrecision(const CATWBAllDataBuffer& record)
{
    constexpr std::size_t kFieldsBesidePath = 5;
    if (record.GetInstancePathDepth() <= 0) {
        return kFieldsBesidePath;
    }
    const CATUnicodeString& path = record.GetInstancePath();
    const auto separators = std::ranges::count(path.View(), '|');
    return kFieldsBesidePath + static_cast<std::size_t>(separators) + 1;
}

int CountAt(const std::vector<std::string>& fields, std::size_t place)
{
    int count = -1;
    if (place < fields.size()) {
        CATUnicodeString(fields[place]).ReadInt(count);
    }
    return count;
}

} // namespace

void WBFillChoices(CATWBAllDataBuffer& record, const WBComputationChoice& choice)
{
    CATUnicodeString root;
    record.GetCurrentPRCID(root);
    record.SetEntityToCompute(choice.entity);
    record.SetCurrentPRCFilter(CATWBVPMNavFilterPanel::GetFilter(root));
}

CATUnicodeString WBComputationRequest(CATWBAllDataBuffer& record, const WBComputationChoice& choice)
{
    CATUnicodeString instance;
    record.GetCurrentInstanceID(instance);
    CATUnicodeString info;
    record.GetComputedInfo(info);
    std::vector<std::string> fields = FieldsOf(info);
    const std::size_t place = PlaceOfPrecision(record);
    fields[place] = choice.precision.ToStdString();
    fields[place + 1] = std::to_string(static_cast<int>(choice.storedSums));
    if (choice.storedSums == WBStoredSums::Assume) {
        fields[place + 1] += "|" + choice.level.ToStdString();
    }
    const CATUnicodeString hasInstance = record.HasInstInENOVIA() ? "1|" : "0|";
    return hasInstance + instance + "|" + StreamOf(fields);
}

CATUnicodeString WBStoredValuesRequest(const CATWBAllDataBuffer& record)
{
    const auto copy = CATHandle<CATWBAllDataBuffer>::Adopt(new CATWBAllDataBuffer(record));
    WBFillChoices(*copy, {});
    return WBComputationRequest(*copy, {});
}

bool WBIsLevel(const CATUnicodeString& text)
{
    constexpr std::size_t kMostDigits = 9; // no product is deeper
    const std::string_view digits = text.View();
    return !digits.empty() && digits.size() <= kMostDigits &&
           std::ranges::all_of(digits, [](char digit) { return digit >= '0' && digit <= '9'; });
}

bool WBIsComputedAnswer(const CATUnicodeString& answer)
{
    constexpr std::size_t kFigures = 12;
    constexpr std::size_t kCoefficients = 12;
    constexpr std::size_t kFieldsOfMaterial = 4; // name, dimension, mass, density
    constexpr std::size_t kFieldsOfMassType = 2; // name, mass
    const std::vector<std::string> fields = FieldsOf(answer);
    const int materials = CountAt(fields, kFigures);
    if (materials < 0) {
        return false;
    }
    const std::size_t next = kFigures + 1 + kFieldsOfMaterial * static_cast<std::size_t>(materials);
    const int massTypes = CountAt(fields, next);
    return massTypes >= 0 &&
           fields.size() ==
               next + 1 + kFieldsOfMassType * static_cast<std::size_t>(massTypes) + kCoefficients;
}

bool WBIsKeptAsTheSum(const CATWBAllDataBuffer& record, const WBComputationChoice& choice)
{
    CATUnicodeString filter;
    record.GetCurrentPRCFilter(filter);
    Definitions::PrecisionType precision = Definitions::NoPrecision;
    record.GetPrecisionType(Definitions::Computed, precision);
    return choice.entity == Definitions::InstanceWithChildren &&
           choice.precision == WBComputationChoice::kActive &&
           choice.storedSums != WBStoredSums::Assume && filter == kWBNoFilter &&
           precision == Definitions::NoPrecision;
}
