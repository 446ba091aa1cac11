#include "platform/Number.h"

#include <fast_float/fast_float.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>

namespace skyvert {

namespace {

constexpr bool isDigit(char byte) {
    return byte >= '0' && byte <= '9';
}

/// Reads a number's text from left to right and gathers its digits.
class DigitScanner {
public:
    explicit DigitScanner(std::string_view text)
        : at_(text.data()), end_(text.data() + text.size()) {}

    const char* at() const { return at_; }

    std::uint64_t mantissa() const { return mantissa_; }

    std::ptrdiff_t digits() const { return digits_; }

    /// Takes a sign, if there is one, and tells whether it was a minus.
    bool takeMinus() {
        const char sign = at_ == end_ ? '\0' : *at_;
        if (sign == '-' || sign == '+')
            ++at_;
        return sign == '-';
    }

    bool takePoint(std::string_view point) {
        if (at_ == end_ || point.empty() || *at_ != point.front())
            return false;
        if (point.size() > 1 && !rest().starts_with(point))
            return false;
        at_ += point.size();
        return true;
    }

    /// Takes the digits that follow and returns how many. The mantissa wraps behind 19 of them.
    std::ptrdiff_t takeDigits() {
        const char* const start = at_;
        for (; at_ != end_ && isDigit(*at_); ++at_)
            mantissa_ = mantissa_ * 10 + static_cast<unsigned>(*at_ - '0');
        digits_ += at_ - start;
        return at_ - start;
    }

    /// Takes the groups of three digits that follow, each behind its separator.
    void takeGroups(std::string_view separator) {
        while (rest().starts_with(separator) && opensWithGroup(rest().substr(separator.size()))) {
            at_ += separator.size();
            takeDigits();
        }
    }

private:
    static bool opensWithGroup(std::string_view text) {
        return text.size() >= 3 && std::all_of(text.begin(), text.begin() + 3, isDigit) &&
               (text.size() == 3 || !isDigit(text[3]));
    }

    std::string_view rest() const { return {at_, static_cast<std::size_t>(end_ - at_)}; }

