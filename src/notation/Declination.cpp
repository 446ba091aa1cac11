#include "notation/FieldCutting.h"
#include "notation/Messages.h"
#include "notation/Notation.h"
#include "notation/RADecFormat.h"
#include "platform/Text.h"

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

} // namespace

void RADecFormat::appendDec(double degrees, std::string& out) const {
    // The sign is that of the whole value, so that a first field of zero does not lose it.
    const bool negative = 0.0 > degrees;
    if (decNotation_ == nullptr)
        out += kUnknownFormat;
    else if (decNotation_->showsSign)
        appendFields(*decNotation_, negative ? "-" : "+", negative ? -degrees : degrees,
                     DecDecimals_, out);
    else
        appendFields(*decNotation_, {}, degrees, DecDecimals_, out);
}

std::string RADecFormat::ExportDec(double degrees) const {
    std::string text;
    appendDec(degrees, text);
    return text;
}

double RADecFormat::ImportDec(std::string_view text, std::string_view& error) const {
    error = {};
    if (Trim(text).empty()) {
        error = kNoData;
        return 0.0;
    }
    if (decNotation_ == nullptr) {
        error = kBadFormat;
        return kValueOfBadFormat;
    }
    const bool negative = text.front() == '-';
    if (negative || text.front() == '+')
        text.remove_prefix(1);
    const Fields fields = cutFields(text, *decNotation_, *this);
    error = checkFields(fields);
    const double magnitude = (fields.minutes / 60.0 + fields.first) + fields.seconds / 3600.0;
    const double degrees = magnitude * (negative ? -1.0 : 1.0);
    if (error.empty() && (-90.0 > degrees || degrees > 90.0))
        error = "Value must be between -90 and +90 degrees";
    return degrees;
}

} // namespace skyvert
