#include "notation/Notation.h"
#include "notation/RADecFormat.h"
#include "platform/Number.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace skyvert {

namespace {

/// Three numbers, and the sign, separators and closing mark between and around them.
constexpr std::size_t kMaxPositionText = 3 * kMaxFixedText + 16;

char* writeText(char* to, std::string_view text) {
    for (const char byte : text)
        *to++ = byte;
    return to;
}

/// The largest whole number not above the value, without the library's call where that is easy.
double wholePart(double value) {
    constexpr double easyLimit = 1e9;
    if (value >= 0.0 && value < easyLimit)
        return static_cast<std::int32_t>(value);
    return std::floor(value);
}

/// A first or middle field: whole, without decimals, and without a sign of its own.
char* writeWhole(char* to, double value, int width) {
    if (width == 2 && value >= 0.0 && value < 100.0) {
        const auto number = static_cast<unsigned>(value);
        *to++ = static_cast<char>('0' + number / 10);
        *to++ = static_cast<char>('0' + number % 10);
        return to;
    }
    return writeFixed(to, std::fabs(value), 0, width, {});
}

} // namespace

std::string RADecFormat::DoubleToStr(double value, std::int64_t decimals, int width) const {
    std::array<char, kMaxFixedText> text;
    char* const end = writeDouble(text.data(), value, decimals, width);
    return std::string(text.data(), end);
}

double RADecFormat::StrToDbl(std::string_view text) const {
    return localised_ ? CDbl(text, *locale_) : Val(text);
}

char* RADecFormat::writeDouble(char* to, double value, std::int64_t decimals, int width) const {
    if (decimals <= 0)
        return writeFixed(to, Round(value), 0, width, {});
    const auto shown = static_cast<int>(std::min<std::int64_t>(decimals, kMaxDecimals));
    return writeFixed(to, value, shown, width, pointForOutput());
}

/// What stands between a number's whole part and its decimals. Where a point is wanted, it takes
/// the place of the separator that the system had when the record first needed to know it.
std::string_view RADecFormat::pointForOutput() const {
    const std::string_view system = locale_->decimalPoint;
    if (localised_)
        return system;
    if (decpt_.empty())
        decpt_ = Mid(Format(1.1, "0.0", *locale_), 2, 1);
    return decpt_ == system ? "." : system;
}

/// Writes a value in one to three fields. Only the last field is rounded and nothing is carried
/// to the fields before it, so that a last field of 60 may appear: that is meant.
void RADecFormat::appendFields(const Notation& notation, std::string_view sign, double value,
                               std::int64_t decimals, std::string& out) const {
    std::array<char, kMaxPositionText> text;
    char* end = writeText(text.data(), sign);
    if (notation.fields == 1) {
        out.append(text.data(), writeDouble(end, value, decimals, notation.firstDigits));
        return;
    }
    const double first = wholePart(value);
    double last = (value - first) * 60.0;
    end = writeWhole(end, first, notation.firstDigits);
    end = writeText(end, notation.firstSeparator);
    if (notation.fields == 3) {
        const double minutes = wholePart(last);
        last = (last - minutes) * 60.0;
        end = writeWhole(end, minutes, 2);
        end = writeText(end, notation.secondSeparator);
    }
    end = writeDouble(end, last, decimals, 2);
    end = writeText(end, notation.closingMark);
    out.append(text.data(), end);
}

} // namespace skyvert
