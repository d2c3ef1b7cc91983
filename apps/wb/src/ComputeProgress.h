#pragma once

#include "ProgressBar.h"

#include <functional>
#include <string_view>

/// Shows on the terminal how far a long computation has come.
class ComputeProgress
{
public:
    /// Diagnostic lines and a bar would write over each other.
    explicit ComputeProgress(bool isVerbose);

    /// Told the share done, from 0 to 1, and what is being done.
    std::function<void(double, std::string_view)> Listener();
    ProgressBar& Bar() { return m_bar; }

private:
    ProgressBar m_bar; // leaves the line blank when it goes away
};
