#pragma once

#include <string>
#include <string_view>

namespace skyvert {

/// Turns characters that look like those of a notation into them: all dashes into a minus, all
/// spaces into a blank, primes, quotes and accents into the marks of minutes and seconds, rings and
/// the ordinal indicator into a degree sign, raised h, m and s into letters; characters of no width
/// go. For texts that come from outside: imported, typed or pasted.
///
/// Returned: `text` itself when it is all ASCII, else a view of `storage`, which `text` must not
/// view.
std::string_view foldLookAlikes(std::string_view text, std::string& storage);

/// The same as a text of its own.
std::string foldedLookAlikes(std::string_view text);

} // namespace skyvert
