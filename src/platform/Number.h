#pragma once

#include "platform/Locale.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// Numbers and their text. Nothing here asks the C library's locale; NaN and infinity are written
// `nan` and `inf`.
namespace skyvert {

/// The number at the start of a text: optional sign, digits, optional "." and digits. The rest of
/// the text is ignored; a text that opens with anything else, a blank included, gives 0. There is
/// no exponent. Correctly rounded; too many digits give infinity.
double Val(std::string_view text);

/// Like `Val`, with the locale's decimal separator. A grouping separator is skipped only where the
/// locale would put it: behind one to three digits and before a full group of three. Anything else
/// ends the number.
double CDbl(std::string_view text, const Locale& locale);

/// The nearest whole number, halves away from zero.
double Round(double number);

/// The number with its fraction cut off. What a 64-bit integer cannot hold gives the end of its
/// range, NaN gives 0.
std::int64_t truncated(double number);

/// Renders a number by a mask: an optional "-" that prints a minus for a negative number, "0" for
/// a digit in any case and "#" for a digit if there is one, "." for the locale's decimal
/// separator. More digits than positions before the separator are all printed. Without "-" in the
/// mask the magnitude is printed. Rounding is that of `writeFixed`.
std::string Format(double number, std::string_view mask, const Locale& locale);

/// No finite double has more decimals than this; all further ones would be zeros.
constexpr int kMaxDecimals = 1074;

/// The most digits that a finite double has before its decimal point.
constexpr int kMaxWholeDigits = 309;

/// The longest character in UTF-8.
constexpr std::size_t kMaxPointBytes = 4;

/// Room for whatever `writeFixed` writes.
constexpr std::size_t kMaxFixedText = 1 + kMaxWholeDigits + kMaxPointBytes + kMaxDecimals;

/// Writes a number with a fixed number of decimals to `to`, where `kMaxFixedText` bytes are free,
/// and returns the end of what it wrote.
///
/// The result is the decimal that is nearest to the double's exact value, an exact tie going to
/// the even digit. A negative number keeps its minus when it rounds to zero; negative zero has
/// none. `decimals` and `width`, the least number of digits before the point, are taken within
/// their limits above; with `width` 0 a whole part of zero is left out. `point` is written when
/// there are decimals, at most `kMaxPointBytes` of it.
char* writeFixed(char* to, double number, int decimals, int width, std::string_view point);

} // namespace skyvert
