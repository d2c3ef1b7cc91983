#pragma once

#include "ProgramRun.h"

#include <string>

/// Runs "wb compute" on small products whose totals are worked out by hand, and on the samples.
class ComputeProgram : public ProgramRun
{
protected:
    void Import(const std::string& table, const std::string& options = "") const
    {
        folder.Write("t.csv", table);
        const Outcome outcome = Run("import t.csv --into a.db " + options);
        ASSERT_EQ(outcome.status, 0) << outcome.err;
    }
    void ImportSample(const std::string& name) const
    {
        const Outcome outcome = Run("import '" WB_SOURCE_DIR "/data/" + name + ".csv' --into a.db");
        ASSERT_EQ(outcome.status, 0) << outcome.err;
    }
    void ImportAeroplane() const { ImportSample("light_aeroplane"); }
    void ImportSatellite() const { ImportSample("small_satellite"); }

    Outcome Answer(const std::string& arguments) const
    {
        return Run("compute --db a.db " + arguments);
    }
    /// What it prints; it must have gone well.
    std::string Computed(const std::string& arguments) const
    {
        const Outcome outcome = Answer(arguments);
        EXPECT_EQ(outcome.status, 0) << arguments;
        EXPECT_EQ(outcome.err, "") << arguments;
        return outcome.out;
    }
};

/// P, 1 kg, stands at x = 0 and Q, 2 kg, at x = 300: 3 kg at x = 200. About there, P is 0.2 m off
/// and Q 0.1 m: iyy = izz = 0.001 + 1 x 0.04 + 0.002 + 2 x 0.01 = 0.063 kg.m2, ixx = 0.003.
/// P lies within 0.5 % (weighed), Q within -10/+20 % (estimated): -0.205/+0.405 kg.
inline constexpr const char* kBeam =
    "parent,instance,part,name,x [mm],y [mm],z [mm],mass_type,mass [kg],cgx [mm],cgy [mm],cgz [mm],"
    "ixx [kg.m2],iyy [kg.m2],izz [kg.m2],ixy [kg.m2],ixz [kg.m2],iyz [kg.m2],code,growth_pct [%]\n"
    ",,R,Beam,,,,,,,,,,,,,,,STRUCTURE,\n"
    "R,p,P,,0,0,0,Weighed,1,0,0,0,0.001,0.001,0.001,0,0,0,,\n"
    "R,q,Q,Ballast,300,0,0,Estimated,2,0,0,0,0.002,0.002,0.002,0,0,0,,10\n";
