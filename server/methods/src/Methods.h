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
    Store& store;
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

std::string GetStatedValues(const MethodCall& call, std::string_view request);
std::string ApplyValues(const MethodCall& call, std::string_view request);
std::string ListPendingChanges(const MethodCall& call, std::string_view request);
std::string GetHistory(const MethodCall& call, std::string_view request);

/// Saves or gives up what the caller has pending. Never throws: what is wrong is among his warnings
/// afterwards.
std::string ManageSave(const MethodCall& call, std::string_view request);

/// The records of an object-service call; nothing for an input that cannot be read.
std::optional<std::string> ObjectIdentifiers(const Store& store,
                                             std::vector<std::string>& identificators,
                                             std::string_view input, bool withPartName);
} // namespace wb
