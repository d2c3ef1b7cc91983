#include "MethodsTesting.h"

using testing::HasSubstr;

namespace
{
/// A sheet of 2 m2 and 1 kg/m2, used once as it is and once in another material of 3 kg/m2.
constexpr const char* kSheets =
    "parent,instance,part,mass_type,values_on,area [m2],ixx [kg.m2],iyy [kg.m2],izz [kg.m2],"
    "material,material_surface_density [kg/m2],material_on\n"
    ",,A,,,,,,,,,\n"
    "A,plain,P,Weighed,,2,0.1,0.2,0.3,Foil,1,\n"
    "A,other,P,,,,,,,Lead,3,instance\n"
    "A,own,P,Weighed,instance,2,0.1,0.2,0.3,Lead,,instance\n";
} // namespace

TEST(OwnUseValues, InertiaOfThePartScalesWithTheMaterialOfAUse)
{
    wbtest::ServedProduct served;
    served.ImportTable(kSheets);
    EXPECT_THAT(served.Initial("1||A|plain|P|A|0|"),
                HasSubstr("|Weighed|1|2|0.01|0.01|0|0|0|0.1|0.2|0.3|0|0|0|"));
    EXPECT_THAT(served.Initial("1||A|other|P|A|0|"),
                HasSubstr("|Weighed|1|6|0.03|0.03|0|0|0|0.3|0.6|0.9|0|0|0|"));
}

TEST(OwnUseValues, InertiaThatAUseStatesForItselfStaysAsTyped)
{
    wbtest::ServedProduct served;
    served.ImportTable(kSheets);
    EXPECT_THAT(served.Initial("1||A|own|P|A|0|"),
                HasSubstr("|Weighed|1|6|0.03|0.03|0|0|0|0.1|0.2|0.3|0|0|0|"));
}
