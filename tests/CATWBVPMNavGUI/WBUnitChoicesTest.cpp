#include "WBUnitChoices.h"

#include "PanelSession.h"
#include "TestMagnitude.h"

#include <filesystem>
#include <fstream>
#include <set>

namespace
{

class WBUnitChoicesTest : public PanelSession
{
protected:
    static WBMagnitudes All()
    {
        return WBMagnitudesInOrder(*CATCkeGlobalFunctions::GetParmDictionary());
    }
    static CATICkeMagnitude_var Find(const char* name)
    {
        return CATCkeGlobalFunctions::GetParmDictionary()->FindMagnitude(name);
    }
    void Choose(const char* magnitude, const char* symbol)
    {
        WBChooseUnit(choices, *Find(magnitude), symbol);
    }
    void ChoosePreset(std::size_t index) { WBChoosePreset(choices, All(), WBUnitPresets()[index]); }
    /// The unit in which the magnitude would be shown.
    std::string Chosen(const char* magnitude)
    {
        return WBChosenUnit(choices, *Find(magnitude))->Symbol().ToStdString();
    }
    WBPanelRow Row(const char* title)
    {
        for (const WBPanelRow& row : WBUnitTable(All(), choices).rows) {
            if (row[1] == title) {
                return row;
            }
        }
        return {};
    }

    WBUnitChoices choices;
};

constexpr std::size_t kSi = 0;
constexpr std::size_t kMillimetre = 1;
constexpr std::size_t kInchPound = 2;
constexpr std::size_t kFootSlug = 3;
constexpr std::size_t kShipped = 4;

} // namespace

TEST_F(WBUnitChoicesTest, EveryMagnitudeIsToldUnderItsUnitsType)
{
    EXPECT_EQ(WBUnitsType("DENSITY"), 1);
    EXPECT_EQ(WBUnitsType("SURFACICMASS"), 1);
    EXPECT_EQ(WBUnitsType("MASS"), 2);
    EXPECT_EQ(WBUnitsType("LENGTH"), 3);
    EXPECT_EQ(WBUnitsType("INERTIAMOMENT"), 4);
    EXPECT_EQ(WBUnitsType("VOLUME"), 5);
    std::set<std::string> others;
    const CATListValCATUnicodeString names =
        CATCkeGlobalFunctions::GetParmDictionary()->MagnitudeNames();
    for (const CATUnicodeString& name : names.Items()) {
        if (WBUnitsType(name) == 0) {
            others.insert(name.ToStdString());
        }
    }
    EXPECT_TRUE(others.contains("AREA"));
    EXPECT_TRUE(others.contains("RATIO"));
    EXPECT_EQ(static_cast<int>(others.size()), names.Size() - 6);
    EXPECT_EQ(WBUnitsType("NO_SUCH_MAGNITUDE"), 0);
}

TEST_F(WBUnitChoicesTest, MassPropertiesComeFirstAndNothingIsLeftOut)
{
    const WBMagnitudes all = All();
    ASSERT_EQ(static_cast<int>(all.size()),
              CATCkeGlobalFunctions::GetParmDictionary()->MagnitudeNames().Size());
    std::vector<std::string> first;
    std::set<std::string> names;
    for (const CATICkeMagnitude_var& magnitude : all) {
        names.insert(magnitude->Name().ToStdString());
        if (first.size() < 7) {
            first.push_back(magnitude->Name().ToStdString());
        }
    }
    EXPECT_THAT(first, testing::ElementsAre("MASS", "LENGTH", "INERTIAMOMENT", "VOLUME", "DENSITY",
                                            "SURFACICMASS", "AREA"));
    EXPECT_EQ(names.size(), all.size());
}

TEST_F(WBUnitChoicesTest, EveryShippedMagnitudeHasATitleInBothLanguages)
{
    for (const char* language : {"en", "de"}) {
        CATMsgCatalog::SetLanguage(language);
        for (const CATICkeMagnitude_var& magnitude : All()) {
            EXPECT_FALSE(WBMagnitudeTitle(magnitude->Name()) == magnitude->Name())
                << language << " " << magnitude->Name().Text();
        }
    }
    EXPECT_EQ(WBMagnitudeTitle("INERTIAMOMENT"), "Trägheitsmoment");
    CATMsgCatalog::SetLanguage("en");
    EXPECT_EQ(WBMagnitudeTitle("INERTIAMOMENT"), "Moment of inertia");
}

