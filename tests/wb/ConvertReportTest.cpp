#include "ProgramRun.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <csignal>
#include <string>
#include <vector>

using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace
{

constexpr const char* kDeclaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

class ConvertReport : public ProgramRun
{
protected:
    /// Converts in.xml into out.xml; the document that came out, without its declaration.
    std::string Converted(const std::string& report, const std::string& options = {})
    {
        folder.Write("in.xml", report);
        const Outcome outcome = Run("convert-report in.xml out.xml " + options);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        err = outcome.err;
        const std::string written = folder.Read("out.xml");
        EXPECT_THAT(written, StartsWith(kDeclaration));
        return written.substr(std::string(kDeclaration).size());
    }
    /// What a run says that is refused and has to leave no file behind.
    std::string Refused(const std::string& options, int status)
    {
        folder.Write("in.xml", "<Report/>");
        const Outcome outcome = Run("convert-report in.xml out.xml " + options);
        EXPECT_EQ(outcome.status, status) << options;
        EXPECT_THAT(outcome.out, IsEmpty());
        EXPECT_THAT(Reports(), ElementsAre("in.xml")) << options;
        return outcome.err;
    }
    /// What a run on a broken report says; the old output has to stand as it was.
    std::string Broken(const std::string& report)
    {
        folder.Write("in.xml", report);
        folder.Write("out.xml", "as it was");
        const Outcome outcome = Run("convert-report in.xml out.xml");
        EXPECT_EQ(outcome.status, 1);
        EXPECT_THAT(outcome.out, IsEmpty());
        EXPECT_EQ(folder.Read("out.xml"), "as it was");
        EXPECT_THAT(Reports(), ElementsAre("in.xml", "out.xml"));
        return outcome.err;
    }

    /// What a run shows on a terminal: "script" has one of its own and writes everything down.
    std::string OnTerminal(const std::string& arguments) const
    {
        return RunShell("script -qec \"'" WB_PROGRAM "' " + arguments + "\" /dev/null").out;
    }
    /// What stands in the folder by name, besides the user's settings and the errors of the run: a
    /// run that failed may leave nothing of its own.
    std::vector<std::string> Reports() const
    {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder.Path())) {
            const std::string name = entry.path().filename();
            if (name != "config" && name != "stderr") {
                names.push_back(name);
            }
        }
        std::sort(names.begin(), names.end());
        return names;
    }

    std::string err;
};

// Two reports of the same product: one value of each kind, in storage units.
constexpr const char* kReport =
    R"(<Report>)"
    R"(<PRC Name="LA1" COGx="254" COGy="0" COGz="-12.7" WB_Mass="4.5359237" )"
    R"(WB_Lower_deviation="0.45359237" WB_Upper_deviation="0.90718474" )"
    R"(MOIxx="0.25" MOIyy="1" MOIzz="2" POIxy="0.5" POIxz="-0.5" POIyz="0">)"
    R"(<PartInstance instIdAttrAlias="Id" Id="A.1" WB_Mass="0.45359237" )"
    R"(WB_Mass_Details="0.45359237;0.90718474" WB_Density="2780" Density="2780;1.5" )"
    R"(Density_dimension="3;2" Cut_Volume="0.001" __magnitude__Span="LENGTH" Span="609.6">)"
    R"(<MaterialStat Name="A &amp; B" Mass="1"/></PartInstance></PRC>)"
    R"(<WB_Section Name="Wing" COGx="25.4" WB_Mass="0.45359237" Cut_Volume="0.001"/>)"
    R"(</Report>)";

constexpr const char* kInchPound =
    "--units LENGTH=in,MASS=lb,INERTIAMOMENT=kg.mm2,SURFACICMASS=g/m2";

// One part of 2 kg, 100 mm from the origin.
constexpr const char* kOnePart =
    R"(<R><PartInstance Name="A" COGx="100" COGy="0" COGz="0" WB_Mass="2" )"
    R"(MOIxx="1" MOIyy="2" MOIzz="3" POIxy="0" POIxz="0" POIyz="0"/></R>)";

