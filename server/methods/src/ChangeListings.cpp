#include "EditedPlace.h"
#include "Methods.h"
#include "QuantityFields.h"
#include "ReportTime.h"
#include "Request.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace wb
{
std::string ListPendingChanges(const MethodCall& call, std::string_view)
{
    const std::vector<PendingState> pending = call.store.PendingChanges(call.context.user);
    AnswerText answer;
    answer.Add(pending.size());
    for (const PendingState& state : pending) {
        const std::string fact = QuantityName(state.quantity);
        answer.Add(state.subject)
            .Add(fact)
            .Add(ShownText(fact, state.seen))
            .Add(ShownText(fact, state.after))
            .Add(ShownText(fact, state.stored))
            .Add(state.conflicts)
            .Add(WireName(state.by))
            .Add(WireTime(state.at))
            .Add(WireTime(state.when));
    }
    return answer.Take();
}

std::string GetHistory(const MethodCall& call, std::string_view text)
{
    Request request(text);
    const EditedPlace place = ReadEditedPlace(call.store, request);
    request.End();
    std::vector<FactChange> changes = call.store.FactChangesOf(OwnerKind::Part, place.PartRow());
    if (place.HasUse()) {
        std::ranges::move(call.store.FactChangesOf(OwnerKind::Use, place.UseRow()),
                          std::back_inserter(changes));
        // Those of one saving stay together, the part's first.
        std::ranges::stable_sort(changes, std::ranges::greater(), &FactChange::when);
    }
    AnswerText answer;
    answer.Add(changes.size());
    for (const FactChange& change : changes) {
        answer.Add(WireTime(change.when))
            .Add(WireName(change.who))
            .Add(change.what)
            .Add(WireName(change.file))
            .Add(change.subject)
            .Add(change.fact)
            .Add(ShownText(change.fact, change.before))
            .Add(ShownText(change.fact, change.after));
    }
    return answer.Take();
}
} // namespace wb
