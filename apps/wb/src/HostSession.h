#pragma once

#include "CATUnicodeString.h"

#include <memory>
#include <string>

/// Which server a command talks to, as whom, and where the session writes its log.
struct SessionOptions
{
    std::string database; ///< SQLite file
    std::string user;     ///< empty: the login name
    std::string logFile;  ///< empty: no log
    /// The log goes to the standard error too, and takes what the components trace.
    bool verbose = false;
};

/// What every session needs before a window or a command: where settings live, where diagnostic
/// lines go, and the road to the server. Undone at the end, so that nothing outlives the program's
/// parts.
class HostSession
{
public:
    /// `settingsDirectory` empty: the user's own ("$XDG_CONFIG_HOME/wb").
    HostSession(const SessionOptions& options, const std::string& settingsDirectory);
    ~HostSession();
    HostSession(const HostSession&) = delete;
    HostSession& operator=(const HostSession&) = delete;

    /// Opens the database and makes it the session's server. False, with a sentence that names the
    /// file.
    bool Connect(std::string& problem);

private:
    struct Log;

    SessionOptions m_options;
    std::shared_ptr<Log> m_log;
};

/// As whom a session works: as the user that its options name, or by his login name.
std::string UserOf(const SessionOptions& options);

/// The login name of the user.
std::string LoginName();
