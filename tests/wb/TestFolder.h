#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

/// A folder of one test's own, gone at its end.
class TestFolder
{
public:
    TestFolder()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "wb_test.XXXXXX").string();
        m_path = mkdtemp(pattern.data());
    }
    ~TestFolder() { std::filesystem::remove_all(m_path); }
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;

    std::string Path(const std::string& name) const { return (m_path / name).string(); }
    /// Writes a file and answers its path.
    std::string Write(const std::string& name, const std::string& text) const
    {
        std::ofstream(Path(name)) << text;
        return Path(name);
    }
    std::string Read(const std::string& name) const
    {
        std::ostringstream text;
        text << std::ifstream(Path(name)).rdbuf();
        return text.str();
    }

private:
    std::filesystem::path m_path;
};
