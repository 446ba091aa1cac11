#include "notation/Notation.h"

#include "platform/Text.h"

#include <algorithm>

namespace skyvert {

namespace {

// Masks with letters, marks or no separator have one optional digit more than the others. No mask
// has the closing mark, which the parsers do not need.
// clang-format off
constexpr Notation kNotationsOfRA[] = {
    {"HH",           false, false, 1, 1, "",  "",  "",   Cutting::Whole,   ""},
    {"HH MM",        false, false, 2, 2, " ", "",  "",   Cutting::Blanks,  R"(##\ ##.99999)"},
    {"HH MM SS",     false, false, 3, 2, " ", " ", "",   Cutting::Blanks,  R"(##\ ##\ ##.99999)"},
    {"HHMM",         false, false, 2, 2, "",  "",  "",   Cutting::Columns, R"(####.999999)"},
    {"HHMMSS",       false, false, 3, 2, "",  "",  "",   Cutting::Columns, R"(######.999999)"},
    {"HH:MM",        false, false, 2, 2, ":", "",  "",   Cutting::Colons,  R"(##\:##.99999)"},
    {"HH:MM:SS",     false, false, 3, 2, ":", ":", "",   Cutting::Colons,  R"(##\:##\:##.99999)"},
    {"HHhMMm",       false, false, 2, 2, "h", "",  "m",  Cutting::Letters, R"(##\h##.999999)"},
    {"HHhMMmSSs",    false, false, 3, 2, "h", "m", "s",  Cutting::Letters, R"(##\h##\m##.999999)"},
    {"DDD",          true,  false, 1, 1, "",  "",  "",   Cutting::Whole,   ""},
    {"DDD MM",       true,  false, 2, 3, " ", "",  "",   Cutting::Blanks,  R"(###\ ##.99999)"},
    {"DDD MM SS",    true,  false, 3, 3, " ", " ", "",   Cutting::Blanks,  R"(###\ ##\ ##.99999)"},
    {"DDDMM",        true,  false, 2, 3, "",  "",  "",   Cutting::Columns, R"(#####.999999)"},
    {"DDDMMSS",      true,  false, 3, 3, "",  "",  "",   Cutting::Columns, R"(#######.999999)"},
    {"DDD:MM",       true,  false, 2, 3, ":", "",  "",   Cutting::Colons,  R"(###\:##.99999)"},
    {"DDD:MM:SS",    true,  false, 3, 3, ":", ":", "",   Cutting::Colons,  R"(###\:##\:##.99999)"},
    {"DDD°MM'",      true,  false, 2, 3, "°", "",  "'",  Cutting::Marks,   R"(###\°##.999999)"},
    {"DDD°MM'SS\"",  true,  false, 3, 3, "°", "'", "\"", Cutting::Marks,   R"(###\°##\'##.999999)"},
};

constexpr Notation kNotationsOfDec[] = {
    {"DD",           false, false, 1, 1, "",  "",  "",   Cutting::Whole,   ""},
    {"+DD",          false, true,  1, 1, "",  "",  "",   Cutting::Whole,   ""},
    {"+DD MM",       false, true,  2, 2, " ", "",  "",   Cutting::Blanks,  R"(&##\ ##.99999)"},
    {"+DD MM SS",    false, true,  3, 2, " ", " ", "",   Cutting::Blanks,  R"(&##\ ##\ ##.99999)"},
    {"+DDMM",        false, true,  2, 2, "",  "",  "",   Cutting::Columns, R"(&####.999999)"},
    {"+DDMMSS",      false, true,  3, 2, "",  "",  "",   Cutting::Columns, R"(&######.999999)"},
    {"+DD:MM",       false, true,  2, 2, ":", "",  "",   Cutting::Colons,  R"(&##\:##.99999)"},
    {"+DD:MM:SS",    false, true,  3, 2, ":", ":", "",   Cutting::Colons,  R"(&##\:##\:##.99999)"},
    {"+DD°MM'",      false, true,  2, 2, "°", "",  "'",  Cutting::Marks,   R"(&##\°##.999999)"},
    {"+DD°MM'SS\"",  false, true,  3, 2, "°", "'", "\"", Cutting::Marks,   R"(&##\°##\'##.999999)"},
};
// clang-format on

} // namespace

std::span<const Notation> notationsOfRA() {
    return kNotationsOfRA;
}

std::span<const Notation> notationsOfDec() {
    return kNotationsOfDec;
}

const Notation* findNotation(std::span<const Notation> notations, std::string_view name) {
    const auto found =
        std::find_if(notations.begin(), notations.end(), [&](const Notation& notation) {
            return equalsIgnoringCase(notation.name, name);
        });
    return found == notations.end() ? nullptr : &*found;
}

} // namespace skyvert
