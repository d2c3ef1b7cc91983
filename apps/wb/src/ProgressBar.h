#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

/// One line that says how far a stage has come: a bar and a percentage where the end is known
/// (`total` above 0), else how many megabytes are done, else the stage alone.
std::string ProgressLine(std::string_view stage, std::uint64_t done, std::uint64_t total);

/// Shows stages of a long work on one line of a terminal, and leaves the line blank at the end.
class ProgressBar
{
public:
    /// A null terminal shows nothing.
    explicit ProgressBar(std::FILE* terminal) : m_terminal(terminal) {}
    ~ProgressBar() { Clear(); }
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    void Show(std::string_view stage, std::uint64_t done = 0, std::uint64_t total = 0);
    /// Takes the line away, before somebody else writes.
    void Clear();

private:
    void Replace(const std::string& line);

    std::FILE* m_terminal;
    std::string m_shown;
};
