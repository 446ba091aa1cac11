#include "workspace/DelimitedText.h"

#include "platform/Text.h"

#include <algorithm>
#include <array>

namespace skyvert {

namespace {

constexpr char kTab = '\t';
constexpr char kSpace = ' ';
constexpr char kComma = ',';
constexpr char kQuote = '"';

/// In the order of `Dialect`, `None` left out.
constexpr std::array<std::string_view, 3> kDialectNames{"Tab-separated", "Comma-separated",
                                                        "Space-separated"};

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

void appendPlain(std::span<const std::string_view> fields, char separator, std::string& line) {
    appendJoined(fields, separator, line, [&line](std::string_view field) { line += field; });
}

} // namespace

Dialect dialectNamed(std::string_view name) {
    for (std::size_t i = 0; i < kDialectNames.size(); ++i) {
        if (equalsIgnoringCase(kDialectNames[i], name))
            return static_cast<Dialect>(i + 1);
    }
    return Dialect::None;
}

std::span<const std::string_view> dialectNames() {
    return kDialectNames;
}

std::span<const std::string> CommaSeparatedText::SplitCommaSeparated(std::string_view line) {
    // Deliberately blind to letter case: a line that differs from the last one in nothing else
    // yields the last one's fields.
    if (!equalsIgnoringCase(line, nCommaLast_)) {
        count_ = 0;
        std::string_view rest = Trim(line);
        while (!rest.empty())
            rest = rest.front() == kQuote ? scanQuoted(rest.substr(1)) : scanPlain(rest);
        nCommaLast_ = line;
    }
    return std::span<const std::string>(nComma_).first(count_);
}

/// The next field to fill: one of an earlier line where there is one, for its room.
std::string& CommaSeparatedText::addField() {
    if (count_ == nComma_.size())
        nComma_.emplace_back();
    std::string& field = nComma_[count_++];
    field.clear();
    return field;
}

/// Reads a field from behind its opening quote; returns what stands behind the field.
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

/// Reads a field up to the next comma; returns what stands behind the field.
std::string_view CommaSeparatedText::scanPlain(std::string_view rest) {
    const std::size_t comma = rest.find(kComma);
    addField() = Trim(rest.substr(0, comma));
    return comma == std::string_view::npos ? std::string_view() : Trim(rest.substr(comma + 1));
}

/// The line with every two blanks replaced by one. One pass only: three blanks leave two, and
/// between them an empty field.
std::string_view LineSplitter::withBlanksHalved(std::string_view line) {
    constexpr std::string_view kTwoBlanks = "  ";
    if (line.find(kTwoBlanks) == std::string_view::npos)
        return line;
    ReplaceAll(line, kTwoBlanks, " ", halved_);
    return halved_;
}

std::span<const std::string_view> LineSplitter::split(std::string_view line, Dialect dialect) {
    fields_.clear();
    switch (dialect) {
    case Dialect::Tab:
        Split(line, kTab, fields_);
        break;
    case Dialect::Space:
        Split(withBlanksHalved(line), kSpace, fields_);
        break;
    case Dialect::Comma:
        for (const std::string& field : comma_.SplitCommaSeparated(line))
            fields_.emplace_back(field);
        break;
    case Dialect::None:
        break;
    }
    return fields_;
}

void JoinCommaSeparated(std::span<const std::string_view> fields, bool quoteAll,
                        std::string& line) {
    appendJoined(fields, kComma, line, [quoteAll, &line](std::string_view field) {
        appendCommaField(field, quoteAll, line);
    });
}

void appendRecord(std::span<const std::string_view> fields, Dialect dialect, std::string& line) {
    switch (dialect) {
    case Dialect::Tab:
        appendPlain(fields, kTab, line);
        break;
    case Dialect::Space:
        appendPlain(fields, kSpace, line);
        break;
    case Dialect::Comma:
        JoinCommaSeparated(fields, false, line);
        break;
    case Dialect::None:
        break;
    }
}

} // namespace skyvert
