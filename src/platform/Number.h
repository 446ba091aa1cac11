#pragma once

#include "platform/Locale.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// Numbers and their text, independent of the C library's locale. NaN and infinity are written `nan`
// and `inf`.
namespace skyvert {

/// The number at the start of a text: optional sign, digits, optional "." and digits; no exponent.
/// The rest is ignored. A text that starts with anything else, a blank included, gives 0.
/// Correctly rounded; a number too large for a double gives infinity.
double Val(std::string_view text);

/// Like `Val`, with the locale's decimal separator. A grouping separator is skipped only where the
/// locale would put it: after one to three digits and before each full group of three. Anything
/// else ends the number.
double CDbl(std::string_view text, const Locale& locale);

/// The nearest whole number, halves away from zero.
double Round(double number);

/// The number without its fraction, limited to the range of a 64-bit integer; 0 for NaN.
std::int64_t truncated(double number);

/// Renders a number by a mask: a leading "-" for the minus of a negative number, "0" for a digit,
/// "#" for a digit that is left out if it is a leading or trailing zero, "." for the locale's
/// decimal separator. Digits before the separator are never cut. Without "-" the magnitude is
/// printed. Rounds like `writeFixed`.
std::string Format(double number, std::string_view mask, const Locale& locale);

/// The most decimals of a finite double; further ones would be zeros.
constexpr int kMaxDecimals = 1074;

/// The most digits of a finite double before its decimal point.
constexpr int kMaxWholeDigits = 309;

/// The length of the longest character in UTF-8.
constexpr std::size_t kMaxPointBytes = 4;

/// The most bytes that `writeFixed` writes.
constexpr std::size_t kMaxFixedText = 1 + kMaxWholeDigits + kMaxPointBytes + kMaxDecimals;

/// Writes a number with a fixed number of decimals: the decimal nearest to the double's exact
/// value, an exact tie going to the even digit.
///
/// Given: `to`, room for `kMaxFixedText` bytes; `decimals`; `width`, the least number of digits
/// before the point (with 0, a whole part of zero is left out); `point`, written if there are
/// decimals. All three are limited to the constants above.
/// Returned: the end of the text. A negative number that rounds to zero keeps its minus; negative
/// zero has none.
char* writeFixed(char* to, double number, int decimals, int width, std::string_view point);

} // namespace skyvert
