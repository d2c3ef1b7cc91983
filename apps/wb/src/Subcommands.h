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

/// What a user typed for `wb compute`; ReadComputeArguments says what it means.
struct ComputeCommandOptions
{
    SessionOptions session;
    std::string path;        ///< "ROOT/INSTANCE/INSTANCE"
    std::string rootVersion; ///< empty: of several the one that was stored last
    std::string precision = "active";
    std::string orElse; ///< "active": leaves without the mass type take their active values
    std::string update = "check";
    std::string entity = "instance";
    std::optional<std::string> filter; ///< as the filter panel keeps it
    std::vector<std::string> included; ///< paths
    std::vector<std::string> excluded;
    std::string densityFirst;              ///< "wb" or "material"; empty: each part's own order
    std::string material;                  ///< in place of that of the asked part; may be empty
    std::optional<std::string> deviations; ///< "2,3%" or "2,3kg"
    std::string at = "cg";
    bool uncertainty = false;
    bool rss = false;
    bool apart = false;
    std::optional<std::string> explain; ///< how many; empty: the usual number
    std::optional<std::string> units;   ///< "MASS=lb,LENGTH=in"
    bool json = false;
    bool csv = false;
};
/// Returns 3 when something in the product has no mass, so that the figures are those of a part of
/// it. They are printed all the same.
int RunCompute(const ComputeCommandOptions& options);

/// What a user typed for `wb report`; ReadReportRequest says what it means.
struct ReportCommandOptions
{
    /// Of the root, the path: database and log, which values count, how much is computed anew and
    /// what is left out. Its other options stay as they are.
    ComputeCommandOptions computation;
    std::string kind = "report";         ///< or "distributive", "material-statistics"
    std::vector<std::string> picked;     ///< paths; empty: all of the root
    std::optional<std::string> values;   ///< "Deviations,Centre", "none"; none: all
    std::vector<std::string> properties; ///< names; empty: all, unless
    bool noProperties = false;
    bool statistics = false;   ///< those of every part instance too
    bool storedFilter = false; ///< what is left out is what the workbench leaves out
    std::string output;        ///< a file; "-": the standard output
};
/// Returns 2 for wrong use, names that there are not included.
int RunReport(const ReportCommandOptions& options);

struct HistoryOptions
{
    SessionOptions session;
    std::string path;        ///< "ROOT/INSTANCE/INSTANCE"
    std::string rootVersion; ///< empty: of several the one that was stored last
    bool json = false;
    bool csv = false;
};
/// What was changed of a part and of its use, by whom and when.
int RunHistory(const HistoryOptions& options);

struct PendingOptions
{
    SessionOptions session;
    bool save = false;
    bool abort = false;
    bool json = false;
    bool csv = false;
};
/// Lists what the user has changed and not saved, saves it or gives it up. 1 also when it could not
/// be saved because somebody else has saved other values first.
int RunPending(const PendingOptions& options);

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
