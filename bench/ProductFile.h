#pragma once

#include <string>

/// Writes a product in the table form: `rows` uses of `parts` part designs, in sections and
/// sub-assemblies below one root; each part's values stand at its first use.
void WriteProductFile(const std::string& path, int rows, int parts);
