#pragma once

#include <string>

/// The program's option by which it measures a report's memory in a process of its own, which no
/// other benchmark has filled and left full of holes: "<option> FILE".
inline constexpr const char* kMeasureReportOption = "--measure-report-memory";

/// Reads the report of that file and prints the bytes that its document takes: as read, after one
/// pass of display, after many. Returns the program's exit status.
int PrintReportMemory(const std::string& path);
