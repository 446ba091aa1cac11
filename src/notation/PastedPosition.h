#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace skyvert {

/// A pasted coordinate as an entry mask takes it.
///
/// Given: a text after `foldLookAlikes`, and a mask as `RADecFormat` gives it. The text has one to
/// three numbers, which may be separated and closed by blanks, colons, "h" or "d", "m" and "s", or
/// the marks of degrees, minutes and seconds; the last number may have decimals.
///
/// Returned: the numbers with the separators of the mask, filled up with zeros, and with no more
/// decimals than the mask holds; the rest is cut off. Nothing where the meaning is not plain: a
/// text of another kind, hours for a mask in degrees or the other way round, more numbers than the
/// mask has, a number that is too long, decimals before the last number of the mask, a sign for a
/// mask without one.
std::optional<std::string> fitToMask(std::string_view pasted, std::string_view mask);

/// A right ascension and a declination, each as its mask takes it, the declination with its sign.
struct PositionTexts {
    std::string ra;
    std::string dec;

    bool operator==(const PositionTexts&) const = default;
};

/// Finds both coordinates in a text such as "05 34 31.97 +22 00 52.1". Blanks, tabs, commas or
/// semicolons may stand between them. Each must have all numbers of its mask and fit it as for
/// `fitToMask`. An empty mask takes one number with any decimals; there a sign of the declination
/// or a decimal point in the right ascension must show that one number is the whole coordinate.
/// Returned: nothing for any other text.
std::optional<PositionTexts> splitPosition(std::string_view pasted, std::string_view raMask,
                                           std::string_view decMask);

} // namespace skyvert
