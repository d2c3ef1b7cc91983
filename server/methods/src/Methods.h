#pragma once

#include "WBServer.h"
#include "WBStore.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wb
{
/// One method each; wrong input throws RequestError, a failing database StoreError.
std::string GetInitialValues(const Store& store, std::string_view request,
                             const CallContext& context);
std::string GetValueDetails(const Store& store, std::string_view request,
                            const CallContext& context);
std::string ListRoots(const Store& store, std::string_view request, const CallContext& context);
std::string ListUses(const Store& store, std::string_view request, const CallContext& context);
std::string ListMassTypes(const Store& store, std::string_view request, const CallContext& context);
std::string GetMassTypesAndAttrNames(const Store& store, std::string_view request,
                                     const CallContext& context);

/// The records of an object-service call; nothing for an input that cannot be read.
std::optional<std::string> ObjectIdentifiers(const Store& store,
                                             std::vector<std::string>& identificators,
                                             std::string_view input, bool withPartName);
} // namespace wb
