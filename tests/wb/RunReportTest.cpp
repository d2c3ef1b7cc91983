#include "ComputeTesting.h"
#include "CsvCells.h"
#include "SqlConnection.h"

#include <gmock/gmock.h>
#include <pugixml.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <vector>

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace
{
class RunReport : public ComputeProgram
{
protected:
    Outcome Report(const std::string& arguments) const
    {
        return Run("report --db a.db --out out.xml " + arguments);
    }
    /// The document element of what was written, as a second reader sees it.
    pugi::xml_node Written(const std::string& arguments)
    {
        const Outcome outcome = Report(arguments);
        EXPECT_EQ(outcome.status, 0) << arguments << '\n' << outcome.err;
        return ReadAgain("out.xml");
    }
    pugi::xml_node ReadAgain(const std::string& name)
    {
        const pugi::xml_parse_result result = m_document.load_file(folder.At(name).c_str());
        EXPECT_TRUE(result) << result.description();
        return m_document.document_element();
    }
    /// What a run says that may not touch the report that is there.
    std::string Refusal(const std::string& arguments, int status) const
    {
        folder.Write("out.xml", "as it was");
        const Outcome outcome = Report(arguments);
        EXPECT_EQ(outcome.status, status) << arguments;
        EXPECT_THAT(outcome.out, IsEmpty()) << arguments;
        EXPECT_EQ(folder.Read("out.xml"), "as it was") << arguments;
        return outcome.err;
    }
    /// What a report of R shows on a terminal: "script" has one of its own.
    std::string OnTerminal(const std::string& arguments) const
    {
        return RunShell("script -qec \"'" WB_PROGRAM "' report R --db a.db " + arguments +
                        "\" /dev/null")
            .out;
    }
    void StoreFilter(const std::string& setting) const
    {
        folder.Write("config/wb/CATWBVPMNavFilterPanel.CATSettings", setting + "\n");
    }

private:
    pugi::xml_document m_document;
};

std::string Value(const pugi::xml_node& element, const char* attribute)
{
    return element.attribute(attribute).value();
}

/// Of the instances anywhere below, in document order.
std::vector<std::string> Instances(const pugi::xml_node& element,
                                   const char* attribute = "InstancePath")
{
    std::vector<std::string> values;
    for (const pugi::xpath_node& found : element.select_nodes(".//PartInstance")) {
        values.push_back(Value(found.node(), attribute));
    }
    return values;
}

std::vector<std::string> AttributeNames(const pugi::xml_node& element)
{
    std::vector<std::string> names;
    for (const pugi::xml_attribute& attribute : element.attributes()) {
        names.emplace_back(attribute.name());
    }
    return names;
}

/// R holds the assembly S twice; S holds P and Q. Steel and a vendor stand on P.
constexpr const char* kNested =
    "parent,instance,part,mass_type,mass [kg],cgx [mm],cgy [mm],cgz [mm],x [mm],y [mm],z [mm],"
    "material,material_density [kg/m3],p:Vendor,p:Peak_power [W]\n"
    ",,R,,,,,,,,,,,,\n"
    "R,left,S,,,,,,0,100,0,,,,\n"
    "R,right,S,,,,,,0,-100,0,,,,\n"
    "S,p,P,Weighed,1,0,0,0,,,,Steel,8000,Smith,\n"
    "S,q,Q,Estimated,2,0,0,0,,,,,,,50\n";

constexpr const char* kTotals = WB_SOURCE_DIR "/data/expected_totals.csv";

/// The totals of both products, by mode.
std::map<std::string, std::vector<double>> ExpectedTotals()
{
    std::map<std::string, std::vector<double>> totals;
    std::ifstream file(kTotals);
    for (std::string line; std::getline(file, line);) {
        const std::vector<std::string> cells = CsvCells(line);
        if (cells[0] != cells[1] || cells[3] != "total") {
            continue;
        }
        std::vector<double>& figures = totals[cells[0] + " " + cells[2]];
        for (std::size_t column = 5; column < 17; ++column) {
            figures.push_back(cells[column].empty() ? NAN : std::stod(cells[column]));
        }
    }
    return totals;
}

// In the order of the table's columns.
constexpr std::array kFigures{"WB_Mass",
                              "WB_Lower_deviation",
                              "WB_Upper_deviation",
                              "COGx",
                              "COGy",
                              "COGz",
                              "MOIxx",
                              "MOIyy",
                              "MOIzz",
                              "POIxy",
                              "POIxz",
                              "POIyz"};

/// Of the largest figure of the same kind; the table has twelve digits.
constexpr double kTolerance = 1e-9;

void ExpectTotals(const pugi::xml_node& root, const std::vector<double>& expected)
{
    for (std::size_t i = 0; i < kFigures.size(); ++i) {
        const std::size_t kind = i < 6 ? i / 3 * 3 : 6;
        const std::size_t end = i < 6 ? kind + 3 : kFigures.size();
        double largest = 0.0;
        for (std::size_t j = kind; j < end; ++j) {
            largest = std::max(largest, std::abs(expected[j]));
        }
        if (std::isfinite(expected[i])) {
            EXPECT_NEAR(root.attribute(kFigures[i]).as_double(NAN), expected[i],
                        kTolerance * largest)
                << kFigures[i];
        }
    }
}
} // namespace

