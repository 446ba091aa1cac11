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
constexpr double kSecondsOfDay = 86400.0;
constexpr ch::year kFirstTypedYear{100};

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

/// Appends `value`, padded with zeros to `width` digits; a minus is not counted.
void appendPadded(std::int64_t value, std::size_t width, std::string& out) {
    const std::string digits = std::to_string(value);
    const std::size_t sign = value < 0 ? 1 : 0;
    out.append(digits, 0, sign);
    out.append(width - std::min(width, digits.size() - sign), '0');
    out.append(digits, sign);
}

/// The value of a text that is all digits; otherwise 0, which is not a valid year, month or day.
unsigned wholeNumber(std::string_view text) {
    unsigned number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? number : 0;
}

/// The texts of year, month and day.
using DayFields = std::array<std::string_view, 3>;

/// The day given by at most four, two and two digits; nothing if it does not exist or its year is
/// before 1.
std::optional<ch::year_month_day> dayOf(const DayFields& fields) {
    if (fields[0].size() > 4 || fields[1].size() > 2 || fields[2].size() > 2)
        return std::nullopt;
    const ch::year_month_day civil(ch::year(static_cast<int>(wholeNumber(fields[0]))),
                                   ch::month(wholeNumber(fields[1])),
                                   ch::day(wholeNumber(fields[2])));
    return civil.ok() && civil.year() >= ch::year(1) ? std::optional(civil) : std::nullopt;
}

/// Splits a typed date into three fields; nothing if there are more.
std::optional<DayFields> typedFields(std::string_view text) {
    if (text.size() == 8 && std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; }))
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
    return dayNumber(year, month, day) * kSecondsOfDay + static_cast<double>(hour) * 3600.0 +
           static_cast<double>(minute) * 60.0 + static_cast<double>(second);
}

void Date::setTotalSeconds(double seconds) {
    const ch::sys_days origin;
    const Quotient days = floorDivide(truncated(std::floor(seconds)), 86400);
    const Quotient cycle = floorDivide(days.whole, kCycleDays);
    const ch::year_month_day civil(origin + ch::days(cycle.remainder));
    const ch::hh_mm_ss clock{ch::seconds(days.remainder)};
    *this = Date(int{civil.year()} + cycle.whole * kCycleYears, unsigned{civil.month()},
                 unsigned{civil.day()}, clock.hours().count(), clock.minutes().count(),
                 clock.seconds().count());
}

std::string Date::SQLDate() const {
    std::string text;
    appendPadded(year, 4, text);
    text += '-';
    appendPadded(month, 2, text);
    text += '-';
    appendPadded(day, 2, text);
    return text;
}

void Date::setSQLDate(std::string_view text) {
    const bool shaped = text.size() == 10 && text[4] == '-' && text[7] == '-';
    const auto civil =
        shaped ? dayOf({text.substr(0, 4), text.substr(5, 2), text.substr(8)}) : std::nullopt;
    if (!civil)
        throw std::invalid_argument("\"" + std::string(text) + "\" is no date");
    year = int{civil->year()};
    month = unsigned{civil->month()};
    day = unsigned{civil->day()};
}

std::optional<Date> Date::fromTyped(std::string_view text) {
    const auto fields = typedFields(Trim(text));
    const auto civil = fields ? dayOf(*fields) : std::nullopt;
    if (!civil || civil->year() < kFirstTypedYear)
        return std::nullopt;
    return Date(int{civil->year()}, unsigned{civil->month()}, unsigned{civil->day()});
}

std::int64_t Date::DayOfYear() const {
    const std::int64_t cycleYear = floorDivide(year, kCycleYears).remainder;
    return truncated(dayNumber(cycleYear, month, day) - dayNumber(cycleYear, 1, 1) + 1.0);
}

} // namespace skyvert
