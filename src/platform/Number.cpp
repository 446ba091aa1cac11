#include "platform/Number.h"

#include "platform/ShortNumber.h"

#include <fast_float/fast_float.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>

namespace skyvert {

namespace {

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
        at_ = skyvert::takeDigits(at_, end_, mantissa_);
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
    auto magnitude = static_cast<double>(scanner.mantissa());
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

int countDigits(std::uint64_t number) {
    int digits = 0;
    for (; number > 0; number /= 10)
        ++digits;
    return digits;
}

/// The short way, for a number that `roundShort` has rounded.
char* writeRounded(char* to, std::uint64_t number, int decimals, int width,
                   std::string_view point) {
    const int wholeDigits = std::max(width, countDigits(number) - decimals);
    char* const wholeEnd = to + wholeDigits;
    char* const end = decimals > 0 ? writeText(wholeEnd, point) + decimals : wholeEnd;
    writeDigitsBefore(wholeEnd, writeDigitsBefore(end, number, decimals), wholeDigits);
    return end;
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
    const std::int64_t rounded =
        decimals <= kShortDecimals ? roundShort(magnitude, decimals) : kNotShort;
    if (rounded != kNotShort)
        return writeRounded(to, static_cast<std::uint64_t>(rounded), decimals, width, point);
    if (std::isfinite(number))
        return writeExactly(to, magnitude, decimals, width, point);
    return writeText(to, std::isnan(number) ? "nan" : "inf");
}

} // namespace skyvert
