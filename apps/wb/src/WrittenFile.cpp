#include "WrittenFile.h"

#include <filesystem>
#include <system_error>

namespace
{
namespace fs = std::filesystem;

bool IsFile(const std::string& path)
{
    std::error_code code;
    const fs::file_type type = fs::status(path, code).type();
    return !path.empty() && path != "-" &&
           (type == fs::file_type::regular || type == fs::file_type::not_found);
}

/// Both may be missing still. A second name of a file is found by what it leads to.
bool IsSameFile(const std::string& left, const std::string& right)
{
    std::error_code code;
    if (fs::equivalent(left, right, code)) {
        return true;
    }
    // A path without a folder stays without one unless it is made whole first.
    const fs::path place = fs::weakly_canonical(fs::absolute(left, code), code);
    return !place.empty() && place == fs::weakly_canonical(fs::absolute(right, code), code);
}
} // namespace

std::string WrittenFileProblem(const std::string& written, std::initializer_list<NamedFile> others)
{
    for (const NamedFile& other : others) {
        if (IsFile(written) && IsFile(other.path) && IsSameFile(written, other.path)) {
            return "expected a file of its own, found \"" + written + "\", which is " + other.what;
        }
    }
    return {};
}