TEST_F(RunReport, ProductIsWrittenAsXmlFile)
{
    Import(kBeam);
    const Outcome outcome = Report("R --user ada");
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.out, "out.xml: 1 root, 2 part instances, 1 section\n");
    const pugi::xml_node report = ReadAgain("out.xml");
    EXPECT_STREQ(report.name(), "WB_Report");
    EXPECT_EQ(Value(report, "Kind"), "report");
    EXPECT_EQ(Value(report, "Root"), "R");
    EXPECT_EQ(Value(report, "User"), "ada");
    const pugi::xml_node root = report.child("PRC");
    EXPECT_EQ(Value(root, "WB_Mass"), "3");
    EXPECT_EQ(Value(root, "COGx"), "200");
    EXPECT_THAT(Instances(root), ElementsAre("R/p", "R/q"));
    EXPECT_THAT(Instances(root, "WB_Mass"), ElementsAre("1", "2"));
}

TEST_F(RunReport, SecondReaderHasNothingToSay)
{
    Import(kNested);
    for (const char* kind : {"report", "distributive", "material-statistics"}) {
        EXPECT_EQ(Report(std::string("R --kind ") + kind).status, 0);
        const Outcome lint = RunShell("xmllint --noout out.xml");
        EXPECT_EQ(lint.status, 0) << kind;
        EXPECT_EQ(lint.err, "") << kind;
    }
}

TEST_F(RunReport, RootsOfTheSamplesWeighWhatTheyShall)
{
    ImportAeroplane();
    ImportSatellite();
    const auto totals = ExpectedTotals();
    EXPECT_GT(totals.size(), 5U);
    for (const char* locale : {"C.UTF-8", "de_DE.UTF-8"}) {
        environment = std::string("LC_ALL=") + locale;
        for (const auto& [key, figures] : totals) {
            SCOPED_TRACE(key + " in " + locale);
            std::string options = key; // "LA1 Active"
            options.replace(3, 1, " --precision ");
            ExpectTotals(Written(options).child("PRC"), figures);
        }
    }
}

TEST_F(RunReport, KindsAreTold)
{
    Import(kNested);
    EXPECT_EQ(Value(Written("R --kind distributive"), "Kind"), "distributive");
    EXPECT_EQ(ReadAgain("out.xml").select_nodes("PRC/PartInstance").size(), 6U);
    EXPECT_EQ(Value(Written("R --kind report"), "Kind"), "report");
    EXPECT_EQ(ReadAgain("out.xml").select_nodes("PRC/PartInstance").size(), 2U);
    EXPECT_EQ(Value(Written("R --kind Material-Statistics"), "Kind"), "material_statistics");
    EXPECT_EQ(ReadAgain("out.xml").select_nodes("PRC/MaterialStat").size(), 2U);
}

