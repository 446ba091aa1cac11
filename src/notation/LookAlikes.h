#pragma once

#include <string>
#include <string_view>

namespace skyvert {

/// Replaces characters that look like those of a notation: dashes by "-", spaces by a blank,
/// primes, quotes and accents by the marks of minutes and seconds, rings and the ordinal indicator
/// by the degree sign, superscript h, m and s by the letters. Zero-width characters are removed.
/// For imported, typed or pasted texts.
///
/// Returned: `text` itself if it is ASCII, otherwise a view of `storage`. `text` must not be a view
/// of `storage`.
std::string_view foldLookAlikes(std::string_view text, std::string& storage);

/// The same, returned as a string.
std::string foldedLookAlikes(std::string_view text);

} // namespace skyvert
