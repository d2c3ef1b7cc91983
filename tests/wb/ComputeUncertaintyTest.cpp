#include "ComputeTesting.h"

#include <gmock/gmock.h>

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

namespace
{
using ComputeUncertainty = ComputeProgram;
} // namespace

TEST_F(ComputeUncertainty, RootSumSquareStandsTogetherAndApart)
{
    Import("parent,instance,part,quantity,mass_type,mass [kg],lower [kg],upper [kg]\n,,R,,,,,\n"
           "R,p,P,4,Weighed,1,0.1,0.2\nR,q,Q,,Weighed,1,0.3,0.6\n");
    // Four pieces that share an error of 0.1: 0.4 and 0.3 give 0.5; apart: sqrt(0.04 + 0.09).
    EXPECT_THAT(Computed("R --rss"),
                HasSubstr("\nDeviations as the root of the sum of squares [kg]\n"
                          "                                           lower      upper\n"
                          "  all uses of a part share its error   0.5000000  1.0000000\n"
                          "  every piece has an error of its own  0.3605551  0.7211103\n"));
    EXPECT_THAT(Computed("R"), Not(HasSubstr("root of the sum")));
}

TEST_F(ComputeUncertainty, UncertaintiesSayHowTheErrorsHangTogether)
{
    Import("parent,instance,part,quantity,mass_type,mass [kg],sigma_mass [kg],cgx [mm],cgy [mm],"
           "cgz [mm]\n,,R,,,,,,,\nR,p,P,4,Weighed,1,0.1,0,0,0\n");
    EXPECT_THAT(Computed("R --uncertainty"),
                AllOf(HasSubstr("\nStandard uncertainties (first order; all uses of a part share "
                                "its errors)\n"
                                "  mass [kg]                                0.4000000\n"),
                      HasSubstr("\n  mass whose uncertainty is a default [%]       0.00\n")));
    const std::string apart = Computed("R --apart");
    EXPECT_THAT(apart, HasSubstr("\nStandard uncertainties (first order; every piece has errors of "
                                 "its own)\n"
                                 "  mass [kg]                                0.2000000\n"));
    EXPECT_EQ(Computed("R --uncertainty --apart"), apart);
    EXPECT_THAT(Computed("R"), Not(HasSubstr("Standard uncertainties")));
    EXPECT_THAT(apart, Not(HasSubstr("Those of the inertia")));
    EXPECT_THAT(Computed("R --uncertainty --at origin"),
                HasSubstr("\n  Those of the inertia are about the centre of gravity.\n"));
}

TEST_F(ComputeUncertainty, WhereFirstOrderUnderstatesIsSaid)
{
    ImportAeroplane();
    const std::string engine = "LA1/PWR-000.1/PWR-100.1";
    EXPECT_THAT(Computed(engine + " --uncertainty"),
                HasSubstr("\n  First order understates at Engine.\n"));
}

TEST_F(ComputeUncertainty, ExplainListsTheLargestContributors)
{
    Import(kBeam);
    // A spread of 0.01 kg and one of 0.6 kg, by sqrt 12; of the sum of squares Q has
    // 0.36 / 0.3601 = 99.97 %.
    const std::string text = Computed("R --explain");
    EXPECT_THAT(text, AllOf(HasSubstr("\nLargest masses [kg]\n"
                                      "  part  name     pieces       mass      sigma  % mass\n"
                                      "  Q A   Ballast       1  2.0000000  0.1732051   66.67\n"
                                      "  P A   P             1  1.0000000  0.0028868   33.33\n"),
                            HasSubstr("\nLargest uncertainties of the mass [kg]\n"
                                      "  part  name     pieces       mass      sigma  % var.\n"
                                      "  Q A   Ballast       1  2.0000000  0.1732051   99.97\n"
                                      "  P A   P             1  1.0000000  0.0028868    0.03\n"),
                            Not(HasSubstr("Standard uncertainties"))));
    EXPECT_THAT(Computed("R --explain 1"), Not(HasSubstr("\n  P A ")));
    EXPECT_EQ(Computed("--explain R"), text);
    EXPECT_THAT(Computed("R"), Not(HasSubstr("Largest")));
}

TEST_F(ComputeUncertainty, ErrorsApartShowInTheListOfContributors)
{
    Import("parent,instance,part,quantity,mass_type,mass [kg],sigma_mass [kg]\n,,R,,,,\n"
           "R,p,P,4,Weighed,1,0.1\n");
    EXPECT_THAT(Computed("R --explain"), HasSubstr("4  4.0000000  0.4000000  "));
    const std::string apart = Computed("R --explain --apart");
    EXPECT_THAT(apart, HasSubstr("4  4.0000000  0.2000000  "));
    EXPECT_THAT(apart, Not(HasSubstr("Standard uncertainties")));
}
