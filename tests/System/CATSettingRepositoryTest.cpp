#include "CATSettingRepository.h"
#include "CATStatus.h"
#include "CATTomlFile.h"
#include "DiagnosticCapture.h"
#include "FileHooks.h"
#include "TemporaryDirectory.h"
#include "TestEnvironment.h"

#include <gtest/gtest.h>

#include <sys/resource.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <functional>
#include <limits>
#include <random>
#include <thread>

namespace
{

class CATSettingRepositoryTest : public testing::Test
{
protected:
    CATSettingRepositoryTest()
    {
        m_environment.Set("CATUserSettingPath", m_user.Path());
        m_environment.Set("CATReferenceSettingPath", m_reference.Path());
        CATSettingRepository::CloseAll();
        CATSettingRepository::ReportProblemsTo(
            [this](const CATUnicodeString& sentence) { m_sentences.push_back(sentence); });
    }
    ~CATSettingRepositoryTest() override
    {
        FileHooks::Clear();
        CATSettingRepository::ReportProblemsTo({});
        CATSettingRepository::CloseAll();
    }
    static CATSettingRepository& Reopened()
    {
        CATSettingRepository::CloseAll();
        return *CATSettingRepository::GetRepository("App");
    }

    TemporaryDirectory m_user;
    TemporaryDirectory m_reference;
    TestEnvironment m_environment;
    DiagnosticCapture m_errors{CATDiagnosticErrors()};
    std::vector<CATUnicodeString> m_sentences;
};

template <class T>
long ReadInto(const CATSettingRepository& repository, const char* key, T& value)
{
    return repository.ReadSetting(key, value);
}

TEST_F(CATSettingRepositoryTest, EveryKindOutlivesTheSession)
{
    CATSettingRepository& repository = Reopened();
    EXPECT_EQ(repository.Name(), "App");
    EXPECT_EQ(repository.WriteSetting("int", -3), S_OK);
    EXPECT_EQ(repository.WriteSetting("real", 0.1), S_OK);
    EXPECT_EQ(repository.WriteSetting("whole real", 5.0), S_OK);
    EXPECT_EQ(repository.WriteSetting("text", CATUnicodeString("a \"b\"\n\xc3\xa4")), S_OK);
    EXPECT_EQ(
        repository.WriteSetting("ROOT.grp|Instances", CATListValCATUnicodeString{"x", "", "z"}),
        S_OK);
    EXPECT_EQ(repository.WriteSetting("empty", CATListValCATUnicodeString{}), S_OK);
    EXPECT_EQ(repository.SaveRepository(), S_OK);

    const CATSettingRepository& again = Reopened();
    int integer = 0;
    double real = 0.0;
    CATUnicodeString text;
    CATListValCATUnicodeString list{"before"};
    EXPECT_EQ(again.ReadSetting("int", integer), S_OK);
    EXPECT_EQ(integer, -3);
    EXPECT_EQ(again.ReadSetting("real", real), S_OK);
    EXPECT_EQ(real, 0.1);
    EXPECT_EQ(again.ReadSetting("whole real", real), S_OK);
    EXPECT_EQ(real, 5.0);
    EXPECT_EQ(again.ReadSetting("text", text), S_OK);
    EXPECT_EQ(text, "a \"b\"\n\xc3\xa4");
    EXPECT_EQ(again.ReadSetting("ROOT.grp|Instances", list), S_OK);
    EXPECT_EQ(list, (CATListValCATUnicodeString{"x", "", "z"}));
    EXPECT_EQ(again.ReadSetting("empty", list), S_OK);
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_TRUE(m_sentences.empty());
}

TEST_F(CATSettingRepositoryTest, MissingAndForeignSettingsLeaveTheOutputAlone)
{
    m_user.Write("App.CATSettings",
                 "text = \"t\"\nbig = 2147483648\nlow = -2147483649\nmixed = [\"a\", 1]\n"
                 "max = 2147483647\nmin = -2147483648\nflag = true\n[table]\nx = 1\n");
    const CATSettingRepository& repository = Reopened();
    int integer = 9;
    double real = 9.0;
    CATUnicodeString text = "nine";
    CATListValCATUnicodeString list{"nine"};
    EXPECT_EQ(repository.ReadSetting("none", integer), S_FALSE);
    EXPECT_EQ(repository.ReadSetting("none", real), S_FALSE);
    EXPECT_EQ(repository.ReadSetting("none", text), S_FALSE);
    EXPECT_EQ(repository.ReadSetting("none", list), S_FALSE);
    for (const char* key : {"text", "big", "low", "mixed", "flag", "table"}) {
        EXPECT_EQ(repository.ReadSetting(key, integer), E_FAIL) << key;
        EXPECT_EQ(repository.ReadSetting(key, real), E_FAIL) << key;
        EXPECT_EQ(repository.ReadSetting(key, list), E_FAIL) << key;
    }
    EXPECT_EQ(repository.ReadSetting("max", text), E_FAIL);
    EXPECT_EQ(integer, 9);
    EXPECT_EQ(real, 9.0);
    EXPECT_EQ(text, "nine");
    EXPECT_EQ(list, (CATListValCATUnicodeString{"nine"}));
    EXPECT_EQ(repository.ReadSetting("max", integer), S_OK);
    EXPECT_EQ(integer, std::numeric_limits<int>::max());
    EXPECT_EQ(repository.ReadSetting("min", integer), S_OK);
    EXPECT_EQ(integer, std::numeric_limits<int>::min());
}

TEST_F(CATSettingRepositoryTest, EmptyKeyIsRefused)
{
    CATSettingRepository& repository = Reopened();
    EXPECT_EQ(repository.WriteSetting("", 1), E_INVALIDARG);
    EXPECT_EQ(repository.WriteSetting("", 1.0), E_INVALIDARG);
    EXPECT_EQ(repository.WriteSetting("", CATUnicodeString("x")), E_INVALIDARG);
    EXPECT_EQ(repository.WriteSetting("", CATListValCATUnicodeString{}), E_INVALIDARG);
    EXPECT_TRUE(repository.Keys().IsEmpty());
}

TEST_F(CATSettingRepositoryTest, WritingChangesMemoryOnly)
{
    Reopened().WriteSetting("a", 1);
    EXPECT_EQ(m_user.FileCount(), 0U);
    int value = 0;
    EXPECT_EQ(CATSettingRepository::GetRepository("App")->ReadSetting("a", value), S_OK);
    EXPECT_EQ(Reopened().ReadSetting("a", value), S_FALSE);
}

TEST_F(CATSettingRepositoryTest, SavingKeepsValuesThatItDoesNotUnderstand)
{
    m_user.Write("App.CATSettings", "flag = true\nnote = 3\n[table]\nx = 1\n");
    CATSettingRepository& repository = Reopened();
    repository.WriteSetting("a", 1);
    EXPECT_EQ(repository.SaveRepository(), S_OK);
    EXPECT_EQ(m_user.Read("App.CATSettings"), "a = 1\nflag = true\nnote = 3\n\n[table]\nx = 1\n");
    EXPECT_EQ(m_user.FileCount(), 1U);
}

TEST_F(CATSettingRepositoryTest, RollbackReturnsToWhatWasReadOrCommitted)
{
    m_user.Write("App.CATSettings", "a = 1\n");
    CATSettingRepository& repository = Reopened();
    repository.WriteSetting("a", 2);
    repository.WriteSetting("b", 2);
    EXPECT_EQ(repository.Rollback(), S_OK);
    int value = 0;
    repository.ReadSetting("a", value);
    EXPECT_EQ(value, 1);
    EXPECT_EQ(repository.ReadSetting("b", value), S_FALSE);
    repository.WriteSetting("a", 3);
    EXPECT_EQ(repository.Commit(), S_OK);
    repository.WriteSetting("a", 4);
    repository.Rollback();
    repository.ReadSetting("a", value);
    EXPECT_EQ(value, 3);
    // Saving does not commit.
    repository.WriteSetting("a", 5);
    repository.SaveRepository();
    repository.Rollback();
    repository.ReadSetting("a", value);
    EXPECT_EQ(value, 3);
    EXPECT_EQ(m_user.Read("App.CATSettings"), "a = 5\n");
}

TEST_F(CATSettingRepositoryTest, ReferenceCountsWhereTheUserHasNoneAndIsNeverSaved)
{
    m_reference.Write("App.CATSettings", "a = 1\nb = 2\n");
    m_user.Write("App.CATSettings", "b = 3\nc = 4\n");
    CATSettingRepository& repository = Reopened();
    int value = 0;
    repository.ReadSetting("a", value);
    EXPECT_EQ(value, 1);
    repository.ReadSetting("b", value);
    EXPECT_EQ(value, 3);
    EXPECT_EQ(repository.Keys(), (CATListValCATUnicodeString{"a", "b", "c"}));
    EXPECT_EQ(repository.RemoveSetting("b"), S_OK);
    repository.ReadSetting("b", value);
    EXPECT_EQ(value, 2);
    EXPECT_EQ(repository.RemoveSetting("b"), S_FALSE);
    EXPECT_EQ(repository.RemoveSetting("none"), S_FALSE);
    repository.SaveRepository();
    EXPECT_EQ(m_user.Read("App.CATSettings"), "c = 4\n");
}

TEST_F(CATSettingRepositoryTest, ThereIsOneRepositoryForEveryCaller)
{
    CATSettingRepository* repository = CATSettingRepository::GetRepository("App");
    EXPECT_EQ(CATSettingRepository::GetRepository("App"), repository);
    EXPECT_NE(CATSettingRepository::GetRepository("Other"), repository);
}

TEST_F(CATSettingRepositoryTest, ThereIsNoneWithoutANameOrAPlace)
{
    EXPECT_EQ(CATSettingRepository::GetRepository(""), nullptr);
    EXPECT_EQ(CATSettingRepository::GetRepository("a/b"), nullptr);
    for (const char* path : {"", ";;"}) {
        m_environment.Set("CATUserSettingPath", path);
        EXPECT_EQ(CATSettingRepository::GetRepository("App"), nullptr);
    }
    m_environment.Unset("CATUserSettingPath");
    EXPECT_EQ(CATSettingRepository::GetRepository("App"), nullptr);
    EXPECT_TRUE(m_sentences.empty());
}

TEST_F(CATSettingRepositoryTest, WithAReferenceAloneItReadsButCannotSave)
{
    m_environment.Unset("CATUserSettingPath");
    m_reference.Write("App.CATSettings", "a = 1\n");
    CATSettingRepository* repository = CATSettingRepository::GetRepository("App");
    ASSERT_NE(repository, nullptr);
    int value = 0;
    EXPECT_EQ(repository->ReadSetting("a", value), S_OK);
    EXPECT_EQ(repository->SaveRepository(), E_FAIL);
    const CATUnicodeString sentence =
        "The settings App.CATSettings cannot be saved: CATUserSettingPath names no directory";
    EXPECT_EQ(m_sentences, (std::vector<CATUnicodeString>{sentence}));
    EXPECT_EQ(m_errors.Lines(), (std::vector<std::string>{sentence.ToStdString()}));
    EXPECT_EQ(m_reference.Read("App.CATSettings"), "a = 1\n");
}

TEST_F(CATSettingRepositoryTest, FirstUserDirectoryIsMadeAndWrittenTo)
{
    m_user.Write("second/App.CATSettings", "a = 1\n");
    m_environment.Set("CATUserSettingPath",
                      ";" + m_user.At("new/first") + ";" + m_user.At("second"));
    CATSettingRepository& repository = Reopened();
    EXPECT_TRUE(m_user.Has("new/first"));
    int value = 0;
    EXPECT_EQ(repository.ReadSetting("a", value), S_OK);
    std::filesystem::remove_all(m_user.At("new"));
    EXPECT_EQ(repository.SaveRepository(), S_OK);
    EXPECT_EQ(m_user.Read("new/first/App.CATSettings"), "a = 1\n");
}

TEST_F(CATSettingRepositoryTest, DirectoryThatCannotBeMadeIsReported)
{
    m_user.Write("file", "");
    const std::string directory = m_user.At("file") + "/inside";
    m_environment.Set("CATUserSettingPath", directory);
    CATSettingRepository& repository = Reopened();
    const CATUnicodeString sentence =
        "The directory of the settings cannot be made: " + directory + ": Not a directory";
    EXPECT_EQ(m_sentences, (std::vector<CATUnicodeString>{sentence}));
    EXPECT_EQ(repository.SaveRepository(), E_FAIL);
    EXPECT_EQ(m_sentences, (std::vector<CATUnicodeString>{sentence, sentence}));
}

TEST_F(CATSettingRepositoryTest, DamagedFileIsSetAsideUnderTheFirstFreeNameAndReported)
{
    const std::string damaged = "a = 1\nb = [\n";
    const std::string path = m_user.Write("App.CATSettings", damaged);
    m_user.Write("App.CATSettings.damaged-1", "an older one");
    CATSettingRepository& repository = Reopened();
    int value = 0;
    EXPECT_EQ(repository.ReadSetting("a", value), S_FALSE);
    EXPECT_FALSE(m_user.Has("App.CATSettings"));
    EXPECT_EQ(m_user.Read("App.CATSettings.damaged-1"), "an older one");
    EXPECT_EQ(m_user.Read("App.CATSettings.damaged-2"), damaged);
    ASSERT_EQ(m_sentences.size(), 1U);
    EXPECT_EQ(m_sentences[0].Find("The settings cannot be read: " + path + ":"), 0)
        << m_sentences[0].Text();
    EXPECT_TRUE(m_sentences[0].Contains(". The file was kept as " + path + ".damaged-2"));
    EXPECT_EQ(repository.WriteSetting("a", 2), S_OK);
    EXPECT_EQ(repository.SaveRepository(), S_OK);
    EXPECT_EQ(m_user.Read("App.CATSettings"), "a = 2\n");
    EXPECT_EQ(m_user.Read("App.CATSettings.damaged-2"), damaged);
}

TEST_F(CATSettingRepositoryTest, DamagedReferenceIsReportedAndLeftWhereItIs)
{
    const std::string path = m_reference.Write("App.CATSettings", "a = \n");
    const CATSettingRepository& repository = Reopened();
    EXPECT_TRUE(repository.Keys().IsEmpty());
    ASSERT_EQ(m_sentences.size(), 1U);
    EXPECT_EQ(m_sentences[0].Find("The reference settings cannot be read: " + path + ":1:"), 0)
        << m_sentences[0].Text();
    EXPECT_TRUE(m_reference.Has("App.CATSettings"));
    EXPECT_EQ(m_reference.FileCount(), 1U);
}

TEST_F(CATSettingRepositoryTest, DamagedFileThatCannotBeSetAsideIsNotWrittenOver)
{
    const std::string path = m_user.Write("App.CATSettings", "a = \n");
    FileHooks::rename = [](const char* to) {
        return std::string(to).ends_with(".damaged-1") ? EACCES : 0;
    };
    CATSettingRepository& repository = Reopened();
    const CATUnicodeString rest =
        ". The file cannot be set aside: Permission denied. Nothing will be saved over it";
    ASSERT_EQ(m_sentences.size(), 1U);
    EXPECT_EQ(m_sentences[0].Find("The settings cannot be read: " + path + ":1:"), 0);
    EXPECT_TRUE(m_sentences[0].Contains(rest)) << m_sentences[0].Text();
    repository.WriteSetting("a", 1);
    EXPECT_EQ(repository.SaveRepository(), E_FAIL);
    ASSERT_EQ(m_sentences.size(), 2U);
    EXPECT_EQ(m_sentences[1], "The settings cannot be read: " + path + rest);
    EXPECT_EQ(m_user.Read("App.CATSettings"), "a = \n");
    // As soon as it can be set aside, saving goes on.
    FileHooks::rename = {};
    EXPECT_EQ(repository.SaveRepository(), S_OK);
    EXPECT_EQ(m_user.Read("App.CATSettings"), "a = 1\n");
    EXPECT_EQ(m_user.Read("App.CATSettings.damaged-1"), "a = \n");
    EXPECT_EQ(repository.SaveRepository(), S_OK);
    EXPECT_EQ(m_user.FileCount(), 2U);
}

TEST_F(CATSettingRepositoryTest, DamagedFileThatTheUserTookAwayIsNoHindrance)
{
    m_user.Write("App.CATSettings", "a = \n");
    FileHooks::rename = [](const char* to) {
        return std::string(to).ends_with(".damaged-1") ? EACCES : 0;
    };
    CATSettingRepository& repository = Reopened();
    std::filesystem::remove(m_user.At("App.CATSettings"));
    EXPECT_EQ(repository.SaveRepository(), S_OK);
    EXPECT_EQ(m_sentences.size(), 1U);
}

TEST_F(CATSettingRepositoryTest, SavingFlushesTheFileBeforeItsNameAndTheDirectoryBehindIt)
{
    m_user.Write("App.CATSettings", "a = 1\n");
    CATSettingRepository& repository = Reopened();
    repository.WriteSetting("a", 2);
    std::vector<std::string> seen;
    FileHooks::flush = [&](int file) {
        seen.push_back((FileHooks::IsDirectory(file) ? "directory " : "file ") +
                       m_user.Read("App.CATSettings"));
        return 0;
    };
    EXPECT_EQ(repository.SaveRepository(), S_OK);
    EXPECT_EQ(seen, (std::vector<std::string>{"file a = 1\n", "directory a = 2\n"}));
}

TEST_F(CATSettingRepositoryTest, FileThatCannotBeFlushedOrRenamedLeavesTheOldOne)
{
    m_user.Write("App.CATSettings", "a = 1\n");
    CATSettingRepository& repository = Reopened();
    repository.WriteSetting("a", 2);
    FileHooks::flush = [](int file) {
        return FileHooks::IsDirectory(file) ? 0 : EIO;
    };
    EXPECT_EQ(repository.SaveRepository(), E_FAIL);
    FileHooks::flush = {};
    FileHooks::rename = [](const char*) {
        return EBUSY;
    };
    EXPECT_EQ(repository.SaveRepository(), E_FAIL);
    EXPECT_EQ(m_user.Read("App.CATSettings"), "a = 1\n");
    EXPECT_EQ(m_user.FileCount(), 1U);
    const CATUnicodeString begin =
        "The settings cannot be saved: " + m_user.At("App.CATSettings") + ": ";
    EXPECT_EQ(m_sentences, (std::vector<CATUnicodeString>{begin + "Input/output error",
                                                          begin + "Device or resource busy"}));
}

TEST_F(CATSettingRepositoryTest, DirectoryThatCannotBeFlushedIsReported)
{
    CATSettingRepository& repository = Reopened();
    FileHooks::flush = [](int file) {
        return FileHooks::IsDirectory(file) ? EIO : 0;
    };
    EXPECT_EQ(repository.SaveRepository(), E_FAIL);
    EXPECT_EQ(m_sentences.size(), 1U);
}

TEST_F(CATSettingRepositoryTest, FullDiskLeavesTheOldFileWholeAndIsReported)
{
    m_user.Write("App.CATSettings", "a = 1\n");
    CATSettingRepository& repository = Reopened();
    repository.WriteSetting("a", CATUnicodeString(std::string(100000, 'x')));
    const int status = RunInChild([&] {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{4096, 4096};
        setrlimit(RLIMIT_FSIZE, &limit);
        const bool isRefused = repository.SaveRepository() == E_FAIL;
        const CATUnicodeString sentence =
            "The settings cannot be saved: " + m_user.At("App.CATSettings") + ": File too large";
        return isRefused && m_sentences == std::vector<CATUnicodeString>{sentence} ? 0 : 1;
    });
    EXPECT_EQ(status, 0);
    EXPECT_EQ(m_user.Read("App.CATSettings"), "a = 1\n");
    EXPECT_EQ(m_user.FileCount(), 1U);
}

TEST_F(CATSettingRepositoryTest, EndInTheMiddleOfWritingLeavesTheOldFileWhole)
{
    m_user.Write("App.CATSettings", "a = 1\n");
    CATSettingRepository& repository = Reopened();
    repository.WriteSetting("a", CATUnicodeString(std::string(100000, 'x')));
    const int status = RunInChild([&] {
        signal(SIGXFSZ, SIG_DFL);
        const rlimit limit{4096, 4096};
        setrlimit(RLIMIT_FSIZE, &limit);
        // The first write fills up to the limit, the next one ends the process.
        return static_cast<int>(repository.SaveRepository());
    });
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(m_user.Read("App.CATSettings"), "a = 1\n");
}

TEST_F(CATSettingRepositoryTest, FileIsWholeAtAnyMomentOfACrash)
{
    constexpr int kCrashes = 60;
    const std::string filler(20000, 'x');
    CATSettingRepository& repository = Reopened();
    const auto save = [&](int round) {
        repository.WriteSetting("begin", round);
        repository.WriteSetting("filler", CATUnicodeString(filler));
        repository.WriteSetting("last", round);
        return repository.SaveRepository();
    };
    ASSERT_EQ(save(0), S_OK);
    std::mt19937 random(20260721);
    for (int crash = 0; crash < kCrashes; ++crash) {
        const pid_t child = fork();
        if (child == 0) {
            for (int round = 1;; ++round) {
                save(round);
            }
        }
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 6000));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        const CATTomlResult read = CATReadTomlFile(m_user.At("App.CATSettings"));
        ASSERT_TRUE(read.IsGood()) << read.problem;
        ASSERT_EQ(*read.root.Find("begin")->AsInteger(), *read.root.Find("last")->AsInteger());
        ASSERT_EQ(*read.root.Find("filler")->AsText(), filler);
    }
}

} // namespace
