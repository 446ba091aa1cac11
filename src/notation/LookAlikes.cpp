#include "notation/LookAlikes.h"

#include "platform/Unicode.h"

#include <algorithm>
#include <array>

namespace skyvert {

namespace {

struct LookAlike {
    std::string_view character;
    std::string_view meant; ///< never the longer one
};

constexpr std::array<LookAlike, 15> kLookAlikes{{
    {"\u2212", "-"},  // minus sign
    {"\u00BA", "°"},  // masculine ordinal indicator
    {"\u02DA", "°"},  // ring above
    {"\u2032", "'"},  // prime
    {"\u2019", "'"},  // right single quotation mark
    {"\u2033", "\""}, // double prime
    {"\u201D", "\""}, // right double quotation mark
    {"\u00A0", " "},  // no-break space
    {"\u2007", " "},  // figure space
    {"\u2009", " "},  // thin space
    {"\u200A", " "},  // hair space
    {"\u202F", " "},  // narrow no-break space
    {"\u02B0", "h"},  // modifier letter small h
    {"\u1D50", "m"},  // modifier letter small m
    {"\u02E2", "s"},  // modifier letter small s
}};

constexpr bool isAsciiByte(char byte) {
    return (static_cast<unsigned char>(byte) & 0x80U) == 0;
}

} // namespace

void FoldLookAlikes(std::string& text) {
    const auto firstOther = std::find_if_not(text.begin(), text.end(), isAsciiByte);
    char* to = text.data() + (firstOther - text.begin());
    std::string_view rest(to, static_cast<std::size_t>(text.end() - firstOther));
    while (!rest.empty()) {
        const auto* const found =
            isAsciiByte(rest.front())
                ? kLookAlikes.end()
                : std::find_if(kLookAlikes.begin(), kLookAlikes.end(), [&](const LookAlike& one) {
                      return rest.starts_with(one.character);
                  });
        const LookAlike plain{rest.substr(0, 1), rest.substr(0, 1)};
        const LookAlike& taken = found == kLookAlikes.end() ? plain : *found;
        to = std::copy(taken.meant.begin(), taken.meant.end(), to);
        rest.remove_prefix(taken.character.size());
    }
    text.resize(static_cast<std::size_t>(to - text.data()));
}

std::string_view FoldLookAlikes(std::string_view text, std::string& storage) {
    if (isAscii(text))
        return text;
    storage = text;
    FoldLookAlikes(storage);
    return storage;
}

} // namespace skyvert
