#pragma once

#include "WBMassTypeTable.h"
#include "WBProductTable.h"
#include "WBStore.h"

#include <string>
#include <string_view>
#include <vector>

namespace wb
{
struct ImportFileOptions
{
    TableOptions table; // --mass-type, --poi-sign
    std::string user;   // who, for the history
    KnownFacts known = KnownFacts::Update;
    std::string replace = {}; // a product root: --replace
};

/// What came of reading a file into a database.
struct ImportFileResult
{
    TableSummary table;
    ImportCounts counts;
    bool isReplacement = false;      // uses may have been removed
    std::vector<std::string> totals; // figures of assemblies beside their sums, ready sentences
    std::vector<std::string> errors; // ready sentences; empty: done

    bool Ok() const { return errors.empty(); }
    /// Ready sentences for the user: rows, new, changed, unchanged and removed parts and uses,
    /// parts that nobody uses, what gave way, remarks. Empty when there are errors.
    std::vector<std::string> Sentences() const;
};

/// Reads a product table into a store: all of it, or nothing when anything is wrong.
ImportFileResult ImportFile(Store& store, const std::string& path,
                            const ImportFileOptions& options = {});
/// The same of bytes that were read already. name stands for the file in messages and history.
ImportFileResult ImportBytes(Store& store, std::string_view content, const std::string& name,
                             const ImportFileOptions& options = {});

/// Adds or changes the mass types of a table. Returns the sentences of what is wrong.
std::vector<std::string> ImportMassTypes(Store& store, const std::string& path,
                                         const std::string& user);
} // namespace wb
