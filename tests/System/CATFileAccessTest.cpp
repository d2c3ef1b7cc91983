#include "CATFileAccess.h"

#include "CATEnvironment.h"
#include "CATStatus.h"
#include "TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>

namespace
{

class CATFileAccessTest : public testing::Test
{
protected:
    ~CATFileAccessTest() override { CATSetEnvironmentSource({}); }
    static void UseTemporaryDirectory(std::optional<std::string> directory)
    {
        CATSetEnvironmentSource([directory](const char* name) {
            return std::string(name) == "TMPDIR" ? directory : std::nullopt;
        });
    }
    TemporaryDirectory m_directory;
};

TEST_F(CATFileAccessTest, BackslashBehindADirectorySeparates)
{
    const std::string directory = m_directory.Path();
    EXPECT_EQ(CATFilePath(directory + "\\report.xml"), directory + "/report.xml");
    EXPECT_EQ(CATFilePath(directory + "\\"), directory + "/");
}

TEST_F(CATFileAccessTest, EveryOtherBackslashStays)
{
    const std::string directory = m_directory.Path();
    m_directory.Write("file", "x");
    EXPECT_EQ(CATFilePath(directory + "/a\\b.xml"), directory + "/a\\b.xml");
    EXPECT_EQ(CATFilePath(directory + "\\WBReport_A\\B.xml"), directory + "/WBReport_A\\B.xml");
    EXPECT_EQ(CATFilePath(directory + "/file\\b.xml"), directory + "/file\\b.xml");
    EXPECT_EQ(CATFilePath("\\b.xml"), "\\b.xml");
    EXPECT_EQ(CATFilePath(""), "");
}

TEST_F(CATFileAccessTest, LongestDirectoryIsTheOneThatIsMeant)
{
    const std::string odd = m_directory.Path() + "/a\\b";
    std::filesystem::create_directory(m_directory.Path() + "/a");
    std::filesystem::create_directory(odd);
    EXPECT_EQ(CATFilePath(odd + "\\c.xml"), odd + "/c.xml");
}

TEST_F(CATFileAccessTest, DefaultDirectoryIsTheTemporaryOne)
{
    const std::string directory = m_directory.Path();
    UseTemporaryDirectory(directory);
    EXPECT_EQ(CATFilePath("C:\\Temp"), directory);
    EXPECT_EQ(CATFilePath("C:\\Temp\\report.xml"), directory + "/report.xml");
    EXPECT_EQ(CATFilePath("C:\\Temp/report.xml"), directory + "/report.xml");
    EXPECT_EQ(CATFilePath("C:\\Temperature.xml"), "C:\\Temperature.xml");
    EXPECT_EQ(CATFilePath("C:\\Tem"), "C:\\Tem");
}

TEST_F(CATFileAccessTest, TemporaryDirectoryHasADefault)
{
    for (const std::optional<std::string>& unset :
         {std::optional<std::string>(), std::optional<std::string>("")}) {
        UseTemporaryDirectory(unset);
        EXPECT_EQ(CATFilePath("C:\\Temp\\report.xml"), "/tmp/report.xml");
    }
}

TEST_F(CATFileAccessTest, ModeZeroAsksWhetherThereIsSuchAFile)
{
    m_directory.Write("report.xml", "x");
    EXPECT_EQ(CATFileAccess(m_directory.At("report.xml"), 0), S_OK);
    EXPECT_EQ(CATFileAccess(m_directory.Path() + "\\report.xml", 0), S_OK);
    EXPECT_EQ(CATFileAccess(m_directory.Path(), 0), S_OK);
    EXPECT_EQ(CATFileAccess(m_directory.At("other.xml"), 0), E_FAIL);
    EXPECT_EQ(CATFileAccess("", 0), E_FAIL);
}

TEST_F(CATFileAccessTest, OtherModesAskWhatMayBeDone)
{
    EXPECT_EQ(CATFileAccess("/proc/self/status", 4), S_OK);
    // Nobody may run it, not even who may do everything else.
    EXPECT_EQ(CATFileAccess(m_directory.Write("report.xml", "x"), 1), E_FAIL);
}

} // namespace
