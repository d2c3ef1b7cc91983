#include "Subcommands.h"

#include "StandardOutput.h"
#include "WBImport.h"
#include "WBRootWeights.h"

#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <map>
#include <system_error>

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

/// Whether all that was printed has arrived; says so when it has not.
bool IsPrinted()
{
    const bool isPrinted = WriteStandardOutput("");
    if (!isPrinted) {
        std::fprintf(stderr, "wb: %s\n", kStandardOutputProblem);
    }
    return isPrinted;
}

/// Read once, however often it is asked for: an import that is overtaken begins anew.
const wb::FileBytes& StandardInput()
{
    static const wb::FileBytes input = wb::ReadFileBytes("/dev/stdin");
    return input;
}

wb::ImportFileResult ImportOne(wb::Store& store, const std::string& file,
                               const wb::ImportFileOptions& how)
{
    if (file != "-") {
        return wb::ImportFile(store, file, how);
    }
    if (!StandardInput().error.empty()) {
        wb::ImportFileResult result;
        result.errors = {"the standard input cannot be read"};
        return result;
    }
    return wb::ImportBytes(store, StandardInput().bytes, "standard input", how);
}

wb::ImportFileOptions OptionsOf(const ImportOptions& options)
{
    wb::ImportFileOptions how;
    how.table.massType = options.massType;
    if (!options.poiSign.empty()) {
        how.table.productSign =
            options.poiSign == "positive" ? wb::ProductSign::Integral : wb::ProductSign::MatrixTerm;
    }
    how.known = options.update ? wb::KnownFacts::Update : wb::KnownFacts::Refuse;
    how.replace = options.replace;
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
    // Only a check weighs: it is about what an import would mean.
    using Weights = std::map<std::string, std::string>;
    const Weights before = options.check ? wb::WeighRoots(store) : Weights();
    wb::StoreBatch batch(store);
    if (!options.massTypes.empty()) {
        imported.errors = wb::ImportMassTypes(store, options.massTypes, how.user);
    }
    for (const std::string& file : options.files) {
        if (!imported.errors.empty()) {
            return imported;
        }
        wb::ImportFileResult result = ImportOne(store, file, how);
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
    if (imported.errors.empty() && options.check) {
        const auto weights = wb::CompareWeights(before, wb::WeighRoots(store));
        imported.sentences.insert(imported.sentences.end(), weights.begin(), weights.end());
    }
    return imported;
}

/// The database of an import. One that is not there yet is made under a name of its own and takes
/// its place when the import has succeeded: nobody else meets it half made, and a refused import
/// takes away nothing but its own file.
class ImportTarget
{
public:
    explicit ImportTarget(const std::string& database) : m_database(database)
    {
        std::error_code code;
        // A link that leads nowhere is there: the database is made where it leads.
        m_isNew = std::filesystem::symlink_status(database, code).type() ==
                  std::filesystem::file_type::not_found;
        m_path = m_isNew ? database + ".new-" + std::to_string(getpid()) : database;
    }
    ImportTarget(const ImportTarget&) = delete;
    ImportTarget& operator=(const ImportTarget&) = delete;
    ~ImportTarget()
    {
        std::error_code code;
        if (m_isNew) {
            std::filesystem::remove(m_path, code);
        }
    }

    const std::string& Path() const { return m_path; }

    enum class Place
    {
        Taken,
        Overtaken, // another import has made the database meanwhile
        Refused
    };
    Place TakePlace() const
    {
        std::error_code code;
        if (m_isNew) {
            // A second name, unlike a new name, never replaces a file that came there meanwhile.
            std::filesystem::create_hard_link(m_path, m_database, code);
        }
        if (code == std::errc::file_exists) {
            return Place::Overtaken;
        }
        if (code) {
            // A file system that knows no second names: the new name has to do.
            std::filesystem::rename(m_path, m_database, code);
        }
        return code ? Place::Refused : Place::Taken;
    }

    /// A sentence of the store under the name that the user gave.
    std::string Named(const std::string& sentence) const
    {
        return sentence.starts_with(m_path) ? m_database + sentence.substr(m_path.size())
                                            : sentence;
    }

private:
    std::string m_database;
    std::string m_path;
    bool m_isNew = false;
};

} // namespace

int RunImport(const ImportOptions& options)
{
    const ImportTarget target(options.database);
    // A check is an import into a copy that is thrown away, so that it tells exactly what an import
    // would do.
    wb::Store::Opened opened = options.check ? wb::Store::OpenCopy(options.database)
                                             : wb::Store::OpenOrCreate(target.Path());
    if (!opened.store) {
        return Refuse({target.Named(opened.error)});
    }
    Imported imported;
    try {
        imported = ImportAll(*opened.store, options);
    } catch (const wb::StoreError& error) {
        imported.errors = {error.what()};
    }
    opened.store.reset();
    if (imported.errors.empty() && !options.check) {
        const ImportTarget::Place place = target.TakePlace();
        if (place == ImportTarget::Place::Overtaken) {
            return RunImport(options); // into that database
        }
        if (place == ImportTarget::Place::Refused) {
            imported.errors = {options.database + ": the database cannot be made there"};
        }
    }
    if (!imported.errors.empty()) {
        for (std::string& error : imported.errors) {
            error = target.Named(error);
        }
        return Refuse(imported.errors);
    }
    if (options.check) {
        std::printf("nothing was changed; an import would say:\n");
    }
    for (const std::string& sentence : imported.sentences) {
        std::printf("%s\n", sentence.c_str());
    }
    // What was imported is there, whoever heard of it. A check is of use only when it is heard.
    return IsPrinted() || !options.check ? 0 : 1;
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
    return IsPrinted() ? 0 : 1;
}