/// kOnePart with other centre and moments, after a conversion into storage units.
std::string OnePart(const std::string& centre, const std::string& moments)
{
    return R"(<R LengthUnit="mm" MassUnit="kg" InertiaMomentUnit="kg.m2" DensityUnit="kg/m3" )"
           R"(SurfacicDensityUnit="kg/m2"><PartInstance Name="A" )" +
           centre + R"( WB_Mass="2" )" + moments + R"( POIxy="0" POIxz="0" POIyz="0"/></R>)";
}

} // namespace

TEST_F(ConvertReport, BringsEveryValueIntoTheChosenUnits)
{
    // 254 mm are 10 in, 4.5359237 kg 10 lb, 1 kg.m2 a million kg.mm2, 1.5 kg/m2 1500 g/m2.
    EXPECT_EQ(
        Converted(kReport, kInchPound),
        R"(<Report LengthUnit="in" MassUnit="lb" InertiaMomentUnit="kg.mm2" DensityUnit="kg/m3" )"
        R"(SurfacicDensityUnit="g/m2">)"
        R"(<PRC Name="LA1" COGx="10" COGy="0" COGz="-0.5" WB_Mass="10" WB_Lower_deviation="1" )"
        R"(WB_Upper_deviation="2" MOIxx="250000" MOIyy="1000000" MOIzz="2000000" POIxy="500000" )"
        R"(POIxz="-500000" POIyz="0">)"
        R"(<PartInstance instIdAttrAlias="Id" Id="A.1" WB_Mass="1" WB_Mass_Details="1;2" )"
        R"(WB_Density="2780" Density="2780; 1500" Density_dimension="3;2" Cut_Volume="0.001" )"
        R"(__magnitude__Span="LENGTH" Span="24">)"
        R"(<MaterialStat Name="A &amp; B" Mass="1"/></PartInstance></PRC>)"
        R"(<WB_Section Name="Wing" COGx="1" WB_Mass="1" Cut_Volume="0.001"/>)"
        R"(</Report>)");
    EXPECT_EQ(err, "wb: in.xml: its MaterialStat and MassTypeStat stay in kg, kg/m3 and kg/m2\n");
}

TEST_F(ConvertReport, SaysWhatItWrote)
{
    folder.Write("in.xml", kReport);
    const Outcome outcome = Run("convert-report in.xml out.xml");
    EXPECT_EQ(outcome.out, "out.xml: 1 root, 1 part instance, 1 section\n");
    folder.Write("in.xml", "<R><PRC/><PRC/><PartInstance/><PartInstance/></R>");
    EXPECT_EQ(Run("convert-report in.xml out.xml").out,
              "out.xml: 2 roots, 2 part instances, 0 sections\n");
}

TEST_F(ConvertReport, DistributiveReportHasVolumesAndNoUserProperties)
{
    EXPECT_EQ(
        Converted(R"(<Report><PRC><WB_Section WB_Mass="0.45359237" WB_Mass_Details="1" )"
                  R"(WB_Density="2780" Density="2780;1.5" Density_dimension="3;2" )"
                  R"(Cut_Volume="0.001"/><PartInstance Name="A" __magnitude__Span="LENGTH" )"
                  R"(Span="609.6" Cut_Volume="0.002"/></PRC></Report>)",
                  "--distributive --units MASS=lb,VOLUME=L,DENSITY=g/cm3"),
        R"(<Report LengthUnit="mm" MassUnit="lb" InertiaMomentUnit="kg.m2" DensityUnit="g/cm3" )"
        R"(SurfacicDensityUnit="kg/m2" VolumeUnit="L"><PRC>)"
        R"(<WB_Section WB_Mass="1" WB_Mass_Details="1" WB_Density="2.78" Density="2.78; 1.5" )"
        R"(Density_dimension="3;2" Cut_Volume="1"/><PartInstance Name="A" )"
        R"(__magnitude__Span="LENGTH" Span="609.6" Cut_Volume="2"/></PRC></Report>)");
}

TEST_F(ConvertReport, ReportThatSaysItIsDistributiveIsTakenAsOne)
{
    const std::string rest = R"(><PRC Cut_Volume="0.001"/></WB_Report>)";
    EXPECT_THAT(Converted(R"(<WB_Report Kind="distributive")" + rest, "--units VOLUME=L"),
                HasSubstr(R"(Cut_Volume="1")"));
    EXPECT_THAT(Converted(R"(<WB_Report Kind="report")" + rest, "--units VOLUME=L"),
                HasSubstr(R"(Cut_Volume="0.001")"));
}

