#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

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
    /// The rows that a query answers: "|" between cells, a line end between rows, "-" for NULL.
    std::string Text(const std::string& query)
    {
        std::string text;
        const auto append = [](void* rows, int count, char** cells, char**) {
            auto& all = *static_cast<std::string*>(rows);
            all += all.empty() ? "" : "\n";
            for (int column = 0; column < count; ++column) {
                all += column == 0 ? "" : "|";
                all += cells[column] == nullptr ? "-" : cells[column];
            }
            return 0;
        };
        EXPECT_EQ(sqlite3_exec(m_database, query.c_str(), append, &text, nullptr), SQLITE_OK)
            << query;
        return text;
    }

private:
    sqlite3* m_database = nullptr;
};

/// Writes to a database behind the back of whoever has it open.
inline void RunSql(const std::string& path, const std::string& sql)
{
    EXPECT_EQ(SqlConnection(path).Run(sql), SQLITE_OK) << sql;
}
} // namespace wbtest
