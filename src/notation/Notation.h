#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <stdexcept>
#include <string_view>

namespace skyvert {

/// The ways of cutting a text into first field, minutes and seconds.
enum class Cutting {
    Whole,   ///< the text is one number
    Blanks,  ///< at blanks; two adjacent ones count as one
    Colons,  ///< at colons, blanks ignored
    Letters, ///< at "h", "m" and "s" or colons, blanks ignored
    Marks,   ///< at the degree sign, the minute and second marks or colons, blanks ignored
    Columns, ///< at fixed positions; the last field takes the rest
};

/// A separator between two fields, or the mark after the last: one character of at most two bytes,
/// or none. Stored so that it is written and compared without a loop.
struct Mark {
    constexpr Mark() = default;

    constexpr Mark(const char* text) : size(std::string_view(text).size()) { // NOLINT(*-explicit-*)
        if (size > bytes.size())
            throw std::length_error("a mark of more than two bytes");
        std::string_view(text).copy(bytes.data(), bytes.size());
    }

    constexpr std::string_view text() const { return {bytes.data(), size}; }

    std::array<char, 2> bytes{};
    std::size_t size = 0;
};

/// Everything that defines a notation.
struct Notation {
    std::string_view name;
    bool inDegrees;  ///< right ascension only: written in degrees, not hours
    bool showsSign;  ///< declination only: always written with "+" or "-"
    int fields;      ///< 1, 2 or 3; the last one has the decimals
    int firstDigits; ///< least number of digits of the first field
    Mark firstSeparator;
    Mark secondSeparator;
    Mark closingMark;
    Cutting cutting;
    std::string_view mask; ///< of the entry field; "." is the locale's decimal separator
};

/// The catalogues, in the order in which the popups offer them.
std::span<const Notation> notationsOfRA();
std::span<const Notation> notationsOfDec();

/// The notation with this name, ignoring case; null if there is none.
const Notation* findNotation(std::span<const Notation> notations, std::string_view name);

} // namespace skyvert
