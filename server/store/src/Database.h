#pragma once

#include "WBStore.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include <sqlite3.h>

namespace wb
{
/// A prepared statement. Texts are bound without a copy: they must outlive the next Step or Run.
class Statement
{
public:
    Statement(sqlite3* database, const std::string& path, std::string_view sql);
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;
    ~Statement();

    /// Starts over: forgets the row and all values; binding begins at the first parameter.
    Statement& Start();
    Statement& Bind(std::string_view text);     // an empty text is stored as NULL
    Statement& BindText(std::string_view text); // an empty text stays a text
    Statement& Bind(double value);              // an unknown number is stored as NULL
    Statement& Bind(std::int64_t value);
    Statement& BindNull();
    Statement& BindBlob(const void* bytes, int size); // not copied, like texts

    /// Moves to the next row; false at the end.
    bool Step();
    /// Executes a statement without rows.
    void Run();

    // The columns of the row, read from left to right.
    std::string Text();
    double Number();
    std::int64_t Integer();
    std::string Bytes(); // of a text or a blob
    /// Fills the bytes when the column holds as many; leaves them alone when it is NULL.
    void Blob(void* bytes, std::size_t size);
    bool IsNull() const; // of the next column

private:
    void Check(int result) const;

    sqlite3* m_database;
    const std::string& m_path;
    sqlite3_stmt* m_statement = nullptr;
    int m_parameter = 0;
    int m_column = 0;
};

/// A cache that holds a large product.
constexpr const char* kCacheSize = "PRAGMA cache_size = -65536";

/// Why the database did not do what was asked, as a sentence with what to do about it.
std::string DatabaseSentence(const std::string& path, int code, const char* message);

/// An open SQLite file.
class Database
{
public:
    enum class Kind
    {
        Existing,
        Created,
        Passing // a temporary file of SQLite's own, gone with this object
    };

    /// Throws StoreError when the file cannot be opened. All sentences name the path, also those of
    /// a passing database, which stands for the one of that path.
    Database(const std::string& path, Kind kind, int lockWait);
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;
    ~Database();

    const std::string& Path() const { return m_path; }
    /// Statements of reads are prepared once and kept.
    Statement& Kept(std::string_view sql);
    std::unique_ptr<Statement> Prepare(std::string_view sql);
    void Execute(const std::string& sql);
    /// The same without a complaint, for destructors: what fails there has failed before.
    void Try(const char* sql);
    /// The single number that a query answers; 0 when it answers no row.
    std::int64_t Ask(std::string_view sql);
    /// Replaces everything here by what stands in another database, as of one moment, while others
    /// go on reading and writing that one.
    void TakeOver(Database& other);
    /// Whether the tables are of that version or of a later one. Versions only rise, so that this
    /// is asked of the file until it is so.
    bool HasVersion(std::int64_t version);
    /// True between the beginning and the end of the outermost transaction.
    bool InTransaction() const;

private:
    friend class NoWaiting;
    std::string m_path;
    int m_lockWait;
    std::int64_t m_version = 0;
    sqlite3* m_database = nullptr;
    std::map<std::string, std::unique_ptr<Statement>, std::less<>> m_kept;
};

/// While it lives, what another program's work stands in the way of fails at once.
class NoWaiting
{
public:
    explicit NoWaiting(Database& database);
    NoWaiting(const NoWaiting&) = delete;
    NoWaiting& operator=(const NoWaiting&) = delete;
    ~NoWaiting();

private:
    Database& m_database;
};

/// Everything until Commit happens, or nothing. Inside another transaction it is a part of that
/// one: undone alone when it fails, and kept when the outer one is.
class Transaction
{
public:
    explicit Transaction(Database& database);
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    ~Transaction();

    void Commit();

private:
    Database& m_database;
    const bool m_inner;
    bool m_open = true;
};

/// An import takes every reference from the rows that it wrote or read itself, in one transaction,
/// so the database need not look each of them up again; that look-up would cost a tenth of the
/// time. It begins and ends outside a transaction: inside one SQLite leaves the checks as they are.
class WithoutReferenceChecks
{
public:
    explicit WithoutReferenceChecks(Database& database);
    WithoutReferenceChecks(const WithoutReferenceChecks&) = delete;
    WithoutReferenceChecks& operator=(const WithoutReferenceChecks&) = delete;
    ~WithoutReferenceChecks();

private:
    Database& m_database;
};
} // namespace wb