TEST_F(RunReport, StatisticsOfInstancesComeWhenAskedFor)
{
    Import(kNested);
    const char* const kind = "R --kind material-statistics";
    EXPECT_EQ(Written(kind).select_nodes("//PartInstance/MaterialStat").size(), 0U);
    // Two materials on each S, one on each of their parts.
    EXPECT_EQ(Written(std::string(kind) + " --statistics")
                  .select_nodes("//PartInstance/MaterialStat")
                  .size(),
              8U);
}

TEST_F(RunReport, PicksAreReportedBesideTheWholeRoot)
{
    Import(kNested);
    const pugi::xml_node root = Written("R --pick R/right/q --pick R/left").child("PRC");
    EXPECT_EQ(Value(root, "WB_Mass"), "6");
    EXPECT_THAT(Instances(root), ElementsAre("R/right/q", "R/left", "R/left/p", "R/left/q"));
}

TEST_F(RunReport, ChosenValuesAloneAreWritten)
{
    Import(kBeam);
    const auto names =
        AttributeNames(Written("R --values none").child("PRC").child("PartInstance"));
    EXPECT_THAT(names, Contains("WB_Mass"));
    for (const char* name : {"COGx", "MOIxx", "WB_Lower_deviation", "WBActiveMassTypeID"}) {
        EXPECT_THAT(names, Not(Contains(name)));
    }
    const auto chosen =
        AttributeNames(Written("R --values Types,centre").child("PRC").child("PartInstance"));
    EXPECT_THAT(chosen, AllOf(Contains("COGx"), Contains("WBActiveMassTypeID"),
                              Not(Contains("MOIxx")), Not(Contains("WB_Lower_deviation"))));
    EXPECT_THAT(AttributeNames(Written("R --values all").child("PRC")), Contains("MOIxx"));
}

TEST_F(RunReport, ChosenPropertiesAloneAreWritten)
{
    Import(kNested);
    const auto vendors = [this](const std::string& options) {
        return Written("R " + options).select_nodes("//PartInstance[@Vendor='Smith']").size();
    };
    const auto powers = [this] {
        return ReadAgain("out.xml")
            .select_nodes("//PartInstance[@Peak_power='50' and "
                          "@__magnitude__Peak_power='POWER']")
            .size();
    };
    EXPECT_EQ(vendors(""), 2U);
    EXPECT_EQ(powers(), 2U);
    EXPECT_EQ(vendors("--property Vendor"), 2U);
    EXPECT_EQ(powers(), 0U);
    EXPECT_EQ(vendors("--property Peak_power --property Vendor"), 2U);
    EXPECT_EQ(powers(), 2U);
    EXPECT_EQ(vendors("--no-properties"), 0U);
    EXPECT_EQ(powers(), 0U);
}

TEST_F(RunReport, WhatPathsLeaveOutIsNotThere)
{
    Import(kNested);
    const pugi::xml_node report = Written("R --exclude R/left --include R/left/p");
    EXPECT_EQ(Value(report, "Filter"), "--include R/left/p --exclude R/left");
    EXPECT_EQ(Value(report.child("PRC"), "WB_Mass"), "4");
    EXPECT_THAT(Instances(report),
                ElementsAre("R/left", "R/left/p", "R/right", "R/right/p", "R/right/q"));
}

TEST_F(RunReport, FilterMayBeTypedAsRequestsCarryIt)
{
    Import(kNested);
    const pugi::xml_node report = Written("R --filter '1|Half a product|X|left|S|A|0'");
    EXPECT_EQ(Value(report, "Filter"), "Half a product");
    EXPECT_THAT(Instances(report), ElementsAre("R/right", "R/right/p", "R/right/q"));
}

TEST_F(RunReport, StoredFilterCountsWhenAskedFor)
{
    Import(kNested);
    const auto isFiltered = [this](const std::string& options) {
        const pugi::xml_node report = Written("R " + options);
        return Value(report, "Filter") + ": " + Value(report.child("PRC"), "WB_Mass");
    };
    EXPECT_EQ(isFiltered("--stored-filter"), ": 6") << "none is stored";
    StoreFilter("\"R.Filter\" = \"1|Half a product|X|left|S|A|0\"");
    EXPECT_EQ(isFiltered("--stored-filter"), "Half a product: 3");
    EXPECT_EQ(isFiltered(""), ": 6");
}

