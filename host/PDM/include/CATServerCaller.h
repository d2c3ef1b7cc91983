#pragma once

#include "WBExport.h"

#include <atomic>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What a call tells while it runs, and how it is asked to stop. Shared between the interface
/// thread and the one that makes the call.
struct CATServerCallState
{
    std::atomic<bool> cancelled = false;
    std::atomic<double> progress = -1.0; ///< 0 to 1; below 0 while unknown
};

/// The road to the server: text to text, in the same process or over the network. Called on a
/// thread of its own, one call at a time; must not touch windows, the locale or handles.
class WB_EXPORT CATServerCaller
{
public:
    virtual ~CATServerCaller();
    /// The answer; a call that could not be made answers an empty text.
    virtual std::string CallMethod(std::string_view method, std::string_view request,
                                   CATServerCallState& state) = 0;
    /// Runs an object service on the identificators; those that it knows stay in the list, one for
    /// each record of the answer. `withPartName` asks for the optional last field of each record.
    /// Nothing when the service failed.
    virtual std::optional<std::string> CallObjectService(std::string_view service,
                                                         std::vector<std::string>& identificators,
                                                         std::string_view input, bool withPartName,
                                                         CATServerCallState& state) = 0;
};

/// Installs the session's caller (null: there is no server) and returns the one that stood there.
WB_EXPORT std::shared_ptr<CATServerCaller>
CATSetServerCaller(std::shared_ptr<CATServerCaller> caller);
