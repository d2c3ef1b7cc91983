#include "Subcommands.h"

#include "StandardOutput.h"
#include "WBProductExport.h"
#include "WBTableWriter.h"

#include "CATFileReplacement.h"

#include <cstdio>
#include <system_error>

namespace
{
constexpr const char* kStandardStream = "-";

int Refuse(const std::string& problem, const char* outcome = "nothing was exported")
{
    std::fprintf(stderr, "%s\nwb: %s\n", problem.c_str(), outcome);
    return 1;
}

/// Empty, or a sentence. A file is there whole, or as it was before.
std::string WriteOut(const std::string& path, const std::string& text)
{
    if (path == kStandardStream) {
        return WriteStandardOutput(text) ? "" : kStandardOutputProblem;
    }
    const int error = CATReplaceFile(path, text);
    return error == 0 ? ""
                      : path + ": cannot be written: " + std::generic_category().message(error);
}
} // namespace

int RunExport(const ExportOptions& options)
{
    const wb::Store::Opened opened = wb::Store::Open(options.database);
    if (!opened.store) {
        return Refuse(opened.error);
    }
    const wb::ProductExport product =
        wb::ExportProduct(*opened.store, options.root, options.version);
    if (!product.error.empty()) {
        return Refuse(product.error);
    }
    // The mass types first: without them the product could not be read anywhere else.
    if (!options.massTypes.empty()) {
        const std::string problem =
            WriteOut(options.massTypes, wb::WriteMassTypeTable(product.massTypes));
        if (!problem.empty()) {
            return Refuse(problem);
        }
    }
    const std::string problem = WriteOut(options.output, product.table);
    if (!problem.empty()) {
        return options.massTypes.empty() ? Refuse(problem)
                                         : Refuse(problem, "only the mass types were exported");
    }
    if (options.output != kStandardStream) {
        std::printf("%s: %zu parts, %zu uses\n", options.output.c_str(), product.parts,
                    product.uses);
    }
    return 0;
}
