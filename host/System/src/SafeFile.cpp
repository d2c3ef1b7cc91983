#include "SafeFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <utility>

namespace
{

// An open file that closes itself.
class Descriptor
{
public:
    explicit Descriptor(int number) : m_number(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { Close(); }
    int Number() const { return m_number; }
    bool IsOpen() const { return m_number >= 0; }
    // Some file systems tell only here that the disk is full.
    bool Close() { return m_number < 0 || close(std::exchange(m_number, -1)) == 0; }

private:
    int m_number;
};

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
    const Descriptor opened(open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return opened.IsOpen() && fsync(opened.Number()) == 0;
}

} // namespace

int WriteFileSafely(const std::string& path, std::string_view text)
{
    // A name of its own for each writer: two sessions that save at once do not mix their texts.
    std::string fresh = path + ".new-XXXXXX";
    Descriptor file(mkostemp(fresh.data(), O_CLOEXEC));
    if (!file.IsOpen()) {
        return errno;
    }
    const bool isWritten = WriteAll(file.Number(), text) && fsync(file.Number()) == 0 &&
                           file.Close() && std::rename(fresh.c_str(), path.c_str()) == 0;
    if (!isWritten) {
        const int error = errno;
        unlink(fresh.c_str());
        return error;
    }
    const std::string directory = std::filesystem::path(path).parent_path().string();
    return FlushDirectory(directory.empty() ? "." : directory) ? 0 : errno;
}
