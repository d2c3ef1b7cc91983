#pragma once

#include "ComputeReport.h"

#include <string>

/// A computation as one JSON object; numbers read back exactly, what is unknown is null.
std::string ComputeAsJson(const ComputeReport& report);
