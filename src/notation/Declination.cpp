#include "notation/CommonErrors.h"
#include "notation/FieldCutting.h"
#include "notation/Notation.h"
#include "notation/RADecFormat.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace skyvert {

namespace {

/// The message for the first field that is out of range, or empty.
std::string_view checkFields(const Fields& fields) {
    const auto [first, minutes, seconds] = fields;
    if (0.0 > first || first > 90.0)
        return "Degrees must be between -90 and +90";
    return checkMinutesAndSeconds(minutes, seconds);
}

} // namespace

char* RADecFormat::writeDec(double degrees, char* to) const {
    if (decNotation_ == nullptr)
        return std::copy(kUnknownFormat.begin(), kUnknownFormat.end(), to);
    if (!decNotation_->showsSign)
        return writeFields(to, *decNotation_, degrees, DecDecimals_);
    // Written separately, since a first field of zero would lose the sign.
    *to++ = 0.0 > degrees ? '-' : '+';
    return writeFields(to, *decNotation_, std::fabs(degrees), DecDecimals_);
}

std::string RADecFormat::ExportDec(double degrees) const {
    std::array<char, kMaxText> text;
    return std::string(text.data(), writeDec(degrees, text.data()));
}

double RADecFormat::ImportDec(std::string_view text, std::string_view& error) const {
    if (const auto value = valueWithoutFields(text, decNotation_, error))
        return *value;
    const bool negative = text.front() == '-';
    if (negative || text.front() == '+')
        text.remove_prefix(1);
    const Fields fields = cutFields(text, *decNotation_, *this);
    const auto [first, minutes, seconds] = fields;
    error = checkFields(fields);
    const double magnitude = (minutes / 60.0 + first) + seconds / 3600.0;
    const double degrees = negative ? -magnitude : magnitude;
    if (error.empty() && (-90.0 > degrees || degrees > 90.0))
        error = "Value must be between -90 and +90 degrees";
    return degrees;
}

} // namespace skyvert