    const char* at_;
    const char* end_;
    std::uint64_t mantissa_ = 0;
    std::ptrdiff_t digits_ = 0;
};

/// For a number of any length. Only digits reach the library, which knows words and exponents too.
double readExactly(std::string_view whole, std::string_view decimals) {
    std::string digits;
    std::copy_if(whole.begin(), whole.end(), std::back_inserter(digits), isDigit);
    digits.append(".").append(decimals);
    double number = 0.0;
    fast_float::from_chars(digits.data(), digits.data() + digits.size(), number,
                           fast_float::chars_format::fixed);
    return number;
}

/// All these are exact in a double.
constexpr std::array<double, 20> kPowersOfTen{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,
                                              1e7,  1e8,  1e9,  1e10, 1e11, 1e12, 1e13,
                                              1e14, 1e15, 1e16, 1e17, 1e18, 1e19};
constexpr std::uint64_t kLargestExact = std::uint64_t{1} << 53U;

inline double readNumber(std::string_view text, std::string_view point, std::string_view group) {
    DigitScanner scanner(text);
    const bool negative = scanner.takeMinus();
    const char* const whole = scanner.at();
    const std::ptrdiff_t leading = scanner.takeDigits();
    if (!group.empty() && leading >= 1 && leading <= 3)
        scanner.takeGroups(group);
    const char* const wholeEnd = scanner.at();
    const std::ptrdiff_t decimals = scanner.takePoint(point) ? scanner.takeDigits() : 0;
    if (scanner.digits() == 0)
        return 0.0;
    // Two exact doubles: their quotient is rounded once, and so is the nearest double.
    double magnitude = static_cast<double>(scanner.mantissa());
    if (scanner.digits() > 19 || scanner.mantissa() > kLargestExact)
        magnitude = readExactly({whole, wholeEnd}, {scanner.at() - decimals, scanner.at()});
    else if (decimals > 0)
        magnitude /= kPowersOfTen[static_cast<std::size_t>(decimals)];
    return negative ? -magnitude : magnitude;
}

/// What "#" and "0" of a mask amount to.
struct MaskShape {
    int width;
    int leastDecimals;
    int mostDecimals;
};

MaskShape readMask(std::string_view mask) {
    const std::size_t point = std::min(mask.find('.'), mask.size());
    const std::string_view whole = mask.substr(0, point);
    const std::string_view decimals = mask.substr(std::min(point + 1, mask.size()), kMaxDecimals);
    return {static_cast<int>(std::count(whole.begin(), whole.end(), '0')),
            static_cast<int>(std::count(decimals.begin(), decimals.end(), '0')),
            static_cast<int>(decimals.size())};
}

char* writeText(char* to, std::string_view text) {
    for (const char byte : text)
        *to++ = byte;
    return to;
}

/// Writes exactly `count` digits, leading zeros included.
char* writeDigits(char* to, std::uint32_t number, int count) {
    for (char* place = to + count; place != to; number /= 10)
        *--place = static_cast<char>('0' + number % 10);
    return to + count;
}

int countDigits(std::uint32_t number) {
    int digits = 0;
    for (; number > 0; number /= 10)
        ++digits;
    return digits;
}

/// The limits of the short way, within which a 32-bit integer holds either side of the point.
constexpr double kShortLimit = 2147483648.0;
constexpr int kShortDecimals = 9;
constexpr int kShortWidth = 10;

/// The short way, within the limits above: rounds in integers. Returns null when the number is too
/// close to a tie for that.
char* writeShort(char* to, double magnitude, int decimals, int width, std::string_view point) {
    constexpr double tieMargin = 1e-6; // the product below is off by less than 1e-7
    auto whole = static_cast<std::uint32_t>(magnitude);
    const double power = kPowersOfTen[static_cast<std::size_t>(decimals)];
    const double scaled = (magnitude - whole) * power;
    auto fraction = static_cast<std::uint32_t>(scaled);
    const double remainder = scaled - fraction;
    if (std::fabs(remainder - 0.5) < tieMargin)
        return nullptr;
    fraction += remainder > 0.5 ? 1 : 0;
    if (fraction >= power) {
        fraction = 0;
        ++whole;
    }
    // The usual field has two digits, which need no counting.
    const bool fits = width == 2 && whole < 100;
    to = writeDigits(to, whole, fits ? 2 : std::max(countDigits(whole), width));
    return decimals > 0 ? writeDigits(writeText(to, point), fraction, decimals) : to;
}

/// The long way, for any finite magnitude.
char* writeExactly(char* to, double magnitude, int decimals, int width, std::string_view point) {
    std::array<char, kMaxFixedText> room;
    char* const end = std::to_chars(room.data(), room.data() + room.size(), magnitude,
                                    std::chars_format::fixed, decimals)
                          .ptr;
    const std::string_view text(room.data(), static_cast<std::size_t>(end - room.data()));
    const std::size_t wholeEnd = std::min(text.find('.'), text.size());
    const std::string_view whole = text.substr(0, text[0] == '0' ? 0 : wholeEnd);
    to = std::fill_n(to, std::max(0, width - static_cast<int>(whole.size())), '0');
    to = writeText(to, whole);
    return decimals > 0 ? writeText(writeText(to, point), text.substr(wholeEnd + 1)) : to;
}

} // namespace

double Val(std::string_view text) {
    return readNumber(text, ".", {});
}

double CDbl(std::string_view text, const Locale& locale) {
    return readNumber(text, locale.decimalPoint, locale.groupSeparator);
}

double Round(double number) {
    return std::round(number);
}

std::int64_t truncated(double number) {
    constexpr double limit = 9223372036854775808.0;
    if (number >= limit)
        return std::numeric_limits<std::int64_t>::max();
    if (number < -limit)
        return std::numeric_limits<std::int64_t>::min();
    return std::isnan(number) ? 0 : static_cast<std::int64_t>(number);
}

std::string Format(double number, std::string_view mask, const Locale& locale) {
    const MaskShape shape = readMask(mask);
    const double shown = mask.starts_with('-') ? number : std::fabs(number);
    std::array<char, kMaxFixedText> text;
    char* end =
        writeFixed(text.data(), shown, shape.mostDecimals, shape.width, locale.decimalPoint);
    for (int place = shape.mostDecimals; place > shape.leastDecimals && end[-1] == '0'; --place)
        --end;
    return std::string(text.data(), end);
}

char* writeFixed(char* to, double number, int decimals, int width, std::string_view point) {
    decimals = std::clamp(decimals, 0, kMaxDecimals);
    width = std::clamp(width, 0, kMaxWholeDigits);
    point = point.substr(0, kMaxPointBytes);
    if (number < 0.0)
        *to++ = '-';
    const double magnitude = std::fabs(number);
    if (magnitude < kShortLimit && decimals <= kShortDecimals && width <= kShortWidth) {
        if (char* const end = writeShort(to, magnitude, decimals, width, point))
            return end;
    }
    if (std::isfinite(number))
        return writeExactly(to, magnitude, decimals, width, point);
    return writeText(to, std::isnan(number) ? "nan" : "inf");
}

} // namespace skyvert
