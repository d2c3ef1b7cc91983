#include "Subcommands.h"
#include "WrittenFile.h"

#include <CLI/CLI.hpp>

#include <array>
#include <cstdio>
#include <exception>
#include <functional>
#include <map>
#include <memory>

namespace
{

/// Does what the options of a subcommand say, when all of the command line has been read.
using Run = std::function<int(int argc, char** argv)>;

/// A shell variable that nobody set leaves an option empty; no file has such a name.
std::string RefuseEmptyName(const std::string& name)
{
    return name.empty() ? "expected a file, found \"\"" : "";
}

CLI::Validator IsName()
{
    return {RefuseEmptyName, ""};
}

void RefuseSharedFile(const char* option, const std::string& written,
                      std::initializer_list<NamedFile> others)
{
    const std::string problem = WrittenFileProblem(written, others);
    if (!problem.empty()) {
        throw CLI::ValidationError(option, problem);
    }
}

/// What is said of a command line that cannot be read. A subcommand that does not exist is named.
std::string WrongUseText(const CLI::App& app, const CLI::Error& error)
{
    const std::vector<std::string> unread = app.remaining();
    if (!app.get_subcommands().empty() || unread.empty()) {
        return "wb: " + CLI::FailureMessage::simple(&app, error);
    }
    std::string names;
    for (const CLI::App* known : app.get_subcommands([](const CLI::App*) { return true; })) {
        names += (names.empty() ? "" : ", ") + known->get_name();
    }
    return "wb: expected a subcommand (" + names + "), found \"" + unread.front() +
           "\"\nRun with --help for more information.\n";
}

constexpr const char* kLog = "--log";

void AddLog(CLI::App& app, SessionOptions& session)
{
    app.add_option(kLog, session.logFile, "Write the session's diagnostic lines to this file");
    app.add_flag("--verbose", session.verbose, "Write them to the standard error too");
}

void AddSession(CLI::App& app, SessionOptions& session, bool databaseRequired)
{
    app.add_option("--db", session.database, "Database: one SQLite file")
        ->check(IsName())
        ->required(databaseRequired);
    app.add_option("--user", session.user, "Work as this user (default: your login name)");
    AddLog(app, session);
}

constexpr const char* kReportNotes =
    R"(The report holds what the server sends: lengths in mm, masses in kg, inertias in kg.m2,
densities in kg/m3 and kg/m2, volumes in m3. Axes come first, then the reference point,
then units; the first two write six significant digits.

--axes takes every centre of gravity G to A G. It takes an inertia I of a part instance
to (inverse of A) I A, and one of a root or a section to (transpose of A) I A. For a
rotation these two are the same: the inertia as seen along the columns of A. Mind that
the centre is turned by A itself, which is the other way round. A matrix without an
inverse is refused; one that is no rotation is used, with a warning.

--reference is multiplied by the axes when both are given.

Numbers in options have "." for the decimal mark. A report may have either one; it is
written with the one of your locale.)";

void AddConversion(CLI::App& app, ConvertReportOptions& options)
{
    app.add_option("IN", options.input, "The report, an XML file; - is the standard input")
        ->type_name("")
        ->required();
    app.add_option("OUT", options.output,
                   "Where it goes, whole or not at all; may be IN; - is the standard output")
        ->type_name("")
        ->required();
    app.add_option("--units", options.units,
                   "Units of this run, such as MASS=lb,LENGTH=in\n"
                   "(default: your current units, which the workbench keeps)")
        ->type_name("LIST");
    app.add_flag("--display", options.display,
                 "The values stand in these units already: show them anew, convert nothing");
    app.add_flag("--distributive", options.distributive,
                 "The report is a distributive one: densities and volumes on every element,\n"
                 "no user-defined properties. Reports of wb report say so themselves");
    app.add_flag("--symbols", options.symbols, "Write each unit behind its value: 12.5kg");
    app.add_option("--decimals", options.decimals,
                   "0: the unit's own way, without trailing zeros (default);\n"
                   "-1: always the unit's number of decimals; 1 to 15: always so many")
        ->type_name("N");
    app.add_option("--reference", options.reference,
                   "In mm: write centres relative to this point, and inertias about it")
        ->type_name("X,Y,Z");
    app.add_flag("--keep-cog", options.keepAtCentre,
                 "With --reference: inertias stay about the centres of gravity");
    app.add_option("--axes", options.axes,
                   "A matrix A, nine terms row by row: turn centres and inertias, see below")
        ->type_name("a11,a12,...,a33");
    AddLog(app, options.session);
    app.footer(kReportNotes);
}

