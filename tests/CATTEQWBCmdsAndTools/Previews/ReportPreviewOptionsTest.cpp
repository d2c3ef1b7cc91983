#include "ReportPreviewSession.h"

#include <QSpinBox>

// How a preview shows values, and what it remembers of that. 200lb and 10in have 3 and 4 decimals
// of their own.

namespace
{

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class ReportPreviewOptions : public ReportPreview
{
protected:
    /// Mass and centre of the root as they are shown.
    std::vector<std::string> Shown() const
    {
        return {Roots().Cell(3, 1).ToStdString(), Roots().Cell(4, 1).ToStdString()};
    }
    /// What the next preview will find: units, trailing zeros, digits.
    static std::vector<int> Remembered()
    {
        unsigned char units = 9;
        unsigned char zeros = 9;
        int digits = 9;
        EXPECT_EQ(KR4WBClientSettings::GetReportDisplay(units, zeros, digits), S_OK);
        return {units, zeros, digits};
    }
    void Close()
    {
        preview->OnCloseNotification();
        Process();
        ASSERT_EQ(watch.Get(), nullptr);
    }
};

} // namespace

TEST_F(ReportPreviewOptions, ValuesAreShownPlainAtFirst)
{
    Built();
    EXPECT_THAT(Shown(), ElementsAre("200", "10"));
    EXPECT_FALSE(Units().IsChecked());
    EXPECT_FALSE(Zeros().IsChecked());
}

TEST_F(ReportPreviewOptions, UnitsAreShownAndHidden)
{
    Built();
    Click(*preview, "UnitsDisplay");
    EXPECT_THAT(Shown(), ElementsAre("200lb", "10in"));
    EXPECT_THAT(Column("Reach"), ElementsAre("", "3in", ""));
    EXPECT_THAT(Written(document), testing::HasSubstr(R"(WB_Mass="200lb")"));
    Click(*preview, "UnitsDisplay");
    EXPECT_THAT(Shown(), ElementsAre("200", "10"));
    EXPECT_THAT(Column("Reach"), ElementsAre("", "3", ""));
    EXPECT_EQ(Written(document), kReport);
}

TEST_F(ReportPreviewOptions, TrailingZerosAreShownAndHidden)
{
    Built();
    Click(*preview, "TrailingZero");
    EXPECT_THAT(Shown(), ElementsAre("200.000", "10.0000"));
    EXPECT_THAT(Column("Reach"), ElementsAre("", "3.0000", ""));
    Click(*preview, "UnitsDisplay");
    EXPECT_THAT(Shown(), ElementsAre("200.000lb", "10.0000in"));
    Click(*preview, "TrailingZero");
    EXPECT_THAT(Shown(), ElementsAre("200lb", "10in"));
}

TEST_F(ReportPreviewOptions, ValuesKeepTheirUnitsWhenAnotherOneIsChosen)
{
    Built();
    const CATICkeMagnitude_var mass =
        CATCkeGlobalFunctions::GetParmDictionary()->FindMagnitude("MASS");
    mass->UseUnit("g");
    EXPECT_FALSE(Units().IsSensitive());
    EXPECT_FALSE(Zeros().IsSensitive());
    EXPECT_EQ(Find<CATDlgLabel>(*preview, "UnitsNote").Title(),
              "Another unit was chosen. Make the report again to see the values in it.");
    EXPECT_THAT(Shown(), ElementsAre("200", "10"));
    // Another report, which was converted since.
    const CATWBVPMNavReportPreview other("Other", Parsed(kReport), 0);
    *preview = other;
    EXPECT_TRUE(Units().IsSensitive());
    EXPECT_TRUE(Zeros().IsSensitive());
    Close();
    mass->UseUnit("lb"); // nobody listens any more
}

TEST_F(ReportPreviewOptions, ValuesHaveTheSeparatorOfTheSession)
{
    const NumberLocale comma(kCommaLocale);
    Built(R"(<R><PRC ID1="a" ID2="b" WB_Mass="1.25" COGx="0.5"/></R>)");
    Click(*preview, "TrailingZero");
    EXPECT_THAT(Shown(), ElementsAre("1,250", "0,5000"));
    Click(*preview, "UnitsDisplay");
    EXPECT_THAT(Shown(), ElementsAre("1,250lb", "0,5000in"));
}

TEST_F(ReportPreviewOptions, EveryControlBringsTheListsUpToDate)
{
    Built();
    preview->calls.clear();
    Click(*preview, "UnitsDisplay");
    EXPECT_THAT(preview->calls, ElementsAre("Units", "Update"));
    preview->calls.clear();
    Click(*preview, "TrailingZero");
    EXPECT_THAT(preview->calls, ElementsAre("TrailingZero", "Units", "Update"));
    preview->calls.clear();
    Digits().SetValue(3, CATDlgTelling::Notify);
    EXPECT_THAT(preview->calls, ElementsAre("TrailingDigits", "Units", "Update"));
}

