#pragma once

#include "CATUnicodeString.h"

#include <functional>

/// A calendar date with a time of day, to the second, without a time zone.
class WB_EXPORT CATTime
{
public:
    /// An unset time: its status is bad.
    CATTime() = default;
    /// A date that the calendar does not know (31 June, month 13) or a time outside the day makes
    /// the status bad. `year` is the full year, `month` and `day` count from 1.
    CATTime(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);

    /// The present, in the user's time zone, as the session's clock tells it.
    static CATTime Now();
    /// Puts another clock in the session's place (seconds since 1970-01-01 UTC); an empty one
    /// brings the system's back.
    static void SetClock(std::function<long long()> clock);

    bool IsValid() const { return m_valid; }
    int Year() const { return m_year; }
    int Month() const { return m_month; }
    int Day() const { return m_day; }
    int Hour() const { return m_hour; }
    int Minute() const { return m_minute; }
    int Second() const { return m_second; }

    /// The time by a format of conversion codes: %Y (four digits), %m, %d, %H, %M, %S (two digits)
    /// and %%; other characters stand for themselves. A bad time gives the empty text.
    CATUnicodeString ToText(const CATUnicodeString& format) const;
    friend bool operator==(const CATTime&, const CATTime&) = default;

private:
    int m_year = 0;
    int m_month = 0;
    int m_day = 0;
    int m_hour = 0;
    int m_minute = 0;
    int m_second = 0;
    bool m_valid = false;
};
