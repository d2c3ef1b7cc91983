#include "CATFindPath.h"

#include "CATEnvironment.h"
#include "DirectoryList.h"

#include <dlfcn.h>

#include <filesystem>

namespace
{

namespace fs = std::filesystem;

std::string FindIn(const std::vector<std::string>& directories, const std::string& name)
{
    if (name.empty()) {
        return {};
    }
    for (const std::string& directory : directories) {
        const fs::path candidate = fs::path(directory) / name;
        std::error_code error;
        if (fs::exists(candidate, error) && !fs::is_directory(candidate, error)) {
            return candidate.string();
        }
    }
    return {};
}

// Where this library was loaded from, so that an installed or moved tree finds what belongs to it.
std::string OwnResources()
{
    Dl_info info{};
    if (dladdr(reinterpret_cast<const void*>(&CATFindResource), &info) == 0) {
        return {};
    }
    std::error_code error;
    const fs::path library = fs::weakly_canonical(info.dli_fname, error);
    return (library.parent_path().parent_path() / "resources").string();
}

} // namespace

std::vector<std::string> SplitDirectories(std::string_view list)
{
    std::vector<std::string> directories;
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(';'), list.size());
        if (end > 0) {
            directories.emplace_back(list.substr(0, end));
        }
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return directories;
}

CATUnicodeString CATFindPath(const CATUnicodeString& name, const CATUnicodeString& directories)
{
    return FindIn(SplitDirectories(directories.View()), name.ToStdString());
}

std::vector<std::string> CATResourceDirectories()
{
    static const std::string own = OwnResources();
    const char* first = CATGetEnv("WB_RESOURCE_PATH");
    std::vector<std::string> directories = SplitDirectories(first == nullptr ? "" : first);
    directories.push_back(own);
    return directories;
}

std::string CATFindResource(const std::string& relativeName)
{
    return FindIn(CATResourceDirectories(), relativeName);
}
