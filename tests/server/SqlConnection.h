#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cstdint>
#include <string>

namespace wbtest
{
/// A connection of its own to a database file, as that of another program.
class SqlConnection
{
public:
    explicit SqlConnection(const std::string& path) { sqlite3_open(path.c_str(), &m_database); }
    SqlConnection(const SqlConnection&) = delete;
    SqlConnection& operator=(const SqlConnection&) = delete;
    ~SqlConnection() { sqlite3_close(m_database); }

    /// SQLITE_OK, or what else the library says.
    int Run(const std::string& sql)
    {
        return sqlite3_exec(m_database, sql.c_str(), nullptr, nullptr, nullptr);
    }

private:
    sqlite3* m_database = nullptr;
};
} // namespace wbtest
