#pragma once

#include "platform/Date.h"

#include <cstdint>

namespace skyvert {

// Calendar dates and Julian dates. A Julian date counts days that begin at noon: 0h of a calendar
// day ends in .5. Calendar dates are Julian up to 4 October 1582 and Gregorian after it; years are
// astronomical: the year before 1 is 0. No time zone is applied.
//
// Reference: Meeus, J., Astronomical Algorithms, chapter 7, except for the test of the calendar. He
// uses 30.6001 instead of 30.6 so that a product such as 5 x 30.6 cannot come out below 153.

/// `x` minus its floor, from 0 to less than 1: Frac(-0.25) is 0.75.
double Frac(double x);

/// The floor of `x`, clamped to the range of the integer; 0 for NaN. Int(-0.25) is -1.
std::int64_t Int(double x);

/// The Julian date of a calendar date.
///
/// Given: the astronomical year; the month, from 1 to 12; the day, which may have a fraction (1.5
/// is noon on the first).
/// Returned: the Julian date, in days.
/// Notes: No date is refused; the formulas are applied to impossible dates as well. 5 to 14 October
/// 1582 count as Gregorian. Year and month are clamped to +-10^15.
double DateToJulian(std::int64_t year, std::int64_t month, double day);

/// The Julian date, in days, of 0h on a calendar day; it ends in .5. The time of day is ignored.
double DateToJulian(const Date& date);

/// The calendar date and time of a Julian date.
///
/// Given: a Julian date, in days. The formulas are valid from 0 on but are applied to negative
/// values as well; values are clamped to +-10^15.
/// Returned: the date and time, rounded to the second; for NaN, a date that is not in the calendar.
/// Notes: A time that rounds to 24h becomes 0h of the next day in the Gregorian calendar, even for
/// a day of the Julian calendar.
Date JulianToDate(double julianDate);

} // namespace skyvert
