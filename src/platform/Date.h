#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace skyvert {

/// A date and time of day in the proleptic Gregorian calendar, without a time zone.
///
/// The six fields are stored unchecked: they can be assigned one after the other through
/// combinations that no calendar has, and they can hold a day of the Julian calendar.
struct Date {
    Date(std::int64_t year, std::int64_t month, std::int64_t day, std::int64_t hour = 0,
         std::int64_t minute = 0, std::int64_t second = 0)
        : year(year), month(month), day(day), hour(hour), minute(minute), second(second) {}

    bool operator==(const Date&) const = default;

    /// Seconds since 1970-01-01 00:00:00 by the same clock, 86400 in every day. Fields outside
    /// their ranges carry over: 32 January is 1 February. Exact to the second for more than 200
    /// million years around the origin.
    double TotalSeconds() const;

    /// Sets all six fields from a count of seconds. A fraction of a second is dropped; NaN counts
    /// as 0. Adding 86400.0 gives the same clock time on the next calendar day.
    void setTotalSeconds(double seconds);

    /// The calendar day as four, two and two digits, for instance "2000-01-01", with more digits or
    /// a minus where a field needs them.
    std::string SQLDate() const;

    /// Sets year, month and day from a text in the form of `SQLDate`; the clock time is kept.
    /// Throws `std::invalid_argument` and changes nothing unless the text is exactly ten characters
    /// and names a day of the years 0001 to 9999.
    void setSQLDate(std::string_view text);

    /// The day, at 0h, that a person has typed as year, month and day with "-", "/", "." or a blank
    /// between them, or as eight digits. Nothing for any other text, for a day that the calendar
    /// does not have, and outside the years 100 to 9999.
    static std::optional<Date> fromTyped(std::string_view text);

    /// 1 for 1 January, 366 for 31 December of a leap year.
    std::int64_t DayOfYear() const;

    std::int64_t year; ///< astronomical: the year before 1 is 0
    std::int64_t month;
    std::int64_t day;
    std::int64_t hour;
    std::int64_t minute;
    std::int64_t second;
};

} // namespace skyvert
