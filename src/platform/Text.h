#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// The text operations that the program's rules are written in. Texts are UTF-8; positions and
// lengths count characters (code points), and positions start at 1. Invalid bytes are safe: a stray
// continuation byte belongs to the character before it, any other byte starts one. Only ASCII
// letters have a case, whatever the locale, so that a stored text means the same everywhere.
namespace skyvert {

/// True for ASCII white space: blank, tab, LF, VT, FF and CR.
constexpr bool isWhiteSpace(char byte) {
    return byte == ' ' || (byte >= '\t' && byte <= '\r');
}

constexpr bool isDigit(char byte) {
    return byte >= '0' && byte <= '9';
}

/// The lower case of an ASCII letter; any other byte unchanged.
constexpr char lowered(char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + ('a' - 'A')) : byte;
}

bool equalsIgnoringCase(std::string_view a, std::string_view b);

/// True for an empty text and for one of white space only.
constexpr bool isBlank(std::string_view text) {
    return std::all_of(text.begin(), text.end(), isWhiteSpace);
}

/// The text without white space at its ends.
std::string_view Trim(std::string_view text);

/// Splits a text at each delimiter: n delimiters give n + 1 fields, empty ones included, but an
/// empty text gives none. The fields are views into `text` and replace the content of `fields`.
void Split(std::string_view text, char delimiter, std::vector<std::string_view>& fields);
std::vector<std::string_view> Split(std::string_view text, char delimiter);

/// Digits, with zeros before them where there are fewer than `width`.
std::string zeroPadded(std::string_view digits, std::size_t width);

std::string Join(std::span<const std::string> fields, std::string_view separator);

/// The text with the first occurrence of `wanted` replaced, ignoring case.
/// An empty `wanted` never occurs.
std::string Replace(std::string_view text, std::string_view wanted, std::string_view by);

/// The text with every occurrence replaced, in one pass from left to right. Replaced text is not
/// searched again: replacing two blanks by one turns four blanks into two.
/// The form with `out` puts the result there; `text` must not be a view of `out`.
std::string ReplaceAll(std::string_view text, std::string_view wanted, std::string_view by);
void ReplaceAll(std::string_view text, std::string_view wanted, std::string_view by,
                std::string& out);

/// The number of characters.
std::size_t Len(std::string_view text);

/// The first `count` characters, or all that there are.
std::string_view Left(std::string_view text, std::size_t count);

/// At most `count` characters from position `start` on; empty beyond the end.
std::string_view Mid(std::string_view text, std::size_t start,
                     std::size_t count = std::string_view::npos);

} // namespace skyvert
