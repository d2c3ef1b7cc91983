#pragma once

#include "CATServerCaller.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

/// The server as a command meets it: answers with the texts that a test sets, and writes down what
/// it was asked.
class CommandServer : public CATServerCaller
{
public:
    std::string CallMethod(std::string_view method, std::string_view request,
                           CATServerCallState&) override
    {
        calls.push_back(std::string(method) + ": " + std::string(request));
        return answer;
    }
    std::optional<std::string> CallObjectService(std::string_view service,
                                                 std::vector<std::string>& identificators,
                                                 std::string_view input, bool,
                                                 CATServerCallState&) override
    {
        std::string call = std::string(service) + " of";
        for (const std::string& identificator : identificators) {
            call += " " + identificator;
        }
        calls.push_back(call + ": " + std::string(input));
        if (onCall) {
            onCall();
        }
        std::erase(identificators, unknown);
        return record;
    }

    std::string answer;                                ///< of every method
    std::optional<std::string> record = std::string(); ///< of the object service
    std::string unknown; ///< an identificator that the service does not know
    std::vector<std::string> calls;
    std::function<void()> onCall; ///< runs while the service's caller waits
};
