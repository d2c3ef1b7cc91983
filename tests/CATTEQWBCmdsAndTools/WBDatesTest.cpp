#include "WBDates.h"
#include "CATWBServices.h"

#include "ModuleSession.h"

namespace
{

constexpr const char* kFormat = "%Y/%m/%d";

long ReadDate(const char* text, CATTime& time, const char* format = kFormat)
{
    return CATWBServices::GetDateFromText(text, format, " ", "/", ":", true, time);
}

long ReadDateAndTime(const char* text, CATTime& time, const char* format)
{
    return CATWBServices::GetDateFromText(text, format, " ", "/", ":", false, time);
}

TEST(GetDateFromText, DateAsTheFormatWritesItIsTaken)
{
    const DiagnosticCapture heard;
    CATTime time;
    EXPECT_EQ(ReadDate("2010/07/01", time), S_OK);
    EXPECT_EQ(time, CATTime(2010, 7, 1));
    EXPECT_THAT(heard.Lines(), testing::ElementsAre("number of tokens: 3"));
}

TEST(GetDateFromText, DelimiterMayBeAnyText)
{
    const SilentStreams silent;
    CATTime time;
    EXPECT_EQ(
        CATWBServices::GetDateFromText("2010--07--01", "%Y--%m--%d", " ", "--", ":", true, time),
        S_OK);
    EXPECT_EQ(time, CATTime(2010, 7, 1));
}

TEST(GetDateFromText, RefusalNamesItsReasonAndLeavesTheOutput)
{
    struct Row
    {
        const char* text;
        const char* reason;
    };
    const SilentStreams silent;
    for (const Row& row : {
             Row{"2010-07-01", "Could not decode the input text!"},
             Row{"", "Could not decode the input text!"},
             Row{"2010/07", "Invalid date string has been supplied!"},
             Row{"2010//07/01", "Invalid date string has been supplied!"},
             Row{"/2010/07/01", "Invalid date string has been supplied!"},
             Row{"year/07/01", "Unable to convert the input YMD text date to numbers!"},
             Row{"2010/July/01", "Unable to convert the input YMD text date to numbers!"},
             Row{"2010/07/first", "Unable to convert the input YMD text date to numbers!"},
             Row{"2010/06/31", "Could not build a valid CATTime object from numbers!"},
             Row{"2010/13/01", "Could not build a valid CATTime object from numbers!"},
             Row{"2010/7/1", "The date obtained is not the same as the date entered by the user!"},
             Row{"2010/07/01/02",
                 "The date obtained is not the same as the date entered by the user!"},
         }) {
        const DiagnosticCapture heard(CATDiagnosticErrors());
        CATTime time(2000, 1, 2);
        EXPECT_EQ(ReadDate(row.text, time), E_FAIL) << row.text;
        EXPECT_EQ(time, CATTime(2000, 1, 2)) << row.text;
        EXPECT_THAT(heard.Lines(), testing::ElementsAre(row.reason)) << row.text;
    }
}

TEST(GetDateFromText, TokensAreCountedUpToTheFirstEmptyOne)
{
    const SilentStreams silent;
    const DiagnosticCapture heard;
    CATTime time;
    ReadDate("2010/07//01", time);
    EXPECT_THAT(heard.Lines(), testing::ElementsAre("number of tokens: 2"));
}

TEST(GetDateFromText, TimeIsExpectedUnlessTheDateStandsAlone)
{
    const SilentStreams silent;
    for (const char* text : {"2010/07/01", "2010/07/01 10", "2010/07/01-10:20:30"}) {
        const DiagnosticCapture heard(CATDiagnosticErrors());
        CATTime time;
        EXPECT_EQ(ReadDateAndTime(text, time, kFormat), E_FAIL) << text;
        EXPECT_THAT(heard.Lines(), testing::ElementsAre("Could not decode the input text!"));
    }
}

TEST(GetDateFromText, OrdinaryDateWithTimeIsRefused)
{
    // The separator's place, 10, is used on "01 10:20:30" alone: nothing is left for the time.
    const SilentStreams silent;
    const DiagnosticCapture heard(CATDiagnosticErrors());
    CATTime time;
    EXPECT_EQ(ReadDateAndTime("2010/07/01 10:20:30", time, "%Y/%m/%d %H:%M:%S"), E_FAIL);
    EXPECT_THAT(heard.Lines(), testing::ElementsAre("Invalid date string has been supplied!"));
}

// The separator comes first at place 4, so the day is "0001" and the time what follows five
// characters of "0001 10:07:30".
constexpr const char* kEarlySeparator = "2010 y/07/0001 10:07:30";

TEST(GetDateFromText, SecondPartOfTheTimeBecomesTheMonthAndTheMinuteIsZero)
{
    const SilentStreams silent;
    CATTime time;
    EXPECT_EQ(ReadDateAndTime(kEarlySeparator, time, "%Y y/%m/00%d %H:%m:%S"), S_OK);
    EXPECT_EQ(time, CATTime(2010, 7, 1, 10, 0, 30));
}

TEST(GetDateFromText, TimeBeginsBehindTheSeparatorsPlace)
{
    // Here the separator is a letter, which a number could not begin with.
    const SilentStreams silent;
    CATTime time;
    EXPECT_EQ(CATWBServices::GetDateFromText("2010Ty/07/0001T10:07:30", "%YTy/%m/00%dT%H:%m:%S",
                                             "T", "/", ":", false, time),
              S_OK);
    EXPECT_EQ(time, CATTime(2010, 7, 1, 10, 0, 30));
}

TEST(GetDateFromText, TimeThatDisagreesWithThatReadingIsRefused)
{
    const SilentStreams silent;
    for (const char* text : {"2010 y/07/0001 10:08:30", kEarlySeparator}) {
        const DiagnosticCapture heard(CATDiagnosticErrors());
        CATTime time;
        EXPECT_EQ(ReadDateAndTime(text, time, "%Y y/%m/00%d %H:%M:%S"), E_FAIL);
        EXPECT_THAT(heard.Lines(),
                    testing::ElementsAre(
                        "The date obtained is not the same as the date entered by the user!"));
    }
}

TEST(GetDateFromText, TimeThatIsNoTimeIsRefused)
{
    struct Row
    {
        const char* text;
        const char* reason;
    };
    const SilentStreams silent;
    for (const Row& row : {
             Row{"2010 y/07/0001 10:07", "Invalid date string has been supplied!"},
             Row{"2010 y/07/0001 10::30", "Invalid date string has been supplied!"},
             Row{"2010 y/07/0001 ab:07:30",
                 "Unable to convert the input HMS text date to numbers!"},
             Row{"2010 y/07/0001 10:ab:30",
                 "Unable to convert the input HMS text date to numbers!"},
             Row{"2010 y/07/0001 10:07:ab",
                 "Unable to convert the input HMS text date to numbers!"},
             Row{"2010 y/07/0001 25:07:30", "Could not build a valid CATTime object from numbers!"},
             // A separator in front leaves no character for the day.
             Row{" 2010/07/01 10:07:30", "Unable to convert the input YMD text date to numbers!"},
         }) {
        const DiagnosticCapture heard(CATDiagnosticErrors());
        CATTime time;
        EXPECT_EQ(ReadDateAndTime(row.text, time, "%Y y/%m/00%d %H:%m:%S"), E_FAIL) << row.text;
        EXPECT_THAT(heard.Lines(), testing::ElementsAre(row.reason)) << row.text;
    }
}

TEST(AssignTime, HandsAGoodDateOver)
{
    CATTime time;
    EXPECT_EQ(AssignTime(CATTime(2010, 7, 1), time), S_OK);
    EXPECT_EQ(time, CATTime(2010, 7, 1));
}

TEST(AssignTime, SaysWhenNoDateArrives)
{
    const DiagnosticCapture heard(CATDiagnosticErrors());
    CATTime time(2010, 7, 1);
    EXPECT_EQ(AssignTime(CATTime(), time), E_FAIL);
    EXPECT_THAT(heard.Lines(),
                testing::ElementsAre("An error occurred while assigning the newly obtained "
                                     "CATTime object's value to the output object!"));
}

} // namespace
