#pragma once

#include "WBProductTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace wbtest
{
/// A directory of its own for each test, gone afterwards.
class Directory
{
public:
    Directory()
    {
        static int count = 0;
        m_path = std::filesystem::temp_directory_path() /
                 ("wb-server-" + std::to_string(getpid()) + "-" + std::to_string(++count));
        std::filesystem::create_directories(m_path);
    }
    Directory(const Directory&) = delete;
    Directory& operator=(const Directory&) = delete;
    ~Directory() { std::filesystem::remove_all(m_path); }

    std::string File(const std::string& name) const { return (m_path / name).string(); }
    std::string Write(const std::string& name, const std::string& content) const
    {
        std::ofstream(File(name), std::ios::binary) << content;
        return File(name);
    }

private:
    std::filesystem::path m_path;
};

inline wb::TableResult Read(const std::string& table, const wb::TableOptions& options = {})
{
    return wb::ReadProductTable(table, "t.csv", options, wb::KnownProducts());
}

/// The first error of a table; "" where there is none.
inline std::string FirstError(const std::string& table, const wb::TableOptions& options = {})
{
    const auto result = Read(table, options);
    return result.errors.empty() ? std::string() : result.errors.front();
}

inline const wb::Part& PartNamed(const wb::Product& product, const std::string& identifier)
{
    for (const wb::Part& part : product.parts) {
        if (part.identifier == identifier) {
            return part;
        }
    }
    throw std::out_of_range(identifier);
}

inline std::string DataFile(const std::string& name)
{
    return std::filesystem::path(WB_SOURCE_DIR) / "data" / name;
}
} // namespace wbtest