Run AddConvertReport(CLI::App& app)
{
    const auto options = std::make_shared<ConvertReportOptions>();
    AddConversion(app, *options);
    app.callback([options] {
        RefuseSharedFile(kLog, options->session.logFile,
                         {{"the report", options->input}, {"its outcome", options->output}});
    });
    return [options](int, char**) {
        return RunConvertReport(*options);
    };
}

constexpr const char* kComputeNotes =
    R"(A table is shown in your current units, which the workbench keeps; --json and
--csv stand in kg, mm, kg.m2, kg/m3 and kg/m2. Either may ask for other units.
Numbers have "." for the decimal mark. What is unknown is "-", null or an empty
cell, never 0. Everything stands in the axes of the asked node; products of
inertia are + integral.

--uncertainty, --explain and --or look at every leaf, so everything is computed
then, whatever --update says.

The status is 0; 3 when something has no mass, so that the total leaves it out
(all is printed then too); 1 when nothing could be computed; 2 for wrong use.)";

void AddPrecision(CLI::App& app, ComputeCommandOptions& options)
{
    app.add_option("--precision", options.precision,
                   "Whose values count: active (default),\n"
                   "most-precise, Computed (active values of the\n"
                   "leaves, nothing imposed above them), or one\n"
                   "mass type alone")
        ->type_name("WORD");
}

void AddUpdate(CLI::App& app, ComputeCommandOptions& options)
{
    app.add_option("--update", options.update,
                   "check (default): what is not up to date is\n"
                   "computed; force: everything is; assume:LEVEL:\n"
                   "what lies deeper is taken as it was kept")
        ->type_name("POLICY");
}

void AddFilter(CLI::App& app, ComputeCommandOptions& options)
{
    app.add_option("--include", options.included,
                   "Count this node with all below it; may be\n"
                   "repeated. The longest path that names a node or\n"
                   "something above it decides about it")
        ->type_name("PATH")
        ->allow_extra_args(false);
    app.add_option("--exclude", options.excluded, "Leave it out; may be repeated")
        ->type_name("PATH")
        ->allow_extra_args(false);
    app.add_option("--filter", options.filter,
                   "A filter as requests carry it, such as\n"
                   "\"1|Name|X|WNG-000.1|WNG-000|A|0\"")
        ->type_name("TEXT");
}

void AddDeviations(CLI::App& app, ComputeCommandOptions& options)
{
    app.add_option("--deviations", options.deviations,
                   "Lower and upper deviation of the total in place\n"
                   "of the computed ones: 2,3% of its mass or 2,3kg")
        ->type_name("L,U");
}

void AddComputeChoices(CLI::App& app, ComputeCommandOptions& options)
{
    AddPrecision(app, options);
    app.add_option("--or", options.orElse,
                   "active: beside a mass type, leaves without it\n"
                   "take their active values")
        ->type_name("active");
    AddUpdate(app, options);
    app.add_option("--entity", options.entity,
                   "instance (default): the node with all below it;\n"
                   "root: the whole product; part: the part alone,\n"
                   "with its own values")
        ->type_name("WORD");
    AddFilter(app, options);
    app.add_option("--density-first", options.densityFirst,
                   "Of the asked part: which density goes first,\n"
                   "wb (its own) or material")
        ->type_name("WORD");
    app.add_option("--material", options.material, "Of the asked part: as if it were made of this")
        ->type_name("NAME");
    AddDeviations(app, options);
}

void AddComputeOutput(CLI::App& app, ComputeCommandOptions& options)
{
    app.add_option("--at", options.at,
                   "The point of the inertia: cg, the centre of\n"
                   "gravity (default); origin, that of the node's\n"
                   "axes; or a point in them, in the unit of length\n"
                   "of the output")
        ->type_name("X,Y,Z");
    app.add_flag("--rss", options.rss,
                 "Add the deviations as the root of the sum of\n"
                 "squares, together and apart");
    app.add_flag("--uncertainty", options.uncertainty,
                 "Add the standard uncertainties of mass, centre\n"
                 "of gravity and inertia");
    app.add_flag("--apart", options.apart,
                 "Uncertainties where every piece has errors of its\n"
                 "own (else all uses of a part share them)");
    app.add_option("--explain", options.explain,
                   "List the N (10) largest contributors to the mass\n"
                   "and to its uncertainty")
        ->type_name("[N]")
        ->expected(0, 1);
    app.add_option("--units", options.units, "Units of this run, such as MASS=lb,LENGTH=in")
        ->type_name("LIST");
    CLI::Option* json = app.add_flag("--json", options.json, "As JSON");
    app.add_flag("--csv", options.csv, "As one CSV table")->excludes(json);
}

