#pragma once

#include <string>
#include <vector>

enum class BenchUnit
{
    Milliseconds,
    MebiBytes,
    Share // a plain number
};

/// A line of the table: a figure of ours against one in the same run that does the least that the
/// work needs. A figure is the time of a benchmark, by its name, or one of its counters, by
/// "<benchmark>:<counter>".
struct BenchLine
{
    std::string what;
    std::string ours;
    std::string peer;  ///< empty: the figure of ours is the ratio
    double goal = 0.0; ///< ratio that must not be passed; 0: printed for information
    BenchUnit unit = BenchUnit::Milliseconds; ///< of counters: bytes or numbers
    /// How many things each side's figure is about; then it is printed for one of them.
    double ourCount = 1.0;
    double peerCount = 1.0;
};

/// The table's lines, in the order of registration.
std::vector<BenchLine>& BenchLines();

/// Adds a line when the program starts.
struct RegisterBenchLine
{
    explicit RegisterBenchLine(BenchLine line) { BenchLines().push_back(std::move(line)); }
};
