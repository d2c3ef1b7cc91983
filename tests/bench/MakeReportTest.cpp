#include "ProgramRun.h"
#include "ReportText.h"
#include "TemporaryDirectory.h"

#include <gmock/gmock.h>

#include <string>

namespace
{

using testing::HasSubstr;

Outcome MakeReport(const std::string& arguments)
{
    return RunCommand(WB_BINARY_DIR "/bin/wb_make_report " + arguments);
}

TEST(MakeReport, WritesTheReportThatItsOptionsAskFor)
{
    const TemporaryDirectory directory;
    const Outcome outcome = MakeReport(directory.At("out.xml") +
                                       " --instances 30 --children 4 --sections 2 --materials "
                                       "3 --statistics-every 7 --separator , --seed 5");
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.status, 0);
    ReportOptions options;
    options.instances = 30;
    options.children = 4;
    options.sections = 2;
    options.materials = 3;
    options.statisticsEvery = 7;
    options.separator = ',';
    options.seed = 5;
    EXPECT_EQ(directory.Read("out.xml"), ReportText(options));
}

TEST(MakeReport, WritesADistributiveReportToTheStandardOutput)
{
    ReportOptions options;
    options.distributive = true;
    const Outcome outcome = MakeReport("- --distributive");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, ReportText(options));
}

TEST(MakeReport, WritesWellFormedDocuments)
{
    const TemporaryDirectory directory;
    for (const char* kind : {"", " --distributive"}) {
        MakeReport(directory.At("out.xml") + " --instances 5000" + kind);
        const Outcome outcome = RunCommand("xmllint --noout " + directory.At("out.xml"));
        EXPECT_EQ(outcome.status, 0) << outcome.output;
    }
}

TEST(MakeReport, TellsItsOptions)
{
    for (const char* option : {"--help", "-h"}) {
        const Outcome outcome = MakeReport(option);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_THAT(outcome.output, HasSubstr("--statistics-every N"));
    }
}

TEST(MakeReport, RefusesWhatItDoesNotUnderstand)
{
    const TemporaryDirectory directory;
    const std::string file = directory.At("out.xml");
    const std::pair<std::string, std::string> rows[] = {
        {"", "The file to write is missing."},
        {file + " other.xml", "There are two files"},
        {file + " --instances", "\"--instances\" needs a value, or is no option."},
        {file + " --instances 12x", "\"--instances 12x\" is not understood."},
        {file + " --seed -1", "\"--seed -1\" is not understood."},
        {file + " --separator ab", "\"--separator ab\" is not understood."},
        {file + " --colour 3", "\"--colour 3\" is not understood."},
        {file + " --instances -3", "A number of elements cannot be negative."},
    };
    for (const auto& [arguments, sentence] : rows) {
        const Outcome outcome = MakeReport(arguments);
        EXPECT_EQ(outcome.status, 2) << arguments;
        EXPECT_THAT(outcome.output, HasSubstr(sentence));
        EXPECT_FALSE(directory.Has("out.xml")) << arguments;
    }
}

TEST(MakeReport, SaysWhichFileCannotBeWritten)
{
    const Outcome missing = MakeReport("/no/such/directory/out.xml");
    EXPECT_EQ(missing.status, 1);
    EXPECT_THAT(missing.output, HasSubstr("/no/such/directory/out.xml: No such file"));
    const Outcome full = MakeReport("/dev/full");
    EXPECT_EQ(full.status, 1);
    EXPECT_THAT(full.output, HasSubstr("/dev/full: No space left"));
}

} // namespace