Run AddCompute(CLI::App& app)
{
    const auto options = std::make_shared<ComputeCommandOptions>();
    app.add_option("path", options->path, "ROOT/INSTANCE/INSTANCE")->type_name("PATH");
    app.add_option("--db", options->session.database, "Database: one SQLite file")
        ->check(IsName())
        ->required();
    app.add_option("--user", options->session.user,
                   "Work as this user (default: your login name):\n"
                   "what he has changed and not saved counts");
    app.add_option("--root-version", options->rootVersion,
                   "Version of the root (default: the one that was\n"
                   "stored last)");
    AddComputeChoices(app, *options);
    AddComputeOutput(app, *options);
    AddLog(app, options->session);
    app.footer(kComputeNotes);
    app.callback([options] {
        RefuseSharedFile(kLog, options->session.logFile,
                         {{"the database", options->session.database}});
    });
    return [options](int, char**) {
        return RunCompute(*options);
    };
}

constexpr const char* kMakeReportNotes =
    R"(The report is in kg, mm, kg.m2, kg/m3, kg/m2 and m3, in the axes of the root, and
its numbers have "." for the decimal mark. "wb convert-report" brings it into your
units: wb report LA1 --db DB --out - | wb convert-report - LA1.xml

The status is 0; 1 when there is no such database, nothing could be computed or
the file could not be written (it stays as it was then); 2 for wrong use, also
where a root, path, mass type or property is named that there is not.)";

void AddReportContents(CLI::App& app, ReportCommandOptions& options)
{
    app.add_option("--kind", options.kind,
                   "report (default): instances nested as in the\n"
                   "product; distributive: one list of them;\n"
                   "material-statistics: masses by material and by\n"
                   "mass type")
        ->type_name("KIND");
    app.add_option("--pick", options.picked,
                   "Report this instance with all below it, beside\n"
                   "the root's totals; may be repeated (default: all\n"
                   "of the root)")
        ->type_name("PATH")
        ->allow_extra_args(false);
    app.add_option("--values", options.values,
                   "Which values besides the mass: all (default),\n"
                   "none or some of Deviations, Centre, Inertia,\n"
                   "Density, Materials, Volume, Types, Date")
        ->type_name("LIST");
    CLI::Option* property = app.add_option("--property", options.properties,
                                           "Report this property; may be repeated (default:\n"
                                           "all of them)")
                                ->type_name("NAME")
                                ->allow_extra_args(false);
    app.add_flag("--no-properties", options.noProperties, "Report no properties")
        ->excludes(property);
    app.add_flag("--statistics", options.statistics,
                 "Material statistics of every instance too, not\n"
                 "of the root alone");
}

Run AddReport(CLI::App& app)
{
    const auto options = std::make_shared<ReportCommandOptions>();
    ComputeCommandOptions& computation = options->computation;
    app.add_option("root", computation.path, "A part that nobody uses: a product")
        ->type_name("ROOT")
        ->required();
    AddSession(app, computation.session, true);
    app.add_option("--out", options->output,
                   "The XML file, written whole or not at all; - is\n"
                   "the standard output")
        ->type_name("FILE.xml")
        ->check(IsName())
        ->required();
    AddReportContents(app, *options);
    AddPrecision(app, computation);
    app.add_option("--update", computation.update,
                   "check (default): what is not up to date is\n"
                   "computed; force: everything is, from the\n"
                   "database on")
        ->type_name("POLICY");
    AddFilter(app, computation);
    app.add_flag("--stored-filter", options->storedFilter,
                 "The filter that the workbench keeps for the root");
    AddDeviations(app, computation);
    app.footer(kMakeReportNotes);
    app.callback([options] {
        const SessionOptions& session = options->computation.session;
        const NamedFile database{"the database", session.database};
        RefuseSharedFile("--out", options->output, {database});
        RefuseSharedFile(kLog, session.logFile, {database, {"the report", options->output}});
    });
    return [options](int, char**) {
        return RunReport(*options);
    };
}

