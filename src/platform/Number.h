#pragma once

#include "platform/Locale.h"
#include "platform/Unicode.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// Conversion between numbers and text, independent of the C library's locale. NaN and infinity are
// written `nan` and `inf`.
namespace skyvert {

/// The number at the start of a text: optional sign, digits, optional "." and digits; no exponent.
/// The rest is ignored. Returns 0 for a text that starts with anything else, a blank included.
/// Correctly rounded; infinity if the number is too large for a double.
double Val(std::string_view text);

/// Like `Val`, but with the locale's separators. A group separator is skipped only in its regular
/// place: after one to three leading digits and before each full group of three. Any other
/// character ends the number.
double CDbl(std::string_view text, const Locale& locale);

/// The nearest whole number, halves away from zero.
double Round(double number);

/// The number without its fraction, clamped to the range of a 64-bit integer; 0 for NaN.
std::int64_t truncated(double number);

/// Renders a number by a mask: a leading "-" for the minus of a negative number, "0" for a digit,
/// "#" for a digit that is left out if it is a leading or trailing zero, "." for the locale's
/// decimal separator. Digits before the separator are never dropped. Without "-" the magnitude is
/// written. Rounds like `writeFixed`.
std::string Format(double number, std::string_view mask, const Locale& locale);

/// The most decimals of a finite double; all further ones are zeros.
constexpr int kMaxDecimals = 1074;

/// The most digits of a finite double before its decimal point.
constexpr int kMaxWholeDigits = 309;

/// The most bytes that `writeFixed` writes.
constexpr std::size_t kMaxFixedText = 1 + kMaxWholeDigits + kMaxUtf8Length + kMaxDecimals;

/// Writes a number with a fixed number of decimals, rounded from the double's exact value to the
/// nearest; an exact tie goes to the even digit.
///
/// Given: `to`, room for `kMaxFixedText` bytes; `decimals`; `width`, the least number of digits
/// before the point (with 0, a whole part of zero is left out); `point`, written if there are
/// decimals. The last three are clamped to the constants above.
/// Returned: the end of the text. A negative number that rounds to zero keeps its minus; negative
/// zero has none.
char* writeFixed(char* to, double number, int decimals, int width, std::string_view point);

} // namespace skyvert
