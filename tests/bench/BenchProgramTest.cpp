#include "ProgramRun.h"
#include "ReportText.h"
#include "TemporaryDirectory.h"

#include <gmock/gmock.h>

#include <sstream>
#include <string>

namespace
{

using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;

Outcome Bench(const std::string& arguments)
{
    return RunCommand(WB_BINARY_DIR "/bin/wb_bench " + arguments);
}

TEST(BenchProgram, TellsItsOptions)
{
    for (const char* option : {"--help", "-h"}) {
        const Outcome outcome = Bench(option);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_THAT(outcome.output, HasSubstr("--large"));
    }
}

TEST(BenchProgram, PrintsALineWhenBothItsSidesRan)
{
    const std::string quick = " --benchmark_repetitions=1 --benchmark_min_time=0.001";
    const Outcome outcome =
        Bench("--benchmark_filter='^(Statistics2000|Statistics20000)$'" + quick);
    EXPECT_THAT(outcome.output, HasSubstr("20,000 statistics, half of them duplicates / 2,000"));
    EXPECT_THAT(outcome.output, HasSubstr("   15.00"));
    EXPECT_THAT(outcome.output, Not(HasSubstr("encode")));
    const Outcome oneSide = Bench("--benchmark_filter='^Statistics2000$'" + quick);
    EXPECT_THAT(oneSide.output, Not(HasSubstr("statistics")));
    EXPECT_EQ(oneSide.status, 0);
}

TEST(BenchProgram, RunsProductsAndReportsAloneWhenTheyAreLarge)
{
    EXPECT_THAT(Bench("--benchmark_list_tests=true").output,
                HasSubstr("Products of 1000000 instances, reports of 100000\n"));
    const Outcome outcome = Bench("--large --benchmark_list_tests=true");
    EXPECT_THAT(outcome.output,
                HasSubstr("Products of 10000000 instances, reports of 1000000, one turn each\n"));
    EXPECT_THAT(outcome.output, HasSubstr("ReportParse"));
    EXPECT_THAT(outcome.output, HasSubstr("ProductRollUp"));
    EXPECT_THAT(outcome.output, Not(HasSubstr("Decode")));
}

TEST(BenchProgram, PrintsAPlainNumberAgainstItsLimit)
{
    const Outcome outcome = Bench("--benchmark_filter=^ProductFarOff");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output, HasSubstr("1,000 m off / in long double"));
    EXPECT_THAT(outcome.output, HasSubstr("    1e-12\n"));
}

TEST(BenchProgram, PrintsTheTimeOfEachPart)
{
    // 2,000 parts take a millisecond or so, so that each takes about one in 2,000 of it.
    const Outcome outcome =
        Bench("--benchmark_filter='^Product(Few|Many)Parts$' --benchmark_repetitions=1 "
              "--benchmark_min_time=0.001");
    EXPECT_THAT(outcome.output, ContainsRegex("the same without uncertainties and checks +"
                                              "[0-9]+\\.[0-9]{3} us +[0-9]+\\.[0-9]{3} us +"));
}

TEST(BenchProgram, MeasuresTheMemoryOfAnImport)
{
    const TemporaryDirectory directory;
    const std::string file = directory.Write("t.csv", "part,parent,instance\nR,,\nP,R,p\n");
    const Outcome outcome = Bench("--measure import " + file);
    EXPECT_EQ(outcome.status, 0) << outcome.output;
    EXPECT_GT(std::stod(outcome.output), 1e6);
    EXPECT_LT(std::stod(outcome.output), 1e9);
}

TEST(BenchProgram, RefusesAnOptionThatItDoesNotKnow)
{
    const Outcome outcome = Bench("--larger");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.output, HasSubstr("--larger"));
}

TEST(BenchProgram, MeasuresTheMemoryOfAReport)
{
    const TemporaryDirectory directory;
    ReportOptions options;
    options.instances = 3000;
    const std::string text = ReportText(options);
    const std::string file = directory.Write("report.xml", text);
    const Outcome outcome = Bench("--measure memory " + file);
    EXPECT_EQ(outcome.status, 0) << outcome.output;
    std::istringstream figures(outcome.output);
    for (int figure = 0; figure < 3; ++figure) {
        double bytes = 0.0;
        figures >> bytes;
        // A document holds every value of its text, and no text twenty times.
        EXPECT_GT(bytes, 0.5 * static_cast<double>(text.size()));
        EXPECT_LT(bytes, 20.0 * static_cast<double>(text.size()));
    }
}

TEST(BenchProgram, MeasuresTheReadingOfAReport)
{
    const TemporaryDirectory directory;
    const std::string file = directory.Write("report.xml", ReportText({}));
    for (const char* what : {"parse", "pugixml", "libxml2"}) {
        const Outcome outcome = Bench(std::string("--measure ") + what + ' ' + file);
        EXPECT_EQ(outcome.status, 0) << what;
        EXPECT_GT(std::stod(outcome.output), 0.0) << what;
        EXPECT_LT(std::stod(outcome.output), 60.0) << what;
    }
}

TEST(BenchProgram, SaysWhichFileItCannotMeasure)
{
    const TemporaryDirectory directory;
    const std::string file = directory.Write("broken.xml", "<WBReport>");
    for (const char* what : {"memory", "parse", "pugixml", "libxml2", "import"}) {
        const Outcome outcome = Bench(std::string("--measure ") + what + ' ' + file);
        EXPECT_EQ(outcome.status, 1) << what;
        EXPECT_THAT(outcome.output, HasSubstr("broken.xml:")) << what;
    }
    EXPECT_EQ(Bench("--measure colour " + file).status, 2);
}

} // namespace