TEST_F(ConvertReport, SymbolsStandBehindTheValues)
{
    EXPECT_THAT(Converted(kReport, std::string(kInchPound) + " --symbols"),
                AllOf(HasSubstr(R"(COGx="10in")"), HasSubstr(R"(WB_Mass_Details="1lb;2lb")"),
                      HasSubstr(R"(Density="2780kg/m3; 1500g/m2")"), HasSubstr(R"(Span="24in")"),
                      HasSubstr(R"(MOIxx="250000kg.mm2")")));
}

TEST_F(ConvertReport, DecimalsAreTheUnitsOwnOrHeldFixed)
{
    const std::string report = R"(<R><PRC COGx="12.5"/></R>)";
    // Millimetres have three decimals.
    EXPECT_THAT(Converted(report), HasSubstr(R"(COGx="12.5")"));
    EXPECT_THAT(Converted(report, "--decimals 0"), HasSubstr(R"(COGx="12.5")"));
    EXPECT_THAT(Converted(report, "--decimals -1"), HasSubstr(R"(COGx="12.500")"));
    EXPECT_THAT(Converted(report, "--decimals 5"), HasSubstr(R"(COGx="12.50000")"));
}

TEST_F(ConvertReport, DisplayShowsAnewAndConvertsNothing)
{
    const std::string report =
        R"(<R LengthUnit="in" MassUnit="lb"><PRC COGx="10" WB_Mass="2lb"/>)"
        R"(<PartInstance Name="A" __magnitude__Span="LENGTH" Span="24in" Cut_Volume="5"/></R>)";
    EXPECT_EQ(Converted(report, "--display --symbols --decimals -1 --units LENGTH=in,MASS=lb"),
              R"(<R LengthUnit="in" MassUnit="lb"><PRC COGx="10.0000in" WB_Mass="2.000lb"/>)"
              R"(<PartInstance Name="A" __magnitude__Span="LENGTH" Span="24.0000in" )"
              R"(Cut_Volume="5"/></R>)");
    EXPECT_THAT(err, IsEmpty());
    EXPECT_THAT(
        Converted(report, "--display --distributive --symbols --units LENGTH=in,MASS=lb,VOLUME=L"),
        HasSubstr(R"(Span="24in" Cut_Volume="5L")"));
}

TEST_F(ConvertReport, ConvertedReportComesBackToItsPlainForm)
{
    const std::string plain = Converted(kReport, kInchPound);
    const std::string withSymbols = Converted(kReport, std::string(kInchPound) + " --symbols");
    EXPECT_EQ(Converted(withSymbols, std::string(kInchPound) + " --display"), plain);
}

TEST_F(ConvertReport, ReferencePointMovesCentresAndInertias)
{
    // 90 mm remain in x: 2 kg x 0.09 m x 0.09 m are 0.0162 kg.m2 about y and z.
    EXPECT_EQ(
        Converted(kOnePart, "--reference 10,0,0"),
        OnePart(R"(COGx="90" COGy="0" COGz="0")", R"(MOIxx="1" MOIyy="2.0162" MOIzz="3.0162")"));
    EXPECT_EQ(Converted(kOnePart, "--reference 10,0,0 --keep-cog"),
              OnePart(R"(COGx="90" COGy="0" COGz="0")", R"(MOIxx="1" MOIyy="2" MOIzz="3")"));
    EXPECT_EQ(Converted(kOnePart, "--reference -10,0,0 --keep-cog"),
              OnePart(R"(COGx="110" COGy="0" COGz="0")", R"(MOIxx="1" MOIyy="2" MOIzz="3")"));
}

TEST_F(ConvertReport, AxesTurnCentresAndInertias)
{
    // A quarter turn about z takes x to y, and changes the moments about x and y.
    EXPECT_EQ(Converted(kOnePart, "--axes 0,-1,0,1,0,0,0,0,1"),
              OnePart(R"(COGx="0" COGy="100" COGz="0")", R"(MOIxx="2" MOIyy="1" MOIzz="3")"));
    EXPECT_THAT(err, IsEmpty());
}

