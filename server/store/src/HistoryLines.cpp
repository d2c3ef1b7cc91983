#include "HistoryLines.h"

#include "Owners.h"

#include <algorithm>
#include <string>

namespace wb
{
namespace
{
constexpr std::string_view kPart = "part ";
constexpr std::string_view kUse = "use ";
constexpr std::string_view kValue = ": ";
constexpr std::string_view kFact = ", ";

/// The first line of a text, which loses it.
std::string_view TakeLine(std::string_view& text)
{
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(text.size(), line.size() + 1));
    return line;
}

/// The row that a statement answers for two texts; 0 where it answers none or several.
RowId OnlyRow(Database& database, const char* sql, std::string_view first, std::string_view second)
{
    Statement& rows = database.Kept(sql);
    rows.BindText(first).BindText(second);
    RowId found = 0;
    int count = 0;
    while (rows.Step()) {
        found = rows.Integer();
        ++count;
    }
    return count == 1 ? found : 0;
}

/// Names hold blanks and slashes too, so every place is tried at which the text may part.
RowId FindByParts(Database& database, const char* sql, std::string_view names, char mark)
{
    for (std::size_t at = names.find(mark); at != std::string_view::npos;
         at = names.find(mark, at + 1)) {
        const RowId found = OnlyRow(database, sql, names.substr(0, at), names.substr(at + 1));
        if (found != 0) {
            return found;
        }
    }
    return 0;
}

RowId FindOwner(Database& database, OwnerKind kind, std::string_view names)
{
    return kind == OwnerKind::Part
               ? FindByParts(database, "SELECT id FROM part WHERE identifier = ? AND version = ?",
                             names, ' ')
               : FindByParts(database,
                             "SELECT u.id FROM part p JOIN use u ON u.parent = p.id WHERE "
                             "p.identifier = ? AND u.instance = ?",
                             names, '/');
}

/// What a line says that begins with "part P A" or "use R/p", and then ", mass" or nothing.
ChangedFact FactOf(Database& database, std::string_view what)
{
    ChangedFact fact;
    fact.kind = what.starts_with(kUse) ? OwnerKind::Use : OwnerKind::Part;
    const std::string_view word = fact.kind == OwnerKind::Use ? kUse : kPart;
    std::size_t end = what.find(kFact);
    fact.subject = what.substr(0, end);
    fact.fact = end == std::string_view::npos ? "" : what.substr(end + kFact.size());
    // A use without a fact was removed; one of the same name that is there now is another.
    for (; end != std::string_view::npos; end = what.find(kFact, end + 1)) {
        const RowId owner = FindOwner(database, fact.kind, what.substr(0, end).substr(word.size()));
        if (owner != 0) {
            fact.owner = owner;
            fact.subject = SubjectOf(database, fact.kind, owner);
            fact.fact = what.substr(end + kFact.size());
            break;
        }
    }
    return fact;
}
} // namespace

std::vector<ChangedFact> FactsOfLines(Database& database, std::string_view before,
                                      std::string_view after)
{
    std::vector<ChangedFact> facts;
    while (!before.empty()) {
        const std::string_view was = TakeLine(before);
        const std::string_view is = TakeLine(after);
        const std::size_t end = std::min(was.find(kValue), was.size());
        const std::size_t value = std::min(was.size(), end + kValue.size());
        ChangedFact& fact = facts.emplace_back(FactOf(database, was.substr(0, end)));
        fact.before = was.substr(value);
        fact.after = is.substr(std::min(is.size(), value));
    }
    return facts;
}
} // namespace wb
