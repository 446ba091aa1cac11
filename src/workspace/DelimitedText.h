#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace skyvert {

/// How the fields of a record are written in one line of a delimited text file.
struct Dialect {
    std::string_view name; ///< the row of the popups that choose a dialect
    char separator;        ///< a blank: two of them separate like one
    bool quoted = false;   ///< comma-separated text, in which fields may be quoted
};

/// All dialects, in the order of the popups' rows.
std::span<const Dialect> dialects();

/// The dialect with this name, ignoring letter case; null for any other text.
const Dialect* dialectNamed(std::string_view name);

/// Splits lines of comma-separated text. Keeps the fields of the last line, so that a line equal
/// to the one before, ignoring letter case, is not scanned again, and so that the room of the
/// fields is used again and again.
class CommaSeparatedText {
public:
    /// The fields of a line, valid until the next call.
    ///
    /// A field in double quotes may hold commas, blanks and doubled quotes. Any other field runs
    /// to the next comma and is trimmed. Broken quoting is no error: a missing closing quote ends
    /// the field with the line, and text behind a closing quote starts the next field.
    std::span<const std::string> SplitCommaSeparated(std::string_view line);

private:
    std::string& addField();
    std::string_view scanQuoted(std::string_view rest);
    std::string_view scanPlain(std::string_view rest);

    std::vector<std::string> nComma_; ///< the first `count_` are the fields of the last line
    std::size_t count_ = 0;
    std::string nCommaLast_; ///< the last line as it came, not trimmed
};

/// Splits the lines of one file or of many. Allocates nothing for a line once its buffers have
/// grown to the longest one.
class LineSplitter {
public:
    /// The fields of a line, valid until the next call and as long as the line is.
    std::span<const std::string_view> split(std::string_view line, const Dialect& dialect);

private:
    std::string_view withBlanksHalved(std::string_view line);

    std::vector<std::string_view> fields_;
    std::string halved_;
    CommaSeparatedText comma_;
};

/// Appends a record as comma-separated text to `line`: a field is quoted if `quoteAll`, or if it
/// holds a comma or a double quote; double quotes inside are doubled.
void JoinCommaSeparated(std::span<const std::string_view> fields, bool quoteAll, std::string& line);

/// Appends a record in a dialect to `line`.
void appendRecord(std::span<const std::string_view> fields, const Dialect& dialect,
                  std::string& line);

} // namespace skyvert
