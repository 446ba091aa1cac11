#include "epochs/JulianDate.h"

#include <gtest/gtest.h>


namespace skyvert::julian_date_test {

TEST(JulianDate, OfCalendarDatesOnBothSidesOfTheReform) {
    const std::tuple<std::int64_t, std::int64_t, double, double> cases[] = {
        {1900, 1, 1.0, 2415020.5}, {1950, 1, 1.0, 2433282.5}, {2000, 1, 1.0, 2451544.5},
        {2050, 1, 1.0, 2469807.5}, {2000, 1, 1.5, 2451545.0}, {-4712, 1, 1.5, 0.0},
        {837, 4, 10.3, 2026871.8}, {-1000, 2, 29.0, 1355866.5}, {1582, 10, 4.0, 2299159.5},
        {1582, 10, 4.9, 2299160.4}, {1582, 10, 5.0, 2299150.5}, {1582, 10, 14.0, 2299159.5},
        {1582, 10, 15.0, 2299160.5}, {1582, 9, 30.0, 2299155.5}, {1582, 11, 1.0, 2299177.5},
        {2000, 13, 1.0, 2451910.5}, {2001, 2, 31.0, 2451971.5}};

    for (const auto& [year, month, day, julianDate] : cases)
        EXPECT_EQ(DateToJulian(year, month, day), julianDate);
    EXPECT_EQ(Int(-0.25), -1);
    EXPECT_EQ(Frac(-0.25), 0.75);
    EXPECT_EQ(DateToJulian(Date(2000, 1, 1, 18, 30, 0)), 2451544.5) << "the clock is not read";
}

TEST(JulianDate, BecomesADateRoundedToTheSecond) {
    const std::pair<double, Date> cases[] = {
        {2299160.5, {1582, 10, 15}}, {2299159.5, {1582, 10, 4}},
        {2451545.0, {2000, 1, 1, 12, 0, 0}}, {2436116.31, {1957, 10, 4, 19, 26, 24}},
        {0.0, {-4712, 1, 1, 12, 0, 0}}, {1355866.5, {-1000, 2, 29}}, // of the Julian calendar only
        {2451544.4999999, {2000, 1, 1}}, {2451604.4999999, {2000, 3, 1}}}; // through three carries
    for (const auto& [julianDate, date] : cases)
        EXPECT_EQ(JulianToDate(julianDate), date) << julianDate;
    for (double julianDate = -0.5; julianDate < 5373484.5; julianDate += 1.0)
        ASSERT_EQ(DateToJulian(JulianToDate(julianDate)), julianDate);
}

} // namespace skyvert::julian_date_test
