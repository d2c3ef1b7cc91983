#include "Subcommands.h"

#include "WBImport.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <optional>

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

/// A database file that goes away with this object.
class PassingDatabase
{
public:
    PassingDatabase()
        : m_path((std::filesystem::temp_directory_path() / "wb_check.XXXXXX").string())
    {
        const int file = mkstemp(m_path.data());
        close(file);
        std::filesystem::remove(m_path); // the name is what counts: the store makes its own file
    }
    ~PassingDatabase()
    {
        for (const char* suffix : {"", "-wal", "-shm", "-journal"}) {
            std::filesystem::remove(m_path + suffix);
        }
    }
    PassingDatabase(const PassingDatabase&) = delete;
    PassingDatabase& operator=(const PassingDatabase&) = delete;
    const std::string& Path() const { return m_path; }

private:
    std::string m_path;
};

wb::ImportFileOptions OptionsOf(const ImportOptions& options)
{
    wb::ImportFileOptions how;
    how.table.massType = options.massType;
    if (!options.poiSign.empty()) {
        how.table.productSign =
            options.poiSign == "positive" ? wb::ProductSign::Integral : wb::ProductSign::MatrixTerm;
    }
    how.checkOnly = options.check;
    how.user = options.user.empty() ? LoginName() : options.user;
    return how;
}

} // namespace

int RunImport(const ImportOptions& options)
{
    // A check against a database that is not there yet is one against an empty one, and leaves
    // none.
    std::optional<PassingDatabase> passing;
    if (options.check && !std::filesystem::exists(options.database)) {
        passing.emplace();
    }
    const wb::Store::Opened opened =
        wb::Store::OpenOrCreate(passing ? passing->Path() : options.database);
    if (!opened.store) {
        return Refuse({opened.error});
    }
    const wb::ImportFileOptions how = OptionsOf(options);
    if (!options.massTypes.empty()) {
        const std::vector<std::string> errors =
            wb::ImportMassTypes(*opened.store, options.massTypes, how.user);
        if (!errors.empty()) {
            return Refuse(errors);
        }
    }
    for (const std::string& file : options.files) {
        const wb::ImportFileResult result = wb::ImportFile(*opened.store, file, how);
        if (!result.Ok()) {
            return Refuse(result.errors);
        }
        for (const std::string& sentence : result.Sentences()) {
            std::printf("%s\n", sentence.c_str());
        }
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
