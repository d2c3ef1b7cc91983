#pragma once

#include "CATDiagnostics.h"
#include "CATServerCaller.h"
#include "FakeWait.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

/// A server whose answers a test writes down, and which remembers what it was asked. What it is
/// asked runs on the server thread; the test looks only when no call runs.
class FakeServer : public CATServerCaller
{
public:
    struct Call
    {
        std::string method;
        std::string request;
        std::vector<std::string> identificators;
        bool withPartName = false;
        std::thread::id thread;
    };

    std::string CallMethod(std::string_view method, std::string_view request,
                           CATServerCallState& state) override
    {
        calls.push_back(
            {std::string(method), std::string(request), {}, false, std::this_thread::get_id()});
        if (onCall) {
            onCall(state);
        }
        return answer;
    }
    std::optional<std::string> CallObjectService(std::string_view service,
                                                 std::vector<std::string>& identificators,
                                                 std::string_view input, bool withPartName,
                                                 CATServerCallState& state) override
    {
        calls.push_back({std::string(service), std::string(input), identificators, withPartName,
                         std::this_thread::get_id()});
        if (onCall) {
            onCall(state);
        }
        if (known) {
            identificators = *known;
        }
        return records;
    }

    std::vector<Call> calls;
    std::function<void(CATServerCallState& state)> onCall; ///< runs on the server thread
    std::string answer = "answer";
    std::optional<std::string> records = "records";
    std::optional<std::vector<std::string>> known; ///< what the service keeps; all when not set
};

/// Puts a fake server and an ear for diagnostic lines into the session for one test.
struct ServerTest : testing::Test
{
    ServerTest()
        : m_formerCaller(CATSetServerCaller(server)),
          m_formerErrors(CATDiagnosticErrors().SetListener(
              [this](std::string_view line) { errors.emplace_back(line); }))
    {}
    ServerTest(const ServerTest&) = delete;
    ServerTest& operator=(const ServerTest&) = delete;
    ~ServerTest() override
    {
        FakeWait::WhileWaiting() = {};
        CATDiagnosticErrors().SetListener(m_formerErrors);
        CATSetServerCaller(m_formerCaller);
    }

    std::shared_ptr<FakeServer> server = std::make_shared<FakeServer>();
    std::vector<std::string> errors;

private:
    std::shared_ptr<CATServerCaller> m_formerCaller;
    CATLineStream::Listener m_formerErrors;
};
