#pragma once

#include <string>
#include <vector>

/// The program's option by which it takes figures of one file in a process of its own, which no
/// other benchmark has filled and left full of holes: "<option> WHAT FILE".
inline constexpr const char* kMeasureOption = "--measure";

/// Takes the figures (WHAT is "memory", "parse", "pugixml" or "libxml2" of a report, "import" of a
/// product table, "list" of so many rows, which stand in the file's place) and prints them. Returns
/// the program's exit status.
int Measure(const std::string& what, const std::string& path);
/// The figures that another process of this program takes; none when that failed.
std::vector<double> MeasureElsewhere(const std::string& what, const std::string& path);

/// The bytes of this process that stand in real memory. What is free goes back to the system
/// first, so that only what is held counts.
double HeldBytes();

/// The folder of this program and of those that were built with it.
std::string ProgramFolder();

/// The figures, in the order in which they are printed; none, with a message, when the file is not
/// what it should be.
/// The bytes that a document takes: as read, after one pass of display, after many.
std::vector<double> MeasureMemory(const std::string& path);
/// The seconds that reading the text takes, which stands in memory before: by us and by each peer.
std::vector<double> MeasureParse(const std::string& path);
std::vector<double> MeasurePugiParse(const std::string& path);
std::vector<double> MeasureLibxmlParse(const std::string& path);
/// The bytes that a filled and shown list of so many rows ("100000") takes, and those of its texts.
std::vector<double> MeasureList(const std::string& rows);
/// The most bytes that the process ever held while it imported the table into a new database.
std::vector<double> MeasureImport(const std::string& path);
