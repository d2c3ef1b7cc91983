#include "Subcommands.h"

#include "WBImport.h"

#include <cstdio>
#include <filesystem>

namespace
{

int Refuse(const std::vector<std::string>& errors)
{
    for (const std::string& error : errors) {
        std::fprintf(stderr, "%s\n", error.c_str());
    }
    std::fprintf(stderr, "wb: nothing was imported\n");
    return 1;
}

wb::ImportFileOptions OptionsOf(const ImportOptions& options)
{
    wb::ImportFileOptions how;
    how.table.massType = options.massType;
    if (!options.poiSign.empty()) {
        how.table.productSign =
            options.poiSign == "positive" ? wb::ProductSign::Integral : wb::ProductSign::MatrixTerm;
    }
    how.user = options.user.empty() ? LoginName() : options.user;
    return how;
}

/// What came of all files: sentences for the user, or what is wrong.
struct Imported
{
    std::vector<std::string> sentences;
    std::vector<std::string> errors;
};

/// The mass types and all files, or nothing: a later file may need what an earlier one brings.
Imported ImportAll(wb::Store& store, const ImportOptions& options)
{
    const wb::ImportFileOptions how = OptionsOf(options);
    Imported imported;
    wb::StoreBatch batch(store);
    if (!options.massTypes.empty()) {
        imported.errors = wb::ImportMassTypes(store, options.massTypes, how.user);
    }
    for (const std::string& file : options.files) {
        if (!imported.errors.empty()) {
            return imported;
        }
        wb::ImportFileResult result = wb::ImportFile(store, file, how);
        const std::vector<std::string> sentences = result.Sentences();
        if (options.files.size() > 1) {
            imported.sentences.push_back(file + ":");
        }
        imported.sentences.insert(imported.sentences.end(), sentences.begin(), sentences.end());
        imported.errors = std::move(result.errors);
    }
    if (imported.errors.empty()) {
        batch.Commit();
    }
    return imported;
}

} // namespace

int RunImport(const ImportOptions& options)
{
    // A check is an import into a copy that is thrown away, so that it tells exactly what an import
    // would do.
    const bool wasThere = std::filesystem::exists(options.database);
    wb::Store::Opened opened = options.check ? wb::Store::OpenCopy(options.database)
                                             : wb::Store::OpenOrCreate(options.database);
    if (!opened.store) {
        return Refuse({opened.error});
    }
    Imported imported;
    try {
        imported = ImportAll(*opened.store, options);
    } catch (const wb::StoreError& error) {
        imported.errors = {error.what()};
    }
    if (!imported.errors.empty()) {
        opened.store.reset();
        if (!wasThere) {
            // Nothing was imported: a database that was made for it goes again.
            std::filesystem::remove(options.database);
        }
        return Refuse(imported.errors);
    }
    if (options.check) {
        std::printf("nothing was changed; an import would say:\n");
    }
    for (const std::string& sentence : imported.sentences) {
        std::printf("%s\n", sentence.c_str());
    }
    return 0;
}

int RunMassTypes(const MassTypesOptions& options)
{
    const wb::Store::Opened opened = options.file.empty()
                                         ? wb::Store::Open(options.database)
                                         : wb::Store::OpenOrCreate(options.database);
    if (!opened.store) {
        return Refuse({opened.error});
    }
    if (!options.file.empty()) {
        const std::vector<std::string> errors =
            wb::ImportMassTypes(*opened.store, options.file, LoginName());
        if (!errors.empty()) {
            return Refuse(errors);
        }
    }
    std::printf("%-20s %6s  %-6s %-11s %8s %8s  %s\n", "mass type", "order", "kind", "category",
                "lower %", "upper %", "meaning");
    for (const wb::MassType& type : opened.store->MassTypes()) {
        std::printf("%-20s %6d  %-6s %-11s %8g %8g  %s\n", type.name.c_str(), type.order,
                    type.kind == wb::MassType::Kind::Goal ? "goal" : "claim", type.category.c_str(),
                    type.lowerPct, type.upperPct, type.meaning.c_str());
    }
    return 0;
}
