#pragma once

#include "platform/Locale.h"
#include "platform/Number.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace skyvert {

struct Notation;

/// How a list of sky positions is written as text: one notation for right ascension, one for
/// declination, the number of decimals of each, and whether numbers follow the system's locale.
///
/// Units: right ascension in hours, declination in degrees, whichever notation is selected. A
/// notation of right ascension in degrees is only a way of writing hours: 15 degrees for one hour.
///
/// Notations are identified by their catalogue names, ignoring case. Setters do not check their
/// values: an unknown notation is kept, renders as "Unknown format!", fails to parse with "Bad
/// format!" and has no mask.
///
/// A format is small and cheap to copy. It refers to the locale, which must outlive it.
class RADecFormat {
public:
    /// `HH MM SS` and `+DD MM SS` with no decimals, not localised.
    explicit RADecFormat(const Locale& locale);
    explicit RADecFormat(const Locale&&) = delete;

    /// Parses the text form that `AsString` returns. Missing parts keep their defaults, further
    /// parts are ignored, and decimals that are not a number read as 0.
    RADecFormat(std::string_view text, const Locale& locale);
    RADecFormat(std::string_view, const Locale&&) = delete;

    /// The text form: both notations, "Y" or "N" for `localised`, the decimals of right ascension
    /// and of declination, joined by TAB.
    std::string AsString() const;

    /// The names of the notations, in the order in which the popups offer them.
    static std::vector<std::string> SupportedRAFormats();
    static std::vector<std::string> SupportedDecFormats();

    const std::string& raFormat() const { return raFormat_; }

    void setRaFormat(std::string_view name);

    const std::string& decFormat() const { return decFormat_; }

    void setDecFormat(std::string_view name);

    /// True: numbers are written and read with the locale's decimal separator. False: with a point.
    bool localised() const { return localised_; }

    void setLocalised(bool localised) { localised_ = localised; }

    /// The number of decimals of the last field. A negative number counts as 0.
    std::int64_t RADecimals() const { return RADecimals_; }

    void setRADecimals(std::int64_t decimals) { RADecimals_ = decimals; }

    std::int64_t DecDecimals() const { return DecDecimals_; }

    void setDecDecimals(std::int64_t decimals) { DecDecimals_ = decimals; }

    /// The system's decimal separator, learned when a point first had to replace it. Empty before.
    const std::string& decpt() const { return decpt_; }

    /// Renders a right ascension.
    ///
    /// Given: hours. Any value is rendered, without wrapping at 24.
    /// Returned: the text, or "Unknown format!" for an unknown notation.
    /// Notes: All fields but the last are rounded down; the last is rounded to its decimals without
    /// a carry: 12.99999 h in `HH MM` with two decimals is "12 60.00".
    std::string ExportRA(double hours) const;

    /// Renders a declination.
    ///
    /// Given: degrees. Any value is rendered, without a limit at 90.
    /// Returned: the text, or "Unknown format!" for an unknown notation.
    /// Notes: Every notation but `DD` writes a sign; negative zero has "+". Rounding as for
    /// `ExportRA`.
    std::string ExportDec(double degrees) const;

    /// The most bytes that `writeRA` and `writeDec` write.
    static constexpr std::size_t kMaxText = 3 * kMaxFixedText + 16;

    /// As `ExportRA` and `ExportDec`, but into a buffer. Given: `to`, room for `kMaxText` bytes,
    /// any of which may change. Returned: the end of the text.
    char* writeRA(double hours, char* to) const;
    char* writeDec(double degrees, char* to) const;

    /// Parses a right ascension.
    ///
    /// Given: a text in the format's notation, or in another that is cut alike (see `cutFields`).
    /// Returned: hours, from 0 to less than 24 if `error` is empty. Otherwise `error` is a message
    /// for the user, and the value is 0 for a blank text, -999 for an unknown notation, and the sum
    /// of the fields for one out of range (below 0; 24 hours, 360 degrees, 60 minutes or seconds).
    /// Notes: A field that is not a number reads as 0, without a message.
    double ImportRA(std::string_view text, std::string_view& error) const;

    /// Parses a declination.
    ///
    /// Given: a text as for `ImportRA`, with "-", "+" or no sign.
    /// Returned: degrees, from -90 to 90 inclusive if `error` is empty. Otherwise as for
    /// `ImportRA`; the limit of the degrees is 90.
    /// Notes: The sign is removed before the fields are read, so a first field of zero keeps it.
    double ImportDec(std::string_view text, std::string_view& error) const;

    /// The mask of an entry field for the notation; empty for free text. "#" is a digit, "9" an
    /// optional digit, "&" any character, "." the locale's decimal separator; "\" makes the next
    /// character literal.
    std::string RAMask() const;
    std::string DecMask() const;

    /// The mark that closes a text of the notation with this mask, such as "s"; empty for none.
    /// Given: a mask as `RAMask` or `DecMask` gives it.
    static std::string_view closingMark(std::string_view mask);

    /// The text of a number. Given: the decimals, and `width`, the least number of digits before
    /// the point. Without decimals, halves are rounded away from zero; with decimals, the exact
    /// value is rounded to the nearest, a tie to the even digit.
    std::string DoubleToStr(double value, std::int64_t decimals, int width) const;

    /// The number at the start of a text, 0 if there is none: `CDbl` if localised, else `Val`.
    double StrToDbl(std::string_view text) const;

    /// The decimal separator for `readShort`, "." or ","; NUL if `readShort` could not read as
    /// `StrToDbl` does. It stops at a group separator, so a number with groups takes the general
    /// path.
    char shortPoint() const;

private:
    std::string_view pointForOutput() const;
    void learnSeparator() const;
    char* writeDouble(char* to, double value, std::int64_t decimals, int width) const;
    char* writeFields(char* to, const Notation& notation, double value,
                      std::int64_t decimals) const;

    const Locale& locale_;
    std::string raFormat_;
    std::string decFormat_;
    const Notation* raNotation_ = nullptr;  ///< of `raFormat_`, null if unknown
    const Notation* decNotation_ = nullptr; ///< of `decFormat_`, null if unknown
    bool localised_ = false;
    std::int64_t RADecimals_ = 0;
    std::int64_t DecDecimals_ = 0;
    mutable std::string decpt_;
};

} // namespace skyvert
