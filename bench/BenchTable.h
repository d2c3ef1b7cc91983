#pragma once

#include <string>
#include <vector>

/// A line of the table: a benchmark of ours against one in the same run that does the least that
/// the work needs.
struct BenchLine
{
    std::string what;
    std::string ours; ///< name of a benchmark
    std::string peer; ///< name of a benchmark
    double goal;      ///< ratio that must not be passed; 0: printed for information
};

/// The table's lines, in the order of registration.
std::vector<BenchLine>& BenchLines();

/// Adds a line when the program starts.
struct RegisterBenchLine
{
    explicit RegisterBenchLine(BenchLine line) { BenchLines().push_back(std::move(line)); }
};
