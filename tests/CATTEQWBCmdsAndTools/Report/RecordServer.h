#pragma once

#include "../ComputePart/PickedProducts.h"
#include "../ModuleSession.h"

#include "CATServerCaller.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

/// Answers the object service with a text that the test sets, and writes down what it was asked.
class RecordServer : public CATServerCaller
{
public:
    std::string CallMethod(std::string_view method, std::string_view, CATServerCallState&) override
    {
        calls.push_back("unexpected method " + std::string(method));
        return {};
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
        return answer;
    }

    std::optional<std::string> answer = std::string();
    std::string unknown; ///< an identificator that the service does not know
    std::vector<std::string> calls;
    std::function<void()> onCall; ///< runs while the caller waits
};

// The records of the aeroplane's three item instances.
constexpr const char* kFuselage = "1|FUS-000.1|FUS-000|A|0|Fuselage|";
constexpr const char* kForward = "1|FUS-100.1|FUS-100|A|1|FUS-000.1|Forward section|";
constexpr const char* kFirewall = "0|FUS-110.1|FUS-110|B|2|FUS-100.1|FUS-000.1|Firewall|";

inline void OpenAeroplane()
{
    CATNavigator::Open(std::make_shared<AeroplaneSource>(),
                       AeroplaneSource::Row("LA1", "LA1", true));
}

inline CATPathElement_var PathToFuselage()
{
    return PathTo(CATNavigator::Find({"FUS-000.1"}));
}

inline CATPathElement_var PathToForward()
{
    return PathTo(CATNavigator::Find({"FUS-000.1", "FUS-100.1"}));
}

inline CATPathElement_var PathToFirewall()
{
    return PathTo(CATNavigator::Find({"FUS-000.1", "FUS-100.1", "FUS-110.1"}));
}

/// A path to something that the tree shows and the PDM does not know.
inline CATPathElement_var PathToStranger(const std::map<std::string, std::string>& attributes)
{
    return CATPathElement_var::Adopt(
        new CATPathElement({CATBaseUnknown_var::Adopt(new FakeTreeObject(attributes))}));
}
