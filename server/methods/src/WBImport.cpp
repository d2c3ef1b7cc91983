#include "WBImport.h"

#include "StatedTotals.h"
#include "WBTablePieces.h"

#include <optional>
#include <utility>

namespace wb
{
namespace
{
std::string Listed(const std::vector<std::string>& names)
{
    constexpr std::size_t kMost = 100;
    std::string list;
    for (std::size_t i = 0; i < names.size() && i < kMost; ++i) {
        list += (i == 0 ? "" : ", ") + names[i];
    }
    return names.size() > kMost ? list + " and " + std::to_string(names.size() - kMost) + " more"
                                : list;
}

/// What was stored and is no longer: the history keeps all of it, the screen the beginning.
void AppendChanges(std::vector<std::string>& sentences, const std::vector<ChangedFact>& facts)
{
    constexpr std::size_t kMost = 20;
    for (std::size_t i = 0; i < facts.size() && i < kMost; ++i) {
        sentences.push_back((facts[i].after.empty() ? "removed: " + facts[i].What() + ": "
                                                    : "changed: " + facts[i].What() + ": " +
                                                          facts[i].after + ", was ") +
                            facts[i].before);
    }
    if (facts.size() > kMost) {
        sentences.push_back("and " + std::to_string(facts.size() - kMost) + " more");
    }
}

/// A table that fills an empty database goes there in pieces. Nothing, and nothing is changed, when
/// it cannot: then it is read whole, which tells what is wrong where something is.
std::optional<ImportFileResult> ImportFirstFile(Store& store, const std::string& path,
                                                const ImportFileOptions& options)
{
    try {
        if (!options.replace.empty() || !store.IsEmpty()) {
            return std::nullopt;
        }
        const auto pieces = TablePieces::Open(path, options.table, store.MassTypes());
        if (!pieces) {
            return std::nullopt;
        }
        ImportFileResult result;
        auto counts = store.ImportFirst(*pieces, [&] {
            result.table = std::move(pieces->Summary());
            return ImportOptions{options.user, path, result.table.checksum, options.known};
        });
        if (!counts) {
            return std::nullopt;
        }
        result.counts = std::move(*counts);
        return result;
    } catch (const StoreError& error) {
        ImportFileResult result;
        result.errors = {error.what()};
        return result;
    }
}
} // namespace

std::vector<std::string> ImportFileResult::Sentences() const
{
    if (!Ok()) {
        return {};
    }
    const auto line = [](const char* what, std::size_t added, std::size_t changed,
                         std::size_t unchanged) {
        return std::string(what) + ": " + std::to_string(added) + " new, " +
               std::to_string(changed) + " changed, " + std::to_string(unchanged) + " unchanged";
    };
    const std::string removed =
        isReplacement ? ", " + std::to_string(counts.removedUses) + " removed" : std::string();
    std::vector<std::string> sentences{
        "rows: " + std::to_string(table.rows),
        line("parts", counts.newParts, counts.changedParts, counts.unchangedParts),
        line("uses", counts.newUses, counts.changedUses, counts.unchangedUses) + removed};
    const std::string unused = Listed(counts.unusedParts);
    sentences.push_back("parts that nobody uses: " + (unused.empty() ? "none" : unused));
    if (!counts.rootsThatLostUses.empty()) {
        sentences.push_back("other products that lost uses: " + Listed(counts.rootsThatLostUses));
    }
    AppendChanges(sentences, counts.changedFacts);
    const auto remarks = table.Remarks();
    sentences.insert(sentences.end(), remarks.begin(), remarks.end());
    sentences.insert(sentences.end(), totals.begin(), totals.end());
    return sentences;
}

ImportFileResult ImportFile(Store& store, const std::string& path, const ImportFileOptions& options)
{
    if (auto result = ImportFirstFile(store, path, options)) {
        return std::move(*result);
    }
    const FileBytes file = ReadFileBytes(path);
    if (!file.error.empty()) {
        ImportFileResult result;
        result.errors = {file.error};
        return result;
    }
    return ImportBytes(store, file.bytes, path, options);
}

ImportFileResult ImportBytes(Store& store, std::string_view content, const std::string& name,
                             const ImportFileOptions& options)
{
    ImportFileResult result;
    result.isReplacement = !options.replace.empty();
    try {
        TableResult read = ReadProductTable(content, name, options.table, store);
        result.table = std::move(read.summary);
        result.errors = std::move(read.errors);
        if (result.Ok()) {
            ImportOutcome outcome =
                store.Import(read.product, {options.user, name, result.table.checksum,
                                            options.known, options.replace});
            result.counts = std::move(outcome.counts);
            result.errors = std::move(outcome.errors);
        }
        if (result.Ok()) {
            result.totals = CompareTotals(store, result.table.totals);
        }
    } catch (const StoreError& error) {
        result.errors = {error.what()};
    }
    return result;
}

std::vector<std::string> ImportMassTypes(Store& store, const std::string& path,
                                         const std::string& user)
{
    const MassTypeTableResult read = ReadMassTypeFile(path);
    return read.errors.empty() ? store.PutMassTypes(read.types, user, path) : read.errors;
}
} // namespace wb
