#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace skyvert {

/// A date and time of day in the proleptic Gregorian calendar, without a time zone.
///
/// The six fields are not checked: they may hold an impossible date while they are assigned one by
/// one, and they may hold a day of the Julian calendar.
struct Date {
    Date(std::int64_t year, std::int64_t month, std::int64_t day, std::int64_t hour = 0,
         std::int64_t minute = 0, std::int64_t second = 0)
        : year(year), month(month), day(day), hour(hour), minute(minute), second(second) {}

    bool operator==(const Date&) const = default;

    /// Seconds since 1970-01-01 00:00:00, with 86400 in every day. Fields outside their ranges
    /// carry over: 32 January is 1 February. Exact within 200 million years of the origin.
    double TotalSeconds() const;

    /// Sets all six fields from seconds since 1970-01-01 00:00:00, rounded down to a whole second;
    /// NaN counts as 0. Adding 86400.0 gives the same clock time on the next calendar day.
    void setTotalSeconds(double seconds);

    /// The calendar day as "YYYY-MM-DD". A field outside its range gets more digits or a minus.
    std::string SQLDate() const;

    /// The day as in `SQLDate` and the clock time, for instance "2000-01-01 12:00:00".
    std::string SQLDateTime() const;

    /// Sets year, month and day from "YYYY-MM-DD" and keeps the clock time. Throws
    /// `std::invalid_argument` and changes nothing unless the text has exactly that form and names
    /// an existing day of the years 1 to 9999.
    void setSQLDate(std::string_view text);

    static constexpr unsigned kFirstTypedYear = 100;
    static constexpr unsigned kLastTypedYear = 9999;

    /// Parses a typed date: year, month and day, separated by "-", "/", "." or a blank, or as eight
    /// digits. Returns that day at 0h; nothing for any other text, for a day that does not exist
    /// and outside the years `kFirstTypedYear` to `kLastTypedYear`.
    static std::optional<Date> fromTyped(std::string_view text);

    /// Parses a text in the form of `SQLDateTime`, or of `SQLDate` for 0h. Returns nothing for any
    /// other text, for a day or a time that does not exist and outside the years 0 to 9999.
    static std::optional<Date> fromSQL(std::string_view text);

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
