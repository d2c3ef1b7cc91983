#include "ComputeProgress.h"

#include <unistd.h>

#include <cstdint>

ComputeProgress::ComputeProgress(bool isVerbose)
    : m_bar(isatty(STDERR_FILENO) != 0 && !isVerbose ? stderr : nullptr)
{}

std::function<void(double, std::string_view)> ComputeProgress::Listener()
{
    return [this](double done, std::string_view what) {
        constexpr std::uint64_t kSteps = 1000;
        m_bar.Show(what, static_cast<std::uint64_t>(done * kSteps), kSteps);
    };
}
