#include "epochs/Precession.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace skyvert {

namespace {

// Rounded on purpose, not derived from pi: existing lists were computed with these decimals, and
// results must agree with them to the last digit. Conversion to radians and back changes a right
// ascension by about 1 part in 10^11 and a declination by about 1 part in 10^9.
constexpr double kRadiansPerHour = 0.2617993878;
constexpr double kRadiansPerDegree = 0.0174532925;
constexpr double kRadiansPerArcsecond = 4.848136805555555e-6; // 0.0174532925 / 3600
constexpr double kHoursPerRadian = 3.8197186342;
constexpr double kDegreesPerRadian = 57.2957795131;
constexpr double kFullTurn = 6.2831853072;

constexpr double kJ2000 = 2451545.0;
constexpr double kDaysPerCentury = 36525.0;

/// In degrees. Beyond it the declination is computed from the distance to the axis: near a pole the
/// sine is flat, so its inverse loses digits.
constexpr double kPolarDeclination = 89.0;

struct NamedEpoch {
    double year;
    double julianDate;
};

constexpr std::array<NamedEpoch, 4> kNamedEpochs{
    {{2000.0, kJ2000}, {2050.0, 2469807.5}, {1950.0, 2433282.4235}, {1900.0, 2415020.3135}}};

double toJulianDate(double epoch) {
    for (const NamedEpoch& named : kNamedEpochs) {
        if (epoch == named.year)
            return named.julianDate;
    }
    return epoch;
}

/// At a pole, rounding can carry a sine or cosine past 1.
double clampToUnit(double value) {
    return std::clamp(value, -1.0, 1.0);
}

/// The declination, in radians, of the direction (a, b, c), from its distance to the axis.
double polarDeclination(double a, double b, double c) {
    const double magnitude = std::acos(clampToUnit(std::sqrt(a * a + b * b)));
    return c < 0.0 ? -magnitude : magnitude;
}

} // namespace

double Normalise(double value, double low, double high) {
    // Up to this many turns the spans are added one by one, which rounds as existing results do.
    // Beyond it that would take too long.
    constexpr double kManyTurns = 1e6;
    const double span = high - low;
    double r = value;
    if (!(std::abs(value - low) <= kManyTurns * span))
        r = low + std::fmod(value - low, span);
    // A span too small to change r would loop forever.
    while (r < low && r + span > r)
        r += span;
    while (r > high && r - span < r)
        r -= span;
    return r;
}

Precession::Precession(double fromJulian, double toJulian) {
    const double j1 = toJulianDate(fromJulian);
    const double j2 = toJulianDate(toJulian);
    const double T = (j1 - kJ2000) / kDaysPerCentury;
    const double t = (j2 - j1) / kDaysPerCentury;
    const double T2 = T * T;
    const double t2 = t * t;
    const double t3 = t2 * t;
    const double zeta =
        (((2306.2181 + 1.39656 * T) - 0.000139 * T2) * t + (0.30188 - 0.000344 * T) * t2) +
        0.017998 * t3;
    const double z =
        (((2306.2181 + 1.39656 * T) - 0.000139 * T2) * t + (1.09468 + 0.000066 * T) * t2) +
        0.018203 * t3;
    const double theta =
        ((((2004.3109 - 0.8533 * T) - 0.000217 * T2) * t) - (0.42665 + 0.000217 * T) * t2) -
        0.041833 * t3;
    zeta_ = zeta * kRadiansPerArcsecond;
    z_ = z * kRadiansPerArcsecond;
    sinTheta_ = std::sin(theta * kRadiansPerArcsecond);
    cosTheta_ = std::cos(theta * kRadiansPerArcsecond);
}

Pair Precession::convert(Pair position) const {
    const double ra = position.Left * kRadiansPerHour;
    const double dec = position.Right * kRadiansPerDegree;
    const double cosDec = std::cos(dec);
    const double sinDec = std::sin(dec);
    const double w = ra + zeta_;
    const double cosW = std::cos(w);
    const double a = cosDec * std::sin(w);
    const double b = (cosTheta_ * cosDec) * cosW - sinTheta_ * sinDec;
    const double c = (sinTheta_ * cosDec) * cosW + cosTheta_ * sinDec;
    const double newRa = Normalise(std::atan2(a, b) + z_, 0.0, kFullTurn);
    // Test the declination before precession, not the result.
    const bool nearPole = std::abs(position.Right) > kPolarDeclination;
    const double newDec = nearPole ? polarDeclination(a, b, c) : std::asin(clampToUnit(c));
    return {kHoursPerRadian * newRa, kDegreesPerRadian * newDec};
}

Pair ConvertEpoch(double fromJulian, double toJulian, Pair position) {
    return Precession(fromJulian, toJulian).convert(position);
}

} // namespace skyvert
