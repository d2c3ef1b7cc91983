#include "CATFileAccess.h"

#include "CATEnvironment.h"
#include "CATStatus.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>

namespace
{

constexpr char kJoint = '\\';
constexpr std::string_view kDefaultDirectory = "C:\\Temp";

std::string TemporaryDirectory()
{
    const char* directory = CATGetEnv("TMPDIR");
    return directory == nullptr || *directory == '\0' ? "/tmp" : directory;
}

bool IsDirectory(const std::string& path)
{
    std::error_code error;
    return std::filesystem::is_directory(path, error);
}

// The path with the temporary directory in the default directory's place.
std::string WithRealDirectory(std::string_view path)
{
    const std::string_view rest = path.substr(std::min(path.size(), kDefaultDirectory.size()));
    const bool isBelow = path.starts_with(kDefaultDirectory) &&
                         (rest.empty() || rest.front() == kJoint || rest.front() == '/');
    return isBelow ? TemporaryDirectory().append(rest) : std::string(path);
}

} // namespace

CATUnicodeString CATFilePath(const CATUnicodeString& path)
{
    std::string real = WithRealDirectory(path.View());
    for (std::size_t joint = real.rfind(kJoint); joint != std::string::npos && joint > 0;
         joint = real.rfind(kJoint, joint - 1)) {
        if (IsDirectory(real.substr(0, joint))) {
            real[joint] = '/';
            break;
        }
    }
    return real;
}

long CATFileAccess(const CATUnicodeString& path, int mode)
{
    return access(CATFilePath(path).Text(), mode) == 0 ? S_OK : E_FAIL;
}
