#pragma once

#include "platform/Date.h"

#include <cstdint>

namespace skyvert {

// Calendar dates and Julian dates, by Meeus, Astronomical Algorithms, chapter 7, with a calendar
// test of its own. A Julian date is a number of days that begins at noon: 0h of a calendar day ends
// in .5. Calendar dates are of the Julian calendar up to 4 October 1582 and of the Gregorian
// calendar from then on; the year before 1 is 0. No time zone is applied anywhere.

/// The part of `x` above the next lower or equal integer: Frac(-0.25) is 0.75.
double Frac(double x);

/// The next lower or equal integer: Int(-0.25) is -1. Beyond the range of integers it is the
/// last one there is, for NaN 0.
std::int64_t Int(double x);

/// The Julian date of a calendar date.
///
/// Given: the astronomical year, the month from 1 to 12 and the day, which may hold a fraction
/// (1.5 is noon on the first).
/// Nothing is refused: a date outside the calendar is put into the same formulas, and so are 5 to
/// 14 October 1582, as days of the Gregorian calendar. A year or month beyond 10 to the 15th counts
/// as that number.
double DateToJulian(std::int64_t year, std::int64_t month, double day);

/// The Julian date of 0h of the day. The time of day is not read, so the result ends in .5.
double DateToJulian(const Date& date);

/// The calendar date and time of a Julian date, rounded to the second. A moment that rounds to
/// midnight is put on the next day by the Gregorian calendar, whichever calendar the day is of.
///
/// The formulas hold for 0 and later. Earlier dates are put into them as well; those beyond 10 to
/// the 15th either way count as that number, and NaN gives no day of the calendar.
Date JulianToDate(double julianDate);

} // namespace skyvert