TEST_F(WBUnitChoicesTest, MagnitudeOfTheUsersOwnIsCalledByItsNameAndStandsLast)
{
    const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("wb-units-" + std::to_string(getpid()));
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "units.toml") << "[[magnitude]]\nname = \"FUEL_FLOW\"\nstorage = "
                                            "\"kg/s\"\ndefault = \"kg/s\"\n[[magnitude.unit]]\n"
                                            "symbol = \"kg/s\"\nfactor = \"1\"\ndecimals = 3\n"
                                            "source = \"SI\"\n";
    CATSetEnvironmentSource([&](const char* name) -> std::optional<std::string> {
        return std::string_view(name) == "CATUserSettingPath" ? std::optional(folder.string())
                                                              : std::nullopt;
    });
    CATSettingRepository::CloseAll();
    CATCkeGlobalFunctions::SetParmDictionary({});
    EXPECT_EQ(All().back()->Name(), "FUEL_FLOW");
    EXPECT_EQ(Row("FUEL_FLOW"), (WBPanelRow{"FUEL_FLOW", "kg/s", "", "1 kg/s", "1 kg/s"}));
    std::filesystem::remove_all(folder);
}

TEST_F(WBUnitChoicesTest, ChosenUnitStandsBesideTheCurrentOneWithItsExample)
{
    // 12.5 kg / 0.45359237 kg = 27.557783 lb.
    EXPECT_EQ(Row("Mass"), (WBPanelRow{"Mass", "kg", "", "12.5 kg", "12.5 kg"}));
    Choose("MASS", "lb");
    EXPECT_EQ(Row("Mass"), (WBPanelRow{"Mass", "kg", "lb", "12.5 kg", "27.558 lb"}));
    EXPECT_EQ(Chosen("MASS"), "lb");
    ShowIn("LENGTH", "in"); // 1270 mm = 50 in
    EXPECT_EQ(Row("Length"), (WBPanelRow{"Length", "in", "", "1270 mm", "50 in"}));
    // 288.15 K are 15 degrees Celsius, shipped as the unit of temperatures.
    EXPECT_EQ(Row("Temperature"), (WBPanelRow{"Temperature", "degC", "", "288.15 K", "15 degC"}));
}

TEST_F(WBUnitChoicesTest, ExamplesHaveTheSessionsDecimalSeparator)
{
    ASSERT_TRUE(CATUseNumberLocale("de_DE.UTF-8"));
    Choose("MASS", "lb");
    EXPECT_EQ(Row("Mass"), (WBPanelRow{"Mass", "kg", "lb", "12,5 kg", "27,558 lb"}));
}

TEST_F(WBUnitChoicesTest, EveryExampleSaysSomethingInEveryUnit)
{
    for (const CATICkeMagnitude_var& magnitude : All()) {
        const CATListValCATUnicodeString symbols = magnitude->UnitSymbols();
        for (const CATUnicodeString& symbol : symbols.Items()) {
            choices.clear();
            WBChooseUnit(choices, *magnitude, symbol);
            const CATUnicodeString shown = Row(WBMagnitudeTitle(magnitude->Name()).Text())[5];
            EXPECT_TRUE(shown.View().ends_with(" " + symbol.ToStdString())) << shown.Text();
            EXPECT_FALSE(shown.View().starts_with("0 ")) << shown.Text();
        }
    }
}

TEST_F(WBUnitChoicesTest, TableHasNumbersAtTheRightAndExplainsItsColumns)
{
    const WBPanelTable table = WBUnitTable(All(), choices);
    ASSERT_EQ(table.columns.size(), 5U);
    EXPECT_EQ(table.columns[0].title, "Quantity");
    EXPECT_EQ(table.columns[1].title, "Unit");
    EXPECT_EQ(table.columns[2].title, "New unit");
    EXPECT_EQ(table.columns[3].title, "Example, stored");
    EXPECT_EQ(table.columns[4].title, "Example, shown");
    for (std::size_t column = 0; column < 5; ++column) {
        EXPECT_EQ(table.columns[column].isNumber, column >= 3) << column;
        EXPECT_EQ(table.columns[column].tooltip.IsEmpty(), column == 0) << column;
    }
}

TEST_F(WBUnitChoicesTest, CurrentUnitIsNoChoiceAndTakesAnEarlierOneBack)
{
    Choose("MASS", "kg");
    EXPECT_TRUE(choices.empty());
    Choose("MASS", "lb");
    Choose("MASS", "kg");
    EXPECT_TRUE(choices.empty());
}

