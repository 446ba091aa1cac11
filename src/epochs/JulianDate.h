#pragma once

#include "platform/Date.h"

#include <cstdint>

namespace skyvert {

// Calendar dates and Julian dates. A Julian date is a count of days that begin at noon: 0h of a
// calendar day ends in .5. Calendar dates belong to the Julian calendar up to 4 October 1582 and to
// the Gregorian calendar after it; years are astronomical, the year before 1 being 0. No time zone
// is applied.
//
// Reference: Meeus, J., Astronomical Algorithms, chapter 7; the calendar test is this program's
// own. His 30.6001 stands for 30.6, so that a product such as 5 x 30.6 cannot come out below 153.

/// The part of `x` above its floor, from 0 to less than 1: Frac(-0.25) is 0.75.
double Frac(double x);

/// The floor of `x`, limited to the range of the integer: Int(-0.25) is -1. 0 for NaN.
std::int64_t Int(double x);

/// The Julian date of a calendar date.
///
/// Given: the astronomical year; the month, from 1 to 12; the day, with a fraction if wanted (1.5
/// is noon on the first). Returned: the Julian date, in days. Notes: Nothing is refused. A date
/// outside the calendar goes through the same formulas; 5 to 14 October 1582 count as Gregorian.
/// Year and month are limited to 10^15 either way.
double DateToJulian(std::int64_t year, std::int64_t month, double day);

/// The Julian date of 0h of the date's day, in days. The time of day is ignored: the result ends in
/// .5.
double DateToJulian(const Date& date);

/// The calendar date and time of a Julian date.
///
/// Given: a Julian date, in days. The formulas hold from 0 on; lower values go through them as
/// well, and values are limited to 10^15 either way. Returned: the date and time, rounded to the
/// second; not a day of the calendar for NaN. Notes: A time that rounds to 24h becomes 0h of the
/// next day of the Gregorian calendar, in whichever calendar the day is.
Date JulianToDate(double julianDate);

} // namespace skyvert
