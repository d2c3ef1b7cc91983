#include "WBServerNames.h"

#include "PanelSession.h"

namespace
{

using WBServerNamesTest = PanelSession;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kMethod = "WBGetMassTypesAndAttrNames";

} // namespace

TEST_F(WBServerNamesTest, MassTypesAndPropertiesComeInTheServersOrder)
{
    server->answers[kMethod] =
        R"(<n><massType name="Computed"/><attrName name="Vendor"/><massType/>)"
        R"(<massType name="Weighed"/><attrName name="Location"/></n>)";
    const WBServerNames names = WBAskServerNames();
    EXPECT_THAT(names.massTypes, ElementsAre("Computed", "Weighed"));
    EXPECT_THAT(names.properties, ElementsAre("Vendor", "Location"));
    EXPECT_THAT(server->CallsOf(kMethod), ElementsAre(""));
}

TEST_F(WBServerNamesTest, AnswerThatIsNoneGivesNoNames)
{
    for (const char* answer : {"", "#WB_ERROR#no database", "<n>"}) {
        server->answers[kMethod] = answer;
        const WBServerNames names = WBAskServerNames();
        EXPECT_THAT(names.massTypes, IsEmpty());
        EXPECT_THAT(names.properties, IsEmpty());
    }
}
