#include "notation/FieldCutting.h"

#include "notation/RADecFormat.h"
#include "platform/ShortNumber.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <string>

namespace skyvert {

namespace {

/// At most three fields; those that the text lacks stay empty and read as 0.
using FieldTexts = std::array<std::string_view, 3>;

Fields readFields(const FieldTexts& texts, const RADecFormat& reader) {
    return {reader.StrToDbl(texts[0]), reader.StrToDbl(texts[1]), reader.StrToDbl(texts[2])};
}

/// Cuts a text at blanks. Double blanks become single ones in one pass: of three, two separators
/// are left, with an empty field between them.
FieldTexts cutAtBlanks(std::string_view text) {
    FieldTexts texts;
    for (std::string_view& field : texts) {
        field = text.substr(0, text.find(' '));
        text.remove_prefix(std::min(field.size() + 1, text.size()));
        if (text.starts_with(' '))
            text.remove_prefix(1);
    }
    return texts;
}

/// The marks of a method behind the first, second and third field.
using Marks = std::array<Mark, 3>;

/// One row for one `Cutting`. The general methods look for the marks at their first occurrence
/// only: of a second "h" or "'" nothing is made, it ends its number as any other letter would.
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

/// Takes `mark` from the front of `text` if it stands there, in any letter case; it serves once.
bool spendMark(std::string_view& text, Mark& mark) {
    if (mark.size == 0 || text.size() < mark.size || lowered(text[0]) != mark.bytes[0])
        return false;
    if (mark.size == 2 && text[1] != mark.bytes[1])
        return false;
    text.remove_prefix(mark.size);
    mark = {};
    return true;
}

/// Copies one field to `to`, without blanks and the closing mark, and takes it and the separator
/// behind it from `text`. Returns the end of the copy.
char* takeField(std::string_view& text, Marks& marks, char* to) {
    while (!text.empty()) {
        if (spendMark(text, marks[0]) || spendMark(text, marks[1]))
            break;
        const char byte = text.front();
        if (spendMark(text, marks[2]))
            continue;
        text.remove_prefix(1);
        if (byte == ':')
            break;
        if (byte != ' ')
            *to++ = byte;
    }
    return to;
}

/// Cuts a text at colons and marks. The fields are copied to `to`, which holds the text's size.
FieldTexts copyFields(std::string_view text, Marks marks, char* to) {
    FieldTexts texts;
    for (std::string_view& field : texts) {
        const char* const start = to;
        to = takeField(text, marks, to);
        field = {start, to};
    }
    return texts;
}

Fields cutAtMarks(std::string_view text, const Marks& marks, const RADecFormat& reader) {
    std::array<char, 128> room;
    if (text.size() <= room.size())
        return readFields(copyFields(text, marks, room.data()), reader);
    std::string longText(text.size(), '\0');
    return readFields(copyFields(text, marks, longText.data()), reader);
}

Fields cutByColumns(std::string_view text, const Notation& notation, const RADecFormat& reader) {
    const std::string_view first = Left(text, static_cast<std::size_t>(notation.firstDigits));
    const std::string_view rest = text.substr(first.size());
    const std::string_view minutes = notation.fields == 2 ? rest : Left(rest, 2);
    return readFields({first, minutes, rest.substr(minutes.size())}, reader);
}

/// By the method of the notation, for any text.
Fields cutByMethod(std::string_view text, const Notation& notation, const RADecFormat& reader) {
    switch (notation.cutting) {
    case Cutting::Blanks:
        return readFields(cutAtBlanks(text), reader);
    case Cutting::Colons:
        return cutAtMarks(text, {}, reader);
    case Cutting::Letters:
    case Cutting::Marks:
        return cutAtMarks(text, marksOf(notation.cutting), reader);
    case Cutting::Columns:
        return cutByColumns(text, notation, reader);
    case Cutting::Whole:
        break;
    }
    return {reader.StrToDbl(text)};
}

/// What is still to be read of a text.
struct Rest {
    const char* at;
    const char* end;

    bool empty() const { return at == end; }
};

/// Takes a number of few digits.
inline bool takeNumber(Rest& rest, double& number) {
    rest.at = readShort(rest.at, rest.end, number);
    return rest.at != nullptr;
}

/// Takes just so many digits.
bool takeColumns(Rest& rest, int count, double& number) {
    if (rest.end - rest.at < count)
        return false;
    std::uint64_t digits = 0;
    const char* const end = rest.at + count;
    rest.at = takeDigits(rest.at, end, digits);
    number = static_cast<double>(static_cast<std::int64_t>(digits));
    return rest.at == end;
}

inline bool takeMark(Rest& rest, const Mark& mark) {
    if (mark.size == 0 || *rest.at != mark.bytes[0])
        return false;
    ++rest.at;
    return mark.size == 1 || (!rest.empty() && *rest.at++ == mark.bytes[1]);
}

enum class Progress { More, AtEnd, NotPlain };

/// Takes a number and the mark behind it, which the end of the text may stand for.
inline Progress takeField(Rest& rest, double& number, const Mark& mark) {
    if (!takeNumber(rest, number))
        return Progress::NotPlain;
    if (!rest.empty() && !takeMark(rest, mark))
        return Progress::NotPlain;
    return rest.empty() ? Progress::AtEnd : Progress::More;
}

bool readPlainColumns(Rest rest, const Notation& notation, Fields& fields) {
    const bool hasSeconds = notation.fields == 3;
    return takeColumns(rest, notation.firstDigits, fields.first) &&
           (!hasSeconds || takeColumns(rest, 2, fields.minutes)) &&
           takeNumber(rest, hasSeconds ? fields.seconds : fields.minutes) && rest.empty();
}

/// Reads a text that has exactly the shape of its notation: short numbers, each with its mark, the
/// last one with or without. Nearly every text is one. False for all others.
bool readPlain(Rest rest, const Notation& notation, Fields& fields) {
    if (notation.cutting == Cutting::Columns)
        return readPlainColumns(rest, notation, fields);
    const Marks& marks = marksOf(notation.cutting);
    Progress progress = takeField(rest, fields.first, marks[0]);
    if (progress == Progress::More)
        progress = takeField(rest, fields.minutes, marks[1]);
    if (progress == Progress::More)
        progress = takeField(rest, fields.seconds, marks[2]);
    return progress == Progress::AtEnd;
}

} // namespace

Fields cutFields(std::string_view text, const Notation& notation, const RADecFormat& reader) {
    Fields fields;
    if (reader.localised() ||
        !readPlain({text.data(), text.data() + text.size()}, notation, fields))
        fields = cutByMethod(text, notation, reader);
    return fields;
}

} // namespace skyvert
