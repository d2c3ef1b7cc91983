#include "ChildProcess.h"
#include "TemporaryDirectory.h"
#include "TwelveParts.h"
#include "WBImport.h"
#include "WBStore.h"

#include <gmock/gmock.h>

#include <sys/wait.h>

namespace
{

using testing::HasSubstr;
using testing::StartsWith;

/// Two people at work on one database, each with a program of his own.
class TwoProcesses : public testing::Test
{
protected:
    /// A program with its own server, as a session of that user runs it.
    class Person
    {
    public:
        Person(const std::string& database, std::string user)
            : m_server({WB_SERVER_CALLS, database}), m_user(std::move(user))
        {}
        void Send(const std::string& method, const std::string& request)
        {
            m_server.Send(m_user + "\t" + method + "\t" + request);
        }
        std::string Answer() { return m_server.ReadLine(); }
        std::string Call(const std::string& method, const std::string& request = {})
        {
            Send(method, request);
            return Answer();
        }
        /// Changes the mass of a part that he saw at `seen`.
        std::string ChangeMass(int number, const std::string& seen, const std::string& mass)
        {
            return Call("WBApplyValues", ApplyRequest(number, "mass", seen, mass, "0|0|0"));
        }
        /// What the whole product weighs, as he sees it.
        std::string Mass()
        {
            const std::string answer = Call("WBComputeVPMValues", kComputeRoot);
            return answer.substr(0, answer.find('|'));
        }
        /// How many changes of his are not saved.
        std::string Pending()
        {
            const std::string answer = Call("WBPendingChanges");
            return answer.substr(0, answer.find('|'));
        }
        std::string Save() { return Call("WBSaveManagement", "Save"); }
        std::string Abort() { return Call("WBSaveManagement", "Abort"); }
        void Kill() { m_server.Kill(); }

    private:
        ChildProcess m_server;
        std::string m_user;
    };

    static std::string MakeDatabase(const TemporaryDirectory& folder)
    {
        std::string path = folder.At("twelve.db");
        const auto store = wb::Store::OpenOrCreate(path).store;
        const auto imported =
            wb::ImportFile(*store, folder.Write("twelve.csv", TwelveParts()), {{}, "kim"});
        EXPECT_THAT(imported.errors, testing::IsEmpty());
        return path;
    }

    std::size_t HistoryLength() const
    {
        return wb::Store::Open(m_database).store->History().size();
    }

