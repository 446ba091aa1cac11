#include "notation/LookAlikes.h"

#include "platform/Unicode.h"

namespace skyvert {

namespace {

struct LookAlike {
    std::string_view character;
    std::string_view meant;
};

constexpr LookAlike kLookAlikes[] = {
    {"\u2212", "-"},  // minus sign
    {"\u2010", "-"},  // hyphen
    {"\u2011", "-"},  // no-break hyphen
    {"\u2013", "-"},  // en dash
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
};

/// What stands for the character that `text` opens with: a look-alike's meaning, or else the first
/// byte as it is.
LookAlike firstOf(std::string_view text) {
    for (const LookAlike& one : kLookAlikes) {
        if (text.starts_with(one.character))
            return one;
    }
    return {text.substr(0, 1), text.substr(0, 1)};
}

} // namespace

std::string_view foldLookAlikes(std::string_view text, std::string& storage) {
    if (isAscii(text))
        return text;
    storage.clear();
    while (!text.empty()) {
        const LookAlike first = firstOf(text);
        storage += first.meant;
        text.remove_prefix(first.character.size());
    }
    return storage;
}

} // namespace skyvert
