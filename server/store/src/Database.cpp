#include "Database.h"

#include <climits>
#include <cstring>

namespace wb
{
std::string DatabaseSentence(const std::string& path, int code, const char* message)
{
    if (code == SQLITE_READONLY_DBMOVED) {
        return path + ": the file was moved, removed or replaced while it was open; nothing was "
                      "changed, open the database again";
    }
    switch (code & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return path + ": another program is writing to this database; wait until it has ended and "
                      "try again";
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
        return path + ": the file is damaged or is not a database; restore it from a copy, or "
                      "import the products into a new one";
    case SQLITE_READONLY:
    case SQLITE_PERM:
        return path + ": the database may not be written; check the rights of the file and of its "
                      "directory";
    case SQLITE_FULL:
        return path + ": the disk is full; nothing was changed, make room and try again";
    case SQLITE_CANTOPEN:
        return path + ": the database cannot be opened; check the path and its rights";
    default:
        return path + ": the database failed (" + message + "); nothing was changed";
    }
}

namespace
{
[[noreturn]] void Fail(const std::string& path, sqlite3* database, int code)
{
    if (database == nullptr) {
        throw StoreError(DatabaseSentence(path, code, sqlite3_errstr(code)));
    }
    throw StoreError(
        DatabaseSentence(path, sqlite3_extended_errcode(database), sqlite3_errmsg(database)));
}

int Length(std::string_view text)
{
    // Longer texts never come out of a table, whose reader refuses files of that size.
    return text.size() > INT_MAX ? INT_MAX : static_cast<int>(text.size());
}
} // namespace

Statement::Statement(sqlite3* database, const std::string& path, std::string_view sql)
    : m_database(database), m_path(path)
{
    Check(sqlite3_prepare_v3(database, sql.data(), Length(sql), SQLITE_PREPARE_PERSISTENT,
                             &m_statement, nullptr));
}

Statement::~Statement()
{
    sqlite3_finalize(m_statement);
}

void Statement::Check(int result) const
{
    if (result != SQLITE_OK) {
        Fail(m_path, m_database, result);
    }
}

Statement& Statement::Start()
{
    // A reset repeats the error of the last step, which was thrown already.
    sqlite3_reset(m_statement);
    sqlite3_clear_bindings(m_statement);
    m_parameter = 0;
    return *this;
}

Statement& Statement::Bind(std::string_view text)
{
    return text.empty() ? BindNull() : BindText(text);
}

Statement& Statement::BindText(std::string_view text)
{
    const char* data = text.data() == nullptr ? "" : text.data();
    Check(sqlite3_bind_text(m_statement, ++m_parameter, data, Length(text), SQLITE_STATIC));
    return *this;
}

Statement& Statement::Bind(double value)
{
    if (!IsKnown(value)) {
        return BindNull();
    }
    Check(sqlite3_bind_double(m_statement, ++m_parameter, value));
    return *this;
}

Statement& Statement::Bind(std::int64_t value)
{
    Check(sqlite3_bind_int64(m_statement, ++m_parameter, value));
    return *this;
}

Statement& Statement::BindNull()
{
    ++m_parameter; // Start left every value NULL
    return *this;
}

Statement& Statement::BindBlob(const void* bytes, int size)
{
    Check(sqlite3_bind_blob(m_statement, ++m_parameter, bytes, size, SQLITE_STATIC));
    return *this;
}

bool Statement::Step()
{
    m_column = 0;
    const int result = sqlite3_step(m_statement);
    if (result == SQLITE_ROW) {
        return true;
    }
    if (result != SQLITE_DONE) {
        const std::string sentence = DatabaseSentence(m_path, sqlite3_extended_errcode(m_database),
                                                      sqlite3_errmsg(m_database));
        sqlite3_reset(m_statement);
        throw StoreError(sentence);
    }
    // Ends the read at once, so that no statement keeps the file locked.
    sqlite3_reset(m_statement);
    return false;
}

void Statement::Run()
{
    while (Step()) {
    }
}

std::string Statement::Text()
{
    const auto* text = sqlite3_column_text(m_statement, m_column);
    const int size = sqlite3_column_bytes(m_statement, m_column);
    ++m_column;
    return text == nullptr
               ? std::string()
               : std::string(reinterpret_cast<const char*>(text), static_cast<std::size_t>(size));
}

std::string Statement::Bytes()
{
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(m_statement, m_column));
    const int size = sqlite3_column_bytes(m_statement, m_column);
    ++m_column;
    return bytes == nullptr ? std::string() : std::string(bytes, static_cast<std::size_t>(size));
}

