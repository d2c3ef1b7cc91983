#pragma once

#include "ComputationRequest.h"
#include "WBStore.h"

#include <string>
#include <string_view>
#include <vector>

namespace wb
{
/// What a client wants reported of a product.
struct ReportRequest
{
    enum class Kind
    {
        Report = 0,
        Distributive = 1,
        MaterialStatistics = 2
    };
    /// One picked instance, as the client sent it; where instance and path are empty, the root.
    struct Pick
    {
        std::string_view instance;
        std::string_view part;
        std::string_view version;
        std::vector<std::string_view> path; // leaf side first
    };
    /// Which values are written beside the masses.
    struct Values
    {
        bool deviations = false;
        bool centre = false;
        bool inertia = false;
        bool density = false;
        bool materials = false;
        bool volume = false;
        bool types = false;
        bool date = false;
    };

    Kind kind = Kind::Report;
    bool ofInstances = false; // material statistics: of the part instances too
    std::vector<Pick> picks;  // views of the request's text; none: everything
    Values values;
    std::vector<std::string> properties; // in this order
    ComputationRequest computation;
};

/// Throws RequestError with a sentence that names the wrong or missing field; StoreError where the
/// properties of the database cannot be read.
ReportRequest ReadReportRequest(const Store& store, std::string_view text);
} // namespace wb