TEST_F(ReportPreviewOptions, DigitsDoNotReachTheValues)
{
    Built();
    Click(*preview, "TrailingZero");
    Digits().SetValue(1, CATDlgTelling::Notify);
    EXPECT_THAT(Shown(), ElementsAre("200.000", "10.0000"));
}

TEST_F(ReportPreviewOptions, UpButtonOfTheSpinnerIsUsableAfterAChoice)
{
    Built();
    EXPECT_EQ(Digits().UpSensitivity(), 0);
    Click(*preview, "UnitsDisplay");
    EXPECT_EQ(Digits().UpSensitivity(), 16);
}

// What is remembered

TEST_F(ReportPreviewOptions, NewUserHasEightDigitsAndNothingOn)
{
    Built();
    EXPECT_EQ(Digits().Value(), 8);
    EXPECT_FALSE(Units().IsChecked());
    EXPECT_FALSE(Zeros().IsChecked());
    EXPECT_THAT(preview->calls, ElementsAre("Update"));
}

TEST_F(ReportPreviewOptions, WhatWasRememberedIsAppliedAtOnce)
{
    Remember(1, 1, 5);
    Built();
    EXPECT_TRUE(Units().IsChecked());
    EXPECT_TRUE(Zeros().IsChecked());
    EXPECT_EQ(Digits().Value(), 5);
    EXPECT_THAT(preview->calls, ElementsAre("Update", "Units", "Update", "TrailingDigits", "Units",
                                            "Update", "TrailingZero", "Units", "Update"));
    EXPECT_THAT(Shown(), ElementsAre("200.000lb", "10.0000in"));
}

TEST_F(ReportPreviewOptions, OptionsThatWereOffTellNobody)
{
    Remember(0, 0, 1);
    Built();
    EXPECT_EQ(Digits().Value(), 1);
    EXPECT_THAT(preview->calls, ElementsAre("Update", "TrailingDigits", "Units", "Update"));
}

TEST_F(ReportPreviewOptions, DigitsOutsideOneToEightBecomeEightSilently)
{
    for (const int digits : {0, 9, -1}) {
        Remember(0, 0, digits);
        Built();
        EXPECT_EQ(Digits().Value(), 8) << digits;
        EXPECT_THAT(preview->calls, ElementsAre("Update")) << digits;
    }
}

TEST_F(ReportPreviewOptions, EightDigitsAreToldToo)
{
    Remember(0, 0, 8);
    Built();
    EXPECT_EQ(Digits().Value(), 8);
    EXPECT_THAT(preview->calls, ElementsAre("Update", "TrailingDigits", "Units", "Update"));
}

TEST_F(ReportPreviewOptions, HalfOfTheSettingsIsAsNone)
{
    CATSettingRepository::GetRepository("KR4WBClientSettings")->WriteSetting("DisplayUnits", 1);
    Built();
    EXPECT_FALSE(Units().IsChecked());
    EXPECT_EQ(Digits().Value(), 8);
    EXPECT_THAT(preview->calls, ElementsAre("Update"));
}

TEST_F(ReportPreviewOptions, AreRememberedWhenThePreviewIsDestroyed)
{
    Built();
    Click(*preview, "UnitsDisplay");
    Digits().SetValue(3);
    Close();
    EXPECT_EQ(Remembered(), (std::vector<int>{1, 0, 3}));
    Built();
    EXPECT_TRUE(Units().IsChecked());
    Click(*preview, "UnitsDisplay");
    Click(*preview, "TrailingZero");
    Close();
    EXPECT_EQ(Remembered(), (std::vector<int>{0, 1, 3}));
}

TEST_F(ReportPreviewOptions, AreInTheUsersFileAndStandEvenWhenSettingsAreRolledBack)
{
    Built();
    Click(*preview, "TrailingZero");
    Close();
    EXPECT_EQ(KR4WBClientSettings::Rollback(), S_OK);
    EXPECT_EQ(Remembered(), (std::vector<int>{0, 1, 8}));
    CATSettingRepository::CloseAll();
    EXPECT_TRUE(settings.Has("KR4WBClientSettings.CATSettings"));
    EXPECT_EQ(Remembered(), (std::vector<int>{0, 1, 8}));
}

TEST_F(ReportPreviewOptions, DigitsAreCutToAWholeNumber)
{
    Built();
    Digits().SetValue(2.75);
    Close();
    EXPECT_EQ(Remembered(), (std::vector<int>{0, 0, 2}));
}

TEST_F(ReportPreviewOptions, PreviewWithoutOptionsLeavesEverythingOff)
{
    Remember(1, 1, 5);
    Make();
    Close();
    EXPECT_EQ(Remembered(), (std::vector<int>{0, 0, 0}));
}

TEST_F(ReportPreviewOptions, UserWithoutAPlaceForSettingsHasAPreviewAllTheSame)
{
    Use("LENGTH", "in");
    CATSettingRepository::CloseAll();
    environment.Unset("CATUserSettingPath");
    Built();
    EXPECT_EQ(Digits().Value(), 8);
    EXPECT_THAT(Shown(), ElementsAre("200", "10"));
    Close();
}
