#include "workspace/DelimitedText.h"

#include "platform/Text.h"

#include <algorithm>
#include <array>

namespace skyvert {

namespace {

constexpr char kComma = ',';
constexpr char kQuote = '"';

constexpr auto kDialects = std::to_array<Dialect>({
    {"Tab-separated", '\t'},
    {"Comma-separated", kComma, true},
    {"Space-separated", ' '},
});

/// Appends a field with every double quote doubled.
void appendDoubled(std::string_view field, std::string& line) {
    for (const char byte : field) {
        if (byte == kQuote)
            line += kQuote;
        line += byte;
    }
}

void appendCommaField(std::string_view field, bool quoteAll, std::string& line) {
    const bool quoted = quoteAll || field.find_first_of(",\"") != std::string_view::npos;
    if (quoted)
        line += kQuote;
    appendDoubled(field, line);
    if (quoted)
        line += kQuote;
}

/// Appends fields with a separator between them, each by `appendField`.
template <typename AppendField>
void appendJoined(std::span<const std::string_view> fields, char separator, std::string& line,
                  const AppendField& appendField) {
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i > 0)
            line += separator;
        appendField(fields[i]);
    }
}

} // namespace

std::span<const Dialect> dialects() {
    return kDialects;
}

const Dialect* dialectNamed(std::string_view name) {
    const auto* const found =
        std::find_if(kDialects.begin(), kDialects.end(), [name](const Dialect& dialect) {
            return equalsIgnoringCase(dialect.name, name);
        });
    return found == kDialects.end() ? nullptr : found;
}

std::span<const std::string> CommaSeparatedText::SplitCommaSeparated(std::string_view line) {
    // Ignores case on purpose: a line that differs from the last one only in case yields the fields
    // of the last one.
    if (!equalsIgnoringCase(line, nCommaLast_)) {
        count_ = 0;
        std::string_view rest = Trim(line);
        while (!rest.empty())
            rest = rest.front() == kQuote ? scanQuoted(rest.substr(1)) : scanPlain(rest);
        nCommaLast_ = line;
    }
    return std::span<const std::string>(nComma_).first(count_);
}

/// Adds an empty field; reuses the memory of an earlier line's field if there is one.
std::string& CommaSeparatedText::addField() {
    if (count_ == nComma_.size())
        nComma_.emplace_back();
    std::string& field = nComma_[count_++];
    field.clear();
    return field;
}

/// Reads a field after its opening quote. Returns the text after the field and its comma.
std::string_view CommaSeparatedText::scanQuoted(std::string_view rest) {
    std::string& field = addField();
    for (;;) {
        const std::size_t quote = rest.find(kQuote);
        field += rest.substr(0, quote);
        if (quote == std::string_view::npos)
            return {};
        rest.remove_prefix(quote + 1);
        if (rest.empty() || rest.front() != kQuote)
            break;
        field += kQuote;
        rest.remove_prefix(1);
    }
    rest = Trim(rest);
    return rest.starts_with(kComma) ? Trim(rest.substr(1)) : rest;
}

/// Reads a field up to the next comma. Returns the text after that comma.
std::string_view CommaSeparatedText::scanPlain(std::string_view rest) {
    const std::size_t comma = rest.find(kComma);
    addField() = Trim(rest.substr(0, comma));
    return comma == std::string_view::npos ? std::string_view() : Trim(rest.substr(comma + 1));
}

/// The line with each pair of blanks replaced by one, in a single pass: three blanks become two,
/// with an empty field between them.
std::string_view LineSplitter::withBlankPairsReplaced(std::string_view line) {
    constexpr std::string_view kTwoBlanks = "  ";
    if (line.find(kTwoBlanks) == std::string_view::npos)
        return line;
    ReplaceAll(line, kTwoBlanks, " ", replaced_);
    return replaced_;
}

std::span<const std::string_view> LineSplitter::split(std::string_view line,
                                                      const Dialect& dialect) {
    if (dialect.quoted) {
        fields_.clear();
        for (const std::string& field : comma_.SplitCommaSeparated(line))
            fields_.emplace_back(field);
    } else {
        Split(dialect.separatesByBlanks() ? withBlankPairsReplaced(line) : line, dialect.separator,
              fields_);
    }
    return fields_;
}

void JoinCommaSeparated(std::span<const std::string_view> fields, bool quoteAll,
                        std::string& line) {
    appendJoined(fields, kComma, line, [quoteAll, &line](std::string_view field) {
        appendCommaField(field, quoteAll, line);
    });
}

void appendRecord(std::span<const std::string_view> fields, const Dialect& dialect,
                  std::string& line) {
    if (dialect.quoted)
        JoinCommaSeparated(fields, false, line);
    else
        appendJoined(fields, dialect.separator, line,
                     [&line](std::string_view field) { line += field; });
}

} // namespace skyvert
