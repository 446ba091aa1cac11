#include "notation/RADecFormat.h"

#include "notation/Notation.h"
#include "platform/Number.h"
#include "platform/Text.h"

#include <array>
#include <span>

namespace skyvert {

namespace {

std::vector<std::string> namesOf(std::span<const Notation> notations) {
    std::vector<std::string> names;
    names.reserve(notations.size());
    for (const Notation& notation : notations)
        names.emplace_back(notation.name);
    return names;
}

} // namespace

RADecFormat::RADecFormat(const Locale& locale) : locale_(locale) {
    setRaFormat("HH MM SS");
    setDecFormat("+DD MM SS");
}

RADecFormat::RADecFormat(std::string_view text, const Locale& locale) : RADecFormat(locale) {
    const std::vector<std::string_view> fields = Split(text, '\t');
    const auto take = [&](std::size_t index, auto setter) {
        if (index < fields.size())
            setter(fields[index]);
    };
    take(0, [&](std::string_view field) { setRaFormat(field); });
    take(1, [&](std::string_view field) { setDecFormat(field); });
    take(2, [&](std::string_view field) { setLocalised(equalsIgnoringCase(field, "Y")); });
    take(3, [&](std::string_view field) { setRADecimals(truncated(Val(field))); });
    take(4, [&](std::string_view field) { setDecDecimals(truncated(Val(field))); });
}

std::string RADecFormat::AsString() const {
    const std::array<std::string, 5> fields{raFormat_, decFormat_, localised_ ? "Y" : "N",
                                            std::to_string(RADecimals_),
                                            std::to_string(DecDecimals_)};
    return Join(fields, "\t");
}

std::vector<std::string> RADecFormat::SupportedRAFormats() {
    return namesOf(notationsOfRA());
}

std::vector<std::string> RADecFormat::SupportedDecFormats() {
    return namesOf(notationsOfDec());
}

void RADecFormat::setRaFormat(std::string_view name) {
    raFormat_ = name;
    raNotation_ = findNotation(notationsOfRA(), raFormat_);
}

void RADecFormat::setDecFormat(std::string_view name) {
    decFormat_ = name;
    decNotation_ = findNotation(notationsOfDec(), decFormat_);
}

} // namespace skyvert
