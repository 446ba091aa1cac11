#include "notation/FieldCutting.h"
#include "notation/Messages.h"
#include "notation/Notation.h"
#include "notation/RADecFormat.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>

namespace skyvert {

namespace {

/// The message of the first field that is out of range; empty when all are in theirs. `first` is
/// in hours, minutes and seconds are as typed.
std::string_view checkFields(const Fields& fields, bool inDegrees) {
    if (0.0 > fields.first || fields.first >= 24.0)
        return inDegrees ? "Degrees must be non-negative and less than 360"
                         : "Hours must be non-negative and less than 24";
    if (0.0 > fields.minutes || fields.minutes >= 60.0)
        return kBadMinutes;
    if (0.0 > fields.seconds || fields.seconds >= 60.0)
        return kBadSeconds;
    return {};
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
    error = {};
    if (isBlank(text)) {
        error = kNoData;
        return 0.0;
    }
    if (raNotation_ == nullptr) {
        error = kBadFormat;
        return kValueOfBadFormat;
    }
    const bool inDegrees = raNotation_->inDegrees;
    Fields fields = cutFields(text, *raNotation_, *this);
    if (inDegrees)
        fields.first /= 15.0;
    error = checkFields(fields, inDegrees);
    if (inDegrees) {
        fields.minutes /= 15.0;
        fields.seconds /= 15.0;
    }
    const double hours = (fields.minutes / 60.0 + fields.first) + fields.seconds / 3600.0;
    // Fields just below their limits may sum to 24 in doubles.
    if (error.empty() && (0.0 > hours || hours >= 24.0))
        error = "Value must be non-negative and less than 24";
    return hours;
}

} // namespace skyvert
