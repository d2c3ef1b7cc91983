#pragma once

#include "WBGroupFigures.h"
#include "WBReportOpening.h"

#include <gtest/gtest.h>

#include <string>

/// The product LA1 of the group tests, as the server reports it:
///   WING.1   40 kg at x 1000: the sum of what is below it
///     SPAR.1 10 kg at x 900, of steel and a sheet
///     SKIN.1 30 kg, centre unknown
///   TAIL.1   20 kg at x 5000, z 400, weighed
///   BOX.1    mass unknown
///   TANK.1   15 kg at y -100; something below it has no centre
/// and 100 kg as a whole.
inline constexpr const char* kGroupReport =
    R"(<WB_Report Kind="report" Root="LA1"><PRC PRC_ID="LA1" WB_Mass="100" COGx="1" COGy="2" COGz="3">)"
    R"(<WB_Section Name="ALL" WB_Mass="100"/>)"
    R"(<PartInstance instIdAttrAlias="Instance_ID" Part_ID="WING" Instance_ID="WING.1" Name="Wing" )"
    R"(Version="A" Quantity="1" WB_Mass="40" Unit_mass="40" __magnitude__Unit_mass="MASS" )"
    R"(COGx="1000" COGy="0" COGz="0" Code="WNG" WB_Status="no centre" )"
    R"(WBActiveMassTypeID="Computed" WB_Last_calculation_date="2026/11/21 18:56:54" )"
    R"(InstancePath="LA1/WING.1">)"
    R"(<PartInstance instIdAttrAlias="Instance_ID" Part_ID="SPAR" Instance_ID="SPAR.1" Name="Main spar" )"
    R"(Version="B" Quantity="2" WB_Mass="10" COGx="900" COGy="0" COGz="0" Material="Steel 4130;Paint" )"
    R"(Density="7850;2.5" Density_dimension="3;2" WB_Mass_Details="9;1" WB_Status="complete" )"
    R"(InstancePath="LA1/WING.1/SPAR.1" Vendor="Smith &amp; Sons" Next_inspection="2027/05/26" )"
    R"(Operating_time="12600" __magnitude__Operating_time="TIME" Flammable="no" Rivets="120"/>)"
    R"(<PartInstance instIdAttrAlias="Instance_ID" Part_ID="SKIN" Instance_ID="SKIN.1" Name="Skin" )"
    R"(Version="A" Quantity="1" WB_Mass="30" WB_Status="no centre" Material="Fabric" )"
    R"(InstancePath="LA1/WING.1/SKIN.1" Vendor="Weber" Flammable="yes" Rivets="8.5"/></PartInstance>)"
    R"(<PartInstance instIdAttrAlias="Instance_ID" Part_ID="TAIL" Instance_ID="TAIL.1" Name="Tail" )"
    R"(Version="A" Quantity="1" WB_Mass="20" COGx="5000" COGy="0" COGz="400" WB_Status="no inertia" )"
    R"(Source="scale" WBActiveMassTypeID="Weighed" InstancePath="LA1/TAIL.1" )"
    R"(Next_inspection="2026/11/21" Operating_time="3600" __magnitude__Operating_time="TIME"/>)"
    R"(<PartInstance instIdAttrAlias="Instance_ID" Part_ID="BOX" Instance_ID="BOX.1" Name="Box" )"
    R"(Version="A" Quantity="1" WB_Status="no mass" InstancePath="LA1/BOX.1" Size="3.5" )"
    R"(__magnitude__Size="LENGTH"/>)"
    R"(<PartInstance instIdAttrAlias="Instance_ID" Part_ID="TANK" Instance_ID="TANK.1" Name="Tank" )"
    R"(Version="A" Quantity="1" WB_Mass="15" COGx="0" COGy="-100" COGz="0" WB_Status="no centre" )"
    R"(Density="0;900" Density_dimension="3;3" InstancePath="LA1/TANK.1"/>)"
    R"(</PRC></WB_Report>)";

/// Rows of the figures, in the order of the report.
enum GroupRow : int
{
    kWing,
    kSpar,
    kSkin,
    kTail,
    kBox,
    kTank
};

inline WBGroupFigures FiguresOf(const std::string& report = kGroupReport)
{
    CATUnicodeString problem;
    const CATIDOMDocument_var document = WBReadReport(report, problem);
    EXPECT_TRUE(problem.IsEmpty()) << problem.Text();
    return WBGroupFigures(document);
}

inline WBPickedInstance Wing()
{
    return {"WING.1", "WING", "A", {}};
}
inline WBPickedInstance Spar()
{
    return {"SPAR.1", "SPAR", "B", {"WING.1"}};
}
inline WBPickedInstance Skin()
{
    return {"SKIN.1", "SKIN", "A", {"WING.1"}};
}
inline WBPickedInstance Tail()
{
    return {"TAIL.1", "TAIL", "A", {}};
}
inline WBPickedInstance Box()
{
    return {"BOX.1", "BOX", "A", {}};
}
inline WBPickedInstance Tank()
{
    return {"TANK.1", "TANK", "A", {}};
}
