#include "platform/Text.h"

#include "platform/Unicode.h"

#include <algorithm>

namespace skyvert {

namespace {

/// The length in bytes of the first `count` characters. Continuation bytes at the start of the
/// text count as one character.
std::size_t bytesOf(std::string_view text, std::size_t count) {
    std::size_t at = 0;
    for (; count > 0 && at < text.size(); --count) {
        ++at;
        while (at < text.size() && continuesCharacter(text[at]))
            ++at;
    }
    return at;
}

/// The byte offset of the first `wanted` at or after `from`, or `npos`.
std::size_t findIgnoringCase(std::string_view text, std::string_view wanted, std::size_t from) {
    if (wanted.empty())
        return std::string_view::npos;
    const auto begin = text.begin() + static_cast<std::ptrdiff_t>(from);
    const auto found = std::search(begin, text.end(), wanted.begin(), wanted.end(),
                                   [](char a, char b) { return lowered(a) == lowered(b); });
    return found == text.end() ? std::string_view::npos
                               : static_cast<std::size_t>(found - text.begin());
}

void replace(std::string_view text, std::string_view wanted, std::string_view by,
             bool everyOccurrence, std::string& out) {
    out.clear();
    out.reserve(text.size());
    std::size_t taken = 0;
    std::size_t found = findIgnoringCase(text, wanted, 0);
    while (found != std::string_view::npos) {
        out.append(text, taken, found - taken).append(by);
        taken = found + wanted.size();
        found = everyOccurrence ? findIgnoringCase(text, wanted, taken) : std::string_view::npos;
    }
    out.append(text, taken);
}

} // namespace

bool equalsIgnoringCase(std::string_view a, std::string_view b) {
    // Most equal texts are identical: saves a twentieth of an import.
    return a == b || std::equal(a.begin(), a.end(), b.begin(), b.end(),
                                [](char x, char y) { return lowered(x) == lowered(y); });
}

std::string_view Trim(std::string_view text) {
    while (!text.empty() && isWhiteSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isWhiteSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

void Split(std::string_view text, char delimiter, std::vector<std::string_view>& fields) {
    fields.clear();
    if (text.empty())
        return;
    for (std::size_t end = text.find(delimiter); end != std::string_view::npos;
         end = text.find(delimiter)) {
        fields.push_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    fields.push_back(text);
}

std::vector<std::string_view> Split(std::string_view text, char delimiter) {
    std::vector<std::string_view> fields;
    Split(text, delimiter, fields);
    return fields;
}

std::string zeroPadded(std::string_view digits, std::size_t width) {
    return std::string(width - std::min(width, digits.size()), '0').append(digits);
}

std::string Join(std::span<const std::string> fields, std::string_view separator) {
    std::string out;
    for (const std::string& field : fields) {
        if (&field != fields.data())
            out += separator;
        out += field;
    }
    return out;
}

std::string Replace(std::string_view text, std::string_view wanted, std::string_view by) {
    std::string out;
    replace(text, wanted, by, false, out);
    return out;
}

std::string ReplaceAll(std::string_view text, std::string_view wanted, std::string_view by) {
    std::string out;
    replace(text, wanted, by, true, out);
    return out;
}

void ReplaceAll(std::string_view text, std::string_view wanted, std::string_view by,
                std::string& out) {
    replace(text, wanted, by, true, out);
}

std::size_t Len(std::string_view text) {
    const auto continuing = std::count_if(text.begin(), text.end(), continuesCharacter);
    const bool strayOpening = !text.empty() && continuesCharacter(text.front());
    return text.size() - static_cast<std::size_t>(continuing) + (strayOpening ? 1 : 0);
}

std::string_view Left(std::string_view text, std::size_t count) {
    return text.substr(0, bytesOf(text, count));
}

std::string_view Mid(std::string_view text, std::size_t start, std::size_t count) {
    return Left(text.substr(bytesOf(text, start - std::min<std::size_t>(start, 1))), count);
}

} // namespace skyvert
