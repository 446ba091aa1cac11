#include "platform/Date.h"

#include "platform/Clock.h"

#include <gtest/gtest.h>

#include <ctime>

namespace skyvert::date_test {

TEST(Date, CountsSecondsAndDaysOfTheYearByTheProlepticGregorianCalendar) {
    const std::tuple<Date, double, std::int64_t> cases[] = {
        {{1970, 1, 1}, 0.0, 1}, {{2001, 9, 9, 1, 46, 40}, 1e9, 252},
        {{1969, 12, 31, 23, 59, 59}, -1.0, 365}, {{2000, 12, 31}, 978220800.0, 366},
        {{1900, 12, 31}, -2177539200.0, 365}, {{-4712, 3, 1}, -210858336000.0, 61},
        {{400000, 1, 1}, 12560613580800.0, 1}};

    for (const auto& [date, totalSeconds, dayOfYear] : cases) {
        EXPECT_EQ(date.TotalSeconds(), totalSeconds);
        EXPECT_EQ(date.DayOfYear(), dayOfYear);
        Date counted(1, 1, 1);
        counted.setTotalSeconds(totalSeconds);
        EXPECT_EQ(counted, date);
    }
    EXPECT_EQ(Date(2023, 13, 32).TotalSeconds(), Date(2024, 2, 1).TotalSeconds());
}

TEST(Date, SQLDateTakesRealDaysOnlyAndKeepsTheClockTime) {
    Date date(-12, 2, 31, 11, 22, 33);
    EXPECT_EQ(date.SQLDate(), "-0012-02-31") << "fields stay as they are given";
    for (const char* text :
         {"", "2000-1-01", "2000-01-1 ", "2000/01/01", "2000-01/01", "0000-01-01", "1900-02-29", "2000-13-01",
          "2000-00-10", "2000-04-31", "-200-01-01", "2000-+1-01", "2000-01-01T", "20 0-01-01"})
        EXPECT_THROW(date.setSQLDate(text), std::invalid_argument) << text;
    EXPECT_EQ(date, Date(-12, 2, 31, 11, 22, 33));
    for (const char* text : {"0001-01-01", "1582-10-10", "9999-12-31", "2000-02-29"})
        date.setSQLDate(text);
    EXPECT_EQ(date, Date(2000, 2, 29, 11, 22, 33));
}

TEST(Date, WhatIsTypedIsADayOfTheCalendarOrNothing) {
    const std::pair<const char*, const char*> cases[] = {
        {"2010-06-15", "2010-06-15"}, {" 2010/6/5 ", "2010-06-05"}, {"20100615", "2010-06-15"}, {"130.1.1", "0130-01-01"},
        {"0100-01-01", "0100-01-01"}, {"9999 12 31", "9999-12-31"}, {"2000-02-29", "2000-02-29"}, {"0099-12-31", "none"},
        {"2023-02-30", "none"}, {"1900-02-29", "none"}, {"2010-06-271", "none"}, {"2010-06-15-1", "none"}, {"20101301", "none"},
        {"2010-06", "none"}, {"02010-06-15", "none"}, {"2010--15", "none"}, {"", "none"}, {"-", "none"}, {"2010-06-1x", "none"}};
    for (const auto& [typed, day] : cases) {
        const auto date = Date::fromTyped(typed);
        EXPECT_EQ(date ? date->SQLDate() : "none", day) << typed;
    }
}

#ifndef _WIN32
TEST(SystemClock, TellsTheTimeOfItsTimeZone) {
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
