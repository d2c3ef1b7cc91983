#pragma once

#include "HostSession.h"

#include <optional>
#include <string>
#include <vector>

/// The program's subcommands, each a function from its options to the exit status: 0 done, 1
/// refused or failed (with what was wrong on the standard error), 2 wrong use.

struct WorkbenchOptions
{
    SessionOptions session; ///< without a database: the samples
    std::string product;    ///< a root of the database, or a CSV file; empty: the sample aeroplane
    std::string story;      ///< plays it and returns; empty: the user works
};
int RunWorkbench(int argc, char** argv, const WorkbenchOptions& options);

struct PartOptions
{
    SessionOptions session;
    std::string path; ///< "ROOT/INSTANCE/INSTANCE"
    bool json = false;
};
int RunPart(int argc, char** argv, const PartOptions& options);

struct ImportOptions
{
    std::vector<std::string> files;
    std::string database;
    std::string massTypes; ///< a file of mass types, read first; may be empty
    std::string massType;  ///< of values whose row names none; may be empty
    std::string poiSign;   ///< "positive" or "negative"; may be empty
    std::string user;
    std::string
        replace;        ///< a product root whose uses that the file lacks are removed; may be empty
    bool update = true; ///< facts of the file take the place of stored ones; else they are refused
    bool check = false; ///< says what would happen and changes nothing
};
int RunImport(const ImportOptions& options);

struct ExportOptions
{
    std::string root;
    std::string version; ///< empty: of several the one that was stored last
    std::string database;
    std::string output;    ///< a file; "-": the standard output
    std::string massTypes; ///< a file for the mass types; may be empty
};
int RunExport(const ExportOptions& options);

struct MassTypesOptions
{
    std::string database;
    std::string file; ///< adds or changes those of this file; empty: lists them
};
int RunMassTypes(const MassTypesOptions& options);

struct ConvertReportOptions
{
    SessionOptions session;           ///< without a database
    std::string input;                ///< a file; "-": the standard input
    std::string output;               ///< a file, which may be the input; "-": the standard output
    std::optional<std::string> units; ///< "MASS=lb,LENGTH=in"; none: the user's
    std::optional<std::string> decimals;  ///< none: 0
    std::optional<std::string> reference; ///< "X,Y,Z" in millimetres
    std::optional<std::string> axes;      ///< nine terms row by row
    bool display = false;                 ///< the values stand in these units already
    bool distributive = false;
    bool symbols = false;
    bool keepAtCentre = false; ///< for `reference`: moves the centres alone
};
int RunConvertReport(const ConvertReportOptions& options);