TEST_F(RunReport, StoredTextThatIsNoFilterIsRefused)
{
    Import(kNested);
    StoreFilter("\"R.Filter\" = \"nonsense\"");
    EXPECT_THAT(Refusal("R --stored-filter", 2),
                StartsWith("wb: --stored-filter: what is stored for R is no filter: "));
    StoreFilter("\"R.Filter\" = 3");
    EXPECT_THAT(Refusal("R --stored-filter", 2),
                StartsWith("wb: --stored-filter: what is stored for R is no filter: "));
}

TEST_F(RunReport, DeviationsOfTheRootMayBeTyped)
{
    Import(kBeam);
    const pugi::xml_node root = Written("R --deviations 10,20%").child("PRC");
    EXPECT_NEAR(root.attribute("WB_Lower_deviation").as_double(), 0.3, 1e-12);
    EXPECT_NEAR(root.attribute("WB_Upper_deviation").as_double(), 0.6, 1e-12);
}

TEST_F(RunReport, EveryUpdateGivesTheSameReportOfAFreshProduct)
{
    Import(kNested);
    const auto written = [this](const std::string& update) {
        std::ostringstream text;
        Written("R --values centre,inertia --update " + update).child("PRC").print(text);
        return text.str();
    };
    const std::string checked = written("check");
    EXPECT_THAT(checked, HasSubstr("WB_Mass=\"6\""));
    EXPECT_EQ(written("force"), checked);
}

TEST_F(RunReport, WarningsOfTheComputationAreSaidBesideIt)
{
    Import("parent,instance,part,mass_type,mass [kg],cgx [mm],cgy [mm],cgz [mm],ixx [kg.m2],"
           "iyy [kg.m2],izz [kg.m2]\n,,R,,,,,,,,\nR,p,P,Weighed,1,0,0,0,1,1,1\nR,q,Q,,,,,,,,\n");
    const Outcome outcome = Report("R");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.err,
                StartsWith("Warnings\n- 1 of 2 items has no mass; the total leaves it out\n"));
    EXPECT_THAT(Instances(ReadAgain("out.xml"), "WB_Status"), ElementsAre("complete", "no mass"));
    EXPECT_EQ(Report("R --exclude R/q").err,
              "Warnings\n- the filter \"--exclude R/q\" leaves out 1 of 2 items\n");
}

TEST_F(RunReport, StandardOutputTakesTheReportAlone)
{
    Import(kBeam);
    const Outcome outcome = Run("report R --db a.db --out -");
    EXPECT_EQ(outcome.status, 0);
    pugi::xml_document document;
    EXPECT_TRUE(document.load_string(outcome.out.c_str()));
    EXPECT_STREQ(document.document_element().name(), "WB_Report");
}

TEST_F(RunReport, ConvertReportTakesItFromThePipe)
{
    Import(kBeam);
    const std::string pipe = "'" WB_PROGRAM "' report R --db a.db --out - | '" WB_PROGRAM
                             "' convert-report - mine.xml --units MASS=g,LENGTH=m";
    for (const auto& [locale, mass] : {std::pair{"C.UTF-8", "0.2"}, {"de_DE.UTF-8", "0,2"}}) {
        environment = std::string("LC_ALL=") + locale;
        const Outcome outcome = RunShell(pipe);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        const pugi::xml_node report = ReadAgain("mine.xml");
        EXPECT_EQ(Value(report, "MassUnit"), "g");
        EXPECT_EQ(Value(report.child("PRC"), "WB_Mass"), "3000");
        EXPECT_EQ(Value(report.child("PRC"), "COGx"), mass);
    }
}

TEST_F(RunReport, DistributiveReportIsConvertedToo)
{
    Import(kNested);
    EXPECT_EQ(Report("R --kind distributive").status, 0);
    const Outcome outcome = Run("convert-report out.xml mine.xml --units MASS=g,VOLUME=L");
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(Value(ReadAgain("mine.xml"), "VolumeUnit"), "L");
    EXPECT_EQ(Value(ReadAgain("mine.xml").child("PRC"), "WB_Mass"), "6000");
}

