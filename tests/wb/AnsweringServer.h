#pragma once

#include "CATServerCaller.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

/// Stands before the session's server while it lives: answers the methods that a test writes down,
/// remembers all calls, and passes the others on.
class AnsweringServer
{
public:
    AnsweringServer() : m_caller(std::make_shared<Caller>(CATSetServerCaller(nullptr)))
    {
        CATSetServerCaller(m_caller);
    }
    AnsweringServer(const AnsweringServer&) = delete;
    AnsweringServer& operator=(const AnsweringServer&) = delete;
    ~AnsweringServer() { CATSetServerCaller(m_caller->before); }

    std::string& Answer(const std::string& method) { return m_caller->answers[method]; }
    /// What a call was asked, "method request".
    const std::vector<std::string>& Calls() const { return m_caller->calls; }
    void ForgetCalls() { m_caller->calls.clear(); }

private:
    struct Caller : CATServerCaller
    {
        explicit Caller(std::shared_ptr<CATServerCaller> passedOnTo) : before(std::move(passedOnTo))
        {}
        std::string CallMethod(std::string_view method, std::string_view request,
                               CATServerCallState& state) override
        {
            calls.push_back(std::string(method).append(" ").append(request));
            const auto answer = answers.find(std::string(method));
            return answer != answers.end() ? answer->second
                   : before                ? before->CallMethod(method, request, state)
                                           : "";
        }
        std::optional<std::string> CallObjectService(std::string_view service,
                                                     std::vector<std::string>& identificators,
                                                     std::string_view input, bool withPartName,
                                                     CATServerCallState& state) override
        {
            return before ? before->CallObjectService(service, identificators, input, withPartName,
                                                      state)
                          : std::nullopt;
        }

        std::shared_ptr<CATServerCaller> before;
        std::map<std::string, std::string> answers;
        std::vector<std::string> calls;
    };

    std::shared_ptr<Caller> m_caller;
};
