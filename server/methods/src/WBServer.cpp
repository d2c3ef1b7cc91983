#include "WBServer.h"

#include "CATENOWBCSCommonDefinitions.h"
#include "Computations.h"
#include "Methods.h"
#include "Request.h"

#include <algorithm>
#include <array>
#include <exception>

namespace wb
{
namespace
{
struct MethodRow
{
    const char* name;
    std::string (*answer)(const MethodCall&, std::string_view);
};

constexpr std::array kMethods{MethodRow{"WBCompPartGetInitialValues", GetInitialValues},
                              MethodRow{"WBCompPartCompute", ComputePart},
                              MethodRow{"WBGetValueDetails", GetValueDetails},
                              MethodRow{"WBComputeVPMValues", ComputeValues},
                              MethodRow{"WBMakeReport", MakeReport},
                              MethodRow{"WBGetStatedValues", GetStatedValues},
                              MethodRow{"WBApplyValues", ApplyValues},
                              MethodRow{"WBPendingChanges", ListPendingChanges},
                              MethodRow{"WBHistory", GetHistory},
                              MethodRow{"WBListRoots", ListRoots},
                              MethodRow{"WBListUses", ListUses},
                              MethodRow{"WBListMassTypes", ListMassTypes},
                              MethodRow{"WBGetMassTypesAndAttrNames", GetMassTypesAndAttrNames}};

std::string ErrorAnswer(const std::string& sentence)
{
    return CATENOWBCSCommonDefinitions::errMsgHeader + sentence;
}
} // namespace

Server::Server(Store& store) : m_store(store), m_computations(std::make_unique<Computations>(store))
{}

Server::~Server() = default;

std::string Server::Call(std::string_view method, std::string_view request,
                         const CallContext& context)
{
    const std::lock_guard lock(m_mutex);
    // Asked after every computation, also one that failed or was cancelled: an error here would
    // hide the one there.
    if (method == "WBWarningMsg") {
        return m_computations->TakeWarnings(context.user);
    }
    const MethodCall call{m_store, *m_computations, context};
    if (method == "WBSaveManagement") {
        return ManageSave(call, request);
    }
    const auto row = std::ranges::find_if(
        kMethods, [&](const MethodRow& candidate) { return candidate.name == method; });
    if (row == kMethods.end()) {
        return ErrorAnswer("The server has no method \"" + std::string(method) + "\".");
    }
    if (context.cancel != nullptr && *context.cancel) {
        return ErrorAnswer("The call was cancelled.");
    }
    try {
        // Whatever a method reads, the caller sees it as he has changed it.
        const PendingView view(m_store, context.user);
        m_computations->Begin(view.Number());
        return row->answer(call, request);
    } catch (const std::exception& error) {
        return ErrorAnswer(error.what());
    }
}

std::optional<std::string> Server::RunObjectService(std::string_view service,
                                                    std::vector<std::string>& identificators,
                                                    std::string_view input, bool withPartName)
{
    const std::lock_guard lock(m_mutex);
    if (service != "ENOVIA5_GetObjectIdentifier") {
        return std::nullopt;
    }
    try {
        return ObjectIdentifiers(m_store, identificators, input, withPartName);
    } catch (const std::exception&) {
        return std::nullopt;
    }
}
} // namespace wb
