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
    Blanks,  ///< at blanks; two adjacent ones count as one
    Colons,  ///< at colons, blanks ignored
    Letters, ///< at "h", "m" and "s" or colons, blanks ignored
    Marks,   ///< at the degree sign, the minute and second marks or colons, blanks ignored
    Columns, ///< by column; the last field takes the rest
};

/// A separator between two fields, or the mark after the last one: at most one character of two
/// bytes, stored for writing and comparing without a loop.
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

/// Everything that defines a notation.
struct Notation {
    std::string_view name;
    bool inDegrees;  ///< of right ascension: written in degrees, not hours
    bool showsSign;  ///< of declination: always written with "+" or "-"
    int fields;      ///< 1, 2 or 3; the last one has the decimals
    int firstDigits; ///< least number of digits of the first field
    Mark firstSeparator;
    Mark secondSeparator;
    Mark closingMark;
    Cutting cutting;
    std::string_view mask; ///< for the entry field, with the locale's decimal separator
};

/// The catalogues, in the order in which the popups offer them.
std::span<const Notation> notationsOfRA();
std::span<const Notation> notationsOfDec();

/// The notation with this name, ignoring case; null if there is none.
const Notation* findNotation(std::span<const Notation> notations, std::string_view name);

} // namespace skyvert
