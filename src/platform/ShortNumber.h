#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

// The short ways between numbers and text, for the few digits that a coordinate has. Each tells
// when it does not serve: then `Val` and `writeFixed` do, and what serves gives the same as they.
// They are inline because a list of a million rows passes through them twelve million times.
namespace skyvert {

/// All these are exact in a double.
constexpr std::array<double, 20> kPowersOfTen{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,
                                              1e7,  1e8,  1e9,  1e10, 1e11, 1e12, 1e13,
                                              1e14, 1e15, 1e16, 1e17, 1e18, 1e19};

constexpr bool isDigit(char byte) {
    return byte >= '0' && byte <= '9';
}

/// Takes the digits that follow and appends them to `mantissa`, which wraps when they are too many.
/// Returns where they end.
inline const char* takeDigits(const char* at, const char* end, std::uint64_t& mantissa) {
    for (; at != end && isDigit(*at); ++at)
        mantissa = mantissa * 10 + static_cast<unsigned>(*at - '0');
    return at;
}

/// Reads digits with an optional "." and decimals, 15 digits at most. Returns where the number
/// ends, or null when there is no digit or one too many.
inline const char* readShort(const char* at, const char* end, double& number) {
    constexpr std::ptrdiff_t exactDigits = 15; // a double holds every whole number of so many
    std::uint64_t mantissa = 0;
    const char* numberEnd = takeDigits(at, end, mantissa);
    std::ptrdiff_t digits = numberEnd - at;
    std::ptrdiff_t decimals = 0;
    if (numberEnd != end && *numberEnd == '.') {
        const char* const point = numberEnd++;
        numberEnd = takeDigits(numberEnd, end, mantissa);
        decimals = numberEnd - point - 1;
        digits += decimals;
    }
    if (digits == 0 || digits > exactDigits)
        return nullptr;
    // Signed, since only that conversion is a single instruction everywhere.
    number = static_cast<double>(static_cast<std::int64_t>(mantissa));
    // Two exact doubles: their quotient is rounded once, and so is the nearest double.
    if (decimals > 0)
        number /= kPowersOfTen[static_cast<std::size_t>(decimals)];
    return numberEnd;
}

/// The digits of 00 to 99.
constexpr std::array<char, 200> kPairsOfDigits = [] {
    std::array<char, 200> pairs{};
    for (std::size_t i = 0; i < 100; ++i) {
        pairs[2 * i] = static_cast<char>('0' + i / 10);
        pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
    }
    return pairs;
}();

/// Writes two digits of a number below 100.
inline char* writePair(char* to, std::uint32_t number) {
    const std::size_t at = std::size_t{2} * number;
    to[0] = kPairsOfDigits[at];
    to[1] = kPairsOfDigits[at + 1];
    return to + 2;
}

/// Writes the last `count` digits of a number so that they end at `end`. Returns the number that
/// the digits before them make.
inline std::uint64_t writeDigitsBefore(char* end, std::uint64_t number, int count) {
    for (; count >= 2; count -= 2, number /= 100)
        writePair(end -= 2, static_cast<std::uint32_t>(number % 100));
    if (count == 0)
        return number;
    end[-1] = static_cast<char>('0' + number % 10);
    return number / 10;
}

constexpr int kShortDecimals = 9;
constexpr std::int64_t kNotShort = -1;

/// A magnitude times ten to the power of `decimals`, at most `kShortDecimals`, rounded to a whole
/// number as `writeFixed` rounds. `kNotShort` when it is not below 2^36 or too close to a tie.
inline std::int64_t roundShort(double magnitude, int decimals) {
    constexpr double limit = 68719476736.0;   // 2^36: below it the product is off by 2^-18 at most
    constexpr double tieMargin = 1.0 / 65536; // 2^-16
    const double scaled = magnitude * kPowersOfTen[static_cast<std::size_t>(decimals)];
    if (!(scaled < limit))
        return kNotShort;
    const auto cut = static_cast<std::int64_t>(scaled);
    const double remainder = scaled - static_cast<double>(cut);
    if (std::fabs(remainder - 0.5) < tieMargin)
        return kNotShort;
    return cut + (remainder > 0.5 ? 1 : 0);
}

} // namespace skyvert
