#include "platform/Date.h"

#include "platform/Number.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <stdexcept>

namespace skyvert {

namespace {

namespace ch = std::chrono;

// std::chrono has no years after 32767. The calendar repeats every 400 years, so any year is mapped
// into the first cycle and back.
constexpr std::int64_t kCycleYears = 400;
constexpr std::int64_t kCycleDays = 146097;
constexpr std::int64_t kMonths = 12;
constexpr std::int64_t kSecondsOfDay = 86400;

struct Quotient {
    std::int64_t whole;
    std::int64_t remainder; ///< 0 to divisor - 1
};

Quotient floorDivide(std::int64_t value, std::int64_t divisor) {
    const std::int64_t remainder = value % divisor;
    const bool below = remainder < 0;
    return {value / divisor - (below ? 1 : 0), below ? remainder + divisor : remainder};
}

/// Days from 1970-01-01 to a calendar day; a month or day out of range carries over.
double dayNumber(std::int64_t year, std::int64_t month, std::int64_t day) {
    const Quotient cycle = floorDivide(year, kCycleYears);
    // `month - 1` could overflow, so 1 is subtracted after the division.
    const Quotient months = floorDivide(month, kMonths);
    const Quotient years = floorDivide(cycle.remainder + months.whole, kCycleYears);
    const ch::year_month first = ch::year(static_cast<int>(years.remainder)) / ch::January +
                                 ch::months(months.remainder - 1);
    return static_cast<double>(cycle.whole + years.whole) * kCycleDays +
           static_cast<double>(ch::sys_days(first / 1).time_since_epoch().count()) +
           static_cast<double>(day) - 1.0;
}

/// A number, padded with zeros to `width` digits; a minus is not counted.
std::string padded(std::int64_t value, std::size_t width) {
    const std::string digits = std::to_string(value);
    const std::size_t sign = value < 0 ? 1 : 0;
    return digits.substr(0, sign) + zeroPadded(std::string_view(digits).substr(sign), width);
}

/// The value of a text of at most `mostDigits` digits; otherwise 0, which is not a valid year,
/// month or day.
unsigned wholeNumber(std::string_view text, std::size_t mostDigits) {
    unsigned number = 0;
    if (text.size() > mostDigits)
        return number;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? number : 0;
}

/// The texts of year, month and day.
using DayFields = std::array<std::string_view, 3>;

bool isCalendarDay(unsigned year, unsigned month, unsigned day) {
    return ch::year_month_day(ch::year(static_cast<int>(year)), ch::month(month), ch::day(day))
        .ok();
}

/// Parses the numbers of an SQL date, with or without its time. False for any other text.
bool readSQLFields(std::string_view text, std::array<unsigned, 6>& fields) {
    constexpr std::string_view dayLayout = "0000-00-00";
    constexpr std::string_view layout = "0000-00-00 00:00:00";
    if (text.size() != dayLayout.size() && text.size() != layout.size())
        return false;
    std::size_t field = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool wantsDigit = layout[at] == '0';
        if (wantsDigit ? !isDigit(text[at]) : text[at] != layout[at])
            return false;
        if (wantsDigit)
            fields[field] = 10 * fields[field] + static_cast<unsigned>(text[at] - '0');
        else
            ++field;
    }
    return true;
}

/// Splits a typed date into three fields; nothing if there are more.
std::optional<DayFields> typedFields(std::string_view text) {
    if (text.size() == 8 && std::ranges::all_of(text, isDigit))
        return DayFields{text.substr(0, 4), text.substr(4, 2), text.substr(6)};
    DayFields fields;
    for (std::string_view& field : fields) {
        field = text.substr(0, text.find_first_of("-/. "));
        text.remove_prefix(std::min(field.size() + 1, text.size()));
    }
    return text.empty() ? std::optional(fields) : std::nullopt;
}

} // namespace

double Date::TotalSeconds() const {
    return dayNumber(year, month, day) * static_cast<double>(kSecondsOfDay) +
           static_cast<double>(hour) * 3600.0 + static_cast<double>(minute) * 60.0 +
           static_cast<double>(second);
}

void Date::setTotalSeconds(double seconds) {
    const ch::sys_days origin;
    const Quotient days = floorDivide(truncated(std::floor(seconds)), kSecondsOfDay);
    const Quotient cycle = floorDivide(days.whole, kCycleDays);
    const ch::year_month_day civil(origin + ch::days(cycle.remainder));
    const ch::hh_mm_ss clock{ch::seconds(days.remainder)};
    *this = Date(int{civil.year()} + cycle.whole * kCycleYears, unsigned{civil.month()},
                 unsigned{civil.day()}, clock.hours().count(), clock.minutes().count(),
                 clock.seconds().count());
}

std::string Date::SQLDate() const {
    return padded(year, 4) + "-" + padded(month, 2) + "-" + padded(day, 2);
}

std::string Date::SQLDateTime() const {
    return SQLDate() + " " + padded(hour, 2) + ":" + padded(minute, 2) + ":" + padded(second, 2);
}

void Date::setSQLDate(std::string_view text) {
    const auto date = text.size() == 10 ? fromSQL(text) : std::nullopt;
    if (!date || date->year < 1)
        throw std::invalid_argument("\"" + std::string(text) + "\" is not a date");
    year = date->year;
    month = date->month;
    day = date->day;
}

std::optional<Date> Date::fromTyped(std::string_view text) {
    const auto fields = typedFields(Trim(text));
    if (!fields)
        return std::nullopt;
    const unsigned year = wholeNumber((*fields)[0], 4);
    const unsigned month = wholeNumber((*fields)[1], 2);
    const unsigned day = wholeNumber((*fields)[2], 2);
    if (year < kFirstTypedYear || !isCalendarDay(year, month, day))
        return std::nullopt;
    return Date(year, month, day);
}

std::optional<Date> Date::fromSQL(std::string_view text) {
    std::array<unsigned, 6> fields{};
    if (!readSQLFields(text, fields))
        return std::nullopt;
    const auto [year, month, day, hour, minute, second] = fields;
    if (!isCalendarDay(year, month, day) || hour > 23 || minute > 59 || second > 59)
        return std::nullopt;
    return Date(year, month, day, hour, minute, second);
}

std::int64_t Date::DayOfYear() const {
    const std::int64_t cycleYear = floorDivide(year, kCycleYears).remainder;
    return truncated(dayNumber(cycleYear, month, day) - dayNumber(cycleYear, 1, 1) + 1.0);
}

} // namespace skyvert
