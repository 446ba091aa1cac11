#include "epochs/JulianDate.h"
#include "epochs/Precession.h"
#include "support/Table.h"

#include <cmath>
#include <numbers>

namespace skyvert::epochs_test {

TEST(JulianDate, OfCalendarDatesOnBothSidesOfTheReform) {
    for (const auto& [year, month, day, julianDate] : table<4>("julian_dates"))
        EXPECT_EQ(DateToJulian(std::stoi(year), std::stoi(month), number(day)), number(julianDate));
    EXPECT_EQ(Int(-0.25), -1);
    EXPECT_EQ(Frac(-0.25), 0.75);
    EXPECT_EQ(DateToJulian(Date(2000, 1, 1, 18, 30, 0)), 2451544.5) << "the time of day is ignored";
}

TEST(JulianDate, ConvertsToADateRoundedToTheSecond) {
    for (const auto& [julianDate, calendar] : table<2>("dates_of_julian_dates"))
        EXPECT_EQ(JulianToDate(number(julianDate)), date(calendar)) << julianDate;
    for (double julianDate = -0.5; julianDate < 5373484.5; julianDate += 1.0)
        ASSERT_EQ(DateToJulian(JulianToDate(julianDate)), julianDate);
}

TEST(Precession, GivesKnownValuesToTheLastDigit) {
    for (const auto& [from, to, ra, dec, raOut, decOut, raTolerance, decTolerance] :
         table<8>("precession")) {
        const Pair result = ConvertEpoch(number(from), number(to), {number(ra), number(dec)});
        EXPECT_NEAR(result.Left, number(raOut), number(raTolerance));
        EXPECT_NEAR(result.Right, number(decOut), number(decTolerance));
    }
}

/// The great-circle distance of two positions in milliseconds of arc, by haversines.
double separation(const Pair& a, const Pair& b) {
    constexpr double degree = std::numbers::pi / 180.0;
    const auto haversine = [](double angle) { return std::pow(std::sin(angle / 2.0), 2.0); };
    const double h = haversine((a.Right - b.Right) * degree) +
                     std::cos(a.Right * degree) * std::cos(b.Right * degree) *
                         haversine((a.Left - b.Left) * 15.0 * degree);
    return 2.0 * std::asin(std::sqrt(h)) / degree * 3600.0 * 1000.0;
}

TEST(Precession, AgreesWithAnIndependentImplementation) {
    const auto rows = table<6>("erfa_prec76");
    for (const auto& [from, to, ra, dec, raOut, decOut] : rows)
        EXPECT_LT(separation(ConvertEpoch(number(from), number(to), {number(ra), number(dec)}),
                             {number(raOut), number(decOut)}),
                  0.5)
            << ra << ' ' << dec;
    EXPECT_EQ(rows.size(), 40U);
}

TEST(Normalise, WrapsAValueIntoTheClosedRange) {
    for (const auto& [value, low, high, result] : table<4>("normalised"))
        EXPECT_DOUBLE_EQ(Normalise(number(value), number(low), number(high)), number(result))
            << value;
    for (const double value : {std::nan(""), HUGE_VAL, -HUGE_VAL})
        EXPECT_TRUE(std::isnan(Normalise(value, 0.0, 2.0)));
    constexpr double far = -9007199254740992.0;
    EXPECT_TRUE(std::isfinite(Normalise(far - 4.0, far, far + 1.0))) << "rounding loses the span";
}

} // namespace skyvert::epochs_test