TEST_F(RunReport, WhatThereIsNotIsAnsweredWithTheNearest)
{
    Import(kNested);
    EXPECT_EQ(Refusal("Q", 2), "wb: a.db: \"Q\" is no product root but a part of one: expected "
                               "ROOT/INSTANCE/INSTANCE, where ROOT is one of R A\n");
    EXPECT_EQ(Refusal("X", 2), "wb: a.db: \"X\" is no product root, expected one of R A\n");
    EXPECT_EQ(Refusal("R --pick R/lift/p", 2),
              "wb: --pick: \"R\" has no instance \"lift\", expected one of left, right\n");
    EXPECT_EQ(Refusal("R --pick R/left --pick left", 2),
              "wb: --pick: expected a path in the product, R/INSTANCE/INSTANCE, found \"left\"\n");
    EXPECT_EQ(Refusal("R --exclude R/lift", 2),
              "wb: --exclude: \"R\" has no instance \"lift\", expected one of left, right\n");
    EXPECT_EQ(Refusal("R --property Vendr", 2),
              "wb: --property: \"Vendr\" is no property of the database, expected one of Vendor, "
              "Peak_power\n");
    EXPECT_EQ(Refusal("R --precision Weighd", 2),
              "wb: --precision: expected active, most-precise, Computed, Target, Estimated, "
              "Calculated, Supplier, Weighed, found \"Weighd\"\n");
}

TEST_F(RunReport, RootStandsAlone)
{
    Import(kNested);
    EXPECT_EQ(Refusal("R/left", 2), "wb: ROOT: expected a product alone, found \"R/left\"; --pick "
                                    "R/left reports that instance\n");
    EXPECT_EQ(Refusal("R --pick R", 2), "wb: --pick: expected a path below the product, "
                                        "R/INSTANCE/INSTANCE, found \"R\"\n");
}

TEST_F(RunReport, WrongUseIsStatus2)
{
    Import(kNested);
    EXPECT_THAT(Refusal("R --kind summary", 2), StartsWith("wb: --kind: expected report, "));
    EXPECT_THAT(Refusal("R --values Center", 2), StartsWith("wb: --values: expected all, none "));
    EXPECT_THAT(Refusal("R --update assume:1", 2), StartsWith("wb: --update: expected check or "));
    EXPECT_THAT(Refusal("R --statistics", 2), StartsWith("wb: --statistics: expected --kind "));
    EXPECT_THAT(Refusal("R --no-properties --property Vendor", 2), HasSubstr("excludes"));
    EXPECT_THAT(Refusal("", 2), StartsWith("wb: root is required\n"));
    EXPECT_THAT(Run("report R --db a.db").err, StartsWith("wb: --out is required\n"));
    EXPECT_THAT(Run("report R --out out.xml").err, StartsWith("wb: --db is required\n"));
    EXPECT_THAT(Run("report R --db a.db --out ''").err, StartsWith("wb: --out: expected a file"));
}

TEST_F(RunReport, DatabaseAndLogAreNeverTakenForTheReport)
{
    Import(kNested);
    const std::string database = folder.Read("a.db");
    const Outcome outcome = Run("report R --db a.db --out ./a.db");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.err, HasSubstr("which is the database"));
    EXPECT_EQ(folder.Read("a.db"), database);
    EXPECT_THAT(Refusal("R --log ./out.xml", 2), HasSubstr("which is the report"));
    EXPECT_THAT(Refusal("R --log a.db", 2), HasSubstr("which is the database"));
}

TEST_F(RunReport, WhatCannotBeComputedIsStatus1)
{
    EXPECT_THAT(Refusal("R", 1), StartsWith("wb: a.db: the database does not exist"));
    EXPECT_FALSE(folder.Has("a.db"));
    Import("parent,instance,part\n,,R\nR,a,A\nA,b,B\nB,c,C\n");
    // No import lets that in; only somebody who works on the file itself can.
    wbtest::RunSql(folder.At("a.db"),
                   "UPDATE use SET part = (SELECT id FROM part WHERE identifier = 'A') "
                   "WHERE instance = 'c'");
    EXPECT_EQ(Refusal("R", 1), "wb: The product holds itself: A > B > A.\n");
    EXPECT_EQ(Refusal("R --pick R/a", 1), "wb: The product holds itself: A > B > A.\n");
}

