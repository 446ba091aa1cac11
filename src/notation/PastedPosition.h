#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace skyvert {

/// Rewrites a pasted coordinate so that it fits an entry mask.
///
/// Given: a text after `foldLookAlikes`, and a mask as `RADecFormat` gives it. The text has one to
/// three numbers, which may be separated and closed by blanks, colons, "h" or "d", "m" and "s", or
/// the marks of degrees, minutes and seconds; the last number may have decimals.
///
/// Returned: the numbers with the separators of the mask, padded with leading zeros; decimals that
/// the mask has no room for are cut off. Returns nothing if the meaning is not clear: a text of
/// another form, hours for a mask in degrees or vice versa, more numbers than the mask has, a
/// number that is too long, decimals before the last number of the mask, or a sign for a mask
/// without one.
std::optional<std::string> fitToMask(std::string_view pasted, std::string_view mask);

/// A right ascension and a declination, each in the form of its mask; the declination has a sign.
struct PositionTexts {
    std::string ra;
    std::string dec;

    bool operator==(const PositionTexts&) const = default;
};

/// Finds both coordinates in a text such as "05 34 31.97 +22 00 52.1". They may be separated by
/// blanks, tabs, commas or semicolons. Each must have all numbers of its mask and fit it as for
/// `fitToMask`. For an empty mask a coordinate is one number with any decimals; then a sign of the
/// declination or decimals of the right ascension must show where the first coordinate ends.
/// Returns nothing for any other text.
std::optional<PositionTexts> splitPosition(std::string_view pasted, std::string_view raMask,
                                           std::string_view decMask);

} // namespace skyvert
