#include "HostSession.h"

#include "CATDiagnostics.h"
#include "CATEnvironment.h"
#include "CATFindPath.h"
#include "CATServerCaller.h"
#include "CATTrace.h"
#include "SampleProducts.h"
#include "WBServer.h"
#include "WBStore.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace
{

/// The server in this process, behind the session's caller interface.
class InProcessCaller : public CATServerCaller
{
public:
    InProcessCaller(std::unique_ptr<wb::Store> store, std::string user)
        : m_store(std::move(store)), m_server(*m_store), m_user(std::move(user))
    {}

    std::string CallMethod(std::string_view method, std::string_view request,
                           CATServerCallState& state) override
    {
        wb::CallContext context;
        context.user = m_user;
        context.cancel = &state.cancelled;
        context.progress = [&state](double done, std::string_view) {
            state.progress = done;
        };
        return m_server.Call(method, request, context);
    }

    std::optional<std::string> CallObjectService(std::string_view service,
                                                 std::vector<std::string>& identificators,
                                                 std::string_view input, bool withPartName,
                                                 CATServerCallState& /*state*/) override
    {
        return m_server.RunObjectService(service, identificators, input, withPartName);
    }

private:
    std::unique_ptr<wb::Store> m_store;
    wb::Server m_server;
    std::string m_user;
};

/// Sets a search path for this program unless the user has one.
void SetPathUnlessSet(const char* variable, const std::string& directory)
{
    if (CATGetEnv(variable) == nullptr) {
        setenv(variable, directory.c_str(), 0); // NOLINT(concurrency-mt-unsafe): no thread runs yet
    }
}

} // namespace

/// The session's log file: lines of both streams and of traces, in the order they came.
struct HostSession::Log
{
    std::FILE* file = nullptr;
    bool verbose = false;

    ~Log()
    {
        if (file != nullptr) {
            std::fclose(file);
        }
    }
    void Write(std::string_view line) const
    {
        for (std::FILE* target : {file, verbose ? stderr : nullptr}) {
            if (target != nullptr) {
                std::fwrite(line.data(), 1, line.size(), target);
                std::fputc('\n', target);
            }
        }
    }
};

HostSession::HostSession(const SessionOptions& options, const std::string& settingsDirectory)
    : m_options(options), m_log(std::make_shared<Log>())
{
    m_log->verbose = options.verbose;
    if (!options.logFile.empty()) {
        m_log->file = std::fopen(options.logFile.c_str(), "w");
        if (m_log->file == nullptr) {
            std::fprintf(stderr, "wb: the log %s cannot be written; going on without one\n",
                         options.logFile.c_str());
        }
    }
    CATLineStream::Listener listener;
    if (m_log->file != nullptr || m_log->verbose) {
        listener = [log = m_log](std::string_view line) {
            log->Write(line);
        };
    }
    CATDiagnosticOutput().SetListener(listener);
    CATDiagnosticErrors().SetListener(listener);
    if (m_log->verbose) {
        DSTrace::SetListener([log = m_log](std::string_view component, std::string_view line) {
            log->Write(std::string(component).append(": ").append(line));
        });
    }

    if (settingsDirectory.empty()) {
        SetPathUnlessSet("CATUserSettingPath", UserSettingsDirectory());
    } else {
        setenv("CATUserSettingPath", settingsDirectory.c_str(), 1); // NOLINT(concurrency-mt-unsafe)
    }
    const std::string reference = CATFindResource("settings/VPMNavigator.CATSettings");
    SetPathUnlessSet("CATReferenceSettingPath",
                     std::filesystem::path(reference).parent_path().string());
}

HostSession::~HostSession()
{
    CATSetServerCaller(nullptr);
    CATDiagnosticOutput().SetListener({});
    CATDiagnosticErrors().SetListener({});
    DSTrace::SetListener({});
}

bool HostSession::Connect(std::string& problem)
{
    wb::Store::Opened opened = wb::Store::Open(m_options.database);
    if (!opened.store) {
        problem = opened.error;
        return false;
    }
    CATSetServerCaller(
        std::make_shared<InProcessCaller>(std::move(opened.store), UserOf(m_options)));
    return true;
}

std::string UserOf(const SessionOptions& options)
{
    return options.user.empty() ? LoginName() : options.user;
}

std::string LoginName()
{
    if (const passwd* entry =
            getpwuid(getuid())) { // NOLINT(concurrency-mt-unsafe): one thread asks
        return entry->pw_name;
    }
    const char* user = CATGetEnv("USER");
    return user == nullptr ? "unknown" : user;
}