TEST_F(RunReport, FileThatCannotBeWrittenIsNamed)
{
    Import(kBeam);
    const auto refused = [this](const std::string& output, const std::string& reason) {
        const Outcome outcome = Run("report R --db a.db --out " + output);
        EXPECT_EQ(outcome.status, 1) << output;
        EXPECT_EQ(outcome.out, "");
        EXPECT_THAT(outcome.err,
                    EndsWith("wb: " + output + ": cannot be written: " + reason + "\n"));
    };
    refused("nowhere/out.xml", "No such file or directory");
    refused("/dev/full", "No space left on device");
    std::filesystem::create_directory(folder.At("folder.xml"));
    refused("folder.xml", "Is a directory");
    const Outcome full = RunShell("'" WB_PROGRAM "' report R --db a.db --out - >/dev/full");
    EXPECT_EQ(full.status, 1);
    EXPECT_THAT(full.err, EndsWith("wb: the standard output cannot be written\n"));
}

TEST_F(RunReport, InterruptedWritingLeavesNothingBehind)
{
    // 200 times 200 instances, some megabytes of text, of few rows.
    std::string table = "parent,instance,part,mass_type,mass [kg]\n,,R,,\n,,P,Weighed,1\n";
    for (int count = 0; count < 200; ++count) {
        table += "R,s." + std::to_string(count) + ",S,,\nS,p." + std::to_string(count) + ",P,,\n";
    }
    Import(table);
    folder.Write("out.xml", "as it was");
    const std::size_t before = folder.FileCount();
    // It is told to end as soon as the new file is there, some megabytes before its end.
    const Outcome outcome =
        RunShell("'" WB_PROGRAM "' report R --db a.db --out out.xml & set -- out.xml.new-*; "
                 "until [ -e \"$1\" ] || ! kill -0 $!; do set -- out.xml.new-*; done; "
                 "kill -TERM $!; wait $!; echo $?");
    EXPECT_EQ(outcome.out, std::to_string(128 + SIGTERM) + '\n');
    EXPECT_EQ(folder.Read("out.xml"), "as it was");
    EXPECT_EQ(folder.FileCount(), before);
}

TEST_F(RunReport, ProgressIsShownOnATerminalAlone)
{
    Import(kBeam);
    EXPECT_THAT(Report("R").err, Not(HasSubstr("%")));
    EXPECT_THAT(OnTerminal("--out out.xml"),
                AllOf(HasSubstr("\rsumming up  ["), HasSubstr("\rsaving      ["),
                      EndsWith("\rout.xml: 1 root, 2 part instances, 1 section\r\n")));
    EXPECT_THAT(OnTerminal("--out out.xml --verbose"), Not(HasSubstr(" %")));
}

TEST_F(RunReport, NothingSharesItsLineWithABar)
{
    Import(kBeam);
    EXPECT_THAT(OnTerminal("--out -"), HasSubstr(" \r<WB_Report "));
    EXPECT_THAT(OnTerminal("--out out.xml --pick R/x"),
                AllOf(HasSubstr(" %"), HasSubstr(" \rwb: --pick: \"R\" has no instance \"x\"")));
    EXPECT_THAT(OnTerminal("--out nowhere/out.xml"), HasSubstr(" \rwb: nowhere/out.xml: cannot"));
}

TEST_F(RunReport, HelpNamesEveryOption)
{
    const Outcome outcome = Run("report --help");
    EXPECT_EQ(outcome.status, 0);
    for (const char* option :
         {"--db", "--user", "--out", "--kind", "--pick", "--values", "--property",
          "--no-properties", "--statistics", "--precision", "--update", "--include", "--exclude",
          "--filter", "--stored-filter", "--deviations", "--log", "--verbose"}) {
        EXPECT_THAT(outcome.out, HasSubstr(std::string("  ") + option));
    }
    EXPECT_THAT(outcome.out, AllOf(HasSubstr("kg, mm, kg.m2"), HasSubstr("wb convert-report")));
    EXPECT_THAT(Run("--help").out, HasSubstr("  report "));
}
