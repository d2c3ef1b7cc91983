#include "Computations.h"
#include "ConflictText.h"
#include "Methods.h"
#include "ResidentProducts.h"

#include "WBCompute.h"

#include <array>
#include <exception>
#include <vector>

namespace wb
{
namespace
{
constexpr const char* kRefused = "Save|FALSE";

std::string Save(const MethodCall& call)
{
    const SaveOutcome outcome = call.store.SavePending(call.context.user);
    if (outcome.conflicts.empty()) {
        return outcome.saved > 0 ? "Save|OK" : "Save|NA";
    }
    std::vector<std::string> lines;
    for (const PendingState& change : outcome.conflicts) {
        lines.push_back(ConflictText(change));
    }
    // All of them: who has to settle them needs each.
    call.computations.KeepWarnings(call.context.user, WarningText(lines, 0));
    return kRefused;
}

std::string Abort(const MethodCall& call)
{
    call.store.AbortPending(call.context.user);
    return "Abort|OK";
}

struct WordRow
{
    std::string_view word;
    std::string (*act)(const MethodCall& call);
};

constexpr std::array kWords{WordRow{"Save", Save}, WordRow{"Abort", Abort}};
} // namespace

std::string ManageSave(const MethodCall& call, std::string_view request)
{
    call.computations.ForgetWarnings(call.context.user);
    const auto refuse = [&](const std::string& sentence) {
        call.computations.KeepWarnings(call.context.user, WarningText({WithoutLineMark(sentence)}));
        return kRefused;
    };
    if (IsCancelled(call.context)) {
        return refuse("The call was cancelled.");
    }
    for (const WordRow& row : kWords) {
        if (row.word == request) {
            try {
                return row.act(call);
            } catch (const std::exception& error) {
                return refuse(error.what());
            }
        }
    }
    return refuse("The request holds \"" + std::string(request) + "\", expected Save or Abort.");
}
} // namespace wb
