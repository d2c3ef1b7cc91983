#pragma once

#include "WBServer.h"
#include "WBStore.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wb
{
class Computations;

/// What a method works with.
struct MethodCall
{
    const Store& store;
    Computations& computations;
    const CallContext& context;
};

/// One method each; wrong input throws RequestError, a failing database StoreError.
std::string GetInitialValues(const MethodCall& call, std::string_view request);
std::string GetValueDetails(const MethodCall& call, std::string_view request);
std::string ComputePart(const MethodCall& call, std::string_view request);
std::string ComputeValues(const MethodCall& call, std::string_view request);
std::string MakeReport(const MethodCall& call, std::string_view request);
std::string ListRoots(const MethodCall& call, std::string_view request);
std::string ListUses(const MethodCall& call, std::string_view request);
std::string ListMassTypes(const MethodCall& call, std::string_view request);
std::string GetMassTypesAndAttrNames(const MethodCall& call, std::string_view request);

/// The records of an object-service call; nothing for an input that cannot be read.
std::optional<std::string> ObjectIdentifiers(const Store& store,
                                             std::vector<std::string>& identificators,
                                             std::string_view input, bool withPartName);
} // namespace wb
