#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// The text operations that the program's rules are written in. Texts are UTF-8, positions and
// lengths count characters (code points), and positions start at 1. Bytes that are no UTF-8 do no
// harm: one that continues no character starts one or belongs to the character before it. Letter
// case is that of ASCII, whatever the locale, so that a stored text means the same everywhere.
namespace skyvert {

/// True for a blank, a tab and the line ends of ASCII.
constexpr bool isWhiteSpace(char byte) {
    return byte == ' ' || (byte >= '\t' && byte <= '\r');
}

/// The lower case of an ASCII letter; any other byte unchanged.
constexpr char lowered(char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + ('a' - 'A')) : byte;
}

bool equalsIgnoringCase(std::string_view a, std::string_view b);

/// True for a text of nothing but white space, and for an empty one.
constexpr bool isBlank(std::string_view text) {
    return std::all_of(text.begin(), text.end(), isWhiteSpace);
}

/// The text without the white space at both ends.
std::string_view Trim(std::string_view text);

/// Cuts a text at each delimiter: n delimiters give n + 1 fields, empty ones included, but an
/// empty text gives none. The fields are views into `text`; what `fields` held before is gone.
void Split(std::string_view text, char delimiter, std::vector<std::string_view>& fields);
std::vector<std::string_view> Split(std::string_view text, char delimiter);

std::string Join(std::span<const std::string> fields, std::string_view separator);

/// The text with the first occurrence of `wanted`, in any letter case, replaced.
/// An empty `wanted` occurs nowhere.
std::string Replace(std::string_view text, std::string_view wanted, std::string_view by);

/// The text with every occurrence replaced, in one pass from left to right. What has been put in
/// is not looked at again: of four blanks, "two blanks by one" leaves two.
/// The form with `out`, which `text` must not view, puts the result there.
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
