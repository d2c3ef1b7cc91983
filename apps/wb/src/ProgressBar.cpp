#include "ProgressBar.h"

#include <algorithm>

namespace
{

constexpr std::size_t kStageWidth = 12;
constexpr std::uint64_t kBarWidth = 30;
constexpr std::uint64_t kMegabyte = 1000000;

} // namespace

std::string ProgressLine(std::string_view stage, std::uint64_t done, std::uint64_t total)
{
    std::string line(stage);
    if (total == 0 && done == 0) {
        return line;
    }
    line.resize(std::max(line.size() + 1, kStageWidth), ' ');
    if (total == 0) {
        return line + std::to_string(done / kMegabyte) + " MB";
    }
    // A file that grows while it is read is no more than done.
    const double share = std::min(1.0, static_cast<double>(done) / static_cast<double>(total));
    const auto filled = static_cast<std::size_t>(share * static_cast<double>(kBarWidth));
    line += '[' + std::string(filled, '#') + std::string(kBarWidth - filled, '-') + "] ";
    const std::string percent = std::to_string(static_cast<int>(share * 100.0));
    return line + std::string(3 - percent.size(), ' ') + percent + " %";
}

void ProgressBar::Show(std::string_view stage, std::uint64_t done, std::uint64_t total)
{
    const std::string line = ProgressLine(stage, done, total);
    if (m_terminal != nullptr && line != m_shown) {
        Replace(line);
    }
}

void ProgressBar::Clear()
{
    if (!m_shown.empty()) {
        Replace({});
        std::fputc('\r', m_terminal);
    }
}

void ProgressBar::Replace(const std::string& line)
{
    // Blanks take away what a longer line before has left.
    std::string text = '\r' + line;
    text.resize(std::max(text.size(), m_shown.size() + 1), ' ');
    std::fwrite(text.data(), 1, text.size(), m_terminal);
    m_shown = line;
}
