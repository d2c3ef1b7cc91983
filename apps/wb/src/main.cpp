#include "Subcommands.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <exception>

namespace
{

void AddSession(CLI::App& app, SessionOptions& session, bool databaseRequired)
{
    app.add_option("--db", session.database, "Database: one SQLite file")
        ->required(databaseRequired);
    app.add_option("--user", session.user, "Work as this user (default: your login name)");
    app.add_option("--log", session.logFile, "Write the session's diagnostic lines to this file");
    app.add_flag("--verbose", session.verbose, "Write them to the standard error too");
}

} // namespace

int main(int argc, char** argv)
{
    CLI::App app{"wb: mass, centre of gravity and inertia of a product, who claimed which value, "
                 "and how sure it is"};
    app.require_subcommand(1);
    app.set_version_flag("--version", WB_VERSION);

    WorkbenchOptions workbench;
    CLI::App* workbenchApp =
        app.add_subcommand("workbench", "Open the desktop: navigator, product structure, panels");
    AddSession(*workbenchApp, workbench.session, false);
    workbenchApp->add_option(
        "product", workbench.product,
        "A product root of the database, or a CSV file to open without a database "
        "(default: the sample aeroplane LA1, or the database's first root)");
    workbenchApp->add_option(
        "--play", workbench.story,
        "Play a story of steps and return; 0 when every step held. Runs with or without a display");

    PartOptions part;
    CLI::App* partApp =
        app.add_subcommand("part", "Print everything that is known about one part or instance");
    AddSession(*partApp, part.session, true);
    partApp->add_option("path", part.path, "ROOT/INSTANCE/INSTANCE")->required();
    partApp->add_flag("--json", part.json, "As JSON, in storage units");

    ImportOptions import;
    CLI::App* importApp =
        app.add_subcommand("import", "Read products from CSV files into a database");
    importApp->add_option("file", import.files, "CSV files in the table form")->required();
    importApp->add_option("--into", import.database, "Database: one SQLite file, made when missing")
        ->required();
    importApp->add_flag("--check", import.check, "Say what would change, and change nothing");
    importApp->add_option("--mass-types", import.massTypes,
                          "Add or change the mass types of this CSV file first");
    importApp->add_option("--mass-type", import.massType,
                          "Mass type of values whose row names none");
    importApp
        ->add_option("--poi-sign", import.poiSign,
                     "Sign of products of inertia where a row does not say it")
        ->check(CLI::IsMember({"positive", "negative"}));
    importApp->add_option("--user", import.user, "Who imports (default: your login name)");

    MassTypesOptions massTypes;
    CLI::App* massTypesApp =
        app.add_subcommand("mass-types", "List the mass types of a database, or add some");
    massTypesApp->add_option("--db", massTypes.database, "Database: one SQLite file")->required();
    massTypesApp->add_option("--mass-types", massTypes.file,
                             "Add or change the mass types of this CSV file");

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        const int code = app.exit(error);
        return code == 0 ? 0 : 2;
    }
    try {
        if (*workbenchApp) {
            return RunWorkbench(argc, argv, workbench);
        }
        if (*partApp) {
            return RunPart(argc, argv, part);
        }
        if (*importApp) {
            return RunImport(import);
        }
        return RunMassTypes(massTypes);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "wb: %s\n", error.what());
        return 1;
    }
}
