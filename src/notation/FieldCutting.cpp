#include "notation/FieldCutting.h"

#include "notation/RADecFormat.h"
#include "platform/ShortNumber.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <string>

namespace skyvert {

namespace {

/// At most three fields; missing ones stay empty and read as 0.
using FieldTexts = std::array<std::string_view, 3>;

/// The marks that end the first, second and third field.
using Marks = std::array<Mark, 3>;

/// One row for each `Cutting`.
constexpr std::array<Marks, 6> kMarks{{
    {},               // Whole
    {" ", " ", ""},   // Blanks
    {":", ":", ""},   // Colons
    {"h", "m", "s"},  // Letters
    {"°", "'", "\""}, // Marks
    {},               // Columns
}};

constexpr const Marks& marksOf(Cutting cutting) {
    return kMarks[static_cast<std::size_t>(cutting)];
}

/// Consumes `mark` if `text` starts with it, ignoring case, and clears it so that each mark matches
/// once: a second "h" or "'" ends its number as any other character would.
bool consumeMark(std::string_view& text, Mark& mark) {
    if (mark.size == 0 || text.size() < mark.size || lowered(text[0]) != mark.bytes[0])
        return false;
    if (mark.size == 2 && text[1] != mark.bytes[1])
        return false;
    text.remove_prefix(mark.size);
    mark = {};
    return true;
}

/// Copies a text with its first two marks replaced by colons, and without blanks and the closing
/// mark. Returns the end of the copy, which is no longer than the text.
char* copyWithColons(std::string_view text, Marks marks, char* to) {
    while (!text.empty()) {
        if (consumeMark(text, marks[0]) || consumeMark(text, marks[1])) {
            *to++ = ':';
        } else if (!consumeMark(text, marks[2])) {
            if (text.front() != ' ')
                *to++ = text.front();
            text.remove_prefix(1);
        }
    }
    return to;
}

/// Splits a text. Two adjacent blanks count as one, in a single pass: three blanks are two
/// separators with an empty field between them.
FieldTexts split(std::string_view text, char separator) {
    FieldTexts fields;
    for (std::string_view& field : fields) {
        field = text.substr(0, text.find(separator));
        text.remove_prefix(std::min(field.size() + 1, text.size()));
        if (separator == ' ' && text.starts_with(' '))
            text.remove_prefix(1);
    }
    return fields;
}

FieldTexts splitColumns(std::string_view text, const Notation& notation) {
    const std::string_view first = Left(text, static_cast<std::size_t>(notation.firstDigits));
    const std::string_view rest = text.substr(first.size());
    const std::string_view minutes = notation.fields == 2 ? rest : Left(rest, 2);
    return {first, minutes, rest.substr(minutes.size())};
}

Fields readFields(const FieldTexts& fields, const RADecFormat& reader) {
    return {reader.StrToDbl(fields[0]), reader.StrToDbl(fields[1]), reader.StrToDbl(fields[2])};
}

/// Reads any text by the notation's way of cutting.
Fields readAny(std::string_view text, const Notation& notation, const RADecFormat& reader) {
    if (notation.cutting == Cutting::Whole)
        return {reader.StrToDbl(text)};
    if (notation.cutting == Cutting::Blanks)
        return readFields(split(text, ' '), reader);
    if (notation.cutting == Cutting::Columns)
        return readFields(splitColumns(text, notation), reader);
    std::array<char, 128> room;
    std::string longRoom;
    char* copy = room.data();
    if (text.size() > room.size()) {
        longRoom.resize(text.size());
        copy = longRoom.data();
    }
    char* const end = copyWithColons(text, marksOf(notation.cutting), copy);
    return readFields(split({copy, end}, ':'), reader);
}

/// Returns the position after `mark` at `at`, or null if there is no `mark`.
inline const char* skipMark(const char* at, const char* end, const Mark& mark) {
    if (*at != mark.bytes[0])
        return nullptr;
    if (mark.size == 1)
        return at + 1;
    return mark.size == 2 && end - at >= 2 && at[1] == mark.bytes[1] ? at + 2 : nullptr;
}

bool readShapedColumns(const char* at, const char* end, const Notation& notation, char point,
                       Fields& fields) {
    const auto readColumns = [&](std::ptrdiff_t count, double& field) {
        const char* const fieldEnd = at + std::min(count, end - at);
        std::uint64_t digits = 0;
        at = readDigits(at, fieldEnd, digits);
        field = static_cast<double>(static_cast<std::int64_t>(digits));
        return at == fieldEnd;
    };
    if (!readColumns(notation.firstDigits, fields[0]))
        return false;
    if (notation.fields == 2)
        return readShort(at, end, point, fields[1]) == end;
    return readColumns(2, fields[1]) && readShort(at, end, point, fields[2]) == end;
}

/// Fast path for a text that has the shape of its notation: short numbers, each followed by its
/// mark or the end. Returns false for any other text, which `readAny` must read. Nearly every text
/// has the shape. Without this path a row (parsed, precessed and rendered) takes 25% longer, since
/// `readAny` searches for the first occurrence of each mark and removes blanks from numbers.
bool readShaped(const char* at, const char* end, const Notation& notation, char point,
                Fields& fields) {
    if (notation.cutting == Cutting::Columns)
        return readShapedColumns(at, end, notation, point, fields);
    const Marks& marks = marksOf(notation.cutting);
    // Three calls, not a loop: each has branches of its own to predict.
    const auto readField = [&](double& field, const Mark& mark) {
        at = readShort(at, end, point, field);
        if (at != nullptr && at != end)
            at = skipMark(at, end, mark);
        return at != nullptr && at != end;
    };
    const bool goesOn = readField(fields[0], marks[0]) && readField(fields[1], marks[1]) &&
                        readField(fields[2], marks[2]);
    return !goesOn && at == end;
}

} // namespace

Fields cutFields(std::string_view text, const Notation& notation, const RADecFormat& reader) {
    Fields fields{};
    const char point = reader.shortPoint();
    if (point == '\0' ||
        !readShaped(text.data(), text.data() + text.size(), notation, point, fields))
        fields = readAny(text, notation, reader);
    return fields;
}

} // namespace skyvert
