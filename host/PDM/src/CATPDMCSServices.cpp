#include "CATPDMServices.h"

#include "CATDiagnostics.h"
#include "CATEnvironment.h"
#include "CATPDMMessages.h"
#include "CATPDMProblems.h"
#include "CATServerCall.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace
{
std::vector<std::string> TextsOf(const CATListIdentificators& identificators)
{
    std::vector<std::string> texts;
    for (const CATIPLMIdentificator_var& identificator : identificators.Items()) {
        texts.push_back(identificator->Text().ToStdString());
    }
    return texts;
}

/// The handles that the service kept, in the order of its records; nothing when it names one that
/// it was not asked for, since the records could then not be told apart.
std::optional<CATListIdentificators> Kept(const CATListIdentificators& asked,
                                          const std::vector<std::string>& known)
{
    std::vector<CATIPLMIdentificator_var> left = asked.Items();
    CATListIdentificators kept;
    for (const std::string& text : known) {
        const auto match =
            std::ranges::find_if(left, [&text](const CATIPLMIdentificator_var& identificator) {
                return identificator->Text().View() == text;
            });
        if (match == left.end()) {
            CATDiagnosticErrors().Line(
                "The object service answered for an object it was not asked for: ", text);
            return std::nullopt;
        }
        kept.Append(*match);
        left.erase(match); // the same object picked twice has two records
    }
    return kept;
}

char* NewText(const std::string& text)
{
    char* copy = new char[text.size() + 1]; // the caller frees it with delete[]
    std::copy_n(text.c_str(), text.size() + 1, copy);
    return copy;
}
} // namespace

long CATPDMCSServices::RunObjectService(const CATUnicodeString& service,
                                        CATListIdentificators& identificators, const char* input,
                                        CATListIdentificators& found, char*& answer)
{
    answer = nullptr;
    const std::string serviceName = service.ToStdString();
    const std::string_view inputText = input == nullptr ? "" : input;
    // Set to an empty text counts as set.
    const bool withPartName = CATGetEnv("KR4_DA_FOR_CGR") == nullptr;
    std::vector<std::string> texts = TextsOf(identificators);
    std::optional<std::string> records;
    const CATServerCallEnd end =
        CATCallServer([&](CATServerCaller& caller, CATServerCallState& state) {
            records = caller.CallObjectService(serviceName, texts, inputText, withPartName, state);
        });
    // A cancelled call fails like any other: readers of these records know no error marker.
    if (end == CATServerCallEnd::Cancelled) {
        return E_FAIL;
    }
    const std::optional<CATListIdentificators> kept =
        end == CATServerCallEnd::Done && records ? Kept(identificators, texts) : std::nullopt;
    if (!kept) {
        // Commands pass over a pick that the service failed on; the user shall know why nothing
        // came.
        CATReportPDMProblem(PDMText(kObjectsUnidentified));
        return E_FAIL;
    }
    found.Append(*kept);
    identificators = *kept;
    answer = NewText(*records);
    return S_OK;
}
