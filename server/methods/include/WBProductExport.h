#pragma once

#include "WBStore.h"

#include <string>
#include <vector>

namespace wb
{
/// A product in the table form, or a sentence that says why there is none.
struct ProductExport
{
    std::string table;
    std::vector<MassType> massTypes; // of the database: a table names some of them
    std::size_t parts = 0;
    std::size_t uses = 0;
    std::string error;
};

/// One product root with everything below it. version: empty: of several versions that nobody uses
/// the one that was stored last. A failing database becomes a sentence too.
ProductExport ExportProduct(const Store& store, const std::string& root,
                            const std::string& version = {});
} // namespace wb
