#include "platform/Date.h"

#include "platform/Clock.h"
#include "support/Table.h"

#include <ctime>

namespace skyvert::date_test {

TEST(Date, CountsSecondsAndDaysOfTheYearByTheProlepticGregorianCalendar) {
    for (const auto& [cell, totalSeconds, dayOfYear] : table<3>("dates")) {
        const Date day = date(cell);
        EXPECT_EQ(day.TotalSeconds(), number(totalSeconds));
        EXPECT_EQ(day.DayOfYear(), std::stoi(dayOfYear));
        Date counted(1, 1, 1);
        counted.setTotalSeconds(number(totalSeconds));
        EXPECT_EQ(counted, day);
    }
    EXPECT_EQ(Date(2023, 13, 32).TotalSeconds(), Date(2024, 2, 1).TotalSeconds());
}

TEST(Date, SQLDateAcceptsOnlyRealDaysAndKeepsTheTimeOfDay) {
    Date date(-12, 2, 31, 11, 22, 33);
    EXPECT_EQ(date.SQLDate(), "-0012-02-31") << "fields are stored as given";
    for (const auto& [text] : table<1>("refused_dates"))
        EXPECT_THROW(date.setSQLDate(text), std::invalid_argument) << text;
    EXPECT_EQ(date, Date(-12, 2, 31, 11, 22, 33));
    for (const char* text : {"0001-01-01", "1582-10-10", "9999-12-31", "2000-02-29"})
        date.setSQLDate(text);
    EXPECT_EQ(date, Date(2000, 2, 29, 11, 22, 33));
}

TEST(Date, TypedTextIsACalendarDayOrNothing) {
    for (const auto& [typed, day] : table<2>("typed_dates")) {
        const auto date = Date::fromTyped(typed);
        EXPECT_EQ(date ? date->SQLDate() : "none", day) << typed;
    }
}

#ifndef _WIN32
TEST(SystemClock, GivesTheTimeInTheLocalTimeZone) {
    for (const auto& [zone, hours] : {std::pair{"UTC+12", -12}, {"UTC-14", 14}}) {
        setenv("TZ", zone, 1);
        tzset();
        const auto universal = static_cast<double>(std::time(nullptr));
        EXPECT_NEAR(SystemClock().now().TotalSeconds() - universal, hours * 3600.0, 60.0);
    }
    unsetenv("TZ");
}
#endif

} // namespace skyvert::date_test
