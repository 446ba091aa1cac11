#include "epochs/JulianDate.h"

#include "support/Table.h"

namespace skyvert::julian_date_test {

TEST(JulianDate, OfCalendarDatesOnBothSidesOfTheReform) {
    for (const auto& [year, month, day, julianDate] : table<4>("julian_dates"))
        EXPECT_EQ(DateToJulian(std::stoi(year), std::stoi(month), number(day)), number(julianDate));
    EXPECT_EQ(Int(-0.25), -1);
    EXPECT_EQ(Frac(-0.25), 0.75);
    EXPECT_EQ(DateToJulian(Date(2000, 1, 1, 18, 30, 0)), 2451544.5) << "the clock is not read";
}

TEST(JulianDate, BecomesADateRoundedToTheSecond) {
    for (const auto& [julianDate, calendar] : table<2>("dates_of_julian_dates"))
        EXPECT_EQ(JulianToDate(number(julianDate)), date(calendar)) << julianDate;
    for (double julianDate = -0.5; julianDate < 5373484.5; julianDate += 1.0)
        ASSERT_EQ(DateToJulian(JulianToDate(julianDate)), julianDate);
}

} // namespace skyvert::julian_date_test
