#include "notation/Notation.h"
#include "notation/RADecFormat.h"
#include "platform/Text.h"

namespace skyvert {

namespace {

/// The notation's mask; unless numbers are localised, its decimal point is made literal.
std::string maskOf(const Notation* notation, bool localised) {
    if (notation == nullptr)
        return {};
    return localised ? std::string(notation->mask) : Replace(notation->mask, ".", "\\.");
}

} // namespace

std::string_view RADecFormat::closingMark(std::string_view mask) {
    const std::string tableMask = Replace(mask, "\\.", ".");
    for (const auto notations : {notationsOfRA(), notationsOfDec()})
        for (const Notation& notation : notations)
            if (notation.mask == tableMask)
                return notation.closingMark.text();
    return {};
}

std::string RADecFormat::RAMask() const {
    return maskOf(raNotation_, localised_);
}

std::string RADecFormat::DecMask() const {
    return maskOf(decNotation_, localised_);
}

} // namespace skyvert