TEST_F(ConvertReport, AxesTurnTheReferencePointToo)
{
    // The point turns to (0, 10, 0), 90 mm from the turned centre.
    EXPECT_EQ(
        Converted(kOnePart, "--axes 0,-1,0,1,0,0,0,0,1 --reference 10,0,0"),
        OnePart(R"(COGx="0" COGy="90" COGz="0")", R"(MOIxx="2.0162" MOIyy="1" MOIzz="3.0162")"));
}

TEST_F(ConvertReport, AxesThatAreNoRotationAreUsedWithAWarning)
{
    // The inverse halves what the matrix doubles: a moment about x stays, a centre in x doubles.
    EXPECT_EQ(Converted(kOnePart, "--axes 2,0,0,0,1,0,0,0,1"),
              OnePart(R"(COGx="200" COGy="0" COGz="0")", R"(MOIxx="1" MOIyy="2" MOIzz="3")"));
    EXPECT_THAT(err, StartsWith("wb: --axes is not a rotation (its rows are off by 3): "));
}

TEST_F(ConvertReport, UnitsOfTheUserAreTakenAndStayAsTheyAre)
{
    folder.Write("config/wb/Units.CATSettings", "MASS = \"g\"\n");
    const std::string report = R"(<R><PRC WB_Mass="2"/></R>)";
    EXPECT_THAT(Converted(report), HasSubstr(R"(WB_Mass="2000")"));
    EXPECT_THAT(Converted(report, "--units MASS=t"), HasSubstr(R"(WB_Mass="0.002")"));
    EXPECT_EQ(folder.Read("config/wb/Units.CATSettings"), "MASS = \"g\"\n");
    EXPECT_THAT(Converted(report), HasSubstr(R"(WB_Mass="2000")"));
}

TEST_F(ConvertReport, BadUnitsFileOfTheUserIsSaid)
{
    folder.Write("config/wb/units.toml", "[[magnitude]]\nname = \n");
    Converted("<R><PRC/></R>");
    EXPECT_THAT(err, AllOf(StartsWith("wb: "), HasSubstr("units.toml")));
}

TEST_F(ConvertReport, BadSettingsFileOfTheUserIsSaid)
{
    folder.Write("config/wb/Units.CATSettings", "MASS = = \n");
    Converted("<R><PRC/></R>");
    EXPECT_THAT(err, AllOf(StartsWith("wb: "), HasSubstr("Units.CATSettings")));
}

TEST_F(ConvertReport, CommaLocaleWritesCommasAndReadsBoth)
{
    environment = "LC_ALL=de_DE.UTF-8";
    EXPECT_EQ(
        Converted(R"(<R><PRC COGx="12.5" COGy="12,5" COGz="1"/></R>)",
                  "--reference 0.5,0,0 --keep-cog --decimals -1 --symbols"),
        R"(<R LengthUnit="mm" MassUnit="kg" InertiaMomentUnit="kg.m2" DensityUnit="kg/m3" )"
        R"(SurfacicDensityUnit="kg/m2"><PRC COGx="12,000mm" COGy="12,500mm" COGz="1,000mm"/></R>)");
}

TEST_F(ConvertReport, PointLocaleReadsBothAndWritesPoints)
{
    environment = "LC_ALL=C.UTF-8";
    EXPECT_THAT(Converted(R"(<R><PRC COGx="12.5" COGy="12,5"/></R>)"),
                HasSubstr(R"(COGx="12.5" COGy="12.5")"));
}

TEST_F(ConvertReport, OutputMayReplaceTheInput)
{
    folder.Write("in.xml", R"(<R><PRC WB_Mass="2"/></R>)");
    EXPECT_EQ(Run("convert-report in.xml in.xml --units MASS=g").status, 0);
    EXPECT_THAT(folder.Read("in.xml"), HasSubstr(R"(WB_Mass="2000")"));
}

