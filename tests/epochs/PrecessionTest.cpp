#include "epochs/Precession.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <numbers>


namespace skyvert::precession_test {

constexpr double kB1950 = 2433282.5;
constexpr double kJ2000 = 2451544.5;

TEST(Precession, GivesTheKnownValuesToTheLastDigit) {
    // The tolerances are half a unit of the last digit given.
    const std::tuple<double, double, Pair, Pair, double, double> cases[] = {
        {2451545.0, 2451545.0, {12.0, 45.0}, {12.0000000001, 44.9999999486}, 5e-11, 5e-11},
        {2451545.0, 2451545.0, {11.5, 0.0}, {11.50000000002084, 0.0}, 5e-12, 0.0},
        {kJ2000, kJ2000, {0.0, 0.0}, {0.0, 0.0}, 0.0, 0.0},
        {kJ2000, kJ2000, {0.0, -89.9}, {0.0, -89.89999989730201}, 0.0, 5e-13},
        {2000.0, 2451545.0, {0.0, 0.0}, {0.0, 0.0}, 0.0, 0.0},
        {2050.0, 2469807.5, {0.0, 0.0}, {0.0, 0.0}, 0.0, 0.0},
        {1900.0, 2415020.3135, {0.0, 0.0}, {0.0, 0.0}, 0.0, 0.0},
        {kB1950, kJ2000, {0.0, 0.0}, {0.04270044351, 0.2783927200}, 5e-12, 5e-11},
        {1950.0, 2000.0, {0.0, 0.0}, {0.04270179166, 0.2784015073}, 5e-12, 5e-11},
        {kB1950, kJ2000, {6.0, 89.5}, {7.978173785, 89.42636335}, 5e-10, 5e-9},
        {kB1950, kJ2000, {6.0, -89.5}, {4.097122506, -89.42908221}, 5e-10, 5e-9},
        {kB1950, kJ2000, {0.0, 90.0}, {12.02135192, 89.72160303}, 5e-9, 5e-9},
        {kB1950, kJ2000, {0.0, -90.0}, {0.02135193849, -89.72160283}, 5e-12, 5e-9},
        {kJ2000, kJ2000, {25.0, 0.0}, {1.0, 0.0}, 1e-8, 0.0},
        {kJ2000, kJ2000, {-1.0, 0.0}, {23.0, 0.0}, 1e-8, 0.0}};

    for (const auto& [from, to, position, expected, raTolerance, decTolerance] : cases) {
        const Pair result = ConvertEpoch(from, to, position);
        EXPECT_NEAR(result.Left, expected.Left, raTolerance);
        EXPECT_NEAR(result.Right, expected.Right, decTolerance);
    }
}

/// Milliseconds of arc between two positions along the great circle (haversines).
double separation(const Pair& a, const Pair& b) {
    constexpr double degree = std::numbers::pi / 180.0;
    const auto haversine = [](double angle) { return std::pow(std::sin(angle / 2.0), 2.0); };
    const double h = haversine((a.Right - b.Right) * degree) +
                     std::cos(a.Right * degree) * std::cos(b.Right * degree) *
                         haversine((a.Left - b.Left) * 15.0 * degree);
    return 2.0 * std::asin(std::sqrt(h)) / degree * 3600.0 * 1000.0;
}

TEST(Precession, AgreesWithAnIndependentImplementation) {
    std::ifstream table(SKYVERT_TEST_DATA "/erfa_prec76.tsv");
    std::string header;
    std::getline(table, header);
    double from = 0.0, to = 0.0;
    Pair in{}, out{};
    int rows = 0;
    for (; table >> from >> to >> in.Left >> in.Right >> out.Left >> out.Right; ++rows)
        EXPECT_LT(separation(ConvertEpoch(from, to, in), out), 0.5) << in.Left << ' ' << in.Right;
    EXPECT_EQ(rows, 40);
}

TEST(Normalise, TurnsIntoTheClosedRange) {
    constexpr double turn = 6.2831853072;

    const std::array<double, 4> cases[] = {
        {turn, 0.0, turn, turn}, {0.0, 0.0, turn, 0.0}, {-1.0, 0.0, 2.0, 1.0}, {5.0, 0.0, 2.0, 1.0},
        {9.0, -3.0, -1.0, -1.0}, {-7.0, 0.0, turn, 5.5663706144}, {1e15, 0.0, 2.0, 0.0},
        {-1e15 + 1, 0, 2.0, 1.0}, {1e300, 0.0, 2.0, 0.0}};

    for (const auto& [value, low, high, expected] : cases)
        EXPECT_DOUBLE_EQ(Normalise(value, low, high), expected) << value;
    for (const double value : {std::nan(""), HUGE_VAL, -HUGE_VAL})
        EXPECT_TRUE(std::isnan(Normalise(value, 0.0, 2.0)));
    constexpr double far = -9007199254740992.0;
    EXPECT_TRUE(std::isfinite(Normalise(far - 4.0, far, far + 1.0))) << "a span lost in rounding";
}

} // namespace skyvert::precession_test
