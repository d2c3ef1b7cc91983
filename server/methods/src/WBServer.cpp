#include "WBServer.h"

#include "CATENOWBCSCommonDefinitions.h"
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
    std::string (*answer)(const Store&, std::string_view, const CallContext&);
};

constexpr std::array kMethods{
    MethodRow{"WBCompPartGetInitialValues", GetInitialValues},
    MethodRow{"WBGetValueDetails", GetValueDetails}, MethodRow{"WBListRoots", ListRoots},
    MethodRow{"WBListUses", ListUses}, MethodRow{"WBListMassTypes", ListMassTypes}};

std::string ErrorAnswer(const std::string& sentence)
{
    return CATENOWBCSCommonDefinitions::errMsgHeader + sentence;
}
} // namespace

Server::Server(Store& store) : m_store(store)
{}

std::string Server::Call(std::string_view method, std::string_view request,
                         const CallContext& context)
{
    const std::lock_guard lock(m_mutex);
    const auto row = std::ranges::find_if(
        kMethods, [&](const MethodRow& candidate) { return candidate.name == method; });
    if (row == kMethods.end()) {
        return ErrorAnswer("The server has no method \"" + std::string(method) + "\".");
    }
    if (context.cancel != nullptr && *context.cancel) {
        return ErrorAnswer("The call was cancelled.");
    }
    try {
        return row->answer(m_store, request, context);
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
