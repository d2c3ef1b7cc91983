#include "CATFileReplacement.h"

#include "FileHooks.h"
#include "TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>

#include <cerrno>
#include <csignal>
#include <thread>

namespace
{

namespace fs = std::filesystem;

mode_t PermissionsOf(const std::string& path)
{
    struct stat status = {};
    stat(path.c_str(), &status);
    return status.st_mode & 07777U;
}

class CATFileReplacementTest : public testing::Test
{
protected:
    CATFileReplacementTest() : m_mask(umask(022)) {}
    ~CATFileReplacementTest() override
    {
        FileHooks::Clear();
        umask(m_mask);
    }
    void ExpectOnly(const std::string& name, const std::string& text) const
    {
        EXPECT_EQ(m_directory.Read(name), text);
        EXPECT_EQ(m_directory.FileCount(), 1U);
    }

    TemporaryDirectory m_directory;

private:
    mode_t m_mask;
};

TEST_F(CATFileReplacementTest, PiecesStandInTheFileOnceTheyAreCommitted)
{
    const std::string path = m_directory.Write("a", "old");
    CATFileReplacement file(path);
    EXPECT_TRUE(file.Open());
    EXPECT_TRUE(file.Write("one "));
    EXPECT_TRUE(file.Write(""));
    EXPECT_TRUE(file.Write("two"));
    EXPECT_EQ(m_directory.Read("a"), "old");
    EXPECT_TRUE(file.Commit());
    EXPECT_EQ(file.Error(), 0);
    ExpectOnly("a", "one two");
}

TEST_F(CATFileReplacementTest, WithoutTheEndTheOldFileStands)
{
    const std::string path = m_directory.Write("a", "old");
    {
        CATFileReplacement file(path);
        EXPECT_TRUE(file.Open());
        EXPECT_TRUE(file.Write("new"));
        EXPECT_EQ(m_directory.FileCount(), 2U);
    }
    ExpectOnly("a", "old");
}

TEST_F(CATFileReplacementTest, TextInOneGoReplacesTheFile)
{
    EXPECT_EQ(CATReplaceFile(m_directory.At("a"), "text"), 0);
    ExpectOnly("a", "text");
    EXPECT_EQ(CATReplaceFile(m_directory.At("none/a"), "text"), ENOENT);
    EXPECT_EQ(CATReplaceFile(m_directory.Path(), "text"), EISDIR);
    EXPECT_EQ(CATReplaceFile(m_directory.At("a/b"), "text"), ENOTDIR);
    ExpectOnly("a", "text");
}

TEST_F(CATFileReplacementTest, NameWithoutADirectoryStandsInTheWorkingOne)
{
    const fs::path before = fs::current_path();
    fs::current_path(m_directory.Path());
    EXPECT_EQ(CATReplaceFile("a", "text"), 0);
    fs::current_path(before);
    ExpectOnly("a", "text");
}

TEST_F(CATFileReplacementTest, NewFileGetsThePermissionsOfEveryNewFile)
{
    CATReplaceFile(m_directory.At("a"), "text");
    EXPECT_EQ(PermissionsOf(m_directory.At("a")), 0644U);
    umask(077);
    CATReplaceFile(m_directory.At("b"), "text");
    EXPECT_EQ(PermissionsOf(m_directory.At("b")), 0600U);
}

TEST_F(CATFileReplacementTest, OldFileGivesItsPermissionsToTheNewOne)
{
    const std::string path = m_directory.Write("a", "old");
    for (const mode_t permissions : {0600U, 0666U, 0755U}) {
        chmod(path.c_str(), permissions);
        EXPECT_EQ(CATReplaceFile(path, "new"), 0);
        EXPECT_EQ(PermissionsOf(path), permissions);
    }
}

// Who runs the tests as root may do everything, so another user is played in a child.
TEST_F(CATFileReplacementTest, FileThatTheUserMayNotWriteIsLeftAlone)
{
    const std::string path = m_directory.Write("a", "old");
    chmod(path.c_str(), 0444);
    chmod(m_directory.Path().c_str(), 0777);
    const int status = RunInChild([&] {
        constexpr uid_t kNobody = 65534;
        return (geteuid() != 0 || seteuid(kNobody) == 0) && CATReplaceFile(path, "new") == EACCES
                   ? 0
                   : 1;
    });
    EXPECT_EQ(status, 0);
    ExpectOnly("a", "old");
}

TEST_F(CATFileReplacementTest, LinkStaysALink)
{
    m_directory.Write("inner/file", "old");
    fs::create_symlink("inner/file", m_directory.At("near"));
    fs::create_symlink(m_directory.At("near"), m_directory.At("far"));
    EXPECT_EQ(CATReplaceFile(m_directory.At("far"), "new"), 0);
    EXPECT_TRUE(fs::is_symlink(m_directory.At("far")));
    EXPECT_TRUE(fs::is_symlink(m_directory.At("near")));
    EXPECT_EQ(m_directory.Read("inner/file"), "new");
    EXPECT_EQ(m_directory.FileCount(), 3U);
}

TEST_F(CATFileReplacementTest, LinkToNothingGetsItsFile)
{
    fs::create_symlink("file", m_directory.At("link"));
    EXPECT_EQ(CATReplaceFile(m_directory.At("link"), "new"), 0);
    EXPECT_TRUE(fs::is_symlink(m_directory.At("link")));
    EXPECT_EQ(m_directory.Read("file"), "new");
}

TEST_F(CATFileReplacementTest, LinksInACircleAreRefused)
{
    fs::create_symlink("b", m_directory.At("a"));
    fs::create_symlink("a", m_directory.At("b"));
    EXPECT_EQ(CATReplaceFile(m_directory.At("a"), "new"), ELOOP);
}

TEST_F(CATFileReplacementTest, WhatIsNoOrdinaryFileIsWrittenTo)
{
    const std::string pipe = m_directory.At("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    std::string read;
    std::thread reader([&] { read = m_directory.Read("pipe"); });
    EXPECT_EQ(CATReplaceFile(pipe, "text"), 0);
    reader.join();
    EXPECT_EQ(read, "text");
    EXPECT_TRUE(fs::is_fifo(pipe));
    EXPECT_EQ(CATReplaceFile("/dev/full", "text"), ENOSPC);
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

TEST_F(CATFileReplacementTest, FailureEndsTheWorkAndLeavesNothing)
{
    const std::string path = m_directory.Write("a", "old");
    const int status = RunInChild([&] {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{1000, 1000};
        setrlimit(RLIMIT_FSIZE, &limit);
        CATFileReplacement file(path);
        const bool isStopped = file.Open() && file.Write(std::string(900, 'x')) &&
                               !file.Write(std::string(900, 'x')) && file.Error() == EFBIG &&
                               m_directory.FileCount() == 1 && !file.Write("x") && !file.Commit() &&
                               file.Error() == EFBIG;
        return isStopped ? 0 : 1;
    });
    EXPECT_EQ(status, 0);
    ExpectOnly("a", "old");
}

TEST_F(CATFileReplacementTest, FlushesTheTextBeforeTheNameAndTheNameAfterIt)
{
    std::string seen;
    FileHooks::flush = [&seen](int file) {
        seen += FileHooks::IsDirectory(file) ? "directory " : "text ";
        return 0;
    };
    FileHooks::rename = [&seen](const char*) {
        seen += "name ";
        return 0;
    };
    CATFileReplacement flushed(m_directory.At("a"));
    EXPECT_TRUE(flushed.Open() && flushed.Commit());
    EXPECT_EQ(seen, "text name directory ");
    seen.clear();
    CATFileReplacement unflushed(m_directory.At("a"));
    EXPECT_TRUE(unflushed.Open() && unflushed.Commit(CATFileReplacement::Flush::No));
    EXPECT_EQ(seen, "name ");
}

TEST_F(CATFileReplacementTest, FailedFlushOrRenameLeavesTheOldFile)
{
    const std::string path = m_directory.Write("a", "old");
    FileHooks::flush = [](int file) {
        return FileHooks::IsDirectory(file) ? 0 : EIO;
    };
    EXPECT_EQ(CATReplaceFile(path, "new"), EIO);
    ExpectOnly("a", "old");
    FileHooks::Clear();
    FileHooks::rename = [](const char*) {
        return EBUSY;
    };
    EXPECT_EQ(CATReplaceFile(path, "new"), EBUSY);
    ExpectOnly("a", "old");
    FileHooks::Clear();
    FileHooks::flush = [](int file) {
        return FileHooks::IsDirectory(file) ? EIO : 0;
    };
    EXPECT_EQ(CATReplaceFile(path, "new"), EIO);
    ExpectOnly("a", "new");
}

// A name that a crash left behind is stepped over.
TEST_F(CATFileReplacementTest, StepsOverWhatAnotherLeftBehind)
{
    const int status = RunInChild([&] {
        // The child has a number of its own, so the names it will take are known here.
        for (int number = 0; number < 50; ++number) {
            m_directory.Write("a.new-" + std::to_string(getpid()) + "-" + std::to_string(number),
                              "other");
        }
        return CATReplaceFile(m_directory.At("a"), "text");
    });
    EXPECT_EQ(status, 0);
    EXPECT_EQ(m_directory.Read("a"), "text");
    EXPECT_EQ(m_directory.FileCount(), 51U);
}

} // namespace
