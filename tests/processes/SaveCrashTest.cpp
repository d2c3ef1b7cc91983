#include "../System/TestEnvironment.h"
#include "ChildProcess.h"
#include "SettingsRound.h"
#include "SqlConnection.h"
#include "TemporaryDirectory.h"
#include "TwelveParts.h"
#include "WBImport.h"
#include "WBServer.h"
#include "WBStore.h"

#include "CATSettingRepository.h"

#include <gmock/gmock.h>

#include <sys/wait.h>

#include <chrono>
#include <filesystem>
#include <iostream>
#include <random>
#include <thread>

namespace
{

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr int kRandomCrashes = 200;

bool WasKilled(int status)
{
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
}

/// What every program gets that is to be ended in the middle.
ChildProcess::Environment UnderTheShim(const std::string& folder)
{
    return {{"LD_PRELOAD", WB_KILL_SHIM},
            {"WB_KILL_FOLDER", folder},
            {"WB_KILL_TELL", std::to_string(ChildProcess::kTellFile)},
            // Sanitizers mind what is loaded before them; this one knows that it may be.
            {"ASAN_OPTIONS", "verify_asan_link_order=0"}};
}

/// Random moments; the seed is printed, and WB_CRASH_SEED repeats a run.
std::mt19937 RandomMoments()
{
    const char* given = std::getenv("WB_CRASH_SEED");
    const unsigned seed = given == nullptr
                              ? std::random_device()()
                              : static_cast<unsigned>(std::strtoul(given, nullptr, 10));
    std::cout << "WB_CRASH_SEED=" << seed << "\n";
    testing::Test::RecordProperty("WB_CRASH_SEED", std::to_string(seed));
    return std::mt19937(seed);
}

/// A piece of work that another program does, and what may stand in the files afterwards.
class Work
{
public:
    virtual ~Work() = default;
    /// Puts the files back to what they were before.
    virtual void Prepare() = 0;
    virtual ChildProcess::Environment Environment() const = 0;
    virtual std::vector<std::string> Command() const = 0;
    /// What the program reads.
    virtual std::string Input() const { return {}; }

    enum class State
    {
        Old,
        New,
        Broken
    };
    /// What the files hold; adds failures that say what is wrong with them.
    virtual State Look() = 0;
};

struct Run
{
    int status;
    std::chrono::microseconds took; // from the first change of a file to the end
};

/// Runs the work, which ends at the n-th call, or so long after its first one.
Run RunOnce(Work& work, ChildProcess::Environment further,
            std::optional<std::chrono::microseconds> killAfter = std::nullopt)
{
    work.Prepare();
    further.merge(work.Environment());
    ChildProcess program(work.Command(), further);
    if (!work.Input().empty()) {
        program.Send(work.Input());
    }
    program.CloseInput();
    program.WaitForTelling();
    const auto begin = Clock::now();
    if (killAfter) {
        // Sleeping is too coarse for what takes less than a millisecond.
        while (Clock::now() - begin < *killAfter) {
        }
        program.Kill();
    }
    const int status = program.Wait();
    return {status, std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - begin)};
}

/// Ends the work at each of its calls, behind it or in the middle of what it writes.
void EndAtEveryCall(Work& work, bool isTorn)
{
    bool hasSeenOld = false;
    bool hasSeenNew = false;
    int call = 1;
    for (bool wasKilled = true; wasKilled; ++call) {
        SCOPED_TRACE("ended at call " + std::to_string(call));
        const Run run = RunOnce(
            work, {{"WB_KILL_AT", std::to_string(call)}, {"WB_KILL_TORN", isTorn ? "1" : "0"}});
        wasKilled = WasKilled(run.status);
        const Work::State state = work.Look();
        ASSERT_NE(state, Work::State::Broken);
        if (!wasKilled) {
            ASSERT_EQ(run.status, 0);
            ASSERT_EQ(state, Work::State::New);
        }
        hasSeenOld = hasSeenOld || state == Work::State::Old;
        hasSeenNew = hasSeenNew || (wasKilled && state == Work::State::New);
    }
    constexpr int kFewest = 4; // write, flush, rename, flush
    EXPECT_GT(call, kFewest);
    EXPECT_TRUE(hasSeenOld);
    EXPECT_TRUE(hasSeenNew) << "no program was ended after the new values had come in";
}

void EndAtRandomMoments(Work& work)
{
    std::mt19937 random = RandomMoments();
    // The quickest of some: a machine that stumbles once would have all the others end by
    // themselves.
    constexpr int kTries = 5;
    std::chrono::microseconds quickest = std::chrono::microseconds::max();
    for (int attempt = 0; attempt < kTries; ++attempt) {
        const Run whole = RunOnce(work, {});
        ASSERT_EQ(whole.status, 0);
        quickest = std::min(quickest, whole.took);
    }
    std::uniform_int_distribution<long> moment(0, quickest.count() * 5 / 4);
    int killed = 0;
    for (int crash = 0; crash < kRandomCrashes; ++crash) {
        const std::chrono::microseconds after(moment(random));
        SCOPED_TRACE("ended " + std::to_string(after.count()) + " us after its first call");
        const Run run = RunOnce(work, {}, after);
        killed += WasKilled(run.status) ? 1 : 0;
        ASSERT_NE(work.Look(), Work::State::Broken);
    }
    EXPECT_GT(killed, kRandomCrashes / 10) << "most programs had ended by themselves";
}

// ------------------------------------------------------------------------------------- database