TEST_F(ConvertReport, StandardStreamsAreWrittenAsADash)
{
    folder.Write("in.xml", R"(<R><PRC WB_Mass="2"/></R>)");
    const Outcome outcome =
        RunShell("cat in.xml | '" WB_PROGRAM "' convert-report - - --units MASS=g");
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_THAT(outcome.out, AllOf(StartsWith(std::string(kDeclaration) + "<R "),
                                   HasSubstr(R"(WB_Mass="2000")"), EndsWith("</R>")));
    EXPECT_THAT(outcome.err, IsEmpty());
}

TEST_F(ConvertReport, StandardOutputThatIsFullIsSaid)
{
    folder.Write("in.xml", "<R><PRC/></R>");
    const Outcome outcome = RunShell("'" WB_PROGRAM "' convert-report in.xml - >/dev/full");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "wb: the standard output cannot be written\n");
}

TEST_F(ConvertReport, CharactersCommentsAndOrderAreKept)
{
    const std::string report =
        "<R b=\"2\" a=\"1\"><!-- first --><PRC N=\"Gew\xc3\xa4gt &lt;&quot;\">"
        "x &amp; y</PRC><?tool keep?></R>";
    EXPECT_THAT(Converted(report),
                AllOf(StartsWith("<R b=\"2\" a=\"1\" LengthUnit="),
                      HasSubstr("><!-- first --><PRC N=\"Gew\xc3\xa4gt &lt;&quot;\">x &amp; y</PRC>"
                                "<?tool keep?></R>")));
}

TEST_F(ConvertReport, BadNumbersAreZeroAndTheRestGoesOn)
{
    EXPECT_THAT(Converted(R"(<R><PRC COGx="heavy" COGy="" COGz="1"/></R>)"),
                HasSubstr(R"(<PRC COGx="0" COGy="0" COGz="1"/>)"));
}

TEST_F(ConvertReport, ReportWithoutItsElementsIsSaidAndWritten)
{
    EXPECT_THAT(Converted("<Other/>"), StartsWith("<Other LengthUnit=\"mm\""));
    EXPECT_EQ(err, "wb: in.xml: there is no PRC, PartInstance or WB_Section in it: nothing was "
                   "converted\n");
}

TEST_F(ConvertReport, ReportThatIsConvertedTwiceIsSaid)
{
    const std::string once = Converted(R"(<R><PRC WB_Mass="2"/></R>)", "--units MASS=g");
    EXPECT_THAT(err, IsEmpty());
    EXPECT_THAT(Converted(once, "--units MASS=g"), HasSubstr(R"(WB_Mass="2000000")"));
    EXPECT_EQ(err, "wb: in.xml: the report says MassUnit=\"g\", but its numbers are taken as kg; "
                   "--display shows a report anew that was converted before\n");
    Converted(once, "--display --units MASS=g");
    EXPECT_THAT(err, IsEmpty());
}

TEST_F(ConvertReport, UserPropertiesThatCannotBeConvertedAreCounted)
{
    const std::string report = R"(<R><PartInstance Name="A" __magnitude__Span="SPAN" Span="1"/>)"
                               R"(<PartInstance Name="B" __magnitude__Area="AREA"/></R>)";
    EXPECT_THAT(Converted(report), HasSubstr(R"(Span="1")"));
    EXPECT_EQ(err, "wb: in.xml: 2 values of user-defined properties could not be converted; "
                   "--verbose says why\n");
    Converted(report, "--verbose --log session.log");
    const std::string reason = "Error encountered: could not find the magnitude SPAN for Span!\n";
    EXPECT_THAT(err, HasSubstr(reason));
    EXPECT_THAT(folder.Read("session.log"), HasSubstr(reason));
    Converted(R"(<R><PartInstance Name="A" __magnitude__Span="SPAN" Span="1"/></R>)");
    EXPECT_THAT(err, HasSubstr(": 1 value of"));
}

TEST_F(ConvertReport, BrokenReportsAreRefusedByFileLineAndColumn)
{
    EXPECT_THAT(Broken("<R>\n  <PRC>\n</R>"),
                AllOf(StartsWith("wb: in.xml: line 3, column "), EndsWith("\n")));
    EXPECT_THAT(Broken("<R><PRC COGx=\"1\""), StartsWith("wb: in.xml: line 1, column "));
    EXPECT_THAT(Broken(""), StartsWith("wb: in.xml: line 1, column "));
    EXPECT_THAT(Broken("<R>\n<PRC N=\"\xff\"/></R>"), StartsWith("wb: in.xml: line 2, column "));
}

