#include "CATCkeGlobalFunctions.h"
#include "WBUnits.h"

#include <gtest/gtest.h>

// The server converts what tables hold, the client what people see. Both have their units from the
// same legal definitions, each in a table of its own: here they are held against each other.
TEST(UnitsAgree, EveryUnitOfTheServerIsTheClientsToo)
{
    const CATICkeParmDictionary_var dictionary = CATCkeGlobalFunctions::GetParmDictionary();
    for (const wb::Magnitude& magnitude : wb::Magnitudes()) {
        const CATICkeMagnitude_var known = dictionary->FindMagnitude(magnitude.name);
        ASSERT_FALSE(known.IsNull()) << magnitude.name;
        EXPECT_EQ(known->StorageUnit()->Symbol(), CATUnicodeString(magnitude.units.front().symbol))
            << magnitude.name;
        for (const wb::Unit& unit : magnitude.units) {
            const CATICkeUnit_var same = known->FindUnit(unit.symbol);
            ASSERT_FALSE(same.IsNull()) << magnitude.name << " " << unit.symbol;
            EXPECT_EQ(same->Symbol(), CATUnicodeString(unit.symbol));
            for (const double value : {0.0, 1.0, 12.5, -3.75}) {
                EXPECT_DOUBLE_EQ(same->ToStorage(value), wb::ToStorage(unit, value))
                    << magnitude.name << " " << unit.symbol;
            }
        }
    }
}
