#include "WBReportRequest.h"

#include <string>

namespace
{

// The sum's place and densities: of a root the server reads past them.
constexpr const char* kHead = "0|-|-|-|0|0|-|";
// The root with everything below it.
constexpr const char* kWholeProduct = "1|";
// No deviation is to be computed from a precision.
constexpr const char* kNoPrecision = "0|";

void AddField(std::string& request, const CATUnicodeString& text)
{
    request += text.View();
    request += '|';
}

void AddNames(std::string& request, const std::vector<CATUnicodeString>& names)
{
    request += std::to_string(names.size()) + "|";
    for (const CATUnicodeString& name : names) {
        AddField(request, name);
    }
}

void AddPicked(std::string& request, const std::vector<WBPickedInstance>& picked)
{
    request += std::to_string(picked.size()) + "|";
    for (const WBPickedInstance& instance : picked) {
        AddField(request, instance.instance);
        AddField(request, instance.part);
        AddField(request, instance.version);
        AddNames(request, instance.path);
    }
}

void AddSum(std::string& request, const WBReportOptions& options)
{
    request += kHead;
    AddField(request, options.sum.precision);
    request += std::to_string(static_cast<int>(options.sum.storedSums)) + "|";
    if (options.sum.storedSums == WBStoredSums::Assume) {
        AddField(request, options.sum.level);
    }
    request += kWholeProduct;
    AddField(request, options.root);
    AddField(request, options.filter);
    request += kNoPrecision;
}

} // namespace

CATUnicodeString WBReportRequest(const WBReportOptions& options)
{
    const bool isStatistics = options.kind == WBReportKind::MaterialStatistics;
    std::string request = std::to_string(static_cast<int>(options.kind)) + "|";
    request += isStatistics && options.isOfEveryInstance ? "1|" : "0|";
    AddPicked(request, options.picked);
    AddNames(request, isStatistics ? std::vector<CATUnicodeString>() : options.values);
    AddNames(request, isStatistics ? std::vector<CATUnicodeString>() : options.properties);
    AddSum(request, options);
    return request;
}

std::vector<CATUnicodeString> WBTakenNames(const std::vector<CATUnicodeString>& names,
                                           const std::vector<bool>& isTaken)
{
    std::vector<CATUnicodeString> taken;
    for (std::size_t index = 0; index < names.size(); ++index) {
        if (isTaken[index]) {
            taken.push_back(names[index]);
        }
    }
    return !taken.empty() && taken.size() == names.size() ? std::vector<CATUnicodeString>{"*"}
                                                          : taken;
}
