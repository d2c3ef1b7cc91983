#pragma once

#include "CATProductSource.h"

#include <memory>
#include <string>

/// A table file as a source of products that knows no database. Null, with every problem found in
/// the file, a line each, when it cannot be used.
std::shared_ptr<CATProductSource> OpenFileProducts(const std::string& path, std::string& problem);
