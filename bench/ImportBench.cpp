#include "BenchFolder.h"
#include "BenchTable.h"
#include "OtherProcess.h"
#include "ProductFixture.h"

#include "WBImport.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace
{

/// The most real memory that this program has held, without what its starter held before it.
double PeakBytes()
{
    constexpr double kBytesPerKibiByte = 1024.0;
    std::ifstream file("/proc/self/status");
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("VmHWM:")) {
            return kBytesPerKibiByte * std::strtod(line.c_str() + line.find(':') + 1, nullptr);
        }
    }
    return 0.0;
}

constexpr int kFewRows = 100'000;
constexpr int kManyRows = 1'000'000;

/// A database that is not there yet.
std::string NewDatabase()
{
    const std::string path = BenchFile("bench.db");
    for (const char* suffix : {"", "-wal", "-shm", "-journal"}) {
        std::filesystem::remove(path + suffix);
    }
    return path;
}

void Import(benchmark::State& state, int rows)
{
    const std::string& product = ProductTable(rows);
    for ([[maybe_unused]] auto turn : state) {
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

void ProductImport(benchmark::State& state)
{
    Import(state, ProductInstances());
}
BENCHMARK(ProductImport)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();

void ImportFewRows(benchmark::State& state)
{
    Import(state, kFewRows);
}
BENCHMARK(ImportFewRows)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();

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

void BareInsert(benchmark::State& state, int rows)
{
    const std::string& product = ProductTable(rows);
    for ([[maybe_unused]] auto turn : state) {
        state.PauseTiming();
        const std::string database = NewDatabase();
        state.ResumeTiming();
        if (!InsertRows(product, database)) {
            state.SkipWithError("the rows were not inserted");
        }
    }
}

void ProductBareInsert(benchmark::State& state)
{
    BareInsert(state, ProductInstances());
}
BENCHMARK(ProductBareInsert)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();

void BareInsertFewRows(benchmark::State& state)
{
    BareInsert(state, kFewRows);
}
BENCHMARK(BareInsertFewRows)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();

// Its time is that of both imports and stands in no line; its counters do.
void ProductImportMemory(benchmark::State& state)
{
    for ([[maybe_unused]] auto turn : state) {
        const std::vector<double> few = MeasureElsewhere("import", ProductTable(kFewRows));
        const std::vector<double> many = MeasureElsewhere("import", ProductTable(kManyRows));
        if (few.size() != 1 || many.size() != 1) {
            state.SkipWithError("the memory of the import was not measured");
            return;
        }
        state.counters["few"] = few.front();
        state.counters["many"] = many.front();
    }
}
BENCHMARK(ProductImportMemory)->Iterations(1)->Repetitions(1)->UseRealTime();

const RegisterBenchLine kImport({"import a product / read, split and insert with SQLite",
                                 "ProductImport", "ProductBareInsert", 2.0});
const RegisterBenchLine kImportFew({"import 100,000 rows / read, split and insert with SQLite",
                                    "ImportFewRows", "BareInsertFewRows", 3.0});
const RegisterBenchLine kImportMemory({"peak memory of importing 1,000,000 rows / 100,000 rows",
                                       "ProductImportMemory:many", "ProductImportMemory:few", 1.5,
                                       BenchUnit::MebiBytes});

} // namespace

std::vector<double> MeasureImport(const std::string& path)
{
    const wb::Store::Opened opened = wb::Store::OpenOrCreate(NewDatabase());
    const wb::ImportFileResult result = wb::ImportFile(*opened.store, path);
    if (!result.Ok()) {
        std::fprintf(stderr, "%s\n", result.errors.front().c_str());
        return {};
    }
    return {PeakBytes()};
}
