#include "Methods.h"
#include "PickedNode.h"
#include "Request.h"

namespace wb
{
std::string GetValueDetails(const Store& store, std::string_view text, const CallContext&)
{
    Request request(text);
    const PickedPart picked = FindPicked(store, request);
    const Node node = ReadNode(store, picked);

    AnswerText answer;
    answer.Add(node.part.ShownName()).Add(node.types.size() + 1);
    // Computed is not made yet, so nothing of it is known.
    answer.Add(CATENOWBCSCommonDefinitions::Computed).Add(false).Add(false).Add(false);
    for (const MassType& type : node.types) {
        const ValueSet set = node.CompleteSet(type.name);
        answer.Add(type.name).Add(set.Has(Fact::Mass)).Add(set.HasCentre()).Add(set.HasInertia());
    }
    return answer.Take();
}
} // namespace wb
