#include "notation/Notation.h"
#include "notation/RADecFormat.h"
#include "platform/Number.h"
#include "platform/ShortNumber.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace skyvert {

namespace {

/// The system's decimal separator, learned from a number that has one.
std::string separatorOf(const Locale& locale) {
    return std::string(Mid(Format(1.1, "0.0", locale), 2, 1));
}

/// For texts of a byte or two, whose comparison by the library would take longer than a cell.
bool equalBytes(std::string_view a, std::string_view b) {
    return a.size() == b.size() && a.front() == b.front() && (a.size() == 1 || a == b);
}

/// Both bytes of the room are written, whatever the mark's size.
char* writeMark(char* to, const Mark& mark) {
    std::copy(mark.bytes.begin(), mark.bytes.end(), to);
    return to + mark.size;
}

/// Writes the whole part of a value as a field of its own, without a sign, and makes the rest of
/// the value 60ths.
char* writeAnyWholePart(char* to, double& value, int width) {
    const double whole = std::floor(value);
    value = (value - whole) * 60.0;
    return writeFixed(to, std::fabs(whole), 0, width, {});
}

/// The same, short for the values that positions have.
inline char* writeWholePart(char* to, double& value, int width) {
    if (!(value >= 0.0 && value < (width == 3 ? 1000.0 : 100.0)))
        return writeAnyWholePart(to, value, width);
    const auto whole = static_cast<std::int32_t>(value);
    value = (value - whole) * 60.0;
    auto digits = static_cast<std::uint32_t>(whole);
    if (width == 3) {
        *to++ = static_cast<char>('0' + digits / 100);
        digits %= 100;
    }
    return writePair(to, digits);
}

/// A last field with a point of one byte and a whole part of two digits. Returns null for any other
/// and where the short way does not serve.
inline char* writeShortField(char* to, double value, int decimals, std::string_view point) {
    if (point.size() != 1 || !(value >= 0.0 && value < 99.0))
        return nullptr;
    const std::int64_t rounded = roundShort(value, decimals);
    if (rounded == kNotShort)
        return nullptr;
    char* const wholeEnd = to + 2;
    char* const end = wholeEnd + 1 + decimals;
    *wholeEnd = point.front();
    const std::uint64_t whole =
        writeDigitsBefore(end, static_cast<std::uint64_t>(rounded), decimals);
    writePair(to, static_cast<std::uint32_t>(whole));
    return end;
}

} // namespace

/// What stands between a number's whole part and its decimals. Where a point is wanted, it takes
/// the place of the separator that the system had when the record first needed to know it.
std::string_view RADecFormat::pointForOutput() const {
    const std::string_view system = locale_->decimalPoint;
    if (localised_)
        return system;
    if (decpt_.empty())
        decpt_ = separatorOf(*locale_);
    return equalBytes(decpt_, system) ? "." : system;
}

char* RADecFormat::writeDouble(char* to, double value, std::int64_t decimals, int width) const {
    if (decimals <= 0)
        return writeFixed(to, Round(value), 0, width, {});
    const std::string_view point = pointForOutput();
    if (width == 2 && decimals <= kShortDecimals) {
        if (char* const end = writeShortField(to, value, static_cast<int>(decimals), point))
            return end;
    }
    const auto shown = static_cast<int>(std::min<std::int64_t>(decimals, kMaxDecimals));
    return writeFixed(to, value, shown, width, point);
}

std::string RADecFormat::DoubleToStr(double value, std::int64_t decimals, int width) const {
    std::array<char, kMaxFixedText> text;
    char* const end = writeDouble(text.data(), value, decimals, width);
    return std::string(text.data(), end);
}

double RADecFormat::StrToDbl(std::string_view text) const {
    return localised_ ? CDbl(text, *locale_) : Val(text);
}

/// Writes a value in one to three fields. Only the last field is rounded and nothing is carried
/// to the fields before it, so that a last field of 60 may appear: that is meant.
char* RADecFormat::writeFields(char* to, const Notation& notation, double value,
                               std::int64_t decimals) const {
    if (notation.fields == 1)
        return writeDouble(to, value, decimals, notation.firstDigits);
    to = writeWholePart(to, value, notation.firstDigits);
    to = writeMark(to, notation.firstSeparator);
    if (notation.fields == 3) {
        to = writeWholePart(to, value, 2);
        to = writeMark(to, notation.secondSeparator);
    }
    to = writeDouble(to, value, decimals, 2);
    return writeMark(to, notation.closingMark);
}

} // namespace skyvert
