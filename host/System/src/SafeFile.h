#pragma once

#include <string>
#include <string_view>

/// Replaces a file by a new text so that a crash at any moment leaves the old or the new one,
/// whole: a new file beside it, flushed to the disk, takes its name. Gives 0, or the system's error
/// number; then the old file stands and the new one is gone.
int WriteFileSafely(const std::string& path, std::string_view text);