TEST_F(ConvertReport, HostileReportsAreRefused)
{
    std::string bomb = "<!DOCTYPE R [<!ENTITY e0 \"xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx\">";
    for (int level = 1; level < 12; ++level) {
        const std::string below = "&e" + std::to_string(level - 1) + ";";
        bomb += "<!ENTITY e" + std::to_string(level) + " \"";
        for (int times = 0; times < 10; ++times) {
            bomb += below;
        }
        bomb += "\">";
    }
    EXPECT_THAT(Broken(bomb + "]>\n<R>&e11;</R>"), StartsWith("wb: in.xml:"));

    folder.Write("config/secret.txt", "the secret");
    const std::string external =
        "<!DOCTYPE R [<!ENTITY x SYSTEM \"config/secret.txt\">]>\n<R>&x;</R>";
    folder.Write("in.xml", external);
    const Outcome outcome = Run("convert-report in.xml out2.xml");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err,
                AllOf(StartsWith("wb: in.xml: line 2, column "), Not(HasSubstr("the secret"))));
    EXPECT_FALSE(folder.Has("out2.xml"));

    std::string deep;
    for (int level = 0; level < 200000; ++level) {
        deep += "<R>";
    }
    EXPECT_THAT(Broken(deep), StartsWith("wb: in.xml: line 1, column "));
}

TEST_F(ConvertReport, MissingInputIsNamed)
{
    const Outcome outcome = Run("convert-report missing.xml out.xml");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err,
                AllOf(StartsWith("wb: cannot open missing.xml: "), Not(HasSubstr("line"))));
    EXPECT_FALSE(folder.Has("out.xml"));
    EXPECT_EQ(Run("convert-report . out.xml").status, 1) << "a folder is no file";
}

TEST_F(ConvertReport, OutputThatCannotBeWrittenIsNamed)
{
    folder.Write("in.xml", "<R><PRC/></R>");
    const Outcome missing = Run("convert-report in.xml nowhere/out.xml");
    EXPECT_EQ(missing.status, 1);
    EXPECT_THAT(missing.err,
                AllOf(StartsWith("wb: cannot write nowhere/out.xml: "), Not(HasSubstr("line"))));
    EXPECT_THAT(missing.out, IsEmpty());
    std::filesystem::create_directory(folder.At("folder.xml"));
    const Outcome occupied = Run("convert-report in.xml folder.xml");
    EXPECT_EQ(occupied.status, 1);
    EXPECT_THAT(occupied.err, HasSubstr("folder.xml"));
    EXPECT_THAT(Reports(), ElementsAre("folder.xml", "in.xml"));
}

TEST_F(ConvertReport, BadOptionsAreRefusedBeforeAnythingIsRead)
{
    EXPECT_THAT(Refused("--decimals x", 2), StartsWith("wb: --decimals: expected "));
    EXPECT_THAT(Refused("--reference 1,2", 2), StartsWith("wb: --reference: expected "));
    EXPECT_THAT(Refused("--axes 1,2", 2), StartsWith("wb: --axes: expected "));
    EXPECT_THAT(Refused("--axes 0,0,0,0,0,0,0,0,0", 2), HasSubstr("singular"));
    EXPECT_THAT(Refused("--keep-cog", 2), StartsWith("wb: --keep-cog: expected "));
    EXPECT_THAT(Refused("--units MASS=stone", 2), StartsWith("wb: --units: expected "));
    EXPECT_THAT(Refused("--units ''", 2), StartsWith("wb: --units: expected "));
    EXPECT_THAT(Refused("--display --reference 0,0,0 --units LENGTH=in", 2),
                StartsWith("wb: --reference beside --display: "));
    EXPECT_THAT(Refused("--fly", 2), HasSubstr("--fly"));
    EXPECT_EQ(Run("convert-report in.xml").status, 2) << "it has to go somewhere";
    EXPECT_THAT(Run("convert-report in.xml").err, StartsWith("wb: OUT is required\n"));
}

