#pragma once

namespace skyvert {

/// A position in the sky: the right ascension in hours and the declination in degrees.
struct Pair {
    double Left;  ///< right ascension, hours
    double Right; ///< declination, degrees
};

/// Brings `value` into the closed range from `low` to `high` by whole turns of `high - low`.
/// `high`, which is greater than `low`, stays as it is: it does not wrap to `low`. A value that is
/// not finite gives NaN.
double Normalise(double value, double low, double high);

/// Carries positions from the mean equator and equinox of one epoch to those of another.
///
/// The rigorous method with the equatorial angles of the IAU 1976 system: Meeus, Astronomical
/// Algorithms, chapter 21. The angles belong to the two epochs alone, so one object serves a whole
/// list. Without proper motion.
class Precession {
public:
    /// Given: two Julian dates, in days. The four values 1900.0, 1950.0, 2000.0 and 2050.0, met
    /// exactly, are read as those epochs: B1900.0, B1950.0, J2000.0 and 1 January 2050.
    Precession(double fromJulian, double toJulian);

    /// Given: a position of any right ascension, referred to the first epoch.
    /// Returned: the same position referred to the second epoch, its right ascension from 0 to 24
    /// hours. Equal epochs give the position back through the rounded constants, so its last
    /// digits may differ. A coordinate that is not finite gives NaN.
    Pair convert(Pair position) const;

private:
    double zeta_; ///< radians, as all angles here
    double z_;
    double sinTheta_;
    double cosTheta_;
};

/// One position from one epoch to another: see `Precession`.
Pair ConvertEpoch(double fromJulian, double toJulian, Pair position);

} // namespace skyvert
