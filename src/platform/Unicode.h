#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace skyvert {

inline constexpr char32_t kReplacementCharacter = 0xFFFD;

/// True when every byte is below 0x80.
bool isAscii(std::string_view text);

/// Appends a code point (at most U+10FFFF, no surrogate) as UTF-8.
void appendUtf8(char32_t point, std::string& out);

/// The length in bytes of the well-formed UTF-8 character that `text`, which is not empty, opens
/// with (Unicode Standard, table 3-7), or 0 when there is none.
std::size_t utf8Length(std::string_view text);

/// The code point of one well-formed UTF-8 character.
char32_t codePoint(std::string_view character);

/// The code point that a byte stands for in Windows-1252.
char32_t fromWindows1252(unsigned char byte);

/// One character of a UTF-16 text.
struct Utf16Character {
    char32_t point;     ///< a surrogate when its other half does not follow
    std::size_t length; ///< in bytes; 0 when the text ends inside the character or before it
};

/// The character that `bytes` open with.
Utf16Character decodeUtf16(std::string_view bytes, bool bigEndian);

inline bool isSurrogate(char32_t point) {
    return point >= 0xD800 && point < 0xE000;
}

} // namespace skyvert
