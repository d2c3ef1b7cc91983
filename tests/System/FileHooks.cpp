#include "FileHooks.h"

#include <dlfcn.h>
#include <sys/stat.h>

#include <cerrno>

std::function<int(int file)> FileHooks::flush;
std::function<int(const char* to)> FileHooks::rename;

bool FileHooks::IsDirectory(int file)
{
    struct stat status = {};
    fstat(file, &status);
    return S_ISDIR(status.st_mode);
}

// These stand before the C library's for the whole program.
extern "C" __attribute__((visibility("default"))) int fsync(int file)
{
    static const auto real = reinterpret_cast<int (*)(int)>(dlsym(RTLD_NEXT, "fsync"));
    const int error = FileHooks::flush ? FileHooks::flush(file) : 0;
    errno = error;
    return error != 0 ? -1 : real(file);
}

extern "C" __attribute__((visibility("default"))) int rename(const char* from,
                                                             const char* to) noexcept
{
    static const auto real =
        reinterpret_cast<int (*)(const char*, const char*)>(dlsym(RTLD_NEXT, "rename"));
    const int error = FileHooks::rename ? FileHooks::rename(to) : 0;
    errno = error;
    return error != 0 ? -1 : real(from, to);
}
