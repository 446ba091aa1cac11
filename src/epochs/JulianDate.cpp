#include "epochs/JulianDate.h"

#include "platform/Number.h"

#include <algorithm>
#include <cmath>

namespace skyvert {

namespace {

// Limits year, month and Julian date: up to here integers are exact as doubles, and the formulas
// stay within 64 bits.
constexpr std::int64_t kFarthest = 1'000'000'000'000'000;

double toDouble(std::int64_t value) {
    return static_cast<double>(value);
}

/// The Gregorian calendar starts at day 5.0, not 15.0, and so includes the ten skipped days.
bool isJulianCalendar(std::int64_t year, std::int64_t month, double day) {
    return year < 1582 || (year == 1582 && (month < 10 || (month == 10 && day < 5.0)));
}

std::int64_t gregorianCorrection(std::int64_t year) {
    const std::int64_t century = Int(toDouble(year) / 100.0);
    return 2 - century + Int(toDouble(century) / 4.0);
}

/// Corrects a day number (the floor of a Julian date + 0.5) from the Gregorian to the Julian
/// calendar.
std::int64_t toJulianCalendar(std::int64_t dayNumber) {
    if (dayNumber < 2299161)
        return dayNumber;
    const std::int64_t alpha = Int((toDouble(dayNumber) - 1867216.25) / 36524.25);
    return Int(toDouble(dayNumber + 1 + alpha) - std::floor(toDouble(alpha) / 4.0));
}

/// The date and time of a day with a fraction, rounded to the second.
Date withTimeOfDay(std::int64_t year, std::int64_t month, double day) {
    double hours = Frac(day) * 24.0;
    double minutes = (hours - std::floor(hours)) * 60.0;
    std::int64_t seconds = truncated(Round((minutes - std::floor(minutes)) * 60.0));
    double extraSeconds = 0.0;
    if (seconds == 60) {
        seconds = 0;
        minutes += 1.0;
    }
    if (std::floor(minutes) == 60.0) {
        minutes = 0.0;
        hours += 1.0;
    }
    if (std::floor(hours) == 24.0) {
        hours = 0.0;
        extraSeconds = 86400.0;
    }
    Date date(year, month, Int(day), Int(hours), Int(minutes), seconds);
    // Only if the time rounds to the next day: `TotalSeconds` would turn 29 February 1500, which
    // exists only in the Julian calendar, into 1 March.
    if (extraSeconds != 0.0)
        date.setTotalSeconds(date.TotalSeconds() + extraSeconds);
    return date;
}

} // namespace

double Frac(double x) {
    return x - std::floor(x);
}

std::int64_t Int(double x) {
    return truncated(std::floor(x));
}

double DateToJulian(std::int64_t year, std::int64_t month, double day) {
    year = std::clamp(year, -kFarthest, kFarthest);
    month = std::clamp(month, -kFarthest, kFarthest);
    const bool endsYear = month <= 2; // January and February count as months 13 and 14
    const std::int64_t y = endsYear ? year - 1 : year;
    const std::int64_t m = endsYear ? month + 12 : month;
    const std::int64_t b = isJulianCalendar(year, month, day) ? 0 : gregorianCorrection(y);
    const std::int64_t p = Int(365.25 * toDouble(y + 4716));
    const std::int64_t q = Int(30.6001 * toDouble(m + 1));
    return toDouble(p + q) + day + toDouble(b) - 1524.5;
}

double DateToJulian(const Date& date) {
    return DateToJulian(date.year, date.month, toDouble(date.day));
}

Date JulianToDate(double julianDate) {
    const double t = std::clamp(julianDate, -toDouble(kFarthest), toDouble(kFarthest)) + 0.5;
    const std::int64_t b = toJulianCalendar(Int(t)) + 1524;
    const std::int64_t c = Int((toDouble(b) - 122.1) / 365.25);
    const std::int64_t d = Int(365.25 * toDouble(c));
    const std::int64_t e = Int(toDouble(b - d) / 30.6001);
    const double day = toDouble(b - d) - std::floor(30.6001 * toDouble(e)) + Frac(t);
    const std::int64_t month = e < 14 ? e - 1 : e - 13;
    const std::int64_t year = month > 2 ? c - 4716 : c - 4715;
    return withTimeOfDay(year, month, day);
}

} // namespace skyvert
