#include "WBStore.h"

#include "Database.h"
#include "PendingOverlay.h"
#include "Schema.h"

#include <filesystem>
#include <system_error>

namespace wb
{
namespace
{
/// What every connection wants: references are checked, and a cache that holds a large product. The
/// journal is SQLite's ordinary one, so that a database at rest is exactly one file that people can
/// copy; a write-ahead log would leave a second file beside it. Where temporary data goes is left
/// to SQLite: it sorts the rows of a new index in one block of memory then, otherwise row by row.
constexpr const char* kSettings = "PRAGMA foreign_keys = ON";

/// A sentence about a path at which no database can be; empty where one may be.
std::string WhyNotThere(const std::string& path)
{
    std::error_code code;
    if (!std::filesystem::exists(path, code)) {
        return path + ": the database does not exist; make one with \"wb import FILE.csv --into " +
               path + "\"";
    }
    if (std::filesystem::is_directory(path, code)) {
        return path + ": is a directory; name the database file in it";
    }
    return {};
}
} // namespace

Store::Store(std::unique_ptr<Database> database) : m_database(std::move(database))
{}

Store::~Store() = default;

const std::string& Store::Path() const
{
    return m_database->Path();
}

Store::Opened Store::Open(const std::string& path, int lockWait)
{
    const std::string reason = WhyNotThere(path);
    if (!reason.empty()) {
        return {nullptr, reason};
    }
    try {
        auto database = std::make_unique<Database>(path, Database::Kind::Existing, lockWait);
        CheckSchema(*database);
        UpdateSchema(*database);
        database->Execute(kSettings);
        database->Execute(kCacheSize);
        return {std::unique_ptr<Store>(new Store(std::move(database))), {}};
    } catch (const StoreError& error) {
        return {nullptr, error.what()};
    }
}

Store::Opened Store::OpenOrCreate(const std::string& path, int lockWait)
{
    std::error_code code;
    if (std::filesystem::exists(path, code)) {
        return Open(path, lockWait);
    }
    try {
        {
            Database database(path, Database::Kind::Created, lockWait);
            // A new file holds nothing that a power cut could take; the first import waits for the
            // disk.
            database.Execute("PRAGMA synchronous = OFF");
            // Large pages: a product of many thousand uses is written in a quarter of the calls.
            database.Execute("PRAGMA page_size = 16384");
            CreateSchema(database);
        }
        return Open(path, lockWait);
    } catch (const StoreError& error) {
        return {nullptr, error.what()};
    }
}

Store::Opened Store::OpenCopy(const std::string& path, int lockWait)
{
    std::error_code code;
    try {
        auto copy = std::make_unique<Database>(path, Database::Kind::Passing, lockWait);
        if (std::filesystem::exists(path, code)) {
            const std::string reason = WhyNotThere(path);
            if (!reason.empty()) {
                return {nullptr, reason};
            }
            // The file stays as it is, of whatever version.
            Database original(path, Database::Kind::Existing, lockWait);
            CheckSchema(original);
            copy->TakeOver(original);
            UpdateSchema(*copy);
        } else {
            CreateSchema(*copy);
        }
        copy->Execute(kSettings);
        copy->Execute(kCacheSize);
        return {std::unique_ptr<Store>(new Store(std::move(copy))), {}};
    } catch (const StoreError& error) {
        return {nullptr, error.what()};
    }
}

struct StoreBatch::Guards
{
    // The transaction ends before the checks come back.
    WithoutReferenceChecks unchecked;
    Transaction transaction;
};

StoreBatch::StoreBatch(Store& store)
    : m_guards(
          new Guards{WithoutReferenceChecks(*store.m_database), Transaction(*store.m_database)})
{}

StoreBatch::~StoreBatch() = default;

void StoreBatch::Commit()
{
    m_guards->transaction.Commit();
}
} // namespace wb