Run AddWorkbench(CLI::App& app)
{
    const auto options = std::make_shared<WorkbenchOptions>();
    AddSession(app, options->session, false);
    app.add_option("product", options->product,
                   "A product root of the database, or a CSV file to open without a database "
                   "(default: the sample aeroplane LA1, or the database's first root)");
    app.add_option("--play", options->story,
                   "Play a story of steps and return; 0 when every step held. Runs with or without "
                   "a display");
    app.callback([options] {
        RefuseSharedFile(kLog, options->session.logFile,
                         {{"the database", options->session.database},
                          {"the product", options->product},
                          {"the story", options->story}});
    });
    return [options](int argc, char** argv) {
        return RunWorkbench(argc, argv, *options);
    };
}

Run AddPart(CLI::App& app)
{
    const auto options = std::make_shared<PartOptions>();
    AddSession(app, options->session, true);
    app.add_option("path", options->path, "ROOT/INSTANCE/INSTANCE")->required();
    app.add_flag("--json", options->json, "As JSON, in storage units");
    app.callback([options] {
        RefuseSharedFile(kLog, options->session.logFile,
                         {{"the database", options->session.database}});
    });
    return [options](int argc, char** argv) {
        return RunPart(argc, argv, *options);
    };
}

Run AddImport(CLI::App& app)
{
    const auto options = std::make_shared<ImportOptions>();
    app.add_option("file", options->files, "CSV files in the table form; - is the standard input")
        ->type_name("FILE.csv")
        ->check(IsName())
        ->required();
    app.add_option("--into", options->database, "Database: one SQLite file, made when missing")
        ->type_name("DB")
        ->check(IsName())
        ->required();
    app.add_flag("--check", options->check, "Say what would change, and change nothing");
    app.add_flag(
        "--update,!--no-update", options->update,
        "Facts of the files take the place of what the database holds; blank cells leave it\n"
        "(the default). With --no-update a fact that differs is refused");
    app.add_option("--replace", options->replace,
                   "Remove the uses in this product that the file lacks, so that its structure\n"
                   "is that of the file. One file")
        ->type_name("ROOT");
    app.add_option("--mass-types", options->massTypes,
                   "Add or change the mass types of this CSV file first")
        ->type_name("TYPES.csv");
    app.add_option("--mass-type", options->massType, "Mass type of values whose row names none")
        ->type_name("NAME");
    app.add_option("--poi-sign", options->poiSign,
                   "Sign of products of inertia where a row does not say it")
        ->check(CLI::IsMember({"positive", "negative"}));
    app.add_option("--user", options->user, "Who imports (default: your login name)")
        ->type_name("NAME");
    app.callback([options] {
        if (!options->replace.empty() && options->files.size() > 1) {
            throw CLI::ValidationError("--replace", "expected one file, since a use that one file "
                                                    "lacks may stand in another");
        }
    });
    return [options](int, char**) {
        return RunImport(*options);
    };
}

Run AddExport(CLI::App& app)
{
    const auto options = std::make_shared<ExportOptions>();
    app.add_option("root", options->root, "A part that nobody uses: a product")
        ->type_name("ROOT")
        ->required();
    app.add_option("--db", options->database, "Database: one SQLite file")
        ->type_name("DB")
        ->check(IsName())
        ->required();
    app.add_option("--out", options->output,
                   "The CSV file, written whole or not at all; - is the standard output")
        ->type_name("FILE.csv")
        ->check(IsName())
        ->required();
    app.add_option("--root-version", options->version,
                   "Version of the root (default: the one that was stored last)")
        ->type_name("VERSION");
    app.add_option("--mass-types", options->massTypes,
                   "Write the mass types of the database too, for the option of wb import")
        ->type_name("TYPES.csv");
    app.footer("The file holds saved values alone. What somebody has changed and not saved yet\n"
               "is not in it, whoever exports; wb pending lists it.");
    app.callback([options] {
        constexpr const char* kMassTypes = "--mass-types";
        if (options->output == "-" && options->massTypes == "-") {
            throw CLI::ValidationError(kMassTypes, "expected a file, since the product goes to the "
                                                   "standard output");
        }
        const NamedFile database{"the database", options->database};
        RefuseSharedFile("--out", options->output, {database});
        RefuseSharedFile(kMassTypes, options->massTypes,
                         {database, {"the file of the product", options->output}});
    });
    return [options](int, char**) {
        return RunExport(*options);
    };
}

constexpr const char* kChangeNotes =
    R"(A table is shown in your current units, which the workbench keeps, and in your time.
