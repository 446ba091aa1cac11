#include "notation/FieldCutting.h"
#include "notation/Messages.h"
#include "notation/Notation.h"
#include "notation/RADecFormat.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace skyvert {

namespace {

/// The message of the first field that is out of range; empty when all are in theirs.
std::string_view checkFields(const Fields& fields) {
    if (0.0 > fields.first || fields.first > 90.0)
        return "Degrees must be between -90 and +90";
    if (0.0 > fields.minutes || fields.minutes >= 60.0)
        return kBadMinutes;
    if (0.0 > fields.seconds || fields.seconds >= 60.0)
        return kBadSeconds;
    return {};
}

/// Half of all positions have either sign, and no processor guesses it: it is looked up.
constexpr std::array<char, 2> kSigns{'+', '-'};
constexpr std::array<double, 2> kFactors{1.0, -1.0};

} // namespace

char* RADecFormat::writeDec(double degrees, char* to) const {
    if (decNotation_ == nullptr)
        return std::copy(kUnknownFormat.begin(), kUnknownFormat.end(), to);
    if (!decNotation_->showsSign)
        return writeFields(to, *decNotation_, degrees, DecDecimals_);
    // The sign is that of the whole value, so that a first field of zero does not lose it.
    *to++ = kSigns[0.0 > degrees ? 1 : 0];
    return writeFields(to, *decNotation_, std::fabs(degrees), DecDecimals_);
}

std::string RADecFormat::ExportDec(double degrees) const {
    std::array<char, kMaxText> text;
    return std::string(text.data(), writeDec(degrees, text.data()));
}

double RADecFormat::ImportDec(std::string_view text, std::string_view& error) const {
    error = {};
    if (isBlank(text)) {
        error = kNoData;
        return 0.0;
    }
    if (decNotation_ == nullptr) {
        error = kBadFormat;
        return kValueOfBadFormat;
    }
    const bool negative = text.front() == '-';
    text.remove_prefix(static_cast<std::size_t>(negative) |
                       static_cast<std::size_t>(text.front() == '+'));
    const Fields fields = cutFields(text, *decNotation_, *this);
    error = checkFields(fields);
    const double magnitude = (fields.minutes / 60.0 + fields.first) + fields.seconds / 3600.0;
    const double degrees = magnitude * kFactors[negative ? 1 : 0];
    if (error.empty() && (-90.0 > degrees || degrees > 90.0))
        error = "Value must be between -90 and +90 degrees";
    return degrees;
}

} // namespace skyvert