/// Saves changes of twelve parts: one transaction, whatever happens.
class DatabaseSave : public Work
{
public:
    DatabaseSave()
    {
        const auto store = wb::Store::OpenOrCreate(m_template).store;
        const auto imported =
            wb::ImportFile(*store, m_folder.Write("twelve.csv", TwelveParts()), {{}, "kim"});
        EXPECT_THAT(imported.errors, testing::IsEmpty());
        wb::Server server(*store);
        for (int number = 1; number <= kTwelve; ++number) {
            EXPECT_EQ(server.Call("WBApplyValues",
                                  ApplyRequest(number, "mass", "10", "11.5", "0|0|0"), m_anna),
                      "Apply|OK|1|");
        }
    }
    void Prepare() override
    {
        fs::remove_all(m_work);
        fs::create_directories(m_work);
        fs::copy_file(m_template, m_database);
    }
    ChildProcess::Environment Environment() const override { return UnderTheShim(m_work); }
    std::vector<std::string> Command() const override { return {WB_SERVER_CALLS, m_database}; }
    std::string Input() const override { return "anna\tWBSaveManagement\tSave"; }

    State Look() override
    {
        const State state = StateOfDatabase();
        if (state == State::Broken) {
            return state;
        }
        // Nothing is lost and nothing happens twice: what was not saved can be saved now, what was
        // saved is pending no more.
        const auto store = wb::Store::Open(m_database).store;
        wb::Server server(*store);
        EXPECT_EQ(server.Call("WBSaveManagement", "Save", m_anna),
                  state == State::Old ? "Save|OK" : "Save|NA");
        EXPECT_EQ(StateOfDatabase(), State::New);
        return state;
    }

private:
    State StateOfDatabase()
    {
        const auto opened = wb::Store::Open(m_database);
        if (!opened.store) {
            ADD_FAILURE() << opened.error;
            return State::Broken;
        }
        EXPECT_EQ(wbtest::SqlConnection(m_database).Text("PRAGMA integrity_check"), "ok");
        wb::Server server(*opened.store);
        const std::string pending = server.Call("WBPendingChanges", "", m_anna);
        const std::size_t history = opened.store->History().size();
        int changed = 0;
        int unchanged = 0;
        for (int number = 1; number <= kTwelve; ++number) {
            const double mass = opened.store->FindFacts(PartName(number), "A")
                                    ->sets.front()
                                    .numbers[static_cast<std::size_t>(wb::Fact::Mass)];
            changed += mass == 11.5 ? 1 : 0;
            unchanged += mass == 10.0 ? 1 : 0;
        }
        if (unchanged == kTwelve && pending.rfind("12|", 0) == 0 && history == 1) {
            return State::Old;
        }
        if (changed == kTwelve && pending == "0|" && history == 2) {
            return State::New;
        }
        ADD_FAILURE() << changed << " parts changed, " << unchanged << " unchanged, " << history
                      << " entries in the history, pending: " << pending;
        return State::Broken;
    }

    TemporaryDirectory m_folder;
    std::string m_template = m_folder.At("template.db");
    std::string m_work = m_folder.At("work");
    std::string m_database = m_work + "/twelve.db";
    wb::CallContext m_anna{"anna", nullptr, {}, {}};
};

TEST(DatabaseSaveCrash, EndedBehindAnyCallItHoldsTheOldValuesOrTheNewOnes)
{
    DatabaseSave work;
    EndAtEveryCall(work, false);
}

TEST(DatabaseSaveCrash, EndedInTheMiddleOfAnyWriteItHoldsTheOldValuesOrTheNewOnes)
{
    DatabaseSave work;
    EndAtEveryCall(work, true);
}

TEST(DatabaseSaveCrash, EndedAtAnyMomentItHoldsTheOldValuesOrTheNewOnes)
{
    DatabaseSave work;
    EndAtRandomMoments(work);
}

// ------------------------------------------------------------------------------------- settings

/// Saves the client's settings: another round in place of the one that is stored.
class SettingsSave : public Work
{
public:
    SettingsSave()
    {
        m_environment.Set("CATUserSettingPath", m_folder.Path());
        CATSettingRepository::CloseAll();
        CATSettingRepository::ReportProblemsTo(
            [](const CATUnicodeString& sentence) { ADD_FAILURE() << sentence.Text(); });
    }
    ~SettingsSave() override
    {
        CATSettingRepository::ReportProblemsTo({});
        CATSettingRepository::CloseAll();
    }
    void Prepare() override
    {
        for (const auto& entry : fs::directory_iterator(m_folder.Path())) {
            fs::remove(entry);
        }
        CATSettingRepository::CloseAll();
        ASSERT_TRUE(SaveSettingsRound("old"));
    }
    ChildProcess::Environment Environment() const override
    {
        ChildProcess::Environment environment = UnderTheShim(m_folder.Path());
        environment["CATUserSettingPath"] = m_folder.Path();
        return environment;
    }
    std::vector<std::string> Command() const override { return {WB_SETTINGS_SAVER, "new"}; }
    State Look() override
    {
        CATSettingRepository::CloseAll();
        const std::string round = ReadSettingsRound();
        return round == "old" ? State::Old : round == "new" ? State::New : State::Broken;
    }

private:
    TemporaryDirectory m_folder;
    TestEnvironment m_environment;
};

TEST(SettingsSaveCrash, EndedBehindAnyCallTheyAreTheOldOnesOrTheNewOnes)
{
    SettingsSave work;
    EndAtEveryCall(work, false);
}

TEST(SettingsSaveCrash, EndedInTheMiddleOfAnyWriteTheyAreTheOldOnesOrTheNewOnes)
{
    SettingsSave work;
    EndAtEveryCall(work, true);
}

TEST(SettingsSaveCrash, EndedAtAnyMomentTheyAreTheOldOnesOrTheNewOnes)
{
    SettingsSave work;
    EndAtRandomMoments(work);
}

} // namespace