double Statement::Number()
{
    const bool null = IsNull();
    const double value = sqlite3_column_double(m_statement, m_column++);
    return null ? kUnknown : value;
}

std::int64_t Statement::Integer()
{
    return sqlite3_column_int64(m_statement, m_column++);
}

void Statement::Blob(void* bytes, std::size_t size)
{
    const void* stored = sqlite3_column_blob(m_statement, m_column);
    const auto length = static_cast<std::size_t>(sqlite3_column_bytes(m_statement, m_column));
    ++m_column;
    if (stored != nullptr && length == size) {
        std::memcpy(bytes, stored, size);
    }
}

bool Statement::IsNull() const
{
    return sqlite3_column_type(m_statement, m_column) == SQLITE_NULL;
}

Database::Database(const std::string& path, Kind kind, int lockWait)
    : m_path(path), m_lockWait(lockWait)
{
    // SQLite's own count of its memory costs a lock at every allocation, and nobody reads it. The
    // call has an effect before the first connection alone.
    sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX |
                      (kind == Kind::Existing ? 0 : SQLITE_OPEN_CREATE);
    // SQLite makes a temporary file of an empty name, and removes it whatever happens.
    const char* const file = kind == Kind::Passing ? "" : path.c_str();
    const int result = sqlite3_open_v2(file, &m_database, flags, nullptr);
    if (result != SQLITE_OK) {
        const std::string sentence = DatabaseSentence(path, result, sqlite3_errstr(result));
        sqlite3_close_v2(m_database);
        throw StoreError(sentence);
    }
    sqlite3_busy_timeout(m_database, lockWait);
}

Database::~Database()
{
    m_kept.clear();
    sqlite3_close_v2(m_database);
}

Statement& Database::Kept(std::string_view sql)
{
    auto found = m_kept.find(sql);
    if (found == m_kept.end()) {
        found = m_kept.emplace(sql, Prepare(sql)).first;
    }
    return found->second->Start();
}

std::unique_ptr<Statement> Database::Prepare(std::string_view sql)
{
    return std::make_unique<Statement>(m_database, m_path, sql);
}

void Database::Execute(const std::string& sql)
{
    const int result = sqlite3_exec(m_database, sql.c_str(), nullptr, nullptr, nullptr);
    if (result != SQLITE_OK) {
        Fail(m_path, m_database, result);
    }
}

void Database::Try(const char* sql)
{
    sqlite3_exec(m_database, sql, nullptr, nullptr, nullptr);
}

std::int64_t Database::Ask(std::string_view sql)
{
    const auto statement = Prepare(sql);
    return statement->Step() ? statement->Integer() : 0;
}

void Database::TakeOver(Database& other)
{
    sqlite3_backup* backup = sqlite3_backup_init(m_database, "main", other.m_database, "main");
    const int copied = backup == nullptr ? SQLITE_ERROR : sqlite3_backup_step(backup, -1);
    sqlite3_backup_finish(backup);
    if (copied != SQLITE_DONE) {
        Fail(m_path, m_database, copied);
    }
}

bool Database::HasVersion(std::int64_t version)
{
    if (m_version >= version) {
        return true;
    }
    const std::int64_t found = Ask("PRAGMA user_version");
    if (!InTransaction()) {
        m_version = found; // what a transaction has raised may still be undone
    }
    return found >= version;
}

bool Database::InTransaction() const
{
    return sqlite3_get_autocommit(m_database) == 0;
}

NoWaiting::NoWaiting(Database& database) : m_database(database)
{
    sqlite3_busy_timeout(m_database.m_database, 0);
}

NoWaiting::~NoWaiting()
{
    sqlite3_busy_timeout(m_database.m_database, m_database.m_lockWait);
}

Transaction::Transaction(Database& database)
    : m_database(database), m_inner(database.InTransaction())
{
    // Takes the right to write at once: two writers then wait for each other instead of failing
    // half way.
    m_database.Execute(m_inner ? "SAVEPOINT inner" : "BEGIN IMMEDIATE");
}

Transaction::~Transaction()
{
    if (m_open) {
        // Where a statement failed badly the database has rolled back by itself already.
        m_database.Try(m_inner ? "ROLLBACK TO inner; RELEASE inner" : "ROLLBACK");
    }
}

void Transaction::Commit()
{
    m_database.Execute(m_inner ? "RELEASE inner" : "COMMIT");
    m_open = false;
}

WithoutReferenceChecks::WithoutReferenceChecks(Database& database) : m_database(database)
{
    m_database.Execute("PRAGMA foreign_keys = OFF");
}

WithoutReferenceChecks::~WithoutReferenceChecks()
{
    m_database.Try("PRAGMA foreign_keys = ON");
}
} // namespace wb
