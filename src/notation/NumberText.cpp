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

/// Compares non-empty texts. Calling the library for every comparison would add 5% to a row
/// (parsed, precessed and rendered).
bool equalBytes(std::string_view a, std::string_view b) {
    return a.size() == b.size() && a.front() == b.front() && (a.size() == 1 || a == b);
}

/// Always writes both bytes: copying only as many as the mark has would add 7% to a row.
inline char* writeMark(char* to, const Mark& mark) {
    to[0] = mark.bytes[0];
    to[1] = mark.bytes[1];
    return to + mark.size;
}

/// Fast path of `writeFields` for two or three fields, a first field within its least width and at
/// most `kShortDecimals` decimals. Returns null if it does not apply. Without it a row takes 50%
/// longer.
inline char* writeShortFields(char* to, const Notation& notation, double value, int decimals,
                              char point) {
    const bool threeDigits = notation.firstDigits == 3;
    if (!(value >= 0.0 && value < (threeDigits ? 1000.0 : 100.0)))
        return nullptr;
    const auto cutWholePart = [&value] {
        const auto whole = static_cast<std::int32_t>(value);
        value = (value - whole) * 60.0;
        return static_cast<std::uint32_t>(whole);
    };
    std::uint32_t whole = cutWholePart();
    if (threeDigits) {
        *to++ = static_cast<char>('0' + whole / 100);
        whole %= 100;
    }
    to = writeMark(writePair(to, whole), notation.firstSeparator);
    if (notation.fields == 3)
        to = writeMark(writePair(to, cutWholePart()), notation.secondSeparator);
    const std::int64_t rounded = roundShort(value, decimals);
    if (rounded < 0)
        return nullptr;
    char* end = to + 2;
    if (decimals > 0) {
        *end = point;
        end += 1 + decimals;
    }
    writePair(to, writeDigits(end, static_cast<std::uint64_t>(rounded), decimals));
    return writeMark(end, notation.closingMark);
}

} // namespace

/// The decimal separator of written numbers. Not localised, it is a point if the system's separator
/// is still the one that was learned first, otherwise the system's.
inline std::string_view RADecFormat::pointForOutput() const {
    const std::string_view system = locale_.decimalPoint;
    if (localised_)
        return system;
    if (decpt_.empty())
        learnSeparator();
    return equalBytes(decpt_, system) ? "." : system;
}

/// Learns the system's decimal separator by formatting a number.
void RADecFormat::learnSeparator() const {
    decpt_ = Mid(Format(1.1, "0.0", locale_), 2, 1);
}

char* RADecFormat::writeDouble(char* to, double value, std::int64_t decimals, int width) const {
    if (decimals <= 0)
        return writeFixed(to, Round(value), 0, width, {});
    const auto shown = static_cast<int>(std::min<std::int64_t>(decimals, kMaxDecimals));
    return writeFixed(to, value, shown, width, pointForOutput());
}

std::string RADecFormat::DoubleToStr(double value, std::int64_t decimals, int width) const {
    std::array<char, kMaxFixedText> text;
    char* const end = writeDouble(text.data(), value, decimals, width);
    return std::string(text.data(), end);
}

char RADecFormat::shortPoint() const {
    if (!localised_)
        return '.';
    const std::string& point = locale_.decimalPoint;
    const bool isSupported = (point == "." || point == ",") && point != locale_.groupSeparator;
    return isSupported ? point.front() : '\0';
}

double RADecFormat::StrToDbl(std::string_view text) const {
    return localised_ ? CDbl(text, locale_) : Val(text);
}

/// Writes a value in one to three fields. Only the last field is rounded, without a carry to the
/// fields before it: a last field of 60 is intended.
char* RADecFormat::writeFields(char* to, const Notation& notation, double value,
                               std::int64_t decimals) const {
    const std::string_view point = decimals > 0 ? pointForOutput() : ".";
    if (notation.fields > 1 && decimals <= kShortDecimals && point.size() == 1) {
        const auto shown = static_cast<int>(std::max<std::int64_t>(decimals, 0));
        if (char* const end = writeShortFields(to, notation, value, shown, point.front()))
            return end;
    }
    int width = notation.firstDigits;
    for (int field = 1; field < notation.fields; ++field, width = 2) {
        const double whole = std::floor(value);
        value = (value - whole) * 60.0;
        to = writeFixed(to, std::fabs(whole), 0, width, {});
        to = writeMark(to, field == 1 ? notation.firstSeparator : notation.secondSeparator);
    }
    return writeMark(writeDouble(to, value, decimals, width), notation.closingMark);
}

} // namespace skyvert
