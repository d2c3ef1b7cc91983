#include "WBImport.h"

namespace wb
{
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
    std::vector<std::string> sentences{
        "rows: " + std::to_string(table.rows),
        line("parts", counts.newParts, counts.changedParts, counts.unchangedParts),
        line("uses", counts.newUses, counts.changedUses, counts.unchangedUses)};
    std::string unused;
    for (const std::string& part : counts.unusedParts) {
        unused += (unused.empty() ? "" : ", ") + part;
    }
    sentences.push_back("parts that nobody uses: " + (unused.empty() ? "none" : unused));
    const auto remarks = table.Remarks();
    sentences.insert(sentences.end(), remarks.begin(), remarks.end());
    return sentences;
}

ImportFileResult ImportFile(Store& store, const std::string& path, const ImportFileOptions& options)
{
    ImportFileResult result;
    try {
        TableResult read = ReadProductFile(path, options.table, store);
        result.table = std::move(read.summary);
        result.errors = std::move(read.errors);
        if (result.Ok()) {
            ImportOutcome outcome =
                store.Import(read.product, {options.user, path, result.table.checksum});
            result.counts = std::move(outcome.counts);
            result.errors = std::move(outcome.errors);
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
