#include "Subcommands.h"

#include "ChangeTexts.h"
#include "JsonText.h"
#include "StandardOutput.h"
#include "StoredPlace.h"
#include "TextRows.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace
{
int Refuse(const std::string& problem)
{
    std::fprintf(stderr, "wb: %s\n", problem.c_str());
    return 1;
}

/// What was changed of the part and, below a root, of its use, the newest first.
std::vector<wb::FactChange> ChangesOf(const wb::Store& store, const StoredPlace& place)
{
    std::vector<wb::FactChange> changes = store.FactChangesOf(wb::OwnerKind::Part, place.Part().id);
    if (!place.uses.empty()) {
        const auto ofUse = store.FactChangesOf(wb::OwnerKind::Use, place.uses.back().id);
        changes.insert(changes.end(), ofUse.begin(), ofUse.end());
    }
    // Those of one moment keep their order, the part's before the use's.
    std::ranges::stable_sort(changes, std::ranges::greater{}, &wb::FactChange::when);
    return changes;
}

constexpr std::array kColumns{TextRows::Column{"when"},  TextRows::Column{"who"},
                              TextRows::Column{"what"},  TextRows::Column{"subject"},
                              TextRows::Column{"fact"},  TextRows::Column{"before"},
                              TextRows::Column{"after"}, TextRows::Column{"file"}};

std::string AsTable(const StoredPlace& place, const std::vector<wb::FactChange>& changes)
{
    const wb::PartLine& part = place.Part();
    const std::string head = place.Path() + ", part " + part.identifier + ' ' + part.version + '\n';
    if (changes.empty()) {
        return head + "Nothing of it has been changed since it was first imported.\n";
    }
    const ComputeUnits units = ComputeUnits::Current();
    TextRows rows{kColumns, {}};
    for (const wb::FactChange& change : changes) {
        rows.rows.push_back({ShownMoment(change.when), change.who, change.what, change.subject,
                             change.fact, ShownChangeValue(change.fact, change.before, units),
                             ShownChangeValue(change.fact, change.after, units), change.file});
    }
    return head + rows.AsTable();
}

/// As the database keeps them.
TextRows PlainRows(const std::vector<wb::FactChange>& changes)
{
    TextRows rows{kColumns, {}};
    for (const wb::FactChange& change : changes) {
        rows.rows.push_back({MomentForPrograms(change.when), change.who, change.what,
                             change.subject, change.fact, change.before, change.after,
                             change.file});
    }
    return rows;
}

std::string AsJson(const StoredPlace& place, const std::vector<wb::FactChange>& changes)
{
    std::string json = "{\n  \"path\": ";
    AppendJsonText(json, place.Path());
    json += ",\n  \"part\": ";
    AppendJsonText(json, place.Part().identifier);
    json += ",\n  \"version\": ";
    AppendJsonText(json, place.Part().version);
    return json + ",\n  \"changes\": " + PlainRows(changes).AsJson() + "\n}\n";
}
} // namespace

int RunHistory(const HistoryOptions& options)
{
    const HostSession session(options.session, {});
    const wb::Store::Opened opened = wb::Store::Open(options.session.database);
    if (!opened.store) {
        return Refuse(opened.error);
    }
    std::string problem;
    const auto place = FindStoredPlace(*opened.store, options.path, options.rootVersion, problem);
    if (!place) {
        return Refuse(problem);
    }
    const std::vector<wb::FactChange> changes = ChangesOf(*opened.store, *place);
    const std::string text = options.json  ? AsJson(*place, changes)
                             : options.csv ? PlainRows(changes).AsCsv()
                                           : AsTable(*place, changes);
    return WriteStandardOutput(text) ? 0 : Refuse(kStandardOutputProblem);
}