--json and --csv hold the texts as the database keeps them: kg, mm, kg.m2, kg/m3 and
kg/m2, several numbers joined by ";", and times in UTC. What nobody stated is "-",
null or an empty cell.)";

void AddChangeOutput(CLI::App& app, bool& json, bool& csv)
{
    CLI::Option* asJson = app.add_flag("--json", json, "As JSON");
    app.add_flag("--csv", csv, "As one CSV table")->excludes(asJson);
    app.footer(kChangeNotes);
}

Run AddHistory(CLI::App& app)
{
    const auto options = std::make_shared<HistoryOptions>();
    app.add_option("path", options->path, "ROOT or ROOT/INSTANCE/INSTANCE")
        ->type_name("PATH")
        ->required();
    app.add_option("--db", options->session.database, "Database: one SQLite file")
        ->check(IsName())
        ->required();
    app.add_option("--root-version", options->rootVersion,
                   "Version of the root (default: the one that was stored last)")
        ->type_name("VERSION");
    AddLog(app, options->session);
    AddChangeOutput(app, options->json, options->csv);
    app.callback([options] {
        RefuseSharedFile(kLog, options->session.logFile,
                         {{"the database", options->session.database}});
    });
    return [options](int, char**) {
        return RunHistory(*options);
    };
}

Run AddPending(CLI::App& app)
{
    const auto options = std::make_shared<PendingOptions>();
    AddSession(app, options->session, true);
    CLI::Option* save =
        app.add_flag("--save", options->save,
                     "Save all of them, or none where somebody else has saved one of these values\n"
                     "first: the status is 1 then, and the standard error says which");
    CLI::Option* abort =
        app.add_flag("--abort", options->abort, "Give all of them up")->excludes(save);
    AddChangeOutput(app, options->json, options->csv);
    for (const char* form : {"--json", "--csv"}) {
        app.get_option(form)->excludes(save)->excludes(abort);
    }
    app.callback([options] {
        RefuseSharedFile(kLog, options->session.logFile,
                         {{"the database", options->session.database}});
    });
    return [options](int, char**) {
        return RunPending(*options);
    };
}

Run AddMassTypes(CLI::App& app)
{
    const auto options = std::make_shared<MassTypesOptions>();
    app.add_option("--db", options->database, "Database: one SQLite file")
        ->check(IsName())
        ->required();
    app.add_option("--mass-types", options->file, "Add or change the mass types of this CSV file");
    return [options](int, char**) {
        return RunMassTypes(*options);
    };
}

struct SubcommandRow
{
    const char* name;
    const char* help;
    Run (*add)(CLI::App& app);
};

// In the order of the help text.
constexpr std::array kSubcommands{
    SubcommandRow{"workbench", "Open the desktop: navigator, product structure, panels",
                  AddWorkbench},
    SubcommandRow{"part", "Print everything that is known about one part or instance", AddPart},
    SubcommandRow{"import", "Read products from CSV files into a database", AddImport},
    SubcommandRow{"export", "Write a product as a CSV file that wb import reads back alike",
                  AddExport},
    SubcommandRow{"compute", "Sum up a product or a node of it: mass, centre of gravity, inertia",
                  AddCompute},
    SubcommandRow{"report", "Write a product's mass properties as an XML report", AddReport},
    SubcommandRow{"convert-report",
                  "Bring a report's numbers into your units, axes and reference point",
                  AddConvertReport},
    SubcommandRow{"history", "Tell what was changed of a part or instance, by whom and when",
                  AddHistory},
    SubcommandRow{"pending", "List what you have changed and not saved; save it or give it up",
                  AddPending},
    SubcommandRow{"mass-types", "List the mass types of a database, or add some", AddMassTypes},
};

} // namespace

int main(int argc, char** argv)
{
    CLI::App app{"wb: mass, centre of gravity and inertia of a product, who claimed which value, "
                 "and how sure it is"};
    app.require_subcommand(1);
    app.set_version_flag("--version", WB_VERSION);
    app.failure_message([](const CLI::App* failed, const CLI::Error& error) {
        return WrongUseText(*failed, error);
    });
    std::map<const CLI::App*, Run> runs;
    for (const SubcommandRow& row : kSubcommands) {
        CLI::App* subcommand = app.add_subcommand(row.name, row.help);
        runs[subcommand] = row.add(*subcommand);
    }
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        const int code = app.exit(error);
        return code == 0 ? 0 : 2;
    }
    try {
        return runs.at(app.get_subcommands().front())(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "wb: %s\n", error.what());
        return 1;
    }
}
