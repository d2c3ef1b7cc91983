#include "BenchFolder.h"
#include "BenchTable.h"
#include "ProductFile.h"
#include "ProductFixture.h"

#include "CATENOWBCSCommonDefinitions.h"
#include "WBImport.h"
#include "WBServer.h"
#include "WBStore.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace
{

constexpr int kUses = 100'000;
constexpr int kChanges = 1'000;

/// A product of which every leaf is the same part.
const std::string& DatabaseOfOnePart()
{
    static const std::string path = [] {
        const std::string table = BenchFile("one_part.csv");
        std::string database = BenchFile("one_part.db");
        WriteProductFile(table, kUses, 1);
        const auto opened = wb::Store::OpenOrCreate(database);
        if (!opened.store || !wb::ImportFile(*opened.store, table).Ok()) {
            std::fprintf(stderr, "wb_bench: the product was not imported\n");
            std::exit(1);
        }
        return database;
    }();
    return path;
}

/// A server on a copy of the large product, in which people change values.
class Edited
{
public:
    explicit Edited(const char* name) : m_path(BenchFile(name))
    {
        std::filesystem::copy_file(ProductDatabase(kUses), m_path,
                                   std::filesystem::copy_options::overwrite_existing);
        m_store = wb::Store::Open(m_path).store;
        m_server = std::make_unique<wb::Server>(*m_store);
    }

    const std::string& Path() const { return m_path; }
    wb::Store& Store() { return *m_store; }

    std::string Call(const char* user, const char* method, const std::string& request)
    {
        wb::CallContext context;
        context.user = user;
        return m_server->Call(method, request, context);
    }
    /// The first parts get another mass, each.
    void Change(const char* user, int parts)
    {
        constexpr const char* kMassType = "Calculated";
        std::vector<wb::PendingChange> changes;
        for (int part = 0; part < parts; ++part) {
            char name[16];
            std::snprintf(name, sizeof name, "P%06d", part);
            const wb::RowId row = m_store->FindPart(name, "A")->id;
            const wb::Quantity mass{kMassType, std::string(wb::kMassQuantity)};
            const std::string stored = QuantityText(m_store->CommittedPart(row).part, mass);
            changes.push_back(
                {wb::OwnerKind::Part, row, mass, stored, stored == "7" ? "8" : "7", {}});
        }
        m_store->PutPending(user, changes);
    }

private:
    std::string m_path;
    std::unique_ptr<wb::Store> m_store;
    std::unique_ptr<wb::Server> m_server;
};

void SkipAfterError(benchmark::State& state, const std::string& answer)
{
    if (answer.starts_with(CATENOWBCSCommonDefinitions::errMsgHeader)) {
        state.SkipWithError(answer.c_str());
    }
}

/// What a pick asks of a part before it may be changed, in how many places it counts included.
void EditOftenUsed(benchmark::State& state)
{
    static const auto opened = wb::Store::Open(DatabaseOfOnePart());
    static wb::Server server(*opened.store);
    const std::string place = "1|P000000.0|P000000|A|2|A0000.1|S000.1|BIG|";
    std::string answer = server.Call("WBGetStatedValues", place, {});
    for ([[maybe_unused]] auto turn : state) {
        answer = server.Call("WBGetStatedValues", place, {});
    }
    SkipAfterError(state, answer);
}
BENCHMARK(EditOftenUsed)->Unit(benchmark::kMillisecond);

/// The same rows with the bare library.
void EditOftenUsedRows(benchmark::State& state)
{
    sqlite3* database = nullptr;
    sqlite3_open(DatabaseOfOnePart().c_str(), &database);
    sqlite3_exec(database, "PRAGMA cache_size = -65536", nullptr, nullptr, nullptr);
    sqlite3_stmt* rows = nullptr;
    sqlite3_prepare_v2(database,
                       "SELECT parent, quantity FROM use WHERE part = (SELECT id FROM part WHERE "
                       "identifier = 'P000000')",
                       -1, &rows, nullptr);
    for ([[maybe_unused]] auto turn : state) {
        sqlite3_int64 sum = 0;
        while (sqlite3_step(rows) == SQLITE_ROW) {
            sum += sqlite3_column_int64(rows, 0) + sqlite3_column_int64(rows, 1);
        }
        sqlite3_reset(rows);
        benchmark::DoNotOptimize(sum);
    }
    sqlite3_finalize(rows);
    sqlite3_close(database);
}
BENCHMARK(EditOftenUsedRows)->Unit(benchmark::kMillisecond);

/// ann has changed one value, ben many, kim none.
Edited& Changed()
{
    static Edited edited("edited.db");
    static const bool isChanged = [] {
        edited.Change("ann", 1);
        edited.Change("ben", kChanges);
        return true;
    }();
    benchmark::DoNotOptimize(isChanged);
    return edited;
}

void Initial(benchmark::State& state, const char* user)
{
    const std::string request = "1||BIG|P000500.500|P000500|A|2|A0500.1|S000.1|";
    std::string answer = Changed().Call(user, "WBCompPartGetInitialValues", request);
    for ([[maybe_unused]] auto turn : state) {
        answer = Changed().Call(user, "WBCompPartGetInitialValues", request);
    }
    SkipAfterError(state, answer);
}

void EditInitialWithOne(benchmark::State& state)
{
    Initial(state, "ann");
}
BENCHMARK(EditInitialWithOne)->Unit(benchmark::kMicrosecond);

void EditInitialWithNone(benchmark::State& state)
{
    Initial(state, "kim");
}
BENCHMARK(EditInitialWithNone)->Unit(benchmark::kMicrosecond);

/// The request defines the precision, so that nobody's answer is kept and each is computed.
void Compute(benchmark::State& state, const char* user)
{
    const std::string request = "0||||0|1||Active|0|1|BIG|0|No Filter|1|1|1|1|";
    std::string answer = Changed().Call(user, "WBComputeVPMValues", request);
    for ([[maybe_unused]] auto turn : state) {
        answer = Changed().Call(user, "WBComputeVPMValues", request);
    }
    SkipAfterError(state, answer);
}

void EditComputeWithMany(benchmark::State& state)
{
    Compute(state, "ben");
}
BENCHMARK(EditComputeWithMany)->Unit(benchmark::kMillisecond);

void EditComputeWithNone(benchmark::State& state)
{
    Compute(state, "kim");
}
BENCHMARK(EditComputeWithNone)->Unit(benchmark::kMillisecond);

void EditSaveMany(benchmark::State& state)
{
    static Edited edited("saved.db");
    for ([[maybe_unused]] auto turn : state) {
        state.PauseTiming();
        edited.Change("ann", kChanges);
        state.ResumeTiming();
        if (edited.Call("ann", "WBSaveManagement", "Save") != "Save|OK") {
            state.SkipWithError("not saved");
        }
    }
}
BENCHMARK(EditSaveMany)->Unit(benchmark::kMillisecond)->Iterations(10);

/// As many values and as many lines of a history in one transaction of the bare library.
void EditSaveManyRows(benchmark::State& state)
{
    static Edited edited("rows.db");
    sqlite3* database = nullptr;
    sqlite3_open(edited.Path().c_str(), &database);
    const std::string some =
        "(SELECT id FROM part WHERE identifier LIKE 'P%' LIMIT " + std::to_string(kChanges) + ")";
    const std::string sql =
        "BEGIN IMMEDIATE; UPDATE part_value SET mass = mass + 1 WHERE owner IN " + some +
        "; INSERT INTO history (who, what) VALUES ('ann', 'save');"
        "INSERT INTO changed_fact (history, of_use, owner, subject, fact, before, after) SELECT "
        "last_insert_rowid(), 0, id, 'part ' || identifier || ' A', 'mass type Calculated, mass', "
        "'7', '8' FROM part WHERE id IN " +
        some + "; COMMIT";
    for ([[maybe_unused]] auto turn : state) {
        if (sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
            state.SkipWithError(sqlite3_errmsg(database));
        }
    }
    sqlite3_close(database);
}
BENCHMARK(EditSaveManyRows)->Unit(benchmark::kMillisecond)->Iterations(10);

const RegisterBenchLine kOftenUsed({"pick a part that stands at 98,900 places / reading its uses",
                                    "EditOftenUsed", "EditOftenUsedRows", 3});
const RegisterBenchLine kInitial({"initial values of who changed a value / of who did not",
                                  "EditInitialWithOne", "EditInitialWithNone", 1.5});
const RegisterBenchLine kCompute({"compute with 1,000 changed values of one's own / with none",
                                  "EditComputeWithMany", "EditComputeWithNone", 2});
const RegisterBenchLine kSave({"save 1,000 values / writing them with SQLite", "EditSaveMany",
                               "EditSaveManyRows", 20});

} // namespace
