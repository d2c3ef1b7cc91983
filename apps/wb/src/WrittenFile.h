#pragma once

#include <initializer_list>
#include <string>

/// A file that an option names; the path may be empty, and "-" is no file.
struct NamedFile
{
    const char* what; ///< as a sentence names it: "the database"
    std::string path;
};

/// A run writes over some files. Empty, or a sentence when the written one is one of the others
/// too, under whatever name: a database that is taken for a log or for an export would be lost.
/// Devices are written side by side and never refused.
std::string WrittenFileProblem(const std::string& written, std::initializer_list<NamedFile> others);
