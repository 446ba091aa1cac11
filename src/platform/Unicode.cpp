#include "platform/Unicode.h"

#include <array>
#include <cstdint>
#include <cstring>

namespace skyvert {

bool isAscii(std::string_view text) {
    // Eight bytes at a time: this looks at every byte of every imported file.
    constexpr std::uint64_t kHighBits = 0x8080808080808080U;
    std::uint64_t seen = 0;
    while (text.size() >= sizeof seen) {
        std::uint64_t word = 0;
        std::memcpy(&word, text.data(), sizeof word);
        seen |= word;
        text.remove_prefix(sizeof word);
    }
    for (const char byte : text)
        seen |= static_cast<unsigned char>(byte);
    return (seen & kHighBits) == 0;
}

void appendUtf8(char32_t point, std::string& out) {
    if (point < 0x80) {
        out += static_cast<char>(point);
        return;
    }
    const int continuationBytes = point < 0x800 ? 1 : point < 0x10000 ? 2 : 3;
    const std::array<unsigned, 4> leads{0, 0xC0, 0xE0, 0xF0};
    const auto lead = leads.at(static_cast<std::size_t>(continuationBytes));
    out += static_cast<char>(lead | (point >> (6 * continuationBytes)));
    for (int i = continuationBytes - 1; i >= 0; --i)
        out += static_cast<char>(0x80U | ((point >> (6 * i)) & 0x3FU));
}

std::size_t utf8Length(std::string_view text) {
    const auto at = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const auto continues = [&](std::size_t i, unsigned low = 0x80, unsigned high = 0xBF) {
        return i < text.size() && at(i) >= low && at(i) <= high;
    };
    const unsigned lead = at(0);
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead <= 0xDF)
        return continues(1) ? 2 : 0;
    if (lead >= 0xE0 && lead <= 0xEF) {
        const unsigned low = lead == 0xE0 ? 0xA0 : 0x80;
        const unsigned high = lead == 0xED ? 0x9F : 0xBF;
        return continues(1, low, high) && continues(2) ? 3 : 0;
    }
    if (lead >= 0xF0 && lead <= 0xF4) {
        const unsigned low = lead == 0xF0 ? 0x90 : 0x80;
        const unsigned high = lead == 0xF4 ? 0x8F : 0xBF;
        return continues(1, low, high) && continues(2) && continues(3) ? 4 : 0;
    }
    return 0;
}

char32_t codePoint(std::string_view character) {
    const auto lead = static_cast<unsigned char>(character[0]);
    if (character.size() == 1)
        return lead;
    char32_t point = lead & (0x7FU >> character.size());
    for (const char byte : character.substr(1))
        point = point << 6U | (static_cast<unsigned char>(byte) & 0x3FU);
    return point;
}

char32_t fromWindows1252(unsigned char byte) {
    // The five bytes that Windows-1252 leaves undefined stand for the C1 controls of that number.
    static constexpr std::array<char16_t, 32> high{
        0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
        0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
        0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
    return byte >= 0x80 && byte < 0xA0 ? high.at(byte - 0x80U) : byte;
}

Utf16Character decodeUtf16(std::string_view bytes, bool bigEndian) {
    const auto unit = [&](std::size_t at) {
        const unsigned first = static_cast<unsigned char>(bytes[at]);
        const unsigned second = static_cast<unsigned char>(bytes[at + 1]);
        return static_cast<char32_t>(bigEndian ? first << 8U | second : second << 8U | first);
    };
    if (bytes.size() < 2)
        return {0, 0};
    const char32_t lead = unit(0);
    if ((lead & 0xFC00U) != 0xD800)
        return {lead, 2};
    if (bytes.size() < 4)
        return {lead, 0};
    const char32_t trail = unit(2);
    if ((trail & 0xFC00U) != 0xDC00)
        return {lead, 2};
    return {0x10000 + ((lead - 0xD800) << 10U) + (trail - 0xDC00), 4};
}

} // namespace skyvert
