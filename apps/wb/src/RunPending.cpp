#include "Subcommands.h"

#include "ChangeTexts.h"
#include "JsonText.h"
#include "StandardOutput.h"
#include "TextRows.h"
#include "WBServer.h"
#include "WBStore.h"

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

std::string NumberText(std::size_t count)
{
    return std::to_string(count) + (count == 1 ? " unsaved change" : " unsaved changes");
}

std::string NothingText(const std::string& user)
{
    return user + " has no unsaved changes.\n";
}

/// Saves or gives up by the server's own method, so that a script meets the same rules and
/// sentences as the workbench.
int Manage(wb::Store& store, const std::string& user, const char* request, const char* done)
{
    constexpr std::array kDone{"Save|OK", "Save|NA", "Abort|OK"};
    const std::size_t count = store.PendingChanges(user).size();
    wb::Server server(store);
    wb::CallContext context;
    context.user = user;
    const std::string answer = server.Call("WBSaveManagement", request, context);
    if (std::ranges::find(kDone, answer) == kDone.end()) {
        const std::string why = server.Call("WBWarningMsg", {}, context);
        std::fprintf(stderr, "%s\n", why.c_str());
        return Refuse("nothing was " + std::string(done) + ": " + NumberText(count) + " of " +
                      user + (count == 1 ? " is" : " are") + " still there");
    }
    const std::string text =
        count == 0 ? NothingText(user) : NumberText(count) + " of " + user + ' ' + done + ".\n";
    return WriteStandardOutput(text) ? 0 : Refuse(kStandardOutputProblem);
}

constexpr std::array kShownColumns{TextRows::Column{"subject"}, TextRows::Column{"fact"},
                                   TextRows::Column{"was"}, TextRows::Column{"now"},
                                   TextRows::Column{"stored meanwhile"}};

/// What keeps a change from being saved; empty where nothing does.
std::string StoredMeanwhile(const wb::PendingState& change, const std::string& fact,
                            const ComputeUnits& units)
{
    if (!change.conflicts) {
        return {};
    }
    std::string text = change.isGone ? "removed" : ShownChangeValue(fact, change.stored, units);
    text += change.by.empty() ? "" : " by " + change.by;
    return text + (change.at.empty() ? "" : ", " + ShownMoment(change.at));
}

std::string AsTable(const std::string& user, const std::vector<wb::PendingState>& changes)
{
    if (changes.empty()) {
        return NothingText(user);
    }
    const ComputeUnits units = ComputeUnits::Current();
    TextRows rows{kShownColumns, {}};
    for (const wb::PendingState& change : changes) {
        const std::string fact = wb::QuantityName(change.quantity);
        rows.rows.push_back({change.subject, fact, ShownChangeValue(fact, change.seen, units),
                             ShownChangeValue(fact, change.after, units),
                             StoredMeanwhile(change, fact, units)});
    }
    return user + " has " + NumberText(changes.size()) +
           ". --save saves all of them, --abort gives them up.\n" + rows.AsTable();
}

constexpr std::array kPlainColumns{
    TextRows::Column{"subject"}, TextRows::Column{"fact"},
    TextRows::Column{"was"},     TextRows::Column{"now"},
    TextRows::Column{"stored"},  TextRows::Column{"conflict", TextRows::Kind::Flag},
    TextRows::Column{"by"},      TextRows::Column{"at"},
    TextRows::Column{"when"}};

/// As the database keeps them.
TextRows PlainRows(const std::vector<wb::PendingState>& changes)
{
    TextRows rows{kPlainColumns, {}};
    for (const wb::PendingState& change : changes) {
        rows.rows.push_back({change.subject, wb::QuantityName(change.quantity), change.seen,
                             change.after, change.stored, change.conflicts ? "true" : "false",
                             change.by, MomentForPrograms(change.at),
                             MomentForPrograms(change.when)});
    }
    return rows;
}

std::string AsJson(const std::string& user, const std::vector<wb::PendingState>& changes)
{
    std::string json = "{\n  \"user\": ";
    AppendJsonText(json, user);
    return json + ",\n  \"changes\": " + PlainRows(changes).AsJson() + "\n}\n";
}
} // namespace

int RunPending(const PendingOptions& options)
{
    const HostSession session(options.session, {});
    const wb::Store::Opened opened = wb::Store::Open(options.session.database);
    if (!opened.store) {
        return Refuse(opened.error);
    }
    const std::string user = UserOf(options.session);
    if (options.save) {
        return Manage(*opened.store, user, "Save", "saved");
    }
    if (options.abort) {
        return Manage(*opened.store, user, "Abort", "given up");
    }
    const std::vector<wb::PendingState> changes = opened.store->PendingChanges(user);
    const std::string text = options.json  ? AsJson(user, changes)
                             : options.csv ? PlainRows(changes).AsCsv()
                                           : AsTable(user, changes);
    return WriteStandardOutput(text) ? 0 : Refuse(kStandardOutputProblem);
}
