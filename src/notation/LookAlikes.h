#pragma once

#include <string>
#include <string_view>

namespace skyvert {

/// Turns characters that look like those of a notation into them: the minus sign, the ordinal
/// indicator and the ring for a degree sign, primes and curly quotes, no-break and thin spaces,
/// superscript h, m and s. For texts that come from outside: imported, typed or pasted.
///
/// Returned: `text` itself when it is all ASCII, else a view of `storage`, which `text` must not
/// view.
std::string_view foldLookAlikes(std::string_view text, std::string& storage);

} // namespace skyvert
