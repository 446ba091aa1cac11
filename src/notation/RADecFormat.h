#pragma once

#include "platform/Locale.h"
#include "platform/Number.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace skyvert {

struct Notation;

/// How one list of sky positions is written as text: a notation for right ascension, one for
/// declination, the number of decimals of each, and whether numbers follow the system's locale.
///
/// It renders a position to text and parses text back to a position. Right ascension is in hours
/// and declination in degrees at every operation, whichever notation is selected: a notation of
/// right ascension in degrees is a way of writing hours.
///
/// A notation is named by its text in the catalogue, in any letter case. None of the properties is
/// checked when it is set: an unknown notation stays, renders as "Unknown format!", parses with
/// "Bad format!" and has no mask.
///
/// A record is a small value, cheap to copy. It keeps a pointer to the locale, which outlives it.
class RADecFormat {
public:
    /// `HH MM SS` and `+DD MM SS` with no decimals, not localised.
    explicit RADecFormat(const Locale& locale);
    explicit RADecFormat(const Locale&&) = delete;

    /// Reads what `AsString` writes. A field that is missing keeps its default, further fields are
    /// ignored, and what is no number reads as 0 decimals.
    RADecFormat(std::string_view text, const Locale& locale);
    RADecFormat(std::string_view, const Locale&&) = delete;

    /// The text form: both notations, "Y" or "N" for `localised`, the decimals of right ascension
    /// and of declination, joined by TAB.
    std::string AsString() const;

    /// The names of the notations, in the order in which they are offered.
    static std::vector<std::string> SupportedRAFormats();
    static std::vector<std::string> SupportedDecFormats();

    const std::string& raFormat() const { return raFormat_; }

    void setRaFormat(std::string_view name);

    const std::string& decFormat() const { return decFormat_; }

    void setDecFormat(std::string_view name);

    /// True: numbers have the locale's decimal separator, on output and on input. False: a point.
    bool localised() const { return localised_; }

    void setLocalised(bool localised) { localised_ = localised; }

    /// The decimals of the last field. A negative number counts as 0.
    std::int64_t RADecimals() const { return RADecimals_; }

    void setRADecimals(std::int64_t decimals) { RADecimals_ = decimals; }

    std::int64_t DecDecimals() const { return DecDecimals_; }

    void setDecDecimals(std::int64_t decimals) { DecDecimals_ = decimals; }

    /// The system's decimal separator, once it was needed to write a point instead; empty before.
    const std::string& decpt() const { return decpt_; }

    /// The text of a right ascension. Given: hours, of any size. Only the last field is rounded,
    /// and nothing is carried to the fields before it: 12.99999 h in `HH MM` with two decimals is
    /// 12 60.00. An unknown notation gives "Unknown format!".
    std::string ExportRA(double hours) const;

    /// The text of a declination. Given: degrees, of any size. Every notation but `DD` writes its
    /// sign. Negative zero counts as positive. Otherwise like `ExportRA`.
    std::string ExportDec(double degrees) const;

    /// Room for whatever `writeRA` and `writeDec` write.
    static constexpr std::size_t kMaxText = 3 * kMaxFixedText + 16;

    /// `ExportRA` and `ExportDec` to a buffer, where `kMaxText` bytes are free. Returned: the end
    /// of what was written. Bytes behind it may have changed too.
    char* writeRA(double hours, char* to) const;
    char* writeDec(double degrees, char* to) const;

    /// Reads a right ascension. Returned: hours, and in `error` a message for the user, empty when
    /// the text gave a right ascension of at least 0 and below 24 hours. Beside a message about a
    /// range the number is still the sum of the fields. A blank text gives 0, an unknown notation
    /// -999. What is no number reads as 0, without a message.
    double ImportRA(std::string_view text, std::string_view& error) const;

    /// Reads a declination. Returned: degrees, -90 and 90 included. Every notation takes "-", "+"
    /// or no sign, which is set aside before the fields are read. Otherwise like `ImportRA`.
    double ImportDec(std::string_view text, std::string_view& error) const;

    /// The mask of an entry field for the notation; empty for free text. In it "#" is a digit, "9"
    /// an optional one, "&" any character, "\" makes the next character literal and "." is the
    /// locale's decimal separator.
    std::string RAMask() const;
    std::string DecMask() const;

    /// Writes a number with `decimals` decimals and at least `width` digits before the point.
    /// Without decimals halves are rounded away from zero; with them, the decimal nearest to the
    /// exact value is written.
    std::string DoubleToStr(double value, std::int64_t decimals, int width) const;

    /// The number at the start of a text, 0 when there is none.
    double StrToDbl(std::string_view text) const;

private:
    std::string_view pointForOutput() const;
    char* writeDouble(char* to, double value, std::int64_t decimals, int width) const;
    char* writeFields(char* to, const Notation& notation, double value,
                      std::int64_t decimals) const;

    const Locale* locale_;
    std::string raFormat_;
    std::string decFormat_;
    const Notation* raNotation_ = nullptr;  ///< that of `raFormat_`, null when unknown
    const Notation* decNotation_ = nullptr; ///< that of `decFormat_`, null when unknown
    bool localised_ = false;
    std::int64_t RADecimals_ = 0;
    std::int64_t DecDecimals_ = 0;
    mutable std::string decpt_;
};

} // namespace skyvert
