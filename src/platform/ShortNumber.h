#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

// Building blocks of the fast paths between numbers and text, for the few digits that a coordinate
// has. Each reports when it does not apply; the caller then falls back to the general path. Results
// are identical. They are inline because a row of the list calls them up to 24 times.
namespace skyvert {

/// Each is exact in a double.
constexpr std::array<double, 16> kPowersOfTen{1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                              1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

/// Appends the digits at `at` to `mantissa`, which wraps if there are too many. Returns their end.
inline const char* readDigits(const char* at, const char* end, std::uint64_t& mantissa) {
    for (; at != end; ++at) {
        if (*at < '0' || *at > '9')
            break;
        mantissa = mantissa * 10 + static_cast<std::uint64_t>(*at - '0');
    }
    return at;
}

/// Reads digits with an optional point and decimals, 15 digits at most. Returns the end of the
/// number, or null if it has no digits or too many.
inline const char* readShort(const char* at, const char* end, char point, double& number) {
    constexpr std::ptrdiff_t mostDigits = 15; // a double holds every whole number of 15 digits
    std::uint64_t mantissa = 0;
    const char* const start = at;
    at = readDigits(at, end, mantissa);
    std::ptrdiff_t digits = at - start;
    std::ptrdiff_t decimals = 0;
    if (at != end && *at == point) {
        const char* const firstDecimal = at + 1;
        at = readDigits(firstDecimal, end, mantissa);
        decimals = at - firstDecimal;
        digits += decimals;
    }
    if (digits == 0 || digits > mostDigits)
        return nullptr;
    // Signed, since only that conversion is a single instruction on every processor. Both operands
    // are exact, so the quotient is rounded once and is the nearest double.
    number = static_cast<double>(static_cast<std::int64_t>(mantissa)) /
             kPowersOfTen[static_cast<std::size_t>(decimals)];
    return at;
}

/// The digits of 00 to 99. Writing two at a time saves 6% of rendering.
constexpr std::array<char, 200> kPairsOfDigits = [] {
    std::array<char, 200> pairs{};
    for (std::size_t i = 0; i < 100; ++i) {
        pairs[2 * i] = static_cast<char>('0' + i / 10);
        pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
    }
    return pairs;
}();

/// Writes a number below 100 as two digits. Returns their end.
inline char* writePair(char* to, std::uint64_t number) {
    to[0] = kPairsOfDigits[2 * number];
    to[1] = kPairsOfDigits[2 * number + 1];
    return to + 2;
}

/// Writes the last `count` digits of a number so that they end at `end`. Returns the number
/// without these digits.
inline std::uint64_t writeDigits(char* end, std::uint64_t number, int count) {
    for (; count >= 2; count -= 2, number /= 100)
        writePair(end -= 2, number % 100);
    if (count == 0)
        return number;
    end[-1] = static_cast<char>('0' + number % 10);
    return number / 10;
}

/// The most decimals for which `roundShort` applies.
constexpr int kShortDecimals = 9;

/// Returns `magnitude` * 10^`decimals`, rounded to a whole number as `writeFixed` rounds, or -1 if
/// the product is not below 2^36 or is too close to a tie. Without it a row takes five times as
/// long.
inline std::int64_t roundShort(double magnitude, int decimals) {
    constexpr double limit = 68719476736.0;   // 2^36: a product below it is off by 2^-18 at most
    constexpr double tieMargin = 1.0 / 65536; // 2^-16
    const double scaled = magnitude * kPowersOfTen[static_cast<std::size_t>(decimals)];
    if (!(scaled < limit))
        return -1;
    const auto cut = static_cast<std::int64_t>(scaled);
    const double remainder = scaled - static_cast<double>(cut);
    if (std::fabs(remainder - 0.5) < tieMargin)
        return -1;
    return cut + (remainder > 0.5 ? 1 : 0);
}

} // namespace skyvert
