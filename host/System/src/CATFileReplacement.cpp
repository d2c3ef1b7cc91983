#include "CATFileReplacement.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <utility>

namespace
{

namespace fs = std::filesystem;

constexpr int kMostLinks = 40; // as many as the system follows
constexpr int kMostTries = 100;
constexpr int kNewFile = 0666; // less what the user's mask takes away
constexpr mode_t kPermissions = 0777;

// Where the links that begin at the path lead to, also when nothing stands there yet. Where they
// lead in a circle it stays at one of them, and the system says so when it is opened.
std::string FollowLinks(const std::string& path)
{
    fs::path at = path;
    std::error_code error;
    for (int links = 0; links < kMostLinks && fs::is_symlink(at, error); ++links) {
        const fs::path next = fs::read_symlink(at, error);
        at = next.is_absolute() ? next : at.parent_path() / next;
    }
    return at.string();
}

std::string DirectoryOf(const std::string& path)
{
    const std::string directory = fs::path(path).parent_path().string();
    return directory.empty() ? "." : directory;
}

// A name of its own for each writer: two sessions that save at once do not mix their texts.
std::string FreshName(const std::string& path)
{
    static std::atomic<unsigned> number = 0;
    return path + ".new-" + std::to_string(getpid()) + '-' + std::to_string(++number);
}

bool WriteAll(int file, std::string_view text)
{
    while (!text.empty()) {
        const ssize_t written = write(file, text.data(), text.size());
        if (written < 0 && errno != EINTR) {
            return false;
        }
        text.remove_prefix(static_cast<std::size_t>(written < 0 ? 0 : written));
    }
    return true;
}

// A new name lasts only once its directory has reached the disk as well.
bool FlushDirectory(const std::string& directory)
{
    const int file = open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (file < 0) {
        return false;
    }
    const bool isFlushed = fsync(file) == 0;
    const int error = errno;
    close(file);
    errno = error;
    return isFlushed;
}

} // namespace

CATFileReplacement::CATFileReplacement(const std::string& path) : m_path(FollowLinks(path))
{}

CATFileReplacement::~CATFileReplacement()
{
    Discard();
}

// Keeps the first failure; the file that was begun goes at once.
bool CATFileReplacement::Check(bool isDone)
{
    if (!isDone && m_error == 0) {
        m_error = errno;
        Discard();
    }
    return m_error == 0;
}

void CATFileReplacement::Discard()
{
    Close();
    if (!m_freshPath.empty()) {
        unlink(std::exchange(m_freshPath, std::string()).c_str());
    }
}

bool CATFileReplacement::Close()
{
    return m_file < 0 || close(std::exchange(m_file, -1)) == 0;
}

bool CATFileReplacement::Open()
{
    struct stat old = {};
    if (stat(m_path.c_str(), &old) != 0) {
        return Check(errno == ENOENT && OpenBeside(-1));
    }
    if (S_ISREG(old.st_mode)) {
        // Beside a file that the user may not write there may still be room for a new one, but who
        // protects a file does not want it replaced.
        return Check(faccessat(AT_FDCWD, m_path.c_str(), W_OK, AT_EACCESS) == 0 &&
                     OpenBeside(static_cast<int>(old.st_mode & kPermissions)));
    }
    m_file = open(m_path.c_str(), O_WRONLY | O_CLOEXEC);
    return Check(m_file >= 0);
}

bool CATFileReplacement::OpenBeside(int permissions)
{
    for (int tries = 0; m_file < 0 && tries < kMostTries; ++tries) {
        const std::string fresh = FreshName(m_path);
        m_file = open(fresh.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kNewFile);
        if (m_file >= 0) {
            m_freshPath = fresh;
        } else if (errno != EEXIST) {
            return false;
        }
    }
    return m_file >= 0 &&
           (permissions < 0 || fchmod(m_file, static_cast<mode_t>(permissions)) == 0);
}

bool CATFileReplacement::Write(std::string_view piece)
{
    return m_error == 0 && Check(WriteAll(m_file, piece));
}

bool CATFileReplacement::Commit(Flush flush)
{
    if (m_error != 0 || m_freshPath.empty()) {
        return m_error == 0 && Check(Close()); // Some devices tell only here that they are full.
    }
    if (!Check((flush == Flush::No || fsync(m_file) == 0) && Close() &&
               std::rename(m_freshPath.c_str(), m_path.c_str()) == 0)) {
        return false;
    }
    m_freshPath.clear();
    return Check(flush == Flush::No || FlushDirectory(DirectoryOf(m_path)));
}

int CATReplaceFile(const std::string& path, std::string_view text)
{
    CATFileReplacement file(path);
    if (file.Open() && file.Write(text)) {
        file.Commit();
    }
    return file.Error();
}
