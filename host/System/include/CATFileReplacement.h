#pragma once

#include "WBExport.h"

#include <string>
#include <string_view>

/// Replaces a file by a new text, piece by piece, so that a crash at any moment leaves the old file
/// or the new one, whole: the pieces go into a new file beside it, which takes its name at the end.
/// Without that end, and after any failure, the old file stands and the new one is gone.
///
/// A symbolic link stays one: the file that it leads to is replaced. The new file has the old
/// one's permissions, or where there was none those that every new file gets. What is no ordinary
/// file (a pipe, a device) is written to as it stands.
class WB_EXPORT CATFileReplacement
{
public:
    explicit CATFileReplacement(const std::string& path);
    CATFileReplacement(const CATFileReplacement&) = delete;
    CATFileReplacement& operator=(const CATFileReplacement&) = delete;
    ~CATFileReplacement();

    enum class Flush
    {
        Yes, ///< the text has reached the disk before the file is replaced, and the name after it
        No   ///< that is left to the system: a power cut may bring the old file back, or lose both
    };

    // Each gives false when something failed, as does everything after it.
    bool Open();
    bool Write(std::string_view piece);
    bool Commit(Flush flush = Flush::Yes);

    /// The system's number of what failed; 0 while nothing did.
    int Error() const { return m_error; }

private:
    bool Check(bool isDone);
    bool OpenBeside(int permissions);
    bool Close();
    void Discard();

    std::string m_path; // links followed
    std::string m_freshPath;
    int m_file = -1;
    int m_error = 0;
};

/// The same for a text that stands ready. Gives 0, or the system's number of what failed.
WB_EXPORT int CATReplaceFile(const std::string& path, std::string_view text);
