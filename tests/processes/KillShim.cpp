// Preloaded into a program, ends it without warning at a chosen one of the calls that change the
// files below a folder: writing, flushing, cutting, renaming, removing. Everything it needs stands
// in the environment:
//   WB_KILL_FOLDER  the folder; calls on other files do not count
//   WB_KILL_AT      the call behind which the program ends, from 1; without it none
//   WB_KILL_TORN    1: where that call writes, the program ends when half of it is written
//   WB_KILL_TELL    a file descriptor that gets one byte at the first of these calls

#include <dlfcn.h>
#include <sys/types.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace
{

template <class Function>
Function Real(const char* name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

long Number(const char* name, long without)
{
    const char* text = std::getenv(name);
    return text == nullptr ? without : std::strtol(text, nullptr, 10);
}

bool IsInFolder(const char* path)
{
    const char* folder = std::getenv("WB_KILL_FOLDER");
    return folder != nullptr && std::strncmp(path, folder, std::strlen(folder)) == 0;
}

bool IsInFolder(int file)
{
    std::array<char, 4096> path{};
    const std::string link = "/proc/self/fd/" + std::to_string(file);
    return readlink(link.c_str(), path.data(), path.size() - 1) > 0 && IsInFolder(path.data());
}

void End()
{
    kill(getpid(), SIGKILL);
}

/// Counts a call; true when the program shall end at it.
bool IsTheOne()
{
    static const long end = Number("WB_KILL_AT", 0);
    static const auto tell = static_cast<int>(Number("WB_KILL_TELL", -1));
    static long count = 0;
    ++count;
    if (count == 1 && tell >= 0) {
        Real<ssize_t (*)(int, const void*, size_t)>("write")(tell, "!", 1);
    }
    return count == end;
}

template <class Call>
int Counted(bool counts, const Call& call)
{
    const bool isTheOne = counts && IsTheOne();
    const int result = call();
    if (isTheOne) {
        End();
    }
    return result;
}

template <class WriteSome>
ssize_t Written(int file, size_t size, const WriteSome& writeSome)
{
    const bool isTheOne = IsInFolder(file) && IsTheOne();
    const bool isTorn = isTheOne && Number("WB_KILL_TORN", 0) == 1;
    const ssize_t result = writeSome(isTorn ? size / 2 : size);
    if (isTheOne) {
        End();
    }
    return result;
}

} // namespace

#define WB_SHIM extern "C" __attribute__((visibility("default")))

WB_SHIM ssize_t write(int file, const void* bytes, size_t size)
{
    static const auto real = Real<ssize_t (*)(int, const void*, size_t)>("write");
    return Written(file, size, [&](size_t some) { return real(file, bytes, some); });
}

WB_SHIM ssize_t pwrite(int file, const void* bytes, size_t size, off_t at)
{
    static const auto real = Real<ssize_t (*)(int, const void*, size_t, off_t)>("pwrite");
    return Written(file, size, [&](size_t some) { return real(file, bytes, some, at); });
}

WB_SHIM ssize_t pwrite64(int file, const void* bytes, size_t size, off64_t at)
{
    static const auto real = Real<ssize_t (*)(int, const void*, size_t, off64_t)>("pwrite64");
    return Written(file, size, [&](size_t some) { return real(file, bytes, some, at); });
}

WB_SHIM int fsync(int file)
{
    static const auto real = Real<int (*)(int)>("fsync");
    return Counted(IsInFolder(file), [&] { return real(file); });
}

WB_SHIM int fdatasync(int file)
{
    static const auto real = Real<int (*)(int)>("fdatasync");
    return Counted(IsInFolder(file), [&] { return real(file); });
}

WB_SHIM int ftruncate(int file, off_t size) noexcept
{
    static const auto real = Real<int (*)(int, off_t)>("ftruncate");
    return Counted(IsInFolder(file), [&] { return real(file, size); });
}

WB_SHIM int ftruncate64(int file, off64_t size) noexcept
{
    static const auto real = Real<int (*)(int, off64_t)>("ftruncate64");
    return Counted(IsInFolder(file), [&] { return real(file, size); });
}

WB_SHIM int rename(const char* from, const char* to) noexcept
{
    static const auto real = Real<int (*)(const char*, const char*)>("rename");
    return Counted(IsInFolder(to), [&] { return real(from, to); });
}

WB_SHIM int unlink(const char* path) noexcept
{
    static const auto real = Real<int (*)(const char*)>("unlink");
    return Counted(IsInFolder(path), [&] { return real(path); });
}
