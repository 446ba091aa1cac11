#pragma once

#include <string>
#include <string_view>

namespace skyvert {

/// Turns characters that look like those of a notation into them: the minus sign, the ordinal
/// indicator and the ring for a degree sign, primes and curly quotes, no-break and thin spaces,
/// superscript h, m and s. For texts that come from outside: imported, typed or pasted.
void FoldLookAlikes(std::string& text);

/// The same for a view: `text` itself when it is all ASCII, else a view of `storage`.
std::string_view FoldLookAlikes(std::string_view text, std::string& storage);

} // namespace skyvert
