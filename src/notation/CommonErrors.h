#pragma once

#include "platform/Text.h"

#include <optional>
#include <string_view>

// Error messages and values shared by right ascension and declination.
namespace skyvert {

struct Notation;

constexpr std::string_view kUnknownFormat = "Unknown format!";

/// The value of a text whose fields cannot be read, blank or in an unknown notation (null).
/// Returned: nothing for any other text. `error` is the message, empty if nothing is returned.
inline std::optional<double> valueWithoutFields(std::string_view text, const Notation* notation,
                                                std::string_view& error) {
    error = {};
    if (isBlank(text)) {
        error = "No data!";
        return 0.0;
    }
    if (notation == nullptr) {
        error = "Bad format!";
        return -999.0;
    }
    return std::nullopt;
}

/// The message for the first of both that is out of range, or empty.
inline std::string_view checkMinutesAndSeconds(double minutes, double seconds) {
    if (0.0 > minutes || minutes >= 60.0)
        return "Minutes must be non-negative and less than 60";
    if (0.0 > seconds || seconds >= 60.0)
        return "Seconds must be non-negative and less than 60";
    return {};
}

} // namespace skyvert
