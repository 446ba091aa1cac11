#include "notation/FieldCutting.h"

#include "notation/RADecFormat.h"
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

std::size_t findByte(std::string_view text, char byte) {
    return static_cast<std::size_t>(std::find(text.begin(), text.end(), byte) - text.begin());
}

/// Cuts a text at a separator; `pairsAreOne` makes one separator of two side by side.
FieldTexts cutAt(char separator, bool pairsAreOne, std::string_view text) {
    FieldTexts texts;
    for (std::string_view& field : texts) {
        const std::size_t end = findByte(text, separator);
        field = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (pairsAreOne && text.starts_with(separator))
            text.remove_prefix(1);
    }
    return texts;
}

/// The marks that stand for separators, each at its first occurrence only. Of a second "h" or
/// "'" nothing is made: it ends its number, as any other letter would.
struct Separators {
    std::string_view first;
    std::string_view second;
    std::string_view closing;
};

constexpr Separators kLetters{"h", "m", "s"};
constexpr Separators kMarks{"°", "'", "\""};

/// Takes `mark` from the front of `text`, which is not empty, if it stands there; a mark serves
/// once.
bool takeMark(std::string_view& text, std::string_view& mark) {
    if (mark.empty() || lowered(text.front()) != mark.front())
        return false;
    if (mark.size() > 1 && !text.starts_with(mark))
        return false;
    text.remove_prefix(mark.size());
    mark = {};
    return true;
}

constexpr bool isPartOfNumber(char byte) {
    return (byte >= '0' && byte <= '9') || byte == '.';
}

/// Copies the digits and points that `text` opens with, and returns the end of the copy.
char* copyNumber(std::string_view& text, char* to) {
    const char* from = text.data();
    for (const char* const end = from + text.size(); from != end && isPartOfNumber(*from); ++from)
        *to++ = *from;
    text.remove_prefix(static_cast<std::size_t>(from - text.data()));
    return to;
}

/// Copies one field to `to`, without blanks and the closing mark, and takes it and the separator
/// behind it from `text`. Returns the end of the copy.
char* takeField(std::string_view& text, Separators& marks, char* to) {
    for (to = copyNumber(text, to); !text.empty(); to = copyNumber(text, to)) {
        if (takeMark(text, marks.first) || takeMark(text, marks.second))
            break;
        const char byte = text.front();
        if (takeMark(text, marks.closing))
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
FieldTexts copyFields(std::string_view text, Separators marks, char* to) {
    FieldTexts texts;
    for (std::string_view& field : texts) {
        const char* const start = to;
        to = takeField(text, marks, to);
        field = {start, to};
    }
    return texts;
}

Fields cutAtMarks(std::string_view text, const Separators& marks, const RADecFormat& reader) {
    std::array<char, 128> room;
    if (text.size() <= room.size())
        return readFields(copyFields(text, marks, room.data()), reader);
    std::string longText(text.size(), '\0');
    return readFields(copyFields(text, marks, longText.data()), reader);
}

Fields cutAtColons(std::string_view text, const RADecFormat& reader) {
    if (findByte(text, ' ') == text.size())
        return readFields(cutAt(':', false, text), reader);
    return cutAtMarks(text, {}, reader);
}

Fields cutByColumns(std::string_view text, const Notation& notation, const RADecFormat& reader) {
    const std::string_view first = Left(text, static_cast<std::size_t>(notation.firstDigits));
    const std::string_view rest = text.substr(first.size());
    const std::string_view minutes = notation.fields == 2 ? rest : Left(rest, 2);
    return readFields({first, minutes, rest.substr(minutes.size())}, reader);
}

} // namespace

Fields cutFields(std::string_view text, const Notation& notation, const RADecFormat& reader) {
    switch (notation.cutting) {
    case Cutting::Blanks:
        // Double blanks become single ones in one pass: of three, two separators are left, with an
        // empty field between them.
        return readFields(cutAt(' ', true, text), reader);
    case Cutting::Colons:
        return cutAtColons(text, reader);
    case Cutting::Letters:
        return cutAtMarks(text, kLetters, reader);
    case Cutting::Marks:
        return cutAtMarks(text, kMarks, reader);
    case Cutting::Columns:
        return cutByColumns(text, notation, reader);
    case Cutting::Whole:
        break;
    }
    return {reader.StrToDbl(text)};
}

} // namespace skyvert
