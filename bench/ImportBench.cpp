#include "BenchFolder.h"
#include "BenchTable.h"
#include "ProductFile.h"

#include "WBImport.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <filesystem>
#include <fstream>

namespace
{

constexpr int kRows = 100'000;
constexpr int kParts = 10'000;

/// The product's file, written at the first call.
const std::string& Product()
{
    static const std::string path = [] {
        const std::string product = BenchFile("product.csv");
        WriteProductFile(product, kRows, kParts);
        return product;
    }();
    return path;
}

/// A database that is not there yet.
std::string NewDatabase()
{
    const std::string path = BenchFile("bench.db");
    for (const char* suffix : {"", "-wal", "-shm", "-journal"}) {
        std::filesystem::remove(path + suffix);
    }
    return path;
}

void Import100000(benchmark::State& state)
{
    const std::string& product = Product();
    for (auto turn : state) {
        state.PauseTiming();
        const std::string database = NewDatabase();
        state.ResumeTiming();
        const wb::Store::Opened opened = wb::Store::OpenOrCreate(database);
        const wb::ImportFileResult result = wb::ImportFile(*opened.store, product);
        if (!result.Ok()) {
            state.SkipWithError(result.errors.front().c_str());
        }
    }
}
BENCHMARK(Import100000)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();

/// Splits a line of a file that quotes nothing.
void Split(const std::string& line, std::vector<std::string_view>& fields)
{
    fields.clear();
    std::size_t begin = 0;
    for (std::size_t end = line.find(','); end != std::string::npos; end = line.find(',', begin)) {
        fields.emplace_back(line.data() + begin, end - begin);
        begin = end + 1;
    }
    fields.emplace_back(line.data() + begin, line.size() - begin);
}

/// The least that reading the file into a database takes: read, split, insert every row as it
/// stands.
bool InsertRows(const std::string& product, const std::string& database)
{
    sqlite3* connection = nullptr;
    sqlite3_open(database.c_str(), &connection);
    std::ifstream file(product);
    std::string line;
    std::getline(file, line);
    std::vector<std::string_view> fields;
    Split(line, fields);
    std::string create = "CREATE TABLE row(";
    std::string insert = "INSERT INTO row VALUES(";
    for (std::size_t index = 0; index < fields.size(); ++index) {
        create += (index == 0 ? "c" : ", c") + std::to_string(index);
        insert += index == 0 ? "?" : ", ?";
    }
    sqlite3_exec(connection, (create + "); BEGIN").c_str(), nullptr, nullptr, nullptr);
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(connection, (insert + ")").c_str(), -1, &statement, nullptr);
    while (std::getline(file, line)) {
        Split(line, fields);
        for (std::size_t index = 0; index < fields.size(); ++index) {
            sqlite3_bind_text(statement, static_cast<int>(index) + 1, fields[index].data(),
                              static_cast<int>(fields[index].size()), SQLITE_STATIC);
        }
        sqlite3_step(statement);
        sqlite3_reset(statement);
    }
    sqlite3_finalize(statement);
    const bool committed =
        sqlite3_exec(connection, "COMMIT", nullptr, nullptr, nullptr) == SQLITE_OK;
    sqlite3_close(connection);
    return committed;
}

void BareInsert100000(benchmark::State& state)
{
    const std::string& product = Product();
    for (auto turn : state) {
        state.PauseTiming();
        const std::string database = NewDatabase();
        state.ResumeTiming();
        if (!InsertRows(product, database)) {
            state.SkipWithError("the rows were not inserted");
        }
    }
}
BENCHMARK(BareInsert100000)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();

const RegisterBenchLine kImport({"import 100,000 rows / read, split and insert with SQLite",
                                 "Import100000", "BareInsert100000", 3.0});

} // namespace