    TemporaryDirectory m_folder;
    std::string m_database = MakeDatabase(m_folder);
    Person m_anna{m_database, "anna"};
    Person m_bert{m_database, "bert"};
};

TEST_F(TwoProcesses, WhatOneHasNotSavedTheOtherDoesNotSee)
{
    EXPECT_EQ(m_anna.Mass(), "120");
    EXPECT_EQ(m_bert.Mass(), "120");
    EXPECT_EQ(m_anna.ChangeMass(1, "10", "12"), "Apply|OK|1|");
    EXPECT_EQ(m_anna.Mass(), "122");
    EXPECT_EQ(m_anna.Pending(), "1");
    EXPECT_EQ(m_bert.Mass(), "120");
    EXPECT_EQ(m_bert.Pending(), "0");
    EXPECT_EQ(m_bert.Save(), "Save|NA");
    EXPECT_EQ(m_bert.Abort(), "Abort|OK");
    EXPECT_EQ(m_anna.Mass(), "122");
}

TEST_F(TwoProcesses, WhatIsSavedCountsForBothAtOnce)
{
    EXPECT_EQ(m_bert.Mass(), "120"); // his server holds the product in memory now
    EXPECT_EQ(m_anna.ChangeMass(1, "10", "12"), "Apply|OK|1|");
    EXPECT_EQ(m_anna.Save(), "Save|OK");
    EXPECT_EQ(m_bert.Mass(), "122");
    EXPECT_EQ(m_anna.Mass(), "122");
    EXPECT_EQ(m_anna.Pending(), "0");
    EXPECT_EQ(m_anna.Save(), "Save|NA");
}

TEST_F(TwoProcesses, WhoSavesTheSameQuantitySecondIsRefusedAndLosesNothing)
{
    EXPECT_EQ(m_anna.ChangeMass(1, "10", "12"), "Apply|OK|1|");
    EXPECT_EQ(m_anna.ChangeMass(2, "10", "20"), "Apply|OK|1|");
    EXPECT_EQ(m_bert.ChangeMass(1, "10", "13"), "Apply|OK|1|");
    EXPECT_EQ(m_bert.Save(), "Save|OK");

    EXPECT_EQ(m_anna.Save(), "Save|FALSE");
    const std::string warning = m_anna.Call("WBWarningMsg");
    EXPECT_THAT(warning, StartsWith("- part P01 A, mass type Weighed, mass"));
    for (const char* named : {"10 kg", "12 kg", "13 kg", "bert"}) {
        EXPECT_THAT(warning, HasSubstr(named));
    }
    EXPECT_THAT(warning, testing::Not(HasSubstr("P02"))); // nobody stands in the way of that one
    EXPECT_EQ(m_anna.Pending(), "2");
    EXPECT_EQ(m_anna.Mass(), "132"); // 12 + 20 + 10 x 10
    EXPECT_EQ(m_bert.Mass(), "123");
    EXPECT_EQ(HistoryLength(), 2U); // the import and bert's
}

TEST_F(TwoProcesses, WhoHasSeenTheOthersValueSavesHisOwn)
{
    EXPECT_EQ(m_anna.ChangeMass(1, "10", "12"), "Apply|OK|1|");
    EXPECT_EQ(m_bert.ChangeMass(1, "10", "13"), "Apply|OK|1|");
    EXPECT_EQ(m_bert.Save(), "Save|OK");
    EXPECT_EQ(m_anna.Save(), "Save|FALSE");
    m_anna.ChangeMass(1, "13", "12");
    EXPECT_EQ(m_anna.Pending(), "1");
    EXPECT_EQ(m_anna.Save(), "Save|OK");
    EXPECT_EQ(m_bert.Mass(), "122");
}

TEST_F(TwoProcesses, GivingUpBringsBackWhatIsSavedAndLeavesTheOthersChangesAlone)
{
    EXPECT_EQ(m_anna.ChangeMass(1, "10", "12"), "Apply|OK|1|");
    EXPECT_EQ(m_bert.ChangeMass(2, "10", "15"), "Apply|OK|1|");
    EXPECT_EQ(m_anna.Abort(), "Abort|OK");
    EXPECT_EQ(m_anna.Pending(), "0");
    EXPECT_EQ(m_anna.Mass(), "120");
    EXPECT_EQ(m_bert.Mass(), "125");
    EXPECT_EQ(m_bert.Pending(), "1");
    EXPECT_EQ(HistoryLength(), 1U);
}

TEST_F(TwoProcesses, TwoPeopleChangeOnePartConflictGiveUpAndSave)
{
    // Each sees his own change alone.
    EXPECT_EQ(m_anna.ChangeMass(1, "10", "12"), "Apply|OK|1|");
    EXPECT_EQ(m_bert.ChangeMass(1, "10", "13"), "Apply|OK|1|");
    EXPECT_EQ(m_anna.Mass(), "122");
    EXPECT_EQ(m_bert.Mass(), "123");

    // Whoever saves first has it; the other one loses nothing.
    EXPECT_EQ(m_bert.Save(), "Save|OK");
    EXPECT_EQ(m_anna.Save(), "Save|FALSE");
    EXPECT_EQ(m_anna.Pending(), "1");
    EXPECT_EQ(m_anna.Mass(), "122");
    EXPECT_EQ(m_bert.Mass(), "123");

    EXPECT_EQ(m_anna.Abort(), "Abort|OK");
    EXPECT_EQ(m_anna.Pending(), "0");
    EXPECT_EQ(m_anna.Mass(), "123");

    // What was saved last can be changed by anybody.
    EXPECT_EQ(m_anna.ChangeMass(1, "13", "14"), "Apply|OK|1|");
    EXPECT_EQ(m_bert.Mass(), "123");
    EXPECT_EQ(m_anna.Save(), "Save|OK");
    EXPECT_EQ(m_bert.Mass(), "124");
    EXPECT_EQ(m_bert.Save(), "Save|NA");
    EXPECT_EQ(HistoryLength(), 3U); // the import and two savings
}

TEST_F(TwoProcesses, DifferentQuantitiesOfOneValueSetAreNoConflict)
{
    EXPECT_EQ(m_anna.ChangeMass(1, "10", "12"), "Apply|OK|1|");
    EXPECT_EQ(m_bert.Call("WBApplyValues", ApplyRequest(1, "centre", "0;0;0", "10", "120|0|0")),
              "Apply|OK|1|");
    EXPECT_EQ(m_bert.Save(), "Save|OK");
    EXPECT_EQ(m_anna.Save(), "Save|OK");
    // 12 kg at x = 120 and 110 kg at 0: 122 kg at 1440 / 122 mm.
    const std::string answer = m_bert.Call("WBComputeVPMValues", kComputeRoot);
    EXPECT_THAT(answer, StartsWith("122|"));
    EXPECT_THAT(answer, HasSubstr("|11.8032786885246|0|0|"));
}

TEST_F(TwoProcesses, ChangesOutliveTheProgramThatMadeThem)
{
    EXPECT_EQ(m_anna.ChangeMass(1, "10", "12"), "Apply|OK|1|");
    m_anna.Kill();
    Person next(m_database, "anna");
    EXPECT_EQ(next.Pending(), "1");
    EXPECT_EQ(next.Mass(), "122");
    EXPECT_EQ(next.Save(), "Save|OK");
    EXPECT_EQ(m_bert.Mass(), "122");
}

TEST_F(TwoProcesses, OfTwoThatSaveAtOnceEveryOneIsToldWhatHappened)
{
    constexpr int kRounds = 20;
    std::string stored = "10";
    for (int round = 0; round < kRounds; ++round) {
        const std::string annas = std::to_string(20 + round);
        const std::string berts = std::to_string(60 + round);
        EXPECT_EQ(m_anna.ChangeMass(1, stored, annas), "Apply|OK|1|");
        EXPECT_EQ(m_bert.ChangeMass(1, stored, berts), "Apply|OK|1|");
        m_anna.Send("WBSaveManagement", "Save");
        m_bert.Send("WBSaveManagement", "Save");
        const bool annaSaved = m_anna.Answer() == "Save|OK";
        const bool bertSaved = m_bert.Answer() == "Save|OK";
        EXPECT_NE(annaSaved, bertSaved);
        stored = annaSaved ? annas : berts;
        Person& loser = annaSaved ? m_bert : m_anna;
        EXPECT_EQ(loser.Pending(), "1");
        EXPECT_EQ(loser.Abort(), "Abort|OK");
        EXPECT_EQ(loser.Mass(), std::to_string(110 + std::stoi(stored)));
    }
    EXPECT_EQ(HistoryLength(), 1U + kRounds);
}

} // namespace