TEST_F(WBUnitChoicesTest, UnitIsChosenByItsSymbolWhateverNameWasGiven)
{
    Choose("MASS", "Pounds");
    EXPECT_EQ(choices.at("MASS"), "lb");
    Choose("MASS", "furlong");
    EXPECT_EQ(choices.at("MASS"), "lb");
}

TEST_F(WBUnitChoicesTest, MagnitudeWithoutUnitsShowsADashAndCanBeGivenNone)
{
    const CATICkeMagnitude_var bare = MagnitudeOf({}, {});
    WBChooseUnit(choices, *bare, "kg");
    EXPECT_TRUE(choices.empty());
    EXPECT_TRUE(WBChosenUnit(choices, *bare).IsNull());
    EXPECT_EQ(WBUnitTable({bare}, choices).rows.front(), (WBPanelRow{"TEST", "–", "", "1", "1"}));
    for (const WBUnitPreset& preset : WBUnitPresets()) {
        WBChoosePreset(choices, {bare}, preset);
    }
    EXPECT_TRUE(choices.empty());
}

TEST_F(WBUnitChoicesTest, PresetsAreNamedInTheirOrder)
{
    std::vector<std::string> titles;
    for (const WBUnitPreset& preset : WBUnitPresets()) {
        titles.push_back(WBUnitsText(preset.key, preset.defaultTitle).ToStdString());
    }
    EXPECT_THAT(titles,
                testing::ElementsAre("SI", "mm-kg", "Inch-pound", "Foot-slug", "As shipped"));
}

TEST_F(WBUnitChoicesTest, PresetChoosesEveryUnitOfMassProperties)
{
    struct Units
    {
        std::size_t preset;
        std::array<const char*, 6> symbols;
    };
    constexpr std::array kMassProperties{"MASS",   "LENGTH",  "INERTIAMOMENT",
                                         "VOLUME", "DENSITY", "SURFACICMASS"};
    const std::array kExpected{
        Units{kSi, {"kg", "m", "kg.m2", "m3", "kg/m3", "kg/m2"}},
        Units{kMillimetre, {"kg", "mm", "kg.mm2", "mm3", "kg/m3", "kg/m2"}},
        Units{kInchPound, {"lb", "in", "lb.in2", "in3", "lb/in3", "lb/ft2"}},
        Units{kFootSlug, {"slug", "ft", "slug.ft2", "ft3", "slug/ft3", "lb/ft2"}},
        Units{kShipped, {"kg", "mm", "kg.m2", "m3", "kg/m3", "kg/m2"}}};
    for (const Units& expected : kExpected) {
        ChoosePreset(expected.preset);
        for (std::size_t index = 0; index < kMassProperties.size(); ++index) {
            EXPECT_EQ(Chosen(kMassProperties[index]), expected.symbols[index]) << expected.preset;
        }
        EXPECT_EQ(WBPresetOf(choices, All()), static_cast<int>(expected.preset));
    }
}

TEST_F(WBUnitChoicesTest, PresetOfMassPropertiesLeavesOtherQuantitiesAlone)
{
    Choose("TIME", "min");
    ChoosePreset(kInchPound);
    EXPECT_EQ(Chosen("TIME"), "min");
    EXPECT_EQ(choices.size(), 7U);
}

TEST_F(WBUnitChoicesTest, ShippedPresetIsWhatASessionWithoutSettingsHas)
{
    // Nobody has chosen anything in this session.
    ChoosePreset(kShipped);
    EXPECT_TRUE(choices.empty());
    for (const CATICkeMagnitude_var& magnitude : All()) {
        const CATListValCATUnicodeString symbols = magnitude->UnitSymbols();
        for (const CATUnicodeString& symbol : symbols.Items()) {
            WBChooseUnit(choices, *magnitude, symbol);
        }
    }
    EXPECT_FALSE(choices.empty());
    ChoosePreset(kShipped);
    EXPECT_TRUE(choices.empty());
}

TEST_F(WBUnitChoicesTest, UnitsThatAgreeWithNoPresetAreAnOwnChoice)
{
    EXPECT_EQ(WBPresetOf(choices, All()), static_cast<int>(kShipped));
    Choose("VOLUME", "L");
    EXPECT_EQ(WBPresetOf(choices, All()), -1);
    EXPECT_EQ(WBPresetOf({}, {}), -1);
}
