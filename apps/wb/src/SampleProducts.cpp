#include "SampleProducts.h"

#include "CATEnvironment.h"
#include "CATFindPath.h"
#include "HostSession.h"
#include "WBChecksum.h"
#include "WBImport.h"

#include <array>
#include <filesystem>

namespace
{

constexpr std::array kSamples{"data/light_aeroplane.csv", "data/small_satellite.csv"};

/// The directory that the environment names, or `fallback` below the user's home.
std::string BaseDirectory(const char* variable, const char* fallback)
{
    if (const char* named = CATGetEnv(variable); named != nullptr && *named != '\0') {
        return named;
    }
    const char* home = CATGetEnv("HOME");
    const std::string base =
        home == nullptr ? std::filesystem::temp_directory_path().string() : home;
    return base + "/" + fallback;
}

/// Reads the samples into a database under a name of its own, and gives it its place when it is
/// whole.
bool MakeDatabase(const std::vector<std::string>& files, const std::string& path,
                  std::string& problem)
{
    const std::string unfinished = path + ".unfinished";
    std::filesystem::remove(unfinished);
    {
        const wb::Store::Opened opened = wb::Store::OpenOrCreate(unfinished);
        if (!opened.store) {
            problem = opened.error;
            return false;
        }
        for (const std::string& file : files) {
            wb::ImportFileOptions how;
            how.user = LoginName();
            const wb::ImportFileResult result = wb::ImportFile(*opened.store, file, how);
            if (!result.Ok()) {
                problem = result.errors.front();
                return false;
            }
        }
    }
    std::filesystem::rename(unfinished, path);
    return true;
}

} // namespace

std::string UserDataDirectory()
{
    std::string directory = BaseDirectory("XDG_DATA_HOME", ".local/share") + "/wb";
    std::filesystem::create_directories(directory);
    return directory;
}

std::string UserSettingsDirectory()
{
    return BaseDirectory("XDG_CONFIG_HOME", ".config") + "/wb";
}

std::string SampleDatabase(const std::string& directory, std::string& problem)
{
    std::vector<std::string> files;
    std::string contents;
    for (const char* sample : kSamples) {
        files.push_back(CATFindResource(sample));
        wb::FileBytes file = wb::ReadFileBytes(files.back());
        if (files.back().empty() || !file.error.empty()) {
            problem = std::string("the sample product ") + sample +
                      " is missing from the program's resources";
            return {};
        }
        contents += file.bytes;
    }
    constexpr std::size_t kDigits = 12;
    const std::string path =
        directory + "/samples-" + wb::Checksum(contents).substr(0, kDigits) + ".db";
    const bool isThere = std::filesystem::exists(path) || MakeDatabase(files, path, problem);
    return isThere ? path : std::string();
}
