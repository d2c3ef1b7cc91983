#include "CATPendingChanges.h"

std::vector<CATPendingChange> CATReadPendingChanges(CATWireFields& fields)
{
    std::vector<CATPendingChange> changes = fields.List<CATPendingChange>([&fields] {
        CATPendingChange change;
        for (CATUnicodeString* text :
             {&change.subject, &change.fact, &change.seen, &change.after, &change.stored}) {
            *text = fields.Text();
        }
        change.isInConflict = fields.Flag();
        for (CATUnicodeString* text : {&change.by, &change.at, &change.when}) {
            *text = fields.Text();
        }
        return change;
    });
    fields.End();
    return changes;
}
