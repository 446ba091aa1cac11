#pragma once

namespace skyvert {

/// A position in the sky.
struct Pair {
    double Left;  ///< right ascension, hours
    double Right; ///< declination, degrees
};

/// Brings a value into a range by whole turns.
///
/// Given: `value`; `low` and `high`, with `high` greater than `low`, in any one unit.
/// Returned: `value` plus a multiple of `high - low`, in the closed range from `low` to `high`.
/// Notes: Both ends are inside, so `high` does not wrap to `low`. A value that is not finite gives
/// NaN.
double Normalise(double value, double low, double high);

/// Precesses positions from the mean equator and equinox of one epoch to those of another: the
/// rigorous method with the equatorial precession angles of the IAU 1976 system, without proper
/// motion.
///
/// Notes: The angles depend only on the two epochs, so one object can convert a whole list.
///
/// References:
/// Lieske, J. H. et al., 1977, Astron. Astrophys. 58, 1-16: the angles zeta, z and theta.
/// Meeus, J., Astronomical Algorithms, chapter 21: the method, with these coefficients.
class Precession {
public:
    /// Given: two Julian dates, in days. Exactly 1900.0, 1950.0, 2000.0 and 2050.0 are read as
    /// years instead: B1900.0 (2415020.3135), B1950.0 (2433282.4235), J2000.0 (2451545.0) and
    /// 0h on 1 January 2050 (2469807.5).
    Precession(double fromJulian, double toJulian);

    /// Given: a position referred to the first epoch; its right ascension may have any value.
    /// Returned: the position referred to the second epoch, right ascension from 0 to 24 hours,
    /// declination from -90 to 90 degrees, each within the rounding of the constants.
    /// Notes: Even for equal epochs the last digits change, since the conversion constants are
    /// rounded. A coordinate that is not finite gives NaN.
    Pair convert(Pair position) const;

private:
    double zeta_; ///< radians, as all angles here
    double z_;
    double sinTheta_;
    double cosTheta_;
};

/// Precesses one position. Given and returned: as for `Precession`.
Pair ConvertEpoch(double fromJulian, double toJulian, Pair position);

} // namespace skyvert
