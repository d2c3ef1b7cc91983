#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

/// A directory that goes away with its test, whatever the test left in it.
class TemporaryDirectory
{
public:
    TemporaryDirectory()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "wb-test-XXXXXX").string();
        m_path = mkdtemp(pattern.data());
    }
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;
    ~TemporaryDirectory()
    {
        std::error_code error;
        std::filesystem::remove_all(m_path, error);
    }

    std::string Path() const { return m_path; }
    std::string At(const std::string& name) const { return m_path + "/" + name; }
    std::string Write(const std::string& name, const std::string& text) const
    {
        std::filesystem::create_directories(std::filesystem::path(At(name)).parent_path());
        std::ofstream(At(name), std::ios::binary) << text;
        return At(name);
    }
    std::string Read(const std::string& name) const
    {
        std::ifstream file(At(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    bool Has(const std::string& name) const { return std::filesystem::exists(At(name)); }
    std::size_t FileCount() const
    {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(m_path),
                                                      std::filesystem::directory_iterator()));
    }

private:
    std::string m_path;
};
