#include "BenchFolder.h"

#include <unistd.h>

#include <filesystem>

namespace
{

class Folder
{
public:
    Folder()
        : m_path(std::filesystem::temp_directory_path() / ("wb_bench." + std::to_string(getpid())))
    {
        std::filesystem::create_directories(m_path);
    }
    ~Folder()
    {
        std::error_code error;
        std::filesystem::remove_all(m_path, error);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    std::string At(const std::string& name) const { return (m_path / name).string(); }

private:
    std::filesystem::path m_path;
};

} // namespace

std::string BenchFile(const std::string& name)
{
    static const Folder folder;
    return folder.At(name);
}
