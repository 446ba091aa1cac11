#include "notation/CommonErrors.h"
#include "notation/FieldCutting.h"
#include "notation/Notation.h"
#include "notation/RADecFormat.h"

#include <algorithm>
#include <array>

namespace skyvert {

namespace {

/// The message for the first field that is out of range, or empty. Given: the first field in hours,
/// minutes and seconds as typed.
std::string_view checkFields(const Fields& fields, bool inDegrees) {
    const auto [first, minutes, seconds] = fields;
    if (0.0 > first || first >= 24.0)
        return inDegrees ? "Degrees must be non-negative and less than 360"
                         : "Hours must be non-negative and less than 24";
    return checkMinutesAndSeconds(minutes, seconds);
}

} // namespace

char* RADecFormat::writeRA(double hours, char* to) const {
    if (raNotation_ == nullptr)
        return std::copy(kUnknownFormat.begin(), kUnknownFormat.end(), to);
    return writeFields(to, *raNotation_, raNotation_->inDegrees ? hours * 15.0 : hours,
                       RADecimals_);
}

std::string RADecFormat::ExportRA(double hours) const {
    std::array<char, kMaxText> text;
    return std::string(text.data(), writeRA(hours, text.data()));
}

double RADecFormat::ImportRA(std::string_view text, std::string_view& error) const {
    if (const auto value = valueWithoutFields(text, raNotation_, error))
        return *value;
    const bool inDegrees = raNotation_->inDegrees;
    Fields fields = cutFields(text, *raNotation_, *this);
    auto& [first, minutes, seconds] = fields;
    if (inDegrees)
        first /= 15.0;
    error = checkFields(fields, inDegrees);
    if (inDegrees) {
        minutes /= 15.0;
        seconds /= 15.0;
    }
    const double hours = (minutes / 60.0 + first) + seconds / 3600.0;
    // Fields just below their limits can add up to 24 in doubles.
    if (error.empty() && (0.0 > hours || hours >= 24.0))
        error = "Value must be non-negative and less than 24";
    return hours;
}

} // namespace skyvert