TEST_F(ConvertReport, NumbersOfOptionsHaveAPointInACommaLocaleToo)
{
    environment = "LC_ALL=de_DE.UTF-8";
    EXPECT_THAT(Refused("--reference '0,5;0;0'", 2), HasSubstr("\".\" for the decimal mark"));
    EXPECT_THAT(Converted(kOnePart, "--reference 0.5,0,0 --keep-cog"), HasSubstr(R"(COGx="99,5")"));
}

TEST_F(ConvertReport, ProgressIsShownOnATerminalAlone)
{
    folder.Write("in.xml", "<R><PRC/></R>");
    EXPECT_THAT(Run("convert-report in.xml out.xml").err, IsEmpty());
    EXPECT_THAT(OnTerminal("convert-report in.xml out.xml"),
                AllOf(StartsWith("\rreading\r"), HasSubstr("\rconverting "),
                      HasSubstr("\rwriting\r"),
                      EndsWith("\rout.xml: 1 root, 0 part instances, 0 sections\r\n")));
    EXPECT_THAT(OnTerminal("convert-report in.xml out.xml --verbose"), Not(HasSubstr("reading")));
}

TEST_F(ConvertReport, InterruptedWritingLeavesNothingBehind)
{
    std::string report = "<R>";
    for (int count = 0; count < 200000; ++count) {
        report += R"(<PartInstance COGx="1" COGy="2" COGz="3" WB_Mass="4" MOIxx="5" MOIyy="6"/>)";
    }
    folder.Write("in.xml", report + "</R>");
    folder.Write("out.xml", "as it was");
    // It is told to end as soon as the new file is there, some megabytes before its end.
    const Outcome outcome =
        RunShell("'" WB_PROGRAM "' convert-report in.xml out.xml & set -- out.xml.new-*; "
                 "until [ -e \"$1\" ] || ! kill -0 $!; do set -- out.xml.new-*; done; "
                 "kill -TERM $!; wait $!; echo $?");
    EXPECT_EQ(outcome.out, std::to_string(128 + SIGTERM) + '\n');
    EXPECT_EQ(folder.Read("out.xml"), "as it was");
    EXPECT_THAT(Reports(), ElementsAre("in.xml", "out.xml"));
}

TEST_F(ConvertReport, StandardInputIsNamedAsTheFileThatItIs)
{
    folder.Write("in.xml", R"(<R MassUnit="g"/>)");
    EXPECT_THAT(RunShell("'" WB_PROGRAM "' convert-report - - <in.xml").err,
                AllOf(HasSubstr("wb: /dev/stdin: the report says MassUnit=\"g\""),
                      HasSubstr("wb: /dev/stdin: there is no PRC")));
    folder.Write("in.xml", "<R>");
    EXPECT_THAT(RunShell("'" WB_PROGRAM "' convert-report - - <in.xml").err,
                StartsWith("wb: /dev/stdin: line 1"));
}

TEST_F(ConvertReport, SentencesNeverShareTheirLineWithABar)
{
    folder.Write("in.xml", R"(<R MassUnit="g"><PRC/></R>)");
    EXPECT_THAT(OnTerminal("convert-report in.xml out.xml"),
                HasSubstr("\r          \rwb: in.xml: the report says MassUnit"));
    folder.Write("in.xml", "<R>");
    EXPECT_THAT(OnTerminal("convert-report in.xml out.xml"),
                HasSubstr("\rreading\r       \rwb: in.xml: line 1"));
}

TEST_F(ConvertReport, HelpSaysWhatAxesDoAndWhichUnitsAreMeant)
{
    const Outcome help = Run("convert-report --help");
    EXPECT_EQ(help.status, 0);
    EXPECT_THAT(help.out, AllOf(HasSubstr("lengths in mm"), HasSubstr("kg.m2"), HasSubstr("to A G"),
                                HasSubstr("(inverse of A) I A"), HasSubstr("(transpose of A) I A"),
                                HasSubstr("rotation"), HasSubstr("multiplied by the axes")));
    EXPECT_THAT(Run("--help").out, HasSubstr("convert-report"));
}
