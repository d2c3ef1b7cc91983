#include "StandardOutput.h"

#include <cstdio>

bool WriteStandardOutput(const std::string& text)
{
    return std::fwrite(text.data(), 1, text.size(), stdout) == text.size() &&
           std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
}
