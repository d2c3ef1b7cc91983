#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace wb
{
/// Why a text may not enter the database, as the end of the sentence "expected a text ...", or
/// nothing where it may. The streams between client and server have no escaping: a "|", a control
/// character or the server's error marker inside a text, or one of the two texts that stand for
/// "empty" ("__null__" and "~"), would change what a stream says.
std::optional<std::string_view> ForbiddenText(std::string_view text);

/// True for names that no mass type may bear: they are words of the requests, or derived.
bool IsReservedMassType(std::string_view name);

/// True for names that a report writes as attributes of its own, so that no property may bear them.
bool IsReportName(std::string_view name);

/// The offset of the first byte that is not UTF-8, or nothing.
std::optional<std::size_t> FirstNonUtf8(std::string_view text);

/// A yyyy-mm-dd text that the calendar knows.
bool IsDate(std::string_view text);

/// ASCII letters in lower case; other bytes as they are.
std::string LowerCase(std::string_view text);

/// The known name with the fewest changed letters, letter case aside. Empty for an empty list.
template <typename Names>
std::string NearestName(std::string_view name, const Names& known);

/// Letters to change, drop or insert to make one text of the other.
std::size_t EditDistance(std::string_view left, std::string_view right);

template <typename Names>
std::string NearestName(std::string_view name, const Names& known)
{
    std::string nearest;
    std::size_t best = std::string::npos;
    const std::string wanted = LowerCase(name);
    for (const auto& candidate : known) {
        const std::size_t distance = EditDistance(wanted, LowerCase(candidate));
        if (distance < best) {
            best = distance;
            nearest = candidate;
        }
    }
    return nearest;
}
} // namespace wb
