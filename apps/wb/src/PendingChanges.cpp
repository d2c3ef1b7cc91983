#include "PendingChanges.h"

#include "CATENOWBCSCommonDefinitions.h"
#include "CATWireFields.h"

namespace
{
PendingChangeLine ReadLine(CATWireFields& fields)
{
    PendingChangeLine line;
    line.subject = fields.Text();
    line.fact = fields.Text();
    line.was = fields.Text();
    line.now = fields.Text();
    line.stored = fields.Text();
    line.conflicts = fields.Flag();
    line.by = fields.Text();
    line.at = fields.Text();
    line.when = fields.Text();
    return line;
}
} // namespace

std::vector<PendingChangeLine> ReadPendingChanges(std::string_view answer, std::string& problem)
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
    std::vector<PendingChangeLine> lines;
    // A count that promises more than there is ends with the first missing field.
    for (int left = fields.Count(); left > 0 && fields.IsSound(); --left) {
        lines.push_back(ReadLine(fields));
    }
    fields.End();
    if (fields.IsSound()) {
        return lines;
    }
    problem = "Field " + std::to_string(fields.WrongField()) + " of the server's answer should be ";
    problem.append(fields.Expected()).append(".");
    return {};
}
