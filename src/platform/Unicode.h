#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace skyvert {

inline constexpr char32_t kReplacementCharacter = 0xFFFD;

/// The length in bytes of the longest character in UTF-8.
inline constexpr std::size_t kMaxUtf8Length = 4;

/// Whether a byte of UTF-8 belongs to the character before it.
constexpr bool continuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// True when every byte is below 0x80.
bool isAscii(std::string_view text);

/// Appends a code point (at most U+10FFFF, not a surrogate) as UTF-8.
void appendUtf8(char32_t point, std::string& out);

/// Byte length of the well-formed UTF-8 character (Unicode Standard, table 3-7) at the start of the
/// non-empty `text`; 0 if there is none.
std::size_t utf8Length(std::string_view text);

/// The code point of one well-formed UTF-8 character.
char32_t codePoint(std::string_view character);

/// The code point that a byte stands for in Windows-1252.
char32_t fromWindows1252(unsigned char byte);

/// One character of a UTF-16 text.
struct Utf16Character {
    char32_t point;     ///< an unpaired surrogate is kept as it is
    std::size_t length; ///< in bytes; 0 if the text is empty or ends inside the character
};

/// The character at the start of `bytes`.
Utf16Character decodeUtf16(std::string_view bytes, bool bigEndian);

inline bool isSurrogate(char32_t point) {
    return point >= 0xD800 && point < 0xE000;
}

} // namespace skyvert
