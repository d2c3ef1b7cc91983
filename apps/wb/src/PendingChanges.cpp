#include "PendingChanges.h"

#include "CATENOWBCSCommonDefinitions.h"

std::vector<CATPendingChange> ReadPendingChanges(std::string_view answer, std::string& problem)
{
    const std::string_view marker = CATENOWBCSCommonDefinitions::errMsgHeader;
    problem.clear();
    if (answer.empty()) {
        problem = "The server did not answer.";
        return {};
    }
    if (answer.starts_with(marker)) {
        problem = answer.substr(marker.size());
        return {};
    }
    CATWireFields fields(answer);
    std::vector<CATPendingChange> changes = CATReadPendingChanges(fields);
    if (fields.IsSound()) {
        return changes;
    }
    problem = "Field " + std::to_string(fields.WrongField()) + " of the server's answer should be ";
    problem.append(fields.Expected()).append(".");
    return {};
}
