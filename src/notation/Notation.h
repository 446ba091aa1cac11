#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <stdexcept>
#include <string_view>

namespace skyvert {

/// How a text is cut into first field, minutes and seconds.
enum class Cutting {
    Whole,   ///< the text is one number
    Blanks,  ///< at blanks, of which two side by side count as one
    Colons,  ///< at colons, blanks ignored
    Letters, ///< at "h", "m" and "s" or colons, blanks ignored
    Marks,   ///< at the degree sign, the minute and second marks or colons, blanks ignored
    Columns, ///< by column; the last field takes the rest
};

/// What stands between two fields or closes the last one: at most one character of two bytes, kept
/// so that it is written and compared without a loop.
struct Mark {
    constexpr Mark() = default;

    constexpr Mark(const char* text) : size(std::string_view(text).size()) { // NOLINT(*-explicit-*)
        if (size > bytes.size())
            throw std::length_error("a mark of more than two bytes");
        std::string_view(text).copy(bytes.data(), bytes.size());
    }

    std::array<char, 2> bytes{};
    std::size_t size = 0;
};

/// All that is to be known of one notation.
struct Notation {
    std::string_view name;
    bool inDegrees;  ///< of right ascension: written in degrees, not hours
    bool showsSign;  ///< of declination: "+" or "-" in front
    int fields;      ///< 1, 2 or 3; the last one carries the decimals
    int firstDigits; ///< least number of digits of the first field
    Mark firstSeparator;
    Mark secondSeparator;
    Mark closingMark;
    Cutting cutting;
    std::string_view mask; ///< for the entry field, with the locale's decimal separator
};

/// The catalogues, in the order in which they are offered.
std::span<const Notation> notationsOfRA();
std::span<const Notation> notationsOfDec();

/// The notation of that name, in any letter case, or null.
const Notation* findNotation(std::span<const Notation> notations, std::string_view name);

} // namespace skyvert
