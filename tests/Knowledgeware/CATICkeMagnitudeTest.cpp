#include "CATCkeMagnitude.h"
#include "CATStatus.h"
#include "UnitsSession.h"

#include <array>
#include <gmock/gmock.h>

namespace
{

class CATICkeMagnitudeTest : public UnitsSession
{
protected:
    static std::string Current(const char* magnitude)
    {
        return Magnitude(magnitude)->CurrentUnit()->Symbol().ToStdString();
    }
    void WriteSettings(const std::string& text)
    {
        WriteFile(m_settings / "Units.CATSettings", text);
    }
};

/// Listens while it lives, and keeps each change as "MAGNITUDE unit".
class Heard
{
public:
    Heard()
        : m_number(CATCkeGlobalFunctions::AddUnitListener([this](const CATICkeMagnitude_var& of) {
              changes.push_back(of->Name().ToStdString() + " " +
                                of->CurrentUnit()->Symbol().ToStdString());
          }))
    {}
    Heard(const Heard&) = delete;
    Heard& operator=(const Heard&) = delete;
    ~Heard() { CATCkeGlobalFunctions::RemoveUnitListener(m_number); }

    std::vector<std::string> changes;

private:
    int m_number;
};

struct ShippedMagnitude
{
    const char* name;
    const char* storage;
    const char* current; // until the user chooses another
};
constexpr std::array kMagnitudes{
    ShippedMagnitude{"LENGTH", "mm", "mm"},
    ShippedMagnitude{"MASS", "kg", "kg"},
    ShippedMagnitude{"INERTIAMOMENT", "kg.m2", "kg.m2"},
    ShippedMagnitude{"DENSITY", "kg/m3", "kg/m3"},
    ShippedMagnitude{"SURFACICMASS", "kg/m2", "kg/m2"},
    ShippedMagnitude{"VOLUME", "m3", "m3"},
    ShippedMagnitude{"AREA", "m2", "m2"},
    ShippedMagnitude{"ANGLE", "rad", "deg"},
    ShippedMagnitude{"TIME", "s", "h"},
    ShippedMagnitude{"FREQUENCY", "Hz", "Hz"},
    ShippedMagnitude{"VELOCITY", "m/s", "m/s"},
    ShippedMagnitude{"ACCELERATION", "m/s2", "m/s2"},
    ShippedMagnitude{"FORCE", "N", "N"},
    ShippedMagnitude{"TORQUE", "N.m", "N.m"},
    ShippedMagnitude{"PRESSURE", "Pa", "Pa"},
    ShippedMagnitude{"ENERGY", "J", "J"},
    ShippedMagnitude{"POWER", "W", "W"},
    ShippedMagnitude{"TEMPERATURE", "K", "degC"},
    ShippedMagnitude{"ELECTRIC_CURRENT", "A", "A"},
    ShippedMagnitude{"VOLTAGE", "V", "V"},
    ShippedMagnitude{"ELECTRIC_CHARGE", "C", "A.h"},
    ShippedMagnitude{"RATIO", "%", "%"},
};

TEST_F(CATICkeMagnitudeTest, EveryShippedMagnitudeHasItsStorageUnitAndItsFirstCurrentUnit)
{
    std::vector<std::string> names;
    for (const ShippedMagnitude& row : kMagnitudes) {
        const CATICkeMagnitude_var magnitude = Magnitude(row.name);
        ASSERT_FALSE(magnitude.IsNull()) << row.name;
        EXPECT_EQ(magnitude->Name().ToStdString(), row.name);
        EXPECT_EQ(magnitude->StorageUnit()->Symbol().ToStdString(), row.storage);
        EXPECT_EQ(Current(row.name), row.current);
        names.emplace_back(row.name);
    }
    std::vector<std::string> shipped;
    const CATListValCATUnicodeString listed =
        CATCkeGlobalFunctions::GetParmDictionary()->MagnitudeNames();
    for (const CATUnicodeString& name : listed.Items()) {
        shipped.push_back(name.ToStdString());
    }
    EXPECT_EQ(shipped, names);
}

TEST_F(CATICkeMagnitudeTest, UnitsComeInTheOrderOfTheFile)
{
    EXPECT_EQ(Magnitude("SURFACICMASS")->UnitSymbols(),
              CATListValCATUnicodeString({"kg/m2", "g/m2", "g/cm2", "lb/ft2"}));
}

TEST_F(CATICkeMagnitudeTest, SymbolsAreExact)
{
    EXPECT_TRUE(Magnitude("MASS")->FindUnit("KG").IsNull());
    EXPECT_TRUE(Magnitude("MASS")->FindUnit("Mg").IsNull());
    EXPECT_TRUE(Magnitude("MASS")->FindUnit("").IsNull());
    EXPECT_TRUE(Magnitude("MASS")->FindUnit("mm").IsNull());
    EXPECT_EQ(Magnitude("MASS")->FindUnit("mg")->Symbol().ToStdString(), "mg");
}

TEST_F(CATICkeMagnitudeTest, NamesAreTakenInAnyLetterCase)
{
    EXPECT_EQ(Magnitude("LENGTH")->FindUnit("inch")->Symbol().ToStdString(), "in");
    EXPECT_EQ(Magnitude("LENGTH")->FindUnit("Inches")->Symbol().ToStdString(), "in");
    EXPECT_EQ(Magnitude("MASS")->FindUnit("LBS")->Symbol().ToStdString(), "lb");
    EXPECT_EQ(Magnitude("INERTIAMOMENT")->FindUnit("kg·m²")->Symbol().ToStdString(), "kg.m2");
}

TEST_F(CATICkeMagnitudeTest, AChosenUnitSurvivesTheSession)
{
    EXPECT_EQ(Magnitude("MASS")->SetCurrentUnit("lb"), S_OK);
    EXPECT_EQ(Current("MASS"), "lb");
    EXPECT_EQ(Current("LENGTH"), "mm");
    StartAgain();
    EXPECT_EQ(Current("MASS"), "lb");
    EXPECT_EQ(Current("LENGTH"), "mm");
    EXPECT_EQ(m_reports, std::vector<std::string>());
}

TEST_F(CATICkeMagnitudeTest, AChoiceLeavesTheDefaultUnitAlone)
{
    EXPECT_EQ(Magnitude("MASS")->SetCurrentUnit("lb"), S_OK);
    EXPECT_EQ(Magnitude("MASS")->DefaultUnit()->Symbol().ToStdString(), "kg");
    EXPECT_EQ(Magnitude("TIME")->SetCurrentUnit("s"), S_OK);
    EXPECT_EQ(Magnitude("TIME")->DefaultUnit()->Symbol().ToStdString(), "h");
    StartAgain();
    EXPECT_EQ(Current("TIME"), "s");
    EXPECT_EQ(Magnitude("TIME")->DefaultUnit()->Symbol().ToStdString(), "h");
}

TEST_F(CATICkeMagnitudeTest, AUnitChosenByANameIsKeptByItsSymbol)
{
    EXPECT_EQ(Magnitude("LENGTH")->SetCurrentUnit("Feet"), S_OK);
    CATUnicodeString kept;
    EXPECT_EQ(CATSettingRepository::GetRepository("Units")->ReadSetting("LENGTH", kept), S_OK);
    EXPECT_EQ(kept, CATUnicodeString("ft"));
}

TEST_F(CATICkeMagnitudeTest, ARollbackOfTheSettingsKeepsTheChosenUnit)
{
    EXPECT_EQ(Magnitude("MASS")->SetCurrentUnit("lb"), S_OK);
    CATSettingRepository* const settings = CATSettingRepository::GetRepository("Units");
    settings->Rollback();
    CATUnicodeString kept;
    EXPECT_EQ(settings->ReadSetting("MASS", kept), S_OK);
    EXPECT_EQ(kept, CATUnicodeString("lb"));
}

TEST_F(CATICkeMagnitudeTest, ChoosingTheCurrentUnitAgainIsNothingToDo)
{
    EXPECT_EQ(Magnitude("MASS")->SetCurrentUnit("kg"), S_FALSE);
    EXPECT_EQ(Magnitude("MASS")->SetCurrentUnit("kilogram"), S_FALSE);
    EXPECT_FALSE(std::filesystem::exists(m_settings / "Units.CATSettings"));
}

TEST_F(CATICkeMagnitudeTest, AnUnknownUnitIsRefusedAndNothingChanges)
{
    EXPECT_EQ(Magnitude("MASS")->SetCurrentUnit("mm"), E_INVALIDARG);
    EXPECT_EQ(Current("MASS"), "kg");
}

TEST_F(CATICkeMagnitudeTest, AChoiceThatCannotBeKeptHoldsForTheSession)
{
    m_environment.erase("CATUserSettingPath");
    StartAgain();
    EXPECT_EQ(Magnitude("MASS")->SetCurrentUnit("lb"), E_FAIL);
    EXPECT_EQ(Current("MASS"), "lb");
}

TEST_F(CATICkeMagnitudeTest, ASettingsFileThatCannotBeWrittenFails)
{
    CATICkeMagnitude_var mass = Magnitude("MASS");
    std::filesystem::remove_all(m_settings);
    WriteFile(m_settings, "a file where the directory was");
    EXPECT_EQ(mass->SetCurrentUnit("lb"), E_FAIL);
    EXPECT_EQ(Current("MASS"), "lb");
}

TEST_F(CATICkeMagnitudeTest, AUnitThatIsOnlyUsedEndsWithTheSession)
{
    EXPECT_EQ(Magnitude("MASS")->UseUnit("Pound"), S_OK);
    EXPECT_EQ(Current("MASS"), "lb");
    EXPECT_FALSE(std::filesystem::exists(m_settings / "Units.CATSettings"));
    StartAgain();
    EXPECT_EQ(Current("MASS"), "kg");
}

TEST_F(CATICkeMagnitudeTest, AUsedUnitLeavesTheChosenOneInTheSettings)
{
    EXPECT_EQ(Magnitude("MASS")->SetCurrentUnit("lb"), S_OK);
    EXPECT_EQ(Magnitude("MASS")->UseUnit("t"), S_OK);
    EXPECT_EQ(Magnitude("LENGTH")->SetCurrentUnit("in"), S_OK);
    StartAgain();
    EXPECT_EQ(Current("MASS"), "lb");
}

TEST_F(CATICkeMagnitudeTest, UsingTheCurrentOrAnUnknownUnitChangesNothing)
{
    EXPECT_EQ(Magnitude("MASS")->UseUnit("kg"), S_FALSE);
    EXPECT_EQ(Magnitude("MASS")->UseUnit("mm"), E_INVALIDARG);
    EXPECT_EQ(Current("MASS"), "kg");
}

TEST_F(CATICkeMagnitudeTest, EveryChangeOfACurrentUnitIsTold)
{
    const Heard heard;
    EXPECT_EQ(Magnitude("MASS")->SetCurrentUnit("pounds"), S_OK);
    EXPECT_EQ(Magnitude("LENGTH")->UseUnit("in"), S_OK);
    EXPECT_THAT(heard.changes, testing::ElementsAre("MASS lb", "LENGTH in"));
}

TEST_F(CATICkeMagnitudeTest, WhatChangesNoUnitIsNotTold)
{
    const Heard heard;
    EXPECT_EQ(Magnitude("MASS")->SetCurrentUnit("kg"), S_FALSE);
    EXPECT_EQ(Magnitude("MASS")->UseUnit("kg"), S_FALSE);
    EXPECT_EQ(Magnitude("MASS")->SetCurrentUnit("mm"), E_INVALIDARG);
    EXPECT_EQ(Magnitude("MASS")->UseUnit("mm"), E_INVALIDARG);
    EXPECT_THAT(heard.changes, testing::IsEmpty());
}

TEST_F(CATICkeMagnitudeTest, AChoiceThatCannotBeKeptIsToldAsWell)
{
    m_environment.erase("CATUserSettingPath");
    StartAgain();
    const Heard heard;
    EXPECT_EQ(Magnitude("MASS")->SetCurrentUnit("lb"), E_FAIL);
    EXPECT_THAT(heard.changes, testing::ElementsAre("MASS lb"));
}

TEST_F(CATICkeMagnitudeTest, UnitsThatFilesAndSettingsMakeCurrentAreNotTold)
{
    WriteSettings("MASS = \"lb\"\n");
    WriteFile(m_settings / "units.toml", "[[magnitude]]\nname = \"LENGTH\"\ndefault = \"in\"\n");
    StartAgain();
    const Heard heard;
    EXPECT_EQ(Current("MASS"), "lb");
    EXPECT_EQ(Current("LENGTH"), "in");
    EXPECT_THAT(heard.changes, testing::IsEmpty());
}

TEST_F(CATICkeMagnitudeTest, WhoIsToldFindsTheChoiceKept)
{
    CATUnicodeString kept;
    const int number = CATCkeGlobalFunctions::AddUnitListener([&](const CATICkeMagnitude_var& of) {
        EXPECT_EQ(CATSettingRepository::GetRepository("Units")->ReadSetting(of->Name(), kept),
                  S_OK);
    });
    EXPECT_EQ(Magnitude("MASS")->SetCurrentUnit("lb"), S_OK);
    CATCkeGlobalFunctions::RemoveUnitListener(number);
    EXPECT_EQ(kept, CATUnicodeString("lb"));
}

TEST_F(CATICkeMagnitudeTest, ListenersOutliveADictionaryThatIsReadAgain)
{
    const Heard heard;
    StartAgain();
    EXPECT_EQ(Magnitude("MASS")->UseUnit("lb"), S_OK);
    EXPECT_THAT(heard.changes, testing::ElementsAre("MASS lb"));
}

TEST_F(CATICkeMagnitudeTest, AnUnknownUnitInTheSettingsLeavesTheDefaultAndIsReported)
{
    WriteSettings("LENGTH = \"furlong\"\nMASS = \"lb\"\n");
    StartAgain();
    EXPECT_EQ(Current("LENGTH"), "mm");
    EXPECT_EQ(Current("MASS"), "lb");
    EXPECT_THAT(
        m_reports,
        testing::ElementsAre("setting LENGTH of Units: \"furlong\" is no unit of it; mm is used"));
}

TEST_F(CATICkeMagnitudeTest, ASettingThatIsNoTextLeavesTheDefaultAndIsReported)
{
    WriteSettings("ANGLE = 3\n");
    StartAgain();
    EXPECT_EQ(Current("ANGLE"), "deg");
    EXPECT_THAT(m_reports,
                testing::ElementsAre("setting ANGLE of Units: it is no text; deg is used"));
}

TEST(CATCkeMagnitude, AnswersItsClassName)
{
    EXPECT_STREQ(CATCkeMagnitude("LENGTH", "mm").ClassName(), "CATCkeMagnitude");
}

TEST(CATCkeMagnitude, WithoutUnitsHasNeitherStorageNorCurrentUnit)
{
    const CATCkeMagnitude magnitude("LENGTH", "mm");
    EXPECT_TRUE(magnitude.StorageUnit().IsNull());
    EXPECT_TRUE(magnitude.CurrentUnit().IsNull());
    EXPECT_TRUE(magnitude.UnitSymbols().IsEmpty());
}

} // namespace
