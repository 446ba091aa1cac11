#include "platform/Number.h"

#include "platform/ShortNumber.h"

#include <fast_float/fast_float.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>

namespace skyvert {

namespace {

const char* skipDigits(const char* at, const char* end) {
    std::uint64_t unused = 0;
    return readDigits(at, end, unused);
}

/// Whether `text` starts with a separator and exactly three digits.
bool startsWithGroup(std::string_view text, std::string_view separator) {
    if (separator.empty() || !text.starts_with(separator))
        return false;
    const char* const end = text.data() + text.size();
    const char* const group = text.data() + separator.size();
    return skipDigits(group, end) - group == 3;
}

/// The numbers of digits that a mask asks for.
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

/// `writeFixed` for a number that `roundShort` has rounded, in a third of the time of
/// `writeExactly`.
char* writeShort(char* to, std::uint64_t rounded, int decimals, int width, std::string_view point) {
    constexpr int mostDigits = 11; // of a number below the limit of `roundShort`
    int digits = decimals + width;
    while (digits < mostDigits &&
           static_cast<double>(rounded) >= kPowersOfTen[static_cast<std::size_t>(digits)])
        ++digits;
    const int wholeDigits = digits - decimals;
    char* const wholeEnd = to + wholeDigits;
    char* end = wholeEnd;
    if (decimals > 0) {
        for (const char byte : point)
            *end++ = byte;
        end += decimals;
    }
    writeDigits(wholeEnd, writeDigits(end, rounded, decimals), wholeDigits);
    return end;
}

/// `writeFixed` for any finite magnitude.
char* writeExactly(char* to, double magnitude, int decimals, int width, std::string_view point) {
    std::array<char, kMaxFixedText> room;
    const char* const end = std::to_chars(room.data(), room.data() + room.size(), magnitude,
                                          std::chars_format::fixed, decimals)
                                .ptr;
    const char* const wholeEnd = std::find<const char*>(room.data(), end, '.');
    const char* const whole = room[0] == '0' ? wholeEnd : room.data();
    to = std::fill_n(to, std::max<std::ptrdiff_t>(0, width - (wholeEnd - whole)), '0');
    to = std::copy(whole, wholeEnd, to);
    if (decimals == 0)
        return to;
    return std::copy(wholeEnd + 1, end, std::copy(point.begin(), point.end(), to));
}

} // namespace

double Val(std::string_view text) {
    const bool negative = text.starts_with('-');
    const char* const end = text.data() + text.size();
    const char* const at = text.data() + (negative || text.starts_with('+') ? 1 : 0);
    double magnitude = 0.0;
    if (readShort(at, end, '.', magnitude) == nullptr) {
        // fast_float also accepts words and exponents, so it gets only digits and a point.
        const char* const wholeEnd = skipDigits(at, end);
        const bool hasPoint = wholeEnd != end && *wholeEnd == '.';
        const char* const numberEnd = hasPoint ? skipDigits(wholeEnd + 1, end) : wholeEnd;
        if (fast_float::from_chars(at, numberEnd, magnitude, fast_float::chars_format::fixed).ptr ==
            at)
            return 0.0;
    }
    return negative ? -magnitude : magnitude;
}

double CDbl(std::string_view text, const Locale& locale) {
    const std::string_view group = locale.groupSeparator;
    const std::string_view point = locale.decimalPoint;
    const char* const end = text.data() + text.size();
    const auto rest = [&](const char* at) {
        return std::string_view(at, static_cast<std::size_t>(end - at));
    };
    const char* at = text.data() + (text.starts_with('-') || text.starts_with('+') ? 1 : 0);
    const char* const whole = at;
    at = skipDigits(at, end);
    std::string number(text.data(), at); // in the form for `Val`
    if (at - whole >= 1 && at - whole <= 3) {
        for (; startsWithGroup(rest(at), group); at += group.size() + 3)
            number.append(at + group.size(), 3);
    }
    if (!point.empty() && rest(at).starts_with(point)) {
        at += point.size();
        number.append(".").append(at, skipDigits(at, end));
    }
    return Val(number);
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
    point = point.substr(0, kMaxUtf8Length);
    if (number < 0.0)
        *to++ = '-';
    const double magnitude = std::fabs(number);
    const std::int64_t rounded = decimals <= kShortDecimals ? roundShort(magnitude, decimals) : -1;
    if (rounded >= 0)
        return writeShort(to, static_cast<std::uint64_t>(rounded), decimals, width, point);
    if (std::isfinite(number))
        return writeExactly(to, magnitude, decimals, width, point);
    const std::string_view word = std::isnan(number) ? "nan" : "inf";
    return std::copy(word.begin(), word.end(), to);
}

} // namespace skyvert
